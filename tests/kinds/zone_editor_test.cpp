// The zone editor under builders' scripts, one table: the reset table in
// words, a change writing only its own line, the list's commands, each
// refusal and warning of Save as a row; its access keys; and a zone made
// from scratch in the window that the server boots.

#include "test_main.h"

#include "access_keys.h"
#include "save_checks.h"
#include "sessions.h"

using namespace marl;
using namespace marl::test;

class ZoneEditorTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void accessKeys();
    void bootsFromScratch();
};

namespace {

// Zone 95 over the example rooms, mobiles and objects.
const QString kHeader = "#95|The Landing~|9500 9599 30 2|";
const QString kTable = "* Mobiles|M 0 9500 1 9500  ferryman|G 1 9500 1   pole|E 1 9503 1 17|"
                       "O 0 9501 1 9501|P 1 9502 5 9501|D 0 9501 3 1|S|$";
// The file as the "bytes" probe shows it.
QString shown(const QString& file) {
    return QString(file).replace('|', '/') + '/';
}

void row(const char* name, const QString& file, const QStringList& steps) {
    QTest::newRow(name) << file << steps;
}

} // namespace

void ZoneEditorTest::script_data() {
    QTest::addColumn<QString>("file"); // `|` between lines; empty: a new zone
    QTest::addColumn<QStringList>("steps");
    const QString zone = kHeader + kTable;
    const QString save = "buttonSave:click";
    // clang-format off
    row("the table in words, G E P under their M or O", zone, {"?listCommands=* Mobiles/"
        "Load mobile 9500 the old ferryman (max 1) into 9500 The Ferryman's Landing/"
        "    give 9500 a ferryman's pole (max 1)/    equip 9503 a brass lantern (max 1) held/"
        "Load object 9501 an iron-bound chest (max 1) into 9501 Reed Cottages/"
        "    put 9502 a murky green potion (max 5) into 9501 an iron-bound chest/"
        "Close door west of 9501 Reed Cottages", "?textBottom=9500, labelOlder=, labelNameObject="});
    row("a changed field writes its line anew, its comment kept, every other line as it was", zone,
        {"listCommands:line:2", "?textObject=9500, textMaxExisting=1, labelNameObject=a ferryman's pole", "textMaxExisting:erase",
         "textMaxExisting:type:4", "?changed=x", save, "?bytes=" + shown(QString(zone).replace("9500 1   pole", "9500 4   pole")),
         "?changed=-, index=2"});
    row("a line moved keeps its bytes", zone, {"listCommands:line:3", "buttonMoveUp:click", "?index=2", save,
        "?bytes=" + shown(QString(zone).replace("G 1 9500 1   pole|E 1 9503 1 17", "E 1 9503 1 17|G 1 9500 1   pole"))});
    row("Delete asks", zone, {"listCommands:line:0", "no", "buttonDelete:click", "?count=7", "yes",
        "buttonDelete:click", "?count=6, index=0", save, "?bytes=" + shown(QString(zone).remove("* Mobiles|"))});
    row("Add after the line, Insert before, named after the record", zone,
        {"listCommands:line:6", "buttonAdd:click", "?index=7, textMobile=", "textMobile:type:9501",
         "textRoom:type:9502", "textMaxExisting:type:2", "?labelNameMobile=a grey heron, labelNameRoom=The Ferryman's Kitchen",
         "buttonInsert:click", "optionRemove:click", "textRoom:type:9999", "textObject:type:9510",
         "?labelNameRoom=no such room", "no", save,
         "?told=Line 11: there is no room 9999 in the world's files: the server disables the line", "textRoom:erase", "textRoom:type:9500", save,
         "?bytes=" + shown(QString(zone).replace("S|$", "R 0 9500 9510  a rusty key|M 0 9501 2 9502  a grey heron|S|$"))});
    row("a G's if-flag as the builder sets it", zone, {"listCommands:line:2", "checkIfFlag:click", save,
        "?bytes=" + shown(QString(zone).replace("G 1 9500 1   pole", "G 0 9500 1   pole"))});
    row("a door's direction and state as options", zone, {"listCommands:line:6", "optionSouth:click",
        "optionDoorLocked:click", save, "?bytes=" + shown(QString(zone).replace("D 0 9501 3 1", "D 0 9501 2 2"))});
    row("Clear All asks and keeps the header", zone, {"no", "buttonClearAll:click", "?count=7", "yes",
        "buttonClearAll:click", "?count=0, !buttonDelete", save, "?bytes=" + shown(kHeader + "S|$")});
    row("Cancel with changes asks", zone, {"textName:type:!", "no", "buttonCancel:click", "?closed=0",
        "yes", "buttonCancel:click", "?closed=1, bytes=" + shown(zone)});
    row("an older header kept as it stands, the window says so", "#95|Old~|9599 30 2|S|$",
        {"?!textBottom, textTop=9599", "textName:type:er", save, "?bytes=" + shown("#95|Older~|9599 30 2|S|$")});
    row("a new zone's header", "", {"?labelZone=Zone 95, textBottom=9500, textTop=9599, textName=, count=0, !buttonDelete"});
    // Save refuses what the server refuses, naming the line.
    row("refused: a field left empty", "", {"buttonAdd:click", "?listCommands=Load mobile ? (max ?) into ?", "ok", save,
        "?told=Line 4: M: the mobile is missing or not a number / Line 4: M: the room is missing or not a number / "
        "Line 4: M: the max existing is missing or not a number", "?changed=x"});
    row("refused: bottom above top", zone, {"textBottom:erase", "textBottom:type:9600", "ok", save,
        "?told=Line 3: the bottom VNum 9600 is above the top VNum 9599"});
    row("refused: a wear position outside 0-17", QString(zone).replace("9503 1 17", "9503 1 18"), {"textName:type:!", "ok", save,
        "?told=Line 7: the wear position 18 is outside 0-17"});
    row("refused: a direction outside 0-5", QString(zone).replace("9501 3 1", "9501 6 1"), {"textName:type:!", "ok", save,
        "?told=Line 10: the direction 6 is outside 0-5"});
    row("refused: a door state outside 0-2", QString(zone).replace("9501 3 1", "9501 3 3"), {"textName:type:!", "ok", save,
        "?told=Line 10: the door state 3 is outside 0-2"});
    row("refused: a comment line not begun by *", zone, {"listCommands:line:0", "textComment:erase", "textComment:type:Mobiles", "ok", save,
        "?told=Line 4: a comment line must begin with \"*\""});
    row("a ~ never reaches the name", zone, {"textName:type:a~b", "?textName=The Landingab"});
    // Save warns of what the server only logs, and saves only on Yes.
    const QString noSave = "?bytes=" + shown(zone);
    row("warned: a VNum in none of the world's files", QString(zone).replace("M 0 9500 1 9500", "M 0 9599 1 9500"),
        {"textName:type:!", "no", save, "?told=Line 5: there is no mobile 9599 in the world's files: the server disables the line",
         "?changed=x"});
    row("warned: G and E with no M before them", kHeader + "G 1 9500 1|E 1 9503 1 17|S|$", {"textName:type:!", "no", save,
        "?told=Line 4: G with no M before it: there is no mobile to give it to / "
        "Line 5: E with no M before it: there is no mobile to equip"});
    row("warned: P with no O before it", kHeader + "P 1 9502 5 9501|S|$", {"textName:type:!", "no", save,
        "?told=Line 4: P with no O before it: no line before it loads its container, object 9501"});
    row("warned: D where the room has no exit", QString(zone).replace("9501 3 1", "9501 0 1"), {"textName:type:!", "yes", save,
        "?told=Line 10: D on the north side of room 9501, which has no exit there: the server disables the line",
        "?changed=-"});
    // clang-format on
}

