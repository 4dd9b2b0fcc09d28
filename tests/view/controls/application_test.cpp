#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/scripted_dialogs.h"

#include <QCoreApplication>
#include <QEvent>

#include <gtest/gtest.h>

using namespace quillon;

namespace {

TEST(Application, GoesOnAfterAHandlerThatThrows) {
    struct Thrower : QObject {
        bool event(QEvent *) override { runtime::raise(57); }
    } thrower;
    test::ScriptedDialogs script;
    script.answerMessage(ui::message_answer::Ok);
    QEvent event(QEvent::User);
    EXPECT_FALSE(QCoreApplication::sendEvent(&thrower, &event));
    ASSERT_EQ(script.messages.size(), 1u);
    EXPECT_EQ(script.messages[0].text, QStringLiteral("デバイスの入出力エラーが発生しました。"));
}

} // namespace
