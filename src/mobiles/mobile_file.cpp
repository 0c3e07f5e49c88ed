#include "mobiles/mobile_file.h"

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

// The lines of an extended block up to its `E` line; `line` holds the first.
// Lines with a keyword of their own are skipped, as the server skips them.
void readExtendedBlock(TextReader& in, std::string& line, MobileRecord& mobile) {
    while (!isLine(line, "E")) {
        for (const ExtendedDef& def : kExtendedValues) {
            if (!line.starts_with(def.keyword))
                continue;
            const std::string what =
                "an extended value \"" + std::string(def.keyword) + " <number>\"";
            mobile.*def.field =
                FieldLine(line, in.lastLineNumber(), 2, what, FieldLine::FlagText).int16(1);
            break;
        }
        line = in.readLine(kExtendedLine);
    }
}

void readMobile(TextReader& in, MobileRecord& mobile, std::string& line) {
    in.readTildeString("the alias list ending in \"~\"", mobile.Alias);
    in.readTildeString("the short description ending in \"~\"", mobile.SDesc);
    in.readTildeText("the long description ending in \"~\"", mobile.LDesc);
    in.readTildeText("the detailed description ending in \"~\"", mobile.DDesc);

    const FieldLine flags(in, 4, kFlagsLine, FieldLine::FlagText);
    mobile.ActionBitV = flags.text(0);
    mobile.AffectBitV = flags.text(1);
    mobile.Align = flags.int32(2);
    mobile.TypeLetter = flags.text(3);

    const FieldLine level(in, 5, kLevelLine, FieldLine::Numbers);
    mobile.Level = level.int16(0);
    mobile.THAC0 = level.int16(1);
    mobile.AC = level.int16(2);
    mobile.MHP = level.text(3);
    mobile.BHD = level.text(4);

    const FieldLine gold(in, 2, kGoldLine, FieldLine::Numbers);
    mobile.Gold = gold.int32(0);
    mobile.XP = gold.int32(1);

    const FieldLine position(in, 3, kPositionLine, FieldLine::Numbers);
    mobile.LPos = position.int16(0);
    mobile.DPos = position.int16(1);
    mobile.Gender = position.int16(2);

    // The type letter is not trusted here: hand-edited files carry blocks
    // under "S" and "E" without one, so the next line itself tells, by a
    // keyword's colon or by being the block's closing `E`.
    line = in.readLine(kNextMobile);
    if (line.find(':') != std::string::npos || isLine(line, "E")) {
        readExtendedBlock(in, line, mobile);
        line = in.readLine(kNextMobile);
    }
}

} // namespace

int readMobiles(std::string_view bytes, MobileTable& table) {
    return readRecords(bytes, table, kHeader, kNextMobile, readMobile);
}

std::string writeMobiles(MobileTable& table, int count) {
    return writeRecords(table, count, 320, [&](TextWriter& out, MobileRecord& mobile) {
        out.tildeString(mobile.Alias);
        out.tildeString(mobile.SDesc);
        out.tildeText(mobile.LDesc);
        out.tildeText(mobile.DDesc);
        if (mobile.ActionBitV.empty())
            mobile.ActionBitV = "0";
        if (mobile.AffectBitV.empty())
            mobile.AffectBitV = "0";
        out.put(mobile.ActionBitV).put(' ').put(mobile.AffectBitV).put(' ');
        out.number(mobile.Align).put(' ').put(mobile.TypeLetter).endLine();
        out.number(mobile.Level).put(' ').number(mobile.THAC0).put(' ').number(mobile.AC);
        out.put(' ').put(mobile.MHP).put(' ').put(mobile.BHD).endLine();
        out.numbers(mobile.Gold, mobile.XP);
        out.numbers(mobile.LPos, mobile.DPos, mobile.Gender);
        bool extended = false;
        for (const ExtendedDef& def : kExtendedValues) {
            const std::int16_t value = mobile.*def.field;
            if (value == 0)
                continue;
            out.put(def.keyword).put(' ').number(value).endLine();
            extended = true;
        }
        if (extended || mobile.TypeLetter == "E")
            out.line("E");
    });
}

} // namespace marl
