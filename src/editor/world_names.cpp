#include "editor/world_names.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QThread>
#include <algorithm>
#include <map>
#include <string_view>

#include "widgets/qt_text.h"
#include "world/zone.h"

#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace marl {

// A world read, with the records of the files' own zones its indexes do not
// list (each kind's in VNum order).
struct WorldNames::Loaded {
    World world;
    std::array<std::vector<WorldRecord>, kWorldKinds> own;
};

namespace {

fs::path toPath(const QString& path) {
#ifdef _WIN32
    return fs::path(path.toStdWString());
#else
    return fs::path(QFile::encodeName(path).toStdString());
#endif
}

// The worlds open now, by folder.
std::map<fs::path, std::weak_ptr<WorldNames>>& openWorlds() {
    static std::map<fs::path, std::weak_ptr<WorldNames>> worlds;
    return worlds;
}

// The threads still reading a world, waited for as the application ends so
// that none outlives what it reads with.
std::set<QThread*>& readers() {
    static std::set<QThread*> threads;
    return threads;
}

void waitForReaders() {
    for (QThread* thread : readers())
        thread->wait();
}

// The reading yields to the window (and its first paint) on a busy machine
// without waiting for it to be idle.  Elsewhere LowPriority does this; on
// Linux a thread's niceness does, and the threads loadWorld starts inherit it.
// It also leaves one core to the windows (ReadingCores::AllButOne): a core
// shared with a reading thread, however low its priority, paints later.
void lowerPriority() {
#ifdef __linux__
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), 5);
#endif
}

bool lessByVNum(const WorldRecord& a, const WorldRecord& b) {
    return a.vnum < b.vnum;
}

// Runs on a worker thread.
std::shared_ptr<const WorldNames::Loaded> loadNames(const fs::path& folder,
                                                    const std::set<std::int32_t>& zones) {
    auto loaded = std::make_shared<WorldNames::Loaded>();
    loaded->world = loadWorld(folder, {}, ReadingCores::AllButOne);
    for (const WorldFile& index : loaded->world.files) {
        if (!index.isIndex)
            continue;
        const WorldKindInfo& info = kindInfo(index.kind);
        auto& own = loaded->own[static_cast<std::size_t>(index.kind)];
        for (const std::int32_t zone : zones) {
            const std::string name = zoneFileName(zone, info.extension);
            if (std::find(index.unlisted.begin(), index.unlisted.end(), name) ==
                index.unlisted.end())
                continue;
            std::vector<WorldRecord> records =
                readWorldRecords(index.path.parent_path() / name, index.kind);
            own.insert(own.end(), records.begin(), records.end());
        }
        std::stable_sort(own.begin(), own.end(), lessByVNum);
    }
    return loaded;
}

} // namespace

std::shared_ptr<WorldNames> WorldNames::forFile(const QString& path) {
    const fs::path file = toPath(QFileInfo(path).absoluteFilePath());
    std::error_code ec;
    fs::path folder = fs::weakly_canonical(worldFolderOf(file), ec);
    if (ec)
        folder = worldFolderOf(file);
    const std::optional<std::int32_t> zone = zoneFromFileName(file.filename().string());

    auto& worlds = openWorlds();
    std::erase_if(worlds, [](const auto& entry) { return entry.second.expired(); });
    if (auto it = worlds.find(folder); it != worlds.end()) {
        std::shared_ptr<WorldNames> names = it->second.lock();
        // Another zone of a world in the server's layout: its files may be
        // missing from the indexes, so they are read with the world.
        if (zone && names->addZone(*zone) && layoutOf(names->folder_) == WorldLayout::Server)
            names->reload();
        return names;
    }
    std::shared_ptr<WorldNames> names(new WorldNames(folder));
    if (zone)
        names->addZone(*zone);
    worlds[folder] = names;
    names->reload();
    return names;
}

WorldNames::WorldNames(fs::path folder) : folder_(std::move(folder)) {}

// A load under way finishes on its own and is dropped.
WorldNames::~WorldNames() = default;

