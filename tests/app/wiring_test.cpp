#include "document/recent_files.h"
#include "platform/ui/message_box.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"
#include "tests/support/scripted_printer.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillon::test {

namespace {

/// What the parts of a real window do for each other.
class WiringTest : public EditorWindow {
protected:
    void trigger(QStringView command) { form->actions().action(command)->trigger(); }

    /// What the desktop sends when something is dropped on an item.
    void drop(const QString &caption, const QMimeData &data) {
        tvw().doItemsLayout();
        const QRect rect = tvw().visualRect(tree().nodes().indexOf(item(caption)));
        ASSERT_TRUE(rect.isValid()) << caption.toStdString();
        const QPoint at = rect.topLeft() + QPoint(25, rect.height() / 2);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tvw().viewport(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tvw().viewport(), &move);
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tvw().viewport(), &event);
    }
    void dropText(const QString &caption, const QString &text) {
        QMimeData data;
        data.setText(text);
        drop(caption, data);
    }
    /// Another program writes the opened file.
    void rewrite(const QByteArray &bytes) {
        const timespec times[] = {{0, UTIME_OMIT}, {1'000'000'000, 0}};
        write("doc.xml", bytes);
        EXPECT_EQ(::utimensat(AT_FDCWD, path("doc.xml").toUtf8().constData(), times, 0), 0);
    }
    QString previewed() {
        QFile file(path("Temp/preview.htm"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    bool becomesPreviewed(const QString &text, bool there = true) {
        return QTest::qWaitFor([&] { return previewed().contains(text) == there; }, Patience);
    }
};

TEST_F(WiringTest, ADropShowsInThePaneWhatItIsDroppedOn) {
    form->show();
    open("<r><a>1</a><b/></r>");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    select("a");
    dropText("b", "<c/>");
    EXPECT_EQ(xml(), "<r><a>1</a><b><c/></b></r>");
    EXPECT_EQ(tree().SelectedItem(), item("b"));
    EXPECT_EQ(txtEdit().Text(), "<b><c/></b>");
    EXPECT_TRUE(cboPath().currentText().endsWith("/b/")) << cboPath().currentText().toStdString();
    EXPECT_TRUE(state().m_Modified);
    // What is typed then goes to that element, the drop included.
    type("<b><c/>x</b>");
    EXPECT_EQ(xml(), "<r><a>1</a><b><c/>x</b></r>");
    dropText("b", "d=\"2\"");
    EXPECT_EQ(txtEdit().Text(), "<b d=\"2\"><c/>x</b>");
}

TEST_F(WiringTest, TheWholePreviewFollowsChanges) {
    form->show();
    open("<r><a>first</a><b/></r>");
    ASSERT_TRUE(becomesPreviewed("first"));
    const struct {
        const char *what;
        std::function<void()> change;
        QString text;
        bool there;
    } cases[] = {
        {"text dropped", [&] { dropText("b", "<dropped/>"); }, "dropped", true},
        {"undone", [&] { trigger(u"mnuEditUndo"); }, "dropped", false},
        {"redone", [&] { trigger(u"mnuEditRedo"); }, "dropped", true},
        {"element deleted",
         [&] {
             select("b");
             dialogs.answerMessage(ui::message_answer::Yes);
             editor().nodeCommands.mnuEditDelete_Click();
         },
         "dropped", false},
        {"values cleared",
         [&] {
             dialogs.answerMessage(ui::message_answer::Ok);
             editor().tools.mnuToolRemoveText_Click();
         },
         "first", false},
        {"element added",
         [&] {
             select("a");
             editor().creation.mnuNodeAddElement_Click();
         },
         "Element1", true},
        {"reloaded",
         [&] {
             rewrite("<r><a>reloaded</a></r>");
             dialogs.answerMessage(ui::message_answer::Yes);
             trigger(u"mnuFileReload");
         },
         "reloaded", true},
    };
    for (const auto &c : cases) {
        c.change();
        EXPECT_TRUE(becomesPreviewed(c.text, c.there)) << c.what << "\n" << xml().toStdString();
    }
}

TEST_F(WiringTest, AFileThatAnotherProgramChangesIsNoticedWhenTheWindowIsActivated) {
    form->show();
    open("<r/>");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get(), Patience));
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form->isActiveWindow(); }, Patience));
    const QString before = status();
    QEvent activated(QEvent::ActivationChange);
    QApplication::sendEvent(form.get(), &activated);
    EXPECT_EQ(status(), before);
    rewrite("<s/>");
    QApplication::sendEvent(form.get(), &activated);
    EXPECT_TRUE(status().contains("変更されました")) << status().toStdString();
}

