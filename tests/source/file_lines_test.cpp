#include "source/file_lines.h"
#include "tests/support/headless_editor.h"
#include "tests/support/patience.h"

#include <QTest>

namespace quillon::source {

namespace {

class FileLinesTest : public test::HeadlessEditor {
protected:
    FileLinesTest() {
        QObject::connect(&editor().fileLines, &FileLines::firstLineChanged, &editor(),
                         [this](std::optional<qsizetype> number) {
                             ++told;
                             first = number;
                         });
    }
    /// The line that the pane's text begins on when all is counted; 0 for none.
    qsizetype line(const QString &caption) {
        told = 0;
        select(caption);
        return settled();
    }
    qsizetype settled() {
        // That it is not known yet is told ahead of the answer.
        EXPECT_TRUE(QTest::qWaitFor([this] { return first || told > 1; }, test::Patience));
        return first.value_or(0);
    }

    std::optional<qsizetype> first;
    int told = 0;
};

const QByteArray Sample =
    "<?xml version=\"1.0\"?>\r\n<!--\r\n-->\r\n<r>\r\n  <a k='v'\r\n     l='w'>x\r\ny"
    "</a>\r\n  <b/><c>&#10;z</c>\r\n</r>\r\n";

TEST_F(FileLinesTest, AreThoseOfTheFile) {
    open(Sample);
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    editor().fileLines.setOn(true);
    EXPECT_EQ(line(tree().nodes().Item(1).Text()), 1);
    EXPECT_EQ(line("r"), 4);
    EXPECT_EQ(line("a"), 5);
    EXPECT_EQ(line("k=\"v\""), 5);
    EXPECT_EQ(line("l=\"w\""), 6);
    EXPECT_EQ(line("x\ny"), 6);
    EXPECT_EQ(line("b"), 8);
    EXPECT_EQ(line("\nz"), 0) << "its lines are not those of the file";
}

TEST_F(FileLinesTest, FollowEditsElsewhereAndNotThoseInThePane) {
    open(Sample);
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    EXPECT_EQ(line("b"), 1) << "switched off, the text's own";
    told = 0;
    editor().fileLines.setOn(true);
    EXPECT_EQ(settled(), 8);
    told = 0;
    type("<b>\n\n</b>");
    EXPECT_EQ(told, 0) << "typing waits for nothing";
    EXPECT_EQ(line("c"), 10);
    told = 0;
    editor().history.UndoCommand();
    EXPECT_FALSE(first) << "not known yet";
    told = 1;
    EXPECT_EQ(settled(), 4) << "of the element that is shown then";
    EXPECT_EQ(line("c"), 8);
    editor().fileLines.setOn(false);
    EXPECT_EQ(first, 1);
}

} // namespace

} // namespace quillon::source
