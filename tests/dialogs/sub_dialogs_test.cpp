// The list dialogs on a record of their own with a stand-in for the editor,
// a builder's script per row: extra descriptions (both variants), affects.

#include "test_main.h"

#include "dialog_owner_double.h"

#include "dialogs/extra_descs_dialog.h"
#include "objects/form_object_affects.h"
#include "objects/format/object_file.h"
#include "objects/object_vocabulary.h"

using namespace marl;
using namespace marl::test;

class SubDialogsTest : public QObject {
    Q_OBJECT
private slots:
    void extraDescs_data();
    void extraDescs();
    void affects_data();
    void affects();
};

namespace {

ExtraDescList records[2];
// The objects the affects dialog is tried on: it shows the one in slot 1.
ObjectTable& objects() {
    static ObjectTable table;
    return table;
}

QString affectsText(const ObjectRecord& object) {
    QStringList pairs;
    for (std::size_t slot = 0; slot < object.Affects.count(); ++slot)
        pairs.append(QString("%1:%2").arg(object.Affects[slot].Location)
                         .arg(object.Affects[slot].Modifier));
    return pairs.join('/');
}

} // namespace

void SubDialogsTest::extraDescs_data() {
    QTest::addColumn<int>("count"); // pairs k0:0, k1:1, ...; with two, slot 3 set after them
    QTest::addColumn<bool>("room");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, int count, const QStringList& steps,
                        bool room = true) { QTest::newRow(qPrintable(name)) << count << room << steps; };
    const QString idle = "!buttonAdd, !buttonUpdate, !buttonEdit, !buttonRemove";
    const QString done = "buttonDone:click", closed = "?open=-, owner=on, said=";

    row("no pairs", 0, {"?title=Extra Descriptions [0/127], listExtraDescs=, " + idle +
        ", !buttonRemoveAll, buttonClearAll, buttonDone, buttonCancel, changed=-"});
    row("only the pairs in use are listed", 2, {"?listExtraDescs=k0/k1, buttonRemoveAll"});
    // Add needs keywords; it changes the record at once and tells the owner.
    row("add", 1, {"textDesc:type:A black pot.\nIt bubbles.", "?!buttonAdd",
        "textKeywords:type:stew pot", "buttonAdd:click", "?listExtraDescs=k0/stew pot, textKeywords=, textDesc=, " + idle +
        ", pairs=k0:0/stew pot:A black pot.\r\nIt bubbles., calls=1", done, closed});
    // The ways out: the owner is enabled again whenever the dialog closes.
    const QString pending = "?said=Desc Not Saved: Changes to Desc Not Saved.\r\n";
    const QString refused = pending + "Either Add/Update or Use Cancel., open=x, owner=off, calls=";
    const QString typed = "textDesc:type:typed";
    row("done with text pending: room", 1, {typed, "ok", done, refused + "1"});
    row("enter with text pending: object", 1, {typed, "ok", "textKeywords:enter", refused + "0"},
        false);
}

void SubDialogsTest::extraDescs() {
    QFETCH(int, count);
    QFETCH(bool, room);
    QFETCH(QStringList, steps);
    records[0] = {};
    records[1] = {};
    records[0].append() = {"other", "Not this record."};
    for (int i = 0; i < count; ++i)
        records[1].append() = {"k" + std::to_string(i), std::to_string(i)};
    if (count == 2)
        records[1][3] = {"hidden", "3"};
    OnRecord<ExtraDescsDialog> f([](auto& dialog) { dialog.SetupForm(); }, ExtraDescsVariant{
        room ? "formRoomExtraDescs" : "formObjectExtraDescs",
        room ? "Room Extra Descriptions" : "Object Extra Descriptions",
        Shown<ExtraDescList>([]() -> ExtraDescList& { return records[1]; }), room});
    f.values = [] {
        QStringList pairs;
        for (std::size_t slot = 0; slot < records[1].count(); ++slot)
            pairs.append(fromBytes(records[1][slot].Keywords + ":" + records[1][slot].Desc));
        return std::map<QString, QString>{{"pairs", pairs.join('/')},
                                          {"slot127", pairs.value(127, ":")},
                                          {"other", fromBytes(records[0][0].Keywords)}};
    };
    MARL_PLAY(f.play(steps));
}

