// The pick list of a VNum field's button: every record of a kind in the
// world, by VNum and name, narrowed as the builder types.

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "editor/world_names.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

namespace {

// The records as lines "  3001  The Temple Of Midgaard", those holding the
// search text (in any case) shown.
class RecordListModel : public QAbstractListModel {
public:
    void setRecords(const std::vector<std::pair<std::int32_t, std::string>>& records) {
        beginResetModel();
        vnums_.clear();
        lines_.clear();
        folded_.clear();
        for (const auto& [vnum, name] : records) {
            vnums_.push_back(vnum);
            lines_.push_back(QStringLiteral("%1  %2").arg(vnum, 6).arg(fromBytes(name)));
            folded_.push_back(lines_.back().toCaseFolded());
        }
        filterRows();
        endResetModel();
    }
    void setSearch(const QString& search) {
        beginResetModel();
        search_ = search.trimmed().toCaseFolded();
        filterRows();
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(shown_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid())
            return {};
        return lines_[shown_[static_cast<std::size_t>(index.row())]];
    }
    std::int32_t vnumAt(int row) const { return vnums_[shown_[static_cast<std::size_t>(row)]]; }
    int rowOf(std::int32_t vnum) const {
        for (std::size_t row = 0; row < shown_.size(); ++row)
            if (vnums_[shown_[row]] == vnum)
                return static_cast<int>(row);
        return -1;
    }

private:
    void filterRows() {
        shown_.clear();
        for (std::size_t i = 0; i < lines_.size(); ++i)
            if (search_.isEmpty() || folded_[i].contains(search_))
                shown_.push_back(i);
    }

    std::vector<std::int32_t> vnums_;
    std::vector<QString> lines_, folded_;
    std::vector<std::size_t> shown_;
    QString search_;
};

class RecordPick : public QDialog {
public:
    RecordPick(QWidget* parent, WorldNames& names, WorldKind kind, std::int32_t current)
        : QDialog(parent), names_(names), kind_(kind), current_(current) {
        const QString noun = QLatin1String(kindInfo(kind).one);
        const QString title = noun.left(1).toUpper() + noun.mid(1);
        setObjectName(QStringLiteral("formPick") + title);
        setWindowTitle(QStringLiteral("Pick a %1").arg(title));

        search_ = ui::named(new QLineEdit(this), "textSearch");
        search_->setPlaceholderText(QStringLiteral("VNum or words of the name"));
        auto* caption = ui::named(new QLabel(QStringLiteral("&Search:"), this), "labelSearch");
        caption->setBuddy(search_);
        list_ = ui::named(new QListView(this), "listRecords");
        list_->setModel(&model_);
        list_->setFont(fixedFont());
        list_->setUniformItemSizes(true);
        list_->setMinimumSize(ui::widthForColumns(list_, 50), list_->fontMetrics().height() * 16);
        status_ = ui::named(new QLabel(this), "labelStatus");
        auto* pick = ui::button(this, "buttonPick", "Pick", 'p');
        auto* cancel = ui::button(this, "buttonCancel", "Cancel", 'c');

        auto* layout = new QVBoxLayout(this);
        auto* searchRow = new QHBoxLayout;
        searchRow->addWidget(caption);
        searchRow->addWidget(search_, 1);
        layout->addLayout(searchRow);
        layout->addWidget(list_, 1);
        layout->addWidget(status_);
        layout->addLayout(ui::commandRow({}, {pick, cancel}));
        ui::tabChain({search_, list_, pick, cancel});

        connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
            model_.setSearch(text);
            selectRow(model_.rowOf(current_) >= 0 ? model_.rowOf(current_) : 0);
        });
        connect(search_, &QLineEdit::returnPressed, this, &RecordPick::pickCurrent);
        connect(list_, &QListView::doubleClicked, this, &RecordPick::pickCurrent);
        connect(pick, &QPushButton::clicked, this, &RecordPick::pickCurrent);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        connect(&names_, &WorldNames::ready, this, &RecordPick::fill);
        search_->installEventFilter(this);
        list_->installEventFilter(this);
        fill();
        search_->setFocus();
    }
    std::optional<std::int32_t> picked() const { return picked_; }

protected:
    // Up, Down and the page keys in the search field move through the list;
    // Enter in the list picks.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == search_ && (key == Qt::Key_Up || key == Qt::Key_Down ||
                                   key == Qt::Key_PageUp || key == Qt::Key_PageDown)) {
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
        if (watched == list_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            pickCurrent();
            return true;
        }
        return false;
    }

private:
    void fill() {
        model_.setRecords(names_.listing(kind_));
        const int count = model_.rowCount();
        status_->setText(
            !names_.hasWorld() ? QStringLiteral("Reading the world...")
            : count == 0
                ? QStringLiteral("The world has no %1.").arg(QLatin1String(kindInfo(kind_).many))
                : QString());
        selectRow(model_.rowOf(current_) >= 0 ? model_.rowOf(current_) : 0);
    }
    void selectRow(int row) {
        if (row < 0 || row >= model_.rowCount())
            return;
        const QModelIndex index = model_.index(row);
        list_->setCurrentIndex(index);
        list_->scrollTo(index, QAbstractItemView::PositionAtCenter);
    }
    void pickCurrent() {
        const QModelIndex index = list_->currentIndex();
        if (!index.isValid())
            return;
        picked_ = model_.vnumAt(index.row());
        accept();
    }

    WorldNames& names_;
    WorldKind kind_;
    std::int32_t current_;
    RecordListModel model_;
    QLineEdit* search_ = nullptr;
    QListView* list_ = nullptr;
    QLabel* status_ = nullptr;
    std::optional<std::int32_t> picked_;
};

} // namespace

std::optional<std::int32_t> pickRecord(QWidget* parent, WorldNames& names, WorldKind kind,
                                       std::int32_t current) {
    RecordPick pick(parent, names, kind, current);
    pick.exec();
    return pick.picked();
}

} // namespace marl
