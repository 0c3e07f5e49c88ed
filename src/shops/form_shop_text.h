#pragma once
// The shop editor's captions and control names, as data beside the window:
// the seven messages, each labelled with when the keeper says it, the four
// hours, and the three lists of VNums or buy types with their commands.

#include <array>

#include "kinds/world_model.h"
#include "shops/format/shop_record.h"
#include "world/vocabulary.h"

namespace marl {

struct ShopMessageField {
    const char* control;
    const char* label; // when the keeper says it
};
// In the record's order (kShopMessageDefs).
inline constexpr std::array<ShopMessageField, kShopMessages> kShopMessageFields = {{
    {"textNoSuchItemKeeper", "Keeper has no such item:"},
    {"textNoSuchItemCustomer", "Customer has no such item:"},
    {"textDoesNotBuy", "Keeper does not buy it:"},
    {"textKeeperCannotPay", "Keeper cannot afford it:"},
    {"textCustomerCannotPay", "Customer cannot afford it:"},
    {"textKeeperSells", "Keeper sells (%d the price):"},
    {"textKeeperBuys", "Keeper buys (%d the price):"},
}};

// The shop's flags and the customers it does not trade with, each a bit of
// its number (letter `a` bit 1, `b` bit 2, ...).
inline constexpr std::array<FlagDef, 2> kShopFlags = {{
    {'a', "checkShopStartsFights", "Starts fights"},
    {'b', "checkShopBanksMoney", "Banks money"},
}};

inline constexpr std::array<FlagDef, 7> kTradeWithFlags = {{
    {'a', "checkTradeNoGood", "No good"},
    {'b', "checkTradeNoEvil", "No evil"},
    {'c', "checkTradeNoNeutral", "No neutral"},
    {'d', "checkTradeNoMagicUser", "No magic user"},
    {'e', "checkTradeNoCleric", "No cleric"},
    {'f', "checkTradeNoThief", "No thief"},
    {'g', "checkTradeNoWarrior", "No warrior"},
}};

// What the keeper does when a customer cannot pay: any other number does
// nothing, and is kept as it is.
inline constexpr std::array<ChoiceDef, 3> kShopTempers = {{
    {0, "optionTemperInsult", "Insults the customer"},
    {1, "optionTemperEmote", "Emotes"},
    {-1, "optionTemperNothing", "Does nothing"},
}};

struct ShopHourField {
    const char* control;
    const char* caption; // names the field in messages
};
// In the record's order: the first period's opening and closing, then the
// second's.
inline constexpr std::array<ShopHourField, kShopHours> kShopHourFields = {{
    {"textOpen1", "First Opening Hour"},
    {"textClose1", "First Closing Hour"},
    {"textOpen2", "Second Opening Hour"},
    {"textClose2", "Second Closing Hour"},
}};

// A list of the shop's and the names its controls take: "Product" makes
// listProducts, textProduct, buttonPickProduct, buttonProductAdd ...
struct ShopListText {
    const char* noun;  // "Product"
    const char* frame; // "frameProducts"
    const char* caption;
    const char* list;  // "listProducts"
    const char* field; // "textProduct", the VNum or type beside the list
    const char* pick;  // "buttonPickProduct", or null
    WorldKind kind;    // what its VNums name
    const char* many;  // "products", in the older form's limit
    int olderLimit;    // what a shop of the older form holds at most
};
inline constexpr ShopListText kProductsList{"Product",         "frameProducts", "Products",
                                            "listProducts",    "textProduct",   "buttonPickProduct",
                                            WorldKind::Object, "products",      5};
inline constexpr ShopListText kRoomsList{"Room",          "frameRooms", "Rooms",
                                         "listRooms",     "textRoom",   "buttonPickRoom",
                                         WorldKind::Room, "rooms",      1};
inline constexpr ShopListText kBuyTypesList{"BuyType",         "frameBuyTypes", "Buy Types",
                                            "listBuyTypes",    "comboBuyType",  nullptr,
                                            WorldKind::Object, "buy types",     5};

} // namespace marl
