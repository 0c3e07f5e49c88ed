// The object values dialog with its pick lists and container state, one
// builder's script per row, on an object put into the table: what each type
// opens, the field rules, what Done stores and refuses, the ways out, and
// what the pick lists and the container state hand back.  The stock objects
// then show and store their values unchanged.

#include "form_object_values_fixture.h"

#include <QCheckBox>
#include <QPushButton>

#include "objects/object_file.h"

using namespace marl;
using namespace marl::test;

class FormObjectValuesTest : public QObject {
    Q_OBJECT
private slots:
    void init() { ClearObjectTable(); }
    void script_data();
    void script();
    void stockValuesSurvive();
};

void FormObjectValuesTest::script_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, int type, const QString& values,
                        const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << type << values << steps;
    };
    const QString done = "buttonDone:click";
    const QString closed = "?open=-, owner=on, said=";

    // What each type opens: its group's fields enabled and filled, the
    // others disabled and empty.  Values out of a field's range show as
    // they stand.
    const QString others = "!frameLight, !frameWeapon, !textWeaponNumD=";
    row("light", 1, "0 0 24 0",
        {"?title=Object Values, frameLight, textLightDuration=24, checkEternal=-, "
         "!frameMoney, !textMoneyAmount, focus=textLightDuration"});
    row("eternal light: Eternal checked, -1 disabled", 1, "0 0 -1 0",
        {"?!textLightDuration=-1, checkEternal=x, changed=-, focus=checkEternal",
         "checkEternal:click", "?textLightDuration=, textLightDuration, changed=x"});
    for (int type : {2, 10})
        row(QString("scroll or potion %1: spell 201 shown").arg(type), type, "12 201 0 -1",
            {"?frameScrollPotion, textScrollPotionLevel=12, textScrollPotionS1=201, "
             "textScrollPotionS2=0, textScrollPotionS3=-1, buttonScrollPotionS3, "
             "focus=textScrollPotionLevel, " +
             others});
    for (int type : {3, 4})
        row(QString("wand or staff %1").arg(type), type, "10 5 3 30",
            {"?textWandStaffLevel=10, textWandStaffCharges=5, textWandStaffRemaining=3, "
             "textWandStaffSpell=30, buttonWandStaffSpell, !frameScrollPotion"});
    row("weapon", 5, "0 2 6 3",
        {"?textWeaponNumD=2, textWeaponSizeD=6, textWeaponType=3, buttonWeaponType, "
         "focus=textWeaponNumD, !frameArmor"});
    row("armor", 9, "-5 0 0 0", {"?textArmorACApply=-5, !frameWeapon"});
    row("container: a state beyond 15 shown", 15, "100 16 3001 0",
        {"?textContainerCapacity=100, textContainerState=16, textContainerKey=3001, "
         "buttonContainerState"});
    row("drink container: any value but 0 is poisoned", 17, "10 5 7 1",
        {"?textDrinkConFountainCapacity=10, textDrinkConFountainRemaining=5, "
         "textDrinkConFountainLiquid=7, checkDrinkConFountainPoisoned=x, "
         "buttonDrinkConFountainLiquid"});
    row("fountain", 23, "20 20 0 0", {"?frameDrinkConFountain, checkDrinkConFountainPoisoned=-"});
    row("food", 19, "24 0 0 -1", {"?textFoodFillHours=24, checkFoodPoisoned=x, !frameMoney"});
    row("money", 20, "500 0 0 0", {"?textMoneyAmount=500, !frameFood"});
    for (int type : {8, 11})
        row(QString("type %1 enables no group").arg(type), type, "1 2 3 4",
            {"?!frameLight, !frameScrollPotion, !frameWandStaff, !frameWeapon, !frameArmor, "
             "!frameContainer, !frameDrinkConFountain, !frameFood, !frameMoney, "
             "!textWeaponNumD=, buttonDone",
             done, closed + ", calls=0, values=1 2 3 4"});

    // Typed values: the key filter, the length and the range.
    for (const auto& [type, field, typed, shown] :
         QList<std::tuple<int, QString, QString, QString>>{
             {3, "textWandStaffCharges", "200", "127"},
             {3, "textWandStaffLevel", "x-40", "30"},
             {2, "textScrollPotionLevel", "0", "1"},
             {2, "textScrollPotionS1", "250", "201"},
             {2, "textScrollPotionS1", "-5", "-1"},
             {9, "textArmorACApply", "-", "-"},
             {9, "textArmorACApply", "-200", "-20"},
             {15, "textContainerKey", "-", "-"},
             {15, "textContainerState", "16", "15"},
             {5, "textWeaponType", "20", "14"},
             {1, "textLightDuration", "-5", "5"},
             {20, "textMoneyAmount", "123456789", "1234567"}})
        row(QString("typed into %1: %2").arg(field, typed), type, "",
            {field + ":erase", field + ":type:" + typed, "?" + field + "=" + shown});

    // Done stores the group when something changed, and only then.
    row("weapon: done unchanged stores nothing", 5, "0 2 6 3",
        {done, closed + ", calls=0, values=0 2 6 3"});
    row("weapon: die size changed", 5, "0 2 6 3",
        {"textWeaponSizeD:erase", "textWeaponSizeD:type:8", done,
         closed + ", calls=1, values=0 2 8 3"});
    row("scroll: spell 201 kept through another edit", 2, "12 201 -1 -1",
        {"textScrollPotionLevel:erase", "textScrollPotionLevel:type:5", done,
         closed + ", calls=1, values=5 201 -1 -1"});
    row("armor stores its other values as 0", 9, "5 3 2 1",
        {"textArmorACApply:type:-7", done, "?values=-7 0 0 0, calls=1"});
    // What the server logs as it boots is told, and stored all the same.
    row("drink container: poisoned stored as -1, more than it holds told", 17, "10 5 7 1",
        {"textDrinkConFountainRemaining:type:0", "ok", done,
         "?values=10 50 7 -1, said=Marl - Marlstone: The server will log this object as it "
         "boots:\r\n- the last alias of a drink container is not a drink (\"\")\r\n- holds 50 "
         "while its capacity is 10"});
    row("wand: a spell the server lacks told", 3, "5 3 4 -1",
        {"textWandStaffSpell:erase", "textWandStaffSpell:type:41", "ok", done,
         "?values=5 3 4 41, said=Marl - Marlstone: The server will log this object as it "
         "boots:\r\n- spell 41 is not a spell the server has (-1 for none)\r\n- 4 charges left "
         "while the maximum is 3"});
    row("food: poisoned unchecked stores 0", 19, "24 0 0 -1",
        {"checkFoodPoisoned:click", "?changed=x", done, "?values=24 0 0 0, calls=1"});

    // A light's Eternal box.
    row("eternal checked stores -1 and remembers the duration", 1, "0 0 24 0",
        {"checkEternal:click", "?!textLightDuration=-1, changed=x", done,
         closed + ", values=0 0 -1 0, saved=24"});
    row("eternal unchecked brings the duration back", 1, "0 0 24 0",
        {"checkEternal:click", "checkEternal:click", "?textLightDuration=24, textLightDuration",
         done, "?values=0 0 24 0, calls=1"});
    row("eternal on an empty duration gives it back empty", 1, "0 0 24 0",
        {"textLightDuration:erase", "checkEternal:click", "checkEternal:click",
         "?textLightDuration="});

    // Done refuses what it cannot store, naming the field.
    const QString refused = "?open=x, calls=0, said=Object Values Not Saved: %1\r\nCorrect it, "
                            "then Done., focus=%2, values=%3";
    row("empty field refused", 5, "0 2 6 3",
        {"textWeaponNumD:erase", "ok", done,
         refused.arg("Num Dice Must Not Be Empty.", "textWeaponNumD", "0 2 6 3")});
    row("a lone minus refused", 9, "5 0 0 0",
        {"textArmorACApply:erase", "textArmorACApply:type:-", "ok", done,
         refused.arg("AC Apply Must Be a Number.", "textArmorACApply", "5 0 0 0")});
    row("clear all empties the group; done refuses it", 17, "10 5 7 1",
        {"yes", "buttonClearAll:click",
         "?textDrinkConFountainCapacity=, textDrinkConFountainLiquid=, "
         "checkDrinkConFountainPoisoned=-, focus=textDrinkConFountainCapacity",
         "ok", done,
         "?open=x, said=Confirm Clear: Really Clear This Form? | Object Values Not Saved: "
         "Capacity Must Not Be Empty.\r\nCorrect it, then Done."});
    row("clear all unchecks eternal", 1, "0 0 24 0",
        {"checkEternal:click", "yes", "buttonClearAll:click",
         "?checkEternal=-, textLightDuration=, textLightDuration"});
    row("clear all answered No", 20, "500 0 0 0",
        {"no", "buttonClearAll:click", "?textMoneyAmount=500, changed=-"});

    // The ways out without storing ask while there are changes.
    const QString ask = "?said=Object Values Not Saved: Changes to Object Values Not "
                        "Saved.\r\nCancel Anyway?, open=";
    for (const QString& out :
         {QString("buttonCancel:click"), QString("textMoneyAmount:escape"), QString("close")}) {
        row(out + " unchanged", 20, "500 0 0 0", {out, closed + ", calls=0"});
        row(out + " changed, No", 20, "500 0 0 0",
            {"textMoneyAmount:type:1", "no", out, ask + "x, owner=off, textMoneyAmount=1"});
        row(out + " changed, Yes", 20, "500 0 0 0",
            {"textMoneyAmount:type:1", "yes", out, ask + "-, owner=on, values=500 0 0 0, calls=1"});
    }

    // The spell list.
    const QString spell1 = "buttonScrollPotionS1:click";
    row("spell list on 201 selects Identify; done unchanged", 2, "12 201 0 -1",
        {spell1, "?pick=formObjectSpells, dialog=off", ">formObjectSpells",
         "?title=Object Spells, frameObjectSpells, optionIdentify=x, focus=optionIdentify", done,
         ">", "?pick=-, dialog=on, textScrollPotionS1=201, changed=-"});
    row("spell list on 0 selects nothing; 0 passes through", 2, "12 0 0 0",
        {"buttonScrollPotionS2:click", ">formObjectSpells", "?optionNoSpell=-, optionArmor=-", done,
         ">", "?textScrollPotionS2=0, changed=-"});
    row("picking Fireball writes 26 and marks the values changed", 2, "12 -1 -1 -1",
        {"buttonScrollPotionS3:click", ">formObjectSpells", "?optionNoSpell=x",
         "optionFireball:click", done, ">",
         "?textScrollPotionS3=26, textScrollPotionS1=-1, changed=x", done, "?values=12 -1 -1 26"});
    row("a wand's spell", 3, "10 5 3 30",
        {"buttonWandStaffSpell:click", ">formObjectSpells", "?optionLighteningBolt=x",
         "optionHeal:click", done, ">", "?textWandStaffSpell=28"});
    row("an empty field opens the list on its default", 2, "12 5 0 0",
        {"textScrollPotionS1:erase", spell1, ">formObjectSpells", "?optionNoSpell=x", done, ">",
         "?textScrollPotionS1="});
    row("spell list cancel asks after a pick", 2, "12 5 0 0",
        {spell1, ">formObjectSpells", "optionSleep:click", "no", "buttonCancel:click",
         "?said=Spell Changed: Changes to Spell Have Been Made.\r\nCancel Anyway?, "
         "pick=formObjectSpells",
         "yes", "buttonCancel:click", ">", "?pick=-, dialog=on, textScrollPotionS1=5, changed=-"});

    // The liquid and weapon-type lists.
    const QString liquid = "buttonDrinkConFountainLiquid:click";
    row("liquid 7 selects FireBreather; picked again it hands back 7", 17, "10 5 7 0",
        {liquid, ">formObjectLiquids",
         "?title=Liquids, optionFireBreather=x, labelThirst1=Thirst, labelDrunk2=Drunk, "
         "labelFireBreatherDrunk=10, labelSlimeThirst=-8",
         "optionWater:click", "optionFireBreather:click", done, ">",
         "?textDrinkConFountainLiquid=7, changed=x"});
    row("liquid cancel asks after a pick", 17, "10 5 7 0",
        {liquid, ">formObjectLiquids", "optionMilk:click", "yes", "buttonCancel:click", ">",
         "?said=Liquid Changed: Changes to Liquid Have Been Made.\r\nCancel Anyway?, "
         "textDrinkConFountainLiquid=7, changed=-"});
    row("weapon type: clear all after slash selects hit; done writes 0", 5, "0 2 6 3",
        {"buttonWeaponType:click", ">formObjectWType", "?title=Weapon Type, optionSlash=x",
         "optionPierce:click", "yes", "buttonClearAll:click", "?optionHit=x, focus=optionHit", done,
         ">", "?textWeaponType=0, changed=x"});
    row("weapon type without an option passes through", 5, "0 2 6 20",
        {"buttonWeaponType:click", ">formObjectWType", "?optionHit=-, optionStab=-", done, ">",
         "?textWeaponType=20, changed=-"});
    row("weapon type cancel asks after a pick", 5, "0 2 6 3",
        {"buttonWeaponType:click", ">formObjectWType", "optionBite:click", "no",
         "buttonCancel:click",
         "?said=Weapon Type Changed: Changes to Weapon Type Have Been Made.\r\nCancel Anyway?"});

    // The container state.
    const QString state = "buttonContainerState:click";
    row("state 15 checks all four; done unchanged", 15, "50 15 -1 0",
        {state, ">formObjectContainerState",
         "?title=Container State, checkCloseable=x, checkPickProof=x, checkClosed=x, "
         "checkLocked=x",
         done, ">", "?textContainerState=15, changed=-"});
    row("state 0, closed and locked: 12", 15, "50 0 -1 0",
        {state, ">formObjectContainerState", "checkClosed:click", "checkLocked:click", done, ">",
         "?textContainerState=12, changed=x", done, "?values=50 12 -1 0"});
    row("state 16 checks none and passes through", 15, "50 16 -1 0",
        {state, ">formObjectContainerState",
         "?checkCloseable=-, checkPickProof=-, checkClosed=-, checkLocked=-", done, ">",
         "?textContainerState=16, changed=-"});
    row("state: clear all after 5 gives 0", 15, "50 5 -1 0",
        {state, ">formObjectContainerState", "?checkCloseable=x, checkClosed=x", "yes",
         "buttonClearAll:click", "?checkCloseable=-, checkClosed=-", done, ">",
         "?textContainerState=0"});
    row("state: locked alone gives 8", 15, "50 0 -1 0",
        {state, ">formObjectContainerState", "checkLocked:click", done, ">",
         "?textContainerState=8"});
    row("state: cancel asks after a change", 15, "50 0 -1 0",
        {state, ">formObjectContainerState", "checkPickProof:click", "yes", "buttonCancel:click",
         ">",
         "?said=Container State Changed: Changes to Container State Have Been Made.\r\nCancel "
         "Anyway?, textContainerState=0, changed=-"});
    row("state: an empty field opens with no box", 15, "50 5 -1 0",
        {"textContainerState:erase", state, ">formObjectContainerState", "?checkCloseable=-"});

    // The values dialog waits for its pick list.
    row("frame close of the values dialog waits for the pick list", 5, "0 2 6 3",
        {"buttonWeaponType:click", "close", "?pick=formObjectWType, open=x, dialog=off",
         ">formObjectWType", "buttonCancel:click", ">", "?pick=-, dialog=on", "close",
         closed + ", calls=0"});
    for (const QString& out : {QString("close"), QString("buttonDone:escape")})
        row("the pick list's " + out + " enables the values dialog", 15, "50 0 -1 0",
            {state, ">formObjectContainerState", out, ">",
             "?pick=-, dialog=on, textContainerState=0, changed=-"});
    row("a pick list still open goes with the values dialog", 2, "12 5 0 0",
        {spell1, "?pick=formObjectSpells"});
}

