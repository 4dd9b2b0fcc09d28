#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"
#include "tests/support/patience.h"

#include <QRegularExpression>
#include <QTest>

namespace quillon::test {

namespace {

class PreviewTest : public HeadlessEditor {
protected:
    preview::Preview &preview() { return editor().preview; }
    QString previewFile(const QString &extension) {
        return QString::fromUtf8(read("Temp/preview." + extension));
    }
};

constexpr auto Sample =
    "<?xml version='1.0'?><!--c--><doc>text<![CDATA[cd]]><a><b 名='値'/></a></doc>";

TEST_F(PreviewTest, AnAttributePreviewsItsElement) {
    open(Sample);
    select("名=\"値\"");
    preview().mnuToolPreviewSel_Click();
    EXPECT_FALSE(preview().previewsWhole());
    EXPECT_TRUE(previewFile("htm").contains("名"));
    EXPECT_FALSE(previewFile("htm").contains(">doc<"));
    const items::TreeItem before = tree().SelectedItem();
    preview().m_doc_onclick("1.1");
    EXPECT_EQ(tree().SelectedItem(), before) << "clicks in the preview of a node do nothing";
}

TEST_F(PreviewTest, OneThatWasStoppedHasChangedNothing) {
    open(Sample);
    preview().mnuToolPreview_Click();
    select("a");
    window->longWork.isStopWanted = true;
    preview().mnuToolPreviewSel_Click();
    EXPECT_TRUE(preview().previewsWhole());
    EXPECT_FALSE(status().isEmpty());
}

TEST_F(PreviewTest, AChosenStylesheetStaysInForce) {
    open(Sample);
    const QByteArray head = "<xsl:stylesheet version='1.0' "
                            "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>";
    dialogs.answerFile({write("own.xsl", head + "<xsl:template match='/'><out><xsl:value-of "
                                                "select='//a/b/@*'/></out></xsl:template>"
                                                "</xsl:stylesheet>"),
                        0});
    preview().mnuToolSelXSL_Click();
    EXPECT_EQ(dialogs.openRequests.back().title, "プレビュー用XSLファイルの選択");
    EXPECT_EQ(dialogs.openRequests.back().flags, 4);
    EXPECT_TRUE(QFile::exists(path("Temp/own.xsl")));
    EXPECT_TRUE(previewFile("xml").contains("<out>値</out>"));
    preview().mnuToolPrevHTML_Click(true);
    EXPECT_TRUE(previewFile("htm").contains("<out>値</out>"));
    // A single node is always shown by the built-in one.
    select("a");
    preview().mnuToolPreviewSel_Click();
    EXPECT_TRUE(previewFile("htm").contains("<html", Qt::CaseInsensitive));
    // One that cannot be carried out is told and leaves the preview.
    const QString kept = previewFile("htm");
    write("Temp/own.xsl", head + "<xsl:template match='/'><xsl:nonsense/></xsl:template>");
    dialogs.answerMessage(ui::message_answer::Ok);
    preview().mnuToolPreview_Click();
    EXPECT_TRUE(dialogs.messages.back().text.startsWith("プレビューを表示できません。\r\n"));
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_EQ(previewFile("htm"), kept);
    QFile::remove(path("Temp/own.xsl"));
    preview().mnuToolPreview_Click();
    EXPECT_TRUE(previewFile("htm").contains("1.3.3.1")) << "falls back to the built-in one";
}

TEST_F(PreviewTest, APageIsOfferedTheStylesheetsOfItsOwnDocumentOnly) {
    for (const QString name : {"one", "two"}) {
        write(name + ".css", "r {}");
        open("<?xml-stylesheet href='" + name.toUtf8() + ".css'?><r/>", name + ".xml");
        preview().mnuToolPreview_Click();
        EXPECT_EQ(window->ie.files, QStringList(name + ".css"));
    }
}

TEST_F(PreviewTest, AnEmptyDocumentHasAnEmptyPreview) {
    editor().commands.mnuFileNew_Click();
    QCoreApplication::processEvents();
    preview().mnuToolPreview_Click();
    EXPECT_TRUE(previewFile("htm").contains("<html", Qt::CaseInsensitive));
}

/// Some thousands of elements in as many others, more nodes than are shown unasked.
QByteArray largeDocument() {
    QByteArray many = "<r>\n";
    for (int i = 0; i < 30'000; ++i)
        many += "<e n='" + QByteArray::number(i) + "'><c/>t" + QByteArray::number(i) + "</e>\n";
    return many + "</r>";
}

TEST_F(PreviewTest, ALargeDocumentIsShownAroundTheSelectedNode) {
    open(largeDocument());
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->ie.pages.size() == 1; }, Patience));
    const QString start = previewFile("htm");
    EXPECT_TRUE(start.contains(">t7<"));
    EXPECT_FALSE(start.contains(">t20000<"));
    EXPECT_EQ(start.count("class=\"e more\""), 1);
    // What is there is brought into sight, and everything else shown.
    select("t7");
    EXPECT_EQ(window->ie.revealed.size(), 2);
    EXPECT_EQ(window->ie.pages.size(), 1);
    const xml::Node element = editor().state.m_DOM.documentElement().childNodes().item(20'000);
    editor().selection.ShowNode(editor().builder.itemOf(element), true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->ie.pages.size() == 2; }, Patience));
    const QString around = previewFile("htm");
    // Ids and counts are those of the whole document.
    EXPECT_TRUE(around.contains(">t20000<") && around.contains("id=\"1.1.20001.1\""));
    EXPECT_EQ(around.count("class=\"e more\""), 2);
    EXPECT_EQ(window->ie.revealed.back().front(), element.number());
    EXPECT_FALSE(around.contains(">t7<"));
    // It follows what is typed.
    editor().selection.ShowNode(editor().builder.itemOf(element.lastChild()), true);
    type("typed");
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->ie.pages.size() == 3; }, Patience));
    EXPECT_TRUE(previewFile("htm").contains(">typed<"));
    EXPECT_TRUE(previewFile("htm").contains("id=\"1.1.20001.1\""));
    // More is taken into the page, in place of the line that asks for it; others ask in vain.
    static const QRegularExpression line("class=\"e more\" data-node=\"(\\d+)\"");
    const quint32 first = line.match(previewFile("htm")).captured(1).toUInt();
    preview().showMore(first, preview::ShownPart::End::Last);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->ie.additions.size() == 1; }, Patience));
    EXPECT_TRUE(window->ie.additions[0].contains("data-last="));
    EXPECT_FALSE(window->ie.additions[0].contains(">t0<"));
    preview().mnuToolPreview_Click();
    EXPECT_TRUE(previewFile("htm").contains(">t7<")) << "the whole, when asked for";
    const qsizetype pages = window->ie.pages.size();
    preview().showMore(first, preview::ShownPart::End::Last);
    EXPECT_FALSE(QTest::qWaitFor([&] { return window->ie.additions.size() > 1; }, 0));
    EXPECT_EQ(window->ie.pages.size(), pages);
}

TEST_F(PreviewTest, ADeepDocumentWaitsForTheKey) {
    for (const auto &[levels, isShown] : {std::pair(500, true), std::pair(501, false)}) {
        open(QByteArray("<d>").repeated(levels) + QByteArray("</d>").repeated(levels));
        const qsizetype pages = window->ie.pages.size();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->ie.pages.size() > pages; }, Patience));
        EXPECT_EQ(previewFile("htm").contains("F5"), !isShown) << levels;
    }
}

} // namespace

} // namespace quillon::test
