// Saving from the editor of every kind, one builder's script per row: what
// the window and a dialog changed both reach the file, Update in a list
// dialog writes back into the line it loaded, Delete takes the record shown,
// a nameless record named keeps one header, the file chosen is the file
// written, and a new or renumbered record lands in number order in a file
// the server still boots.

#include "test_main.h"

#include "save_checks.h"
#include "sessions.h"

using namespace marl;
using namespace marl::test;

class EditorSavesTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void chosenFile_data();
    void chosenFile();
    void numberOrder_data();
    void numberOrder();
    void newFileIndex_data();
    void newFileIndex();
};

namespace {

// A kind's small zone and the names of its three records.
struct KindRow {
    QString kind, extension, list;
    std::string (*small)();
    QStringList names;
};
const QList<KindRow> kKinds{
    {"Room", ".wld", "listRoomSelect", smallZone, {"The Landing", "Reed Cottages", "The Kitchen"}},
    {"Mobile",
     ".mob",
     "listMobileSelect",
     smallMobiles,
     {"the old ferryman", "a grey heron", "the wiry cutpurse"}},
    {"Object",
     ".obj",
     "listObjectSelect",
     smallObjects,
     {"a long sword", "an iron chest", "a green potion"}}};

const KindRow& kindRow(const QString& kind) {
    for (const KindRow& row : kKinds)
        if (row.kind == kind)
            return row;
    return kKinds.front();
}

// Runs `check` on the editor of the kind open on `file` (New without one).
template <typename Check>
void inSession(const QString& kind, const std::string& file, int zone, Check check) {
    if (kind == "Room") {
        EditorSession s(file, zone);
        check(s);
    } else if (kind == "Mobile") {
        MobileSession s(file, zone);
        check(s);
    } else {
        ObjectSession s(file, zone);
        check(s);
    }
}

// What a new record of each kind needs typed before Save.
const QMap<QString, QStringList> kNewRecordFields{
    {"Room", {"textName:type:Quay"}},
    {"Mobile", {"textAlias:type:rat", "textSDesc:type:a rat", "textLDesc:type:A rat."}},
    {"Object", {"textAlias:type:bone", "textSDesc:type:a bone", "optionTrash:click"}}};

std::string replaced(std::string text, const QStringList& pairs) {
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2) {
        const std::string from = pairs[i].toStdString();
        text.replace(text.find(from), from.size(), pairs[i + 1].toStdString());
    }
    return text;
}

} // namespace

