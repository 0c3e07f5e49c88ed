#include "kinds/world_model.h"

#if defined(__linux__)
#include <pthread.h>
#include <sched.h>
#endif

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <system_error>
#include <thread>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>

#include "kinds/world_index.h"
#include "kinds/zone_kinds.h"
#include "shops/format/shop_checks.h"
#include "shops/format/shop_file.h"
#include "world/platform_file.h"
#include "world/zone_file.h"
#include "zones/format/zone_reset_file.h"

namespace fs = std::filesystem;

namespace marl {

const std::array<WorldKindInfo, kWorldKinds> kWorldKindInfo = {{
    {WorldKind::Zone, "zon", ".zon", "zone", "zones"},
    {WorldKind::Room, "wld", ".wld", "room", "rooms"},
    {WorldKind::Mobile, "mob", ".mob", "mobile", "mobiles"},
    {WorldKind::Object, "obj", ".obj", "object", "objects"},
    {WorldKind::Shop, "shp", ".shp", "shop", "shops"},
}};

namespace {

// What one file holds for the world, gathered by the thread that read it.
struct FileContents {
    std::vector<WorldRecord> records;
    std::vector<WorldExit> exits; // `room`: the room's place in this file
    std::vector<WorldZone> zone;  // a zone file's one zone
    std::vector<WorldShop> shops; // `record`: the shop's place in this file
};

// A table of each kind for each thread, cleared before every file.
template <typename Table> Table& threadTable() {
    thread_local const auto table = std::make_unique<Table>();
    return *table;
}

// The room of one record of each kind for each thread.
template <typename Record> Record& threadRecord() {
    thread_local const auto record = std::make_unique<Record>();
    return *record;
}

int linesIn(std::string_view bytes) {
    int lines = 0;
    for (const char *at = bytes.data(), *end = at + bytes.size();
         (at = static_cast<const char*>(std::memchr(at, '\n', std::size_t(end - at)))); ++at)
        ++lines;
    return lines;
}

void refuse(WorldFile& file, int fileIndex, int line, std::string what) {
    file.findings.push_back({fileIndex, line, {Severity::RefusesBoot, std::move(what)}});
}

// What each kind is called by, and what the server checks of it besides
// the kind's own problems().
std::string_view nameOf(const RoomRecord& room) {
    return room.Name;
}
std::string_view nameOf(const MobileRecord& mobile) {
    return mobile.SDesc;
}
std::string_view nameOf(const ObjectRecord& object) {
    return object.SDesc;
}
void checkMore(Findings& found, const RoomRecord& room) {
    checkRoomFlags(found, room);
}
void checkMore(Findings& found, const MobileRecord& mobile) {
    checkMobileFlags(found, mobile);
    checkExtendedKeywords(found, mobile);
}
void checkMore(Findings&, const ObjectRecord&) {}

template <typename Kind> constexpr WorldKind worldKind() {
    if constexpr (std::is_same_v<Kind, RoomKind>)
        return WorldKind::Room;
    else if constexpr (std::is_same_v<Kind, MobileKind>)
        return WorldKind::Mobile;
    else
        return WorldKind::Object;
}

// A file's bytes, in a buffer each thread keeps for the next file.
std::string& fileBuffer() {
    thread_local std::string bytes;
    return bytes;
}

// Each record of a file looked at as it is read, in the room of one record
// the thread keeps: a world's records are not held, only what the world
// needs of them.
template <typename Kind> void readRecordFile(WorldFile& file, int fileIndex, FileContents& out) {
    using Record = typename Kind::Record;
    std::string& bytes = fileBuffer();
    std::string error;
    if (!readZoneFile(file.path, bytes, error, file.listedRegular))
        return refuse(file, fileIndex, 0, "cannot read the file: " + error);
    int slot = 0;
    RecordStream<Record> records(threadRecord<Record>(), [&](const Record& record, int line) {
        out.records.push_back({record.VNum, fileIndex, line, std::string(nameOf(record))});
        Findings found = Kind::problems(record, records.lineEnd);
        checkMore(found, record);
        for (Finding& finding : found) {
            finding.what = std::string(Kind::info.one) + ' ' + std::to_string(record.VNum) + ": " +
                           finding.what;
            file.findings.push_back(
                {fileIndex, line, std::move(finding), true, worldKind<Kind>(), record.VNum});
        }
        if constexpr (std::is_same_v<Kind, RoomKind>) {
            for (std::size_t exitSlot = 0; exitSlot < kExitSlots; ++exitSlot) {
                const ExitRecord& exit = record.Exits[exitSlot];
                if (!exit.Absent)
                    out.exits.push_back({slot, kExitFileDirections[exitSlot], exit.DoorKind,
                                         exit.KeyVNum, exit.ToVNum});
            }
        }
        ++slot;
    });
    std::string problem;
    int at = 0;
    try {
        file.count = Kind::readEach(bytes, records);
        records.finish();
        file.read = true;
        return;
    } catch (const FormatError& refused) {
        at = refused.line();
        problem = refused.problem();
    } catch (const std::bad_alloc&) {
        problem = "there is not enough memory to hold its records";
    }
    // The file is refused; what the records before the fault were found to
    // have stands, as the server logs it before it stops.
    file.count = 0;
    out = {};
    refuse(file, fileIndex, at, at > 0 ? problem : "cannot read the file: " + problem);
}

void readZoneInto(WorldFile& file, int fileIndex, FileContents& out) {
    std::string& bytes = fileBuffer();
    std::string error;
    if (!readZoneFile(file.path, bytes, error, file.listedRegular))
        return refuse(file, fileIndex, 0, "cannot read the file: " + error);
    ZoneRecord zone;
    try {
        readZone(bytes, zone, CommandTexts::Dropped);
    } catch (const FormatError& refused) {
        return refuse(file, fileIndex, refused.line(), refused.problem());
    }
    file.read = true;
    file.count = 1;
    out.records.push_back({zone.Number, fileIndex, 1 + linesIn(zone.Leader), zone.Name});
    WorldZone& held = out.zone.emplace_back();
    held.bottom = zone.Bottom;
    held.top = zone.Top;
    held.noBottom = zone.NoBottom;
    held.numbersLine = zone.numbersLine;
    held.commands.reserve(zone.Commands.size());
    for (std::size_t i = 0; i < zone.Commands.size(); ++i) {
        const ZoneCommand& c = zone.Commands[i];
        if (c.Command != kComment)
            held.commands.push_back({c.Command, c.IfFlag, c.Arg1, c.Arg2, c.Arg3,
                                     zone.firstCommandLine + static_cast<int>(i)});
    }
    if (zone.NoBottom)
        file.findings.push_back(
            {fileIndex,
             zone.numbersLine,
             {Severity::RefusesBoot,
              "three numbers without the bottom VNum (an older file); this server reads four",
              "Format error in numeric constant line"},
             true,
             WorldKind::Zone,
             zone.Number});
}

// A shop file: each shop, what the server checks of it at its field's
// line, and the records it names.
void readShopsInto(WorldFile& file, int fileIndex, FileContents& out) {
    ShopTable& table = threadTable<ShopTable>();
    const LoadOutcome outcome = loadZoneTable(file.path, table, ShopKind::read);
    if (!outcome.ok)
        return refuse(file, fileIndex, outcome.line,
                      outcome.line > 0 ? outcome.problem
                                       : "cannot read the file: " + outcome.problem);
    file.read = true;
    file.count = outcome.count;
    std::vector<ShopLines> eachLines;
    for (ShopFileProblem& problem : shopFileProblems(table, outcome.count, &eachLines))
        file.findings.push_back(
            {fileIndex, problem.line, {problem.severity, std::move(problem.what)}});
    int header = 1 + linesIn(table.leader);
    for (int slot = 0; slot < outcome.count; ++slot) {
        const ShopRecord& shop = table[static_cast<std::size_t>(slot)];
        const ShopLines& lines = eachLines[static_cast<std::size_t>(slot)];
        out.records.push_back({shop.VNum, fileIndex, header, {}});
        WorldShop& held = out.shops.emplace_back();
        held.record = slot;
        held.keeper = shop.Keeper;
        held.keeperLine = header + lines.keeper;
        for (std::size_t i = 0; i < shop.Products.size(); ++i)
            held.products.emplace_back(shop.Products[i], header + lines.products + int(i));
        for (std::size_t i = 0; i < shop.Rooms.size(); ++i)
            held.rooms.emplace_back(shop.Rooms[i], header + lines.rooms + int(i));
        header += linesIn(shop.Source);
    }
}

// Reads one file the world loads, by its kind: the one place that knows how
// a file of each kind is read.
void readFileOfKind(WorldFile& file, int fileIndex, FileContents& out) {
    switch (file.kind) {
    case WorldKind::Zone:
        return readZoneInto(file, fileIndex, out);
    case WorldKind::Room:
        return readRecordFile<RoomKind>(file, fileIndex, out);
    case WorldKind::Mobile:
        return readRecordFile<MobileKind>(file, fileIndex, out);
    case WorldKind::Object:
        return readRecordFile<ObjectKind>(file, fileIndex, out);
    case WorldKind::Shop:
        return readShopsInto(file, fileIndex, out);
    }
}

// A path in a folder, as a report names it.
std::string joined(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/')
        path += '/';
    return path.append(name);
}

// The number a name begins with, for the order of a flat folder (as `sort
// -n` gives it: a name without one counts as 0).
long long leadingNumber(const std::string& name) {
    long long number = 0;
    for (std::size_t i = 0; i < name.size() && name[i] >= '0' && name[i] <= '9' && i < 18; ++i)
        number = number * 10 + (name[i] - '0');
    return number;
}

// The names in `entries` of regular files that end in `extension`.
std::vector<std::string> namesEnding(const std::vector<platform::FolderEntry>& entries,
                                     std::string_view extension) {
    std::vector<std::string> names;
    for (const platform::FolderEntry& entry : entries)
        if (entry.regular && entry.name.size() > extension.size() &&
            entry.name.ends_with(extension))
            names.push_back(entry.name);
    return names;
}

// Each name a folder's listing holds, and whether it is a regular file.
using FolderNames = std::unordered_map<std::string, bool>;

// Whether the server finds `name` in `folder`: a name the folder's listing
// holds is there; any other (in a folder below, or spelt in another case on
// a system that does not tell cases apart) is looked up.
bool present(const FolderNames& names, const fs::path& path, const std::string& name) {
    if (names.count(name))
        return true;
    std::error_code ec;
    return fs::status(path, ec).type() != fs::file_type::not_found ||
           ec != std::errc::no_such_file_or_directory;
}

// One kind's files in the server's layout: its index, then the files it
// lists that are there.  A finding's file is its place in `files`.
struct KindFiles {
    std::vector<WorldFile> files;
    bool missing = false; // not all of the kind's files are there to be read
};

// The files the server loads of one kind, with the kind's index before them.
void listServerKind(const World& world, const WorldKindInfo& info, KindFiles& out) {
    const fs::path folder = world.folder / info.folder;
    const std::string shown = joined(world.shown, info.folder);
    constexpr int at = 0;
    std::vector<platform::FolderEntry> entries;
    platform::folderEntries(folder, entries);
    std::vector<std::string> ending = namesEnding(entries, info.extension);
    FolderNames inFolder;
    inFolder.reserve(entries.size());
    for (platform::FolderEntry& entry : entries)
        inFolder.emplace(std::move(entry.name), entry.regular);
    const auto listedRegular = [&](const std::string& name) {
        const auto found = inFolder.find(name);
        return found != inFolder.end() && found->second;
    };
    WorldFile& index = out.files.emplace_back();
    index.kind = info.kind;
    index.isIndex = true;
    index.path = folder / "index";
    index.shown = joined(shown, "index");
    index.listedRegular = listedRegular("index");
    std::string bytes, error;
    if (!readZoneFile(index.path, bytes, error, index.listedRegular)) {
        out.missing = true;
        index.findings.push_back(
            {at,
             0,
             {Severity::RefusesBoot, "cannot read the index, which the server loads: " + error,
              "opening index file"}});
        return;
    }
    index.read = true;
    const IndexListing listing = readIndex(bytes);
    index.indexEnd = listing.endLine;
    if (listing.endLine == 0) {
        out.missing = true;
        refuse(index, at, linesIn(bytes) + 1,
               "no \"$\" line ends the index: the server reads its last name again and again "
               "and never finishes booting");
    }
    std::vector<WorldFile> listed;
    const std::string folderText = folder.string();
    for (const IndexEntry& entry : listing.entries) {
        fs::path path = joined(folderText, entry.name);
        if (!present(inFolder, path, entry.name)) {
            out.missing = true;
            index.findings.push_back(
                {at,
                 entry.line,
                 {Severity::RefusesBoot, "lists " + entry.name + ", which is not in the folder",
                  "listed in"}});
            continue;
        }
        WorldFile& file = listed.emplace_back();
        file.kind = info.kind;
        file.path = std::move(path);
        file.shown = joined(shown, entry.name);
        file.listedRegular = listedRegular(entry.name);
    }
    std::unordered_set<std::string_view> names;
    for (const IndexEntry& entry : listing.entries)
        names.insert(entry.name);
    for (std::string& name : ending)
        if (!names.count(name))
            index.unlisted.push_back(std::move(name));
    std::sort(index.unlisted.begin(), index.unlisted.end());
    for (WorldFile& file : listed)
        out.files.push_back(std::move(file));
}

// The kinds' files after each other, in the order the server loads them.
void addServerFiles(World& world, std::array<KindFiles, kWorldKinds>& kinds,
                    std::array<bool, kWorldKinds>& missing) {
    for (std::size_t k = 0; k < kWorldKinds; ++k) {
        missing[static_cast<std::size_t>(kWorldKindInfo[k].kind)] = kinds[k].missing;
        for (WorldFile& file : kinds[k].files) {
            const int at = static_cast<int>(world.files.size());
            for (auto& finding : file.findings)
                finding.file = at;
            world.files.push_back(std::move(file));
        }
    }
}

// Every zone file of a flat folder, each kind in the order of the numbers
// their names begin with.
void listFlatFiles(World& world) {
    std::vector<platform::FolderEntry> entries;
    platform::folderEntries(world.folder, entries);
    for (const WorldKindInfo& info : kWorldKindInfo) {
        std::vector<std::string> names = namesEnding(entries, info.extension);
        std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
            const long long na = leadingNumber(a), nb = leadingNumber(b);
            return na != nb ? na < nb : a < b;
        });
        for (const std::string& name : names) {
            WorldFile& file = world.files.emplace_back();
            file.kind = info.kind;
            file.path = joined(world.folder.string(), name);
            file.shown = joined(world.shown, name);
            file.listedRegular = true; // only regular files are taken
        }
    }
}

