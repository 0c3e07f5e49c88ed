#include "kinds/world_checks.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>

#include "world/zone.h"

namespace marl {

namespace {

// The server's own rooms: where players start (it stops booting without
// it), and where gods and frozen players start (it logs their absence).
constexpr std::int32_t kMortalStart = 3001, kImmortStart = 1204, kFrozenStart = 1202;
constexpr int kWearPositions = 18, kDirections = 6;
constexpr std::array<const char*, kDirections> kDirectionNames = {"north", "east", "south",
                                                                  "west",  "up",   "down"};

std::string num(std::int64_t value) {
    return std::to_string(value);
}

// How many of each mobile or object are in the game: counted in place for
// the VNums a kind's records span, any other in a map.
class InGame {
public:
    explicit InGame(const std::vector<WorldRecord>& records) {
        std::int32_t highest = -1;
        for (const WorldRecord& record : records)
            highest = std::max(highest, record.vnum);
        counts_.assign(static_cast<std::size_t>(highest + 1), 0);
    }
    int& operator[](std::int32_t vnum) {
        if (vnum >= 0 && static_cast<std::size_t>(vnum) < counts_.size())
            return counts_[static_cast<std::size_t>(vnum)];
        return others_[vnum];
    }

private:
    std::vector<int> counts_;
    std::unordered_map<std::int32_t, int> others_;
};

class Checker {
public:
    Checker(const World& world, WorldReport& report) : world_(world), report_(report) {
        exitsOf_.assign(world.records(WorldKind::Room).size(), 0);
        for (const WorldExit& exit : world.exits)
            exitsOf_[static_cast<std::size_t>(exit.room)] |= 1u << exit.direction;
        for (std::size_t z = 0; z < world.zones.size(); ++z)
            zoneOfNumber_.emplace(zoneRecord(z).vnum, z);
    }

    void run() {
        indexes();
        emptyKinds();
        zoneRanges();
        roomsInZones();
        startRooms();
        for (WorldKind kind :
             {WorldKind::Zone, WorldKind::Room, WorldKind::Mobile, WorldKind::Object})
            twice(kind);
        for (WorldKind kind : {WorldKind::Mobile, WorldKind::Object})
            order(kind);
        for (WorldKind kind : {WorldKind::Room, WorldKind::Mobile, WorldKind::Object})
            ownZone(kind);
        exits();
        shops();
        std::vector<std::vector<bool>> disabled = renumber();
        resets(disabled);
    }

private:
    const World& world_;
    WorldReport& report_;
    std::vector<unsigned> exitsOf_;                              // room place: a bit per direction
    std::unordered_map<std::int32_t, std::size_t> zoneOfNumber_; // the first zone of a number
    std::vector<bool> walkRefused_;                              // rooms the zone walk stopped at

    const WorldRecord& zoneRecord(std::size_t z) const {
        return world_.records(WorldKind::Zone)[static_cast<std::size_t>(world_.zones[z].record)];
    }

    void add(int file, int line, Severity severity, std::string what, std::string server = {}) {
        report_.findings.push_back({file, line, {severity, std::move(what), std::move(server)}});
    }
    void add(const WorldRecord& record, WorldKind kind, int line, Severity severity,
             std::string what, std::string server = {}) {
        report_.findings.push_back({record.file,
                                    line,
                                    {severity, std::move(what), std::move(server)},
                                    true,
                                    kind,
                                    record.vnum});
    }
    std::string named(WorldKind kind, const WorldRecord& record) const {
        return std::string(kindInfo(kind).one) + ' ' + num(record.vnum);
    }
    std::string where(const WorldRecord& record) const {
        return world_.files[static_cast<std::size_t>(record.file)].shown + ':' + num(record.line);
    }
    bool complete(std::initializer_list<WorldKind> kinds) const {
        return std::all_of(kinds.begin(), kinds.end(),
                           [&](WorldKind kind) { return world_.complete(kind); });
    }
    // Whether the server finds the record, and if not, why.
    std::string missing(WorldKind kind, std::int32_t vnum) const {
        if (world_.serverFinds(kind, vnum)) [[likely]]
            return {};
        const std::string what = std::string(kindInfo(kind).one) + ' ' + num(vnum);
        return world_.find(kind, vnum) ? what + ", which the server does not find among " +
                                             std::string(kindInfo(kind).many) + " out of order"
                                       : what + ", which does not exist";
    }

