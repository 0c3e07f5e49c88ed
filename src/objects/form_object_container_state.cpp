#include "objects/form_object_container_state.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "objects/object_vocabulary.h"
#include "widgets/qt_widgets.h"

namespace marl {

using namespace ui;

namespace {

// Access keys of the four boxes, clear of Clear All, Cancel and Done.
constexpr std::array<char, 4> kBoxKeys = {'o', 'p', 's', 'k'};

} // namespace

FormObjectContainerState::FormObjectContainerState(DialogOwner& owner, Prompts& prompts,
                                                   QLineEdit& target)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kContainerStateDialog)), target_(&target) {
    static_assert(kContainerStateFlags.size() == kBoxKeys.size());
    setObjectName(QString::fromLatin1(kContainerStateDialog.form));
    setWindowTitle(QString::fromLatin1(kContainerStateDialog.title));

    auto* box = frame(this, kContainerStateDialog.frame,
                      QString::fromLatin1(kContainerStateDialog.frameCaption));
    auto* boxLayout = new QVBoxLayout(box);
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const ChoiceDef& flag = kContainerStateFlags[i];
        boxes_[i] = named(
            new AccessCheckBox(QString::fromLatin1(flag.caption), QLatin1Char(kBoxKeys[i]), box),
            flag.control);
        boxLayout->addWidget(boxes_[i]);
        connect(boxes_[i], &QCheckBox::toggled, this, [this] { changed_ = true; });
    }

    auto* commands = makeCommands();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box);
    layout->addLayout(commands);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    QList<QWidget*> chain(boxes_.begin(), boxes_.end());
    chain << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);

    connect(buttonDone_, &QPushButton::clicked, this, &FormObjectContainerState::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormObjectContainerState::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this, [this] { onClearAll(boxes_.front()); });
}

void FormObjectContainerState::SetupForm(int state) {
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setChecked(containerStateHas(state, kContainerStateFlags[i].number));
    boxes_.front()->setFocus();
    changed_ = false;
}

int FormObjectContainerState::stateValue() const {
    int state = 0;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (boxes_[i]->isChecked())
            state += kContainerStateFlags[i].number;
    return state;
}

void FormObjectContainerState::ClearAll() {
    for (QCheckBox* box : boxes_)
        box->setChecked(false);
}

void FormObjectContainerState::onDone() {
    if (changed_ && target_) {
        target_->setText(QString::number(stateValue()));
        tellOwnerStored();
    }
    finish();
}

} // namespace marl
