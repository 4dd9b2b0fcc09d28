#pragma once

#include <QString>
#include <QStringList>

namespace quillon::system {

/// Starts other programs. Tests put a recording one in its place.
class Shell {
public:
    virtual ~Shell() = default;

    /// Starts a program with its arguments, as a process of its own and without a command
    /// interpreter. Raises FileNotFound when there is no such program.
    virtual void start(const QString &program, const QStringList &arguments);
};

} // namespace quillon::system
