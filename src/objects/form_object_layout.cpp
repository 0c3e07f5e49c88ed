// The object editor's controls: VNum, the three numbers and the object list
// on the left; on the right the object's texts (alias and short description
// side by side), its type, the effect and wear flags side by side, the
// dialogs' buttons below them and the commands along the bottom.  So laid
// out it fits a 1024 x 768 screen with the fonts of any desktop.  The list
// and the text fields take what the window gains when it grows.

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "editor/field_table.h"
#include "objects/form_object.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// The type options, from the one table of object types.
using TypeChoices = std::array<ChoiceDef, kObjectTypes.size()>;
TypeChoices typeChoices() {
    TypeChoices table{};
    for (std::size_t i = 0; i < kObjectTypes.size(); ++i)
        table[i] = {kObjectTypes[i].number, kObjectTypes[i].control, kObjectTypes[i].caption};
    return table;
}
const TypeChoices kTypeChoices = typeChoices();

// A frame holding a flag grid with its Clear Bits in the grid's last cell.
QGroupBox* flagFrame(QWidget* parent, const char* name, const char* caption, FlagGrid* grid,
                     QPushButton* clear) {
    QGroupBox* box = frame(parent, name, QString::fromLatin1(caption));
    grid->setParent(box);
    grid->addCorner(clear);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(grid);
    layout->addStretch();
    return box;
}

} // namespace

void FormObject::buildLayout() {
    // Every field in a frame of its own, made from the field table.
    const std::vector<QGroupBox*> frames = makeFields(this, kObjectFields, fields_, textVNum_);
    const auto frameOf = [&](const char* control) {
        return frames[static_cast<std::size_t>(findField(kObjectFields, control) -
                                               kObjectFields.data())];
    };

    // Left: VNum, the numbers and the object list.
    auto* selectFrame = frame(this, kObjectListFrame, QString::fromLatin1(kObjectListFrameCaption));
    listSelect_->setParent(selectFrame);
    auto* selectLayout = new QVBoxLayout(selectFrame);
    selectLayout->addWidget(listSelect_);
    auto* left = new QVBoxLayout;
    auto* numbers = new QGridLayout;
    const char* const numberFields[] = {"textVNum", "textWeight", "textCost", "textRPD"};
    for (int cell = 0; cell < 4; ++cell)
        numbers->addWidget(frameOf(numberFields[cell]), cell / 2, cell % 2);
    left->addLayout(numbers);
    left->addWidget(selectFrame, 1);

    // Right: the texts; the type; the two flag sets.
    auto* names = new QHBoxLayout;
    names->addWidget(frameOf("textAlias"));
    names->addWidget(frameOf("textSDesc"));

    auto* typeFrame = frame(this, kObjectTypeFrameControl, QString::fromLatin1(kObjectTypeFrame));
    types_ = new OptionGroup(kTypeChoices, 5, typeFrame);
    auto* typeLayout = new QVBoxLayout(typeFrame);
    typeLayout->addWidget(types_);

    effects_ = new FlagGrid(kEffectFlags, 3, this);
    wears_ = new FlagGrid(kWearFlags, 3, this, 6);
    buttonClearEBits_ = button(this, "buttonClearEBits", "Clear Bits", 'b');
    buttonClearWBits_ = button(this, "buttonClearWBits", "Clear Bits", 'i');
    auto* flags = new QHBoxLayout;
    flags->addWidget(
        flagFrame(this, kEffectFrameControl, kEffectFrame, effects_, buttonClearEBits_), 3);
    flags->addWidget(flagFrame(this, kWearFrameControl, kWearFrame, wears_, buttonClearWBits_), 2);

    buttonValues_ = button(this, "buttonValues", "Object Values", 'v');
    buttonObjectAffects_ = button(this, "buttonObjectAffects", "Object Affects", 'f');
    buttonEDescs_ = button(this, "buttonEDescs", "Extra Descriptions", 'x');
    buttonADesc_ = button(this, "buttonADesc", "Action Description", 'a');
    auto* dialogs = commandRow({buttonValues_, buttonObjectAffects_, buttonEDescs_, buttonADesc_});

    auto* right = new QVBoxLayout;
    right->addLayout(names);
    right->addWidget(frameOf("textLDesc"));
    right->addWidget(typeFrame);
    right->addLayout(flags);
    right->addLayout(dialogs);
    right->addStretch();

    placeLayout(left, right);
    setTabOrderChain();
}

// Tab follows the reading order: the object's fields from the top, the
// type (one stop, at its selected option), the effect flags and their Clear
// Bits, the wear flags and theirs, the dialogs, the commands, the list last.
void FormObject::setTabOrderChain() {
    QList<QWidget*> chain;
    for (QLineEdit* edit : fields_)
        chain.append(edit);
    for (QRadioButton* option : types_->options())
        chain.append(option);
    for (QCheckBox* box : effects_->boxes())
        chain.append(box);
    chain.append(buttonClearEBits_);
    for (QCheckBox* box : wears_->boxes())
        chain.append(box);
    chain << buttonClearWBits_ << buttonValues_ << buttonObjectAffects_ << buttonEDescs_
          << buttonADesc_ << buttonNew_ << buttonSave_ << buttonEdit_ << buttonDelete_
          << buttonClearAll_ << buttonCancel_ << buttonDone_ << listSelect_;
    tabChain(chain);
}

} // namespace marl
