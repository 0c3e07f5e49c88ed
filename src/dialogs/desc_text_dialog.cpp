#include "dialogs/desc_text_dialog.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

using namespace ui;

DescTextDialog::DescTextDialog(const DialogText& text, Shown<std::string> field, DialogOwner& owner,
                               Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(text)), field_(std::move(field)) {
    setObjectName(QString::fromLatin1(text.form));
    setWindowTitle(QString::fromLatin1(text.title));

    auto* descFrame = frame(this, text.frame, QString::fromLatin1(text.frameCaption));
    textDesc_ = named(new TildeTextEdit(descFrame), kDescTextControl);
    textDesc_->setLineWrapMode(QPlainTextEdit::NoWrap);
    // A screen line of the server is 80 characters; show that and some rows.
    textDesc_->setMinimumWidth(charWidth(textDesc_) * 80 + 30);
    textDesc_->setMinimumHeight(QFontMetrics(textDesc_->font()).lineSpacing() * 12 + 12);
    auto* descLayout = new QVBoxLayout(descFrame);
    descLayout->addWidget(textDesc_);

    auto* commands = makeCommands(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(descFrame, 1);
    layout->addLayout(commands);
    tabChain({textDesc_, buttonClearAll_, buttonCancel_, buttonDone_});

    connect(textDesc_, &QPlainTextEdit::textChanged, this, [this] { changed_ = true; });
    connect(buttonDone_, &QPushButton::clicked, this, &DescTextDialog::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &DescTextDialog::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this, [this] { onClearAll(textDesc_); });
}

void DescTextDialog::SetupForm() {
    textDesc_->setPlainText(toWidgetText(*field_));
    textDesc_->setFocus();
    changed_ = false;
}

void DescTextDialog::ClearAll() {
    textDesc_->clear();
}

void DescTextDialog::onDone() {
    if (changed_) {
        *field_ = fromWidgetText(textDesc_->toPlainText());
        tellOwnerStored();
    }
    finish();
}

} // namespace marl
