#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QDeadlineTimer>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <algorithm>
#include <memory>
#include <optional>

namespace quillon::test {

namespace {

/// The page as the browser of a window shows it, and the list of validation errors.
class PreviewWindow : public EditorWindow {
protected:
    preview::Preview &preview() { return editor().preview; }
    browser::Browser &ie() { return *form->findChild<browser::Browser *>("ie"); }
    /// Waits until a page in which this is to be read is shown whole, in its place in the window.
    /// That some page is there says little: the window has one before it has a document.
    void waitForPage(const QString &text) {
        ASSERT_TRUE(QTest::qWaitFor([this] { return ie().view() != nullptr; }, Patience));
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                return script("document.readyState === 'complete' ? innerWidth : 0").toInt() ==
                           ie().view()->width() &&
                       script("document.body.textContent").toString().contains(text);
            },
            Patience))
            << text.toStdString();
    }
    QVariant script(const QString &code) {
        const auto answer = std::make_shared<std::optional<QVariant>>();
        // A page that goes takes the question with it.
        QDeadlineTimer lost(0);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                if (!*answer && lost.hasExpired()) {
                    lost.setRemainingTime(1000);
                    ie().view()->page()->runJavaScript(
                        code, [answer](const QVariant &value) { *answer = value; });
                }
                return answer->has_value();
            },
            Patience))
            << code.toStdString();
        return answer->value_or(QVariant());
    }
    /// A click of the user's in the middle of an element.
    void click(const QString &id) {
        const QVariantList at = script("(() => { const r = document.getElementById('" + id +
                                       "').getBoundingClientRect();"
                                       "return [r.x + r.width / 2, r.y + r.height / 2]; })()")
                                    .toList();
        ASSERT_EQ(at.size(), 2);
        QTest::mouseClick(ie().view()->focusProxy(), Qt::LeftButton, {},
                          QPointF(at[0].toDouble(), at[1].toDouble()).toPoint());
    }
};

constexpr auto Sample =
    "<?xml version='1.0'?><!--c--><doc>text<![CDATA[cd]]><a><b 名='値'/></a></doc>";