// What a reading thread is given: its work, and the cores it may run on.
struct ReaderStart {
    std::function<void()> run;
#if defined(__linux__)
    cpu_set_t all{};
#endif
};

#if defined(__linux__)
void* runReader(void* given) {
    const std::unique_ptr<ReaderStart> start(static_cast<ReaderStart*>(given));
    pthread_setaffinity_np(pthread_self(), sizeof start->all, &start->all);
    start->run();
    return nullptr;
}
#endif

// Starts a reading thread.  Linux starts a new thread on the core that made
// it, which is busy reading too, and moves it to an idle core only
// milliseconds later: each starts on another core, then may take any.  The
// thread is let go rather than waited for: once `run` returns, what it has
// left to do (freeing its tables) is its own, and nobody need wait for it.
void startReader(std::function<void()> run) {
    auto start = std::make_unique<ReaderStart>();
    start->run = std::move(run);
#if defined(__linux__)
    cpu_set_t all, others;
    const int here = sched_getcpu();
    if (here >= 0 && sched_getaffinity(0, sizeof all, &all) == 0) {
        others = all;
        CPU_CLR(here, &others);
        pthread_attr_t attributes;
        if (CPU_COUNT(&others) > 0 && pthread_attr_init(&attributes) == 0) {
            start->all = all;
            pthread_t thread{};
            const bool started =
                pthread_attr_setaffinity_np(&attributes, sizeof others, &others) == 0 &&
                pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED) == 0 &&
                pthread_create(&thread, &attributes, &runReader, start.get()) == 0;
            pthread_attr_destroy(&attributes);
            if (started) {
                start.release(); // the thread's own now
                return;
            }
        }
    }
