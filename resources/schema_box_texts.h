#pragma once

#include <QStringView>

/// The boxes about schemas, and the button in the status bar.
namespace quillon::resources::schema_box_texts {

// The button. %1 is the line on the schema.
inline constexpr QStringView Button = u"スキーマ: %1";
inline constexpr QStringView ButtonTip =
    u"%1\nクリックすると、スキーマの一覧と見つけ方を表示します (Shift+F7)。";
inline constexpr QStringView NoDocument = u"文書なし";

// The box.
inline constexpr QStringView BoxTitle = u"スキーマ";
inline constexpr QStringView LinksName = u"この文書のスキーマ";
inline constexpr QStringView NameColumn = u"スキーマ";
inline constexpr QStringView LanguageColumn = u"種類";
inline constexpr QStringView FoundByColumn = u"見つけ方";
inline constexpr QStringView StateColumn = u"状態";
inline constexpr QStringView DetailsName = u"選択したスキーマの説明";
inline constexpr QStringView Nothing =
    u"この文書のスキーマは見つかっていません。スキーマがなくても編集できますが、検証や候補の表示に"
    u"は"
    u"スキーマが役立ちます。\n次の順に探しました: この文書用の選択、DOCTYPE、xsi:schemaLocation、"
    u"xml-model、x-schema:、規則、カタログ。";
inline constexpr QStringView PathDetail = u"場所: %1";
inline constexpr QStringView LocationDetail = u"文書中の記述: %1";
inline constexpr QStringView NamespaceDetail = u"名前空間: %1";
inline constexpr QStringView MissingPart = u"スキーマの一部";
inline constexpr QStringView MissingPartWord = u"なし";
inline constexpr QStringView MissingPartState = u"見つからないため、宣言の一部を使用できません。";

inline constexpr QStringView ChooseButton = u"この文書用に選択(&S)...";
inline constexpr QStringView ForgetButton = u"選択を解除(&U)";
inline constexpr QStringView FetchButton = u"取得(&G)...";
inline constexpr QStringView OpenButton = u"スキーマを開く(&O)";
inline constexpr QStringView BindButton = u"結び付ける(&B)...";
inline constexpr QStringView CreateButton = u"作成(&C)...";
inline constexpr QStringView RulesButton = u"規則(&R)...";
inline constexpr QStringView ClearButton = u"キャッシュを空にする(&E)";
inline constexpr QStringView CloseButton = u"閉じる";
inline constexpr QStringView ChooseTip =
    u"選択したスキーマは、この文書に対して記憶されます。文書は変更されません。";
inline constexpr QStringView FetchTip =
    u"選択したスキーマのアドレスに接続して、このコンピューターに保存します。";
inline constexpr QStringView BindTip = u"スキーマの場所を文書に書き込みます。";
inline constexpr QStringView CreateTip = u"この文書の内容から、スキーマの下書きを作成します。";
inline constexpr QStringView RulesTip =
    u"ファイル名やルート要素から、使用するスキーマを決める規則を編集します。";
inline constexpr QStringView ClearTip = u"「取得」で保存したスキーマを削除します。";

// Naming a schema in the document.
inline constexpr QStringView BindTitle = u"スキーマを結び付ける";
inline constexpr QStringView SchemaLabel = u"スキーマ(&F):";
inline constexpr QStringView SchemaName = u"結び付けるスキーマのファイル";
inline constexpr QStringView Browse = u"参照(&B)...";
inline constexpr QStringView FormGroup = u"文書に書き込む内容";
inline constexpr QStringView NoSchemaChosen = u"スキーマのファイルを指定してください。";
inline constexpr QStringView DocumentTypeForm = u"DOCTYPE (文書型宣言)";
inline constexpr QStringView SchemaLocationForm = u"xsi:schemaLocation (名前空間があるスキーマ)";
inline constexpr QStringView NoNamespaceForm =
    u"xsi:noNamespaceSchemaLocation (名前空間がないスキーマ)";
inline constexpr QStringView ModelForm = u"xml-model 命令";
inline constexpr QStringView XdrForm = u"x-schema: (既定の名前空間)";

// Rules.
inline constexpr QStringView RulesTitle = u"スキーマの規則";
inline constexpr QStringView RulesHint =
    u"空欄の条件は問いません。上の規則から順に調べ、最初に当てはまったものを使用します。"
    u"ファイル名には * と ? を使えます。";
inline constexpr QStringView RulesName = u"規則の一覧";
inline constexpr QStringView PatternColumn = u"ファイル名";
inline constexpr QStringView RootColumn = u"ルート要素";
inline constexpr QStringView NamespaceColumn = u"名前空間";
inline constexpr QStringView PathColumn = u"スキーマ";
inline constexpr QStringView AddRule = u"追加(&A)...";
inline constexpr QStringView ChangeSchema = u"スキーマの変更(&H)...";
inline constexpr QStringView RemoveRule = u"削除(&D)";
inline constexpr QStringView RuleUp = u"上へ(&P)";
inline constexpr QStringView RuleDown = u"下へ(&N)";
inline constexpr QStringView CatalogsGroup = u"OASIS XML カタログ";
inline constexpr QStringView CatalogsHint =
    u"システムのカタログ (/etc/xml/catalog) と環境変数 XML_CATALOG_FILES "
    u"のほかに使用するカタログです。";
inline constexpr QStringView AddCatalog = u"追加(&L)...";
inline constexpr QStringView RemoveCatalog = u"削除(&V)";
inline constexpr QStringView CatalogTitle = u"カタログの選択";
inline constexpr QStringView CatalogFilter = u"XML カタログ(*.xml)|*.xml|すべてのファイル(*.*)|*";
inline constexpr QStringView RuleSchemaTitle = u"規則で使用するスキーマの選択";
inline constexpr QStringView IncompleteRule =
    u"%1 行目: ファイル名、ルート要素、名前空間のうち少なくとも 1 つと、スキーマが必要です。";

} // namespace quillon::resources::schema_box_texts
