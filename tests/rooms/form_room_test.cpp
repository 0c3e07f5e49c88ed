// The room editor window: what opening shows, the enabling of Save, the
// numeric fields, the exit boxes and their absent marks, New and the guards
// of leaving.

#include "form_room_fixture.h"

#include <QPushButton>
#include <QRadioButton>

using namespace marl;
using namespace marl::test;

namespace {

QString checkedExits(const FormRoom* editor) {
    QStringList out;
    for (const ExitDef& def : kExits) {
        if (!find<QCheckBox>(editor, QString::fromLatin1(def.check))->isChecked())
            continue;
        out.append(QString::fromLatin1(def.caption) + QLatin1Char('=') +
                   find<QLineEdit>(editor, QString::fromLatin1(def.toField))->text());
    }
    return out.join(QLatin1Char(' '));
}

QString checkedFlags(const FormRoom* editor) {
    QStringList out;
    for (const FlagDef& def : kRoomFlags)
        if (find<QCheckBox>(editor, QString::fromLatin1(def.control))->isChecked())
            out.append(QString::fromLatin1(def.caption));
    return out.join(QLatin1Char(' '));
}

QString selectedSector(const FormRoom* editor) {
    for (const ChoiceDef& def : kSectorTypes)
        if (find<QRadioButton>(editor, QString::fromLatin1(def.control))->isChecked())
            return QString::fromLatin1(def.caption);
    return {};
}

} // namespace

class FormRoomTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ClearRoomTable(); }
    void controlsCarryTheirCaptions();
    void openingShowsTheFirstRoom();
    void eachRoomShowsItsParts_data();
    void eachRoomShowsItsParts();
    void openingRefusesWhatCannotBeRead_data();
    void openingRefusesWhatCannotBeRead();
    void newZoneStartsAtZoneHundred();
    void saveEnabling_data();
    void saveEnabling();
    void numericFields_data();
    void numericFields();
    void textFieldsRefuseWhatTheFileCannotHold_data();
    void textFieldsRefuseWhatTheFileCannotHold();
    void exitBoxesAndAbsentMarks_data();
    void exitBoxesAndAbsentMarks();
    void listSelectionEnablesEditAndDelete();
    void newCommand_data();
    void newCommand();
    void leaving_data();
    void leaving();
};

void FormRoomTest::controlsCarryTheirCaptions() {
    RoomHost host;
    FormRoom editor(host);
    const QList<QPair<QString, QString>> captions{
        {"frameVNum", "VNum"}, {"frameRoomSelect", "Room Select"}, {"frameName", "Room Name"},
        {"frameDesc", "Room Description"}, {"frameSecType", "Sector Type"}, {"frameExits", "Exits"},
        {"frameBitV", "Room Bitvector"}, {"buttonNew", "New"}, {"buttonSave", "Save"},
        {"buttonEdit", "Edit"}, {"buttonDelete", "Delete"}, {"buttonExtraDescs", "Extra Descriptions"},
        {"buttonClearAll", "Clear All"}, {"buttonCancel", "Cancel"}, {"buttonDone", "Done"},
        {"buttonClearExits", "Clear Exits"}, {"buttonClearBits", "Clear Bits"},
        {"buttonExitNorth", "D"}, {"buttonExitDown", "D"}, {"checkExitWest", "West"},
        {"optionSecTypeWaterSwim", "Water (Swim)"}, {"checkBitVSoundProof", "SoundProof"}};
    for (const auto& [name, caption] : captions) {
        QWidget* widget = find<QWidget>(&editor, name);
        const QString text = widget->property(qobject_cast<QAbstractButton*>(widget) ? "text" : "title")
                                 .toString();
        QCOMPARE(text, caption);
    }
    QCOMPARE(editor.objectName(), QStringLiteral("formRoom"));
    QVERIFY(editor.parent() == nullptr);
    QVERIFY(editor.testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(find<QLineEdit>(&editor, "textVNum")->maxLength(), 5);
    QVERIFY(find<QListWidget>(&editor, "listRoomSelect")->font().fixedPitch());
}

void FormRoomTest::openingShowsTheFirstRoom() {
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [0/99]"));
    QCOMPARE(lines(find<QListWidget>(editor, "listRoomSelect")),
             QStringList({"9500\tThe Landing", "9501\tReed Cottages", "9502\tThe Kitchen"}));
    QCOMPARE(find<QLineEdit>(editor, "textVNum")->text(), QStringLiteral("9500"));
    QCOMPARE(find<QLineEdit>(editor, "textName")->text(), QStringLiteral("The Landing"));
    QCOMPARE(find<QPlainTextEdit>(editor, "textDesc")->toPlainText(),
             QStringLiteral("A wooden landing."));
    QCOMPARE(checkedExits(editor), QStringLiteral("North=9501 East=-1"));
    QVERIFY(find<QLineEdit>(editor, "textNorthToVNum")->isEnabled());
    QVERIFY(find<QPushButton>(editor, "buttonExitNorth")->isEnabled());
    QVERIFY(!find<QLineEdit>(editor, "textSouthToVNum")->isEnabled());
    QVERIFY(!find<QPushButton>(editor, "buttonExitSouth")->isEnabled());
    QCOMPARE(selectedSector(editor), QStringLiteral("Field"));
    QCOMPARE(checkedFlags(editor), QString());
    for (const char* name : {"buttonSave", "buttonEdit", "buttonDelete"})
        QVERIFY2(!find<QPushButton>(editor, name)->isEnabled(), name);
    QVERIFY(!editor->changed());
    QCOMPARE(editor->recordCount(), 3);
    QCOMPARE(editor->currentIndex(), 0);
    MARL_VERIFY_PROMPTS(host.script);
    delete editor;
}

void FormRoomTest::eachRoomShowsItsParts_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("desc");
    QTest::addColumn<QString>("exits");
    QTest::addColumn<QString>("sector");
    QTest::addColumn<QString>("flags");
    QTest::newRow("west door, dark indoors") << 1 << "Low cottages.\nSmoke curls." << "West=9502"
                                            << "City" << "Dark Indoors";
    QTest::newRow("sector 9 shows Inside") << 2 << "A warm kitchen." << "East=9501" << "Inside"
                                           << "GodRoom";
    QTest::newRow("back to the first") << 0 << "A wooden landing." << "North=9501 East=-1"
                                       << "Field" << "";
}

