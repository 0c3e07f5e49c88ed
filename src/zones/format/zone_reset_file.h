#pragma once
// Reading and writing a zone's `.zon` file as the server reads it: `#<zone>`,
// the name up to a `~` (which may be missing), the numbers line, then one
// command a line up to a line `S` or `$`.  The server first counts the lines
// that begin with a command letter and a blank, or are `S` alone, and
// refuses a file whose count differs from the commands it then reads; so
// does the reader, naming the first line the two disagree on.

#include <string>
#include <string_view>

#include "zones/format/zone_record.h"

namespace marl {

// Whether a zone read keeps each command's bytes and comment, which only
// writing the file back needs: a check of the whole world drops them.
enum class CommandTexts { Kept, Dropped };

// Reads `bytes` into `zone` (replacing what it held) and returns the
// server's count of its commands (commandCount); throws FormatError naming the line and what was
// expected there, or what the server refuses.
int readZone(std::string_view bytes, ZoneRecord& zone,
             CommandTexts texts = CommandTexts::Kept);

// The file's text: the header and each command as its source bytes, or
// field by field where they were changed (empty Source).
std::string writeZone(const ZoneRecord& zone);

// One command's line as the editor writes it, without its line end:
// "M 0 3000 1 3033" and the comment.
std::string commandLine(const ZoneCommand& command);

} // namespace marl
