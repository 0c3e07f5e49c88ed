// The room editor window, one builder's script per row: what it shows of each
// room, the enabling of Save, the numeric fields, the exit boxes and their
// absent marks, the list, New, the ways of leaving, and saving and deleting
// with what the file then holds.

#include "test_main.h"

#include "form_room_fixture.h"

using namespace marl;
using namespace marl::test;

class FormRoomTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

void FormRoomTest::script_data() {
    QTest::addColumn<QByteArray>("file");  // empty: NewRoom on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const auto rooms = [](int count) {  // rooms 9500 upward without exits
        std::string file;
        for (int i = 0; i < count; ++i)
            file += crlf({"#" + std::to_string(9500 + i), "Room " + std::to_string(i) + "~", "",
                          "~", "95 0 0", "S"});
        return file + crlf({"$"});
    };
    const std::string small = smallZone(), none;

    row("opening shows the first room", small, {
        "?title=Room Editor [0/99], listRoomSelect=9500\tThe Landing/9501\tReed Cottages/9502\t"
        "The Kitchen, textVNum=9500, textName=The Landing, textDesc=A wooden landing., "
        "checkExitNorth=x, textNorthToVNum=9501, buttonExitNorth, checkExitSouth=-, "
        "!textSouthToVNum=, !buttonExitSouth, checkExitEast=x, textEastToVNum=-1, "
        "optionSecTypeField=x, checkBitVDark=-, !buttonSave, !buttonEdit, !buttonDelete, "
        "changed=-, index=0"});
    row("nothing left of the room before", small, {
        "listRoomSelect:dclick:1",
        "?title=Room Editor [1/99], textVNum=9501, textDesc=Low cottages.|Smoke curls., "
        "checkExitNorth=-, !textNorthToVNum=, !buttonExitNorth, checkExitWest=x, "
        "textWestToVNum=9502, optionSecTypeCity=x, checkBitVDark=x, checkBitVIndoors=x, "
        "checkBitVGodRoom=-, !buttonSave, !buttonEdit, changed=-, index=1"});
    // A sector no option stands for selects none and is stored unchanged.
    row("sector 9 shows no option, the record keeps 9", small, {
        "listRoomSelect:dclick:2", "?optionSecTypeInside=-, optionSecTypeCity=-, checkExitEast=x, "
        "textEastToVNum=9501, checkBitVGodRoom=x, table=" + smallRooms, "textName:type:!", "yes",
        "buttonSave:click", "?file=" + QString(smallRooms).replace("Kitchen k", "Kitchen! k"),
        "optionSecTypeCity:click", "yes", "buttonSave:click",
        "?file=" + QString(smallRooms).replace("Kitchen k/9", "Kitchen! k/1")});

    // Save: the VNum and the name, or the description; every other edit.
    row("new file", none, {"?textVNum=9500, !buttonSave, changed=-, listRoomSelect="});
    row("vnum and name", none, {"textName:type:Hall", "?buttonSave, changed=x"});
    row("name with the vnum emptied", none,
        {"textVNum:erase", "textName:type:Hall", "?!buttonSave, changed=x"});
    row("description alone", none, {"textVNum:erase", "textDesc:type:x", "?buttonSave"});
    row("description emptied again", none,
        {"textName:type:Hall", "textDesc:type:x", "textDesc:backspace", "?!buttonSave"});
    for (QString control : {"checkBitVDark", "optionSecTypeCity", "checkExitUp",
                            "buttonClearBits", "buttonClearExits"})
        row(control, none, {control + ":click", "?buttonSave, changed=x"});

    // Numeric fields: the key filter, the length and the range of destinations.
    for (QString exit : {"North -5 -1", "South 123456 99999", "West 3a0+0.1 3001", "Up 1-2 1-2",
                         "Down - -"}) {
        const QString field = "text" + exit.section(' ', 0, 0) + "ToVNum";
        row(exit, none, {"checkExit" + exit.section(' ', 0, 0) + ":click",
                         field + ":type:" + exit.section(' ', 1, 1),
                         "?" + field + "=" + exit.section(' ', 2)});
    }
    // Texts refuse a `~`, which would end them early in the file, and what a
    // single-byte file cannot hold.
    row("texts refuse ~ and what Latin-1 lacks", none, {"textName:type:Caf\u00e9~5\u20ac",
        "textDesc:type:Caf\u00e9~5\u20ac", "?textName=Caf\u00e95, textDesc=Caf\u00e95"});
    row("vnum of five digits", none,
        {"textVNum:erase", "textVNum:type:-1x2y34-56", "?textVNum=12345"});

    // Exit boxes and the absent marks of the edited slot: a destination
    // typed into a checked exit makes it present, so that what the exit
    // dialog stores for it survives the next save.
    const QString check = "checkExitNorth:click", to = "textNorthToVNum:type:9501";
    row("checked, field empty", none,
        {check, "?textNorthToVNum=, !buttonExitNorth, absent=xxxxxx"});
    row("checked, destination typed", none,
        {check, to, "?textNorthToVNum=9501, buttonExitNorth, absent=-xxxxx"});
    row("unchecked after typing", none,
        {check, to, check, "?!textNorthToVNum=9501, !buttonExitNorth, absent=xxxxxx"});
    row("checked again with the text there", none,
        {check, to, check, check, "?buttonExitNorth, absent=-xxxxx"});
    row("destination emptied", none, {check, "textNorthToVNum:type:9", "textNorthToVNum:backspace",
                                      "?!buttonExitNorth, absent=-xxxxx"});
    row("clear exits leaves the marks", small, {"buttonClearExits:click",
        "?checkExitNorth=-, !textNorthToVNum=9501, !buttonExitNorth, absent=-x-xxx"});

    // The list: one selected line at most, Edit without a question, Enter.
    row("list", small, {
        "textName:type:!", "listRoomSelect:line:1", "?buttonEdit, buttonDelete, buttonSave",
        "no", "buttonEdit:click", "?textName=The Landing!, buttonEdit", "yes", "buttonEdit:click",
        "?textName=Reed Cottages, !buttonEdit, said=Room Not Saved: Changes to Room Not Saved."
        "\r\nDiscard Changes? | Room Not Saved: Changes to Room Not Saved.\r\nDiscard Changes?",
        "listRoomSelect:ctrlline:2", "?buttonEdit, buttonDelete", "listRoomSelect:ctrlline:2",
        "?!buttonSave, !buttonEdit, !buttonDelete", "listRoomSelect:enter", "?textVNum=9502"});

    // New: the question, and the refusal at 100 rooms.
    const QString full = "Marl - Marlstone: Zone Already Contains 99 Rooms";
    const QString discard = "said=Room Not Saved: Changes to Room Not Saved.\r\nDiscard Changes?";
    row("new at 99 rooms: slot 99", rooms(99), {"buttonNew:click",
        "?said=, textVNum=95, textName=, !buttonSave, index=99, changed=-, "
        "title=Room Editor [0/99], focus=textVNum"});
    row("new at 100 rooms", rooms(100),
        {"ok", "buttonNew:click", "?said=" + full + ", textVNum=9500"});
    row("new at 183 rooms", rooms(183), {"ok", "buttonNew:click", "?said=" + full + ", index=0"});
    row("new with changes, No", rooms(3), {"textName:type:!", "no", "buttonNew:click",
                                    "?" + discard + ", textName=Room 0!, changed=x"});
    row("new with changes, Yes", rooms(3), {"textName:type:!", "yes", "buttonNew:click",
                                     "?" + discard + ", textVNum=95, index=3, changed=-"});
    row("new with changes, Yes, at 100 rooms", rooms(100), {"textName:type:!", "yes", "ok",
        "buttonNew:click", "?" + discard + " | " + full + ", textVNum=9500, changed=x"});

    // Leaving clears the room table and reports to the main window, which
    // returns to the program's directory and enables itself.
    const QString ask = "said=Room Not Saved: Changes to Room Not Saved.\r\nCancel Anyway?";
    const QString left = ", closed=1, table=cleared; cleared; cleared", stayed = ", closed=0";
    row("cancel, no changes", small, {"buttonCancel:click", "?said=" + left});
    row("done, no changes", small, {"buttonDone:click", "?said=" + left});
    row("frame, no changes", small, {"close", "?said=" + left});
    const QString dirty = "checkBitVDeath:click";
    row("cancel, changes, No", small, {dirty, "no", "buttonCancel:click", "?" + ask + stayed});
    row("cancel, changes, Yes", small, {dirty, "yes", "buttonCancel:click", "?" + ask + left});
    row("done, changes", small, {dirty, "ok", "buttonDone:click", "?said=Room Not Saved: Changes "
                                 "to Room Not Saved.\r\nEither Save or Use Cancel." + stayed});
    row("frame, changes, No", small, {dirty, "no", "close", "?" + ask + stayed});
    row("frame, changes, Yes", small, {dirty, "yes", "close", "?" + ask + left});
    row("escape, changes, No", small, {dirty, "no", "textName:escape", "?" + ask + stayed});
    row("the frame waits for an open dialog", small,
        {"buttonExitNorth:click", "close", "?said=, closed=0, table=" + smallRooms});

    // Rooms 9500 "A", 9500 "C", 9501 "B" and 9503 without a name.
    const std::string twins = crlf({"#9500", "A~", "~", "95 0 0", "S", "#9500", "C~", "~",
                                    "95 0 0", "S", "#9501", "B~", "~", "95 0 0", "S", "#9503",
                                    "~", "~", "95 0 0", "S", "$"});
    const QStringList renamed{"textName:erase", "textName:type:New", "textVNum:erase",
                              "listRoomSelect:line:1"};
    const QString asked = "Overwrite Existing Room: Overwrite Existing Room?";
    const QString stored = ", textName=New, !buttonEdit, !buttonDelete, changed=-, focus=textVNum";

    // Every room with the typed VNum, named or not, is asked about in turn;
    // the list shows what the file holds, the window what was stored.
    row("two matches, Yes to both", twins, renamed + QStringList{
        "textVNum:type:9500", "yes", "yes", "buttonSave:click", "?said=" + asked + " | " + asked +
        stored + ", index=0, listRoomSelect=9500\tNew/9500\tNew/9501\tB/9503\t"});
    row("two matches, Yes then No", twins, renamed + QStringList{
        "textVNum:type:9500", "yes", "no", "buttonSave:click",
        "?file=9500 New 0/0; 9500 C 0/0; 9501 B 0/0; 9503  0/0" + stored});
    row("two matches, No to both: nothing added", twins, renamed + QStringList{
        "textVNum:type:9500", "no", "no", "buttonSave:click",
        "?file=9500 A 0/0; 9500 C 0/0; 9501 B 0/0; 9503  0/0"});

    // The server's format: exits in slot order with the file's direction
    // numbers, letters for the flags, CR LF for a new file, and no exit for
    // a box unchecked or checked without a destination.
    QStringList quay{"textName:type:The Quay", "textDesc:type:Stone steps.\nGulls.",
                     "optionSecTypeHills:click", "checkBitVGodRoom:click", "checkBitVDark:click"};
    for (QString exit : {"North 9501", "South 9502", "East 9503", "Down -1", "West 9504"})
        quay << "checkExit" + exit.section(' ', 0, 0) + ":click"
             << "text" + exit.section(' ', 0, 0) + "ToVNum:type:" + exit.section(' ', 1);
    row("a new room in the server's format", none, quay + QStringList{
        "checkExitWest:click", "checkExitUp:click", "buttonSave:click",
        "?bytes=#9500|The Quay~|Stone steps.|Gulls.|~|95 ak 4|D0|~|~|0 0 9501|D1|~|~|0 0 9503|"
        "D2|~|~|0 0 9502|D5|~|~|0 0 -1|S|$|, listRoomSelect=9500\tThe Quay"});
    // A numeric flag text is the server's bit mask (12: NoMob and Indoors); it
    // stays as it is until the room is stored from the window, which writes
    // letters.  The file's LF line ends stay.
    row("numeric flags shown, kept until stored",
        lf({"#9500", "A~", "~", "95 12 0", "S", "#9501", "B~", "~", "95 12 0", "S", "$"}),
        {"?checkBitVDark=-, checkBitVNoMob=x, checkBitVIndoors=x", "listRoomSelect:dclick:1",
         "textName:type:!", "yes", "buttonSave:click",
         "?bytes=#9500/A~/~/95 12 0/S/#9501/B!~/~/95 cd 0/S/$/"});

    // Lines the server passes over stay where they stood: before the first
    // room, and after a room stored from the window; a copy under a new VNum
    // does not take them along.
    row("empty and * lines kept in their places",
        lf({"* Harbour", "#9500", "A~", "~", "95 0 0", "S", "", "* cottages", "#9501", "B~", "~",
            "95 0 0", "S", "$"}),
        {"textName:type:!", "yes", "buttonSave:click", "textVNum:erase", "textVNum:type:9502",
         "buttonSave:click", "?bytes=* Harbour/#9500/A!~/~/95 0 0/S//* cottages/#9501/B~/~/95 0 0/"
         "S/#9502/A!~/~/95 0 0/S/$/"});

    // Numbers that cannot be stored: a message, nothing stored or written.
    const QString vnum = "VNum Must Be a Number.\r\nType the room's VNum, then Save.";
    for (QString typed : {"textVNum:erase", "textVNum:type:-"})
        row(qPrintable("vnum after " + typed), small, {
            "textVNum:erase", typed, "textDesc:type:x", "ok", "buttonSave:click",
            "?said=Room Not Saved: " + vnum + ", changed=x, file=" + smallRooms +
                ", table=" + smallRooms});
    row("destination 1-2", small, {
        "textNorthToVNum:erase", "textNorthToVNum:type:1-2", "ok", "buttonSave:click",
        "?said=Room Not Saved: The North Exit's Destination Must Be a Number.\r\nCorrect it, "
        "then Save., file=" + smallRooms + ", table=" + smallRooms});

    // Delete moves every later room up with all it holds, and writes.
    const QString rest = smallRooms.mid(smallRooms.indexOf("9501 Reed"));
    row("delete the first of three", small, {
        "yes", "listRoomSelect:line:0", "buttonDelete:click",
        "?said=Confirm Delete: Really Delete This Room?\r\n9500 The Landing, listRoomSelect=9501\tReed Cottages/"
        "9502\tThe Kitchen, textVNum=95, textName=, !buttonDelete, index=2, changed=-, table=" +
            rest + ", file=" + rest});
    row("delete, No", small,
        {"no", "listRoomSelect:line:0", "buttonDelete:click", "?buttonDelete, file=" + smallRooms});
    row("delete the only room: the end line alone", rooms(1), {"yes", "listRoomSelect:line:0",
        "buttonDelete:click", "?listRoomSelect=, bytes=$|"});
}

void FormRoomTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    EditorSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.play(steps));
    // A window that closed is gone, having reported to the main window once.
    const int closed = s.host.closed;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(s.editor.isNull(), closed == 1);
    QCOMPARE(s.host.closed, closed);
}

MARL_TEST_MAIN(FormRoomTest)
#include "form_room_test.moc"
