#include "objects/format/object_file.h"

#include "world/record_file.h"

namespace marl {

namespace {

constexpr std::string_view kHeader = "an object header \"#<vnum>\"";
constexpr std::string_view kNextObject =
    "an extra description \"E\", an affect \"A\", the next object \"#<vnum>\" or the end of the "
    "file \"$\"";
constexpr std::string_view kTypeLine = "the type line \"<type> <effect flags> <wear flags>\"";
constexpr std::string_view kValuesLine =
    "the values line \"<value 0> <value 1> <value 2> <value 3>\"";
constexpr std::string_view kWeightLine = "the weight line \"<weight> <cost> <rent per day>\"";
constexpr std::string_view kAffectLine = "an affect line \"<location> <modifier>\"";

void readObject(TextReader& in, ObjectRecord& object, std::string_view& line) {
    in.readTildeString("the alias list ending in \"~\"", object.Alias);
    in.readTildeString("the short description ending in \"~\"", object.SDesc);
    in.readTildeString("the long description ending in \"~\"", object.LDesc);
    in.readTildeString("the action description ending in \"~\"", object.ADesc);

    const FieldLine type(in, "dss", kTypeLine);
    object.OType = type.int16(0);
    object.EBitV = type.text(1);
    object.WBitV = type.text(2);

    const FieldLine values(in, "dddd", kValuesLine);
    for (std::size_t i = 0; i < kObjectValues; ++i)
        object.Values[i] = values.int32(i);

    const FieldLine weight(in, "ddd", kWeightLine);
    object.Weight = weight.int32(0);
    object.Cost = weight.int32(1);
    object.RPD = weight.int32(2);

    // Extra descriptions and affects, in whatever order the file has them,
    // each known by the first character of its line, as the server does.
    while (true) {
        line = in.nextLine(kNextObject);
        const char word = line.front();
        if (word == 'E') {
            readExtraDesc(in, object.ExtraDescs, "an object");
        } else if (word == 'A') {
            if (object.Affects.count() == kAffectSlots)
                throw FormatError(in.lastLineNumber(), "at most 128 affects in an object");
            const FieldLine numbers(in, "dd", kAffectLine);
            ObjectAffect& affect = object.Affects.append();
            affect.Location = numbers.int16(0);
            affect.Modifier = numbers.int32(1);
        } else if (word == '#' || word == '$') {
            return;
        } else {
            throw FormatError(in.lastLineNumber(), std::string(kNextObject));
        }
    }
}

} // namespace

int readObjects(std::string_view bytes, ObjectTable& table) {
    return readRecords(bytes, table, kHeader, kNextObject, readObject);
}

int readObjectsEach(std::string_view bytes, RecordStream<ObjectRecord>& stream) {
    return readRecords(bytes, stream, kHeader, kNextObject, readObject);
}

std::string writeObjects(const ObjectTable& table, int count) {
    return writeRecords(table, count, 384, [&](TextWriter& out, const ObjectRecord& object) {
        out.tildeString(object.Alias);
        out.tildeString(object.SDesc);
        out.tildeString(object.LDesc);
        out.tildeString(object.ADesc);
        out.number(object.OType).put(' ').put(orZero(object.EBitV)).put(' ');
        out.put(orZero(object.WBitV)).endLine();
        const auto& v = object.Values;
        out.numbers(v[0], v[1], v[2], v[3]);
        out.numbers(object.Weight, object.Cost, object.RPD);
        writeExtraDescs(out, object.ExtraDescs);
        for (std::size_t slot = 0; slot < object.Affects.count(); ++slot) {
            const ObjectAffect& affect = object.Affects[slot];
            out.line("A");
            out.numbers(affect.Location, affect.Modifier);
        }
    });
}

} // namespace marl
