#include "shops/format/shop_checks.h"

#include <algorithm>

namespace marl {

namespace {

// The server's most entries of a list; it logs the rest and drops them.
constexpr std::size_t kServerListEntries = 100;
constexpr int kOlderProducts = 5;
constexpr int kOlderBuyTypes = 5;
// A factor's line, its line end included, within the server's line piece.
constexpr std::size_t kMaxFactor = 253;
// Keywords within the server's type line after the longest type name.
constexpr std::size_t kMaxKeywords = 8191 - 2 - std::string_view("LIQ CONTAINER ").size();
constexpr int kLastHour = 28;

std::string capital(std::string text) {
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z')
        text.front() = char(text.front() - 'a' + 'A');
    return text;
}

std::string times(int count) {
    static const char* const words[] = {"no", "one", "two", "three", "four", "five"};
    return count < 6 ? words[count] : std::to_string(count);
}

std::string message(std::size_t index) {
    return capital(kShopMessageDefs[index].when);
}

const char* const kDrops = "; the server drops it";

// What the server finds of the `%` signs of one message.
struct Signs {
    int names = 0;       // %s
    int prices = 0;      // %d, in a price message
    int strayPrices = 0; // %d elsewhere
    bool priceFirst = false;
    std::string other; // the first other sign, as the builder reads it
};

Signs signsOf(std::string_view text, bool price) {
    Signs signs;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%')
            continue;
        // Each `%` is looked at with the character after it, the second of
        // "%%" too.
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (next == 's') {
            ++signs.names;
        } else if (next == 'd') {
            signs.priceFirst = signs.priceFirst || (price && signs.names == 0);
            ++(price ? signs.prices : signs.strayPrices);
        } else if (next != '%' && signs.other.empty()) {
            signs.other = next == '\0'                   ? "a % at its end"
                          : next == '\r' || next == '\n' ? "a % at the end of a line"
                                                         : "\"%" + std::string(1, next) + '"';
        }
    }
    return signs;
}

template <typename Rule> void eachMessage(const ShopRecord& shop, Rule rule) {
    for (std::size_t i = 0; i < shop.Messages.size(); ++i)
        rule(i, signsOf(shop.Messages[i], kShopMessageDefs[i].price));
}

void dropped(ShopProblems& found, std::size_t index, const std::string& what) {
    found.push_back({ShopField::Message, int(index), Severity::OnlyLogged, true,
                     message(index) + ' ' + what + kDrops});
}

std::string typeName(std::int32_t type) {
    const std::string_view name = shopItemTypeName(type);
    return "the buy type " + (name.empty() ? std::to_string(type) : std::string(name));
}

void listProblem(ShopProblems& found, ShopField field, Severity severity, std::string what) {
    found.push_back({field, 0, severity, true, std::move(what)});
}

int lineOf(const ShopLines& lines, const ShopProblem& problem) {
    const std::size_t index = std::size_t(problem.index);
    switch (problem.field) {
    case ShopField::Products:
        return lines.products;
    case ShopField::BuyFactor:
        return lines.buyFactor;
    case ShopField::SellFactor:
        return lines.sellFactor;
    case ShopField::BuyTypes:
        return lines.buyTypes;
    case ShopField::Message:
        return lines.messages[index];
    case ShopField::Temper:
        return lines.temper;
    case ShopField::Flags:
        return lines.flags;
    case ShopField::Keeper:
        return lines.keeper;
    case ShopField::TradeWith:
        return lines.tradeWith;
    case ShopField::Rooms:
        return lines.rooms;
    case ShopField::Hour:
        return lines.hours[index];
    }
    return 0;
}

} // namespace

void checkMessageNames(ShopProblems& found, const ShopRecord& shop) {
    eachMessage(shop, [&](std::size_t i, const Signs& signs) {
        if (signs.names > 1)
            dropped(found, i, "has " + times(signs.names) + " %s");
    });
}