    // Files a folder holds that its index does not list.
    void indexes() {
        for (std::size_t i = 0; i < world_.files.size(); ++i) {
            const WorldFile& index = world_.files[i];
            for (const std::string& name : index.unlisted)
                add(static_cast<int>(i), index.indexEnd, Severity::Silent,
                    "does not list " + name + ", so the server never loads it");
        }
    }

    // The server stops at a kind of which it counts no record (shops aside).
    void emptyKinds() {
        for (WorldKind kind :
             {WorldKind::Zone, WorldKind::Room, WorldKind::Mobile, WorldKind::Object}) {
            if (!world_.complete(kind) || !world_.records(kind).empty())
                continue;
            int file = -1;
            for (std::size_t i = 0; i < world_.files.size(); ++i)
                if (world_.files[i].isIndex && world_.files[i].kind == kind)
                    file = static_cast<int>(i);
            add(file, 0, Severity::RefusesBoot,
                "the world has no " + std::string(kindInfo(kind).many), "0 records counted");
        }
    }

    // Zones whose ranges overlap: each named once, with a zone it overlaps.
    void zoneRanges() {
        std::vector<std::size_t> byBottom(world_.zones.size());
        for (std::size_t z = 0; z < byBottom.size(); ++z)
            byBottom[z] = z;
        std::stable_sort(byBottom.begin(), byBottom.end(), [&](std::size_t a, std::size_t b) {
            return world_.zones[a].bottom < world_.zones[b].bottom;
        });
        std::size_t reach = 0; // the zone reaching highest so far
        for (std::size_t at = 0; at < byBottom.size(); ++at) {
            const std::size_t z = byBottom[at];
            const WorldZone& zone = world_.zones[z];
            if (zone.noBottom)
                continue;
            if (at > 0 && zone.bottom <= world_.zones[reach].top) {
                const WorldZone& other = world_.zones[reach];
                add(zoneRecord(z), WorldKind::Zone, zone.numbersLine, Severity::Silent,
                    "zone " + num(zoneRecord(z).vnum) + ": its rooms " + num(zone.bottom) + "-" +
                        num(zone.top) + " overlap those of zone " + num(zoneRecord(reach).vnum) +
                        " (" + num(other.bottom) + "-" + num(other.top) + ")");
            }
            if (at == 0 || zone.top > world_.zones[reach].top)
                reach = z;
        }
    }

    // The server gives each room the zone it has reached in the zone table,
    // reading the rooms in order: a room below that zone, or above every
    // zone, stops its boot.  Within a zone, rooms out of order only hide
    // from its look-ups.
    void roomsInZones() {
        const std::vector<WorldRecord>& rooms = world_.records(WorldKind::Room);
        walkRefused_.assign(rooms.size(), false);
        if (!complete({WorldKind::Zone, WorldKind::Room}) || world_.zones.empty())
            return;
        std::size_t zone = 0;
        for (std::size_t r = 0; r < rooms.size(); ++r) {
            const WorldRecord& room = rooms[r];
            if (room.vnum < world_.zones[zone].bottom) {
                walkRefused_[r] = true;
                add(room, WorldKind::Room, room.line, Severity::RefusesBoot,
                    "room " + num(room.vnum) + " is below zone " + num(zoneRecord(zone).vnum) +
                        " (" + num(world_.zones[zone].bottom) + "-" + num(world_.zones[zone].top) +
                        "), which the rooms before it reached: the server reads rooms in "
                        "rising order and zones in the order of the zone index",
                    "is below zone");
                return;
            }
            while (room.vnum > world_.zones[zone].top)
                if (++zone == world_.zones.size()) {
                    walkRefused_[r] = true;
                    add(room, WorldKind::Room, room.line, Severity::RefusesBoot,
                        "room " + num(room.vnum) + " lies above every zone's rooms",
                        "is outside of any zone");
                    return;
                }
            if (r > 0 && room.vnum < rooms[r - 1].vnum)
                add(room, WorldKind::Room, room.line, Severity::Silent,
                    "room " + num(room.vnum) + " comes after room " + num(rooms[r - 1].vnum) +
                        ": the server looks rooms up by number in the order it loads them, and "
                        "misses some");
        }
    }

