// marl-bench: reads and writes every zone file of a folder many times, in
// memory, and prints the throughput in megabytes (10^6 bytes) per second.
//
// Reading is timed the way the editor opens a file: the table is cleared and
// the file's bytes are read into it.  Writing is timed from the table to the
// file's text.  The disk is left out of both: it is the parser and the
// writer that are measured, not the page cache or fsync.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "mobiles/mobile_file.h"
#include "objects/object_file.h"
#include "rooms/room_file.h"
#include "world/zone.h"
#include "world/zone_file.h"

namespace fs = std::filesystem;
using namespace marl;
using Clock = std::chrono::steady_clock;

namespace {

enum class Kind { Rooms, Mobiles, Objects };

struct ZoneFile {
    std::string name;
    Kind kind;
    std::int32_t zone = 0;
    std::string bytes;
    int count = 0;
    // The file read once, for the writing passes.
    std::unique_ptr<RoomTable> rooms;
    std::unique_ptr<MobileTable> mobiles;
    std::unique_ptr<ObjectTable> objects;
};

// Tables reused by the reading passes, as the editor reuses its own.
struct ReadTables {
    RoomTable rooms;
    MobileTable mobiles;
    ObjectTable objects;
};

std::size_t readOnce(ZoneFile& file, ReadTables& tables) {
    switch (file.kind) {
    case Kind::Rooms:
        tables.rooms.clear();
        return static_cast<std::size_t>(readRooms(file.bytes, tables.rooms));
    case Kind::Mobiles:
        tables.mobiles.clear();
        return static_cast<std::size_t>(readMobiles(file.bytes, tables.mobiles));
    case Kind::Objects:
        tables.objects.clear();
        return static_cast<std::size_t>(readObjects(file.bytes, tables.objects));
    }
    return 0;
}

std::size_t writeOnce(ZoneFile& file) {
    switch (file.kind) {
    case Kind::Rooms:
        return writeRooms(*file.rooms, file.count, file.zone).size();
    case Kind::Mobiles:
        return writeMobiles(*file.mobiles, file.count).size();
    case Kind::Objects:
        return writeObjects(*file.objects, file.count).size();
    }
    return 0;
}

// Runs `pass` (one pass over all files, returning the bytes it handled)
// until at least `seconds` have gone by, and returns MB/s.
template <typename Pass> double measure(Pass pass, double seconds, std::size_t& sink) {
    sink += pass(); // warm-up
    std::size_t bytes = 0;
    int passes = 0;
    const auto start = Clock::now();
    std::chrono::duration<double> elapsed{};
    do {
        bytes += pass();
        ++passes;
        elapsed = Clock::now() - start;
    } while (elapsed.count() < seconds || passes < 5);
    sink += bytes;
    return static_cast<double>(bytes) / 1e6 / elapsed.count();
}

bool load(const fs::path& path, ZoneFile& file) {
    std::string error;
    if (!readZoneFile(path, file.bytes, error)) {
        std::fprintf(stderr, "marl-bench: %s: %s\n", file.name.c_str(), error.c_str());
        return false;
    }
    try {
        switch (file.kind) {
        case Kind::Rooms:
            file.rooms = std::make_unique<RoomTable>();
            file.count = readRooms(file.bytes, *file.rooms);
            break;
        case Kind::Mobiles:
            file.mobiles = std::make_unique<MobileTable>();
            file.count = readMobiles(file.bytes, *file.mobiles);
            break;
        case Kind::Objects:
            file.objects = std::make_unique<ObjectTable>();
            file.count = readObjects(file.bytes, *file.objects);
            break;
        }
    } catch (const FormatError& error) {
        std::fprintf(stderr, "marl-bench: %s:%d: %s\n", file.name.c_str(), error.line(),
                     error.problem().c_str());
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const fs::path dir = argc > 1 ? fs::path(argv[1]) : fs::path("../shared/corpus");
    const double seconds = argc > 2 ? std::max(0.05, std::atof(argv[2])) : 1.0;
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) {
        std::fprintf(stderr, "Usage: marl-bench [CORPUS-DIR [SECONDS]]\nmarl-bench: no folder %s\n",
                     dir.string().c_str());
        return 2;
    }

    std::vector<ZoneFile> files;
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(dir, ec))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths) {
        ZoneFile file;
        const std::string extension = path.extension().string();
        if (extension == ".wld")
            file.kind = Kind::Rooms;
        else if (extension == ".mob")
            file.kind = Kind::Mobiles;
        else if (extension == ".obj")
            file.kind = Kind::Objects;
        else
            continue;
        file.name = path.filename().string();
        file.zone = zoneFromFileName(file.name).value_or(0);
        if (!load(path, file))
            return 1;
        files.push_back(std::move(file));
    }
    if (files.empty()) {
        std::fprintf(stderr, "marl-bench: no .wld, .mob or .obj file in %s\n",
                     dir.string().c_str());
        return 1;
    }

    std::size_t sink = 0;
    auto report = [&](const char* label, const std::vector<ZoneFile*>& chosen) {
        std::size_t size = 0;
        for (const ZoneFile* file : chosen)
            size += file->bytes.size();
        if (chosen.empty())
            return;
        ReadTables tables;
        const double reading = measure(
            [&] {
                std::size_t bytes = 0;
                for (ZoneFile* file : chosen) {
                    sink += readOnce(*file, tables);
                    bytes += file->bytes.size();
                }
                return bytes;
            },
            seconds, sink);
        const double writing = measure(
            [&] {
                std::size_t bytes = 0;
                for (ZoneFile* file : chosen)
                    bytes += writeOnce(*file);
                return bytes;
            },
            seconds, sink);
        std::printf("%-8s %3zu files %9zu bytes   reading %8.1f MB/s   writing %8.1f MB/s\n", label,
                    chosen.size(), size, reading, writing);
    };

    std::vector<ZoneFile*> all, rooms, mobiles, objects;
    for (ZoneFile& file : files) {
        all.push_back(&file);
        (file.kind == Kind::Rooms     ? rooms
         : file.kind == Kind::Mobiles ? mobiles
                                      : objects)
            .push_back(&file);
    }
    std::printf("marl-bench: %s, in memory; reading includes clearing the table\n",
                dir.string().c_str());
    report(".wld", rooms);
    report(".mob", mobiles);
    report(".obj", objects);
    report("all", all);
    return sink == 0 ? 1 : 0;
}
