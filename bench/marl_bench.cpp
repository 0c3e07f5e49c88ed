// marl-bench: reads and writes every zone file of a folder many times, in
// memory, and prints the throughput in megabytes (10^6 bytes) per second and
// the memory a table takes for the text it holds.
//
// Reading is timed the way the editor opens a file: the table is cleared and
// the file's bytes are read into it.  Writing is timed from the table to the
// file's text twice: as read (every record still has the bytes it was read
// from, as when a builder saves one change) and as stored (every record
// written field by field, as after a builder stored each one).  The disk is
// left out: it is the parser and the writer that are measured, not the page
// cache or fsync.  Time is the processor time of this program, so that other
// work on the machine does not count.
//
// Memory is counted by this program's own operator new: the bytes a table
// holds after reading all files of a kind joined into one file, beyond what
// the empty table held, and what it still holds after clearing.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "allocation_counter.h"
#include "kinds/zone_kinds.h"
#include "world/zone.h"
#include "world/zone_file.h"

namespace fs = std::filesystem;
using namespace marl;

namespace {

// One file read once, with what the passes do on it.
struct ZoneFile {
    std::string name;
    std::string extension;
    std::string bytes;
    std::function<std::size_t()> read;        // clear the reading table, read the bytes
    std::function<std::size_t()> write;       // the table read once, records as read
    std::function<std::size_t()> writeStored; // the same records, each written field by field
};

template <typename Kind> bool prepare(ZoneFile& file, std::int32_t zone) {
    // One reading table per kind, as the editor reuses its own.
    static const auto reading = std::make_shared<typename Kind::File>();
    auto asRead = std::make_shared<typename Kind::File>();
    auto stored = std::make_shared<typename Kind::File>();
    int count = 0;
    try {
        count = Kind::read(file.bytes, *asRead);
        Kind::read(file.bytes, *stored);
    } catch (const FormatError& error) {
        std::fprintf(stderr, "marl-bench: %s:%d: %s\n", file.name.c_str(), error.line(),
                     error.problem().c_str());
        return false;
    }
    for (int slot = 0; slot < count; ++slot)
        (*stored)[static_cast<std::size_t>(slot)].Source.clear();
    const std::string* bytes = &file.bytes;
    file.read = [bytes] {
        reading->clear();
        return static_cast<std::size_t>(Kind::read(*bytes, *reading));
    };
    file.write = [asRead, count, zone] { return Kind::write(*asRead, count, zone).size(); };
    file.writeStored = [stored, count, zone] { return Kind::write(*stored, count, zone).size(); };
    return true;
}

// The processor time this program has used, in seconds: the machine may be
// busy with other work, and it is the time of the one core that runs the
// passes that tells the speed.
double cpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Runs `pass` (one pass over all files, returning the bytes it handled)
// until at least `seconds` of processor time have gone by and at least 5
// times, and returns MB/s.
template <typename Pass> double measure(Pass pass, double seconds, std::size_t& sink) {
    sink += pass(); // warm-up
    std::size_t bytes = 0;
    int passes = 0;
    const double start = cpuSeconds();
    double elapsed = 0;
    do {
        bytes += pass();
        ++passes;
        elapsed = cpuSeconds() - start;
    } while (elapsed < seconds || passes < 5);
    sink += bytes;
    return static_cast<double>(bytes) / 1e6 / elapsed;
}

// The records of all `files` of one kind joined into one file, then its
// memory: what reading it adds to an empty table, and what clearing keeps.
template <typename Kind> void reportMemory(const std::vector<ZoneFile*>& files) {
    std::string joined;
    for (const ZoneFile* file : files) {
        if (file->extension != Kind::info.extension)
            continue;
        auto table = std::make_unique<typename Kind::File>();
        const int count = Kind::read(file->bytes, *table);
        for (int slot = 0; slot < count; ++slot)
            joined += (*table)[static_cast<std::size_t>(slot)].Source;
    }
    if (joined.empty())
        return;
    joined += "$\n";
    auto table = std::make_unique<typename Kind::File>();
    const std::size_t empty = counting::liveBytes;
    const int count = Kind::read(joined, *table);
    const std::size_t read = counting::liveBytes - empty;
    table->clear();
    const std::size_t kept = counting::liveBytes - empty;
    std::printf("%-8s %6d records %9zu bytes   held %9zu bytes (%.2f x the text)   after "
                "clearing %zu bytes more than empty\n",
                std::string(Kind::info.extension).c_str(), count, joined.size(), read,
                static_cast<double>(read) / static_cast<double>(joined.size()), kept);
}

} // namespace

