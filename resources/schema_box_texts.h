#pragma once

#include "resources/text.h"

/// The boxes about schemas, and the button in the status bar.
namespace quillon::resources::schema_box_texts {

// The button. %1 is the line on the schema.
inline constexpr Text Button = u"スキーマ: %1";
inline constexpr Text ButtonTip =
    u"%1\nクリックすると、スキーマの一覧と見つけ方を表示します (Shift+F7)。";
inline constexpr Text NoDocument = u"文書なし";

// The box.
inline constexpr Text BoxTitle = u"スキーマ";
inline constexpr Text LinksName = u"この文書のスキーマ";
inline constexpr Text NameColumn = u"スキーマ";
inline constexpr Text LanguageColumn = u"種類";
inline constexpr Text FoundByColumn = u"見つけ方";
inline constexpr Text StateColumn = u"状態";
inline constexpr Text DetailsName = u"選択したスキーマの説明";
inline constexpr Text Nothing =
    u"この文書のスキーマは見つかっていません。スキーマがなくても編集できますが、検証や候補の表示に"
    u"は"
    u"スキーマが役立ちます。\n次の順に探しました: この文書用の選択、DOCTYPE、xsi:schemaLocation、"
    u"xml-model、x-schema:、規則、カタログ。";
inline constexpr Text PathDetail = u"場所: %1";
inline constexpr Text LocationDetail = u"文書中の記述: %1";
inline constexpr Text NamespaceDetail = u"名前空間: %1";
inline constexpr Text MissingPart = u"スキーマの一部";
inline constexpr Text MissingPartWord = u"なし";
inline constexpr Text MissingPartState = u"見つからないため、宣言の一部を使用できません。";

inline constexpr Text ChooseButton = u"この文書用に選択(&S)...";
inline constexpr Text ForgetButton = u"選択を解除(&U)";
inline constexpr Text FetchButton = u"取得(&G)...";
inline constexpr Text OpenButton = u"スキーマを開く(&O)";
inline constexpr Text BindButton = u"結び付ける(&B)...";
inline constexpr Text CreateButton = u"作成(&C)...";
inline constexpr Text RulesButton = u"規則(&R)...";
inline constexpr Text ClearButton = u"キャッシュを空にする(&E)";
inline constexpr Text CloseButton = u"閉じる";
inline constexpr Text ChooseTip =
    u"選択したスキーマは、この文書に対して記憶されます。文書は変更されません。";
inline constexpr Text FetchTip =
    u"選択したスキーマのアドレスに接続して、このコンピューターに保存します。";
inline constexpr Text BindTip = u"スキーマの場所を文書に書き込みます。";
inline constexpr Text CreateTip = u"この文書の内容から、スキーマの下書きを作成します。";
inline constexpr Text RulesTip =
    u"ファイル名やルート要素から、使用するスキーマを決める規則を編集します。";
inline constexpr Text ClearTip = u"「取得」で保存したスキーマを削除します。";

// Naming a schema in the document.
inline constexpr Text BindTitle = u"スキーマを結び付ける";
inline constexpr Text SchemaLabel = u"スキーマ(&F):";
inline constexpr Text SchemaName = u"結び付けるスキーマのファイル";
inline constexpr Text Browse = u"参照(&B)...";
inline constexpr Text FormGroup = u"文書に書き込む内容";
inline constexpr Text NoSchemaChosen = u"スキーマのファイルを指定してください。";
inline constexpr Text DocumentTypeForm = u"DOCTYPE (文書型宣言)";
inline constexpr Text SchemaLocationForm = u"xsi:schemaLocation (名前空間があるスキーマ)";
inline constexpr Text NoNamespaceForm = u"xsi:noNamespaceSchemaLocation (名前空間がないスキーマ)";
inline constexpr Text ModelForm = u"xml-model 命令";
inline constexpr Text XdrForm = u"x-schema: (既定の名前空間)";

// Rules.
inline constexpr Text RulesTitle = u"スキーマの規則";
inline constexpr Text RulesHint =
    u"空欄の条件は問いません。上の規則から順に調べ、最初に当てはまったものを使用します。"
    u"ファイル名には * と ? を使えます。";
inline constexpr Text RulesName = u"規則の一覧";
inline constexpr Text PatternColumn = u"ファイル名";
inline constexpr Text RootColumn = u"ルート要素";
inline constexpr Text NamespaceColumn = u"名前空間";
inline constexpr Text PathColumn = u"スキーマ";
inline constexpr Text AddRule = u"追加(&A)...";
inline constexpr Text ChangeSchema = u"スキーマの変更(&H)...";
inline constexpr Text RemoveRule = u"削除(&D)";
inline constexpr Text RuleUp = u"上へ(&P)";
inline constexpr Text RuleDown = u"下へ(&N)";
inline constexpr Text CatalogsGroup = u"OASIS XML カタログ";
inline constexpr Text CatalogsHint =
    u"システムのカタログ (/etc/xml/catalog) と環境変数 XML_CATALOG_FILES "
    u"のほかに使用するカタログです。";
inline constexpr Text AddCatalog = u"追加(&L)...";
inline constexpr Text RemoveCatalog = u"削除(&V)";
inline constexpr Text CatalogTitle = u"カタログの選択";
inline constexpr Text CatalogFilter = u"XML カタログ(*.xml)|*.xml|すべてのファイル(*.*)|*";
inline constexpr Text RuleSchemaTitle = u"規則で使用するスキーマの選択";
inline constexpr Text IncompleteRule =
    u"%1 行目: ファイル名、ルート要素、名前空間のうち少なくとも 1 つと、スキーマが必要です。";

} // namespace quillon::resources::schema_box_texts
