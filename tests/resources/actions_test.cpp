#include "resources/actions.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace quillon::resources;

namespace {

/// The whole menu bar, indented by menu. A bar stands for the tab in a caption.
constexpr QStringView menuBar = uR"(
mnuFile ファイル(&F)
  mnuFileNew 新規作成(&N)
  mnuFileOpen 開く(&O)...
  mnuFileReload 再読込(&R)
  mnuFileLine1 -
  mnuFileSave 保存(&S)
  mnuFileSaveAs 名前を付けて保存(&A)...
  mnuFileLine2 -
  mnuFilePrint プレビューの印刷(&P)...
  mnuFilePrintTree ツリーの印刷(&T)...
  mnuFileLineMRU -
  mnuFileMRU 最近使ったファイル(&M)
    mnuFileMRUFiles (なし)
  mnuFileLine3 -
  mnuFileClose 閉じる(&C)
  mnuFileQuit 終了(&X)|Alt+F4
mnuEdit 編集(&E)
  mnuEditUndo 元に戻す(&U)
  mnuEditRedo やり直す(&R)
  mnuEditUndoAll 開いた時の状態に戻す(&A)
  mnuEditLine0 -
  mnuEditCut 切り取り(&T)|Ctrl+X
  mnuEditCopy コピー(&C)|Ctrl+C
  mnuEditPaste 貼り付け(&P)|Ctrl+V
  mnuEditDelete 削除(&D)|Ctrl+D
  mnuEditLine1 -
  mnuEditRename 名前の変更(&R)
  mnuEditLine2 -
  mnuEditFind 検索(&F)...
  mnuEditFindNext 次を検索(&N)
  mnuEditLine4 -
  mnuViewLock 要素・属性名のロック(&L)
mnuView 表示(&V)
  mnuNodeCollapse ツリー項目の折りたたみ(&C)
  mnuNodeExpand ツリー項目の展開(&E)
  mnuViewLine1 -
  mnuViewText テキストの内容をツリーに表示(&T)
  mnuViewLine2 -
  mnuViewFont フォント(&F)...
mnuNode ノード(&N)
  mnuNodeMoveUp 上へ移動(&U)
  mnuNodeMoveDown 下へ移動(&D)
  mnuNodeLine1 -
  mnuNodeAddElement 要素の追加(&E)
  mnuNodeAddAttribute 属性の追加(&A)|Ctrl+A
  mnuNodeAddText テキストの追加(&T)
  mnuNodeAddComment コメントの追加(&C)
  mnuNodeAddCDATA CDATAの追加(&D)
  mnuNodeLine2 -
  mnuNodeInsElement 要素の挿入(&L)|Ctrl+Alt+E
  mnuNodeInsText テキストの挿入(&X)|Ctrl+Alt+T
  mnuNodeInsComment コメントの挿入(&M)|Ctrl+Alt+K
  mnuNodeInsCDATA CDATAの挿入
  mnuNodeLine3 -
  mnuNodeDelete 削除(&D)
mnuTool ツール(&T)
  mnuToolSelXSL プレビュー用XSLファイルの選択(&X)...
  mnuToolPreview プレビュー(&P)
  mnuToolPreviewSel 選択したノードのプレビュー(&N)
  mnuToolPrevHTML プレビューをHTMLとして表示(&H)
  mnuToolPreviewSync プレビューとツリーの同期(&Y)
  mnuToolLine1 -
  mnuToolVerifyNew 検証用ファイルの選択(&S)...
  mnuToolVerify 検証(&V)
  mnuToolLine2 -
  mnuToolSend 送信(&S)...
  mnuToolRemoveText 全てのテキスト・属性値のクリア(&C)
  mnuToolLine3 -
  mnuToolOpenEditor 他のエディタで開く(&E)
    mnuToolOpen &BizTalkエディタ
  mnuToolLine4 -
  mnuToolOption オプション(&O)...
mnuWindow ウィンドウ(&W)
  mnuWindowTileH 横に並べる(&H)
mnuHelp ヘルプ(&H)
  mnuHelpReadme Readme.txt表示(&R)...
  mnuHelpAbout バージョン情報(&A)...
mnuNodeContext Popup
  mnuNodeContextUp 上へ移動(&U)
  mnuNodeContextDown 下へ移動(&D)
)";

/// The table in the form of the list above.
QString listed(std::span<const ActionEntry> table) {
    QString text = QStringLiteral("\n");
    std::map<QStringView, qsizetype> depths;
    for (const ActionEntry &entry : table) {
        const qsizetype depth = entry.menu.isEmpty() ? 0 : depths.at(entry.menu) + 1;
        if (entry.kind == ActionKind::Menu)
            depths[entry.name] = depth;
        const QString caption = entry.caption.toString().replace(u'\t', u'|');
        text += QString(depth * 2, u' ') + QStringLiteral("%1 %2\n").arg(entry.name, caption);
    }
    return text;
}

