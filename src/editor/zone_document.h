#pragma once
// The zone document: one kind's record table as an editor holds it, apart
// from the window.  It knows the zone, how many records are held, which slot
// the window shows, whether there are unsaved changes, and how the shown
// record looked when it was shown.  Saving and deleting are one round trip:
// change the table, write the file safely, read it back; when the write
// fails everything is put back as it was.
//
// Standard C++ only; the window asks its questions through callbacks.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "world/record_table.h"
#include "world/zone.h"
#include "world/zone_file.h"

namespace marl {

enum class SaveResult {
    Stored,         // written and read back
    NothingStored,  // every overwrite question answered No
    WriteFailed,    // the file is as it was, and so is the table
    ReadBackFailed, // written, but the file did not read back: the table keeps what was written
};

class ZoneDocument {
public:
    explicit ZoneDocument(std::string extension) : extension_(std::move(extension)) {}
    virtual ~ZoneDocument() = default;

    std::int32_t ZoneNumber = 0;
    int RecordCount = 0;
    int CurrentIndex = 0;
    bool Changed = false;
    // The folder of the zone's file.
    std::filesystem::path folder;
    // The name of the file the builder chose (`030.wld`, `7.old.wld`); empty
    // for the zone's own name (`30.wld`).  Only the zone number comes from it.
    std::string chosenName;
    // What the file last read holds that the editor cannot show, kept as it
    // stands ("30.mob, line 12: ..."), or empty.
    std::string Notes;

    std::string fileName() const {
        return chosenName.empty() ? zoneFileName(ZoneNumber, extension_) : chosenName;
    }
    std::filesystem::path path() const { return folder / fileName(); }

    // An empty zone: nothing held, the window on slot 0.  `keepFile` keeps
    // what a file without records held around them (lines before its `$`,
    // what follows it), to be written with the records saved.
    void newZone(std::int32_t zone, bool keepFile = false);
    // Reads the zone's file.  On failure `error` says why ("30.wld, line 4:
    // expected ...") and the table is left cleared.
    bool load(std::int32_t zone, std::string& error);
    // Empties the table (the editor is closing).
    void close();

    // The window shows slot `slot` as it stands now.
    void show(int slot);
    // The window starts a new record in the first free slot, cleared.
    void startNew();
    // Puts the shown record back as it was when shown: whatever a dialog
    // wrote into it since is dropped.
    void discard() { restoreShown(); }

    // Stores the window into the slots holding `vnum` (each one only when
    // `overwrite` says Yes), or, when no record has that VNum, into a new
    // slot at its place in number order (before the first record of a
    // higher VNum), the later records moving down a slot with their bytes;
    // `store` fills the record to be stored from the window,
    // starting from the shown record with what its dialogs wrote.  Then
    // writes the file and reads it back.  The window then shows the first
    // slot stored into.
    SaveResult save(std::int32_t vnum, const std::function<bool()>& overwrite,
                    const std::function<void()>& store, std::string& error);
    // Deletes the record of slot `slot`, writes the file and reads it back;
    // with `discardShown` the shown record first goes back to how it was
    // shown (and comes back with the rest should the write fail).
    // `CurrentIndex` follows the shown record to its new slot; it becomes the
    // first free slot when the shown record was the one deleted.
    SaveResult remove(int slot, bool discardShown, std::string& error);
    // The first slot whose VNum is below the one before it, or -1.
    virtual int firstOutOfOrder() const = 0;
    // Whether the last remove took the record the window showed.
    bool removedShown() const { return removedShown_; }

    virtual std::int32_t vnumAt(int slot) const = 0;
    // The text the list shows after the VNum (a room's name, a mobile's
    // short description).
    virtual std::string nameAt(int slot) const = 0;

protected:
    virtual void clearTable() = 0;
    virtual void clearSlot(int slot) = 0;
    virtual void copySlot(int from, int to) = 0;
    virtual void rememberShown() = 0;
    virtual void restoreShown() = 0;
    // The record to store: the shown slot's content moves there, and the
    // slot itself goes back to how it was shown.
    virtual void takePending() = 0;
    // The record to store into `slot`, as the window left it, no longer
    // tied to the bytes it was read from.
    virtual void placePending(int slot) = 0;
    virtual void keepBackup() = 0;
    virtual void restoreBackup() = 0;
    virtual std::string writeText() = 0;
    // Reads `path()` into a fresh table and takes it when it reads.
    virtual bool readBack(int& count, std::string& error) = 0;

private:
    SaveResult writeAndReadBack(int shownAfter, std::string& error);

    std::string extension_;
    bool removedShown_ = false;
};

// The document of one record type, on that kind's table.
template <typename Record> class RecordDocument : public ZoneDocument {
public:
    using Table = RecordTable<Record>;
    using Reader = std::function<int(std::string_view, Table&)>;
    using Writer = std::function<std::string(Table&, int count, std::int32_t zone)>;
    using Name = std::function<std::string(const Record&)>;

    RecordDocument(Table& table, std::string extension, Reader reader, Writer writer, Name name)
        : ZoneDocument(std::move(extension)), table_(table), reader_(std::move(reader)),
          writer_(std::move(writer)), name_(std::move(name)) {}

    Table& table() { return table_; }
    Record& record(int slot) { return table_[static_cast<std::size_t>(slot)]; }
    Record& current() { return record(CurrentIndex); }
    // The record a save is storing, while `store` runs.
    Record& pending() { return pending_; }
    // Lets a test read the file back with another reader.
    void setReader(Reader reader) { reader_ = std::move(reader); }

    std::int32_t vnumAt(int slot) const override { return table_[std::size_t(slot)].VNum; }
    std::string nameAt(int slot) const override { return name_(table_[std::size_t(slot)]); }
    int firstOutOfOrder() const override { return marl::firstOutOfOrder(table_, RecordCount); }

protected:
    void clearTable() override { table_.clear(); }
    void clearSlot(int slot) override { record(slot) = Record{}; }
    void copySlot(int from, int to) override { record(to) = record(from); }
    void rememberShown() override { shown_ = current(); }
    void restoreShown() override { current() = shown_; }
    void takePending() override {
        pending_ = current();
        current() = shown_;
    }
    void placePending(int slot) override {
        pending_.Source.clear();
        // The lines that follow a record in the file stay with its place.
        pending_.After = record(slot).After;
        record(slot) = pending_;
    }
    void keepBackup() override { backup_ = table_; }
    void restoreBackup() override { table_ = backup_; }
    std::string writeText() override { return writer_(table_, RecordCount, ZoneNumber); }
    bool readBack(int& count, std::string& error) override {
        Table fresh;
        const LoadOutcome outcome = loadZoneTable(path(), fresh, reader_);
        if (!outcome.ok) {
            error = describeLoadFailure(fileName(), outcome);
            return false;
        }
        table_ = std::move(fresh);
        count = outcome.count;
        Notes = describeLoadNotes(fileName(), outcome);
        return true;
    }

private:
    Table& table_;
    Reader reader_;
    Writer writer_;
    Name name_;
    Record shown_{};
    Record pending_{};
    Table backup_;
};

} // namespace marl
