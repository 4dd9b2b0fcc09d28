#include "platform/runtime/error.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "tests/support/scripted_dialogs.h"

#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <utility>

using namespace quillon;
using namespace quillon::ui;

namespace {

TEST(ErrorBoundary, ShowsWhatReachesIt) {
    const std::pair<std::function<void()>, QString> cases[] = {
        {[] { runtime::raise(53); }, QStringLiteral("ファイルが見つかりません。")},
        {[] { throw runtime::Error(1, QStringLiteral("<a> %1")); }, QStringLiteral("<a> %1")},
        {[] { throw std::bad_alloc(); }, QStringLiteral("メモリが不足しています。")},
        {[] { throw std::out_of_range("no message 4"); },
         QStringLiteral("予期しないエラーが発生しました。\nno message 4")},
        {[] { throw 4; }, QStringLiteral("原因不明のエラーが発生しました。")},
    };
    for (const auto &[fail, text] : cases) {
        test::ScriptedDialogs script;
        script.answerMessage(message_answer::Ok);
        guarded(fail);
        ASSERT_EQ(script.messages.size(), 1u);
        EXPECT_EQ(script.messages[0].text, text);
        EXPECT_EQ(script.messages[0].style, 48);
        EXPECT_EQ(script.messages[0].title, QStringLiteral("Quillon XML Editor"));
    }
}

TEST(ErrorBoundary, WhatTheUserHasStoppedNeedsNoBox) {
    test::ScriptedDialogs script;
    guarded([] { runtime::raise(runtime::error_number::Cancelled); });
    EXPECT_TRUE(script.messages.empty());
}

TEST(ErrorBoundary, OpensNoBoxOverItsOwn) {
    struct FailsWhileShown : test::ScriptedDialogs {
        int showMessage(const QString &text, int style, const QString &title) override {
            guarded([] { runtime::raise(6); });
            return ScriptedDialogs::showMessage(text, style, title);
        }
    } script;
    // The second round sees that the first has ended.
    for (const size_t shown : {1u, 2u}) {
        script.answerMessage(message_answer::Ok);
        guarded([] { runtime::raise(13); });
        ASSERT_EQ(script.messages.size(), shown);
        EXPECT_EQ(script.messages.back().text, QStringLiteral("型が一致しません。"));
    }
}

TEST(ErrorBoundary, SurvivesABoxThatCannotBeMade) {
    struct BrokenOnce : test::ScriptedDialogs {
        int showMessage(const QString &text, int style, const QString &title) override {
            if (!std::exchange(broken, false))
                return ScriptedDialogs::showMessage(text, style, title);
            throw std::bad_alloc();
        }
        bool broken = true;
    } script;
    guarded([] { runtime::raise(6); });
    EXPECT_TRUE(script.messages.empty());
    script.answerMessage(message_answer::Ok);
    guarded([] { runtime::raise(6); });
    EXPECT_EQ(script.messages.size(), 1u);
}

TEST(ErrorBoundary, IgnoresErrorsSilentlyWhereTold) {
    const test::ScriptedDialogs script;
    bool after = false;
    ignoringErrors([&] {
        runtime::raise(70);
        after = true;
    });
    EXPECT_FALSE(after);
    EXPECT_TRUE(script.messages.empty());
}

TEST(Dialogs, AQuestionWithoutAnyoneToAskEndsTheProgram) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto askNobody = [] {
        setDialogs(nullptr);
        guarded([] { runtime::raise(53); });
    };
    EXPECT_DEATH(askNobody(), "No dialogs are in force");
}

} // namespace
