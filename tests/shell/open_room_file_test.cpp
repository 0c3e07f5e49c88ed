// Opening world files from the main window into the real room editor.
#include <QtTest>

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include "rooms/form_room.h"
#include "shell/form_main.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

class OpenRoomFileTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();
    void cleanup();
    void showsTheFirstRoom_data();
    void showsTheFirstRoom();
    void refusesABrokenFileWithItsLine();
    void refusesAMissingFile();

private:
    QWidget* openFrom(const QString& source, const QString& asName);
    template <typename T> T* control(const char* name) {
        T* found = editor ? editor->findChild<T*>(QString::fromLatin1(name)) : nullptr;
        if (!found)
            qWarning("no control %s", name);
        return found;
    }

    QTemporaryDir progDir;
    std::unique_ptr<QTemporaryDir> zoneDir;
    ScriptedPrompts prompts;
    ScriptedChooser chooser;
    std::unique_ptr<FormMain> main;
    QWidget* editor = nullptr;
};

void OpenRoomFileTest::init() {
    prompts.reset();
    zoneDir = std::make_unique<QTemporaryDir>();
    main = std::make_unique<FormMain>(progDir.path(), prompts, chooser);
    main->setEditorFactory(KindRoom, [](EditorHost& host) { return new FormRoom(host); });
    editor = nullptr;
}

void OpenRoomFileTest::cleanup() {
    MARL_VERIFY_PROMPTS(prompts);
    if (main->openEditor())
        delete main->openEditor();
    main.reset();
}

QWidget* OpenRoomFileTest::openFrom(const QString& source, const QString& asName) {
    const QString target = QDir(zoneDir->path()).filePath(asName);
    if (!source.isEmpty())
        writeBytes(target, readBytes(source));
    chooser.paths << target;
    main->findChild<QAction*>(QStringLiteral("menuRoomOpen"))->trigger();
    editor = main->openEditor();
    return editor;
}

void OpenRoomFileTest::showsTheFirstRoom_data() {
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("rooms");
    QTest::addColumn<QString>("vnum");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("exits");    // "North=9501"
    QTest::addColumn<QString>("sector");
    QTest::addColumn<QStringList>("flags");
    QTest::newRow("example zone")
        << examplesDir() + "/95.wld" << 5 << "9500" << "The Ferryman's Landing"
        << QStringList{"North=9501", "East=9503"} << "optionSecTypeField" << QStringList{};
    if (!corpusDir().isEmpty())
        QTest::newRow("stock 30.wld")
            << corpusDir() + "/30.wld" << 59 << "3000" << "The Reading Room"
            << QStringList{"East=3001"} << "optionSecTypeInside"
            << QStringList{"checkBitVNoMob", "checkBitVIndoors", "checkBitVPeaceful",
                           "checkBitVNoMagic"};
}

void OpenRoomFileTest::showsTheFirstRoom() {
    QFETCH(QString, source);
    QFETCH(int, rooms);
    QFETCH(QString, vnum);
    QFETCH(QString, name);
    QFETCH(QStringList, exits);
    QFETCH(QString, sector);
    QFETCH(QStringList, flags);

    QVERIFY(openFrom(source, QFileInfo(source).fileName()));
    QCOMPARE(editor->objectName(), QStringLiteral("formRoom"));
    QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [0/99]"));
    QVERIFY(editor->isVisible());
    QVERIFY(!main->isEnabled());

    auto* list = control<QListWidget>("listRoomSelect");
    QVERIFY(list);
    QCOMPARE(list->count(), rooms);
    QVERIFY(list->item(0)->text().startsWith(vnum + QLatin1Char('\t')));
    QCOMPARE(control<QLineEdit>("textVNum")->text(), vnum);
    QCOMPARE(control<QLineEdit>("textName")->text(), name);
    QVERIFY(!control<QPlainTextEdit>("textDesc")->toPlainText().isEmpty());

    for (const ExitDef& def : kExits) {
        QString expected;
        for (const QString& exit : exits)
            if (exit.startsWith(QString::fromLatin1(def.caption) + QLatin1Char('=')))
                expected = exit.section(QLatin1Char('='), 1);
        QCOMPARE(control<QAbstractButton>(def.check)->isChecked(), !expected.isEmpty());
        QCOMPARE(control<QLineEdit>(def.toField)->text(), expected);
    }
    QVERIFY(control<QAbstractButton>(qPrintable(sector))->isChecked());
    for (const FlagDef& flag : kRoomFlags)
        QCOMPARE(control<QAbstractButton>(flag.control)->isChecked(),
                 flags.contains(QString::fromLatin1(flag.control)));
}

void OpenRoomFileTest::refusesABrokenFileWithItsLine() {
    const QString path = QDir(zoneDir->path()).filePath(QStringLiteral("25.wld"));
    writeBytes(path, lf({"#2500", "Room~", "~", "25 0 0", "D0", "~", "~", "0 -1", "S", "$"}));
    prompts.expectTells(1);
    QVERIFY(!openFrom(QString(), QStringLiteral("25.wld")));
    QCOMPARE(prompts.records.size(), 1);
    QCOMPARE(prompts.records[0].text,
             QStringLiteral("25.wld, line 8: expected an exit line \"<door> <key> <to>\""));
    QCOMPARE(prompts.records[0].title, QStringLiteral("Marl - Marlstone"));
    QVERIFY(main->isEnabled());
    QCOMPARE(roomTable()[0].VNum, 0);  // no partly read table is left behind
}

void OpenRoomFileTest::refusesAMissingFile() {
    prompts.expectTells(1);
    QVERIFY(!openFrom(QString(), QStringLiteral("44.wld")));
    QCOMPARE(prompts.records.size(), 1);
    QVERIFY(prompts.records[0].text.startsWith(QStringLiteral("44.wld: ")));
    QVERIFY(main->isEnabled());
}

QTEST_MAIN(OpenRoomFileTest)
#include "open_room_file_test.moc"
