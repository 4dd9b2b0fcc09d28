#include "tests/app/commands_fixture.h"

#include <QApplication>

namespace quillon::test {

using controls::ThemeMode;

std::vector<Commands::Case> Commands::viewCases() {
    const auto hasCandidates = [this] {
        return candidatePanel().isAncestorOf(QApplication::focusWidget());
    };
    const auto isShownIn = [this](ThemeMode mode) {
        return [this, mode] {
            return controls::theme().mode() == mode &&
                   system::SettingsStore(path("settings.ini")).GetSetting("Theme", "Mode") ==
                       nameOf(mode);
        };
    };
    return {
        {u"mnuEditFind", [this] { dialogs.answerInput("c"); },
         [this] { return selected() == u"c"; }},
        {u"mnuEditFindNext",
         [this] {
             dialogs.answerInput("[rc]");
             editor().captionSearch.mnuEditFind_Click();
             select("b");
         },
         [this] { return selected() == u"c"; }},
        {u"SearchBackward",
         [this] {
             dialogs.answerInput("[rc]");
             editor().captionSearch.mnuEditFind_Click();
             select("b");
         },
         [this] { return selected() == u"r"; }},
        {u"mnuEditSelectMatches",
         [this] {
             cboPath().setText("/r/b | /r/c");
             editor().pathQuery.SelectByPath();
         },
         [this] { return tree().selectedCount() == 2; }},
        {u"SelectByPath", [this] { cboPath().setText("/r/c"); },
         [this] { return selected() == u"c"; }},
        {u"mnuViewLock", [] {}, [this] { return editor().options.viewLock; }},
        {u"mnuEditReplace", [] {},
         [this] {
             const auto *const dialog = form->findChild<QWidget *>("replaceDialog");
             return dialog && dialog->isVisible();
         }},
        {u"mnuEditCopyXPath", [this] { select("b"); }, copies("/r/b")},
        {u"treeMenuCopyXPath", [this] { select("t"); }, copies("/r/a/text()")},
        {u"mnuViewText", [] {}, [this] { return item("k") && !item("k=\"1\""); }},
        {u"mnuNodeCollapse", [this] { select("r"); },
         [this] { return expanded() == QStringList("#document"); }},
        {u"mnuNodeExpand",
         [this] {
             editor().builder.CollapseSubtree(tree().nodes().Item(1));
             select("r");
         },
         [this] { return expanded().contains("a"); }},
        {u"mnuViewFont",
         [this] {
             dialogs.answerFont({"Sans Serif", 14});
         },
         [this] { return tvw().font().pointSize() == 14; }},
        {u"mnuViewPanel", [] {},
         [this] { return form->findChild<QWidget *>("resultPanel")->isVisible(); }},
        {u"mnuViewNextHit",
         [this] {
             select("r");
             cboPath().setText("*");
             editor().pathQuery.SelectByPath();
         },
         [this] { return selected() == u"b"; }},
        {u"mnuViewPreviousHit",
         [this] {
             select("r");
             cboPath().setText("*");
             editor().pathQuery.SelectByPath();
             editor().hits.setCurrentRow(2);
         },
         [this] { return selected() == u"b"; }},
        {u"mnuViewCandidates", [] {}, [this] { return candidatePanel().isVisible(); }},
        {u"mnuViewInsertCandidate", [] {}, hasCandidates},
        {u"treeMenuCandidates", [] {}, hasCandidates},
        {u"mnuViewPropose", [] {}, [this] { return !txtEdit().proposesUnasked(); }},
        {u"mnuViewNextPart", [] {}, [this] { return txtEdit().hasFocus(); }},
        {u"mnuViewLive", [] {}, [this] { return !editor().live.isOn(); }},
        {u"mnuViewThemeDark", [] {}, isShownIn(ThemeMode::Dark)},
        {u"mnuViewThemeLight", [] {}, isShownIn(ThemeMode::Light)},
        {u"mnuViewThemeAutomatic", [] { controls::theme().setMode(ThemeMode::Dark); },
         isShownIn(ThemeMode::Automatic)},
        {u"mnuViewPreviousPart", [] {},
         [this] { return cboPath().isAncestorOf(QApplication::focusWidget()); }},
    };
}

std::vector<Commands::Case> Commands::paneCases() {
    const auto lines = [this] {
        int seen = 0;
        for (long line = 0; line < txtEdit().SendScintilla(controls::TextBox::SCI_GETLINECOUNT);
             ++line)
            seen += txtEdit().SendScintilla(controls::TextBox::SCI_GETLINEVISIBLE, line) ? 1 : 0;
        return seen;
    };
    const auto openLines = [this](qsizetype caret) {
        return [this, caret] {
            open("<r>\n<a>\n<b>\n</b>\n</a>\n</r>");
            select("r");
            txtEdit().selectBytes(caret, 0);
        };
    };
    const auto fold = [=, this] {
        openLines(9)();
        txtEdit().foldAll();
    };
    const auto zoomed = [this](int percent) {
        return [this, percent] {
            return editor().settings.zoom == percent &&
                   tvw().font().pointSizeF() == 10 * percent / 100.0;
        };
    };
    return {
        {u"mnuPaneFold", openLines(9), [=] { return lines() == 5; }},
        {u"mnuPaneUnfold",
         [=, this] {
             fold();
             txtEdit().selectBytes(5, 0);
         },
         [=] { return lines() == 6; }},
        {u"mnuPaneFoldAll", openLines(0), [=] { return lines() == 3; }},
        {u"mnuPaneUnfoldAll", fold, [=] { return lines() == 6; }},
        {u"mnuPanePartner", openLines(5), [this] { return txtEdit().caret() == 19; }},
        {u"mnuPaneRenameTags",
         [=, this] {
             openLines(5)();
             dialogs.answerInput("z");
         },
         makes("<r>\n<z>\n<b>\n</b>\n</z>\n</r>")},
        {u"mnuPaneJump",
         [=, this] {
             openLines(9)();
             txtEdit().setFocus();
         },
         [this] { return selected() == u"b" && tvw().hasFocus(); }},
        {u"mnuPaneWrap", [] {}, [this] { return editor().settings.wrapsPane; }},
        {u"mnuPaneBlanks", [] {}, [this] { return editor().settings.showsBlanks; }},
        {u"mnuPaneFileLines", openLines(0), [this] { return editor().settings.showsFileLines; }},
        {u"mnuPaneClose", [] {}, [this] { return !editor().settings.closesElements; }},
        {u"mnuZoomIn", [] {}, zoomed(110)},
        {u"mnuZoomOut", [] {}, zoomed(90)},
        {u"mnuZoomReset", [this] { form->zoom().mnuZoomIn_Click(); }, zoomed(100)},
    };
}

TEST_F(Commands, JumpBackFromTheTreeToThePlaceInTheSource) {
    show();
    select("c");
    run(u"mnuPaneJump");
    EXPECT_TRUE(txtEdit().hasFocus());
    EXPECT_EQ(selected(), u"r");
    EXPECT_EQ(txtEdit().caret(), txtEdit().utf8().indexOf("c/>") + 1);
    run(u"mnuPaneJump");
    EXPECT_TRUE(tvw().hasFocus());
    EXPECT_EQ(selected(), u"c");
}

TEST_F(Commands, OfThePaneAreKeptInTheSettings) {
    show();
    for (const QStringView command :
         {u"mnuPaneWrap", u"mnuPaneBlanks", u"mnuPaneFileLines", u"mnuPaneClose", u"mnuZoomIn"})
        run(command);
    form->close();
    reopen();
    for (const QStringView command : {u"mnuPaneWrap", u"mnuPaneBlanks", u"mnuPaneFileLines"})
        EXPECT_TRUE(form->actions().action(command)->isChecked());
    EXPECT_FALSE(form->actions().action(u"mnuPaneClose")->isChecked());
    EXPECT_EQ(txtEdit().SendScintilla(controls::TextBox::SCI_GETWRAPMODE),
              controls::TextBox::SC_WRAP_CHAR);
    EXPECT_EQ(txtEdit().SendScintilla(controls::TextBox::SCI_GETVIEWWS),
              controls::TextBox::SCWS_VISIBLEALWAYS);
    EXPECT_EQ(form->zoom().percent(), 110);
    EXPECT_EQ(editor().settings.fontSize, 10) << "is none of the zoom's business";
    // The wheel zooms with Ctrl alone.
    const auto turn = [&](int delta, Qt::KeyboardModifiers modifiers) {
        QWheelEvent wheel({5, 5}, tvw().viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, delta},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(tvw().viewport(), &wheel);
        return form->zoom().percent();
    };
    EXPECT_EQ(turn(240, Qt::ControlModifier), 150);
    EXPECT_EQ(turn(-60, Qt::ControlModifier), 150);
    EXPECT_EQ(turn(-60, Qt::ControlModifier), 125);
    EXPECT_EQ(turn(240, Qt::NoModifier), 125);
    EXPECT_EQ(turn(12'000, Qt::ControlModifier), 500);
}

} // namespace quillon::test
