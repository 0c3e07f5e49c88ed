// The rules that keep a builder's work in the room editor: the dialogs change
// the room the window shows and no other, discarding is whole, No to
// Overwrite writes nothing, a file that does not read back keeps the table,
// every stock room survives being shown and saved, the empty zone, and a
// save that changes only the bytes of the room saved.

#include "test_main.h"

#include "form_room_fixture.h"
#include "save_checks.h"

#include <QFileInfo>

using namespace marl;
using namespace marl::test;

class FormRoomRulesTest : public QObject {
    Q_OBJECT
private slots:
    void dialogsChangeTheShownRoom_data();
    void dialogsChangeTheShownRoom();
    void keepsWork_data();
    void keepsWork();
    void keptWhenNotReadBack();
    void stockRoomsSurviveSaving_data();
    void stockRoomsSurviveSaving();
    void emptyZone();
    void savingChangesOnlyThatRoom_data();
    void savingChangesOnlyThatRoom();
};

void FormRoomRulesTest::dialogsChangeTheShownRoom_data() {
    QTest::addColumn<QStringList>("steps"); // on the small zone
    QTest::addColumn<int>("slot");          // the slot then shown
    QTest::addColumn<QString>("exit");      // a present exit of that room
    QTest::newRow("after Save") << QStringList{"listRoomSelect:dclick:1", "textName:type:!", "yes",
                                               "buttonSave:click"}
                                << 1 << "West";
    QTest::newRow("after Edit answered Yes")
        << QStringList{"textName:type:!", "listRoomSelect:line:2", "yes", "buttonEdit:click"} << 2
        << "East";
    QTest::newRow("after New with an existing VNum")
        << QStringList{"buttonNew:click",      "textVNum:type:01",          "textName:type:Twin",
                       "checkExitNorth:click", "textNorthToVNum:type:9500", "yes",
                       "buttonSave:click"}
        << 1 << "North";
}

// After the steps, the exit dialog and the extra-descriptions dialog change
// the room the window shows: the whole table is compared before and after.
void FormRoomRulesTest::dialogsChangeTheShownRoom() {
    QFETCH(QStringList, steps);
    QFETCH(int, slot);
    QFETCH(QString, exit);
    EditorSession s(smallZone());
    MARL_PLAY(s.play(steps + QStringList{"?index=" + QString::number(slot)}));
    const RoomTable before = roomTable();
    const int count = s.editor->recordCount();
    const QString vnum = find<QLineEdit>(s.editor, "textVNum")->text();
    QCOMPARE(QString::number(before[slot].VNum), vnum);

    MARL_PLAY(s.play({"buttonExit" + exit + ":click"}));
    QWidget* door = topLevel("formRoomDoor");
    QVERIFY(door);
    MARL_PLAY(play(door, s.host.script,
                   {"?textFromVNum=" + vnum, "textKeywords:type:gate", "buttonDone:click"}));
    MARL_PLAY(s.play({"buttonExtraDescs:click"}));
    QWidget* extras = topLevel("formRoomExtraDescs");
    QVERIFY(extras);
    MARL_PLAY(play(extras, s.host.script,
                   {"textKeywords:type:mark", "buttonAdd:click", "buttonDone:click"}));
    MARL_PLAY(s.play({"?changed=x, index=" + QString::number(slot)}));

    for (int other = 0; other < count + 1; ++other)
        QVERIFY2(other == slot || roomTable()[other] == before[other],
                 qPrintable(QString("slot %1 changed").arg(other)));
    const RoomRecord& shown = roomTable()[slot];
    const int exitSlot = exit == "North" ? 0 : exit == "East" ? 2 : 3;
    QCOMPARE(shown.Exits[exitSlot].Keywords.substr(shown.Exits[exitSlot].Keywords.size() - 4),
             std::string("gate"));
    QCOMPARE(shown.ExtraDescs[extraDescCount(shown.ExtraDescs) - 1].Keywords, std::string("mark"));
}

void FormRoomRulesTest::keepsWork_data() {
    QTest::addColumn<QStringList>("steps"); // on the small zone
    const QString addMark = "buttonExtraDescs:click";
    const QString file = "?file=" + smallRooms;
    // The dialog's change is dropped with the window's; a later save of
    // another room does not carry it into the file.
    QTest::newRow("new discards a dialog's change") << QStringList{addMark,
                                                                   "yes",
                                                                   "buttonNew:click",
                                                                   "?table=" + smallRooms,
                                                                   "textVNum:type:77",
                                                                   "textName:type:Quay",
                                                                   "buttonSave:click",
                                                                   file + "; 9577 Quay 0/0"};
    QTest::newRow("edit discards a dialog's change")
        << QStringList{addMark,
                       "listRoomSelect:line:1",
                       "yes",
                       "buttonEdit:click",
                       "textName:type:!",
                       "yes",
                       "buttonSave:click",
                       QString(file).replace("Cottages", "Cottages!")};
    QTest::newRow("no to the discard keeps it") << QStringList{
        addMark, "listRoomSelect:line:1", "no", "buttonEdit:click",
        "?table=" + QString(smallRooms).replace("+bell", "+bell +mark") + ", changed=x"};
    QTest::newRow("delete takes a dialog's change with the room shown")
        << QStringList{addMark,
                       "listRoomSelect:line:2",
                       "yes",
                       "yes",
                       "buttonDelete:click",
                       "?file=" + smallRooms.mid(smallRooms.indexOf("9501 Reed")) + ", changed=-"};
    // No to every Overwrite question stores and writes nothing.
    QTest::newRow("no to overwrite") << QStringList{
        addMark, "textName:type:!", "no", "buttonSave:click",
        "?bytes=" + fromBytes(smallZone()).replace('\n', '/') + ", changed=x, buttonSave, table=" +
            QString(smallRooms).replace("+bell", "+bell +mark")};
}

