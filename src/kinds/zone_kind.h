#pragma once
// The zone kind: a zone's reset file (.zon), one ZoneRecord a file.

#include "kinds/kind_info.h"

namespace marl {

struct ZoneKind {
    using Window = class FormZone;
    static constexpr KindInfo info = {4,
                                      "Zone",
                                      ".zon",
                                      "Zone files (*.zon)|*.zon",
                                      "New Zone File",
                                      "Open Zone File",
                                      "command",
                                      "commands",
                                      {"formZone", "Zone Editor", "Changes to Zone Not Saved.",
                                       "Zone Not Saved", "Command Not Deleted", nullptr, nullptr,
                                       "Really Delete This Command?", nullptr}};
};

} // namespace marl
