// Saving and deleting in the room editor: the overwrite questions, what the
// file holds afterwards, numbers that cannot be stored, and writes that fail.

#include "form_room_fixture.h"

#include <QDir>
#include <QPushButton>

#include "rooms/room_file.h"

using namespace marl;
using namespace marl::test;

namespace {

QPushButton* button(const FormRoom* editor, const char* name) {
    return find<QPushButton>(editor, QString::fromLatin1(name));
}

// Rooms 9500 "A", 9501 "B", 9500 "C" and 9503 without a name.
std::string twinZone() {
    return crlf({"#9500", "A~", "~", "95 0 0", "S", "#9501", "B~", "~", "95 0 0", "S",
                 "#9500", "C~", "~", "95 0 0", "S", "#9503", "~", "~", "95 0 0", "S", "$"});
}

// The rooms the file holds now, as "vnum name".
QStringList fileRooms(const RoomHost& host, int zone) {
    RoomTable table;
    const std::string bytes = readBytes(host.path(QString::number(zone) + ".wld"));
    const int count = readRooms(bytes, table);
    QStringList out;
    for (int slot = 0; slot < count; ++slot)
        out.append(QString::number(table[slot].VNum) + QLatin1Char(' ') +
                   QString::fromStdString(table[slot].Name));
    return out;
}

} // namespace

class FormRoomSaveTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ClearRoomTable(); }
    void overwriteQuestions_data();
    void overwriteQuestions();
    void newRoomIsWrittenInTheServersFormat();
    void flagTextKeptUntilTheRoomIsStored();
    void numbersThatCannotBeStored_data();
    void numbersThatCannotBeStored();
    void failedSaveKeepsFileAndTable_data();
    void failedSaveKeepsFileAndTable();
    void deleteMovesRoomsWithAllTheyHold_data();
    void deleteMovesRoomsWithAllTheyHold();
    void failedDeleteKeepsTheRooms();
};

void FormRoomSaveTest::overwriteQuestions_data() {
    QTest::addColumn<QString>("vnum");
    QTest::addColumn<QList<bool>>("answers");
    QTest::addColumn<QStringList>("rooms");
    QTest::newRow("two matches, Yes to both")
        << "9500" << QList<bool>{true, true} << QStringList{"9500 New", "9501 B", "9500 New", "9503 "};
    QTest::newRow("two matches, Yes then No")
        << "9500" << QList<bool>{true, false} << QStringList{"9500 New", "9501 B", "9500 C", "9503 "};
    QTest::newRow("two matches, No to both: nothing added")
        << "9500" << QList<bool>{false, false} << QStringList{"9500 A", "9501 B", "9500 C", "9503 "};
    QTest::newRow("a match without a name is not asked about")
        << "9503" << QList<bool>{}
        << QStringList{"9500 A", "9501 B", "9500 C", "9503 ", "9503 New"};
    QTest::newRow("no match appends")
        << "9509" << QList<bool>{} << QStringList{"9500 A", "9501 B", "9500 C", "9503 ", "9509 New"};
}

void FormRoomSaveTest::overwriteQuestions() {
    QFETCH(QString, vnum);
    QFETCH(QList<bool>, answers);
    QFETCH(QStringList, rooms);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, twinZone());
    QVERIFY(editor);
    auto* name = find<QLineEdit>(editor, "textName");
    erase(name);
    type(name, "New");
    erase(find<QLineEdit>(editor, "textVNum"));
    type(find<QLineEdit>(editor, "textVNum"), vnum);
    for (bool answer : answers)
        host.script.answer({answer});
    click(button(editor, "buttonSave"));

    QCOMPARE(host.script.records.size(), answers.size());
    for (const PromptRecord& record : host.script.records) {
        QCOMPARE(record.text, QStringLiteral("Overwrite Existing Room?"));
        QCOMPARE(record.title, QStringLiteral("Overwrite Existing Room"));
    }
    MARL_VERIFY_PROMPTS(host.script);
    QCOMPARE(fileRooms(host, 95), rooms);
    // The list shows what the file holds, the last slot is the edited one,
    // and the window keeps the fields as they were stored.
    auto* list = find<QListWidget>(editor, "listRoomSelect");
    QCOMPARE(list->count(), rooms.size());
    QCOMPARE(editor->recordCount(), rooms.size());
    QCOMPARE(editor->currentIndex(), rooms.size() - 1);
    QCOMPARE(name->text(), QStringLiteral("New"));
    QVERIFY(!editor->changed());
    QVERIFY(!button(editor, "buttonEdit")->isEnabled());
    QVERIFY(!button(editor, "buttonDelete")->isEnabled());
    QCOMPARE(editor->focusWidget(), find<QLineEdit>(editor, "textVNum"));
    delete editor;
}

