#pragma once
// The names of the records a shop names (its keeper, products and rooms),
// read from the zone's own mobile, object and world files beside its shop
// file: in the same folder, or in the server's lib/world layout
// (../mob/30.mob from shp/30.shp).  Read when the file is opened.

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kinds/world_model.h"

namespace marl {

class ShopNames {
public:
    // The names of zone `zone`'s records, beside `shopFile`.
    void load(const std::filesystem::path& shopFile, std::int32_t zone);
    std::int32_t zone() const { return zone_; }

    // The record's name, or nothing when the zone's file has no such record.
    std::optional<std::string> name(WorldKind kind, std::int32_t vnum) const;
    // That kind's records of the zone, (VNum, name), in VNum order.
    std::vector<std::pair<std::int32_t, std::string>> listing(WorldKind kind) const;

private:
    const std::map<std::int32_t, std::string>* find(WorldKind kind) const;

    std::int32_t zone_ = 0;
    std::map<std::int32_t, std::string> mobiles_, objects_, rooms_;
};

} // namespace marl
