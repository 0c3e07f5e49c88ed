#pragma once
// The names of the records of the world a zone file lies in, for the VNum
// fields that name another record: the server's lib/world layout found from
// zon/30.zon (wld/30.wld ...), or the file's own folder of zone files.  The
// world is read once by loadWorld on a worker thread, so that an editor
// opens at once and its names appear when the world is loaded, and is
// shared by every window of that world.  The file's own zone is read too
// when its folder's index does not list it yet: a new zone being built
// sees its own records.
//
// A loaded world is never changed: reload() reads a new one and swaps it in
// on the UI thread, the old one answering until then.

#include <QLabel>
#include <QObject>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "kinds/world_model.h"

class QLineEdit;

namespace marl {

class WorldNames : public QObject {
    Q_OBJECT
public:
    // The names of the world of the zone file at `path`, shared with every
    // other window of that world; starts loading it the first time.
    static std::shared_ptr<WorldNames> forFile(const QString& path);
    ~WorldNames() override;

    // Whether the latest load (or reload) has finished.
    bool isReady() const { return ready_; }
    // Whether a world has been loaded, now or before a reload under way.
    bool hasWorld() const { return loaded_ != nullptr; }
    // The record's name, or nothing (while loading, or no such record).
    std::optional<std::string> name(WorldKind kind, std::int32_t vnum) const;
    // That kind's records of the whole world, (VNum, name), in VNum order.
    std::vector<std::pair<std::int32_t, std::string>> listing(WorldKind kind) const;
    // Reads the world again: after a Save wrote a file of it.
    void reload();
    // The world loaded (the one before a reload under way), or null: for
    // what needs more than names, such as a room's exits.  Records of the
    // file's own zone that the world's index does not list are not in it.
    const World* world() const;
    const std::filesystem::path& folder() const { return folder_; }
    struct Loaded; // what one load read

signals:
    void ready(); // loading finished (also after reload)

private:
    explicit WorldNames(std::filesystem::path folder);
    // Reads the file's own zone too; true when it was not read before.
    bool addZone(std::int32_t zone);

    std::filesystem::path folder_;
    std::set<std::int32_t> zones_; // the zones of the files that asked
    std::shared_ptr<const Loaded> loaded_;
    unsigned loads_ = 0; // the latest load; an older one finishing is dropped
    bool ready_ = false;
};

// A label beside a VNum field: the record's name as the builder types, "no
// such room" / "no such mobile" / "no such object" once the world is loaded
// and has none, empty while loading, while the field is empty or names
// nothing (-1), or while it has no world (`names` null: a window not yet on
// a file).  A long name is elided; its whole text is the tooltip.
class VNumNameLabel : public QLabel {
    Q_OBJECT
public:
    VNumNameLabel(QLineEdit* field, WorldKind kind, std::shared_ptr<WorldNames> names,
                  QWidget* parent);
    // The world of the file the window now edits.
    void setNames(std::shared_ptr<WorldNames> names);
    // The name (or "no such room") the label stands for, unelided.
    const QString& fullText() const { return full_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void update();
    void elide();

    QLineEdit* field_;
    WorldKind kind_;
    std::shared_ptr<WorldNames> names_;
    QString full_;
};

// The pick button's list: that kind's records of the world by VNum and name,
// narrowed as the builder types in the search field above it; Enter or a
// double click picks, and `current` is selected when it is shown.  Returns
// the chosen VNum, or nothing when the builder cancels.
std::optional<std::int32_t> pickRecord(QWidget* parent, WorldNames& names, WorldKind kind,
                                       std::int32_t current);
// The same list without waiting for it: modal to `parent`'s window, it runs
// `picked` with the VNum chosen and deletes itself when it closes.  The
// editors' buttons use this one, so that nothing holds up their event loop.
void showRecordPick(QWidget* parent, std::shared_ptr<WorldNames> names, WorldKind kind,
                    std::int32_t current, std::function<void(std::int32_t)> picked);

} // namespace marl
