#include "editor/record_editor.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/column_delegate.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

namespace {

// A list line is "VNum<tab>name": the names are drawn at this column.
constexpr int kNameColumn = 7;

} // namespace

RecordEditor::RecordEditor(EditorHost& host, std::unique_ptr<RecordDocument> document,
                           const EditorText& text, const NumericRule& vnumRule)
    : EditorWindow(host, std::move(document), text),
      records_(static_cast<RecordDocument&>(EditorWindow::document())) {
    textVNum_ = ui::named(new NumericField(vnumRule, this), "textVNum");
    listSelect_ = new QListWidget(this);
    listSelect_->setObjectName(QStringLiteral("list%1Select").arg(noun()));
    listSelect_->setFont(fixedFont());
    listSelect_->setSelectionMode(QAbstractItemView::SingleSelection);
    listSelect_->setItemDelegate(new ColumnDelegate(kNameColumn, listSelect_));
    listMinimumWidth_ = ui::widthForColumns(listSelect_, 30);
    listSelect_->setMinimumWidth(listMinimumWidth_);
    buttonNew_ = ui::button(this, "buttonNew", "New", 'n');
    buttonEdit_ = ui::button(this, "buttonEdit", "Edit", 'e');
    buttonDelete_ = ui::button(this, "buttonDelete", "Delete", 't');
    buttonClearAll_ = ui::button(this, "buttonClearAll", "Clear All", 'l');
    for (QPushButton* push : {buttonEdit_, buttonDelete_})
        push->setEnabled(false);
    const QString lower = noun().toLower();
    buttonNew_->setToolTip(QStringLiteral("A new %1 (Ctrl+N)").arg(lower));
    buttonSave_->setToolTip(QStringLiteral("Store the %1 and write the file (Ctrl+S)").arg(lower));
    buttonEdit_->setToolTip(
        QStringLiteral("Show the %1 selected in the list (Enter in the list)").arg(lower));

    connect(listSelect_, &QListWidget::itemSelectionChanged, this, &RecordEditor::onListClicked);
    connect(listSelect_, &QListWidget::itemClicked, this, &RecordEditor::onListClicked);
    connect(listSelect_, &QListWidget::itemDoubleClicked, this, &RecordEditor::onEdit);
    ui::editOnEnter(listSelect_, [this] { onEdit(); });
    connect(buttonNew_, &QPushButton::clicked, this, &RecordEditor::onNew);
    connect(buttonSave_, &QPushButton::clicked, this, &RecordEditor::onSave);
    connect(buttonEdit_, &QPushButton::clicked, this, &RecordEditor::onEdit);
    connect(buttonDelete_, &QPushButton::clicked, this, &RecordEditor::onDelete);
    connect(buttonClearAll_, &QPushButton::clicked, this, &RecordEditor::onClearAll);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, [this] {
        if (buttonSave_->isEnabled())
            onSave();
    });
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this,
            &RecordEditor::onNew);
}

QString RecordEditor::vnumText() const {
    return textVNum_->text();
}

// ---- A file new or read ----------------------------------------------------

void RecordEditor::showNewFile(std::int32_t zone) {
    fillList();
    ClearAll();
    textVNum_->setText(QString::number(zone) + QStringLiteral("00"));
    newFields();
}

void RecordEditor::showOpenedFile() {
    if (records_.recordCount() == 0) {
        // A file without records: an empty zone, opened as a new one, whose
        // lines around its end line are written back with the first save.
        newZone(zoneNumber(), true);
        return;
    }
    fillList();
    LoadRecord(0);
    tellOutOfOrder();
}

// A file out of number order loses records at boot (the server looks them up
// by a binary search), so the builder hears of it before editing.
void RecordEditor::tellOutOfOrder() {
    const int slot = records_.firstOutOfOrder();
    if (slot < 0)
        return;
    host().prompts().tell(
        twoLines(
            QStringLiteral("%1: #%2 is out of number order (after #%3).")
                .arg(fileName())
                .arg(records_.vnumAt(slot))
                .arg(records_.vnumAt(slot - 1)),
            QStringLiteral("The server may not find the %1s around it.").arg(noun().toLower())),
        QStringLiteral("Records Out of Order"));
}

void RecordEditor::LoadRecord(int slot) {
    records_.show(slot);
    filling([&] {
        ClearAll();
        parseRecord();
    });
    setWindowTitle(QStringLiteral("%1 [%2/99]").arg(words(text().title)).arg(slot));
    buttonSave_->setEnabled(false);
}

QString RecordEditor::listName(int slot) const {
    return fromBytes(records_.nameAt(slot));
}

void RecordEditor::fillList() {
    fillingList_ = true;
    listSelect_->clear();
    for (int slot = 0; slot < records_.recordCount(); ++slot)
        listSelect_->addItem(QString::number(records_.vnumAt(slot)) + QLatin1Char('\t') +
                             listName(slot));
    fillingList_ = false;
    fitListToNames();
}

