#include <QtTest>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

#include "shell/form_main.h"
#include "fake_editor.h"
#include "test_support.h"

using namespace marl;
using marl::test::ScriptedChooser;
using marl::test::ScriptedPrompts;
using marl::test::EditorLog;
using marl::test::FakeEditor;

namespace {

QAction* action(QWidget* window, const QString& name) {
    return window->findChild<QAction*>(name);
}

} // namespace

class FormMainTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();
    void cleanup();

    void titleAndMenus_data();
    void titleAndMenus();
    void shopAndZoneMenusAreDisabled();
    void openThroughTheDialog_data();
    void openThroughTheDialog();
    void refusesANameWithoutZone();
    void cancelledDialogSaysNothing();
    void failedOpeningSaysWhyAndStaysEnabled();
    void closingTheEditorReturnsToTheProgramDirectory();
    void mainWindowStaysOpenWhileAnEditorIs();

private:
    void open(const QString& path, const QString& menuItem = QStringLiteral("menuRoomOpen"));
    FakeEditor* editor() const { return static_cast<FakeEditor*>(main->openEditor()); }

    QTemporaryDir progDir;
    QTemporaryDir zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    EditorLog log;
    FormMain* main = nullptr;
};

void FormMainTest::init() {
    prompts.reset();
    log = {};
    main = new FormMain(progDir.path(), prompts, chooser);
    main->setEditorFactory(KindRoom, [this](EditorHost& host) { return new FakeEditor(host, log); });
}

void FormMainTest::cleanup() {
    MARL_VERIFY_PROMPTS(prompts);
    delete main;
    main = nullptr;
    QFile::remove(QDir(progDir.path()).filePath(QStringLiteral("recent.dat")));
}

void FormMainTest::open(const QString& path, const QString& menuItem) {
    chooser.paths << path;
    action(main, menuItem)->trigger();
}

void FormMainTest::titleAndMenus_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const char* rows[][2] = {
        {"menuMobile", "&Mobile"},           {"menuMobileNew", "&New Mobile File"},
        {"menuMobileOpen", "&Open Mobile File"}, {"menuRoom", "&Room"},
        {"menuRoomNew", "&New Room File"},   {"menuRoomOpen", "&Open Room File"},
        {"menuObject", "&Object"},           {"menuObjectNew", "&New Object File"},
        {"menuObjectOpen", "&Open Object File"}, {"menuShop", "&Shop"},
        {"menuShopNew", "&New Shop File"},   {"menuShopOpen", "&Open Shop File"},
        {"menuZone", "&Zone"},               {"menuZoneNew", "&New Zone File"},
        {"menuZoneOpen", "Open Zone File"},  {"menuHelp", "&Help"},
        {"menuHelpAbout", "&About"},
    };
    for (const auto& row : rows)
        QTest::newRow(row[0]) << row[0] << row[1];
}

void FormMainTest::titleAndMenus() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QCOMPARE(main->windowTitle(), QStringLiteral("Marl - Marlstone 0.3.1"));
    QAction* item = action(main, name);
    QVERIFY2(item, qPrintable(name));
    QCOMPARE(item->text(), caption);
    // The menus stand in the menu bar in this order.
    QStringList bar;
    for (QAction* top : main->menuBar()->actions())
        bar << top->text();
    QCOMPARE(bar, (QStringList{"&Mobile", "&Room", "&Object", "&Shop", "&Zone", "&Help"}));
}

void FormMainTest::shopAndZoneMenusAreDisabled() {
    for (const char* name : {"menuShop", "menuZone"})
        QVERIFY(!action(main, name)->isEnabled());
    for (const char* name : {"menuMobile", "menuRoom", "menuObject", "menuHelp"})
        QVERIFY(action(main, name)->isEnabled());
    // Nothing opens from them even when triggered directly.
    action(main, QStringLiteral("menuShopOpen"))->trigger();
    QVERIFY(chooser.requests.isEmpty());
}

void FormMainTest::openThroughTheDialog_data() {
    QTest::addColumn<QString>("menuItem");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("call");
    QTest::newRow("open 30.wld") << "menuRoomOpen" << "30.wld" << false << "Open World File"
                                 << "open 30";
    QTest::newRow("new 31.wld") << "menuRoomNew" << "31.wld" << true << "New World File"
                                << "new 31";
    QTest::newRow("7.old.wld is zone 7") << "menuRoomOpen" << "7.old.wld" << false
                                         << "Open World File" << "open 7";
    QTest::newRow("030.wld is zone 30") << "menuRoomOpen" << "030.wld" << false
                                        << "Open World File" << "open 30";
}

