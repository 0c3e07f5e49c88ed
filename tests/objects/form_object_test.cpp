// The object editor window, one builder's script per row: what it shows of
// each object (as the record stands), the field rules on what is typed, the
// type options and the values button, the flags and their Clear Bits, the
// enabling of Save and its refusals, the overwrite question, New, Delete,
// the guard messages and the ways of leaving, with what the file then holds.

#include "form_object_fixture.h"

using namespace marl;
using namespace marl::test;

class FormObjectTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

namespace {

// Objects 9500 upward, all alike but for their VNum.
std::string manyObjects(int count) {
    std::string file;
    for (int i = 0; i < count; ++i)
        file += crlf({"#" + std::to_string(9500 + i), "o~", "obj " + std::to_string(i) + "~",
                      "An object.~", "~", "12 0 a", "0 0 0 0", "1 1 1"});
    return file + crlf({"$"});
}

// One object as stock files have them: type 11 (no option), numeric wear
// flags (17: Take and Head), an effect letter without a box (r), a negative
// weight, a scroll's spell 201 and an affect location without an option (7).
const std::string kWild = lf({"#9510", "relic~", "an odd relic~", "~", "~", "11 gr 17",
                              "12 201 -1 0", "-5 0 2147483647", "A", "7 3", "$"});

// The object of a single line "type effects wears" and an alias.
std::string oneObject(const std::string& typeLine, const std::string& alias = "thing") {
    return lf(
        {"#9520", alias + "~", "a thing~", "A thing.~", "~", typeLine, "0 0 0 0", "1 2 3", "$"});
}

} // namespace

