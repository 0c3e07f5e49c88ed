#include "editor/world_names.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

std::shared_ptr<WorldNames> WorldNames::forFile(const QString& path) {
    std::shared_ptr<WorldNames> names(new WorldNames(
        worldFolderOf(std::filesystem::path(QFile::encodeName(path).toStdString()))));
    names->start();
    return names;
}

WorldNames::WorldNames(std::filesystem::path folder) : folder_(std::move(folder)) {}

WorldNames::~WorldNames() {
    if (loading_.valid())
        loading_.wait();
}

void WorldNames::start() {
    loading_ = std::async(std::launch::async, [folder = folder_] {
        return std::shared_ptr<const World>(std::make_shared<World>(loadWorld(folder)));
    });
    // Polled from the window's thread, so that ready() comes there.
    auto* poll = new QTimer(this);
    poll->setInterval(5);
    connect(poll, &QTimer::timeout, this, [this, poll] {
        if (loading_.valid() &&
            loading_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
            poll->deleteLater();
            take();
        }
    });
    poll->start();
}

void WorldNames::take() {
    if (!loading_.valid())
        return;
    world_ = loading_.get();
    emit ready();
}

void WorldNames::waitReady() {
    if (!world_)
        take();
}

void WorldNames::reload() {
    waitReady();
    world_.reset();
    start();
}

std::optional<std::string> WorldNames::name(WorldKind kind, std::int32_t vnum) const {
    if (!world_)
        return std::nullopt;
    const WorldRecord* record = world_->find(kind, vnum);
    return record ? std::optional<std::string>(record->name) : std::nullopt;
}

std::vector<std::pair<std::int32_t, std::string>> WorldNames::listing(WorldKind kind) const {
    std::vector<std::pair<std::int32_t, std::string>> records;
    if (world_)
        for (const WorldRecord* record : world_->listing(kind))
            records.emplace_back(record->vnum, record->name);
    return records;
}

// ---- The label beside a VNum field -------------------------------------------

VNumNameLabel::VNumNameLabel(QLineEdit* field, WorldKind kind, std::shared_ptr<WorldNames> names,
                             QWidget* parent)
    : QLabel(parent), field_(field), kind_(kind) {
    connect(field, &QLineEdit::textChanged, this, &VNumNameLabel::refresh);
    setNames(std::move(names));
}

void VNumNameLabel::setNames(std::shared_ptr<WorldNames> names) {
    disconnect(readyConnection_);
    names_ = std::move(names);
    if (names_)
        readyConnection_ = connect(names_.get(), &WorldNames::ready, this, &VNumNameLabel::refresh);
    refresh();
}

void VNumNameLabel::setKind(WorldKind kind) {
    kind_ = kind;
    refresh();
}

void VNumNameLabel::refresh() {
    const std::optional<std::int32_t> vnum = field_ ? fieldNumber(field_) : std::nullopt;
    if (!vnum || !names_ || !names_->isReady()) {
        clear();
        return;
    }
    const std::optional<std::string> name = names_->name(kind_, *vnum);
    setText(name ? fromBytes(*name)
                 : QStringLiteral("no such %1").arg(QString::fromLatin1(kindInfo(kind_).one)));
}

// ---- The pick list -----------------------------------------------------------

std::optional<std::int32_t> pickRecord(QWidget* parent, WorldNames& names, WorldKind kind,
                                       std::int32_t current) {
    names.waitReady();
    QDialog dialog(parent);
    const QString one = QString::fromLatin1(kindInfo(kind).one);
    dialog.setObjectName(QStringLiteral("formPickRecord"));
    dialog.setWindowTitle(QStringLiteral("Pick a %1").arg(one));
    auto* search = new QLineEdit(&dialog);
    search->setObjectName(QStringLiteral("textSearch"));
    search->setPlaceholderText(QStringLiteral("Type part of a VNum or name"));
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("listRecords"));
    const auto records = names.listing(kind);
    for (const auto& [vnum, name] : records) {
        auto* item = new QListWidgetItem(QString::number(vnum) + "  " + fromBytes(name), list);
        item->setData(Qt::UserRole, vnum);
        if (vnum == current)
            list->setCurrentItem(item);
    }
    QObject::connect(search, &QLineEdit::textChanged, list, [list](const QString& text) {
        for (int row = 0; row < list->count(); ++row)
            list->item(row)->setHidden(
                !list->item(row)->text().contains(text, Qt::CaseInsensitive));
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(search);
    layout->addWidget(list);
    layout->addWidget(buttons);
    dialog.resize(420, 480);
    if (dialog.exec() != QDialog::Accepted || !list->currentItem() ||
        list->currentItem()->isHidden())
        return std::nullopt;
    return list->currentItem()->data(Qt::UserRole).toInt();
}

} // namespace marl
