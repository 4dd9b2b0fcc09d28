#include "platform/runtime/error.h"
#include "tests/support/editor_window.h"
#include "tests/support/work_at_once.h"
#include "tools/page_settings.h"

#include <QPainter>
#include <QRegularExpression>

namespace quillon::test {

namespace {

using tools::TreePages;

class TreePagesTest : public EditorWindow {
protected:
    /// What the pages of the tree of a document say, printed by the command.
    QString printed(const QByteArray &document) {
        open(document);
        tree().nodes().setExpandedSubtree(tree().nodes().Item(1), false);
        printer.answer(path("tree.pdf"));
        form->actions().action(u"mnuFilePrintTree")->trigger();
        const QString command =
            "pdftotext -layout '" + path("tree.pdf") + "' '" + path("tree.txt") + "'";
        EXPECT_EQ(::system(command.toUtf8().constData()), 0);
        return QString::fromUtf8(read("tree.txt"));
    }

    /// In twips, so wide and high as some paper.
    const QSizeF page{9000, 14000};
};

TEST_F(TreePagesTest, EveryItemIsPrintedWithItsBranches) {
    EXPECT_EQ(TreePages::connector({false}, 0), "");
    EXPECT_EQ(TreePages::connector({false, true}, 1), " |-");
    EXPECT_EQ(TreePages::connector({false, false}, 1), " +-");
    EXPECT_EQ(TreePages::connector({false, false, true}, 2), "    |-");
    EXPECT_EQ(TreePages::connector({false, true, false, false}, 3), " |     +-");
    QByteArray many = "<根 a='1' b='2'>";
    for (int i = 0; i < 200; ++i)
        many += "<leaf/>";
    printer.answer("");
    form->actions().action(u"mnuFilePrintTree")->trigger();
    const QString text = printed(many + "</根>");
    EXPECT_EQ(text.count("leaf"), 200);
    EXPECT_EQ(text.count("|-"), 2 + 199);
    EXPECT_EQ(text.count("+-"), 2);
    EXPECT_EQ(text.count("根"), 1);
    // The foot of every page.
    const auto pages = int(text.count('\f'));
    EXPECT_GE(pages, 2);
    EXPECT_EQ(text.count("doc.xml"), pages);
    for (int number = 1; number <= pages; ++number)
        EXPECT_TRUE(
            text.contains(QRegularExpression(QString("%1 ?/ ?%2\\n").arg(number).arg(pages))));
}

TEST_F(TreePagesTest, LongCaptionsAreWrappedAndThenCut) {
    const QString word = "三つに折り返す ";
    const QString text = printed("<r><a>" + word.repeated(15).toUtf8() + "</a><b>" +
                                 word.repeated(60).toUtf8() + "</b></r>");
    const auto cut = int(text.count("…"));
    EXPECT_EQ(cut, 1);
    const auto words = text.count("三つに折り返す");
    EXPECT_GT(words, 15 + 10);
    EXPECT_LT(words, 15 + 40);
    // The branch to b goes on beside the lines of the text.
    EXPECT_GE(
        text.count(QRegularExpression("^ +\\| +[^-+| ]", QRegularExpression::MultilineOption)), 1);
}

TEST_F(TreePagesTest, DeepItemsKeepRoomForTheirCaptions) {
    const QByteArray out = QByteArray("<deep>").repeated(300);
    const QByteArray back = QByteArray("</deep>").repeated(300);
    const QString text = printed(out + back);
    EXPECT_EQ(text.count("deep"), 300);
    EXPECT_TRUE(text.contains(QRegularExpression("301… +\\+- *deep"))) << "by its level";
}

TEST_F(TreePagesTest, PagesAreTheSameInAnyOrder) {
    QByteArray many = "<r>";
    for (int i = 0; i < 300; ++i)
        many += "<a><b/></a>";
    open(many + "</r>");
    TreePages pages(tree().nodes(), {QFont(), tvw().imageList(), "doc.xml", "today"});
    ASSERT_TRUE(pages.layOut(page, {}));
    ASSERT_GE(pages.count(), 5);
    const auto picture = [&](int number) {
        QImage image(450, 700, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(0.05, 0.05);
        pages.paint(painter, number);
        return image;
    };
    const QImage third = picture(2);
    EXPECT_NE(picture(3), third);
    EXPECT_EQ(picture(2), third);
    // None, once it was stopped.
    EXPECT_FALSE(pages.layOut(page, [](double) { return false; }));
    EXPECT_EQ(pages.count(), 0);
}

TEST_F(TreePagesTest, AStoppedPrintLeavesNoFile) {
    open("<r/>");
    WorkAtOnce work;
    tools::TreePrinting printing(state(), tree(), work);
    for (const bool isStopped : {true, false}) {
        work.isStopWanted = isStopped;
        printer.answer(path("tree.pdf"));
        printing.mnuFilePrintTree_Click();
        EXPECT_EQ(QFile::exists(path("tree.pdf")), !isStopped);
    }
    printer.answer(path("missing/tree.pdf"));
    EXPECT_THROW(printing.mnuFilePrintTree_Click(), runtime::Error);
}

TEST_F(TreePagesTest, ThePaperIsKept) {
    const QPageLayout wide(QPageSize(QPageSize::JisB5), QPageLayout::Landscape,
                           QMarginsF(10, 20.5, 30, 40), QPageLayout::Millimeter);
    tools::keepPaper(wide, editor().settings);
    EXPECT_EQ(tools::paperOf(editor().settings), wide);
    printer.answer(path("tree.pdf"));
    open("<r/>");
    form->actions().action(u"mnuFilePrintTree")->trigger();
    EXPECT_TRUE(read("tree.pdf").contains("MediaBox [0 0 729")) << "wider than high";
    // What somebody else has written there leaves room for something.
    editor().settings.paper = "papyrus";
    editor().settings.marginLeft = 32000;
    const QPageLayout usual = tools::paperOf(editor().settings);
    EXPECT_EQ(usual.pageSize(), QPageSize(QPageSize::A4));
    EXPECT_EQ(usual.margins(), QMarginsF());
}

} // namespace

} // namespace quillon::test
