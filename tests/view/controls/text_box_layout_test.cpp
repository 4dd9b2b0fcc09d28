#include "tests/view/controls/text_box_fixture.h"

#include <set>

namespace quillon::test {

namespace {

TEST_F(TextBoxTest, FoldsElements) {
    const auto seen = [&] {
        QByteArray lines;
        for (long line = 0; line < ask(TextBox::SCI_GETLINECOUNT); ++line)
            lines += ask(TextBox::SCI_GETLINEVISIBLE, static_cast<unsigned long>(line)) ? '1' : '0';
        return lines;
    };
    box_.setText(QStringLiteral("plain\n<a>\n</a>"));
    EXPECT_FALSE(box_.canFold());
    box_.setLanguage(TextBox::Language::Xml);
    box_.setText(QStringLiteral(
        "<r>\n <a\n  k='1'>\n  <b>\n   x\n  </b>\n </a>\n <!-- \n -->\n <c/>\n</r>\n"));
    EXPECT_TRUE(box_.canFold());
    box_.selectBytes(box_.utf8().indexOf('x'), 0);
    box_.foldAtCaret();
    EXPECT_EQ(seen(), "111100111111");
    box_.foldAtCaret();
    EXPECT_EQ(seen(), "111000011111") << "the one around it, whose tag ends on the third line";
    EXPECT_EQ(box_.caret(), 10);
    box_.unfoldAtCaret();
    EXPECT_EQ(seen(), "111100111111");
    box_.unfoldAll();
    EXPECT_EQ(seen(), "111111111111");
    box_.foldAll();
    EXPECT_EQ(seen(), "111000010111") << "all that is in the outermost element";
    // The caret is never where nothing is to be seen.
    box_.selectBytes(box_.utf8().indexOf('x'), 1);
    EXPECT_EQ(box_.selectedText(), u"x");
    EXPECT_TRUE(ask(TextBox::SCI_GETLINEVISIBLE, 4));
    box_.setText(QByteArray("<r>\n") + QByteArray(4'000'000, ' ') + "\n</r>");
    EXPECT_FALSE(box_.canFold());
    box_.foldAll();
    EXPECT_EQ(seen(), "111");
}

TEST_F(TextBoxTest, LongTextsHaveColoursOnlyInSight) {
    // By the indicator that gives it its colour; 0 for none.
    const auto indicatorAt = [&](qsizetype at) {
        long found = 0;
        for (unsigned long number = 12; number <= 18; ++number) {
            if (box_.SendScintilla(TextBox::SCI_INDICATORVALUEAT, number, long(at)) != 0)
                found = box_.SendScintilla(TextBox::SCI_INDICGETFORE, number);
        }
        return found;
    };
    const QByteArray line = "<要素 属性='値'>&amp;字</要素><!-- 注\n 釈 --><?i d?><![CDATA[生]]>\n";
    const QByteArray text = "<r>" + line.repeated(60'000) + "</r>";
    box_.setLanguage(TextBox::Language::Xml);
    box_.setText(QByteArray("<short/>"));
    box_.setKeepsUndo(true);
    box_.setByteCharacters(0x10FE00);
    box_.setText(text);
    ASSERT_EQ(changes(), 2);
    char shown[8] = {};
    box_.SendScintilla(TextBox::SCI_GETREPRESENTATION, "\U0010FEA4", shown);
    EXPECT_STREQ(shown, "A4");
    box_.grab();
    EXPECT_EQ(box_.SendScintilla(TextBox::SCI_GETDOCUMENTOPTIONS) & 1, 1) << "no styles";
    const auto at = [&](const char *what, qsizetype from) { return text.indexOf(what, from); };
    // From the top, and from the middle of a comment.
    const qsizetype middle = text.indexOf("釈", text.size() / 2);
    EXPECT_EQ(indicatorAt(at("要素", middle)), 0) << "not in sight yet";
    for (const qsizetype place : {qsizetype(0), middle}) {
        box_.selectBytes(place, 0);
        box_.SendScintilla(TextBox::SCI_SETFIRSTVISIBLELINE,
                           static_cast<unsigned long>(ask(TextBox::SCI_LINEFROMPOSITION,
                                                          static_cast<unsigned long>(place))));
        box_.grab();
        std::set<long> colours{indicatorAt(at("字", place))};
        EXPECT_EQ(*colours.begin(), 0);
        for (const char *part : {"要素", "属性", "値", "amp", "釈", "?i", "生"})
            EXPECT_TRUE(colours.insert(indicatorAt(at(part, place))).second) << part << place;
    }
    EXPECT_EQ(indicatorAt(at("要素", 0)), 0) << "not in sight any more";

    press(Qt::Key_A);
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(box_.utf8().size(), text.size() + 1);
    box_.undo();
    EXPECT_TRUE(box_.utf8() == text);
    box_.selectBytes(0, 0);
    EXPECT_EQ(box_.find(QStringLiteral("</r>"), TextBox::Direction::Forward, true),
              TextBox::Found::There);
    EXPECT_EQ(box_.selectedText(), u"</r>");
    box_.setMarks({{.at = 3, .length = 7, .reason = QStringLiteral("理由")}});
    box_.selectBytes(4, 0);
    EXPECT_EQ(box_.marksAtCaret().size(), 1u);

    box_.setLanguage(TextBox::Language::Plain);
    box_.grab();
    EXPECT_EQ(indicatorAt(at("要素", 0)), 0) << "plain text has no colours";
    box_.setLanguage(TextBox::Language::Xml);
    box_.setText(QByteArray("<short/>"));
    box_.grab();
    EXPECT_EQ(box_.SendScintilla(TextBox::SCI_GETDOCUMENTOPTIONS) & 1, 0);
    EXPECT_EQ(colourAt("short"), 0x000099);
    EXPECT_EQ(box_.caret(), 0);
}

TEST_F(TextBoxTest, FoldsAloneWhatItsTagsHold) {
    // What folds after typing is what would fold if the text had just been set.
    box_.setLanguage(TextBox::Language::Xml);
    const auto levels = [&] {
        box_.SendScintilla(TextBox::SCI_COLOURISE, 0ul, -1l);
        std::vector<long> found;
        for (long line = 0; line < ask(TextBox::SCI_GETLINECOUNT); ++line)
            found.push_back(ask(TextBox::SCI_GETFOLDLEVEL, static_cast<unsigned long>(line)));
        return found;
    };
    box_.setText(QStringLiteral("<r>\n<a>\n<b/>\n</a>\n<c>\n</c>\n</r>"));
    levels();
    box_.selectBytes(8, 0);
    for (const char c : {'\n', '<', 'd', '>', '\n', '<', '/', 'd', '>', '\n'}) {
        c == '\n' ? press(Qt::Key_Return) : QTest::keyClick(&box_, c);
        const std::vector<long> typed = levels();
        const QByteArray text = box_.utf8();
        const qsizetype caret = box_.caret();
        box_.setText(QByteArray());
        box_.setText(text);
        EXPECT_EQ(typed, levels()) << text.constData();
        box_.selectBytes(caret, 0);
    }
}

TEST_F(TextBoxTest, NumbersItsLinesAsItIsTold) {
    const auto shown = [&](unsigned long line) {
        QByteArray text(ask(TextBox::SCI_MARGINGETTEXT, line), '\0');
        if (!text.isEmpty())
            box_.SendScintilla(TextBox::SCI_MARGINGETTEXT, line, text.data());
        return text;
    };
    box_.setText(QByteArray(300, '\n'));
    box_.grab();
    EXPECT_EQ(ask(TextBox::SCI_GETMARGINTYPEN, 0), TextBox::SC_MARGIN_NUMBER);
    box_.setFirstLineNumber(1000);
    EXPECT_EQ(shown(0), "1000");
    EXPECT_EQ(shown(4), "1004");
    EXPECT_EQ(shown(250), "") << "not in sight";
    press(Qt::Key_Return);
    box_.grab();
    EXPECT_EQ(shown(0), "1000");
    EXPECT_EQ(shown(1), "1001");
    press(Qt::Key_End, Qt::ControlModifier);
    box_.grab();
    EXPECT_EQ(shown(301), "1301");
    box_.setFirstLineNumber(std::nullopt);
    EXPECT_EQ(shown(301), "");
    box_.setFirstLineNumber(1);
    EXPECT_EQ(ask(TextBox::SCI_GETMARGINTYPEN, 0), TextBox::SC_MARGIN_NUMBER);
}

TEST_F(TextBoxTest, WrapsAndShowsBlanks) {
    box_.setLanguage(TextBox::Language::Xml);
    box_.setWrapped(true);
    box_.setText(QByteArray("<r>") + QByteArray("long text ").repeated(100) + "</r>\n");
    box_.grab();
    EXPECT_GT(ask(TextBox::SCI_WRAPCOUNT, 0), 3);
    box_.setText(QByteArray("<r>") + QByteArray("long text ").repeated(500'000) + "</r>\n");
    EXPECT_EQ(ask(TextBox::SCI_GETWRAPMODE), TextBox::SC_WRAP_NONE);
    box_.setText(QByteArray("<r>short</r>"));
    EXPECT_EQ(ask(TextBox::SCI_GETWRAPMODE), TextBox::SC_WRAP_CHAR);
    box_.setWrapped(false);

    const auto boxed = [&](const char *what) {
        const auto at = static_cast<unsigned long>(box_.utf8().indexOf(what));
        return (ask(TextBox::SCI_INDICATORALLONFOR, at) & (1 << 10)) != 0;
    };
    box_.setText(QStringLiteral("a 日　本"));
    box_.grab();
    EXPECT_FALSE(boxed("\u3000"));
    box_.setBlanksShown(true);
    EXPECT_TRUE(boxed("\u3000"));
    EXPECT_FALSE(boxed("日"));
    EXPECT_FALSE(boxed("本"));
    EXPECT_EQ(ask(TextBox::SCI_GETVIEWWS), TextBox::SCWS_VISIBLEALWAYS);
    box_.setBlanksShown(false);
    EXPECT_FALSE(boxed("\u3000"));
}

} // namespace

} // namespace quillon::test
