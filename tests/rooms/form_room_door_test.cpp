// The exit dialog, opened from the room editor's "D" buttons, one builder's
// script per row: what it shows, its fields and the memory of No Key and
// Nowhere, what Done stores and refuses, Clear All, and the ways of closing.

#include "test_main.h"

#include "form_room_fixture.h"

using namespace marl;
using namespace marl::test;

class FormRoomDoorTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

void FormRoomDoorTest::script_data() {
    QTest::addColumn<QString>("exit");  // list line of the small zone, and the direction
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const char* name, const char* exit, const QStringList& steps) {
        QTest::newRow(name) << exit << steps;
    };
    const char *west = "1 West", *north = "0 North", *east = "0 East";

    // Opening: the exit as the table holds it.
    row("no door: key parts disabled", north, {
        "?title=Door Properties, textFromVNum=9500, textDirection=North, textToVNum=9501, "
        "checkNowhere=-, optionNormal=x, !textKeyVNum=-1, !checkNoKey=x, textKeywords=, "
        "textDesc=A track north., changed=-"});
    row("leads nowhere", east, {"?!textToVNum=-1, checkNowhere=x, optionNormal=x"});
    row("door with a key", west, {"?textFromVNum=9501, textToVNum=9502, optionDoor=x, "
                                  "textKeyVNum=9510, checkNoKey=-, textKeywords=door stout"});
    row("pick-proof door, no key", "2 East",
        {"?optionPickProof=x, !textKeyVNum=-1, checkNoKey=x, textDesc="});

    // The numeric fields, No Key and Nowhere, the door kinds.
    const QString to = "textToVNum:erase", key = "textKeyVNum:erase";
    row("123456 leaves 99999", west, {to, "textToVNum:type:123456", "?textToVNum=99999"});
    row("-5 leaves -1, letters never appear", west, {key, "textKeyVNum:type:-a5", "?textKeyVNum=-1"});
    row("a lone minus is left alone", west, {to, "textToVNum:type:-", "?textToVNum=-"});
    row("no key remembers the key", west, {
        key, "textKeyVNum:type:3001", "checkNoKey:click", "?!textKeyVNum=-1, checkNoKey=x",
        "checkNoKey:click", "?textKeyVNum=3001, checkNoKey=-"});
    row("nowhere remembers the destination", west, {to, "textToVNum:type:9599",
        "checkNowhere:click", "?!textToVNum=-1", "checkNowhere:click", "?textToVNum=9599"});
    const QStringList keyKept{key, "textKeyVNum:type:3001", "checkNoKey:click", "checkNoKey:click"};
    row("a lone minus is not remembered", west, keyKept + QStringList{key, "textKeyVNum:type:-",
        "checkNoKey:click", "checkNoKey:click", "?textKeyVNum=3001"});
    row("an empty field is not remembered", west, {to, "textToVNum:type:9599",
        "checkNowhere:click", "checkNowhere:click", to, "checkNowhere:click", "checkNowhere:click",
        "?textToVNum=9599"});
    row("texts refuse ~ and what Latin-1 lacks", west, {"textKeywords:erase", "textDesc:erase",
        "textKeywords:type:Caf\u00e9~5\u20ac", "textDesc:type:Caf\u00e9~5\u20ac",
        "?textKeywords=Caf\u00e95, textDesc=Caf\u00e95"});
    row("normal disables the key", west,
        {"optionNormal:click", "?!textKeyVNum=9510, !checkNoKey=-"});
    row("no key stays with another door kind", west,
        {"checkNoKey:click", "optionPickProof:click", "?!textKeyVNum=-1, checkNoKey=x"});

    // Done stores the exit (kind key to keywords|desc) into its slot, marks
    // it present and tells the editor; unchanged, it stores nothing.
    const QString done = "buttonDone:click";
    const QString stored = "?open=-, editor=on, changed=x, save=on, exit=";
    const QString asOpened = "1 9510 9502 door stout|A stout door. absent";
    row("done untouched: nothing stored", west,
        {done, "?open=-, editor=on, changed=-, save=off, exit=" + asOpened});
    row("normal stores key -1 whatever the field shows", west,
        {"optionNormal:click", done, stored + "0 -1 9502 door stout|A stout door. slot 3"});
    row("pick-proof with a new key", north, {
        "optionPickProof:click", "checkNoKey:click", key, "textKeyVNum:type:9511",
        "textKeywords:type:hatch", "textDesc:erase", "textDesc:type:Up.\nThere.", done,
        stored + "2 9511 9501 hatch|Up.\r\nThere. slot 0"});
    row("an emptied key becomes -1", west,
        {key, done, stored + "1 -1 9502 door stout|A stout door. slot 3"});
    row("east keeps its slot number", "2 East",
        {"textKeywords:type: x", done, stored + "2 -1 9501 door x| slot 2"});
    row("a new destination shows in the room", north, {to, "textToVNum:type:9598", done,
        stored + "0 -1 9598 |A track north. slot 0, room=9598"});
    row("enter presses Done", west, {"textKeywords:type: x", "textKeywords:enter",
                                     stored + "1 9510 9502 door stout x|A stout door. slot 3"});
    row("nowhere", north, {"checkNowhere:click", done, stored + "0 -1 -1 |A track north. slot 0"});
    const QString refused = ", open=x, editor=off, changed=-, exit=" + asOpened;
    row("refused: destination emptied", west, {to, "ok", done,
        "?said=No ToVNum Supplied: ToVNum Must Be Supplied\r\nTo Open This Exit" + refused});
    row("refused: destination a lone minus", west, {to, "textToVNum:type:-", "ok", done,
        "?said=Door Not Saved: ToVNum Must Be a Number\r\nTo Open This Exit" + refused});
    row("refused: key a lone minus on a door", west, {key, "textKeyVNum:type:-", "ok", done,
        "?said=Door Not Saved: Key VNum Must Be a Number\r\nOr Check No Key" + refused});

    // Clear All, after a question, goes back to the exit as it opened with
    // no door; unchecking No Key brings back the key it remembered.
    const QString clear = "buttonClearAll:click";
    row("clear all, door with a key", west, {
        to, "textToVNum:type:77", "textKeywords:type:x", "no", clear, "?textToVNum=77", "yes",
        clear, "?said=Confirm Clear: Really Clear This Form? | Confirm Clear: Really Clear This "
        "Form?, textToVNum=9502, checkNowhere=-, optionNormal=x, !textKeyVNum=, !checkNoKey=-, "
        "textKeywords=, textDesc=, focus=textKeywords", "no", "buttonCancel:click", "?open=x"});
    row("clear all, exit to nowhere, no key", east, {"checkNowhere:click", "yes", clear,
        "?!textToVNum=-1, checkNowhere=x, !textKeyVNum=-1, !checkNoKey=-"});

    // The ways out (the extra descriptions share them): nothing stored, the
    // editor enabled again on each.
    const QString ask = "?said=Door Not Saved: Changes to Door Not Saved.\r\nCancel Anyway?";
    const QString stays = ", open=x, editor=off", closes = ", open=-, editor=on, exit=" + asOpened;
    const QString typed = "textKeywords:type: wooden", cancel = "buttonCancel:click";
    row("cancel, no changes", west, {cancel, "?said=" + closes + ", changed=-"});
    row("cancel, changes, No", west, {typed, "no", cancel, ask + stays});
    row("frame, changes, Yes", west, {typed, "yes", "close", ask + closes});
    row("escape, changes, Yes", west, {typed, "yes", "textKeywords:escape", ask + closes});
}

