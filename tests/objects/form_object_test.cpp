// The object editor and its values dialog, a builder's script per row: odd
// stock values kept, flags, the type, Save's refusals, the dialogs; then what
// each type's values show, store and refuse, the pick lists and the state.

#include "test_main.h"

#include "../kinds/sessions.h"
#include "dialog_owner_double.h"
#include "objects/form_object_values.h"

using namespace marl;
using namespace marl::test;

namespace {
// The objects the values dialog is tried on: it shows the one in slot 1.
ObjectTable& objects() {
    static ObjectTable table;
    return table;
}
} // namespace

class FormObjectTest : public QObject {
    Q_OBJECT
private slots:
    void init() { objects().clear(); }
    void editor_data();
    void editor();
    void values_data();
    void values();
};

namespace {

QString valuesText(const ObjectRecord& object) {
    QStringList values;
    for (std::int32_t value : object.Values)
        values.append(QString::number(value));
    return values.join(' ');
}

// The values dialog on the object in slot 1 (slot 0 holds another, which
// must stay as it is), with the probes "values" (the slot's), "dialog" (on
// or off) and "pick" (the pick list open).
struct ValuesSession : OnRecord<FormObjectValues> {
    ValuesSession(int type, const QString& numbers)
        : OnRecord([=](FormObjectValues& dialog) {
              objects()[0].Values = {9, 9, 9, 9};
              objects()[1].OType = std::int16_t(type);
              for (int v = 0; v < kObjectValues; ++v)
                  objects()[1].Values[std::size_t(v)] = numbers.split(' ').value(v).toInt();
              dialog.SetupForm(Shown<ObjectRecord>([]() -> ObjectRecord& { return objects()[1]; }), type);
          }) {
        values = [this] {
            QString pick = "-";
            for (const char* form : {"formObjectSpells", "formObjectLiquids", "formObjectWType",
                                     "formObjectContainerState"})
                pick = topLevel(form) ? form : pick;
            return std::map<QString, QString>{
                {"values", valuesText(objects()[1])},
                {"dialog", dialog && dialog->isEnabled() ? "on" : "off"}, {"pick", pick}};
        };
    }
};

// The object of a type line "type effects wears".
std::string oneObject(const std::string& typeLine) {
    return lfLines(QString::fromStdString("#9520|thing~|a thing~|A thing.~|~|" + typeLine +
                                          "|0 0 0 0|1 2 3|$"));
}

} // namespace

void FormObjectTest::editor_data() {
    QTest::addColumn<QByteArray>("file"); // empty: NewObject on zone 95
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const std::string& file, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << QByteArray::fromStdString(file) << steps;
    };
    const std::string small = smallObjects(), none;
    const QString sword = "9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2";
    const QString smallBytes = fromBytes(small).replace('\n', '/');

    row("opening shows the first object", small, {"?textAlias=sword long, textSDesc=a long "
        "sword, textLDesc=A long sword lies here., textWeight=8, textCost=100, textRPD=10, "
        "optionWeapon=x, optionOther=-, checkMagic=x, checkGlow=-, checkTake=x, checkWield=x, "
        "checkHold=-, buttonValues, type=5", "listObjectSelect:dclick:1", "?optionContainer=x, "
        "optionWeapon=-, checkMagic=-, checkTake=x, checkWield=-, type=15"});
    // Type 11 (no option), numeric wear flags (17: Take and Head), an effect
    // letter without a box (r), a negative weight, a scroll's spell 201 and
    // an affect location without an option (7).
    row("a stock object's odd values are shown and kept", lfLines("#9510|relic~|an odd relic~|~|"
        "~|11 gr 17|12 201 -1 0|-5 0 2147483647|A|7 3|$"), {"?textWeight=-5, "
        "textRPD=2147483647, optionOther=-, optionScroll=-, !buttonValues, type=11, checkMagic=x, "
        "checkTake=x, checkHead=x, checkFinger=-, changed=-", "textCost:type:7", "yes",
        "buttonSave:click", "?file=9510 an odd relic t11 gr/ae 12,201,-1,0 -5/7/2147483647 A=7:3"});
    row("a flag is a change; flags are written in table order", oneObject("12 hb oa"),
        {"checkGlow:click", "?changed=x, buttonSave", "yes", "buttonSave:click",
         "?file=9520 a thing t12 abh/ao 0,0,0,0 1/2/3"});
    row("Save refuses an empty field, naming it", small, {"textWeight:erase",
        "checkGlow:click", "?buttonSave", "ok", "buttonSave:click", "?said=Object Not Saved: "
        "Weight Must Not Be Empty.\r\nCorrect it, then Save., focus=textWeight, changed=x, "
        "bytes=" + smallBytes});
    row("the type sets Object Values, no value changes", small, {"optionBoat:click",
        "?!buttonValues, changed=x, buttonSave, type=22", "optionLight:click",
        "?buttonValues, type=1, slot0=" + sword, "yes", "buttonSave:click",
        "?slot0=" + QString(sword).replace(" t5 ", " t1 ")});
    row("Clear Bits answered Yes clears its own frame", small, {"yes", "buttonClearEBits:click",
        "?said=Confirm Clear: Really Clear Effect Bits?, checkMagic=-, checkWield=x, changed=x"});

    // The extra descriptions and the action description, the dialogs
    // themselves tested on their own.
    const QString chest = "9501 an iron chest t15 0/a 60,13,9510,0 80/150/10";
    const QString done = "buttonDone:click", back = ">";
    const QString stored = "?dialog=-, buttonNew, changed=x, buttonSave, said=";
    row("an extra description added goes into the object at once", small,
        {"listObjectSelect:dclick:1", "buttonEDescs:click", ">formObjectExtraDescs",
         "?listExtraDescs=chest lock", "textKeywords:type:lid", "textDesc:type:Dented.",
         "buttonAdd:click", back, "?dialog=formObjectExtraDescs, !buttonNew, slot1=" + chest +
         " E=chest lock,lid", ">formObjectExtraDescs", done, back, stored});
    row("action description stored on Done", small, {"buttonADesc:click",
        ">formObjectActionDesc", "textDesc:type:Swish.\nSwoosh.", done, back, stored, "yes",
        "buttonSave:click", "?bytes=" + QString(smallBytes).replace("lies here.~/~/",
                                                                      "lies here.~/Swish./Swoosh.~/")});
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

}

