#pragma once
// One fuzz target per kind: arbitrary bytes read into the table the editor
// uses and, where they read, written, read again and compared field by field,
// then written again and compared byte for byte; then every record stored as
// the editor stores a record changed in its window (its source bytes gone),
// so that the writer writes each field by field, and the same again.  Rooms,
// mobiles and objects are also read one record at a time, as the world's
// check reads them, and must give the same records at their headers' lines,
// or the same refusal.  A difference aborts, so libFuzzer keeps the input
// that shows it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <algorithm>

#include "kinds/zone_kinds.h"
#include "world/record_compare.h"
#include "world/record_stream.h"
#include "world/text_reader.h"

namespace marl::fuzz {

[[noreturn]] inline void finding(const char* what, int slot, const std::string& written) {
    std::fprintf(stderr, "round trip: %s (slot %d); the written file:\n%s\n", what, slot,
                 written.c_str());
    std::abort();
}

// `table` written reads back to the same fields, and written again gives
// the same bytes.
template <typename Table, typename Write, typename Read>
void check(Write write, Read read, Table& table, int count) {
    const std::string written = write(table, count);
    const auto second = std::make_unique<Table>();
    int again = 0;
    try {
        again = read(written, *second);
    } catch (const FormatError& error) {
        std::fprintf(stderr, "line %d: %s\n", error.line(), error.problem().c_str());
        finding("the written file does not read back", -1, written);
    }
    if (again != count)
        finding("another number of records read back", again, written);
    for (int slot = 0; slot < again; ++slot)
        if (!sameFields(table[static_cast<std::size_t>(slot)],
                        (*second)[static_cast<std::size_t>(slot)]))
            finding("a record reads back with other fields", slot, written);
    if (write(*second, count) != written)
        finding("written again, the file differs", -1, written);
}

// The bytes read into a table and read one record at a time.
template <typename Kind> void checkStream(std::string_view bytes) {
    using Record = typename Kind::Record;
    const auto lines = [](std::string_view text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    };
    const auto table = std::make_unique<typename Kind::File>();
    int count = 0, refusedAt = 0;
    try {
        count = Kind::read(bytes, *table);
    } catch (const FormatError& error) {
        refusedAt = error.line();
    }
    const auto scratch = std::make_unique<Record>();
    int slot = 0, header = 1 + lines(table->leader);
    bool same = true;
    RecordStream<Record> stream(*scratch, [&](const Record& record, int line) {
        if (refusedAt == 0) {
            const Record* held = slot < count ? &(*table)[static_cast<std::size_t>(slot)] : nullptr;
            same = same && held && sameFields(record, *held) && line == header;
            if (held)
                header += lines(held->Source);
        }
        ++slot;
    });
    int streamed = 0, streamRefusedAt = 0;
    try {
        streamed = Kind::readEach(bytes, stream);
        stream.finish();
    } catch (const FormatError& error) {
        streamRefusedAt = error.line();
    }
    if (streamRefusedAt != refusedAt)
        finding("read one record at a time, refused elsewhere", slot, std::string(bytes));
    if (refusedAt == 0 && (streamed != count || slot != count || !same))
        finding("read one record at a time, other records or lines", slot, std::string(bytes));
}

// Rooms are written with zone 30 in their numbers line; the reader ignores it.
template <typename Kind> int roundTrip(const std::uint8_t* data, std::size_t size) {
    using Table = typename Kind::File;
    const auto read = Kind::read;
    const auto write = [](Table& table, int count) { return Kind::write(table, count, 30); };
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if constexpr (requires(RecordStream<typename Kind::Record>& each) {
                      Kind::readEach(bytes, each);
                  })
        checkStream<Kind>(bytes);
    const auto first = std::make_unique<Table>();
    int count = 0;
    try {
        count = read(bytes, *first);
    } catch (const FormatError&) {
        return 0; // refused with a message: what the editor does with a bad file
    }
    check(write, read, *first, count);
    for (int slot = 0; slot < count; ++slot)
        (*first)[static_cast<std::size_t>(slot)].Source.clear();
    check(write, read, *first, count);
    return 0;
}

} // namespace marl::fuzz
