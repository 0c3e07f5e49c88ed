#include "zones/zone_lines.h"

#include "zones/format/zone_vocabulary.h"

namespace marl {

namespace {

std::string num(std::int32_t value) {
    return std::to_string(value);
}

std::string captionOf(std::span<const ChoiceDef> table, int number) {
    const ChoiceDef* choice = findChoice(table, number);
    return choice ? choice->caption : std::string();
}

std::string lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace

std::string namedVNum(const NameLookup& names, WorldKind kind, std::int32_t vnum,
                      std::int32_t zone) {
    // Without names (the world still loading) the number stands alone.
    if (!names)
        return num(vnum);
    const std::optional<std::string> name = names(kind, vnum);
    return num(vnum) + " " + (name ? *name : "(not in zone " + num(zone) + ")");
}

std::pair<WorldKind, std::int32_t> namedRecord(const ZoneCommand& command) {
    switch (command.Command) {
    case 'M':
        return {WorldKind::Mobile, command.Arg1};
    case 'D':
        return {WorldKind::Room, command.Arg1};
    case 'R':
        return {WorldKind::Object, command.Arg2};
    default:
        return {WorldKind::Object, command.Arg1};
    }
}

std::string commandWords(const ZoneCommand& command, const NameLookup& names, std::int32_t zone,
                         bool indented, const ArgMissing& missing) {
    const auto absent = [&](int arg) { return missing && missing(arg); };
    // The record that argument `arg` names.
    const auto named = [&](WorldKind kind, int arg) {
        const std::int32_t vnum = arg == 1 ? command.Arg1 : arg == 2 ? command.Arg2 : command.Arg3;
        return absent(arg) ? std::string("?") : namedVNum(names, kind, vnum, zone);
    };
    const std::string max = " (max " + (absent(2) ? std::string("?") : num(command.Arg2)) + ")";
    std::string line;
    switch (command.Command) {
    case kComment:
        return command.Comment;
    case 'M':
        line = "Load mobile " + named(WorldKind::Mobile, 1) + max + " into " +
               named(WorldKind::Room, 3);
        break;
    case 'O':
        line = "Load object " + named(WorldKind::Object, 1) + max +
               (command.Arg3 == -1 ? std::string(" into no room")
                                   : " into " + named(WorldKind::Room, 3));
        break;
    case 'G':
        line = "give " + named(WorldKind::Object, 1) + max;
        break;
    case 'E': {
        const std::string where = captionOf(kWearPositions, command.Arg3);
        line = "equip " + named(WorldKind::Object, 1) + max + " " +
               (where.empty() ? "at wear position " + num(command.Arg3) : where);
        break;
    }
    case 'P':
        line = "put " + named(WorldKind::Object, 1) + max + " into " + named(WorldKind::Object, 3);
        break;
    case 'D': {
        const char* action = command.Arg3 == 0   ? "Open door "
                             : command.Arg3 == 1 ? "Close door "
                             : command.Arg3 == 2 ? "Close and lock door "
                                                 : "Set door ";
        const std::string way = captionOf(kZoneDirections, command.Arg2);
        line = action + (way.empty() ? "in direction " + num(command.Arg2) : lowered(way)) +
               " of " + named(WorldKind::Room, 1);
        if (command.Arg3 < 0 || command.Arg3 > 2)
            line += " to state " + num(command.Arg3);
        break;
    }
    case 'R':
        line =
            "Remove object " + named(WorldKind::Object, 2) + " from " + named(WorldKind::Room, 1);
        break;
    default:
        line = std::string(1, command.Command);
    }
    const bool follows = command.Command == 'G' || command.Command == 'E' || command.Command == 'P';
    if (command.IfFlag != 0 && !follows)
        line += ", if the line before ran";
    if (command.IfFlag == 0 && follows)
        line += ", even if the line before did not run";
    return (indented ? "    " : "") + line;
}

std::vector<std::string> zoneLines(const ZoneRecord& zone, const NameLookup& names,
                                   const std::function<bool(std::size_t, int)>& missing) {
    std::vector<std::string> lines;
    lines.reserve(zone.Commands.size());
    bool loaded = false; // an M or O before: G, E and P go under it
    for (const ZoneCommand& command : zone.Commands) {
        const char c = command.Command;
        loaded = loaded || c == 'M' || c == 'O';
        const bool under = loaded && (c == 'G' || c == 'E' || c == 'P');
        const std::size_t at = lines.size();
        lines.push_back(
            commandWords(command, names, zone.Number, under,
                         missing ? [&](int arg) { return missing(at, arg); } : ArgMissing{}));
    }
    return lines;
}

} // namespace marl