TEST(Actions, AreTheWholeMenuBarInOrder) {
    EXPECT_EQ(listed(actionTable()).toStdString(), menuBar.toString().toStdString());
    std::set<QStringView> names;
    for (const ActionEntry &entry : actionTable()) {
        EXPECT_TRUE(names.insert(entry.name).second) << qPrintable(entry.name.toString());
        EXPECT_EQ(entry.kind == ActionKind::Separator, entry.caption == u"-");
        EXPECT_EQ(entry.visible, entry.name != u"mnuNodeContext");
    }
}

TEST(Actions, HaveTheirKeys) {
    std::map<KeyContext, QStringList> keys;
    for (const ActionEntry &entry : actionTable()) {
        if (entry.key.isEmpty())
            continue;
        keys[entry.keyContext].append(QStringLiteral("%1=%2").arg(entry.key, entry.name));
        EXPECT_TRUE(!entry.caption.contains(u'\t') ||
                    entry.caption.endsWith(u'\t' + entry.key.toString()));
    }
    EXPECT_EQ(keys[KeyContext::Window].join(u' '),
              u"Ctrl+N=mnuFileNew Ctrl+O=mnuFileOpen Ctrl+S=mnuFileSave Ctrl+P=mnuFilePrint "
              "Ctrl+Z=mnuEditUndo Ctrl+Y=mnuEditRedo Ctrl+F=mnuEditFind F3=mnuEditFindNext "
              "F5=mnuToolPreview Ctrl+F5=mnuToolPreviewSel F7=mnuToolVerify");
    EXPECT_EQ(keys[KeyContext::Tree].join(u' '),
              u"Ctrl+X=mnuEditCut Ctrl+C=mnuEditCopy Ctrl+V=mnuEditPaste Ctrl+D=mnuEditDelete "
              "F2=mnuEditRename Ctrl+A=mnuNodeAddAttribute Ctrl+Alt+E=mnuNodeInsElement "
              "Ctrl+Alt+T=mnuNodeInsText Ctrl+Alt+K=mnuNodeInsComment");
    EXPECT_EQ(keys[KeyContext::WindowManager].join(u' '), u"Alt+F4=mnuFileQuit");
    // In the tree the window's keys work as well, so that a key must be the only one of all.
    std::set<QString> all;
    for (const auto &[context, list] : keys) {
        for (const QString &key : list)
            EXPECT_TRUE(all.insert(key.section(u'=', 0, 0)).second) << qPrintable(key);
    }
}

TEST(Actions, StartChecked) {
    QStringList checks;
    for (const ActionEntry &entry : actionTable()) {
        EXPECT_TRUE(entry.checkable || !entry.checked);
        if (entry.checkable)
            checks.append(entry.name.toString() + (entry.checked ? u'+' : u'-'));
    }
    EXPECT_EQ(checks.join(u' '), u"mnuViewLock- mnuViewText+ mnuToolPrevHTML- mnuToolPreviewSync+");
}

TEST(ToolBar, HoldsItsButtonsInOrder) {
    QStringList buttons;
    for (const ToolBarItem &item : mainToolBarTable()) {
        buttons.append(QStringLiteral("%1 %2 %3").arg(item.key, item.toolTip, item.action));
        EXPECT_EQ(item.placeholder, item.key == u"cboPath");
        EXPECT_EQ(item.enabled, item.key == u"new" || item.key == u"open");
        if (item.placeholder)
            continue;
        const QString picture = QStringLiteral(":/icons/toolbar/%1.svg").arg(item.key);
        EXPECT_TRUE(QFile::exists(picture)) << qPrintable(picture);
        const auto entry = std::ranges::find(actionTable(), item.action, &ActionEntry::name);
        ASSERT_NE(entry, actionTable().end());
        EXPECT_EQ(entry->icon, picture);
    }
    EXPECT_EQ(buttons.join(u'\n'), u"new 新規作成(Ctrl+N) mnuFileNew\n"
                                   "open 開く(Ctrl+O) mnuFileOpen\n"
                                   "save 保存(Ctrl+S) mnuFileSave\n"
                                   "print 印刷(Ctrl+P) mnuFilePrint\n"
                                   "preview プレビュー(F5) mnuToolPreview\n"
                                   "cut 切り取り(Ctrl+X) mnuEditCut\n"
                                   "copy コピー(Ctrl+C) mnuEditCopy\n"
                                   "paste 貼り付け(Ctrl+V) mnuEditPaste\n"
                                   "delete 削除(Ctrl+D) mnuEditDelete\n"
                                   "find 検索(F3) mnuEditFind\n"
                                   "undo 元に戻す(Ctrl+Z) mnuEditUndo\n"
                                   "redo やり直す(Ctrl+Y) mnuEditRedo\n"
                                   "verify 検証(F7) mnuToolVerify\n"
                                   "cboPath  ");
    ASSERT_EQ(moveToolBarTable().size(), 1u);
    EXPECT_EQ(moveToolBarTable()[0].toolTip, u"移動");
}

} // namespace