#endif
    std::thread([start = std::move(start)] { start->run(); }).detach();
}

// The threads that list and read a world's files.  One is started before
// the files are listed: it lists parts of the world beside the thread that
// made it, and makes its first tables while that one finishes; a large
// world gets a thread a core.  That first one takes the parts to list and
// the files to read from the end, the others from the start, so that each
// thread mostly reads files of its own kinds and makes fewer tables.
class ReadingPool {
public:
    // `list(part)` lists part 0 to `parts` - 1 of the world, each on
    // whichever thread takes it first.
    ReadingPool(World& world, ReadingCores taken, std::function<void(std::size_t)> list,
                std::size_t parts)
        : world_(world),
          cores_(taken == ReadingCores::All ? cores() : std::max<std::size_t>(1, cores() - 1)),
          list_(std::move(list)), parts_(parts),
          listErrors_(parts) {
        partEnds_.store(std::uint64_t(parts) << 32);
        if (cores_ > 1)
            start(true);
    }
    ReadingPool(const ReadingPool&) = delete;
    ReadingPool& operator=(const ReadingPool&) = delete;
    ~ReadingPool() {
        release(false);
        waitForThreads();
    }

    // Every part of the world listed, by this thread and the first other;
    // what the listing of a part threw is thrown here.
    void listAll() {
        listShare(false);
        for (int spin = 0; listed_.load() < parts_; ++spin)
            nap(spin);
        for (const std::exception_ptr& error : listErrors_)
            if (error)
                std::rethrow_exception(error);
    }