void FormObjectTest::script_data() {
    QTest::addColumn<QByteArray>("file"); // empty: NewObject on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const std::string small = smallObjects(), none;
    const QString list =
        "listObjectSelect=9500\ta long sword/9501\tan iron chest/9502\ta green potion";
    const QString sword = "9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2";
    const QString smallBytes = fromBytes(small).replace('\n', '/');

    row("opening shows the first object", small,
        {"?title=Object Editor [0/99], " + list +
         ", textVNum=9500, textAlias=sword long, textSDesc=a long sword, "
         "textLDesc=A long sword lies here., textWeight=8, textCost=100, textRPD=10, "
         "optionWeapon=x, optionOther=-, checkMagic=x, checkGlow=-, checkTake=x, checkWield=x, "
         "checkHold=-, buttonValues, !buttonSave, !buttonEdit, !buttonDelete, changed=-, "
         "index=0, type=5"});
    row("edit shows another object, nothing left of the one before", small,
        {"listObjectSelect:dclick:1",
         "?title=Object Editor [1/99], textVNum=9501, textAlias=chest iron, optionContainer=x, "
         "optionWeapon=-, checkMagic=-, checkTake=x, checkWield=-, buttonValues, !buttonSave, "
         "changed=-, index=1, type=15"});
    row("a new file", none,
        {"?title=Object Editor, listObjectSelect=, textVNum=9500, textAlias=, textSDesc=, "
         "textLDesc=, textWeight=0, textCost=0, textRPD=0, optionOther=x, !buttonValues, "
         "!buttonSave, changed=-, index=0, count=0, type=12"});

    // Shown as they stand, stored as they stand unless edited.
    row("a stock object's odd values are shown and kept", kWild,
        {"?textLDesc=, textWeight=-5, textRPD=2147483647, optionOther=-, optionScroll=-, "
         "!buttonValues, type=11, checkMagic=x, checkTake=x, checkHead=x, checkFinger=-, "
         "!buttonSave, changed=-",
         "textCost:type:7", "yes", "buttonSave:click",
         "?said=Overwrite Existing Object: Overwrite Existing Object?, changed=-, "
         "file=9510 an odd relic t11 gr/ae 12,201,-1,0 -5/7/2147483647 A=7:3, type=11"});
    row("a line break read into a text is kept",
        lf({"#9520", "two", "words~", "a thing~", "A thing.~", "~", "12 0 0", "0 0 0 0", "1 2 3",
            "$"}),
        {"textCost:type:4", "yes", "buttonSave:click",
         "?bytes=#9520/two/words~/a thing~/A thing.~/~/12 0 0/0 0 0 0/1 24 3/$/"});
    row("flags are written in table order", oneObject("12 hb oa"),
        {"checkGlow:click", "yes", "buttonSave:click",
         "?file=9520 a thing t12 abh/ao 0,0,0,0 1/2/3"});
    row("no flag at all is written 0", oneObject("12 b a"),
        {"checkHum:click", "checkTake:click", "yes", "buttonSave:click",
         "?file=9520 a thing t12 0/0 0,0,0,0 1/2/3"});

    // The field rules hold for what is typed.
    for (const auto& [field, typed, shown] : QList<std::tuple<QString, QString, QString>>{
             {"textCost", "-", ""},
             {"textCost", "a1", "1"},
             {"textCost", "99999999999", "2147483647"},
             {"textWeight", "2147483648", "2147483647"},
             {"textRPD", "-12", "12"},
             {"textVNum", "123456", "12345"},
             {"textVNum", "-9", "9"},
             {"textAlias", "Caf\u00e9~5\u20ac", "Caf\u00e95"},
             {"textSDesc", "a~b", "ab"},
             {"textLDesc", "x\u20ac", "x"}})
        row(QString("typed into %1: %2").arg(field, typed), none,
            {field + ":erase", field + ":type:" + typed, "?" + field + "=" + shown});

    // A line of 8173 characters fills what the server reads of a text
    // (in pieces of 511, each a byte longer read, and a line end).
    std::string longAlias = small;
    longAlias.replace(longAlias.find("sword long"), 10, std::string(8168, 'a'));
    row("a text field refuses text past the server's limit and says so", longAlias,
        {"ok", "textAlias:type:bcdefg",
         "?said=Marl - Marlstone: The text would be too "
         "long for the server: it reads at most 8191 bytes of a text (line ends included) and "
         "refuses to boot a zone with a longer one.",
         "?textAlias=bcdef" + QString(8168, 'a')});

    // Save needs text in every field but the long description.
    row("emptying a field disables Save, filling enables it", small,
        {"textSDesc:erase", "?!buttonSave, changed=x", "textSDesc:type:x", "?buttonSave"});
    row("an empty long description leaves Save enabled and is saved", small,
        {"textLDesc:erase", "?buttonSave", "yes", "buttonSave:click",
         "?said=Overwrite Existing Object: Overwrite Existing Object?, changed=-, textLDesc=, "
         "file=" +
             sword +
             "; 9501 an iron chest t15 0/a 60,13,9510,0 80/150/10 E=chest lock; 9502 a "
             "green potion t10 g/ao 12,16,14,-1 1/200/5 ad=19"});
    for (const auto& [control, caption] :
         QList<std::pair<QString, QString>>{{"textAlias", "Alias List"},
                                            {"textSDesc", "Short Description"},
                                            {"textWeight", "Weight"},
                                            {"textCost", "Cost"},
                                            {"textRPD", "Rent/Day"}})
        row("Save refuses an empty " + caption, small,
            {control + ":erase", "checkGlow:click", "?buttonSave", "ok", "buttonSave:click",
             "?said=Object Not Saved: " + caption +
                 " Must Not Be Empty.\r\nCorrect it, then Save., focus=" + control +
                 ", changed=x, bytes=" + smallBytes});
    row("Save after Clear All refuses the empty alias", small,
        {"yes", "buttonClearAll:click",
         "?said=Confirm Clear: Really Clear This Form?, textVNum=, textWeight=, optionOther=x, "
         "checkMagic=-, checkTake=-, !buttonSave, !buttonValues",
         "textVNum:type:9503", "optionLight:click", "?buttonSave, buttonValues", "ok",
         "buttonSave:click",
         "?said=Confirm Clear: Really Clear This Form? | Object Not Saved: Alias List Must Not "
         "Be Empty.\r\nCorrect it, then Save., focus=textAlias, count=3"});
    row("Save refuses an empty VNum", small,
        {"textVNum:erase", "checkGlow:click", "ok", "buttonSave:click",
         "?said=Object Not Saved: VNum Must Be a Number.\r\nType the object's VNum, then Save., "
         "focus=textVNum"});

    // The type: the values button follows it, and no value changes.
    row("Boat disables Object Values, Light enables it, no value changes", small,
        {"optionBoat:click", "?!buttonValues, changed=x, buttonSave, type=22", "optionLight:click",
         "?buttonValues, type=1, slot0=" + sword, "yes", "buttonSave:click",
         "?slot0=" + QString(sword).replace(" t5 ", " t1 ")});
    for (const QString type : {"optionTreasure", "optionOther", "optionTrash", "optionNote",
                               "optionKey", "optionPen", "optionBoat"})
        row("no values for " + type.mid(6), small, {type + ":click", "?!buttonValues"});
    row("Object Values opens on the object", small,
        {"buttonValues:click", "?dialog=formObjectValues, !buttonNew"});

    // Clear Bits asks first, and clears its own frame only.
    for (const auto& [button, question, cleared, kept] :
         QList<std::tuple<QString, QString, QString, QString>>{
             {"buttonClearEBits", "Really Clear Effect Bits?", "checkMagic", "checkWield"},
             {"buttonClearWBits", "Really Clear Wear Bits?", "checkWield", "checkMagic"}}) {
        row(button + " answered No", small,
            {"no", button + ":click",
             "?said=Confirm Clear: " + question + ", " + cleared + "=x, changed=-"});
        row(button + " answered Yes", small,
            {"yes", button + ":click",
             "?said=Confirm Clear: " + question + ", " + cleared + "=-, " + kept +
                 "=x, changed=x, buttonSave"});
    }

    // Saving: the VNum's slot after the question, or a new slot.
    const QString overwrite = "Overwrite Existing Object: Overwrite Existing Object?";
    row("save over the object shown, Yes replaces it in place", small,
        {"textCost:erase", "textCost:type:9", "checkHold:click", "yes", "buttonSave:click",
         "?said=" + overwrite + ", slot0=9500 a long sword t5 g/ano 0,2,6,3 8/9/10 A=18:1,19:2" +
             ", !buttonEdit, !buttonDelete, buttonSave, changed=-, focus=textVNum, textCost=9, " +
             list + ", count=3, index=0"});
    row("save over the object shown, No writes nothing", small,
        {"textCost:erase", "textCost:type:9", "checkHold:click", "no", "buttonSave:click",
         "?said=" + overwrite + ", slot0=" + sword +
             ", changed=x, buttonSave, bytes=" + smallBytes});
    row("save under a new VNum appends", small,
        {"textVNum:backspace", "textVNum:type:7", "textSDesc:type:two ", "buttonSave:click",
         "?said=, " + list +
             "/9507\ttwo a long sword, count=4, index=3, title=Object Editor [3/99], "
             "changed=-, slot3=9507 two a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2"});
    row("the first save of a new file", none,
        {"textVNum:type:1", "textAlias:type:rat", "textSDesc:type:a rat bone", "buttonSave:click",
         "?said=, file=95001 a rat bone t12 0/0 0,0,0,0 0/0/0, listObjectSelect=95001\ta rat "
         "bone, index=0, bytes=#95001|rat~|a rat bone~|~|~|12 0 0|0 0 0 0|0 0 0|$|"});

    // New.
    row("new starts in the first free slot", small,
        {"buttonNew:click",
         "?textVNum=95, textAlias=, textSDesc=, textWeight=0, textCost=0, textRPD=0, "
         "optionOther=x, checkMagic=-, focus=textVNum, title=Object Editor [0/99], changed=-, "
         "index=3, !buttonSave"});
    row("new with changes asks; No keeps them", small,
        {"textCost:type:1", "no", "buttonNew:click",
         "?said=Object Not Saved: Changes to Object Not Saved.\r\nDiscard Changes?, "
         "textVNum=9500, changed=x, index=0"});
    row("new with 100 objects says the zone is full", manyObjects(100),
        {"ok", "buttonNew:click",
         "?said=Marl - Marlstone: Zone Already Contains 99 Objects, textVNum=9500, index=0, "
         "count=100, changed=-"});
    row("new with 99 objects", manyObjects(99), {"buttonNew:click", "?index=99, said="});

    // Delete.
    row("delete the middle object", small,
        {"listObjectSelect:line:1", "?buttonEdit, buttonDelete", "yes", "buttonDelete:click",
         "?said=Confirm Delete: Really Delete This Object?, listObjectSelect=9500\ta long "
         "sword/9502\ta green potion, file=" +
             sword +
             "; 9502 a green potion t10 g/ao 12,16,14,-1 1/200/5 ad=19, "
             "textVNum=9500, index=0, count=2"});
    row("delete the last object, shown", small,
        {"listObjectSelect:dclick:2", "listObjectSelect:line:2", "yes", "buttonDelete:click",
         "?count=2, textVNum=95, index=2, changed=-, file=" + sword +
             "; 9501 an iron chest t15 0/a 60,13,9510,0 80/150/10 E=chest lock"});
    row("delete the only object leaves an empty zone", oneObject("12 0 a"),
        {"listObjectSelect:line:0", "yes", "buttonDelete:click",
         "?count=0, listObjectSelect=, textVNum=95, bytes=$/"});
    row("delete answered No", small,
        {"listObjectSelect:line:1", "no", "buttonDelete:click", "?count=3, " + list});
    row("delete with changes asks to discard them", small,
        {"textCost:type:1", "listObjectSelect:line:2", "yes", "no", "buttonDelete:click",
         "?said=Confirm Delete: Really Delete This Object? | Object Not Saved: Changes to "
         "Object Not Saved.\r\nDiscard Changes?, count=3, changed=x, textCost=1001"});

    // The guard messages.
    const QString notSaved = "Object Not Saved: Changes to Object Not Saved.\r\n";
    for (const QString show : {"listObjectSelect:dclick:2", "buttonEdit:click"})
        row(show + " with changes asks", small,
            {"checkHum:click", "listObjectSelect:line:2", "no", show,
             "?said=" + notSaved + "Discard Changes?, index=0, checkHum=x", "yes", show,
             "?index=2, changed=-, slot0=" + sword});
    row("done with changes refuses", small,
        {"textCost:type:1", "ok", "buttonDone:click",
         "?said=" + notSaved + "Either Save or Use Cancel., closed=0"});
    row("done without changes closes", small, {"buttonDone:click", "?closed=1"});
    row("cancel with changes, No", small,
        {"textCost:type:1", "no", "buttonCancel:click",
         "?said=" + notSaved + "Cancel Anyway?, closed=0, changed=x"});
    row("cancel with changes, Yes, writes nothing", small,
        {"optionKey:click", "yes", "buttonCancel:click", "?closed=1, bytes=" + smallBytes});
    row("escape acts as Cancel", small,
        {"textCost:type:1", "yes", "textCost:escape",
         "?said=" + notSaved + "Cancel Anyway?, closed=1"});
    row("the frame's close acts as Cancel", small,
        {"checkGlow:click", "no", "close", "?closed=0", "yes", "close", "?closed=1"});
}

void FormObjectTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    ObjectSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
    // A window that closed is gone, having reported to the main window once.
    const int closed = s.host.closed;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(s.editor.isNull(), closed == 1);
}

QTEST_MAIN(FormObjectTest)
#include "form_object_test.moc"
