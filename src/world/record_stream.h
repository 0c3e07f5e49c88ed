#pragma once
// A file's records read one at a time, for a reader that looks at each
// record once and keeps nothing of it (the whole world's check): each is
// handed on as soon as it is complete, and one record's room serves them
// all, however many the file holds.  It offers the file readers what they
// use of a table.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "world/record_table.h"
#include "world/text_reader.h"

namespace marl {

template <typename Record> class RecordStream {
public:
    // `scratch` is the room each record is read into; `take` is handed
    // each record, in file order, with the line of its header.
    RecordStream(Record& scratch, std::function<void(const Record&, int)> take)
        : record_(scratch), take_(std::move(take)) {}
    RecordStream(const RecordStream&) = delete;
    RecordStream& operator=(const RecordStream&) = delete;

    // A header read at `line`: the record before it is complete, and
    // handed on.
    void headerAt(int line) {
        handOn();
        nextLine_ = line;
    }
    // The room for the record of the header.
    Record& operator[](std::size_t) {
        handOn();
        clearRecord(record_);
        held_ = true;
        line_ = nextLine_;
        return record_;
    }
    // When the reader has returned: its last record handed on.
    void finish() { handOn(); }

    LineEnd lineEnd = LineEnd::CrLf;
    std::string leader;
    std::string trailer;
    std::vector<TextReader::Note> notes;

private:
    void handOn() {
        if (held_) {
            held_ = false;
            take_(record_, line_);
        }
    }

    Record& record_;
    std::function<void(const Record&, int)> take_;
    bool held_ = false;
    int line_ = 0;     // of the record held
    int nextLine_ = 0; // of the header read last
};

} // namespace marl