    void startRooms() {
        if (!world_.complete(WorldKind::Room) || world_.records(WorldKind::Room).empty() ||
            std::find(walkRefused_.begin(), walkRefused_.end(), true) != walkRefused_.end())
            return;
        const auto check = [&](std::int32_t vnum, Severity severity, const char* who,
                               const char* server) {
            const bool found = world_.serverFinds(WorldKind::Room, vnum);
            if (!found)
                add(-1, 0, severity,
                    "the server's start room for " + std::string(who) + ", room " + num(vnum) +
                        ", is not in the world",
                    server);
            return found;
        };
        // Without the players' room it stops there.
        if (check(kMortalStart, Severity::RefusesBoot, "players",
                  "Mortal start room does not exist")) {
            check(kImmortStart, Severity::OnlyLogged, "gods", "Immort start room does not exist");
            check(kFrozenStart, Severity::OnlyLogged, "frozen players",
                  "Frozen start room does not exist");
        }
    }

    // A VNum given to two records of a kind: the server finds one of them.
    void twice(WorldKind kind) {
        const std::vector<const WorldRecord*> sorted = world_.listing(kind);
        for (std::size_t i = 1; i < sorted.size(); ++i) {
            const WorldRecord* first = sorted[i - 1];
            while (i < sorted.size() && sorted[i]->vnum == first->vnum) {
                add(*sorted[i], kind, sorted[i]->line, Severity::Silent,
                    named(kind, *sorted[i]) + " is already at " + where(*first) +
                        ": the game finds only one of them");
                ++i;
            }
        }
    }

    // Mobiles and objects out of order: the server's look-ups miss some.
    void order(WorldKind kind) {
        const std::vector<WorldRecord>& records = world_.records(kind);
        for (std::size_t i = 1; i < records.size(); ++i)
            if (records[i].vnum < records[i - 1].vnum)
                add(records[i], kind, records[i].line, Severity::Silent,
                    named(kind, records[i]) + " comes after " + named(kind, records[i - 1]) + " (" +
                        where(records[i - 1]) + "): the server looks " +
                        std::string(kindInfo(kind).many) +
                        " up by number in the order it loads them, and misses some");
    }

    // A record outside the range of the zone its file is named for.
    void ownZone(WorldKind kind) {
        const std::vector<WorldRecord>& records = world_.records(kind);
        int file = -1;
        const WorldZone* zone = nullptr;
        for (std::size_t i = 0; i < records.size(); ++i) {
            const WorldRecord& record = records[i];
            if (record.file != file) {
                file = record.file;
                const auto number = zoneFromFileName(
                    world_.files[static_cast<std::size_t>(file)].path.filename().string());
                const auto it = number ? zoneOfNumber_.find(*number) : zoneOfNumber_.end();
                zone = it == zoneOfNumber_.end() ? nullptr : &world_.zones[it->second];
            }
            if (!zone || zone->noBottom || (kind == WorldKind::Room && walkRefused_[i]) ||
                (record.vnum >= zone->bottom && record.vnum <= zone->top))
                continue;
            add(record, kind, record.line, Severity::Silent,
                named(kind, record) + " lies outside zone " +
                    num(world_.records(WorldKind::Zone)[static_cast<std::size_t>(zone->record)]
                            .vnum) +
                    "'s range " + num(zone->bottom) + "-" + num(zone->top));
        }
    }

