#include "tests/support/scripted_dialogs.h"

#include "platform/ui/message_box.h"

#include <gtest/gtest.h>
#include <utility>

namespace quillon::test {

namespace {

template <typename Answer>
Answer take(std::deque<Answer> &answers, const QString &asked, Answer otherwise) {
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << qPrintable(asked);
        return otherwise;
    }
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

int escapeAnswer(int style) {
    namespace styles = ui::message_style;
    switch (style & 0x0f) {
    case styles::OkOnly:
        return ui::message_answer::Ok;
    case styles::YesNo:
        return ui::message_answer::No;
    default:
        return ui::message_answer::Cancel;
    }
}

} // namespace

ScriptedDialogs::~ScriptedDialogs() {
    ui::setDialogs(before_);
    const size_t unused = messageAnswers_.size() + inputAnswers_.size() + choiceAnswers_.size() +
                          fileAnswers_.size() + fontAnswers_.size() + valueAnswers_.size();
    EXPECT_EQ(unused, 0u) << "answers that no dialog asked for";
}

int ScriptedDialogs::showMessage(const QString &text, int style, const QString &title) {
    messages.push_back({text, style, title});
    return take(messageAnswers_, text, escapeAnswer(style));
}

QString ScriptedDialogs::inputText(const QString &prompt, const ui::InputHelp &help) {
    prompts.push_back(prompt);
    inputOffers.push_back(help.offered);
    presentTexts.push_back(help.present);
    explained = help.explain
                    ? help.explain(inputAnswers_.empty() ? QString() : inputAnswers_.front())
                    : QString();
    return take(inputAnswers_, prompt, QString());
}

std::optional<int> ScriptedDialogs::chooseOne(const QString &prompt, const QStringList &from) {
    prompts.push_back(prompt);
    choices.push_back(from);
    const int chosen = take(choiceAnswers_, prompt, -1);
    return chosen < 0 ? std::nullopt : std::optional(chosen);
}

ui::FileDialogResult ScriptedDialogs::showOpen(const ui::FileDialogRequest &request) {
    openRequests.push_back(request);
    return take(fileAnswers_, request.title, {QString(), request.flags});
}

ui::FileDialogResult ScriptedDialogs::showSave(const ui::FileDialogRequest &request) {
    saveRequests.push_back(request);
    return take(fileAnswers_, request.title, {QString(), request.flags});
}

std::optional<ui::FontChoice> ScriptedDialogs::chooseFont(const ui::FontChoice &present) {
    fontRequests.push_back(present);
    const ui::FontChoice chosen = take(fontAnswers_, present.family, ui::FontChoice());
    return chosen.family.isEmpty() ? std::nullopt : std::optional(chosen);
}

std::optional<QString> ScriptedDialogs::chooseValue(ui::ValueEditor editor,
                                                    const QString &present) {
    valueRequests.push_back({editor, present});
    const QString chosen = take(valueAnswers_, present, QString());
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen);
}

} // namespace quillon::test
