#include "shops/format/shop_file.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "world/record_file.h"
#include "world/text_writer.h"

namespace marl {

namespace {

constexpr std::string_view kNext = "a shop \"#<number>~\" or the end of the file \"$~\"";
constexpr std::string_view kHeader = "a shop header \"#<number>~\"";
constexpr std::string_view kProduct = "an object VNum the shop sells, or -1 ending them";
constexpr std::string_view kOlderProduct =
    "an object VNum the shop sells, or -1 for none (five lines in an older shop file)";
constexpr std::string_view kBuyFactor = "the buying price factor, a number such as 1.15";
constexpr std::string_view kSellFactor = "the selling price factor, a number such as 0.15";
constexpr std::string_view kBuyType =
    "an item type the shop buys (a name such as WEAPON, or its number), or -1 ending them";
constexpr std::string_view kOlderBuyType =
    "an item type number the shop buys, or -1 for none (five lines in an older shop file)";
constexpr std::string_view kTemper = "what the keeper does when a customer cannot pay, a number";
constexpr std::string_view kFlags = "the shop's flags, a number";
constexpr std::string_view kKeeper = "the shopkeeper's mobile VNum";
constexpr std::string_view kTradeWith = "the customers the shop does not trade with, a number";
constexpr std::string_view kRoom = "a room VNum of the shop, or -1 ending them";
constexpr std::string_view kOlderRoom =
    "the room VNum of the shop (one line in an older shop file)";
constexpr std::string_view kHour = "an opening or closing hour, a number";
constexpr int kOlderProducts = 5;
constexpr int kOlderBuyTypes = 5;
constexpr int kOlderRooms = 1;

// The server reads a number's line in pieces of this many bytes, line end
// included, and a type line into a buffer this long.
constexpr std::size_t kServerLine = 255;
constexpr std::size_t kServerTypeLine = 8191;

const std::string kLongLine = "the line is longer than the " + std::to_string(kServerLine) +
                              " characters the server reads at once, and it reads the rest as "
                              "a line of its own";

bool equalsIgnoringCase(std::string_view text, std::string_view upper) {
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(), [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? char(a - 'a' + 'A') : a) == b;
    });
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A buy type's line as the server reads it: a type's name at its start
// (any case) or a number, then keywords.  A line that is neither ends the
// list as -1 would; the server then looks for the keywords past the first
// digits of the line, and a line without digits it reads past its end.
struct TypeLine {
    std::int32_t type = -1;
    std::string_view keywords;
};

TypeLine typeLine(std::string_view text, int line) {
    TypeLine read;
    std::string_view rest;
    const auto named = std::find_if(kShopItemTypes.begin(), kShopItemTypes.end(), [&](auto name) {
        return equalsIgnoringCase(text.substr(0, name.size()), name);
    });
    if (named != kShopItemTypes.end()) {
        read.type = std::int32_t(named - kShopItemTypes.begin());
        rest = text.substr(named->size());
    } else {
        std::size_t i = 0;
        while (i < text.size() && isBlank(text[i]))
            ++i;
        const std::size_t sign = i < text.size() && (text[i] == '-' || text[i] == '+') ? i + 1 : i;
        if (sign < text.size() && isDigit(text[sign]))
            read.type = FieldLine(text, line, "d", kBuyType).int32(0);
        std::size_t digits = text.find_first_of("0123456789");
        if (digits == std::string_view::npos)
            throw FormatError(line, std::string(kBuyType));
        while (digits < text.size() && isDigit(text[digits]))
            ++digits;
        rest = text.substr(digits);
    }
    while (!rest.empty() && isBlank(rest.front()))
        rest.remove_prefix(1);
    while (!rest.empty() && isBlank(rest.back()))
        rest.remove_suffix(1);
    read.keywords = rest;
    return read;
}

// One shop after its header, read as the server reads it, with the lines
// where its fields begin.
class ShopBody {
public:
    ShopBody(TextReader& in, std::string_view bytes, int header, ShopLines& lines)
        : in_(in), bytes_(bytes), header_(header), lines_(lines) {}