bool WorldNames::addZone(std::int32_t zone) {
    return zones_.insert(zone).second;
}

void WorldNames::reload() {
    const unsigned load = ++loads_;
    ready_ = false;
    auto result = std::make_shared<std::shared_ptr<const Loaded>>();
    QThread* thread = QThread::create([result, folder = folder_, zones = zones_] {
        lowerPriority();
        try {
            *result = loadNames(folder, zones);
        } catch (const std::exception&) { // memory ran out: no names
            *result = std::make_shared<Loaded>();
        }
    });
    // The thread's end is handed to this object's thread, after the thread
    // wrote its result.
    connect(thread, &QThread::finished, this, [this, result, load] {
        if (load != loads_)
            return;
        loaded_ = *result;
        ready_ = true;
        emit ready();
    });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    static const bool waits = (qAddPostRoutine(waitForReaders), true);
    (void)waits;
    readers().insert(thread);
    QObject::connect(thread, &QObject::destroyed, [thread] { readers().erase(thread); });
    thread->start(QThread::LowPriority);
}

const World* WorldNames::world() const {
    return loaded_ ? &loaded_->world : nullptr;
}

std::optional<std::string> WorldNames::name(WorldKind kind, std::int32_t vnum) const {
    if (!loaded_)
        return std::nullopt;
    if (const WorldRecord* record = loaded_->world.find(kind, vnum))
        return record->name;
    const auto& own = loaded_->own[static_cast<std::size_t>(kind)];
    const auto it =
        std::lower_bound(own.begin(), own.end(), WorldRecord{vnum, 0, 0, {}}, lessByVNum);
    if (it != own.end() && it->vnum == vnum)
        return it->name;
    return std::nullopt;
}

std::vector<std::pair<std::int32_t, std::string>> WorldNames::listing(WorldKind kind) const {
    std::vector<std::pair<std::int32_t, std::string>> list;
    if (!loaded_)
        return list;
    const std::vector<const WorldRecord*> world = loaded_->world.listing(kind);
    const auto& own = loaded_->own[static_cast<std::size_t>(kind)];
    list.reserve(world.size() + own.size());
    auto w = world.begin();
    auto o = own.begin();
    while (w != world.end() || o != own.end()) {
        const bool fromWorld = o == own.end() || (w != world.end() && (*w)->vnum <= o->vnum);
        const WorldRecord& record = fromWorld ? **w++ : *o++;
        list.emplace_back(record.vnum, record.name);
    }
    return list;
}

// ---- The label beside a VNum field -----------------------------------------

VNumNameLabel::VNumNameLabel(QLineEdit* field, WorldKind kind, std::shared_ptr<WorldNames> names,
                             QWidget* parent)
    : QLabel(parent), field_(field), kind_(kind) {
    setTextFormat(Qt::PlainText);
    connect(field_, &QLineEdit::textChanged, this, &VNumNameLabel::update);
    setNames(std::move(names));
}

void VNumNameLabel::setNames(std::shared_ptr<WorldNames> names) {
    if (names_)
        disconnect(names_.get(), nullptr, this, nullptr);
    names_ = std::move(names);
    if (names_)
        connect(names_.get(), &WorldNames::ready, this, &VNumNameLabel::update);
    update();
}

void VNumNameLabel::update() {
    QString shown;
    bool number = false;
    const int vnum = field_->text().trimmed().toInt(&number);
    if (names_ && number && vnum >= 0) {
        if (const std::optional<std::string> name = names_->name(kind_, vnum))
            shown = fromBytes(*name);
        else if (names_->hasWorld())
            shown = QStringLiteral("no such %1").arg(QLatin1String(kindInfo(kind_).one));
    }
    full_ = shown;
    setToolTip(shown);
    elide();
}

void VNumNameLabel::elide() {
    setText(fontMetrics().elidedText(full_, Qt::ElideRight, std::max(0, contentsRect().width())));
}

void VNumNameLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    elide();
}

// The label takes the room its layout gives it and never widens a window.
QSize VNumNameLabel::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 24, fontMetrics().height()};
}

QSize VNumNameLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
}

} // namespace marl