void FormRoomTest::eachRoomShowsItsParts() {
    QFETCH(int, line);
    QFETCH(QString, desc);
    QFETCH(QString, exits);
    QFETCH(QString, sector);
    QFETCH(QString, flags);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    // Show another room first, so that nothing is left over from it.
    doubleClickLine(find<QListWidget>(editor, "listRoomSelect"), line == 1 ? 2 : 1);
    doubleClickLine(find<QListWidget>(editor, "listRoomSelect"), line);
    QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [%1/99]").arg(line));
    QCOMPARE(editor->currentIndex(), line);
    QCOMPARE(find<QPlainTextEdit>(editor, "textDesc")->toPlainText(), desc);
    QCOMPARE(checkedExits(editor), exits);
    QCOMPARE(selectedSector(editor), sector);
    QCOMPARE(checkedFlags(editor), flags);
    QVERIFY(!find<QPushButton>(editor, "buttonSave")->isEnabled());
    QVERIFY(!editor->changed());
    // Showing a room leaves the table as it was read.
    QCOMPARE(roomTable()[2].SecType, std::int16_t(9));
    QVERIFY(roomTable()[1].Exits[0].Absent);
    delete editor;
}

void FormRoomTest::openingRefusesWhatCannotBeRead_data() {
    QTest::addColumn<bool>("write");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    QTest::newRow("missing file") << false << QByteArray() << "95.wld: No such file or directory";
    QTest::newRow("short numbers line")
        << true << QByteArray::fromStdString(lf({"#9500", "Name~", "Desc", "~", "95 0", "S", "$"}))
        << "95.wld, line 5: expected";
}

void FormRoomTest::openingRefusesWhatCannotBeRead() {
    QFETCH(bool, write);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    RoomHost host;
    if (write)
        writeBytes(host.path("95.wld"), bytes.toStdString());
    FormRoom editor(host);
    QString message;
    QVERIFY(!editor.openZone(95, message));
    QVERIFY2(message.startsWith(error), qPrintable(message));
    QVERIFY(!editor.isVisible());
    QCOMPARE(roomTable()[0].VNum, 0);  // no partly read table is left
    MARL_VERIFY_PROMPTS(host.script);
}

