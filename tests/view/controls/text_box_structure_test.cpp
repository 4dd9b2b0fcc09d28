#include "tests/view/controls/text_box_fixture.h"

#include <QShortcut>

namespace quillon::test {

namespace {

using ui::TextPair;

class TextBoxStructure : public TextBoxTest {
protected:
    TextBoxStructure() {
        ui::TextStructure structure;
        structure.pairAt = [this](QByteArrayView, qsizetype caret, TextBox::Language) {
            return pairs.value(caret);
        };
        structure.closing = [this](QByteArrayView text, qsizetype caret) {
            EXPECT_TRUE(text.first(caret).endsWith("</"));
            return closing;
        };
        box_.setStructure(structure);
        box_.setLanguage(TextBox::Language::Xml);
    }
    /// The text with what is marked as a pair in brackets.
    QByteArray marked() {
        const QByteArray text = box_.utf8();
        QByteArray result;
        for (qsizetype at = 0; at < text.size(); ++at) {
            const auto place = static_cast<unsigned long>(at);
            const bool isMarked = (ask(TextBox::SCI_INDICATORALLONFOR, place) & (1 << 11)) != 0;
            result += isMarked ? '[' + text.mid(at, 1) + ']' : text.mid(at, 1);
        }
        return result;
    }

    QHash<qsizetype, std::optional<TextPair>> pairs;
    QByteArray closing;
};

TEST_F(TextBoxStructure, MarksThePairAtTheCaretAndGoesToThePartner) {
    pairs.insert(1, TextPair{{1, 1}, {6, 1}});
    pairs.insert(6, TextPair{{6, 1}, {1, 1}});
    box_.setText(QStringLiteral("<a>b</a>"));
    press(Qt::Key_Right);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == "<[a]>b</[a]>"; }, Patience));
    EXPECT_TRUE(box_.goToPartner());
    EXPECT_EQ(box_.caret(), 6);
    EXPECT_TRUE(box_.goToPartner());
    EXPECT_EQ(box_.caret(), 1);
    box_.selectBytes(3, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == "<a>b</a>"; }, Patience));
    EXPECT_FALSE(box_.goToPartner());
    EXPECT_EQ(box_.caret(), 3);
    EXPECT_EQ(changes(), 1) << "of setText()";
    box_.selectBytes(1, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == "<[a]>b</[a]>"; }, Patience));
    QTest::keyClick(&box_, 'x');
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == "<xa>b</a>"; }, Patience));
}

TEST_F(TextBoxStructure, ClosesAnElementAndTakesThatBack) {
    int undone = 0;
    QShortcut undo(QKeySequence(QStringLiteral("Ctrl+Z")), &window_, [&] { ++undone; });
    const auto typeEnd = [&] {
        box_.setText(QStringLiteral("<a>b"));
        box_.selectBytes(4, 0);
        QTest::keyClick(&box_, '<');
        changes();
        QTest::keyClick(&box_, '/');
    };
    closing = "a>";
    typeEnd();
    EXPECT_EQ(box_.utf8(), "<a>b</a>");
    EXPECT_EQ(box_.caret(), 8);
    EXPECT_EQ(changes(), 1) << "with what is typed";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.utf8(), "<a>b</");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(undone, 0);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.utf8(), "<a>b</");
    EXPECT_EQ(undone, 1) << "the window's from then on";
    typeEnd();
    QTest::keyClick(&box_, 'x');
    EXPECT_FALSE(box_.takeBackClosing());
    typeEnd();
    press(Qt::Key_Left);
    EXPECT_FALSE(box_.takeBackClosing());
    EXPECT_EQ(box_.utf8(), "<a>b</a>");

    closing.clear();
    typeEnd();
    EXPECT_EQ(box_.utf8(), "<a>b</");
    closing = "a>";
    box_.setClosesElements(false);
    typeEnd();
    EXPECT_EQ(box_.utf8(), "<a>b</");
    box_.setClosesElements(true);
    box_.setLanguage(TextBox::Language::Plain);
    typeEnd();
    EXPECT_EQ(box_.utf8(), "<a>b</");
}

TEST_F(TextBoxStructure, IndentsSelectedLines) {
    const auto indented = [&](const char *text, qsizetype at, qsizetype length, bool inward) {
        box_.setText(QByteArray(text));
        box_.selectBytes(at, length);
        changes();
        press(inward ? Qt::Key_Tab : Qt::Key_Backtab, inward ? Qt::NoModifier : Qt::ShiftModifier);
        EXPECT_TRUE(box_.hasFocus());
        return box_.utf8();
    };
    EXPECT_EQ(indented("<r>\n<a>\n\n</a>\n</r>", 5, 7, true), "<r>\n  <a>\n\n  </a>\n</r>");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(box_.selectedText(), u"  <a>\n\n  </a>") << "to go on with";
    press(Qt::Key_Tab);
    EXPECT_EQ(box_.utf8(), "<r>\n    <a>\n\n    </a>\n</r>");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(box_.utf8(), "<r>\n<a>\n\n</a>\n</r>");
    EXPECT_EQ(changes(), 3) << "the last one changed nothing";
    // As deep a step as the text has, whatever the element's own depth is.
    EXPECT_EQ(indented("<r>\n        <a/>\n           <b/>\n</r>", 4, 14, true),
              "<r>\n           <a/>\n              <b/>\n</r>");
    EXPECT_EQ(indented("<r>\n\t<a/>\n\t<b/>\n</r>", 4, 12, true), "<r>\n\t\t<a/>\n\t\t<b/>\n</r>");
    EXPECT_EQ(indented("<r>\n\t<a/>\n\t<b/>\n</r>", 4, 12, false), "<r>\n<a/>\n<b/>\n</r>");
    // Within a line, and in a locked box, these keys go to the next box.
    for (const bool locked : {false, true}) {
        box_.selectBytes(4, locked ? 10 : 2);
        box_.setLocked(locked);
        const QByteArray text = box_.utf8();
        press(Qt::Key_Tab);
        EXPECT_TRUE(next_.hasFocus());
        EXPECT_EQ(box_.utf8(), text);
        box_.setFocus();
    }
}

} // namespace

} // namespace quillon::test
