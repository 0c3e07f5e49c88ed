#pragma once
// What a zone's reset table holds that the server takes but logs as it
// boots or resets the zone: a VNum the world has no record of, a G or E with
// no M before it, a P whose container no line before it loads, a D on a
// side of a room that has no exit.  Save warns of these without refusing.
// Standard C++ only.

#include <vector>

#include "kinds/world_model.h"
#include "zones/format/zone_record.h"
#include "zones/zone_lines.h"

namespace marl {

// Each at its line of the file as it will be written (the zone's
// `firstCommandLine` and on), in file order.  Records are looked up by
// `names`, a room's exits in `world`; a kind the world did not read whole
// is not looked up.
std::vector<ZoneProblem> zoneWarnings(const ZoneRecord& zone, const NameLookup& names,
                                      const World& world);

} // namespace marl
