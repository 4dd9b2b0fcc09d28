#pragma once

#include <string>

namespace quillon::bench {

/// What opening a file in the real window takes, measured in a process of its own so that its
/// memory is the program's.
struct OpenFigures {
    /// From the start of the program until its window shows the file and has nothing left to do.
    double milliseconds = 0;
    double peakMegabytes = 0;
    /// Typing one character into the pane of a text node, with all that follows from it.
    double keystrokeMilliseconds = 0;
};

/// Runs in the process of its own: opens the file and prints what the task asks for: "--open" the
/// three figures above, "--edit" a line for each command, "--check" one for the preview and for
/// each validation. Returns the exit code.
int openAndPrint(int argc, char **argv, const char *task, const char *path);

/// Starts that process and reads its figures.
OpenFigures measureOpening(const std::string &program, const std::string &path);
/// Starts it for a task whose figures it prints itself.
void measureIn(const std::string &program, const std::string &task, const std::string &path);

} // namespace quillon::bench
