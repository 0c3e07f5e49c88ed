// The object affects dialog on an object of the table, one builder's script
// per row: the affects listed as the object holds them, the enabling of Add
// and Update, the modifier's rule, Add, Edit, Update, Remove and Remove All
// on the object's affects, and the ways out.  Then its tab order and access
// keys.

#include "access_keys.h"
#include "dialog_owner_double.h"
#include "script_player.h"

#include "objects/form_object_affects.h"
#include "objects/object_file.h"
#include "objects/object_record.h"

using namespace marl;
using namespace marl::test;

class FormObjectAffectsTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void tabOrder();
    void accessKeys();
};

namespace {

// "1:2/18:1" is two affects, location and modifier; "*126" is 126 affects
// of Str, modifiers 0 upward.
void putAffects(ObjectRecord& object, const QString& affects) {
    if (affects.startsWith('*')) {
        for (int i = 0; i < affects.mid(1).toInt(); ++i)
            object.Affects.append() = {1, "", i};
        return;
    }
    for (const QString& pair : affects.split('/', Qt::SkipEmptyParts)) {
        ObjectAffect& affect = object.Affects.append();
        affect.Location = static_cast<std::int16_t>(pair.section(':', 0, 0).toInt());
        affect.Modifier = pair.section(':', 1, 1).toInt();
    }
}

QString affectsText(const ObjectRecord& object) {
    QStringList pairs;
    for (std::size_t slot = 0; slot < object.Affects.count(); ++slot)
        pairs.append(QStringLiteral("%1:%2")
                         .arg(object.Affects[slot].Location)
                         .arg(object.Affects[slot].Modifier));
    return pairs.join('/');
}

// The object in slot 1, under test, and another in slot 0 that it must
// never touch.
struct AffectsFixture {
    RecordingOwner owner;
    ScriptedPrompts prompts;
    QPointer<FormObjectAffects> dialog;

    explicit AffectsFixture(const QString& affects) {
        ClearObjectTable();
        objectTable()[0].VNum = 9500;
        objectTable()[1].VNum = 9501;
        putAffects(objectTable()[0], "2:9");
        putAffects(objectTable()[1], affects);
        owner.show();
        owner.setEnabled(false); // as the editor does before showing the dialog
        dialog = new FormObjectAffects(owner, prompts);
        dialog->SetupForm(1);
        dialog->show();
    }
    ~AffectsFixture() {
        delete dialog.data();
        ClearObjectTable();
    }
    // The object's affects as the editor's save writes them and the server
    // reads them back.
    static QString written() {
        auto table = std::make_unique<ObjectTable>(objectTable());
        (*table)[1].Source.clear(); // stored from the window
        const std::string file = writeObjects(*table, 2);
        auto back = std::make_unique<ObjectTable>();
        return readObjects(file, *back) == 2 ? affectsText((*back)[1]) : "unreadable";
    }
    // Besides the dialog: the object's affects in use, the entry after them,
    // their count, the file written, the other object, and the owner's side.
    std::optional<QString> probe(const QString& name) {
        const ObjectRecord& object = objectTable()[1];
        const std::size_t used = object.Affects.count();
        const ObjectAffect& after = object.Affects[used < kAffectSlots ? used : 0];
        return ownedDialogProbe(
            name, owner, dialog,
            {{"affects", affectsText(object)},
             {"after", QStringLiteral("%1:%2").arg(after.Location).arg(after.Modifier)},
             {"count", QString::number(object.Affects.count())},
             {"written", written()},
             {"other", affectsText(objectTable()[0])}});
    }
    bool play(const QStringList& steps) {
        return test::play(dialog, prompts, steps, [this](const QString& n) { return probe(n); });
    }
};

} // namespace

