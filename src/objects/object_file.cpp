#include "objects/object_file.h"

#include "world/text_writer.h"

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

// The extra descriptions and affects of an object, in any order, up to the
// line after them, which is left in `line`.
void readBlocks(TextReader& in, std::string& line, ObjectRecord& object) {
    int extras = 0;
    int affects = 0;
    std::string numbers;
    while (true) {
        line = in.readLine(kNextObject);
        const std::string_view word = trimRight(line);
        if (word == "E") {
            if (extras == kExtraDescSlots)
                throw FormatError(in.lastLineNumber(),
                                  "at most 128 extra descriptions in an object");
            ExtraDesc& extra = object.ExtraDescs[extras++];
            extra.Keywords = in.readTildeString("the extra description keywords ending in \"~\"");
            extra.Desc = in.readTildeText("the extra description ending in \"~\"");
        } else if (word == "A") {
            if (affects == kAffectSlots)
                throw FormatError(in.lastLineNumber(), "at most 128 affects in an object");
            const auto fields = readNumberFields(in, numbers, 2, kAffectLine);
            const int at = in.lastLineNumber();
            ObjectAffect& affect = object.Affects[affects++];
            affect.Location = toInt16(fields[0], at, kAffectLine);
            affect.Modifier = toInt32(fields[1], at, kAffectLine);
        } else {
            return;
        }
    }
}

} // namespace

int readObjects(std::string_view bytes, ObjectTable& table) {
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    std::string line = in.readLine(kHeader);
    std::string_view header = kHeader;
    int count = 0;
    while (true) {
        ObjectRecord& object = table[count];
        object.VNum = parseHeader(line, in.lastLineNumber(), header);
        object.Alias = in.readTildeString("the alias list ending in \"~\"");
        object.SDesc = in.readTildeString("the short description ending in \"~\"");
        object.LDesc = in.readTildeString("the long description ending in \"~\"");
        object.ADesc = in.readTildeString("the action description ending in \"~\"");

        line = in.readLine(kTypeLine);
        int at = in.lastLineNumber();
        const auto type = splitFlagLine(line, 3);
        if (type.size() < 3)
            throw FormatError(at, std::string(kTypeLine));
        object.OType = toInt16(type[0], at, kTypeLine);
        object.EBitV = type[1];
        object.WBitV = type[2];

        auto fields = readNumberFields(in, line, kObjectValues, kValuesLine);
        at = in.lastLineNumber();
        for (int i = 0; i < kObjectValues; ++i)
            object.Values[i] = toInt32(fields[i], at, kValuesLine);

        fields = readNumberFields(in, line, 3, kWeightLine);
        at = in.lastLineNumber();
        object.Weight = toInt32(fields[0], at, kWeightLine);
        object.Cost = toInt32(fields[1], at, kWeightLine);
        object.RPD = toInt32(fields[2], at, kWeightLine);

        readBlocks(in, line, object);
        ++count;
        if (isEndLine(line))
            return count;
        header = kNextObject;
    }
}

std::string writeObjects(const ObjectTable& table, int count) {
    TextWriter out(table.lineEnd);
    const int written = count > 0 ? count : 1;
    out.reserve(static_cast<std::size_t>(written) * 384);
    std::string text;
    for (int slot = 0; slot < written; ++slot) {
        const ObjectRecord& object = table[slot];
        out.header(object.VNum);
        out.tildeString(object.Alias);
        out.tildeString(object.SDesc);
        out.tildeString(object.LDesc);
        out.tildeString(object.ADesc);
        text.assign(std::to_string(object.OType)).append(1, ' ').append(object.EBitV);
        text.append(1, ' ').append(object.WBitV);
        out.line(text);
        const auto& v = object.Values;
        out.line(joinNumbers(v[0], v[1], v[2], v[3]));
        out.line(joinNumbers(object.Weight, object.Cost, object.RPD));
        for (const ExtraDesc& extra : object.ExtraDescs) {
            if (extra.Keywords.empty())
                break;
            out.line("E");
            out.tildeString(extra.Keywords);
            out.tildeText(extra.Desc);
        }
        for (const ObjectAffect& affect : object.Affects) {
            if (affect.Location == 0)
                break;
            out.line("A");
            out.line(joinNumbers(affect.Location, affect.Modifier));
        }
    }
    out.end();
    return out.take();
}

} // namespace marl
