#pragma once
// Reading the server's zone-file text: lines, single characters, tilde
// strings, record headers and lines of numbers.  Every failure throws a
// FormatError that names the line and what was expected there.

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marl {

enum class LineEnd { CrLf, Lf };

// The line break every text holds in memory, whatever the file used.
inline constexpr std::string_view kCrLf = "\r\n";

class FormatError : public std::runtime_error {
public:
    FormatError(int line, std::string expected);
    // A line that has the expected shape but says what the server refuses:
    // `problem` says what is wrong ("3099999999999: too large for a vnum").
    static FormatError refused(int line, std::string problem);

    int line() const { return line_; }
    const std::string& expected() const { return expected_; }
    // "expected ..." or what is wrong with the line.
    std::string problem() const { return refused_ ? expected_ : "expected " + expected_; }

private:
    FormatError(int line, std::string text, bool refused);

    int line_;
    std::string expected_;
    bool refused_ = false;
};

class TextReader {
public:
    explicit TextReader(std::string_view data);
    // The reader keeps a view of the text: it must outlive the reader.
    explicit TextReader(std::string&&) = delete;
    explicit TextReader(const char* data) : TextReader(std::string_view(data)) {}

    bool atEnd() const { return pos_ >= data_.size(); }
    // The 1-based number of the line the reading position stands in.
    int lineNumber() const { return line_; }
    // The line end style of the file: the style of its first line break.
    LineEnd lineEnd() const { return lineEnd_; }

    // The characters up to the next LF (a CR before it is dropped too), as a
    // view of the data.  At the end of the data: FormatError naming `what`.
    std::string_view readLine(std::string_view what);
    // The next line the server reads as a line of a record: empty lines and
    // lines beginning with `*` are passed over, as its line reader does.
    // skippedFrom() is where the lines passed over began (lastLineStart()
    // when there were none).
    std::string_view nextLine(std::string_view what);
    std::size_t skippedFrom() const { return skippedFrom_; }
    // From a record's header on: the first line passed over inside it (not
    // by the last nextLine(), which read the line after it), or 0.
    void markRecord() { firstSkipped_ = firstInner_ = 0; }
    int firstSkippedInside() const { return firstInner_; }
    // The lines the last nextLine() passed over are held by the record.
    void forgetSkipped() { firstSkipped_ = 0; }

    // What the reading found the editor cannot hold, each at its line, for
    // the builder to be told; the file is read all the same.
    struct Note {
        int line;
        std::string text;
    };
    void note(int line, std::string text) { notes_.push_back({line, std::move(text)}); }
    std::vector<Note>& notes() { return notes_; }
    // The last line read started at this line number, at this offset.
    int lastLineNumber() const { return lastLine_; }
    std::size_t lastLineStart() const { return lastLineStart_; }
    // The offset the reading stands at.
    std::size_t position() const { return pos_; }

    char readChar(std::string_view what);

    // A one-line tilde string: everything up to the next `~` (line breaks on
    // the way are kept, as CR LF), then the rest of the `~` line is dropped.
    // In an LF file every LF is a line break and a CR before it is text; in
    // a CR LF file the bytes are kept as they stand, so a CR of the text
    // survives either way and the writer gives back the same bytes.
    std::string readTildeString(std::string_view what);
    // The same into `value`, which keeps its room for the next record.
    void readTildeString(std::string_view what, std::string& value);

    // A multi-line tilde text: everything up to the next `~`; a line break
    // directly before the `~` is dropped and nothing else is, so text that
    // the server keeps is never cut.  The rest of the `~` line is dropped.
    std::string readTildeText(std::string_view what);
    void readTildeText(std::string_view what, std::string& value);

private:
    void readUntilTilde(std::string_view what, std::string& value);
    void skipRestOfLine();

    std::string_view data_;
    std::size_t pos_ = 0;
    int line_ = 1;
    int lastLine_ = 0;
    std::size_t lastLineStart_ = 0;
    std::size_t skippedFrom_ = 0;
    int firstSkipped_ = 0;
    int firstInner_ = 0;
    std::vector<Note> notes_;
    LineEnd lineEnd_ = LineEnd::CrLf;
};

// Blanks (spaces and tabs) dropped from the end of a line.
std::string_view trimRight(std::string_view text);

// Whole-text numbers: an optional sign (`-` or `+`) and digits, within range.
bool parseInt(std::string_view text, std::int64_t min, std::int64_t max, std::int64_t& value);
std::int32_t toInt32(std::string_view text, int line, std::string_view what);
std::int16_t toInt16(std::string_view text, int line, std::string_view what);

// One line of fields, scanned as the server's `sscanf` scans it.  The
// format has a letter per field: `d` a number (blanks before it, a sign,
// digits; it ends at the first other character), `s` a word (blanks before
// it, then everything up to the next blank), `c` the next character that is
// not a blank, `x` dice `<n>d<n>+<n>` (blanks may stand before each number,
// as before any `%d`).  Blanks are spaces, tabs and the other characters
// `isspace` names; any run of them separates, and whatever follows the last
// field is not looked at.  A field missing or not of its kind throws
// FormatError naming the line and `what`; a number beyond what its field
// holds too.  The line and `what` must outlive the fields.
class FieldLine {
public:
    static constexpr std::size_t kMaxFields = 8;
    FieldLine(TextReader& in, std::string_view format, std::string_view what);
    FieldLine(std::string_view text, int line, std::string_view format, std::string_view what);
    FieldLine(const FieldLine&) = delete;
    FieldLine& operator=(const FieldLine&) = delete;

    // The field as the line has it (dice with any blanks inside).
    std::string_view text(std::size_t field) const { return fields_[field]; }
    std::int16_t int16(std::size_t field) const {
        return scanned_[field] ? static_cast<std::int16_t>(number(field, INT16_MIN, INT16_MAX))
                               : toInt16(fields_[field], line_, what_);
    }
    std::int32_t int32(std::size_t field) const {
        return scanned_[field] ? static_cast<std::int32_t>(number(field, INT32_MIN, INT32_MAX))
                               : toInt32(fields_[field], line_, what_);
    }
    // A dice field without the blanks the server passes over inside it.
    std::string dice(std::size_t field) const;

private:
    void scan(std::string_view format);
    // A `d` field's number, when within `min` to `max`; else FormatError.
    std::int64_t number(std::size_t field, std::int64_t min, std::int64_t max) const;

    std::string_view text_;
    int line_;
    std::string_view what_;
    std::array<std::string_view, kMaxFields> fields_{};
    // Each `d` field's number as it was scanned, held within a bound far
    // beyond 32 bits so that a long one cannot overflow.
    std::array<std::int64_t, kMaxFields> numbers_{};
    std::array<bool, kMaxFields> scanned_{}; // numbers_ holds the field's number
};

// The blanks of the server's scanning: what `isspace` names.
inline bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// The number `atoi` makes of a text: blanks, a sign and digits; anything
// else ends it, and a text without digits is 0.  Beyond 32 bits: nothing.
std::optional<std::int32_t> atoiValue(std::string_view text);

// `#<vnum>`: the number after the first `#`, read as the server reads it:
// blanks may stand before it and any text after its digits.  What the server
// refuses is refused: a negative vnum, two signs (`#+-3099`), a number beyond
// what its vnum holds.
std::int32_t parseHeader(std::string_view line, int lineNumber, std::string_view what);

// A line beginning with `$` ends a file.
inline bool isEndLine(std::string_view line) {
    return !line.empty() && line.front() == '$';
}

} // namespace marl
