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
#include "world/qt_text.h"
#include "world/zone.h"

namespace marl {

namespace {

struct KindInfo {
    const char* name;
    const char* extension;
    const char* filter;
    const char* newTitle;
    const char* openTitle;
    const char* noun;
};

const std::array<KindInfo, 3> kKinds = {{
    {"Mobile", ".mob", "Mobile files (*.mob)", "New Mobile File", "Open Mobile File", "mobile"},
    {"Room", ".wld", "World files (*.wld)", "New World File", "Open World File", "room"},
    {"Object", ".obj", "Object files (*.obj)", "New Object File", "Open Object File", "object"},
}};

QString withSlash(QString dir) {
    dir = QDir::fromNativeSeparators(dir);
    if (!dir.endsWith(QLatin1Char('/')))
        dir += QLatin1Char('/');
    return dir;
}

// A file title shown as a menu caption: `&` would become an access key.
QString menuText(QString title) { return title.replace(QLatin1Char('&'), QStringLiteral("&&")); }

} // namespace

FormMain::FormMain(const QString& progDir, Prompts& prompts, FileChooser& chooser,
                   QWidget* parent)
    : QMainWindow(parent), progDir_(QDir::fromNativeSeparators(progDir)), prompts_(prompts),
      chooser_(chooser), recent_(progDir) {
    setObjectName(QStringLiteral("formMain"));
    if (progDir_.endsWith(QLatin1Char('/')) && progDir_.size() > 1)
        progDir_.chop(1);
    fileDir_ = withSlash(progDir_);
    setWindowTitle(appTitle() + QStringLiteral(" %1.%2.%3")
                                    .arg(MARL_VERSION_MAJOR)
                                    .arg(MARL_VERSION_MINOR)
                                    .arg(MARL_VERSION_PATCH));
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

QMenu* FormMain::addFileMenu(int kind, const QString& name, const QString& caption,
                             const QString& newCaption, const QString& openCaption) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(QStringLiteral("menu") + name);
    menu->menuAction()->setObjectName(QStringLiteral("menu") + name);
    QAction* newAction = menu->addAction(newCaption);
    newAction->setObjectName(QStringLiteral("menu%1New").arg(name));
    QAction* openAction = menu->addAction(openCaption);
    openAction->setObjectName(QStringLiteral("menu%1Open").arg(name));
    QAction* separator = menu->addSeparator();
    separator->setObjectName(QStringLiteral("menu%1Sep1").arg(name));
    for (int index = 0; index < kRecentPerKind; ++index) {
        QAction* item = menu->addAction(index == 0 ? QStringLiteral("Recent") : QStringLiteral("-"));
        item->setObjectName(QStringLiteral("menu%1Recent%2").arg(name).arg(index));
        item->setVisible(false);
        recentActions_[kind][index] = item;
        if (kind <= KindObject)
            connect(item, &QAction::triggered, this,
                    [this, kind, index] { LoadEditor(kind, false, false, index); });
    }
    if (kind <= KindObject) {
        connect(newAction, &QAction::triggered, this, [this, kind] { LoadEditor(kind, true, true, 0); });
        connect(openAction, &QAction::triggered, this,
                [this, kind] { LoadEditor(kind, false, true, 0); });
    } else {
        menu->menuAction()->setEnabled(false);
        menu->setEnabled(false);
    }
    return menu;
}

void FormMain::buildMenus() {
    addFileMenu(KindMobile, QStringLiteral("Mobile"), QStringLiteral("&Mobile"),
                QStringLiteral("&New Mobile File"), QStringLiteral("&Open Mobile File"));
    addFileMenu(KindRoom, QStringLiteral("Room"), QStringLiteral("&Room"),
                QStringLiteral("&New Room File"), QStringLiteral("&Open Room File"));
    addFileMenu(KindObject, QStringLiteral("Object"), QStringLiteral("&Object"),
                QStringLiteral("&New Object File"), QStringLiteral("&Open Object File"));
    addFileMenu(KindShop, QStringLiteral("Shop"), QStringLiteral("&Shop"),
                QStringLiteral("&New Shop File"), QStringLiteral("&Open Shop File"));
    addFileMenu(KindZone, QStringLiteral("Zone"), QStringLiteral("&Zone"),
                QStringLiteral("&New Zone File"), QStringLiteral("Open Zone File"));
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

void FormMain::ChProgDir() { QDir::setCurrent(progDir_); }

void FormMain::LoadEditor(int kind, bool isNew, bool useDialog, int recentIndex) {
    if (kind < KindMobile || kind > KindObject || editorWindow_)
        return;
    const KindInfo& info = kKinds[static_cast<std::size_t>(kind)];
    QString fileTitle;
    QString directory;
    if (useDialog) {
        FileRequest request;
        request.save = isNew;
        request.title = QString::fromLatin1(isNew ? info.newTitle : info.openTitle);
        request.filter = QString::fromLatin1(info.filter);
        request.defaultSuffix = QString::fromLatin1(info.extension + 1);
        request.directory = progDir_;
        const QString path = chooser_.choose(request);
        if (path.isEmpty())
            return;  // cancelled: nothing to say
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
        recent_.update(kind, fileDir_, fileTitle);
        showRecent();
    }
    QDir::setCurrent(fileDir_);

    if (!factories_[static_cast<std::size_t>(kind)]) {
        ChProgDir();
        prompts_.tell(tr("The %1 editor is not available in this version.")
                          .arg(QString::fromLatin1(info.noun)));
        return;
    }
    ZoneEditor* editor = factories_[static_cast<std::size_t>(kind)](*this);
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
