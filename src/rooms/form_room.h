#pragma once
// formRoom: the room editor.  It lists the rooms of one world file, shows one
// room at a time, and saves by writing the whole file and reading it back.
// Its dialogs (the exit dialog and the extra descriptions) work on the room
// table directly, in the slot that the window edits.

#include <QPointer>
#include <QWidget>
#include <array>
#include <cstdint>

#include "rooms/room_record.h"
#include "shell/editor_host.h"

class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace marl {

class TildeTextEdit;

class FormRoom : public QWidget, public ZoneEditor {
    Q_OBJECT
public:
    explicit FormRoom(EditorHost& host);
    ~FormRoom() override;

    // ZoneEditor: how the main window starts the editor.
    QWidget* window() override { return this; }
    void newZone(std::int32_t zone) override { NewRoom(zone); }
    bool openZone(std::int32_t zone, QString& error) override;

    void NewRoom(std::int32_t zone);
    // Reads the zone's file into the cleared room table and lists it.  On
    // failure `error` says why and the table is left cleared.
    bool LoadRooms(std::int32_t zone, QString* error = nullptr);
    void LoadRoom(int slot);

    // Room table to window, for the slot being edited.
    void ParseExits();
    void ParseSecType();
    void ParseBitV();

    void HasChanged();
    void ClearAll();
    void ClearExits();
    void ClearBitV();

    // Window to table and file.
    void SaveRooms();
    bool WriteRooms(QString& error);
    void KillExits();
    void SaveExits();
    void CalculateBitV();

    std::int32_t zoneNumber() const { return zoneNumber_; }
    int recordCount() const { return recordCount_; }
    int currentIndex() const { return currentIndex_; }
    bool changed() const { return changed_; }
    QString vnumText() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // Layout (form_room_layout.cpp).
    void buildLayout();
    void setTabOrderChain();

    void connectHandlers();
    void fillList();

    // Commands.
    void onNew();
    void onEdit();
    void onDelete();
    void onClearAll();
    void onCancel();
    void onDone();
    void onExitButton(int slot);
    void onExtraDescs();
    void onListClicked();
    void leave();

    // Change handlers.
    void onVNumOrNameChanged();
    void onDescChanged();
    void onExitToggled(int slot, bool checked);
    void onExitClicked(int slot, bool checked);
    void onDestinationChanged(int slot);
    void onDestinationEdited(int slot);

    // Saving helpers (form_room_save.cpp).
    bool checkNumbers();
    void storeWindow(int slot);
    bool reloadAfterWrite(const RoomTable& written, int count);
    void tellWriteFailure(const QString& title, const QString& reason);
    QString fileName() const;
    void showDialog(QWidget* dialog);

    EditorHost& host_;
    std::int32_t zoneNumber_ = 0;
    int recordCount_ = 0;
    int currentIndex_ = 0;
    bool changed_ = false;
    std::int16_t currentSector_ = 0;
    std::string currentBitV_;
    bool fillingList_ = false;
    bool leaving_ = false;
    QPointer<QWidget> dialog_;

    QLineEdit* textVNum_ = nullptr;
    QListWidget* listRoomSelect_ = nullptr;
    QLineEdit* textName_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    QButtonGroup* sectorGroup_ = nullptr;
    std::array<QRadioButton*, std::tuple_size_v<decltype(kSectorTypes)>> sectorOptions_{};
    std::array<QCheckBox*, kExitSlots> exitChecks_{};
    std::array<QLineEdit*, kExitSlots> exitFields_{};
    std::array<QPushButton*, kExitSlots> exitButtons_{};
    std::array<QCheckBox*, std::tuple_size_v<decltype(kRoomFlags)>> bitChecks_{};
    QPushButton* buttonClearExits_ = nullptr;
    QPushButton* buttonClearBits_ = nullptr;
    QPushButton* buttonNew_ = nullptr;
    QPushButton* buttonSave_ = nullptr;
    QPushButton* buttonEdit_ = nullptr;
    QPushButton* buttonDelete_ = nullptr;
    QPushButton* buttonExtraDescs_ = nullptr;
    QPushButton* buttonClearAll_ = nullptr;
    QPushButton* buttonCancel_ = nullptr;
    QPushButton* buttonDone_ = nullptr;
};

} // namespace marl