void FormRoomTest::newZoneStartsAtZoneHundred() {
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(30);
    editor.show();
    QCOMPARE(find<QLineEdit>(&editor, "textVNum")->text(), QStringLiteral("3000"));
    QCOMPARE(editor.recordCount(), 0);
    QCOMPARE(find<QListWidget>(&editor, "listRoomSelect")->count(), 0);
    QVERIFY(!editor.changed());
    QVERIFY(!find<QPushButton>(&editor, "buttonSave")->isEnabled());
    QVERIFY(!QFile::exists(host.path("30.wld")));  // nothing is written before a save
}

void FormRoomTest::saveEnabling_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("vnum and name") << QStringList{"textName:type:Hall"} << true;
    QTest::newRow("name with the vnum emptied")
        << QStringList{"textVNum:erase", "textName:type:Hall"} << false;
    QTest::newRow("vnum emptied after the name")
        << QStringList{"textName:type:Hall", "textVNum:erase"} << false;
    QTest::newRow("description alone") << QStringList{"textVNum:erase", "textDesc:type:x"} << true;
    QTest::newRow("description emptied again")
        << QStringList{"textName:type:Hall", "textDesc:type:x", "textDesc:backspace"} << false;
    QTest::newRow("a flag box") << QStringList{"checkBitVDark:click"} << true;
    QTest::newRow("a sector option") << QStringList{"optionSecTypeCity:click"} << true;
    QTest::newRow("an exit box") << QStringList{"checkExitUp:click"} << true;
    QTest::newRow("clear bits") << QStringList{"buttonClearBits:click"} << true;
    QTest::newRow("clear exits") << QStringList{"buttonClearExits:click"} << true;
}

void FormRoomTest::saveEnabling() {
    QFETCH(QStringList, steps);
    QFETCH(bool, enabled);
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    run(&editor, steps);
    QCOMPARE(find<QPushButton>(&editor, "buttonSave")->isEnabled(), enabled);
    QVERIFY(editor.changed());
}

void FormRoomTest::numericFields_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("below -1 becomes -1") << "textNorthToVNum" << "-5" << "-1";
    QTest::newRow("above 99999 becomes 99999") << "textSouthToVNum" << "123456" << "99999";
    QTest::newRow("-1 stays") << "textEastToVNum" << "-1" << "-1";
    QTest::newRow("letters and signs dropped") << "textWestToVNum" << "3a0+0. 1" << "3001";
    QTest::newRow("not a number left alone") << "textUpToVNum" << "1-2" << "1-2";
    QTest::newRow("lone minus left alone") << "textDownToVNum" << "-" << "-";
    QTest::newRow("vnum stops at five characters") << "textVNum" << "123456" << "12345";
    QTest::newRow("vnum takes a minus") << "textVNum" << "-42" << "-42";
    QTest::newRow("vnum drops letters") << "textVNum" << "9x5y0z1" << "9501";
}

void FormRoomTest::numericFields() {
    QFETCH(QString, field);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    QLineEdit* edit = find<QLineEdit>(&editor, field);
    if (field != QLatin1String("textVNum")) {
        const QString check = field.mid(4).replace(QStringLiteral("ToVNum"), QString());
        click(find<QCheckBox>(&editor, QStringLiteral("checkExit") + check));
        QVERIFY(edit->isEnabled());
    }
    erase(edit);
    type(edit, keys);
    QCOMPARE(edit->text(), text);
}

void FormRoomTest::textFieldsRefuseWhatTheFileCannotHold_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    for (const char* field : {"textName", "textDesc"}) {
        QTest::addRow("%s: tilde", field) << field << "Temple~Hall" << "TempleHall";
        QTest::addRow("%s: euro sign", field) << field << QString::fromUtf8("5\u20ac") << "5";
        QTest::addRow("%s: latin-1 kept", field)
            << field << QString::fromUtf8("Caf\u00e9") << QString::fromUtf8("Caf\u00e9");
    }
}

void FormRoomTest::textFieldsRefuseWhatTheFileCannotHold() {
    QFETCH(QString, field);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    QWidget* edit = find<QWidget>(&editor, field);
    type(edit, keys);
    const QString shown = edit->property(field == "textName" ? "text" : "plainText").toString();
    QCOMPARE(shown, text);
}

