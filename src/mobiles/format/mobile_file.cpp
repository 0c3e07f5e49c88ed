#include "mobiles/format/mobile_file.h"

#include <cctype>

#include "world/record_file.h"

namespace marl {

namespace {

constexpr std::string_view kHeader = "a mobile header \"#<vnum>\"";
constexpr std::string_view kNextMobile = "the next mobile \"#<vnum>\" or the end of the file \"$\"";
constexpr std::string_view kFlagsLine =
    "the flags line \"<action flags> <affect flags> <alignment> <type letter>\"";
constexpr std::string_view kLevelLine =
    "the level line \"<level> <thac0> <ac> <hit dice> <damage dice>\"";
constexpr std::string_view kGoldLine = "the gold line \"<gold> <xp>\"";
constexpr std::string_view kPositionLine =
    "the position line \"<load position> <default position> <gender>\"";
constexpr std::string_view kExtendedLine =
    "an extended value \"<keyword>: <value>\" or the end of the block \"E\"";

// The server drops every CR at the end of a line, not just one.
std::string_view withoutCrs(std::string_view line) {
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

// The lines of an extended block up to its `E` line, as the file has them;
// `line` holds the first, and the lines the server passed over before it
// are the block's too.  Every line but the exact `E` is one the server reads
// as "keyword: value" (telling of a keyword it does not know); a header
// inside the block is where it stops.
void readExtendedBlock(TextReader& in, std::string_view bytes, std::string_view& line,
                       MobileRecord& mobile) {
    std::string_view skipped =
        bytes.substr(in.skippedFrom(), in.lastLineStart() - in.skippedFrom());
    while (!skipped.empty()) {
        const std::size_t lf = skipped.find('\n');
        mobile.ExtendedLines.emplace_back(withoutCrs(skipped.substr(0, lf)));
        skipped.remove_prefix(lf == std::string_view::npos ? skipped.size() : lf + 1);
    }
    in.forgetSkipped();
    for (line = withoutCrs(line); line != "E"; line = withoutCrs(in.readLine(kExtendedLine))) {
        if (!line.empty() && line.front() == '#')
            throw FormatError(in.lastLineNumber(), std::string(kExtendedLine));
        std::int16_t value = 0;
        bool tooLarge = false;
        if (const ExtendedDef* def = extendedValue(line, value, &tooLarge))
            mobile.*def->field = value;
        else if (tooLarge)
            throw FormatError::refused(in.lastLineNumber(),
                                       std::string(line) + ": a value beyond 32 bits");
        mobile.ExtendedLines.emplace_back(line);
    }
}

void readMobile(TextReader& in, std::string_view bytes, MobileRecord& mobile,
                std::string_view& line) {
    in.readTildeString("the alias list ending in \"~\"", mobile.Alias);
    in.readTildeString("the short description ending in \"~\"", mobile.SDesc);
    in.readTildeText("the long description ending in \"~\"", mobile.LDesc);
    in.readTildeText("the detailed description ending in \"~\"", mobile.DDesc);

    // The server scans "%s %s %d %c": the letter is the first character
    // after the alignment that is not a blank, the rest of the line unread.
    const FieldLine flags(in, "ssdc", kFlagsLine);
    mobile.ActionBitV = flags.text(0);
    mobile.AffectBitV = flags.text(1);
    mobile.Align = flags.int32(2);
    // Held as the server takes it: `e` is an `E`.
    mobile.TypeLetter.assign(
        1, static_cast<char>(std::toupper(static_cast<unsigned char>(flags.text(3)[0]))));

    const FieldLine level(in, "dddxx", kLevelLine);
    mobile.Level = level.int16(0);
    mobile.THAC0 = level.int16(1);
    mobile.AC = level.int16(2);
    mobile.MHP = level.dice(3);
    mobile.BHD = level.dice(4);

    const FieldLine gold(in, "dd", kGoldLine);
    mobile.Gold = gold.int32(0);
    mobile.XP = gold.int32(1);

    const FieldLine position(in, "ddd", kPositionLine);
    mobile.LPos = position.int16(0);
    mobile.DPos = position.int16(1);
    mobile.Gender = position.int16(2);

    // The server reads a block after an `E` letter.  Hand-edited files also
    // carry blocks under "S" and "E" letters without one, so a line with a
    // keyword's colon, or the block's closing `E`, starts one too; a header
    // or the end line never does.
    line = in.nextLine(kNextMobile);
    if (line.front() != '#' && line.front() != '$' &&
        (mobile.TypeLetter == "E" || line.find(':') != std::string_view::npos || line == "E")) {
        readExtendedBlock(in, bytes, line, mobile);
        line = in.nextLine(kNextMobile);
    }
}

template <typename Table> int readMobilesInto(std::string_view bytes, Table& table) {
    return readRecords(bytes, table, kHeader, kNextMobile,
                       [bytes](TextReader& in, MobileRecord& mobile, std::string_view& line) {
                           readMobile(in, bytes, mobile, line);
                       });
}

} // namespace

int readMobiles(std::string_view bytes, MobileTable& table) {
    return readMobilesInto(bytes, table);
}

int readMobilesEach(std::string_view bytes, RecordStream<MobileRecord>& stream) {
    return readMobilesInto(bytes, stream);
}

std::string writeMobiles(const MobileTable& table, int count) {
    return writeRecords(table, count, 320, [&](TextWriter& out, const MobileRecord& mobile) {
        out.tildeString(mobile.Alias);
        out.tildeString(mobile.SDesc);
        out.tildeText(mobile.LDesc);
        out.tildeText(mobile.DDesc);
        const auto flags = [](const std::string& text) -> std::string_view {
            return text.empty() ? std::string_view("0") : std::string_view(text);
        };
        out.put(flags(mobile.ActionBitV)).put(' ').put(flags(mobile.AffectBitV)).put(' ');
        out.number(mobile.Align).put(' ').put(mobile.TypeLetter).endLine();
        out.number(mobile.Level).put(' ').number(mobile.THAC0).put(' ').number(mobile.AC);
        out.put(' ').put(mobile.MHP).put(' ').put(mobile.BHD).endLine();
        out.numbers(mobile.Gold, mobile.XP);
        out.numbers(mobile.LPos, mobile.DPos, mobile.Gender);
        const std::vector<std::string> lines = extendedLines(mobile);
        for (const std::string& line : lines)
            out.line(line);
        if (!lines.empty() || mobile.TypeLetter == "E")
            out.line("E");
    });
}

} // namespace marl
