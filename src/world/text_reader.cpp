#include "world/text_reader.h"

#include <charconv>

namespace marl {

FormatError::FormatError(int line, std::string expected)
    : std::runtime_error("line " + std::to_string(line) + ": expected " + expected), line_(line),
      expected_(std::move(expected)) {}

TextReader::TextReader(std::string_view data) : data_(data) {
    const std::size_t lf = data_.find('\n');
    if (lf != std::string_view::npos)
        lineEnd_ = (lf > 0 && data_[lf - 1] == '\r') ? LineEnd::CrLf : LineEnd::Lf;
}

std::string TextReader::readLine(std::string_view what) {
    if (atEnd())
        throw FormatError(line_, std::string(what));
    lastLine_ = line_;
    lastLineStart_ = pos_;
    const std::size_t lf = data_.find('\n', pos_);
    std::size_t end = lf == std::string_view::npos ? data_.size() : lf;
    std::size_t next = lf == std::string_view::npos ? data_.size() : lf + 1;
    if (end > pos_ && data_[end - 1] == '\r')
        --end;
    std::string line(data_.substr(pos_, end - pos_));
    pos_ = next;
    if (lf != std::string_view::npos)
        ++line_;
    return line;
}

char TextReader::readChar(std::string_view what) {
    if (atEnd())
        throw FormatError(line_, std::string(what));
    const char c = data_[pos_++];
    if (c == '\n')
        ++line_;
    return c;
}

std::string TextReader::readUntilTilde(std::string_view what) {
    const int startLine = line_;
    const std::size_t tilde = data_.find('~', pos_);
    if (tilde == std::string_view::npos)
        throw FormatError(startLine, std::string(what));
    const std::string_view text = data_.substr(pos_, tilde - pos_);
    std::string value;
    if (lineEnd_ == LineEnd::CrLf) {
        value.assign(text);
        for (std::size_t lf = text.find('\n'); lf != std::string_view::npos;
             lf = text.find('\n', lf + 1))
            ++line_;
    } else {
        // Each LF is held as CR LF; the writer turns exactly that pair back.
        std::size_t start = 0;
        for (std::size_t lf = text.find('\n'); lf != std::string_view::npos;
             lf = text.find('\n', start)) {
            if (value.empty())
                value.reserve(text.size() + 16);
            value.append(text.substr(start, lf - start)).append(kCrLf);
            start = lf + 1;
            ++line_;
        }
        value.append(text.substr(start));
    }
    pos_ = tilde + 1;
    return value;
}

void TextReader::skipRestOfLine() {
    const std::size_t lf = data_.find('\n', pos_);
    if (lf == std::string_view::npos) {
        pos_ = data_.size();
    } else {
        pos_ = lf + 1;
        ++line_;
    }
}

std::string TextReader::readTildeString(std::string_view what) {
    std::string value = readUntilTilde(what);
    skipRestOfLine();
    return value;
}

std::string TextReader::readTildeText(std::string_view what) {
    std::string value = readUntilTilde(what);
    // The line break that puts the `~` on a line of its own; in a CR LF file
    // a lone LF there is one as well.
    if (value.size() >= 2 && value.compare(value.size() - 2, 2, kCrLf) == 0)
        value.resize(value.size() - 2);
    else if (!value.empty() && value.back() == '\n')
        value.pop_back();
    skipRestOfLine();
    return value;
}

std::string_view trimRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && (text[end - 1] == ' ' || text[end - 1] == '\t'))
        --end;
    return text.substr(0, end);
}

std::vector<std::string_view> splitFlagLine(std::string_view line, std::size_t count) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (fields.size() < count) {
        const std::size_t space = line.find(' ', start);
        const bool last = space == std::string_view::npos;
        fields.push_back(trimRight(line.substr(start, last ? line.npos : space - start)));
        if (last)
            break;
        start = space + 1;
    }
    return fields;
}

std::vector<std::string_view> splitNumbers(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t'))
            ++i;
        const std::size_t start = i;
        while (i < line.size() && line[i] != ' ' && line[i] != '\t')
            ++i;
        if (i > start)
            fields.push_back(line.substr(start, i - start));
    }
    return fields;
}

bool parseInt(std::string_view text, std::int64_t min, std::int64_t max, std::int64_t& value) {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    if (text.empty() || text.front() == '+')
        return false;
    std::int64_t parsed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size() || parsed < min || parsed > max)
        return false;
    value = parsed;
    return true;
}

std::int32_t toInt32(std::string_view text, int line, std::string_view what) {
    std::int64_t value = 0;
    if (!parseInt(text, INT32_MIN, INT32_MAX, value))
        throw FormatError(line, std::string(what));
    return static_cast<std::int32_t>(value);
}

std::int16_t toInt16(std::string_view text, int line, std::string_view what) {
    std::int64_t value = 0;
    if (!parseInt(text, INT16_MIN, INT16_MAX, value))
        throw FormatError(line, std::string(what));
    return static_cast<std::int16_t>(value);
}

FieldLine::FieldLine(TextReader& in, std::size_t count, std::string_view what, Split split)
    : text_(in.readLine(what)), line_(in.lastLineNumber()), what_(what) {
    this->split(count, split);
}

FieldLine::FieldLine(std::string text, int line, std::size_t count, std::string_view what,
                     Split split)
    : text_(std::move(text)), line_(line), what_(what) {
    this->split(count, split);
}

void FieldLine::split(std::size_t count, Split split) {
    fields_ = split == Numbers ? splitNumbers(text_) : splitFlagLine(text_, count);
    if (fields_.size() < count)
        throw FormatError(line_, std::string(what_));
}

std::int32_t parseHeader(std::string_view line, int lineNumber, std::string_view what) {
    const std::size_t hash = line.find('#');
    if (hash == std::string_view::npos)
        throw FormatError(lineNumber, std::string(what));
    std::string_view number = line.substr(hash + 1);
    number = number.substr(0, number.find('#'));
    return toInt32(trimRight(number), lineNumber, what);
}

} // namespace marl
