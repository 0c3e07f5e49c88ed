// The main window: its menus, opening a file through the dialog or a recent
// item (into a stand-in editor; the real editors open in open_files_test),
// and the recent-files lists.
#include "test_main.h"

#include <QtTest>

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

#include "fake_editor.h"
#include "shell/form_main.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

class FormMainTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> progDir, zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    EditorLog log;
    std::vector<std::unique_ptr<FormMain>> windows;

    FormMain* start(const QString& dir = {}) {
        windows.push_back(
            std::make_unique<FormMain>(dir.isEmpty() ? progDir->path() : dir, prompts, chooser));
        for (int kind : {KindMobile, KindRoom, KindObject})
            windows.back()->setEditorFactory(
                kind, [this](EditorHost& host) { return new FakeEditor(host, log); });
        return windows.back().get();
    }

    void choose(FormMain* window, const QString& name, const QString& item = "menuRoomOpen") {
        chooser.paths << (name.isEmpty() ? QString() : zonePath() + name);
        window->findChild<QAction*>(item)->trigger();
    }

    void finish(FormMain* window) { static_cast<FakeEditor*>(window->openEditor())->finish(); }

    // The visible recent items of every kind: "Room 30.wld".
    static QStringList shown(FormMain* window) {
        QStringList captions;
        for (const char* kind : {"Mobile", "Room", "Object", "Shop", "Zone"})
            for (int i = 0; i < kRecentPerKind; ++i)
                if (auto* item = window->findChild<QAction*>(
                        QStringLiteral("menu%1Recent%2").arg(kind).arg(i));
                    item->isVisible())
                    captions << QStringLiteral("%1 %2").arg(kind, item->text());
        return captions;
    }

    QString zonePath() const { return QDir::fromNativeSeparators(zoneDir->path()) + '/'; }
    QString recentDat() const { return QDir(progDir->path()).filePath("recent.dat"); }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        progDir = std::make_unique<QTemporaryDir>();
        zoneDir = std::make_unique<QTemporaryDir>();
        prompts.reset();
        chooser = {};
        log = {};
    }

    void cleanup() {
        MARL_VERIFY_PROMPTS(prompts);
        windows.clear();
    }

    void menus() {
        FormMain* window = start();
        QCOMPARE(window->windowTitle(), QStringLiteral("Marl - Marlstone 0.3.1"));
        // Per top menu its visible items, as object name (without "menu") and
        // caption; a greyed menu starts with "-".
        QStringList menus;
        for (QAction* top : window->menuBar()->actions()) {
            QStringList items;
            for (QAction* item : top->menu()->actions())
                if (item->isVisible())
                    items << (item->objectName().mid(4) + ' ' + item->text()).trimmed();
            menus << (top->isEnabled() ? "" : "-") + top->objectName().mid(4) + ' ' + top->text() +
                         '|' + items.join('|');
        }
        const QStringList expected = {
            "Mobile &Mobile|MobileNew &New Mobile File|MobileOpen &Open Mobile File|MobileSep1",
            "Room &Room|RoomNew &New Room File|RoomOpen &Open Room File|RoomSep1",
            "Object &Object|ObjectNew &New Object File|ObjectOpen &Open Object File|ObjectSep1",
            "-Shop &Shop|ShopNew &New Shop File|ShopOpen &Open Shop File|ShopSep1",
            "-Zone &Zone|ZoneNew &New Zone File|ZoneOpen Open Zone File|ZoneSep1",
            "Help &Help|HelpAbout &About"};
        QCOMPARE(menus, expected);
        QVERIFY(shown(window).isEmpty()); // every recent item hidden until filled
        // The items of the greyed Shop and Zone menus do nothing even when triggered.
        for (const char* item : {"menuShopNew", "menuShopOpen", "menuZoneNew", "menuZoneOpen"})
            window->findChild<QAction*>(item)->trigger();
        QVERIFY(chooser.requests.isEmpty());
    }

    void dialogs() {
        FormMain* window = start();
        for (const char* kind : {"Mobile", "Room", "Object"})
            for (const char* command : {"New", "Open"})
                choose(window, "", QStringLiteral("menu%1%2").arg(kind, command)); // cancelled
        QStringList requests;
        for (const FileRequest& r : chooser.requests)
            requests << (r.save ? "save|" : "open|") + r.title + '|' + r.filter + '|' +
                            r.defaultSuffix;
        QCOMPARE(requests, (QStringList{"save|New Mobile File|Mobile files (*.mob)|mob",
                                        "open|Open Mobile File|Mobile files (*.mob)|mob",
                                        "save|New World File|World files (*.wld)|wld",
                                        "open|Open World File|World files (*.wld)|wld",
                                        "save|New Object File|Object files (*.obj)|obj",
                                        "open|Open Object File|Object files (*.obj)|obj"}));
        QVERIFY(window->isEnabled() && !window->openEditor() && shown(window).isEmpty());
    }

    void loadEditor_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("call");    // what the editor was asked; empty: nothing
        QTest::addColumn<QString>("message"); // empty: none
        QTest::addColumn<bool>("recent");     // the choice heads the Room list
        QTest::newRow("30.wld") << "menuRoomOpen"
                                << "30.wld"
                                << "open 30"
                                << "" << true;
        QTest::newRow("New 31.wld") << "menuRoomNew"
                                    << "31.wld"
                                    << "new 31"
                                    << "" << true;
        QTest::newRow("castle.wld") << "menuRoomOpen"
                                    << "castle.wld"
                                    << ""
                                    << "castle.wld cannot be opened: the name of a zone file "
                                       "begins with its zone number, as in 30.wld."
                                    << false;
        // Not listed when the reading fails: it would fail again from the top.
        QTest::newRow("unreadable")
            << "menuRoomOpen"
            << "25.wld"
            << "open 25"
            << "25.wld, line 4: expected the line \"<zone> <flags> <sector>\"" << false;
        // Refused before the dialog.
        QTest::newRow("no editor")
            << "menuObjectOpen"
            << ""
            << ""
            << "The object editor is not available in this version." << false;
    }

    void loadEditor() {
        QFETCH(QString, item);
        QFETCH(QString, file);
        QFETCH(QString, call);
        QFETCH(QString, message);
        QFETCH(bool, recent);
        FormMain* window = start();
        window->setEditorFactory(KindObject, nullptr);
        log.failOpen = !call.isEmpty() && !message.isEmpty();
        prompts.expectTells(message.isEmpty() ? 0 : 1);
        choose(window, file, item);

        QCOMPARE(prompts.messages(),
                 message.isEmpty() ? QStringList{} : QStringList{"Marl - Marlstone: " + message});
        QCOMPARE(chooser.requests.size(), file.isEmpty() ? 0 : 1);
        QCOMPARE(log.calls.join(""), call);
        QCOMPARE(shown(window), recent ? QStringList{"Room " + file} : QStringList{});
        QCOMPARE(QFile::exists(recentDat()), recent);
        if (!call.isEmpty()) {
            // FileDir is set and made the current directory before the editor reads.
            QCOMPARE(log.fileDirAtCall, zonePath());
            QCOMPARE(log.currentDirAtCall, zonePath());
        }
        const bool opened = !call.isEmpty() && message.isEmpty();
        QCOMPARE(window->openEditor() && window->openEditor()->isVisible(), opened);
        QCOMPARE(window->isEnabled(), !opened);
        if (opened)
            finish(window);
        QVERIFY(window->isEnabled());
        QCOMPARE(QDir::currentPath(), QDir(progDir->path()).canonicalPath());
    }

    void closesOnlyWithoutAnEditor() {
        FormMain* window = start();
        QPointer<QWidget> about;
        window->setAboutFactory([&about] {
            about = new QWidget;
            about->setAttribute(Qt::WA_DeleteOnClose);
            return about.data();
        });
        window->show();
        choose(window, "30.wld");
        QVERIFY(!window->close());
        finish(window);
        window->findChild<QAction*>("menuHelpAbout")->trigger();
        QVERIFY(about && about->isVisible() && !window->isEnabled());
        // Closing the main window closes the About box too, and asks nothing.
        QVERIFY(window->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(about.isNull());
    }

    void recentLists_data() {
        QTest::addColumn<QStringList>("stored"); // recent.dat at start; none when empty
        QTest::addColumn<QStringList>("opened"); // then chosen through the dialog
        QTest::addColumn<QStringList>("shown");  // now and on the next run
        const QStringList none;
        QTest::newRow("first run, one file")
            << none << QStringList{"30.wld"} << QStringList{"Room 30.wld"};
        QTest::newRow("five files: the last four")
            << none << QStringList{"1.wld", "2.wld", "3.wld", "4.wld", "5.wld"}
            << QStringList{"Room 5.wld", "Room 4.wld", "Room 3.wld", "Room 2.wld"};
        QTest::newRow("one file twice")
            << none << QStringList{"30.wld", "30.wld"} << QStringList{"Room 30.wld", "Room 30.wld"};
        QTest::newRow("a fifth of a kind passed over")
            << QStringList{R"(1,"/a/","1.wld")", R"(1,"/a/","2.wld")", R"(1,"/a/","3.wld")",
                           R"(1,"/a/","4.wld")", R"(1,"/a/","5.wld")", R"(2,"/o/","8.obj")"}
            << none
            << QStringList{"Room 1.wld", "Room 2.wld", "Room 3.wld", "Room 4.wld", "Object 8.obj"};
        QTest::newRow("a fifth of a kind, then a choice")
            << QStringList{R"(1,"/a/","1.wld")", R"(1,"/a/","2.wld")", R"(1,"/a/","3.wld")",
                           R"(1,"/a/","4.wld")", R"(1,"/a/","5.wld")"}
            << QStringList{"30.wld"}
            << QStringList{"Room 30.wld", "Room 1.wld", "Room 2.wld", "Room 3.wld"};
        QTest::newRow("four of a kind; unknown kinds and empty directories passed over")
            << QStringList{R"(0,"/m/","9.mob")",  R"(1,"/a/","1.wld")", R"(1,"/a/","2.wld")",
                           R"(1,"/a/","3.wld")",  R"(1,"/a/","4.wld")", R"(1,"/a/","5.wld")",
                           R"(1,"/a/","6.wld")",  R"(7,"/x/","7.wld")", R"(2,"","7.obj")",
                           R"(3,"/s/","10.shp")", R"(2,"/o/","8.obj")"}
            << none << QStringList{"Mobile 9.mob", "Room 1.wld",   "Room 2.wld", "Room 3.wld",
                                   "Room 4.wld",   "Object 8.obj", "Shop 10.shp"};
        // A line that is not an entry ends the reading; what came before stays.
        const QString good = R"(1,"/a/","1.wld")";
        for (const char* bad :
             {R"(x,"/a/","2.wld")", R"(1,"/a/")", R"(1,/a/,"2.wld")", R"(1,"/a/,"2.wld)", ""})
            QTest::addRow("bad line [%s]", bad)
                << QStringList{good, bad, good} << none << QStringList{"Room 1.wld"};
        QTest::newRow("a choice after a bad line")
            << QStringList{good, "1"} << QStringList{"30.wld"}
            << QStringList{"Room 30.wld", "Room 1.wld"};
    }

    void recentLists() {
        QFETCH(QStringList, stored);
        QFETCH(QStringList, opened);
        QFETCH(QStringList, shown);
        if (!stored.isEmpty())
            writeBytes(recentDat(), (stored.join("\r\n") + "\r\n").toStdString());
        FormMain* window = start();
        for (const QString& name : opened) {
            choose(window, name);
            finish(window);
        }
        QCOMPARE(this->shown(window), shown);
        QCOMPARE(this->shown(start()), shown);
    }

    void recentDatAndRecentItems() {
        const QString odd = R"(say "hi", then/)"; // quotes and commas survive
        FormMain* first = start();
        choose(first, odd + "30.wld");
        finish(first);
        choose(first, "12.mob", "menuMobileOpen");
        finish(first);
        // Kind by kind, whatever the order of opening; CR LF line ends.
        const std::string stored = readBytes(recentDat());
        QCOMPARE(
            QString::fromStdString(stored),
            QStringLiteral("0,\"%1\",\"12.mob\"\r\n1,\"%1say \"\"hi\"\", then%2\",\"30.wld\"\r\n")
                .arg(QDir::toNativeSeparators(zonePath()), QString(QDir::separator())));

        FormMain* window = start();
        log = {};
        window->findChild<QAction*>("menuRoomRecent0")->trigger();
        QCOMPARE(log.calls, QStringList{"open 30"});
        QCOMPARE(log.fileDirAtCall, zonePath() + odd);
        QVERIFY(!window->isEnabled());
        finish(window);
        // Opening a recent item changes neither the list nor recent.dat.
        QCOMPARE(shown(window), (QStringList{"Mobile 12.mob", "Room 30.wld"}));
        QCOMPARE(readBytes(recentDat()), stored);
    }

    // A recent item whose name gives no zone (recent.dat written by hand) is
    // refused like a chosen one, and the list stays as it was.
    void recentItemWithoutAZone() {
        const std::string stored = "1,\"" + zonePath().toStdString() + "\",\"+30.wld\"\r\n";
        writeBytes(recentDat(), stored);
        FormMain* window = start();
        prompts.expectTells(1);
        window->findChild<QAction*>("menuRoomRecent0")->trigger();
        QCOMPARE(prompts.messages(),
                 QStringList{"Marl - Marlstone: +30.wld cannot be opened: the name of a zone file "
                             "begins with its zone number, as in 30.wld."});
        QVERIFY(log.calls.isEmpty() && window->isEnabled());
        QCOMPARE(readBytes(recentDat()), stored);
    }

    // The real dialog takes a typed name at once: Open does not insist on an
    // existing file (the editor then says it is missing), New does not ask
    // before replacing one.
    void fileDialogAsksNothing() {
        writeBytes(zonePath() + "44.wld", "$\n");
        for (bool save : {false, true}) {
            const QString name = save ? "44" : "45";
            QTimer::singleShot(0, [name] {
                auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
                QTest::keyClick(dialog, Qt::Key_Return);
            });
            // Whatever stays open then is closed, so that a failure cannot hang.
            QTimer::singleShot(500, [] {
                while (QWidget* left = QApplication::activeModalWidget())
                    left->close();
            });
            DialogFileChooser dialogs;
            QCOMPARE(dialogs.choose({save, "Title", "World files (*.wld)", "wld", zoneDir->path()}),
                     zonePath() + name + ".wld");
        }
    }
};

MARL_TEST_MAIN(FormMainTest)
#include "form_main_test.moc"