// The list asks for the width of its longest line, so that whole names show,
// but never so much that the window no longer fits a 1024 x 768 screen.
void RecordEditor::fitListToNames() {
    const QFontMetrics metrics(listSelect_->font());
    int widest = 0;
    for (int line = 0; line < listSelect_->count(); ++line)
        widest = std::max(widest, metrics.horizontalAdvance(
                                      columnLine(listSelect_->item(line)->text(), kNameColumn)));
    // The item's own margins, the scroll bar and the frame.
    const int wanted = widest + 3 * metrics.horizontalAdvance(QLatin1Char('0')) +
                       listSelect_->verticalScrollBar()->sizeHint().width() +
                       2 * listSelect_->frameWidth();
    const int others = minimumSizeHint().width() - listSelect_->minimumWidth();
    constexpr int screenWidth = 1000; // 1024 less the window's frame
    listSelect_->setMinimumWidth(
        std::clamp(wanted, listMinimumWidth_, std::max(listMinimumWidth_, screenWidth - others)));
}

void RecordEditor::ClearAll() {
    HasChanged();
    buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);
    clearFields();
    textVNum_->clear();
}

// ---- Commands --------------------------------------------------------------

int RecordEditor::selectedLine() const {
    const QList<QListWidgetItem*> selected = listSelect_->selectedItems();
    return selected.size() == 1 ? listSelect_->row(selected.first()) : -1;
}

void RecordEditor::startNew() {
    records_.startNew();
    filling([&] {
        ClearAll();
        textVNum_->setText(QString::number(zoneNumber()));
        newFields();
    });
    textVNum_->setFocus();
}

void RecordEditor::onNew() {
    if (!isEnabled() || !mayDiscard())
        return;
    if (records_.full()) {
        host().prompts().tell(words(text().zoneFull));
        return;
    }
    records_.discard();
    startNew();
}

void RecordEditor::onEdit() {
    const int line = selectedLine();
    if (line < 0 || !mayDiscard())
        return; // nothing chosen: nothing to show
    records_.discard();
    LoadRecord(line);
}

void RecordEditor::onListClicked() {
    if (fillingList_)
        return;
    const bool one = selectedLine() >= 0;
    if (!one)
        buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(one);
    // Delete takes the record shown, which a new one is not yet.
    buttonDelete_->setEnabled(one && !records_.showsNew());
}

void RecordEditor::onSave() {
    if (!fieldNumber(textVNum_)) {
        host().prompts().tell(
            twoLines(QStringLiteral("VNum Must Be a Number."),
                     QStringLiteral("Type the %1's VNum, then Save.").arg(noun().toLower())),
            words(text().notSavedTitle));
        textVNum_->setFocus();
        return;
    }
    if (!checkFields())
        return;
    const bool editEnabled = buttonEdit_->isEnabled();
    const bool deleteEnabled = buttonDelete_->isEnabled();
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);

    syncFolder();
    std::string error;
    const SaveResult result = records_.save(
        *fieldNumber(textVNum_),
        [&] {
            return host().prompts().ask(words(text().overwriteLine), words(text().overwriteTitle));
        },
        [this] { storeRecord(); }, error);
    if (result == SaveResult::NothingStored || result == SaveResult::WriteFailed) {
        // Nothing happened: the table, the list and the window stay as they
        // were, with the changes still to be saved.
        buttonEdit_->setEnabled(editEnabled);
        buttonDelete_->setEnabled(deleteEnabled);
        tellFailure(result, words(text().notSavedTitle), error);
        HasChanged();
        return;
    }
    fillList();
    tellFailure(result, QString(), error);
    setWindowTitle(QStringLiteral("%1 [%2/99]").arg(words(text().title)).arg(records_.shownSlot()));
    textVNum_->setFocus();
}

// Deletes the record the window shows, whichever line is selected; the
// question names it.
void RecordEditor::onDelete() {
    if (records_.showsNew())
        return; // a new record: nothing in the file to delete
    const int line = records_.shownSlot();
    const QString shown =
        QString::number(records_.vnumAt(line)) + QLatin1Char(' ') + listName(line);
    if (!host().prompts().ask(twoLines(words(text().deleteLine), shown),
                              QStringLiteral("Confirm Delete")) ||
        !mayDiscard())
        return;
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);

    syncFolder();
    std::string error;
    const SaveResult result = records_.removeShown(error);
    fillList();
    if (result == SaveResult::WriteFailed) {
        tellFailure(result, words(text().notDeletedTitle), error);
        return;
    }
    tellFailure(result, QString(), error);
    // The window starts a new record in place of the one deleted.
    startNew();
}

void RecordEditor::onClearAll() {
    if (!host().prompts().ask(QStringLiteral("Really Clear This Form?"),
                              QStringLiteral("Confirm Clear")))
        return;
    ClearAll();
    textVNum_->setFocus();
}

void RecordEditor::placeLayout(QLayout* left, QLayout* right,
                               std::initializer_list<QPushButton*> extra) {
    auto* body = new QHBoxLayout;
    body->addLayout(left, 1);
    body->addLayout(right, 2);
    QList<QPushButton*> commands{buttonNew_, buttonSave_, buttonEdit_, buttonDelete_};
    commands << QList<QPushButton*>(extra) << buttonClearAll_;
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(ui::commandRow(commands, {buttonCancel_, buttonDone_}));
}

} // namespace marl
