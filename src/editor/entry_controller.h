#pragma once
// The one list controller of the list dialogs (extra descriptions, affects)
// and of the shop editor's lists: it runs Add, Update, Edit, Remove and
// Remove All on a list (a slot list or a vector) of the record shown, under the
// rules of widgets/entry_list.h, and the dialog supplies its fields' side:
// whether they hold an entry to store, the fields as an entry, an entry
// into the fields, their emptying, and an entry's line in the list.  Insert
// before, Move Up and Move Down belong here when a list needs them.

#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <vector>

#include "editor/shown.h"
#include "widgets/entry_list.h"
#include "world/slot_list.h"

namespace marl {

// The fields' side of a list dialog, for entries of type Entry.
template <typename Entry> struct EntryFields {
    std::function<bool()> ready;                        // the fields hold an entry to store
    std::function<Entry()> read;                        // the fields as an entry
    std::function<void(const Entry&)> show;             // an entry into the fields
    std::function<void()> clear;                        // the fields emptied
    std::function<QString(const Entry&)> line;          // an entry's line in the list
    std::function<void(int line)> editing = [](int) {}; // the line edited, shown or moved
    std::function<void()> added = [] {};                // after an Add (the focus)
    std::function<void()> updated = [] {};              // after an Update
    // Whether Add may append to a list of `count` entries; one that may not
    // says why to the builder (a limit of the file's form).
    std::function<bool(std::size_t count)> mayAdd = [](std::size_t) { return true; };
};

// The two kinds of lists a record holds: its fixed slots, and a vector.
template <typename T, std::size_t N> std::size_t entryCount(const SlotList<T, N>& entries) {
    return entries.count();
}
template <typename T> std::size_t entryCount(const std::vector<T>& entries) {
    return entries.size();
}
template <typename T, std::size_t N> T& appendEntry(SlotList<T, N>& entries) {
    return entries.append();
}
template <typename T> T& appendEntry(std::vector<T>& entries) {
    return entries.emplace_back();
}
template <typename T> void removeEntry(std::vector<T>& entries, int line) {
    if (line >= 0 && std::size_t(line) < entries.size())
        entries.erase(entries.begin() + line);
}

// Runs a list's commands (see above) on the list `entries` of the record
// shown, at most `limit` entries.  `changed` is the dialog's mark of fields
// changed and not stored; `stored` tells the owner.
template <typename Entry, typename Entries> class EntryListController {
public:
    EntryListController(QListWidget* list, const EntryCommands& commands, EntryFields<Entry> fields,
                        std::size_t limit, bool& changed, std::function<void()> stored)
        : list_(list), commands_(commands), fields_(std::move(fields)), limit_(limit),
          changed_(changed), stored_(std::move(stored)) {
        lines_ = new EntryList(list, commands, [this] { edit(); });
        QObject::connect(commands.add, &QPushButton::clicked, list, [this] { add(); });
        QObject::connect(commands.update, &QPushButton::clicked, list, [this] { update(); });
        QObject::connect(commands.edit, &QPushButton::clicked, list, [this] { edit(); });
        QObject::connect(commands.remove, &QPushButton::clicked, list, [this] { remove(); });
        QObject::connect(commands.removeAll, &QPushButton::clicked, list, [this] { removeAll(); });
    }

    // Lists the entries in use of the record shown, the fields emptied.
    void setup(Shown<Entries> entries) {
        entries_ = std::move(entries);
        QStringList lines;
        for (std::size_t i = 0; i < entryCount(*entries_); ++i)
            lines.append(fields_.line((*entries_)[i]));
        lines_->fill(lines);
        clear();
    }
    // Each line made again from its entry (names learnt since), the
    // selection and an edit going on.
    void relabel() {
        for (int i = 0; i < count() && i < list_->count(); ++i)
            list_->item(i)->setText(fields_.line((*entries_)[std::size_t(i)]));
    }
    int count() const { return entries_ ? static_cast<int>(entryCount(*entries_)) : 0; }
    bool editing() const { return lines_->editing(); }
    EntryList& lines() { return *lines_; }

    // The fields emptied and the edit ended: what is typed next is a new
    // entry.
    void clear() {
        lines_->endEdit();
        for (QPushButton* push :
             {commands_.add, commands_.update, commands_.edit, commands_.remove})
            push->setEnabled(false);
        commands_.removeAll->setEnabled(count() > 0);
        fields_.clear();
    }
    // The fields changed: Add and Update as `ready` says they may store.
    void refresh(bool ready) {
        commands_.add->setEnabled(ready && !editing() && std::size_t(count()) < limit_);
        commands_.update->setEnabled(ready && editing());
    }

    void edit() {
        const int line = lines_->beginEdit();
        if (line < 0)
            return;
        fields_.show((*entries_)[std::size_t(line)]);
        fields_.editing(line);
        refresh(fields_.ready());
        changed_ = false;
    }
    void add() {
        const std::size_t at = entryCount(*entries_);
        if (!fields_.ready() || editing() || at >= limit_ || !fields_.mayAdd(at))
            return;
        appendEntry(*entries_) = fields_.read();
        list_->addItem(fields_.line((*entries_)[at]));
        settle();
        fields_.added();
    }
    void update() {
        const int line = lines_->editedLine();
        if (line < 0 || !fields_.ready())
            return; // no entry being edited: nothing is stored
        Entry& entry = (*entries_)[std::size_t(line)];
        entry = fields_.read();
        clear();
        lines_->setLine(line, fields_.line(entry));
        changed_ = false;
        fields_.updated();
        stored_();
    }
    // The entries after the one removed move up a place, so the file keeps
    // their order; an edit of another entry goes on with what is typed.
    void remove() {
        const int line = lines_->selectedLine();
        if (line < 0)
            return;
        removeEntry(*entries_, line);
        if (lines_->removeLine(line)) {
            commands_.edit->setEnabled(false);
            commands_.remove->setEnabled(false);
            fields_.editing(lines_->editedLine());
            stored_();
            return;
        }
        settle();
    }
    void removeAll() {
        entries_->clear();
        lines_->removeAll();
        settle();
    }

private:
    void settle() {
        clear();
        changed_ = false;
        stored_();
    }

    QListWidget* list_;
    EntryCommands commands_;
    EntryFields<Entry> fields_;
    std::size_t limit_;
    bool& changed_;
    std::function<void()> stored_;
    EntryList* lines_ = nullptr;
    Shown<Entries> entries_;
};

// The controller of a record's slot list.
template <typename Entry, std::size_t N>
using EntryController = EntryListController<Entry, SlotList<Entry, N>>;

} // namespace marl
