#pragma once

#include "app/companion/window_register.h"

#include <QObject>

namespace quillon::companion {

/// The object on the bus that takes the editors' commands.
class CompanionService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillon.QuillonEditDDE")

public:
    explicit CompanionService(WindowRegister &windows) : windows_(windows) {}

public Q_SLOTS:
    Q_SCRIPTABLE void Execute(const QString &command) {
        windows_.execute(command);
        Q_EMIT executed();
    }

Q_SIGNALS:
    void executed();

private:
    WindowRegister &windows_;
};

} // namespace quillon::companion
