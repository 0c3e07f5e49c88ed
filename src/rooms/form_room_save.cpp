// Reading the world file into the room table, storing the window into the
// table, and writing the table back.  Every save and delete is a round trip
// through the file, so the list always shows what the file holds.

#include <algorithm>

#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <filesystem>

#include "rooms/form_room.h"
#include "rooms/room_file.h"
#include "shell/prompts.h"
#include "world/numeric_rule.h"
#include "widgets/qt_text.h"
#include "world/zone.h"
#include "world/zone_file.h"

namespace marl {

namespace {

std::filesystem::path toPath(const QString& path) {
#ifdef _WIN32
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}

std::optional<std::int32_t> fieldNumber(const QLineEdit* field) {
    const std::optional<std::int64_t> value = readNumber(toBytes(field->text()));
    if (!value || *value < INT32_MIN || *value > INT32_MAX)
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

} // namespace

QString FormRoom::fileName() const {
    return fromBytes(zoneFileName(zoneNumber_, ".wld"));
}

bool FormRoom::LoadRooms(std::int32_t zone, QString* error) {
    zoneNumber_ = zone;
    const LoadOutcome outcome =
        loadZoneTable(toPath(host_.fileDir() + fileName()), roomTable(), readRooms);
    if (!outcome.ok) {
        if (error)
            *error = QString::fromLocal8Bit(describeLoadFailure(toBytes(fileName()), outcome));
        return false;
    }
    recordCount_ = outcome.count;
    fillList();
    currentIndex_ = std::max(recordCount_ - 1, 0); // slot 0, cleared, in an empty zone
    return true;
}

// ---- Window to table ------------------------------------------------------

void FormRoom::KillExits() {
    RoomRecord& room = roomTable()[static_cast<std::size_t>(currentIndex_)];
    for (ExitRecord& exit : room.Exits) {
        if (!exit.Absent)
            continue;
        // The remembered key and destination belong to the exit dialog.
        exit.Direction = 0;
        exit.Desc.clear();
        exit.Keywords.clear();
        exit.DoorKind = 0;
        exit.KeyVNum = 0;
        exit.ToVNum = 0;
        exit.Absent = false;
    }
}

void FormRoom::SaveExits() {
    RoomRecord& room = roomTable()[static_cast<std::size_t>(currentIndex_)];
    for (int slot = 0; slot < kExitSlots; ++slot) {
        ExitRecord& exit = room.Exits[static_cast<std::size_t>(slot)];
        const std::optional<std::int32_t> to = fieldNumber(exitFields_[slot]);
        if (exitChecks_[slot]->isChecked() && to) {
            exit.ToVNum = *to;
            exit.Absent = false;
        } else {
            exit.Absent = true;
        }
    }
}

void FormRoom::CalculateBitV() {
    std::vector<bool> set;
    for (const QCheckBox* check : bitChecks_)
        set.push_back(check->isChecked());
    currentBitV_ = flagText(kRoomFlags, set);
}

void FormRoom::storeWindow(int slot) {
    RoomRecord& room = roomTable()[static_cast<std::size_t>(slot)];
    // Both slots are written from what they now hold, not as they were read.
    room.Source.clear();
    roomTable()[static_cast<std::size_t>(currentIndex_)].Source.clear();
    room.VNum = *fieldNumber(textVNum_);
    room.Desc = fromWidgetText(textDesc_->toPlainText());
    room.Name = toBytes(textName_->text());
    // The exits go to the slot the window edits, which the exit dialog has
    // written into as well.
    KillExits();
    SaveExits();
    roomTable()[static_cast<std::size_t>(slot)].SecType = currentSector_;
    CalculateBitV();
    roomTable()[static_cast<std::size_t>(slot)].BitV = currentBitV_;
}

// Refuses a VNum or a destination that does not read as a number: storing
// it would put something in the file that the builder did not type.
bool FormRoom::checkNumbers() {
    const QString title = QStringLiteral("Room Not Saved");
    if (!fieldNumber(textVNum_)) {
        host_.prompts().tell(twoLines(QStringLiteral("VNum Must Be a Number."),
                                      QStringLiteral("Type the room's VNum, then Save.")),
                             title);
        textVNum_->setFocus();
        return false;
    }
    for (int slot = 0; slot < kExitSlots; ++slot) {
        QLineEdit* field = exitFields_[slot];
        if (!exitChecks_[slot]->isChecked() || field->text().isEmpty() || fieldNumber(field))
            continue;
        host_.prompts().tell(twoLines(QStringLiteral("The %1 Exit's Destination Must Be a Number.")
                                          .arg(QString::fromLatin1(kExits[slot].caption)),
                                      QStringLiteral("Correct it, then Save.")),
                             title);
        field->setFocus();
        return false;
    }
    return true;
}

void FormRoom::SaveRooms() {
    if (!checkNumbers())
        return;
    const bool editEnabled = buttonEdit_->isEnabled();
    const bool deleteEnabled = buttonDelete_->isEnabled();
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);

