#pragma once

#include "bench/report.h"

#include <string>

namespace quillon::bench {

/// What opening a file in the real window takes, measured in a process of its own so that its
/// memory is the program's.
struct OpenFigures {
    /// From the start of the program until its window shows the file and has nothing left to do.
    double milliseconds = NotMeasured;
    double peakMegabytes = NotMeasured;
    /// Typing one character into the pane of a text node, with all that follows from it.
    /// NotMeasured in a document without text.
    double keystrokeMilliseconds = NotMeasured;
};

/// The exit code of a process some of whose lines are not good.
constexpr int BadRows = 3;

/// Runs in the process of its own: opens the file and prints what the task asks for: "--open" the
/// three figures above, "--parts" a line for each step of it, "--edit" and "--search" a line for
/// each command, "--check" one for the preview and for each validation. Ends the process, with
/// BadRows when a line of those is not good.
[[noreturn]] void openAndPrint(int argc, char **argv, const char *task, const char *path);

/// Starts that process, the program given, several times and reads its figures; none when it fails
/// once.
OpenFigures measureOpening(const std::string &program, const std::string &path);
/// Starts it for a task whose lines of the table it prints itself.
void measureIn(Table &table, const std::string &program, const std::string &task,
               const std::string &path);

} // namespace quillon::bench
