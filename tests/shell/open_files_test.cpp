// Files given to the program from outside the menus (its command line, a
// drop on the main window), the folder its file dialogs start in, and where
// recent.dat is kept.
#include "test_main.h"
#include "built_programs.h"

#include <QtTest>

#include <QAction>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>

#include "mobiles/form_mobile.h"
#include "objects/form_object.h"
#include "rooms/form_room.h"
#include "shell/command_line.h"
#include "shell/desktop_paths.h"
#include "shell/form_main.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

namespace {

// The kinds whose editor the program registers (as src/app/main.cpp does);
// every kind has one.
void registerEditors(FormMain& window) {
    window.setEditorFactory(KindRoom, [](EditorHost& host) { return new FormRoom(host); });
    window.setEditorFactory(KindMobile, [](EditorHost& host) { return new FormMobile(host); });
    window.setEditorFactory(KindObject, [](EditorHost& host) { return new FormObject(host); });
}

QString configFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Marl";
}

QString documentsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

const QString kOneAtATime = "%1 is not opened: the room editor opens one file at a time.";
const QString kNotZoneFile = "%1 is not opened: Marl opens world files (*.wld), mobile files "
                             "(*.mob) and object files (*.obj).";
const QString kNoZone = "%1 cannot be opened: the name of a zone file begins with its zone "
                        "number, as in 30.wld.";

} // namespace

class OpenFilesTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> progDir, zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    std::unique_ptr<FormMain> window;

    FormMain* start(const QString& recentDir = {}) {
        window = std::make_unique<FormMain>(
            progDir->path(), recentDir.isEmpty() ? progDir->path() : recentDir, prompts, chooser);
        registerEditors(*window);
        window->show();
        return window.get();
    }

    QString zonePath(const QString& name = {}) const {
        return QDir::fromNativeSeparators(zoneDir->path()) + '/' + name;
    }

    // Every visible window but the main one: "formRoom 9500" (its first VNum).
    static QStringList openWindows() {
        QStringList open;
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (!top->isVisible() || top->objectName() == "formMain")
                continue;
            auto* vnum = top->findChild<QLineEdit*>("textVNum");
            open << (top->objectName() + ' ' + (vnum ? vnum->text() : QString())).trimmed();
        }
        return open;
    }

    static QStringList recentRooms(FormMain* window) {
        QStringList titles;
        for (int i = 0; i < kRecentPerKind; ++i)
            if (!window->recent().entry(KindRoom, i).isEmpty())
                titles << window->recent().entry(KindRoom, i).fileTitle;
        return titles;
    }

