#include "app/main_window/command_table.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QToolBar>

#include <map>
#include <set>

namespace quillon::test {

namespace {

using controls::KeyContext;

/// Where users find the commands: by key, in a menu, on the toolbar.
class CommandKeys : public EditorWindow {
protected:
    void show() {
        open("<r><a k=\"1\">t</a><b/><c/></r>");
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        select("b");
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        tvw().setFocus();
    }
};

TEST_F(CommandKeys, AnswerToTheirKeysAndToNoOther) {
    show();
    QString ran;
    std::set<QKeySequence> keys;
    for (const app::CommandRow &row : app::commandTable()) {
        if (row.entry.key.isEmpty() || row.entry.keyContext == KeyContext::WindowManager)
            continue;
        SCOPED_TRACE(row.entry.name.toString().toStdString());
        const QKeySequence key(row.entry.key.toString(), QKeySequence::PortableText);
        EXPECT_TRUE(keys.insert(key).second) << "in the tree the window's keys work as well";
        form->actions().connectAction(row.entry.name,
                                      [&] { ran += row.entry.name.toString() + ' '; });
        QTest::keyClick(&tvw(), key[0].key(), key[0].keyboardModifiers());
        EXPECT_EQ(std::exchange(ran, {}), row.entry.name.toString() + " ");
        // In the pane these two are about its text.
        const bool isOfPane =
            row.entry.name == u"mnuEditFind" || row.entry.name == u"mnuEditFindNext";
        if (row.entry.keyContext == KeyContext::Window && !isOfPane) {
            txtEdit().setFocus();
            QTest::keyClick(&txtEdit(), key[0].key(), key[0].keyboardModifiers());
            EXPECT_EQ(std::exchange(ran, {}), row.entry.name.toString() + " ");
            tvw().setFocus();
        }
    }
    EXPECT_EQ(keys.size(), 48u);
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier})
        QTest::keyClick(&tvw(), Qt::Key_Delete, modifier);
    EXPECT_EQ(ran, "mnuEditDelete mnuEditDelete ");
}

TEST_F(CommandKeys, HaveTheKeysThatUsersKnow) {
    const std::map<std::string, std::string> known{
        {"mnuFileNew", "Ctrl+N"},
        {"mnuFileOpen", "Ctrl+O"},
        {"mnuFileSave", "Ctrl+S"},
        {"mnuFilePrint", "Ctrl+P"},
        {"mnuFileQuit", "Alt+F4"},
        {"mnuEditUndo", "Ctrl+Z"},
        {"mnuEditRedo", "Ctrl+Y"},
        {"mnuEditCut", "Ctrl+X"},
        {"mnuEditCopy", "Ctrl+C"},
        {"mnuEditPaste", "Ctrl+V"},
        {"mnuEditDelete", "Ctrl+D"},
        {"mnuEditRename", "F2"},
        {"mnuEditFind", "Ctrl+F"},
        {"mnuEditFindNext", "F3"},
        {"mnuEditReplace", "Ctrl+H"},
        {"mnuEditCopyXPath", "Ctrl+Shift+C"},
        {"mnuEditFormat", "Ctrl+Shift+F"},
        {"SearchBackward", "Shift+F3"},
        {"mnuViewNextHit", "F4"},
        {"mnuViewPreviousHit", "Shift+F4"},
        {"mnuViewNextPart", "F6"},
        {"mnuViewPreviousPart", "Shift+F6"},
        {"mnuViewInsertCandidate", "F9"},
        {"mnuPaneFold", "Ctrl+Shift+["},
        {"mnuPaneUnfold", "Ctrl+Shift+]"},
        {"mnuPanePartner", "Ctrl+M"},
        {"mnuPaneRenameTags", "Shift+F2"},
        {"mnuPaneJump", "Ctrl+J"},
        {"mnuZoomIn", "Ctrl++"},
        {"mnuZoomOut", "Ctrl+-"},
        {"mnuZoomReset", "Ctrl+0"},
        {"mnuNodeAddAttribute", "Ctrl+A"},
        {"mnuNodeInsElement", "Ctrl+Alt+E"},
        {"mnuNodeInsText", "Ctrl+Alt+T"},
        {"mnuNodeInsComment", "Ctrl+Alt+K"},
        {"mnuNodeDuplicate", "Ctrl+Shift+D"},
        {"mnuNodeRaise", "Alt+Left"},
        {"mnuNodeLower", "Alt+Right"},
        {"mnuNodeMend", "Ctrl+."},
        {"MoveUpByKey", "Alt+Up"},
        {"MoveDownByKey", "Alt+Down"},
        {"mnuNodeExplain", "Ctrl+F1"},
        {"mnuNodeDefinition", "Ctrl+F12"},
        {"mnuToolPreview", "F5"},
        {"mnuToolPreviewSel", "Ctrl+F5"},
        {"mnuToolVerify", "F7"},
        {"mnuToolSchemas", "Shift+F7"},
        {"mnuHelpManual", "F1"},
        {"mnuHelpFindCommand", "Ctrl+Shift+P"},
    };
    std::map<std::string, std::string> keys;
    for (const app::CommandRow &row : app::commandTable()) {
        if (!row.entry.key.isEmpty())
            keys.emplace(row.entry.name.toString().toStdString(),
                         row.entry.key.toString().toStdString());
    }
    EXPECT_EQ(keys, known);
}

