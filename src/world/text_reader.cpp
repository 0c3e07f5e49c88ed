#include "world/text_reader.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace marl {

namespace {

// The next LF from `from`.  Most lines of a zone file are a few characters
// long ("S", "D0", "#3001"), too short for a library search to pay off.
std::size_t findLineFeed(std::string_view data, std::size_t from) {
    const std::size_t near = std::min(data.size(), from + 24);
    for (std::size_t at = from; at < near; ++at)
        if (data[at] == '\n')
            return at;
    return data.find('\n', near);
}

// Plain digits with at most a minus before them, no more than nine: most
// numbers of a file, read without the general parser.  Such a number always
// fits 32 bits.
bool parsePlain(std::string_view text, std::int64_t& value) {
    const bool negative = !text.empty() && text.front() == '-';
    const std::size_t digits = text.size() - (negative ? 1 : 0);
    if (digits == 0 || digits > 9)
        return false;
    std::int64_t parsed = 0;
    for (std::size_t i = negative ? 1 : 0; i < text.size(); ++i) {
        const unsigned digit = static_cast<unsigned char>(text[i]) - unsigned('0');
        if (digit > 9)
            return false;
        parsed = parsed * 10 + digit;
    }
    value = negative ? -parsed : parsed;
    return true;
}

} // namespace

FormatError::FormatError(int line, std::string expected)
    : FormatError(line, std::move(expected), false) {}

FormatError::FormatError(int line, std::string text, bool refused)
    : std::runtime_error("line " + std::to_string(line) + ": " + (refused ? "" : "expected ") +
                         text),
      line_(line), expected_(std::move(text)), refused_(refused) {}

FormatError FormatError::refused(int line, std::string problem) {
    return FormatError(line, std::move(problem), true);
}

TextReader::TextReader(std::string_view data) : data_(data) {
    const std::size_t lf = data_.find('\n');
    if (lf != std::string_view::npos)
        lineEnd_ = (lf > 0 && data_[lf - 1] == '\r') ? LineEnd::CrLf : LineEnd::Lf;
}

std::string_view TextReader::readLine(std::string_view what) {
    if (atEnd())
        throw FormatError(line_, std::string(what));
    lastLine_ = line_;
    lastLineStart_ = pos_;
    const std::size_t lf = findLineFeed(data_, pos_);
    std::size_t end = lf == std::string_view::npos ? data_.size() : lf;
    std::size_t next = lf == std::string_view::npos ? data_.size() : lf + 1;
    if (end > pos_ && data_[end - 1] == '\r')
        --end;
    const std::string_view line = data_.substr(pos_, end - pos_);
    pos_ = next;
    if (lf != std::string_view::npos)
        ++line_;
    return line;
}

std::string_view TextReader::nextLine(std::string_view what) {
    if (firstSkipped_ != 0 && firstInner_ == 0)
        firstInner_ = firstSkipped_;
    skippedFrom_ = pos_;
    firstSkipped_ = 0;
    while (pos_ < data_.size() &&
           (data_[pos_] == '*' || data_[pos_] == '\r' || data_[pos_] == '\n')) {
        if (firstSkipped_ == 0)
            firstSkipped_ = line_;
        readLine(what);
    }
    return readLine(what);
}

char TextReader::readChar(std::string_view what) {
    if (atEnd())
        throw FormatError(line_, std::string(what));
    const char c = data_[pos_++];
    if (c == '\n')
        ++line_;
    return c;
}

