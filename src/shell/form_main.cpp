#include "shell/form_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>

#include "shell/file_chooser.h"
#include "shell/prompts.h"
#include "widgets/qt_text.h"
#include "world/zone.h"

namespace marl {

namespace {

// The five file kinds in menu order.  Captions and dialog texts follow one
// pattern: "&New Room File", "World files (*.wld)", "Open World File".
struct KindInfo {
    const char* name;      // menu and object names: "Room"
    const char* fileWord;  // in the dialog's texts: "World"
    const char* extension; // ".wld"
};

const std::array<KindInfo, kFileKinds> kKinds = {{
    {"Mobile", "Mobile", ".mob"},
    {"Room", "World", ".wld"},
    {"Object", "Object", ".obj"},
    {"Shop", "Shop", ".shp"},
    {"Zone", "Zone", ".zon"},
}};

const KindInfo& kindInfo(int kind) {
    return kKinds.at(static_cast<std::size_t>(kind));
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

} // namespace

FormMain::FormMain(const QString& progDir, Prompts& prompts, FileChooser& chooser, QWidget* parent)
    : QMainWindow(parent), progDir_(QDir::fromNativeSeparators(progDir)), prompts_(prompts),
      chooser_(chooser), recent_(progDir) {
    setObjectName(QStringLiteral("formMain"));
    if (progDir_.endsWith(QLatin1Char('/')) && progDir_.size() > 1)
        progDir_.chop(1);
    fileDir_ = withSlash(progDir_);
    setWindowTitle(appTitle() + QLatin1Char(' ') + appVersion());
    buildMenus();

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* hint = new QLabel(
        tr("Open a zone file from the Mobile, Room or Object menu, or start a new one."), central);
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
    delete editorWindow_.data();
    delete aboutWindow_.data();
}

void FormMain::setEditorFactory(int kind, EditorFactory factory) {
    factories_.at(static_cast<std::size_t>(kind)) = std::move(factory);
}

void FormMain::setAboutFactory(std::function<QWidget*()> factory) {
    aboutFactory_ = std::move(factory);
}

void FormMain::addFileMenu(int kind) {
    const QString name = QString::fromLatin1(kindInfo(kind).name);
    QMenu* menu = menuBar()->addMenu(QLatin1Char('&') + name);
    menu->setObjectName(QStringLiteral("menu") + name);
    menu->menuAction()->setObjectName(QStringLiteral("menu") + name);
    QAction* newAction = menu->addAction(QStringLiteral("&New %1 File").arg(name));
    newAction->setObjectName(QStringLiteral("menu%1New").arg(name));
    // Zone's Open has no access key of its own.
    QAction* openAction = menu->addAction(
        QStringLiteral("%1Open %2 File").arg(QLatin1String(kind == KindZone ? "" : "&"), name));
    openAction->setObjectName(QStringLiteral("menu%1Open").arg(name));
    menu->addSeparator()->setObjectName(QStringLiteral("menu%1Sep1").arg(name));
    for (int index = 0; index < kRecentPerKind; ++index) {
        QAction* item =
            menu->addAction(index == 0 ? QStringLiteral("Recent") : QStringLiteral("-"));
        item->setObjectName(QStringLiteral("menu%1Recent%2").arg(name).arg(index));
        item->setVisible(false);
        recentActions_[kind][index] = item;
        if (kind <= KindObject)
            connect(item, &QAction::triggered, this,
                    [this, kind, index] { LoadEditor(kind, false, false, index); });
    }
    if (kind <= KindObject) {
        connect(newAction, &QAction::triggered, this,
                [this, kind] { LoadEditor(kind, true, true, 0); });
        connect(openAction, &QAction::triggered, this,
                [this, kind] { LoadEditor(kind, false, true, 0); });
    } else {
        // Shops and zones have no editor: their menus stand greyed.
        menu->menuAction()->setEnabled(false);
        menu->setEnabled(false);
    }
}

void FormMain::buildMenus() {
    for (int kind = 0; kind < kFileKinds; ++kind)
        addFileMenu(kind);
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("menuHelp"));
    help->menuAction()->setObjectName(QStringLiteral("menuHelp"));
    QAction* about = help->addAction(QStringLiteral("&About"));
    about->setObjectName(QStringLiteral("menuHelpAbout"));
    connect(about, &QAction::triggered, this, &FormMain::showAbout);
}

void FormMain::showRecent() {
    for (int kind = 0; kind < kFileKinds; ++kind)
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

void FormMain::LoadEditor(int kind, bool isNew, bool useDialog, int recentIndex) {
    if (kind < KindMobile || kind > KindObject || editorWindow_)
        return;
    const KindInfo& info = kindInfo(kind);
    const EditorFactory& factory = factories_[static_cast<std::size_t>(kind)];
    if (!factory) {
        // Said before the dialog, so that no file goes into the recent list
        // for an editor this version does not have.
        prompts_.tell(tr("The %1 editor is not available in this version.")
                          .arg(QString::fromLatin1(info.name).toLower()));
        return;
    }
    QString fileTitle;
    QString directory;
    if (useDialog) {
        const QString fileWord = QString::fromLatin1(info.fileWord);
        FileRequest request;
        request.save = isNew;
        request.title =
            QStringLiteral("%1 %2 File").arg(QLatin1String(isNew ? "New" : "Open"), fileWord);
        request.filter =
            QStringLiteral("%1 files (*%2)").arg(fileWord, QLatin1String(info.extension));
        request.defaultSuffix = QString::fromLatin1(info.extension + 1);
        request.directory = progDir_;
        const QString path = chooser_.choose(request);
        if (path.isEmpty())
            return; // cancelled: nothing to say
        const QFileInfo chosen(path);
        fileTitle = chosen.fileName();
        directory = withSlash(chosen.absolutePath());
    } else {
        const RecentEntry& entry = recent_.entry(kind, recentIndex);
        if (entry.isEmpty())
            return;
        fileTitle = entry.fileTitle;
        directory = entry.directory;
    }

    const std::optional<std::int32_t> zone = zoneFromFileName(toBytes(fileTitle));
    if (!zone) {
        prompts_.tell(tr("%1 cannot be opened: the name of a zone file begins with its zone "
                         "number, as in 30%2.")
                          .arg(fileTitle, QString::fromLatin1(info.extension)));
        return;
    }
    zoneNumber_ = *zone;
    fileDir_ = directory;
    if (useDialog) {
        // The choice heads the list before the file is read, even if the
        // reading then fails.
        recent_.update(kind, fileDir_, fileTitle);
        showRecent();
    }
    QDir::setCurrent(fileDir_);

    ZoneEditor* editor = factory(*this);
    QWidget* window = editor->window();
    if (isNew) {
        editor->newZone(zoneNumber_);
    } else {
        QString error;
        if (!editor->openZone(zoneNumber_, error)) {
            window->deleteLater();
            ChProgDir();
            prompts_.tell(error);
            return;
        }
    }
    editorWindow_ = window;
    window->show();
    setEnabled(false);
}

void FormMain::editorClosed() {
    editorWindow_ = nullptr;
    ChProgDir();
    setEnabled(true);
    activateWindow();
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
    if (editorWindow_) {
        event->ignore();
        editorWindow_->raise();
        editorWindow_->activateWindow();
        return;
    }
    if (aboutWindow_)
        aboutWindow_->close();
    event->accept();
}

} // namespace marl
