#pragma once

#include "platform/ui/dialogs.h"

namespace quillon::controls {

/// The dialogs on the user's screen.
class DesktopDialogs : public ui::Dialogs {
public:
    int showMessage(const QString &text, int style, const QString &title) override;
    using ui::Dialogs::inputText;
    QString inputText(const QString &prompt, const ui::InputHelp &help) override;
    std::optional<int> chooseOne(const QString &prompt, const QStringList &choices) override;
    ui::FileDialogResult showOpen(const ui::FileDialogRequest &request) override;
    ui::FileDialogResult showSave(const ui::FileDialogRequest &request) override;
    std::optional<ui::FontChoice> chooseFont(const ui::FontChoice &present) override;
    std::optional<QString> chooseValue(ui::ValueEditor editor, const QString &present) override;
};

/// Gives Qt's own dialogs and context menus their texts, and numbers and dates their form, in the
/// language in force. Call once, between making the application object and the first window. False
/// when those texts are not installed; Qt then speaks English, and Japanese as far as LibraryTexts
/// does.
bool installDialogTexts();

} // namespace quillon::controls
