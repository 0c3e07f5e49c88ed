#pragma once
// formMobile: the mobile editor.  The list, the commands, saving and the
// guard messages come from the editor core; what is particular to mobiles is
// here: the sixteen fields, gender and positions of one mobile, moved between
// the window and the record, and the four dialogs that edit the rest of it
// (action flags, affect flags, extended specs, detailed description).

#include <array>
#include <cstdint>

#include "editor/editor_window.h"
#include "mobiles/format/mobile_record.h"
#include "mobiles/format/mobile_vocabulary.h"

class QLineEdit;
class QPushButton;

namespace marl {

class OptionGroup;

using MobileDocument = RecordDocument<MobileRecord>;

class FormMobile : public EditorWindow {
    Q_OBJECT
public:
    explicit FormMobile(EditorHost& host);

    void NewMobile(std::int32_t zone) { newZone(zone); }
    void LoadMobile(int slot) { LoadRecord(slot); }
    MobileDocument& mobiles() { return mobiles_; }

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

    MobileDocument& mobiles_;

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