TEST_F(CommandKeys, HaveTheirPlacesAndAccessKeys) {
    static const QRegularExpression accessKey("&([^&])");
    const auto keysOf = [](const QList<QAction *> &entries) {
        QString keys;
        for (const QAction *entry : entries) {
            const auto found = accessKey.match(entry->text());
            if (entry->isSeparator())
                keys += '|';
            else
                keys += found.hasMatch() ? found.captured(1) : QString('.');
        }
        return keys;
    };
    const auto menuKeys = [&](QStringView name) {
        return keysOf(form->actions().action(name)->menu()->actions());
    };
    EXPECT_EQ(keysOf(form->menuBar()->actions()), "FEVNTWH.") << "the last one is hidden";
    EXPECT_EQ(menuKeys(u"mnuFile"), "NOR|SA|PT|M|CX|VW");
    EXPECT_EQ(menuKeys(u"mnuEdit"), "URA|TCPD|R|FN|L|HQMGE");
    EXPECT_EQ(menuKeys(u"mnuView"), "CE|T|F|PNB|MO|DIKL|H|WZ");
    EXPECT_EQ(menuKeys(u"mnuPane"), "FUAX|MRJ|WBLE");
    EXPECT_EQ(menuKeys(u"mnuZoom"), "IOR");
    EXPECT_EQ(menuKeys(u"mnuViewTheme"), "ALD");
    EXPECT_EQ(menuKeys(u"mnuNode"), "UD|EATCD|LXM.|D|BRWGOS|VIJF");
    EXPECT_EQ(menuKeys(u"mnuTool"), "XPNHY|SV|SC|E|O|MBK");
    EXPECT_EQ(menuKeys(u"mnuWindow"), "H|1M");
    EXPECT_EQ(menuKeys(u"mnuHelp"), "RA|MS");
    EXPECT_EQ(menuKeys(u"treeMenu"), menuKeys(u"mnuNode") + "|P|Q|12345");
    QStringList buttons;
    for (const char *bar : {"tbr", "tbrMove"}) {
        for (const QAction *entry : form->findChild<QToolBar *>(bar)->actions())
            buttons.append(entry->isSeparator() ? QString("|") : entry->objectName());
    }
    EXPECT_EQ(buttons.join(' ').simplified(),
              "new open save | print preview | cut copy paste delete | find | undo redo | verify | "
              "move");
}

} // namespace

} // namespace quillon::test
