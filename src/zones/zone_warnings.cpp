#include "zones/zone_warnings.h"

#include <cctype>
#include <set>
#include <utility>

#include "zones/format/zone_vocabulary.h"

namespace marl {

namespace {

std::string lowered(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

} // namespace

std::vector<ZoneProblem> zoneWarnings(const ZoneRecord& zone, const NameLookup& names,
                                      const World& world) {
    std::vector<ZoneProblem> found;
    std::set<std::pair<std::int32_t, int>> exits; // (room VNum, direction)
    for (const WorldExit& exit : world.exits)
        exits.emplace(world.records(WorldKind::Room)[std::size_t(exit.room)].vnum, exit.direction);
    const auto num = [](std::int32_t value) { return std::to_string(value); };
    int line = zone.firstCommandLine;
    bool mobile = false;
    std::set<std::int32_t> objects; // loaded by a line before
    for (const ZoneCommand& command : zone.Commands) {
        const auto warn = [&](std::string text) { found.push_back({line, std::move(text)}); };
        const auto look = [&](WorldKind kind, std::int32_t vnum) {
            if (world.complete(kind) && !names(kind, vnum))
                warn("there is no " + std::string(kindInfo(kind).one) + " " + num(vnum) +
                     " in the world's files: the server disables the line");
        };
        const std::string letter(1, command.Command);
        switch (command.Command) {
        case 'M':
            look(WorldKind::Mobile, command.Arg1);
            look(WorldKind::Room, command.Arg3);
            mobile = true;
            break;
        case 'O':
            look(WorldKind::Object, command.Arg1);
            if (command.Arg3 != -1)
                look(WorldKind::Room, command.Arg3);
            break;
        case 'G':
        case 'E':
            look(WorldKind::Object, command.Arg1);
            if (!mobile)
                warn(letter + " with no M before it: there is no mobile to " +
                     (command.Command == 'G' ? "give it to" : "equip"));
            break;
        case 'P':
            look(WorldKind::Object, command.Arg1);
            look(WorldKind::Object, command.Arg3);
            if (!objects.contains(command.Arg3))
                warn("P with no O before it: no line before it loads its container, object " +
                     num(command.Arg3));
            break;
        case 'D':
            look(WorldKind::Room, command.Arg1);
            if (world.complete(WorldKind::Room) && world.find(WorldKind::Room, command.Arg1) &&
                command.Arg2 >= 0 && command.Arg2 < int(kZoneDirections.size()) &&
                !exits.contains({command.Arg1, command.Arg2}))
                warn("D on the " + lowered(kZoneDirections[std::size_t(command.Arg2)].caption) +
                     " side of room " + num(command.Arg1) +
                     ", which has no exit there: the server disables the line");
            break;
        case 'R':
            look(WorldKind::Room, command.Arg1);
            look(WorldKind::Object, command.Arg2);
            break;
        default:
            break;
        }
        if (command.Command == 'O' || command.Command == 'G' || command.Command == 'E' ||
            command.Command == 'P')
            objects.insert(command.Arg1);
        ++line;
    }
    return found;
}

} // namespace marl
