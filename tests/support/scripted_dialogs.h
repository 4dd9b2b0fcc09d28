#pragma once

#include "view/controls/dialogs.h"

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
    /// A font without a family cancels.
    void answerFont(const controls::FontChoice &choice) { fontAnswers_.push_back(choice); }
    /// A name for the file to print to; empty cancels.
    void answerPrinter(const QString &file) { printerAnswers_.push_back(file); }

    /// What was asked so far, oldest first.
    std::vector<Message> messages;
    std::vector<QString> prompts;
    std::vector<controls::FileDialogRequest> openRequests;
    std::vector<controls::FileDialogRequest> saveRequests;
    std::vector<controls::FontChoice> fontRequests;

    int showMessage(const QString &text, int style, const QString &title) override;
    QString inputText(const QString &prompt) override;
    controls::FileDialogResult showOpen(const controls::FileDialogRequest &request) override;
    controls::FileDialogResult showSave(const controls::FileDialogRequest &request) override;
    std::optional<controls::FontChoice> chooseFont(const controls::FontChoice &present) override;
    bool choosePrinter(QPrinter &printer) override;

private:
    controls::Dialogs *before_;
    std::deque<int> messageAnswers_;
    std::deque<QString> inputAnswers_;
    std::deque<controls::FileDialogResult> fileAnswers_;
    std::deque<controls::FontChoice> fontAnswers_;
    std::deque<QString> printerAnswers_;
};

} // namespace quillon::test
