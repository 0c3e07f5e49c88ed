#include "dialogs/extra_descs_dialog.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

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
    EntryFields<ExtraDesc> fields;
    // A pair is stored only with keywords, since empty keywords would end
    // the list and hide the pairs after it.
    fields.ready = [this] { return !textKeywords_->text().isEmpty(); };
    fields.read = [this] {
        return ExtraDesc{toBytes(textKeywords_->text()), fromWidgetText(textDesc_->toPlainText())};
    };
    fields.show = [this](const ExtraDesc& pair) {
        textKeywords_->setText(fromBytes(pair.Keywords));
        textDesc_->setPlainText(toWidgetText(pair.Desc));
    };
    fields.clear = [this] {
        textKeywords_->clear();
        textDesc_->clear();
    };
    fields.line = [](const ExtraDesc& pair) { return fromBytes(pair.Keywords); };
    fields.editing = [this](int line) { showEditedLine(line); };
    pairs_ = std::make_unique<EntryController<ExtraDesc, kExtraDescSlots>>(
        listExtraDescs_, buttons_, std::move(fields), kMaxExtraDescs, changed_,
        [this] { tellOwnerStored(); });
    connect(buttons_.clearAll, &QPushButton::clicked, this, [this] { onClearAll(textKeywords_); });
    connect(buttons_.done, &QPushButton::clicked, this, &ExtraDescsDialog::onDone);
    connect(buttons_.cancel, &QPushButton::clicked, this, &ExtraDescsDialog::onCancel);
}

void ExtraDescsDialog::SetupForm() {
    pairs_->setup(variant_.pairs);
    showEditedLine(0);
    changed_ = false;
}

// Each field looks at its own text: the one just emptied makes nothing to
// store.
void ExtraDescsDialog::onFieldChanged(bool fieldEmpty) {
    changed_ = true;
    pairs_->refresh(!fieldEmpty && !textKeywords_->text().isEmpty());
}

void ExtraDescsDialog::showEditedLine(int line) {
    setWindowTitle(QStringLiteral("Extra Descriptions [%1/%2]").arg(line).arg(kMaxExtraDescs));
}

// Emptying the fields also ends an edit in progress: what is typed next is
// a new pair, so Add comes back with the keywords.
void ExtraDescsDialog::ClearAll() {
    pairs_->clear();
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
