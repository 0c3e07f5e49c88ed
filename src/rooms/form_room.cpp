#include "rooms/form_room.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

#include "dialogs/extra_descs_dialog.h"
#include "editor/field_table.h"
#include "rooms/form_room_door.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

FormRoom::FormRoom(EditorHost& host) : KindEditor(host, kRoomFields.front().rule) {
    buildLayout();
    connectHandlers();
}

void FormRoom::connectHandlers() {
    connect(textVNum_, &QLineEdit::textChanged, this, &FormRoom::onVNumOrNameChanged);
    connect(textName_, &QLineEdit::textChanged, this, &FormRoom::onVNumOrNameChanged);
    connect(textDesc_, &QPlainTextEdit::textChanged, this, &FormRoom::onDescChanged);
    connect(sectors_, &OptionGroup::picked, this, [this] { HasChanged(); });
    connect(flags_, &FlagGrid::changed, this, [this] { HasChanged(); });

    for (int slot = 0; slot < kExitSlots; ++slot) {
        // `toggled` runs for the program's changes as well as the builder's;
        // only the builder's click (`clicked`) changes the absent mark.
        connect(exitChecks_[slot], &QCheckBox::toggled, this,
                [this, slot](bool checked) { onExitToggled(slot, checked); });
        connect(exitChecks_[slot], &QCheckBox::clicked, this,
                [this, slot](bool checked) { onExitClicked(slot, checked); });
        connect(exitFields_[slot], &QLineEdit::textChanged, this,
                [this, slot] { onDestinationChanged(slot); });
        connect(exitFields_[slot], &QLineEdit::textEdited, this,
                [this, slot] { onDestinationEdited(slot); });
        connect(exitButtons_[slot], &QPushButton::clicked, this,
                [this, slot] { onExitButton(slot); });
    }
    connect(buttonExtraDescs_, &QPushButton::clicked, this, &FormRoom::onExtraDescs);
    connect(buttonClearExits_, &QPushButton::clicked, this, [this] {
        HasChanged();
        ClearExits();
    });
    connect(buttonClearBits_, &QPushButton::clicked, this, [this] {
        HasChanged();
        flags_->uncheckAll();
    });
}

// ---- Record to window -----------------------------------------------------

void FormRoom::parseRecord() {
    const RoomRecord& room = shown();
    textVNum_->setText(QString::number(room.VNum));
    textName_->setText(fromBytes(room.Name));
    textDesc_->setPlainText(toWidgetText(room.Desc));
    ParseExits();
    sectors_->setNumber(room.SecType);
    flags_->setFlagText(room.BitV);
}

// Every exit the room has shows ticked, whatever its destination: room 0 is
// a room like any other.
void FormRoom::ParseExits() {
    for (int slot = 0; slot < kExitSlots; ++slot)
        ParseExit(slot);
}

void FormRoom::ParseExit(int slot) {
    const ExitRecord& exit = shown().Exits[static_cast<std::size_t>(slot)];
    if (exit.Absent)
        return;
    exitChecks_[slot]->setChecked(true);
    exitFields_[slot]->setText(QString::number(exit.ToVNum));
}

// Only what the dialog stored comes back into the window: the exit the door
// dialog was opened on.  The rest of the window holds the builder's changes
// that are not stored yet (an exit unticked, a destination typed), which a
// refill from the table would undo.
void FormRoom::dialogStored() {
    if (doorExit_ >= 0)
        ParseExit(doorExit_);
    HasChanged();
}

void FormRoom::clearFields() {
    textName_->clear();
    textDesc_->clear();
    ClearExits();
    for (QLineEdit* field : exitFields_)
        field->clear();
    sectors_->setNumber(kSectorTypes[0].number);
    flags_->setFlagText("0");
}

void FormRoom::ClearExits() {
    HasChanged();
    // setChecked runs the toggled handler, which disables the field and the
    // button; the absent marks in the table stay as they are.
    for (QCheckBox* check : exitChecks_)
        check->setChecked(false);
}

