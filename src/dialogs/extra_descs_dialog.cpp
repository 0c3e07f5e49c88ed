#include "dialogs/extra_descs_dialog.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/entry_list.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

using ui::button;
using ui::charWidth;
using ui::frame;

ExtraDescsDialog::ExtraDescsDialog(ExtraDescsVariant variant, DialogOwner& owner,
                                   Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::notSaved(QStringLiteral("Desc"))),
      variant_(std::move(variant)) {
    setObjectName(variant_.formName);
    setWindowTitle(variant_.frameCaption);
    buildLayout();
    connectHandlers();
}

void ExtraDescsDialog::buildLayout() {
    auto* listFrame = frame(this, "frameExtraDescs", variant_.frameCaption);
    listExtraDescs_ = new QListWidget(listFrame);
    listExtraDescs_->setObjectName(QStringLiteral("listExtraDescs"));
    listExtraDescs_->setFont(fixedFont());
    listExtraDescs_->setSelectionMode(QAbstractItemView::SingleSelection);
    listExtraDescs_->setMinimumWidth(charWidth(listExtraDescs_) * 28 + 20);
    auto* listLayout = new QVBoxLayout(listFrame);
    listLayout->addWidget(listExtraDescs_);

    auto* keywordsFrame =
        frame(this, "frameKeywords", QStringLiteral("Extra Description Keywords"));
    textKeywords_ = new QLineEdit(keywordsFrame);
    textKeywords_->setObjectName(QStringLiteral("textKeywords"));
    textKeywords_->setFont(fixedFont());
    guardTildeText(textKeywords_);
    auto* keywordsLayout = new QHBoxLayout(keywordsFrame);
    keywordsLayout->addWidget(textKeywords_);

    auto* descFrame = frame(this, "frameExtraDesc", QStringLiteral("Extra Description"));
    textDesc_ = new TildeTextEdit(descFrame);
    textDesc_->setObjectName(QStringLiteral("textDesc"));
    textDesc_->setLineWrapMode(QPlainTextEdit::NoWrap);
    textDesc_->setMinimumWidth(charWidth(textDesc_) * 76 + 30);
    textDesc_->setMinimumHeight(QFontMetrics(textDesc_->font()).lineSpacing() * 10 + 12);
    auto* descLayout = new QVBoxLayout(descFrame);
    descLayout->addWidget(textDesc_);

    buttonAdd_ = button(this, "buttonAdd", "Add", 'a');
    buttonUpdate_ = button(this, "buttonUpdate", "Update", 'u');
    buttonEdit_ = button(this, "buttonEdit", "Edit", 'e');
    buttonRemove_ = button(this, "buttonRemove", "Remove", 'r');
    buttonRemoveAll_ = button(this, "buttonRemoveAll", "Remove All", 'm');
    buttonClearAll_ = button(this, "buttonClearAll", "Clear All", 'l');
    buttonDone_ = button(this, "buttonDone", "Done", 'd');
    buttonCancel_ = button(this, "buttonCancel", "Cancel", 'c');
    for (QPushButton* push :
         {buttonAdd_, buttonUpdate_, buttonEdit_, buttonRemove_, buttonRemoveAll_})
        push->setEnabled(false);
    // Enter in the keywords closes as Done does, which says so when text
    // typed there is not stored yet.
    buttonDone_->setDefault(true);

    auto* fields = new QVBoxLayout;
    fields->addWidget(keywordsFrame);
    fields->addWidget(descFrame, 1);
    auto* body = new QHBoxLayout;
    body->addWidget(listFrame);
    body->addLayout(fields, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(ui::commandRow(
        {buttonAdd_, buttonUpdate_, buttonEdit_, buttonRemove_, buttonRemoveAll_, buttonClearAll_},
        {buttonCancel_, buttonDone_}));

    ui::tabChain({textKeywords_, textDesc_, listExtraDescs_, buttonAdd_, buttonUpdate_, buttonEdit_,
                  buttonRemove_, buttonRemoveAll_, buttonClearAll_, buttonCancel_, buttonDone_});
}

void ExtraDescsDialog::connectHandlers() {
    connect(textKeywords_, &QLineEdit::textChanged, this,
            [this](const QString& text) { onFieldChanged(text.isEmpty()); });
    connect(textDesc_, &QPlainTextEdit::textChanged, this,
            [this] { onFieldChanged(textDesc_->document()->isEmpty()); });
    entries_ = new EntryList(listExtraDescs_, buttonEdit_, buttonRemove_, [this] { onEdit(); });
    connect(buttonAdd_, &QPushButton::clicked, this, &ExtraDescsDialog::onAdd);
    connect(buttonUpdate_, &QPushButton::clicked, this, &ExtraDescsDialog::onUpdate);
    connect(buttonEdit_, &QPushButton::clicked, this, &ExtraDescsDialog::onEdit);
    connect(buttonRemove_, &QPushButton::clicked, this, &ExtraDescsDialog::onRemove);
    connect(buttonRemoveAll_, &QPushButton::clicked, this, &ExtraDescsDialog::onRemoveAll);
    connect(buttonClearAll_, &QPushButton::clicked, this, [this] { onClearAll(textKeywords_); });
    connect(buttonDone_, &QPushButton::clicked, this, &ExtraDescsDialog::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &ExtraDescsDialog::onCancel);
}

void ExtraDescsDialog::SetupForm(int recordIndex) {
    recordIndex_ = recordIndex;
    const ExtraDescList& list = pairs();
    count_ = extraDescCount(list);
    QStringList lines;
    for (int slot = 0; slot < count_; ++slot)
        lines.append(fromBytes(list[static_cast<std::size_t>(slot)].Keywords));
    entries_->fill(lines);
    if (listExtraDescs_->count() > 0)
        buttonRemoveAll_->setEnabled(true);
    setWindowTitle(QStringLiteral("Extra Descriptions [0/%1]").arg(kMaxExtraDescs));
    changed_ = false;
}

void ExtraDescsDialog::setPair(int slot, ExtraDesc pair) {
    ExtraDescList& list = pairs();
    if (slot >= 0 && static_cast<std::size_t>(slot) < list.size())
        list[static_cast<std::size_t>(slot)] = std::move(pair);
}

// Each field looks at its own text; a pair is stored only with keywords,
// since empty keywords would end the list and hide the pairs after it.
void ExtraDescsDialog::onFieldChanged(bool fieldEmpty) {
    changed_ = true;
    const bool storable = !fieldEmpty && !textKeywords_->text().isEmpty();
    buttonAdd_->setEnabled(storable && !editing_ && count_ < kMaxExtraDescs);
    buttonUpdate_->setEnabled(storable && editing_);
}

void ExtraDescsDialog::onEdit() {
    const int line = entries_->selectedLine();
    if (line < 0)
        return;
    const ExtraDesc& pair = pairs()[static_cast<std::size_t>(line)];
    textKeywords_->setText(fromBytes(pair.Keywords));
    textDesc_->setPlainText(toWidgetText(pair.Desc));
    setWindowTitle(QStringLiteral("Extra Descriptions [%1/%2]").arg(line).arg(kMaxExtraDescs));
    editing_ = true;
    buttonAdd_->setEnabled(false);
    buttonUpdate_->setEnabled(true);
    changed_ = false;
}

void ExtraDescsDialog::onAdd() {
    if (textKeywords_->text().isEmpty() || count_ >= kMaxExtraDescs)
        return;
    buttonAdd_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonRemove_->setEnabled(false);
    buttonRemoveAll_->setEnabled(true);
    setPair(count_, {toBytes(textKeywords_->text()), fromWidgetText(textDesc_->toPlainText())});
    listExtraDescs_->addItem(textKeywords_->text());
    ClearAll();
    changed_ = false;
    pairs().setCount(static_cast<std::size_t>(++count_));
    tellOwnerStored();
}

void ExtraDescsDialog::onUpdate() {
    const int line = entries_->selectedLine();
    if (line < 0 || textKeywords_->text().isEmpty())
        return; // no pair chosen: nothing is stored
    setPair(line, {toBytes(textKeywords_->text()), fromWidgetText(textDesc_->toPlainText())});
    listExtraDescs_->item(line)->setText(textKeywords_->text());
    ClearAll();
    changed_ = false;
    tellOwnerStored();
}

void ExtraDescsDialog::onRemove() {
    const int line = entries_->selectedLine();
    if (line < 0)
        return;
    removeEntry(pairs(), line);
    --count_;
    entries_->removeLine(line);
    ClearAll();
    changed_ = false;
    tellOwnerStored();
}

void ExtraDescsDialog::onRemoveAll() {
    pairs().clear();
    count_ = 0;
    entries_->removeAll();
    ClearAll();
    changed_ = false;
    tellOwnerStored();
}

// Emptying the fields also ends an edit in progress: what is typed next is
// a new pair, so Add comes back with the keywords.
void ExtraDescsDialog::ClearAll() {
    editing_ = false;
    buttonAdd_->setEnabled(false);
    buttonUpdate_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonRemove_->setEnabled(false);
    if (listExtraDescs_->count() == 0)
        buttonRemoveAll_->setEnabled(false);
    textKeywords_->clear();
    textDesc_->clear();
}

void ExtraDescsDialog::onDone() {
    if (!changed_) {
        finish();
        return;
    }
    prompts_.tell(twoLines(notSavedLine(), QStringLiteral("Either Add/Update or Use Cancel.")),
                  notSavedTitle());
    if (variant_.hasChangedWhenPending)
        tellOwnerStored();
}

} // namespace marl
