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

using ui::charWidth;
using ui::frame;

ExtraDescsDialog::ExtraDescsDialog(ExtraDescsVariant variant, DialogOwner& owner, Prompts& prompts)
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

    // Enter in the keywords closes as Done does.
    buttons_ = EntryCommands::make(this);
    for (QPushButton* push :
         {buttons_.add, buttons_.update, buttons_.edit, buttons_.remove, buttons_.removeAll})
        push->setEnabled(false);

    auto* fields = new QVBoxLayout;
    fields->addWidget(keywordsFrame);
    fields->addWidget(descFrame, 1);
    auto* body = new QHBoxLayout;
    body->addWidget(listFrame);
    body->addLayout(fields, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons_.row());

    ui::tabChain(QList<QWidget*>{textKeywords_, textDesc_, listExtraDescs_} + buttons_.tabOrder());
}

void ExtraDescsDialog::connectHandlers() {
    connect(textKeywords_, &QLineEdit::textChanged, this,
            [this](const QString& text) { onFieldChanged(text.isEmpty()); });
    connect(textDesc_, &QPlainTextEdit::textChanged, this,
            [this] { onFieldChanged(textDesc_->document()->isEmpty()); });
    entries_ = new EntryList(listExtraDescs_, buttons_, [this] { onEdit(); });
    connect(buttons_.add, &QPushButton::clicked, this, &ExtraDescsDialog::onAdd);
    connect(buttons_.update, &QPushButton::clicked, this, &ExtraDescsDialog::onUpdate);
    connect(buttons_.edit, &QPushButton::clicked, this, &ExtraDescsDialog::onEdit);
    connect(buttons_.remove, &QPushButton::clicked, this, &ExtraDescsDialog::onRemove);
    connect(buttons_.removeAll, &QPushButton::clicked, this, &ExtraDescsDialog::onRemoveAll);
    connect(buttons_.clearAll, &QPushButton::clicked, this, [this] { onClearAll(textKeywords_); });
    connect(buttons_.done, &QPushButton::clicked, this, &ExtraDescsDialog::onDone);
    connect(buttons_.cancel, &QPushButton::clicked, this, &ExtraDescsDialog::onCancel);
}

void ExtraDescsDialog::SetupForm() {
    const ExtraDescList& list = pairs();
    count_ = extraDescCount(list);
    QStringList lines;
    for (int slot = 0; slot < count_; ++slot)
        lines.append(fromBytes(list[static_cast<std::size_t>(slot)].Keywords));
    entries_->fill(lines);
    if (listExtraDescs_->count() > 0)
        buttons_.removeAll->setEnabled(true);
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
    buttons_.add->setEnabled(storable && !editing() && count_ < kMaxExtraDescs);
    buttons_.update->setEnabled(storable && editing());
}

void ExtraDescsDialog::showEditedLine(int line) {
    setWindowTitle(QStringLiteral("Extra Descriptions [%1/%2]").arg(line).arg(kMaxExtraDescs));
}

// The line selected is loaded into the fields and becomes the one Update
// writes back into.
void ExtraDescsDialog::onEdit() {
    const int line = entries_->beginEdit();
    if (line < 0)
        return;
    const ExtraDesc& pair = pairs()[static_cast<std::size_t>(line)];
    textKeywords_->setText(fromBytes(pair.Keywords));
    textDesc_->setPlainText(toWidgetText(pair.Desc));
    showEditedLine(line);
    buttons_.add->setEnabled(false);
    buttons_.update->setEnabled(true);
    changed_ = false;
}

void ExtraDescsDialog::onAdd() {
    if (textKeywords_->text().isEmpty() || count_ >= kMaxExtraDescs)
        return;
    buttons_.add->setEnabled(false);
    buttons_.edit->setEnabled(false);
    buttons_.remove->setEnabled(false);
    buttons_.removeAll->setEnabled(true);
    setPair(count_, {toBytes(textKeywords_->text()), fromWidgetText(textDesc_->toPlainText())});
    listExtraDescs_->addItem(textKeywords_->text());
    ClearAll();
    changed_ = false;
    pairs().setCount(static_cast<std::size_t>(++count_));
    tellOwnerStored();
}

// Writes back in place: into the pair Edit loaded, whatever line is selected.
void ExtraDescsDialog::onUpdate() {
    const int line = entries_->editedLine();
    if (line < 0 || textKeywords_->text().isEmpty())
        return; // no pair being edited: nothing is stored
    const QString keywords = textKeywords_->text();
    setPair(line, {toBytes(keywords), fromWidgetText(textDesc_->toPlainText())});
    ClearAll();
    entries_->setLine(line, keywords);
    changed_ = false;
    tellOwnerStored();
}

// Removes the pair selected; an edit of another pair goes on with what is
// typed.
void ExtraDescsDialog::onRemove() {
    const int line = entries_->selectedLine();
    if (line < 0)
        return;
    removeEntry(pairs(), line);
    --count_;
    if (entries_->removeLine(line)) {
        buttons_.edit->setEnabled(false);
        buttons_.remove->setEnabled(false);
        showEditedLine(entries_->editedLine());
        tellOwnerStored();
        return;
    }
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
    entries_->endEdit();
    buttons_.add->setEnabled(false);
    buttons_.update->setEnabled(false);
    buttons_.edit->setEnabled(false);
    buttons_.remove->setEnabled(false);
    if (listExtraDescs_->count() == 0)
        buttons_.removeAll->setEnabled(false);
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
