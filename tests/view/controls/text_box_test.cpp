#include "tests/view/controls/text_box_fixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QTest>

#include <gtest/gtest.h>
#include <set>

namespace quillon::test {

namespace {

TEST_F(TextBoxTest, KeepsLfAndShowsCrLf) {
    box_.setText(QByteArray("a\r\nb\rc\nd\r\r\n"));
    EXPECT_EQ(box_.utf8(), "a\nb\nc\nd\n\n");
    EXPECT_EQ(box_.Text(), u"a\r\nb\r\nc\r\nd\r\n\r\n");
    box_.setText(QStringLiteral("日本語\n𠮷\n"));
    EXPECT_EQ(box_.Text(), u"日本語\r\n𠮷\r\n");
    box_.setText(QString());
    EXPECT_EQ(box_.Text(), u"");
}

TEST_F(TextBoxTest, CountsTheSelectionInItsText) {
    box_.setText(QStringLiteral("日本\n𠮷x\nend"));
    const QString text = box_.Text();
    for (const QString &part : {QStringLiteral("本\r\n𠮷"), QStringLiteral("𠮷"),
                                QStringLiteral("x\r\ne"), QStringLiteral("日"), text}) {
        select(text.indexOf(part), part.size());
        EXPECT_EQ(text.mid(box_.SelStart(), box_.SelLength()), part);
        box_.copy();
        EXPECT_EQ(clipboard_.text(), QString(part).remove(u'\r'));
    }
    select(-5, 1000);
    EXPECT_EQ(box_.SelStart(), 0);
    EXPECT_EQ(box_.SelLength(), text.size());
    box_.setSelStart(1000);
    EXPECT_EQ(box_.SelStart(), text.size());
    EXPECT_EQ(box_.SelLength(), 0);
    // Nothing selected leaves the clipboard alone.
    box_.copy();
    EXPECT_EQ(clipboard_.text(), QString(text).remove(u'\r'));
}

TEST_F(TextBoxTest, IsReplacedInSeveralPlacesAtOnce) {
    box_.setText(QStringLiteral("<日>本</日>"));
    box_.selectBytes(1, 3);
    EXPECT_EQ(box_.selectedText(), u"日");
    box_.selectBytes(5, 3);
    changes();
    box_.replace({{1, 3, "longer"}, {10, 3, "longer"}});
    EXPECT_EQ(box_.utf8(), "<longer>本</longer>");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(box_.selectedText(), u"本") << "stays with its text";
    EXPECT_EQ(box_.caret(), 11);
    box_.setLocked(true);
    box_.replace({{0, 1, "x"}});
    EXPECT_EQ(box_.utf8(), "<longer>本</longer>");
    box_.selectBytes(15, 1000);
    EXPECT_EQ(box_.selectedText(), u"nger>");
}

TEST_F(TextBoxTest, AnnouncesEachActionOnce) {
    box_.setLanguage(TextBox::Language::Xml);
    box_.setText(QStringLiteral("<a>one two</a>"));
    EXPECT_EQ(changes(), 1);
    box_.setText(QStringLiteral("<a>one two</a>"));
    box_.grab();
    EXPECT_EQ(changes(), 0);
    select(3, 3);
    QTest::keyClick(&box_, 'x');
    EXPECT_EQ(box_.utf8(), "<a>x two</a>");
    EXPECT_EQ(changes(), 1);
    clipboard_.setText(QStringLiteral("1\r\n2\r"));
    select(3, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.utf8(), "<a>1\n2\n two</a>");
    EXPECT_EQ(changes(), 1);
    select(0, 3);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard_.text(), u"<a>");
    EXPECT_EQ(changes(), 1);
    box_.selectAll();
    box_.paste();
    EXPECT_EQ(changes(), 1);
    press(Qt::Key_Return);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(box_.utf8(), "<a>\n\t");
    EXPECT_EQ(changes(), 2);
    press(Qt::Key_Left);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextBoxTest, TakesFinishedTextFromAnInputMethod) {
    box_.setText(QStringLiteral("a漢b"));
    select(1, 1);
    changes();
    compose(QStringLiteral("か"));
    compose(QStringLiteral("かん"));
    EXPECT_EQ(changes(), 0);
    compose(QString());
    EXPECT_EQ(box_.Text(), u"a漢b") << "given up";
    EXPECT_EQ(changes(), 0);
    compose(QStringLiteral("じ"));
    compose(QString(), QStringLiteral("字"));
    EXPECT_EQ(box_.Text(), u"a漢字b");
    EXPECT_EQ(changes(), 1);

    // The next word begins with the end of this one.
    QStringList seen;
    QObject::connect(&box_, &TextBox::Change, &window_, [&] { seen.append(box_.Text()); });
    compose(QStringLiteral("つぎ"), QStringLiteral("語"));
    compose(QString(), QStringLiteral("次"));
    EXPECT_EQ(seen, (QStringList{QStringLiteral("a漢字語b"), QStringLiteral("a漢字語次b")}));

    compose(QStringLiteral("み"));
    box_.setText(QStringLiteral("new"));
    compose(QString(), QStringLiteral("新"));
    EXPECT_EQ(box_.Text(), u"新new");
    EXPECT_FALSE(ask(TextBox::SCI_CANUNDO));
}

TEST_F(TextBoxTest, UndoesTypingWhereItKeepsThat) {
    box_.setKeepsUndo(true);
    box_.setText(QStringLiteral("<a>x</a>"));
    EXPECT_FALSE(box_.canUndo()) << "setting a text cannot be undone";
    box_.setSelStart(4);
    QTest::keyClick(&box_, 'y');
    compose(QStringLiteral("か"));
    EXPECT_TRUE(box_.isComposing());
    compose(QString(), QStringLiteral("漢"));
    changes();
    while (box_.canUndo())
        box_.undo();
    EXPECT_EQ(box_.Text(), u"<a>x</a>");
    EXPECT_GT(changes(), 0);
    while (box_.canRedo())
        box_.redo();
    EXPECT_EQ(box_.Text(), u"<a>xy漢</a>");
    box_.replace({{0, 0, "<?p?>"}, {3, 1, "z"}});
    box_.undo();
    EXPECT_EQ(box_.Text(), u"<a>xy漢</a>") << "in one step";
    select(3, 1);
    compose(QStringLiteral("み"));
    compose(QString());
    EXPECT_EQ(box_.Text(), u"<a>xy漢</a>") << "given up, what was selected is back";
    box_.setKeepsUndo(false);
    EXPECT_FALSE(box_.canUndo());
    QTest::keyClick(&box_, 'z');
    EXPECT_FALSE(box_.canUndo());
}

TEST_F(TextBoxTest, LockedCanBeReadButNotEdited) {
    box_.setText(QStringLiteral("text"));
    clipboard_.setText(QStringLiteral("other"));
    box_.setLocked(true);
    EXPECT_TRUE(box_.Locked());
    EXPECT_FALSE(box_.testAttribute(Qt::WA_InputMethodEnabled));
    changes();
    QTest::keyClick(&box_, 'x');
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_A, Qt::ControlModifier);
    box_.cut();
    compose(QStringLiteral("か"), QStringLiteral("か"));
    EXPECT_EQ(box_.Text(), u"text");
    EXPECT_EQ(changes(), 0);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard_.text(), u"text");
    box_.setText(QStringLiteral("from the program"));
    EXPECT_EQ(box_.Text(), u"from the program");
    EXPECT_EQ(changes(), 1);
    const long lockedPaper = ask(TextBox::SCI_STYLEGETBACK, TextBox::STYLE_DEFAULT);
    box_.setLocked(false);
    EXPECT_NE(ask(TextBox::SCI_STYLEGETBACK, TextBox::STYLE_DEFAULT), lockedPaper);
    QTest::keyClick(&box_, 'x');
    EXPECT_EQ(box_.Text(), u"xfrom the program");
}

