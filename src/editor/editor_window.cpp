#include "editor/editor_window.h"

#include <QCloseEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
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

std::filesystem::path toPath(const QString& path) {
#ifdef _WIN32
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}

} // namespace

EditorWindow::EditorWindow(EditorHost& host, std::unique_ptr<ZoneDocument> document,
                           const EditorText& text, const NumericRule& vnumRule)
    : host_(host), owned_(std::move(document)), document_(*owned_), text_(text),
      noun_(QString::fromLatin1(text.form).mid(4)) {
    const QString& noun = noun_;
    setObjectName(QString::fromLatin1(text.form));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromLatin1(text.title));

    textVNum_ = ui::named(new NumericField(vnumRule, this), "textVNum");
    listSelect_ = new QListWidget(this);
    listSelect_->setObjectName(QStringLiteral("list%1Select").arg(noun));
    listSelect_->setFont(fixedFont());
    listSelect_->setSelectionMode(QAbstractItemView::SingleSelection);
    listSelect_->setItemDelegate(new ColumnDelegate(kNameColumn, listSelect_));
    listMinimumWidth_ = ui::widthForColumns(listSelect_, 30);
    listSelect_->setMinimumWidth(listMinimumWidth_);
    buttonNew_ = ui::button(this, "buttonNew", "New", 'n');
    buttonSave_ = ui::button(this, "buttonSave", "Save", 's');
    buttonEdit_ = ui::button(this, "buttonEdit", "Edit", 'e');
    buttonDelete_ = ui::button(this, "buttonDelete", "Delete", 't');
    buttonClearAll_ = ui::button(this, "buttonClearAll", "Clear All", 'l');
    buttonCancel_ = ui::button(this, "buttonCancel", "Cancel", 'c');
    buttonDone_ = ui::button(this, "buttonDone", "Done", 'd');
    for (QPushButton* push : {buttonSave_, buttonEdit_, buttonDelete_})
        push->setEnabled(false);
    const QString lower = noun.toLower();
    buttonNew_->setToolTip(QStringLiteral("A new %1 (Ctrl+N)").arg(lower));
    buttonSave_->setToolTip(QStringLiteral("Store the %1 and write the file (Ctrl+S)").arg(lower));
    buttonEdit_->setToolTip(
        QStringLiteral("Show the %1 selected in the list (Enter in the list)").arg(lower));
    buttonCancel_->setToolTip(QStringLiteral("Close without saving (Esc)"));

    connect(listSelect_, &QListWidget::itemSelectionChanged, this, &EditorWindow::onListClicked);
    connect(listSelect_, &QListWidget::itemClicked, this, &EditorWindow::onListClicked);
    connect(listSelect_, &QListWidget::itemDoubleClicked, this, &EditorWindow::onEdit);
    ui::editOnEnter(listSelect_, [this] { onEdit(); });
    connect(buttonNew_, &QPushButton::clicked, this, &EditorWindow::onNew);
    connect(buttonSave_, &QPushButton::clicked, this, &EditorWindow::onSave);
    connect(buttonEdit_, &QPushButton::clicked, this, &EditorWindow::onEdit);
    connect(buttonDelete_, &QPushButton::clicked, this, &EditorWindow::onDelete);
    connect(buttonClearAll_, &QPushButton::clicked, this, &EditorWindow::onClearAll);
    connect(buttonCancel_, &QPushButton::clicked, this, &EditorWindow::onCancel);
    connect(buttonDone_, &QPushButton::clicked, this, &EditorWindow::onDone);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, [this] {
        if (buttonSave_->isEnabled())
            onSave();
    });
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this,
            &EditorWindow::onNew);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &EditorWindow::onCancel);
}

// A dialog still open (the main window is being torn down) goes with us.
EditorWindow::~EditorWindow() = default;

QString EditorWindow::vnumText() const {
    return textVNum_->text();
}

QString EditorWindow::fileName() const {
    return fromBytes(document_.fileName());
}

