// The mobile editor window, one builder's script per row: what it shows of
// each mobile (as the record stands), the field rules on what is typed, the
// enabling of Save and its refusals, the overwrite question, New, Delete,
// the guard messages and the ways of leaving, with what the file then holds.

#include "test_main.h"

#include "form_mobile_fixture.h"

using namespace marl;
using namespace marl::test;

class FormMobileTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

namespace {

// Mobiles 9500 upward, all alike but for their VNum.
std::string manyMobiles(int count) {
    std::string file;
    for (int i = 0; i < count; ++i)
        file += crlf({"#" + std::to_string(9500 + i), "m~", "mob " + std::to_string(i) + "~",
                      "A mob.", "~", "~", "0 0 0 S", "1 20 0 1d1+0 1d1+0", "0 0", "8 8 0"});
    return file + crlf({"$"});
}

// One mobile whose values lie outside the window's ranges and options, as
// stock mobiles have them: level 50, AC -100, 1d100 dice, gender 3,
// positions 7 and 3.
const std::string kWild = lf({"#9510", "giant~", "the giant~", "A giant.", "~", "~", "0 0 -900 S",
                              "50 0 -100 1d100+900 5d4+0", "7 8", "7 3 3", "$"});

} // namespace

void FormMobileTest::script_data() {
    QTest::addColumn<QByteArray>("file"); // empty: NewMobile on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const std::string small = smallMobiles(), none;
    const QString list =
        "listMobileSelect=9500\tthe old ferryman/9501\ta grey heron/9502\tthe wiry cutpurse";
    const QString newValues = "textLevel=1, textAlign=0, textGold=0, textTHAC0=20, textAC=0, "
                              "textXP=0, textMHPNumD=1, textMHPSizeD=1, textMHPPlus=0, "
                              "textBHDNumD=1, textBHDSizeD=1, textBHDPlus=0, optionNeutral=x, "
                              "optionLoadStanding=x, optionStanding=x";

    row("opening shows the first mobile", small,
        {"?title=Mobile Editor [0/99], " + list +
         ", textVNum=9500, textAlias=ferryman old, "
         "textSDesc=the old ferryman, textLDesc=An old ferryman waits., textLevel=5, "
         "textAlign=350, textGold=25, textTHAC0=17, textAC=6, textXP=400, textMHPNumD=2, "
         "textMHPSizeD=8, textMHPPlus=30, textBHDNumD=1, textBHDSizeD=4, textBHDPlus=1, "
         "optionMale=x, optionFemale=-, optionLoadStanding=x, optionStanding=x, !buttonSave, "
         "!buttonEdit, !buttonDelete, changed=-, index=0"});
    row("edit shows another mobile, nothing left of the one before", small,
        {"listMobileSelect:dclick:2",
         "?title=Mobile Editor [2/99], textVNum=9502, "
         "textAlign=-450, optionLoadSitting=x, optionLoadStanding=-, optionStanding=x, "
         "!buttonSave, changed=-, index=2"});
    row("a new file", none,
        {"?title=Mobile Editor, listMobileSelect=, textVNum=9500, "
         "textAlias=, " +
         newValues + ", changed=-, index=0, count=0"});

    // Shown as they stand, stored as they stand unless their field is edited.
    row("values out of range are shown and kept", kWild,
        {"?textLevel=50, textTHAC0=0, textAC=-100, textMHPNumD=1, textMHPSizeD=100, "
         "textMHPPlus=900, textBHDNumD=5, textBHDSizeD=4, textBHDPlus=0, optionNeutral=-, "
         "optionMale=-, optionFemale=-, optionLoadSleeping=-, optionStanding=-, optionResting=-, "
         "changed=-",
         "textBHDPlus:erase", "textBHDPlus:type:0", "yes", "buttonSave:click",
         "?file=9510 the giant 0/0 -900S 50/0/-100 1d100+900 5d4+0 7/8 7/3/3"});

    // The field rules hold for what is typed.
    for (const auto& [field, typed, shown] : QList<std::tuple<QString, QString, QString>>{
             {"textLevel", "45", "30"},
             {"textLevel", "a1", "1"},
             {"textTHAC0", "0", "1"},
             {"textAC", "-", "-"},
             {"textAC", "-15", "-10"},
             {"textAC", "15", "10"},
             {"textAlign", "-1500", "-1000"},
             {"textAlign", "2000", "1000"},
             {"textBHDNumD", "-5", "1"},
             {"textMHPNumD", "-5", "5"},
             {"textMHPSizeD", "0", "1"},
             {"textGold", "99999999999", "2147483647"},
             {"textXP", "-7", "7"},
             {"textMHPPlus", "-1234567", "-12345"},
             {"textVNum", "123456", "12345"},
             {"textAlias", "Caf\u00e9~5\u20ac", "Caf\u00e95"},
             {"textSDesc", "a~b", "ab"},
             {"textLDesc", "x\u20ac", "x"}})
        row(QString("typed into %1: %2").arg(field, typed), none,
            {field + ":erase", field + ":type:" + typed, "?" + field + "=" + shown});

    // Save needs text in all sixteen fields; any edit marks the mobile.
    row("emptying a field disables Save, filling enables it", small,
        {"textSDesc:erase", "?!buttonSave, changed=x", "textSDesc:type:x", "?buttonSave"});
    row("an option marks the mobile changed", small,
        {"optionFemale:click", "?buttonSave, changed=x"});
    row("Save refuses an empty field, naming it", small,
        {"yes", "buttonClearAll:click",
         "?said=Confirm Clear: Really Clear This Form?, textVNum=, "
         "textLevel=, "
         "optionNeutral=x, optionLoadStanding=x, optionStanding=x, !buttonSave",
         "textVNum:type:9503", "optionFemale:click", "?buttonSave", "ok", "buttonSave:click",
         "?said=Confirm Clear: Really Clear This Form? | Mobile Not Saved: Alias List Must Not "
         "Be Empty.\r\nCorrect it, then Save., focus=textAlias, count=3"});
    row("Save refuses a lone -, naming the field", small,
        {"textAC:erase", "textAC:type:-", "optionFemale:click", "ok", "buttonSave:click",
         "?said=Mobile Not Saved: AC Must Be a Number.\r\nCorrect it, then Save., focus=textAC"});

    // Saving: the VNum's slot after the question, or a new slot.
    const QString overwrite = "Overwrite Existing Mobile: Overwrite Existing Mobile?";
    row("save over the mobile shown, Yes", small,
        {"textLevel:erase", "textLevel:type:9", "yes", "buttonSave:click",
         "?said=" + overwrite +
             ", slot0=9500 the old ferryman b/0 350S 9/17/6 2d8+30 1d4+1 "
             "25/400 8/8/1 dd=10, !buttonEdit, !buttonDelete, buttonSave, changed=-, "
             "focus=textVNum, textLevel=9, count=3"});
    row("save over the mobile shown, No writes nothing", small,
        {"textLevel:erase", "textLevel:type:9", "no", "buttonSave:click",
         "?said=" + overwrite +
             ", slot0=9500 the old ferryman b/0 350S 5/17/6 2d8+30 1d4+1 "
             "25/400 8/8/1 dd=10, changed=x, buttonSave, bytes=" +
             fromBytes(small).replace('\n', '/')});
    row("save under a new VNum appends", small,
        {"textVNum:backspace", "textVNum:type:7", "textSDesc:type:two ", "buttonSave:click",
         "?said=, listMobileSelect=9500\tthe old ferryman/9501\ta grey heron/9502\tthe wiry "
         "cutpurse/9507\ttwo the old ferryman, count=4, index=3, title=Mobile Editor [3/99], "
         "changed=-"});
    row("the first save of a new file", none,
        {"textVNum:type:1", "textAlias:type:rat", "textSDesc:type:a rat", "textLDesc:type:A rat.",
         "buttonSave:click",
         "?said=, file=95001 a rat 0/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0, "
         "listMobileSelect=95001\ta rat, index=0"});

    // New.
    row("new starts in the first free slot", small,
        {"buttonNew:click",
         "?textVNum=95, textAlias=, textSDesc=, " + newValues +
             ", focus=textVNum, title=Mobile Editor [0/99], changed=-, index=3, !buttonSave"});
    row("new with changes asks; No keeps them", small,
        {"textLevel:type:1", "no", "buttonNew:click",
         "?said=Mobile Not Saved: Changes to Mobile "
         "Not Saved.\r\nDiscard Changes?, textVNum=9500, changed=x, index=0"});
    row("new with 100 mobiles says the zone is full", manyMobiles(100),
        {"ok", "buttonNew:click",
         "?said=Marl - Marlstone: Zone Already Contains 99 Mobiles, "
         "textVNum=9500, index=0, count=100, changed=-"});

    // Delete.
    row("delete answered No", small,
        {"listMobileSelect:line:1", "no", "buttonDelete:click",
         "?count=3, listMobileSelect=9500\t"
         "the old ferryman/9501\ta grey heron/9502\tthe wiry cutpurse"});

    // Leaving.
    const QString notSaved = "Mobile Not Saved: Changes to Mobile Not Saved.\r\n";
    row("done with changes refuses", small,
        {"textLevel:type:1", "ok", "buttonDone:click",
         "?said=" + notSaved + "Either Save or Use Cancel., closed=0"});
    row("done without changes closes", small, {"buttonDone:click", "?closed=1"});
    row("cancel with changes, No", small,
        {"textLevel:type:1", "no", "buttonCancel:click",
         "?said=" + notSaved + "Cancel Anyway?, closed=0, changed=x"});
    row("cancel with changes, Yes, writes nothing", small,
        {"textLevel:type:1", "yes", "buttonCancel:click",
         "?closed=1, bytes=" + fromBytes(small).replace('\n', '/')});
    row("escape acts as Cancel", small,
        {"textLevel:type:1", "yes", "textLevel:escape",
         "?said=" + notSaved +
             "Cancel Anyway?, "
             "closed=1"});
    row("the frame's close acts as Cancel", small,
        {"textLevel:type:1", "no", "close", "?closed=0", "yes", "close", "?closed=1"});
}

void FormMobileTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    MobileSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
    // A window that closed is gone, having reported to the main window once.
    const int closed = s.host.closed;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(s.editor.isNull(), closed == 1);
}

MARL_TEST_MAIN(FormMobileTest)
#include "form_mobile_test.moc"