void FormRoomDoorTest::script() {
    QFETCH(QString, exit);
    QFETCH(QStringList, steps);
    const int line = exit.section(' ', 0, 0).toInt();
    const QString direction = exit.section(' ', 1);
    EditorSession s(smallZone());
    QVERIFY(s.opened);
    MARL_PLAY(s.play({"listRoomSelect:dclick:" + QString::number(line),
                      "buttonExit" + direction + ":click"}));
    QPointer<QWidget> door = topLevel("formRoomDoor");
    // A window of its own, so that disabling the editor leaves it usable.
    QVERIFY(door && !door->parent() && door->testAttribute(Qt::WA_DeleteOnClose));
    // As when the builder unchecked the exit and the editor checked it again
    // on another exit's Done: what this dialog stores must survive a save.
    int slot = 0;
    while (direction != kExits[slot].caption)
        ++slot;
    ExitRecord& stored = roomTable()[line].Exits[slot];
    stored.Absent = true;
    // Besides the dialog: the exit in the table and whether the dialog is
    // open; of the editor whether it and Save are enabled, Changed, and the
    // exit's destination field.
    const auto probe = [&](const QString& name) -> std::optional<QString> {
        const auto on = [](const QWidget* widget) { return widget->isEnabled() ? "on" : "off"; };
        if (name == "exit")
            return QString("%1 %2 %3 %4|%5 ").arg(stored.DoorKind).arg(stored.KeyVNum)
                       .arg(stored.ToVNum).arg(fromBytes(stored.Keywords), fromBytes(stored.Desc)) +
                   (stored.Absent ? QString("absent") : QString("slot %1").arg(stored.Direction));
        if (name == "open")
            return door && door->isVisible() ? "x" : "-";
        if (name == "editor" || name == "save")
            return on(name == "editor" ? s.editor.data() : find(s.editor, "buttonSave"));
        if (name == "room")
            return find<QLineEdit>(s.editor, "text" + direction + "ToVNum")->text();
        return s.probe(name);
    };
    MARL_PLAY(play(door, s.host.script, steps, probe));
    delete door.data();
}

MARL_TEST_MAIN(FormRoomDoorTest)
#include "form_room_door_test.moc"
