#pragma once
// What `marl` was asked on its command line: zone files to open, or an answer
// for the terminal (--help, --version, a wrong option) and no window.

#include <QString>
#include <QStringList>

namespace marl {

struct CommandLine {
    enum class Action { Run, Help, Version, Wrong };
    Action action = Action::Run;
    QStringList files; // absolute paths, in the order given
    QString text;      // what to print for Help, Version and Wrong
    // The exit status when the program answers in the terminal.
    int exitCode() const { return action == Action::Wrong ? 2 : 0; }
};

// Reads the arguments after the program's name.  --help and --version win
// over everything else on the line, so that they can be answered before the
// windowing system is asked for anything; `--` ends the options.  Relative
// file names are taken from the current directory.
CommandLine parseCommandLine(const QStringList& arguments);

} // namespace marl
