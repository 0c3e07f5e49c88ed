#include "shell/form_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QVBoxLayout>

#include "shell/desktop_paths.h"
#include "shell/file_chooser.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "world/zone.h"

namespace marl {

namespace {

// Every kind's names and texts, by number.
const std::array<KindInfo, kKindCount>& kindInfos() {
    static const std::array<KindInfo, kKindCount> infos = [] {
        std::array<KindInfo, kKindCount> all{};
        forEachKind([&]<typename Kind>() { all.at(std::size_t(Kind::info.number)) = Kind::info; });
        return all;
    }();
    return infos;
}

const KindInfo& kindInfo(int kind) {
    return kindInfos().at(static_cast<std::size_t>(kind));
}

QString text(std::string_view words) {
    return QString::fromLatin1(words.data(), static_cast<qsizetype>(words.size()));
}

QString withSlash(QString dir) {
    dir = QDir::fromNativeSeparators(dir);
    if (!dir.endsWith(QLatin1Char('/')))
        dir += QLatin1Char('/');
    return dir;
}

// A file title shown as a menu caption: `&` would become an access key.
QString menuText(QString title) {
    return title.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

// The kind of a file by its extension (case as the server names them), or
// -1 when it is none of those with an editor.
int kindOfFile(const QString& fileName) {
    int found = -1;
    forEachKind([&]<typename Kind>() {
        if constexpr (EditedKind<Kind>)
            if (fileName.endsWith(text(Kind::info.extension)))
                found = Kind::info.number;
    });
    return found;
}

// The files the editors open, in the menus' order: "world files (*.wld),
// mobile files (*.mob) and object files (*.obj)".
QString editedFiles() {
    QStringList files;
    forEachKind([&]<typename Kind>() {
        if constexpr (EditedKind<Kind>) {
            const QString filter = text(Kind::info.filter).section(QLatin1Char('|'), 0, 0);
            files.append(filter.left(1).toLower() + filter.mid(1));
        }
    });
    // The menus' order puts mobiles first; the message names worlds first.
    files.move(1, 0);
    const QString last = files.takeLast();
    return files.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

} // namespace

class FormMain::KindHost : public EditorHost {
public:
    KindHost(FormMain& main, int kind) : main_(main), kind_(kind) {}
    QString fileDir() const override { return fileDir_; }
    QString fileTitle() const override { return fileTitle_; }
    Prompts& prompts() override { return main_.prompts_; }
    void editorClosed() override { main_.editorClosed(kind_); }

    QString fileDir_;
    QString fileTitle_;
    QPointer<QWidget> window;

private:
    FormMain& main_;
    int kind_;
};

FormMain::FormMain(const QString& progDir, const QString& recentDir, Prompts& prompts,
                   FileChooser& chooser, QWidget* parent)
    : QMainWindow(parent), progDir_(QDir::fromNativeSeparators(progDir)), prompts_(prompts),
      chooser_(chooser), recent_(recentDir) {
    setObjectName(QStringLiteral("formMain"));
    setAcceptDrops(true);
    for (int kind = 0; kind < kKindCount; ++kind)
        hosts_[kind] = std::make_unique<KindHost>(*this, kind);
    if (progDir_.endsWith(QLatin1Char('/')) && progDir_.size() > 1)
        progDir_.chop(1);
    fileDir_ = withSlash(progDir_);
    setWindowTitle(appTitle() + QLatin1Char(' ') + appVersion());
    buildMenus();

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* hint = new QLabel(
        tr("Open a zone file from the Mobile, Room, Object or Zone menu, or start a new one."),
        central);
    hint->setObjectName(QStringLiteral("labelHint"));
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignCenter);
    layout->addWidget(hint);
    setCentralWidget(central);
    resize(520, 140);

    recent_.load();
    showRecent();
    ChProgDir();
}

FormMain::~FormMain() {
    for (const auto& host : hosts_)
        delete host->window.data();
    delete aboutWindow_.data();
}

QWidget* FormMain::openEditor(int kind) const {
    for (int each = 0; each < kKindCount; ++each)
        if ((kind < 0 || kind == each) && hosts_[each]->window)
            return hosts_[each]->window;
    return nullptr;
}

void FormMain::setEditorFactory(int kind, EditorFactory factory) {
    factories_.at(static_cast<std::size_t>(kind)) = std::move(factory);
}

void FormMain::setAboutFactory(std::function<QWidget*()> factory) {
    aboutFactory_ = std::move(factory);
}

void FormMain::addFileMenu(int kind) {
    const KindInfo& info = kindInfo(kind);
    const QString name = text(info.name);
    QMenu* menu = menuBar()->addMenu(QLatin1Char('&') + name);
    menu->setObjectName(QStringLiteral("menu") + name);
    menu->menuAction()->setObjectName(QStringLiteral("menu") + name);
    QAction* newAction = menu->addAction(QStringLiteral("&New %1 File").arg(name));
    newAction->setObjectName(QStringLiteral("menu%1New").arg(name));
    // Zone's Open has no access key of its own.
    QAction* openAction = menu->addAction(
        QStringLiteral("%1Open %2 File").arg(QLatin1String(info.name == "Zone" ? "" : "&"), name));
    openAction->setObjectName(QStringLiteral("menu%1Open").arg(name));
    menu->addSeparator()->setObjectName(QStringLiteral("menu%1Sep1").arg(name));
    for (int index = 0; index < kRecentPerKind; ++index) {
        QAction* item =
            menu->addAction(index == 0 ? QStringLiteral("Recent") : QStringLiteral("-"));
        item->setObjectName(QStringLiteral("menu%1Recent%2").arg(name).arg(index));
        item->setVisible(false);
        recentActions_[kind][index] = item;
        if (hasEditor(kind))
            connect(item, &QAction::triggered, this,
                    [this, kind, index] { LoadEditor(kind, false, false, index); });
    }
    if (hasEditor(kind)) {
        connect(newAction, &QAction::triggered, this,
                [this, kind] { LoadEditor(kind, true, true, 0); });
        connect(openAction, &QAction::triggered, this,
                [this, kind] { LoadEditor(kind, false, true, 0); });
    } else {
        // A kind without an editor: its menu stands greyed.
        menu->menuAction()->setEnabled(false);
        menu->setEnabled(false);
    }
}

void FormMain::buildMenus() {
    for (int kind = 0; kind < kKindCount; ++kind)
        addFileMenu(kind);
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("menuHelp"));
    help->menuAction()->setObjectName(QStringLiteral("menuHelp"));
    QAction* about = help->addAction(QStringLiteral("&About"));
    about->setObjectName(QStringLiteral("menuHelpAbout"));
    connect(about, &QAction::triggered, this, &FormMain::showAbout);
}

void FormMain::showRecent() {
    for (int kind = 0; kind < kKindCount; ++kind)
        for (int index = 0; index < kRecentPerKind; ++index) {
            const RecentEntry& entry = recent_.entry(kind, index);
            QAction* item = recentActions_[kind][index];
            if (!entry.isEmpty())
                item->setText(menuText(entry.fileTitle));
            item->setVisible(!entry.isEmpty());
        }
}

void FormMain::ChProgDir() {
    QDir::setCurrent(progDir_);
}

bool FormMain::editorAvailable(int kind) {
    if (factories_[static_cast<std::size_t>(kind)])
        return true;
    // Said before any dialog, so that no file goes into the recent list for
    // an editor this version does not have.
    prompts_.tell(tr("The %1 editor is not available in this version.")
                      .arg(text(kindInfo(kind).name).toLower()));
    return false;
}

bool FormMain::hasEditor(int kind) {
    bool edited = false;
    forEachKind([&]<typename Kind>() {
        edited = edited || (EditedKind<Kind> && Kind::info.number == kind);
    });
    return edited;
}

QString FormMain::dialogFolder(int kind) const {
    return marl::dialogFolder(recent_.entry(kind, 0).directory, progDir_,
                              text(kindInfo(kind).extension));
}

void FormMain::LoadEditor(int kind, bool isNew, bool useDialog, int recentIndex) {
    if (!hasEditor(kind) || openEditor() || !editorAvailable(kind))
        return;
    if (!useDialog) {
        const RecentEntry& entry = recent_.entry(kind, recentIndex);
        if (!entry.isEmpty())
            openFile(kind, false, entry.directory, entry.fileTitle, false);
        return;
    }
    const KindInfo& info = kindInfo(kind);
    FileRequest request;
    request.save = isNew;
    request.title = text(isNew ? info.newTitle : info.openTitle);
    // The filter's pattern after its `|` is the one its text shows.
    request.filter = text(info.filter).section(QLatin1Char('|'), 0, 0);
    request.defaultSuffix = text(info.extension).mid(1);
    request.directory = dialogFolder(kind);
    const QString path = chooser_.choose(request);
    if (path.isEmpty())
        return; // cancelled: nothing to say
    const QFileInfo chosen(path);
    openFile(kind, isNew, withSlash(chosen.absolutePath()), chosen.fileName(), true);
}

void FormMain::openFiles(const QStringList& paths) {
    std::array<bool, kKindCount> given{};
    for (const QString& path : paths) {
        const QFileInfo file(path);
        const int kind = kindOfFile(file.fileName());
        if (kind < 0) {
            prompts_.tell(tr("%1 is not opened: Marl opens %2.")
                              .arg(file.fileName(), editedFiles()));
            continue;
        }
        if (given[kind] || openEditor(kind)) {
            prompts_.tell(tr("%1 is not opened: the %2 editor opens one file at a time.")
                              .arg(file.fileName(), text(kindInfo(kind).name).toLower()));
            continue;
        }
        given[kind] = true;
        if (editorAvailable(kind))
            openFile(kind, false, withSlash(file.absolutePath()), file.fileName(), true);
    }
}

void FormMain::openFile(int kind, bool isNew, const QString& directory, const QString& fileTitle,
                        bool listIt) {
    const std::optional<std::int32_t> zone = zoneFromFileName(toBytes(fileTitle));
    if (!zone) {
        prompts_.tell(tr("%1 cannot be opened: the name of a zone file begins with its zone "
                         "number, as in 30%2.")
                          .arg(fileTitle, text(kindInfo(kind).extension)));
        return;
    }
    zoneNumber_ = *zone;
    fileDir_ = directory;
    QDir::setCurrent(fileDir_);

    KindHost& host = *hosts_[kind];
    host.fileDir_ = fileDir_;
    host.fileTitle_ = fileTitle;
    ZoneEditor* editor = factories_[static_cast<std::size_t>(kind)](host);
    QWidget* window = editor->window();
    if (isNew) {
        editor->newZone(zoneNumber_);
    } else {
        QString error;
        if (!editor->openZone(zoneNumber_, error)) {
            window->deleteLater();
            if (!openEditor())
                ChProgDir();
            prompts_.tell(error);
            return;
        }
    }
    // Only a file that opened heads the list: one that cannot be read would
    // fail again from the top of it.
    if (listIt) {
        recent_.update(kind, fileDir_, fileTitle);
        showRecent();
    }
    host.window = window;
    window->show();
    setEnabled(false);
}

void FormMain::editorClosed(int kind) {
    hosts_[kind]->window = nullptr;
    if (openEditor())
        return; // another editor given on the command line is still open
    ChProgDir();
    setEnabled(true);
    activateWindow();
}

void FormMain::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) {
            event->acceptProposedAction();
            return;
        }
}

void FormMain::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    // Opened once the drop is over, so that the file manager is not kept
    // waiting on a message box.
    QMetaObject::invokeMethod(
        this, [this, paths] { openFiles(paths); }, Qt::QueuedConnection);
}

void FormMain::showAbout() {
    if (!aboutFactory_ || aboutWindow_)
        return;
    QWidget* about = aboutFactory_();
    aboutWindow_ = about;
    setEnabled(false);
    connect(about, &QObject::destroyed, this, [this] {
        setEnabled(true);
        activateWindow();
    });
    about->show();
}

void FormMain::closeEvent(QCloseEvent* event) {
    // While an editor is open the main window is disabled and stays open;
    // otherwise closing it closes every other window without a question.
    if (QWidget* editor = openEditor()) {
        event->ignore();
        editor->raise();
        editor->activateWindow();
        return;
    }
    if (aboutWindow_)
        aboutWindow_->close();
    event->accept();
}

} // namespace marl
