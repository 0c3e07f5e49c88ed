#include "mobiles/format/mobile_record.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "world/text_reader.h"

namespace marl {

const std::array<ExtendedDef, 8> kExtendedValues = {{
    {"BareHandAttack:", &MobileRecord::BHA, 0, 99},
    {"Str:", &MobileRecord::Str, 3, 25},
    {"StrAdd:", &MobileRecord::StrAdd, 0, 100},
    {"Int:", &MobileRecord::Int, 3, 25},
    {"Wis:", &MobileRecord::Wis, 3, 25},
    {"Dex:", &MobileRecord::Dex, 3, 25},
    {"Con:", &MobileRecord::Con, 3, 25},
    {"Cha:", &MobileRecord::Cha, 3, 25},
}};

namespace {

bool sameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

// The value each keyword has after the file's block: the last line wins.
struct ReadValues {
    std::array<bool, kExtendedValues.size()> given{};
    std::array<std::int16_t, kExtendedValues.size()> value{};
};

ReadValues readValues(const std::vector<std::string>& lines) {
    ReadValues read;
    for (const std::string& line : lines) {
        std::int16_t value = 0;
        if (const ExtendedDef* def = extendedValue(line, value)) {
            const auto i = static_cast<std::size_t>(def - kExtendedValues.data());
            read.given[i] = true;
            read.value[i] = value;
        }
    }
    return read;
}

} // namespace

const ExtendedDef* extendedValue(std::string_view line, std::int16_t& value, bool* tooLarge) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return nullptr;
    const std::string_view keyword = line.substr(0, colon);
    for (const ExtendedDef& def : kExtendedValues) {
        std::string_view name(def.keyword);
        name.remove_suffix(1); // its colon
        if (!sameWord(keyword, name))
            continue;
        const std::optional<std::int32_t> number = atoiValue(line.substr(colon + 1));
        if (!number) {
            if (tooLarge)
                *tooLarge = true;
            return nullptr;
        }
        value = static_cast<std::int16_t>(std::clamp<std::int32_t>(*number, def.low, def.high));
        return &def;
    }
    return nullptr;
}

std::vector<std::string> extendedLines(const MobileRecord& mobile) {
    const ReadValues read = readValues(mobile.ExtendedLines);
    std::array<bool, kExtendedValues.size()> written{};
    std::vector<std::string> lines;
    const auto editorForm = [&](std::size_t i) {
        const ExtendedDef& def = kExtendedValues[i];
        written[i] = true;
        if (mobile.*def.field != 0)
            lines.push_back(def.keyword + (' ' + std::to_string(mobile.*def.field)));
    };
    for (std::size_t at = 0; at < mobile.ExtendedLines.size(); ++at) {
        const std::string& line = mobile.ExtendedLines[at];
        std::int16_t value = 0;
        const ExtendedDef* def = extendedValue(line, value);
        if (!def) {
            lines.push_back(line);
            continue;
        }
        const auto i = static_cast<std::size_t>(def - kExtendedValues.data());
        if (mobile.*def->field == read.value[i]) {
            lines.push_back(line);
            written[i] = true;
            continue;
        }
        // Changed: the last line of the keyword gives way to the new value,
        // the earlier ones go.
        bool later = false;
        for (std::size_t next = at + 1; next < mobile.ExtendedLines.size() && !later; ++next)
            later = extendedValue(mobile.ExtendedLines[next], value) == def;
        if (!later)
            editorForm(i);
    }
    for (std::size_t i = 0; i < kExtendedValues.size(); ++i)
        if (!written[i] && !read.given[i])
            editorForm(i);
    return lines;
}

bool hasExtendedValues(const MobileRecord& mobile) {
    for (const ExtendedDef& def : kExtendedValues)
        if (mobile.*def.field != 0)
            return true;
    return !extendedLines(mobile).empty();
}

} // namespace marl
