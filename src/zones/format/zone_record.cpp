#include "zones/format/zone_record.h"
#include "zones/format/zone_reset_file.h"

#include <algorithm>
#include <tuple>

namespace marl {

int commandCount(const ZoneRecord& zone) {
    int count = 1; // the end
    for (const ZoneCommand& command : zone.Commands)
        count += command.Command != kComment;
    return count;
}

bool sameFields(const ZoneRecord& a, const ZoneRecord& b) {
    const auto fields = [](const ZoneRecord& z) {
        return std::tie(z.Number, z.Name, z.NoBottom, z.Bottom, z.Top, z.Lifespan, z.ResetMode,
                        z.Leader, z.Trailer, z.lineEnd);
    };
    const auto command = [](const ZoneCommand& c) {
        return std::tie(c.Command, c.IfFlag, c.Arg1, c.Arg2, c.Arg3, c.Comment);
    };
    return fields(a) == fields(b) &&
           std::equal(a.Commands.begin(), a.Commands.end(), b.Commands.begin(), b.Commands.end(),
                      [&](const ZoneCommand& x, const ZoneCommand& y) {
                          return command(x) == command(y);
                      });
}

std::string checkCommand(const ZoneCommand& command) {
    const auto outside = [](std::int32_t value, int top, const char* what) {
        return what + (" " + std::to_string(value)) + " is outside 0-" + std::to_string(top);
    };
    if (command.Command != kComment && commandLine(command).size() > kServerLine)
        return "the line is longer than the " + std::to_string(kServerLine) +
               " characters the server reads at once";
    switch (command.Command) {
    case 'E':
        if (command.Arg3 < 0 || command.Arg3 > 17)
            return outside(command.Arg3, 17, "the wear position");
        break;
    case 'D':
        if (command.Arg2 < 0 || command.Arg2 > 5)
            return outside(command.Arg2, 5, "the direction");
        if (command.Arg3 < 0 || command.Arg3 > 2)
            return outside(command.Arg3, 2, "the door state");
        break;
    default:
        break;
    }
    return {};
}

std::string checkName(const std::string& name) {
    if (name.find('~') != std::string::npos)
        return "the name holds a \"~\", which would end it there";
    if (name.find_first_of("\r\n") != std::string::npos)
        return "the name holds a line break";
    if (!name.empty() && name.front() == '*')
        return "the name begins with \"*\", which makes the server pass over its line";
    if (name.size() + 1 > kServerLine)
        return "the name is longer than the " + std::to_string(kServerLine - 1) +
               " characters the server reads";
    return {};
}

std::vector<ZoneProblem> checkZone(const ZoneRecord& zone) {
    std::vector<ZoneProblem> problems;
    if (std::string problem = checkName(zone.Name); !problem.empty())
        problems.push_back({zone.numbersLine - 1, std::move(problem)});
    if (!zone.NoBottom && zone.Bottom > zone.Top)
        problems.push_back({3, "the bottom VNum " + std::to_string(zone.Bottom) +
                                   " is above the top VNum " + std::to_string(zone.Top)});
    int line = zone.firstCommandLine;
    for (const ZoneCommand& command : zone.Commands) {
        if (std::string problem = checkCommand(command); !problem.empty())
            problems.push_back({line, std::move(problem)});
        ++line;
    }
    return problems;
}

} // namespace marl
