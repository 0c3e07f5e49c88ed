#include "mobiles/mobile_file.h"

#include "world/text_writer.h"

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

bool opensExtendedBlock(std::string_view line) {
    return line.find(':') != std::string_view::npos || isLine(line, "E");
}

// The lines of an extended block up to its `E` line; `line` holds the first.
// Lines with a keyword of their own are skipped, as the server skips them.
void readExtendedBlock(TextReader& in, std::string& line, MobileRecord& mobile) {
    while (!isLine(line, "E")) {
        const int at = in.lastLineNumber();
        for (const ExtendedDef& def : kExtendedValues) {
            if (!line.starts_with(def.keyword))
                continue;
            const std::string what =
                "an extended value \"" + std::string(def.keyword) + " <number>\"";
            const auto fields = splitFields(line);
            if (fields.size() < 2)
                throw FormatError(at, what);
            mobile.*def.field = toInt16(fields[1], at, what);
            break;
        }
        line = in.readLine(kExtendedLine);
    }
}

} // namespace

int readMobiles(std::string_view bytes, MobileTable& table) {
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    std::string line = in.readLine(kHeader);
    std::string_view header = kHeader;
    int count = 0;
    while (true) {
        MobileRecord& mobile = table[count];
        mobile.VNum = parseHeader(line, in.lastLineNumber(), header);
        mobile.Alias = in.readTildeString("the alias list ending in \"~\"");
        mobile.SDesc = in.readTildeString("the short description ending in \"~\"");
        mobile.LDesc = in.readTildeText("the long description ending in \"~\"");
        mobile.DDesc = in.readTildeText("the detailed description ending in \"~\"");

        line = in.readLine(kFlagsLine);
        int at = in.lastLineNumber();
        const auto flags = splitFlagLine(line, 4);
        if (flags.size() < 4)
            throw FormatError(at, std::string(kFlagsLine));
        mobile.ActionBitV = flags[0];
        mobile.AffectBitV = flags[1];
        mobile.Align = toInt32(flags[2], at, kFlagsLine);
        mobile.TypeLetter = flags[3];

        auto fields = readNumberFields(in, line, 5, kLevelLine);
        at = in.lastLineNumber();
        mobile.Level = toInt16(fields[0], at, kLevelLine);
        mobile.THAC0 = toInt16(fields[1], at, kLevelLine);
        mobile.AC = toInt16(fields[2], at, kLevelLine);
        mobile.MHP = fields[3];
        mobile.BHD = fields[4];

        fields = readNumberFields(in, line, 2, kGoldLine);
        at = in.lastLineNumber();
        mobile.Gold = toInt32(fields[0], at, kGoldLine);
        mobile.XP = toInt32(fields[1], at, kGoldLine);

        fields = readNumberFields(in, line, 3, kPositionLine);
        at = in.lastLineNumber();
        mobile.LPos = toInt16(fields[0], at, kPositionLine);
        mobile.DPos = toInt16(fields[1], at, kPositionLine);
        mobile.Gender = toInt16(fields[2], at, kPositionLine);

        // Whether an extended block follows is decided by the line after the
        // position line alone, not by the type letter.
        line = in.readLine(kNextMobile);
        if (opensExtendedBlock(line)) {
            readExtendedBlock(in, line, mobile);
            line = in.readLine(kNextMobile);
        }
        ++count;
        if (isEndLine(line))
            return count;
        header = kNextMobile;
    }
}

std::string writeMobiles(MobileTable& table, int count) {
    TextWriter out(table.lineEnd);
    const int written = count > 0 ? count : 1;
    out.reserve(static_cast<std::size_t>(written) * 320);
    std::string text;
    for (int slot = 0; slot < written; ++slot) {
        MobileRecord& mobile = table[slot];
        out.header(mobile.VNum);
        out.tildeString(mobile.Alias);
        out.tildeString(mobile.SDesc);
        out.tildeText(mobile.LDesc);
        out.tildeText(mobile.DDesc);
        if (mobile.ActionBitV.empty())
            mobile.ActionBitV = "0";
        if (mobile.AffectBitV.empty())
            mobile.AffectBitV = "0";
        text.assign(mobile.ActionBitV).append(1, ' ').append(mobile.AffectBitV).append(1, ' ');
        text.append(std::to_string(mobile.Align)).append(1, ' ').append(mobile.TypeLetter);
        out.line(text);
        text.assign(joinNumbers(mobile.Level, mobile.THAC0, mobile.AC));
        text.append(1, ' ').append(mobile.MHP).append(1, ' ').append(mobile.BHD);
        out.line(text);
        out.line(joinNumbers(mobile.Gold, mobile.XP));
        out.line(joinNumbers(mobile.LPos, mobile.DPos, mobile.Gender));
        bool extended = false;
        for (const ExtendedDef& def : kExtendedValues) {
            const std::int16_t value = mobile.*def.field;
            if (value == 0)
                continue;
            text.assign(def.keyword).append(1, ' ').append(std::to_string(value));
            out.line(text);
            extended = true;
        }
        if (extended || mobile.TypeLetter == "E")
            out.line("E");
    }
    out.end();
    return out.take();
}

} // namespace marl