void EditorSavesTest::script_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("edits"); // of the small file: from, to, ...
    QTest::addColumn<QStringList>("steps");
    const auto row = [](const QString& name, const QString& kind, const QStringList& edits,
                        const QStringList& steps) {
        QTest::newRow(qPrintable(kind + ": " + name)) << kind << edits << steps;
    };
    const QString save = "buttonSave:click", done = "buttonDone:click";

    // A change in the window, then each dialog opened, changed and closed
    // with Done, then Save: both changes reach the file.
    const QMap<QString, std::pair<QStringList, QString>> windowChange{
        {"Room", {{"checkExitEast:click"}, "9500 The Landing 0/2 North:0/-1/9501/%1 +bell%2"}},
        {"Mobile", {{"textLevel:erase", "textLevel:type:9"},
          "9500 the old ferryman b%1 350%2 9/17/6 2d8+30 1d4+1 25/400 8/8/1%3 dd=1%4"}},
        {"Object", {{"textCost:erase", "textCost:type:7"}, "9500 a long sword t5 g/an 0,2,6,%1 8/7/10%2"}}};
    const QList<std::tuple<QString, QStringList, QStringList>> dialogs{
        {"Room", {"buttonExitNorth:click", ">formRoomDoor", "textKeywords:type:gate"},
         {"gate", ""}},
        {"Room", {"buttonExtraDescs:click", ">formRoomExtraDescs", "textKeywords:type:gem",
          "buttonAdd:click"}, {"", " +gem"}},
        {"Mobile", {"buttonActionBitV:click", ">formMobileAction", "checkAware:click"},
         {"e/0", "S", "", "0"}},
        {"Mobile", {"buttonAffectBitV:click", ">formMobileAffect", "checkBlind:click"},
         {"/a", "S", "", "0"}},
        {"Mobile", {"buttonESpecs:click", ">formMobileESpecs", "optionBHAPierce:click"},
         {"/0", "E", " BareHandAttack11", "0"}},
        {"Mobile", {"buttonDDesc:click", ">formMobileDesc", "textDesc:type:Scarred."},
         {"/0", "S", "", "8"}},
        {"Object", {"buttonValues:click", ">formObjectValues", "textWeaponType:erase",
          "textWeaponType:type:4"}, {"4", " A=18:1,19:2"}},
        {"Object", {"buttonObjectAffects:click", ">formObjectAffects", "optionDex:click", "textValue:type:3",
          "buttonAdd:click"}, {"3", " A=18:1,19:2,2:3"}},
        {"Object", {"buttonEDescs:click", ">formObjectExtraDescs", "textKeywords:type:gem",
          "buttonAdd:click"}, {"3", " E=gem A=18:1,19:2"}},
        {"Object", {"buttonADesc:click", ">formObjectActionDesc", "textDesc:type:Zap."},
         {"3", " A=18:1,19:2 ad=4"}}};
    for (const auto& [kind, dialog, fills] : dialogs) {
        const auto& [change, shown] = windowChange[kind];
        QString expected = shown;
        for (const QString& fill : fills)
            expected = expected.arg(fill);
        row("window and " + dialog[1].mid(1) + " both saved", kind, {},
            change + dialog + QStringList{done, ">", "yes", save, "?slot0=" + expected});
    }

    // The list dialogs: Update writes into the line Edit loaded, whatever is
    // selected since, and a line removed above it moves it up.  Each list
    // holds three lines; line 2 is edited, then line 0 selected (the record's
    // slot, what it holds after Update, and after Remove and Update).
    const QList<std::tuple<QString, QString, QStringList, QStringList, int, QString, QString>>
        lists{{"Room",
               "formRoomExtraDescs",
               {"listRoomSelect:dclick:2", "buttonExtraDescs:click", ">formRoomExtraDescs",
                "textKeywords:type:rope", "buttonAdd:click"},
               {"textKeywords:erase", "textKeywords:type:hook"},
               2,
               "9502 The Kitchen k/9 East:2/-1/9501/door +ladder +pot +hook",
               "9502 The Kitchen k/9 East:2/-1/9501/door +pot +hook"},
              {"Object",
               "formObjectExtraDescs",
               {"listObjectSelect:dclick:1", "buttonEDescs:click", ">formObjectExtraDescs",
                "textKeywords:type:lid", "buttonAdd:click", "textKeywords:type:rim",
                "buttonAdd:click"},
               {"textKeywords:erase", "textKeywords:type:hasp"},
               1,
               "9501 an iron chest t15 0/a 60,13,9510,0 80/150/10 E=chest lock,lid,hasp",
               "9501 an iron chest t15 0/a 60,13,9510,0 80/150/10 E=lid,hasp"},
              {"Object",
               "formObjectAffects",
               {"buttonObjectAffects:click", ">formObjectAffects", "optionDex:click",
                "textValue:type:3", "buttonAdd:click"},
               {"textValue:erase", "textValue:type:5"},
               0,
               "9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2,2:5",
               "9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=19:2,2:5"}};
    for (const auto& [kind, form, open, change, slot, updated, afterRemove] : lists) {
        const QString list = form == "formObjectAffects" ? "listObjectAffects" : "listExtraDescs";
        const QString probe = QString("?slot%1=").arg(slot);
        const QStringList edit = open + QStringList{list + ":dclick:2"} + change;
        row(form + ": Update after selecting another line", kind, {},
            edit + QStringList{list + ":line:0", "buttonUpdate:click",
                               "?buttonEdit, buttonRemove, !buttonUpdate", "buttonEdit:click",
                               "?" + QString(change.last()).replace(":type:", "="),
                               probe + updated});
        row(form + ": Update after removing a line above", kind, {},
            edit + QStringList{list + ":line:0", "buttonRemove:click", "?buttonUpdate",
                               "buttonUpdate:click", probe + afterRemove});
    }

    for (const KindRow& k : kKinds) {
        const QString noun = k.kind;
        const QStringList& names = k.names;
        const QString name = names[1];
        // Delete takes the record the window shows, and names it.
        row("Delete after selecting another line", noun, {},
            {k.list + ":dclick:1", k.list + ":line:2", "yes", "buttonDelete:click",
             "?said=Confirm Delete: Really Delete This " + noun + "?\r\n9501 " + name +
                 ", count=2, index=2, textVNum=95, " + k.list + "=9500\t" + names[0] + "/9502\t" +
                 names[2]});
        // A record without a name holds its VNum all the same.
        const QString field = noun == "Room" ? "textName" : "textSDesc";
        row("a nameless record named keeps one header", noun, {name + "~", "~"},
            {k.list + ":dclick:1", field + ":type:" + name, "yes", save, "?count=3, index=1",
             "?said=Overwrite Existing " + noun + ": Overwrite Existing " + noun + "?"});
        // The VNum field takes digits only.
        row("a VNum takes digits only", noun, {},
            {"textVNum:erase", "textVNum:type:-95-7", "?textVNum=957"});
    }
    row("an exit to room 0 shows ticked and survives a save", "Room", {"0 -1 9501", "0 -1 0"},
        {"?checkExitNorth=x, textNorthToVNum=0", "textName:type:!", "yes", save,
         "?slot0=9500 The Landing! 0/2 North:0/-1/0/ East:0/-1/-1/ +bell"});
}

