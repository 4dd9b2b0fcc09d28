#pragma once

#include <QApplication>

namespace quillon::controls {

/// An application in the program's own look, which keeps every dialog within its screen, and which
/// survives an exception that leaves an event handler. That is the last resort: Qt's own frames
/// between the two are not unwound properly, so handlers use guarded().
class Application : public QApplication {
public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    /// The desktop's look has changed, and the theme is about to be told.
    bool isDesktopNew_ = false;
};

} // namespace quillon::controls
