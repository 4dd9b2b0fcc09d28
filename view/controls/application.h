#pragma once

#include <QApplication>

namespace quillon::controls {

/// An application that survives an exception which leaves an event handler. The last resort:
/// Qt's own frames between the two are not unwound properly, so handlers use guarded().
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;
};

} // namespace quillon::controls
