#pragma once
// The shop file (.shp): shops read from and written to the server's text.
//
// The server reads a shop file as a run of texts each ending in `~`: one
// that begins with `#` is a shop, with its number; one that begins with `$`
// ends the file; any other it reads over, and one holding "v3.0" (the first
// line `CircleMUD v3.0 Shop File~`) turns the shops after it to the current
// form.  Shops before such a line are in the older form, whose lists have a
// fixed length: five products, five item types and one room, a -1 standing
// for none.  In the current form the lists end at a negative number and an
// item type may be named and followed by keywords.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "shops/format/shop_record.h"

namespace marl {

// The first line of a file of the current form, without its `~`.
inline constexpr std::string_view kShopFileMarker = "CircleMUD v3.0 Shop File";

// Reads a whole shop file into a cleared table, slot 0 upward, and returns
// the number of shops, as the server counts them.  Throws FormatError for a
// file the server would stop at or read otherwise than the editor can
// hold; the table then holds the shops read so far.
int readShops(std::string_view bytes, ShopTable& table);

// The text of a shop file holding slots 0 to count - 1, in the table's line
// ends.  A shop read and not stored since is written as it was read; any
// other field by field, in the form the server reads it in at its place.
// A table never read (no `$~` line kept) is a new file of the current form.
std::string writeShops(const ShopTable& table, int count);

// Whether the server reads the shop in `slot` in the older form: no line
// before it marks the current form, in a file that was read.
bool olderFormAt(const ShopTable& table, int slot);

// The number the server reads from a price factor's line (`%f`: blanks, a
// sign, a decimal or hexadecimal number, `inf` or `nan`; whatever follows
// is not looked at), or nothing when it reads none and stops.
std::optional<double> factorValue(std::string_view text);

// The lines of a shop read from a file, counted from its `#` line as 0:
// where each field begins, for messages that name a line.
struct ShopLines {
    int products = 0;
    int buyFactor = 0;
    int sellFactor = 0;
    int buyTypes = 0;
    std::array<int, kShopMessages> messages{};
    int temper = 0;
    int flags = 0;
    int keeper = 0;
    int tradeWith = 0;
    int rooms = 0;
    std::array<int, kShopHours> hours{};
};
// Those of a shop that still has its Source, read in `olderForm`.
ShopLines shopLines(const ShopRecord& shop, bool olderForm);

} // namespace marl
