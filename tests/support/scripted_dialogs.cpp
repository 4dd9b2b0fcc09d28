#include "tests/support/scripted_dialogs.h"

#include "view/controls/message_box.h"

#include <QPrinter>

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
    namespace styles = controls::message_style;
    switch (style & 0x0f) {
    case styles::OkOnly:
        return controls::message_answer::Ok;
    case styles::YesNo:
        return controls::message_answer::No;
    default:
        return controls::message_answer::Cancel;
    }
}

} // namespace

ScriptedDialogs::~ScriptedDialogs() {
    controls::setDialogs(before_);
    const size_t unused = messageAnswers_.size() + inputAnswers_.size() + fileAnswers_.size() +
                          fontAnswers_.size() + printerAnswers_.size();
    EXPECT_EQ(unused, 0u) << "answers that no dialog asked for";
}

int ScriptedDialogs::showMessage(const QString &text, int style, const QString &title) {
    messages.push_back({text, style, title});
    return take(messageAnswers_, text, escapeAnswer(style));
}

QString ScriptedDialogs::inputText(const QString &prompt) {
    prompts.push_back(prompt);
    return take(inputAnswers_, prompt, QString());
}

controls::FileDialogResult ScriptedDialogs::showOpen(const controls::FileDialogRequest &request) {
    openRequests.push_back(request);
    return take(fileAnswers_, request.title, {QString(), request.flags});
}

controls::FileDialogResult ScriptedDialogs::showSave(const controls::FileDialogRequest &request) {
    saveRequests.push_back(request);
    return take(fileAnswers_, request.title, {QString(), request.flags});
}

std::optional<controls::FontChoice>
ScriptedDialogs::chooseFont(const controls::FontChoice &present) {
    fontRequests.push_back(present);
    const controls::FontChoice chosen = take(fontAnswers_, present.family, controls::FontChoice());
    return chosen.family.isEmpty() ? std::nullopt : std::optional(chosen);
}

bool ScriptedDialogs::choosePrinter(QPrinter &printer) {
    const QString file = take(printerAnswers_, QStringLiteral("printer"), QString());
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    return !file.isEmpty();
}

} // namespace quillon::test
