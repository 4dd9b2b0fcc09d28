#pragma once

#include "platform/ui/proposals.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace quillon::ui {

/// Bits of a file dialog's flags.
namespace file_dialog_flag {
/// In: the read-only box starts ticked. Out: it was ticked.
constexpr int ReadOnly = 1;
/// Asks before an existing file is chosen in the save dialog.
constexpr int OverwritePrompt = 2;
/// The open dialog has no read-only box.
constexpr int HideReadOnly = 4;
/// Only a file in a folder that exists can be chosen.
constexpr int PathMustExist = 2048;
/// Only a file that exists can be chosen.
constexpr int FileMustExist = 4096;
} // namespace file_dialog_flag

struct FileDialogRequest {
    /// Empty for the usual title of an open or save dialog.
    QString title;
    /// Pairs of description and patterns, e.g. "XML(*.xml)|*.xml|Web(*.htm)|*.htm;*.html". The
    /// descriptions are shown as they are. Empty for all files.
    QString filter;
    /// Sum of file_dialog_flag bits.
    int flags = 0;
    /// The file chosen at first; empty for none.
    QString path;
    /// The folder shown when no file is chosen at first; empty for the one used last.
    QString folder = {};
};

struct FileDialogResult {
    /// Absolute; empty when the user cancelled.
    QString path;
    /// The flags of the request, with ReadOnly as the user left the box.
    int flags = 0;
};

struct FontChoice {
    QString family;
    double points = 0;
};

/// What helps with typing a line of text.
struct InputHelp {
    /// Says what would come of the text typed so far; asked anew with every change. Empty for no
    /// such line.
    std::function<QString(const QString &typed)> explain = {};
    /// What can be chosen instead of being typed, the likeliest first.
    QStringList offered = {};
    /// What the line begins with where nothing is offered.
    QString present = {};
};

/// What the program asks of its user outside its windows. All calls are modal.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs &) = delete;
    Dialogs &operator=(const Dialogs &) = delete;
    virtual ~Dialogs() = default;

    /// See ui::showMessage() in message_box.h.
    virtual int showMessage(const QString &text, int style, const QString &title) = 0;
    /// Asks for one line of text. Empty when the user cancelled.
    virtual QString inputText(const QString &prompt, const InputHelp &help) = 0;
    QString inputText(const QString &prompt) { return inputText(prompt, InputHelp()); }
    /// Asks for one of several texts; its 0-based place, or nothing when the user cancelled.
    virtual std::optional<int> chooseOne(const QString &prompt, const QStringList &choices) = 0;
    virtual FileDialogResult showOpen(const FileDialogRequest &request) = 0;
    /// A name typed without an extension gets that of the chosen filter.
    virtual FileDialogResult showSave(const FileDialogRequest &request) = 0;
    /// Asks for one of the fonts installed; nothing when the user cancelled.
    virtual std::optional<FontChoice> chooseFont(const FontChoice &present) = 0;
    /// Asks for a day ("2024-04-01"), a time ("13:30:00"), both ("2024-04-01T13:30:00") or a colour
    /// ("#1e90ff"), and gives it in that form; nothing when the user cancelled. What is no such
    /// value at present is not shown.
    virtual std::optional<QString> chooseValue(ValueEditor editor, const QString &present) = 0;
};

/// The dialogs in force. The program puts the desktop's in force when it starts, tests put their
/// own. To ask while there are none ends the program: a question must not go unheard.
Dialogs &dialogs();
/// Puts dialogs in force, which the caller keeps alive, and returns those that were; null stands
/// for none.
Dialogs *setDialogs(Dialogs *replacement);

} // namespace quillon::ui
