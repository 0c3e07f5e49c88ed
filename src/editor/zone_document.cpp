#include "editor/zone_document.h"

namespace marl {

void ZoneDocument::newZone(std::int32_t zone, bool keepFile) {
    if (!keepFile)
        clearTable();
    ZoneNumber = zone;
    RecordCount = 0;
    CurrentIndex = 0;
    rememberShown();
    Changed = false;
}

bool ZoneDocument::load(std::int32_t zone, std::string& error) {
    ZoneNumber = zone;
    clearTable();
    int count = 0;
    if (!readBack(count, error)) {
        clearTable();
        RecordCount = 0;
        return false;
    }
    RecordCount = count;
    CurrentIndex = 0;
    rememberShown();
    Changed = false;
    return true;
}

void ZoneDocument::close() {
    clearTable();
}

void ZoneDocument::show(int slot) {
    CurrentIndex = slot;
    rememberShown();
}

void ZoneDocument::startNew() {
    CurrentIndex = RecordCount;
    clearSlot(CurrentIndex);
    rememberShown();
}

SaveResult ZoneDocument::save(std::int32_t vnum, const std::function<bool()>& overwrite,
                              const std::function<void()>& store, std::string& error) {
    keepBackup();
    const int countBefore = RecordCount;
    const int shownBefore = CurrentIndex;
    takePending();
    store();
    std::vector<int> targets;
    bool found = false;
    for (int slot = 0; slot < RecordCount; ++slot) {
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
        while (place < RecordCount && vnumAt(place) <= vnum)
            ++place;
        for (int later = RecordCount; later > place; --later)
            copySlot(later - 1, later);
        // The lines that followed the record now one place down go with it.
        clearSlot(place);
        ++RecordCount;
        targets.push_back(place);
    }
    if (targets.empty()) {
        // No to every question: the table stays as it was, dialogs' changes
        // to the shown record included.
        restoreBackup();
        return SaveResult::NothingStored;
    }
    for (int slot : targets)
        placePending(slot);
    const SaveResult result = writeAndReadBack(targets.front(), error);
    if (result == SaveResult::WriteFailed) {
        RecordCount = countBefore;
        CurrentIndex = shownBefore;
    }
    return result;
}

SaveResult ZoneDocument::remove(int slot, bool discardShown, std::string& error) {
    if (slot < 0 || slot >= RecordCount)
        return SaveResult::NothingStored;
    keepBackup();
    if (discardShown)
        restoreShown();
    const int countBefore = RecordCount;
    const int shownBefore = CurrentIndex;
    // Every later record moves up one slot with all it holds.
    for (int later = slot; later + 1 < RecordCount; ++later)
        copySlot(later + 1, later);
    clearSlot(RecordCount - 1);
    --RecordCount;
    removedShown_ = shownBefore == slot;
    const int shownAfter = removedShown_        ? RecordCount
                           : shownBefore > slot ? shownBefore - 1
                                                : shownBefore;
    const SaveResult result = writeAndReadBack(shownAfter, error);
    if (result == SaveResult::WriteFailed) {
        RecordCount = countBefore;
        CurrentIndex = shownBefore;
        removedShown_ = false;
    }
    return result;
}

SaveResult ZoneDocument::writeAndReadBack(int shownAfter, std::string& error) {
    if (!writeZoneFile(path(), writeText(), error)) {
        restoreBackup();
        return SaveResult::WriteFailed;
    }
    int count = 0;
    const bool readBackOk = readBack(count, error);
    if (readBackOk)
        RecordCount = count;
    CurrentIndex = shownAfter;
    if (CurrentIndex >= RecordCount)
        startNew();
    else
        rememberShown();
    Changed = false;
    return readBackOk ? SaveResult::Stored : SaveResult::ReadBackFailed;
}

} // namespace marl
