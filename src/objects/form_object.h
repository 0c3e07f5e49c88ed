#pragma once
// formObject: the object editor.  The list, the commands, saving, deleting
// and the guard messages come from the editor core; what is particular to
// objects is here: the seven fields, the type and the effect and wear flags
// of one object, moved between the window and the record, and the four
// dialogs that edit the rest of it (values, affects, extra descriptions,
// action description).

#include <array>
#include <cstdint>

#include "editor/record_editor.h"
#include "kinds/object_kind.h"
#include "objects/format/object_record.h"
#include "objects/object_vocabulary.h"

class QLineEdit;
class QPushButton;

namespace marl {

class FlagGrid;
class OptionGroup;

class FormObject : public KindEditor<ObjectKind> {
    Q_OBJECT
public:
    explicit FormObject(EditorHost& host);

    void NewObject(std::int32_t zone) { newZone(zone); }
    void LoadObject(int slot) { LoadRecord(slot); }
    // The type the options stand for; a type without an option is kept.
    int CurrentType() const;

protected:
    void parseRecord() override;
    void clearFields() override;
    void storeRecord() override;
    bool checkFields() override;
    void newFields() override;

private:
    // Layout (form_object_layout.cpp).
    void buildLayout();
    void setTabOrderChain();

    // The entry field of a row of kObjectFields.
    QLineEdit* field(const char* control) const;
    void onFieldChanged();
    void onTypePicked();
    void updateValuesButton();
    void onClearBits(FlagGrid* flags, const char* question);
    void onValues();
    void onAffects();
    void onExtraDescs();
    void onActionDesc();

    // The seven fields in the order of kObjectFields (textVNum first).
    std::array<QLineEdit*, kObjectFields.size()> fields_{};
    OptionGroup* types_ = nullptr;
    FlagGrid* effects_ = nullptr;
    FlagGrid* wears_ = nullptr;
    QPushButton* buttonClearEBits_ = nullptr;
    QPushButton* buttonClearWBits_ = nullptr;
    QPushButton* buttonValues_ = nullptr;
    QPushButton* buttonObjectAffects_ = nullptr;
    QPushButton* buttonEDescs_ = nullptr;
    QPushButton* buttonADesc_ = nullptr;
};

} // namespace marl