void checkMessagePrices(ShopProblems& found, const ShopRecord& shop) {
    eachMessage(shop, [&](std::size_t i, const Signs& signs) {
        if (signs.strayPrices > 0)
            dropped(found, i,
                    "has a %d, which only the messages when the keeper sells or buys "
                    "may have");
        else if (signs.prices > 1)
            dropped(found, i, "has " + times(signs.prices) + " %d");
        else if (signs.priceFirst)
            dropped(found, i, "has its %d before any %s (the customer's name comes first)");
    });
}

void checkMessageSigns(ShopProblems& found, const ShopRecord& shop) {
    eachMessage(shop, [&](std::size_t i, const Signs& signs) {
        if (!signs.other.empty())
            dropped(found, i, "has " + signs.other + ", which the server does not take");
    });
}

void checkEmptyMessages(ShopProblems& found, const ShopRecord& shop) {
    for (std::size_t i = 0; i < shop.Messages.size(); ++i)
        if (shop.Messages[i].empty())
            found.push_back({ShopField::Message, int(i), Severity::Silent, true,
                             message(i) + " is empty: the server keeps no message for it, as "
                                          "for one it drops"});
}

void checkMessageLengths(ShopProblems& found, const ShopRecord& shop, LineEnd lineEnd) {
    for (std::size_t i = 0; i < shop.Messages.size(); ++i)
        if (const std::size_t length =
                serverTextLength(shop.Messages[i], TextForm::String, lineEnd);
            length >= kServerTextBuffer)
            found.push_back({ShopField::Message, int(i), Severity::RefusesBoot, true,
                             message(i) + " is " + std::to_string(length) +
                                 " bytes as the server reads it; it reads at most " +
                                 std::to_string(kServerTextBuffer - 1) +
                                 " and stops booting at a longer one"});
}

void checkHours(ShopProblems& found, const ShopRecord& shop) {
    for (std::size_t i = 0; i < shop.Hours.size(); ++i)
        if (shop.Hours[i] < 0 || shop.Hours[i] > kLastHour)
            found.push_back({ShopField::Hour, int(i), Severity::Silent, true,
                             capital(kShopHourNames[i]) + ' ' + std::to_string(shop.Hours[i]) +
                                 " is outside 0-" + std::to_string(kLastHour)});
}

void checkFactors(ShopProblems& found, const ShopRecord& shop) {
    const auto check = [&](ShopField field, const std::string& text, const char* name) {
        const bool oneLine = text.find_first_of("\r\n") == std::string::npos;
        if (text.empty())
            listProblem(found, field, Severity::RefusesBoot,
                        std::string(name) + " is empty; the server needs a number there");
        else if (!oneLine || text.size() > kMaxFactor || !factorValue(text))
            listProblem(found, field, Severity::RefusesBoot,
                        std::string(name) + " \"" + text + "\" is not a number");
    };
    check(ShopField::BuyFactor, shop.BuyFactor, "The buying price factor");
    check(ShopField::SellFactor, shop.SellFactor, "The selling price factor");
}

void checkFactorOrder(ShopProblems& found, const ShopRecord& shop) {
    const std::optional<double> buy = factorValue(shop.BuyFactor);
    const std::optional<double> sell = factorValue(shop.SellFactor);
    if (buy && sell && *sell > *buy)
        found.push_back({ShopField::SellFactor, 0, Severity::Silent, false,
                         "The selling price factor " + shop.SellFactor +
                             " is above the buying one " + shop.BuyFactor +
                             ": players earn money by buying and selling back"});
}

