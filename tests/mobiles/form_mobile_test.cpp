// The mobile editor and its four dialogs, a builder's script per row: values
// shown and kept as they stand, field rules, Save, flags, specs, description.

#include "test_main.h"

#include "../kinds/sessions.h"

using namespace marl;
using namespace marl::test;

class FormMobileTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

namespace {

// One mobile per line: "actions affects bha:str:dex".
std::string mobilesWith(const QString& line) {
    const QStringList part = line.split(' ');
    const QStringList ext = part.value(2, "0:0:0").split(':');
    const bool extended = part.value(2, "0:0:0") != "0:0:0";
    QString file = "#9500|m~|a mob~|A mob.|~|~|" + part[0] + " " + part[1] + " 0 " +
                   (extended ? "E" : "S") + "|1 20 0 1d1+0 1d1+0|0 0|8 8 0|";
    for (int i = 0; i < 3; ++i)
        if (ext.value(i) != "0")
            file += QStringList{"BareHandAttack: ", "Str: ", "Dex: "}[i] + ext.value(i) + "|";
    return lfLines(file + (extended ? "E|$" : "$"));
}

} // namespace

void FormMobileTest::script_data() {
    QTest::addColumn<QByteArray>("file"); // empty: NewMobile on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const std::string small = smallMobiles(), none;
    const QString plain = "9500 a mob 0/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0";

    row("opening shows the first mobile", small, {"?textAlias=ferryman old, "
        "textSDesc=the old ferryman, textLDesc=An old ferryman waits., textLevel=5, "
        "textAlign=350, textGold=25, textTHAC0=17, textAC=6, textXP=400, textMHPNumD=2, "
        "textMHPSizeD=8, textMHPPlus=30, textBHDNumD=1, textBHDSizeD=4, textBHDPlus=1, "
        "optionMale=x, optionFemale=-, optionLoadStanding=x, optionStanding=x",
        "listMobileSelect:dclick:2", "?textAlign=-450, optionLoadSitting=x, "
        "optionLoadStanding=-, optionStanding=x, changed=-"});
    // Stock values outside the window's ranges and options: level 50, AC
    // -100, 1d100 dice, gender 3, positions 7 and 3; shown and kept.
    row("values out of range are shown and kept", lfLines("#9510|giant~|the giant~|A giant.|~|~|"
        "0 0 -900 S|50 0 -100 1d100+900 5d4+0|7 8|7 3 3|$"), {"?textLevel=50, textAC=-100, "
        "textMHPSizeD=100, textBHDNumD=5, textBHDSizeD=4, optionNeutral=-, optionMale=-, "
        "optionLoadSleeping=-, optionStanding=-, optionResting=-, changed=-",
        "textBHDPlus:erase", "textBHDPlus:type:0", "yes", "buttonSave:click",
        "?file=9510 the giant 0/0 -900S 50/0/-100 1d100+900 5d4+0 7/8 7/3/3"});
    row("the field rules hold for what is typed", none, {"textLevel:erase", "textLevel:type:a45",
        "textAC:erase", "textAC:type:-15", "textMHPNumD:erase", "textMHPNumD:type:-5",
        "textGold:erase", "textGold:type:99999999999", "?textLevel=30, textAC=-10, "
        "textMHPNumD=5, textGold=2147483647"});
    row("a position is a change", small, {"optionLoadSitting:click", "?buttonSave, changed=x"});
    row("Save refuses an empty field, naming it", small, {"yes", "buttonClearAll:click",
        "?textVNum=, textLevel=, optionNeutral=x, optionLoadStanding=x, !buttonSave",
        "textVNum:type:9503", "optionFemale:click", "?buttonSave", "ok", "buttonSave:click",
        "?said=Confirm Clear: Really Clear This Form? | Mobile Not Saved: Alias List Must Not "
        "Be Empty.\r\nCorrect it, then Save., focus=textAlias, count=3"});
    row("the first save of a new file", none, {"?textLevel=1, textTHAC0=20, textMHPNumD=1, "
        "optionNeutral=x, optionLoadStanding=x, optionStanding=x", "textVNum:type:1",
        "textAlias:type:rat", "textSDesc:type:a rat", "textLDesc:type:A rat.", "buttonSave:click",
        "?said=, file=95001 a rat 0/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0, index=0"});

    // The flag dialogs: one box per letter of the table.
    const QString action = "buttonActionBitV:click", affect = "buttonAffectBitV:click";
    const QString especs = "buttonESpecs:click", done = "buttonDone:click", back = ">";
    const QString untouched = "?dialog=-, buttonNew, changed=-, !buttonSave, said=";
    const QString stored = "?dialog=-, buttonNew, changed=x, buttonSave, said=";
    row("a changed set is written in table order", mobilesWith("gba 0"), {action,
        ">formMobileAction", "?title=Action Bitvector, checkSpec=x, checkSentinel=x, "
        "checkScavenger=-", "checkWimpy:click", done, back, stored,
        "?slot0=9500 a mob abgh/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("a letter without a box is kept", mobilesWith("bd 0"), {action, ">formMobileAction",
        "checkSentinel:click", "checkSentinel:click", done, back,
        "?slot0=9500 a mob bd/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("a numeric flag text checks its bits' boxes", mobilesWith("6 0"), {action,
        ">formMobileAction", "?checkSentinel=x, checkScavenger=x, checkSpec=-", "checkSpec:click",
        done, back, "?slot0=9500 a mob abc/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("affect flags; clear all, then done stores 0", mobilesWith("0 h"), {affect,
        ">formMobileAffect", "?title=Affection Bitvector, checkSanctuary=x", "yes",
        "buttonClearAll:click", "?checkSanctuary=-", done, back, "?changed=x, slot0=" + plain});

    // The ways out without storing ask while there are changes.
    const QString wild = "b 0 4:12:0";
    const QString ask = "?said=%1 Not Saved: Changes to %1 Not Saved.\r\nCancel Anyway?, dialog=";
    row("flags: cancel after a change, No", mobilesWith(wild), {action, ">formMobileAction",
        "checkSpec:click", "no", "buttonCancel:click", back,
        QString(ask).arg("Action Bitvector") + "formMobileAction, !buttonNew"});
    row("especs: frame after a change, Yes", mobilesWith(wild), {especs, ">formMobileESpecs",
        "textDex:type:9", "yes", "close", back, QString(ask).arg("ESpecs") + "-, changed=-, "
        "slot0=9500 a mob b/0 0E 1/20/0 1d1+0 1d1+0 0/0 8/8/0 BareHandAttack4 Str12"});

    // Extended specs: shown as they stand, an E mobile only with a value.
    row("especs show values out of range as they stand", mobilesWith("0 0 20:25:0"), {especs,
        ">formMobileESpecs", "?title=Mobile ESpecs, optionBHAHit=-, optionBHAStab=-, textStr=25, "
        "textStrAdd=", "textDex:type:3", "textCha:type:-4", "?textCha=4", done, back, stored,
        "?slot0=" + QString(plain).replace("0S", "0E") + " BareHandAttack20 Str25 Dex3 Cha4"});
    row("especs: pierce is stored", mobilesWith("0 0"), {especs, ">formMobileESpecs",
        "optionBHAPierce:click", done, back, stored, "yes", "buttonSave:click",
        "?file=" + QString(plain).replace("0S", "0E") + " BareHandAttack11"});
    row("especs: everything taken away makes an S mobile", mobilesWith("0 0 4:0:16"), {especs,
        ">formMobileESpecs", "optionBHAHit:click", "textDex:erase", done, back, stored, "yes",
        "buttonSave:click", "?file=" + plain});

    // The detailed description (the dialog itself is tested on its own).
    row("detailed description", mobilesWith("0 0"), {"buttonDDesc:click", ">formMobileDesc",
        "?title=Mobile Detailed Description, textDesc=", "textDesc:type:Big.\nRed.", done, back,
        stored, "yes", "buttonSave:click", "?bytes=#9500/m~/a mob~/A mob./~/Big./Red./~/0 0 0 S/"
        "1 20 0 1d1+0 1d1+0/0 0/8 8 0/$/"});
}

void FormMobileTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    MobileSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
}

MARL_TEST_MAIN(FormMobileTest)
#include "form_mobile_test.moc"