void EditorSavesTest::script() {
    QFETCH(QString, kind);
    QFETCH(QStringList, edits);
    QFETCH(QStringList, steps);
    inSession(kind, replaced(kindRow(kind).small(), edits), 95, [&](auto& s) {
        QVERIFY(s.opened);
        MARL_PLAY(s.playAll(steps));
    });
}

void EditorSavesTest::chosenFile_data() {
    QTest::addColumn<QString>("kind");
    for (const KindRow& k : kKinds)
        QTest::newRow(qPrintable(k.kind)) << k.kind;
}

// `095.wld`, its records out of order, opens with a message naming the first
// record out of order, and Save writes `095.wld`, never `95.wld`.
void EditorSavesTest::chosenFile() {
    QFETCH(QString, kind);
    const KindRow& k = kindRow(kind);
    inSession(kind, {}, 95, [&](auto& s) {
        const QString chosen = "095" + k.extension;
        s.host.title = chosen;
        writeBytes(s.host.path(chosen), replaced(k.small(), {"#9502", "#9499"}));
        s.host.script.expectTells(1);
        QString error;
        QVERIFY(s.editor->openZone(95, error));
        MARL_PLAY(s.playAll({"?said=Records Out of Order: " + chosen +
                                 ": #9499 is out of number order (after #9501).\r\nThe server "
                                 "may not find the " +
                                 kind.toLower() + "s around it.",
                             "textVNum:erase", "textVNum:type:9498", "buttonSave:click",
                             "?count=4, index=0"}));
        QVERIFY(!QFile::exists(s.filePath()));
        QVERIFY(readBytes(s.host.path(chosen)).starts_with("#9498"));
    });
}

void EditorSavesTest::numberOrder_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("vnum");
    const QMap<QString, QStringList>& fields = kNewRecordFields;
    const QMap<QString, std::pair<int, int>> free{
        {"Room", {3035, 3056}}, {"Mobile", {3050, 3011}}, {"Object", {3006, 3047}}};
    for (const KindRow& k : kKinds) {
        const auto [fresh, renumbered] = free[k.kind];
        QTest::newRow(qPrintable(k.kind + ": a new record"))
            << k.kind
            << QStringList{"buttonNew:click",
                           "textVNum:type:" + QString("%1").arg(fresh % 100, 2, 10, QChar('0'))} +
                   fields[k.kind] + QStringList{"buttonSave:click"}
            << fresh;
        QTest::newRow(qPrintable(k.kind + ": a changed VNum"))
            << k.kind
            << QStringList{"textVNum:erase", "textVNum:type:" + QString::number(renumbered),
                           "buttonSave:click"}
            << renumbered;
    }
}