private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        QDir().mkpath(documentsFolder());
    }

    void init() {
        progDir = std::make_unique<QTemporaryDir>();
        zoneDir = std::make_unique<QTemporaryDir>();
        prompts.reset();
        chooser = {};
        ClearRoomTable();
        QFile::remove(QDir(configFolder()).filePath("recent.dat"));
        const std::string example = readBytes(examplesDir() + "/95.wld");
        QDir(zoneDir->path()).mkdir("sub");
        for (const char* name : {"95.wld", "96.wld", "sub/95.wld"})
            writeBytes(zonePath(name), example);
        for (const char* name : {"30.mob", "30.obj", "notes.txt"})
            writeBytes(zonePath(name), "$\n");
        writeBytes(zonePath("24.wld"), lf({"#2400", "Room~", "~", "24 0 0", "S", "#2401", "Room~",
                                           "~", "24 0 0", "D0", "~", "~", "0 -1", "S", "$"}));
        writeBytes(zonePath("23.wld"), lf({"#2300", "Room~", "~", "* lit", "23 0 0", "S", "$"}));
        QFile huge(zonePath("22.wld"));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(100) << 30)); // sparse
    }

    void cleanup() {
        MARL_VERIFY_PROMPTS(prompts);
        window.reset();
        QDir::setCurrent(QDir::tempPath());
    }

    void givenFiles_data() {
        QTest::addColumn<bool>("dropped");      // dropped on the main window, else the command line
        QTest::addColumn<QString>("arguments"); // relative names are in the zone folder
        QTest::addColumn<QStringList>("opened"); // the windows that appear
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<QStringList>("recent"); // the Room list afterwards
        const QStringList none;
        struct Row {
            const char* name;
            QString arguments;
            QStringList opened, messages, recent;
            bool canDrop = true;
        };
        const QList<Row> rows = {
            {"a world file", "95.wld", {"formRoom 9500"}, none, {"95.wld"}},
            {"a world file in another folder", "sub/95.wld", {"formRoom 9500"}, none, {"95.wld"}},
            {"a mobile file", "30.mob", {"formMobile 3000"}, none, none},
            {"an object file", "30.obj", {"formObject 3000"}, none, none},
            {"one of each kind",
             "30.mob 95.wld 30.obj",
             {"formMobile 3000", "formObject 3000", "formRoom 9500"},
             none,
             {"95.wld"}},
            {"two world files",
             "95.wld 96.wld",
             {"formRoom 9500"},
             {kOneAtATime.arg("96.wld")},
             {"95.wld"}},
            // Not listed: from the top of the list it would fail again.  The
            // editor's own message names what went wrong.
            {"a missing file", "25.wld", none, {"25.wld: "}, none},
            {"a file that does not read",
             "24.wld",
             none,
             {"24.wld, line 13: expected an exit line \"<door> <key> <to>\""},
             none},
            {"a file larger than any zone", "22.wld", none, {"22.wld: the file is larger"}, none},
            {"a missing file, then a good one",
             "25.wld 96.wld",
             none,
             {"25.wld: ", kOneAtATime.arg("96.wld")},
             none},
            {"a line the editor cannot show: told, kept",
             "23.wld",
             {"formRoom 2300"},
             {"The file holds what the editor cannot show"},
             {"23.wld"}},
            {"a file of another kind",
             "notes.txt 95.wld",
             {"formRoom 9500"},
             {kNotZoneFile.arg("notes.txt")},
             {"95.wld"}},
            {"an extension in capitals", "95.WLD", none, {kNotZoneFile.arg("95.WLD")}, none},
            // The zone is the number before the first dot, but the editor
            // reads the file given, never 95.wld in its place.
            {"095.wld", "095.wld", none, {"095.wld: "}, none},
            {"+95.wld", "+95.wld", none, {kNoZone.arg("+95.wld")}, none},
            {"no file", "", none, none, none},
            {"--version", "--version 95.wld", none, none, none, false},
            {"--help", "95.wld --help", none, none, none, false},
            {"an unknown option", "--frobnicate 95.wld", none, none, none, false},
            {"-- before a name", "-- 95.wld", {"formRoom 9500"}, none, {"95.wld"}, false},
        };
        for (const Row& row : rows)
            for (bool dropped : {false, true})
                if (!dropped || row.canDrop)
                    QTest::addRow("%s, %s", dropped ? "dropped" : "command line", row.name)
                        << dropped << row.arguments << row.opened << row.messages << row.recent;
    }

    void givenFiles() {
        QFETCH(bool, dropped);
        QFETCH(QString, arguments);
        QFETCH(QStringList, opened);
        QFETCH(QStringList, messages);
        QFETCH(QStringList, recent);
        QDir::setCurrent(zoneDir->path());
        const CommandLine line = parseCommandLine(arguments.split(' ', Qt::SkipEmptyParts));
        FormMain* main = start();
        prompts.expectTells(int(messages.size()));
        if (dropped) {
            QMimeData data;
            QList<QUrl> urls;
            for (const QString& file : line.files)
                urls << QUrl::fromLocalFile(file);
            data.setUrls(urls);
            // Straight to the window's handlers: outside a real drag the
            // application does not route drop events.
            QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            static_cast<QObject*>(main)->event(&enter);
            QCOMPARE(enter.isAccepted(), !urls.isEmpty());
            QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            static_cast<QObject*>(main)->event(&drop);
            QCoreApplication::processEvents();
        } else if (line.action == CommandLine::Action::Run) {
            main->openFiles(line.files);
        }

        QStringList shown = openWindows();
        shown.sort();
        QCOMPARE(shown, opened);
        QCOMPARE(main->isEnabled(), opened.isEmpty());
        QCOMPARE(prompts.records.size(), messages.size());
        for (int i = 0; i < messages.size(); ++i)
            QVERIFY2(prompts.records[i].text.startsWith(messages[i]),
                     qPrintable(prompts.records[i].text));
        QCOMPARE(recentRooms(main), recent);
        if (shown.filter("formRoom").isEmpty())
            QCOMPARE(roomTable()[0].VNum, 0); // no partly read table is left behind
        QVERIFY(chooser.requests.isEmpty());  // no dialog on the way
        if (!recent.isEmpty()) {
            const QString folder = arguments.contains("sub/") ? zonePath("sub/") : zonePath();
            QCOMPARE(main->recent().entry(KindRoom, 0).directory, folder);
        }
    }

    // The terminal's answers come from the real program, which starts no
    // window for them: without a display it could not.  A wrong option is
    // found once Qt has taken its own, so that row has a (virtual) display.
    void answersInTheTerminal_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<bool>("display");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("out"); // the first line printed
        QTest::addColumn<QString>("err"); // how the error output ends
        const QString usage = "Usage: marl [FILE...]";
        const struct {
            const char* name;
            QString arguments;
            bool display;
            int status;
            QString out, err;
        } rows[] = {
            {"--version", "--version", false, 0, "marl 0.3.1", ""},
            {"-v and a file", "-v 30.wld", false, 0, "marl 0.3.1", ""},
            {"--help", "--help", false, 0, usage, ""},
            {"Qt's own option before --help", "-platform nowhere --help", false, 0, usage, ""},
            {"an unknown option", "--frobnicate 30.wld", true, 2, "",
             "marl: unknown option --frobnicate\nTry 'marl --help'.\n"},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name)
                << row.arguments << row.display << row.status << row.out << row.err;
    }

    void answersInTheTerminal() {
        QFETCH(QString, arguments);
        QFETCH(bool, display);
        QFETCH(int, status);
        QFETCH(QString, out);
        QFETCH(QString, err);
        QProcess marl;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            env.remove(name);
        if (display)
            env.insert("QT_QPA_PLATFORM", "offscreen");
        marl.setProcessEnvironment(env);
        marl.start(MARL_PATH, arguments.split(' '));
        QVERIFY(marl.waitForFinished(20000));
        QCOMPARE(marl.exitStatus(), QProcess::NormalExit);
        QCOMPARE(marl.exitCode(), status);
        QCOMPARE(QString::fromLocal8Bit(marl.readAllStandardOutput()).section('\n', 0, 0), out);
        const QString errors = QString::fromLocal8Bit(marl.readAllStandardError());
        QVERIFY2(err.isEmpty() ? errors.isEmpty() : errors.endsWith(err), qPrintable(errors));
    }

    void dialogStartsIn_data() {
        QTest::addColumn<QString>("inProgDir"); // a file in the program's folder
        QTest::addColumn<QString>("last");      // the Room list's first folder: "zone", "gone"
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("folder"); // "prog", "zone" or "documents"
        const struct {
            const char* name;
            QString inProgDir, last, item, folder;
        } rows[] = {
            {"the folder of the last world file", "95.wld", "zone", "menuRoomOpen", "zone"},
            {"New too", "", "zone", "menuRoomNew", "zone"},
            {"the last folder is gone: the program's, with a world file", "95.wld", "gone",
             "menuRoomOpen", "prog"},
            {"none: the program's folder holds a world file", "95.wld", "", "menuRoomOpen", "prog"},
            {"none: a mobile file does not count", "95.mob", "", "menuRoomOpen", "documents"},
            {"none and no zone file: documents", "", "", "menuRoomNew", "documents"},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.inProgDir << row.last << row.item << row.folder;
    }

    void dialogStartsIn() {
        QFETCH(QString, inProgDir);
        QFETCH(QString, last);
        QFETCH(QString, item);
        QFETCH(QString, folder);
        if (!inProgDir.isEmpty())
            writeBytes(QDir(progDir->path()).filePath(inProgDir), "$\n");
        const QString gone = zonePath("gone/");
        if (!last.isEmpty())
            writeBytes(QDir(progDir->path()).filePath("recent.dat"),
                       QStringLiteral("1,\"%1\",\"95.wld\"\r\n")
                           .arg(last == "gone" ? gone : zonePath())
                           .toStdString());
        FormMain* main = start();
        main->findChild<QAction*>(item)->trigger(); // cancelled
        QCOMPARE(chooser.requests.size(), 1);
        const QString expected = folder == "prog"   ? QDir::fromNativeSeparators(progDir->path())
                                 : folder == "zone" ? zonePath()
                                                    : documentsFolder();
        QCOMPARE(chooser.requests[0].directory, expected);
    }

    void recentFolder_data() {
        QTest::addColumn<QString>("progDir"); // "build" stands for the build folder
        QTest::addColumn<QString>("buildDir");
        QTest::addColumn<bool>("besideProgram");
        const struct {
            const char* name;
            QString progDir, buildDir;
            bool besideProgram;
        } rows[] = {
            {"run from the build folder", "build", "build", true},
            {"with a trailing slash", "build/", "build", true},
            {"through a link", "link", "build", true},
            {"installed elsewhere", "installed", "build", false},
            {"a build folder since removed", "installed", "removed", false},
            {"no build folder known", "installed", "", false},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.progDir << row.buildDir << row.besideProgram;
    }

    void recentFolder() {
        QFETCH(QString, progDir);
        QFETCH(QString, buildDir);
        QFETCH(bool, besideProgram);
        const QDir root(zoneDir->path());
        root.mkdir("build");
        root.mkdir("installed");
        QFile::link(root.filePath("build"), root.filePath("link"));
        const QString prog = progDir.isEmpty() ? QString() : root.filePath(progDir);
        const QString build = buildDir.isEmpty() ? QString() : root.filePath(buildDir);
        QCOMPARE(marl::recentFolder(prog, build),
                 besideProgram ? QDir::fromNativeSeparators(prog) : configFolder());
    }

    // Installed, the program writes nothing beside itself, even where it may
    // (as root may write into /usr/bin).
    void installedProgramKeepsTheListInTheConfigFolder() {
        const QString other = zonePath("sub");
        FormMain* main = start(marl::recentFolder(progDir->path(), other));
        chooser.paths << zonePath("95.wld");
        main->findChild<QAction*>("menuRoomOpen")->trigger();
        QVERIFY(main->openEditor(KindRoom));
        QCOMPARE(QDir(progDir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{});
        QVERIFY(QFile::exists(QDir(configFolder()).filePath("recent.dat")));
        window.reset();
        QCOMPARE(recentRooms(start(configFolder())), QStringList{"95.wld"});
    }
};

MARL_TEST_MAIN(OpenFilesTest)
#include "open_files_test.moc"
