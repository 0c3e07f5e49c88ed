// The extra-descriptions dialog on a record of its own, one builder's script
// per row: the list, the enabling of its buttons, Add, Edit, Update, Remove
// and Remove All on the record's pairs, and its ways out in both variants.

#include "test_main.h"

#include "../rooms/form_room_fixture.h"

#include "dialogs/extra_descs_dialog.h"
#include "dialog_owner_double.h"

using namespace marl;
using namespace marl::test;

class ExtraDescsDialogTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

void ExtraDescsDialogTest::script_data() {
    QTest::addColumn<int>("count");  // pairs k0:0, k1:1, ...; two pairs have a slot set after them
    QTest::addColumn<bool>("room");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, int count, const QStringList& steps,
                        bool room = true) {
        QTest::newRow(qPrintable(name)) << count << room << steps;
    };
    const QString idle = "!buttonAdd, !buttonUpdate, !buttonEdit, !buttonRemove";

    row("no pairs", 0, {"?title=Extra Descriptions [0/127], listExtraDescs=, " + idle +
                        ", !buttonRemoveAll, buttonClearAll, buttonDone, buttonCancel, changed=-"});
    row("only the pairs in use are listed", 2, {"?listExtraDescs=k0/k1, " + idle + ", buttonRemoveAll"});

    row("texts refuse ~ and what Latin-1 lacks", 0, {"textKeywords:type:Caf\u00e9~5\u20ac",
        "textDesc:type:Caf\u00e9~5\u20ac", "?textKeywords=Caf\u00e95, textDesc=Caf\u00e95"});

    // Add and Update need keywords, whichever field changed last.
    for (const auto& [name, keys, no] : QList<std::tuple<QString, QStringList, QString>>{
             {"keywords", {"textKeywords:type:bell"}, ""},
             {"description alone", {"textDesc:type:Green."}, "!"},
             {"description, then keywords", {"textDesc:type:Green.", "textKeywords:type:b"}, ""},
             {"keywords erased", {"textDesc:type:G", "textKeywords:type:b",
                                  "textKeywords:backspace"}, "!"},
             {"description erased", {"textKeywords:type:b", "textDesc:type:G",
                                     "textDesc:backspace"}, "!"}}) {
        row("add: " + name, 2, keys + QStringList{"?" + no + "buttonAdd, !buttonUpdate"});
        row("update: " + name, 2, QStringList{"listExtraDescs:dclick:1", "textKeywords:erase",
            "textDesc:erase"} + keys + QStringList{"?!buttonAdd, " + no + "buttonUpdate"});
    }

    // The commands change the record at once and each marks it changed in
    // the owner.  Afterwards Done closes without a message.
    const QString done = "buttonDone:click", closed = "?open=-, owner=on, said=";
    row("add", 1, {"textKeywords:type:stew pot", "textDesc:type:A black pot.\nIt bubbles.",
                   "buttonAdd:click", "?listExtraDescs=k0/stew pot, textKeywords=, textDesc=, " +
                   idle + ", buttonRemoveAll, pairs=k0:0/stew pot:A black pot.\r\nIt bubbles., "
                   "calls=1", done, closed});
    row("add stops at 127 pairs", 126, {"textKeywords:type:last", "?buttonAdd", "buttonAdd:click",
                                        "textKeywords:type:more", "?!buttonAdd, slot127=:"});
    row("edit by button", 6, {"listExtraDescs:line:4", "?buttonEdit, buttonRemove",
        "buttonEdit:click", "?title=Extra Descriptions [4/127], textKeywords=k4, textDesc=4, "
        "!buttonAdd, buttonUpdate, changed=-", done, closed});
    row("update shows the new keywords", 6, {"listExtraDescs:dclick:4", "textKeywords:type: e",
        "buttonUpdate:click", "?listExtraDescs=k0/k1/k2/k3/k4 e/k5, textKeywords=, " + idle +
        ", pairs=k0:0/k1:1/k2:2/k3:3/k4 e:4/k5:5, calls=1", done, closed});
    row("no update once the pair edited is removed", 3, {"listExtraDescs:dclick:1",
        "buttonRemove:click", "textKeywords:type:zzz", "buttonUpdate:click",
        "?listExtraDescs=k0/k2, textKeywords=zzz, !buttonUpdate, buttonAdd, pairs=k0:0/k2:2"});
    row("remove the first of three", 3, {"listExtraDescs:line:0", "buttonRemove:click",
        "?listExtraDescs=k1/k2, " + idle + ", buttonRemoveAll, pairs=k1:1/k2:2, calls=1", done,
        closed});
    row("remove all, without a question", 3, {"buttonRemoveAll:click",
        "?said=, listExtraDescs=, !buttonRemoveAll, pairs=, other=other, calls=1"});
    // Remove, Remove All and Clear All end an edit: typed keywords are a new pair.
    for (const QStringList& end : QList<QStringList>{
             {"buttonRemove:click"}, {"buttonRemoveAll:click"}, {"yes", "buttonClearAll:click"}})
        row("add after edit, then " + end.last(), 3, QStringList{"listExtraDescs:dclick:1"} + end +
            QStringList{"textKeywords:type:new", "?buttonAdd, !buttonUpdate"});
    row("clear all", 1, {"textKeywords:type:bell", "no", "buttonClearAll:click",
        "?textKeywords=bell", "yes", "buttonClearAll:click", "?said=Confirm Clear: Really Clear "
        "This Form? | Confirm Clear: Really Clear This Form?, textKeywords=, " + idle +
        ", buttonRemoveAll, changed=x, focus=textKeywords"});

    // The ways out: the owner is enabled again whenever the dialog closes.
    const QString pending = "?said=Desc Not Saved: Changes to Desc Not Saved.\r\n";
    const QString refused = pending + "Either Add/Update or Use Cancel., open=x, owner=off, calls=";
    const QString ask = pending + "Cancel Anyway?, open=", typed = "textDesc:type:typed";
    const QString cancel = "buttonCancel:click";
    row("done with text pending: room", 1, {typed, "ok", done, refused + "1"});
    row("done with text pending: object", 1, {typed, "ok", done, refused + "0"}, false);
    row("cancel, nothing pending", 1, {cancel, closed});
    row("cancel, pending, Yes", 1, {typed, "yes", cancel, ask + "-, owner=on"}, false);
    row("frame, pending, No", 1, {typed, "no", "close", ask + "x, owner=off"});
    row("frame, pending, Yes", 1, {typed, "yes", "close", ask + "-, owner=on, pairs=k0:0"});
    row("enter presses Done", 1, {"textKeywords:type:x", "ok", "textKeywords:enter",
                                  refused + "1"});
}