void TextReader::readUntilTilde(std::string_view what, std::string& value) {
    const std::size_t tilde = data_.find('~', pos_);
    if (tilde == std::string_view::npos)
        throw FormatError(line_, std::string(what));
    const std::string_view text = data_.substr(pos_, tilde - pos_);
    // Where the line breaks stand, the first few noted for the copy.
    constexpr std::size_t kNoted = 64;
    std::array<std::size_t, kNoted> noted;
    std::size_t breaks = 0;
    for (std::size_t lf = text.find('\n'); lf != std::string_view::npos;
         lf = text.find('\n', lf + 1)) {
        if (breaks < kNoted)
            noted[breaks] = lf;
        ++breaks;
    }
    line_ += static_cast<int>(breaks);
    if (lineEnd_ == LineEnd::CrLf || breaks == 0) {
        value.assign(text);
    } else {
        // Each LF is held as CR LF; the writer turns exactly that pair back.
        value.resize(text.size() + breaks);
        char* out = value.data();
        std::size_t start = 0;
        for (std::size_t b = 0; b < breaks; ++b) {
            const std::size_t lf = b < kNoted ? noted[b] : text.find('\n', start);
            std::memcpy(out, text.data() + start, lf - start);
            out += lf - start;
            *out++ = '\r';
            *out++ = '\n';
            start = lf + 1;
        }
        std::memcpy(out, text.data() + start, text.size() - start);
    }
    pos_ = tilde + 1;
}

void TextReader::skipRestOfLine() {
    // Mostly the line ends right after the `~`.
    std::size_t at = pos_;
    if (at < data_.size() && data_[at] == '\r')
        ++at;
    if (at < data_.size() && data_[at] == '\n') {
        pos_ = at + 1;
        ++line_;
        return;
    }
    const std::size_t lf = data_.find('\n', pos_);
    if (lf == std::string_view::npos) {
        pos_ = data_.size();
    } else {
        pos_ = lf + 1;
        ++line_;
    }
}

void TextReader::readTildeString(std::string_view what, std::string& value) {
    readUntilTilde(what, value);
    skipRestOfLine();
}

std::string TextReader::readTildeString(std::string_view what) {
    std::string value;
    readTildeString(what, value);
    return value;
}

void TextReader::readTildeText(std::string_view what, std::string& value) {
    readUntilTilde(what, value);
    // The line break that puts the `~` on a line of its own; in a CR LF file
    // a lone LF there is one as well.
    if (value.size() >= 2 && value.compare(value.size() - 2, 2, kCrLf) == 0)
        value.resize(value.size() - 2);
    else if (!value.empty() && value.back() == '\n')
        value.pop_back();
    skipRestOfLine();
}

std::string TextReader::readTildeText(std::string_view what) {
    std::string value;
    readTildeText(what, value);
    return value;
}

std::string_view trimRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && (text[end - 1] == ' ' || text[end - 1] == '\t'))
        --end;
    return text.substr(0, end);
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
    if (!parsePlain(text, value) && !parseInt(text, INT32_MIN, INT32_MAX, value))
        throw FormatError(line, std::string(what));
    return static_cast<std::int32_t>(value);
}

std::int16_t toInt16(std::string_view text, int line, std::string_view what) {
    std::int64_t value = 0;
    const bool plain = parsePlain(text, value);
    if (plain ? value < INT16_MIN || value > INT16_MAX
              : !parseInt(text, INT16_MIN, INT16_MAX, value))
        throw FormatError(line, std::string(what));
    return static_cast<std::int16_t>(value);
}

FieldLine::FieldLine(TextReader& in, std::string_view format, std::string_view what)
    : text_(in.nextLine(what)), line_(in.lastLineNumber()), what_(what) {
    scan(format);
}

FieldLine::FieldLine(std::string_view text, int line, std::string_view format,
                     std::string_view what)
    : text_(text), line_(line), what_(what) {
    scan(format);
}

