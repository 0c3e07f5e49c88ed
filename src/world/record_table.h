#pragma once
// A record table: the records of one zone file, slot 0 upward in file order.
// It always offers at least 101 slots and grows to hold every record of a
// larger file; unused slots hold the cleared record.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "world/slot_list.h"
#include "world/text_reader.h"

namespace marl {

inline constexpr int kTableSlots = 101;
// New refuses once this many records are held (slots 0 to 99).
inline constexpr int kMaxRecordsForNew = 100;
inline constexpr int kExtraDescSlots = 128;
inline constexpr int kMaxExtraDescs = 127;

struct ExtraDesc {
    std::string Keywords;
    std::string Desc;
    bool operator==(const ExtraDesc&) const = default;
};

using ExtraDescList = SlotList<ExtraDesc, kExtraDescSlots>;

// The extra descriptions in use, empty keywords included.
inline int extraDescCount(const ExtraDescList& list) {
    return static_cast<int>(list.count());
}

// How a slot returns to the cleared record.
template <typename Record> void clearRecord(Record& record) {
    static const Record cleared{};
    record = cleared; // copying keeps the strings' buffers: cheaper than a new record
}

template <typename Record> class RecordTable {
public:
    RecordTable() : slots_(kTableSlots) {}

    // Resets every slot to the cleared record, as before a file is read, and
    // gives back the slots beyond 101 with the memory they took.  Records
    // are large (six exits, two slot lists), so only the slots handed out
    // for change since the last clearing are reset: the others still hold
    // the cleared record.  A reference to a slot must therefore not be kept
    // across a clearing.
    void clear() {
        if (slots_.size() > kTableSlots) {
            std::vector<Record> kept(std::make_move_iterator(slots_.begin()),
                                     std::make_move_iterator(slots_.begin() + kTableSlots));
            slots_.swap(kept);
        }
        const std::size_t used = touched_ < slots_.size() ? touched_ : slots_.size();
        for (std::size_t slot = 0; slot < used; ++slot)
            clearRecord(slots_[slot]);
        touched_ = 0;
        lineEnd = LineEnd::CrLf;
        trailer.clear();
        trailer.shrink_to_fit();
        leader.clear();
        notes.clear();
    }

    Record& operator[](std::size_t slot) {
        if (slot >= slots_.size())
            slots_.resize(slot + 1);
        if (slot >= touched_)
            touched_ = slot + 1;
        return slots_[slot];
    }
    const Record& operator[](std::size_t slot) const { return slots_.at(slot); }
    std::size_t size() const { return slots_.size(); }
    // Room for `records` slots without moving them again while a file is read.
    void reserve(std::size_t records) { slots_.reserve(records); }

    // The line ends of the file the table was read from; new files get CR LF.
    LineEnd lineEnd = LineEnd::CrLf;
    // What followed the last record in the file read: its `$` line and any
    // bytes after it, with or without a final line end.  Written back as it
    // stands; empty, the writer ends the file with `$` and a line end.
    std::string trailer;
    // The empty and `*` lines before the first record, written first.
    std::string leader;
    // What the reading could not hold, for the builder to be told.
    std::vector<TextReader::Note> notes;

private:
    std::vector<Record> slots_;
    std::size_t touched_ = 0; // slots below this may differ from the cleared record
};

// The first record of slots 0 to count - 1 whose VNum is below the one
// before it, or -1.  The server finds records by a binary search over rising
// VNums: records around one out of order are not found at boot.
template <typename Table> int firstOutOfOrder(const Table& table, int count) {
    for (int slot = 1; slot < count; ++slot)
        if (table[static_cast<std::size_t>(slot)].VNum <
            table[static_cast<std::size_t>(slot - 1)].VNum)
            return slot;
    return -1;
}

// The line of slot's `#` header in the file the table was read from: the
// records' bytes follow each other from the file's first line.
template <typename Table> int headerLine(const Table& table, int slot) {
    int line = 1;
    for (int before = 0; before < slot; ++before)
        for (char c : table[static_cast<std::size_t>(before)].Source)
            line += c == '\n' ? 1 : 0;
    return line;
}

} // namespace marl
