#include "widgets/entry_list.h"

#include <QListWidget>
#include <QPushButton>

#include "widgets/qt_widgets.h"

namespace marl {

EntryCommands EntryCommands::make(QWidget* dialog) {
    EntryCommands commands;
    commands.add = ui::button(dialog, "buttonAdd", "Add", 'a');
    commands.update = ui::button(dialog, "buttonUpdate", "Update", 'u');
    commands.edit = ui::button(dialog, "buttonEdit", "Edit", 'e');
    commands.remove = ui::button(dialog, "buttonRemove", "Remove", 'r');
    commands.removeAll = ui::button(dialog, "buttonRemoveAll", "Remove All", 'm');
    commands.clearAll = ui::button(dialog, "buttonClearAll", "Clear All", 'l');
    commands.cancel = ui::button(dialog, "buttonCancel", "Cancel", 'c');
    commands.done = ui::button(dialog, "buttonDone", "Done", 'd');
    commands.done->setDefault(true);
    return commands;
}

QHBoxLayout* EntryCommands::row() const {
    return ui::commandRow({add, update, edit, remove, removeAll, clearAll}, {cancel, done});
}

QList<QWidget*> EntryCommands::tabOrder() const {
    return {add, update, edit, remove, removeAll, clearAll, cancel, done};
}

EntryList::EntryList(QListWidget* list, const EntryCommands& commands,
                     const std::function<void()>& onEdit)
    : QObject(list), list_(list), edit_(commands.edit), remove_(commands.remove) {
    connect(list_, &QListWidget::itemSelectionChanged, this, &EntryList::onClicked);
    connect(list_, &QListWidget::itemClicked, this, &EntryList::onClicked);
    connect(list_, &QListWidget::itemDoubleClicked, this, [onEdit] { onEdit(); });
    ui::editOnEnter(list_, onEdit);
}

int EntryList::selectedLine() const {
    const QList<QListWidgetItem*> selected = list_->selectedItems();
    return selected.size() == 1 ? list_->row(selected.first()) : -1;
}

int EntryList::beginEdit() {
    const int line = selectedLine();
    if (line >= 0)
        edited_ = line;
    return line;
}

void EntryList::setLine(int line, const QString& text) {
    if (line < 0 || line >= list_->count())
        return;
    list_->item(line)->setText(text);
    list_->setCurrentRow(line);
}

void EntryList::fill(const QStringList& lines) {
    edited_ = -1;
    quietly([&] {
        list_->clear();
        list_->addItems(lines);
    });
}

bool EntryList::removeLine(int line) {
    quietly([&] {
        delete list_->takeItem(line);
        list_->clearSelection();
    });
    if (line == edited_)
        edited_ = -1;
    else if (line < edited_)
        --edited_;
    return edited_ >= 0;
}

void EntryList::removeAll() {
    edited_ = -1;
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
