#pragma once
// What the three zone files share: records from their `#<vnum>` headers up
// to the `$` line, read into a table slot by slot and written back in the
// file's own line ends; and the extra descriptions of rooms and objects.

#include <cstddef>
#include <cstdint>
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

inline constexpr int kMaxFileRecords = 99999;
// A header of this vnum or more ends the server's reading of a file: it and
// what follows are kept as the file's trailer, as the `$` line is.
inline constexpr std::int32_t kServerLastVNum = 99999;

// Reads every record of a file into a cleared table, slot 0 upward, and
// returns how many were read.  `body(in, record, line)` reads what follows
// a header and leaves in `line` the line after the record, read with
// nextLine(): the next header, or a line beginning with `$`, which ends the
// file.  `header` and `next` say what the first header and the later ones
// are.  A file whose first line is its `$` line is a zone without records,
// which the server boots.  Empty lines and `*` lines, which the server
// passes over, are kept: those before the first header as the table's
// leader, those after a record as its After, and each record keeps its
// bytes from its header up to the next header as its Source, and the table
// what follows the last one.  A record with such lines inside it gets a
// note.  Throws FormatError; the table then holds the records read so far.
template <typename Table, typename Body>
int readRecords(std::string_view bytes, Table& table, std::string_view header,
                std::string_view next, Body body) {
    refuseCrOnlyLineEnds(bytes);
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    std::string_view line = in.nextLine(header);
    std::size_t start = in.lastLineStart();
    table.leader.assign(bytes.substr(0, start));
    if (isEndLine(line)) {
        table.trailer.assign(bytes.substr(start));
        return 0;
    }
    std::string_view expected = header;
    for (int count = 0;; expected = next) {
        // However many headers a file holds, the server numbers its records
        // below 99999: a file of more is no zone, and is not held in memory.
        if (count == kMaxFileRecords)
            throw FormatError::refused(in.lastLineNumber(),
                                       "more than " + std::to_string(kMaxFileRecords) +
                                           " records, more than a zone's vnums can number");
        const std::int32_t vnum = parseHeader(line, in.lastLineNumber(), expected);
        if (vnum >= kServerLastVNum) {
            in.note(in.lastLineNumber(), "#" + std::to_string(vnum) +
                                             ": the server stops reading "
                                             "the file here; what follows is kept as it stands");
            table.trailer.assign(bytes.substr(start));
            table.notes = std::move(in.notes());
            return count;
        }
        if constexpr (requires { table.headerAt(0); })
            table.headerAt(in.lastLineNumber()); // a stream hands on the record before
        auto& record = table[static_cast<std::size_t>(count)];
        record.VNum = vnum;
        in.markRecord();
        body(in, record, line);
        if (const int inside = in.firstSkippedInside())
            in.note(inside, "#" + std::to_string(record.VNum) +
                                " holds an empty or \"*\" line inside it: kept while the record "
                                "is not changed, left out when it is saved from the editor");
        const std::size_t end = in.lastLineStart();
        record.Source.assign(bytes.substr(start, end - start));
        record.After.assign(bytes.substr(in.skippedFrom(), end - in.skippedFrom()));
        start = end;
        ++count;
        if (isEndLine(line)) {
            table.trailer.assign(bytes.substr(end));
            table.notes = std::move(in.notes());
            return count;
        }
    }
}

// The text of a file holding slots 0 to count - 1, then what followed the
// records in the file read (a `$` line of its own when none was read), in
// the table's line ends, after the table's leader.  A record that still has
// its Source is written as those bytes; any other by `body(out, record)`
// after its header, then its After.  A zone without records is its `$` line
// alone.
template <typename Table, typename Body>
std::string writeRecords(Table& table, int count, std::size_t bytesPerRecord, Body body) {
    TextWriter out(table.lineEnd);
    std::size_t size = table.leader.size() + table.trailer.size() + 4;
    for (int slot = 0; slot < count; ++slot) {
        const std::string& source = table[static_cast<std::size_t>(slot)].Source;
        size += source.empty() ? bytesPerRecord : source.size();
    }
    out.reserve(size);
    out.raw(table.leader);
    for (int slot = 0; slot < count; ++slot) {
        auto& record = table[static_cast<std::size_t>(slot)];
        if (!record.Source.empty()) {
            out.raw(record.Source);
            continue;
        }
        out.header(record.VNum);
        body(out, record);
        out.raw(record.After);
    }
    if (table.trailer.empty())
        out.end();
    else
        out.raw(table.trailer);
    return out.take();
}

// A flag text as written: an empty one as `0`, so that the blanks around it
// do not run together.
inline std::string_view orZero(std::string_view flags) {
    return flags.empty() ? std::string_view("0") : flags;
}

// An extra description after its `E` line, into the next slot of `list`.
// `owner` names what holds the list ("a room"): a 129th and later ones are
// read over, with a note.
void readExtraDesc(TextReader& in, ExtraDescList& list, std::string_view owner);

// The extra descriptions in use, empty keywords included, each as its `E`
// line, keywords and description.
void writeExtraDescs(TextWriter& out, const ExtraDescList& list);

} // namespace marl
