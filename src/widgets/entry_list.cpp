#include "widgets/entry_list.h"

#include <QListWidget>
#include <QPushButton>

#include "widgets/qt_widgets.h"

namespace marl {

EntryList::EntryList(QListWidget* list, QPushButton* edit, QPushButton* remove,
                     const std::function<void()>& onEdit)
    : QObject(list), list_(list), edit_(edit), remove_(remove) {
    connect(list_, &QListWidget::itemSelectionChanged, this, &EntryList::onClicked);
    connect(list_, &QListWidget::itemClicked, this, &EntryList::onClicked);
    connect(list_, &QListWidget::itemDoubleClicked, this, [onEdit] { onEdit(); });
    ui::editOnEnter(list_, onEdit);
}

int EntryList::selectedLine() const {
    const QList<QListWidgetItem*> selected = list_->selectedItems();
    return selected.size() == 1 ? list_->row(selected.first()) : -1;
}

void EntryList::fill(const QStringList& lines) {
    quietly([&] {
        list_->clear();
        list_->addItems(lines);
    });
}

void EntryList::removeLine(int line) {
    quietly([&] {
        delete list_->takeItem(line);
        list_->clearSelection();
    });
}

void EntryList::removeAll() {
    quietly([&] { list_->clear(); });
}

void EntryList::clearSelection() {
    quietly([&] { list_->clearSelection(); });
}

void EntryList::onClicked() {
    if (quiet_)
        return;
    const bool one = selectedLine() >= 0;
    edit_->setEnabled(one);
    remove_->setEnabled(one);
}

void EntryList::quietly(const std::function<void()>& change) {
    quiet_ = true;
    change();
    quiet_ = false;
}

} // namespace marl
