#pragma once

#include "platform/controls/dialogs.h"

#include <deque>
#include <vector>

namespace quillon::test {

/// Takes the place of the desktop's dialogs during its life: answers at once from what the test
/// has queued, and records what was asked. A dialog that finds no answer queued, and an answer
/// that no dialog took, fail the running test; such a dialog is answered as Escape would.
class ScriptedDialogs : public controls::Dialogs {
public:
    ScriptedDialogs() : before_(controls::setDialogs(this)) {}
    ~ScriptedDialogs() override;

    struct Message {
        QString text;
        int style;
        QString title;
    };

    /// Each queues one answer for a later dialog of its kind.
    void answerMessage(int answer) { messageAnswers_.push_back(answer); }
    void answerInput(const QString &text) { inputAnswers_.push_back(text); }
    void answerFile(const controls::FileDialogResult &choice) { fileAnswers_.push_back(choice); }

    /// What was asked so far, oldest first.
    std::vector<Message> messages;
    std::vector<QString> prompts;
    std::vector<controls::FileDialogRequest> openRequests;
    std::vector<controls::FileDialogRequest> saveRequests;

    int showMessage(const QString &text, int style, const QString &title) override;
    QString inputText(const QString &prompt) override;
    controls::FileDialogResult showOpen(const controls::FileDialogRequest &request) override;
    controls::FileDialogResult showSave(const controls::FileDialogRequest &request) override;

private:
    controls::Dialogs *before_;
    std::deque<int> messageAnswers_;
    std::deque<QString> inputAnswers_;
    std::deque<controls::FileDialogResult> fileAnswers_;
};

} // namespace quillon::test
