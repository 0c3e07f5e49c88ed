// The exit dialog, opened from the room editor's "D" buttons: what it shows,
// the numeric fields, the memory of No Key and Nowhere, what Done stores and
// refuses, and every way of closing it.

#include "form_room_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "rooms/form_room_door.h"

using namespace marl;
using namespace marl::test;

namespace {

// The dialog for an exit of the room on list line `line` of the small zone.
struct DoorSession {
    RoomHost host;
    QPointer<FormRoom> editor;
    QPointer<QWidget> door;

    bool open(int line, const QString& direction) {
        editor = openEditor(host, 95, smallZone());
        if (!editor)
            return false;
        if (line != 0)
            doubleClickLine(find<QListWidget>(editor, "listRoomSelect"), line);
        click(find<QPushButton>(editor, "buttonExit" + direction));
        door = topLevel("formRoomDoor");
        return door != nullptr;
    }
    ~DoorSession() {
        delete door.data();
        delete editor.data();
        ClearRoomTable();
    }
    template <typename Widget> Widget* in(const char* name) const {
        return find<Widget>(door, QString::fromLatin1(name));
    }
    QString selectedKind() const {
        for (const char* name : {"optionNormal", "optionDoor", "optionPickProof"})
            if (in<QRadioButton>(name)->isChecked())
                return QString::fromLatin1(name);
        return {};
    }
};

} // namespace

class FormRoomDoorTest : public QObject {
    Q_OBJECT
private slots:
    void opening_data();
    void opening();
    void numericFields_data();
    void numericFields();
    void noKeyAndNowhereRemember_data();
    void noKeyAndNowhereRemember();
    void doneStores_data();
    void doneStores();
    void doneRefuses_data();
    void doneRefuses();
    void doneOnANewExit();
    void leaving_data();
    void leaving();
    void clearAll_data();
    void clearAll();
    void editorWaitsForTheDialog();
};

void FormRoomDoorTest::opening_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("nowhere");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("keyEnabled");
    QTest::addColumn<bool>("noKey");
    QTest::addColumn<bool>("noKeyEnabled");
    QTest::addColumn<QString>("keywords");
    QTest::newRow("no door: key parts disabled")
        << 0 << "North" << "9501" << false << "optionNormal" << "-1" << false << true << false << "";
    QTest::newRow("leads nowhere") << 0 << "East" << "-1" << true << "optionNormal" << "-1" << false
                                   << true << false << "";
    QTest::newRow("door with a key") << 1 << "West" << "9502" << false << "optionDoor" << "9510"
                                     << true << false << true << "door stout";
    QTest::newRow("pick-proof door, no key") << 2 << "East" << "9501" << false << "optionPickProof"
                                             << "-1" << false << true << true << "door";
}

void FormRoomDoorTest::opening() {
    QFETCH(int, line);
    QFETCH(QString, direction);
    QFETCH(QString, to);
    QFETCH(bool, nowhere);
    QFETCH(QString, kind);
    QFETCH(QString, key);
    QFETCH(bool, keyEnabled);
    QFETCH(bool, noKey);
    QFETCH(bool, noKeyEnabled);
    QFETCH(QString, keywords);
    DoorSession s;
    QVERIFY(s.open(line, direction));
    QCOMPARE(s.door->windowTitle(), QStringLiteral("Door Properties"));
    QVERIFY(s.door->parent() == nullptr);
    QVERIFY(!s.editor->isEnabled());
    QVERIFY(s.door->isEnabled());
    QCOMPARE(s.in<QLineEdit>("textFromVNum")->text(), QString::number(9500 + line));
    QCOMPARE(s.in<QLineEdit>("textDirection")->text(), direction);
    QCOMPARE(s.in<QLineEdit>("textToVNum")->text(), to);
    QCOMPARE(s.in<QLineEdit>("textToVNum")->isEnabled(), !nowhere);
    QCOMPARE(s.in<QCheckBox>("checkNowhere")->isChecked(), nowhere);
    QCOMPARE(s.selectedKind(), kind);
    QCOMPARE(s.in<QLineEdit>("textKeyVNum")->text(), key);
    QCOMPARE(s.in<QLineEdit>("textKeyVNum")->isEnabled(), keyEnabled);
    QCOMPARE(s.in<QCheckBox>("checkNoKey")->isChecked(), noKey);
    QCOMPARE(s.in<QCheckBox>("checkNoKey")->isEnabled(), noKeyEnabled);
    QCOMPARE(s.in<QLineEdit>("textKeywords")->text(), keywords);
    QCOMPARE(s.in<QLabel>("lblTo")->text(), QStringLiteral("to"));
    for (const auto& [name, caption] :
         QList<QPair<const char*, const char*>>{{"frameExit", "Exit"}, {"frameDoorFlag", "Door Flag"},
                                                {"dKeyFrame", "Key"}, {"frameKeyword", "Keyword List"},
                                                {"frameDoorDesc", "Door Description"}})
        QCOMPARE(s.in<QGroupBox>(name)->title(), QString::fromLatin1(caption));
    QVERIFY(!qobject_cast<FormRoomDoor*>(s.door.data())->changed());
}

