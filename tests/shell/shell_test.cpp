// The main window: files opened through the menus, the command line or a
// drop; the recent-files lists and recent.dat.
#include "test_main.h"

#include <QtTest>

#include <QAction>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>

#include "../world/zone_files.h"
#include "fake_editor.h"
#include "mobiles/form_mobile.h"
#include "objects/form_object.h"
#include "rooms/form_room.h"
#include "shell/command_line.h"
#include "shell/form_main.h"
#include "shell/kind_windows.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

class ShellTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> progDir, zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    EditorLog log;
    std::vector<std::unique_ptr<FormMain>> windows;

    // A main window with the real editors, or with editors that log their calls.
    FormMain* start(bool real) {
        windows.push_back(std::make_unique<FormMain>(progDir->path(), prompts, chooser));
        FormMain* window = windows.back().get();
        if (real) {
            useKindWindows(*window);
        } else {
            for (int kind : {MobileKind::info.number, RoomKind::info.number, ObjectKind::info.number})
                window->setEditorFactory(kind, [this](EditorHost& host) { return new FakeEditor(host, log); });
        }
        window->show();
        return window;
    }
    QString zonePath(const QString& name = {}) const { return QDir::fromNativeSeparators(zoneDir->path()) + '/' + name; }
    QString recentDat() const { return QDir(progDir->path()).filePath("recent.dat"); }
    void choose(FormMain* window, const QString& item, const QString& name) {
        chooser.paths << (name.isEmpty() ? QString() : zonePath(name));
        window->findChild<QAction*>(item)->trigger();
    }
    void finish(FormMain* window) { static_cast<FakeEditor*>(window->openEditor())->finish(); }

    // The visible recent items of every kind: "Room 30.wld".
    static QStringList shown(FormMain* window) {
        QStringList captions;
        for (const char* kind : {"Mobile", "Room", "Object", "Shop", "Zone"})
            for (int i = 0; i < kRecentPerKind; ++i)
                if (auto* item = window->findChild<QAction*>(QStringLiteral("menu%1Recent%2").arg(kind).arg(i));
                    item->isVisible())
                    captions << QStringLiteral("%1 %2").arg(kind, item->text());
        return captions;
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        progDir = std::make_unique<QTemporaryDir>();
        zoneDir = std::make_unique<QTemporaryDir>();
        prompts.reset();
        chooser = {};
        log = {};
        const std::string example = readBytes(examplesDir() + "/95.wld");
        QDir(zoneDir->path()).mkdir("sub");
        for (const char* name : {"95.wld", "96.wld", "sub/95.wld"})
            writeBytes(zonePath(name), example);
        for (const char* name : {"30.mob", "30.obj", "notes.txt"})
            writeBytes(zonePath(name), "$\n");
        writeBytes(zonePath("30.shp"), "$~\n");
        writeBytes(zonePath("30.zon"), lf({"#30", "Zone~", "3000 3099 15 2", "S", "$"}));
        writeBytes(zonePath("24.wld"), lf({"#2400", "Room~", "~", "24 0 0", "S", "#2401", "Room~", "~", "24 0 0", "D0",
                                           "~", "~", "0 -1", "S", "$"}));
    }

    void cleanup() {
        MARL_VERIFY_PROMPTS(prompts);
        windows.clear();
        QDir::setCurrent(QDir::tempPath());
    }

    void opens_data() {
        // How the files are given (Open, New, the command line, a drop), the
        // windows that appear, the messages (how each begins), the Room list.
        columns<QString, QString, QStringList, QStringList, QStringList>({"how", "files", "opened", "messages", "recent"});
        const QStringList none, room = {"formRoom 9500"};
        const QString notZone = "%1 is not opened: Marl opens world files (*.wld), mobile files (*.mob), object files (*.obj), shop files (*.shp) and zone files (*.zon).";
        const QString noZone = "%1 cannot be opened: the name of a zone file begins with its zone number, as in 30.wld.";
        const struct { const char* name; QString files; QStringList opened, messages, recent, ways = {"Open", "line", "drop"}; } rows[] = {
            {"a world file", "95.wld", room, none, {"95.wld"}},
            {"in another folder", "sub/95.wld", room, none, {"95.wld"}},
            {"a mobile file", "30.mob", {"formMobile 3000"}, none, none},
            {"an object file", "30.obj", {"formObject 3000"}, none, none},
            {"a shop file", "30.shp", {"formShop 3000"}, none, none},
            {"a zone file", "30.zon", {"formZone 3000"}, none, none},
            {"a new zone file", "31.zon", {"formZone 3100"}, none, none, {"New"}},
            {"a new world file", "31.wld", {"formRoom 3100"}, none, {"31.wld"}, {"New"}},
            {"one of each kind", "30.mob 95.wld 30.obj", {"formMobile 3000", "formObject 3000", "formRoom 9500"}, none, {"95.wld"}, {"line", "drop"}},
            {"two world files", "95.wld 96.wld", room, {"96.wld is not opened: the room editor opens one file at a time."}, {"95.wld"}, {"line", "drop"}},
            // Listed before it is read; the editor's message says what went wrong.
            {"a missing file: not in the recent list", "25.wld", none, {"25.wld: "}, none},
            {"a file that does not read", "24.wld", none, {"24.wld, line 13: expected an exit line \"<door> <key> <to>\""}, none},
            {"files of another kind", "notes.txt 95.WLD 95.wld", room, {notZone.arg("notes.txt"), notZone.arg("95.WLD")}, {"95.wld"}, {"line", "drop"}},
            {"095.wld: that file, not 95.wld", "095.wld", none, {"095.wld: "}, none},
            {"castle.wld", "castle.wld", none, {noZone.arg("castle.wld")}, none},
            {"options before the files", "--version 95.wld", none, none, none, {"line"}},
            {"-- before a name", "-- 95.wld", room, none, {"95.wld"}, {"line"}},
        };
        for (const auto& row : rows)
            for (const QString& how : row.ways)
                QTest::addRow("%s, %s", qPrintable(how), row.name) << how << row.files << row.opened << row.messages << row.recent;
    }

    void opens() {
        QFETCH(QString, how);
        QFETCH(QString, files);
        QFETCH(QStringList, opened);
        QFETCH(QStringList, messages);
        QFETCH(QStringList, recent);
        QDir::setCurrent(zoneDir->path());
        writeBytes(zonePath("castle.wld"), "$\n");
        const CommandLine line = parseCommandLine(files.split(' ', Qt::SkipEmptyParts));
        FormMain* main = start(true);
        prompts.expectTells(int(messages.size()));
        QMimeData data;
        for (const QString& file : line.files)
            data.setUrls(data.urls() << QUrl::fromLocalFile(file));
        if (how == "drop") { // straight to the window: outside a real drag Qt routes no drops
            QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            static_cast<QObject*>(main)->event(&enter);
            QVERIFY(enter.isAccepted());
            QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            static_cast<QObject*>(main)->event(&drop);
            QCoreApplication::processEvents();
        } else if (how == "line" && line.action == CommandLine::Action::Run) {
            main->openFiles(line.files);
        } else if (how != "line") {
            const QString kind = files.endsWith(".mob")   ? "Mobile"
                                 : files.endsWith(".obj") ? "Object"
                                 : files.endsWith(".shp") ? "Shop"
                                 : files.endsWith(".zon") ? "Zone"
                                                          : "Room";
            choose(main, "menu" + kind + how, files);
        }
        QStringList shown;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible() && top != main) { // a record's editor by its VNum, a zone's by its bottom
                auto* vnum = top->findChild<QLineEdit*>("textVNum");
                if (auto* field = vnum ? vnum : top->findChild<QLineEdit*>("textBottom"))
                    shown << top->objectName() + ' ' + field->text();
            }
        shown.sort();
        QCOMPARE(shown, opened);
        QCOMPARE(main->isEnabled(), opened.isEmpty());
        QCOMPARE(prompts.records.size(), messages.size());
        for (int i = 0; i < messages.size(); ++i)
            QVERIFY2(prompts.records[i].text.startsWith(messages[i]), qPrintable(prompts.records[i].text));
        QCOMPARE(this->shown(main).filter(QRegularExpression("^Room ")).replaceInStrings("Room ", ""), recent);
        QCOMPARE(chooser.requests.size(), how[0].isUpper() ? 1 : 0);
        if (!opened.isEmpty() && !recent.isEmpty()) // the editor reads from the file's folder, made the current one
            QCOMPARE(QDir::currentPath() + '/', files.contains("sub/") ? zonePath("sub/") : zonePath());
    }

    void recentLists_data() {
        columns<QStringList, QStringList, QStringList>({"stored", "opened", "shown"}); // now and on the next run
        const QStringList none;
        QStringList five;
        for (const char* name : {"1", "2", "3", "4", "5"})
            five << QStringLiteral(R"(1,"/a/","%1.wld")").arg(name);
        QTest::newRow("five files: the last four") << none << QStringList{"1.wld", "2.wld", "3.wld", "4.wld", "5.wld"}
                                                   << QStringList{"Room 5.wld", "Room 4.wld", "Room 3.wld", "Room 2.wld"};
        QTest::newRow("one file twice") << none << QStringList{"30.wld", "30.wld"} << QStringList{"Room 30.wld", "Room 30.wld"};
        QTest::newRow("a fifth of a kind passed over; unknown kinds and empty folders too")
            << QStringList{R"(0,"/m/","9.mob")"} + five + QStringList{R"(7,"/x/","7.wld")", R"(2,"","7.obj")", R"(3,"/s/","10.shp")", R"(2,"/o/","8.obj")"}
            << none << QStringList{"Mobile 9.mob", "Room 1.wld", "Room 2.wld", "Room 3.wld", "Room 4.wld", "Object 8.obj", "Shop 10.shp"};
        QTest::newRow("a fifth of a kind, then a choice")
            << five << QStringList{"30.wld"} << QStringList{"Room 30.wld", "Room 1.wld", "Room 2.wld", "Room 3.wld"};
        // A line that is not an entry ends the reading; what came before stays.
        for (const char* bad : {R"(x,"/a/","2.wld")", R"(1,"/a/")", R"(1,/a/,"2.wld")", R"(1,"/a/,"2.wld)", ""})
            QTest::addRow("bad line [%s]", bad) << QStringList{five[0], bad, five[1]} << none << QStringList{"Room 1.wld"};
    }

    void recentLists() {
        QFETCH(QStringList, stored);
        QFETCH(QStringList, opened);
        QFETCH(QStringList, shown);
        if (!stored.isEmpty())
            writeBytes(recentDat(), (stored.join("\r\n") + "\r\n").toStdString());
        FormMain* window = start(false);
        for (const QString& name : opened) {
            choose(window, "menuRoomOpen", name);
            QCOMPARE(log.fileDirAtCall, zonePath());
            QVERIFY(!window->isEnabled());
            finish(window);
            QVERIFY(window->isEnabled());
        }
        QCOMPARE(this->shown(window), shown);
        QCOMPARE(this->shown(start(false)), shown);
    }

    // recent.dat: kind by kind, quotes doubled, CR LF; a recent item opens and changes nothing.
    void recentItems() {
        const QString odd = R"(say "hi", then/)";
        QDir(zoneDir->path()).mkpath(odd);
        FormMain* first = start(false);
        choose(first, "menuRoomOpen", odd + "30.wld");
        finish(first);
        choose(first, "menuMobileOpen", "30.mob");
        finish(first);
        const std::string stored = readBytes(recentDat());
        QCOMPARE(QString::fromStdString(stored),
                 QStringLiteral("0,\"%1\",\"30.mob\"\r\n1,\"%1say \"\"hi\"\", then%2\",\"30.wld\"\r\n")
                     .arg(QDir::toNativeSeparators(zonePath()), QString(QDir::separator())));
        FormMain* window = start(false);
        log = {};
        window->findChild<QAction*>("menuRoomRecent0")->trigger();
        QCOMPARE(log.calls, QStringList{"open 30"});
        QCOMPARE(log.fileDirAtCall, zonePath(odd));
        finish(window);
        QCOMPARE(shown(window), (QStringList{"Mobile 30.mob", "Room 30.wld"}));
        QCOMPARE(readBytes(recentDat()), stored);
    }

    // The main window does not close under an editor; closing it closes the About box.
    void closesOnlyWithoutAnEditor() {
        FormMain* window = start(false);
        QPointer<QWidget> about;
        window->setAboutFactory([&about] {
            about = new QWidget;
            about->setAttribute(Qt::WA_DeleteOnClose);
            return about.data();
        });
        choose(window, "menuRoomOpen", "30.wld");
        QVERIFY(!window->close());
        finish(window);
        window->findChild<QAction*>("menuHelpAbout")->trigger();
        QVERIFY(about && about->isVisible() && !window->isEnabled());
        QVERIFY(window->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(about.isNull());
    }
};

MARL_TEST_MAIN(ShellTest)
#include "shell_test.moc"
