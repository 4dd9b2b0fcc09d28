#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace quillon::system {

/// Starts other programs. Tests put a recording one in its place.
class Shell {
public:
    virtual ~Shell() = default;

    /// Starts a program with its arguments, as a process of its own and without a command
    /// interpreter. Raises FileNotFound when there is no such program.
    virtual void start(const QString &program, const QStringList &arguments);

    /// Has the desktop open a file or an address with the program that it has for it. Raises
    /// FileNotFound when nothing on the system does so; `failed` is called later, unless the
    /// application has ended by then, when what does so has found no program.
    virtual void openOnDesktop(const QString &target, const std::function<void()> &failed);
};

} // namespace quillon::system
