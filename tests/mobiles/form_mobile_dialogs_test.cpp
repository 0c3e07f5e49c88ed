// The mobile editor's four dialogs opened from the editor, one builder's
// script per row: the flag dialogs (one class on two letter tables), the
// extended specs and the detailed description; what each shows of the
// mobile, what Done stores, and Cancel, Clear All, Escape and the frame's
// close.  Then the slot rules: after Save, Delete, Edit answered Yes and New
// with a VNum already taken, each dialog edits the mobile shown and no other.

#include "test_main.h"

#include "form_mobile_fixture.h"

using namespace marl;
using namespace marl::test;

class FormMobileDialogsTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void slotRules_data();
    void slotRules();
};

namespace {

// One mobile per line: "actions affects bha:str:dex".
std::string mobilesWith(const QStringList& lines) {
    std::string file;
    int vnum = 9500;
    for (const QString& line : lines) {
        const QStringList part = line.split(' ');
        const QString extended = part.value(2, "0:0:0");
        const QStringList ext = extended.split(':');
        const QString letter = extended == "0:0:0" ? "S" : "E";
        file += lf({"#" + std::to_string(vnum++), "m~", "a mob~", "A mob.", "~", "~",
                    toBytes(part[0] + " " + part[1] + " 0 " + letter), "1 20 0 1d1+0 1d1+0", "0 0",
                    "8 8 0"});
        for (const auto& [key, value] : {std::pair{"BareHandAttack: ", ext.value(0)},
                                         {"Str: ", ext.value(1)},
                                         {"Dex: ", ext.value(2)}})
            if (value != "0")
                file += key + toBytes(value) + "\n";
        if (letter == "E")
            file += "E\n";
    }
    return file + "$\n";
}

} // namespace