void SubDialogsTest::affects_data() {
    QTest::addColumn<QString>("affects"); // "1:2/18:1"; "*126" is 126 affects of Str
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QString& affects, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << affects << steps;
    };
    const QString idle = "!buttonAdd, !buttonUpdate, !buttonEdit, !buttonRemove";
    const QString fresh = "optionNone=x, !textValue=, " + idle;
    const QString done = "buttonDone:click", closed = "?open=-, owner=on, said=";

    // Listed as the object holds them, as the file will hold them.
    row("location 0 in the middle shows as None and stays", "1:2/0:5/18:-1",
        {"?listObjectAffects=Str\t2/None\t5/HitRoll\t-1", "listObjectAffects:line:2",
         "buttonRemove:click", "?listObjectAffects=Str\t2/None\t5, written=1:2/0:5"});
    row("a location without an option is listed by number and kept", "7:3/30:-1/16:0",
        {"?listObjectAffects=7\t3/30\t-1/16\t0", "listObjectAffects:dclick:1",
         "?optionNone=-, optionStr=-, textValue=-1, buttonUpdate, changed=-", "textValue:erase",
         "textValue:type:4", "buttonUpdate:click",
         "?listObjectAffects=7\t3/30\t4/16\t0, written=7:3/30:4/16:0, calls=1"});
    // Add and Update need a location other than "None" and a number.
    row("add: a location alone, then a minus inside", "1:2", {"optionStr:click",
        "?!buttonAdd", "textValue:type:5-1", "?!buttonAdd, !buttonUpdate"});
    // The commands change the object at once, each telling the editor.
    row("add", "1:2", {"optionHitRoll:click", "textValue:type:-3", "buttonAdd:click",
        "?listObjectAffects=Str\t2/HitRoll\t-3, " + fresh + ", buttonRemoveAll, "
        "written=1:2/18:-3, calls=1, changed=-, other=2:9, focus=optionNone", done, closed});
    // The server refuses to boot an object with a seventh affect.
    row("add stops at six affects", "*5", {"optionStr:click", "textValue:type:7",
        "buttonAdd:click", "?count=6", "optionDex:click", "textValue:type:1",
        "?!buttonAdd, count=6, calls=1"});
    row("update in place", "1:2/18:1/19:4", {"listObjectAffects:dclick:1",
        "?title=Object Affects [1/6], optionHitRoll=x, textValue=1, !buttonAdd",
        "optionDamRoll:click", "textValue:erase", "textValue:type:3", "buttonUpdate:click",
        "?listObjectAffects=Str\t2/DamRoll\t3/DamRoll\t4, written=1:2/19:3/19:4, optionNone=x, "
        "!textValue=, !buttonAdd, !buttonUpdate, buttonEdit, buttonRemove, calls=1, focus=listObjectAffects", done, closed});
    row("remove the first and the last", "1:2/2:3/18:1", {"listObjectAffects:line:0",
        "buttonRemove:click", "?listObjectAffects=Dex\t3/HitRoll\t1, " + idle + ", written=2:3/"
        "18:1, after=0:0, calls=1", "listObjectAffects:line:1", "buttonRemove:click",
        "?written=2:3, after=0:0"});
    // The ways out: what was stored stays stored.
    const QString pending = "?said=Object Affects Not Saved: Changes to Object Affects Not "
                            "Saved.\r\n";
    row("done with a location picked", "", {"optionStr:click", "ok", done, pending +
        "Either Add/Update or Use Cancel., open=x, owner=off"});
    row("cancel keeps what was added", "", {"optionStr:click", "textValue:type:1",
        "buttonAdd:click", "buttonCancel:click", closed + ", affects=1:1, calls=1"});
}

namespace {

// The object's affects in use, the entry after them, their count, the file
// written and read back, the other object.
std::map<QString, QString> affectValues() {
    const ObjectRecord& object = objects()[1];
    const std::size_t used = object.Affects.count();
    const ObjectAffect& after = object.Affects[used < kAffectSlots ? used : 0];
    auto table = std::make_unique<ObjectTable>(objects());
    (*table)[1].Source.clear(); // stored from the window
    auto back = std::make_unique<ObjectTable>();
    const bool read = readObjects(writeObjects(*table, 2), *back) == 2;
    return {{"affects", affectsText(object)},
            {"after", QString("%1:%2").arg(after.Location).arg(after.Modifier)},
            {"count", QString::number(used)},
            {"written", read ? affectsText((*back)[1]) : "unreadable"},
            {"other", affectsText(objects()[0])}};
}

} // namespace

void SubDialogsTest::affects() {
    QFETCH(QString, affects);
    QFETCH(QStringList, steps);
    objects().clear();
    objects()[0].VNum = 9500;
    objects()[1].VNum = 9501;
    objects()[0].Affects.append() = {2, 9};
    if (affects.startsWith('*'))
        for (int i = 0; i < affects.mid(1).toInt(); ++i)
            objects()[1].Affects.append() = {1, i};
    else
        for (const QString& pair : affects.split('/', Qt::SkipEmptyParts))
            objects()[1].Affects.append() = {std::int16_t(pair.section(':', 0, 0).toInt()),
                                                 pair.section(':', 1).toInt()};
    {
        OnRecord<FormObjectAffects> f([](auto& dialog) {
            dialog.SetupForm(Shown<ObjectRecord>([]() -> ObjectRecord& { return objects()[1]; }));
        });
        f.values = affectValues;
        MARL_PLAY(f.play(steps));
    }
    objects().clear();
}

MARL_TEST_MAIN(SubDialogsTest)
#include "sub_dialogs_test.moc"
