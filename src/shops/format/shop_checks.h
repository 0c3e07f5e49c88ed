#pragma once
// What the server refuses, drops or takes silently of a shop, one check per
// rule, for the shop window's Save and marl-check alike.  Each problem names
// its field and says what is wrong as a builder reads it ("The message when
// the keeper sells has two %s; the server drops it").

#include <string>
#include <vector>

#include "shops/format/shop_file.h"
#include "world/server_limits.h"

namespace marl {

enum class ShopField {
    Products,
    BuyFactor,
    SellFactor,
    BuyTypes,
    Message, // index: kShopMessageDefs
    Temper,
    Flags,
    Keeper,
    TradeWith,
    Rooms,
    Hour, // index: kShopHourNames
};

struct ShopProblem {
    ShopField field;
    int index; // which message or hour; 0 for the other fields
    Severity severity;
    bool refusesSave; // Save refuses the shop; otherwise it warns and saves
    std::string what;
};
using ShopProblems = std::vector<ShopProblem>;

// The messages, as the server checks each one while it reads it: it drops a
// message it refuses (logging why), and the shop is left without it.
// More than one %s (the customer's name).
void checkMessageNames(ShopProblems& found, const ShopRecord& shop);
// A %d (the price) in a message other than the two price messages, more
// than one, or one before the %s.
void checkMessagePrices(ShopProblems& found, const ShopRecord& shop);
// Any other % ("%x", a % at the end): the server takes only %s and %d.
void checkMessageSigns(ShopProblems& found, const ShopRecord& shop);
// An empty message, which the server keeps as no message at all.
void checkEmptyMessages(ShopProblems& found, const ShopRecord& shop);
// A message longer than the server reads (it stops booting).
void checkMessageLengths(ShopProblems& found, const ShopRecord& shop, LineEnd lineEnd);

// An hour outside 0-28.
void checkHours(ShopProblems& found, const ShopRecord& shop);
// A price factor that is not a number on one line.
void checkFactors(ShopProblems& found, const ShopRecord& shop);
// A selling factor above the buying one: players earn money by buying and
// selling back (a warning).
void checkFactorOrder(ShopProblems& found, const ShopRecord& shop);
// Lists the file cannot hold: a negative number in the current form (it
// ends the list there), more than the older form's five products, five
// types and one room, keywords in the older form; and more entries than
// the server keeps (it logs the rest).
void checkLists(ShopProblems& found, const ShopRecord& shop, bool olderForm);
// Keywords holding a `;` (the server reads no further) or too long for the
// server's line.
void checkBuyTypeKeywords(ShopProblems& found, const ShopRecord& shop);

// Every check, the message rules first.
ShopProblems shopProblems(const ShopRecord& shop, LineEnd lineEnd, bool olderForm);

// The problems of the shops in slots 0 to count - 1 of a table read from a
// file, each at the line its field begins: "shop 3000: The message ...".
struct ShopFileProblem {
    int line;
    Severity severity;
    std::string what;
};
// `lines`, when given, gets each shop's lines, slot by slot.
std::vector<ShopFileProblem> shopFileProblems(const ShopTable& table, int count,
                                              std::vector<ShopLines>* lines = nullptr);

} // namespace marl
