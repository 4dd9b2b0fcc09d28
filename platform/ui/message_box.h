#pragma once

#include "resources/texts.h"

#include <QString>

namespace quillon::ui {

/// A message box's style is the sum of a set of buttons, an icon and a default button.
namespace message_style {
constexpr int OkOnly = 0;
constexpr int OkCancel = 1;
constexpr int YesNoCancel = 3;
constexpr int YesNo = 4;

constexpr int Critical = 16;
constexpr int Question = 32;
constexpr int Exclamation = 48;
constexpr int Information = 64;

constexpr int DefaultButton1 = 0;
constexpr int DefaultButton2 = 256;
constexpr int DefaultButton3 = 512;
} // namespace message_style

/// The button by which a message box was closed.
namespace message_answer {
constexpr int Ok = 1;
constexpr int Cancel = 2;
constexpr int Yes = 6;
constexpr int No = 7;
} // namespace message_answer

/// Shows a modal box and returns the message_answer. Text is shown as it is, never as markup;
/// after about 1,000 characters it is cut off. Escape answers Cancel, else No, else OK. Raises
/// InvalidProcedureCall for a set of buttons that message_style does not name.
int showMessage(const QString &text, int style = message_style::OkOnly,
                const QString &title = resources::texts::ApplicationTitle.toString());

} // namespace quillon::ui