TEST_F(WiringTest, AChangeOfTheSameLengthIsAChange) {
    open("<r/>");
    state().m_DOM.documentElement().setAttribute("mine", "1");
    editor().commands.DocumentModified();
    rewrite("<s/>");
    dialogs.answerMessage(ui::message_answer::No);
    editor().commands.mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<s/>");
    EXPECT_TRUE(state().m_Modified);
}

TEST_F(WiringTest, TheListOfRecentFilesIsClearedFromTheOptions) {
    open("<r/>", "one.xml");
    open("<r/>", "two.xml");
    const auto answer = [&](QDialogButtonBox::StandardButton button) {
        QTimer::singleShot(0, form.get(), [button] {
            QWidget *box = QApplication::activeModalWidget();
            ASSERT_TRUE(box);
            box->findChild<QPushButton *>("clear")->click();
            box->findChild<QDialogButtonBox *>()->button(button)->click();
        });
        trigger(u"mnuToolOption");
    };
    answer(QDialogButtonBox::Cancel);
    EXPECT_EQ(editor().recentFiles.read().size(), 2);
    answer(QDialogButtonBox::Ok);
    EXPECT_TRUE(editor().recentFiles.read().isEmpty());
    open("<r/>", "three.xml");
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("three.xml")));
}

TEST_F(WiringTest, NodesDraggedOverThePaneAreNoText) {
    open("<r/>");
    QMimeData data;
    data.setText("<a/>");
    const auto isTaken = [&] {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(txtEdit().viewport(), &enter);
        return enter.isAccepted();
    };
    EXPECT_TRUE(isTaken());
    data.setData(tree::NodeFormat, "<a/>");
    EXPECT_FALSE(isTaken());
}

TEST_F(WiringTest, ExternalEditorsAreThereInTheNextSession) {
    editor().settings.editors = {{"editor", "/bin/true"}};
    QTimer::singleShot(0, form.get(), [] {
        QApplication::activeModalWidget()
            ->findChild<QDialogButtonBox *>()
            ->button(QDialogButtonBox::Ok)
            ->click();
    });
    trigger(u"mnuToolOption");
    form = std::make_unique<app::frmMain>(environment());
    ASSERT_EQ(editor().settings.editors.size(), 1u);
    EXPECT_EQ(editor().settings.editors[0].path, "/bin/true");
}

TEST_F(WiringTest, TheTreeIsPrintedFromTheMenu) {
    open("<r/>");
    printer.answer(path("tree.pdf"));
    trigger(u"mnuFilePrintTree");
    EXPECT_TRUE(read("tree.pdf").startsWith("%PDF"));
}

TEST_F(WiringTest, ThePathBoxKnowsQueriesAndTheDocument) {
    form->show();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
    open("<注文><品a/><品ab/></注文>");
    select("#document");
    const auto type = [this](const QString &text) {
        cboPath().setFocus();
        cboPath().lineEdit()->selectAll();
        cboPath().lineEdit()->insert(text.first(text.size() - 1));
        QTest::keyClicks(&cboPath(), text.last(1));
        const QAbstractItemModel &proposals = *cboPath().proposalList()->model();
        QStringList all;
        for (int row = 0; row < proposals.rowCount(); ++row)
            all.append(proposals.index(row, 0).data().toString());
        return all;
    };
    EXPECT_EQ(type("//品a"), (QStringList{"//品ab"}));
    EXPECT_TRUE(cboPath().proposalList()->isVisible());
    EXPECT_EQ(type("//品ab"), QStringList());
    QTest::keyClick(&cboPath(), Qt::Key_Return);
    EXPECT_EQ(tree().SelectedItem(), item("品ab"));
    EXPECT_EQ(type("//品a"), QStringList("//品ab"));
    form.reset();
    form = std::make_unique<app::frmMain>(environment());
    EXPECT_EQ(cboPath().List(), QStringList("//品ab"));
}

} // namespace

} // namespace quillon::test