void FormRoomDoorTest::numericFields_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    for (const char* field : {"textToVNum", "textKeyVNum"}) {
        const QString name = QString::fromLatin1(field);
        QTest::addRow("%s: 123456", field) << name << "123456" << "99999";
        QTest::addRow("%s: -5", field) << name << "-5" << "-1";
        QTest::addRow("%s: letters", field) << name << "a3b0c0d1" << "3001";
        QTest::addRow("%s: lone minus", field) << name << "-" << "-";
    }
}

void FormRoomDoorTest::numericFields() {
    QFETCH(QString, field);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    DoorSession s;
    QVERIFY(s.open(1, "West"));
    auto* edit = find<QLineEdit>(s.door, field);
    erase(edit);
    type(edit, keys);
    QCOMPARE(edit->text(), text);
}

void FormRoomDoorTest::noKeyAndNowhereRemember_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("back");  // what unchecking shows
    QTest::newRow("no key remembers the key") << "checkNoKey" << "textKeyVNum" << "3001" << "3001";
    QTest::newRow("nowhere remembers the destination")
        << "checkNowhere" << "textToVNum" << "9599" << "9599";
    QTest::newRow("a lone minus is not remembered") << "checkNoKey" << "textKeyVNum" << "-" << "0";
    QTest::newRow("an empty field is not remembered") << "checkNowhere" << "textToVNum" << "" << "0";
}

void FormRoomDoorTest::noKeyAndNowhereRemember() {
    QFETCH(QString, box);
    QFETCH(QString, field);
    QFETCH(QString, typed);
    QFETCH(QString, back);
    DoorSession s;
    QVERIFY(s.open(1, "West"));
    auto* edit = find<QLineEdit>(s.door, field);
    auto* check = find<QCheckBox>(s.door, box);
    erase(edit);
    type(edit, typed);
    click(check);
    QCOMPARE(edit->text(), QStringLiteral("-1"));
    QVERIFY(!edit->isEnabled());
    const ExitRecord& exit = roomTable()[1].Exits[3];
    QCOMPARE(QString::number(box == "checkNoKey" ? exit.RememberedKey : exit.RememberedTo), back);
    click(check);
    QCOMPARE(edit->text(), back);
    QVERIFY(edit->isEnabled());
}

void FormRoomDoorTest::doneStores_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("stored");  // kind key to "keywords" "desc", or "" for nothing
    QTest::addColumn<QString>("roomField");
    QTest::newRow("untouched: nothing stored") << 1 << "West" << QStringList{} << "" << "9502";
    QTest::newRow("normal stores key -1 whatever the field shows")
        << 1 << "West" << QStringList{"optionNormal:click"} << "0 -1 9502 door stout|A stout door."
        << "9502";
    QTest::newRow("pick-proof with a new key")
        << 0 << "North"
        << QStringList{"optionPickProof:click", "checkNoKey:click", "textKeyVNum:erase",
                       "textKeyVNum:type:9511", "textKeywords:type:hatch", "textDesc:erase", "textDesc:type:Up.\nThere."}
        << "2 9511 9501 hatch|Up.\r\nThere." << "9501";
    QTest::newRow("an emptied key becomes -1")
        << 1 << "West" << QStringList{"textKeyVNum:erase"} << "1 -1 9502 door stout|A stout door."
        << "9502";
    QTest::newRow("a new destination shows in the room")
        << 0 << "North" << QStringList{"textToVNum:erase", "textToVNum:type:9598"}
        << "0 -1 9598 |A track north." << "9598";
    QTest::newRow("nowhere") << 0 << "North" << QStringList{"checkNowhere:click"}
                             << "0 -1 -1 |A track north." << "-1";
}

