#pragma once
// What a whole world holds that its server's boot would find: what stops the
// boot, what the server logs as it boots (or only when it resets its zones
// to run the game), and what it accepts without a word though the game goes
// wrong: resets, exits, keys and records that name nothing, records under
// one VNum twice or outside their zone, zones that overlap, files the index
// does not list.  Each finding names the file and line at fault, and the
// server's own words where it logs them.  Standard C++ only.

#include <array>
#include <string>

#include "kinds/world_model.h"

namespace marl {

struct WorldReport {
    // In the order of the world's files (what belongs to none first), each
    // file's by line.
    std::vector<WorldFinding> findings;
    // How many of each Severity.
    std::array<int, 4> counts{};
    int count(Severity severity) const { return counts[static_cast<std::size_t>(severity)]; }
};

WorldReport checkWorld(const World& world);

// "FILE:LINE: what is wrong [the server's words] (what the server does)".
std::string findingLine(const World& world, const WorldFinding& finding);
// The same as one JSON object: file, line, severity, text, server, and the
// record at fault (kind, vnum) where there is one.
std::string findingJson(const World& world, const WorldFinding& finding);
// What the world holds and how many findings of each severity.
std::string summaryLine(const World& world, const WorldReport& report);
std::string summaryJson(const World& world, const WorldReport& report);

} // namespace marl
