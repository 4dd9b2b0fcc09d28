#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "view/controls/desktop_dialogs.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace quillon::controls {

namespace {

namespace message_answer = ui::message_answer;
namespace message_style = ui::message_style;
using resources::texts::ButtonCancel;
using resources::texts::ButtonNo;
using resources::texts::ButtonOk;
using resources::texts::ButtonYes;

struct Button {
    QMessageBox::StandardButton button;
    resources::Text caption;
    int answer;
};

constexpr Button ok{QMessageBox::Ok, ButtonOk, message_answer::Ok};
constexpr Button cancel{QMessageBox::Cancel, ButtonCancel, message_answer::Cancel};
constexpr Button yes{QMessageBox::Yes, ButtonYes, message_answer::Yes};
constexpr Button no{QMessageBox::No, ButtonNo, message_answer::No};

/// From left to right as the default button counts them; the last one is what Escape means.
std::vector<Button> buttonsOf(int style) {
    switch (style & 0x0f) {
    case message_style::OkOnly:
        return {ok};
    case message_style::OkCancel:
        return {ok, cancel};
    case message_style::YesNoCancel:
        return {yes, no, cancel};
    case message_style::YesNo:
        return {yes, no};
    default:
        runtime::raise(runtime::error_number::InvalidProcedureCall);
    }
}

QMessageBox::Icon iconOf(int style) {
    switch (style & 0xf0) {
    case message_style::Critical:
        return QMessageBox::Critical;
    case message_style::Question:
        return QMessageBox::Question;
    case message_style::Exclamation:
        return QMessageBox::Warning;
    case message_style::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// Pixels for the frame and the buttons of a window's title bar.
constexpr int SpaceBesideTitle = 140;

/// What a box can show with its buttons still on the screen.
QString shortened(const QString &text) {
    constexpr qsizetype longest = 1024;
    if (text.size() <= longest)
        return text;
    const bool splitsPair = text[longest - 1].isHighSurrogate();
    return text.first(splitsPair ? longest - 1 : longest) + u'…';
}

size_t defaultButtonOf(int style) {
    switch (style & 0xf00) {
    case message_style::DefaultButton2:
        return 1;
    case message_style::DefaultButton3:
        return 2;
    default:
        return 0;
    }
}

} // namespace

int DesktopDialogs::showMessage(const QString &text, int style, const QString &title) {
    const std::vector<Button> buttons = buttonsOf(style);
    QMessageBox box(iconOf(style), title, shortened(text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    for (const Button &button : buttons)
        box.addButton(button.button)->setText(button.caption.toString());
    const size_t defaultButton = std::min(defaultButtonOf(style), buttons.size() - 1);
    box.setDefaultButton(buttons[defaultButton].button);
    box.setEscapeButton(buttons.back().button);
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout())) {
        // A box takes no minimum width. This one is to have room for its title.
        const int width = box.fontMetrics().horizontalAdvance(title) + SpaceBesideTitle;
        // The text stands in the last column.
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), grid->columnCount() - 1);
    }
    const int clicked = box.exec();
    const auto found = std::ranges::find(buttons, clicked, &Button::button);
    return found == buttons.end() ? buttons.back().answer : found->answer;
}

} // namespace quillon::controls
