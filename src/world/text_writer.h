#pragma once
// Writing zone-file text: every line ends with the file's line end, multi-line
// texts are followed by a line break and a `~` on a line of its own.  In an
// LF file each CR LF held in a text becomes LF, the exact reverse of what the
// reader does, so a CR of the text itself is written back.

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "world/text_reader.h"

namespace marl {

class TextWriter {
public:
    explicit TextWriter(LineEnd lineEnd = LineEnd::CrLf);

    // A line of text; CR LF held inside it becomes the file's line end.
    TextWriter& line(std::string_view text);
    // `#<vnum>`.
    TextWriter& header(std::int32_t vnum);
    // A one-line tilde string: `value~`.
    TextWriter& tildeString(std::string_view value);
    // A multi-line tilde text: the value, a line break, `~` alone; an empty
    // value is the `~` line alone, which the server reads as no text (an
    // empty line before it would be a text of one blank line).
    TextWriter& tildeText(std::string_view value);
    // Bytes as they stand, line ends included (a record as it was read).
    TextWriter& raw(std::string_view bytes) {
        out_ += bytes;
        return *this;
    }
    // The file's end line.
    TextWriter& end() { return line("$"); }

    // Pieces of one line, written straight into the text so that a record's
    // numbers and flags need no string of their own: text (CR LF held in it
    // becomes the file's line end, as in line()), a number in plain decimal,
    // and the line's end.
    TextWriter& put(std::string_view text) {
        append(text);
        return *this;
    }
    TextWriter& put(char c) {
        out_ += c;
        return *this;
    }
    TextWriter& number(std::int64_t value) {
        char digits[24];
        const auto done = std::to_chars(digits, digits + sizeof digits, value);
        // By count, not as a range of pointers: the range form goes through
        // the string's general replace and costs as much as the digits.
        out_.append(digits, static_cast<std::size_t>(done.ptr - digits));
        return *this;
    }
    TextWriter& endLine() {
        out_ += eol_;
        return *this;
    }
    // A line of numbers joined by single spaces.
    template <typename First, typename... Rest> TextWriter& numbers(First first, Rest... rest) {
        number(first);
        ((out_ += ' ', number(rest)), ...);
        return endLine();
    }

    std::string& text() { return out_; }
    std::string take() { return std::move(out_); }
    void reserve(std::size_t bytes) { out_.reserve(bytes); }

private:
    // Most texts hold no CR at all, and a CR LF file needs no change of
    // line ends: those are copied as they stand.
    void append(std::string_view text) {
        if (crlf_ || !holdsCr(text))
            out_.append(text.data(), text.size());
        else
            appendConverting(text);
    }
    static bool holdsCr(std::string_view text);
    void appendConverting(std::string_view text);

    std::string out_;
    bool crlf_;
    std::string_view eol_;
    std::string_view tildeEol_; // `~` and the line end
};

} // namespace marl
