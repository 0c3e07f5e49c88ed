#include "editor/editor_window.h"

#include <QCloseEvent>
#include <QFile>
#include <QPushButton>
#include <QShortcut>

#include "editor/world_names.h"
#include "kinds/world_index.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

namespace {

std::filesystem::path toPath(const QString& path) {
#ifdef _WIN32
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}

QString fromPath(const std::filesystem::path& path) {
#ifdef _WIN32
    return QString::fromStdWString(path.wstring());
#else
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
#endif
}

} // namespace

EditorWindow::EditorWindow(EditorHost& host, std::unique_ptr<FileDocument> document,
                           const EditorText& text)
    : host_(host), owned_(std::move(document)), document_(*owned_), text_(text),
      noun_(QString::fromLatin1(text.form).mid(4)) {
    setObjectName(QString::fromLatin1(text.form));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromLatin1(text.title));

    buttonSave_ = ui::button(this, "buttonSave", "Save", 's');
    buttonCancel_ = ui::button(this, "buttonCancel", "Cancel", 'c');
    buttonDone_ = ui::button(this, "buttonDone", "Done", 'd');
    buttonSave_->setEnabled(false);
    buttonCancel_->setToolTip(QStringLiteral("Close without saving (Esc)"));
    connect(buttonCancel_, &QPushButton::clicked, this, &EditorWindow::onCancel);
    connect(buttonDone_, &QPushButton::clicked, this, &EditorWindow::onDone);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &EditorWindow::onCancel);
    document_.onWritten([this](bool created) { fileWritten(created); });
}

// A dialog still open (the main window is being torn down) goes with us.
EditorWindow::~EditorWindow() = default;

QString EditorWindow::fileName() const {
    return fromBytes(document_.fileName());
}

void EditorWindow::syncFolder() {
    document_.place(toPath(host_.fileDir()), toPath(host_.fileTitle()).string());
}

void EditorWindow::filling(const std::function<void()>& fill) {
    const bool outer = !filling_;
    filling_ = true;
    fill();
    if (outer)
        filling_ = false;
}

// ---- Procedures the main window calls -------------------------------------

void EditorWindow::newZone(std::int32_t zone, bool keepFile) {
    syncFolder();
    document_.newFile(zone, keepFile);
    filling([&] { showNewFile(zone); });
    openWorld();
}

bool EditorWindow::openZone(std::int32_t zone, QString& error) {
    syncFolder();
    std::string problem;
    if (!document_.load(zone, problem)) {
        error = QString::fromLocal8Bit(problem);
        return false;
    }
    if (!document_.notes().empty())
        host_.prompts().tell(QStringLiteral("The file holds what the editor cannot show:\n") +
                             QString::fromLatin1(document_.notes()));
    filling([&] { showOpenedFile(); });
    openWorld();
    return true;
}

void EditorWindow::openWorld() {
    names_ = WorldNames::forFile(fromPath(document_.path()));
    worldOpened();
}

void EditorWindow::fileWritten(bool created) {
    const std::filesystem::path path = document_.path();
    if (created && indexStateOf(path) == IndexState::NotListed &&
        host_.prompts().ask(fromBytes(indexQuestion(document_.fileName())))) {
        std::string error;
        if (!addToIndexBeside(path, error))
            host_.prompts().tell(twoLines(QStringLiteral("The index could not be written:"),
                                          QString::fromLocal8Bit(error)));
    }
    if (names_)
        names_->reload();
}

// ---- Change tracking -------------------------------------------------------

void EditorWindow::HasChanged() {
    if (!filling_)
        document_.markChanged();
    buttonSave_->setEnabled(true);
}

void EditorWindow::dialogStored() {
    HasChanged();
}

// ---- Questions and messages ------------------------------------------------

bool EditorWindow::askNotSaved(const QString& second) {
    return host_.prompts().ask(twoLines(words(text_.notSavedLine), second),
                               words(text_.notSavedTitle));
}

bool EditorWindow::mayDiscard() {
    return !document_.changed() || askNotSaved(QStringLiteral("Discard Changes?"));
}

void EditorWindow::tellFailure(SaveResult result, const QString& title, const std::string& error) {
    if (result == SaveResult::WriteFailed)
        host_.prompts().tell(twoLines(QStringLiteral("%1 could not be written:").arg(fileName()),
                                      QString::fromLocal8Bit(error)),
                             title);
    else if (result == SaveResult::ReadBackFailed)
        host_.prompts().tell(QString::fromLocal8Bit(error));
}

// ---- Leaving ---------------------------------------------------------------

void EditorWindow::onCancel() {
    if (!isEnabled())
        return;
    if (document_.changed() && !askNotSaved(QStringLiteral("Cancel Anyway?")))
        return;
    leave();
}

void EditorWindow::onDone() {
    if (document_.changed()) {
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
    if (!leaving_ && document_.changed() && !askNotSaved(QStringLiteral("Cancel Anyway?"))) {
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

void EditorWindow::showDialog(QWidget* dialog) {
    dialogs_.show(dialog);
}

} // namespace marl