void ZoneEditorTest::script() {
    QFETCH(QString, file);
    QFETCH(QStringList, steps);
    ZoneSession s(file.isEmpty() ? std::string() : lfLines(file));
    QVERIFY(s.opened);
    MARL_PLAY(s.play(steps));
}

void ZoneEditorTest::accessKeys() {
    for (int index = 0, more = 1; more && !QTest::currentTestFailed(); ++index) {
        ZoneSession s(lfLines(kHeader + kTable));
        MARL_PLAY(s.play({"listCommands:line:1"}));
        const QMap<QChar, QAbstractButton*> keys = keyed(s.editor);
        QVERIFY(keys.size() >= 8);
        more = index + 1 < keys.size();
        QAbstractButton* control = keys.values()[index];
        pressAccessKey(s.editor,
                       control->objectName() + ' ' + control->text() + ' ' + keys.keys()[index],
                       s.host.script);
    }
}

// A zone made in the window from nothing (an M with a G and an E, an O with a
// P, a D) is one the server boots with the example world beside it.
void ZoneEditorTest::bootsFromScratch() {
    ZoneSession s({});
    // clang-format off
    MARL_PLAY(s.play({"textName:type:The Landing", "buttonAdd:click", "textMobile:type:9500",
        "textMaxExisting:type:1", "textRoom:type:9500", "buttonAdd:click", "optionGive:click",
        "textObject:type:9500", "textMaxExisting:type:1", "buttonAdd:click", "optionEquip:click",
        "textObject:type:9503", "textMaxExisting:type:1", "comboWear:type:17", "buttonAdd:click",
        "optionLoadObject:click", "textObject:type:9501", "textMaxExisting:type:1", "textRoom:type:9501",
        "buttonAdd:click", "optionPut:click", "textObject:type:9502", "textMaxExisting:type:5",
        "textContainer:type:9501", "buttonAdd:click", "optionDoor:click", "textRoom:type:9501",
        "optionWest:click", "optionDoorLocked:click", "buttonSave:click",
        "?bytes=#95|The Landing~|9500 9599 30 2|M 0 9500 1 9500  the old ferryman|G 1 9500 1  a ferryman's pole|"
        "E 1 9503 1 17  a brass lantern|O 0 9501 1 9501  an iron-bound chest|P 1 9502 5 9501  a murky green potion|"
        "D 0 9501 3 2  Reed Cottages|S|$|"}));
    // clang-format on
    // Against the same world with no resets: the server adds no SYSERR line.
    QTemporaryDir bare;
    for (const char* extension : {".wld", ".mob", ".obj"})
        QFile::copy(s.host.path(QString("95") + extension),
                    bare.filePath(QString("95") + extension));
    writeBytes(bare.filePath("95.zon"), lfLines("#95|The Landing~|9500 9599 30 2|S|$"));
    const std::optional<QStringList> before = serverSyserrs(bare.path()),
                                     after = serverSyserrs(s.host.folder);
    if (!before)
        QSKIP("the server is not here");
    QVERIFY2(before->join('\n') == after->join('\n'), qPrintable(after->join('\n')));
}

MARL_TEST_MAIN(ZoneEditorTest)
#include "zone_editor_test.moc"
