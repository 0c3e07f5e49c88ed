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
    void newShopBoots_data();
    void newShopBoots();
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
    } else if (kind == "Shop") {
        ShopSession s(file, zone);
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

// Slot 0 of the small shops as read.
QString shopLine() {
    return "9500 k9500 1.15/0.15 0/0/0 P9500,9502 T R9500 H0,28,0,0 m17,17,12,12,18,20,21";
}


// The shop editor's Save: what it refuses, the message rules first, each
// naming its field; what it warns of in one question; the older form's
// fixed lists; the lists' Update and Remove; a temper kept as read.
template <typename Row> void shopRows(Row row) {
    const QString save = "buttonSave:click", unsaved = "?changed=x, slot0=" + shopLine(),
                  refused = "?said=Shop Not Saved: %1\r\nCorrect it, then Save., changed=x";
    const auto refuses = [&](const QString& name, const QString& field, const QString& typed,
                             const QString& told) {
        row("refused: " + name, "Shop", {},
            {field + ":erase", field + ":type:" + typed, "ok", save, refused.arg(told),
             "?focus=" + field, unsaved});
    };
    const QString drops = "; the server drops it.";
    refuses("two %s", "textKeeperSells", "%s %s %d",
            "The message when the keeper sells has two %s" + drops);
    refuses("a %d outside the price messages", "textDoesNotBuy", "%s %d",
            "The message when the keeper does not buy the item has a %d, which only the messages "
            "when the keeper sells or buys may have" + drops);
    refuses("a %d before the %s", "textKeeperBuys", "%d to %s",
            "The message when the keeper buys has its %d before any %s (the customer's name "
            "comes first)" + drops);
    refuses("another %", "textNoSuchItemKeeper", "%s 5%x",
            "The message when the keeper has no such item has \"%x\", which the server does "
            "not take" + drops);
    refuses("an hour past 28", "textClose1", "29", "The first closing hour 29 is outside 0-28.");
    refuses("a factor not a number", "textBuyFactor", "cheap",
            "The buying price factor \"cheap\" is not a number.");
    row("refused: a keeper not a number", "Shop", {},
        {"textKeeper:erase", "ok", save,
         "?said=Shop Not Saved: The Keeper Must Be a Number.\r\nCorrect it, then Save., "
         "focus=textKeeper"});
    const QString warned = "?said=Check Shop: %1\r\nSave Anyway?";
    row("warned: selling above buying, No", "Shop", {},
        {"textSellFactor:erase", "textSellFactor:type:2", "no", save,
         warned.arg("The selling price factor 2 is above the buying one 1.15: players earn "
                    "money by buying and selling back."),
         unsaved});
    row("warned: keeper, products and room not in the zone, Yes", "Shop", {},
        {"textKeeper:erase", "textKeeper:type:9599", "?labelKeeperName=no such mobile",
         "textProduct:type:9598", "buttonProductAdd:click", "textProduct:type:9599",
         "buttonProductAdd:click", "?listProducts=9500\ta long sword/9502\ta green potion/"
         "9598\t(not in zone 95)/9599\t(not in zone 95)",
         "textRoom:type:9597", "buttonRoomAdd:click", "yes", "yes", save,
         warned.arg("The keeper 9599 is not a mobile of the world.\r\nThe products 9598, 9599 "
                    "are not objects of the world.\r\nThe room 9597 is not a room of the world.") +
             " | Overwrite Existing Shop: Overwrite Existing Shop?",
         "?slot0=9500 k9599 1.15/0.15 0/0/0 P9500,9502,9598,9599 T R9500,9597 H0,28,0,0 "
         "m17,17,12,12,18,20,21"});
    // An older-form file: five products, five types, one room, -1 for none.
    const QStringList older{fromBytes(smallShops()),
                            fromBytes(lfLines("#9500~|9500|9502|-1|-1|-1|1.15|0.15|-1|-1|-1|-1|-1|" +
                                              shopMessages + "0|0|9500|0|9500|0|28|0|0|$~"))};
    row("older form: one room at most", "Shop", older,
        {"textRoom:type:9501", "ok", "buttonRoomAdd:click",
         "?said=Rooms Not Added: This shop is in a file of the older form, which holds at most "
         "1 room per shop.\r\nRemove one to add another., listRooms=9500\tThe Landing"});
    // The lists: Update writes into the line Edit loaded, whatever is
    // selected since; a line removed above it moves it up.
    const QStringList edit{"listProducts:dclick:1", "textProduct:erase", "textProduct:type:9501",
                           "listProducts:line:0"};
    row("products: Update after selecting another line", "Shop", {},
        edit + QStringList{"buttonProductUpdate:click", "yes", save,
                           "?slot0=9500 k9500 1.15/0.15 0/0/0 P9500,9501 T R9500 H0,28,0,0 "
                           "m17,17,12,12,18,20,21"});
    row("products: Update after removing a line above", "Shop", {},
        edit + QStringList{"buttonProductRemove:click", "buttonProductUpdate:click", "yes", save,
                           "?slot0=9500 k9500 1.15/0.15 0/0/0 P9501 T R9500 H0,28,0,0 "
                           "m17,17,12,12,18,20,21"});
    row("a message of two lines survives a save", "Shop", {"%s No such thing.", "%s No such\nthing."},
        {"textBuyFactor:type:5", "yes", save,
         "?slot0=9500 k9500 1.155/0.15 0/0/0 P9500,9502 T R9500 H0,28,0,0 m18,17,12,12,18,20,21"});
    row("a temper of 3 shows as the third option and is kept", "Shop", {},
        {"listShopSelect:dclick:1", "?optionTemperNothing=x, listBuyTypes=WEAPON sharp/WAND",
         "textBuyFactor:type:0", "yes", save,
         "?slot1=9501 k9501 1.50/0.5 3/2/2 P9501 T5:sharp,3: R9501,9502 H6,20,0,0 "
         "m17,17,12,12,18,20,21"});
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
    shopRows(row);
    row("an exit to room 0 shows ticked and survives a save", "Room", {"0 -1 9501", "0 -1 0"},
        {"?checkExitNorth=x, textNorthToVNum=0", "textName:type:!", "yes", save,
         "?slot0=9500 The Landing! 0/2 North:0/-1/0/ East:0/-1/-1/ +bell"});
}

void EditorSavesTest::script() {
    QFETCH(QString, kind);
    QFETCH(QStringList, edits);
    QFETCH(QStringList, steps);
    const std::string small = kind == "Shop" ? smallShops() : kindRow(kind).small();
    inSession(kind, replaced(small, edits), 95, [&](auto& s) {
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

// A shop made from scratch in the window, in a new file of stock zone 30,
// and a stock shop given another product and message, boot with no SYSERR
// the stock zone does not log.
void EditorSavesTest::newShopBoots_data() {
    QTest::addColumn<bool>("stock");
    QTest::addColumn<QStringList>("steps");
    QStringList fresh{"textVNum:erase", "textVNum:type:3099", "textKeeper:type:3000",
                      "?labelKeeperName=the wizard", "textProduct:type:3050",
                      "buttonProductAdd:click", "comboBuyType:type:WAND",
                      "buttonBuyTypeAdd:click", "textRoom:type:3033", "buttonRoomAdd:click"};
    for (const ShopMessageField& message : kShopMessageFields)
        fresh << QString(message.control) + ":type:%s " +
                     (QString(message.label).contains("%d") ? "%d coins." : "No.");
    QTest::newRow("made from scratch") << false << fresh + QStringList{"buttonSave:click", "?said=, count=1"};
    QTest::newRow("stock 30.shp changed")
        << true << QStringList{"listShopSelect:dclick:1", "listProducts:line:0",
                               "buttonProductRemove:click", "textProduct:type:3000",
                               "buttonProductAdd:click", "textKeeperSells:erase",
                               "textKeeperSells:type:%s Yours for %d coins.", "yes",
                               "buttonSave:click", "?count=14, index=1"};
}

void EditorSavesTest::newShopBoots() {
    QFETCH(bool, stock);
    QFETCH(QStringList, steps);
    if (!QFile::exists(corpusDir() + "/30.mob"))
        QSKIP("the stock zone files are not here");
    ShopSession s(stock ? readBytes(corpusDir() + "/30.shp") : std::string(), 30);
    MARL_PLAY(s.playAll(steps));
    checkServerBoots(s.host.folder, 30);
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