void FormObjectValuesTest::script() {
    QFETCH(int, type);
    QFETCH(QString, values);
    QFETCH(QStringList, steps);
    {
        ValuesSession s(type, values);
        QVERIFY(!s.dialog->parent() && s.dialog->testAttribute(Qt::WA_DeleteOnClose));
        MARL_PLAY(s.play(steps));
        QCOMPARE(valuesText(objectTable()[0]), QString("9 9 9 9"));
    }
    // Whatever was left open went with the values dialog.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QWidget* window : QApplication::topLevelWidgets())
        QVERIFY2(!window->objectName().startsWith("formObject"), qPrintable(window->objectName()));
}

// Every stock object with values: shown, edited back to what it was and
// stored, its values read the same, but for a poisoned flag, which is
// stored as -1.
void FormObjectValuesTest::stockValuesSurvive() {
    const QStringList files = corpusFiles(".obj");
    if (files.isEmpty())
        QSKIP("no stock zone files");
    int checked = 0;
    for (const QString& path : files) {
        ObjectTable table;
        const int count = readObjects(readBytes(path), table);
        for (int i = 0; i < count; ++i) {
            const ObjectRecord& stock = table[std::size_t(i)];
            const ValueGroupDef* group = findValueGroup(stock.OType);
            if (!group)
                continue;
            ClearObjectTable();
            objectTable()[kSlot] = stock;
            RecordingOwner owner;
            ScriptedPrompts prompts;
            auto* dialog = new FormObjectValues(owner, prompts);
            dialog->SetupForm(kSlot, stock.OType);
            dialog->show();
            // A change the builder takes back still stores the group (an
            // eternal light's: Eternal unchecked and checked again).
            if (auto* eternal = dialog->findChild<QCheckBox*>("checkEternal"); eternal->isChecked())
                eternal->click(), eternal->click();
            for (const ValueDef& value : group->values)
                if (value.kind == ValueKind::Field) {
                    auto* field = dialog->findChild<QLineEdit*>(value.control);
                    if (!field->isEnabled())
                        break;
                    QTest::keyClick(field, Qt::Key_Backspace);
                    field->setText(
                        QString::number(stock.Values[std::size_t(&value - group->values.data())]));
                    break;
                }
            QTest::mouseClick(dialog->findChild<QPushButton*>("buttonDone"), Qt::LeftButton);
            std::array<std::int32_t, kObjectValues> expected = stock.Values;
            for (std::size_t v = 0; v < kObjectValues; ++v)
                if (group->values[v].kind == ValueKind::Poisoned && expected[v] != 0)
                    expected[v] = -1;
            QVERIFY2(objectTable()[kSlot].Values == expected,
                     qPrintable(QString("%1 #%2: %3")
                                    .arg(path)
                                    .arg(stock.VNum)
                                    .arg(valuesText(objectTable()[kSlot]))));
            QCOMPARE(owner.calls, 1);
            QVERIFY(prompts.unexpected.isEmpty());
            ++checked;
        }
    }
    QVERIFY(checked > 100);
}

QTEST_MAIN(FormObjectValuesTest)
#include "form_object_values_test.moc"
