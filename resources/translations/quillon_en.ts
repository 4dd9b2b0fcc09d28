<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ja">
<context>
<name></name>
<!-- broken_texts.h -->
<message><source> (修正中)</source><translation> (being mended)</translation></message>
<message><source>このファイルは整形式の XML ではありません。このままの内容で保存しますか？&#10;&#10;%1</source><translation>This file is not well-formed XML. Save it as it is?&#10;&#10;%1</translation></message>
<message><source>整形式の XML になりました。</source><translation>The text is well-formed XML now.</translation></message>
<message><source>エンコード '%1' では読めないバイト (%2) があります。</source><translation>There are bytes (%2) that the encoding '%1' cannot read.</translation></message>
<message><source>文字 '%1' は、エンコード '%2' で表すことができません。</source><translation>The encoding '%2' cannot hold the character '%1'.</translation></message>
<message><source>エンコードの宣言を '%1' に変更</source><translation>Change the encoding declaration to '%1'</translation></message>
<message><source>エンコードを '%1' に変更</source><translation>Change the encoding to '%1'</translation></message>
<message><source>読めないバイト (%1) を削除</source><translation>Delete the unreadable bytes (%1)</translation></message>
<message><source>文字 '%1' を文字参照 %2 に変更</source><translation>Change the character '%1' to the reference %2</translation></message>
<message><source>文字 '%1' を削除</source><translation>Delete the character '%1'</translation></message>
<!-- candidate_texts.h -->
<message><source>このあとに別の要素が必要です。</source><translation>Another element is needed after this one.</translation></message>
<message><source>この位置には置けません。</source><translation>Not allowed here.</translation></message>
<message><source>ここに置くと、後に続く要素が正しくなくなります。</source><translation>The elements that follow would not be valid after it.</translation></message>
<message><source>自分自身を必要とするため、完成できません。</source><translation>It requires itself and so can never be complete.</translation></message>
<message><source>任意の要素として置けます。</source><translation>Allowed as an arbitrary element.</translation></message>
<message><source>既にあります。</source><translation>Already present.</translation></message>
<message><source>ルート要素は 1 つだけです。</source><translation>There can be only one root element.</translation></message>
<message><source>ここに要素は置けません。</source><translation>No elements are allowed here.</translation></message>
<message><source>このノードに子は置けません。</source><translation>This node cannot have children.</translation></message>
<message><source>空要素のため、子を置けません。</source><translation>The element is empty and cannot have children.</translation></message>
<message><source>テキストだけを持つ要素のため、子要素を置けません。</source><translation>The element holds text only and cannot have child elements.</translation></message>
<message><source>置ける要素はありません。</source><translation>No element can be added.</translation></message>
<message><source>属性は定義されていません。</source><translation>No attributes are defined.</translation></message>
<message><source>このノードに属性は付けられません。</source><translation>This node cannot have attributes.</translation></message>
<message><source>ほかに、任意の要素を置けます。</source><translation>Any other element is allowed as well.</translation></message>
<message><source>ほかに、次の名前空間の要素を置けます: %1</source><translation>Any element of these namespaces is allowed as well: %1</translation></message>
<message><source>ほかに、次以外の名前空間の要素を置けます: %1</source><translation>Any element of other namespaces than these is allowed as well: %1</translation></message>
<message><source>(名前空間なし)</source><translation>(no namespace)</translation></message>
<message><source>スキーマがないため、文書中で使われている名前です。</source><translation>There is no schema; these names are used in the document.</translation></message>
<message><source>スキーマにない要素のため、文書中で使われている名前です。</source><translation>The schema does not know the element; these names are used in the document.</translation></message>
<message><source>スキーマを読み込んでいます...</source><translation>Loading the schema...</translation></message>
<message><source>文書から集めています...</source><translation>Collecting from the document...</translation></message>
<message><source>文書中に同じ例がありません。</source><translation>The document has no similar case.</translation></message>
<message><source>候補</source><translation>Suggestions</translation></message>
<message><source>候補パネルを閉じる</source><translation>Close the suggestions panel</translation></message>
<message><source>候補を入れる場所</source><translation>Where to insert the suggestion</translation></message>
<message><source>子</source><translation>Child</translation></message>
<message><source>子として追加</source><translation>Add as child</translation></message>
<message><source>前</source><translation>Before</translation></message>
<message><source>前に挿入</source><translation>Insert before</translation></message>
<message><source>後</source><translation>After</translation></message>
<message><source>後に挿入</source><translation>Insert after</translation></message>
<message><source>属性</source><translation>Attribute</translation></message>
<message><source>属性を追加</source><translation>Add attribute</translation></message>
<message><source>候補の絞り込み</source><translation>Filter suggestions</translation></message>
<message><source>絞り込み</source><translation>Filter</translation></message>
<message><source>候補の説明</source><translation>Description of the suggestion</translation></message>
<message><source>一致する候補はありません。</source><translation>No suggestion matches.</translation></message>
<message><source>(候補はありません)</source><translation>(no suggestions)</translation></message>
<message><source>ほか %1 件 (候補パネルを開く)</source><translation>%1 more (open the suggestions panel)</translation></message>
<message><source>要素「%1」に入れるものを選んでください。</source><translation>Choose what to put into the element "%1".</translation></message>
<message><source>要素「%1」の型を選んでください。</source><translation>Choose the type of the element "%1".</translation></message>
<message><source>スキーマの名前が XML の名前として使えないため、「%1」を挿入できません。</source><translation>"%1" cannot be inserted because a name in the schema is not a valid XML name.</translation></message>
<message><source>空要素</source><translation>empty element</translation></message>
<message><source>テキスト</source><comment>what an element holds</comment><translation>text</translation></message>
<message><source>テキスト</source><translation>Text</translation></message>
<message><source>要素</source><comment>what an element holds</comment><translation>elements</translation></message>
<message><source>要素</source><translation>Element</translation></message>
<message><source>テキストと要素</source><translation>text and elements</translation></message>
<message><source>任意の内容</source><translation>any content</translation></message>
<message><source>%1 (型 %2)</source><translation>%1 (type %2)</translation></message>
<message><source>%1 の並び</source><translation>list of %1</translation></message>
<message><source> または </source><translation> or </translation></message>
<message><source>値: %1</source><translation>values: %1</translation></message>
<message><source>、</source><translation>, </translation></message>
<message><source> ほか</source><translation> and others</translation></message>
<message><source>パターン %1</source><translation>pattern %1</translation></message>
<message><source>長さ %1</source><translation>length %1</translation></message>
<message><source>長さ %1 以上</source><translation>length at least %1</translation></message>
<message><source>長さ %1 以下</source><translation>length at most %1</translation></message>
<message><source>%1 以上</source><translation>at least %1</translation></message>
<message><source>%1 より大きい</source><translation>greater than %1</translation></message>
<message><source>%1 以下</source><translation>at most %1</translation></message>
<message><source>%1 未満</source><translation>less than %1</translation></message>
<message><source>全 %1 桁まで</source><translation>at most %1 digits</translation></message>
<message><source>小数 %1 桁まで</source><translation>at most %1 decimal places</translation></message>
<message><source>既定値 %1</source><translation>default %1</translation></message>
<message><source>固定値 %1</source><translation>fixed value %1</translation></message>
<message><source>必須</source><translation>required</translation></message>
<!-- child_process_texts.h -->
<message><source>時間がかかりすぎるため、処理を中止しました。</source><translation>The operation took too long and was stopped.</translation></message>
<message><source>メモリの使用量が多すぎるため、処理を中止しました。</source><translation>The operation used too much memory and was stopped.</translation></message>
<message><source>処理が異常終了しました。入れ子や再帰が深すぎる可能性があります。</source><translation>The operation ended abnormally. Nesting or recursion may be too deep.</translation></message>
<!-- command_texts.h -->
<message><source>ファイル(&amp;F)</source><translation>&amp;File</translation></message>
<message><source>新規作成(&amp;N)</source><translation>&amp;New</translation></message>
<message><source>開く(&amp;O)...</source><translation>&amp;Open...</translation></message>
<message><source>再読込(&amp;R)</source><translation>&amp;Reload</translation></message>
<message><source>保存(&amp;S)</source><translation>&amp;Save</translation></message>
<message><source>名前を付けて保存(&amp;A)...</source><translation>Save &amp;As...</translation></message>
<message><source>プレビューの印刷(&amp;P)...</source><translation>&amp;Print Preview Page...</translation></message>
<message><source>ツリーの印刷(&amp;T)...</source><translation>Print &amp;Tree...</translation></message>
<message><source>最近使ったファイル(&amp;M)</source><translation>Recent Fi&amp;les</translation></message>
<message><source>(なし)</source><translation>(none)</translation></message>
<message><source>閉じる(&amp;C)</source><translation>&amp;Close</translation></message>
<message><source>終了(&amp;X)&#9;Alt+F4</source><translation>E&amp;xit&#9;Alt+F4</translation></message>
<message><source>編集(&amp;E)</source><translation>&amp;Edit</translation></message>
<message><source>元に戻す(&amp;U)</source><translation>&amp;Undo</translation></message>
<message><source>やり直す(&amp;R)</source><translation>&amp;Redo</translation></message>
<message><source>開いた時の状態に戻す(&amp;A)</source><translation>Undo &amp;All Changes</translation></message>
<message><source>切り取り(&amp;T)&#9;Ctrl+X</source><translation>Cu&amp;t&#9;Ctrl+X</translation></message>
<message><source>コピー(&amp;C)&#9;Ctrl+C</source><translation>&amp;Copy&#9;Ctrl+C</translation></message>
<message><source>貼り付け(&amp;P)&#9;Ctrl+V</source><translation>&amp;Paste&#9;Ctrl+V</translation></message>
<message><source>削除(&amp;D)&#9;Ctrl+D</source><translation>&amp;Delete&#9;Ctrl+D</translation></message>
<message><source>名前の変更(&amp;R)</source><translation>Rena&amp;me</translation></message>
<message><source>検索(&amp;F)...</source><translation>&amp;Find...</translation></message>
<message><source>次を検索(&amp;N)</source><translation>Find &amp;Next</translation></message>
<message><source>検索と置換(&amp;H)...</source><translation>Find and R&amp;eplace...</translation></message>
<message><source>XPath をコピー(&amp;Q)</source><translation>Copy &amp;XPath</translation></message>
<message><source>一致した項目を選択(&amp;M)</source><translation>&amp;Select Matches</translation></message>
<message><source>整形(&amp;G)...</source><translation>F&amp;ormat...</translation></message>
<message><source>エンコードの変更(&amp;E)...</source><translation>Chan&amp;ge Encoding...</translation></message>
<message><source>その他のウィンドウ(&amp;M)...</source><translation>&amp;More Windows...</translation></message>
<message><source>要素・属性名のロック(&amp;L)</source><translation>&amp;Lock Element and Attribute Names</translation></message>
<message><source>表示(&amp;V)</source><translation>&amp;View</translation></message>
<message><source>ツリー項目の折りたたみ(&amp;C)</source><translation>&amp;Collapse Tree Item</translation></message>
<message><source>ツリー項目の展開(&amp;E)</source><translation>&amp;Expand Tree Item</translation></message>
<message><source>テキストの内容をツリーに表示(&amp;T)</source><translation>Show &amp;Text in Tree</translation></message>
<message><source>フォント(&amp;F)...</source><translation>&amp;Font...</translation></message>
<message><source>入力中の検証(&amp;L)</source><translation>&amp;Validate While Typing</translation></message>
<message><source>エラーの修正(&amp;F)...</source><translation>&amp;Quick Fix...</translation></message>
<message><source>検索結果パネル(&amp;P)</source><translation>Search &amp;Results Panel</translation></message>
<message><source>次の検索結果・エラー(&amp;N)</source><translation>&amp;Next Result or Error</translation></message>
<message><source>前の検索結果・エラー(&amp;B)</source><translation>&amp;Previous Result or Error</translation></message>
<message><source>候補パネル(&amp;D)</source><translation>Su&amp;ggestions Panel</translation></message>
<message><source>候補から挿入(&amp;I)</source><translation>&amp;Insert from Suggestions</translation></message>
<message><source>次の領域へ移動(&amp;M)</source><translation>&amp;Move to Next Pane</translation></message>
<message><source>前の領域へ移動(&amp;O)</source><translation>Move t&amp;o Previous Pane</translation></message>
<message><source>入力中に候補を表示(&amp;K)</source><translation>&amp;Suggest While Typing</translation></message>
<message><source>テーマ(&amp;H)</source><translation>T&amp;heme</translation></message>
<message><source>自動(&amp;A)</source><translation>&amp;Automatic</translation></message>
<message><source>ライト(&amp;L)</source><translation>&amp;Light</translation></message>
<message><source>ダーク(&amp;D)</source><translation>&amp;Dark</translation></message>
<message><source>編集ペイン(&amp;W)</source><translation>E&amp;dit Pane</translation></message>
<message><source>折りたたむ(&amp;F)</source><translation>&amp;Fold</translation></message>
<message><source>展開(&amp;U)</source><translation>&amp;Unfold</translation></message>
<message><source>すべて折りたたむ(&amp;A)</source><translation>Fold &amp;All</translation></message>
<message><source>すべて展開(&amp;X)</source><translation>U&amp;nfold All</translation></message>
<message><source>対応する括弧・タグへ移動(&amp;M)</source><translation>Go to &amp;Matching Bracket or Tag</translation></message>
<message><source>タグ名の変更(&amp;R)...</source><translation>&amp;Rename Tags...</translation></message>
<message><source>ツリーと編集ペインの間を移動(&amp;J)</source><translation>&amp;Jump between Tree and Edit Pane</translation></message>
<message><source>行の折り返し(&amp;W)</source><translation>&amp;Wrap Lines</translation></message>
<message><source>空白の表示(&amp;B)</source><translation>Show &amp;Blanks</translation></message>
<message><source>ファイルの行番号(&amp;L)</source><translation>&amp;Line Numbers of the File</translation></message>
<message><source>終了タグの自動入力(&amp;E)</source><translation>Complete &amp;End Tags</translation></message>
<message><source>表示倍率(&amp;Z)</source><translation>&amp;Zoom</translation></message>
<message><source>拡大(&amp;I)</source><translation>Zoom &amp;In</translation></message>
<message><source>縮小(&amp;O)</source><translation>Zoom &amp;Out</translation></message>
<message><source>標準に戻す(&amp;R)</source><translation>&amp;Reset</translation></message>
<message><source>ノード(&amp;N)</source><translation>&amp;Node</translation></message>
<message><source>上へ移動(&amp;U)</source><translation>Move &amp;Up</translation></message>
<message><source>下へ移動(&amp;D)</source><translation>Move Do&amp;wn</translation></message>
<message><source>要素の追加(&amp;E)</source><translation>Add &amp;Element</translation></message>
<message><source>属性の追加(&amp;A)&#9;Ctrl+A</source><translation>Add &amp;Attribute&#9;Ctrl+A</translation></message>
<message><source>テキストの追加(&amp;T)</source><translation>Add &amp;Text</translation></message>
<message><source>コメントの追加(&amp;C)</source><translation>Add &amp;Comment</translation></message>
<message><source>CDATAの追加(&amp;D)</source><translation>Add CDATA &amp;Section</translation></message>
<message><source>要素の挿入(&amp;L)&#9;Ctrl+Alt+E</source><translation>Insert E&amp;lement&#9;Ctrl+Alt+E</translation></message>
<message><source>テキストの挿入(&amp;X)&#9;Ctrl+Alt+T</source><translation>Insert Te&amp;xt&#9;Ctrl+Alt+T</translation></message>
<message><source>コメントの挿入(&amp;M)&#9;Ctrl+Alt+K</source><translation>Insert Co&amp;mment&#9;Ctrl+Alt+K</translation></message>
<message><source>CDATAの挿入</source><translation>Insert CDATA Section</translation></message>
<message><source>削除(&amp;D)</source><translation>&amp;Delete</translation></message>
<message><source>複製(&amp;B)</source><translation>Du&amp;plicate</translation></message>
<message><source>一段上げる(&amp;R)</source><translation>&amp;Raise One Level</translation></message>
<message><source>一段下げる(&amp;W)</source><translation>Lower One Le&amp;vel</translation></message>
<message><source>要素で囲む(&amp;G)...</source><translation>E&amp;nclose in Element...</translation></message>
<message><source>囲みを外す(&amp;O)</source><translation>Remove Enclosin&amp;g Element</translation></message>
<message><source>並べ替え(&amp;S)...</source><translation>S&amp;ort Children...</translation></message>
<message><source>値の候補(&amp;V)...</source><translation>C&amp;hoose Value...</translation></message>
<message><source>ノードの説明(&amp;I)...</source><translation>Expla&amp;in Node...</translation></message>
<message><source>定義へ移動(&amp;J)</source><translation>&amp;Jump to Definition</translation></message>
<message><source>子として追加(&amp;1)</source><translation>Add as Child (&amp;1)</translation></message>
<message><source>前に挿入(&amp;2)</source><translation>Insert Before (&amp;2)</translation></message>
<message><source>後に挿入(&amp;3)</source><translation>Insert After (&amp;3)</translation></message>
<message><source>属性を追加(&amp;4)</source><translation>Add Attribute (&amp;4)</translation></message>
<message><source>候補パネル(&amp;5)...</source><translation>Suggestions Panel (&amp;5)...</translation></message>
<message><source>親要素に属性を追加(&amp;P)</source><translation>Add Attri&amp;bute to Parent</translation></message>
<message><source>ツール(&amp;T)</source><translation>&amp;Tools</translation></message>
<message><source>プレビュー用XSLファイルの選択(&amp;X)...</source><translation>Select Preview &amp;XSL File...</translation></message>
<message><source>プレビュー(&amp;P)</source><translation>&amp;Preview</translation></message>
<message><source>選択したノードのプレビュー(&amp;N)</source><translation>Preview Selected &amp;Node</translation></message>
<message><source>プレビューをHTMLとして表示(&amp;H)</source><translation>Show Preview as &amp;HTML</translation></message>
<message><source>プレビューとツリーの同期(&amp;Y)</source><translation>S&amp;ynchronize Preview and Tree</translation></message>
<message><source>検証用ファイルの選択(&amp;S)...</source><translation>&amp;Select Validation File...</translation></message>
<message><source>検証(&amp;V)</source><translation>&amp;Validate</translation></message>
<message><source>送信(&amp;S)...</source><translation>Sen&amp;d...</translation></message>
<message><source>全てのテキスト・属性値のクリア(&amp;C)</source><translation>&amp;Clear All Text and Attribute Values</translation></message>
<message><source>他のエディタで開く(&amp;E)</source><translation>Open in Other &amp;Editor</translation></message>
<message><source>&amp;BizTalkエディタ</source><translation>&amp;BizTalk Editor</translation></message>
<message><source>オプション(&amp;O)...</source><translation>&amp;Options...</translation></message>
<message><source>スキーマ(&amp;M)...</source><translation>Sche&amp;mas...</translation></message>
<message><source>スキーマを結び付ける(&amp;B)...</source><translation>&amp;Bind Schema...</translation></message>
<message><source>スキーマを作成(&amp;K)...</source><translation>C&amp;reate Schema...</translation></message>
<message><source>ウィンドウ(&amp;W)</source><translation>&amp;Window</translation></message>
<message><source>横に並べる(&amp;H)</source><translation>Tile &amp;Horizontally</translation></message>
<message><source>ヘルプ(&amp;H)</source><translation>&amp;Help</translation></message>
<message><source>Readme.txt表示(&amp;R)...</source><translation>Show &amp;Readme.txt...</translation></message>
<message><source>バージョン情報(&amp;A)...</source><translation>&amp;About...</translation></message>
<message><source>新規作成(Ctrl+N)</source><translation>New (Ctrl+N)</translation></message>
<message><source>開く(Ctrl+O)</source><translation>Open (Ctrl+O)</translation></message>
<message><source>保存(Ctrl+S)</source><translation>Save (Ctrl+S)</translation></message>
<message><source>印刷(Ctrl+P)</source><translation>Print (Ctrl+P)</translation></message>
<message><source>プレビュー(F5)</source><translation>Preview (F5)</translation></message>
<message><source>切り取り(Ctrl+X)</source><translation>Cut (Ctrl+X)</translation></message>
<message><source>コピー(Ctrl+C)</source><translation>Copy (Ctrl+C)</translation></message>
<message><source>貼り付け(Ctrl+V)</source><translation>Paste (Ctrl+V)</translation></message>
<message><source>削除(Ctrl+D)</source><translation>Delete (Ctrl+D)</translation></message>
<message><source>検索(F3)</source><translation>Find (F3)</translation></message>
<message><source>元に戻す(Ctrl+Z)</source><translation>Undo (Ctrl+Z)</translation></message>
<message><source>やり直す(Ctrl+Y)</source><translation>Redo (Ctrl+Y)</translation></message>
<message><source>検証(F7)</source><translation>Validate (F7)</translation></message>
<message><source>パスの項目へ移動(Enter)</source><translation>Go to the item of the path (Enter)</translation></message>
<message><source>印刷プレビュー(&amp;V)...</source><translation>Print Pre&amp;view...</translation></message>
<message><source>ツリーの印刷プレビュー(&amp;W)...</source><translation>Tree Print Previe&amp;w...</translation></message>
<!-- completion_texts.h -->
<message><source>ここには置けません。%1</source><translation>Not allowed here. %1</translation></message>
<message><source>候補を表示&#9;Ctrl+Space</source><translation>Show Suggestions&#9;Ctrl+Space</translation></message>
<message><source>カレンダーから...</source><translation>From calendar...</translation></message>
<message><source>時刻の選択...</source><translation>Choose time...</translation></message>
<message><source>色の選択...</source><translation>Choose color...</translation></message>
<message><source>日付の選択</source><translation>Choose Date</translation></message>
<message><source>時刻の選択</source><translation>Choose Time</translation></message>
<message><source>時刻(&amp;T):</source><translation>&amp;Time:</translation></message>
<message><source>時刻</source><translation>Time</translation></message>
<message><source>色の選択</source><translation>Choose Color</translation></message>
<message><source>固定値</source><translation>fixed value</translation></message>
<message><source>既定値</source><translation>default</translation></message>
<message><source>この文書の ID</source><translation>ID in this document</translation></message>
<message><source>終了タグ</source><translation>end tag</translation></message>
<message><source>ここで入力できる候補はありません。</source><translation>There is nothing to suggest here.</translation></message>
<message><source>%1「%2」</source><translation>%1 "%2"</translation></message>
<message><source>内容: %1</source><translation>Content: %1</translation></message>
<message><source>「%1」は、次の DTD で宣言されています。&#10;%2</source><translation>"%1" is declared in this DTD:&#10;%2</translation></message>
<message><source>「%1」は、このプログラムに付属するスキーマ %2 で宣言されています。</source><translation>"%1" is declared in the schema %2, which comes with this program.</translation></message>
<message><source>「%1」は、この文書の文書型宣言の中で宣言されています。</source><translation>"%1" is declared in the document type declaration of this document.</translation></message>
<message><source>「%1」の宣言の場所は分かりません。</source><translation>The place where "%1" is declared is not known.</translation></message>
<message><source>&#10;%1 行目</source><translation>&#10;Line %1</translation></message>
<message><source>日本語</source><translation>Japanese</translation></message>
<message><source>英語</source><translation>English</translation></message>
<message><source>英語 (米国)</source><translation>English (United States)</translation></message>
<message><source>中国語 (簡体字)</source><translation>Chinese (simplified)</translation></message>
<message><source>中国語 (繁体字)</source><translation>Chinese (traditional)</translation></message>
<message><source>韓国語</source><translation>Korean</translation></message>
<message><source>フランス語</source><translation>French</translation></message>
<message><source>ドイツ語</source><translation>German</translation></message>
<message><source>スペイン語</source><translation>Spanish</translation></message>
<message><source>イタリア語</source><translation>Italian</translation></message>
<message><source>ポルトガル語</source><translation>Portuguese</translation></message>
<message><source>ロシア語</source><translation>Russian</translation></message>
<!-- find_texts.h -->
<message><source>編集ペイン内の検索</source><translation>Find in the edit pane</translation></message>
<message><source>ペイン内を検索:</source><translation>Find in pane:</translation></message>
<message><source>編集ペインで検索する文字列</source><translation>Text to find in the edit pane</translation></message>
<message><source>次を検索</source><translation>Find next</translation></message>
<message><source>次を検索 (F3)</source><translation>Find next (F3)</translation></message>
<message><source>前を検索</source><translation>Find previous</translation></message>
<message><source>前を検索 (Shift+F3)</source><translation>Find previous (Shift+F3)</translation></message>
<message><source>大文字と小文字を区別</source><translation>Match case</translation></message>
<message><source>ペイン内の検索を閉じる</source><translation>Close the find bar</translation></message>
<message><source>閉じる (Esc)</source><translation>Close (Esc)</translation></message>
<message><source>見つかりませんでした。</source><translation>Not found.</translation></message>
<message><source>先頭に戻りました。</source><translation>Continued from the start.</translation></message>
<message><source>末尾に戻りました。</source><translation>Continued from the end.</translation></message>
<!-- hit_texts.h -->
<message><source>実体参照</source><translation>Entity reference</translation></message>
<message><source>処理命令</source><translation>Processing instruction</translation></message>
<message><source>コメント</source><translation>Comment</translation></message>
<message><source>ドキュメント</source><translation>Document</translation></message>
<message><source>文書型宣言</source><translation>Document type declaration</translation></message>
<message><source>* は任意の文字列、? は任意の 1 文字、# は数字 1 文字、[ABC] はその中の 1 文字、[!ABC] はそれ以外の 1 文字を表します。</source><translation>* stands for any text, ? for any one character, # for one digit, [ABC] for one of these characters and [!ABC] for any other character.</translation></message>
<message><source>検索結果 %1 / %2</source><translation>Result %1 of %2</translation></message>
<message><source>これより後の検索結果はありません。</source><translation>There are no further results.</translation></message>
<message><source>これより前の検索結果はありません。</source><translation>There are no earlier results.</translation></message>
<message><source>検索結果はありません。</source><translation>There are no results.</translation></message>
<message><source>エラー %1 / %2</source><translation>Error %1 of %2</translation></message>
<message><source>これより後のエラーはありません。</source><translation>There are no further errors.</translation></message>
<message><source>これより前のエラーはありません。</source><translation>There are no earlier errors.</translation></message>
<message><source>エラーはありません。</source><translation>There are no errors.</translation></message>
<message><source>一覧パネル</source><translation>List panel</translation></message>
<message><source>一覧の種類</source><translation>Kind of list</translation></message>
<message><source>検索結果</source><translation>Search results</translation></message>
<message><source>検索結果 (%1)</source><translation>Search Results (%1)</translation></message>
<message><source>検索: %2&#10;%1 件</source><translation>Search: %2&#10;Results: %1</translation></message>
<message><source>検索結果: %1 件(&amp;R)</source><translation>Search &amp;Results: %1</translation></message>
<message><source>検索結果の一覧を表示します。</source><translation>Shows the list of search results.</translation></message>
<message><source>検索結果はありません。&#10;パスによる検索 (パスの入力欄)、「検索」(Ctrl+F)、「検索と置換」(Ctrl+H) で見つかったものが、ここに表示されます。</source><translation>There are no search results.&#10;What is found by a path (in the path box), by "Find" (Ctrl+F) or by "Find and Replace" (Ctrl+H) is listed here.</translation></message>
<message><source>コピー</source><translation>Copy</translation></message>
<message><source>一覧の行をコピー</source><translation>Copy rows of the list</translation></message>
<message><source>選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りでコピーします。</source><translation>Copies the selected rows (all rows unless two or more are selected), separated by tabs.</translation></message>
<message><source>保存...</source><translation>Save...</translation></message>
<message><source>一覧をファイルに保存</source><translation>Save the list to a file</translation></message>
<message><source>選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りのファイルに保存します。</source><translation>Saves the selected rows (all rows unless two or more are selected) to a file, separated by tabs.</translation></message>
<message><source>閉じる</source><translation>Close</translation></message>
<message><source>一覧パネルを閉じる</source><translation>Close the list panel</translation></message>
<message><source>種類</source><translation>Kind</translation></message>
<message><source>パス</source><translation>Path</translation></message>
<message><source>説明</source><translation>Description</translation></message>
<message><source>変更前</source><translation>Before</translation></message>
<message><source>変更後</source><translation>After</translation></message>
<message><source>変更できない理由</source><translation>Why it cannot be changed</translation></message>
<message><source>(削除されました)</source><translation>(deleted)</translation></message>
<message><source>並べ替えています...</source><translation>Sorting...</translation></message>
<message><source>一覧を作成しています...</source><translation>Making the list...</translation></message>
<message><source>%1 行をコピーしました。</source><translation>Rows copied: %1</translation></message>
<message><source>%1 行を %2 に保存しました。</source><translation>Rows saved to %2: %1</translation></message>
<message><source>一覧の保存</source><translation>Save List</translation></message>
<message><source>タブ区切りテキスト(*.tsv)|*.tsv|テキストファイル(*.txt)|*.txt|すべてのファイル(*.*)|*.*</source><translation>Tab-separated text (*.tsv)|*.tsv|Text files (*.txt)|*.txt|All files (*.*)|*.*</translation></message>
<!-- live_texts.h -->
<message><source>%1%2</source><translation>%1 %2</translation></message>
<message><source>要素 '%1' を要素 '%2' のここに置くことはできません。</source><translation>Element '%1' is not allowed at this place in element '%2'.</translation></message>
<message><source>要素 '%2' の中で、要素 '%1' の前に要素が不足しています。</source><translation>In element '%2', an element is missing before element '%1'.</translation></message>
<message><source>%1 ほか %2 件</source><translation>%1 and %2 more</translation></message>
<message><source>構文エラー（%1 行 %2 桁）: %3</source><translation>Syntax error (line %1, column %2): %3</translation></message>
<message><source>エラー</source><translation>Errors</translation></message>
<message><source>エラー (%1)</source><translation>Errors (%1)</translation></message>
<message><source>編集中のドキュメントのエラー: %1 件</source><translation>Errors in the document being edited: %1</translation></message>
<message><source>スキーマが結び付けられていないため、構文エラーだけを調べています。</source><translation>The document has no schema, so only its syntax is checked.</translation></message>
<message><source>入力中の検証はオフです（[表示]-[入力中の検証]）。</source><translation>Validation while typing is off (View - Validate While Typing).</translation></message>
<message><source>エラー %1 件</source><translation>Errors: %1</translation></message>
<message><source>エラー %1 件以上</source><translation>Errors: %1 or more</translation></message>
<message><source>エラーなし</source><translation>No errors</translation></message>
<message><source>エラーの一覧を表示します (F4: 次のエラー)</source><translation>Shows the list of errors (F4: next error)</translation></message>
<message><source>この中にエラーがあります</source><translation>There are errors inside</translation></message>
<message><source>要素 '%1' を挿入</source><translation>Insert element '%1'</translation></message>
<message><source>不足している要素をすべて挿入 (%1)</source><translation>Insert all missing elements (%1)</translation></message>
<message><source>要素の名前を '%1' に変更</source><translation>Rename the element to '%1'</translation></message>
<message><source>要素 '%1' を削除</source><translation>Delete element '%1'</translation></message>
<message><source>テキストを削除</source><translation>Delete the text</translation></message>
<message><source>属性 '%1' を追加</source><translation>Add attribute '%1'</translation></message>
<message><source>属性の名前を '%1' に変更</source><translation>Rename the attribute to '%1'</translation></message>
<message><source>属性 '%1' を削除</source><translation>Delete attribute '%1'</translation></message>
<message><source>値を '%1' に変更</source><translation>Change the value to '%1'</translation></message>
<message><source>修正候補はありません</source><translation>No fixes are available</translation></message>
<message><source>ここにエラーはありません。</source><translation>There is no error here.</translation></message>
<message><source>ドキュメントが変わったため、この修正は行えません。</source><translation>The document has changed; this fix is no longer possible.</translation></message>
<message><source>修正しました: %1</source><translation>Fixed: %1</translation></message>
<message><source>エラーの修正候補</source><translation>Quick fixes</translation></message>
<!-- messages.cpp -->
<message><source>ルート要素は削除できません。</source><translation>The root element cannot be deleted.</translation></message>
<message><source>削除してもよろしいですか？</source><translation>Do you really want to delete this?</translation></message>
<message><source>変更を破棄して再読込しますか？</source><translation>Discard the changes and reload?</translation></message>
<message><source>XMLをパースできません。</source><translation>Cannot parse the XML.</translation></message>
<message><source>ルート要素がすでに存在します。</source><translation>There is already a root element.</translation></message>
<message><source>バージョン情報</source><translation>About</translation></message>
<message><source>保存しますか？</source><translation>Do you want to save?</translation></message>
<message><source>プレビューを表示できません。</source><translation>Cannot show the preview.</translation></message>
<message><source>ドキュメントの検証が正常に終了しました。</source><translation>The document has been validated without errors.</translation></message>
<!-- node_texts.h -->
<message><source>CDATA セクション</source><translation>CDATA section</translation></message>
<message><source>%1、レベル %2</source><translation>%1, level %2</translation></message>
<message><source>名前または値の編集</source><translation>Edit name or value</translation></message>
<message><source>%1 個のノードを選択しています。</source><translation>Nodes selected: %1</translation></message>
<message><source>%1 個のノードを削除してもよろしいですか？</source><translation>Do you really want to delete the %1 selected nodes?</translation></message>
<message><source>「%1」は上へ移動できないため、何も変更していません。</source><translation>"%1" cannot be moved up. Nothing has been changed.</translation></message>
<message><source>「%1」は下へ移動できないため、何も変更していません。</source><translation>"%1" cannot be moved down. Nothing has been changed.</translation></message>
<message><source>「%1」は一段上げることができないため、何も変更していません。</source><translation>"%1" cannot be raised by one level. Nothing has been changed.</translation></message>
<message><source>「%1」は一段下げることができないため、何も変更していません。&#10;直前に、移動先になる要素が必要です。</source><translation>"%1" cannot be lowered by one level. Nothing has been changed.&#10;There must be an element right before it to take it.</translation></message>
<message><source>「%1」は複製できないため、何も変更していません。</source><translation>"%1" cannot be duplicated. Nothing has been changed.</translation></message>
<message><source>処理命令と文書型宣言は挿入できないため、何も挿入していません。</source><translation>Processing instructions and document type declarations cannot be inserted. Nothing has been inserted.</translation></message>
<message><source>ドキュメントの直下に挿入できるのは要素とコメントだけのため、何も挿入していません。</source><translation>Only elements and comments can be inserted directly under the document. Nothing has been inserted.</translation></message>
<message><source>ルート要素は 1 つだけのため、2 つ以上の要素は挿入できません。何も挿入していません。</source><translation>There can be only one root element, so several elements cannot be inserted here. Nothing has been inserted.</translation></message>
<message><source>同じ名前の属性「%1」が 2 つ以上あり、1 つの要素には挿入できません。&#10;何も挿入していません。</source><translation>The attribute "%1" occurs more than once and cannot be inserted into one element.&#10;Nothing has been inserted.</translation></message>
<message><source>ルート要素は 1 つだけです。「%1」を変更すると 2 つ以上になるため、何も変更していません。</source><translation>There can be only one root element, and changing "%1" would make more of them. Nothing has been changed.</translation></message>
<message><source>「%1」はルート要素の外に置けないため、何も変更していません。</source><translation>"%1" cannot stand outside the root element. Nothing has been changed.</translation></message>
<message><source>実体 %1 の参照は移動も削除もできないため、何も変更していません。</source><translation>The reference to the entity %1 can be neither moved nor deleted. Nothing has been changed.</translation></message>
<message><source>選択したノードを囲む要素の名前を入力してください。</source><translation>Enter the name of the element that is to enclose the selected nodes.</translation></message>
<message><source>「%1」は要素で囲めないため、何も変更していません。</source><translation>"%1" cannot be enclosed in an element. Nothing has been changed.</translation></message>
<message><source>1 つの要素で囲めるのは、同じ親を持つノードだけです。何も変更していません。</source><translation>Only nodes with the same parent can be enclosed in one element. Nothing has been changed.</translation></message>
<message><source>「%1」は要素ではないため、囲みを外せません。何も変更していません。</source><translation>"%1" is not an element and cannot be removed from around others. Nothing has been changed.</translation></message>
<message><source>ルート要素「%1」の中に要素がないため、囲みを外せません。何も変更していません。</source><translation>The root element "%1" contains no element and must stay. Nothing has been changed.</translation></message>
<message><source>囲みを外すと、要素の属性 %1 個が失われます。よろしいですか？</source><translation>Removing the enclosing element loses %1 of its attributes. Continue?</translation></message>
<message><source>子要素の並べ替え</source><translation>Sort Child Elements</translation></message>
<message><source>並べ替えの基準</source><translation>Sort by</translation></message>
<message><source>要素名(&amp;N)</source><translation>Element &amp;name</translation></message>
<message><source>属性の値(&amp;A):</source><translation>&amp;Attribute value:</translation></message>
<message><source>基準にする属性の名前</source><translation>Name of the attribute to sort by</translation></message>
<message><source>XPath 式の値(&amp;X):</source><translation>Value of &amp;XPath expression:</translation></message>
<message><source>基準にする XPath 式</source><translation>XPath expression to sort by</translation></message>
<message><source>降順(&amp;D)</source><translation>&amp;Descending</translation></message>
<message><source>数値だけの値は数の大きさで比べます。値のない要素は最後になります。</source><translation>Values that are numbers are compared as numbers. Elements without a value come last.</translation></message>
<message><source>属性の名前を入力してください。</source><translation>Enter the name of an attribute.</translation></message>
<message><source>XPath 式を入力してください。</source><translation>Enter an XPath expression.</translation></message>
<message><source>「%1」には並べ替える子要素が 2 つ以上ないため、何も変更していません。</source><translation>"%1" has fewer than two child elements to sort. Nothing has been changed.</translation></message>
<message><source>「%1」の子にはテキストがあり、並べ替えると文章の順序が変わります。&#10;何も変更していません。</source><translation>"%1" contains text, whose order would change by sorting.&#10;Nothing has been changed.</translation></message>
<message><source>すでにこの順序に並んでいます。</source><translation>It is already in this order.</translation></message>
<!-- pane_texts.h -->
<message><source>新しいタグ名を入力してください。</source><translation>Enter the new tag name.</translation></message>
<message><source>カーソルの位置に、開始タグと終了タグのそろった要素がありません。</source><translation>There is no element with both its tags at the caret.</translation></message>
<message><source>要素名を変更できません。ドキュメントが読み取り専用か、名前がロックされています。</source><translation>The element cannot be renamed: the document is read-only, or names are locked.</translation></message>
<message><source>対応する括弧またはタグがありません。</source><translation>There is no matching bracket or tag.</translation></message>
<message><source>折りたためる要素がありません。</source><translation>There is nothing to fold.</translation></message>
<message><source>表示倍率: %1%</source><translation>Zoom: %1%</translation></message>
<!-- print_texts.h -->
<message><source>ツリーを印刷しています...</source><translation>Printing the tree...</translation></message>
<message><source>ページを構成しています...</source><translation>Laying out the pages...</translation></message>
<message><source>印刷を開始できません。プリンター、または出力先のファイルを確認してください。</source><translation>Printing cannot begin. Check the printer, or the file to print to.</translation></message>
<message><source>ページの構成を中止しました。</source><translation>Laying out the pages was stopped.</translation></message>
<message><source>印刷プレビュー - %1</source><translation>Print Preview - %1</translation></message>
<message><source>ツリーの印刷プレビュー - %1</source><translation>Tree Print Preview - %1</translation></message>
<message><source>ページの表示</source><translation>Page view</translation></message>
<message><source>%1 / %2 ページ</source><translation>Page %1 of %2</translation></message>
<message><source>前のページ (PageUp)</source><translation>Previous page (PageUp)</translation></message>
<message><source>次のページ (PageDown)</source><translation>Next page (PageDown)</translation></message>
<message><source>ページ(&amp;G):</source><translation>Pa&amp;ge:</translation></message>
<message><source>ページ番号</source><translation>Page number</translation></message>
<message><source>倍率(&amp;Z):</source><translation>&amp;Zoom:</translation></message>
<message><source>倍率</source><translation>Zoom</translation></message>
<message><source>拡大 (Ctrl++)</source><translation>Zoom in (Ctrl++)</translation></message>
<message><source>縮小 (Ctrl+-)</source><translation>Zoom out (Ctrl+-)</translation></message>
<message><source>ページ全体</source><translation>Whole page</translation></message>
<message><source>ページの幅</source><translation>Page width</translation></message>
<message><source>ページ設定(&amp;U)...</source><translation>Page Set&amp;up...</translation></message>
<message><source>ページ設定</source><translation>Page Setup</translation></message>
<message><source>印刷(&amp;P)...</source><translation>&amp;Print...</translation></message>
<message><source>ページを準備しています...</source><translation>Preparing the pages...</translation></message>
<message><source>プレビューのページを表示できないため、印刷プレビューを作成できません。</source><translation>The page of the preview cannot be shown, so there is nothing to print.</translation></message>
<message><source>%1 を起動できないため、印刷プレビューを表示できません。パッケージ %2 をインストールしてください。</source><translation>%1 cannot be started, so there is no print preview. Please install the package %2.</translation></message>
<message><source>このページは描画に時間がかかりすぎるため、表示を中止しました。</source><translation>Drawing this page took too long and was stopped.</translation></message>
<!-- query_texts.h -->
<message><source>既定の名前空間で %1 件</source><translation>Found in the default namespace: %1</translation></message>
<message><source>結果: %1</source><translation>Result: %1</translation></message>
<message><source>結果: %1 (既定の名前空間)</source><translation>Result: %1 (default namespace)</translation></message>
<message><source>(空の文字列)</source><translation>(empty string)</translation></message>
<message><source>XPath をコピーしました: %1</source><translation>XPath copied: %1</translation></message>
<message><source>文書型宣言を選択する XPath はありません。</source><translation>No XPath selects a document type declaration.</translation></message>
<message><source>XML 宣言を選択する XPath はありません。</source><translation>No XPath selects the XML declaration.</translation></message>
<message><source>名前空間の宣言を取り消す属性を選択する XPath はありません。</source><translation>No XPath selects an attribute that undeclares a namespace.</translation></message>
<message><source>このノードを選択する XPath はありません。</source><translation>No XPath selects this node.</translation></message>
<message><source>パスの候補</source><translation>Suggestions for the path</translation></message>
<!-- relaxng_texts.h -->
<message><source>RELAX NG スキーマではありません。</source><translation>This is not a RELAX NG schema.</translation></message>
<message><source>RELAX NG 短縮構文の誤りです。'%1' をここに置くことはできません。</source><translation>Error in the RELAX NG compact syntax: '%1' is not allowed here.</translation></message>
<message><source>%1: 参照先の定義がスキーマにありません。</source><translation>%1: The schema has no definition for this reference.</translation></message>
<message><source>%1: 定義が要素を介さずに循環しています。</source><translation>%1: The definition refers to itself without an element in between.</translation></message>
<message><source>%1: スキーマの取り込みが循環しています。</source><translation>%1: The schema includes itself, directly or indirectly.</translation></message>
<message><source>%1: 取り込むファイルを読み込めません。</source><translation>%1: The included file cannot be read.</translation></message>
<message><source>%1: 取り込むファイルの指定がありません。</source><translation>%1: There is no address of the file to include.</translation></message>
<message><source>%1: ファイルまたは名前空間の指定が正しくありません。</source><translation>%1: The address or namespace is not valid.</translation></message>
<message><source>%1: start がないか、内容が正しくありません。</source><translation>%1: The start is missing or its content is not valid.</translation></message>
<message><source>%1: 名前がないか、正しくありません。</source><translation>%1: The name is missing or not valid.</translation></message>
<message><source>%1: 内容がありません。</source><translation>%1: The content is missing.</translation></message>
<message><source>%1: この内容を置くことはできません。</source><translation>%1: This content is not allowed.</translation></message>
<message><source>%1: 同じ名前の定義が複数あります。combine 属性で組み合わせ方を指定する必要があります。</source><translation>%1: There are several definitions of this name. The combine attribute has to say how to combine them.</translation></message>
<message><source>%1: 同じ名前の定義の combine 属性が矛盾しているか、正しくありません。</source><translation>%1: The combine attributes of the definitions of this name are contradictory or not valid.</translation></message>
<message><source>%1: 同じ属性または要素が同時に複数指定されています。</source><translation>%1: The same attribute or element is allowed more than once at the same place.</translation></message>
<message><source>%1: データ型がないか、認識できません。</source><translation>%1: The datatype is missing or unknown.</translation></message>
<message><source>%1: 値がデータ型に合っていません。</source><translation>%1: The value does not match the datatype.</translation></message>
<message><source>%1: RELAX NG にない要素または属性か、ここには置けないものです。</source><translation>%1: RELAX NG has no such element or attribute, or it is not allowed here.</translation></message>
<message><source>%1: 定義が正しくありません (エラー番号 %2)。</source><translation>%1: The definition is not valid (error number %2).</translation></message>
<!-- runtime_errors.cpp -->
<message><source>プロシージャの呼び出し、または引数が不正です。</source><translation>Invalid procedure call or argument.</translation></message>
<message><source>オーバーフローしました。</source><translation>Overflow.</translation></message>
<message><source>メモリが不足しています。</source><translation>Out of memory.</translation></message>
<message><source>インデックスが有効範囲にありません。</source><translation>Subscript out of range.</translation></message>
<message><source>型が一致しません。</source><translation>Type mismatch.</translation></message>
<message><source>ファイルが見つかりません。</source><translation>File not found.</translation></message>
<message><source>デバイスの入出力エラーが発生しました。</source><translation>Device I/O error.</translation></message>
<message><source>同じ名前のファイルがすでに存在します。</source><translation>File already exists.</translation></message>
<message><source>ディスクの空き容量が不足しています。</source><translation>Disk full.</translation></message>
<message><source>アクセスが拒否されました。</source><translation>Access denied.</translation></message>
<message><source>パスまたはファイルにアクセスできません。</source><translation>Path or file cannot be accessed.</translation></message>
<message><source>パスが見つかりません。</source><translation>Path not found.</translation></message>
<message><source>オブジェクトが設定されていません。</source><translation>Object not set.</translation></message>
<message><source>パターン文字列が不正です。</source><translation>Invalid pattern string.</translation></message>
<message><source>中止しました。</source><translation>Canceled.</translation></message>
<message><source>アプリケーション定義またはオブジェクト定義のエラーです。</source><translation>Application-defined or object-defined error.</translation></message>
<!-- schema_box_texts.h -->
<message><source>スキーマ: %1</source><translation>Schema: %1</translation></message>
<message><source>%1&#10;クリックすると、スキーマの一覧と見つけ方を表示します (Shift+F7)。</source><translation>%1&#10;Click to see the schemas and how they were found (Shift+F7).</translation></message>
<message><source>文書なし</source><translation>no document</translation></message>
<message><source>スキーマ</source><translation>Schema</translation></message>
<message><source>この文書のスキーマ</source><translation>Schemas of this document</translation></message>
<message><source>見つけ方</source><translation>Found by</translation></message>
<message><source>状態</source><translation>State</translation></message>
<message><source>選択したスキーマの説明</source><translation>Description of the selected schema</translation></message>
<message><source>この文書のスキーマは見つかっていません。スキーマがなくても編集できますが、検証や候補の表示にはスキーマが役立ちます。&#10;次の順に探しました: この文書用の選択、DOCTYPE、xsi:schemaLocation、xml-model、x-schema:、規則、カタログ。</source><translation>No schema has been found for this document. It can be edited without one, but validation and suggestions work better with a schema.&#10;Searched in this order: selection for this document, DOCTYPE, xsi:schemaLocation, xml-model, x-schema:, rules, catalogs.</translation></message>
<message><source>場所: %1</source><translation>Location: %1</translation></message>
<message><source>文書中の記述: %1</source><translation>In the document: %1</translation></message>
<message><source>名前空間: %1</source><translation>Namespace: %1</translation></message>
<message><source>スキーマの一部</source><translation>Part of the schema</translation></message>
<message><source>なし</source><translation>none</translation></message>
<message><source>見つからないため、宣言の一部を使用できません。</source><translation>Not found; some declarations cannot be used.</translation></message>
<message><source>この文書用に選択(&amp;S)...</source><translation>&amp;Select for This Document...</translation></message>
<message><source>選択を解除(&amp;U)</source><translation>&amp;Undo Selection</translation></message>
<message><source>取得(&amp;G)...</source><translation>Do&amp;wnload...</translation></message>
<message><source>スキーマを開く(&amp;O)</source><translation>&amp;Open Schema</translation></message>
<message><source>結び付ける(&amp;B)...</source><translation>&amp;Bind...</translation></message>
<message><source>作成(&amp;C)...</source><translation>&amp;Create...</translation></message>
<message><source>規則(&amp;R)...</source><translation>&amp;Rules...</translation></message>
<message><source>キャッシュを空にする(&amp;E)</source><translation>Cl&amp;ear Cache</translation></message>
<message><source>選択したスキーマは、この文書に対して記憶されます。文書は変更されません。</source><translation>The selected schema is remembered for this document. The document is not changed.</translation></message>
<message><source>選択したスキーマのアドレスに接続して、このコンピューターに保存します。</source><translation>Connects to the address of the selected schema and saves the schema on this computer.</translation></message>
<message><source>スキーマの場所を文書に書き込みます。</source><translation>Writes the location of the schema into the document.</translation></message>
<message><source>この文書の内容から、スキーマの下書きを作成します。</source><translation>Drafts a schema from the content of this document.</translation></message>
<message><source>ファイル名やルート要素から、使用するスキーマを決める規則を編集します。</source><translation>Edits the rules that choose a schema by file name or root element.</translation></message>
<message><source>「取得」で保存したスキーマを削除します。</source><translation>Deletes the schemas saved by "Download".</translation></message>
<message><source>スキーマを結び付ける</source><translation>Bind Schema</translation></message>
<message><source>スキーマ(&amp;F):</source><translation>Schema &amp;file:</translation></message>
<message><source>結び付けるスキーマのファイル</source><translation>File of the schema to bind</translation></message>
<message><source>参照(&amp;B)...</source><translation>&amp;Browse...</translation></message>
<message><source>文書に書き込む内容</source><translation>What to write into the document</translation></message>
<message><source>スキーマのファイルを指定してください。</source><translation>Specify the file of a schema.</translation></message>
<message><source>DOCTYPE (文書型宣言)</source><translation>DOCTYPE (document type declaration)</translation></message>
<message><source>xsi:schemaLocation (名前空間があるスキーマ)</source><translation>xsi:schemaLocation (schema with a namespace)</translation></message>
<message><source>xsi:noNamespaceSchemaLocation (名前空間がないスキーマ)</source><translation>xsi:noNamespaceSchemaLocation (schema without a namespace)</translation></message>
<message><source>xml-model 命令</source><translation>xml-model instruction</translation></message>
<message><source>x-schema: (既定の名前空間)</source><translation>x-schema: (default namespace)</translation></message>
<message><source>スキーマの規則</source><translation>Schema Rules</translation></message>
<message><source>空欄の条件は問いません。上の規則から順に調べ、最初に当てはまったものを使用します。ファイル名には * と ? を使えます。</source><translation>Empty conditions match everything. The rules are tried from the top; the first that matches is used. File names may contain * and ?.</translation></message>
<message><source>規則の一覧</source><translation>List of rules</translation></message>
<message><source>ファイル名</source><translation>File name</translation></message>
<message><source>ルート要素</source><translation>Root element</translation></message>
<message><source>名前空間</source><translation>Namespace</translation></message>
<message><source>追加(&amp;A)...</source><translation>&amp;Add...</translation></message>
<message><source>スキーマの変更(&amp;H)...</source><translation>C&amp;hange Schema...</translation></message>
<message><source>上へ(&amp;P)</source><translation>U&amp;p</translation></message>
<message><source>下へ(&amp;N)</source><translation>Dow&amp;n</translation></message>
<message><source>OASIS XML カタログ</source><translation>OASIS XML catalogs</translation></message>
<message><source>システムのカタログ (/etc/xml/catalog) と環境変数 XML_CATALOG_FILES のほかに使用するカタログです。</source><translation>Catalogs to use besides those of the system (/etc/xml/catalog) and of the environment variable XML_CATALOG_FILES.</translation></message>
<message><source>追加(&amp;L)...</source><translation>Add Cata&amp;log...</translation></message>
<message><source>削除(&amp;V)</source><translation>Remo&amp;ve</translation></message>
<message><source>カタログの選択</source><translation>Select Catalog</translation></message>
<message><source>XML カタログ(*.xml)|*.xml|すべてのファイル(*.*)|*</source><translation>XML catalogs (*.xml)|*.xml|All files (*.*)|*</translation></message>
<message><source>規則で使用するスキーマの選択</source><translation>Select Schema for the Rule</translation></message>
<message><source>%1 行目: ファイル名、ルート要素、名前空間のうち少なくとも 1 つと、スキーマが必要です。</source><translation>Line %1: A schema and at least one of file name, root element and namespace are required.</translation></message>
<!-- schema_fault_texts.h -->
<message><source>型 '%1' は宣言されていません。</source><translation>Type '%1' is not declared.</translation></message>
<message><source>要素 '%1' は宣言されていません。</source><translation>Element '%1' is not declared.</translation></message>
<message><source>属性 '%1' は宣言されていません。</source><translation>Attribute '%1' is not declared.</translation></message>
<message><source>属性グループ '%1' は宣言されていません。</source><translation>Attribute group '%1' is not declared.</translation></message>
<message><source>モデル グループ '%1' は宣言されていません。</source><translation>Model group '%1' is not declared.</translation></message>
<message><source>キー '%1' は宣言されていません。</source><translation>Key '%1' is not declared.</translation></message>
<message><source>名前空間 '%1' が xs:import で取り込まれていません。</source><translation>Namespace '%1' is not imported by xs:import.</translation></message>
<message><source>名前空間のない宣言が xs:import で取り込まれていません。</source><translation>Declarations without a namespace are not imported by xs:import.</translation></message>
<message><source>値 '%1' の接頭辞は宣言されていません。</source><translation>The prefix of the value '%1' is not declared.</translation></message>
<message><source>XPath 式 '%1' はここでは使用できません。</source><translation>The XPath expression '%1' is not allowed here.</translation></message>
<message><source>必須の属性 '%1' がありません。</source><translation>The required attribute '%1' is missing.</translation></message>
<message><source>属性 '%1' を使用することはできません。</source><translation>Attribute '%1' is not allowed.</translation></message>
<message><source>'%1' という名前の宣言が重複しています。</source><translation>The name '%1' is declared more than once.</translation></message>
<message><source>この要素の位置または内容が正しくありません。</source><translation>The position or content of this element is not valid.</translation></message>
<message><source>値 '%1' が正しくありません。</source><translation>The value '%1' is not valid.</translation></message>
<message><source>パターン '%1' は正規表現として正しくありません。</source><translation>The pattern '%1' is not a valid regular expression.</translation></message>
<message><source>ファセットの値 '%1' が正しくありません。</source><translation>The facet value '%1' is not valid.</translation></message>
<message><source>ファセット %1 と %2 の値が矛盾しています。</source><translation>The values of the facets %1 and %2 are contradictory.</translation></message>
<message><source>minOccurs の値が maxOccurs の値より大きくなっています。</source><translation>The value of minOccurs is greater than that of maxOccurs.</translation></message>
<message><source>%1 の値が正しくありません。</source><translation>The value of %1 is not valid.</translation></message>
<message><source>同時に指定できない属性または子要素があります。</source><translation>There are attributes or child elements that exclude each other.</translation></message>
<message><source>定義が循環しています。</source><translation>The definition refers to itself.</translation></message>
<message><source>スキーマに自分自身を取り込むことはできません。</source><translation>A schema cannot include itself.</translation></message>
<message><source>取り込むファイルの対象の名前空間が一致しません。</source><translation>The target namespace of the included file does not match.</translation></message>
<message><source>取り込むファイルを読み込めません。</source><translation>The included file cannot be read.</translation></message>
<message><source>内容モデルがあいまいです。子要素がどの宣言に一致するかを決められません。</source><translation>The content model is ambiguous. It cannot be decided which declaration a child element matches.</translation></message>
<message><source>名前がありません。</source><translation>The name is missing.</translation></message>
<message><source>'xmlns' を属性の名前にすることはできません。</source><translation>'xmlns' cannot be the name of an attribute.</translation></message>
<message><source>ID 型の宣言に既定値または固定値を指定することはできません。</source><translation>A declaration of type ID cannot have a default or fixed value.</translation></message>
<message><source>基底型が '%1' による派生を禁止しています。</source><translation>The base type forbids derivation by '%1'.</translation></message>
<message><source>属性 '%1' または同じ意味の子要素が必要です。</source><translation>The attribute '%1' or a child element of the same meaning is required.</translation></message>
<message><source>派生した型が基底型と矛盾しています。</source><translation>The derived type contradicts its base type.</translation></message>
<message><source>%1 の属性 '%3': %2</source><translation>%1, attribute '%3': %2</translation></message>
<message><source>定義が正しくありません (エラー番号 %1)。</source><translation>The definition is not valid (error number %1).</translation></message>
<message><source>DTD で、要素 '%1' の混在内容の宣言に '%2' が重複しています。</source><translation>DTD: '%2' occurs more than once in the mixed content of element '%1'.</translation></message>
<message><source>DTD で、要素 '%1' の混在内容の宣言に同じ名前が重複しています。</source><translation>DTD: A name occurs more than once in the mixed content of element '%1'.</translation></message>
<message><source>DTD で、要素 '%1' の内容の宣言があいまいです。子要素がどの名前に一致するかを決められません。</source><translation>DTD: The content of element '%1' is ambiguous. It cannot be decided which name a child element matches.</translation></message>
<message><source>DTD で、要素 '%1' の宣言が重複しています。</source><translation>DTD: Element '%1' is declared more than once.</translation></message>
<message><source>DTD で、要素 '%1' の ID 型の属性 '%2' に既定値または固定値が指定されています。</source><translation>DTD: The attribute '%2' of type ID of element '%1' has a default or fixed value.</translation></message>
<message><source>DTD で、要素 '%1' に ID 型の属性が 2 つ以上宣言されています。</source><translation>DTD: Element '%1' has more than one attribute of type ID.</translation></message>
<message><source>DTD で、要素 '%1' の属性 '%2' の既定値 '%3' が、列挙されている値のいずれでもありません。</source><translation>DTD: The default value '%3' of the attribute '%2' of element '%1' is none of the enumerated values.</translation></message>
<message><source>DTD で、要素 '%1' の属性 '%2' の既定値が属性の型に合っていません。</source><translation>DTD: The default value of the attribute '%2' of element '%1' does not match its type.</translation></message>
<message><source>DTD で、属性に列挙されている値 '%1' が重複しています。</source><translation>DTD: The enumerated value '%1' occurs more than once.</translation></message>
<message><source>DTD で、空要素 '%1' に NOTATION 型の属性 '%2' が宣言されています。</source><translation>DTD: The empty element '%1' has the attribute '%2' of type NOTATION.</translation></message>
<message><source>DTD で、要素 '%1' に NOTATION 型の属性が 2 つ以上宣言されています。</source><translation>DTD: Element '%1' has more than one attribute of type NOTATION.</translation></message>
<message><source>DTD で、記法 '%1' の宣言が重複しています。</source><translation>DTD: Notation '%1' is declared more than once.</translation></message>
<message><source>DTD で、記法 '%1' が宣言されていません。</source><translation>DTD: Notation '%1' is not declared.</translation></message>
<message><source>文字参照または実体参照の構文が正しくありません。</source><translation>The syntax of a character or entity reference is not valid.</translation></message>
<message><source>宣言の構文が正しくありません。</source><translation>The syntax of the declaration is not valid.</translation></message>
<message><source>属性の構文が正しくありません。</source><translation>The syntax of the attribute is not valid.</translation></message>
<message><source>引用符が閉じていません。</source><translation>The closing quotation mark is missing.</translation></message>
<message><source>エンコードが正しくありません。</source><translation>The encoding is not valid.</translation></message>
<!-- schema_link_texts.h -->
<message><source>この文書用に選択</source><translation>selected for this document</translation></message>
<message><source>内部サブセット</source><translation>internal subset</translation></message>
<message><source>規則</source><translation>rule</translation></message>
<message><source>カタログ</source><translation>catalog</translation></message>
<message><source>%1、カタログ</source><translation>%1, catalog</translation></message>
<message><source>%1、取得済み</source><translation>%1, downloaded</translation></message>
<message><source>%1、内蔵</source><translation>%1, built in</translation></message>
<message><source>%1（%2）</source><translation>%1 (%2)</translation></message>
<message><source>不明</source><translation>unknown</translation></message>
<message><source>使用中</source><translation>in use</translation></message>
<message><source>未使用</source><translation>not used</translation></message>
<message><source>未取得</source><translation>not downloaded</translation></message>
<message><source>使用不可</source><translation>unusable</translation></message>
<message><source>使用していません。上にあるスキーマが優先されます。</source><translation>Not used: the schemas above take precedence.</translation></message>
<message><source>スキーマなし</source><translation>No schema</translation></message>
<message><source>検索中...</source><translation>searching...</translation></message>
<message><source>%1 を使用できません。%2</source><translation>%1 cannot be used. %2</translation></message>
<message><source>ファイル '%1' が見つかりません。</source><translation>The file '%1' does not exist.</translation></message>
<message><source>文書がまだ保存されていないため、'%1' の場所がわかりません。</source><translation>The location of '%1' is not known because the document has not been saved yet.</translation></message>
<message><source>文書がネットワーク上にあるため、'%1' は読み込みません。</source><translation>'%1' is not read because the document is on the network.</translation></message>
<message><source>'%1' はネットワーク上のアドレスです。「取得」を押すまで接続しません。</source><translation>'%1' is an address on the network. No connection is made until you press "Download".</translation></message>
<message><source>'%1' は対応していないアドレスです。https で始まるアドレスだけを取得できます。</source><translation>'%1' is not supported. Only addresses that start with https can be downloaded.</translation></message>
<message><source>'%1' は別のコンピューター上のファイルです。読み込みません。</source><translation>'%1' is a file on another computer and is not read.</translation></message>
<message><source>カタログが '%1' に対してネットワーク上のアドレス '%2' を示しています。読み込みません。</source><translation>The catalog maps '%1' to '%2', an address on the network, which is not read.</translation></message>
<message><source>'%1' は文書のフォルダーの外にあり、スキーマの拡張子 (.xsd、.dtd、.rng、.rnc、.sch、.xdr) を持たないため、読み込みません。</source><translation>'%1' is outside the folder of the document and does not have the extension of a schema (.xsd, .dtd, .rng, .rnc, .sch, .xdr), so it is not read.</translation></message>
<message><source>'%1' のスキーマ言語 '%2' には対応していません。</source><translation>The schema language '%2' of '%1' is not supported.</translation></message>
<message><source>xml-model 命令に href がありません。</source><translation>The xml-model instruction has no href.</translation></message>
<message><source>'%1' は文書の中のスキーマです。候補の表示には使用できません。</source><translation>'%1' is a schema within the document. It cannot be used for suggestions.</translation></message>
<message><source>次のアドレスからスキーマを取得します。接続するのはこのアドレスだけです。&#10;&#10;%1&#10;&#10;よろしいですか？</source><translation>The schema will be downloaded from this address. No other connection is made.&#10;&#10;%1&#10;&#10;Continue?</translation></message>
<message><source>サーバーが、別の場所からの取得を求めています。&#10;&#10;%1&#10;&#10;この場所に接続しますか？</source><translation>The server asks to download from another place.&#10;&#10;%1&#10;&#10;Connect to this place?</translation></message>
<message><source>スキーマを取得しています...</source><translation>Downloading the schema...</translation></message>
<message><source>%1 を取得しました。</source><translation>%1 has been downloaded.</translation></message>
<message><source>%1 を取得できません。&#10;%2</source><translation>%1 cannot be downloaded.&#10;%2</translation></message>
<message><source>%1 を取得できません。&#10;サーバーの応答コードは %2 です。</source><translation>%1 cannot be downloaded.&#10;The server answered with status code %2.</translation></message>
<message><source>%1 を取得できません。&#10;16 MB を超えています。</source><translation>%1 cannot be downloaded.&#10;It is larger than 16 MB.</translation></message>
<message><source>%1 にあるのはスキーマではありません。保存しませんでした。</source><translation>What is at %1 is not a schema. It has not been saved.</translation></message>
<message><source>取得したスキーマ %1 件を削除しますか？</source><translation>Delete all downloaded schemas (%1)?</translation></message>
<message><source>この文書で使用するスキーマの選択</source><translation>Select Schema for This Document</translation></message>
<message><source>スキーマ(*.xsd, *.dtd, *.rng, *.rnc, *.sch, *.xdr, *.xml)|*.xsd;*.dtd;*.rng;*.rnc;*.sch;*.xdr;*.xml|すべてのファイル(*.*)|*</source><translation>Schemas (*.xsd, *.dtd, *.rng, *.rnc, *.sch, *.xdr, *.xml)|*.xsd;*.dtd;*.rng;*.rnc;*.sch;*.xdr;*.xml|All files (*.*)|*</translation></message>
<message><source>'%1' はスキーマではありません。DTD、XML Schema、XDR、RELAX NG、Schematron を選択してください。</source><translation>'%1' is not a schema. Select a DTD, XML Schema, XDR, RELAX NG or Schematron schema.</translation></message>
<message><source>文書は読み取り専用です。</source><translation>The document is read-only.</translation></message>
<message><source>この名前は文書型宣言に書けません。</source><translation>This name cannot be written in a document type declaration.</translation></message>
<message><source>ルート要素が別の名前空間に属しているため、x-schema: の名前空間を指定できません。</source><translation>The root element is in another namespace, so the x-schema: namespace cannot be declared.</translation></message>
<message><source>文書にルート要素がありません。</source><translation>The document has no root element.</translation></message>
<message><source>スキーマを作成しています...</source><translation>Creating the schema...</translation></message>
<message><source>スキーマの保存</source><translation>Save Schema</translation></message>
<message><source>%1 を作成しました。</source><translation>%1 has been created.</translation></message>
<message><source>作成した '%1' をこの文書に結び付けますか？</source><translation>Bind the new schema '%1' to this document?</translation></message>
<!-- schematron_texts.h -->
<message><source>Schematron スキーマではありません。</source><translation>This is not a Schematron schema.</translation></message>
<message><source>クエリ言語 '%1' には対応していません。使用できるのは XSLT 1.0 (queryBinding="xslt") だけです。</source><translation>The query language '%1' is not supported. Only XSLT 1.0 (queryBinding="xslt") can be used.</translation></message>
<message><source>要素 '%1' に必須の属性 '%2' がありません。</source><translation>The required attribute '%2' of element '%1' is missing.</translation></message>
<message><source>パターン '%1' はスキーマにありません。</source><translation>The schema has no pattern '%1'.</translation></message>
<message><source>抽象パターン '%1' はスキーマにありません。</source><translation>The schema has no abstract pattern '%1'.</translation></message>
<message><source>抽象規則 '%1' はスキーマにありません。</source><translation>The schema has no abstract rule '%1'.</translation></message>
<message><source>フェーズ '%1' はスキーマにありません。</source><translation>The schema has no phase '%1'.</translation></message>
<message><source>診断 '%1' はスキーマにありません。</source><translation>The schema has no diagnostic '%1'.</translation></message>
<message><source>取り込む '%1' が見つからないか、読み込めません。</source><translation>The included file '%1' does not exist or cannot be read.</translation></message>
<message><source>定義の入れ子が深すぎるか、循環しています。</source><translation>The definitions are nested too deeply or refer to themselves.</translation></message>
<message><source>定義を展開した結果が大きすぎます。</source><translation>The definitions become too large when they are expanded.</translation></message>
<message><source>規則 '%1' が満たされていません。</source><translation>The rule '%1' is not satisfied.</translation></message>
<message><source>規則 '%1' に該当します。</source><translation>The rule '%1' applies.</translation></message>
<!-- search_texts.cpp -->
<message><source>末尾の \ の後に文字がありません。</source><translation>There is no character after the \ at the end.</translation></message>
<message><source>\c の後に文字がありません。</source><translation>There is no character after \c.</translation></message>
<message><source>\ の後に使用できない文字があります。</source><translation>There is a character after \ that is not allowed.</translation></message>
<message><source>繰り返しの回数 {最小,最大} の大小が逆です。</source><translation>The numbers of repetitions {least,most} are in the wrong order.</translation></message>
<message><source>繰り返しの回数が大きすぎます。</source><translation>The number of repetitions is too large.</translation></message>
<message><source>[ に対応する ] がありません。</source><translation>There is no ] for a [.</translation></message>
<message><source>[ ] の中で使用できない \ の指定があります。</source><translation>There is a \ sequence that is not allowed inside [ ].</translation></message>
<message><source>[ ] の中の文字の範囲の前後が逆です。</source><translation>A range of characters inside [ ] is in the wrong order.</translation></message>
<message><source>[ ] の中の文字の範囲が正しくありません。</source><translation>A range of characters inside [ ] is not valid.</translation></message>
<message><source>繰り返し (* + ? {回数}) の前に、繰り返す文字がありません。</source><translation>There is nothing to repeat before a repetition (* + ? {number}).</translation></message>
<message><source>(? の後に使用できない文字があります。</source><translation>There is a character after (? that is not allowed.</translation></message>
<message><source>[: :] などの指定は、[ ] の中の [:alpha:] などに限られます。</source><translation>[: :] and the like are only allowed inside [ ], as in [[:alpha:]].</translation></message>
<message><source>[: :] の中の名前が正しくありません。</source><translation>The name inside [: :] is not valid.</translation></message>
<message><source>( に対応する ) がありません。</source><translation>There is no ) for a (.</translation></message>
<message><source>(?# に対応する ) がありません。</source><translation>There is no ) for a (?#.</translation></message>
<message><source>) に対応する ( がありません。</source><translation>There is no ( for a ).</translation></message>
<message><source>存在しないグループが参照されています。</source><translation>There is a reference to a group that does not exist.</translation></message>
<message><source>括弧の入れ子が深すぎます。</source><translation>The parentheses are nested too deeply.</translation></message>
<message><source>正規表現が長すぎます。</source><translation>The regular expression is too long.</translation></message>
<message><source>正規表現が複雑すぎます。</source><translation>The regular expression is too complicated.</translation></message>
<message><source>後読み (?&lt;= ) (?&lt;! ) の長さが決まっていません。</source><translation>The length of a lookbehind (?&lt;= ) (?&lt;! ) is not fixed.</translation></message>
<message><source>後読み (?&lt;= ) (?&lt;! ) が複雑すぎるか長すぎます。</source><translation>A lookbehind (?&lt;= ) (?&lt;! ) is too complicated or too long.</translation></message>
<message><source>条件 (?( ) ) の選択肢が 3 つ以上あります。</source><translation>A condition (?( ) ) has more than two alternatives.</translation></message>
<message><source>(?( の後に条件がありません。</source><translation>There is no condition after (?(.</translation></message>
<message><source>同じ名前のグループが 2 つあります。</source><translation>Two groups have the same name.</translation></message>
<message><source>グループの名前を数字で始めることはできません。</source><translation>The name of a group cannot start with a digit.</translation></message>
<message><source>グループの名前がありません。</source><translation>The name of a group is missing.</translation></message>
<message><source>グループの名前が長すぎます。</source><translation>The name of a group is too long.</translation></message>
<message><source>グループの名前を閉じる記号がありません。</source><translation>The character that closes the name of a group is missing.</translation></message>
<message><source>文字コードの値が大きすぎます。</source><translation>The value of a character code is too large.</translation></message>
<message><source>\p{ } の中の名前が正しくありません。</source><translation>The name inside \p{ } is not valid.</translation></message>
<message><source>\p{ } の書き方が正しくありません。</source><translation>\p{ } is not written correctly.</translation></message>
<message><source>\L \U \l \u \N{名前} は使用できません。</source><translation>\L \U \l \u \N{name} are not supported.</translation></message>
<message><source>正規表現の書き方が正しくありません。</source><translation>The regular expression is not written correctly.</translation></message>
<message><source>正規表現の %1 文字目の付近: </source><translation>Near character %1 of the regular expression: </translation></message>
<!-- search_texts.h -->
<message><source>検索する文字列を入力してください。</source><translation>Enter the text to find.</translation></message>
<message><source>正規表現の照合に手間がかかりすぎるため、検索を中止しました。正規表現を見直してください。</source><translation>Matching the regular expression takes too many steps, so the search was stopped. Simplify the regular expression.</translation></message>
<message><source>置換後の文字列の %1 に当たるグループが、正規表現にありません。</source><translation>The regular expression has no group for %1 in the replacement.</translation></message>
<message><source>要素・属性名はロックされています。</source><translation>Element and attribute names are locked.</translation></message>
<message><source>「%1」は名前として使用できません。</source><translation>"%1" is not a valid name.</translation></message>
<message><source>同じ要素に属性「%1」が 2 つできてしまいます。</source><translation>The element would have the attribute "%1" twice.</translation></message>
<message><source>名前空間の接頭辞「%1」は、ここでは宣言されていません。</source><translation>The namespace prefix "%1" is not declared here.</translation></message>
<message><source>接頭辞「%1」を使用する名前が残るため、その宣言の名前は変更できません。</source><translation>The prefix "%1" would still be used by other names, so the name of its declaration cannot be changed.</translation></message>
<message><source>文書型宣言の既定値による属性なので、名前は変更できません。</source><translation>The attribute comes from a default in the document type declaration, so its name cannot be changed.</translation></message>
<message><source>処理命令の名前は変更できません。</source><translation>The name of a processing instruction cannot be changed.</translation></message>
<message><source>XML 宣言は変更できません。</source><translation>The XML declaration cannot be changed.</translation></message>
<message><source>コメントに「--」を含めることや、「-」で終わらせることはできません。</source><translation>A comment cannot contain "--" or end with "-".</translation></message>
<message><source>処理命令に「?&gt;」を含めることはできません。</source><translation>A processing instruction cannot contain "?&gt;".</translation></message>
<message><source>CDATA セクションに「]]&gt;」を含めることはできません。</source><translation>A CDATA section cannot contain "]]&gt;".</translation></message>
<message><source>実体参照の一部だけを置換することはできません。</source><translation>A part of an entity reference cannot be replaced.</translation></message>
<message><source>接頭辞のある名前空間宣言の値を空にすることはできません。</source><translation>The declaration of a namespace prefix cannot have an empty value.</translation></message>
<message><source>検索しています...</source><translation>Searching...</translation></message>
<message><source>置換しています...</source><translation>Replacing...</translation></message>
<message><source>終わりまで検索したので、先頭に戻りました。</source><translation>Reached the end and continued from the start.</translation></message>
<message><source>%L1 か所で見つかりました。</source><translation>Places found: %L1</translation></message>
<message><source>検索の対象になる XPath の検索結果がありません。先に XPath で検索してください。</source><translation>There are no XPath results to search in. Run an XPath query first.</translation></message>
<message><source>ドキュメントは読み取り専用なので、置換できません。</source><translation>The document is read-only and cannot be changed.</translation></message>
<message><source>%L1 か所を置換します。内容を確認して「実行」を押してください。</source><translation>Places to replace: %L1. Check the list, then press "Execute".</translation></message>
<message><source>%L1 か所を置換します。%L2 か所は置換できません。内容を確認して「実行」を押してください。</source><translation>Places to replace: %L1. Not replaceable: %L2. Check the list, then press "Execute".</translation></message>
<message><source>%L1 か所で見つかりましたが、置換できません。理由は一覧に表示されています。</source><translation>Places found: %L1. None can be replaced; the list tells why.</translation></message>
<message><source>置換する項目が選択されていません。</source><translation>Nothing is ticked to be replaced.</translation></message>
<message><source>置換を取り消しました。</source><translation>Replacing has been canceled.</translation></message>
<message><source>%L1 か所を置換しました。</source><translation>Places replaced: %L1</translation></message>
<message><source>%L1 か所を置換しました。%L2 か所は置換できませんでした: %3</source><translation>Places replaced: %L1. Not replaced: %L2. %3</translation></message>
<message><source>検索と置換</source><translation>Find and Replace</translation></message>
<message><source>検索する文字列(&amp;N):</source><translation>Fi&amp;nd what:</translation></message>
<message><source>検索する文字列</source><translation>Find what</translation></message>
<message><source>置換後の文字列(&amp;P):</source><translation>Re&amp;place with:</translation></message>
<message><source>置換後の文字列</source><translation>Replace with</translation></message>
<message><source>検索の方法</source><translation>Search mode</translation></message>
<message><source>文字列(&amp;T)</source><translation>Plain &amp;text</translation></message>
<message><source>ワイルドカード(&amp;K)</source><translation>W&amp;ildcards</translation></message>
<message><source>正規表現(&amp;G)</source><translation>Re&amp;gular expression</translation></message>
<message><source>入力した文字列をそのまま検索します。</source><translation>Searches for the text as it is typed.</translation></message>
<message><source>*: 任意の文字列　?: 1 文字　#: 数字　[あいう]: いずれか　[!あいう]: それ以外</source><translation>*: any text   ?: one character   #: digit   [abc]: one of these   [!abc]: any other</translation></message>
<message><source>置換後の文字列では　$1, $2: グループ　$&amp;: 全体　\n: 改行　\t: タブ</source><translation>In the replacement: $1, $2: group   $&amp;: whole match   \n: line break   \t: tab</translation></message>
<message><source>大文字と小文字を区別する(&amp;C)</source><translation>Match &amp;case</translation></message>
<message><source>単語単位で検索する(&amp;W)</source><translation>&amp;Whole words only</translation></message>
<message><source>全角と半角、ひらがなとカタカナを区別する(&amp;Z)</source><translation>Match character width and &amp;kana</translation></message>
<message><source>検索する場所</source><translation>Search in</translation></message>
<message><source>要素名(&amp;1)</source><translation>Element names (&amp;1)</translation></message>
<message><source>属性名(&amp;2)</source><translation>Attribute names (&amp;2)</translation></message>
<message><source>属性値(&amp;3)</source><translation>Attribute values (&amp;3)</translation></message>
<message><source>テキスト(&amp;4)</source><translation>Text (&amp;4)</translation></message>
<message><source>CDATA(&amp;5)</source><translation>CDATA (&amp;5)</translation></message>
<message><source>コメント(&amp;6)</source><translation>Comments (&amp;6)</translation></message>
<message><source>処理命令(&amp;7)</source><translation>Processing instructions (&amp;7)</translation></message>
<message><source>検索する場所を選択してください。</source><translation>Select where to search.</translation></message>
<message><source>検索する範囲</source><translation>Scope</translation></message>
<message><source>ドキュメント全体(&amp;D)</source><translation>Whole &amp;document</translation></message>
<message><source>選択したノードとその下(&amp;S)</source><translation>&amp;Selected nodes and below</translation></message>
<message><source>XPath の検索結果とその下(&amp;X)</source><translation>&amp;XPath results and below</translation></message>
<message><source>次を検索(&amp;F)</source><translation>&amp;Find Next</translation></message>
<message><source>すべて検索(&amp;A)</source><translation>Find &amp;All</translation></message>
<message><source>置換(&amp;R)</source><translation>&amp;Replace</translation></message>
<message><source>すべて置換(&amp;L)...</source><translation>Rep&amp;lace All...</translation></message>
<message><source>実行(&amp;E)</source><translation>&amp;Execute</translation></message>
<message><source>取り消し(&amp;U)</source><translation>Give &amp;Up</translation></message>
<message><source>結果</source><translation>Result</translation></message>
<!-- syntax_texts.h -->
<message><source>XML で使用できない文字 (%1) があります。</source><translation>There is a character (%1) that is not allowed in XML.</translation></message>
<message><source>XML 宣言の前に空白があります。</source><translation>There are blanks before the XML declaration.</translation></message>
<message><source>XML 宣言がドキュメントの先頭にありません。</source><translation>The XML declaration is not at the start of the document.</translation></message>
<message><source>コメントの中に -- があります。</source><translation>There is -- inside a comment.</translation></message>
<message><source>コメントが --&gt; で閉じられていません。</source><translation>The comment is not closed by --&gt;.</translation></message>
<message><source>CDATA セクションが ]]&gt; で閉じられていません。</source><translation>The CDATA section is not closed by ]]&gt;.</translation></message>
<message><source>処理命令が ?&gt; で閉じられていません。</source><translation>The processing instruction is not closed by ?&gt;.</translation></message>
<message><source>テキストの中に ]]&gt; があります (]]&amp;gt; と書きます)。</source><translation>There is ]]&gt; in the text (it is written as ]]&amp;gt;).</translation></message>
<message><source>%1 行 %2 桁: %3</source><translation>Line %1, column %2: %3</translation></message>
<message><source>修正候補を調べています...</source><translation>Looking for fixes...</translation></message>
<message><source>終了タグ &lt;/%1&gt; を挿入 (%2 行目)</source><translation>Insert the end tag &lt;/%1&gt; (line %2)</translation></message>
<message><source>不足している終了タグ %1 個を挿入</source><translation>Insert the missing end tags (%1)</translation></message>
<message><source>&lt;%1&gt; を空要素 &lt;%1/&gt; に変更</source><translation>Change &lt;%1&gt; to the empty element &lt;%1/&gt;</translation></message>
<message><source>開始タグ &lt;%1&gt; (%2 行目) を削除</source><translation>Delete the start tag &lt;%1&gt; (line %2)</translation></message>
<message><source>終了タグ &lt;/%1&gt; を &lt;/%2&gt; に変更</source><translation>Change the end tag &lt;/%1&gt; to &lt;/%2&gt;</translation></message>
<message><source>開始タグ &lt;%1&gt; (%3 行目) を &lt;%2&gt; に変更</source><translation>Change the start tag &lt;%1&gt; (line %3) to &lt;%2&gt;</translation></message>
<message><source>終了タグ &lt;/%1&gt; を削除</source><translation>Delete the end tag &lt;/%1&gt;</translation></message>
<message><source>終了タグ &lt;/%1&gt; (%2 行目) を削除</source><translation>Delete the end tag &lt;/%1&gt; (line %2)</translation></message>
<message><source>値を引用符で囲む: %1</source><translation>Put the value in quotation marks: %1</translation></message>
<message><source>引用符を閉じる: %1</source><translation>Close the quotation mark: %1</translation></message>
<message><source>値を付ける: %1</source><translation>Add a value: %1</translation></message>
<message><source>2 つ目の属性 %1 を削除</source><translation>Delete the second attribute %1</translation></message>
<message><source>1 つ目の属性 %1 を削除</source><translation>Delete the first attribute %1</translation></message>
<message><source>2 つ目の属性 '%1' の名前を '%2' に変更</source><translation>Rename the second attribute '%1' to '%2'</translation></message>
<message><source>属性 '%1' の後に = を挿入</source><translation>Insert = after attribute '%1'</translation></message>
<message><source>属性 '%1' の前に空白を挿入</source><translation>Insert a space before attribute '%1'</translation></message>
<message><source>&amp; を &amp;amp; に変更</source><translation>Change &amp; to &amp;amp;</translation></message>
<message><source>&lt; を &amp;lt; に変更</source><translation>Change &lt; to &amp;lt;</translation></message>
<message><source>]]&gt; を ]]&amp;gt; に変更</source><translation>Change ]]&gt; to ]]&amp;gt;</translation></message>
<message><source>%1 を %2 に変更</source><translation>Change %1 to %2</translation></message>
<message><source>「%1」を削除</source><translation>Delete "%1"</translation></message>
<message><source>&lt; の後の空白を削除</source><translation>Delete the blanks after &lt;</translation></message>
<message><source>タグを %1 で閉じる</source><translation>Close the tag by %1</translation></message>
<message><source>全体を新しいルート要素 &lt;root&gt; で囲む</source><translation>Enclose everything in a new root element &lt;root&gt;</translation></message>
<message><source>後の要素をルート要素 &lt;%1&gt; の中に入れる</source><translation>Move the elements that follow into the root element &lt;%1&gt;</translation></message>
<message><source>文字をルート要素 &lt;%1&gt; の中に入れる</source><translation>Move the text into the root element &lt;%1&gt;</translation></message>
<message><source>文字をコメントにする</source><translation>Turn the text into a comment</translation></message>
<message><source>この文字を削除</source><translation>Delete this character</translation></message>
<message><source>この文字を空白に変更</source><translation>Change this character to a space</translation></message>
<message><source>同じ文字をすべて削除 (%1 個)</source><translation>Delete all such characters (%1)</translation></message>
<message><source>XML 宣言の前の空白を削除</source><translation>Delete the blanks before the XML declaration</translation></message>
<message><source>XML 宣言を先頭に移動</source><translation>Move the XML declaration to the start</translation></message>
<message><source>コメントを --&gt; で閉じる</source><translation>Close the comment by --&gt;</translation></message>
<message><source>コメントの -- を - - に変更</source><translation>Change -- in the comment to - -</translation></message>
<message><source>CDATA セクションを ]]&gt; で閉じる</source><translation>Close the CDATA section by ]]&gt;</translation></message>
<message><source>処理命令を ?&gt; で閉じる</source><translation>Close the processing instruction by ?&gt;</translation></message>
<message><source>&lt;%1&gt; (%2 行目) に対応する終了タグがありません。</source><translation>&lt;%1&gt; (line %2) has no end tag.</translation></message>
<message><source>終了タグ &lt;/%1&gt; は、大文字と小文字が開始タグ &lt;%2&gt; (%3 行目) と一致しません。</source><translation>The end tag &lt;/%1&gt; differs from the start tag &lt;%2&gt; (line %3) in upper and lower case.</translation></message>
<message><source>終了タグ &lt;/%1&gt; が開始タグ &lt;%2&gt; (%3 行目) と一致しません。</source><translation>The end tag &lt;/%1&gt; does not match the start tag &lt;%2&gt; (line %3).</translation></message>
<message><source>終了タグ &lt;/%1&gt; に対応する開始タグがありません。</source><translation>The end tag &lt;/%1&gt; has no start tag.</translation></message>
<message><source>属性 '%1' の値が引用符で囲まれていません。</source><translation>The value of attribute '%1' is not in quotation marks.</translation></message>
<message><source>属性 '%1' の値の引用符が閉じていません。</source><translation>The value of attribute '%1' lacks the closing quotation mark.</translation></message>
<message><source>属性 '%1' が重複しています (1 つ目は %2 行目)。</source><translation>Attribute '%1' occurs more than once (first on line %2).</translation></message>
<message><source>属性 '%1' の後に = がありません。</source><translation>There is no = after attribute '%1'.</translation></message>
<message><source>属性 '%1' に値がありません。</source><translation>Attribute '%1' has no value.</translation></message>
<message><source>属性 '%1' の前に空白がありません。</source><translation>There is no space before attribute '%1'.</translation></message>
<message><source>&amp; がそのまま書かれています (文字としての &amp; は &amp;amp; と書きます)。</source><translation>There is a bare &amp; (the character &amp; is written as &amp;amp;).</translation></message>
<message><source>&lt; がそのまま書かれています (文字としての &lt; は &amp;lt; と書きます)。</source><translation>There is a bare &lt; (the character &lt; is written as &amp;lt;).</translation></message>
<message><source>実体 '%1' は宣言されていません。</source><translation>Entity '%1' is not declared.</translation></message>
<message><source>文字参照 &amp;%1; は XML で使用できない文字を表します。</source><translation>The character reference &amp;%1; stands for a character that is not allowed in XML.</translation></message>
<message><source>タグ %1 が &gt; で閉じられていません。</source><translation>The tag %1 is not closed by &gt;.</translation></message>
<message><source>ルート要素の後に別の要素 &lt;%1&gt; があります (最上位の要素は 1 つだけです)。</source><translation>There is another element &lt;%1&gt; after the root element (only one top-level element is allowed).</translation></message>
<message><source>ルート要素の外に文字があります。</source><translation>There is text outside the root element.</translation></message>
<!-- texts.h -->
<message><source>キャンセル</source><translation>Cancel</translation></message>
<message><source>はい(&amp;Y)</source><translation>&amp;Yes</translation></message>
<message><source>いいえ(&amp;N)</source><translation>&amp;No</translation></message>
<message><source>中止</source><translation>Stop</translation></message>
<message><source>開く</source><translation>Open</translation></message>
<message><source>名前を付けて保存</source><translation>Save As</translation></message>
<message><source>フォント</source><translation>Font</translation></message>
<message><source>読み取り専用で開く(&amp;R)</source><translation>Open as &amp;read-only</translation></message>
<message><source>UTF-8 以外の名前(&amp;U):</source><translation>Names other than &amp;UTF-8:</translation></message>
<message><source>名前が UTF-8 でないファイル</source><translation>Files whose names are not UTF-8</translation></message>
<message><source>ここからファイルを選択できます</source><translation>Files can be chosen here</translation></message>
<message><source>%1&#10;ファイルが見つかりません。ファイル名を確認してください。</source><translation>%1&#10;File not found. Check the file name.</translation></message>
<message><source>%1&#10;フォルダーが見つかりません。パスを確認してください。</source><translation>%1&#10;Folder not found. Check the path.</translation></message>
<message><source>%1&#10;はすでに存在します。上書きしますか？</source><translation>%1&#10;already exists. Overwrite it?</translation></message>
<message><source> (読み取り専用)</source><translation> (read-only)</translation></message>
<message><source>XMLファイル(*.xml)|*.xml|XSLファイル(*.xsl)|*.xsl|すべてのファイル(*.*)|*.*</source><translation>XML files (*.xml)|*.xml|XSL files (*.xsl)|*.xsl|All files (*.*)|*.*</translation></message>
<message><source>変更は全て失われます。よろしいですか？</source><translation>All changes will be lost. Continue?</translation></message>
<message><source>このファイルは、開いた後に他のプログラムによって変更されています。&#10;上書きしてもよろしいですか？</source><translation>This file has been changed by another program since it was opened.&#10;Overwrite it?</translation></message>
<message><source>ファイルを読み込めなかったため、保存する内容がありません。&#10;ファイルを開き直してください。</source><translation>The file could not be read, so there is nothing to save.&#10;Open the file again.</translation></message>
<message><source>前回保存されなかった変更があります。復元しますか？&#10;&#10;%1&#10;(%2 の内容)&#10;&#10;「いいえ」を選択すると、この変更は削除されます。</source><translation>There are changes that were not saved last time. Recover them?&#10;&#10;%1&#10;(as of %2)&#10;&#10;If you choose "No", these changes are deleted.</translation></message>
<message><source> (復元)</source><translation> (recovered)</translation></message>
<message><source>異常終了に備えた変更の控えを作業フォルダーに書き込めません。ドキュメントを保存してください。</source><translation>The copy of the changes that is kept against a crash cannot be written to the working folder. Save the document.</translation></message>
<message><source>復元できませんでした。変更の控えは次のファイルに残っています。&#10;%1&#10;&#10;%2</source><translation>The document could not be recovered. The copy of the changes is still in this file:&#10;%1&#10;&#10;%2</translation></message>
<message><source>作業フォルダーを使用できません: %1&#10;%2</source><translation>The working folder cannot be used: %1&#10;%2</translation></message>
<message><source>フォルダー以外のものが同じ名前で存在します。</source><translation>Something that is not a folder has the same name.</translation></message>
<message><source>他のユーザーのフォルダーです。</source><translation>The folder belongs to another user.</translation></message>
<message><source>%1 を次の場所にコピーできません: %2&#10;%3</source><translation>%1 cannot be copied to: %2&#10;%3</translation></message>
<message><source>次の命令の href を読み取れないため、スタイルシートを作業フォルダーにコピーできませんでした。&#10;ドキュメントは開かれています。&#10;&#10;%1</source><translation>The stylesheet could not be copied to the working folder because the href of this instruction cannot be read.&#10;The document has been opened.&#10;&#10;%1</translation></message>
<message><source>構文エラー</source><translation>Syntax error</translation></message>
<message><source>読み込んでいます...</source><translation>Loading...</translation></message>
<message><source>このファイルは他のプログラムによって変更されました。「再読込」で新しい内容を読み込めます。</source><translation>Another program has changed this file. "Reload" loads the new content.</translation></message>
<message><source>終わりまで検索しました。</source><translation>The search has reached the end.</translation></message>
<message><source>先頭まで検索しました。</source><translation>The search has reached the start.</translation></message>
<message><source>見つかりませんでした</source><translation>Not found</translation></message>
<message><source>件検索されました。</source><translation> found.</translation></message>
<message><source>編集ペインのテキストは構文エラーのため、ドキュメントに反映されていません。&#10;このテキストを破棄しますか？&#10;&#10;「いいえ」を選択すると、編集に戻ります。</source><translation>The text in the edit pane has a syntax error and is not part of the document.&#10;Discard this text?&#10;&#10;Choose "No" to go on editing.</translation></message>
<message><source>挿入するノードは、このドキュメントで同じ内容に宣言されていない実体を参照しています。</source><translation>The nodes to insert refer to entities that are not declared with the same content in this document.</translation></message>
<message><source>設定 [%1] %2 の値 "%3" が正しくありません。&#10;%4</source><translation>The value "%3" of the setting [%1] %2 is not valid.&#10;%4</translation></message>
<message><source>外部エディタ "%1" が二重に設定されています。これ以降の設定は読み込みません。</source><translation>The external editor "%1" is set up twice. The settings that follow are not read.</translation></message>
<message><source>プレビュー用XSLファイルの選択</source><translation>Select Preview XSL File</translation></message>
<message><source>XSLファイル(*.xsl)|*.xsl</source><translation>XSL files (*.xsl)|*.xsl</translation></message>
<message><source>スタイルシートの %1 行目、%2 列目: %3</source><translation>Line %1, column %2 of the stylesheet: %3</translation></message>
<message><source>%1 に書き込めません。&#10;%2</source><translation>%1 cannot be written.&#10;%2</translation></message>
<message><source>プレビューを作成しています...</source><translation>Making the preview...</translation></message>
<message><source>&lt;!DOCTYPE html&gt;&lt;html lang="ja"&gt;&lt;head&gt;&lt;meta charset="utf-8"&gt;&lt;title&gt;プレビュー&lt;/title&gt;&lt;style&gt;body{font-family:sans-serif;color:#444;margin:2em}@media screen{:root.dark{color-scheme:dark;background:#1e1e1e}.dark body{color:#e6e6e6}}&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p&gt;%1&lt;/p&gt;&lt;p&gt;&lt;b&gt;F5&lt;/b&gt; キーを押すと表示します。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source><translation>&lt;!DOCTYPE html&gt;&lt;html lang="en"&gt;&lt;head&gt;&lt;meta charset="utf-8"&gt;&lt;title&gt;Preview&lt;/title&gt;&lt;style&gt;body{font-family:sans-serif;color:#444;margin:2em}@media screen{:root.dark{color-scheme:dark;background:#1e1e1e}.dark body{color:#e6e6e6}}&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p&gt;%1&lt;/p&gt;&lt;p&gt;Press &lt;b&gt;F5&lt;/b&gt; to show it.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation></message>
<message><source>このドキュメントは大きいため (目安として %1 ノード)、プレビューを自動では更新しません。</source><translation>This document is large (about %1 nodes), so the preview is not updated automatically.</translation></message>
<message><source>このドキュメントは要素の入れ子が深いため (%1 段)、プレビューを自動では更新しません。</source><translation>The elements of this document are deeply nested (%1 levels), so the preview is not updated automatically.</translation></message>
<message><source>… %1 件</source><translation>… %1 more nodes</translation></message>
<message><source>次のアドレスをブラウザーで開きますか?&#10;&#10;%1</source><translation>Open this address in the browser?&#10;&#10;%1</translation></message>
<message><source>リンクのアドレスが長すぎて全体を表示できないため、開きませんでした。</source><translation>The link was not opened because its address is too long to be shown in full.</translation></message>
<message><source>プレビューのページからのメッセージ: %1</source><translation>Message from the page in the preview: %1</translation></message>
<message><source>プレビューのページが応答しないため、停止しました。</source><translation>The page in the preview did not respond and was stopped.</translation></message>
<message><source>プレビューのページは異常終了しました。</source><translation>The page in the preview ended abnormally.</translation></message>
<message><source>コピー(&amp;C)</source><translation>&amp;Copy</translation></message>
<message><source>すべて選択(&amp;A)</source><translation>Select &amp;All</translation></message>
<message><source>リンクのアドレスをコピー(&amp;L)</source><translation>Copy &amp;Link Address</translation></message>
<message><source>画像をコピー(&amp;I)</source><translation>Copy &amp;Image</translation></message>
<message><source>検証エラーの一覧</source><translation>Validation Errors</translation></message>
<message><source>エラー一覧: %1 件(&amp;L)</source><translation>Error &amp;List: %1</translation></message>
<message><source>エラー一覧: %1 件以上(&amp;L)</source><translation>Error &amp;List: %1 or more</translation></message>
<message><source>送信しています...</source><translation>Sending...</translation></message>
<message><source>%1 に送信できません。&#10;%2</source><translation>Cannot send to %1.&#10;%2</translation></message>
<message><source>アドレスが正しくありません。</source><translation>The address is not valid.</translation></message>
<message><source>転送が繰り返されています。</source><translation>There are too many redirections.</translation></message>
<message><source>送信先が、別の場所への転送を求めています。&#10;&#10;%1&#10;&#10;この場所へドキュメントを送信しますか？</source><translation>The server asks to send to another place.&#10;&#10;%1&#10;&#10;Send the document to this place?</translation></message>
<message><source>ドキュメントを送信しました。送信先が、別の場所への接続を求めています。&#10;&#10;%1&#10;&#10;この場所へ接続しますか？ (ドキュメントは送信しません)</source><translation>The document has been sent. The server asks to connect to another place.&#10;&#10;%1&#10;&#10;Connect to this place? (The document will not be sent.)</translation></message>
<message><source>readme.txt</source><translation>readme_en.txt</translation></message>
<message><source>%1&#10;を表示するプログラムが見つかりません。</source><translation>No program was found to show&#10;%1</translation></message>
<message><source>Copyright (C) 2026 Quillon XML Editor の開発者</source><translation>Copyright (C) 2026 The developers of Quillon XML Editor</translation></message>
<message><source>ドキュメントの中で実体 %1 が参照されているため、&#10;文書型宣言を削除できません。</source><translation>The document type declaration cannot be deleted&#10;because the document refers to the entity %1.</translation></message>
<message><source>実体 %1 の参照は移動できません。</source><translation>The reference to the entity %1 cannot be moved.</translation></message>
<message><source>ツールバー</source><translation>Toolbar</translation></message>
<message><source>パスへの移動</source><translation>Go to path</translation></message>
<message><source>左右の分割</source><translation>Splitter between left and right</translation></message>
<message><source>上下の分割</source><translation>Splitter between top and bottom</translation></message>
<message><source>読み込み中のドキュメントの先頭</source><translation>Beginning of the document being loaded</translation></message>
<message><source>ドキュメント ツリー</source><translation>Document tree</translation></message>
<message><source>編集ペイン</source><translation>Edit pane</translation></message>
<message><source>プレビュー</source><translation>Preview</translation></message>
<message><source>オプション</source><translation>Options</translation></message>
<message><source>外部エディタ</source><translation>External editors</translation></message>
<message><source>「他のエディタで開く」のメニュー(&amp;E):</source><translation>M&amp;enu "Open in Other Editor":</translation></message>
<message><source>外部エディタの一覧</source><translation>List of external editors</translation></message>
<message><source>(名前なし)</source><translation>(no name)</translation></message>
<message><source>追加(&amp;A)</source><translation>&amp;Add</translation></message>
<message><source>外部エディタを追加</source><translation>Add external editor</translation></message>
<message><source>外部エディタを削除</source><translation>Delete external editor</translation></message>
<message><source>上へ(&amp;U)</source><translation>&amp;Up</translation></message>
<message><source>外部エディタを上へ移動</source><translation>Move external editor up</translation></message>
<message><source>下へ(&amp;W)</source><translation>Do&amp;wn</translation></message>
<message><source>外部エディタを下へ移動</source><translation>Move external editor down</translation></message>
<message><source>名前(&amp;N):</source><translation>&amp;Name:</translation></message>
<message><source>外部エディタの名前</source><translation>Name of the external editor</translation></message>
<message><source>名前を入力してください。</source><translation>Enter a name.</translation></message>
<message><source>同じ名前の外部エディタがあります。別の名前を入力してください。</source><translation>There is another external editor of this name. Enter a different name.</translation></message>
<message><source>プログラム(&amp;P):</source><translation>&amp;Program:</translation></message>
<message><source>外部エディタのプログラム</source><translation>Program of the external editor</translation></message>
<message><source>プログラムを指定してください。</source><translation>Specify a program.</translation></message>
<message><source>プログラムを参照</source><translation>Browse for the program</translation></message>
<message><source>プログラムの選択</source><translation>Select Program</translation></message>
<message><source>フォント名(&amp;F):</source><translation>&amp;Font name:</translation></message>
<message><source>フォント名</source><translation>Font name</translation></message>
<message><source>フォント名を入力してください。</source><translation>Enter the name of a font.</translation></message>
<message><source>サイズ(&amp;S):</source><translation>&amp;Size:</translation></message>
<message><source>フォントのサイズ</source><translation>Font size</translation></message>
<message><source> ポイント</source><translation> pt</translation></message>
<message><source>&lt;要素 属性="Abc 123"&gt;あア亜&lt;/要素&gt;</source><translation>&lt;element attribute="Abc 123"&gt;Sample&lt;/element&gt;</translation></message>
<message><source>フォントの見本</source><translation>Sample of the font</translation></message>
<message><source>表示</source><translation>Appearance</translation></message>
<message><source>テーマ(&amp;T):</source><translation>&amp;Theme:</translation></message>
<message><source>テーマ</source><translation>Theme</translation></message>
<message><source>自動 (デスクトップに合わせる)</source><translation>Automatic (as the desktop)</translation></message>
<message><source>ライト</source><translation>Light</translation></message>
<message><source>ダーク</source><translation>Dark</translation></message>
<message><source>言語 / Language(&amp;L):</source><translation>&amp;Language:</translation></message>
<message><source>表示言語</source><translation>Language of the interface</translation></message>
<message><source>デスクトップに合わせる</source><translation>As the desktop</translation></message>
<message><source>言語は、次に起動したときから変わります。</source><translation>The language changes when the program is started next.</translation></message>
<message><source>最近使ったファイル</source><translation>Recent files</translation></message>
<message><source>%1 件を記憶しています。</source><translation>Files in the list: %1</translation></message>
<message><source>OK を押すと一覧を消去します。</source><translation>The list will be cleared when you press OK.</translation></message>
<message><source>一覧を消去(&amp;C)</source><translation>&amp;Clear List</translation></message>
<message><source>最近使ったファイルの一覧を消去</source><translation>Clear the list of recent files</translation></message>
<message><source>予期しないエラーが発生しました。&#10;%1</source><translation>An unexpected error occurred.&#10;%1</translation></message>
<message><source>原因不明のエラーが発生しました。</source><translation>An unknown error occurred.</translation></message>
<!-- validation_texts.h -->
<message><source>検証用ファイルの選択</source><translation>Select Validation File</translation></message>
<message><source>検証しています...</source><translation>Validating...</translation></message>
<message><source>%1 行目: %2</source><translation>Line %1: %2</translation></message>
<message><source>ドキュメントにルート要素が 1 つだけ含まれていないため、検証できませんでした。</source><translation>The document does not have exactly one root element, so it could not be validated.</translation></message>
<message><source>未定義の実体 '%1' が参照されています。</source><translation>There is a reference to the undefined entity '%1'.</translation></message>
<message><source>要素 '%1' が使用されていますが、DTD/スキーマで宣言されていません。</source><translation>Element '%1' is used but not declared in the DTD/schema.</translation></message>
<message><source>属性 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。</source><translation>The ID '%2' to which attribute '%1' refers is not defined anywhere in the document.</translation></message>
<message><source>要素 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。</source><translation>The ID '%2' to which element '%1' refers is not defined anywhere in the document.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' を空にすることはできません。</source><translation>According to the DTD/schema, element '%1' cannot be empty.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' の内容が不完全です。</source><translation>According to the DTD/schema, the content of element '%1' is incomplete.</translation></message>
<message><source>最上位の要素 '%1' の名前は、文書型宣言の名前と一致する必要があります。</source><translation>The name of the top-level element '%1' must match the name in the document type declaration.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' の内容が正しくありません。</source><translation>According to the DTD/schema, the content of element '%1' is not valid.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' の内容が正しくありません。要素 '%2' をここに置くことはできません。</source><translation>According to the DTD/schema, the content of element '%1' is not valid. Element '%2' is not allowed here.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' の中で、要素 '%2' の前に必要な要素がありません。</source><translation>According to the DTD/schema, a required element is missing before element '%2' in element '%1'.</translation></message>
<message><source>スキーマによると、要素 '%1' をルート要素にすることはできません。</source><translation>According to the schema, element '%1' cannot be the root element.</translation></message>
<message><source>次のいずれかが必要です: %1</source><translation>One of these is required: %1</translation></message>
<message><source>要素 '%2' の属性 '%1' は、DTD/スキーマで定義されていません。</source><translation>Attribute '%1' of element '%2' is not defined in the DTD/schema.</translation></message>
<message><source>要素 '%2' の属性 '%1' の値が、DTD/スキーマで定義されている固定値と一致しません。</source><translation>The value of attribute '%1' of element '%2' does not match the fixed value defined in the DTD/schema.</translation></message>
<message><source>要素 '%1' の値が、スキーマで定義されている固定値と一致しません。</source><translation>The value of element '%1' does not match the fixed value defined in the schema.</translation></message>
<message><source>DTD/スキーマによると、要素 '%2' の属性 '%1' の値 '%3' が正しくありません。</source><translation>According to the DTD/schema, the value '%3' of attribute '%1' of element '%2' is not valid.</translation></message>
<message><source>DTD/スキーマによると、要素 '%1' にテキストを含めることはできません。</source><translation>According to the DTD/schema, element '%1' cannot contain text.</translation></message>
<message><source>要素 '%2' に必須の属性 '%1' がありません。</source><translation>The required attribute '%1' of element '%2' is missing.</translation></message>
<message><source>要素 '%3' の値 '%1' を %2 データ型として解析できません。</source><translation>The value '%1' of element '%3' cannot be parsed as datatype %2.</translation></message>
<message><source>スキーマによると、要素 '%1' の値の長さが正しくありません。</source><translation>According to the schema, the length of the value of element '%1' is not valid.</translation></message>
<message><source>要素 '%2' の ID '%1' は、ドキュメントの中ですでに使用されています。</source><translation>The ID '%1' of element '%2' is already used in the document.</translation></message>
<message><source>DTD/スキーマの宣言が見つからないため、ドキュメントを検証できませんでした。</source><translation>No declaration of a DTD/schema was found, so the document could not be validated.</translation></message>
<message><source>スキーマによると、要素 '%1' の値 '%2' が正しくありません。</source><translation>According to the schema, the value '%2' of element '%1' is not valid.</translation></message>
<message><source>スキーマによると、要素 '%1' の属性 '%2' の値 '%3' が正しくありません。</source><translation>According to the schema, the value '%3' of attribute '%2' of element '%1' is not valid.</translation></message>
<message><source>長さは %1 でなければなりませんが、%2 です。</source><translation>The length must be %1 but is %2.</translation></message>
<message><source>長さは %1 以上でなければなりませんが、%2 です。</source><translation>The length must be at least %1 but is %2.</translation></message>
<message><source>長さは %1 以下でなければなりませんが、%2 です。</source><translation>The length must be at most %1 but is %2.</translation></message>
<message><source>%1 以上の値が必要です。</source><translation>The value must be at least %1.</translation></message>
<message><source>%1 以下の値が必要です。</source><translation>The value must be at most %1.</translation></message>
<message><source>%1 より大きい値が必要です。</source><translation>The value must be greater than %1.</translation></message>
<message><source>%1 より小さい値が必要です。</source><translation>The value must be less than %1.</translation></message>
<message><source>桁数は %1 桁までです。</source><translation>At most %1 digits are allowed.</translation></message>
<message><source>小数部は %1 桁までです。</source><translation>At most %1 decimal places are allowed.</translation></message>
<message><source>値がパターン '%1' と一致しません。</source><translation>The value does not match the pattern '%1'.</translation></message>
<message><source>使用できる値: %1</source><translation>Allowed values: %1</translation></message>
<message><source>固定値 '%1' でなければなりません。</source><translation>It must be the fixed value '%1'.</translation></message>
<message><source>%1 データ型の値が必要です。</source><translation>A value of datatype %1 is required.</translation></message>
<message><source>または、</source><translation> Or: </translation></message>
<message><source>要素 '%1' の値 %2 は、一意性の制約 '%3' に反して重複しています。</source><translation>The value %2 of element '%1' occurs more than once, against the uniqueness constraint '%3'.</translation></message>
<message><source>要素 '%1' の値 %2 は、キー参照 '%3' が指すキーのいずれとも一致しません。</source><translation>The value %2 of element '%1' matches none of the keys to which the key reference '%3' refers.</translation></message>
<message><source>要素 '%1' に、キー '%2' に必要な値がありません。</source><translation>Element '%1' lacks a value that the key '%2' requires.</translation></message>
<message><source>要素 '%1' は抽象要素または抽象型なので、ドキュメントに置くことはできません。</source><translation>Element '%1' or its type is abstract and cannot be used in a document.</translation></message>
<message><source>要素 '%1' の xsi:nil 属性を使用できないか、内容が空ではありません。</source><translation>Element '%1' either cannot have the attribute xsi:nil or is not empty.</translation></message>
<message><source>要素 '%1' の xsi:type 属性の型が正しくありません。</source><translation>The type in the attribute xsi:type of element '%1' is not valid.</translation></message>
<message><source>要素 '%1' は、スキーマで置換が禁止されているため、ここに置くことはできません。</source><translation>Element '%1' is not allowed here because the schema blocks the substitution.</translation></message>
<message><source>要素 '%1' の値が、スキーマの一意性またはキーの制約を満たしていません。</source><translation>The value of element '%1' violates a uniqueness or key constraint of the schema.</translation></message>
<message><source>要素 '%1' の属性の値が正しくありません。</source><translation>The value of an attribute of element '%1' is not valid.</translation></message>
<message><source>要素 '%2' の属性 '%1' が外部の DTD の宣言によって変わるため、standalone="yes" を指定することはできません。</source><translation>standalone="yes" is not allowed because attribute '%1' of element '%2' is changed by declarations in the external DTD.</translation></message>
<message><source>要素 '%1' の内容が外部の DTD の宣言によって変わるため、standalone="yes" を指定することはできません。</source><translation>standalone="yes" is not allowed because the content of element '%1' is changed by declarations in the external DTD.</translation></message>
<message><source>要素 '%1' はスキーマの制約を満たしていません (エラー番号 %2)。</source><translation>Element '%1' violates a constraint of the schema (error number %2).</translation></message>
<message><source>要素 '%1' は DTD の制約を満たしていません (エラー番号 %2)。</source><translation>Element '%1' violates a constraint of the DTD (error number %2).</translation></message>
<message><source>ドキュメントは DTD/スキーマの制約を満たしていません (エラー番号 %1)。</source><translation>The document violates a constraint of the DTD/schema (error number %1).</translation></message>
<message><source>属性 '%1' が参照している実体 '%2' は、DTD で宣言されていません。</source><translation>The entity '%2' to which attribute '%1' refers is not declared in the DTD.</translation></message>
<message><source>スキーマ '%1' を読み込めません。&#10;%2</source><translation>The schema '%1' cannot be read.&#10;%2</translation></message>
<message><source>%1 行目: </source><translation>Line %1: </translation></message>
<message><source>ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。</source><translation>The file is neither in the folder of the schema nor in the working folder.</translation></message>
<message><source>XML スキーマ (XSD) ではありません。</source><translation>This is not an XML Schema (XSD).</translation></message>
<message><source>スキーマに対象の名前空間 '%1' があるため、名前空間なしの検証には使用できません。</source><translation>The schema has the target namespace '%1' and cannot be used to validate without a namespace.</translation></message>
<message><source>実体の展開が大きすぎるため、検証を中止しました。</source><translation>The expansion of entities is too large, so validation was stopped.</translation></message>
<message><source>ドキュメントを検証できませんでした。&#10;%1</source><translation>The document could not be validated.&#10;%1</translation></message>
<message><source>スキーマが取り込む '%1' が見つからないため、その宣言を使わずに検証しました。</source><translation>'%1', which the schema imports, was not found. The document was validated without its declarations.</translation></message>
<message><source>スキーマが取り込む '%1' が見つかりません。</source><translation>'%1', which the schema imports, was not found.</translation></message>
<message><source>検証を実行できませんでした。</source><translation>The validation could not be run.</translation></message>
<message><source>XML-Data Reduced (XDR) スキーマではありません。</source><translation>This is not an XML-Data Reduced (XDR) schema.</translation></message>
<message><source>要素 '%1' を要素 '%2' の中で使用することはできません。</source><translation>Element '%1' is not allowed in element '%2'.</translation></message>
<message><source>要素 '%2' で属性 '%1' を使用することはできません。</source><translation>Attribute '%1' is not allowed in element '%2'.</translation></message>
<message><source>要素 '%2' に属性 '%1' が必要です。</source><translation>Element '%2' requires the attribute '%1'.</translation></message>
<message><source>要素 '%2' の属性 '%1' の値 '%3' が正しくありません。</source><translation>The value '%3' of attribute '%1' of element '%2' is not valid.</translation></message>
<message><source>要素 '%2' の属性 '%1' の値が空です。</source><translation>The value of attribute '%1' of element '%2' is empty.</translation></message>
<message><source>'%1' という名前の %2 が宣言されていません。</source><translation>No %2 with the name '%1' is declared.</translation></message>
<message><source>ElementType '%1' の content と内容の宣言が矛盾しています。</source><translation>The content attribute of the ElementType '%1' contradicts its declarations.</translation></message>
<message><source>属性 '%1' の既定値 '%2' がデータ型に合っていません。</source><translation>The default value '%2' of attribute '%1' does not match its datatype.</translation></message>
<message><source>group の入れ子が深すぎます。</source><translation>The groups are nested too deeply.</translation></message>
<!-- xerces_texts.h -->
<message><source>属性 'name' または 'ref' が必要です。</source><translation>The attribute 'name' or 'ref' is required.</translation></message>
<message><source>派生した型の属性 '%1' が基底型の宣言と矛盾しています。</source><translation>Attribute '%1' of the derived type contradicts its declaration in the base type.</translation></message>
<message><source>派生した型の xs:anyAttribute が基底型と矛盾しています。</source><translation>The xs:anyAttribute of the derived type contradicts the base type.</translation></message>
<message><source>基底型が 'extension' による派生を禁止しています。</source><translation>The base type forbids derivation by 'extension'.</translation></message>
<message><source>基底型が 'restriction' による派生を禁止しています。</source><translation>The base type forbids derivation by 'restriction'.</translation></message>
<message><source>xs:all の使い方が正しくありません。</source><translation>xs:all is not used correctly.</translation></message>
<message><source>xs:redefine の内容が元の定義と一致しません。</source><translation>The content of xs:redefine does not match the original definition.</translation></message>
<message><source>パターンが正規表現として正しくありません。</source><translation>The pattern is not a valid regular expression.</translation></message>
<message><source>XPath 式 '%4' はここでは使用できません。</source><translation>The XPath expression '%4' is not allowed here.</translation></message>
<message><source>xs:annotation は 1 つだけ置くことができます。</source><translation>Only one xs:annotation is allowed.</translation></message>
<message><source>ID 型の属性を 2 つ以上宣言することはできません。</source><translation>There cannot be more than one attribute of type ID.</translation></message>
<message><source>XML 宣言の構文が正しくありません。</source><translation>The syntax of the XML declaration is not valid.</translation></message>
<message><source>名前空間の宣言が正しくありません。</source><translation>The namespace declaration is not valid.</translation></message>
<message><source>名前が正しくありません。</source><translation>The name is not valid.</translation></message>
<message><source>マークアップの構文が正しくありません。</source><translation>The syntax of the markup is not valid.</translation></message>
<message><source>条件付きセクションの構文が正しくありません。</source><translation>The syntax of the conditional section is not valid.</translation></message>
<message><source>コメント、処理命令またはタグが閉じていません。</source><translation>A comment, processing instruction or tag is not closed.</translation></message>
<message><source>終了タグが開始タグと一致しません。</source><translation>The end tag does not match the start tag.</translation></message>
<message><source>使用できない文字があります。</source><translation>There is a character that is not allowed.</translation></message>
<message><source>CDATA セクションの構文が正しくありません。</source><translation>The syntax of the CDATA section is not valid.</translation></message>
<message><source>実体の置換テキストの中で、マークアップが完結していません。</source><translation>Markup is not complete within the replacement text of an entity.</translation></message>
<message><source>ルート要素がありません。</source><translation>There is no root element.</translation></message>
<message><source>必須の属性 'name' がありません。</source><translation>The required attribute 'name' is missing.</translation></message>
<message><source>要素の中の型に名前を付けることはできません。</source><translation>A type inside an element cannot have a name.</translation></message>
<message><source>ファセット %1 が重複しています。</source><translation>The facet %1 occurs more than once.</translation></message>
<message><source>必須の属性 'base' がありません。</source><translation>The required attribute 'base' is missing.</translation></message>
<message><source>接頭辞 '%1' は宣言されていません。</source><translation>The prefix '%1' is not declared.</translation></message>
<message><source>型 '%2' は宣言されていません。</source><translation>Type '%2' is not declared.</translation></message>
<message><source>子要素 '%1' の位置が正しくありません。</source><translation>The position of the child element '%1' is not valid.</translation></message>
<message><source>型 '%1' の定義が正しくありません。</source><translation>The definition of type '%1' is not valid.</translation></message>
<message><source>既定値のある属性の 'use' は 'optional' でなければなりません。</source><translation>The 'use' of an attribute with a default value must be 'optional'.</translation></message>
<message><source>名前 '%2' が正しくありません。</source><translation>The name '%2' is not valid.</translation></message>
<message><source>既定値または固定値のある要素の型は、テキストを含むことができる必要があります。</source><translation>The type of an element with a default or fixed value must allow text.</translation></message>
<message><source>基底型 '%1' はここでは使用できません。</source><translation>The base type '%1' is not allowed here.</translation></message>
<message><source>要素 '%2' を置換することはできません。</source><translation>Element '%2' cannot be substituted.</translation></message>
<message><source>型が、置換する要素の型から派生していません。</source><translation>The type is not derived from the type of the element that is substituted.</translation></message>
<message><source>同じ名前の要素 '%1' が、異なる型で宣言されています。</source><translation>Elements of the same name '%1' are declared with different types.</translation></message>
<message><source>属性 '%2' の値 '%1' が正しくありません。</source><translation>The value '%1' of attribute '%2' is not valid.</translation></message>
<message><source>'%2' という名前の宣言が重複しています。</source><translation>The name '%2' is declared more than once.</translation></message>
<message><source>xs:complexContent の基底型は複合型でなければなりません。</source><translation>The base type of xs:complexContent must be a complex type.</translation></message>
<message><source>必須の属性 'schemaLocation' がありません。</source><translation>The required attribute 'schemaLocation' is missing.</translation></message>
<message><source>スキーマに自分自身の名前空間を取り込むことはできません。</source><translation>A schema cannot import its own namespace.</translation></message>
<message><source>対象の名前空間のないスキーマが取り込むには、属性 'namespace' が必要です。</source><translation>A schema without a target namespace needs the attribute 'namespace' to import another one.</translation></message>
<message><source>型 NOTATION は、列挙で限定したものだけを使用できます。</source><translation>The type NOTATION can only be used when it is restricted by an enumeration.</translation></message>
<message><source>既定値または固定値のある要素の内容は、空にできる必要があります。</source><translation>The content of an element with a default or fixed value must be allowed to be empty.</translation></message>
<message><source>基底型がこの派生を禁止しています。</source><translation>The base type forbids this derivation.</translation></message>
<message><source>リストの項目の型にリストを使用することはできません。</source><translation>The item type of a list cannot be a list.</translation></message>
<message><source>ここで minOccurs または maxOccurs を指定することはできません。</source><translation>minOccurs and maxOccurs are not allowed here.</translation></message>
<message><source>'%3' は宣言されていません。</source><translation>'%3' is not declared.</translation></message>
<message><source>属性 '%1' は基底型で宣言されています。</source><translation>Attribute '%1' is declared in the base type.</translation></message>
<message><source>複数の xs:anyAttribute を 1 つにまとめることができません。</source><translation>Several xs:anyAttribute cannot be combined into one.</translation></message>
<message><source>記法 '%2' は宣言されていません。</source><translation>Notation '%2' is not declared.</translation></message>
<message><source>キー '%2' は宣言されていません。</source><translation>Key '%2' is not declared.</translation></message>
<message><source>xs:field の数がキー '%2' と一致しません。</source><translation>The number of xs:field does not match the key '%2'.</translation></message>
<message><source>必須の属性 'xpath' がありません。</source><translation>The required attribute 'xpath' is missing.</translation></message>
<message><source>固定値が、参照する属性 '%1' の固定値と一致しません。</source><translation>The fixed value does not match that of the attribute '%1' it refers to.</translation></message>
<message><source>対象の名前空間を空にすることはできません。</source><translation>The target namespace cannot be empty.</translation></message>
<message><source>'%1' はすでに取り込まれています。</source><translation>'%1' has already been included.</translation></message>
<message><source>ファセット %1 はこの型では使用できません。</source><translation>The facet %1 cannot be used with this type.</translation></message>
<message><source>要素 '%1' は XML スキーマの名前空間の要素ではありません。</source><translation>'%1' is not an element of the XML Schema namespace.</translation></message>
<message><source>この名前空間に属性を宣言することはできません。</source><translation>Attributes cannot be declared in this namespace.</translation></message>
<message><source>xs:anyAttribute は最後に 1 つだけ置くことができます。</source><translation>Only one xs:anyAttribute is allowed, at the end.</translation></message>
<message><source>ルート要素の後に、置くことができない内容があります。</source><translation>There is content after the root element that is not allowed there.</translation></message>
<message><source>解析対象外の実体 '%1' をここで参照することはできません。</source><translation>The unparsed entity '%1' cannot be referred to here.</translation></message>
<message><source>実体 '%1' の参照が循環しています。</source><translation>The entity '%1' refers to itself.</translation></message>
<message><source>属性 '%1' が重複しています。</source><translation>Attribute '%1' occurs more than once.</translation></message>
<message><source>テキストの中に ']]&gt;' を置くことはできません。</source><translation>Text cannot contain ']]&gt;'.</translation></message>
<message><source>コメントの中に '--' を置くことはできません。</source><translation>A comment cannot contain '--'.</translation></message>
<message><source>属性の値で外部実体を参照することはできません。</source><translation>The value of an attribute cannot refer to an external entity.</translation></message>
<message><source>要素 '%1' が閉じていません。</source><translation>Element '%1' is not closed.</translation></message>
<message><source>属性 'schemaLocation' に、名前空間とファイルの組が並んでいません。</source><translation>The attribute 'schemaLocation' does not consist of pairs of namespace and file.</translation></message>
<message><source>スキーマの構文が正しくありません。</source><translation>The syntax of the schema is not valid.</translation></message>
<message><source>standalone="yes" のドキュメントで、外部で宣言された実体 '%1' を参照することはできません。</source><translation>A document with standalone="yes" cannot refer to the entity '%1', which is declared externally.</translation></message>
<message><source>記法 '%1' は宣言されていません。</source><translation>Notation '%1' is not declared.</translation></message>
<message><source>内容モデルがあいまいです。子要素 '%2' がどの宣言に一致するかを決められません。</source><translation>The content model is ambiguous. It cannot be decided which declaration the child element '%2' matches.</translation></message>
<message><source>ここにテキストを置くことはできません。</source><translation>Text is not allowed here.</translation></message>
<message><source>ファセット length と maxLength を同時に指定することはできません。</source><translation>The facets length and maxLength exclude each other.</translation></message>
<message><source>ファセット length と minLength を同時に指定することはできません。</source><translation>The facets length and minLength exclude each other.</translation></message>
<message><source>ファセット maxLength と minLength の値が矛盾しています。</source><translation>The values of the facets maxLength and minLength are contradictory.</translation></message>
<message><source>ファセットの値 '%1' が基底型の値 '%2' と矛盾しています。</source><translation>The facet value '%1' contradicts the value '%2' of the base type.</translation></message>
<message><source>列挙の値 '%1' は、基底型の値ではありません。</source><translation>The enumerated value '%1' is not a value of the base type.</translation></message>
<message><source>ファセット whiteSpace の値が基底型と矛盾しています。</source><translation>The value of the facet whiteSpace contradicts the base type.</translation></message>
<message><source>ファセット maxInclusive と maxExclusive を同時に指定することはできません。</source><translation>The facets maxInclusive and maxExclusive exclude each other.</translation></message>
<message><source>ファセット minInclusive と minExclusive を同時に指定することはできません。</source><translation>The facets minInclusive and minExclusive exclude each other.</translation></message>
<message><source>ファセット maxExclusive と minExclusive の値が矛盾しています。</source><translation>The values of the facets maxExclusive and minExclusive are contradictory.</translation></message>
<message><source>ファセット maxExclusive と minInclusive の値が矛盾しています。</source><translation>The values of the facets maxExclusive and minInclusive are contradictory.</translation></message>
<message><source>ファセット maxInclusive と minExclusive の値が矛盾しています。</source><translation>The values of the facets maxInclusive and minExclusive are contradictory.</translation></message>
<message><source>ファセット maxInclusive と minInclusive の値が矛盾しています。</source><translation>The values of the facets maxInclusive and minInclusive are contradictory.</translation></message>
<message><source>ファセット totalDigits と fractionDigits の値が矛盾しています。</source><translation>The values of the facets totalDigits and fractionDigits are contradictory.</translation></message>
<message><source>ファセットの値 '%1' は、基底型の値ではありません。</source><translation>The facet value '%1' is not a value of the base type.</translation></message>
<message><source>型の定義が正しくありません。</source><translation>The definition of the type is not valid.</translation></message>
<message><source>値が正しくありません。</source><translation>The value is not valid.</translation></message>
<!-- xml_texts.cpp -->
<message><source>書き込む権限がありません。</source><translation>You have no permission to write there.</translation></message>
<message><source>読み取り専用のファイル システムです。</source><translation>The file system is read-only.</translation></message>
<message><source>ディスクの空き領域が足りません。</source><translation>There is not enough space on the disk.</translation></message>
<message><source>フォルダーが見つかりません。</source><translation>The folder does not exist.</translation></message>
<message><source>同じ名前のフォルダーがあります。</source><translation>There is a folder of the same name.</translation></message>
<message><source>シンボリック リンクが循環しています。</source><translation>The symbolic links form a loop.</translation></message>
<message><source>ファイル名が長すぎます。</source><translation>The file name is too long.</translation></message>
<message><source>入出力エラーが発生しました (%1)。</source><translation>An input/output error occurred (%1).</translation></message>
<!-- xml_texts.h -->
<message><source>このドキュメントには、これ以上ノードを作成できません。&#10;保存してから開き直すと、編集を続けることができます。</source><translation>No more nodes can be made in this document.&#10;Save it and open it again to go on editing.</translation></message>
<message><source>ファイルが大きすぎます。2 GB までのファイルを開くことができます。</source><translation>The file is too large. Files of up to 2 GB can be opened.</translation></message>
<message><source>誤りがあります。1 GB を超えるタグまたはコメントがあるため、その場所を調べられません。</source><translation>There is an error. Where it is cannot be found, because a tag or comment is longer than 1 GB.</translation></message>
<message><source>空の文字列 '' は名前として使用できません。</source><translation>The empty string '' is not a valid name.</translation></message>
<message><source>この名前に文字 '%1' は使用できません:&#10;%2</source><translation>The character '%1' is not allowed in this name:&#10;%2</translation></message>
<message><source>この名前を文字 '%1' で始めることはできません:&#10;%2</source><translation>This name cannot start with the character '%1':&#10;%2</translation></message>
<message><source>名前に含めることができるコロンは、前後に文字のある 1 つだけです: %1</source><translation>A name can contain only one colon, with characters before and after it: %1</translation></message>
<message><source>XML で使用できない文字 (%1) が含まれています。</source><translation>There is a character that is not allowed in XML (%1).</translation></message>
<message><source>名前 'xml' は予約されています。小文字で指定する必要があります。</source><translation>The name 'xml' is reserved and has to be in lower case.</translation></message>
<message><source>ノードが指定されていません。</source><translation>No node is specified.</translation></message>
<message><source>読み取り専用のノードは変更できません。</source><translation>A read-only node cannot be changed.</translation></message>
<message><source>この種類のノード (%1) に値を設定することはできません。</source><translation>A node of this kind (%1) cannot have a value.</translation></message>
<message><source>この操作は、種類が %1 のノードでは実行できません。</source><translation>This operation is not possible for a node of the kind %1.</translation></message>
<message><source>ルート要素は 1 つだけ使用できます。</source><translation>There can be only one root element.</translation></message>
<message><source>文書型宣言は 1 つだけ使用できます。</source><translation>There can be only one document type declaration.</translation></message>
<message><source>ルート要素を文書型宣言より前に置くことはできません。</source><translation>The root element cannot be placed before the document type declaration.</translation></message>
<message><source>XML 宣言はドキュメントの先頭にのみ置くことができます。</source><translation>The XML declaration can only be placed at the start of the document.</translation></message>
<message><source>ノードまたはその上位ノードを、そのノード自身の下に挿入することはできません。</source><translation>A node or one of its ancestors cannot be inserted below the node itself.</translation></message>
<message><source>指定されたノードは、このノードの子ではありません。</source><translation>The specified node is not a child of this node.</translation></message>
<message><source>値の範囲外の文字が指定されています。</source><translation>The specified characters are outside the value.</translation></message>
<message><source>属性を別のノードに追加する前に、元のノードから削除する必要があります。</source><translation>An attribute has to be removed from its node before it is added to another one.</translation></message>
<message><source>指定されたファイルを開くことができません: %1</source><translation>The specified file cannot be opened: %1</translation></message>
<message><source>デバイス、パイプ、ソケットを開くことはできません: %1</source><translation>Devices, pipes and sockets cannot be opened: %1</translation></message>
<message><source>フォルダーを開くことはできません: %1</source><translation>A folder cannot be opened: %1</translation></message>
<message><source>XML ドキュメントには最上位の要素が必要です。</source><translation>An XML document must have a top-level element.</translation></message>
<message><source>ファイルが途中で終わっています。</source><translation>The file ends unexpectedly.</translation></message>
<message><source>無効な文字または構文があります。</source><translation>There is an invalid character or invalid syntax.</translation></message>
<message><source>同じ名前の属性が重複しています。</source><translation>An attribute of the same name occurs more than once.</translation></message>
<message><source>XML ドキュメントの最上位に置くことができる要素は 1 つだけです。</source><translation>There can be only one element at the top level of an XML document.</translation></message>
<message><source>未定義の実体が参照されています。</source><translation>There is a reference to an undefined entity.</translation></message>
<message><source>実体の参照が循環しています。</source><translation>An entity refers to itself.</translation></message>
<message><source>実体の展開が大きすぎるため、読み込みを中止しました。</source><translation>The expansion of entities is too large, so loading was stopped.</translation></message>
<message><source>XML 宣言の位置が正しくありません。</source><translation>The position of the XML declaration is not valid.</translation></message>
<message><source>CDATA セクションが閉じていません。</source><translation>A CDATA section is not closed.</translation></message>
<message><source>閉じていない構文があります。</source><translation>There is markup that is not closed.</translation></message>
<message><source>指定されたエンコード '%1' はサポートされていません。</source><translation>The specified encoding '%1' is not supported.</translation></message>
<message><source>現在のエンコードから指定されたエンコードへの切り替えはサポートされていません。</source><translation>Switching from the current encoding to the specified one is not supported.</translation></message>
<message><source>エンコード '%1' として正しくない文字コードがあります。</source><translation>There are bytes that are not valid in the encoding '%1'.</translation></message>
<message><source>XML の構文が正しくありません。</source><translation>The syntax of the XML is not valid.</translation></message>
<message><source>文字 '%1' (U+%2) は、ドキュメントのエンコード '%3' で表すことができないため、保存できません。</source><translation>The document cannot be saved because the character '%1' (U+%2) cannot be represented in its encoding '%3'.</translation></message>
<message><source>ドキュメントの変更していない部分を書き出せないため、保存できません。</source><translation>The document cannot be saved because its unchanged parts cannot be written.</translation></message>
<message><source>エンコード '%1' で書き出した内容を元どおりに読み出せないため、保存できません。</source><translation>The document cannot be saved because what is written in the encoding '%1' cannot be read back unchanged.</translation></message>
<message><source>ファイルを保存できません: %1&#10;%2</source><translation>The file cannot be saved: %1&#10;%2</translation></message>
<message><source>ファイルを保存できません: %1&#10;デバイス、パイプ、ソケットには保存できません。</source><translation>The file cannot be saved: %1&#10;Devices, pipes and sockets cannot be saved to.</translation></message>
<message><source>ファイルへの書き込みが途中で失敗し、元の内容に戻すこともできませんでした: %1&#10;%2&#10;ドキュメントを閉じずに、別の場所に保存してください。</source><translation>Writing the file failed half-way, and its former content could not be restored: %1&#10;%2&#10;Do not close the document; save it somewhere else.</translation></message>
<!-- xpath_texts.h -->
<message><source>%1式: %2</source><translation>%1 Expression: %2</translation></message>
<message><source>(式の終わり)</source><translation>(end of expression)</translation></message>
<message><source>XPath 式の構文が正しくありません。この位置には式が必要です。</source><translation>The syntax of the XPath expression is not valid. An expression is required here.</translation></message>
<message><source>XPath 式の構文が正しくありません。この部分を解釈できません。</source><translation>The syntax of the XPath expression is not valid. This part cannot be understood.</translation></message>
<message><source>XPath 式が空です。ノードを返す式が必要です。</source><translation>The XPath expression is empty. An expression that returns nodes is required.</translation></message>
<message><source>XPath 式の構文が正しくありません。この位置には ']' が必要です。</source><translation>The syntax of the XPath expression is not valid. ']' is required here.</translation></message>
<message><source>XPath 式の構文が正しくありません。この位置には ')' が必要です。</source><translation>The syntax of the XPath expression is not valid. ')' is required here.</translation></message>
<message><source>XPath 式の文字列が閉じていません。閉じる引用符が必要です。</source><translation>A string in the XPath expression is not closed. The closing quotation mark is required.</translation></message>
<message><source>XPath 式の '$' の後には変数名が必要です。</source><translation>The name of a variable is required after '$' in the XPath expression.</translation></message>
<message><source>XPath 式の数値が正しくありません。</source><translation>A number in the XPath expression is not valid.</translation></message>
<message><source>XPath 式で使用できない文字があります。</source><translation>The XPath expression contains a character that is not allowed.</translation></message>
<message><source>この変数は定義されていません。使用できる変数は、選択中のノードを表す $selection だけです。</source><translation>This variable is not defined. The only variable is $selection, which stands for the selected node.</translation></message>
<message><source>この名前の関数はありません。</source><translation>There is no function of this name.</translation></message>
<message><source>関数の引数の数が正しくありません。</source><translation>The number of arguments of the function is not valid.</translation></message>
<message><source>XPath 式の値の型が正しくありません。この式にはノード セットが必要な箇所があります。</source><translation>The type of a value in the XPath expression is not valid. A node-set is required somewhere in this expression.</translation></message>
<message><source>この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。</source><translation>This prefix is not declared. Use a declared prefix.</translation></message>
<message><source>XPath 式の結果がノードではありません。ノードを返す式が必要です。</source><translation>The result of the XPath expression is not nodes. An expression that returns nodes is required.</translation></message>
<message><source>XPath 式の評価に必要な処理が多すぎるため中止しました。式の範囲を絞ってください。</source><translation>Evaluating the XPath expression takes too many steps and was stopped. Narrow the scope of the expression.</translation></message>
<message><source>XPath 式の入れ子が深すぎます。入れ子を浅くしてください。</source><translation>The XPath expression is nested too deeply. Reduce its nesting.</translation></message>
<message><source>XPath 式の結果が大きすぎるか、メモリが不足しています。式の範囲を絞ってください。</source><translation>The result of the XPath expression is too large or memory is insufficient. Narrow the scope of the expression.</translation></message>
<message><source>XPath 式を評価できません。</source><translation>The XPath expression cannot be evaluated.</translation></message>
<message><source>このノードを起点として XPath 式を評価することはできません。</source><translation>An XPath expression cannot be evaluated from this node.</translation></message>
<!-- xslt_texts.h -->
<message><source>スタイルシートに誤りがあります。&#10;%1</source><translation>There is an error in the stylesheet.&#10;%1</translation></message>
<message><source>スタイルシートを適用できませんでした。&#10;%1</source><translation>The stylesheet could not be applied.&#10;%1</translation></message>
<message><source>%1 (%2 行目)</source><translation>%1 (line %2)</translation></message>
<message><source>%1 (%2、%3 行目)</source><translation>%1 (%2, line %3)</translation></message>
<message><source>スタイルシートが処理を中止しました。&#10;%1</source><translation>The stylesheet ended the transformation.&#10;%1</translation></message>
<message><source>プロセッサーは原因を示していません。</source><translation>The processor gives no reason.</translation></message>
<message><source>'%1' を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業フォルダーにあるファイルだけです。</source><translation>'%1' cannot be read. Only files in the folder of the stylesheet and in the working folder can be used.</translation></message>
<message><source>XSLT 1.0 に xsl:%1 という要素はありません。</source><translation>XSLT 1.0 has no element xsl:%1.</translation></message>
<message><source>最上位の要素 %1 には名前空間が必要です。</source><translation>The top-level element %1 must have a namespace.</translation></message>
<message><source>スタイルシートの処理中に、内容を特定できないエラーが発生しました。</source><translation>An error occurred in the stylesheet whose nature could not be determined.</translation></message>
<message><source>XPath 式の構文が正しくありません。</source><translation>The syntax of the XPath expression is not valid.</translation></message>
<message><source>XPath 式の文字列が閉じていません。</source><translation>A string in the XPath expression is not closed.</translation></message>
<message><source>この式で使用できない変数が使用されています。</source><translation>A variable is used that is not allowed in this expression.</translation></message>
<message><source>宣言されていない接頭辞が使用されています。</source><translation>An undeclared prefix is used.</translation></message>
<message><source>XPath 式の値の型が正しくありません。</source><translation>The type of a value in the XPath expression is not valid.</translation></message>
<message><source>XPath 式の述語が正しくありません。</source><translation>A predicate of the XPath expression is not valid.</translation></message>
<message><source>XPath 式の評価に必要な処理が多すぎるか、入れ子が深すぎます。</source><translation>Evaluating the XPath expression takes too many steps, or it is nested too deeply.</translation></message>
<message><source>XPath 式の結果が大きすぎるか、メモリが不足しています。</source><translation>The result of the XPath expression is too large or memory is insufficient.</translation></message>
<message><source>変数 '%1' は宣言されていません。</source><translation>Variable '%1' is not declared.</translation></message>
<message><source>関数 '%1' はありません。</source><translation>There is no function '%1'.</translation></message>
<message><source>関数 '%1' の接頭辞 '%2' は宣言されていません。</source><translation>The prefix '%2' of the function '%1' is not declared.</translation></message>
<message><source>変数 '%1' の接頭辞 '%2' は宣言されていません。</source><translation>The prefix '%2' of the variable '%1' is not declared.</translation></message>
<message><source>関数 dyn:evaluate() の引数の数が正しくありません。</source><translation>The number of arguments of the function dyn:evaluate() is not valid.</translation></message>
<message><source>関数 %1() の引数の数が正しくありません。</source><translation>The number of arguments of the function %1() is not valid.</translation></message>
<message><source>関数 %1() の引数の型が正しくありません。</source><translation>The type of an argument of the function %1() is not valid.</translation></message>
<message><source>関数 %1() の引数の接頭辞 '%2' は宣言されていません。</source><translation>The prefix '%2' of an argument of the function %1() is not declared.</translation></message>
<message><source>document() の引数が示すものを取得できません。</source><translation>What the argument of document() refers to cannot be read.</translation></message>
<message><source>format-number() の数値書式 '%1' は xsl:decimal-format で宣言されていません。</source><translation>The number format '%1' of format-number() is not declared by xsl:decimal-format.</translation></message>
<message><source>format-number() の数値書式 '%1' の接頭辞は宣言されていません。</source><translation>The prefix of the number format '%1' of format-number() is not declared.</translation></message>
<message><source>use-attribute-sets の名前 '%1%2' の接頭辞は宣言されていません。</source><translation>The prefix of the name '%1%2' in use-attribute-sets is not declared.</translation></message>
<message><source>%1 の名前 '%2' の接頭辞は宣言されていません。</source><translation>The prefix of the name '%2' of %1 is not declared.</translation></message>
<message><source>キー '%1' の定義が循環しています。</source><translation>The definition of key '%1' refers to itself.</translation></message>
<message><source>%1 の式の結果がノードではありません。</source><translation>The result of the %1 expression is not nodes.</translation></message>
<message><source>dyn:evaluate() の式 '%1' を評価できません。</source><translation>The expression '%1' of dyn:evaluate() cannot be evaluated.</translation></message>
<message><source>関数 '%1' の引数が多すぎます。</source><translation>The function '%1' has too many arguments.</translation></message>
<message><source>関数 '%1' の中では、結果に書き出すことはできません。</source><translation>The function '%1' cannot write to the result.</translation></message>
<message><source>func:function の名前が正しくありません。</source><translation>The name of func:function is not valid.</translation></message>
<message><source>func:function の名前の接頭辞 '%1' は宣言されていません。</source><translation>The prefix '%1' of the name of func:function is not declared.</translation></message>
<message><source>関数 '%1' が二重に定義されています。</source><translation>The function '%1' is defined more than once.</translation></message>
<message><source>func:result の後に書けるのは xsl:fallback だけです。</source><translation>Only xsl:fallback is allowed after func:result.</translation></message>
<message><source>func:result はこの位置では使用できません。</source><translation>func:result is not allowed here.</translation></message>
<message><source>関数の中で func:result が 2 回実行されました。</source><translation>func:result was executed twice in a function.</translation></message>
<message><source>func:result に属性 select がある場合、内容を書くことはできません。</source><translation>func:result cannot have content when it has the attribute select.</translation></message>
<message><source>xsl:%1 の %2 の式が空です。</source><translation>The %2 expression of xsl:%1 is empty.</translation></message>
<message><source>xsl:%1 の %2 の式 '%3' が正しくありません。</source><translation>The %2 expression '%3' of xsl:%1 is not valid.</translation></message>
<message><source>xsl:variable の select の式が空です。</source><translation>The select expression of xsl:variable is empty.</translation></message>
<message><source>xsl:sort の select の式が空です。</source><translation>The select expression of xsl:sort is empty.</translation></message>
<message><source>xsl:key の use の式が空です。</source><translation>The use expression of xsl:key is empty.</translation></message>
<message><source>xsl:key の use の式 '%1' が正しくありません。</source><translation>The use expression '%1' of xsl:key is not valid.</translation></message>
<message><source>xsl:variable の select の式 '%1' が正しくありません。</source><translation>The select expression '%1' of xsl:variable is not valid.</translation></message>
<message><source>xsl:sort の select の式 '%1' が正しくありません。</source><translation>The select expression '%1' of xsl:sort is not valid.</translation></message>
<message><source>xsl:%1 に属性 %2 がありません。</source><translation>xsl:%1 lacks the attribute %2.</translation></message>
<message><source>xsl:%1 に属性 href がありません。</source><translation>xsl:%1 lacks the attribute href.</translation></message>
<message><source>%1 に属性 %2 がありません。</source><translation>%1 lacks the attribute %2.</translation></message>
<message><source>属性 %1 がありません。</source><translation>The attribute %1 is missing.</translation></message>
<message><source>xsl:%1 の名前が空です。</source><translation>The name of xsl:%1 is empty.</translation></message>
<message><source>xsl:%1 の属性 mode の値 '%2' が正しくありません。</source><translation>The value '%2' of the attribute mode of xsl:%1 is not valid.</translation></message>
<message><source>xsl:%1 の名前 '%2' が正しくありません。</source><translation>The name '%2' of xsl:%1 is not valid.</translation></message>
<message><source>テンプレート '%1' が二重に定義されています。</source><translation>Template '%1' is defined more than once.</translation></message>
<message><source>xsl:template の名前 '%1' が正しくありません。</source><translation>The name '%1' of xsl:template is not valid.</translation></message>
<message><source>use-attribute-sets の名前 '%1' が正しくありません。</source><translation>The name '%1' in use-attribute-sets is not valid.</translation></message>
<message><source>属性 %1 の名前 '%2' が正しくありません。</source><translation>The name '%2' of the attribute %1 is not valid.</translation></message>
<message><source>属性 %1 の名前が正しくありません。</source><translation>The name of the attribute %1 is not valid.</translation></message>
<message><source>xsl:%1 の名前 '%2' の接頭辞は宣言されていません。</source><translation>The prefix of the name '%2' of xsl:%1 is not declared.</translation></message>
<message><source>xsl:attribute で名前空間を宣言することはできません。</source><translation>A namespace cannot be declared by xsl:attribute.</translation></message>
<message><source>結果の名前空間を宣言できません。</source><translation>A namespace of the result cannot be declared.</translation></message>
<message><source>属性セット '%1' が循環しています。</source><translation>The attribute set '%1' refers to itself.</translation></message>
<message><source>xsl:attribute-set に書けるのは xsl:attribute だけです。</source><translation>Only xsl:attribute is allowed in xsl:attribute-set.</translation></message>
<message><source>xsl:variable に属性 select がある場合、内容を書くことはできません。</source><translation>xsl:variable cannot have content when it has the attribute select.</translation></message>
<message><source>変数 '%1%2%3' が二重に定義されています。</source><translation>Variable '%1%2%3' is defined more than once.</translation></message>
<message><source>変数 '%1' の定義が循環しています。</source><translation>The definition of variable '%1' refers to itself.</translation></message>
<message><source>xsl:text に要素を書くことはできません。</source><translation>xsl:text cannot contain elements.</translation></message>
<message><source>xsl:sort はこの位置では使用できません。</source><translation>xsl:sort is not allowed here.</translation></message>
<message><source>xsl:sort に内容を書くことはできません。</source><translation>xsl:sort cannot have content.</translation></message>
<message><source>xsl:sort が多すぎます。</source><translation>There are too many xsl:sort.</translation></message>
<message><source>xsl:message の属性 terminate の値は 'yes' か 'no' でなければなりません。</source><translation>The value of the attribute terminate of xsl:message must be 'yes' or 'no'.</translation></message>
<message><source>xsl:choose に内容がありません。</source><translation>xsl:choose is empty.</translation></message>
<message><source>xsl:choose は xsl:when で始まらなければなりません。</source><translation>xsl:choose must start with xsl:when.</translation></message>
<message><source>xsl:%1 はこの位置では使用できません。</source><translation>xsl:%1 is not allowed here.</translation></message>
<message><source>拡張要素 %1 はサポートされていません。</source><translation>The extension element %1 is not supported.</translation></message>
<message><source>要素 %1 は使用できません。</source><translation>The element %1 is not allowed.</translation></message>
<message><source>xsl:import は、ほかの要素より前に書かなければなりません。</source><translation>xsl:import must come before all other elements.</translation></message>
<message><source>文字列 '%1' をこの位置に書くことはできません。</source><translation>The text '%1' is not allowed here.</translation></message>
<message><source>xsl:call-template の中に %1 を書くことはできません。</source><translation>%1 is not allowed in xsl:call-template.</translation></message>
<message><source>xsl:apply-imports は、テンプレートの中でだけ使用できます。</source><translation>xsl:apply-imports is only allowed in a template.</translation></message>
<message><source>属性の値の '%1' に対応する括弧がありません。</source><translation>There is no matching brace for '%1' in the value of an attribute.</translation></message>
<message><source>属性 %1 の値の式が正しくありません。</source><translation>The expression in the value of the attribute %1 is not valid.</translation></message>
<message><source>属性 %1 の値の '%2' に対応する括弧がありません。</source><translation>There is no matching brace for '%2' in the value of the attribute %1.</translation></message>
<message><source>属性 %1 の値の式 '%2' が正しくありません。</source><translation>The expression '%2' in the value of the attribute %1 is not valid.</translation></message>
<message><source>接頭辞 '%1%2' は宣言されていません。</source><translation>The prefix '%1%2' is not declared.</translation></message>
<message><source>xsl:template には属性 match または name が必要です。</source><translation>xsl:template needs the attribute match or name.</translation></message>
<message><source>テンプレート '%1' がありません。</source><translation>There is no template '%1'.</translation></message>
<message><source>パターンに '%1' が必要です。</source><translation>'%1' is required in the pattern.</translation></message>
<message><source>パターンの構文が正しくありません。</source><translation>The syntax of the pattern is not valid.</translation></message>
<message><source>パターン '%1%2' が正しくありません。</source><translation>The pattern '%1%2' is not valid.</translation></message>
<message><source>パターンが空です。</source><translation>The pattern is empty.</translation></message>
<message><source>パターンが正しくありません。</source><translation>The pattern is not valid.</translation></message>
<message><source>xsl:%1 の属性 href の値 '%2' が正しくありません。</source><translation>The value '%2' of the attribute href of xsl:%1 is not valid.</translation></message>
<message><source>xsl:%1 で指定されたファイルを読み込めません。</source><translation>The file specified by xsl:%1 cannot be read.</translation></message>
<message><source>xsl:%1 が循環しています。</source><translation>The stylesheets refer to each other by xsl:%1.</translation></message>
<message><source>スタイルシートではありません。ルート要素は、名前空間 http://www.w3.org/1999/XSL/Transform の xsl:stylesheet または xsl:transform か、属性 xsl:version のある要素でなければなりません。</source><translation>This is not a stylesheet. The root element must be xsl:stylesheet or xsl:transform of the namespace http://www.w3.org/1999/XSL/Transform, or an element with the attribute xsl:version.</translation></message>
<message><source>スタイルシートからファイルに書き込むことはできません。</source><translation>A stylesheet cannot write to files.</translation></message>
<message><source>xsl:output の属性 %1 の値 '%2' は 'yes' か 'no' でなければなりません。</source><translation>The value '%2' of the attribute %1 of xsl:output must be 'yes' or 'no'.</translation></message>
<message><source>出力方法 '%1' はサポートされていません。</source><translation>The output method '%1' is not supported.</translation></message>
<message><source>テンプレートの呼び出しが深すぎるか、終わりのない再帰になっているため、処理を中止しました。</source><translation>The templates call each other too deeply or without end, so the transformation was stopped.</translation></message>
<message><source>結果が大きすぎるため、スタイルシートの処理を中止しました。</source><translation>The result is too large, so the transformation was stopped.</translation></message>
<message><source>msxsl:script によるスクリプトはサポートされていません。</source><translation>Scripts in msxsl:script are not supported.</translation></message>
<message><source>XML 文書として読み込めません。実体の展開や要素の入れ子が大きすぎる可能性があります。</source><translation>It cannot be read as an XML document. The expansion of entities or the nesting of elements may be too large.</translation></message>
<message><source>旧形式のスタイルシートのパターン '%2' の '%1' は XSLT 1.0 に変換できません。</source><translation>'%1' in the pattern '%2' of the old-style stylesheet cannot be converted to XSLT 1.0.</translation></message>
<message><source>旧形式のスタイルシートのパターン '%1' は途中で終わっています。</source><translation>The pattern '%1' of the old-style stylesheet is incomplete.</translation></message>
<message><source>旧形式のスタイルシートに空のパターンがあります。</source><translation>The old-style stylesheet has an empty pattern.</translation></message>
<message><source>旧形式のスタイルシートの要素 &lt;%1&gt; は XSLT 1.0 に変換できません。</source><translation>The element &lt;%1&gt; of the old-style stylesheet cannot be converted to XSLT 1.0.</translation></message>
<message><source>旧形式のスタイルシートのスクリプト (%1) はサポートされていません。</source><translation>Scripts (%1) in old-style stylesheets are not supported.</translation></message>
<message><source>%1 の属性 expr</source><translation>attribute expr of %1</translation></message>
<message><source>旧形式のスタイルシートの要素 &lt;%1&gt; に属性 %2 がありません。</source><translation>The element &lt;%1&gt; of the old-style stylesheet lacks the attribute %2.</translation></message>
<!-- help_texts.h, manual_texts.h -->
<message><source>はじめのページ</source><translation>First Page</translation></message>
<message><source>XML ドキュメントを開くか、新しく作成してください。</source><translation>Open an XML document or create a new one.</translation></message>
<message><source>始める</source><translation>Start</translation></message>
<message><source>サンプル</source><translation>Samples</translation></message>
<message><source>開いたファイルがここに表示されます。</source><translation>Files that you open appear here.</translation></message>
<message><source>%1 (見つかりません)</source><translation>%1 (not found)</translation></message>
<message><source>ここに XML ファイルをドロップ</source><translation>Drop an XML file here</translation></message>
<message><source>ドキュメントがないときにこのページを表示する(&amp;W)</source><translation>Sho&amp;w this page when no document is open</translation></message>
<message><source>%1、%2</source><translation>%1, %2</translation></message>
<message><source>受注データ (スタイルシート付き)</source><translation>Orders (with a stylesheet)</translation></message>
<message><source>シフト JIS の辞書</source><translation>A dictionary in Shift JIS</translation></message>
<message><source>UTF-16 の手紙</source><translation>A letter in UTF-16</translation></message>
<message><source>実体参照のある通知</source><translation>A notice with entity references</translation></message>
<message><source>マニュアル - Quillon XML Editor</source><translation>Manual - Quillon XML Editor</translation></message>
<message><source>目次</source><translation>Contents</translation></message>
<message><source>マニュアルの本文</source><translation>Page of the manual</translation></message>
<message><source>マニュアルを検索</source><translation>Search the manual</translation></message>
<message><source>マニュアルの検索結果</source><translation>Results in the manual</translation></message>
<message><source>%1 件</source><translation>%1 results</translation></message>
<message><source>戻る</source><translation>Back</translation></message>
<message><source>戻る (Alt+←)</source><translation>Back (Alt+←)</translation></message>
<message><source>進む</source><translation>Forward</translation></message>
<message><source>進む (Alt+→)</source><translation>Forward (Alt+→)</translation></message>
<message><source>拡大</source><translation>Zoom in</translation></message>
<message><source>文字を大きくする (Ctrl++)</source><translation>Larger text (Ctrl++)</translation></message>
<message><source>縮小</source><translation>Zoom out</translation></message>
<message><source>文字を小さくする (Ctrl+-)</source><translation>Smaller text (Ctrl+-)</translation></message>
<message><source>　　</source><translation>    </translation></message>
<message><source>コマンドの検索</source><translation>Find a Command</translation></message>
<message><source>コマンド、メニュー、キーの一部を入力</source><translation>Part of a command, menu or key</translation></message>
<message><source>コマンドの一覧</source><translation>All Commands</translation></message>
<message><source>%1 個のコマンド</source><translation>%1 commands</translation></message>
<message><source>「%1」は今は実行できません。</source><translation>"%1" cannot be run now.</translation></message>
<message><source>今は実行できません</source><translation>cannot be run now</translation></message>
<message><source>はじめに</source><translation>Getting Started</translation></message>
<message><source>開く・保存する</source><translation>Opening and Saving</translation></message>
<message><source>ツリーの編集</source><translation>Editing the Tree</translation></message>
<message><source>スキーマと検証</source><translation>Schemas and Validation</translation></message>
<message><source>候補と補完</source><translation>Suggestions</translation></message>
<message><source>プレビューと印刷</source><translation>Preview and Printing</translation></message>
<message><source>壊れたファイルの修正</source><translation>Mending Broken Files</translation></message>
<message><source>文字コード</source><translation>Encodings</translation></message>
<message><source>保存しなかった変更の復元</source><translation>Recovering Unsaved Changes</translation></message>
<message><source>設定</source><translation>Settings</translation></message>
<message><source>他のプログラムからの操作</source><translation>Use by Other Programs</translation></message>
<message><source>キーの一覧</source><translation>All Keys</translation></message>
<message><source>コマンド</source><translation>Command</translation></message>
<message><source>キー</source><translation>Key</translation></message>
<message><source>メニュー</source><translation>Menu</translation></message>
<message><source>ウィンドウのどこでも使えるキー</source><translation>Keys of the whole window</translation></message>
<message><source>ツリーで使うキー</source><translation>Keys of the tree</translation></message>
<message><source>メニューにないコマンド</source><translation>Commands in no menu</translation></message>
<message><source>ツリーの右クリック</source><translation>Context menu of the tree</translation></message>
<message><source>上へ移動</source><translation>Move Up</translation></message>
<message><source>下へ移動</source><translation>Move Down</translation></message>
<message><source>パスへ移動</source><translation>Go to Path</translation></message>
<message><source>マニュアル(&amp;M)</source><translation>&amp;Manual</translation></message>
<message><source>コマンドの検索(&amp;S)...</source><translation>Find a Comman&amp;d...</translation></message>
<message><source>ドキュメントがないときに、はじめのページを表示(&amp;G)</source><translation>Show the first pa&amp;ge when no document is open</translation></message>
<!-- layout_texts.h -->
<message><source>整形</source><translation>Format</translation></message>
<message><source>対象</source><translation>Scope</translation></message>
<message><source>文書全体(&amp;D)</source><translation>The whole &amp;document</translation></message>
<message><source>選択した要素(&amp;S)</source><translation>&amp;Selected elements</translation></message>
<message><source>字下げ</source><translation>Indentation</translation></message>
<message><source>空白(&amp;B):</source><translation>&amp;Blanks:</translation></message>
<message><source>タブ(&amp;T)</source><translation>&amp;Tab</translation></message>
<message><source>字下げの空白の数</source><translation>Number of blanks to indent by</translation></message>
<message><source>空行を 1 行だけ残す(&amp;L)</source><translation>Keep one blank &amp;line</translation></message>
<message><source>属性(&amp;A):</source><translation>&amp;Attributes:</translation></message>
<message><source>変更しない</source><translation>Leave unchanged</translation></message>
<message><source>行の幅で折り返す</source><translation>Wrap at the line width</translation></message>
<message><source>1 つずつ別の行に置く</source><translation>Each on a line of its own</translation></message>
<message><source>行の幅(&amp;W):</source><translation>Line &amp;width:</translation></message>
<message><source> 桁</source><translation> columns</translation></message>
<message><source>最初の属性に揃える(&amp;G)</source><translation>Ali&amp;gn with the first attribute</translation></message>
<message><source>空要素(&amp;M):</source><translation>E&amp;mpty elements:</translation></message>
<message><source>整形後(&amp;R)</source><translation>Afte&amp;r</translation></message>
<message><source>整形前(&amp;O)</source><translation>Bef&amp;ore</translation></message>
<message><source>整形のプレビュー。変わる行は * で始まります。</source><translation>Preview of the formatting. Lines that change begin with *.</translation></message>
<message><source>%2 行のうち %1 行が変わり、%3 行になります。</source><translation>%1 of %2 lines change; there will be %3.</translation></message>
<message><source>変わる行はありません。</source><translation>No line changes.</translation></message>
<message><source>大きいため、先頭の %1 行だけを表示しています。</source><translation>The document is large; only its first %1 lines are shown.</translation></message>
<message><source>文字データを含む要素の内容、xml:space="preserve" の内容、コメントの中は変更しません。</source><translation>What is in elements with character data, under xml:space="preserve" and in comments stays as it is.</translation></message>
<message><source>整形(&amp;F)</source><translation>&amp;Format</translation></message>
<message><source>整形しています...</source><translation>Formatting...</translation></message>
<message><source>整形しました(%1 か所)。</source><translation>Formatted (%1 places).</translation></message>
<message><source>すでに整形されているため、何も変更していません。</source><translation>Everything is formatted already; nothing has been changed.</translation></message>
<!-- encoding_texts.h -->
<message><source>エンコードの変更</source><translation>Change Encoding</translation></message>
<message><source>現在のエンコード: %1</source><translation>Present encoding: %1</translation></message>
<message><source>%1(対応していません)</source><translation>%1 (not supported)</translation></message>
<message><source>%1(BOM 付き)</source><translation>%1 (with byte order mark)</translation></message>
<message><source>%1(リトルエンディアン)</source><translation>%1 (little endian)</translation></message>
<message><source>%1(ビッグエンディアン)</source><translation>%1 (big endian)</translation></message>
<message><source>新しいエンコード(&amp;E):</source><translation>New &amp;encoding:</translation></message>
<message><source>改行(&amp;L):</source><translation>&amp;Line ends:</translation></message>
<message><source>LF に統一する</source><translation>All LF</translation></message>
<message><source>CR+LF に統一する</source><translation>All CR+LF</translation></message>
<message><source>新しいエンコードで表せない文字(&amp;U):</source><translation>Characters that the new encoding cannot &amp;use:</translation></message>
<message><source>新しいエンコードで表せない文字。Enter でその場所へ移動</source><translation>Characters that the new encoding cannot use. Enter goes to the place</translation></message>
<message><source>行</source><translation>Line</translation></message>
<message><source>文字</source><translation>Character</translation></message>
<message><source>場所</source><translation>Place</translation></message>
<message><source>文字参照 %1 になります</source><translation>becomes the reference %1</translation></message>
<message><source>表せません</source><translation>cannot be written</translation></message>
<message><source>%1(要素 %2)</source><translation>%1 (element %2)</translation></message>
<message><source>すべての文字を表せます。</source><translation>The encoding has all characters.</translation></message>
<message><source>%1 文字は文字参照になります。読み込むと同じ文字に戻ります。</source><translation>%1 characters become references, which are the same characters when they are read.</translation></message>
<message><source>%1 文字は名前、コメント、CDATA セクション、処理命令、文書型宣言の中にあり、文字参照にできません。その文字を変えるまで、このエンコードには変更できません。</source><translation>%1 characters stand in names, comments, CDATA sections, instructions or the document type, where no references are possible. This encoding cannot be used until they are changed.</translation></message>
<message><source>%1 以上の</source><translation>%1 or more</translation></message>
<message><source>変更(&amp;C)</source><translation>&amp;Change</translation></message>
<message><source>場所を表示(&amp;G)</source><translation>&amp;Go to Place</translation></message>
<message><source>文字を調べています...</source><translation>Checking characters...</translation></message>
<message><source>エンコードを変更しています...</source><translation>Changing the encoding...</translation></message>
<message><source>次の保存から %1 で書き込みます。</source><translation>From the next save on, the file is written in %1.</translation></message>
<!-- send_texts.h -->
<message><source>送信する内容: 「%1」の全体(%2 バイト、%3)。</source><translation>What is sent: all of %1 (%2 bytes, %3).</translation></message>
<message><source>送信先の http:// または https:// で始まる URL を入力してください。</source><translation>Enter a URL that begins with http:// or https://.</translation></message>
<message><source>送信先: %1 (POST、暗号化されます)。</source><translation>Where to: %1 (POST, encrypted).</translation></message>
<message><source>送信先: %1 (POST、暗号化されません)。</source><translation>Where to: %1 (POST, not encrypted).</translation></message>
<!-- window_texts.h -->
<message><source>%1(このウィンドウ)</source><translation>%1 (this window)</translation></message>
<message><source>前面に表示するウィンドウを選択してください。</source><translation>Which window is to come to the front?</translation></message>
<message><source>「%1」は別のウィンドウで開かれていて、保存していない変更があります。</source><translation>%1 is open in another window and has unsaved changes there.</translation></message>
<message><source>開いているウィンドウへ切り替える</source><translation>Switch to that window</translation></message>
<message><source>もう一度開く</source><translation>Open it again</translation></message>
<!-- file_type_texts.h -->
<message><source>XMLファイル</source><translation>XML files</translation></message>
<message><source>XSLファイル</source><translation>XSL files</translation></message>
<message><source>%1 バイト</source><translation>%1 bytes</translation></message>
<!-- qt_texts.h -->
<message><source>場所:</source><translation>Look in:</translation></message>
<message><source>フォルダー:</source><translation>Directory:</translation></message>
<message><source>ファイル名(&amp;N):</source><translation>File &amp;name:</translation></message>
<message><source>ファイルの種類:</source><translation>Files of type:</translation></message>
<message><source>開く(&amp;O)</source><translation>&amp;Open</translation></message>
<message><source>選択(&amp;C)</source><translation>&amp;Choose</translation></message>
<message><source>保存</source><translation>Save</translation></message>
<message><source>フォルダーの選択</source><translation>Find Directory</translation></message>
<message><source>前の場所に戻ります</source><translation>Go back</translation></message>
<message><source>次の場所に進みます</source><translation>Go forward</translation></message>
<message><source>上のフォルダー</source><translation>Parent Directory</translation></message>
<message><source>上のフォルダーへ移動します</source><translation>Go to the parent directory</translation></message>
<message><source>新しいフォルダー</source><translation>Create New Folder</translation></message>
<message><source>新しいフォルダーを作成します</source><translation>Create a New Folder</translation></message>
<message><source>新しいフォルダー(&amp;N)</source><translation>&amp;New Folder</translation></message>
<message><source>一覧</source><translation>List View</translation></message>
<message><source>一覧で表示します</source><translation>Change to list view mode</translation></message>
<message><source>詳細</source><translation>Detail View</translation></message>
<message><source>詳細を表示します</source><translation>Change to detail view mode</translation></message>
<message><source>よく使う場所</source><translation>Sidebar</translation></message>
<message><source>よく使う場所の一覧</source><translation>List of places and bookmarks</translation></message>
<message><source>ファイル</source><translation>Files</translation></message>
<message><source>削除</source><translation>Delete</translation></message>
<message><source>取り除く</source><translation>Remove</translation></message>
<message><source>表示: </source><translation>Show </translation></message>
<message><source>隠しファイルを表示(&amp;H)</source><translation>Show &amp;hidden files</translation></message>
<message><source>最近使った場所</source><translation>Recent Places</translation></message>
<message><source>すべてのファイル (*)</source><translation>All Files (*)</translation></message>
<message><source>コンピューター</source><translation>My Computer</translation></message>
<message><source>ドライブ</source><translation>Drive</translation></message>
<message><source>フォルダー</source><translation>Folder</translation></message>
<message><source>%1 ファイル</source><translation>%1 File</translation></message>
<message><source>名前</source><translation>Name</translation></message>
<message><source>サイズ</source><translation>Size</translation></message>
<message><source>更新日時</source><translation>Date Modified</translation></message>
<message><source>「%1」は書き込みできません。&#10;削除してもよろしいですか？</source><translation>'%1' is write protected.&#10;Do you want to delete it anyway?</translation></message>
<message><source>「%1」を削除してもよろしいですか？</source><translation>Are you sure you want to delete '%1'?</translation></message>
<message><source>フォルダーを削除できません。</source><translation>Could not delete directory.</translation></message>
<message><source>%1&#10;フォルダーが見つかりません。名前を確認してください。</source><translation>%1&#10;Directory not found.&#10;Please verify the correct directory name was given.</translation></message>
<message><source>%1&#10;ファイルが見つかりません。名前を確認してください。</source><translation>%1&#10;File not found.&#10;Please verify the correct file name was given.</translation></message>
<message><source>%1 はすでに存在します。&#10;上書きしますか？</source><translation>%1 already exists.&#10;Do you want to replace it?</translation></message>
<message><source>使用できない名前</source><translation>Invalid filename</translation></message>
<message><source>&lt;b&gt;「%1」という名前は使用できません。&lt;/b&gt;&lt;p&gt;別の名前を入力してください。</source><translation>&lt;b&gt;The name "%1" cannot be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuation marks.</translation></message>
<message><source>キャンセル(&amp;C)</source><translation>&amp;Cancel</translation></message>
<message><source>適用</source><translation>Apply</translation></message>
<message><source>元に戻す</source><translation>Reset</translation></message>
<message><source>ヘルプ</source><translation>Help</translation></message>
<message><source>切り取り(&amp;T)</source><translation>Cu&amp;t</translation></message>
<message><source>貼り付け(&amp;P)</source><translation>&amp;Paste</translation></message>
<message><source>すべて選択</source><translation>Select All</translation></message>
<message><source>リンクの場所をコピー(&amp;L)</source><translation>Copy &amp;Link Location</translation></message>
<message><source>増やす(&amp;S)</source><translation>&amp;Step up</translation></message>
<message><source>減らす(&amp;D)</source><translation>Step &amp;down</translation></message>
</context>
</TS>
