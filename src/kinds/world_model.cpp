#include "kinds/world_model.h"

#if defined(__linux__)
#include <pthread.h>
#include <sched.h>
#endif

#include <algorithm>
#include <atomic>
#include <cstring>
#include <exception>
#include <functional>
#include <memory>
#include <system_error>
#include <thread>
#include <type_traits>
#include <unordered_set>

#include "kinds/world_index.h"
#include "kinds/zone_kinds.h"
#include "shops/format/shop_checks.h"
#include "shops/format/shop_file.h"
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

template <typename Kind> void readRecordFile(WorldFile& file, int fileIndex, FileContents& out) {
    typename Kind::File& table = threadTable<typename Kind::File>();
    const LoadOutcome outcome = loadZoneTable(file.path, table, Kind::read);
    if (!outcome.ok) {
        refuse(file, fileIndex, outcome.line,
               outcome.line > 0 ? outcome.problem : "cannot read the file: " + outcome.problem);
        return;
    }
    file.read = true;
    file.count = outcome.count;
    out.records.reserve(static_cast<std::size_t>(outcome.count));
    int line = 1 + linesIn(table.leader);
    for (int slot = 0; slot < outcome.count; ++slot) {
        const auto& record = table[static_cast<std::size_t>(slot)];
        out.records.push_back({record.VNum, fileIndex, line, std::string(nameOf(record))});
        Findings found = Kind::problems(record, table.lineEnd);
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
        line += linesIn(record.Source);
    }
}

void readZoneInto(WorldFile& file, int fileIndex, FileContents& out) {
    std::string bytes, error;
    if (!readZoneFile(file.path, bytes, error))
        return refuse(file, fileIndex, 0, "cannot read the file: " + error);
    ZoneRecord zone;
    try {
        readZone(bytes, zone);
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
    for (ShopFileProblem& problem : shopFileProblems(table, outcome.count))
        file.findings.push_back(
            {fileIndex, problem.line, {problem.severity, std::move(problem.what)}});
    int header = 1 + linesIn(table.leader);
    for (int slot = 0; slot < outcome.count; ++slot) {
        const ShopRecord& shop = table[static_cast<std::size_t>(slot)];
        const ShopLines lines = shopLines(shop, olderFormAt(table, slot));
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

// The names in `folder`: each regular file's whose name ends in `extension`
// into `ending`, and every entry's, whatever it is, into `all` (when given).
void namesIn(const fs::path& folder, std::string_view extension, std::vector<std::string>& ending,
             std::unordered_set<std::string>* all = nullptr) {
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (name.size() > extension.size() && name.ends_with(extension) && it->is_regular_file(ec))
            ending.push_back(name);
        if (all)
            all->insert(std::move(name));
    }
}

// Whether the server finds `name` in `folder`: a name the folder's listing
// holds is there; any other (in a folder below, or spelt in another case on
// a system that does not tell cases apart) is looked up.
bool present(const std::unordered_set<std::string>& names, const fs::path& path,
             const std::string& name) {
    if (names.count(name))
        return true;
    std::error_code ec;
    return fs::status(path, ec).type() != fs::file_type::not_found ||
           ec != std::errc::no_such_file_or_directory;
}

// The files the server loads, with each kind's index before them.  Records
// `missing` for a kind whose files are not all there to be read.
void listServerFiles(World& world, std::array<bool, kWorldKinds>& missing) {
    for (const WorldKindInfo& info : kWorldKindInfo) {
        const fs::path folder = world.folder / info.folder;
        const std::string shown = joined(world.shown, info.folder);
        const int at = static_cast<int>(world.files.size());
        WorldFile& index = world.files.emplace_back();
        index.kind = info.kind;
        index.isIndex = true;
        index.path = folder / "index";
        index.shown = joined(shown, "index");
        std::string bytes, error;
        bool& kindMissing = missing[static_cast<std::size_t>(info.kind)];
        if (!readZoneFile(index.path, bytes, error)) {
            kindMissing = true;
            index.findings.push_back(
                {at,
                 0,
                 {Severity::RefusesBoot, "cannot read the index, which the server loads: " + error,
                  "opening index file"}});
            continue;
        }
        index.read = true;
        const IndexListing listing = readIndex(bytes);
        index.indexEnd = listing.endLine;
        if (listing.endLine == 0) {
            kindMissing = true;
            refuse(index, at, linesIn(bytes) + 1,
                   "no \"$\" line ends the index: the server reads its last name again and again "
                   "and never finishes booting");
        }
        std::vector<std::string> ending;
        std::unordered_set<std::string> inFolder;
        namesIn(folder, info.extension, ending, &inFolder);
        std::vector<WorldFile> listed;
        for (const IndexEntry& entry : listing.entries) {
            const fs::path path = joined(folder.string(), entry.name);
            if (!present(inFolder, path, entry.name)) {
                kindMissing = true;
                index.findings.push_back(
                    {at,
                     entry.line,
                     {Severity::RefusesBoot, "lists " + entry.name + ", which is not in the folder",
                      "listed in"}});
                continue;
            }
            WorldFile& file = listed.emplace_back();
            file.kind = info.kind;
            file.path = path;
            file.shown = joined(shown, entry.name);
        }
        std::unordered_set<std::string_view> names;
        for (const IndexEntry& entry : listing.entries)
            names.insert(entry.name);
        for (std::string& name : ending)
            if (!names.count(name))
                index.unlisted.push_back(std::move(name));
        std::sort(index.unlisted.begin(), index.unlisted.end());
        for (WorldFile& file : listed)
            world.files.push_back(std::move(file));
    }
}

// Every zone file of a flat folder, each kind in the order of the numbers
// their names begin with.
void listFlatFiles(World& world) {
    for (const WorldKindInfo& info : kWorldKindInfo) {
        std::vector<std::string> names;
        namesIn(world.folder, info.extension, names);
        std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
            const long long na = leadingNumber(a), nb = leadingNumber(b);
            return na != nb ? na < nb : a < b;
        });
        for (const std::string& name : names) {
            WorldFile& file = world.files.emplace_back();
            file.kind = info.kind;
            file.path = joined(world.folder.string(), name);
            file.shown = joined(world.shown, name);
        }
    }
}

