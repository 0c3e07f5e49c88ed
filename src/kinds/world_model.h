#pragma once
// A whole world: every zone file of a world folder read once, on all cores,
// and each record indexed by kind and VNum with its file and line.  A world
// folder is laid out as the server's lib/world (wld/ mob/ obj/ zon/ shp/,
// each with an `index` naming the files the server loads, in that order) or
// is a flat folder of zone files, all of which are loaded (each kind in the
// order of the numbers their names begin with).
//
// A World is built by loadWorld alone and not changed after: one loaded on
// a worker thread may be handed to another thread once loadWorld returns,
// and read there from any number of threads.  Standard C++ only.

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "world/server_limits.h"

namespace marl {

// The kinds of a world, in the order the server loads them.
enum class WorldKind : std::uint8_t { Zone, Room, Mobile, Object, Shop };
inline constexpr std::size_t kWorldKinds = 5;

struct WorldKindInfo {
    WorldKind kind;
    std::string_view folder;    // "wld", the folder of the server's layout
    std::string_view extension; // ".wld"
    std::string_view one;       // "room", in messages and counts
    std::string_view many;
};
// In loading order: zones, rooms, mobiles, objects, shops.
extern const std::array<WorldKindInfo, kWorldKinds> kWorldKindInfo;
inline const WorldKindInfo& kindInfo(WorldKind kind) {
    return kWorldKindInfo[static_cast<std::size_t>(kind)];
}

enum class WorldLayout { Server, Flat };

// Something wrong in a world, at a line of one of its files.  `file` is -1
// for what belongs to no file (a start room that does not exist); `line` 0
// names no line.  `kind` and `vnum` name the record at fault, where there is
// one (`hasRecord`): a zone's command names its zone.
struct WorldFinding {
    int file = -1;
    int line = 0;
    Finding finding;
    bool hasRecord = false;
    WorldKind kind = WorldKind::Zone;
    std::int32_t vnum = 0;
};

// One record: its VNum, what it is called (a room's or zone's name, a
// mobile's or object's short description), where its `#` header stands.
struct WorldRecord {
    std::int32_t vnum = 0;
    int file = 0;
    int line = 0;
    std::string name;
};

// A room's exit, as the server holds it.
struct WorldExit {
    int room;         // the room's place in World::records(Room)
    int direction;    // the server's number: 0 north, 1 east, 2 south, 3 west, 4 up, 5 down
    int doorKind;     // 0 no door, 1 a door, 2 a pick-proof door
    std::int32_t key; // -1: none
    std::int32_t to;  // -1: nowhere
};

// A zone's reset command, at its line of the `.zon` file.
struct WorldCommand {
    char command;
    std::int32_t ifFlag, arg1, arg2, arg3;
    int line;
};

// A zone's header and commands; `record` is its place in records(Zone).
struct WorldZone {
    int record = 0;
    std::int32_t bottom = 0, top = 0;
    bool noBottom = false; // an older header of three numbers, which this server refuses
    int numbersLine = 3;
    std::vector<WorldCommand> commands;
};

// What a shop names, each at its line: `record` is its place in
// records(Shop).
struct WorldShop {
    int record = 0;
    std::int32_t keeper = -1;
    int keeperLine = 0;
    std::vector<std::pair<std::int32_t, int>> products, rooms; // VNum, line
};

// How many cores a world's reading takes: all of them (a check that is all
// the program does), or all but one, which is left to the windows (names
// read in the background while a builder works).
enum class ReadingCores { All, AllButOne };

// A file the world loads, or an index.
struct WorldFile {
    std::string shown; // its path as reports name it
    std::filesystem::path path;
    WorldKind kind = WorldKind::Zone;
    bool isIndex = false;
    bool read = false;       // read completely (an index: found and read)
    bool listedRegular = false; // its folder's listing says it is a regular file
    int count = 0;           // records read
    // What reading it found, and what the server checks record by record:
    // a refusal, the texts past the server's limits, what it logs.
    std::vector<WorldFinding> findings;
    // An index's `$` line (0: none), and the files of its folder it does
    // not list, which the server never loads.
    int indexEnd = 0;
    std::vector<std::string> unlisted;
};

class World {
public:
    std::filesystem::path folder;
    std::string shown; // the folder as reports name it
    WorldLayout layout = WorldLayout::Flat;
    // In the server's loading order: each kind's index (server layout) and
    // then the files it lists.
    std::vector<WorldFile> files;
    std::vector<WorldExit> exits;
    std::vector<WorldZone> zones; // in loading order, as records(Zone)
    std::vector<WorldShop> shops; // in loading order, as records(Shop)

    // Each kind's records in the order the server loads them.
    const std::vector<WorldRecord>& records(WorldKind kind) const {
        return records_[static_cast<std::size_t>(kind)];
    }
    // Whether every file of the kind was read: lookups into a kind that was
    // not are left out of the checks, the records being unknown.
    bool complete(WorldKind kind) const { return complete_[static_cast<std::size_t>(kind)]; }

    // The record of this kind and VNum (the first loaded, if it appears
    // twice), or null.
    const WorldRecord* find(WorldKind kind, std::int32_t vnum) const;
    // A kind's records by VNum (those of one VNum in loading order), for
    // pick lists.
    std::vector<const WorldRecord*> listing(WorldKind kind) const;
    // Whether the server finds the VNum as it looks records up, by halving
    // the records in loading order: records out of order are missed.
    bool serverFinds(WorldKind kind, std::int32_t vnum) const;
    // The place in records(kind) of the record the server finds, or -1.
    int serverPlace(WorldKind kind, std::int32_t vnum) const;

private:
    friend World loadWorld(const std::filesystem::path&, std::string_view, ReadingCores);
    std::array<std::vector<WorldRecord>, kWorldKinds> records_;
    std::array<bool, kWorldKinds> complete_{};
    // (vnum, place in records) sorted by VNum, then loading order; and the
    // VNums alone in loading order, for the server's look-up.
    std::array<std::vector<std::pair<std::int32_t, int>>, kWorldKinds> byVNum_;
    std::array<std::vector<std::int32_t>, kWorldKinds> loaded_;
    // Which VNums a kind holds, and whether its records are in rising order.
    std::array<std::vector<bool>, kWorldKinds> present_;
    std::array<bool, kWorldKinds> inOrder_{};
};

// The layout of a world folder: the server's when it has a wld/ or zon/
// folder.
WorldLayout layoutOf(const std::filesystem::path& folder);

// The world a zone file belongs to: the folder above its own when that is
// laid out as the server's (wld/30.wld in lib/world), else its own folder.
std::filesystem::path worldFolderOf(const std::filesystem::path& zoneFile);

// Reads the whole world, its files on as many threads as `cores` says.
// `shown` is the folder as reports name it (its path when empty).
World loadWorld(const std::filesystem::path& folder, std::string_view shown = {},
                ReadingCores cores = ReadingCores::All);

// The records of one zone file of a kind, read as loadWorld reads them, for
// a file its world does not load (a new zone its index does not list yet).
// Their `file` is 0.  Empty when the file cannot be read.
std::vector<WorldRecord> readWorldRecords(const std::filesystem::path& file, WorldKind kind);

} // namespace marl