void FormMobileDialogsTest::script_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QString& mobile, const QStringList& steps) {
        QTest::newRow(qPrintable(name))
            << QByteArray::fromStdString(mobilesWith({mobile})) << steps;
    };
    const QString action = "buttonActionBitV:click", affect = "buttonAffectBitV:click";
    const QString especs = "buttonESpecs:click", desc = "buttonDDesc:click";
    const QString done = "buttonDone:click", back = ">";
    const QString untouched = "?dialog=-, buttonNew, changed=-, !buttonSave, said=";
    const QString stored = "?dialog=-, buttonNew, changed=x, buttonSave, said=";

    // The flag dialogs: one box per letter of the table.
    row("action letters check their boxes", "abg 0",
        {action, ">formMobileAction",
         "?title=Action Bitvector, checkSpec=x, checkSentinel=x, checkStayZone=x, "
         "checkScavenger=-, focus=checkSpec",
         done, back, untouched,
         "?slot0=9500 a mob abg/0 0S "
         "1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("a changed set is written in table order", "gba 0",
        {action, ">formMobileAction", "checkWimpy:click", done, back, stored,
         "?slot0=9500 a mob abgh/0 0S 1/20/0 1d1+0 1d1+0 "
         "0/0 8/8/0"});
    row("a letter without a box is kept", "bd 0",
        {action, ">formMobileAction", "?checkSentinel=x", "checkSentinel:click",
         "checkSentinel:click", done, back,
         "?slot0=9500 a mob bd/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("a numeric flag text checks its bits' boxes", "6 0",
        {action, ">formMobileAction", "?checkSentinel=x, checkScavenger=x, checkSpec=-",
         "checkSpec:click", done, back, "?slot0=9500 a mob abc/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("upper case and zero check nothing", "A 0",
        {affect, ">formMobileAffect", "?title=Affection Bitvector, checkBlind=-, checkInvisible=-",
         done, back, untouched});
    row("affect flags", "0 h",
        {affect, ">formMobileAffect", "?checkSanctuary=x", "checkHide:click", done, back, stored,
         "?slot0=9500 a mob 0/ht 0S 1/20/0 1d1+0 1d1+0 "
         "0/0 8/8/0"});
    row("flags: clear all, then done stores 0", "abg h",
        {action, ">formMobileAction", "yes", "buttonClearAll:click",
         "?said=Confirm Clear: Really Clear This Form?, checkSpec=-, "
         "focus=checkSpec",
         done, back,
         "?changed=x, slot0=9500 a mob 0/h 0S 1/20/0 1d1+0 "
         "1d1+0 0/0 8/8/0"});
    row("flags: enter presses Done", "b 0",
        {action, ">formMobileAction", "checkSpec:click", "checkSpec:enter", back, stored});

    // The ways out without storing, in both flag dialogs and the specs.
    for (const auto& [opener, form, edit, thing] :
         QList<std::tuple<QString, QString, QString, QString>>{
             {action, "formMobileAction", "checkSpec:click", "Action Bitvector"},
             {affect, "formMobileAffect", "checkBlind:click", "Affection Bitvector"},
             {especs, "formMobileESpecs", "textDex:type:9", "ESpecs"}}) {
        const QString ask = QString("?said=%1 Not Saved: Changes to %1 Not Saved.\r\nCancel "
                                    "Anyway?, dialog=")
                                .arg(thing);
        for (const QString& out :
             {QString("buttonCancel:click"), QString("buttonDone:escape"), QString("close")}) {
            row(form + ": " + out + " unchanged", "b 0 4:12:0",
                {opener, ">" + form, out, back, untouched});
            row(form + ": " + out + " after a change, No", "b 0 4:12:0",
                {opener, ">" + form, edit, "no", out, back, ask + form + ", !buttonNew"});
            row(form + ": " + out + " after a change, Yes", "b 0 4:12:0",
                {opener, ">" + form, edit, "yes", out, back,
                 ask +
                     "-, buttonNew, changed=-, "
                     "slot0=9500 a mob b/0 0E 1/20/0 1d1+0 1d1+0 0/0 8/8/0 BareHandAttack4 Str12"});
        }
    }

    // Extended specs.
    row("especs show the values given", "0 0 5:18:0",
        {especs, ">formMobileESpecs",
         "?title=Mobile ESpecs, optionBHABludgeon=x, optionBHAHit=-, textStr=18, textStrAdd=, "
         "textDex=, focus=optionBHABludgeon",
         done, back, untouched});
    row("especs show values out of range as they stand", "0 0 20:25:0",
        {especs, ">formMobileESpecs", "?optionBHAHit=-, optionBHAStab=-, textStr=25",
         "textDex:type:3", done, back, stored,
         "?slot0=9500 a mob 0/0 0E 1/20/0 1d1+0 1d1+0 0/0 8/8/0 "
         "BareHandAttack20 Str25 Dex3"});
    for (const auto& [field, typed, shown] :
         QList<std::tuple<QString, QString, QString>>{{"textStr", "25", "18"},
                                                      {"textStrAdd", "0", "1"},
                                                      {"textStrAdd", "150", "100"},
                                                      {"textCha", "-4", "4"},
                                                      {"textInt", "x7", "7"}})
        row(QString("especs: typed into %1: %2").arg(field, typed), "0 0",
            {especs, ">formMobileESpecs", field + ":type:" + typed, "?" + field + "=" + shown});
    row("especs: pierce is stored", "0 0",
        {especs, ">formMobileESpecs", "optionBHAPierce:click", done, back, stored,
         "?slot0=9500 a mob 0/0 0S 1/20/0 1d1+0 "
         "1d1+0 0/0 8/8/0 BareHandAttack11",
         "yes", "buttonSave:click",
         "?file=9500 a mob 0/0 0E "
         "1/20/0 1d1+0 1d1+0 0/0 8/8/0 BareHandAttack11"});
    row("especs: everything taken away makes an S mobile", "0 0 4:0:16",
        {especs, ">formMobileESpecs", "optionBHAHit:click", "textDex:erase", done, back, stored,
         "?slot0=9500 a mob 0/0 0E 1/20/0 1d1+0 1d1+0 0/0 8/8/0", "yes", "buttonSave:click",
         "?file=9500 a mob 0/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("especs: clear all selects hit and empties the fields", "0 0 4:12:16",
        {especs, ">formMobileESpecs", "no", "buttonClearAll:click", "?textStr=12", "yes",
         "buttonClearAll:click", "?optionBHAHit=x, textStr=, textDex=, focus=optionBHAHit", done,
         back, "?slot0=9500 a mob 0/0 0E 1/20/0 1d1+0 1d1+0 0/0 8/8/0"});
    row("especs: enter presses Done", "0 0",
        {especs, ">formMobileESpecs", "textStr:type:9", "textStr:enter", back, stored});

    // The detailed description (the dialog itself is tested on its own).
    row("detailed description", "0 0",
        {desc, ">formMobileDesc", "?title=Mobile Detailed Description, textDesc=",
         "textDesc:type:Big.\nRed.", done, back, stored,
         "?slot0=9500 a mob 0/0 0S 1/20/0 1d1+0 1d1+0 0/0 8/8/0 dd=10", "yes", "buttonSave:click",
         "?bytes=#9500/m~/a mob~/A mob./~/Big./Red./~/0 0 0 S/1 20 0 1d1+0 "
         "1d1+0/0 0/8 8 0/$/"});
    row("the editor waits for its dialog", "0 0",
        {desc, "close", "?dialog=formMobileDesc", ">formMobileDesc", "buttonCancel:click", back,
         "?dialog=-, buttonNew"});
}

void FormMobileDialogsTest::script() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    MobileSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
}

// What each dialog changes, and the situations after which it must edit the
// mobile shown.
void FormMobileDialogsTest::slotRules_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("shown");
    const QList<std::pair<QString, QStringList>> dialogs{
        {"action", {"buttonActionBitV:click", ">formMobileAction", "checkAware:click"}},
        {"affect", {"buttonAffectBitV:click", ">formMobileAffect", "checkCurse:click"}},
        {"especs", {"buttonESpecs:click", ">formMobileESpecs", "textCon:type:11"}},
        {"desc", {"buttonDDesc:click", ">formMobileDesc", "textDesc:type:More."}}};
    const QList<std::tuple<QString, QStringList, int>> situations{
        {"after Save",
         {"listMobileSelect:dclick:2", "textLevel:type:2", "yes", "buttonSave:click"},
         2},
        {"after Delete",
         {"listMobileSelect:dclick:0", "listMobileSelect:line:2", "yes", "buttonDelete:click"},
         2},
        {"after Edit answered Yes", {"textLevel:type:2", "yes", "listMobileSelect:dclick:2"}, 2},
        {"after New with a VNum taken",
         {"buttonNew:click", "textVNum:type:01", "textAlias:type:a", "textSDesc:type:b",
          "textLDesc:type:c", "yes", "buttonSave:click"},
         1}};
    for (const auto& [dialog, open] : dialogs)
        for (const auto& [situation, steps, shown] : situations)
            QTest::newRow(qPrintable(dialog + ": " + situation))
                << steps + QStringList{"?dialog=-"} + open << shown;
}

void FormMobileDialogsTest::slotRules() {
    QFETCH(QStringList, steps);
    QFETCH(int, shown);
    MobileSession s(smallMobiles());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
    const MobileTable before = mobileTable();
    MARL_PLAY(
        s.playAll({">" + *s.probe("dialog"), "buttonDone:click", ">", "?dialog=-, changed=x"}));
    QCOMPARE(s.editor->currentIndex(), shown);
    for (int slot = 0; slot < s.editor->recordCount(); ++slot)
        QVERIFY2((mobileTable()[slot] == before[slot]) == (slot != shown),
                 qPrintable(QString("slot %1").arg(slot)));
}

MARL_TEST_MAIN(FormMobileDialogsTest)
#include "form_mobile_dialogs_test.moc"