    void read(ShopRecord& shop, bool older) {
        shop.Products.clear();
        shop.BuyTypes.clear();
        shop.Rooms.clear();
        list(shop.Products, older ? kOlderProducts : 0, older ? kOlderProduct : kProduct,
             lines_.products);
        shop.BuyFactor = factor(kBuyFactor, lines_.buyFactor);
        shop.SellFactor = factor(kSellFactor, lines_.sellFactor);
        if (older) {
            std::vector<std::int32_t> types;
            list(types, kOlderBuyTypes, kOlderBuyType, lines_.buyTypes);
            for (std::int32_t type : types)
                shop.BuyTypes.push_back({type, {}});
        } else {
            buyTypes(shop.BuyTypes);
        }
        static const auto expected = [] {
            std::array<std::string, kShopMessages> texts;
            for (std::size_t i = 0; i < texts.size(); ++i)
                texts[i] = std::string(kShopMessageDefs[i].when) + ", ending in \"~\"";
            return texts;
        }();
        for (std::size_t i = 0; i < shop.Messages.size(); ++i) {
            lines_.messages[i] = in_.lineNumber() - header_;
            in_.readTildeString(expected[i], shop.Messages[i]);
        }
        shop.Temper = number(kTemper, lines_.temper);
        shop.Flags = number(kFlags, lines_.flags);
        shop.Keeper = number(kKeeper, lines_.keeper);
        shop.TradeWith = number(kTradeWith, lines_.tradeWith);
        list(shop.Rooms, older ? kOlderRooms : 0, older ? kOlderRoom : kRoom, lines_.rooms);
        for (std::size_t i = 0; i < shop.Hours.size(); ++i)
            shop.Hours[i] = number(kHour, lines_.hours[i]);
    }

    // The first line the server passed over inside the shop, or 0.
    int firstSkipped() const { return firstSkipped_; }

private:
    // The next line the server's line reader gives, which passes over empty
    // and `*` lines, each in pieces of kServerLine bytes: a longer line is
    // refused (the rest of a line passed over only when it is passed over
    // too).
    std::string_view line(std::string_view what, int& at) {
        const int from = in_.lineNumber();
        std::string_view text = in_.nextLine(what);
        const std::size_t start = in_.lastLineStart();
        std::string_view skipped = bytes_.substr(in_.skippedFrom(), start - in_.skippedFrom());
        if (!skipped.empty() && firstSkipped_ == 0)
            firstSkipped_ = from;
        for (int number = from; !skipped.empty(); ++number) {
            const std::size_t end = std::min(skipped.find('\n'), skipped.size() - 1) + 1;
            for (std::size_t piece = kServerLine; piece < end; piece += kServerLine)
                if (const char c = skipped[piece]; c != '*' && c != '\r' && c != '\n')
                    throw FormatError::refused(number, kLongLine);
            skipped.remove_prefix(end);
        }
        if (in_.position() - start > kServerLine)
            throw FormatError::refused(in_.lastLineNumber(), kLongLine);
        at = in_.lastLineNumber() - header_;
        while (!text.empty() && text.back() == '\r')
            text.remove_suffix(1);
        return text;
    }

    std::int32_t number(std::string_view what, int& at) {
        const std::string_view text = line(what, at);
        return FieldLine(text, in_.lastLineNumber(), "d", what).int32(0);
    }

    std::string factor(std::string_view what, int& at) {
        const std::string_view text = line(what, at);
        if (!factorValue(text))
            throw FormatError(in_.lastLineNumber(), std::string(what));
        return std::string(text);
    }

    // A list of numbers: `fixed` of them, -1 standing for none, or (0) up to
    // the first negative one.
    void list(std::vector<std::int32_t>& values, int fixed, std::string_view what, int& at) {
        int later = 0;
        for (int i = 0; fixed == 0 || i < fixed; ++i) {
            const std::int32_t value = number(what, i == 0 ? at : later);
            if (fixed == 0 && value < 0)
                break;
            if (value != -1)
                values.push_back(value);
        }
    }

    // The current form's buy types, read line by line, as they stand (no
    // line is passed over), up to the first negative type.
    void buyTypes(std::vector<ShopBuyType>& types) {
        for (bool first = true;; first = false) {
            std::string_view text = in_.readLine(kBuyType);
            const int number = in_.lastLineNumber();
            if (first)
                lines_.buyTypes = number - header_;
            if (in_.position() - in_.lastLineStart() > kServerTypeLine)
                throw FormatError::refused(
                    number, "the line is longer than the " + std::to_string(kServerTypeLine) +
                                " characters the server reads of a buy type");
            // A `;` ends what the server looks at.
            text = text.substr(0, text.find(';'));
            const TypeLine read = typeLine(text, number);
            if (read.type >= 0) {
                types.push_back({read.type, std::string(read.keywords)});
                continue;
            }
            // The keywords on a -1 line go to the type before it; on another
            // negative number, to a type no object has.
            if (read.type == -1 && !read.keywords.empty()) {
                if (types.empty())
                    throw FormatError::refused(
                        number, "keywords after the -1 that ends the buy types, with no buy "
                                "type before it to take them");
                types.back().Keywords = read.keywords;
            }
            return;
        }
    }

