#pragma once
// The document of a file that is a table of records (rooms, mobiles,
// objects): how many records it holds and which one the window shows.
//
// The record shown is where the window's dialogs write (shown()): they
// never reach a record by its slot.  The rule that keeps their work and the
// file apart is this class's own:
// - the record shown is remembered as it was shown; discard() puts it back;
// - Save takes the record shown, with what the dialogs wrote, as the record
//   to store (pending()), puts the shown slot back as it was shown, lets the
//   window store its fields into the pending record, and places that into
//   every slot it goes to, its `Source` bytes emptied, so that the writer
//   writes it field by field;
// - Delete first puts the record shown back, so no dialog's change is
//   written with the bytes of the record it changed.
//
// Standard C++ only.

#include <cassert>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/file_document.h"
#include "kinds/zone_kinds.h"
#include "world/record_table.h"
#include "world/zone_file.h"

namespace marl {

class RecordDocument : public FileDocument {
public:
    using FileDocument::FileDocument;

    int recordCount() const { return count_; }
    // The slot the window shows: recordCount() while it shows a new record.
    int shownSlot() const { return shown_; }
    bool showsNew() const { return shown_ >= count_; }
    // New is refused: slots 0 to 99 hold records.
    bool full() const { return count_ >= kMaxRecordsForNew; }

    // The window shows slot `slot` as it stands now, with no unsaved change.
    void show(int slot);
    // The window starts a new record in the first free slot, cleared.
    void startNew();
    // Puts the record shown back as it was when shown: whatever a dialog
    // wrote into it since is dropped.
    void discard() { restoreShown(); }

    // Stores the window into the slots holding `vnum` (each one only when
    // `overwrite` says Yes), or, when no record has that VNum, into a new
    // slot at its place in number order (before the first record of a
    // higher VNum), the later records moving down a slot with their bytes;
    // `store` fills pending() from the window.  Then writes the file and
    // reads it back, and shows the first slot stored into.  On NothingStored
    // and WriteFailed the document is as it was, dialogs' changes to the
    // record shown included.
    SaveResult save(std::int32_t vnum, const std::function<bool()>& overwrite,
                    const std::function<void()>& store, std::string& error);
    // Deletes the record shown (put back as it was shown first), the later
    // ones moving up a slot, writes the file and reads it back; the window
    // then starts a new record.
    SaveResult removeShown(std::string& error);

    virtual std::int32_t vnumAt(int slot) const = 0;
    // The text the list shows after the VNum (a room's name, a mobile's
    // short description).
    virtual std::string nameAt(int slot) const = 0;
    // The first slot whose VNum is below the one before it, or -1.
    virtual int firstOutOfOrder() const = 0;

protected:
    void clearFile() final;
    void started(bool opened) final;
    void setRecordCount(int count) { count_ = count; }

    virtual void clearTable() = 0;
    virtual void clearSlot(int slot) = 0;
    virtual void copySlot(int from, int to) = 0;
    virtual void rememberShown() = 0;
    virtual void restoreShown() = 0;
    virtual bool shownAsShown() const = 0;
    // pending() becomes the record shown; its slot goes back as shown.
    virtual void takePending() = 0;
    // pending() into `slot`, no longer tied to the bytes it was read from.
    virtual void placePending(int slot) = 0;

private:
    // After a change of the table: the write, then the record the window
    // shows (`shownAfter`, or a new one past the last); a failed write puts
    // back the count and the slot shown.
    SaveResult writeThenShow(int shownAfter, int countBefore, int shownBefore, std::string& error);
    void checkState() const { assert(shown_ >= 0 && shown_ <= count_); }

    int count_ = 0;
    int shown_ = 0;
};

// The document of one kind's file, on that kind's table (see its entry in
// src/kinds): it owns the table, reads and writes it with the kind's reader
// and writer.
template <typename Kind> class KindDocument final : public RecordDocument {
public:
    using Record = typename Kind::Record;
    using File = typename Kind::File;
    using Reader = std::function<int(std::string_view, File&)>;

    KindDocument() : RecordDocument(std::string(Kind::info.extension)) {}

    // The record the window shows, which its dialogs write into.
    Record& shown() { return record(shownSlot()); }
    // The record a save is storing, while its `store` runs.
    Record& pending() { return pending_; }
    // The table as it stands, for a look from outside (tests, probes).
    const File& file() const { return file_; }
    // Lets a test read the file back with another reader.
    void setReader(Reader reader) { reader_ = std::move(reader); }

    std::int32_t vnumAt(int slot) const override { return file_[std::size_t(slot)].VNum; }
    std::string nameAt(int slot) const override { return Kind::listName(file_[std::size_t(slot)]); }
    // The server looks shops up one by one: only `#VNum` records need order.
    int firstOutOfOrder() const override {
        if constexpr (HeaderRecordKind<Kind>)
            return marl::firstOutOfOrder(file_, recordCount());
        else
            return -1;
    }

protected:
    void clearTable() override { file_.clear(); }
    void clearSlot(int slot) override { record(slot) = Record{}; }
    void copySlot(int from, int to) override { record(to) = record(from); }
    void rememberShown() override { snapshot_ = shown(); }
    void restoreShown() override { shown() = snapshot_; }
    bool shownAsShown() const override { return file_[std::size_t(shownSlot())] == snapshot_; }
    void takePending() override {
        pending_ = shown();
        shown() = snapshot_;
    }
    void placePending(int slot) override {
        Record& placed = record(slot);
        // The lines that follow a record in the file stay with its place.
        pending_.After = placed.After;
        placed = pending_;
        placed.Source.clear();
    }
    void keepBackup() override { backup_ = file_; }
    void restoreBackup() override { file_ = backup_; }
    std::string writeText() override { return Kind::write(file_, recordCount(), zoneNumber()); }
    bool readBack(std::string& error) override {
        auto fresh = std::make_unique<File>();
        const LoadOutcome outcome = loadZoneTable(path(), *fresh, reader_);
        if (!outcome.ok) {
            error = describeLoadFailure(fileName(), outcome);
            return false;
        }
        file_ = std::move(*fresh);
        setRecordCount(outcome.count);
        setNotes(describeLoadNotes(fileName(), outcome));
        return true;
    }

private:
    Record& record(int slot) { return file_[static_cast<std::size_t>(slot)]; }

    File file_;
    Reader reader_ = Kind::read;
    Record snapshot_{};
    Record pending_{};
    File backup_;
};

} // namespace marl