void FormRoomRulesTest::keepsWork() {
    QFETCH(QStringList, steps);
    EditorSession s(smallZone());
    // The first step opens the extra-descriptions dialog; it adds "mark".
    MARL_PLAY(s.play(steps.mid(0, 1)));
    QWidget* extras = topLevel("formRoomExtraDescs");
    QVERIFY(extras);
    MARL_PLAY(play(extras, s.host.script,
                   {"textKeywords:type:mark", "buttonAdd:click", "buttonDone:click"}));
    MARL_PLAY(s.play(steps.mid(1)));
}

// The file just written does not read back: the table keeps what was
// written, the builder is told, and nothing is lost.
void FormRoomRulesTest::keptWhenNotReadBack() {
    EditorSession s(smallZone());
    s.editor->rooms().setReader(
        [](std::string_view, RoomTable&) -> int { throw FormatError(1, "a room header"); });
    const QString written = QString(smallRooms).replace("The Landing", "The Landing!");
    MARL_PLAY(s.play({"textName:type:!", "yes", "ok", "buttonSave:click",
                      "?said=Overwrite Existing Room: Overwrite Existing Room? | Marl - "
                      "Marlstone: 95.wld, line 1: expected a room header, table=" +
                          written +
                          ", listRoomSelect=9500\tThe Landing!/9501\tReed Cottages/9502\tThe "
                          "Kitchen, index=0, changed=-, file=" +
                          written}));
}

void FormRoomRulesTest::stockRoomsSurviveSaving_data() {
    stockFileRows(".wld");
}

namespace {

// A room as it reads, with its flags as the set they stand for ("35 1 3",
// a Dark room in digits, is "a" once stored).
RoomRecord normalised(RoomRecord room) {
    room.Source.clear();
    room.BitV = std::to_string(flagBits(room.BitV));
    return room;
}

} // namespace

void FormRoomRulesTest::stockRoomsSurviveSaving() {
    checkRecordsSurviveTheWindow<EditorSession>(readRooms, normalised);
}

// Deleting every room of a small zone leaves the file of an empty zone, which
// opens as a new one and takes a new room.
void FormRoomRulesTest::emptyZone() {
    {
        EditorSession s(smallZone());
        for (int left = 3; left > 0; --left)
            MARL_PLAY(s.play({"listRoomSelect:dclick:0", "listRoomSelect:line:0", "yes",
                              "buttonDelete:click"}));
        QCOMPARE(s.bytes(), std::string("$\n"));
        QCOMPARE(s.editor->recordCount(), 0);
    }
    EditorSession s(std::string("$\n"));
    QVERIFY(s.opened);
    MARL_PLAY(s.play({"?listRoomSelect=, textVNum=9500, count=0, changed=-", "textName:type:Quay",
                      "buttonSave:click", "?file=9500 Quay 0/0, count=1, index=0, changed=-"}));
}

void FormRoomRulesTest::savingChangesOnlyThatRoom_data() {
    QTest::addColumn<QString>("path");
    const QStringList files = corpusFiles(".wld");
    if (files.isEmpty())
        QSKIP("the stock zone files are not here");
    for (const QString& path : files)
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

// One room of each stock file changed and saved: the bytes before its header
// and from the next header on are those of the original file.
void FormRoomRulesTest::savingChangesOnlyThatRoom() {
    QFETCH(QString, path);
    const std::string original = readBytes(path);
    RoomTable stock;
    const int count = readRooms(original, stock);
    const int slot = count / 2;
    const std::string header = "#" + std::to_string(stock[slot].VNum) + "\n";
    const std::size_t start = original.find(header);
    const std::size_t end =
        slot + 1 < count ? original.find("\n#", start + 1) + 1 : original.rfind("$");
    QVERIFY(start != std::string::npos && end != std::string::npos);
    EditorSession s(original, QFileInfo(path).baseName().toInt());
    MARL_PLAY(s.play({"listRoomSelect:dclick:" + QString::number(slot), "textName:type:!", "yes",
                      "buttonSave:click", "?changed=-"}));
    const std::string written = s.bytes();
    QVERIFY(written.size() >= original.size() - (end - start));
    // Everything but the room saved, as one text so that a difference shows.
    const std::string rest = original.substr(0, start) + "[room]" + original.substr(end);
    const std::string after = written.substr(0, start) + "[room]" +
                              written.substr(written.size() - (original.size() - end));
    QCOMPARE(after, rest);
}

MARL_TEST_MAIN(FormRoomRulesTest)
#include "form_room_rules_test.moc"