void EditorWindow::syncFolder() {
    document_.folder = toPath(host_.fileDir());
    document_.chosenName = toPath(host_.fileTitle()).string();
}

// ---- Procedures the main window calls -------------------------------------

void EditorWindow::newZone(std::int32_t zone, bool keepFile) {
    syncFolder();
    document_.newZone(zone, keepFile);
    fillList();
    ClearAll();
    textVNum_->setText(QString::number(zone) + QStringLiteral("00"));
    newFields();
    document_.Changed = false;
}

bool EditorWindow::openZone(std::int32_t zone, QString& error) {
    syncFolder();
    std::string problem;
    if (!document_.load(zone, problem)) {
        error = QString::fromLocal8Bit(problem);
        return false;
    }
    if (!document_.Notes.empty())
        host_.prompts().tell(QStringLiteral("The file holds what the editor cannot show:\n") +
                             QString::fromLatin1(document_.Notes));
    if (document_.RecordCount == 0) {
        // A file without records: an empty zone, opened as a new one, whose
        // lines around its end line are written back with the first save.
        newZone(zone, true);
        return true;
    }
    fillList();
    LoadRecord(0);
    tellOutOfOrder();
    return true;
}

// A file out of number order loses records at boot (the server looks them up
// by a binary search), so the builder hears of it before editing.
void EditorWindow::tellOutOfOrder() {
    const int slot = document_.firstOutOfOrder();
    if (slot < 0)
        return;
    host_.prompts().tell(
        twoLines(QStringLiteral("%1: #%2 is out of number order (after #%3).")
                     .arg(fileName())
                     .arg(document_.vnumAt(slot))
                     .arg(document_.vnumAt(slot - 1)),
                 QStringLiteral("The server may not find the %1s around it.").arg(noun_.toLower())),
        QStringLiteral("Records Out of Order"));
}

void EditorWindow::LoadRecord(int slot) {
    document_.show(slot);
    ClearAll();
    parseRecord();
    setWindowTitle(QStringLiteral("%1 [%2/99]").arg(words(text_.title)).arg(slot));
    buttonSave_->setEnabled(false);
    document_.Changed = false;
}

void EditorWindow::fillList() {
    fillingList_ = true;
    listSelect_->clear();
    for (int slot = 0; slot < document_.RecordCount; ++slot)
        listSelect_->addItem(QString::number(document_.vnumAt(slot)) + QLatin1Char('\t') +
                             fromBytes(document_.nameAt(slot)));
    fillingList_ = false;
    fitListToNames();
}

// The list asks for the width of its longest line, so that whole names show,
// but never so much that the window no longer fits a 1024 x 768 screen.
void EditorWindow::fitListToNames() {
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

// ---- Change tracking and clearing -----------------------------------------

void EditorWindow::HasChanged() {
    document_.Changed = true;
    buttonSave_->setEnabled(true);
}

void EditorWindow::dialogStored() {
    HasChanged();
}

void EditorWindow::ClearAll() {
    HasChanged();
    buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);
    clearFields();
    textVNum_->clear();
}

bool EditorWindow::fieldsFilled(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits) {
    for (std::size_t row = 0; row < defs.size(); ++row)
        if (!defs[row].mayBeEmpty && edits[row]->text().isEmpty())
            return false;
    return true;
}

// Save can be enabled by an option, a flag or a dialog after Clear All:
// storing an empty field or a number that does not read would put something
// in the file the builder did not type.
bool EditorWindow::checkFieldTable(std::span<const FieldDef> defs,
                                   std::span<QLineEdit* const> edits) {
    for (std::size_t row = 0; row < defs.size(); ++row) {
        const FieldDef& def = defs[row];
        QLineEdit* edit = edits[row];
        QString problem;
        if (edit->text().isEmpty() && !def.mayBeEmpty)
            problem = QStringLiteral("%1 Must Not Be Empty.");
        else if (def.kind == FieldKind::Number && !edit->text().isEmpty() && !fieldNumber(edit))
            problem = QStringLiteral("%1 Must Be a Number.");
        if (problem.isEmpty())
            continue;
        host_.prompts().tell(
            twoLines(problem.arg(words(def.caption)), QStringLiteral("Correct it, then Save.")),
            words(text_.notSavedTitle));
        edit->setFocus();
        return false;
    }
    return true;
}

