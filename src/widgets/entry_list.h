#pragma once
// The list of a dialog that edits a record's entries one line each (the
// extra descriptions, the affects, and the lists to come), and its
// commands; EntryController (src/editor/entry_controller.h) runs them on a
// slot list of the record shown.  The rules:
// - clicking a line enables Edit and Remove, a double click or Enter edits;
// - Edit loads the line selected into the fields: the line being edited;
// - Update writes back in place, into the line Edit loaded, whichever line
//   is selected when it is pressed;
// - a line removed above the one edited moves it up one, and removing the
//   line edited ends the edit (the fields keep what is typed);
// - Add appends, refused at the list's limit and while a line is edited;
// - each command goes into the record at once and is told to the owner.

#include <QObject>
#include <QStringList>
#include <cstddef>
#include <functional>

#include "world/slot_list.h"

class QHBoxLayout;
class QListWidget;
class QPushButton;
class QWidget;

namespace marl {

// The commands of a list dialog, with the names its scripts find them by
// and their access keys.
struct EntryCommands {
    // Made on `dialog`.  Done is the default button: Enter in a field closes
    // as Done does, which says so while what is typed is not stored yet.
    static EntryCommands make(QWidget* dialog);

    // Along the bottom: the list's commands from the left, Cancel and Done
    // at the right.
    QHBoxLayout* row() const;
    // The commands in the order Tab takes them, after the dialog's fields.
    QList<QWidget*> tabOrder() const;

    QPushButton* add = nullptr;
    QPushButton* update = nullptr;
    QPushButton* edit = nullptr;
    QPushButton* remove = nullptr;
    QPushButton* removeAll = nullptr;
    QPushButton* clearAll = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* done = nullptr;
};

class EntryList : public QObject {
public:
    // Owned by `list`, so it lives as long as the list does.
    EntryList(QListWidget* list, const EntryCommands& commands,
              const std::function<void()>& onEdit);

    // The one line selected, or -1.
    int selectedLine() const;
    // The selected line becomes the line being edited (another edit ends);
    // returns it, or -1 with nothing selected (the edit then goes on).
    int beginEdit();
    // The line being edited, or -1.
    int editedLine() const { return edited_; }
    bool editing() const { return edited_ >= 0; }
    void endEdit() { edited_ = -1; }
    // Line `line` shows `text` and is selected, as a click selects it.
    void setLine(int line, const QString& text);
    // The lines replaced by `lines`; an edit ends.
    void fill(const QStringList& lines);
    // Removes a line.  The line being edited keeps its entry, moving up one
    // when a line above it goes; removing it ends the edit.  Returns whether
    // an edit goes on.
    bool removeLine(int line);
    void removeAll();
    void clearSelection();

private:
    void onClicked();
    // Runs a change the dialog makes to the list without the click's
    // enabling.
    void quietly(const std::function<void()>& change);

    QListWidget* list_;
    QPushButton* edit_;
    QPushButton* remove_;
    int edited_ = -1;
    bool quiet_ = false;
};

// Entry `line` of those in use leaves `entries`: the ones after it move up a
// slot, so the file keeps their order, and the slot freed at the end returns
// to the cleared entry.
template <typename T, std::size_t N> void removeEntry(SlotList<T, N>& entries, int line) {
    const std::size_t count = entries.count();
    const auto removed = static_cast<std::size_t>(line);
    if (line < 0 || removed >= count)
        return;
    T& last = entries[count - 1]; // stores every slot before it: the moves below add none
    for (std::size_t slot = removed; slot + 1 < count; ++slot)
        entries[slot] = std::move(entries[slot + 1]);
    last = T{};
    entries.setCount(count - 1);
}

} // namespace marl
