#pragma once
// Every kind of zone file, one entry each (room_kind.h and its kin): its
// names and the file dialog's texts, its record and file types, reader,
// writer and checks, and the type of its editor window.  The shell, the
// editor core, marl-check, the tests and the fuzz targets go through these
// entries instead of keeping lists of their own; a new kind is a folder and
// an entry, and a line below.  Standard C++ only: a window type is named,
// never defined, here.

#include <string_view>
#include <type_traits>

#include "kinds/mobile_kind.h"
#include "kinds/object_kind.h"
#include "kinds/room_kind.h"
#include "kinds/shop_kind.h"
#include "kinds/zone_kind.h"

namespace marl {

// A kind whose files are a table of records the format library reads.
template <typename Kind>
concept RecordKind = requires {
    typename Kind::Record;
};
// A record kind whose files hold a `#VNum` line a record, read by the
// record loop of world/record_file.h (rooms, mobiles, objects), not a run of
// `~` texts (shops).
template <typename Kind>
concept HeaderRecordKind = RecordKind<Kind> && !requires {
    Kind::tildeRecords;
};
// A kind with an editor window.
template <typename Kind>
concept EditedKind = !std::is_void_v<typename Kind::Window>;

// Calls `visit.template operator()<Kind>()` for every kind, in number order
// (mobiles, rooms, objects, shops, zones): the menus' order.
template <typename Visit> void forEachKind(Visit&& visit) {
    visit.template operator()<MobileKind>();
    visit.template operator()<RoomKind>();
    visit.template operator()<ObjectKind>();
    visit.template operator()<ShopKind>();
    visit.template operator()<ZoneKind>();
}
inline constexpr int kKindCount = 5;

// The same for the kinds of record tables only.
template <typename Visit> void forEachZoneKind(Visit&& visit) {
    forEachKind([&]<typename Kind>() {
        if constexpr (RecordKind<Kind>)
            visit.template operator()<Kind>();
    });
}

// The same for the kinds of `#VNum` records only.
template <typename Visit> void forEachHeaderKind(Visit&& visit) {
    forEachKind([&]<typename Kind>() {
        if constexpr (HeaderRecordKind<Kind>)
            visit.template operator()<Kind>();
    });
}

// Calls `visit.template operator()<Kind>()` for the record kind whose
// extension is `extension` (".wld"), and says whether there is one.
template <typename Visit> bool withZoneKind(std::string_view extension, Visit&& visit) {
    bool found = false;
    forEachZoneKind([&]<typename Kind>() {
        if (!found && extension == Kind::info.extension) {
            found = true;
            visit.template operator()<Kind>();
        }
    });
    return found;
}

} // namespace marl
