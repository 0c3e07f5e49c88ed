#include "editor/record_document.h"

namespace marl {

void RecordDocument::clearFile() {
    clearTable();
    count_ = 0;
    shown_ = 0;
}

void RecordDocument::started(bool opened) {
    if (!opened)
        count_ = 0;
    shown_ = 0;
    rememberShown();
    checkState();
}

void RecordDocument::show(int slot) {
    shown_ = slot;
    rememberShown();
    clearChanged();
    checkState();
}

void RecordDocument::startNew() {
    shown_ = count_;
    clearSlot(shown_);
    rememberShown();
    clearChanged();
}

SaveResult RecordDocument::save(std::int32_t vnum, const std::function<bool()>& overwrite,
                                const std::function<void()>& store, std::string& error) {
    keepBackup();
    const int countBefore = count_;
    const int shownBefore = shown_;
    takePending();
    store();
    std::vector<int> targets;
    bool found = false;
    for (int slot = 0; slot < count_; ++slot) {
        // A record without a name holds its VNum all the same: storing beside
        // it would write the VNum twice.
        if (vnumAt(slot) != vnum)
            continue;
        found = true;
        if (overwrite())
            targets.push_back(slot);
    }
    if (!found) {
        // The server finds a record by a binary search over rising VNums:
        // a new one goes into its place, not after the rest.
        int place = 0;
        while (place < count_ && vnumAt(place) <= vnum)
            ++place;
        for (int later = count_; later > place; --later)
            copySlot(later - 1, later);
        // The lines that followed the record now one place down go with it.
        clearSlot(place);
        ++count_;
        targets.push_back(place);
    }
    if (targets.empty()) {
        // No to every question: the table stays as it was, dialogs' changes
        // to the record shown included.
        restoreBackup();
        return SaveResult::NothingStored;
    }
    for (int slot : targets)
        placePending(slot);
    return writeThenShow(targets.front(), countBefore, shownBefore, error);
}

SaveResult RecordDocument::removeShown(std::string& error) {
    if (showsNew())
        return SaveResult::NothingStored; // a new record: nothing in the file to delete
    // Unchanged, the record shown is as it was shown: nothing else can have
    // written into it.
    assert(changed() || shownAsShown());
    keepBackup();
    restoreShown();
    const int countBefore = count_;
    const int removed = shown_;
    // Every later record moves up one slot with all it holds.
    for (int later = removed; later + 1 < count_; ++later)
        copySlot(later + 1, later);
    clearSlot(count_ - 1);
    --count_;
    return writeThenShow(count_, countBefore, removed, error);
}

SaveResult RecordDocument::writeThenShow(int shownAfter, int countBefore, int shownBefore,
                                         std::string& error) {
    const SaveResult result = writeAndReadBack(error);
    if (result == SaveResult::WriteFailed) {
        count_ = countBefore;
        shown_ = shownBefore;
    } else if (shownAfter >= count_) {
        startNew();
    } else {
        show(shownAfter);
    }
    checkState();
    return result;
}

} // namespace marl
