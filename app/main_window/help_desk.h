#pragma once

#include "app/editor.h"
#include "help/manual.h"
#include "view/controls/action_set.h"

#include <QObject>

#include <memory>

namespace quillon::app {

class CommandBox;
class ManualWindow;

/// What helps the user of one window: the manual, at the place of what has the keyboard, and the
/// box that finds commands.
class HelpDesk : public QObject {
    Q_OBJECT

public:
    HelpDesk(const Editor &editor, controls::ActionSet &actions, QWidget &window);
    ~HelpDesk() override;

    /// Opens the manual where it tells of what has the keyboard.
    void showManual();
    void searchCommands();

protected:
    /// The key of the manual works in the dialogs of the window, too.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openManual(const QString &place, QWidget *modal);
    bool isOfWindow(const QWidget &widget) const;
    bool isEnabled(const QString &command) const;
    void run(const QString &command);

    const Editor &editor_;
    controls::ActionSet &actions_;
    QWidget &window_;
    std::unique_ptr<help::Manual> manual_;
    std::unique_ptr<ManualWindow> manualWindow_;
    /// The window's child.
    CommandBox *commandBox_ = nullptr;
};

} // namespace quillon::app
