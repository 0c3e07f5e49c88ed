#include "zones/format/zone_reset_file.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "world/text_writer.h"

namespace marl {

namespace {

// One line as the server reads it: its bytes with the line end (none for a
// piece of a longer line), its text as the server's line reader gives it
// (every CR and LF at its end dropped), and the file line it stands in.
struct Line {
    std::string_view raw;
    std::string_view text;
    int fileLine;
    bool ended; // the raw bytes end the file line
};

// The lines of `bytes`, into a list each thread keeps for the next file.
const std::vector<Line>& splitLines(std::string_view bytes) {
    thread_local std::vector<Line> lines;
    lines.clear();
    std::size_t start = 0;
    int fileLine = 1;
    while (start < bytes.size()) {
        const std::size_t lf = bytes.find('\n', start);
        const std::size_t lineEnd = lf == std::string_view::npos ? bytes.size() : lf + 1;
        const std::size_t end = std::min(lineEnd, start + kServerLine);
        const std::string_view raw = bytes.substr(start, end - start);
        std::string_view text = raw;
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
            text.remove_suffix(1);
        lines.push_back({raw, text, fileLine, end == lineEnd});
        fileLine += end == lineEnd;
        start = end;
    }
    return lines;
}

// The lines the server's line reader passes over.
bool passedOver(const Line& line) {
    const char c = line.raw.front();
    return c == '*' || c == '\n' || c == '\r';
}

// The lines the server counts before it reads the commands.
bool counted(std::string_view text) {
    if (text == "S")
        return true;
    if (text.size() < 2 || text[1] != ' ')
        return false;
    const char c = text[0];
    return c == 'M' || c == 'O' || c == 'P' || c == 'G' || c == 'E' || c == 'R' || c == 'D';
}

constexpr std::string_view kHeader = "the zone header \"#<zone>\"";
constexpr std::string_view kName = "the zone's name, ending in \"~\"";
constexpr std::string_view kNumbers =
    "the zone's numbers \"<bottom> <top> <lifespan> <reset mode>\"";
constexpr std::string_view kEnd = "the end of the reset commands, a line \"S\"";

std::string_view commandShape(char command) {
    switch (command) {
    case 'M':
        return "the command \"M <if-flag> <mobile> <max existing> <room>\"";
    case 'O':
        return "the command \"O <if-flag> <object> <max existing> <room>\"";
    case 'G':
        return "the command \"G <if-flag> <object> <max existing>\"";
    case 'E':
        return "the command \"E <if-flag> <object> <max existing> <wear position>\"";
    case 'P':
        return "the command \"P <if-flag> <object> <max existing> <container>\"";
    case 'D':
        return "the command \"D <if-flag> <room> <direction> <state>\"";
    case 'R':
        return "the command \"R <if-flag> <room> <object>\"";
    default:
        return "a command \"<letter> <if-flag> <number> <number>\"";
    }
}

std::string_view eolOf(LineEnd lineEnd) {
    return lineEnd == LineEnd::CrLf ? "\r\n" : "\n";
}

} // namespace

int readZone(std::string_view bytes, ZoneRecord& zone, CommandTexts texts) {
    zone = ZoneRecord{};
    const bool kept = texts == CommandTexts::Kept;
    const std::vector<Line>& lines = splitLines(bytes);
    if (const std::size_t lf = bytes.find('\n'); lf != std::string_view::npos)
        zone.lineEnd = lf > 0 && bytes[lf - 1] == '\r' ? LineEnd::CrLf : LineEnd::Lf;
    const auto lineNumber = [&](std::size_t index) {
        if (index < lines.size())
            return lines[index].fileLine;
        return lines.empty() ? 1 : lines.back().fileLine + (lines.back().ended ? 1 : 0);
    };
    std::size_t i = 0;
    // The next line the server reads, as its line reader finds it.
    const auto nextLine = [&](std::string_view what) -> const Line& {
        while (i < lines.size() && passedOver(lines[i]))
            ++i;
        if (i == lines.size())
            throw FormatError(lineNumber(i), std::string(what));
        return lines[i++];
    };

    const Line& header = nextLine(kHeader);
    const int headerLine = lineNumber(i - 1);
    zone.Leader = std::string(bytes.substr(0, header.raw.data() - bytes.data()));
    if (header.text.empty() || header.text.front() != '#')
        throw FormatError(headerLine, std::string(kHeader));
    zone.Number = FieldLine(header.text.substr(1), headerLine, "d", kHeader).int16(0);

    const std::string_view name = nextLine(kName).text;
    zone.Name = std::string(name.substr(0, name.find('~')));

    const Line& numbers = nextLine(kNumbers);
    const int numbersLine = lineNumber(i - 1);
    zone.numbersLine = numbersLine;
    try {
        const FieldLine four(numbers.text, numbersLine, "dddd", kNumbers);
        zone.Bottom = four.int16(0);
        zone.Top = four.int16(1);
        zone.Lifespan = four.int32(2);
        zone.ResetMode = four.int32(3);
    } catch (const FormatError&) {
        // An older file: top, lifespan and mode.
        const FieldLine three(numbers.text, numbersLine, "ddd", kNumbers);
        zone.NoBottom = true;
        zone.Bottom = 0;
        zone.Top = three.int16(0);
        zone.Lifespan = three.int32(1);
        zone.ResetMode = three.int32(2);
    }
    if (!zone.NoBottom && zone.Bottom > zone.Top)
        throw FormatError::refused(numbersLine, "the bottom VNum " + std::to_string(zone.Bottom) +
                                                    " is above the top VNum " +
                                                    std::to_string(zone.Top));
    const std::size_t headerEnd = numbers.raw.data() + numbers.raw.size() - bytes.data();
    zone.Source = std::string(bytes.substr(0, headerEnd));
    zone.firstCommandLine = lineNumber(i);
    zone.Commands.reserve(lines.size() - i);

    for (;; ++i) {
        if (i == lines.size())
            throw FormatError(lineNumber(i), std::string(kEnd));
        const Line& line = lines[i];
        const int number = lineNumber(i);
        ZoneCommand entry;
        if (kept)
            entry.Source = std::string(line.raw);
        // The rest of a line longer than the server reads at once: harmless
        // only where the server passes over it (it begins with `*`, or is the
        // line end), and kept with the line.
        while (!lines[i].ended) {
            const Line& rest = lines[++i];
            if (!passedOver(rest))
                throw FormatError::refused(
                    number, "the line is longer than the " + std::to_string(kServerLine) +
                                " characters the server reads at once, and it reads the "
                                "rest as a line of its own");
            if (kept)
                entry.Source += rest.raw;
        }
        std::string_view text = line.text;
        const bool skipped = passedOver(line);
        while (!skipped && !text.empty() && isBlank(text.front()))
            text.remove_prefix(1);
        if (!skipped && text.empty())
            throw FormatError(number,
                              "a command, a \"*\" comment or the end \"S\", not blanks alone");
        if (skipped || text.front() == kComment) {
            std::string_view whole = entry.Source;
            while (!whole.empty() && (whole.back() == '\n' || whole.back() == '\r'))
                whole.remove_suffix(1);
            if (kept)
                entry.Comment = std::string(whole);
            zone.Commands.push_back(std::move(entry));
            continue;
        }
        const char letter = text.front();
        // The server counts a command line only when its letter begins the
        // line and a blank follows, and the end only as `S` alone; a line it
        // reads but does not count makes it refuse the file.
        if (!counted(line.text))
            throw FormatError::refused(
                number, letter == 'S' || letter == '$'
                            ? "the end of the commands must be \"S\" alone on its line"
                            : "the server does not count this line as a command: it counts a "
                              "line that begins with M, O, P, G, E, R or D and a blank");
        if (letter == 'S' || letter == '$')
            break;
        const std::string_view rest = text.substr(1);
        const FieldLine fields(rest, number, hasThreeArgs(letter) ? "ddd" : "dddd",
                               commandShape(letter));
        entry.Command = letter;
        entry.IfFlag = fields.int32(0);
        entry.Arg1 = fields.int32(1);
        entry.Arg2 = fields.int32(2);
        const std::size_t last = hasThreeArgs(letter) ? 2 : 3;
        if (!hasThreeArgs(letter))
            entry.Arg3 = fields.int32(3);
        const std::string_view lastField = fields.text(last);
        if (kept)
            entry.Comment =
                std::string(rest.substr(lastField.data() + lastField.size() - rest.data()));
        zone.Commands.push_back(std::move(entry));
    }
    zone.Trailer = std::string(bytes.substr(lines[i].raw.data() - bytes.data()));
    // After the end the server still counts: a command line there is one
    // more than it reads.
    for (std::size_t after = i + 1; after < lines.size(); ++after)
        if (!passedOver(lines[after]) && counted(lines[after].text))
            throw FormatError::refused(lineNumber(after),
                                       "the server counts this line as a command, but it "
                                       "stands after the end \"S\"");
    return commandCount(zone);
}

std::string commandLine(const ZoneCommand& command) {
    if (command.Command == kComment)
        return command.Comment;
    TextWriter line(LineEnd::Lf);
    line.put(command.Command).put(' ').number(command.IfFlag).put(' ').number(command.Arg1);
    line.put(' ').number(command.Arg2);
    if (!hasThreeArgs(command.Command))
        line.put(' ').number(command.Arg3);
    line.text() += command.Comment;
    return line.take();
}

std::string writeZone(const ZoneRecord& zone) {
    const std::string_view eol = eolOf(zone.lineEnd);
    std::string out;
    if (!zone.Source.empty()) {
        out += zone.Source;
    } else {
        TextWriter header(zone.lineEnd);
        header.raw(zone.Leader).header(zone.Number).tildeString(zone.Name);
        if (zone.NoBottom)
            header.numbers(zone.Top, zone.Lifespan, zone.ResetMode);
        else
            header.numbers(zone.Bottom, zone.Top, zone.Lifespan, zone.ResetMode);
        out += header.take();
    }
    for (const ZoneCommand& command : zone.Commands) {
        if (!command.Source.empty()) {
            out += command.Source;
        } else {
            out += commandLine(command);
            out += eol;
        }
    }
    if (zone.Trailer.empty())
        out.append("S").append(eol).append("$").append(eol);
    else
        out += zone.Trailer;
    return out;
}

} // namespace marl
