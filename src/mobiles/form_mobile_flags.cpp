#include "mobiles/form_mobile_flags.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

FormMobileFlags::FormMobileFlags(const FlagDialogDef& def, DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(def.text)), def_(def) {
    setObjectName(QString::fromLatin1(def.text.form));
    setWindowTitle(QString::fromLatin1(def.text.title));

    auto* flagFrame = frame(this, def.text.frame, QString::fromLatin1(def.text.frameCaption));
    flags_ = new FlagGrid(def.flags, 3, flagFrame);
    auto* flagLayout = new QVBoxLayout(flagFrame);
    flagLayout->addWidget(flags_);

    auto* commands = makeCommands();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(flagFrame);
    layout->addLayout(commands);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    QList<QWidget*> chain;
    for (QCheckBox* box : flags_->boxes())
        chain.append(box);
    chain << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);

    connect(flags_, &FlagGrid::changed, this, [this] { changed_ = true; });
    connect(buttonDone_, &QPushButton::clicked, this, &FormMobileFlags::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormMobileFlags::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this,
            [this] { onClearAll(flags_->boxes().front()); });
}

void FormMobileFlags::SetupForm(Shown<MobileRecord> mobile) {
    mobile_ = std::move(mobile);
    flags_->setFlagText((*mobile_).*def_.field);
    flags_->boxes().front()->setFocus();
    changed_ = false;
}

void FormMobileFlags::ClearAll() {
    flags_->uncheckAll();
}

// Without a change the mobile keeps its flag text exactly as it was read.
void FormMobileFlags::onDone() {
    if (changed_) {
        (*mobile_).*def_.field = flags_->flagText();
        tellOwnerStored();
    }
    finish();
}

} // namespace marl