// ---- Commands --------------------------------------------------------------

bool EditorWindow::askNotSaved(const QString& second) {
    return host_.prompts().ask(twoLines(words(text_.notSavedLine), second),
                               words(text_.notSavedTitle));
}

bool EditorWindow::mayDiscard() {
    if (!document_.Changed)
        return true;
    if (!askNotSaved(QStringLiteral("Discard Changes?")))
        return false;
    return true;
}

int EditorWindow::selectedLine() const {
    const QList<QListWidgetItem*> selected = listSelect_->selectedItems();
    return selected.size() == 1 ? listSelect_->row(selected.first()) : -1;
}

void EditorWindow::startNew() {
    document_.startNew();
    ClearAll();
    textVNum_->setText(QString::number(document_.ZoneNumber));
    newFields();
    textVNum_->setFocus();
    document_.Changed = false;
}

void EditorWindow::onNew() {
    if (!isEnabled() || !mayDiscard())
        return;
    if (document_.RecordCount >= kMaxRecordsForNew) {
        host_.prompts().tell(words(text_.zoneFull));
        return;
    }
    document_.discard();
    startNew();
}

void EditorWindow::onEdit() {
    const int line = selectedLine();
    if (line < 0 || !mayDiscard())
        return; // nothing chosen: nothing to show
    document_.discard();
    LoadRecord(line);
}

void EditorWindow::onListClicked() {
    if (fillingList_)
        return;
    const bool one = selectedLine() >= 0;
    if (!one)
        buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(one);
    // Delete takes the record shown, which a new one is not yet.
    buttonDelete_->setEnabled(one && document_.CurrentIndex < document_.RecordCount);
}

void EditorWindow::onSave() {
    if (!fieldNumber(textVNum_)) {
        host_.prompts().tell(
            twoLines(QStringLiteral("VNum Must Be a Number."),
                     QStringLiteral("Type the %1's VNum, then Save.").arg(noun_.toLower())),
            words(text_.notSavedTitle));
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
    const SaveResult result = document_.save(
        *fieldNumber(textVNum_),
        [&] {
            return host_.prompts().ask(words(text_.overwriteLine), words(text_.overwriteTitle));
        },
        [this] { storeRecord(); }, error);
    if (result == SaveResult::NothingStored || result == SaveResult::WriteFailed) {
        // Nothing happened: the table, the list and the window stay as they
        // were, with the changes still to be saved.
        buttonEdit_->setEnabled(editEnabled);
        buttonDelete_->setEnabled(deleteEnabled);
        tellFailure(result, words(text_.notSavedTitle), error);
        HasChanged();
        return;
    }
    fillList();
    tellFailure(result, QString(), error);
    setWindowTitle(
        QStringLiteral("%1 [%2/99]").arg(words(text_.title)).arg(document_.CurrentIndex));
    textVNum_->setFocus();
    document_.Changed = false;
}

void EditorWindow::tellFailure(SaveResult result, const QString& title, const std::string& error) {
    if (result == SaveResult::WriteFailed)
        host_.prompts().tell(twoLines(QStringLiteral("%1 could not be written:").arg(fileName()),
                                      QString::fromLocal8Bit(error)),
                             title);
    else if (result == SaveResult::ReadBackFailed)
        host_.prompts().tell(QString::fromLocal8Bit(error));
}

// Deletes the record the window shows, whichever line is selected; the
// question names it.
void EditorWindow::onDelete() {
    const int line = document_.CurrentIndex;
    if (line < 0 || line >= document_.RecordCount)
        return; // a new record: nothing in the file to delete
    const QString shown = QString::number(document_.vnumAt(line)) + QLatin1Char(' ') +
                          fromBytes(document_.nameAt(line));
    if (!host_.prompts().ask(twoLines(words(text_.deleteLine), shown),
                             QStringLiteral("Confirm Delete")) ||
        !mayDiscard())
        return;
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);

    syncFolder();
    std::string error;
    const SaveResult result = document_.remove(line, document_.Changed, error);
    fillList();
    if (result == SaveResult::WriteFailed) {
        tellFailure(result, words(text_.notDeletedTitle), error);
        return;
    }
    tellFailure(result, QString(), error);
    // The window shows its record from its new slot; when that record was
    // the one deleted, it starts a new one instead.
    if (document_.CurrentIndex < document_.RecordCount)
        LoadRecord(document_.CurrentIndex);
    else
        startNew();
}

