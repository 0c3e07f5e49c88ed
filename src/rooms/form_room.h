#pragma once
// formRoom: the room editor.  The list, the commands, saving and the guard
// messages come from the editor core; what is particular to rooms is here:
// the name, description, sector, exits and flags of one room, moved between
// the window and the record, and the exit and extra-descriptions dialogs.

#include <array>
#include <cstdint>

#include "editor/record_editor.h"
#include "kinds/room_kind.h"
#include "rooms/format/room_record.h"
#include "rooms/room_controls.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace marl {

class FlagGrid;
class NumericField;
class OptionGroup;
class RecordPickButton;
class TildeTextEdit;
class VNumNameLabel;

class FormRoom : public KindEditor<RoomKind> {
    Q_OBJECT
public:
    explicit FormRoom(EditorHost& host);

    void NewRoom(std::int32_t zone) { newZone(zone); }
    void LoadRoom(int slot) { LoadRecord(slot); }

    // The shown record's exits to the window.
    void ParseExits();
    void ParseExit(int slot);
    void ClearExits();
    void dialogStored() override;

protected:
    void parseRecord() override;
    void clearFields() override;
    void storeRecord() override;
    bool checkFields() override;
    void worldOpened() override;

private:
    // Layout (form_room_layout.cpp).
    void buildLayout();
    void setTabOrderChain();
    void connectHandlers();

    void KillExits(RoomRecord& room);
    void SaveExits(RoomRecord& room);

    void onExitButton(int slot);
    void onExtraDescs();
    void onVNumOrNameChanged();
    void onDescChanged();
    void onExitToggled(int slot, bool checked);
    void onExitClicked(int slot, bool checked);
    void onDestinationChanged(int slot);
    void onDestinationEdited(int slot);

    // The exit of the door dialog last opened, -1 for another dialog.
    int doorExit_ = -1;

    // VNum and name, in the order of kRoomFields.
    std::array<QLineEdit*, kRoomFields.size()> fields_{};
    QLineEdit* textName_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    OptionGroup* sectors_ = nullptr;
    std::array<QCheckBox*, kExitSlots> exitChecks_{};
    std::array<NumericField*, kExitSlots> exitFields_{};
    std::array<QPushButton*, kExitSlots> exitButtons_{};
    std::array<RecordPickButton*, kExitSlots> exitPicks_{};
    std::array<VNumNameLabel*, kExitSlots> exitNames_{};
    FlagGrid* flags_ = nullptr;
    QPushButton* buttonClearExits_ = nullptr;
    QPushButton* buttonClearBits_ = nullptr;
    QPushButton* buttonExtraDescs_ = nullptr;
};

} // namespace marl