// A reading thread.  Linux starts a new thread on the core that made it,
// which is busy reading too, and moves it to an idle core only milliseconds
// later: each starts on another core, then may take any.
class Reader {
public:
    explicit Reader(std::function<void()> run) : run_(std::move(run)) {
#if defined(__linux__)
        cpu_set_t all, others;
        const int here = sched_getcpu();
        if (here >= 0 && sched_getaffinity(0, sizeof all, &all) == 0) {
            others = all;
            CPU_CLR(here, &others);
            pthread_attr_t attributes;
            if (CPU_COUNT(&others) > 0 && pthread_attr_init(&attributes) == 0) {
                all_ = all;
                const bool started =
                    pthread_attr_setaffinity_np(&attributes, sizeof others, &others) == 0 &&
                    pthread_create(&thread_, &attributes, &Reader::start, this) == 0;
                pthread_attr_destroy(&attributes);
                if (started) {
                    native_ = true;
                    return;
                }
            }
        }
#endif
        std_ = std::thread(run_);
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() {
#if defined(__linux__)
        if (native_) {
            pthread_join(thread_, nullptr);
            return;
        }
#endif
        std_.join();
    }

private:
#if defined(__linux__)
    static void* start(void* self) {
        auto* reader = static_cast<Reader*>(self);
        pthread_setaffinity_np(pthread_self(), sizeof reader->all_, &reader->all_);
        reader->run_();
        return nullptr;
    }
    pthread_t thread_{};
    cpu_set_t all_{};
    bool native_ = false;
#endif
    std::function<void()> run_;
    std::thread std_;
};

// The threads that read a world's files.  One is started before the files
// are listed, so that its start and its first tables are paid while the
// folder is listed; a large world gets one a core.
class ReadingPool {
public:
    explicit ReadingPool(World& world) : world_(world) {
        if (cores() > 1)
            start();
    }
    ReadingPool(const ReadingPool&) = delete;
    ReadingPool& operator=(const ReadingPool&) = delete;
    ~ReadingPool() { release(false); }

    // Each file the world lists, read: what it holds for the world, by
    // its place in the list.
    std::vector<FileContents> readAll() {
        contents_.resize(world_.files.size());
        release(true);
        // A thread more for each few dozen files: below that, starting one
        // and waiting for it costs more than it saves.
        constexpr std::size_t kFilesPerThread = 64;
        const std::size_t wanted = std::min(cores(), world_.files.size() / kFilesPerThread + 1) - 1;
        while (workers_.size() < wanted)
            start();
        work();
        workers_.clear(); // each joined
        return std::move(contents_);
    }

private:
    static std::size_t cores() { return std::max(1u, std::thread::hardware_concurrency()); }
    void start() {
        workers_.push_back(std::make_unique<Reader>([this] {
            warmUp();
            if (waitForFiles())
                work();
        }));
    }
    // The tables a thread reads into, made while it waits.
    static void warmUp() {
        try {
            threadTable<RoomKind::File>();
            threadTable<MobileKind::File>();
            threadTable<ObjectKind::File>();
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
    void work() {
        for (std::size_t i; (i = next_++) < world_.files.size();) {
            WorldFile& file = world_.files[i];
            if (file.isIndex)
                continue;
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
    std::vector<FileContents> contents_;
    std::atomic<int> state_{kListing};
    std::atomic<std::size_t> next_{0};
    std::vector<std::unique_ptr<Reader>> workers_;
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

World loadWorld(const fs::path& folder, std::string_view shown) {
    World world;
    world.folder = folder;
    world.shown = shown.empty() ? folder.string() : std::string(shown);
    world.layout = layoutOf(folder);
    std::array<bool, kWorldKinds> missing{};
    ReadingPool readers(world);
    if (world.layout == WorldLayout::Server)
        listServerFiles(world, missing);
    else
        listFlatFiles(world);

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
