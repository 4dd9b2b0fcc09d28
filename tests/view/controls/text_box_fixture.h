#pragma once

#include "tests/support/patience.h"
#include "view/controls/text_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quillon::test {

using controls::TextBox;

/// A text box in a window of its own, with another box that the keyboard can go to.
class TextBoxTest : public testing::Test {
protected:
    TextBoxTest() {
        auto *layout = new QVBoxLayout(&window_);
        layout->addWidget(&box_);
        layout->addWidget(&next_);
        window_.resize(600, 300);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_, Patience));
        box_.setFocus();
    }

    void compose(const QString &unfinished, const QString &finished = QString()) {
        QInputMethodEvent event(unfinished, {});
        event.setCommitString(finished);
        QCoreApplication::sendEvent(&box_, &event);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&box_, static_cast<Qt::Key>(key), modifiers);
    }
    void select(qsizetype start, qsizetype length) {
        box_.setSelStart(start);
        box_.setSelLength(length);
    }
    /// The number of Change signals since the last call.
    int changes() {
        const int count = static_cast<int>(spy_.count());
        spy_.clear();
        return count;
    }
    long colourAt(const char *what) {
        const auto at = static_cast<unsigned long>(box_.utf8().indexOf(what));
        const auto style =
            static_cast<unsigned long>(box_.SendScintilla(TextBox::SCI_GETSTYLEAT, at));
        return box_.SendScintilla(TextBox::SCI_STYLEGETFORE, style);
    }
    long ask(unsigned message, unsigned long argument = 0) {
        return box_.SendScintilla(message, argument);
    }

    QWidget window_;
    TextBox box_;
    QLineEdit next_;
    QSignalSpy spy_{&box_, &TextBox::Change};
    QClipboard &clipboard_ = *QGuiApplication::clipboard();
};

} // namespace quillon::test
