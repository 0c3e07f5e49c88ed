// The room editor and its exit dialog, a builder's script per row: exits and
// their marks, the server's format, Overwrite, a dialog's change discarded.

#include "test_main.h"

#include "../kinds/sessions.h"

using namespace marl;
using namespace marl::test;

class FormRoomTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void keptWhenNotReadBack();
};

void FormRoomTest::script_data() {
    QTest::addColumn<QByteArray>("file"); // empty: NewRoom on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const std::string small = smallZone(), none;

    row("opening shows the first room", small, {
        "?title=Room Editor [0/99], textName=The Landing, textDesc=A wooden landing., "
        "checkExitNorth=x, textNorthToVNum=9501, buttonExitNorth, checkExitSouth=-, "
        "!textSouthToVNum=, !buttonExitSouth, checkExitEast=x, textEastToVNum=-1, "
        "optionSecTypeField=x, checkBitVDark=-", "listRoomSelect:dclick:1",
        "?textDesc=Low cottages.|Smoke curls., checkExitNorth=-, !textNorthToVNum=, "
        "textWestToVNum=9502, optionSecTypeCity=x, checkBitVDark=x, checkBitVIndoors=x"});
    // A sector no option stands for selects none and is stored unchanged.
    row("sector 9 shows no option, the record keeps 9", small, {"listRoomSelect:dclick:2",
        "?optionSecTypeInside=-, optionSecTypeCity=-", "textName:type:!", "yes",
        "buttonSave:click", "?slot2=9502 The Kitchen! k/9 East:2/-1/9501/door +ladder +pot"});
    for (QString control : {"checkBitVDark", "optionSecTypeCity", "checkExitUp",
                            "buttonClearBits", "buttonClearExits"})
        row(control + " is a change", none, {control + ":click", "?buttonSave, changed=x"});
    row("texts refuse ~ and what Latin-1 lacks", none, {"textName:type:Caf\u00e9~5\u20ac",
        "textDesc:type:Caf\u00e9~5\u20ac", "?textName=Caf\u00e95, textDesc=Caf\u00e95"});

    // A destination typed into a checked exit makes it present, so that
    // what the exit dialog stores for it survives the next save.
    const QString check = "checkExitNorth:click", typed = "textNorthToVNum:type:9501";
    row("exit boxes and absent marks", none, {check, "?!buttonExitNorth, absent=xxxxxx", typed,
        "?buttonExitNorth, absent=-xxxxx", check, "?!textNorthToVNum=9501, absent=xxxxxx", check,
        "?buttonExitNorth, absent=-xxxxx"});

    // Exits in slot order with the file's direction numbers, letters for the
    // flags, CR LF for a new file, no exit for a box unchecked or empty.
    QStringList quay{"textName:type:The Quay", "textDesc:type:Stone steps.\nGulls.",
                     "optionSecTypeHills:click", "checkBitVGodRoom:click", "checkBitVDark:click"};
    for (QString exit : {"North 9501", "South 9502", "East 9503", "Down -1", "West 9504"})
        quay << "checkExit" + exit.section(' ', 0, 0) + ":click"
             << "text" + exit.section(' ', 0, 0) + "ToVNum:type:" + exit.section(' ', 1);
    row("a new room in the server's format", none, quay + QStringList{
        "checkExitWest:click", "checkExitUp:click", "buttonSave:click",
        "?bytes=#9500|The Quay~|Stone steps.|Gulls.|~|95 ak 4|D0|~|~|0 0 9501|D1|~|~|0 0 9503|"
        "D2|~|~|0 0 9502|D5|~|~|0 0 -1|S|$|"});
    // A numeric flag text (12: NoMob and Indoors) stays until the room is
    // stored from the window, which writes letters; LF line ends stay.
    row("numeric flags shown, kept until stored", lfLines("#9500|A~|~|95 12 0|S|#9501|B~|~|95 12 0|S|$"),
        {"?checkBitVDark=-, checkBitVNoMob=x, checkBitVIndoors=x", "listRoomSelect:dclick:1",
         "textName:type:!", "yes", "buttonSave:click",
         "?bytes=#9500/A~/~/95 12 0/S/#9501/B!~/~/95 cd 0/S/$/"});
    const QString unchanged = ", changed=x, file=" + smallRooms + ", table=" + smallRooms;

    // Rooms 9500 "A", 9500 "C", 9501 "B" and 9503 without a name: every room
    // with the VNum typed is asked about in turn.
    const std::string twins = lfLines("#9500|A~|~|95 0 0|S|#9500|C~|~|95 0 0|S|#9501|B~|~|95 0 0|"
                                      "S|#9503|~|~|95 0 0|S|$");
    const QStringList renamed{"textName:erase", "textName:type:New", "textVNum:erase",
                              "listRoomSelect:line:1"};
    const QString asked = "Overwrite Existing Room: Overwrite Existing Room?";
    row("two matches, Yes then No", twins, renamed + QStringList{"textVNum:type:9500", "yes",
        "no", "buttonSave:click", "?said=" + asked + " | " + asked + ", file=9500 New 0/0; 9500 "
        "C 0/0; 9501 B 0/0; 9503  0/0, textName=New, !buttonEdit, changed=-"});
    row("delete the only room: the end line alone", lfLines("#9500|R~|~|95 0 0|S|$"),
        {"yes", "listRoomSelect:line:0", "buttonDelete:click", "?listRoomSelect=, bytes=$/"});

    // A dialog's change is dropped with the window's and reaches no file;
    // No to every Overwrite question stores and writes nothing.
    const QStringList mark{"buttonExtraDescs:click", ">formRoomExtraDescs",
                           "textKeywords:type:mark", "buttonAdd:click", "buttonDone:click", ">"};
    row("new discards a dialog's change", small, mark + QStringList{"yes", "buttonNew:click",
        "?table=" + smallRooms, "textVNum:type:77", "textName:type:Quay", "buttonSave:click",
        "?file=" + smallRooms + "; 9577 Quay 0/0"});
    row("the frame waits for an open dialog", small,
        {"buttonExitNorth:click", "close", "?said=, closed=0, table=" + smallRooms});

    // The exit dialog on room 9501's west door (with a key) or 9500's north
    // exit; Done stores the exit into its slot and tells the editor.
    const QStringList west{"listRoomSelect:dclick:1", "buttonExitWest:click", ">formRoomDoor"};
    const QStringList north{"buttonExitNorth:click", ">formRoomDoor"};
    const QString to = "textToVNum:erase", key = "textKeyVNum:erase", done = "buttonDone:click";
    row("door: no door, key parts disabled", small, north + QStringList{"?title=Door Properties, "
        "textFromVNum=9500, textDirection=North, textToVNum=9501, checkNowhere=-, optionNormal=x, "
        "!textKeyVNum=-1, !checkNoKey=x, textKeywords=, textDesc=A track north., changed=-"});
    row("door: no key and nowhere remember what they hid", small, west + QStringList{
        "?optionDoor=x, textKeyVNum=9510, checkNoKey=-", key, "textKeyVNum:type:3001",
        "checkNoKey:click", "?!textKeyVNum=-1, checkNoKey=x", "checkNoKey:click",
        "?textKeyVNum=3001", to, "textToVNum:type:9599", "checkNowhere:click", "?!textToVNum=-1",
        "checkNowhere:click", "?textToVNum=9599"});
    const QString cottages = "9501 Reed Cottages ad/1 West:";
    row("door: done untouched stores nothing", small, west + QStringList{done, ">",
        "?dialog=-, changed=-, !buttonSave, slot1=" + cottages + "1/9510/9502/door stout"});
    row("door: normal stores key -1 whatever the field shows", small, west + QStringList{
        "optionNormal:click", done, ">", "?changed=x, buttonSave, slot1=" + cottages +
        "0/-1/9502/door stout"});
    row("door: pick-proof with a new key", small, north + QStringList{"optionPickProof:click",
        "checkNoKey:click", key, "textKeyVNum:type:9511", "textKeywords:type:hatch", done, ">",
        "?slot0=9500 The Landing 0/2 North:2/9511/9501/hatch East:0/-1/-1/ +bell"});
    row("door: east keeps its slot", small, {"listRoomSelect:dclick:2", "buttonExitEast:click",
        ">formRoomDoor", "textKeywords:type: x", done, ">",
        "?slot2=9502 The Kitchen k/9 East:2/-1/9501/door x +ladder +pot"});
    row("door: a new destination shows in the room", small, north + QStringList{to,
        "textToVNum:type:9598", done, ">", "?textNorthToVNum=9598, changed=x"});
    row("door: refused, destination emptied", small, west + QStringList{to, "ok", done,
        "?said=No ToVNum Supplied: ToVNum Must Be Supplied\r\nTo Open This Exit", ">",
        "?dialog=formRoomDoor, !buttonNew, changed=-"});
}

void FormRoomTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    EditorSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
}

// The file just written does not read back: the table keeps what was
// written, the builder is told, and nothing is lost.
void FormRoomTest::keptWhenNotReadBack() {
    EditorSession s(smallZone());
    s.editor->records().setReader(
        [](std::string_view, RoomTable&) -> int { throw FormatError(1, "a room header"); });
    const QString written = QString(smallRooms).replace("The Landing", "The Landing!");
    MARL_PLAY(s.play({"textName:type:!", "yes", "ok", "buttonSave:click",
                      "?said=Overwrite Existing Room: Overwrite Existing Room? | Marl - "
                      "Marlstone: 95.wld, line 1: expected a room header, table=" + written +
                      ", index=0, changed=-, file=" + written}));
}

MARL_TEST_MAIN(FormRoomTest)
#include "form_room_test.moc"