void FormRoomDoorTest::doneStores() {
    QFETCH(int, line);
    QFETCH(QString, direction);
    QFETCH(QStringList, steps);
    QFETCH(QString, stored);
    QFETCH(QString, roomField);
    DoorSession s;
    QVERIFY(s.open(line, direction));
    const int slot = direction == "North" ? 0 : 3;
    const ExitRecord before = roomTable()[line].Exits[slot];
    run(s.door, steps);
    click(s.in<QPushButton>("buttonDone"));
    MARL_VERIFY_PROMPTS(s.host.script);
    QVERIFY(!s.door->isVisible());
    QVERIFY(s.editor->isEnabled());

    const ExitRecord& exit = roomTable()[line].Exits[slot];
    if (stored.isEmpty()) {
        QVERIFY(exit == before);
        QVERIFY(!s.editor->changed());
        QVERIFY(!find<QPushButton>(s.editor, "buttonSave")->isEnabled());
    } else {
        const QString got = QStringLiteral("%1 %2 %3 %4|%5")
                                .arg(exit.DoorKind)
                                .arg(exit.KeyVNum)
                                .arg(exit.ToVNum)
                                .arg(QString::fromStdString(exit.Keywords),
                                     QString::fromStdString(exit.Desc));
        QCOMPARE(got, stored);
        QCOMPARE(exit.Direction, std::int16_t(slot));
        QVERIFY(s.editor->changed());
        QVERIFY(find<QPushButton>(s.editor, "buttonSave")->isEnabled());
    }
    QCOMPARE(find<QLineEdit>(s.editor, "text" + direction + "ToVNum")->text(), roomField);
}

void FormRoomDoorTest::doneRefuses_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("title");
    QTest::newRow("destination emptied")
        << QStringList{"textToVNum:erase"} << "ToVNum Must Be Supplied\r\nTo Open This Exit"
        << "No ToVNum Supplied";
    QTest::newRow("destination a lone minus")
        << QStringList{"textToVNum:erase", "textToVNum:type:-"}
        << "ToVNum Must Be a Number\r\nTo Open This Exit" << "Door Not Saved";
    QTest::newRow("key a lone minus on a door")
        << QStringList{"textKeyVNum:erase", "textKeyVNum:type:-"}
        << "Key VNum Must Be a Number\r\nOr Check No Key" << "Door Not Saved";
}

void FormRoomDoorTest::doneRefuses() {
    QFETCH(QStringList, steps);
    QFETCH(QString, message);
    QFETCH(QString, title);
    DoorSession s;
    QVERIFY(s.open(1, "West"));
    const ExitRecord before = roomTable()[1].Exits[3];
    run(s.door, steps);
    s.host.script.expectTells(1);
    click(s.in<QPushButton>("buttonDone"));
    MARL_VERIFY_PROMPTS(s.host.script);
    QCOMPARE(s.host.script.records.size(), 1);
    QCOMPARE(s.host.script.records[0].text, message);
    QCOMPARE(s.host.script.records[0].title, title);
    QVERIFY(s.door->isVisible());
    QVERIFY(!s.editor->isEnabled());
    QVERIFY(roomTable()[1].Exits[3] == before);
}

void FormRoomDoorTest::doneOnANewExit() {
    // A new room's south exit: typed in the editor, then given a gate.
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    click(find<QCheckBox>(&editor, "checkExitSouth"));
    type(find<QLineEdit>(&editor, "textSouthToVNum"), "9502");
    click(find<QPushButton>(&editor, "buttonExitSouth"));
    QPointer<QWidget> door = topLevel("formRoomDoor");
    QVERIFY(door);
    QCOMPARE(find<QLineEdit>(door, "textFromVNum")->text(), QStringLiteral("9500"));
    run(door, {"optionDoor:click", "textKeyVNum:erase", "textKeyVNum:type:3001",
               "textKeywords:type:gate iron", "textDesc:type:An iron gate."});
    click(find<QPushButton>(door, "buttonDone"));
    MARL_VERIFY_PROMPTS(host.script);
    const ExitRecord& south = roomTable()[0].Exits[1];
    QCOMPARE(south.Direction, std::int16_t(1));
    QCOMPARE(south.DoorKind, std::int16_t(1));
    QCOMPARE(south.KeyVNum, 3001);
    QCOMPARE(south.ToVNum, 9502);
    QCOMPARE(south.Keywords, std::string("gate iron"));
    QCOMPARE(south.Desc, std::string("An iron gate."));
    QVERIFY(!south.Absent);
    ClearRoomTable();
}

void FormRoomDoorTest::leaving_data() {
    QTest::addColumn<bool>("dirty");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::newRow("cancel, no changes") << false << "buttonCancel" << "" << true;
    QTest::newRow("frame, no changes") << false << "frame" << "" << true;
    QTest::newRow("cancel, changes, No") << true << "buttonCancel" << "n" << false;
    QTest::newRow("cancel, changes, Yes") << true << "buttonCancel" << "y" << true;
    QTest::newRow("frame, changes, No") << true << "frame" << "n" << false;
    QTest::newRow("frame, changes, Yes") << true << "frame" << "y" << true;
    QTest::newRow("escape, changes, Yes") << true << "escape" << "y" << true;
}