    TextReader& in_;
    std::string_view bytes_;
    int header_;
    ShopLines& lines_;
    int firstSkipped_ = 0;
};

// Whether the texts ending in `~` that the server reads over here hold the
// line that marks the current form: the text up to each `~`, the rest of
// its line dropped.
bool marksCurrentForm(std::string_view texts) {
    for (std::size_t at = 0; at < texts.size();) {
        const std::size_t tilde = texts.find('~', at);
        if (texts.substr(at, tilde - at).find("v3.0") != std::string_view::npos)
            return true;
        const std::size_t lf = texts.find('\n', tilde);
        if (tilde == std::string_view::npos || lf == std::string_view::npos)
            break;
        at = lf + 1;
    }
    return false;
}

void writeNumbers(TextWriter& out, const std::vector<std::int32_t>& values, int fixed) {
    for (std::int32_t value : values)
        out.numbers(value);
    const int ends = fixed == 0 ? 1 : fixed - int(values.size());
    for (int i = 0; i < ends; ++i)
        out.numbers(-1);
}

void writeShop(TextWriter& out, const ShopRecord& shop, bool older) {
    out.put('#').number(shop.VNum).put('~').endLine();
    writeNumbers(out, shop.Products, older ? kOlderProducts : 0);
    out.line(shop.BuyFactor).line(shop.SellFactor);
    if (older) {
        std::vector<std::int32_t> types;
        for (const ShopBuyType& type : shop.BuyTypes)
            types.push_back(type.Type);
        writeNumbers(out, types, kOlderBuyTypes);
    } else {
        for (const ShopBuyType& type : shop.BuyTypes) {
            if (const std::string_view name = shopItemTypeName(type.Type); !name.empty())
                out.put(name);
            else
                out.number(type.Type);
            if (!type.Keywords.empty())
                out.put(' ').put(type.Keywords);
            out.endLine();
        }
        out.numbers(-1);
    }
    for (const std::string& message : shop.Messages)
        out.tildeString(message);
    out.numbers(shop.Temper).numbers(shop.Flags).numbers(shop.Keeper).numbers(shop.TradeWith);
    writeNumbers(out, shop.Rooms, older ? kOlderRooms : 0);
    for (std::int32_t hour : shop.Hours)
        out.numbers(hour);
}

} // namespace