void FormRoomSaveTest::newRoomIsWrittenInTheServersFormat() {
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    type(find<QLineEdit>(&editor, "textName"), "The Quay");
    type(find<QPlainTextEdit>(&editor, "textDesc"), "Stone steps.\nGulls.");
    click(find<QRadioButton>(&editor, "optionSecTypeHills"));
    click(find<QCheckBox>(&editor, "checkBitVGodRoom"));
    click(find<QCheckBox>(&editor, "checkBitVDark"));
    // North, South, East and Down lead somewhere; West is typed, then
    // unchecked; Up is checked with nothing typed.
    const QList<QPair<QString, QString>> exits{
        {"North", "9501"}, {"South", "9502"}, {"East", "9503"}, {"Down", "-1"}, {"West", "9504"}};
    for (const auto& [direction, to] : exits) {
        click(find<QCheckBox>(&editor, "checkExit" + direction));
        type(find<QLineEdit>(&editor, "text" + direction + "ToVNum"), to);
    }
    click(find<QCheckBox>(&editor, "checkExitWest"));
    click(find<QCheckBox>(&editor, "checkExitUp"));
    click(button(&editor, "buttonSave"));
    MARL_VERIFY_PROMPTS(host.script);

    // Exits in slot order: north, south, east, ... with the server's numbers.
    const std::string expected = crlf({"#9500", "The Quay~", "Stone steps.", "Gulls.", "~",
                                       "95 ak 4",
                                       "D0", "", "~", "~", "0 0 9501",
                                       "D2", "", "~", "~", "0 0 9502",
                                       "D1", "", "~", "~", "0 0 9503",
                                       "D5", "", "~", "~", "0 0 -1",
                                       "S", "$"});
    QCOMPARE(QByteArray::fromStdString(readBytes(host.path("95.wld"))),
             QByteArray::fromStdString(expected));
    QCOMPARE(lines(find<QListWidget>(&editor, "listRoomSelect")), QStringList{"9500\tThe Quay"});
    QCOMPARE(editor.recordCount(), 1);
}

void FormRoomSaveTest::flagTextKeptUntilTheRoomIsStored() {
    RoomHost host;
    const std::string file = lf({"#9500", "A~", "~", "95 12 0", "S", "#9501", "B~", "~",
                                 "95 12 0", "S", "$"});
    QPointer<FormRoom> editor = openEditor(host, 95, file);
    QVERIFY(editor);
    for (const FlagDef& def : kRoomFlags)
        QVERIFY(!find<QCheckBox>(editor, def.control)->isChecked());
    doubleClickLine(find<QListWidget>(editor, "listRoomSelect"), 1);
    type(find<QLineEdit>(editor, "textName"), "!");
    host.script.answer({true});
    click(button(editor, "buttonSave"));
    // The room stored from the window gets its flags from the boxes; the
    // other keeps its text.  The file's LF line ends stay.
    QCOMPARE(QByteArray::fromStdString(readBytes(host.path("95.wld"))),
             QByteArray::fromStdString(lf({"#9500", "A~", "", "~", "95 12 0", "S", "#9501", "B!~",
                                           "", "~", "95 0 0", "S", "$"})));
    delete editor;
}

void FormRoomSaveTest::numbersThatCannotBeStored_data() {
    QTest::addColumn<QStringList>("steps");  // field name, then the keys typed
    QTest::addColumn<QString>("message");
    QTest::newRow("empty vnum, description typed")
        << QStringList{"textVNum", "", "textDesc", "x"} << "VNum Must Be a Number.";
    QTest::newRow("lone minus vnum") << QStringList{"textVNum", "-"} << "VNum Must Be a Number.";
    QTest::newRow("minus after digits")
        << QStringList{"textVNum", "95-1"} << "VNum Must Be a Number.";
    QTest::newRow("north destination 1-2") << QStringList{"textNorthToVNum", "1-2"}
                                           << "The North Exit's Destination Must Be a Number.";
    QTest::newRow("up destination lone minus") << QStringList{"textUpToVNum", "-"}
                                               << "The Up Exit's Destination Must Be a Number.";
}

