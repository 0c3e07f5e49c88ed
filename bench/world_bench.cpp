// world-bench: how long `marl-check --world` takes beside the server's own
// boot (`boot-check --time`), on the stock sample world and on worlds made
// from it N times over, same machine, same run.
//
//   world-bench SAMPLE MARL_CHECK BOOT_CHECK OUT [N...]     (make bench)
//
// A world N times the sample holds N copies of each of its zones, one after
// the other, every room, mobile, object and zone numbered anew (see
// Numbering) and every reference following its record.  References to
// records the sample does not hold are kept pointing at nothing.  Shops are
// left out.  The server holds VNums and zone ranges in 16 bits: the
// sample's blocks take 678 VNums, so 48 copies fit.  A larger world is
// beyond it: marl-check alone is timed on it, and reads every file, though
// it refuses each zone past 32767 as the server would.
//
// Each figure is the median wall time of 20 runs of the program (5 on the
// worlds beyond the server), process start included, as boot-check measures
// the server; marl-check and the server take turns run by run.  boot-check
// boots the server once before the boot it times, so marl-check too runs
// once untimed before each timed run: each is timed just after a run of
// its own, not of the other.

#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "kinds/world_index.h"
#include "kinds/zone_kinds.h"
#include "world/zone.h"
#include "world/zone_file.h"
#include "zones/format/zone_reset_file.h"

extern char** environ;
namespace fs = std::filesystem;
using namespace marl;

