// The values dialog's layout: the nine groups in three rows of three, each a
// frame with a caption (a label, or the button that opens a pick list) and a
// field per value it shows, and the commands below them.

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string_view>

#include "editor/world_names.h"
#include "objects/form_object_values.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

constexpr int kGroupColumns = 3;

// Access keys of the buttons and boxes inside the groups.  Only one group is
// enabled at a time, so two groups may share a letter; none takes those of
// Clear All, Cancel and Done.
struct ControlKey {
    std::string_view control;
    char key;
};
constexpr std::array<ControlKey, 11> kControlKeys = {{
    {"buttonScrollPotionS1", '1'},
    {"buttonScrollPotionS2", '2'},
    {"buttonScrollPotionS3", '3'},
    {"buttonWandStaffSpell", 's'},
    {"buttonWeaponType", 't'},
    {"buttonContainerState", 's'},
    {"buttonContainerKey", 'k'},
    {"buttonDrinkConFountainLiquid", 'i'},
    {"checkDrinkConFountainPoisoned", 'p'},
    {"checkFoodPoisoned", 'p'},
    {kEternalCheck, 'e'},
}};

char keyOf(const char* control) {
    for (const ControlKey& entry : kControlKeys)
        if (entry.control == control)
            return entry.key;
    return 0;
}

// The light's group holds the Eternal box below its duration.
constexpr int kLightType = 1;

} // namespace

FormObjectValues::FormObjectValues(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kObjectValuesDialog)) {
    setObjectName(QString::fromLatin1(kObjectValuesDialog.form));
    setWindowTitle(QString::fromLatin1(kObjectValuesDialog.title));

    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < kValueGroups.size(); ++i) {
        buildGroup(i);
        grid->addWidget(groups_[i].frame, static_cast<int>(i) / kGroupColumns,
                        static_cast<int>(i) % kGroupColumns);
    }

    auto* commands = makeCommands();

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(commands);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // Tab in reading order: group by group, each caption button before its
    // field; the disabled groups are passed over.
    QList<QWidget*> chain;
    for (const GroupControls& group : groups_) {
        for (std::size_t v = 0; v < group.fields.size(); ++v) {
            if (auto* push = qobject_cast<QPushButton*>(group.captions[v]))
                chain.append(push);
            if (group.fields[v])
                chain.append(group.fields[v]);
            if (group.boxes[v])
                chain.append(group.boxes[v]);
            if (checkEternal_->parentWidget() == group.frame && int(v) == kEternalValue)
                chain.append(checkEternal_);
        }
    }
    chain << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);

    connect(buttonDone_, &QPushButton::clicked, this, &FormObjectValues::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormObjectValues::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this, [this] {
        QWidget* focus = buttonClearAll_;
        if (shown_)
            for (std::size_t v = 0; v < kObjectValues && focus == buttonClearAll_; ++v)
                if (shown_->fields[v])
                    focus = shown_->fields[v];
        onClearAll(focus);
    });
}

// One group: a row per value it shows, stored 0 values having none.  The
// whole frame starts disabled and empty.
void FormObjectValues::buildGroup(std::size_t index) {
    const ValueGroupDef& def = kValueGroups[index];
    GroupControls& group = groups_[index];
    group.frame = frame(this, def.frame, QString::fromLatin1(def.caption));
    auto* rows = new QGridLayout(group.frame);
    rows->setColumnStretch(2, 1);
    int row = 0;
    for (std::size_t v = 0; v < def.values.size(); ++v) {
        const ValueDef& value = def.values[v];
        const QString caption = QString::fromLatin1(value.caption);
        switch (value.kind) {
        case ValueKind::Stored0:
            break;
        case ValueKind::Poisoned: {
            auto* box =
                named(new AccessCheckBox(caption, QLatin1Char(keyOf(value.control)), group.frame),
                      value.control);
            rows->addWidget(box, row++, 0, 1, 3);
            group.boxes[v] = box;
            connect(box, &QCheckBox::toggled, this, [this] { changed_ = true; });
            break;
        }
        case ValueKind::Field: {
            auto* field = named(new NumericField(value.rule, group.frame), value.control);
            field->setFixedWidth(widthForColumns(field, value.rule.maxLength + 1));
            QWidget* label = nullptr;
            if (value.picker == ValuePicker::None) {
                label = named(new QLabel(caption, group.frame), value.captionControl);
            } else {
                QPushButton* push = button(group.frame, value.captionControl, value.caption,
                                           keyOf(value.captionControl));
                connect(push, &QPushButton::clicked, this, [this, v] { onPick(v); });
                label = push;
            }
            rows->addWidget(label, row, 0);
            rows->addWidget(field, row, 1);
            if (value.picker == ValuePicker::WorldObject) {
                group.names[v] = new VNumNameLabel(field, WorldKind::Object, nullptr, group.frame);
                group.names[v]->setObjectName(QString::fromLatin1(value.control) + "Name");
                rows->addWidget(group.names[v], row, 2);
            }
            ++row;
            group.captions[v] = label;
            group.fields[v] = field;
            connect(field, &QLineEdit::textChanged, this, [this] { changed_ = true; });
            if (&def == findValueGroup(kLightType) && int(v) == kEternalValue) {
                checkEternal_ =
                    named(new AccessCheckBox(QString::fromLatin1(kEternalCaption),
                                             QLatin1Char(keyOf(kEternalCheck)), group.frame),
                          kEternalCheck);
                rows->addWidget(checkEternal_, row++, 0, 1, 3);
                textLightDuration_ = field;
                connect(checkEternal_, &QCheckBox::toggled, this, &FormObjectValues::onEternal);
            }
            break;
        }
        }
    }
    rows->setRowStretch(row, 1);
    group.frame->setEnabled(false);
}

} // namespace marl
