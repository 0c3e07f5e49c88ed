#pragma once
// The mobile record, the keywords of its extended block, and the mobile
// table.  Positions and genders as options are the window's
// (mobiles/mobile_vocabulary.h).

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "world/record_table.h"

namespace marl {

struct MobileRecord {
    // The record's bytes as the file held them, from its `#` header up to the
    // next header, while it has not been stored from a window since it was
    // read: a record the builder did not touch is written back byte for byte.
    // Whatever stores into the record from a window empties it.
    std::string Source;
    // The empty and `*` lines that stood after the record in the file, up to
    // the next header: written after it when it is written field by field.
    std::string After;
    std::int32_t VNum = 0;
    std::string Alias;      // the keywords a player names it by
    std::string SDesc;      // short description: its name in sentences
    std::string LDesc;      // long description: the line seen in a room
    std::string DDesc;      // detailed description; may span several lines, held with CR LF
    std::string ActionBitV; // flag text as the file has it
    std::string AffectBitV; // flag text as the file has it
    std::int32_t Align = 0;
    std::string TypeLetter; // "S", or "E" for a mobile with an extended block
    std::int16_t Level = 0;
    std::int16_t THAC0 = 0;
    std::int16_t AC = 0;
    std::string MHP = "0"; // maximum hit points, dice text `NdS+P`
    std::string BHD = "0"; // bare-hand damage, dice text `NdS+P`
    std::int32_t Gold = 0;
    std::int32_t XP = 0;
    std::int16_t LPos = 0; // the position it loads in
    std::int16_t DPos = 0; // the position it returns to
    std::int16_t Gender = 0;
    // The extended values, as the server takes them (`Str: 0` is 3): 0 means
    // not given, and a 0 is written only as the file had it.
    std::int16_t BHA = 0; // bare-hand attack type
    std::int16_t Str = 0;
    std::int16_t StrAdd = 0;
    std::int16_t Int = 0;
    std::int16_t Wis = 0;
    std::int16_t Dex = 0;
    std::int16_t Con = 0;
    std::int16_t Cha = 0;
    // The lines of the extended block as the file had them, without their
    // line ends and the closing `E`: keywords in any case, values with or
    // without a blank, empty and `*` lines, keywords the server does not
    // know.  Each is written back as it stands while the value it gives is
    // the record's; a value changed is written as "Keyword: value" instead.
    std::vector<std::string> ExtendedLines;
    bool operator==(const MobileRecord&) const = default;
};

using MobileTable = RecordTable<MobileRecord>;

// The keywords of the extended block, in the order they are tested on
// reading and written, each with its field.
struct ExtendedDef {
    const char* keyword; // colon included: "Str:"
    std::int16_t MobileRecord::*field;
    std::int16_t low, high; // the server brings a value into this range
};
extern const std::array<ExtendedDef, 8> kExtendedValues;

// What the server makes of a line of the extended block: the keyword is
// what stands before the first `:`, matched without regard to case; the
// value is the number `atoi` reads after it, brought into the keyword's
// range.  nullptr for a line that sets nothing (no colon, a keyword the
// server does not know, an empty or `*` line); a value beyond 32 bits is
// nullptr too, with `tooLarge` set.
const ExtendedDef* extendedValue(std::string_view line, std::int16_t& value,
                                 bool* tooLarge = nullptr);

// The lines of the block a mobile is written with: those of the file kept
// as they stand while their value is the record's, and any value changed
// or given anew as "Keyword: value".
std::vector<std::string> extendedLines(const MobileRecord& mobile);

// Whether the mobile is written with an extended block.
bool hasExtendedValues(const MobileRecord& mobile);

} // namespace marl
