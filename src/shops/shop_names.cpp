#include "shops/shop_names.h"

#include "kinds/zone_kinds.h"
#include "world/zone_file.h"

namespace marl {

namespace {

namespace fs = std::filesystem;

// The zone's file of a kind: beside the shop file, or in the kind's own
// folder of the server's layout.
fs::path fileOf(const fs::path& shopFile, std::int32_t zone, WorldKind kind) {
    const WorldKindInfo& info = kindInfo(kind);
    const std::string name = std::to_string(zone) + std::string(info.extension);
    const fs::path folder = shopFile.parent_path();
    std::error_code ec;
    if (fs::is_regular_file(folder / name, ec))
        return folder / name;
    return folder.parent_path() / std::string(info.folder) / name;
}

template <typename Kind>
void readNames(const fs::path& path, std::map<std::int32_t, std::string>& names,
               std::string Kind::Record::*field) {
    names.clear();
    auto table = std::make_unique<typename Kind::File>();
    const LoadOutcome outcome = loadZoneTable(path, *table, Kind::read);
    if (!outcome.ok)
        return;
    for (int slot = 0; slot < outcome.count; ++slot) {
        const auto& record = (*table)[std::size_t(slot)];
        names.emplace(record.VNum, record.*field); // the first of a VNum, as the server
    }
}

} // namespace

void ShopNames::load(const fs::path& shopFile, std::int32_t zone) {
    zone_ = zone;
    readNames<MobileKind>(fileOf(shopFile, zone, WorldKind::Mobile), mobiles_,
                          &MobileRecord::SDesc);
    readNames<ObjectKind>(fileOf(shopFile, zone, WorldKind::Object), objects_,
                          &ObjectRecord::SDesc);
    readNames<RoomKind>(fileOf(shopFile, zone, WorldKind::Room), rooms_, &RoomRecord::Name);
}

const std::map<std::int32_t, std::string>* ShopNames::find(WorldKind kind) const {
    switch (kind) {
    case WorldKind::Mobile:
        return &mobiles_;
    case WorldKind::Object:
        return &objects_;
    case WorldKind::Room:
        return &rooms_;
    default:
        return nullptr;
    }
}

std::optional<std::string> ShopNames::name(WorldKind kind, std::int32_t vnum) const {
    const auto* names = find(kind);
    if (!names)
        return std::nullopt;
    const auto at = names->find(vnum);
    return at == names->end() ? std::nullopt : std::optional<std::string>(at->second);
}

std::vector<std::pair<std::int32_t, std::string>> ShopNames::listing(WorldKind kind) const {
    const auto* names = find(kind);
    return names ? std::vector<std::pair<std::int32_t, std::string>>(names->begin(), names->end())
                 : std::vector<std::pair<std::int32_t, std::string>>();
}

} // namespace marl