void FormRoomDoorTest::leaving() {
    QFETCH(bool, dirty);
    QFETCH(QString, how);
    QFETCH(QString, answer);
    QFETCH(bool, closes);
    DoorSession s;
    QVERIFY(s.open(1, "West"));
    const ExitRecord before = roomTable()[1].Exits[3];
    if (dirty)
        type(s.in<QLineEdit>("textKeywords"), " wooden");
    if (!answer.isEmpty())
        s.host.script.answer({answer == "y"});
    if (how == "frame")
        s.door->close();
    else if (how == "escape")
        QTest::keyClick(s.in<QLineEdit>("textKeywords"), Qt::Key_Escape);
    else
        click(s.in<QPushButton>(qPrintable(how)));

    MARL_VERIFY_PROMPTS(s.host.script);
    QCOMPARE(s.host.script.records.size(), dirty ? 1 : 0);
    if (dirty) {
        QCOMPARE(s.host.script.records[0].text,
                 QStringLiteral("Changes to Door Not Saved.\r\nCancel Anyway?"));
        QCOMPARE(s.host.script.records[0].title, QStringLiteral("Door Not Saved"));
    }
    QCOMPARE(s.door->isVisible(), !closes);
    QCOMPARE(s.editor->isEnabled(), closes);
    QVERIFY(roomTable()[1].Exits[3] == before);
    QVERIFY(!s.editor->changed());
}

void FormRoomDoorTest::clearAll_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("nowhere");
    QTest::addColumn<QString>("key");
    QTest::newRow("door with a key") << 1 << "West" << "9502" << false << "";
    // No Key was checked: unchecking it brings back the key it remembered.
    QTest::newRow("exit to nowhere, no key") << 0 << "East" << "-1" << true << "-1";
}

void FormRoomDoorTest::clearAll() {
    QFETCH(int, line);
    QFETCH(QString, direction);
    QFETCH(QString, to);
    QFETCH(bool, nowhere);
    QFETCH(QString, key);
    DoorSession s;
    QVERIFY(s.open(line, direction));
    auto* door = qobject_cast<FormRoomDoor*>(s.door.data());
    if (nowhere)
        click(s.in<QCheckBox>("checkNowhere"));
    run(door, {"textToVNum:erase", "textToVNum:type:77", "textKeywords:type:x"});
    QCOMPARE(s.in<QLineEdit>("textToVNum")->text(), QStringLiteral("77"));

    s.host.script.answer({false});
    click(s.in<QPushButton>("buttonClearAll"));
    QCOMPARE(s.in<QLineEdit>("textKeywords")->text().endsWith("x"), true);

    s.host.script.answer({true});
    click(s.in<QPushButton>("buttonClearAll"));
    MARL_VERIFY_PROMPTS(s.host.script);
    QCOMPARE(s.host.script.records.last().text, QStringLiteral("Really Clear This Form?"));
    QCOMPARE(s.host.script.records.last().title, QStringLiteral("Confirm Clear"));
    QCOMPARE(s.in<QLineEdit>("textToVNum")->text(), to);
    QCOMPARE(s.in<QCheckBox>("checkNowhere")->isChecked(), nowhere);
    QCOMPARE(s.selectedKind(), QStringLiteral("optionNormal"));
    QCOMPARE(s.in<QLineEdit>("textKeyVNum")->text(), key);
    QVERIFY(!s.in<QLineEdit>("textKeyVNum")->isEnabled());
    QVERIFY(!s.in<QCheckBox>("checkNoKey")->isChecked());
    QVERIFY(!s.in<QCheckBox>("checkNoKey")->isEnabled());
    QCOMPARE(s.in<QLineEdit>("textKeywords")->text(), QString());
    QCOMPARE(s.in<QPlainTextEdit>("textDesc")->toPlainText(), QString());
    QVERIFY(door->changed());
    QCOMPARE(door->focusWidget(), s.in<QLineEdit>("textKeywords"));
}

void FormRoomDoorTest::editorWaitsForTheDialog() {
    DoorSession s;
    QVERIFY(s.open(0, "North"));
    QCOMPARE(s.editor->openDialog(), s.door.data());
    s.editor->close();
    QVERIFY(s.editor->isVisible());
    QCOMPARE(s.host.closed, 0);
    QCOMPARE(roomTable()[0].VNum, 9500);
    click(s.in<QPushButton>("buttonCancel"));
    QVERIFY(s.editor->isEnabled());
    QCOMPARE(s.editor->openDialog(), nullptr);
    s.editor->close();
    QCOMPARE(s.host.closed, 1);
}

QTEST_MAIN(FormRoomDoorTest)
#include "form_room_door_test.moc"
