#include "mobiles/form_mobile_especs.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/attack_types.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// The bare-hand attack's options, from the one table of attack types.
const std::array<ChoiceDef, kAttackTypes.size()>& bareHandChoices() {
    static const std::array<ChoiceDef, kAttackTypes.size()> choices = [] {
        std::array<ChoiceDef, kAttackTypes.size()> table{};
        for (std::size_t i = 0; i < kAttackTypes.size(); ++i)
            table[i] = {kAttackTypes[i].number, kAttackTypes[i].bareHandControl,
                        kAttackTypes[i].caption};
        return table;
    }();
    return choices;
}

} // namespace

FormMobileESpecs::FormMobileESpecs(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kESpecsDialog)) {
    setObjectName(QString::fromLatin1(kESpecsDialog.form));
    setWindowTitle(QString::fromLatin1(kESpecsDialog.title));

    auto* attackFrame = frame(this, kBareHandFrame, QString::fromLatin1(kBareHandFrameCaption));
    attacks_ = new OptionGroup(bareHandChoices(), 3, attackFrame);
    auto* attackLayout = new QVBoxLayout(attackFrame);
    attackLayout->addWidget(attacks_);

    // The abilities in a column of small frames beside the attacks.
    auto* abilityGrid = new QGridLayout;
    for (std::size_t i = 0; i < kAbilities.size(); ++i) {
        const FieldDef& def = kAbilities[i].field;
        auto* box = frame(this, def.frame, QString::fromLatin1(def.caption));
        auto* field = named(new NumericField(def.rule, box), def.control);
        field->setFixedWidth(widthForColumns(field, 5));
        auto* boxLayout = new QHBoxLayout(box);
        boxLayout->addWidget(field);
        abilityGrid->addWidget(box, static_cast<int>(i) % 4, static_cast<int>(i) / 4);
        abilities_[i] = field;
    }

    auto* commands = makeCommands();

    auto* body = new QHBoxLayout;
    body->addWidget(attackFrame);
    body->addLayout(abilityGrid);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addLayout(commands);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // The options are one stop: Tab enters the selected one, arrows move.
    QList<QWidget*> chain;
    for (QRadioButton* option : attacks_->options())
        chain.append(option);
    for (NumericField* field : abilities_)
        chain.append(field);
    chain << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);

    connect(attacks_, &OptionGroup::picked, this, [this] { changed_ = true; });
    for (NumericField* field : abilities_)
        connect(field, &QLineEdit::textChanged, this, [this] { changed_ = true; });
    connect(buttonDone_, &QPushButton::clicked, this, &FormMobileESpecs::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormMobileESpecs::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this,
            [this] { onClearAll(attacks_->options().front()); });
}

// Values are shown as they stand: an ability out of range, or an attack no
// option stands for (none selected), is kept unless the builder edits it.
void FormMobileESpecs::SetupForm(Shown<MobileRecord> shown) {
    mobile_ = std::move(shown);
    const MobileRecord& mobile = *mobile_;
    attacks_->setNumber(mobile.BHA);
    for (std::size_t i = 0; i < kAbilities.size(); ++i) {
        const std::int16_t value = mobile.*kAbilities[i].value;
        abilities_[i]->setText(value != 0 ? QString::number(value) : QString());
    }
    // The focus on the attack selected (the first when none is).
    QRadioButton* first = attacks_->options().front();
    for (QRadioButton* option : attacks_->options())
        if (option->isChecked())
            first = option;
    first->setFocus();
    changed_ = false;
}

void FormMobileESpecs::ClearAll() {
    attacks_->setNumber(kAttackTypes.front().number);
    for (NumericField* field : abilities_)
        field->clear();
}

// An empty ability is stored as 0 (not given), so the builder can take an
// ability away, and a mobile with nothing left becomes an "S" mobile.
void FormMobileESpecs::onDone() {
    if (changed_) {
        MobileRecord& mobile = *mobile_;
        mobile.BHA = static_cast<std::int16_t>(attacks_->number());
        for (std::size_t i = 0; i < kAbilities.size(); ++i) {
            const std::optional<std::int32_t> value = fieldNumber(abilities_[i]);
            mobile.*kAbilities[i].value = static_cast<std::int16_t>(value.value_or(0));
        }
        tellOwnerStored();
    }
    finish();
}

} // namespace marl
