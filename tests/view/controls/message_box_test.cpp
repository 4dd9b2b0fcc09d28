#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "view/controls/desktop_dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

using namespace quillon;
using namespace quillon::controls;

namespace {

/// Opens the real box and lets the test act on it.
int show(const QString &text, int style, const std::function<void(QMessageBox &)> &act) {
    QTimer::singleShot(0, [act] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        act(*box);
        if (box->isVisible()) {
            ADD_FAILURE() << "the test left the box open";
            box->reject();
        }
    });
    DesktopDialogs desktop;
    return desktop.showMessage(text, style, QStringLiteral("title"));
}

/// Counts how often a box is laid out.
class LayoutCounter final : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override {
        count += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST(MessageBox, ComesToRest) {
    constexpr int Rounds = 50;
    LayoutCounter counter;
    show(QStringLiteral("text of a few words"), 3, [&](QMessageBox &box) {
        box.installEventFilter(&counter);
        for (int i = 0; i < Rounds; ++i)
            QCoreApplication::processEvents();
        box.reject();
    });
    EXPECT_LT(counter.count, Rounds / 2);
}

TEST(MessageBox, OffersTheButtonsOfItsStyle) {
    struct Case {
        int style;
        std::vector<std::pair<QMessageBox::StandardButton, int>> answers;
        int escape;
    };
    const Case cases[] = {
        {0, {{QMessageBox::Ok, 1}}, 1},
        {1, {{QMessageBox::Ok, 1}, {QMessageBox::Cancel, 2}}, 2},
        {3, {{QMessageBox::Yes, 6}, {QMessageBox::No, 7}, {QMessageBox::Cancel, 2}}, 2},
        {4, {{QMessageBox::Yes, 6}, {QMessageBox::No, 7}}, 7},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.style);
        for (const auto &[button, answer] : each.answers) {
            const auto click = [&each, button = button](QMessageBox &box) {
                EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(each.answers.size()));
                box.button(button)->click();
            };
            EXPECT_EQ(show(QString(), each.style, click), answer);
        }
        const auto escape = [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); };
        EXPECT_EQ(show(QString(), each.style, escape), each.escape);
    }
    DesktopDialogs desktop;
    EXPECT_THROW(desktop.showMessage(QString(), 2, QString()), quillon::runtime::Error);
}

TEST(MessageBox, ShowsIconDefaultButtonAndJapaneseCaptions) {
    EXPECT_EQ(show(QStringLiteral("q"), 4 + 32 + 256,
                   [](QMessageBox &box) {
                       EXPECT_EQ(box.icon(), QMessageBox::Question);
                       EXPECT_EQ(box.windowTitle(), QStringLiteral("title"));
                       EXPECT_EQ(box.button(QMessageBox::Yes)->text(), QStringLiteral("はい(&Y)"));
                       EXPECT_EQ(box.button(QMessageBox::No)->text(), QStringLiteral("いいえ(&N)"));
                       QTest::keyClick(&box, Qt::Key_Return);
                   }),
              ui::message_answer::No);
    EXPECT_EQ(show(QStringLiteral("q"), 3 + 48 + 512,
                   [](QMessageBox &box) {
                       EXPECT_EQ(box.icon(), QMessageBox::Warning);
                       EXPECT_EQ(box.button(QMessageBox::Cancel)->text(),
                                 QStringLiteral("キャンセル"));
                       QTest::keyClick(&box, Qt::Key_Return);
                   }),
              ui::message_answer::Cancel);
    show(QStringLiteral("q"), 16, [](QMessageBox &box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        box.accept();
    });
}

TEST(MessageBox, KeepsItsButtonsOnTheScreenWhateverTheText) {
    // The surrogate pair that the cut would split is left out whole.
    const QString text = QString(1023, u'x') + QStringLiteral("𠮷") + QString(100000, u'y');
    show(text, 48, [&](QMessageBox &box) {
        EXPECT_EQ(box.text(), QString(1023, u'x') + u'…');
        box.accept();
    });
}

TEST(MessageBox, NeverTakesItsTextForMarkup) {
    const QString markup = QStringLiteral("<b>x</b> &amp; <img src=\"http://x/\">");
    show(markup, 64, [&](QMessageBox &box) {
        EXPECT_EQ(box.text(), markup);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.accept();
    });
}

} // namespace
