#pragma once
// One fuzz target per kind: arbitrary bytes read into the table the editor
// uses and, where they read, written, read again and compared field by field,
// then written again and compared byte for byte.  A difference aborts, so
// libFuzzer keeps the input that shows it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "world/record_compare.h"
#include "world/text_reader.h"

namespace marl::fuzz {

[[noreturn]] inline void finding(const char* what, int slot, const std::string& written) {
    std::fprintf(stderr, "round trip: %s (slot %d); the written file:\n%s\n", what, slot,
                 written.c_str());
    std::abort();
}

template <typename Table, typename Read, typename Write>
int roundTrip(const std::uint8_t* data, std::size_t size, Read read, Write write) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto first = std::make_unique<Table>();
    int count = 0;
    try {
        count = read(bytes, *first);
    } catch (const FormatError&) {
        return 0; // refused with a message: what the editor does with a bad file
    }
    const std::string written = write(*first, count);
    const auto second = std::make_unique<Table>();
    int again = 0;
    try {
        again = read(written, *second);
    } catch (const FormatError& error) {
        std::fprintf(stderr, "line %d: %s\n", error.line(), error.problem().c_str());
        finding("the written file does not read back", -1, written);
    }
    // A zone without records is written as the cleared slot 0.
    if (again != (count > 0 ? count : 1))
        finding("another number of records read back", again, written);
    for (int slot = 0; slot < again; ++slot)
        if (!sameFields((*first)[static_cast<std::size_t>(slot)],
                        (*second)[static_cast<std::size_t>(slot)]))
            finding("a record reads back with other fields", slot, written);
    if (write(*second, count) != written)
        finding("written again, the file differs", -1, written);
    return 0;
}

} // namespace marl::fuzz
