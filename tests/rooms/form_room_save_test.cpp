// Saving in the room editor: writes that fail, and a builder's whole session
// on real zone files.

#include "test_main.h"

#include "form_room_fixture.h"
#include "save_checks.h"

using namespace marl;
using namespace marl::test;

class FormRoomSaveTest : public QObject {
    Q_OBJECT
private slots:
    void failedWritesKeepFileAndTable_data();
    void failedWritesKeepFileAndTable();
    void wholeSession_data();
    void wholeSession();
};

void FormRoomSaveTest::failedWritesKeepFileAndTable_data() {
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("after"); // the file once the write goes through
    // The north exit, unchecked in the window, is absent from the first room
    // once the window is stored into it; a new room takes the whole record
    // shown (its exits and extra descriptions) and leaves the first as it was.
    const QString first = "9500 The Landing 0/2 East:0/-1/-1/ +bell";
    const QString rest = smallRooms.mid(smallRooms.indexOf("; 9501"));
    QTest::newRow("save over the room")
        << QStringList{"yes", "buttonSave:click"} << "Room Not Saved"
        << QString(first).insert(16, " Changed") + rest;
    QTest::newRow("save a new room")
        << QStringList{"textVNum:erase", "textVNum:type:9599", "buttonSave:click"}
        << "Room Not Saved" << smallRooms + "; 9599 The Landing Changed 0/2 East:0/-1/-1/ +bell";
    // Deleting the room shown asks to discard its changes.
    QTest::newRow("delete") << QStringList{"listRoomSelect:line:1", "yes", "yes",
                                           "buttonDelete:click"}
                            << "Room Not Deleted" << rest.mid(2);
}

void FormRoomSaveTest::failedWritesKeepFileAndTable() {
    QFETCH(QStringList, command);
    QFETCH(QString, title);
    QFETCH(QString, after);
    EditorSession s(smallZone(), 95, "zone");
    QVERIFY(s.opened);
    MARL_PLAY(s.play({"textName:type: Changed", "checkExitNorth:click"}));
    checkFailedWrite(s, roomTable(), command, title,
                     "listRoomSelect=9500\tThe Landing/9501\tReed Cottages/9502\tThe Kitchen, "
                     "textName=The Landing Changed, checkExitNorth=-, buttonSave, changed=x",
                     after);
}

void FormRoomSaveTest::wholeSession_data() {
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("exit"); // and its direction number in the file
    QTest::addColumn<QString>("flags");
    QTest::newRow("small zone") << ""
                                << "South 2"
                                << "h";
    QTest::newRow("project example") << examplesDir() + "/95.wld"
                                     << "South 2"
                                     << "h";
    QTest::newRow("stock 30.wld") << corpusDir() + "/30.wld"
                                  << "North 0"
                                  << "cde";
}

// Open a copy of a zone file, change the first room, give it a new exit with
// a door and an extra description, save, and read the file's bytes.
void FormRoomSaveTest::wholeSession() {
    QFETCH(QString, source);
    QFETCH(QString, exit);
    QFETCH(QString, flags);
    if (!source.isEmpty() && !QFile::exists(source))
        QSKIP(qPrintable(source + " is not here"));
    const std::string original = source.isEmpty() ? smallZone() : readBytes(source);
    const std::string eol = original.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    RoomTable before;
    const int count = readRooms(original, before);
    const int zone = before[0].VNum / 100;
    EditorSession s(original, zone);
    QVERIFY(s.opened);
    const QString to = QString::number(zone * 100 + 99), key = QString::number(zone * 100 + 98);
    const QString direction = exit.section(' ', 0, 0);

    MARL_PLAY(
        s.play({"textName:type: (changed)", "checkBitVNoMagic:click", "optionSecTypeForest:click",
                "checkExit" + direction + ":click", "text" + direction + "ToVNum:type:" + to,
                "buttonExit" + direction + ":click", "?!textName"}));
    QWidget* door = topLevel("formRoomDoor");
    QVERIFY(door);
    MARL_PLAY(play(door, s.host.script,
                   {"optionDoor:click", "textKeyVNum:erase", "textKeyVNum:type:" + key,
                    "textKeywords:type:gate", "textDesc:type:A new gate.", "buttonDone:click"}));
    MARL_PLAY(s.play({"?textName", "buttonExtraDescs:click"}));
    QWidget* extras = topLevel("formRoomExtraDescs");
    QVERIFY(extras);
    MARL_PLAY(play(extras, s.host.script,
                   {"textKeywords:type:plaque",
                    "textDesc:type:Words.\n"
                    "More words.",
                    "buttonAdd:click", "buttonDone:click"}));
    MARL_PLAY(s.play({"yes", "buttonSave:click",
                      "?said=Overwrite Existing Room: Overwrite "
                      "Existing Room?, changed=-"}));

    // The first room holds the session's changes, in the file's own line ends.
    const std::string written = readBytes(s.host.path(QString::number(zone) + ".wld"));
    const std::string room = written.substr(0, written.find(eol + "#", 1) + eol.size());
    for (const std::string& part :
         {"#" + std::to_string(before[0].VNum) + eol + before[0].Name + " (changed)~" + eol,
          eol + std::to_string(zone) + " " + flags.toStdString() + " 3" + eol,
          eol + "D" + exit.section(' ', 1).toStdString() + eol + "A new gate." + eol + "~" + eol +
              "gate~" + eol + "1 " + key.toStdString() + " " + to.toStdString() + eol,
          eol + "E" + eol + "plaque~" + eol + "Words." + eol + "More words." + eol + "~" + eol +
              "S" + eol})
        QVERIFY2(room.find(part) != std::string::npos, part.c_str());
    // Every other room reads back as it was.
    RoomTable after;
    QCOMPARE(readRooms(written, after), count);
    for (int slot = 1; slot < count; ++slot)
        QVERIFY2(after[slot] == before[slot], qPrintable(QString::number(after[slot].VNum)));
    MARL_PLAY(s.play({"buttonDone:click", "?closed=1"}));
}

MARL_TEST_MAIN(FormRoomSaveTest)
#include "form_room_save_test.moc"