void FormObjectAffectsTest::script_data() {
    QTest::addColumn<QString>("affects");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QString& affects, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << affects << steps;
    };
    const QString idle = "!buttonAdd, !buttonUpdate, !buttonEdit, !buttonRemove";
    const QString fresh = "optionNone=x, !textValue=, " + idle;
    const QString done = "buttonDone:click", closed = "?open=-, owner=on, said=";

    // Listed as the object holds them, as the file will hold them.
    row("no affects", "",
        {"?title=Object Affects [0/6], listObjectAffects=, " + fresh +
         ", !buttonRemoveAll, buttonClearAll, buttonCancel, buttonDone, "
         "changed=-, focus=optionNone"});
    row("listed by caption", "1:2/18:1",
        {"?listObjectAffects=Str\t2/HitRoll\t1, " + fresh + ", buttonRemoveAll, changed=-"});
    row("location 0 in the middle shows as None and stays", "1:2/0:5/18:-1",
        {"?listObjectAffects=Str\t2/None\t5/HitRoll\t-1", "listObjectAffects:line:2",
         "buttonRemove:click", "?listObjectAffects=Str\t2/None\t5, written=1:2/0:5"});
    row("a location without an option is listed by number and kept", "7:3/30:-1/16:0",
        {"?listObjectAffects=7\t3/30\t-1/16\t0", "listObjectAffects:dclick:1",
         "?optionNone=-, optionStr=-, textValue=-1, buttonUpdate, changed=-", "textValue:erase",
         "textValue:type:4", "buttonUpdate:click",
         "?listObjectAffects=7\t3/30\t4/16\t0, written=7:3/30:4/16:0, calls=1"});
    row("the extreme modifiers", "24:-2147483648/17:2147483647",
        {"?listObjectAffects=SavingSpell\t-2147483648/AC\t2147483647"});

    // Add and Update need a location other than "None" and a number.
    for (const auto& [name, keys, no] : QList<std::tuple<QString, QStringList, QString>>{
             {"a location and a number", {"optionStr:click", "textValue:type:2"}, ""},
             {"a negative number", {"optionAC:click", "textValue:type:-10"}, ""},
             {"a location alone", {"optionStr:click"}, "!"},
             {"a lone minus", {"optionStr:click", "textValue:type:-"}, "!"},
             {"a minus inside", {"optionStr:click", "textValue:type:5-1"}, "!"},
             {"the number erased",
              {"optionDex:click", "textValue:type:2", "textValue:backspace"},
              "!"},
             {"None after a number",
              {"optionDex:click", "textValue:type:2", "optionNone:click"},
              "!"}}) {
        row("add: " + name, "1:2", keys + QStringList{"?" + no + "buttonAdd, !buttonUpdate"});
        row("update: " + name, "1:2/9:4",
            QStringList{"listObjectAffects:dclick:1", "textValue:erase"} + keys +
                QStringList{"?!buttonAdd, " + no + "buttonUpdate"});
    }
    row("None empties the value and disables it", "",
        {"optionStr:click", "?textValue", "textValue:type:12", "optionNone:click",
         "?!textValue=, !buttonAdd"});

    // The modifier: digits and a leading `-`, clamped to 32 bits as typed.
    for (const auto& [typed, shown] :
         QList<std::pair<QString, QString>>{{"-", "-"},
                                            {"99999999999", "2147483647"},
                                            {"2147483647", "2147483647"},
                                            {"-99999999999", "-2147483648"},
                                            {"-2147483648", "-2147483648"},
                                            {"x1y-2+3 ~", "1-23"},
                                            {"-0", "-0"}})
        row("modifier typed " + typed, "",
            {"optionHit:click", "textValue:type:" + typed, "?textValue=" + shown});

    // The commands change the object at once, each marking it changed in
    // the editor; afterwards Done closes without a message.
    row("add", "1:2",
        {"optionHitRoll:click", "textValue:type:-3", "buttonAdd:click",
         "?listObjectAffects=Str\t2/HitRoll\t-3, " + fresh +
             ", buttonRemoveAll, "
             "written=1:2/18:-3, calls=1, changed=-, other=2:9, focus=optionNone",
         done, closed});
    row("add to none", "",
        {"optionMove:click", "textValue:type:50", "buttonAdd:click",
         "?listObjectAffects=Move\t50, buttonRemoveAll, affects=14:50, calls=1"});
    row("add after location 0 keeps it", "0:0",
        {"optionStr:click", "textValue:type:1", "buttonAdd:click",
         "?listObjectAffects=None\t0/Str\t1, written=0:0/1:1"});
    row("add refuses a seventh affect, which the server refuses", "*5",
        {"optionStr:click", "textValue:type:7", "?buttonAdd", "buttonAdd:click",
         "?count=6, after=0:0", "optionDex:click", "textValue:type:1",
         "?!buttonAdd, count=6, calls=1"});
    row("a file's 128 affects are all listed", "*128",
        {"?count=128, buttonRemoveAll", "optionStr:click", "textValue:type:1", "?!buttonAdd"});
    row("edit by button", "1:2/18:1/19:4",
        {"listObjectAffects:line:1",
         "?buttonEdit, "
         "buttonRemove",
         "buttonEdit:click",
         "?title=Object Affects [1/6], optionHitRoll=x, "
         "textValue=1, !buttonAdd, buttonUpdate, changed=-",
         done, closed});
    row("edit location 0", "0:5",
        {"listObjectAffects:dclick:0",
         "?optionNone=x, !textValue=5, "
         "!buttonUpdate",
         "optionCon:click", "?textValue=5, buttonUpdate", "buttonUpdate:click",
         "?listObjectAffects=Con\t5, affects=5:5, calls=1"});
    row("update in place", "1:2/18:1/19:4",
        {"listObjectAffects:dclick:1", "optionDamRoll:click", "textValue:erase", "textValue:type:3",
         "buttonUpdate:click",
         "?listObjectAffects=Str\t2/DamRoll\t3/DamRoll\t4, written=1:2/19:3/19:4, " + fresh +
             ", title=Object Affects [0/6], calls=1, focus=listObjectAffects",
         done, closed});
    row("update with no line selected stores nothing", "1:2/18:1",
        {"listObjectAffects:dclick:1", "textValue:type:5", "listObjectAffects:ctrlline:1",
         "buttonUpdate:click", "?affects=1:2/18:1, textValue=15, calls=0"});
    row("no update once the affect edited is removed", "1:2/18:1/19:4",
        {"listObjectAffects:dclick:1", "buttonRemove:click", "optionStr:click", "textValue:type:8",
         "?buttonAdd, !buttonUpdate, affects=1:2/19:4"});
    row("remove the first of three", "1:2/2:3/18:1",
        {"listObjectAffects:line:0", "buttonRemove:click",
         "?listObjectAffects=Dex\t3/HitRoll\t1, " + idle +
             ", buttonRemoveAll, written=2:3/18:1, after=0:0, calls=1",
         done, closed});
    row("remove the last", "1:2/2:3",
        {"listObjectAffects:line:1", "buttonRemove:click", "?affects=1:2, after=0:0",
         "listObjectAffects:line:0", "buttonRemove:click",
         "?affects=, listObjectAffects=, !buttonRemoveAll, calls=2"});
    row("remove all, without a question", "1:2/0:3/18:1",
        {"buttonRemoveAll:click",
         "?said=, listObjectAffects=, !buttonRemoveAll, written=, after=0:0, other=2:9, calls=1",
         done, closed});
    row("add after remove all", "1:2",
        {"buttonRemoveAll:click", "optionWis:click", "textValue:type:1", "buttonAdd:click",
         "?affects=4:1, count=1"});
    // Remove, Remove All and Clear All end an edit: what is typed is new.
    for (const QStringList& end : QList<QStringList>{
             {"buttonRemove:click"}, {"buttonRemoveAll:click"}, {"yes", "buttonClearAll:click"}})
        row("add after edit, then " + end.last(), "1:2/2:3",
            QStringList{"listObjectAffects:dclick:1"} + end +
                QStringList{"optionInt:click", "textValue:type:1",
                            "?buttonAdd, !buttonUpdate, title=Object Affects [0/6]"});
    row("clear all", "1:2",
        {"optionStr:click", "textValue:type:5", "no", "buttonClearAll:click",
         "?textValue=5, optionStr=x", "yes", "buttonClearAll:click",
         "?said=Confirm Clear: "
         "Really Clear This Form? | Confirm Clear: Really Clear This Form?, " +
             fresh + ", buttonRemoveAll, affects=1:2, changed=x, focus=optionNone, calls=0"});

    // The ways out: the editor is enabled again whenever the dialog closes,
    // and what was stored stays stored.
    const QString pending = "?said=Object Affects Not Saved: Changes to Object Affects Not "
                            "Saved.\r\n";
    const QString refused = pending + "Either Add/Update or Use Cancel., open=x, owner=off";
    const QString ask = pending + "Cancel Anyway?, open=", picked = "optionStr:click";
    const QString cancel = "buttonCancel:click";
    row("done with a location picked", "", {picked, "ok", done, refused});
    row("done with a value typed", "1:2",
        {"listObjectAffects:dclick:0", "textValue:type:1", "ok", done, refused});
    row("done after edit alone", "1:2", {"listObjectAffects:dclick:0", done, closed});
    row("cancel, nothing pending", "1:2", {cancel, closed + ", affects=1:2, calls=0"});
    row("cancel keeps what was added", "",
        {picked, "textValue:type:1", "buttonAdd:click", cancel, closed + ", affects=1:1, calls=1"});
    row("cancel, pending, No", "", {picked, "no", cancel, ask + "x, owner=off"});
    row("cancel, pending, Yes", "", {picked, "yes", cancel, ask + "-, owner=on"});
    row("escape, pending, No", "", {picked, "no", "textValue:escape", ask + "x, owner=off"});
    row("frame, nothing pending", "", {"close", closed});
    row("frame, pending, No", "", {picked, "no", "close", ask + "x, owner=off"});
    row("frame, pending, Yes", "1:2", {picked, "yes", "close", ask + "-, owner=on, affects=1:2"});
    row("enter in the value presses Done", "",
        {picked, "textValue:type:4", "ok", "textValue:enter", refused});
}

