#include "world/text_writer.h"

#include <cstring>

namespace marl {

TextWriter::TextWriter(LineEnd lineEnd)
    : crlf_(lineEnd == LineEnd::CrLf), eol_(lineEnd == LineEnd::CrLf ? "\r\n" : "\n"),
      tildeEol_(lineEnd == LineEnd::CrLf ? "~\r\n" : "~\n") {}

bool TextWriter::holdsCr(std::string_view text) {
    // Names and flags are short: a loop is quicker than a call for them.
    if (text.size() < 32) {
        for (const char c : text)
            if (c == '\r')
                return true;
        return false;
    }
    return std::memchr(text.data(), '\r', text.size()) != nullptr;
}

void TextWriter::appendConverting(std::string_view text) {
    std::size_t start = 0;
    while (true) {
        const std::size_t crlf = text.find(kCrLf, start);
        if (crlf == std::string_view::npos) {
            out_ += text.substr(start);
            return;
        }
        out_ += text.substr(start, crlf - start);
        out_ += eol_;
        start = crlf + 2;
    }
}

TextWriter& TextWriter::line(std::string_view text) {
    append(text);
    out_ += eol_;
    return *this;
}

TextWriter& TextWriter::header(std::int32_t vnum) {
    out_ += '#';
    return number(vnum).endLine();
}

TextWriter& TextWriter::tildeString(std::string_view value) {
    append(value);
    out_.append(tildeEol_.data(), tildeEol_.size());
    return *this;
}

TextWriter& TextWriter::tildeText(std::string_view value) {
    if (!value.empty()) {
        append(value);
        out_ += eol_;
    }
    out_.append(tildeEol_.data(), tildeEol_.size());
    return *this;
}

} // namespace marl
