#pragma once
// formRoomDoor ("Door Properties"): one exit of the room being edited, with
// its destination, door kind, key, keywords and description.  It reads the
// exit from the room shown and writes it back on Done; the room editor waits,
// disabled, until it closes.

#include <cstdint>
#include <memory>

#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "rooms/format/room_record.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace marl {

class NumericField;
class Prompts;
class RecordPickButton;
class TildeTextEdit;
class VNumNameLabel;
class WorldNames;

class FormRoomDoor : public OwnedDialog {
    Q_OBJECT
public:
    FormRoomDoor(DialogOwner& owner, Prompts& prompts);

    // The exit of the room shown, its slot (0 north to 5 down), the caption
    // of its check box, the text of its destination field and the text of
    // the room editor's VNum field.
    void SetupForm(Shown<ExitRecord> exit, int exitSlot, const QString& direction,
                   const QString& destination, const QString& fromVNum);
    void ClearAll() override;
    // The world the destination's and key's names and pick lists come from.
    void setWorld(const std::shared_ptr<WorldNames>& names);

private:
    void buildLayout();
    void connectHandlers();
    ExitRecord& exit() { return *exit_; }
    void onDoorKind(int kind);
    void onRememberingBox(QLineEdit* field, std::int32_t ExitRecord::*remembered, bool checked);
    void onDone();

    Shown<ExitRecord> exit_;
    int exitSlot_ = 0;
    std::int16_t doorKind_ = 0;
    QString openedDestination_;

    QLineEdit* textFromVNum_ = nullptr;
    QLineEdit* textDirection_ = nullptr;
    NumericField* textToVNum_ = nullptr;
    QCheckBox* checkNowhere_ = nullptr;
    QRadioButton* optionNormal_ = nullptr;
    QRadioButton* optionDoor_ = nullptr;
    QRadioButton* optionPickProof_ = nullptr;
    NumericField* textKeyVNum_ = nullptr;
    QCheckBox* checkNoKey_ = nullptr;
    QLineEdit* textKeywords_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    RecordPickButton* buttonPickTo_ = nullptr;
    RecordPickButton* buttonPickKey_ = nullptr;
    VNumNameLabel* nameTo_ = nullptr;
    VNumNameLabel* nameKey_ = nullptr;
};

} // namespace marl
