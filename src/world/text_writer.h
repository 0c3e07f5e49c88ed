#pragma once
// Writing zone-file text: every line ends with the file's line end, multi-line
// texts are followed by a line break and a `~` on a line of its own.

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
    // A multi-line tilde text: the value, a line break, `~` alone.
    TextWriter& tildeText(std::string_view value);
    // The file's end line.
    TextWriter& end() { return line("$"); }

    std::string& text() { return out_; }
    std::string take() { return std::move(out_); }
    void reserve(std::size_t bytes) { out_.reserve(bytes); }

private:
    void append(std::string_view text);

    std::string out_;
    std::string_view eol_;
};

// Numbers joined by single spaces, as every numbers line is written.
template <typename... Values> std::string joinNumbers(Values... values) {
    std::string out;
    ((out += std::to_string(values), out += ' '), ...);
    out.pop_back();
    return out;
}

} // namespace marl