    // Each file the world lists, read: what it holds for the world, by
    // its place in the list.
    std::vector<FileContents> readAll() {
        contents_.resize(world_.files.size());
        // Rooms first, the largest files, then the kinds the thread from
        // the end reads, in the order it meets them.
        for (const WorldKind kind : {WorldKind::Room, WorldKind::Zone, WorldKind::Mobile,
                                     WorldKind::Object, WorldKind::Shop})
            for (std::size_t i = 0; i < world_.files.size(); ++i)
                if (!world_.files[i].isIndex && world_.files[i].kind == kind)
                    order_.push_back(i);
        ends_.store(std::uint64_t(order_.size()) << 32);
        release(true);
        // A thread more for each few dozen files: below that, starting one
        // and waiting for it costs more than it saves.
        constexpr std::size_t kFilesPerThread = 64;
        const std::size_t wanted = std::min(cores_, order_.size() / kFilesPerThread + 1) - 1;
        while (started_ < wanted)
            start(false);
        work(false);
        waitForThreads();
        return std::move(contents_);
    }

private:
    // The cores this process may run on.  On Linux the system says so at
    // once; the library asks the file system each time.
    static std::size_t cores() {
#if defined(__linux__)
        cpu_set_t allowed;
        if (sched_getaffinity(0, sizeof allowed, &allowed) == 0)
            return static_cast<std::size_t>(std::max(1, CPU_COUNT(&allowed)));
#endif
        return std::max(1u, std::thread::hardware_concurrency());
    }
    void start(bool fromEnd) {
        ++running_;
        ++started_;
        try {
            startReader([this, fromEnd] {
                if (fromEnd) {
                    listShare(true);
                    warmUp();
                }
                if (waitForFiles())
                    work(fromEnd);
                --running_; // the last this thread does with the pool
            });
        } catch (...) {
            --running_;
            throw;
        }
    }
    // The tables the thread from the end reads into first, made while it
    // waits.
    static void warmUp() {
        try {
            threadTable<ShopTable>();
            threadRecord<ObjectRecord>();
            threadRecord<MobileRecord>();
        } catch (const std::exception&) { // memory ran out: made when needed, or told then
        }
    }
    // Until the files are listed: a while spinning, as listing takes a
    // moment, then asleep.  False when there is nothing to read.
    bool waitForFiles() {
        for (int spin = 0; spin < 20000 && state_.load() == kListing; ++spin)
            std::this_thread::yield();
        state_.wait(kListing);
        return state_.load() == kListed;
    }
    void release(bool listed) {
        int expected = kListing;
        if (state_.compare_exchange_strong(expected, listed ? kListed : kCancelled))
            state_.notify_all();
    }
    // A wait for the other threads, which are mostly about to finish: a
    // while spinning, then in short naps.
    static void nap(int spin) {
        if (spin < 20000)
            std::this_thread::yield();
        else
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    // Until every thread is done with the pool.
    void waitForThreads() const {
        for (int spin = 0; running_.load() > 0; ++spin)
            nap(spin);
    }
    // The next place from the start or the end of what `ends` holds (the
    // next from the start; above it, one past the end), or false when every
    // place is taken.
    static bool take(std::atomic<std::uint64_t>& ends, bool fromEnd, std::size_t& place) {
        std::uint64_t now = ends.load();
        for (;;) {
            const auto front = static_cast<std::uint32_t>(now);
            const auto back = static_cast<std::uint32_t>(now >> 32);
            if (front >= back)
                return false;
            const std::uint64_t next = fromEnd ? (std::uint64_t(back - 1) << 32) | front
                                               : (std::uint64_t(back) << 32) | (front + 1);
            if (ends.compare_exchange_weak(now, next)) {
                place = fromEnd ? back - 1 : front;
                return true;
            }
        }
    }
    // The parts of the world this thread takes to list.
    void listShare(bool fromEnd) {
        for (std::size_t part; take(partEnds_, fromEnd, part); ++listed_) {
            try {
                list_(part);
            } catch (...) {
                listErrors_[part] = std::current_exception();
            }
        }
    }
    void work(bool fromEnd) {
        for (std::size_t place; take(ends_, fromEnd, place);) {
            const std::size_t i = order_[place];
            WorldFile& file = world_.files[i];
            try {
                readFileOfKind(file, static_cast<int>(i), contents_[i]);
            } catch (const std::exception& error) { // memory ran out
                contents_[i] = {};
                file.read = false;
                refuse(file, static_cast<int>(i), 0,
                       std::string("cannot be checked: ") + error.what());
            }
        }
    }

    static constexpr int kListing = 0, kListed = 1, kCancelled = 2;
    World& world_;
    const std::size_t cores_;
    const std::function<void(std::size_t)> list_;
    const std::size_t parts_;
    std::vector<std::exception_ptr> listErrors_; // each written by the thread listing its part
    std::atomic<std::uint64_t> partEnds_{0};     // as ends_, of the parts to list
    std::atomic<std::size_t> listed_{0};
    std::vector<FileContents> contents_;
    std::vector<std::size_t> order_; // the files to read, by place in the list
    std::atomic<int> state_{kListing};
    std::atomic<std::uint64_t> ends_{0}; // the next from the start; above it, the end
    std::atomic<int> running_{0};
    std::size_t started_ = 0;
};

} // namespace