void FormRoomTest::exitBoxesAndAbsentMarks_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("fieldEnabled");
    QTest::addColumn<bool>("buttonEnabled");
    QTest::addColumn<bool>("absent");
    QTest::newRow("checked, field empty") << QStringList{"checkExitNorth:click"} << true << false
                                          << true;
    QTest::newRow("checked, destination typed")
        << QStringList{"checkExitNorth:click", "textNorthToVNum:type:9501"} << true << true << false;
    QTest::newRow("unchecked after typing")
        << QStringList{"checkExitNorth:click", "textNorthToVNum:type:9501", "checkExitNorth:click"}
        << false << false << true;
    QTest::newRow("checked again with the text there")
        << QStringList{"checkExitNorth:click", "textNorthToVNum:type:9501", "checkExitNorth:click",
                       "checkExitNorth:click"}
        << true << true << false;
    QTest::newRow("destination emptied")
        << QStringList{"checkExitNorth:click", "textNorthToVNum:type:9", "textNorthToVNum:backspace"}
        << true << false << false;
    QTest::newRow("clear exits leaves the mark")
        << QStringList{"checkExitNorth:click", "textNorthToVNum:type:9501", "buttonClearExits:click"}
        << false << false << false;
}

void FormRoomTest::exitBoxesAndAbsentMarks() {
    QFETCH(QStringList, steps);
    QFETCH(bool, fieldEnabled);
    QFETCH(bool, buttonEnabled);
    QFETCH(bool, absent);
    RoomHost host;
    FormRoom editor(host);
    editor.newZone(95);
    editor.show();
    run(&editor, steps);
    QCOMPARE(find<QLineEdit>(&editor, "textNorthToVNum")->isEnabled(), fieldEnabled);
    QCOMPARE(find<QPushButton>(&editor, "buttonExitNorth")->isEnabled(), buttonEnabled);
    QCOMPARE(roomTable()[0].Exits[0].Absent, absent);
}

void FormRoomTest::listSelectionEnablesEditAndDelete() {
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    auto* list = find<QListWidget>(editor, "listRoomSelect");
    QCOMPARE(list->selectionMode(), QAbstractItemView::SingleSelection);
    type(find<QLineEdit>(editor, "textName"), "!");
    clickLine(list, 1);
    QVERIFY(find<QPushButton>(editor, "buttonEdit")->isEnabled());
    QVERIFY(find<QPushButton>(editor, "buttonDelete")->isEnabled());
    QVERIFY(find<QPushButton>(editor, "buttonSave")->isEnabled());
    // Edit drops the unsaved name without a question and shows the room.
    click(find<QPushButton>(editor, "buttonEdit"));
    QCOMPARE(find<QLineEdit>(editor, "textName")->text(), QStringLiteral("Reed Cottages"));
    QVERIFY(!find<QPushButton>(editor, "buttonEdit")->isEnabled());
    // Clicking the same line again offers Edit again.
    clickLine(list, 1);
    QVERIFY(find<QPushButton>(editor, "buttonEdit")->isEnabled());
    // Taking the selection away disables the commands that need it, and a
    // double click then shows nothing.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(list->selectedItems().size(), 0);
    for (const char* name : {"buttonSave", "buttonEdit", "buttonDelete"})
        QVERIFY2(!find<QPushButton>(editor, name)->isEnabled(), name);
    emit list->itemDoubleClicked(list->item(2));
    QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [1/99]"));
    // Enter in the list shows the line the cursor is on.
    editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    list->setFocus();
    list->setCurrentItem(list->item(2), QItemSelectionModel::NoUpdate);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [2/99]"));
    MARL_VERIFY_PROMPTS(host.script);
    delete editor;
}

void FormRoomTest::newCommand_data() {
    QTest::addColumn<int>("rooms");
    QTest::addColumn<bool>("dirty");
    QTest::addColumn<QString>("answer");  // to Discard Changes?, when asked
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<bool>("cleared");
    const QString discard = "Room Not Saved: Changes to Room Not Saved.\r\nDiscard Changes?";
    const QString full = "Marl - Marlstone: Zone Already Contains 99 Rooms";
    QTest::newRow("99 rooms: slot 99") << 99 << false << "" << QStringList{} << true;
    QTest::newRow("100 rooms: refused") << 100 << false << "" << QStringList{full} << false;
    QTest::newRow("183 rooms: refused") << 183 << false << "" << QStringList{full} << false;
    QTest::newRow("changes, No") << 3 << true << "n" << QStringList{discard} << false;
    QTest::newRow("changes, Yes") << 3 << true << "y" << QStringList{discard} << true;
    QTest::newRow("changes, Yes, then full") << 100 << true << "y" << QStringList{discard, full}
                                             << false;
}

