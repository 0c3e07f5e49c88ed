#include <QtTest>

#include <QAction>
#include <QTemporaryDir>

#include "fake_editor.h"
#include "shell/form_main.h"
#include "shell/recent_files.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

class RecentFilesTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();
    void cleanup();

    void firstRunShowsNothingThenOneEntry();
    void keepsTheLastFourMostRecentFirst();
    void sameFileTwiceIsListedTwice();
    void readsAtMostFourOfAKind();
    void openingARecentItemChangesNothing();
    void invalidLineEndsTheReading();
    void unwritableProgramDirectoryUsesTheConfigDirectory();
    void parseLine_data();
    void parseLine();

private:
    FormMain* start(const QString& dir);
    void openThroughDialog(FormMain* window, const QString& fileName);
    QString recentDat() const { return QDir(progDir->path()).filePath(QStringLiteral("recent.dat")); }
    QStringList shown(FormMain* window, const char* kind) const;

    std::unique_ptr<QTemporaryDir> progDir;
    QTemporaryDir zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    EditorLog log;
    std::vector<std::unique_ptr<FormMain>> windows;
};

void RecentFilesTest::init() {
    progDir = std::make_unique<QTemporaryDir>();
    prompts.reset();
    log = {};
    QFile::remove(QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
                      .filePath(QStringLiteral("recent.dat")));
}

void RecentFilesTest::cleanup() {
    MARL_VERIFY_PROMPTS(prompts);
    windows.clear();
}

FormMain* RecentFilesTest::start(const QString& dir) {
    windows.push_back(std::make_unique<FormMain>(dir, prompts, chooser));
    FormMain* window = windows.back().get();
    window->setEditorFactory(KindRoom, [this](EditorHost& host) { return new FakeEditor(host, log); });
    return window;
}

void RecentFilesTest::openThroughDialog(FormMain* window, const QString& fileName) {
    chooser.paths << QDir(zoneDir.path()).filePath(fileName);
    window->findChild<QAction*>(QStringLiteral("menuRoomOpen"))->trigger();
    static_cast<FakeEditor*>(window->openEditor())->finish();
}

QStringList RecentFilesTest::shown(FormMain* window, const char* kind) const {
    QStringList captions;
    for (int i = 0; i < kRecentPerKind; ++i) {
        QAction* item = window->findChild<QAction*>(QStringLiteral("menu%1Recent%2").arg(kind).arg(i));
        if (item->isVisible())
            captions << item->text();
    }
    return captions;
}

void RecentFilesTest::firstRunShowsNothingThenOneEntry() {
    FormMain* window = start(progDir->path());
    for (const char* kind : {"Mobile", "Room", "Object", "Shop", "Zone"})
        QVERIFY(shown(window, kind).isEmpty());
    openThroughDialog(window, QStringLiteral("30.wld"));
    QCOMPARE(shown(window, "Room"), QStringList{"30.wld"});
    const QString dir = QDir::toNativeSeparators(QDir::fromNativeSeparators(zoneDir.path()) + "/");
    QCOMPARE(readBytes(recentDat()),
             QStringLiteral("1,\"%1\",\"30.wld\"\r\n").arg(dir).toStdString());
}

void RecentFilesTest::keepsTheLastFourMostRecentFirst() {
    FormMain* window = start(progDir->path());
    for (const char* name : {"1.wld", "2.wld", "3.wld", "4.wld", "5.wld"})
        openThroughDialog(window, QString::fromLatin1(name));
    const QStringList expected{"5.wld", "4.wld", "3.wld", "2.wld"};
    QCOMPARE(shown(window, "Room"), expected);
    // The next run shows the same list.
    QCOMPARE(shown(start(progDir->path()), "Room"), expected);
}

void RecentFilesTest::sameFileTwiceIsListedTwice() {
    FormMain* window = start(progDir->path());
    openThroughDialog(window, QStringLiteral("30.wld"));
    openThroughDialog(window, QStringLiteral("30.wld"));
    QCOMPARE(shown(window, "Room"), (QStringList{"30.wld", "30.wld"}));
}

void RecentFilesTest::readsAtMostFourOfAKind() {
    writeBytes(recentDat(), crlf({R"(0,"/m/","9.mob")", R"(1,"/a/","1.wld")", R"(1,"/a/","2.wld")",
                                  R"(1,"/a/","3.wld")", R"(1,"/a/","4.wld")", R"(1,"/a/","5.wld")",
                                  R"(1,"/a/","6.wld")", R"(7,"/x/","7.wld")", R"(2,"/o/","8.obj")"}));
    FormMain* window = start(progDir->path());
    QCOMPARE(shown(window, "Room"), (QStringList{"1.wld", "2.wld", "3.wld", "4.wld"}));
    QCOMPARE(shown(window, "Mobile"), QStringList{"9.mob"});
    QCOMPARE(shown(window, "Object"), QStringList{"8.obj"});
}

