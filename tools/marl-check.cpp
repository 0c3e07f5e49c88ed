// marl-check: checks zone files from a terminal with the editor's own reader,
// and with --rewrite writes each one again exactly as the editor's save
// would, so that a builder can check a hand-edited zone before the server
// boots it and normalise it.

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

#include "kinds/world_checks.h"
#include "kinds/zone_kinds.h"
#include "shops/format/shop_checks.h"
#include "world/zone.h"
#include "world/zone_file.h"
#include "zones/format/zone_reset_file.h"

namespace fs = std::filesystem;
using namespace marl;

namespace {

constexpr const char* kUsage =
    "Usage: marl-check [--strict] [--rewrite DIR] FILE...\n"
    "       marl-check [--strict] [--json] [--world] WORLD\n"
    "Checks CircleMUD zone files the way the Marl editor reads them, or a whole\n"
    "world the way the game server boots it.\n"
    "\n"
    "Each FILE is read by its extension: .wld (rooms), .mob (mobiles), .obj\n"
    "(objects), .zon (a zone's reset commands) or .shp (shops).  For a file that\n"
    "reads, marl-check prints \"FILE: N rooms\" (or mobiles, objects, commands,\n"
    "comment lines not counted, shops); for one that does not,\n"
    "\"FILE:LINE: expected ...\" or what the server refuses there.  What a file\n"
    "that reads holds beyond what the editor can show (kept as the file has it)\n"
    "follows its line, one \"FILE:LINE: what\" each.\n"
    "\n"
    "A file that reads may have findings the server only logs, each on a line\n"
    "\"FILE:LINE: what is wrong\" at a line of the record at fault: records out\n"
    "of number order (the server looks records up by number and misses some).\n"
    "\n"
    "Then, for a file that reads, one line \"FILE:LINE: what is wrong\" for each\n"
    "thing the game server would refuse or complain of, at the header line of\n"
    "the record at fault: a text longer than the server reads, more than six\n"
    "affects on an object (these stop the server's boot), and what the server\n"
    "logs of an object as it boots (a negative weight or rent, a drink\n"
    "container holding more than its capacity, a spell or level out of range,\n"
    "and so on).  A shop's findings stand at the line of the field at fault: a\n"
    "message the server drops (more than one %s; a %d outside the two price\n"
    "messages, or before the %s; any other %) or a list longer than it keeps,\n"
    "which it logs; an hour outside 0-28, or a selling price factor above the\n"
    "buying one, which it accepts.\n"
    "\n"
    "A WORLD is a folder laid out as the server's lib/world (wld/ mob/ obj/ zon/\n"
    "shp/, each with the index naming the files the server loads) or a folder of\n"
    "zone files, all of which are loaded; a single folder given is a world.  Each\n"
    "finding is a line \"FILE:LINE: what is wrong [the server's words] (what the\n"
    "server does)\", in the order the server reads the files: what stops its boot\n"
    "(a file it refuses, an index naming a missing file or without its \"$\", a\n"
    "zone whose bottom is above its top, a room below its zone or above every\n"
    "zone, no start room); what it logs as it boots (a reset naming a mobile,\n"
    "object or room that is not there, the checks of each record); what it logs\n"
    "only when it resets the zones to run the game (a G or E with no mobile\n"
    "before it, a P whose container is not loaded, a D on a side with no exit);\n"
    "and what it says nothing of though the game goes wrong (a VNum twice in a\n"
    "kind, records out of order, an exit to no room, a door whose key is no\n"
    "object, a shop whose keeper, product or room is not there, a record\n"
    "outside its zone's range, zones that overlap, a file its folder's index\n"
    "does not list).  A last line counts the records and findings.\n"
    "\n"
    "Options:\n"
    "  --world        check WORLD, a folder, as a whole.\n"
    "  --json         with a world, each finding as one JSON object a line (file,\n"
    "                 line, severity: refuses-boot, logged, logged-in-game or\n"
    "                 silent; text, server, and kind and vnum of the record at\n"
    "                 fault), then one with the counts (\"summary\").\n"
    "  --strict       also fail (status 1) for what the server only logs or\n"
    "                 accepts silently.\n"
    "  --rewrite DIR  also write each file that reads into the folder DIR, under\n"
    "                 its own name, exactly as the editor's Save would write it.\n"
    "                 The zone number comes from the file name (30.wld is zone\n"
    "                 30); a name that does not begin with a number is refused\n"
    "                 (a .zon file holds its own, a .shp file needs none).\n"
    "                 An existing file in DIR is replaced only once the new one\n"
    "                 is completely written.  Two FILEs of the same name would\n"
    "                 overwrite each other there: they are refused.\n"
    "  --help         show this text.\n"
    "\n"
    "Only regular files are read and written: a folder, a named pipe or a device\n"
    "is refused, never waited on.  Many files are checked at once, one per core,\n"
    "and reported in the order given.\n"
    "\n"
    "Exit status: 0 when every file reads (and is written) and the server would\n"
    "boot it, 1 when any file is refused or would stop the server's boot (or,\n"
    "with --strict, has any finding), 2 for a usage error, 3 when the report\n"
    "cannot be written.\n";

// Something the server would refuse or log, at a line of the file.
struct FileFinding {
    int line;
    Severity severity;
    std::string what;
};

// What checking one file found: its report lines and whether all went well.
struct Result {
    Result(std::string line, bool ok = false, std::vector<FileFinding> findings = {})
        : line(std::move(line)), ok(ok), findings(std::move(findings)) {}
    std::string line;
    bool ok = false;
    std::vector<FileFinding> findings;
    std::string file; // as given
};

// The line of each record's header: the first record's is line 1, and each
// record's bytes run up to the next header.
template <typename Table> std::vector<int> headerLines(const Table& table, int count) {
    std::vector<int> lines;
    int line = 1;
    for (int slot = 0; slot < count; ++slot) {
        lines.push_back(line);
        const std::string& source = table[static_cast<std::size_t>(slot)].Source;
        line += static_cast<int>(std::count(source.begin(), source.end(), '\n'));
    }
    return lines;
}

// What the server would refuse or log of each record, at its header line.
template <typename Kind>
void findProblems(const typename Kind::File& table, int count, std::vector<FileFinding>& found) {
    const std::vector<int> lines = headerLines(table, count);
    for (int slot = 0; slot < count; ++slot) {
        const auto& record = table[static_cast<std::size_t>(slot)];
        for (Finding& finding : Kind::problems(record, table.lineEnd))
            found.push_back({lines[static_cast<std::size_t>(slot)], finding.severity,
                             std::string(Kind::info.one) + ' ' + std::to_string(record.VNum) +
                                 ": " + finding.what});
    }
}

std::string plural(int count, std::string_view one, std::string_view many) {
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

// A table of each kind for each thread, cleared before every file: a fresh
// table for every file would spend the time in the system, which hands new
// memory to one thread at a time.
template <typename Table> Table& threadTable() {
    thread_local const auto table = std::make_unique<Table>();
    return *table;
}

// Reads one file with the reader of its kind into the thread's table and,
// when `rewrite` is set, writes it there.
template <typename Kind>
Result checkFile(const std::string& shown, const fs::path& path, std::int32_t zone,
                 const fs::path* rewrite) {
    typename Kind::File& table = threadTable<typename Kind::File>();
    const LoadOutcome outcome = loadZoneTable(path, table, Kind::read);
    if (!outcome.ok) {
        if (outcome.line > 0)
            return {shown + ':' + std::to_string(outcome.line) + ": " + outcome.problem};
        return {shown + ": cannot read the file: " + outcome.problem};
    }
    std::string line = shown + ": " + plural(outcome.count, Kind::info.one, Kind::info.many);
    std::vector<FileFinding> found;
    if constexpr (!HeaderRecordKind<Kind>) {
        // What the server drops or logs of a shop stands at its field's line.
        for (ShopFileProblem& problem : shopFileProblems(table, outcome.count))
            found.push_back({problem.line, problem.severity, std::move(problem.what)});
    } else {
        findProblems<Kind>(table, outcome.count, found);
        if (const int slot = firstOutOfOrder(table, outcome.count); slot >= 0)
            found.push_back({headerLine(table, slot), Severity::OnlyLogged,
                             "#" + std::to_string(table[slot].VNum) +
                                 " is out of number order (after #" +
                                 std::to_string(table[slot - 1].VNum) + ")"});
    }
    // What the editor cannot show, kept as the file has it.
    std::string notes;
    for (const TextReader::Note& note : outcome.notes)
        notes += '\n' + shown + ':' + std::to_string(note.line) + ": " + note.text;
    if (rewrite) {
        const fs::path target = *rewrite / path.filename();
        std::string error;
        if (!writeZoneFile(target, Kind::write(table, outcome.count, zone), error))
            return {line + "; cannot write " + target.string() + ": " + error, false,
                    std::move(found)};
        line += ", written to " + target.string();
    }
    return {line + notes, true, std::move(found)};
}

// A zone's reset commands: the whole file is one record, so it stands
// beside the kinds' tables.
Result checkZoneFile(const std::string& shown, const fs::path& path, const fs::path* rewrite) {
    std::string bytes;
    std::string error;
    if (!readZoneFile(path, bytes, error))
        return {shown + ": cannot read the file: " + error};
    ZoneRecord zone;
    int count = 0;
    try {
        count = readZone(bytes, zone);
    } catch (const FormatError& refused) {
        return {shown + ':' + std::to_string(refused.line()) + ": " + refused.problem()};
    }
    std::string line = shown + ": " + plural(count, "command", "commands");
    std::string note;
    if (zone.NoBottom)
        note = '\n' + shown + ':' + std::to_string(zone.numbersLine) +
               ": three numbers, without the bottom VNum (an older file): kept as they are, "
               "though this server reads four";
    if (rewrite) {
        const fs::path target = *rewrite / path.filename();
        if (!writeZoneFile(target, writeZone(zone), error))
            return {line + "; cannot write " + target.string() + ": " + error};
        line += ", written to " + target.string();
    }
    return {line + note, true};
}

Result checkOne(const std::string& shown, const fs::path* rewrite) {
    const fs::path path(shown);
    const std::string extension = path.extension().string();
    if (extension == ".zon")
        return checkZoneFile(shown, path, rewrite);
    const std::optional<std::int32_t> zone = zoneFromFileName(path.filename().string());
    Result result{shown + ": not a zone file: the name must end in .wld, .mob, .obj, .zon or .shp"};
    withZoneKind(extension, [&]<typename Kind>() {
        if (rewrite && !zone && HeaderRecordKind<Kind>)
            result.line = shown + ": the name does not begin with a zone number (such as 30" +
                          extension + "), so it cannot be written";
        else
            result = checkFile<Kind>(shown, path, zone.value_or(0), rewrite);
    });
    result.file = shown;
    return result;
}

// Checks every file, on as many threads as there are cores, and hands each
// result to `report` in the order of `files`, as soon as it and those before
// it are done.
template <typename Report>
void checkAll(const std::vector<std::string>& files, const fs::path* rewrite, Report report) {
    std::vector<std::promise<Result>> results(files.size());
    std::vector<std::future<Result>> waiting;
    for (auto& result : results)
        waiting.push_back(result.get_future());
    std::atomic<std::size_t> next{0};
    auto work = [&] {
        for (std::size_t i; (i = next++) < files.size();) {
            try {
                results[i].set_value(checkOne(files[i], rewrite));
            } catch (const std::exception& error) { // out of memory for a huge file
                results[i].set_value({files[i] + ": cannot be checked: " + error.what()});
            }
        }
    };
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::thread> workers;
    for (std::size_t i = 0; i < std::min(cores, files.size()); ++i)
        workers.emplace_back(work);
    for (auto& result : waiting)
        report(result.get());
    for (std::thread& worker : workers)
        worker.join();
}

// Two inputs of one name would be written over each other in the --rewrite
// folder (names compared as a case-blind file system would).
std::string sameNames(const std::vector<std::string>& files) {
    std::map<std::string, const std::string*> seen;
    for (const std::string& file : files) {
        std::string name = fs::path(file).filename().string();
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) {
            return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
        });
        const auto [it, added] = seen.emplace(name, &file);
        if (!added)
            return *it->second + " and " + file + " have the same name";
    }
    return {};
}

