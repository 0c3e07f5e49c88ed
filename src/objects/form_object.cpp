#include "objects/form_object.h"

#include <QLineEdit>
#include <QPushButton>

#include "dialogs/desc_text_dialog.h"
#include "dialogs/extra_descs_dialog.h"
#include "editor/field_table.h"
#include "objects/form_object_affects.h"
#include "objects/form_object_values.h"
#include "objects/object_values.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

namespace {

// A new object weighs, costs and rents nothing.
constexpr std::array<const char*, 3> kZeroFields = {"textWeight", "textCost", "textRPD"};

template <typename Number> Number numberOf(const QLineEdit* field) {
    return static_cast<Number>(fieldNumber(field).value_or(0));
}

} // namespace

FormObject::FormObject(EditorHost& host) : KindEditor(host, kObjectFields.front().rule) {
    buildLayout();
    for (QLineEdit* edit : fields_)
        connect(edit, &QLineEdit::textChanged, this, &FormObject::onFieldChanged);
    connect(types_, &OptionGroup::picked, this, &FormObject::onTypePicked);
    for (FlagGrid* flags : {effects_, wears_})
        connect(flags, &FlagGrid::changed, this, [this] { HasChanged(); });
    connect(buttonClearEBits_, &QPushButton::clicked, this,
            [this] { onClearBits(effects_, "Really Clear Effect Bits?"); });
    connect(buttonClearWBits_, &QPushButton::clicked, this,
            [this] { onClearBits(wears_, "Really Clear Wear Bits?"); });
    connect(buttonValues_, &QPushButton::clicked, this, &FormObject::onValues);
    connect(buttonObjectAffects_, &QPushButton::clicked, this, &FormObject::onAffects);
    connect(buttonEDescs_, &QPushButton::clicked, this, &FormObject::onExtraDescs);
    connect(buttonADesc_, &QPushButton::clicked, this, &FormObject::onActionDesc);
    updateValuesButton();
}

QLineEdit* FormObject::field(const char* control) const {
    const FieldDef* def = findField(kObjectFields, control);
    return fields_[static_cast<std::size_t>(def - kObjectFields.data())];
}

int FormObject::CurrentType() const {
    return types_->number();
}

// ---- Record to window -----------------------------------------------------

// Every value is shown as it stands, also a number outside its field's
// range, a type without an option or a flag without a box: showing an
// object never changes it.
void FormObject::parseRecord() {
    const ObjectRecord& object = shown();
    const auto show = [this](const char* control, const QString& text) {
        field(control)->setText(text);
    };
    show("textVNum", QString::number(object.VNum));
    show("textAlias", fromBytes(object.Alias));
    show("textSDesc", fromBytes(object.SDesc));
    show("textLDesc", fromBytes(object.LDesc));
    show("textWeight", QString::number(object.Weight));
    show("textCost", QString::number(object.Cost));
    show("textRPD", QString::number(object.RPD));
    // A long text shows from its start.
    for (const char* control : {"textAlias", "textSDesc", "textLDesc"})
        field(control)->setCursorPosition(0);
    types_->setNumber(object.OType);
    updateValuesButton();
    effects_->setFlagText(object.EBitV);
    wears_->setFlagText(object.WBitV);
}

// The type and flags are set first, then the fields emptied: with a field
// empty there is nothing Save could store.
void FormObject::clearFields() {
    types_->setNumber(kObjectTypeOther);
    updateValuesButton();
    effects_->setFlagText("0");
    wears_->setFlagText("0");
    for (QLineEdit* edit : fields_)
        edit->clear();
    buttonSave_->setEnabled(false);
}

void FormObject::newFields() {
    for (const char* control : kZeroFields)
        field(control)->setText(QStringLiteral("0"));
}

// ---- Window to record -----------------------------------------------------

// The values, affects, extra descriptions and action description are the
// dialogs' part: they stay as the dialogs left them in the record.  The
// flags are written in table order, then any letter without a box.
void FormObject::storeRecord() {
    ObjectRecord& object = pending();
    object.VNum = numberOf<std::int32_t>(field("textVNum"));
    object.Alias = toBytes(field("textAlias")->text());
    object.SDesc = toBytes(field("textSDesc")->text());
    object.LDesc = toBytes(field("textLDesc")->text());
    object.Weight = numberOf<std::int32_t>(field("textWeight"));
    object.Cost = numberOf<std::int32_t>(field("textCost"));
    object.RPD = numberOf<std::int32_t>(field("textRPD"));
    object.OType = static_cast<std::int16_t>(CurrentType());
    object.EBitV = effects_->flagText();
    object.WBitV = wears_->flagText();
}

// The long description may be empty; an object without an alias stops the
// server's boot.
bool FormObject::checkFields() {
    return checkFieldTable(kObjectFields, fields_, host().prompts(), words(text().notSavedTitle));
}

// ---- Change handlers -------------------------------------------------------

void FormObject::onFieldChanged() {
    HasChanged();
    buttonSave_->setEnabled(fieldsFilled(kObjectFields, fields_));
}

void FormObject::onTypePicked() {
    HasChanged();
    updateValuesButton();
}

// Only a type with a group of values opens the values dialog; choosing a
// type changes none of the four values.
void FormObject::updateValuesButton() {
    buttonValues_->setEnabled(findValueGroup(CurrentType()) != nullptr);
}

void FormObject::onClearBits(FlagGrid* flags, const char* question) {
    if (!host().prompts().ask(QString::fromLatin1(question), QStringLiteral("Confirm Clear")))
        return;
    flags->uncheckAll();
    HasChanged();
}

// ---- Dialogs ---------------------------------------------------------------

void FormObject::onValues() {
    if (!buttonValues_->isEnabled())
        return;
    auto* dialog = new FormObjectValues(*this, host().prompts());
    dialog->setWorld(worldNames());
    dialog->SetupForm(shownRecord(), CurrentType());
    showDialog(dialog);
}

void FormObject::onAffects() {
    auto* dialog = new FormObjectAffects(*this, host().prompts());
    dialog->SetupForm(shownRecord());
    showDialog(dialog);
}

void FormObject::onExtraDescs() {
    ExtraDescsVariant variant;
    variant.formName = QStringLiteral("formObjectExtraDescs");
    variant.frameCaption = QStringLiteral("Object Extra Descriptions");
    variant.pairs = shownPart(&ObjectRecord::ExtraDescs);
    auto* dialog = new ExtraDescsDialog(std::move(variant), *this, host().prompts());
    dialog->SetupForm();
    showDialog(dialog);
}

void FormObject::onActionDesc() {
    auto* dialog = new DescTextDialog(kObjectActionDescDialog, shownPart(&ObjectRecord::ADesc),
                                      *this, host().prompts());
    dialog->SetupForm();
    showDialog(dialog);
}

} // namespace marl
