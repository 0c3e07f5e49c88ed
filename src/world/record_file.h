#pragma once
// What the three zone files share: records from their `#<vnum>` headers up
// to the `$` line, read into a table slot by slot and written back in the
// file's own line ends; and the extra descriptions of rooms and objects.

#include <cstddef>
#include <string>
#include <string_view>

#include "world/record_table.h"
#include "world/slot_list.h"
#include "world/text_reader.h"
#include "world/text_writer.h"

namespace marl {

// Lines ended by CR alone (old Mac files) would read as one long line: such
// a file is refused at line 1 with what is wrong, not with what the first
// header should have been.
void refuseCrOnlyLineEnds(std::string_view bytes);

// Reads every record of a file into a cleared table, slot 0 upward, and
// returns how many were read.  `body(in, record, line)` reads what follows
// a header and leaves in `line` the line after the record: the next header,
// or a line holding `$`, which ends the file.  `header` and `next` say what
// the first header and the later ones are.  Throws FormatError; the table
// then holds the records read so far.
template <typename Table, typename Body>
int readRecords(std::string_view bytes, Table& table, std::string_view header,
                std::string_view next, Body body) {
    refuseCrOnlyLineEnds(bytes);
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    std::string line = in.readLine(header);
    std::string_view expected = header;
    for (int count = 0;; expected = next) {
        auto& record = table[count];
        record.VNum = parseHeader(line, in.lastLineNumber(), expected);
        body(in, record, line);
        ++count;
        if (isEndLine(line))
            return count;
    }
}

// The text of a file holding slots 0 to count - 1, each as its header and
// what `body(out, record)` writes, then the end line, in the table's line
// ends.  A zone without records (count 0) is written as slot 0 alone: a file
// of nothing but `$` could not be opened again, and the cleared record
// reads back as itself.
template <typename Table, typename Body>
std::string writeRecords(Table& table, int count, std::size_t bytesPerRecord, Body body) {
    TextWriter out(table.lineEnd);
    const int written = count > 0 ? count : 1;
    out.reserve(static_cast<std::size_t>(written) * bytesPerRecord);
    for (int slot = 0; slot < written; ++slot) {
        auto& record = table[static_cast<std::size_t>(slot)];
        out.header(record.VNum);
        body(out, record);
    }
    out.end();
    return out.take();
}

using ExtraDescList = SlotList<ExtraDesc, kExtraDescSlots>;

// An extra description after its `E` line, into the next slot of `list`;
// `used` counts the slots filled.  `owner` names what holds the list
// ("a room") for the refusal of a 129th.
void readExtraDesc(TextReader& in, ExtraDescList& list, int& used, std::string_view owner);

// The extra descriptions up to the first with empty keywords, each as its
// `E` line, keywords and description.
void writeExtraDescs(TextWriter& out, const ExtraDescList& list);

} // namespace marl
