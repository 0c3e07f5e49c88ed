#include "shops/format/shop_record.h"

namespace marl {

const std::array<ShopMessageDef, kShopMessages> kShopMessageDefs = {{
    {"the message when the keeper has no such item", false},
    {"the message when the customer has no such item", false},
    {"the message when the keeper does not buy the item", false},
    {"the message when the keeper cannot afford the item", false},
    {"the message when the customer cannot afford the item", false},
    {"the message when the keeper sells", true},
    {"the message when the keeper buys", true},
}};

const std::array<const char*, kShopHours> kShopHourNames = {
    "the first opening hour", "the first closing hour", "the second opening hour",
    "the second closing hour"};

const std::array<std::string_view, 24> kShopItemTypes = {
    "UNDEFINED", "LIGHT",         "SCROLL", "WAND", "STAFF", "WEAPON", "FIRE WEAPON", "MISSILE",
    "TREASURE",  "ARMOR",         "POTION", "WORN", "OTHER", "TRASH",  "TRAP",        "CONTAINER",
    "NOTE",      "LIQ CONTAINER", "KEY",    "FOOD", "MONEY", "PEN",    "BOAT",        "FOUNTAIN"};

std::string_view shopItemTypeName(std::int32_t type) {
    return type >= 0 && type < std::int32_t(kShopItemTypes.size())
               ? kShopItemTypes[std::size_t(type)]
               : std::string_view();
}

ShopTable& shopTable() {
    static ShopTable table;
    return table;
}

void ClearShopTable() {
    shopTable().clear();
}

} // namespace marl
