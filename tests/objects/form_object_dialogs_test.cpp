// The object editor's dialogs opened from the editor, one builder's script
// per row: the extra descriptions and the action description (the dialogs
// themselves are tested on their own), what each shows of the object, what
// it stores, and the editor waiting for it.  Then the slot rules: after
// Save, Delete, Edit answered Yes and New with a VNum already taken, each
// dialog edits the object shown and no other.

#include "form_object_fixture.h"

using namespace marl;
using namespace marl::test;

class FormObjectDialogsTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void slotRules_data();
    void slotRules();
};

void FormObjectDialogsTest::script_data() {
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QStringList& steps) {
        QTest::newRow(qPrintable(name)) << steps;
    };
    const QString edescs = "buttonEDescs:click", adesc = "buttonADesc:click";
    const QString done = "buttonDone:click", back = ">";
    const QString untouched = "?dialog=-, buttonNew, changed=-, !buttonSave, said=";
    const QString stored = "?dialog=-, buttonNew, changed=x, buttonSave, said=";
    const QString chest = "9501 an iron chest t15 0/a 60,13,9510,0 80/150/10";

    row("extra descriptions show the object's pairs",
        {"listObjectSelect:dclick:1", edescs, ">formObjectExtraDescs",
         "?title=Extra Descriptions [0/127], frameExtraDescs, listExtraDescs=chest lock, "
         "!buttonAdd, buttonRemoveAll",
         done, back, untouched, "?slot1=" + chest + " E=chest lock"});
    row("an extra description added goes into the object at once",
        {"listObjectSelect:dclick:1", edescs, ">formObjectExtraDescs", "textKeywords:type:lid",
         "textDesc:type:Dented.", "buttonAdd:click", back,
         "?dialog=formObjectExtraDescs, !buttonNew, slot1=" + chest + " E=chest lock,lid",
         ">formObjectExtraDescs", done, back, stored, "yes", "buttonSave:click",
         "?file=9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2; " + chest +
             " E=chest lock,lid; 9502 a green potion t10 g/ao 12,16,14,-1 1/200/5 ad=19"});
    row("extra descriptions removed, then cancelled: the removal stays",
        {"listObjectSelect:dclick:1", edescs, ">formObjectExtraDescs", "buttonRemoveAll:click",
         "buttonCancel:click", back, stored, "?slot1=" + chest});
    row("extra descriptions: text typed and not added, Done refuses",
        {edescs, ">formObjectExtraDescs", "textKeywords:type:x", "ok", done,
         "?said=Desc Not Saved: Changes to Desc Not Saved.\r\nEither Add/Update or Use Cancel.",
         back, "?dialog=formObjectExtraDescs, changed=-"});

    row("action description shows the object's text",
        {"listObjectSelect:dclick:2", adesc, ">formObjectActionDesc",
         "?title=Object Action Description, frameDesc, textDesc=It tastes of mud.|", done, back,
         untouched});
    row("action description stored on Done",
        {adesc, ">formObjectActionDesc", "textDesc:type:Swish.\nSwoosh.", done, back, stored,
         "?slot0=9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2 ad=15", "yes",
         "buttonSave:click",
         "?bytes=" + fromBytes(smallObjects())
                         .replace('\n', '/')
                         .replace("lies here.~/~/", "lies here.~/Swish./Swoosh.~/")});
    row("action description: cancel after typing, Yes",
        {adesc, ">formObjectActionDesc", "textDesc:type:x", "yes", "buttonCancel:click", back,
         "?dialog=-, buttonNew, changed=-, !buttonSave"});

    // The editor waits for each of its dialogs; a dialog's frame close acts
    // as its Cancel and gives the editor back.
    for (const auto& [opener, form] :
         QList<std::pair<QString, QString>>{{"buttonValues:click", "formObjectValues"},
                                            {"buttonObjectAffects:click", "formObjectAffects"},
                                            {edescs, "formObjectExtraDescs"},
                                            {adesc, "formObjectActionDesc"}})
        row("the editor waits for " + form,
            {opener, "?dialog=" + form + ", !buttonNew", "close", "?dialog=" + form, "?closed=0",
             ">" + form, "close", back, "?dialog=-, buttonNew, closed=0"});
}

void FormObjectDialogsTest::script() {
    QFETCH(QStringList, steps);
    ObjectSession s(smallObjects());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
}

// What each dialog changes, and the situations after which it must edit the
// object shown.  A dialog is a name and the steps that open it, make one
// edit and close it; the rows for another dialog are one line more.
void FormObjectDialogsTest::slotRules_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("dialog");
    QTest::addColumn<int>("shown");
    const QList<std::pair<QString, QStringList>> dialogs{
        {"extra descriptions",
         {"buttonEDescs:click", ">formObjectExtraDescs", "textKeywords:type:gem",
          "textDesc:type:Red.", "buttonAdd:click", "buttonDone:click"}},
        {"action description",
         {"buttonADesc:click", ">formObjectActionDesc", "textDesc:type:Zap.", "buttonDone:click"}},
        // The type is picked first: after New the window shows "Other", which
        // has no values.
        {"values",
         {"optionMoney:click", "buttonValues:click", ">formObjectValues",
          "textMoneyAmount:erase", "textMoneyAmount:type:7", "buttonDone:click"}},
        {"affects",
         {"buttonObjectAffects:click", ">formObjectAffects", "optionDex:click", "textValue:type:3",
          "buttonAdd:click", "buttonDone:click"}}};
    const QList<std::tuple<QString, QStringList, int>> situations{
        {"after Save",
         {"listObjectSelect:dclick:2", "textCost:type:2", "yes", "buttonSave:click"},
         2},
        {"after Delete",
         {"listObjectSelect:dclick:2", "listObjectSelect:line:0", "yes", "buttonDelete:click"},
         1},
        {"after Edit answered Yes", {"textCost:type:2", "yes", "listObjectSelect:dclick:2"}, 2},
        {"after New with a VNum taken",
         {"buttonNew:click", "textVNum:type:01", "textAlias:type:a", "textSDesc:type:b", "yes",
          "buttonSave:click"},
         1}};
    for (const auto& [dialog, steps] : dialogs)
        for (const auto& [situation, before, shown] : situations)
            QTest::newRow(qPrintable(dialog + ": " + situation))
                << before + QStringList{"?dialog=-, changed=-"} << steps << shown;
}

void FormObjectDialogsTest::slotRules() {
    QFETCH(QStringList, steps);
    QFETCH(QStringList, dialog);
    QFETCH(int, shown);
    ObjectSession s(smallObjects());
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll(steps));
    const ObjectTable before = objectTable();
    MARL_PLAY(s.playAll(dialog + QStringList{">", "?dialog=-, changed=x"}));
    QCOMPARE(s.editor->currentIndex(), shown);
    for (int slot = 0; slot <= s.editor->recordCount(); ++slot)
        QVERIFY2((objectTable()[slot] == before[slot]) == (slot != shown),
                 qPrintable(QString("slot %1").arg(slot)));
}

QTEST_MAIN(FormObjectDialogsTest)
#include "form_object_dialogs_test.moc"