void EditorWindow::onClearAll() {
    if (!host_.prompts().ask(QStringLiteral("Really Clear This Form?"),
                             QStringLiteral("Confirm Clear")))
        return;
    ClearAll();
    textVNum_->setFocus();
}

void EditorWindow::onCancel() {
    if (!isEnabled())
        return;
    if (document_.Changed && !askNotSaved(QStringLiteral("Cancel Anyway?")))
        return;
    leave();
}

void EditorWindow::onDone() {
    if (document_.Changed) {
        host_.prompts().tell(
            twoLines(words(text_.notSavedLine), QStringLiteral("Either Save or Use Cancel.")),
            words(text_.notSavedTitle));
        return;
    }
    leave();
}

void EditorWindow::leave() {
    leaving_ = true;
    close();
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    if (dialogs_.holdsClose()) {
        // The window waits for its dialog; that one has to close first.
        event->ignore();
        return;
    }
    // The frame's close button acts as Cancel.
    if (!leaving_ && document_.Changed && !askNotSaved(QStringLiteral("Cancel Anyway?"))) {
        event->ignore();
        return;
    }
    leaving_ = true;
    document_.close();
    event->accept();
    host_.editorClosed();
}

Prompts& EditorWindow::windowPrompts() {
    return host_.prompts();
}

std::vector<QGroupBox*>
EditorWindow::makeFields(std::span<const FieldDef> defs, std::span<QLineEdit*> edits,
                         const std::function<bool(const FieldDef&)>& unframed) {
    // Numbers without a typing limit hold 32 bits.
    constexpr int kUnlimitedColumns = 12;
    std::vector<QGroupBox*> frames(defs.size(), nullptr);
    for (std::size_t row = 0; row < defs.size(); ++row) {
        const FieldDef& def = defs[row];
        QLineEdit* edit = nullptr;
        if (row == 0) {
            edit = textVNum_;
        } else if (def.kind == FieldKind::Number) {
            edit = ui::named(new NumericField(def.rule, this), def.control);
        } else {
            edit = ui::named(new QLineEdit(this), def.control);
            edit->setFont(fixedFont());
            guardTildeText(edit);
            edit->setMinimumWidth(ui::widthForColumns(edit, 40));
        }
        if (def.kind == FieldKind::Number)
            edit->setFixedWidth(ui::widthForColumns(
                edit, def.rule.maxLength > 0 ? def.rule.maxLength + 2 : kUnlimitedColumns));
        edits[row] = edit;
        if (unframed && unframed(def))
            continue;
        frames[row] = ui::frame(this, def.frame, QString::fromLatin1(def.caption));
        edit->setParent(frames[row]);
        auto* frameLayout = new QHBoxLayout(frames[row]);
        frameLayout->addWidget(edit);
        if (def.kind == FieldKind::Number)
            frameLayout->addStretch();
    }
    return frames;
}

void EditorWindow::placeLayout(QLayout* left, QLayout* right,
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

void EditorWindow::showDialog(QWidget* dialog) {
    dialogs_.show(dialog);
}

} // namespace marl