    // Exits to rooms the server does not find (it makes them exits to
    // nowhere), doors whose key is no object.
    void exits() {
        const std::vector<WorldRecord>& rooms = world_.records(WorldKind::Room);
        for (const WorldExit& exit : world_.exits) {
            const WorldRecord& room = rooms[static_cast<std::size_t>(exit.room)];
            const std::string_view way = kDirectionNames[static_cast<std::size_t>(exit.direction)];
            if (exit.to != -1 && world_.complete(WorldKind::Room))
                if (const std::string gone = missing(WorldKind::Room, exit.to); !gone.empty())
                    add(room, WorldKind::Room, room.line, Severity::Silent,
                        named(WorldKind::Room, room) + ": exit " + std::string(way) + " leads to " +
                            gone + ": the server makes it lead nowhere");
            if (exit.doorKind != 0 && exit.key != -1 && world_.complete(WorldKind::Object) &&
                !world_.find(WorldKind::Object, exit.key))
                add(room, WorldKind::Room, room.line, Severity::Silent,
                    named(WorldKind::Room, room) + ": the door of its exit " + std::string(way) +
                        " needs key " + num(exit.key) +
                        ", which is no object: it cannot be unlocked");
        }
    }

    // What a shop names: the server takes a keeper it does not find as
    // none, and drops a product it does not find from the list, without a
    // word; a room it does not find is one the keeper never trades in.
    void shops() {
        const std::vector<WorldRecord>& records = world_.records(WorldKind::Shop);
        for (const WorldShop& shop : world_.shops) {
            const WorldRecord& record = records[static_cast<std::size_t>(shop.record)];
            const std::string name = "shop " + num(record.vnum);
            if (world_.complete(WorldKind::Mobile))
                if (const std::string gone = missing(WorldKind::Mobile, shop.keeper); !gone.empty())
                    add(record, WorldKind::Shop, shop.keeperLine, Severity::Silent,
                        name + ": its keeper is " + gone + ": the shop has no keeper");
            if (world_.complete(WorldKind::Object))
                for (const auto& [vnum, line] : shop.products)
                    if (const std::string gone = missing(WorldKind::Object, vnum); !gone.empty())
                        add(record, WorldKind::Shop, line, Severity::Silent,
                            name + ": it sells " + gone + ": the server drops it from the list");
            if (world_.complete(WorldKind::Room))
                for (const auto& [vnum, line] : shop.rooms)
                    if (const std::string gone = missing(WorldKind::Room, vnum); !gone.empty())
                        add(record, WorldKind::Shop, line, Severity::Silent,
                            name + ": it trades in " + gone + ": no one can trade there");
        }
    }

    // What the server does with each reset command once every file is
    // loaded: a command naming a record it does not find is disabled.
    // Returns, for each zone, which of its commands were.
    std::vector<std::vector<bool>> renumber() {
        std::vector<std::vector<bool>> disabled(world_.zones.size());
        const bool known = complete({WorldKind::Room, WorldKind::Mobile, WorldKind::Object});
        for (std::size_t z = 0; z < world_.zones.size(); ++z) {
            const WorldZone& zone = world_.zones[z];
            disabled[z].assign(zone.commands.size(), false);
            for (std::size_t c = 0; known && c < zone.commands.size(); ++c) {
                const WorldCommand& command = zone.commands[c];
                const auto look = [&](WorldKind kind, std::int32_t vnum) {
                    return missing(kind, vnum);
                };
                std::string gone;
                switch (command.command) {
                case 'M':
                    gone = look(WorldKind::Mobile, command.arg1);
                    if (gone.empty())
                        gone = look(WorldKind::Room, command.arg3);
                    break;
                case 'O':
                    gone = look(WorldKind::Object, command.arg1);
                    if (gone.empty() && command.arg3 != -1)
                        gone = look(WorldKind::Room, command.arg3);
                    break;
                case 'G':
                case 'E':
                    gone = look(WorldKind::Object, command.arg1);
                    break;
                case 'P':
                    gone = look(WorldKind::Object, command.arg1);
                    if (gone.empty())
                        gone = look(WorldKind::Object, command.arg3);
                    break;
                case 'D':
                    gone = look(WorldKind::Room, command.arg1);
                    break;
                case 'R':
                    gone = look(WorldKind::Room, command.arg1);
                    if (gone.empty())
                        gone = look(WorldKind::Object, command.arg2);
                    break;
                }
                if (gone.empty())
                    continue;
                disabled[z][c] = true;
                add(zoneRecord(z), WorldKind::Zone, command.line, Severity::OnlyLogged,
                    std::string(1, command.command) + " names " + gone +
                        ": the server disables the command",
                    "cmd disabled");
            }
        }
        return disabled;
    }