// The stock zone 30, with comment lines: the record lands in its place, every other record's
// bytes stay as they were, and the server boots the zone with no SYSERR it
// did not log before.
void EditorSavesTest::numberOrder() {
    QFETCH(QString, kind);
    QFETCH(QStringList, steps);
    QFETCH(int, vnum);
    const QString stock = corpusDir() + "/30" + kindRow(kind).extension;
    if (!QFile::exists(stock))
        QSKIP("the stock zone files are not here");
    // A builder's comment line before every record but the first: it stays
    // with the record it comes after.
    std::string original = readBytes(stock);
    for (std::size_t at = original.find("\n#"); at != std::string::npos;
         at = original.find("\n#", at + 9))
        original.insert(at + 1, "* next\n");
    inSession(kind, original, 30, [&](auto& s) {
        QVERIFY(s.opened);
        MARL_PLAY(s.playAll(steps));
        const std::string saved = s.bytes();
        const auto& table = s.editor->records().file();
        const int count = s.editor->recordCount();
        QCOMPARE(firstOutOfOrder(table, count), -1);
        const int slot = s.editor->currentIndex();
        QCOMPARE(table[slot].VNum, vnum);
        std::string others = saved;
        const std::size_t at = others.find(table[slot].Source);
        QVERIFY(at != std::string::npos);
        others.erase(at, table[slot].Source.size());
        QCOMPARE(others, original);
        QCOMPARE(QString::fromStdString(saved).count("* next"),
                 QString::fromStdString(original).count("* next"));
        checkServerBoots(s.host.folder, 30);
    });
}

void EditorSavesTest::newFileIndex_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("answer"); // to the question, none when nothing is asked
    QTest::addColumn<QString>("after");
    for (const KindRow& k : kKinds) {
        const QString name = "95" + k.extension;
        QTest::newRow(qPrintable(k.kind + ": Yes adds it before the $"))
            << k.kind << "30.x\r\n$\r\n* old\r\n" << "yes"
            << "30.x\r\n" + name + "\r\n$\r\n* old\r\n";
        QTest::newRow(qPrintable(k.kind + ": No leaves the index"))
            << k.kind << "30.x\n$\n" << "no" << "30.x\n$\n";
        QTest::newRow(qPrintable(k.kind + ": listed, nothing asked"))
            << k.kind << "30.x " + name + "\n$" << QString() << "30.x " + name + "\n$";
    }
}

// A Save that creates a zone file in a folder whose index does not list
// it asks to add it, so that the server loads it.
void EditorSavesTest::newFileIndex() {
    QFETCH(QString, kind);
    QFETCH(QString, index);
    QFETCH(QString, answer);
    QFETCH(QString, after);
    inSession(kind, {}, 95, [&](auto& s) {
        writeBytes(s.host.path("index"), index.toStdString());
        QStringList steps = QStringList{"textVNum:erase", "textVNum:type:9500"} +
                            kNewRecordFields[kind] + QStringList{answer, "buttonSave:click"};
        steps.removeAll(QString());
        MARL_PLAY(s.playAll(steps));
        QCOMPARE(s.host.script.records.size(), answer.isEmpty() ? 0 : 1);
        if (!answer.isEmpty())
            QCOMPARE(s.host.script.records[0].text,
                     "Add 95" + kindRow(kind).extension +
                         " to the world's index, so the server loads it?");
        QCOMPARE(fromBytes(readBytes(s.host.path("index"))), after);
        QVERIFY(QFile::exists(s.filePath()));
    });
}

MARL_TEST_MAIN(EditorSavesTest)
#include "editor_saves_test.moc"