void FormRoomTest::newCommand() {
    QFETCH(int, rooms);
    QFETCH(bool, dirty);
    QFETCH(QString, answer);
    QFETCH(QStringList, messages);
    QFETCH(bool, cleared);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, zoneOfRooms(rooms));
    QVERIFY(editor);
    if (dirty)
        type(find<QLineEdit>(editor, "textName"), "!");
    if (!answer.isEmpty())
        host.script.answer({answer == QLatin1String("y")});
    host.script.expectTells(1);
    click(find<QPushButton>(editor, "buttonNew"));

    QStringList shown;
    for (const PromptRecord& record : host.script.records)
        shown.append(record.title + QStringLiteral(": ") + record.text);
    QCOMPARE(shown, messages);
    QCOMPARE(find<QLineEdit>(editor, "textVNum")->text(),
             cleared ? QStringLiteral("95") : QStringLiteral("9500"));
    QCOMPARE(editor->currentIndex(), cleared ? rooms : 0);
    QCOMPARE(find<QLineEdit>(editor, "textName")->text().isEmpty(), cleared);
    QCOMPARE(editor->changed(), dirty && !cleared);
    if (cleared) {
        QCOMPARE(editor->focusWidget(), find<QLineEdit>(editor, "textVNum"));
        QCOMPARE(editor->windowTitle(), QStringLiteral("Room Editor [0/99]"));  // not changed
    }
    delete editor;
}

void FormRoomTest::leaving_data() {
    QTest::addColumn<bool>("dirty");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("closes");
    const QString cancel = "Changes to Room Not Saved.\r\nCancel Anyway?";
    const QString done = "Changes to Room Not Saved.\r\nEither Save or Use Cancel.";
    QTest::newRow("cancel, no changes") << false << "buttonCancel" << "" << "" << true;
    QTest::newRow("done, no changes") << false << "buttonDone" << "" << "" << true;
    QTest::newRow("frame, no changes") << false << "frame" << "" << "" << true;
    QTest::newRow("cancel, changes, No") << true << "buttonCancel" << "n" << cancel << false;
    QTest::newRow("cancel, changes, Yes") << true << "buttonCancel" << "y" << cancel << true;
    QTest::newRow("done, changes") << true << "buttonDone" << "" << done << false;
    QTest::newRow("frame, changes, No") << true << "frame" << "n" << cancel << false;
    QTest::newRow("frame, changes, Yes") << true << "frame" << "y" << cancel << true;
    QTest::newRow("escape, changes, No") << true << "escape" << "n" << cancel << false;
}

void FormRoomTest::leaving() {
    QFETCH(bool, dirty);
    QFETCH(QString, how);
    QFETCH(QString, answer);
    QFETCH(QString, message);
    QFETCH(bool, closes);
    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, 95, smallZone());
    QVERIFY(editor);
    if (dirty)
        click(find<QCheckBox>(editor, "checkBitVDeath"));
    if (!answer.isEmpty())
        host.script.answer({answer == QLatin1String("y")});
    if (how == QLatin1String("buttonDone") && dirty)
        host.script.expectTells(1);
    if (how == QLatin1String("frame"))
        editor->close();
    else if (how == QLatin1String("escape")) {
        editor->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(editor));
        QTest::keyClick(find<QLineEdit>(editor, "textName"), Qt::Key_Escape);
    }
    else
        click(find<QPushButton>(editor, how));

    QCOMPARE(host.script.records.isEmpty(), message.isEmpty());
    if (!message.isEmpty()) {
        QCOMPARE(host.script.records.size(), 1);
        QCOMPARE(host.script.records[0].text, message);
        QCOMPARE(host.script.records[0].title, QStringLiteral("Room Not Saved"));
    }
    MARL_VERIFY_PROMPTS(host.script);
    QCOMPARE(host.closed, closes ? 1 : 0);
    QCOMPARE(editor->isVisible(), !closes);
    // Leaving clears the room table; staying keeps it.
    QCOMPARE(roomTable()[0].VNum, closes ? 0 : 9500);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(editor.isNull(), closes);
    delete editor;
    QCOMPARE(host.closed, closes ? 1 : 0);  // no second report when deleted
}

QTEST_MAIN(FormRoomTest)
#include "form_room_test.moc"
