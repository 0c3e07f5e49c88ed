#include "shops/format/shop_record.h"

namespace marl {

const std::array<ShopMessageDef, kShopMessages> kShopMessageDefs = {{
    {"textNoSuchItemKeeper", "the message when the keeper has no such item", false},
    {"textNoSuchItemCustomer", "the message when the customer has no such item", false},
    {"textDoesNotBuy", "the message when the keeper does not buy the item", false},
    {"textKeeperCannotPay", "the message when the keeper cannot afford the item", false},
    {"textCustomerCannotPay", "the message when the customer cannot afford the item", false},
    {"textKeeperSells", "the message when the keeper sells", true},
    {"textKeeperBuys", "the message when the keeper buys", true},
}};

const std::array<const char*, kShopHours> kShopHourNames = {
    "the first opening hour", "the first closing hour", "the second opening hour",
    "the second closing hour"};

const std::array<FlagDef, 2> kShopFlags = {{
    {'a', "checkShopStartsFights", "Starts fights"},
    {'b', "checkShopBanksMoney", "Banks money"},
}};

const std::array<FlagDef, 7> kTradeWithFlags = {{
    {'a', "checkTradeNoGood", "No good"},
    {'b', "checkTradeNoEvil", "No evil"},
    {'c', "checkTradeNoNeutral", "No neutral"},
    {'d', "checkTradeNoMagicUser", "No magic user"},
    {'e', "checkTradeNoCleric", "No cleric"},
    {'f', "checkTradeNoThief", "No thief"},
    {'g', "checkTradeNoWarrior", "No warrior"},
}};

const std::array<ChoiceDef, 3> kShopTempers = {{
    {0, "optionTemperInsult", "Insults the customer"},
    {1, "optionTemperEmote", "Emotes"},
    {-1, "optionTemperNothing", "Does nothing"},
}};

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