    // The zones reset in order, as the server resets them all when it
    // starts the game: what a command finds missing then, it logs.
    void resets(const std::vector<std::vector<bool>>& disabled) {
        if (!complete({WorldKind::Zone, WorldKind::Room, WorldKind::Mobile, WorldKind::Object}))
            return;
        InGame mobiles(world_.records(WorldKind::Mobile)),
            objects(world_.records(WorldKind::Object));
        for (std::size_t z = 0; z < world_.zones.size(); ++z) {
            const WorldZone& zone = world_.zones[z];
            bool mobile = false; // a mobile was loaded in this reset
            bool last = false;   // the command before ran
            for (std::size_t c = 0; c < zone.commands.size(); ++c) {
                const WorldCommand& command = zone.commands[c];
                if (command.ifFlag && !last)
                    continue;
                const auto fails = [&](std::string what, const char* server) {
                    add(zoneRecord(z), WorldKind::Zone, command.line, Severity::LoggedInGame,
                        std::string(1, command.command) + ": " + what, server);
                    last = false;
                };
                const auto load = [&](InGame& count) {
                    last = count[command.arg1] < command.arg2;
                    count[command.arg1] += last ? 1 : 0;
                    return last;
                };
                if (disabled[z][c]) {
                    last = false;
                    continue;
                }
                switch (command.command) {
                case 'M':
                    mobile = load(mobiles) || mobile;
                    break;
                case 'O':
                    load(objects);
                    break;
                case 'P':
                    if (load(objects) && objects[command.arg3] == 0)
                        fails("its container, object " + num(command.arg3) +
                                  ", is not loaded before it",
                              "target obj not found");
                    break;
                case 'G':
                case 'E':
                    if (!mobile)
                        fails("no mobile is loaded before it in the zone",
                              command.command == 'G' ? "attempt to give obj to non-existant mob"
                                                     : "trying to equip non-existant mob");
                    else if (command.command == 'E' &&
                             (command.arg3 < 0 || command.arg3 >= kWearPositions) &&
                             objects[command.arg1] < command.arg2)
                        fails("wear position " + num(command.arg3) + " is outside 0-" +
                                  num(kWearPositions - 1),
                              "invalid equipment pos number");
                    else
                        load(objects);
                    break;
                case 'D': {
                    const bool way = command.arg2 >= 0 && command.arg2 < kDirections;
                    const int room = world_.serverPlace(WorldKind::Room, command.arg1);
                    if (!way || room < 0 ||
                        !(exitsOf_[static_cast<std::size_t>(room)] >> command.arg2 & 1u))
                        fails("room " + num(command.arg1) + " has no exit " +
                                  (way ? kDirectionNames[static_cast<std::size_t>(command.arg2)]
                                       : num(command.arg2).c_str()),
                              "door does not exist");
                    else
                        last = true;
                    break;
                }
                default: // R
                    last = true;
                }
            }
        }
    }
};

std::string severityName(Severity severity) {
    switch (severity) {
    case Severity::RefusesBoot:
        return "refuses-boot";
    case Severity::OnlyLogged:
        return "logged";
    case Severity::LoggedInGame:
        return "logged-in-game";
    case Severity::Silent:
        break;
    }
    return "silent";
}

std::string consequence(Severity severity) {
    switch (severity) {
    case Severity::RefusesBoot:
        return "the server stops booting";
    case Severity::OnlyLogged:
        return "the server logs it";
    case Severity::LoggedInGame:
        return "the server logs it when it resets the zones to run the game";
    case Severity::Silent:
        break;
    }
    return "the server says nothing";
}

const std::string& fileShown(const World& world, int file) {
    return file < 0 ? world.shown : world.files[static_cast<std::size_t>(file)].shown;
}

// A JSON string of single-byte text: each byte above 127 is the Latin-1
// character it stands for.
std::string jsonString(std::string_view text) {
    std::string out = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == '"' || byte == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            static const char* hex = "0123456789abcdef";
            out += "\\u00";
            out += hex[byte >> 4];
            out += hex[byte & 15];
        } else if (byte >= 0x80) {
            out += static_cast<char>(0xc0 | byte >> 6);
            out += static_cast<char>(0x80 | (byte & 0x3f));
        } else {
            out += c;
        }
    }
    return out + '"';
}

