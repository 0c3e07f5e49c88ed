#pragma once
// formMobile: the mobile editor.  The list, the commands, saving and the
// guard messages come from the editor core; what is particular to mobiles is
// here: the sixteen fields, gender and positions of one mobile, moved between
// the window and the record, and the four dialogs that edit the rest of it
// (action flags, affect flags, extended specs, detailed description).

#include <array>
#include <cstdint>

#include "editor/record_editor.h"
#include "kinds/mobile_kind.h"
#include "mobiles/format/mobile_record.h"
#include "mobiles/mobile_vocabulary.h"

class QLineEdit;
class QPushButton;

namespace marl {

class OptionGroup;

class FormMobile : public KindEditor<MobileKind> {
    Q_OBJECT
public:
    explicit FormMobile(EditorHost& host);

    void NewMobile(std::int32_t zone) { newZone(zone); }
    void LoadMobile(int slot) { LoadRecord(slot); }

protected:
    void parseRecord() override;
    void clearFields() override;
    void storeRecord() override;
    bool checkFields() override;
    void newFields() override;

private:
    // Layout (form_mobile_layout.cpp).
    void buildLayout();
    void setTabOrderChain();

    // The entry field of a row of kMobileFields.
    QLineEdit* field(std::size_t row) const { return fields_[row]; }
    QLineEdit* field(const char* control) const;
    void onFieldChanged();
    void onActionFlags();
    void onAffectFlags();
    void onESpecs();
    void onDetailedDesc();

    // The sixteen fields in the order of kMobileFields (textVNum first).
    std::array<QLineEdit*, kMobileFields.size()> fields_{};
    OptionGroup* genders_ = nullptr;
    OptionGroup* defaultPositions_ = nullptr;
    OptionGroup* loadPositions_ = nullptr;
    QPushButton* buttonActionBitV_ = nullptr;
    QPushButton* buttonAffectBitV_ = nullptr;
    QPushButton* buttonESpecs_ = nullptr;
    QPushButton* buttonDDesc_ = nullptr;
};

} // namespace marl