// Flushes the report; a report that did not reach its file or pipe (a full
// disk, a closed pipe) is told on standard error.  `failed` is the errno of a
// write that failed before, or 0.
bool finishOutput(int failed) {
    errno = 0;
    if (std::fflush(stdout) == 0 && failed == 0 && !std::ferror(stdout))
        return true;
    const int error = failed != 0 ? failed : errno;
    std::fprintf(stderr, "marl-check: cannot write the report: %s\n",
                 error != 0 ? std::strerror(error) : "write error");
    return false;
}

int usageError(const std::string& problem) {
    std::fputs(("marl-check: " + problem + "\nTry 'marl-check --help'.\n").c_str(), stderr);
    return 2;
}

// Reading a world allocates much and frees little: the heap grows a few
// megabytes at a time, each thread's too, rather than a page or so at a time,
// each growth a call to the system.
void growHeapInLargeSteps() {
#if defined(__GLIBC__)
    mallopt(M_TOP_PAD, 4 << 20);
    mallopt(M_TRIM_THRESHOLD, 64 << 20);
#endif
}

// Checks a whole world folder: each finding on a line (or a JSON object),
// then the counts.  The world and its report are left for the system to
// take back at exit: freeing a large world record by record takes longer
// than reading it.
int checkWorldFolder(const std::string& folder, bool strict, bool json) {
    const World& world = *new World(loadWorld(fs::path(folder), folder));
    const WorldReport& report = *new WorldReport(checkWorld(world));
    int failed = 0;
    const auto put = [&](std::string line) {
        line += '\n';
        if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size() && failed == 0)
            failed = errno != 0 ? errno : EIO;
    };
    for (const WorldFinding& finding : report.findings)
        put(json ? findingJson(world, finding) : findingLine(world, finding));
    put(json ? summaryJson(world, report) : summaryLine(world, report));
    const bool refused = report.count(Severity::RefusesBoot) > 0;
    if (!finishOutput(failed))
        return 3;
    return refused || (strict && !report.findings.empty()) ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> files;
    std::optional<fs::path> rewrite;
    bool strict = false;
    bool world = false;
    bool json = false;
    bool options = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (options && arg == "--") {
            options = false;
        } else if (options && (arg == "--help" || arg == "-h")) {
            const int failed = std::fputs(kUsage, stdout) < 0 ? errno : 0;
            return finishOutput(failed) ? 0 : 3;
        } else if (options && arg == "--strict") {
            strict = true;
        } else if (options && arg == "--world") {
            world = true;
        } else if (options && arg == "--json") {
            json = true;
        } else if (options && arg == "--rewrite") {
            if (i + 1 >= argc)
                return usageError("--rewrite needs a folder");
            rewrite = fs::path(argv[++i]);
        } else if (options && arg.starts_with("--rewrite=")) {
            rewrite = fs::path(std::string(arg.substr(10)));
        } else if (options && arg.size() > 1 && arg.front() == '-') {
            return usageError("unknown option " + std::string(arg));
        } else {
            files.emplace_back(arg);
        }
    }
    if (files.empty())
        return usageError(world ? "--world needs a folder" : "no zone file given");
    std::error_code ec;
    if (!world && files.size() == 1 && fs::is_directory(files[0], ec))
        world = true;
    if (world) {
        if (files.size() != 1 || rewrite)
            return usageError("a world is one folder, checked alone");
        if (!fs::is_directory(files[0], ec))
            return usageError("--world needs a folder, not '" + files[0] + "'");
        growHeapInLargeSteps();
        // The report is flushed; nothing is left to tidy up but memory.
        std::_Exit(checkWorldFolder(files[0], strict, json));
    }
    if (json)
        return usageError("--json goes with a world folder");
    if (rewrite) {
        if (rewrite->empty() || !fs::is_directory(*rewrite, ec))
            return usageError("--rewrite needs an existing folder, not '" + rewrite->string() +
                              "'");
    }

    if (rewrite)
        if (const std::string same = sameNames(files); !same.empty())
            return usageError(same + ": --rewrite would write one over the other");

    bool allRead = true;
    int failed = 0; // the first write of the report that failed
    checkAll(files, rewrite ? &*rewrite : nullptr, [&](const Result& result) {
        allRead = result.ok && allRead;
        std::string line = result.line + '\n';
        for (const FileFinding& finding : result.findings) {
            const bool refuses = finding.severity == Severity::RefusesBoot;
            allRead = allRead && !refuses && !strict;
            line += result.file + ':' + std::to_string(finding.line) + ": " + finding.what +
                    (refuses                                    ? " (the server stops booting)\n"
                     : finding.severity == Severity::OnlyLogged ? " (the server logs it)\n"
                                                                : " (the server accepts it)\n");
        }
        if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size() && failed == 0)
            failed = errno != 0 ? errno : EIO;
    });
    return finishOutput(failed) ? (allRead ? 0 : 1) : 3;
}