// "12 zones, 658 rooms, 244 mobiles, 259 objects"
std::string recordCounts(const World& world, bool json) {
    std::string counts;
    for (const WorldKindInfo& info : kWorldKindInfo) {
        if (info.kind == WorldKind::Shop)
            continue;
        const std::size_t n = world.records(info.kind).size();
        counts += json ? ",\"" + std::string(info.many) + "\":" + num(static_cast<std::int64_t>(n))
                       : (counts.empty() ? "" : ", ") + num(static_cast<std::int64_t>(n)) + ' ' +
                             std::string(n == 1 ? info.one : info.many);
    }
    return counts;
}

} // namespace

WorldReport checkWorld(const World& world) {
    WorldReport report;
    for (const WorldFile& file : world.files)
        report.findings.insert(report.findings.end(), file.findings.begin(), file.findings.end());
    Checker(world, report).run();
    std::stable_sort(report.findings.begin(), report.findings.end(),
                     [](const WorldFinding& a, const WorldFinding& b) {
                         return a.file != b.file ? a.file < b.file : a.line < b.line;
                     });
    for (const WorldFinding& finding : report.findings)
        ++report.counts[static_cast<std::size_t>(finding.finding.severity)];
    return report;
}

std::string findingLine(const World& world, const WorldFinding& finding) {
    std::string line = fileShown(world, finding.file);
    if (finding.line > 0)
        line += ':' + num(finding.line);
    line += ": " + finding.finding.what;
    if (!finding.finding.server.empty())
        line += " [" + finding.finding.server + ']';
    return line + " (" + consequence(finding.finding.severity) + ')';
}

std::string findingJson(const World& world, const WorldFinding& finding) {
    std::string json = "{\"file\":" + jsonString(fileShown(world, finding.file)) +
                       ",\"line\":" + num(finding.line) +
                       ",\"severity\":" + jsonString(severityName(finding.finding.severity)) +
                       ",\"text\":" + jsonString(finding.finding.what) +
                       ",\"server\":" + jsonString(finding.finding.server);
    if (finding.hasRecord)
        json += ",\"kind\":" + jsonString(kindInfo(finding.kind).one) +
                ",\"vnum\":" + num(finding.vnum);
    return json + '}';
}

std::string summaryLine(const World& world, const WorldReport& report) {
    return world.shown + ": " + num(static_cast<std::int64_t>(world.files.size())) + " files, " +
           recordCounts(world, false) + "; " + num(report.count(Severity::RefusesBoot)) +
           " stop the boot, " + num(report.count(Severity::OnlyLogged)) + " logged, " +
           num(report.count(Severity::LoggedInGame)) + " logged when the game runs, " +
           num(report.count(Severity::Silent)) + " the server says nothing of";
}

std::string summaryJson(const World& world, const WorldReport& report) {
    std::string json = "{\"summary\":" + jsonString(world.shown) +
                       ",\"files\":" + num(static_cast<std::int64_t>(world.files.size())) +
                       recordCounts(world, true);
    for (Severity severity :
         {Severity::RefusesBoot, Severity::OnlyLogged, Severity::LoggedInGame, Severity::Silent})
        json += ",\"" + severityName(severity) + "\":" + num(report.count(severity));
    return json + '}';
}

} // namespace marl
