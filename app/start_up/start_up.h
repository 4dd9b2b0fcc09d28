#pragma once

#include <QString>
#include <QStringList>

namespace quillon::app {

/// What must be settled before Qt starts: room on the stack for libraries that follow a deeply
/// nested document recursively, and what the browser pane needs.
void prepareProcess();

/// The path that a command line names. The whole line is one path: arguments are joined by a
/// blank. When it starts with a double quote, the first and the last character are taken off,
/// whatever the last one is.
QString commandLinePath(const QStringList &arguments);

/// Runs the program; returns its exit code.
int Main(int argc, char **argv);

} // namespace quillon::app