TEST_F(PreviewWindow, AClickOnANameSelectsItsNode) {
    form->show();
    open(Sample);
    waitForPage("値");
    EXPECT_TRUE(preview().previewsWhole());
    // The third part counts the root's children of all kinds: text, CDATA, then the element.
    EXPECT_EQ(script("document.getElementById('1.3.3.1').innerText").toString(), "b");
    click("1.3.3.1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree().SelectedItem() == item("b"); }, Patience));
    EXPECT_EQ(txtEdit().Text(), "<b 名='値'/>");
    preview().m_doc_onclick("1.3.3");
    EXPECT_EQ(tree().SelectedItem().Text(), "a");
    // Ids that fit nothing, and a switched off synchronisation, select nothing.
    for (const char *id : {"", "1.3.9", "1.3.3.1.1", "x.y.z"}) {
        preview().m_doc_onclick(id);
        EXPECT_EQ(tree().SelectedItem().Text(), "a") << id;
    }
    preview().mnuToolPreviewSync_Click(false);
    preview().m_doc_onclick("1.3.3.1");
    EXPECT_EQ(tree().SelectedItem().Text(), "a");
}

TEST_F(PreviewWindow, ABlockIsFoldedAndUnfoldedByItsMark) {
    form->show();
    open(Sample);
    waitForPage("値");
    const QString mark = "document.querySelector('.b[role=button]')";
    const auto height = [&] { return script("document.body.scrollHeight").toInt(); };
    const int unfolded = height();
    EXPECT_EQ(script(mark + ".getAttribute('aria-expanded')").toString(), "true");
    script(mark + ".click()");
    EXPECT_EQ(script(mark + ".getAttribute('aria-expanded')").toString(), "false");
    EXPECT_LT(height(), unfolded);
    script(mark + ".dispatchEvent(new KeyboardEvent('keydown', {key: 'Enter', bubbles: true}))");
    EXPECT_EQ(script(mark + ".getAttribute('aria-expanded')").toString(), "true");
    EXPECT_EQ(height(), unfolded);
}

TEST_F(PreviewWindow, ARefreshKeepsWhatIsFoldedAndHowFarThePageIsScrolled) {
    form->show();
    QByteArray many;
    for (int i = 0; i < 200; ++i)
        many += "<e" + QByteArray::number(i) + "><!--a\nb--><c>" + QByteArray(i, 'x') + "</c></e" +
                QByteArray::number(i) + ">";
    open("<doc><first/>" + many + "</doc>");
    waitForPage("e199");
    const auto block = [](const QString &name) {
        return "[...document.querySelectorAll('.t')].find((at) => at.textContent === '" + name +
               "').closest('.e')";
    };
    const auto folded = [&] {
        return script("[...document.querySelectorAll('[aria-expanded=false]')].map((mark) => "
                      "mark.closest('[data-node]').querySelector('.t, pre').textContent).join(' ')")
            .toString();
    };
    const auto place = [&] {
        return script("Math.round(" + block("e150") + ".getBoundingClientRect().top)").toInt();
    };
    script(block("e7") + ".querySelector('.b').click()");
    script(block("e150") + ".querySelector('.k .b').click()");
    script(block("e150") + ".scrollIntoView(); scrollBy(0, 5)");
    ASSERT_EQ(folded(), "e7 a\nb");
    const int before = place();
    // Ids change with what is inserted further up.
    select("first");
    editor().creation.mnuNodeInsElement_Click();
    tree().endLabelEdit();
    const auto marks = [&] { return script("document.querySelectorAll('.t[id]').length").toInt(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return marks() == 403; }, Patience)) << marks();
    EXPECT_TRUE(QTest::qWaitFor([&] { return folded() == "e7 a\nb"; }, Patience));
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(place() - before) <= 2; }, Patience))
        << place() << " was " << before;
    script("document.body.append('the one before')");
    preview().mnuToolPreview_Click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !script("document.body.textContent").toString().contains("the one before"); },
        Patience));
    EXPECT_TRUE(QTest::qWaitFor([&] { return folded() == "e7 a\nb"; }, Patience))
        << folded().toStdString();
    // Another document starts at its top, with everything unfolded.
    open("<doc><second/>" + many + "</doc>", "other.xml");
    waitForPage("second");
    EXPECT_EQ(folded(), "");
    EXPECT_EQ(script("scrollY").toInt(), 0);
}

/// What a large page takes in as it is scrolled is what it would be if it were made anew.
TEST_F(PreviewWindow, ALargePageTakesInWhatIsScrolledTo) {
    form->show();
    QByteArray many;
    for (int i = 0; i < 12'000; ++i) {
        const QByteArray number = QByteArray::number(i);
        many += "<e n='" + number + "'><!--c--><f>x</f>t" + number + "<g><h/>" +
                (i % 7 == 0 ? QByteArray("<i/>").repeated(20) : QByteArray()) + "</g></e>";
    }
    open("<doc>" + many + "</doc>");
    waitForPage("t7");
    const auto lines = [&] { return script("document.querySelectorAll('.t[id]').length").toInt(); };
    const auto page = [&] { return script("document.body.firstChild.innerHTML").toString(); };
    const auto scrollFor = [&](const char *where) {
        const int before = lines();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                script(QStringLiteral("scrollTo(0, %1)").arg(where));
                return lines() > before;
            },
            Patience))
            << where;
    };
    const auto select = [&](int index) {
        const xml::Node node = editor().state.m_DOM.documentElement().childNodes().item(index);
        editor().selection.ShowNode(editor().builder.itemOf(node), true);
    };
    const auto expectAsMadeAnew = [&] {
        // Nothing is on its way when two answers are the same, and no line is in sight.
        QString taken;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return std::exchange(taken, page()) == page(); }, Patience));
        script("document.body.append('the one before')");
        preview().requestPreview(editor().state.m_DOM.node());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return !script("document.body.textContent").toString().contains("before"); },
            Patience));
        EXPECT_EQ(page(), taken);
    };
    scrollFor("document.body.scrollHeight");
    scrollFor("document.body.scrollHeight");
    expectAsMadeAnew();
    select(6'000);
    waitForPage("t6000");
    const auto edge = [&](const QString &name) {
        return script("Math.round([...document.querySelectorAll('.t')].find((at) => at.id === "
                      "'1.1.6001').getBoundingClientRect()." +
                      name + ")")
            .toInt();
    };
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return edge("top") >= 0 && edge("bottom") <= ie().view()->height(); }, Patience));
    // A page that is made anew stays where it is.
    const int before = edge("top");
    expectAsMadeAnew();
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(edge("top") - before) <= 2; }, Patience))
        << edge("top") << " was " << before;
    scrollFor("1");
    scrollFor("document.body.scrollHeight");
    expectAsMadeAnew();
    EXPECT_FALSE(page().contains(">t7<"));
}

