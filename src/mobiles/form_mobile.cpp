#include "mobiles/form_mobile.h"

#include <QLineEdit>
#include <QPushButton>

#include "dialogs/desc_text_dialog.h"
#include "editor/field_table.h"
#include "mobiles/form_mobile_especs.h"
#include "mobiles/form_mobile_flags.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"
#include "world/dice.h"

namespace marl {

namespace {

// The values a new mobile starts with, by control: level 1, THAC0 20 and
// 1d1+0 for both dice.
struct NewValue {
    const char* control;
    const char* text;
};
constexpr std::array<NewValue, 12> kNewValues = {{
    {"textLevel", "1"},
    {"textAlign", "0"},
    {"textGold", "0"},
    {"textTHAC0", "20"},
    {"textAC", "0"},
    {"textXP", "0"},
    {"textMHPNumD", "1"},
    {"textMHPSizeD", "1"},
    {"textMHPPlus", "0"},
    {"textBHDNumD", "1"},
    {"textBHDSizeD", "1"},
    {"textBHDPlus", "0"},
}};

template <typename Number> Number numberOf(const QLineEdit* field) {
    return static_cast<Number>(fieldNumber(field).value_or(0));
}

} // namespace

FormMobile::FormMobile(EditorHost& host) : KindEditor(host, kMobileFields.front().rule) {
    buildLayout();
    for (QLineEdit* edit : fields_)
        connect(edit, &QLineEdit::textChanged, this, &FormMobile::onFieldChanged);
    for (OptionGroup* group : {genders_, defaultPositions_, loadPositions_})
        connect(group, &OptionGroup::picked, this, [this] { HasChanged(); });
    connect(buttonActionBitV_, &QPushButton::clicked, this, &FormMobile::onActionFlags);
    connect(buttonAffectBitV_, &QPushButton::clicked, this, &FormMobile::onAffectFlags);
    connect(buttonESpecs_, &QPushButton::clicked, this, &FormMobile::onESpecs);
    connect(buttonDDesc_, &QPushButton::clicked, this, &FormMobile::onDetailedDesc);
}

QLineEdit* FormMobile::field(const char* control) const {
    const FieldDef* def = findField(kMobileFields, control);
    return fields_[static_cast<std::size_t>(def - kMobileFields.data())];
}

// ---- Record to window -----------------------------------------------------

// Every value is shown as it stands, also one outside its field's range or a
// dice text without its `d` or `+`: showing a mobile never changes it.
void FormMobile::parseRecord() {
    const MobileRecord& mobile = shown();
    const auto show = [this](const char* control, const QString& text) {
        field(control)->setText(text);
    };
    show("textVNum", QString::number(mobile.VNum));
    show("textAlias", fromBytes(mobile.Alias));
    show("textSDesc", fromBytes(mobile.SDesc));
    show("textLDesc", fromBytes(mobile.LDesc));
    show("textLevel", QString::number(mobile.Level));
    show("textAlign", QString::number(mobile.Align));
    show("textXP", QString::number(mobile.XP));
    show("textTHAC0", QString::number(mobile.THAC0));
    show("textAC", QString::number(mobile.AC));
    show("textGold", QString::number(mobile.Gold));
    for (const DiceFrameDef& dice : kMobileDice) {
        const DiceParts parts = splitDice(mobile.*dice.field);
        show(dice.countControl, fromBytes(parts.count));
        show(dice.sizeControl, fromBytes(parts.size));
        show(dice.bonusControl, fromBytes(parts.bonus));
    }
    // A long text shows from its start.
    for (const char* control : {"textAlias", "textSDesc", "textLDesc"})
        field(control)->setCursorPosition(0);
    genders_->setNumber(mobile.Gender);
    loadPositions_->setNumber(mobile.LPos);
    defaultPositions_->setNumber(mobile.DPos);
}

// The options are set first, then the fields emptied: with a field empty
// there is nothing Save could store.
void FormMobile::clearFields() {
    genders_->setNumber(kGenders.front().number);
    loadPositions_->setNumber(kPositions.back().number);
    defaultPositions_->setNumber(kPositions.back().number);
    for (QLineEdit* edit : fields_)
        edit->clear();
    buttonSave_->setEnabled(false);
}

void FormMobile::newFields() {
    for (const NewValue& value : kNewValues)
        field(value.control)->setText(QString::fromLatin1(value.text));
}

// ---- Window to record -----------------------------------------------------

// The flags, the extended values and the detailed description are the
// dialogs' part: they stay as the dialogs left them in the record.
void FormMobile::storeRecord() {
    MobileRecord& mobile = pending();
    mobile.VNum = numberOf<std::int32_t>(field("textVNum"));
    mobile.Alias = toBytes(field("textAlias")->text());
    mobile.SDesc = toBytes(field("textSDesc")->text());
    mobile.LDesc = toBytes(field("textLDesc")->text());
    mobile.Level = numberOf<std::int16_t>(field("textLevel"));
    mobile.Align = numberOf<std::int32_t>(field("textAlign"));
    mobile.TypeLetter.assign(1, hasExtendedValues(mobile) ? 'E' : 'S');
    mobile.THAC0 = numberOf<std::int16_t>(field("textTHAC0"));
    mobile.AC = numberOf<std::int16_t>(field("textAC"));
    for (const DiceFrameDef& dice : kMobileDice)
        mobile.*dice.field = joinDice({toBytes(field(dice.countControl)->text()),
                                       toBytes(field(dice.sizeControl)->text()),
                                       toBytes(field(dice.bonusControl)->text())});
    mobile.Gold = numberOf<std::int32_t>(field("textGold"));
    mobile.XP = numberOf<std::int32_t>(field("textXP"));
    mobile.LPos = static_cast<std::int16_t>(loadPositions_->number());
    mobile.DPos = static_cast<std::int16_t>(defaultPositions_->number());
    mobile.Gender = static_cast<std::int16_t>(genders_->number());
}

bool FormMobile::checkFields() {
    return checkFieldTable(kMobileFields, fields_, host().prompts(), words(text().notSavedTitle));
}

// ---- Change handlers -------------------------------------------------------

void FormMobile::onFieldChanged() {
    HasChanged();
    buttonSave_->setEnabled(fieldsFilled(kMobileFields, fields_));
}

// ---- Dialogs ---------------------------------------------------------------

void FormMobile::onActionFlags() {
    auto* dialog = new FormMobileFlags(kActionFlagDialog, *this, host().prompts());
    dialog->SetupForm(shownRecord());
    showDialog(dialog);
}

void FormMobile::onAffectFlags() {
    auto* dialog = new FormMobileFlags(kAffectFlagDialog, *this, host().prompts());
    dialog->SetupForm(shownRecord());
    showDialog(dialog);
}

void FormMobile::onESpecs() {
    auto* dialog = new FormMobileESpecs(*this, host().prompts());
    dialog->SetupForm(shownRecord());
    showDialog(dialog);
}

void FormMobile::onDetailedDesc() {
    auto* dialog = new DescTextDialog(kMobileDescDialog, shownPart(&MobileRecord::DDesc), *this,
                                      host().prompts());
    dialog->SetupForm();
    showDialog(dialog);
}

} // namespace marl
