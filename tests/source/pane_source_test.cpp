#include "resources/pane_texts.h"
#include "source/pane_source.h"
#include "tests/support/headless_editor.h"

namespace quillon::source {

namespace {

namespace texts = resources::pane_texts;

class PaneSourceTest : public test::HeadlessEditor {
protected:
    PaneSource &source() { return editor().paneSource; }
    void put(const char *what, qsizetype behind = 0) {
        const qsizetype at = txtEdit().utf8().indexOf(what);
        ASSERT_GE(at, 0) << what;
        txtEdit().caretAt = at + behind;
    }
    QString selected() { return tree().SelectedItem().FullPath(); }
    /// What goToItem() selects from where something stands in the source of an item.
    QString itemFrom(const QString &caption, const char *what, qsizetype behind = 1) {
        select(caption);
        put(what, behind);
        EXPECT_TRUE(source().goToItem());
        return selected().section(u'/', 1);
    }
    int states() {
        int count = 0;
        for (; editor().history.CanUndo(); ++count)
            editor().history.UndoCommand();
        return count;
    }
};

const QByteArray Sample =
    "<?xml version=\"1.0\"?>\r\n<!-- top -->\r\n<r>\r\n  <a k='v' 日='本'>one<b/>two"
    "<![CDATA[raw]]></a>\r\n  <a>three</a>\r\n  <!-- in -->\r\n</r>\r\n";

TEST_F(PaneSourceTest, LeadsFromTheCaretToTheItem) {
    open(Sample);
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    const QString document = tree().nodes().Item(1).Text();
    EXPECT_EQ(itemFrom(document, "k='v'"), u"r/a/k=\"v\"");
    EXPECT_EQ(itemFrom(document, "本'", 3), u"r/a/日=\"本\"");
    EXPECT_EQ(itemFrom(document, "a k"), u"r/a");
    EXPECT_EQ(itemFrom(document, "one"), u"r/a/one");
    EXPECT_EQ(itemFrom(document, "<b/>", 2), u"r/a/b");
    EXPECT_EQ(itemFrom(document, "two", 3), u"r/a/two");
    EXPECT_EQ(itemFrom(document, "raw"), u"r/a/raw");
    EXPECT_EQ(itemFrom(document, "three"), u"r/a/three");
    EXPECT_EQ(itemFrom(document, " top "), u" top ");
    EXPECT_EQ(itemFrom(document, " in "), u"r/ in ");
    EXPECT_EQ(itemFrom(document, "</r>", 3), u"r");
    EXPECT_EQ(itemFrom(document, "<?xml", 3).left(3), u"xml");
    EXPECT_EQ(itemFrom(QStringLiteral("r"), "three"), u"r/a/three");
    EXPECT_EQ(itemFrom(QStringLiteral("a"), "k='v'"), u"r/a/k=\"v\"");
    EXPECT_EQ(itemFrom(QStringLiteral("three"), "three"), u"r/a/three") << "is selected already";
}

TEST_F(PaneSourceTest, LeadsBackToThePlace) {
    open(Sample);
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    const QString document = tree().nodes().Item(1).Text();
    const auto back = [&](const QString &caption) {
        select(caption);
        EXPECT_TRUE(source().goToPlace());
        return selected().section(u'/', 1) + u'|' + txtEdit().selected + u'|' +
               QString::fromUtf8(txtEdit().utf8().mid(txtEdit().caretAt, 5));
    };
    EXPECT_EQ(back("a"), u"r|a| k='v");
    EXPECT_EQ(back(QStringLiteral("日=\"本\"")), u"r/a|日|='本");
    EXPECT_EQ(back("two"), u"r/a||two<!");
    EXPECT_EQ(back("three"), u"r/a||three");
    // To where it was left from, and not only to the parent.
    itemFrom(document, "three");
    EXPECT_EQ(back("three"), u"||three");
    itemFrom("r", "two");
    EXPECT_EQ(back("two"), u"r||two<!");
    select(document);
    EXPECT_TRUE(source().goToPlace());
    EXPECT_EQ(selected(), document);
}

TEST_F(PaneSourceTest, AsksBeforeTextThatDoesNotParseGoes) {
    open(Sample);
    select("r");
    type("<r><broken></r>");
    dialogs.answerMessage(ui::message_answer::No);
    EXPECT_FALSE(source().goToItem());
    EXPECT_EQ(txtEdit().utf8(), "<r><broken></r>");
    dialogs.answerMessage(ui::message_answer::Yes);
    EXPECT_TRUE(source().goToItem());
    EXPECT_EQ(selected().section(u'/', 1), u"r");
    EXPECT_TRUE(txtEdit().utf8().contains("three"));
}

TEST_F(PaneSourceTest, RenamesBothTagsInOneStep) {
    open(Sample);
    select("r");
    const QByteArray before = xml();
    put("<a>three", 6);
    dialogs.answerInput("新");
    source().mnuPaneRenameTags_Click();
    EXPECT_EQ(dialogs.presentTexts, std::vector<QString>{QStringLiteral("a")});
    EXPECT_EQ(xml(), QByteArray(before).replace("<a>three</a>", "<新>three</新>"));
    EXPECT_EQ(states(), 1);
    EXPECT_EQ(xml(), before);

    const auto refused = [&](const QString &answer) {
        select("r");
        put("<a>three", 6);
        dialogs.answerInput(answer);
        EXPECT_THROW(source().mnuPaneRenameTags_Click(), runtime::Error) << answer.toStdString();
        EXPECT_EQ(xml(), before);
    };
    refused("1a");
    refused("a b");
    dialogs.answerInput("");
    put("<a>three", 6);
    source().mnuPaneRenameTags_Click();
    EXPECT_EQ(xml(), before) << "cancelled";
    select("b");
    put("b", 1);
    dialogs.answerInput("c");
    source().mnuPaneRenameTags_Click();
    EXPECT_EQ(xml(), QByteArray(before).replace("<b/>", "<c/>"));

    editor().options.viewLock = true;
    select("r");
    put("<a>three", 6);
    source().mnuPaneRenameTags_Click();
    EXPECT_EQ(status(), texts::NamesAreLocked);
    editor().options.viewLock = false;
    select("three");
    source().mnuPaneRenameTags_Click();
    EXPECT_EQ(status(), texts::NoTagsHere);
}

} // namespace

} // namespace quillon::source