void FormRoomSaveTest::numbersThatCannotBeStored() {
    QFETCH(QStringList, steps);
    QFETCH(QString, message);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    if (!roomTable()[0].Exits[4].Absent)
        QFAIL("the up exit should be absent");
    click(find<QCheckBox>(editor, "checkExitUp"));
    for (int i = 0; i + 1 < steps.size(); i += 2) {
        QWidget* field = find<QWidget>(editor, steps[i]);
        erase(field);
        type(field, steps[i + 1]);
    }
    const RoomTable before = roomTable();
    QVERIFY(button(editor, "buttonSave")->isEnabled());
    host.script.expectTells(1);
    click(button(editor, "buttonSave"));

    QCOMPARE(host.script.records.size(), 1);
    QCOMPARE(host.script.records[0].title, QStringLiteral("Room Not Saved"));
    QVERIFY2(host.script.records[0].text.startsWith(message + "\r\n"),
             qPrintable(host.script.records[0].text));
    QCOMPARE(readBytes(host.path("95.wld")), smallZone());
    QVERIFY(roomTable()[0] == before[0]);
    QCOMPARE(editor->recordCount(), 3);
    QVERIFY(editor->changed());
    delete editor;
}

void FormRoomSaveTest::failedSaveKeepsFileAndTable_data() {
    QTest::addColumn<QString>("vnum");
    QTest::addColumn<QList<bool>>("answers");
    QTest::newRow("overwriting the room") << "9500" << QList<bool>{true};
    QTest::newRow("appending a room") << "9599" << QList<bool>{};
}

void FormRoomSaveTest::failedSaveKeepsFileAndTable() {
    QFETCH(QString, vnum);
    QFETCH(QList<bool>, answers);
    RoomHost host;
    const QString zoneDir = host.dir.path() + "/zone";
    QVERIFY(QDir().mkpath(zoneDir));
    host.setFolder(zoneDir + "/");
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    auto* name = find<QLineEdit>(editor, "textName");
    type(name, " Changed");
    erase(find<QLineEdit>(editor, "textVNum"));
    type(find<QLineEdit>(editor, "textVNum"), vnum);
    click(find<QCheckBox>(editor, "checkExitNorth"));  // marks the north exit absent

    // The zone's folder goes away and a plain file takes its name: even root
    // cannot write a file inside it.
    QVERIFY(QDir(zoneDir).removeRecursively());
    writeBytes(zoneDir, "not a folder");
    const RoomTable before = roomTable();
    const QStringList listBefore = lines(find<QListWidget>(editor, "listRoomSelect"));
    for (bool answer : answers)
        host.script.answer({answer});
    host.script.expectTells(1);
    click(button(editor, "buttonSave"));

    MARL_VERIFY_PROMPTS(host.script);
    const PromptRecord& told = host.script.records.last();
    QVERIFY2(told.text.startsWith("95.wld could not be written:\r\n") && told.text.size() > 30,
             qPrintable(told.text));
    QCOMPARE(told.title, QStringLiteral("Room Not Saved"));
    QCOMPARE(readBytes(zoneDir), std::string("not a folder"));
    QVERIFY(roomTable()[0] == before[0]);
    QVERIFY(roomTable()[3] == before[3]);
    QCOMPARE(editor->recordCount(), 3);
    QCOMPARE(lines(find<QListWidget>(editor, "listRoomSelect")), listBefore);
    QVERIFY(editor->changed());
    QVERIFY(button(editor, "buttonSave")->isEnabled());
    QCOMPARE(name->text(), QStringLiteral("The Landing Changed"));
    QVERIFY(editor->isVisible());

    // Once the folder is back, the same Save goes through.
    QVERIFY(QFile::remove(zoneDir));
    QVERIFY(QDir().mkpath(zoneDir));
    for (bool answer : answers)
        host.script.answer({answer});
    click(button(editor, "buttonSave"));
    MARL_VERIFY_PROMPTS(host.script);
    QVERIFY(fileRooms(host, 95).contains(vnum + " The Landing Changed"));
    QVERIFY(!editor->changed());
    delete editor;
}

