#pragma once

#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"

#include <deque>
#include <vector>

namespace quillon::test {

/// Takes the place of the user's dialogs during its life: answers at once from what the test
/// has queued, and records what was asked. A dialog that finds no answer queued, and an answer
/// that no dialog took, fail the running test; such a dialog is answered as Escape would.
class ScriptedDialogs : public ui::Dialogs {
public:
    ScriptedDialogs() : before_(ui::setDialogs(this)) {}
    ~ScriptedDialogs() override;

    struct Message {
        QString text;
        int style;
        QString title;
    };

    /// Each queues one answer for a later dialog of its kind.
    void answerMessage(int answer) { messageAnswers_.push_back(answer); }
    void answerInput(const QString &text) { inputAnswers_.push_back(text); }
    /// -1 cancels.
    void answerChoice(int place) { choiceAnswers_.push_back(place); }
    void answerFile(const ui::FileDialogResult &choice) { fileAnswers_.push_back(choice); }
    /// A font without a family cancels.
    void answerFont(const ui::FontChoice &choice) { fontAnswers_.push_back(choice); }

    /// An empty value cancels.
    void answerValue(const QString &value) { valueAnswers_.push_back(value); }

    /// What was asked so far, oldest first.
    std::vector<Message> messages;
    std::vector<QString> prompts;
    /// What the boxes for a text began with.
    std::vector<QString> presentTexts;
    std::vector<QStringList> choices;
    std::vector<QStringList> inputOffers;
    /// What was said of the latest input.
    QString explained;
    std::vector<ui::FileDialogRequest> openRequests;
    std::vector<ui::FileDialogRequest> saveRequests;
    std::vector<ui::FontChoice> fontRequests;
    struct ValueRequest {
        ui::ValueEditor editor;
        QString present;
    };
    std::vector<ValueRequest> valueRequests;

    int showMessage(const QString &text, int style, const QString &title) override;
    using ui::Dialogs::inputText;
    QString inputText(const QString &prompt, const ui::InputHelp &help) override;
    std::optional<int> chooseOne(const QString &prompt, const QStringList &from) override;
    ui::FileDialogResult showOpen(const ui::FileDialogRequest &request) override;
    ui::FileDialogResult showSave(const ui::FileDialogRequest &request) override;
    std::optional<ui::FontChoice> chooseFont(const ui::FontChoice &present) override;
    std::optional<QString> chooseValue(ui::ValueEditor editor, const QString &present) override;

private:
    ui::Dialogs *before_;
    std::deque<int> messageAnswers_;
    std::deque<QString> inputAnswers_;
    std::deque<int> choiceAnswers_;
    std::deque<ui::FileDialogResult> fileAnswers_;
    std::deque<ui::FontChoice> fontAnswers_;
    std::deque<QString> valueAnswers_;
};

} // namespace quillon::test
