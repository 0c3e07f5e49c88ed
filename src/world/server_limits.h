#pragma once
// The limits the game server holds a zone file to, and what a record breaks
// of them.  A finding stops the server's boot, is only logged by it, or is
// taken without a word though a builder would not mean it; the windows
// refuse or warn, marl-check reports, from these same checks.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "world/record_table.h"
#include "world/text_reader.h"

namespace marl {

// The server reads a text into a buffer of this many bytes, its end byte
// included, and stops the boot at a text that does not fit.
inline constexpr std::size_t kServerTextBuffer = 8192;

// How a text is written before its `~`: a one-line string (`value~`) or a
// multi-line text (the value, a line break, then `~` on its own line).
enum class TextForm { String, Text };

// The bytes the server's reader builds from `value` as the editor writes it
// in `lineEnd`: each line it reads in pieces of up to 511 bytes, and each
// piece without the `~` costs one byte more (its last byte, the line's LF,
// becomes CR LF).  A text fits when this is below kServerTextBuffer.
std::size_t serverTextLength(std::string_view value, TextForm form, LineEnd lineEnd);
bool fitsServerText(std::string_view value, TextForm form, LineEnd lineEnd);

// What the windows tell a builder whose edit would pass the limit.
std::string textTooLongMessage();

enum class Severity {
    RefusesBoot,  // the server stops booting at it
    OnlyLogged,   // the server logs it and boots
    LoggedInGame, // logged only when the server boots to run the game (resetting
                  // its zones, naming spells), not by its syntax check
    Silent,       // the server boots without a word, and the game goes wrong
};

// One thing wrong with a record.  `server`: the words of the server's log
// line, where it logs one, for the builder to find it there.
struct Finding {
    Severity severity;
    std::string what;
    std::string server = {};
};
using Findings = std::vector<Finding>;

// A text of a record that does not fit: `field` names it ("description").
void checkText(Findings& found, std::string_view field, std::string_view value, TextForm form,
               LineEnd lineEnd);

// Each extra description's keywords and text that do not fit.
void checkExtraDescTexts(Findings& found, const ExtraDescList& list, LineEnd lineEnd);

} // namespace marl