void ExtraDescsDialogTest::script() {
    QFETCH(int, count);
    QFETCH(bool, room);
    QFETCH(QStringList, steps);
    ExtraDescList records[2];
    records[0].append() = {"other", "Not this record."};
    for (int i = 0; i < count; ++i)
        records[1].append() = {"k" + std::to_string(i), std::to_string(i)};
    if (count == 2)  // a slot after the pairs in use
        records[1][3] = {"hidden", "3"};
    // The editor's side: its window, and how often it heard of a change.
    RecordingOwner owner;
    owner.show();
    owner.setEnabled(false);  // as the editor does before showing the dialog
    ScriptedPrompts prompts;
    QPointer<ExtraDescsDialog> dialog = new ExtraDescsDialog(
        {room ? "formRoomExtraDescs" : "formObjectExtraDescs",
         room ? "Room Extra Descriptions" : "Object Extra Descriptions",
         [&](int record) -> ExtraDescList& { return records[record]; }, room},
        owner, prompts);
    dialog->SetupForm(1);
    dialog->show();
    // A window of its own, so that disabling the owner leaves it usable.
    QVERIFY(!dialog->parent() && dialog->testAttribute(Qt::WA_DeleteOnClose));
    // Besides the dialog: the record's pairs in use ("keywords:desc"), its
    // slot 127, the other record, the owner's HasChanged calls.
    const auto probe = [&](const QString& name) -> std::optional<QString> {
        QStringList pairs;
        for (std::size_t slot = 0; slot < records[1].count(); ++slot)
            pairs.append(fromBytes(records[1][slot].Keywords + ":" + records[1][slot].Desc));
        return ownedDialogProbe(name, owner, dialog,
                                {{"pairs", pairs.join('/')},
                                 {"slot127", pairs.value(127, ":")},
                                 {"other", fromBytes(records[0][0].Keywords)}});
    };
    MARL_PLAY(play(dialog, prompts, steps, probe));
    delete dialog.data();
}

MARL_TEST_MAIN(ExtraDescsDialogTest)
#include "extra_descs_dialog_test.moc"