std::optional<double> factorValue(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    const bool negative = i < text.size() && text[i] == '-';
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        ++i;
    std::string_view rest = text.substr(i);
    const auto starts = [&](std::string_view upper) {
        return equalsIgnoringCase(rest.substr(0, upper.size()), upper);
    };
    double value = 0;
    if (starts("INF")) {
        // Once past "inf", the server reads "inity" or nothing.
        if (rest.size() > 3 && (rest[3] == 'i' || rest[3] == 'I') && !starts("INFINITY"))
            return std::nullopt;
        value = std::numeric_limits<double>::infinity();
    } else if (starts("NAN")) {
        return std::numeric_limits<double>::quiet_NaN();
    } else if (starts("0X")) {
        rest.remove_prefix(2);
        if (std::from_chars(rest.data(), rest.data() + rest.size(), value, std::chars_format::hex)
                .ec != std::errc())
            return std::nullopt;
    } else if (std::from_chars(rest.data(), rest.data() + rest.size(), value).ec != std::errc()) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

int readShops(std::string_view bytes, ShopTable& table) {
    refuseCrOnlyLineEnds(bytes);
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    bool current = false; // the server has read the line that marks the current form
    int count = 0;
    std::size_t shopStart = 0;
    std::size_t afterStart = 0;
    std::string text;
    ShopLines lines;
    int lost = 0; // the first shop header inside a text the server reads over
    std::string lostWhy;
    for (;;) {
        const std::size_t start = in.position();
        const int line = in.lineNumber();
        try {
            in.readTildeString(kNext, text);
        } catch (const FormatError&) {
            if (lost == 0)
                throw;
            throw FormatError::refused(lost, lostWhy + ", and from there on it misses the end "
                                                       "\"$~\"");
        }
        if (text.empty())
            throw FormatError::refused(line, "a \"~\" alone where the server reads a shop "
                                             "\"#<number>~\" or the end \"$~\": it crashes "
                                             "there");
        if (text.front() == '#' || text.front() == '$') {
            if (count == 0) {
                table.leader.assign(bytes.substr(0, start));
            } else {
                ShopRecord& before = table[std::size_t(count - 1)];
                before.Source.assign(bytes.substr(shopStart, start - shopStart));
                before.After.assign(bytes.substr(afterStart, start - afterStart));
            }
            if (text.front() == '$') {
                table.trailer.assign(bytes.substr(start));
                table.notes = std::move(in.notes());
                return count;
            }
            if (count == kMaxFileRecords)
                throw FormatError::refused(line, "more than " + std::to_string(kMaxFileRecords) +
                                                     " shops");
            ShopRecord& shop = table[std::size_t(count)];
            shop.VNum = parseHeader(text, line, kHeader);
            // The header's `~` may stand on a later line: the server reads
            // the shop from the line after it.
            const int tildeLine = line + int(std::count(text.begin(), text.end(), '\n'));
            ShopBody body(in, bytes, line, lines);
            try {
                body.read(shop, !current);
            } catch (const FormatError& error) {
                if (tildeLine == line)
                    throw;
                throw FormatError::refused(
                    line, "the shop header has no \"~\" at the end of its line: the server "
                          "reads on to the one on line " +
                              std::to_string(tildeLine) + ", and then stops at line " +
                              std::to_string(error.line()) + ": " + error.problem());
            }
            if (tildeLine != line)
                in.note(line, "#" + std::to_string(shop.VNum) +
                                  ": the header's \"~\" stands on "
                                  "line " +
                                  std::to_string(tildeLine) +
                                  ", and the server reads the shop from the line after it; saved "
                                  "from the editor, the header is one line");
            if (const int inside = body.firstSkipped())
                in.note(inside, "#" + std::to_string(shop.VNum) +
                                    " holds an empty or \"*\" line inside it: kept while the "
                                    "record is not changed, left out when it is saved from the "
                                    "editor");
            shopStart = start;
            afterStart = in.position();
            ++count;
            continue;
        }
        // A text the server reads over: a shop header inside it is lost.
        for (std::size_t at = text.find("\n#"); at != std::string::npos;
             at = text.find("\n#", at + 1)) {
            const int header = line + int(std::count(text.begin(), text.begin() + at, '\n')) + 1;
            std::string why = "not read as a shop: the server reads this line as part of a "
                              "text from line " +
                              std::to_string(line) + " up to the next \"~\"";
            if (lost == 0) {
                lost = header;
                lostWhy = why;
            }
            in.note(header, why + ", and passes over it");
        }
        current = current || text.find("v3.0") != std::string::npos;
    }
}

bool olderFormAt(const ShopTable& table, int slot) {
    bool current = table.trailer.empty() || marksCurrentForm(table.leader);
    for (int before = 0; before < slot && !current; ++before)
        current = marksCurrentForm(table[std::size_t(before)].After);
    return !current;
}

std::string writeShops(const ShopTable& table, int count) {
    TextWriter out(table.lineEnd);
    std::size_t size = table.leader.size() + table.trailer.size() + 64;
    for (int slot = 0; slot < count; ++slot)
        size += std::max<std::size_t>(table[std::size_t(slot)].Source.size(), 512);
    out.reserve(size);
    const bool fresh = table.trailer.empty();
    bool current = marksCurrentForm(table.leader);
    if (fresh && !current)
        out.put(kShopFileMarker).put('~').endLine();
    current = current || fresh;
    out.raw(table.leader);
    for (int slot = 0; slot < count; ++slot) {
        const ShopRecord& shop = table[std::size_t(slot)];
        if (!shop.Source.empty()) {
            out.raw(shop.Source);
        } else {
            writeShop(out, shop, !current);
            out.raw(shop.After);
        }
        current = current || marksCurrentForm(shop.After);
    }
    if (fresh)
        out.put("$~").endLine();
    else
        out.raw(table.trailer);
    return out.take();
}

ShopLines shopLines(const ShopRecord& shop, bool olderForm) {
    ShopLines lines;
    if (shop.Source.empty())
        return lines;
    TextReader in(shop.Source);
    in.readTildeString(kHeader);
    ShopRecord read;
    ShopBody(in, shop.Source, 1, lines).read(read, olderForm);
    return lines;
}

} // namespace marl
