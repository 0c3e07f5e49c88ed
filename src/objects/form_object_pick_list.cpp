#include "objects/form_object_pick_list.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "objects/object_values.h"
#include "widgets/prompts.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// Columns of options: the spells need four to stay on a screen.  A liquid
// takes five cells of its row: the option, its three effects and a gap
// before the next column of liquids.
int columnsOf(ValuePicker picker) {
    switch (picker) {
    case ValuePicker::Spells:
        return 4;
    case ValuePicker::WeaponTypes:
        return 3;
    default:
        return 2;
    }
}

constexpr int kLiquidCells = 2 + static_cast<int>(kLiquidColumns.size());

} // namespace

FormObjectPickList::FormObjectPickList(DialogOwner& owner, Prompts& prompts,
                                       const PickListDef& list, QLineEdit& target)
    : OwnedDialog(owner, prompts, DialogQuestions::of(list.text)), list_(list), target_(&target) {
    setObjectName(QString::fromLatin1(list.text.form));
    setWindowTitle(QString::fromLatin1(list.text.title));

    auto* box = frame(this, list.text.frame, QString::fromLatin1(list.text.frameCaption));
    const bool liquids = list.picker == ValuePicker::Liquids;
    options_ = new OptionGroup(list.options, columnsOf(list.picker), box,
                               liquids ? kLiquidCells : 1, liquids ? 1 : 0);
    if (liquids)
        addLiquidEffects();
    auto* boxLayout = new QVBoxLayout(box);
    boxLayout->addWidget(options_);

    auto* commands = makeCommands();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box);
    layout->addLayout(commands);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // The options are one stop: Tab enters the selected one, arrows move.
    QList<QWidget*> chain;
    for (QRadioButton* option : options_->options())
        chain.append(option);
    chain << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);

    connect(options_, &OptionGroup::picked, this, [this] { changed_ = true; });
    connect(buttonDone_, &QPushButton::clicked, this, &FormObjectPickList::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormObjectPickList::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this, &FormObjectPickList::onClearAll);
}

// Beside each liquid its effect on a drinker, under headers over each of
// the two columns of liquids.
void FormObjectPickList::addLiquidEffects() {
    QGridLayout* grid = options_->grid();
    const auto label = [this](const std::string& name, const QString& text) {
        auto* shown = named(new QLabel(text, options_), name.c_str());
        shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        shown->setMinimumWidth(widthForColumns(shown, 4));
        return shown;
    };
    for (int side = 1; side <= 2; ++side) {
        const int first = (side - 1) * kLiquidCells;
        for (int column = 0; column < static_cast<int>(kLiquidColumns.size()); ++column)
            grid->addWidget(label(liquidColumnLabel(column, side),
                                  QString::fromLatin1(kLiquidColumns[std::size_t(column)])),
                            0, first + 1 + column);
    }
    for (std::size_t i = 0; i < kLiquids.size(); ++i) {
        const auto [row, cell] = options_->cellOf(static_cast<int>(i));
        for (int column = 0; column < static_cast<int>(kLiquidColumns.size()); ++column)
            grid->addWidget(label(liquidLabel(kLiquids[i], column),
                                  QString::number(liquidEffect(kLiquids[i], column))),
                            row, cell + 1 + column);
    }
    grid->setColumnMinimumWidth(kLiquidCells - 1, charWidth(options_) * 3);
}

void FormObjectPickList::SetupForm(int number) {
    options_->setNumber(number);
    QRadioButton* focus = options_->options().front();
    for (QRadioButton* option : options_->options())
        if (option->isChecked())
            focus = option;
    focus->setFocus();
    changed_ = false;
}

int FormObjectPickList::chosenNumber() const {
    return options_->number();
}

// Selecting the default counts as a pick only when it was not selected.
void FormObjectPickList::ClearAll() {
    options_->setNumber(list_.defaultNumber);
}

void FormObjectPickList::onClearAll() {
    if (!prompts_.ask(QStringLiteral("Really Clear This Form?"), QStringLiteral("Confirm Clear")))
        return;
    ClearAll();
    for (QRadioButton* option : options_->options())
        if (option->isChecked())
            option->setFocus();
}

void FormObjectPickList::onDone() {
    if (changed_ && target_) {
        target_->setText(QString::number(chosenNumber()));
        tellOwnerStored();
    }
    finish();
}

} // namespace marl