void FormRoomSaveTest::deleteMovesRoomsWithAllTheyHold_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QStringList>("rooms");
    QTest::newRow("first of three") << QByteArray::fromStdString(smallZone()) << true
                                    << QStringList{"9501\tReed Cottages", "9502\tThe Kitchen"};
    QTest::newRow("No keeps them all")
        << QByteArray::fromStdString(smallZone()) << false
        << QStringList{"9500\tThe Landing", "9501\tReed Cottages", "9502\tThe Kitchen"};
    QTest::newRow("the only room") << QByteArray::fromStdString(zoneOfRooms(1)) << true
                                   << QStringList{"0\t"};
}

void FormRoomSaveTest::deleteMovesRoomsWithAllTheyHold() {
    QFETCH(QByteArray, file);
    QFETCH(bool, answer);
    QFETCH(QStringList, rooms);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, file.toStdString());
    QVERIFY(editor);
    auto* list = find<QListWidget>(editor, "listRoomSelect");
    clickLine(list, 0);
    host.script.answer({answer});
    click(button(editor, "buttonDelete"));
    QCOMPARE(host.script.records.size(), 1);
    QCOMPARE(host.script.records[0].text, QStringLiteral("Really Delete This Room?"));
    QCOMPARE(host.script.records[0].title, QStringLiteral("Confirm Delete"));
    QCOMPARE(lines(list), rooms);
    // The window keeps what it showed.
    QCOMPARE(find<QLineEdit>(editor, "textVNum")->text(), QStringLiteral("9500"));
    if (!answer) {
        QCOMPARE(QByteArray::fromStdString(readBytes(host.path("95.wld"))), file);
        QVERIFY(button(editor, "buttonDelete")->isEnabled());
    } else if (rooms.size() == 1) {
        // With no room left, the cleared slot 0 is written as a room.
        QCOMPARE(QByteArray::fromStdString(readBytes(host.path("95.wld"))),
                 QByteArray::fromStdString(crlf({"#0", "~", "", "~", "95  0", "S", "$"})));
    } else {
        // The rooms moved with their exits, extra descriptions and flags.
        const RoomRecord& cottages = roomTable()[0];
        QCOMPARE(cottages.BitV, std::string("ad"));
        QCOMPARE(cottages.Exits[3].Keywords, std::string("door stout"));
        QCOMPARE(cottages.Exits[3].ToVNum, 9502);
        const RoomRecord& kitchen = roomTable()[1];
        QCOMPARE(kitchen.SecType, std::int16_t(9));
        QCOMPARE(kitchen.Exits[2].DoorKind, std::int16_t(2));
        QCOMPARE(kitchen.ExtraDescs[1].Keywords, std::string("pot"));
        QCOMPARE(kitchen.ExtraDescs[2].Keywords, std::string());
        QCOMPARE(editor->recordCount(), 2);
        QCOMPARE(editor->currentIndex(), 1);
        QVERIFY(!button(editor, "buttonDelete")->isEnabled());
    }
    delete editor;
}

void FormRoomSaveTest::failedDeleteKeepsTheRooms() {
    RoomHost host;
    const QString zoneDir = host.dir.path() + "/zone";
    QVERIFY(QDir().mkpath(zoneDir));
    host.setFolder(zoneDir + "/");
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    QVERIFY(QDir(zoneDir).removeRecursively());
    writeBytes(zoneDir, "not a folder");
    const RoomTable before = roomTable();
    auto* list = find<QListWidget>(editor, "listRoomSelect");
    clickLine(list, 1);
    host.script.answer({true});
    host.script.expectTells(1);
    click(button(editor, "buttonDelete"));
    MARL_VERIFY_PROMPTS(host.script);
    QCOMPARE(host.script.records.last().title, QStringLiteral("Room Not Deleted"));
    QCOMPARE(lines(list).size(), 3);
    QCOMPARE(editor->recordCount(), 3);
    for (int slot = 0; slot < 3; ++slot)
        QVERIFY(roomTable()[slot] == before[slot]);
    delete editor;
}

QTEST_MAIN(FormRoomSaveTest)
#include "form_room_save_test.moc"
