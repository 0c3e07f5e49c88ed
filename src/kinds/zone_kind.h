#pragma once
// The zone kind: a zone's reset file (.zon).  No editor yet: its menu is
// shown greyed.  Its window type joins this entry when it lands.

#include "kinds/kind_info.h"

namespace marl {

struct ZoneKind {
    using Window = void;
    static constexpr KindInfo info = {4,
                                      "Zone",
                                      ".zon",
                                      "Zone files (*.zon)|*.zon",
                                      "New Zone File",
                                      "Open Zone File",
                                      "command",
                                      "commands",
                                      {}};
};

} // namespace marl
