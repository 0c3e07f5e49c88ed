#pragma once
// A zone's reset commands in words, as the zone editor lists them: "Load
// mobile 3000 the wizard (max 1) into 3033 The Wizard's Shop", what is given,
// equipped or put indented under the mobile or object it goes to, comment
// lines as they stand.  Standard C++ only: the names come through a lookup.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "kinds/world_model.h"
#include "zones/format/zone_record.h"

namespace marl {

// A record's name by kind and VNum, or nothing when the world has none.
using NameLookup = std::function<std::optional<std::string>(WorldKind, std::int32_t)>;

// "3000 the wizard", or "3000 (not in zone 30)" for a VNum the lookup has
// no record of; "3000" without a lookup.
std::string namedVNum(const NameLookup& names, WorldKind kind, std::int32_t vnum,
                      std::int32_t zone);

// Whether argument 1-3 of a command is still to be typed: it reads "?".
using ArgMissing = std::function<bool(int arg)>;

// One line of the list for `command`; `indented` puts it under the mobile
// or object before it.
std::string commandWords(const ZoneCommand& command, const NameLookup& names, std::int32_t zone,
                         bool indented, const ArgMissing& missing = {});

// Every command's line, in file order; `missing` tells of the command at
// an index.
std::vector<std::string> zoneLines(const ZoneRecord& zone, const NameLookup& names,
                                   const std::function<bool(std::size_t, int)>& missing = {});

// The record a command is named after in its trailing comment when the
// editor makes it: the mobile of an M, the object of O G E P, the room of
// a D, the object R removes.
std::pair<WorldKind, std::int32_t> namedRecord(const ZoneCommand& command);

} // namespace marl