void RecentFilesTest::openingARecentItemChangesNothing() {
    const QString dir = QDir::fromNativeSeparators(zoneDir.path()) + "/";
    const std::string before = crlf({qPrintable(QStringLiteral("1,\"%1\",\"12.wld\"").arg(dir)),
                                     qPrintable(QStringLiteral("1,\"%1\",\"30.wld\"").arg(dir))});
    writeBytes(recentDat(), before);
    FormMain* window = start(progDir->path());
    window->findChild<QAction*>(QStringLiteral("menuRoomRecent1"))->trigger();
    QCOMPARE(log.calls, QStringList{"open 30"});
    QCOMPARE(log.fileDirAtCall, dir);
    QVERIFY(!window->isEnabled());
    static_cast<FakeEditor*>(window->openEditor())->finish();
    QCOMPARE(readBytes(recentDat()), before);
    QCOMPARE(shown(window, "Room"), (QStringList{"12.wld", "30.wld"}));
}

void RecentFilesTest::invalidLineEndsTheReading() {
    writeBytes(recentDat(), crlf({R"(1,"/a/","1.wld")", R"(x,"/a/","2.wld")", R"(1,"/a/","3.wld")"}));
    QCOMPARE(shown(start(progDir->path()), "Room"), QStringList{"1.wld"});
    writeBytes(recentDat(), crlf({R"(1,"/a/","1.wld")", R"(1,"/a/")", R"(1,"/a/","3.wld")"}));
    QCOMPARE(shown(start(progDir->path()), "Room"), QStringList{"1.wld"});
}

void RecentFilesTest::unwritableProgramDirectoryUsesTheConfigDirectory() {
    // A program directory that cannot be written (as for an installed
    // program): here one that is a regular file, since root may write
    // anywhere else.
    const QString blocked = QDir(progDir->path()).filePath(QStringLiteral("not-a-directory"));
    writeBytes(blocked, "x");
    FormMain* window = start(blocked);
    openThroughDialog(window, QStringLiteral("30.wld"));
    QCOMPARE(log.calls, QStringList{"open 30"});  // the opening went on
    const QString stored = QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
                               .filePath(QStringLiteral("recent.dat"));
    QVERIFY(QFile::exists(stored));
    QCOMPARE(shown(start(blocked), "Room"), QStringList{"30.wld"});
}

void RecentFilesTest::parseLine_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("title");
    QTest::newRow("windows path") << R"(1,"C:\zones\","30.wld")" << true << 1 << R"(C:\zones\)"
                                  << "30.wld";
    QTest::newRow("comma in directory") << R"(2,"/a,b/","3.obj")" << true << 2 << "/a,b/" << "3.obj";
    QTest::newRow("doubled quote") << R"(0,"/say ""hi""/","1.mob")" << true << 0 << R"(/say "hi"/)"
                                   << "1.mob";
    QTest::newRow("kind not a number") << R"(a,"/d/","1.wld")" << false << 0 << "" << "";
    QTest::newRow("missing title") << R"(1,"/d/")" << false << 0 << "" << "";
    QTest::newRow("unquoted directory") << R"(1,/d/,"1.wld")" << false << 0 << "" << "";
    QTest::newRow("unterminated quote") << R"(1,"/d/,"1.wld)" << false << 0 << "" << "";
    QTest::newRow("empty line") << "" << false << 0 << "" << "";
}

void RecentFilesTest::parseLine() {
    QFETCH(QString, line);
    QFETCH(bool, valid);
    QFETCH(int, kind);
    QFETCH(QString, directory);
    QFETCH(QString, title);
    int gotKind = 0;
    QString gotDirectory, gotTitle;
    QCOMPARE(RecentFiles::parseLine(line, gotKind, gotDirectory, gotTitle), valid);
    if (!valid)
        return;
    QCOMPARE(gotKind, kind);
    QCOMPARE(gotDirectory, directory);
    QCOMPARE(gotTitle, title);
    // What is written reads back the same.
    QVERIFY(RecentFiles::parseLine(RecentFiles::formatLine(kind, directory, title), gotKind,
                                   gotDirectory, gotTitle));
    QCOMPARE(gotDirectory, directory);
}

QTEST_MAIN(RecentFilesTest)
#include "recent_files_test.moc"