namespace {

constexpr std::int32_t kNothing = 99998; // a VNum no copy reaches

std::string slurp(const fs::path& path) {
    std::string bytes, error;
    if (!readZoneFile(path, bytes, error)) {
        std::fprintf(stderr, "world-bench: %s: %s\n", path.c_str(), error.c_str());
        std::exit(2);
    }
    return bytes;
}

void spill(const fs::path& path, const std::string& bytes) {
    std::string error;
    if (!writeZoneFile(path, bytes, error)) {
        std::fprintf(stderr, "world-bench: %s: %s\n", path.c_str(), error.c_str());
        std::exit(2);
    }
}

// The files of one folder of the sample, as its index lists them.
std::vector<std::string> listed(const fs::path& sample, const char* folder) {
    std::vector<std::string> names;
    for (const IndexEntry& entry : readIndex(slurp(sample / folder / "index")).entries)
        names.push_back(entry.name);
    return names;
}

// Each kind's new numbers: each zone of the sample has a block of VNums of
// its own, as large as its largest kind, and its rooms, mobiles and objects
// take the places of their block in the order the server loads them; copy
// N of the world is the same blocks moved up by N times their whole size.
struct Numbering {
    std::unordered_map<std::int32_t, std::int32_t> place; // the first of a VNum
    std::int32_t size = 0;                                // places per copy
    std::int32_t at(std::int32_t vnum, int copy) const {
        const auto it = place.find(vnum);
        return it == place.end() ? kNothing : copy * size + it->second;
    }
};

// Each file of a kind with the VNums of its records, in loading order.
using Files = std::vector<std::pair<std::string, std::vector<std::int32_t>>>;

struct Sample {
    fs::path folder;
    std::vector<ZoneRecord> zones;
    Numbering rooms, mobiles, objects, zoneNumbers;
    std::map<std::int32_t, std::pair<std::int32_t, std::int32_t>> blocks; // zone: first, last
};

template <typename Kind> Files vnumsOf(const fs::path& sample, const char* folder) {
    Files files;
    typename Kind::File table;
    for (const std::string& name : listed(sample, folder)) {
        table.clear();
        auto& [file, vnums] = files.emplace_back(name, std::vector<std::int32_t>{});
        for (int slot = 0, count = Kind::read(slurp(sample / folder / name), table); slot < count;
             ++slot)
            vnums.push_back(table[std::size_t(slot)].VNum);
    }
    return files;
}

std::int32_t zoneOf(const std::string& name) {
    return zoneFromFileName(name).value_or(0);
}

Sample readSample(const fs::path& folder) {
    Sample sample;
    sample.folder = folder;
    for (const std::string& name : listed(folder, "zon")) {
        readZone(slurp(folder / "zon" / name), sample.zones.emplace_back());
        sample.zoneNumbers.place.emplace(sample.zones.back().Number, sample.zoneNumbers.size++);
    }
    const Files kinds[] = {vnumsOf<RoomKind>(folder, "wld"), vnumsOf<MobileKind>(folder, "mob"),
                           vnumsOf<ObjectKind>(folder, "obj")};
    Numbering* numberings[] = {&sample.rooms, &sample.mobiles, &sample.objects};
    std::int32_t next = 0;
    for (const ZoneRecord& zone : sample.zones) {
        std::size_t block = 1;
        for (const Files& files : kinds) {
            std::size_t count = 0;
            for (const auto& [name, vnums] : files)
                count += zoneOf(name) == zone.Number ? vnums.size() : 0;
            block = std::max(block, count);
        }
        sample.blocks[zone.Number] = {next, next + std::int32_t(block) - 1};
        next += std::int32_t(block);
    }
    for (int k = 0; k < 3; ++k) {
        std::map<std::int32_t, std::int32_t> taken; // zone: places used
        for (const auto& [name, vnums] : kinds[k])
            for (std::int32_t vnum : vnums)
                if (!numberings[k]->place.count(vnum))
                    numberings[k]->place[vnum] =
                        sample.blocks.at(zoneOf(name)).first + taken[zoneOf(name)]++;
        numberings[k]->size = next;
    }
    return sample;
}

// The file of copy `copy` of a sample file, named for its zone's new number.
std::string copyName(const Sample& sample, const std::string& name, int copy) {
    const std::int32_t zone = sample.zoneNumbers.at(zoneFromFileName(name).value_or(0), copy);
    return std::to_string(zone) + fs::path(name).extension().string();
}

void renumber(const Sample& s, RoomRecord& room, int copy) {
    room.VNum = s.rooms.at(room.VNum, copy);
    for (ExitRecord& exit : room.Exits) {
        if (exit.ToVNum != -1)
            exit.ToVNum = s.rooms.at(exit.ToVNum, copy);
        if (exit.KeyVNum != -1)
            exit.KeyVNum = s.objects.at(exit.KeyVNum, copy);
    }
}
void renumber(const Sample& s, MobileRecord& mobile, int copy) {
    mobile.VNum = s.mobiles.at(mobile.VNum, copy);
}
void renumber(const Sample& s, ObjectRecord& object, int copy) {
    object.VNum = s.objects.at(object.VNum, copy);
}

template <typename Kind>
void copyKind(const Sample& s, const char* folder, const fs::path& out, int copies) {
    fs::create_directories(out / folder);
    std::string index;
    typename Kind::File table;
    std::vector<std::pair<std::string, std::string>> files;
    for (const std::string& name : listed(s.folder, folder))
        files.emplace_back(name, slurp(s.folder / folder / name));
    for (int copy = 0; copy < copies; ++copy)
        for (const auto& [name, bytes] : files) {
            table.clear();
            const int count = Kind::read(bytes, table);
            for (int slot = 0; slot < count; ++slot) {
                auto& record = table[std::size_t(slot)];
                record.Source.clear();
                renumber(s, record, copy);
            }
            const std::string target = copyName(s, name, copy);
            spill(out / folder / target,
                  Kind::write(table, count,
                              s.zoneNumbers.at(zoneFromFileName(name).value_or(0), copy)));
            index += target + '\n';
        }
    spill(out / folder / "index", index + "$\n");
}

void copyZones(const Sample& s, const fs::path& out, int copies) {
    fs::create_directories(out / "zon");
    std::string index;
    for (int copy = 0; copy < copies; ++copy)
        for (ZoneRecord zone : s.zones) {
            const auto [first, last] = s.blocks.at(zone.Number);
            const std::string target = copyName(s, std::to_string(zone.Number) + ".zon", copy);
            zone.Number = s.zoneNumbers.at(zone.Number, copy);
            zone.Bottom = copy * s.rooms.size + first;
            zone.Top = copy * s.rooms.size + last;
            zone.Source.clear();
            for (ZoneCommand& c : zone.Commands) {
                c.Source.clear();
                const bool roomFirst = c.Command == 'D' || c.Command == 'R';
                c.Arg1 = roomFirst          ? s.rooms.at(c.Arg1, copy)
                         : c.Command == 'M' ? s.mobiles.at(c.Arg1, copy)
                                            : s.objects.at(c.Arg1, copy);
                if (c.Command == 'R')
                    c.Arg2 = s.objects.at(c.Arg2, copy);
                if ((c.Command == 'M' || c.Command == 'O') && c.Arg3 != -1)
                    c.Arg3 = s.rooms.at(c.Arg3, copy);
                if (c.Command == 'P')
                    c.Arg3 = s.objects.at(c.Arg3, copy);
            }
            spill(out / "zon" / target, writeZone(zone));
            index += target + '\n';
        }
    spill(out / "zon" / "index", index + "$\n");
}

void makeWorld(const Sample& s, const fs::path& out, int copies) {
    fs::remove_all(out);
    copyZones(s, out, copies);
    copyKind<RoomKind>(s, "wld", out, copies);
    copyKind<MobileKind>(s, "mob", out, copies);
    copyKind<ObjectKind>(s, "obj", out, copies);
    fs::create_directories(out / "shp");
    spill(out / "shp" / "index", "$\n");
}

// The wall time of one run of marl-check on the world, in ms, or -1.
double timeCheck(const std::string& marlCheck, const fs::path& world) {
    const std::string folder = world.string();
    char* argv[] = {const_cast<char*>(marlCheck.c_str()), const_cast<char*>("--world"),
                    const_cast<char*>(folder.c_str()), nullptr};
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", 1 /* O_WRONLY */, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    int status = 0;
    const bool ran = posix_spawn(&pid, argv[0], &quiet, nullptr, argv, environ) == 0 &&
                     waitpid(pid, &status, 0) >= 0;
    const auto end = std::chrono::steady_clock::now();
    posix_spawn_file_actions_destroy(&quiet);
    return ran ? std::chrono::duration<double, std::milli>(end - start).count() : -1;
}

// The wall time of one boot of the server on the world (boot-check's
// figure), or -1 when the server does not boot it.
double timeServer(const std::string& bootCheck, const fs::path& world) {
    const std::string command = bootCheck + " --time 1 '" + world.string() + "' 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    double median = -1;
    for (char line[512]; pipe && std::fgets(line, sizeof line, pipe);)
        std::sscanf(line, "server boot: median %lf ms", &median);
    if (pipe)
        pclose(pipe);
    return median;
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times.empty() || times.front() < 0 ? -1 : times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fprintf(stderr, "usage: world-bench SAMPLE MARL_CHECK BOOT_CHECK OUT [N...]\n");
        return 2;
    }
    const fs::path sampleFolder = argv[1], out = argv[4];
    const std::string marlCheck = fs::absolute(argv[2]).string(), bootCheck = argv[3];
    std::vector<int> sizes;
    for (int i = 5; i < argc; ++i)
        sizes.push_back(std::atoi(argv[i]));
    if (sizes.empty())
        sizes = {1, 10, 48, 100};
    const Sample sample = readSample(sampleFolder);
    std::printf("world-bench: marl-check --world against the server's boot (boot-check --time), "
                "median wall times\n%8s %8s %12s %12s %10s %14s\n",
                "world", "rooms", "marl-check", "server", "ratio", "us per room");
    for (const int copies : sizes) {
        fs::path world = sampleFolder;
        if (copies != 1) {
            world = out / ("x" + std::to_string(copies));
            makeWorld(sample, world, copies);
        }
        // The two take turns, run by run, so that what else the machine
        // does at a moment weighs on both alike.
        const int runs = copies >= 50 ? 5 : 20;
        const bool serverBoots = copies * sample.rooms.size <= 32767;
        std::vector<double> marlTimes, serverTimes;
        for (int run = 0; run < runs; ++run) {
            timeCheck(marlCheck, world); // as boot-check's boot before the timed one
            marlTimes.push_back(timeCheck(marlCheck, world));
            if (serverBoots)
                serverTimes.push_back(timeServer(bootCheck, world));
        }
        const double marl = median(marlTimes), server = median(serverTimes);
        const long rooms = long(copies) * long(sample.rooms.place.size());
        std::printf("%7dx %8ld %9.2f ms ", copies, rooms, marl);
        if (server > 0)
            std::printf("%9.2f ms %9.2f%% %14.2f\n", server, 100 * marl / server,
                        1000 * marl / double(rooms));
        else
            std::printf("%12s %10s %14.2f\n", "(beyond it)", "", 1000 * marl / double(rooms));
    }
    return 0;
}