// Into the fixed fields: no allocation for a line.
void FieldLine::scan(std::string_view format) {
    if (format.size() > kMaxFields)
        throw std::logic_error("too many fields asked of one line");
    const std::size_t size = text_.size();
    std::size_t i = 0;
    const auto blanks = [&] {
        while (i < size && isBlank(text_[i]))
            ++i;
    };
    // %d: blanks, a sign, at least one digit.  Its value is kept, so that
    // the digits are read once.
    std::int64_t value = 0;
    const auto number = [&] {
        blanks();
        const std::size_t start = i;
        const bool negative = i < size && text_[i] == '-';
        if (i < size && (text_[i] == '-' || text_[i] == '+'))
            ++i;
        const std::size_t digits = i;
        constexpr std::int64_t kBeyond = std::int64_t(1) << 40; // beyond any field
        value = 0;
        while (i < size && text_[i] >= '0' && text_[i] <= '9') {
            value = std::min(value * 10 + (text_[i] - '0'), kBeyond);
            ++i;
        }
        if (i == digits)
            throw FormatError(line_, std::string(what_));
        if (negative)
            value = -value;
        return start;
    };
    const auto literal = [&](char c) {
        if (i >= size || text_[i] != c)
            throw FormatError(line_, std::string(what_));
        ++i;
    };
    for (std::size_t field = 0; field < format.size(); ++field) {
        std::size_t start = 0;
        switch (format[field]) {
        case 'd':
            start = number();
            numbers_[field] = value;
            scanned_[field] = true;
            break;
        case 'x':
            start = number();
            literal('d');
            number();
            literal('+');
            number();
            break;
        case 's':
            blanks();
            start = i;
            while (i < size && !isBlank(text_[i]))
                ++i;
            if (i == start)
                throw FormatError(line_, std::string(what_));
            break;
        default: // 'c'
            blanks();
            start = i;
            if (i == size)
                throw FormatError(line_, std::string(what_));
            ++i;
            break;
        }
        fields_[field] = text_.substr(start, i - start);
    }
}

std::int64_t FieldLine::number(std::size_t field, std::int64_t min, std::int64_t max) const {
    if (numbers_[field] < min || numbers_[field] > max)
        throw FormatError(line_, std::string(what_));
    return numbers_[field];
}

std::string FieldLine::dice(std::size_t field) const {
    std::string text;
    for (char c : fields_[field])
        if (!isBlank(c))
            text += c;
    return text;
}

std::optional<std::int32_t> atoiValue(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    const std::size_t start = i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        ++i;
    const std::size_t digits = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9')
        ++i;
    if (i == digits)
        return 0;
    std::int64_t value = 0;
    if (!parseInt(text.substr(start, i - start), INT32_MIN, INT32_MAX, value))
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

std::int32_t parseHeader(std::string_view line, int lineNumber, std::string_view what) {
    // The server looks at a line's first character alone.
    const std::size_t hash = 0;
    if (line.empty() || line.front() != '#')
        throw FormatError(lineNumber, std::string(what));
    // The server scans `#%d`: blanks, one optional sign, digits; whatever
    // follows the digits is not looked at.
    std::string_view rest = line.substr(hash + 1);
    std::size_t i = 0;
    while (i < rest.size() && (rest[i] == ' ' || rest[i] == '\t'))
        ++i;
    const std::size_t start = i;
    const bool negative = i < rest.size() && rest[i] == '-';
    if (i < rest.size() && (rest[i] == '-' || rest[i] == '+'))
        ++i;
    const std::size_t digits = i;
    while (i < rest.size() && rest[i] >= '0' && rest[i] <= '9')
        ++i;
    // The number as the line has it, for the messages.
    const std::string written(rest.substr(start, rest.find_first_of(" \t", start) - start));
    if (i == digits) {
        if (digits > start && i < rest.size() && (rest[i] == '-' || rest[i] == '+'))
            throw FormatError::refused(lineNumber, written + ": two signs before a vnum");
        throw FormatError(lineNumber, std::string(what));
    }
    std::int64_t value = 0;
    if (!parseInt(rest.substr(digits, i - digits), 0, INT32_MAX, value))
        throw FormatError::refused(lineNumber, written + ": too large for a vnum");
    if (negative && value != 0)
        throw FormatError::refused(lineNumber, written + ": a vnum cannot be negative");
    return static_cast<std::int32_t>(value);
}

} // namespace marl
