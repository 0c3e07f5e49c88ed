#pragma once
// The names of the records of the world a zone file lies in (the server's
// lib/world layout found from zon/30.zon, wld/30.wld ...; or the file's own
// folder of zone files), read once on a worker thread by loadWorld, shared
// by every window of that world.

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kinds/world_model.h"

class QLineEdit;

namespace marl {

class WorldNames : public QObject {
    Q_OBJECT
public:
    // Starts loading the world of `path`'s file.
    static std::shared_ptr<WorldNames> forFile(const QString& path);
    ~WorldNames() override;
    bool isReady() const { return world_ != nullptr; }
    // The record's name, or nothing (while loading, or no such record).
    std::optional<std::string> name(WorldKind kind, std::int32_t vnum) const;
    // That kind's records of the whole world, (VNum, name), in VNum order.
    std::vector<std::pair<std::int32_t, std::string>> listing(WorldKind kind) const;
    // The world itself once loaded (null before), for what needs more than
    // names (a room's exits).
    const World* world() const { return world_.get(); }
    // Waits for the loading to finish.
    void waitReady();
    void reload(); // after a Save wrote a file of this world

signals:
    void ready(); // loading finished (also after reload)

private:
    explicit WorldNames(std::filesystem::path folder);
    void start();
    void take();

    std::filesystem::path folder_;
    std::shared_ptr<const World> world_;
    std::future<std::shared_ptr<const World>> loading_;
};

// A label beside a VNum field: the record's name as the builder types, "no
// such room" / "no such mobile" / "no such object" once the world is loaded
// and has none, empty while loading or while the field is empty.
class VNumNameLabel : public QLabel {
    Q_OBJECT
public:
    VNumNameLabel(QLineEdit* field, WorldKind kind, std::shared_ptr<WorldNames> names,
                  QWidget* parent);
    void setNames(std::shared_ptr<WorldNames> names);
    void setKind(WorldKind kind);
    void refresh();

private:
    QPointer<QLineEdit> field_;
    WorldKind kind_;
    std::shared_ptr<WorldNames> names_;
    QMetaObject::Connection readyConnection_;
};

// The pick button's list: that kind's records of the world by VNum and
// name, narrowed as the builder types (a search field above the list);
// returns the chosen VNum.
std::optional<std::int32_t> pickRecord(QWidget* parent, WorldNames& names, WorldKind kind,
                                       std::int32_t current);

} // namespace marl
