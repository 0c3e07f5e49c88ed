// The mobile editor's controls: the mobile list on the left; on the right the
// mobile's texts, its numbers in small frames, the two dice, gender and the
// positions; the dialogs' buttons below them and the commands along the
// bottom.  The list and the text fields take what the window gains when it
// grows.

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "editor/field_table.h"
#include "mobiles/form_mobile.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// The two position groups as options, from the one table of positions.
using PositionChoices = std::array<ChoiceDef, kPositions.size()>;
PositionChoices positionChoices(bool load) {
    PositionChoices table{};
    for (std::size_t i = 0; i < kPositions.size(); ++i)
        table[i] = {kPositions[i].number,
                    load ? kPositions[i].loadControl : kPositions[i].defaultControl,
                    kPositions[i].caption};
    return table;
}
const PositionChoices kLoadChoices = positionChoices(true);
const PositionChoices kDefaultChoices = positionChoices(false);

} // namespace

void FormMobile::buildLayout() {
    // Every field in a frame of its own, made from the field table; the
    // dice frames hold three fields each and are made below.
    const std::vector<QGroupBox*> frames =
        makeFields(this, kMobileFields, fields_, textVNum_, [](const FieldDef& def) {
            return std::string_view(def.frame) == "frameMHP" ||
                   std::string_view(def.frame) == "frameBHD";
        });
    const auto frameOf = [&](const char* control) {
        return frames[static_cast<std::size_t>(findField(kMobileFields, control) -
                                               kMobileFields.data())];
    };

    std::array<QGroupBox*, kMobileDice.size()> diceFrames{};
    for (std::size_t i = 0; i < kMobileDice.size(); ++i) {
        const DiceFrameDef& dice = kMobileDice[i];
        diceFrames[i] = frame(this, dice.frame, QString::fromLatin1(dice.caption));
        auto* diceLayout = new QHBoxLayout(diceFrames[i]);
        diceLayout->addWidget(field(dice.countControl));
        diceLayout->addWidget(named(new QLabel(QStringLiteral("d"), diceFrames[i]), dice.dieLabel));
        diceLayout->addWidget(field(dice.sizeControl));
        diceLayout->addWidget(
            named(new QLabel(QStringLiteral("+"), diceFrames[i]), dice.plusLabel));
        diceLayout->addWidget(field(dice.bonusControl));
        diceLayout->addStretch();
        for (const char* control : {dice.countControl, dice.sizeControl, dice.bonusControl})
            field(control)->setParent(diceFrames[i]);
    }

    // Left: VNum and the mobile list.
    auto* selectFrame = frame(this, kMobileListFrame, QString::fromLatin1(kMobileListFrameCaption));
    listSelect_->setParent(selectFrame);
    auto* selectLayout = new QVBoxLayout(selectFrame);
    selectLayout->addWidget(listSelect_);
    auto* left = new QVBoxLayout;
    left->addWidget(frameOf("textVNum"));
    left->addWidget(selectFrame, 1);

    // Right: the texts, then the numbers in one row (two rows would take the
    // height a 1024 x 768 screen lacks with some desktops' fonts), then the
    // dice.
    auto* numbers = new QGridLayout;
    const char* numberOrder[] = {"textLevel", "textAlign", "textGold",
                                 "textTHAC0", "textAC",    "textXP"};
    for (int i = 0; i < 6; ++i)
        numbers->addWidget(frameOf(numberOrder[i]), 0, i);
    numbers->setColumnStretch(6, 1);
    auto* dice = new QHBoxLayout;
    for (QGroupBox* diceFrame : diceFrames)
        dice->addWidget(diceFrame);
    dice->addStretch();

    // Gender and positions, side by side.
    auto* genderFrame = frame(this, kGenderFrameControl, QString::fromLatin1(kGenderFrame));
    genders_ = new OptionGroup(kGenders, 1, genderFrame);
    auto* defaultFrame =
        frame(this, kDefaultPositionFrameControl, QString::fromLatin1(kDefaultPositionFrame));
    defaultPositions_ = new OptionGroup(kDefaultChoices, 1, defaultFrame);
    auto* loadFrame =
        frame(this, kLoadPositionFrameControl, QString::fromLatin1(kLoadPositionFrame));
    loadPositions_ = new OptionGroup(kLoadChoices, 1, loadFrame);
    auto* choices = new QHBoxLayout;
    for (const auto& [box, group] : {std::pair<QGroupBox*, OptionGroup*>{genderFrame, genders_},
                                     {defaultFrame, defaultPositions_},
                                     {loadFrame, loadPositions_}}) {
        auto* boxLayout = new QVBoxLayout(box);
        boxLayout->addWidget(group);
        boxLayout->addStretch();
        choices->addWidget(box);
    }
    choices->addStretch();

    buttonActionBitV_ = button(this, "buttonActionBitV", "Action Bitvector", 'a');
    buttonAffectBitV_ = button(this, "buttonAffectBitV", "Affection Bitvector", 'f');
    buttonESpecs_ = button(this, "buttonESpecs", "ESpecs", 'p');
    buttonDDesc_ = button(this, "buttonDDesc", "Detailed Desc", 'i');
    auto* dialogs = commandRow({buttonActionBitV_, buttonAffectBitV_, buttonESpecs_, buttonDDesc_});

    auto* right = new QVBoxLayout;
    for (const char* control : {"textAlias", "textSDesc", "textLDesc"})
        right->addWidget(frameOf(control));
    right->addLayout(numbers);
    right->addLayout(dice);
    right->addLayout(choices);
    right->addLayout(dialogs);
    right->addStretch();

    placeLayout(left, right);
    setTabOrderChain();
}

// Tab follows the reading order: the mobile's fields from the top, the
// options (one stop per group), the dialogs, the commands, the list last.
void FormMobile::setTabOrderChain() {
    QList<QWidget*> chain{field("textVNum"), field("textAlias"), field("textSDesc"),
                          field("textLDesc")};
    for (const char* control :
         {"textLevel", "textAlign", "textGold", "textTHAC0", "textAC", "textXP"})
        chain.append(field(control));
    for (const DiceFrameDef& dice : kMobileDice)
        chain << field(dice.countControl) << field(dice.sizeControl) << field(dice.bonusControl);
    // Each group of options is one stop, at its selected option.
    for (OptionGroup* group : {genders_, defaultPositions_, loadPositions_})
        for (QRadioButton* option : group->options())
            chain.append(option);
    chain << buttonActionBitV_ << buttonAffectBitV_ << buttonESpecs_ << buttonDDesc_ << buttonNew_
          << buttonSave_ << buttonEdit_ << buttonDelete_ << buttonClearAll_ << buttonCancel_
          << buttonDone_ << listSelect_;
    tabChain(chain);
}

} // namespace marl
