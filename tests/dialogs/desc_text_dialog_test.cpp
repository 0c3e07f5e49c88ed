// The description text dialog in both of its settings (a mobile's detailed
// description, an object's action description), one builder's script per
// row: what it shows, the texts it refuses, Done, Cancel, Clear All, Escape
// and the frame's close, each with what reaches the record and the owner.

#include "dialog_owner_double.h"
#include "script_player.h"

#include "dialogs/desc_text_dialog.h"
#include "mobiles/mobile_vocabulary.h"
#include "objects/object_vocabulary.h"

using namespace marl;
using namespace marl::test;

class DescTextDialogTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
};

void DescTextDialogTest::script_data() {
    QTest::addColumn<bool>("mobile");
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QStringList& steps, bool mobile = true) {
        QTest::newRow(qPrintable(name)) << mobile << steps;
    };
    const QString closed = "?open=-, owner=on, said=";
    const QString ask = "?said=Desc Not Saved: Changes to Desc Not Saved.\r\nCancel Anyway?, open=";

    row("shows the record's text, lines and all",
        {"?title=Mobile Detailed Description, textDesc=A tall man.|He nods., changed=-, "
         "focus=textDesc, buttonDone, buttonCancel, buttonClearAll"});
    row("object setting", {"?title=Object Action Description, textDesc=A tall man.|He nods."},
        false);
    row("refuses ~ and what Latin-1 lacks",
        {"textDesc:erase", "textDesc:type:Caf\u00e9~5\u20ac", "?textDesc=Caf\u00e95"});

    // The server reads 8191 bytes of a text, each line a byte longer than
    // written in CR LF: 98 lines of 80 and a last of 54 fill it.
    const QString lines = QString(80, 'x').append('\n').repeated(98);
    row("refuses text past the server's limit and says so",
        {"textDesc:erase", "ok", "textDesc:type:" + lines + QString(55, 'y'),
         "?textDesc=" + QString(lines).replace('\n', '|') + QString(54, 'y') +
             ", said=Marl - Marlstone: The text would be too long for the server: it reads at "
             "most 8191 bytes of a text (line ends included) and refuses to boot a zone with a "
             "longer one."});
    // Done stores only an edited text, as the file holds it (CR LF).
    row("done without edits",
        {"buttonDone:click", closed + ", calls=0, text=A tall man.\r\nHe nods."});
    row("done after typing", {"textDesc:type:He waves.\n", "buttonDone:click",
                              closed + ", calls=1, text=He waves.\r\nA tall man.\r\nHe nods."});
    row("done after typing: object",
        {"textDesc:erase", "textDesc:type:It glows.", "buttonDone:click",
         closed + ", calls=1, text=It glows."},
        false);
    row("clear all, then done stores the empty text",
        {"yes", "buttonClearAll:click", "?textDesc=, changed=x, focus=textDesc", "buttonDone:click",
         "?said=Confirm Clear: Really Clear This Form?, open=-, calls=1, text="});
    row("clear all answered No keeps the text",
        {"no", "buttonClearAll:click", "?textDesc=A tall man.|He nods., changed=-"});

    // The ways out without storing: asked once while there are changes.
    for (const QString& out :
         {QString("buttonCancel:click"), QString("textDesc:escape"), QString("close")}) {
        row(out + ", nothing typed", {out, closed + ", calls=0"});
        row(out + ", typed, No",
            {"textDesc:type:x", "no", out, ask + "x, owner=off, textDesc=xA tall man.|He nods."});
        row(out + ", typed, Yes", {"textDesc:type:x", "yes", out,
                                   ask + "-, owner=on, calls=0, text=A tall man.\r\nHe nods."});
    }
}

void DescTextDialogTest::script() {
    QFETCH(bool, mobile);
    QFETCH(QStringList, steps);
    std::string texts[2] = {"Not this record.", "A tall man.\r\nHe nods."};
    RecordingOwner owner;
    owner.show();
    owner.setEnabled(false); // as the editor does before showing the dialog
    ScriptedPrompts prompts;
    QPointer<DescTextDialog> dialog = new DescTextDialog(
        mobile ? kMobileDescDialog : kObjectActionDescDialog,
        [&](int record) -> std::string& { return texts[record]; }, owner, prompts);
    dialog->SetupForm(1);
    dialog->show();
    dialog->activateWindow();
    QVERIFY(!dialog->parent() && dialog->testAttribute(Qt::WA_DeleteOnClose));
    const auto probe = [&](const QString& name) {
        return ownedDialogProbe(name, owner, dialog, {{"text", fromBytes(texts[1])}});
    };
    MARL_PLAY(play(dialog, prompts, steps, probe));
    QCOMPARE(fromBytes(texts[0]), QString("Not this record."));
    delete dialog.data();
}

QTEST_MAIN(DescTextDialogTest)
#include "desc_text_dialog_test.moc"
