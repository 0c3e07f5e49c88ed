#pragma once
// The shop kind: shop files (.shp).  No reader nor editor yet: its menu is
// shown greyed.  Its record, file and window types join this entry as they
// land.

#include "kinds/kind_info.h"

namespace marl {

struct ShopKind {
    using Window = void;
    static constexpr KindInfo info = {
        3,      "Shop",  ".shp", "Shop files (*.shp)|*.shp", "New Shop File", "Open Shop File",
        "shop", "shops", {}};
};

} // namespace marl