const WorldRecord* World::find(WorldKind kind, std::int32_t vnum) const {
    const auto& sorted = byVNum_[static_cast<std::size_t>(kind)];
    const auto it = std::lower_bound(sorted.begin(), sorted.end(), std::make_pair(vnum, 0));
    if (it == sorted.end() || it->first != vnum)
        return nullptr;
    return &records(kind)[static_cast<std::size_t>(it->second)];
}

std::vector<const WorldRecord*> World::listing(WorldKind kind) const {
    std::vector<const WorldRecord*> list;
    list.reserve(byVNum_[static_cast<std::size_t>(kind)].size());
    for (const auto& [vnum, place] : byVNum_[static_cast<std::size_t>(kind)])
        list.push_back(&records(kind)[static_cast<std::size_t>(place)]);
    return list;
}

bool World::serverFinds(WorldKind kind, std::int32_t vnum) const {
    const auto k = static_cast<std::size_t>(kind);
    if (inOrder_[k]) // the halving finds every record there is
        return vnum >= 0 && static_cast<std::size_t>(vnum) < present_[k].size() &&
               present_[k][static_cast<std::size_t>(vnum)];
    return serverPlace(kind, vnum) >= 0;
}

int World::serverPlace(WorldKind kind, std::int32_t vnum) const {
    const std::vector<std::int32_t>& all = loaded_[static_cast<std::size_t>(kind)];
    if (all.empty())
        return -1;
    int bottom = 0, top = static_cast<int>(all.size()) - 1;
    for (;;) {
        const int middle = (bottom + top) / 2;
        const std::int32_t found = all[static_cast<std::size_t>(middle)];
        if (found == vnum)
            return middle;
        if (bottom >= top)
            return -1;
        if (found > vnum)
            top = middle - 1;
        else
            bottom = middle + 1;
    }
}

