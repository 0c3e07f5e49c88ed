#pragma once
// The shop record, its vocabularies, and the shop table.  A shop file holds
// one record per shopkeeper: what the keeper sells and buys, at what price,
// what the keeper says, and where and when the shop is open.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "world/record_table.h"

namespace marl {

inline constexpr int kShopMessages = 7;
inline constexpr int kShopHours = 4;

// An item type the keeper buys: the object type's number (5 for WEAPON) and
// the keywords the object must also have (empty: any object of the type).
struct ShopBuyType {
    std::int32_t Type = 0;
    std::string Keywords;
    bool operator==(const ShopBuyType&) const = default;
};

struct ShopRecord {
    // The record's bytes as the file held them, from its `#` line up to the
    // next shop's, while it has not been stored from a window since it was
    // read: a shop the builder did not touch is written back byte for byte.
    // Whatever stores into the record from a window empties it.
    std::string Source;
    // What stood after the shop's last line up to the next shop: texts
    // ending in `~` that the server reads over (a comment, the line that
    // marks the file's form).  Written after the shop when it is written
    // field by field.
    std::string After;
    std::int32_t VNum = 0;
    // The object VNums the keeper always has for sale.
    std::vector<std::int32_t> Products;
    // The price factors as the builder wrote them ("1.15"): what a player
    // pays when buying, and gets when selling, as a multiple of the
    // object's cost.  Kept as text, so a factor is written as it stood.
    std::string BuyFactor;
    std::string SellFactor;
    std::vector<ShopBuyType> BuyTypes;
    // In kShopMessageDefs order; line breaks inside a message as CR LF.
    std::array<std::string, kShopMessages> Messages;
    // When a customer cannot pay: 0 an insulting social, 1 an emote, any
    // other number nothing.
    std::int32_t Temper = 0;
    std::int32_t Flags = 0;     // bit 1 starts fights, 2 banks money
    std::int32_t Keeper = 0;    // the shopkeeper's mobile VNum
    std::int32_t TradeWith = 0; // the customers the keeper refuses
    std::vector<std::int32_t> Rooms;
    // Open and close hours of the first period, then of the second.
    std::array<std::int32_t, kShopHours> Hours{};
    bool operator==(const ShopRecord&) const = default;
};

using ShopTable = RecordTable<ShopRecord>;

// The seven messages, in the file's order: what each is said for, as the
// builder reads it ("the message when the keeper sells").
struct ShopMessageDef {
    const char* when;
    bool price; // the two messages that may name the price with %d
};
extern const std::array<ShopMessageDef, kShopMessages> kShopMessageDefs;

// The four hours, in the file's order ("the first opening hour").
extern const std::array<const char*, kShopHours> kShopHourNames;

// The item types as the server names them in a shop file, by number:
// "UNDEFINED" 0 to "FOUNTAIN" 23.
extern const std::array<std::string_view, 24> kShopItemTypes;
// The type's name, or empty for a number the server has no name for.
std::string_view shopItemTypeName(std::int32_t type);

// The shop table of the run and its clearing.
ShopTable& shopTable();
void ClearShopTable();

} // namespace marl
