#pragma once
// The object record and the object table.  The types' and flags' options
// and captions are the window's (objects/object_vocabulary.h).

#include <array>
#include <cstdint>
#include <string>

#include "world/record_table.h"
#include "world/slot_list.h"

namespace marl {

inline constexpr int kObjectValues = 4;
inline constexpr int kAffectSlots = 128;
inline constexpr int kMaxAffects = 127;
// The effect flags the server names (letters a to q), and the wear flags
// (a to o).
inline constexpr int kEffectFlagCount = 17;
inline constexpr int kWearFlagCount = 15;

struct ObjectAffect {
    std::int16_t Location = 0; // 0: none
    std::int32_t Modifier = 0;
    bool operator==(const ObjectAffect&) const = default;
};

struct ObjectRecord {
    // The record's bytes as the file held them, from its `#` header up to the
    // next header, while it has not been stored from a window since it was
    // read: a record the builder did not touch is written back byte for byte.
    // Whatever stores into the record from a window empties it.
    std::string Source;
    // The empty and `*` lines that stood after the record in the file, up to
    // the next header: written after it when it is written field by field.
    std::string After;
    std::int32_t VNum = 0;
    std::string Alias;
    std::string SDesc;
    std::string LDesc;
    std::string ADesc; // action description: every character before its `~`, line breaks as CR LF
    std::int16_t OType = 0; // the object type's number
    std::string EBitV;      // the effect flags, flag text as the file has it
    std::string WBitV;      // the wear flags, flag text as the file has it
    std::array<std::int32_t, kObjectValues> Values{};
    std::int32_t Weight = 0;
    std::int32_t Cost = 0;
    std::int32_t RPD = 0; // rent per day
    SlotList<ExtraDesc, kExtraDescSlots> ExtraDescs;
    SlotList<ObjectAffect, kAffectSlots> Affects;
    bool operator==(const ObjectRecord&) const = default;
};

// The affects in use, location 0 included.
int affectCount(const ObjectRecord& object);

using ObjectTable = RecordTable<ObjectRecord>;

} // namespace marl
