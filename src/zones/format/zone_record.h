#pragma once
// A zone's reset table as the `.zon` file holds it: the header (number, name,
// bottom and top VNum, lifespan, reset mode) and the lines between it and the
// `S` line, one entry each: a reset command, or a line the server passes
// over (a `*` comment, an empty line).  Each entry keeps the bytes it was
// read from, so that a file read and written without edits is the same file
// and a changed entry writes only its own line.  Standard C++ only.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "world/text_reader.h"

namespace marl {

// What a command line starts with; kComment stands for every line the
// server passes over between the header and the end of the commands.
inline constexpr char kComment = '*';

struct ZoneCommand {
    char Command = kComment; // M O G E P D R, or kComment
    std::int32_t IfFlag = 0; // 1: only if the command before it ran
    std::int32_t Arg1 = 0;   // the mobile, object or room
    std::int32_t Arg2 = 0;   // max existing, direction, or the object R removes
    std::int32_t Arg3 = 0;   // room, wear position, container or door state (not G, R)
    // What follows the numbers on the line, blanks before it included (stock
    // files name the record there); for a comment line, the whole line.
    std::string Comment;
    // The line's bytes with its line end, as read; empty once changed.
    std::string Source;
};

// Whether a command letter takes three numbers (the if-flag and two) rather
// than four.
inline bool hasThreeArgs(char command) {
    return command != 'M' && command != 'O' && command != 'E' && command != 'P' && command != 'D';
}

struct ZoneRecord {
    std::int32_t Number = 0;
    std::string Name;
    // Older files have three header numbers (top, lifespan, mode) and no
    // bottom: kept so, and written so.
    bool NoBottom = false;
    std::int32_t Bottom = 0;
    std::int32_t Top = 0;
    std::int32_t Lifespan = 0;
    std::int32_t ResetMode = 0;
    // The bytes from the file's start to the end of the numbers line, as
    // read; empty once the header is changed.  Leader: the lines the server
    // passes over before the `#` line, kept when the header is written anew.
    std::string Source;
    std::string Leader;
    std::vector<ZoneCommand> Commands;
    // The `S` (or `$`) line and everything after it.
    std::string Trailer;
    LineEnd lineEnd = LineEnd::CrLf;
    // Where the numbers line and the first entry of Commands were read, for
    // messages.
    int numbersLine = 3;
    int firstCommandLine = 4;
};

// Two zones equal in everything but the bytes they were read from.
bool sameFields(const ZoneRecord& a, const ZoneRecord& b);

// The reset commands as the server counts them: each command and the end
// `S` it keeps as the last (166 for stock 30.zon), comment lines not counted.
int commandCount(const ZoneRecord& zone);

// What Save refuses, each at its line (entries counted from the first
// command line as read): a name holding
// a `~`, bottom above top, a wear position outside 0-17, a direction outside
// 0-5, a door state outside 0-2.  Empty when none.
struct ZoneProblem {
    int line;
    std::string problem;
};
std::vector<ZoneProblem> checkZone(const ZoneRecord& zone);
// The same for one command (no line), and for the name: empty when good.
std::string checkCommand(const ZoneCommand& command);
std::string checkName(const std::string& name);

// The server reads a line into 256 bytes: a longer line is read in pieces
// of 255, each a line of its own to it.
inline constexpr std::size_t kServerLine = 255;

} // namespace marl