int main(int argc, char** argv) {
    const fs::path dir = argc > 1 ? fs::path(argv[1]) : fs::path("../shared/corpus");
    const double seconds = argc > 2 ? std::max(0.05, std::atof(argv[2])) : 1.0;
    const std::string only = argc > 3 ? argv[3] : "";
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) {
        std::fprintf(stderr,
                     "Usage: marl-bench [CORPUS-DIR [SECONDS [read|write|stored]]]\n"
                     "marl-bench: no folder %s\n",
                     dir.string().c_str());
        return 2;
    }

    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(dir, ec))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::unique_ptr<ZoneFile>> files;
    for (const fs::path& path : paths) {
        auto file = std::make_unique<ZoneFile>();
        file->name = path.filename().string();
        file->extension = path.extension().string();
        const std::int32_t zone = zoneFromFileName(file->name).value_or(0);
        std::string error;
        bool ok = true;
        const bool known = withZoneKind(file->extension, [&]<typename Kind>() {
            if (!readZoneFile(path, file->bytes, error)) {
                std::fprintf(stderr, "marl-bench: %s: %s\n", file->name.c_str(), error.c_str());
                ok = false;
                return;
            }
            ok = prepare<Kind>(*file, zone);
        });
        if (!ok)
            return 1;
        if (known)
            files.push_back(std::move(file));
    }
    if (files.empty()) {
        std::fprintf(stderr, "marl-bench: no .wld, .mob or .obj file in %s\n",
                     dir.string().c_str());
        return 1;
    }

    std::size_t sink = 0;
    auto report = [&](const std::string& label, const std::vector<ZoneFile*>& chosen) {
        if (chosen.empty())
            return;
        std::size_t size = 0;
        for (const ZoneFile* file : chosen)
            size += file->bytes.size();
        auto pass = [&](std::function<std::size_t()> ZoneFile::*step, bool countText) {
            return [&chosen, step, countText, &sink] {
                std::size_t bytes = 0;
                for (ZoneFile* file : chosen) {
                    const std::size_t result = (file->*step)();
                    sink += result;
                    bytes += countText ? file->bytes.size() : result;
                }
                return bytes;
            };
        };
        // One pass alone when asked (for a profiler): 0 for the others.
        auto timed = [&](const char* name, std::function<std::size_t()> ZoneFile::*step,
                         bool countText) {
            return only.empty() || only == name ? measure(pass(step, countText), seconds, sink)
                                                : 0.0;
        };
        const double reading = timed("read", &ZoneFile::read, true);
        const double writing = timed("write", &ZoneFile::write, false);
        const double stored = timed("stored", &ZoneFile::writeStored, false);
        std::printf("%-8s %3zu files %9zu bytes   reading %7.1f MB/s   writing %7.1f MB/s as "
                    "read, %7.1f MB/s as stored\n",
                    label.c_str(), chosen.size(), size, reading, writing, stored);
    };

    std::vector<ZoneFile*> all;
    for (const auto& file : files)
        all.push_back(file.get());
    std::printf("marl-bench: %s, in memory, one thread, per second of processor time; reading "
                "includes clearing the table\n",
                dir.string().c_str());
    forEachZoneKind([&]<typename Kind>() {
        std::vector<ZoneFile*> chosen;
        for (ZoneFile* file : all)
            if (file->extension == Kind::info.extension)
                chosen.push_back(file);
        report(std::string(Kind::info.extension), chosen);
    });
    report("all", all);
    std::printf("memory, each kind's files joined into one:\n");
    forEachHeaderKind([&]<typename Kind>() { reportMemory<Kind>(all); });
    return sink == 0 ? 1 : 0;
}