void checkLists(ShopProblems& found, const ShopRecord& shop, bool olderForm) {
    const auto entries = [&](ShopField field, std::size_t size, const char* noun, int older) {
        const std::string n = std::to_string(size);
        if (olderForm && int(size) > older)
            listProblem(found, field, Severity::RefusesBoot,
                        "An older-form shop file holds at most " + times(older) + ' ' +
                            (older == 1 ? "room" : noun) + " per shop; this shop has " + n);
        else if (size > kServerListEntries)
            listProblem(found, field, Severity::OnlyLogged,
                        "The shop has " + n + ' ' + noun + "; the server keeps the first " +
                            std::to_string(kServerListEntries) + " and logs the rest");
    };
    entries(ShopField::Products, shop.Products.size(), "products", kOlderProducts);
    entries(ShopField::BuyTypes, shop.BuyTypes.size(), "buy types", kOlderBuyTypes);
    entries(ShopField::Rooms, shop.Rooms.size(), "rooms", 1);
    if (olderForm) {
        if (std::any_of(shop.BuyTypes.begin(), shop.BuyTypes.end(),
                        [](const ShopBuyType& type) { return !type.Keywords.empty(); }))
            listProblem(found, ShopField::BuyTypes, Severity::RefusesBoot,
                        "An older-form shop file holds no keywords after a buy type");
        return;
    }
    // In the current form a negative number ends its list.
    const auto negative = [&](ShopField field, const char* noun, std::int32_t value) {
        if (value < 0)
            listProblem(found, field, Severity::RefusesBoot,
                        std::string("The ") + noun + " hold " + std::to_string(value) +
                            ", and a negative number ends their list there");
    };
    for (std::int32_t product : shop.Products)
        negative(ShopField::Products, "products", product);
    for (const ShopBuyType& type : shop.BuyTypes)
        negative(ShopField::BuyTypes, "buy types", type.Type);
    for (std::int32_t room : shop.Rooms)
        negative(ShopField::Rooms, "rooms", room);
}

void checkBuyTypeKeywords(ShopProblems& found, const ShopRecord& shop) {
    for (const ShopBuyType& type : shop.BuyTypes) {
        if (type.Keywords.find(';') != std::string::npos)
            listProblem(found, ShopField::BuyTypes, Severity::Silent,
                        capital(typeName(type.Type)) +
                            " has a \";\" in its keywords, where the server stops reading them");
        if (type.Keywords.size() > kMaxKeywords ||
            type.Keywords.find_first_of("\r\n") != std::string::npos)
            listProblem(found, ShopField::BuyTypes, Severity::RefusesBoot,
                        "The keywords of " + typeName(type.Type) + " are not one line of at most " +
                            std::to_string(kMaxKeywords) + " characters, as the server reads them");
    }
}

ShopProblems shopProblems(const ShopRecord& shop, LineEnd lineEnd, bool olderForm) {
    ShopProblems found;
    checkMessageNames(found, shop);
    checkMessagePrices(found, shop);
    checkMessageSigns(found, shop);
    checkEmptyMessages(found, shop);
    checkMessageLengths(found, shop, lineEnd);
    checkFactors(found, shop);
    checkFactorOrder(found, shop);
    checkHours(found, shop);
    checkLists(found, shop, olderForm);
    checkBuyTypeKeywords(found, shop);
    return found;
}

std::vector<ShopFileProblem> shopFileProblems(const ShopTable& table, int count,
                                              std::vector<ShopLines>* eachLines) {
    std::vector<ShopFileProblem> found;
    int header = 1 + int(std::count(table.leader.begin(), table.leader.end(), '\n'));
    for (int slot = 0; slot < count; ++slot) {
        const ShopRecord& shop = table[std::size_t(slot)];
        const bool older = olderFormAt(table, slot);
        const ShopLines lines = shopLines(shop, older);
        if (eachLines)
            eachLines->push_back(lines);
        for (ShopProblem& problem : shopProblems(shop, table.lineEnd, older))
            found.push_back({header + lineOf(lines, problem), problem.severity,
                             "shop " + std::to_string(shop.VNum) + ": " + problem.what});
        header += int(std::count(shop.Source.begin(), shop.Source.end(), '\n'));
    }
    return found;
}

} // namespace marl
