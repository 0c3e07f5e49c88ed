#pragma once
// The document of one open zone file, apart from its window: the zone, where
// its file is, whether there are unsaved changes, and how a save goes:
// write the file safely, read it back; when the write fails everything is
// put back as it was.  What the file holds is the subclass's: a table of
// records (record_document.h), or one record for a kind whose file is one.
// Its state is its own: the window asks (changed(), zoneNumber()) and tells
// (markChanged()), never sets it.
//
// Standard C++ only; the window asks its questions through callbacks.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "world/zone.h"

namespace marl {

enum class SaveResult {
    Stored,         // written and read back
    NothingStored,  // every overwrite question answered No
    WriteFailed,    // the file is as it was, and so is the document
    ReadBackFailed, // written, but the file did not read back: the document keeps what was written
};

class FileDocument {
public:
    explicit FileDocument(std::string extension) : extension_(std::move(extension)) {}
    virtual ~FileDocument() = default;
    FileDocument(const FileDocument&) = delete;
    FileDocument& operator=(const FileDocument&) = delete;

    std::int32_t zoneNumber() const { return zone_; }
    // Whether the window holds changes not saved.
    bool changed() const { return changed_; }
    // The builder changed something in the window or a dialog.
    void markChanged() { changed_ = true; }

    // Where the file is: its folder, and the name the builder chose
    // (`030.wld`, `7.old.wld`), empty for the zone's own name (`30.wld`).
    // Only the zone number comes from the name.
    void place(std::filesystem::path folder, std::string chosenName);
    std::string fileName() const {
        return chosen_.empty() ? zoneFileName(zone_, extension_) : chosen_;
    }
    std::filesystem::path path() const { return folder_ / fileName(); }
    // What the file last read holds that the editor cannot show, kept as it
    // stands ("30.mob, line 12: ..."), or empty.
    const std::string& notes() const { return notes_; }

    // An empty file of the zone.  `keepFile` keeps what a file without
    // records held around them, to be written with the first save.
    void newFile(std::int32_t zone, bool keepFile = false);
    // Reads the zone's file.  On failure `error` says why ("30.wld, line 4:
    // expected ...") and the document holds nothing.
    bool load(std::int32_t zone, std::string& error);
    // Drops what the document holds (the editor is closing).
    void close() { clearFile(); }
    // Runs after every save that wrote the file, whether it read back or
    // not; `created` when no file was there before (the window then asks
    // about the folder's index).
    void onWritten(std::function<void(bool created)> written) { written_ = std::move(written); }

protected:
    // Writes the file and reads it back; on a failed write the file and the
    // document's content are as they were (`keepBackup` was called first).
    // Either way but that one the document then holds no unsaved change.
    SaveResult writeAndReadBack(std::string& error);
    // What the document holds, set to an empty file of the zone or read.
    virtual void clearFile() = 0;
    virtual void started(bool opened) = 0; // a file new (false) or read (true)
    virtual void keepBackup() = 0;
    virtual void restoreBackup() = 0;
    virtual std::string writeText() = 0;
    // Reads `path()` into a fresh copy and takes it when it reads.
    virtual bool readBack(std::string& error) = 0;
    void setNotes(std::string notes) { notes_ = std::move(notes); }
    // The window shows what the document holds, with nothing unsaved.
    void clearChanged() { changed_ = false; }

private:
    std::string extension_;
    std::int32_t zone_ = 0;
    bool changed_ = false;
    std::filesystem::path folder_;
    std::string chosen_;
    std::string notes_;
    std::function<void(bool)> written_;
};

} // namespace marl