void FormObjectAffectsTest::script() {
    QFETCH(QString, affects);
    QFETCH(QStringList, steps);
    AffectsFixture f(affects);
    // A window of its own, so that disabling the editor leaves it usable.
    QVERIFY(!f.dialog->parent() && f.dialog->testAttribute(Qt::WA_DeleteOnClose));
    MARL_PLAY(f.play(steps));
}

// Tab from the location walks the value, the list and the commands that
// can be used; the options are one stop, entered at the one selected.
void FormObjectAffectsTest::tabOrder() {
    AffectsFixture f("1:2");
    MARL_PLAY(f.play({"optionStr:click", "textValue:type:2", "listObjectAffects:line:0"}));
    f.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f.dialog));
    find(f.dialog, "optionStr")->setFocus();
    QStringList walked;
    for (int i = 0; i < 11; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(walked, QStringList({"textValue", "listObjectAffects", "buttonAdd", "buttonEdit",
                                  "buttonRemove", "buttonRemoveAll", "buttonClearAll",
                                  "buttonCancel", "buttonDone", "optionStr", "textValue"}));
}

// Alt and the letter press the command wherever the focus is.
void FormObjectAffectsTest::accessKeys() {
    for (const char* key :
         {"buttonAdd Add A", "buttonUpdate Update U", "buttonEdit Edit E", "buttonRemove Remove R",
          "buttonRemoveAll Remove All M", "buttonClearAll Clear All L", "buttonCancel Cancel C",
          "buttonDone Done D"}) {
        AffectsFixture f("1:2");
        if (!pressAccessKey(f.dialog, QString::fromLatin1(key), f.prompts))
            return;
    }
}

QTEST_MAIN(FormObjectAffectsTest)
#include "form_object_affects_test.moc"