void FormObjectTest::editor() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    ObjectSession s(file.toStdString());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
}

void FormObjectTest::values_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, int type, const QString& values,
                        const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << type << values << steps;
    };
    const QString done = "buttonDone:click", closed = "?open=-, owner=on, said=";

    // What each type opens, values out of a field's range as they stand.
    row("light", 1, "0 0 24 0", {"?title=Object Values, frameLight, textLightDuration=24, "
        "checkEternal=-, !frameMoney, !textMoneyAmount, focus=textLightDuration"});
    row("scroll: spell 201 shown and kept through another edit", 2, "12 201 -1 -1",
        {"?frameScrollPotion, textScrollPotionS1=201, textScrollPotionS3=-1, !frameWeapon, "
         "!textWeaponNumD=", "textScrollPotionLevel:erase", "textScrollPotionLevel:type:5", done,
         closed + ", calls=1, values=5 201 -1 -1"});
    row("type 11 enables no group, Done stores nothing", 11, "1 2 3 4", {"?!frameLight, "
        "!frameScrollPotion, !frameWandStaff, !frameWeapon, !frameArmor, !frameContainer, "
        "!frameDrinkConFountain, !frameFood, !frameMoney, buttonDone", done,
        closed + ", calls=0, values=1 2 3 4"});

    // Done stores the group when something changed, and only then.
    row("weapon: die size changed", 5, "0 2 6 3", {"textWeaponSizeD:erase",
        "textWeaponSizeD:type:8", done, closed + ", calls=1, values=0 2 8 3"});
    // What the server logs as it boots is told, and stored all the same.
    row("drink container: any value but 0 is poisoned, stored as -1; more than it holds told", 17,
        "10 5 7 1", {"?checkDrinkConFountainPoisoned=x", "textDrinkConFountainRemaining:type:0", "ok",
         done, "?values=10 50 7 -1, said=Marl - Marlstone: The server will log this object as it "
         "boots:\r\n- the last alias of a drink container is not a drink (\"\")\r\n- holds 50 "
         "while its capacity is 10"});
    row("eternal checked stores -1 and remembers the duration", 1, "0 0 24 0",
        {"checkEternal:click", "?!textLightDuration=-1, changed=x", done,
         closed + ", values=0 0 -1 0"});

    // The pick lists hand back only a choice the builder changed, so that a
    // number no option stands for passes through.
    const QString spell1 = "buttonScrollPotionS1:click";
    row("spell list on 201 selects Identify; done unchanged", 2, "12 201 0 -1", {spell1,
        "?pick=formObjectSpells, dialog=off", ">formObjectSpells", "?title=Object Spells, "
        "optionIdentify=x", done, ">", "?pick=-, dialog=on, textScrollPotionS1=201, changed=-"});
    row("picking Fireball writes 26", 2, "12 -1 -1 -1", {"buttonScrollPotionS3:click",
        ">formObjectSpells", "?optionNoSpell=x", "optionFireball:click", done, ">",
        "?textScrollPotionS3=26, changed=x", done, "?values=12 -1 -1 26"});
    const QString state = "buttonContainerState:click";
    row("state 0, closed and locked: 12", 15, "50 0 -1 0", {state, ">formObjectContainerState",
        "checkClosed:click", "checkLocked:click", done, ">", "?textContainerState=12, changed=x",
        done, "?values=50 12 -1 0"});
    row("state 16 checks none and passes through", 15, "50 16 -1 0", {state,
        ">formObjectContainerState", "?checkCloseable=-, checkLocked=-", done, ">",
        "?textContainerState=16"});
    // The values dialog waits for its pick list, which goes with it.
    row("the values dialog waits for its pick list", 5, "0 2 6 3", {"buttonWeaponType:click",
        "close", "?pick=formObjectWType, open=x, dialog=off", ">formObjectWType", "close", ">",
        "?pick=-, dialog=on", "close", closed + ", calls=0"});
}

void FormObjectTest::values() {
    QFETCH(int, type);
    QFETCH(QString, values);
    QFETCH(QStringList, steps);
    {
        ValuesSession s(type, values);
        MARL_PLAY(s.play(steps));
        QCOMPARE(valuesText(objects()[0]), QString("9 9 9 9"));
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QWidget* window : QApplication::topLevelWidgets())
        QVERIFY2(!window->objectName().startsWith("formObject"), qPrintable(window->objectName()));
}

MARL_TEST_MAIN(FormObjectTest)
#include "form_object_test.moc"