WorldLayout layoutOf(const fs::path& folder) {
    std::error_code ec;
    return fs::is_directory(folder / "wld", ec) || fs::is_directory(folder / "zon", ec)
               ? WorldLayout::Server
               : WorldLayout::Flat;
}

fs::path worldFolderOf(const fs::path& zoneFile) {
    const fs::path own = zoneFile.parent_path();
    const std::string name = own.filename().string();
    const bool kindFolder =
        std::any_of(kWorldKindInfo.begin(), kWorldKindInfo.end(),
                    [&](const WorldKindInfo& info) { return info.folder == name; });
    if (kindFolder && layoutOf(own.parent_path()) == WorldLayout::Server)
        return own.parent_path();
    return own;
}

World loadWorld(const fs::path& folder, std::string_view shown, ReadingCores cores) {
    World world;
    world.folder = folder;
    world.shown = shown.empty() ? folder.string() : std::string(shown);
    world.layout = layoutOf(folder);
    std::array<bool, kWorldKinds> missing{};
    // In the server's layout each kind is listed on its own, two at once.
    std::array<KindFiles, kWorldKinds> kinds;
    const bool server = world.layout == WorldLayout::Server;
    ReadingPool readers(
        world, cores,
        [&](std::size_t k) { listServerKind(world, kWorldKindInfo[k], kinds[k]); },
        server ? kWorldKinds : 0);
    if (server) {
        readers.listAll();
        addServerFiles(world, kinds, missing);
    } else {
        listFlatFiles(world);
    }

    std::vector<FileContents> contents = readers.readAll();

    world.complete_.fill(true);
    for (std::size_t k = 0; k < kWorldKinds; ++k)
        world.complete_[k] = !missing[k];
    std::array<std::size_t, kWorldKinds> total{};
    std::size_t exits = 0;
    for (std::size_t i = 0; i < world.files.size(); ++i) {
        total[static_cast<std::size_t>(world.files[i].kind)] += contents[i].records.size();
        exits += contents[i].exits.size();
    }
    for (std::size_t k = 0; k < kWorldKinds; ++k)
        world.records_[k].reserve(total[k]);
    world.exits.reserve(exits);
    for (std::size_t i = 0; i < world.files.size(); ++i) {
        const WorldFile& file = world.files[i];
        const auto k = static_cast<std::size_t>(file.kind);
        if (!file.isIndex && !file.read)
            world.complete_[k] = false;
        std::vector<WorldRecord>& records = world.records_[k];
        const int firstRoom = static_cast<int>(records.size());
        for (WorldExit& exit : contents[i].exits) {
            exit.room += firstRoom;
            world.exits.push_back(exit);
        }
        for (WorldShop& shop : contents[i].shops) {
            shop.record += static_cast<int>(records.size());
            world.shops.push_back(std::move(shop));
        }
        for (WorldZone& zone : contents[i].zone) {
            zone.record = static_cast<int>(records.size());
            world.zones.push_back(std::move(zone));
        }
        for (WorldRecord& record : contents[i].records)
            records.push_back(std::move(record));
    }
    for (std::size_t k = 0; k < kWorldKinds; ++k) {
        auto& sorted = world.byVNum_[k];
        sorted.reserve(world.records_[k].size());
        world.loaded_[k].reserve(world.records_[k].size());
        world.inOrder_[k] = true;
        // Readers stop at a header of 99999: a record's VNum is below it.
        std::int32_t highest = -1;
        for (const WorldRecord& record : world.records_[k])
            highest = std::max(highest, record.vnum);
        world.present_[k].assign(static_cast<std::size_t>(highest + 1), false);
        for (std::size_t place = 0; place < world.records_[k].size(); ++place) {
            const std::int32_t vnum = world.records_[k][place].vnum;
            sorted.emplace_back(vnum, static_cast<int>(place));
            world.inOrder_[k] =
                world.inOrder_[k] && (place == 0 || vnum >= world.loaded_[k].back());
            world.loaded_[k].push_back(vnum);
            if (vnum >= 0) // a zone's number may be negative
                world.present_[k][static_cast<std::size_t>(vnum)] = true;
        }
        if (!world.inOrder_[k]) // in order, as the server wants them, they are sorted already
            std::sort(sorted.begin(), sorted.end());
    }
    return world;
}

std::vector<WorldRecord> readWorldRecords(const fs::path& path, WorldKind kind) {
    WorldFile file;
    file.path = path;
    file.kind = kind;
    FileContents contents;
    try {
        readFileOfKind(file, 0, contents);
    } catch (const std::exception&) { // memory ran out
        return {};
    }
    return std::move(contents.records);
}

} // namespace marl