// ---- Window to record -----------------------------------------------------

void FormRoom::storeRecord() {
    RoomRecord& room = pending();
    room.VNum = *fieldNumber(textVNum_);
    room.Desc = fromWidgetText(textDesc_->toPlainText());
    room.Name = toBytes(textName_->text());
    KillExits(room);
    SaveExits(room);
    room.SecType = static_cast<std::int16_t>(sectors_->number());
    room.BitV = flags_->flagText();
}

void FormRoom::KillExits(RoomRecord& room) {
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

void FormRoom::SaveExits(RoomRecord& room) {
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

// Refuses a destination that does not read as a number: storing it would
// put something in the file that the builder did not type.
bool FormRoom::checkFields() {
    for (int slot = 0; slot < kExitSlots; ++slot) {
        QLineEdit* field = exitFields_[slot];
        if (!exitChecks_[slot]->isChecked() || field->text().isEmpty() || fieldNumber(field))
            continue;
        host().prompts().tell(twoLines(QStringLiteral("The %1 Exit's Destination Must Be a Number.")
                                           .arg(QString::fromLatin1(kExits[slot].caption)),
                                       QStringLiteral("Correct it, then Save.")),
                              QStringLiteral("Room Not Saved"));
        field->setFocus();
        return false;
    }
    return true;
}

// ---- Change handlers -------------------------------------------------------

void FormRoom::onVNumOrNameChanged() {
    HasChanged();
    buttonSave_->setEnabled(fieldsFilled(kRoomFields, fields_));
}

void FormRoom::onDescChanged() {
    HasChanged();
    buttonSave_->setEnabled(!textDesc_->toPlainText().isEmpty());
}

void FormRoom::onExitToggled(int slot, bool checked) {
    HasChanged();
    exitFields_[slot]->setEnabled(checked);
    exitButtons_[slot]->setEnabled(checked && !exitFields_[slot]->text().isEmpty());
}

void FormRoom::onExitClicked(int slot, bool checked) {
    ExitRecord& exit = shown().Exits[static_cast<std::size_t>(slot)];
    if (!checked)
        exit.Absent = true;
    else if (!exitFields_[slot]->text().isEmpty())
        exit.Absent = false;
}

void FormRoom::onDestinationChanged(int slot) {
    HasChanged();
    exitButtons_[slot]->setEnabled(exitChecks_[slot]->isChecked() &&
                                   !exitFields_[slot]->text().isEmpty());
}

void FormRoom::onDestinationEdited(int slot) {
    // A destination typed into a checked exit makes the exit present, so that
    // what the exit dialog stores for it is kept by the next save.
    if (exitChecks_[slot]->isChecked() && !exitFields_[slot]->text().isEmpty())
        shown().Exits[static_cast<std::size_t>(slot)].Absent = false;
}

// ---- Dialogs ---------------------------------------------------------------

void FormRoom::onExitButton(int slot) {
    doorExit_ = slot;
    auto* door = new FormRoomDoor(*this, host().prompts());
    door->setWorld(worldNames());
    door->SetupForm(Shown<ExitRecord>([this, slot]() -> ExitRecord& {
                        return shown().Exits[static_cast<std::size_t>(slot)];
                    }),
                    slot, QString::fromLatin1(kExits[slot].caption), exitFields_[slot]->text(),
                    vnumText());
    showDialog(door);
}

void FormRoom::onExtraDescs() {
    doorExit_ = -1;
    ExtraDescsVariant variant;
    variant.formName = QStringLiteral("formRoomExtraDescs");
    variant.frameCaption = QStringLiteral("Room Extra Descriptions");
    variant.pairs = shownPart(&RoomRecord::ExtraDescs);
    variant.hasChangedWhenPending = true;
    auto* dialog = new ExtraDescsDialog(std::move(variant), *this, host().prompts());
    dialog->SetupForm();
    showDialog(dialog);
}

} // namespace marl