void FormMainTest::openThroughTheDialog() {
    QFETCH(QString, menuItem);
    QFETCH(QString, file);
    QFETCH(bool, save);
    QFETCH(QString, title);
    QFETCH(QString, call);
    chooser.requests.clear();
    open(QDir(zoneDir.path()).filePath(file), menuItem);

    QCOMPARE(chooser.requests.size(), 1);
    const FileRequest& request = chooser.requests.first();
    QCOMPARE(request.save, save);
    QCOMPARE(request.title, title);
    QCOMPARE(request.filter, QStringLiteral("World files (*.wld)"));
    QCOMPARE(request.directory, QDir::fromNativeSeparators(progDir.path()));

    const QString fileDir = QDir::fromNativeSeparators(zoneDir.path()) + QLatin1Char('/');
    QCOMPARE(log.calls, QStringList{call});
    QCOMPARE(log.fileDirAtCall, fileDir);
    QCOMPARE(log.currentDirAtCall, fileDir);
    QCOMPARE(main->fileDir(), fileDir);
    QVERIFY(main->openEditor());
    QVERIFY(main->openEditor()->isVisible());
    QVERIFY(!main->isEnabled());
    QCOMPARE(action(main, QStringLiteral("menuRoomRecent0"))->text(), file);
    editor()->finish();
}

void FormMainTest::refusesANameWithoutZone() {
    prompts.expectTells(1);
    open(QDir(zoneDir.path()).filePath(QStringLiteral("castle.wld")));
    QCOMPARE(prompts.records.size(), 1);
    QVERIFY(prompts.records[0].text.contains(QStringLiteral("castle.wld")));
    QCOMPARE(prompts.records[0].title, QStringLiteral("Marl - Marlstone"));
    QVERIFY(log.calls.isEmpty());
    QVERIFY(main->isEnabled());
    QVERIFY(!action(main, QStringLiteral("menuRoomRecent0"))->isVisible());
    QVERIFY(!QFile::exists(QDir(progDir.path()).filePath(QStringLiteral("recent.dat"))));
}

void FormMainTest::cancelledDialogSaysNothing() {
    open(QString());
    QVERIFY(log.calls.isEmpty());
    QVERIFY(prompts.records.isEmpty());
    QVERIFY(main->isEnabled());
    QVERIFY(!main->openEditor());
}

void FormMainTest::failedOpeningSaysWhyAndStaysEnabled() {
    log.failOpen = true;
    prompts.expectTells(1);
    open(QDir(zoneDir.path()).filePath(QStringLiteral("25.wld")));
    QCOMPARE(prompts.records.size(), 1);
    QCOMPARE(prompts.records[0].text,
             QStringLiteral("25.wld, line 4: expected the line \"<zone> <flags> <sector>\""));
    QVERIFY(main->isEnabled());
    QVERIFY(!main->openEditor());
    QCOMPARE(QDir::currentPath(), QDir(progDir.path()).canonicalPath());
    // The choice was put in the recent list before the file was read.
    QCOMPARE(action(main, QStringLiteral("menuRoomRecent0"))->text(), QStringLiteral("25.wld"));
}

void FormMainTest::closingTheEditorReturnsToTheProgramDirectory() {
    open(QDir(zoneDir.path()).filePath(QStringLiteral("30.wld")));
    QCOMPARE(QDir::currentPath(), QDir(zoneDir.path()).canonicalPath());
    editor()->finish();
    QVERIFY(main->isEnabled());
    QVERIFY(!main->openEditor());
    QCOMPARE(QDir::currentPath(), QDir(progDir.path()).canonicalPath());
}

void FormMainTest::mainWindowStaysOpenWhileAnEditorIs() {
    main->show();
    open(QDir(zoneDir.path()).filePath(QStringLiteral("30.wld")));
    QVERIFY(!main->close());
    QVERIFY(main->isVisible());
    editor()->finish();
    QVERIFY(main->close());
}

QTEST_MAIN(FormMainTest)
#include "form_main_test.moc"