TEST_F(TextBoxTest, SharesTheKeysWithItsWindow) {
    box_.setText(QStringLiteral("text"));
    QStringList ran;
    for (const char *key : {"Ctrl+Z", "Ctrl+Y", "F3", "Ctrl+A", "Ctrl+C"}) {
        auto *shortcut = new QShortcut(QKeySequence(QLatin1String(key)), &window_);
        QObject::connect(shortcut, &QShortcut::activated, &window_,
                         [&ran, key] { ran.append(QLatin1String(key)); });
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Y, Qt::ControlModifier);
    press(Qt::Key_F3);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(ran.join(u' '), u"Ctrl+Z Ctrl+Y F3");
    EXPECT_EQ(box_.SelLength(), 4);
    // No command that the box does not document.
    press(Qt::Key_D, Qt::ControlModifier);
    press(Qt::Key_E, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(box_.Text(), u"text");
    for (const bool locked : {false, true}) {
        box_.setLocked(locked);
        press(Qt::Key_Tab);
        EXPECT_TRUE(next_.hasFocus());
        box_.setFocus();
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(next_.hasFocus()) << "there are two";
        box_.setFocus();
    }
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), u"text") << "a locked box";
}

TEST_F(TextBoxTest, ColoursXmlAsFarAsItIsSeen) {
    box_.setLanguage(TextBox::Language::Xml);
    const QByteArray markup =
        "<?xml version=\"1.0\"?>\n<要素 属性='値'>文字&amp;<!-- 注 --><![CDATA[生]]>"
        "<script>a&gt;b</script></要素>\n";
    box_.setText(markup + QByteArray(3'000'000, '\n'));
    box_.grab();
    EXPECT_LT(ask(TextBox::SCI_GETENDSTYLED), 100'000);
    std::set<long> colours{colourAt("文字")};
    for (const char *part : {"要素", "属性", "値", "amp", "注", "生", "?>"})
        EXPECT_TRUE(colours.insert(colourAt(part)).second) << part;
    EXPECT_EQ(colourAt("要素"), 0x000099);
    EXPECT_EQ(colourAt("gt"), colourAt("amp")) << "in a script, too";
    box_.setLanguage(TextBox::Language::Plain);
    box_.grab();
    EXPECT_EQ(colourAt("要素"), colourAt("文字"));
}

TEST_F(TextBoxTest, UsesOneFontAndMakesRoomForLineNumbers) {
    const auto fontOf = [&](unsigned long style) {
        char name[128] = {};
        box_.SendScintilla(TextBox::SCI_STYLEGETFONT, style, name);
        return QString::fromUtf8(name);
    };
    box_.setTextFont(QStringLiteral("DejaVu Sans"), 13.5);
    for (const unsigned long style :
         {0ul, 1ul, static_cast<unsigned long>(TextBox::STYLE_LINENUMBER)}) {
        EXPECT_EQ(fontOf(style), u"DejaVu Sans");
        EXPECT_EQ(ask(TextBox::SCI_STYLEGETSIZEFRACTIONAL, style), 1350);
    }
    box_.setTextFont(QStringLiteral("of no machine"), 13.5);
    EXPECT_EQ(fontOf(0), u"Noto Sans Mono CJK JP");
    const auto width = [&] { return ask(TextBox::SCI_GETMARGINWIDTHN, 0); };
    const long two = width();
    box_.setText(QByteArray(998, '\n'));
    const long three = width();
    press(Qt::Key_Return);
    EXPECT_LT(two, three);
    EXPECT_LT(three, width());
    box_.setText(QString());
    EXPECT_EQ(width(), two);
}

TEST_F(TextBoxTest, TellsAssistiveTechnologyItsText) {
    box_.setAccessibleName(QStringLiteral("内容"));
    box_.setText(QStringLiteral("日本語"));
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&box_);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name), u"内容");
    EXPECT_EQ(interface->role(), QAccessible::EditableText);
    ASSERT_NE(interface->textInterface(), nullptr);
    EXPECT_EQ(interface->textInterface()->text(1, 3), u"本語");
}

TEST_F(TextBoxTest, OffersEditingInAMenu) {
    box_.setText(QStringLiteral("ab"));
    clipboard_.setText(QStringLiteral("c"));
    const auto enabledEntries = [&] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
        QCoreApplication::sendEvent(box_.viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QString enabled;
        for (const QAction *action : menu->actions())
            enabled += action->isSeparator() ? u'|' : action->isEnabled() ? u'1' : u'0';
        menu->close();
        return enabled;
    };
    EXPECT_EQ(enabledEntries(), u"0010|1");
    box_.selectAll();
    EXPECT_EQ(enabledEntries(), u"1111|1");
    box_.setLocked(true);
    EXPECT_EQ(enabledEntries(), u"0100|1");
}

} // namespace

} // namespace quillon::test