    const RoomTable before = roomTable();
    const int countBefore = recordCount_;
    const std::int32_t vnum = *fieldNumber(textVNum_);
    bool found = false;
    for (int slot = 0; slot < recordCount_; ++slot) {
        const RoomRecord& room = roomTable()[static_cast<std::size_t>(slot)];
        if (room.VNum != vnum || room.Name.empty())
            continue;
        found = true;
        if (host_.prompts().ask(QStringLiteral("Overwrite Existing Room?"),
                                QStringLiteral("Overwrite Existing Room")))
            storeWindow(slot);
    }
    if (!found) {
        storeWindow(recordCount_);
        ++recordCount_;
    }

    QString error;
    if (!WriteRooms(error)) {
        // Nothing happened: the table, the list and the window stay as they
        // were, with the changes still to be saved.
        roomTable() = before;
        recordCount_ = countBefore;
        buttonEdit_->setEnabled(editEnabled);
        buttonDelete_->setEnabled(deleteEnabled);
        tellWriteFailure(QStringLiteral("Room Not Saved"), error);
        changed_ = true;
        return;
    }
    const RoomTable written = roomTable();
    reloadAfterWrite(written, recordCount_);
    textVNum_->setFocus();
    changed_ = false;
}

bool FormRoom::WriteRooms(QString& error) {
    const std::string bytes = writeRooms(roomTable(), recordCount_, zoneNumber_);
    std::string reason;
    if (!writeZoneFile(toPath(host_.fileDir() + fileName()), bytes, reason)) {
        error = QString::fromLocal8Bit(reason);
        return false;
    }
    return true;
}

// Clears the table and reads the file just written.  Should the file not read
// back, the table keeps what was written, so nothing the builder did is lost.
bool FormRoom::reloadAfterWrite(const RoomTable& written, int count) {
    ClearRoomTable();
    QString error;
    if (LoadRooms(zoneNumber_, &error))
        return true;
    roomTable() = written;
    recordCount_ = count;
    currentIndex_ = std::max(count - 1, 0);
    fillList();
    host_.prompts().tell(error);
    return false;
}

void FormRoom::tellWriteFailure(const QString& title, const QString& reason) {
    host_.prompts().tell(
        twoLines(QStringLiteral("%1 could not be written:").arg(fileName()), reason), title);
}

void FormRoom::onDelete() {
    const QList<QListWidgetItem*> selected = listRoomSelect_->selectedItems();
    if (selected.size() != 1)
        return;
    if (!host_.prompts().ask(QStringLiteral("Really Delete This Room?"),
                             QStringLiteral("Confirm Delete")))
        return;
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);

    const RoomTable before = roomTable();
    const int countBefore = recordCount_;
    const int removed = listRoomSelect_->row(selected.first());
    // Every later room moves up one slot with all it holds; the last slot
    // takes the cleared slot after it.
    for (int slot = removed; slot < recordCount_; ++slot)
        roomTable()[static_cast<std::size_t>(slot)] =
            roomTable()[static_cast<std::size_t>(slot) + 1];
    fillingList_ = true; // the program's change, not a choice in the list
    delete listRoomSelect_->takeItem(removed);
    fillingList_ = false;
    --recordCount_;

    QString error;
    if (!WriteRooms(error)) {
        roomTable() = before;
        recordCount_ = countBefore;
        fillList();
        tellWriteFailure(QStringLiteral("Room Not Deleted"), error);
        return;
    }
    const RoomTable written = roomTable();
    reloadAfterWrite(written, recordCount_);
}

} // namespace marl
