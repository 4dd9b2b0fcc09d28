#include "tests/tree/drag_fixture.h"

#include <cstdio>
#include <unistd.h>

namespace quillon::test {

namespace {

TEST_F(DragTest, ReadOnlyDocumentsTakeNothing) {
    openExpanded(Document);
    select("item");
    state().m_ReadOnly = true;
    EXPECT_EQ(hover(item("other"), *textData("<x/>"), None), Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("item"));
    EXPECT_EQ(drop(item("other"), *textData("<x/>"), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), Document);
}

TEST_F(DragTest, TakesTextAndFilesFromElsewhere) {
    const QString good = write("good.xml", "<?xml version=\"1.0\"?>\n<root>\n  <k/>\n</root>");
    const QString bad = write("bad.xml", "<root>");
    auto both = fileData({good});
    both->setText("good.xml");
    auto remote = textData("<seen/>");
    remote->setUrls({QUrl("http://localhost/a.xml")});

    struct Case {
        std::unique_ptr<QMimeData> data;
        const char *inside;
    };
    std::vector<Case> cases;
    cases.push_back({textData("<x><y/></x>"), "<x><y/></x>"});
    cases.push_back({textData("a < b"), "a &lt; b"});
    cases.push_back({fileData({good, bad}), "<root>\n  <k/>\n</root>"});
    cases.push_back({std::move(both), "<root>\n  <k/>\n</root>"});
    cases.push_back({std::move(remote), "<seen/>"});
    for (const Case &c : cases) {
        openExpanded("<doc><to/></doc>");
        EXPECT_EQ(drop(item("to"), *c.data, Ctrl), Qt::CopyAction);
        EXPECT_EQ(xml(), QByteArray("<doc><to>") + c.inside + "</to></doc>");
        state().m_Modified = false;
    }
    // A file that does not parse gives empty text, which is a node like any other text.
    openExpanded("<doc><to/></doc>");
    EXPECT_EQ(drop(item("to"), *fileData({bad}), None), Qt::CopyAction);
    EXPECT_EQ(captions(item("to")), QStringList("#text"));
}

TEST_F(DragTest, ADropBesideTheItemsGoesToTheSelectedOne) {
    openExpanded("<doc><to/></doc>");
    select("to");
    EXPECT_EQ(drop(Beside, *textData("<x/>"), None), Qt::MoveAction);
    EXPECT_EQ(xml(), "<doc><to><x/></to></doc>");
    // The document takes comments, but no second root element.
    EXPECT_EQ(drop(item("#document"), *textData("<!--c-->"), None), Qt::MoveAction);
    EXPECT_EQ(xml(), "<doc><to><x/></to></doc>\n<!--c-->");
}

TEST_F(DragTest, DataOfNoUseIsNoDrop) {
    openExpanded(Document);
    QMimeData picture;
    picture.setData("image/png", "png");
    QMimeData address;
    address.setUrls({QUrl("http://localhost/a.xml")});
    QMimeData tooLarge;
    tooLarge.setData(tree::NodeFormat, "");
    tooLarge.setText("");
    for (const QMimeData *data : {&picture, &address})
        EXPECT_EQ(hover(item("other"), *data, None), Qt::IgnoreAction);
    for (const QMimeData *data : {&picture, &address, &tooLarge}) {
        EXPECT_EQ(drop(item("other"), *data, None), Qt::IgnoreAction);
    }
    EXPECT_EQ(xml(), Document);
}

TEST_F(DragTest, DroppedFilesNeedNotHaveUtf8NamesAndMustBeFiles) {
    const QByteArray name = folder.path().toUtf8() + "/\x95\x5c.xml";
    ASSERT_TRUE(QFile::rename(write("made.xml", "<root/>"), path("renamed.xml")));
    ASSERT_EQ(::rename(path("renamed.xml").toUtf8().constData(), name.constData()), 0);
    QMimeData data;
    data.setData("text/uri-list", "file://" + name.toPercentEncoding("/") + "\r\n");
    EXPECT_NE(drop(Beside, data, Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(::unlink(name.constData()), 0);
    dialogs.answerMessage(ui::message_answer::Ok);
    drop(item("root"), *fileData({QString("/dev/zero")}), None);
    EXPECT_TRUE(dialogs.messages.back().text.contains("/dev/zero"));
    EXPECT_EQ(xml(), "<root/>");
}

TEST_F(DragTest, OpensWhatIsDroppedWhileNoDocumentIsOpen) {
    const QString file = write("dropped.xml", "<root/>");
    EXPECT_EQ(hover(Beside, *fileData({file}), None, Qt::CopyAction), Qt::CopyAction);
    EXPECT_NE(drop(Beside, *fileData({file}), Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(state().m_FileName, file);

    editor().commands.mnuFileClose_Click();
    ASSERT_FALSE(state().m_DOM);
    EXPECT_NE(drop(Beside, *textData("<text/>"), Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<text/>");

    // One that cannot be opened leaves the window as empty as it was.
    editor().commands.mnuFileClose_Click();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_EQ(drop(Beside, *fileData({write("broken.xml", "<root")}), None), Qt::IgnoreAction);
    EXPECT_NE(drop(Beside, *fileData({file}), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(state().m_FileName, file);
}

TEST_F(DragTest, NothingIsMovedFromWhereItMayNotBe) {
    openExpanded(Document);
    const auto text = textData("<x/>");
    const QString file = write("file.xml", "<x/>");
    const auto actions = [&](const QMimeData &data, Qt::DropActions possible) {
        const Qt::DropAction over = hover(item("other"), data, None, possible);
        return std::pair(over, drop(item("other"), data, None, possible));
    };
    const std::pair copy(Qt::CopyAction, Qt::CopyAction);
    EXPECT_EQ(actions(*text, Qt::CopyAction | Qt::LinkAction), copy);
    EXPECT_EQ(actions(*fileData({file}), Qt::CopyAction | Qt::MoveAction), copy);
    EXPECT_EQ(hover(Beside, *fileData({file}), None), Qt::CopyAction);
    EXPECT_EQ(hover(item("other"), *text, None, Qt::LinkAction), Qt::IgnoreAction);

    // A document that may not be changed gives copies away, whatever the target says.
    press("item");
    EXPECT_EQ(drag().tvw_OLEStartDrag().actions, Qt::CopyAction | Qt::MoveAction);
    state().m_ReadOnly = true;
    EXPECT_EQ(drag().tvw_OLEStartDrag().actions, Qt::DropActions(Qt::CopyAction));
    const QByteArray before = xml();
    drag().tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_EQ(xml(), before);

    // Nor does a reference, which cannot be deleted, go away.
    state().m_ReadOnly = false;
    dialogs.answerMessage(ui::message_answer::Ok);
    openExpanded("<!DOCTYPE r [<!ENTITY e 'E'>]><r>&e;<other/></r>");
    dialogs.answerMessage(ui::message_answer::Ok);
    press("e");
    EXPECT_EQ(drag().tvw_OLEStartDrag().actions, Qt::DropActions(Qt::CopyAction));
    drag().tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_TRUE(item("e"));
}

} // namespace

} // namespace quillon::test