TEST_F(PreviewWindow, ThatItWasStoppedIsSaidUntilItSucceeds) {
    form->show();
    open(Sample);
    waitForPage("値");
    const QByteArray sheet = "<xsl:stylesheet version='1.0' "
                             "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                             "<xsl:template match='/' name='f'><xsl:param name='n' select='90'/>"
                             "<xsl:if test='$n &gt; 0'>%1%1</xsl:if></xsl:template>"
                             "</xsl:stylesheet>";
    const QByteArray call = "<xsl:call-template name='f'><xsl:with-param name='n' "
                            "select='$n - 1'/></xsl:call-template>";
    dialogs.answerFile({write("own.xsl", QByteArray(sheet).replace("%1", call)), 0});
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [] {
        if (QWidget *box = QApplication::activeModalWidget())
            QTest::keyClick(box, Qt::Key_Escape);
    });
    user.start(0);
    preview().mnuToolSelXSL_Click();
    EXPECT_EQ(status(), "中止しました。");
    write("Temp/own.xsl", QByteArray(sheet).replace("%1", ""));
    preview().mnuToolPreview_Click();
    EXPECT_EQ(status(), "");
}

TEST_F(PreviewWindow, EveryValidationErrorLeadsToItsNode) {
    form->show();
    open("<doc><a/><wrong/><a x='1'/></doc>");
    dialogs.answerFile({write("s.dtd", "<!ELEMENT doc (a*)><!ELEMENT a EMPTY>"), 0});
    dialogs.answerMessage(ui::message_answer::Ok);
    editor().validation.mnuToolVerifyNew_Click();
    auto *list = form->findChild<app::ValidationList *>();
    ASSERT_TRUE(list);
    EXPECT_FALSE(editor().validation.errors().empty());
    auto *button = form->findChild<QPushButton *>("validationButton");
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->isVisible());
    button->click();
    EXPECT_TRUE(list->isVisible());
    auto *entries = list->findChild<QListWidget *>();
    QStringList selected;
    for (int row = 0; row < entries->count(); ++row) {
        entries->setCurrentRow(row);
        selected.append(tree().SelectedItem().Text());
        EXPECT_EQ(entries->item(row)->text().count('\n'), 0) << "one line to each";
    }
    EXPECT_EQ(selected, QStringList({"wrong", "wrong", "a"}));
    EXPECT_TRUE(std::ranges::any_of(editor().validation.errors(),
                                    [](const auto &error) { return error.reason.contains('\n'); }));
    open("<other/>");
    EXPECT_TRUE(editor().validation.errors().empty()) << "they were another document's";
    EXPECT_FALSE(button->isVisible());
    EXPECT_FALSE(list->isVisible());
}

} // namespace

} // namespace quillon::test
