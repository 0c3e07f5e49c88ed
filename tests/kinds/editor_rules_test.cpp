// The rules every kind's editor keeps, one table over the kinds: the guard
// messages and the ways of leaving, New in a full zone, Edit, Save and Delete
// with the record then shown, each dialog editing that record and no other,
// failed writes, stock records through the window; in every window access
// keys and Tab.

#include "test_main.h"

#include <QFileInfo>

#include "access_keys.h"
#include "save_checks.h"
#include "sessions.h"

using namespace marl;
using namespace marl::test;

class EditorRulesTest : public QObject {
    Q_OBJECT
private slots:
    void script_data();
    void script();
    void dialogsEditTheShownRecord_data();
    void dialogsEditTheShownRecord();
    void failedWrites_data();
    void failedWrites();
    void stockRecordsSurvive_data();
    void stockRecordsSurvive();
    void accessKeys_data();
    void accessKeys();
    void tabOrder_data();
    void tabOrder();
};

namespace {

// What the rows need of a kind: its small zone, list, one edit, what a new
// record needs besides its VNum, and its dialogs (opened and edited once).
struct EditorCase {
    QString ext, noun, list, listed;
    std::string small;
    QStringList edit, fill;
    QList<QStringList> dialogs;
    int keys = 10; // keyed controls the editor has at least
};

// What a new shop needs besides its VNum: a keeper and the seven messages.
QStringList newShop() {
    QStringList fill{"textKeeper:type:9500"};
    for (const ShopMessageField& message : kShopMessageFields)
        fill << QString(message.control) + ":type:%s " +
                    (QString(message.label).contains("%d") ? "%d coins." : "No.");
    return fill;
}

QList<EditorCase> cases() {
    return {
        {".wld", "Room", "listRoomSelect", "9500\tThe Landing/9501\tReed Cottages/9502\tThe Kitchen",
         smallZone(), {"textName:type:!"}, {"textName:type:T"},
         {{"buttonExtraDescs:click", ">formRoomExtraDescs", "textKeywords:type:mark",
           "buttonAdd:click", "buttonDone:click"},
          {"checkExitUp:click", "textUpToVNum:type:9501", "buttonExitUp:click", ">formRoomDoor",
           "textKeywords:type:gate", "buttonDone:click"}}},
        {".mob", "Mobile", "listMobileSelect",
         "9500\tthe old ferryman/9501\ta grey heron/9502\tthe wiry cutpurse", smallMobiles(), {"textLevel:type:1"},
         {"textAlias:type:a", "textSDesc:type:b", "textLDesc:type:c"},
         {{"buttonActionBitV:click", ">formMobileAction", "checkAware:click", "buttonDone:click"},
          {"buttonAffectBitV:click", ">formMobileAffect", "checkCurse:click", "buttonDone:click"},
          {"buttonESpecs:click", ">formMobileESpecs", "textCon:type:11", "buttonDone:click"},
          {"buttonDDesc:click", ">formMobileDesc", "textDesc:type:More.", "buttonDone:click"}}},
        {".obj", "Object", "listObjectSelect",
         "9500\ta long sword/9501\tan iron chest/9502\ta green potion", smallObjects(), {"textCost:type:1"},
         {"textAlias:type:a", "textSDesc:type:b"},
         {{"buttonEDescs:click", ">formObjectExtraDescs", "textKeywords:type:gem",
           "textDesc:type:Red.", "buttonAdd:click", "buttonDone:click"},
          {"buttonADesc:click", ">formObjectActionDesc", "textDesc:type:Zap.", "buttonDone:click"},
          // After New the window shows "Other", which has no values.
          // Money: a new potion's spells of 0 are what the server logs.
          {"optionMoney:click", "buttonValues:click", ">formObjectValues",
           "textMoneyAmount:erase", "textMoneyAmount:type:7", "buttonDone:click"},
          {"buttonObjectAffects:click", ">formObjectAffects", "optionDex:click",
           "textValue:type:3", "buttonAdd:click", "buttonDone:click"}}},
        {".shp", "Shop", "listShopSelect",
         "9500\tthe old ferryman/9501\ta grey heron/9502\tthe wiry cutpurse", smallShops(),
         {"textBuyFactor:type:5"}, newShop(), {}, 7}};
}

EditorCase caseOf(const QString& path) {
    for (const EditorCase& c : cases())
        if (path.endsWith(c.ext))
            return c;
    return {};
}

// Runs `visit` on a session of the row's kind.
template <typename Visit> void withSession(const QString& ext, const std::string& file,
                                           const QString& folder, Visit&& visit, int zone = 95) {
    if (ext == ".wld") {
        EditorSession s(file, zone, folder);
        visit(s, s.editor->records().file());
    } else if (ext == ".mob") {
        MobileSession s(file, zone, folder);
        visit(s, s.editor->records().file());
    } else if (ext == ".shp") {
        ShopSession s(file, zone, folder);
        visit(s, s.editor->records().file());
    } else {
        ObjectSession s(file, zone, folder);
        visit(s, s.editor->records().file());
    }
}

// A zone of `count` copies of the small zone's first record, 9500 upward,
// between the small zone's lines before its first record and from its end.
std::string zoneOf(const std::string& small, int count) {
    const std::size_t start = small.find('#'), next = small.find("\n#", start) + 1;
    std::string file = small.substr(0, start), first = small.substr(start + 5, next - start - 5);
    for (int i = 0; i < count; ++i)
        file += "#" + std::to_string(9500 + i) + first;
    return file + small.substr(small.rfind('$'));
}

// A record as it reads, whatever bytes it came from: flags as the sets they
// stand for, a mobile's letter as its extended values make it.
RoomRecord values(RoomRecord room) {
    room.Source.clear();
    room.BitV = std::to_string(flagBits(room.BitV));
    return room;
}
MobileRecord values(MobileRecord mobile) {
    mobile.Source.clear();
    mobile.ActionBitV = std::to_string(flagBits(mobile.ActionBitV));
    mobile.AffectBitV = std::to_string(flagBits(mobile.AffectBitV));
    mobile.TypeLetter.assign(1, hasExtendedValues(mobile) ? 'E' : 'S');
    return mobile;
}
ShopRecord values(ShopRecord shop) {
    shop.Source.clear();
    return shop;
}
ObjectRecord values(ObjectRecord object) {
    object.Source.clear();
    object.EBitV = std::to_string(flagBits(object.EBitV));
    object.WBitV = std::to_string(flagBits(object.WBitV));
    return object;
}

// The enabled keyed controls of a window, by letter.
} // namespace

void EditorRulesTest::script_data() {
    QTest::addColumn<QString>("ext");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("steps");
    for (const EditorCase& c : cases()) {
        const auto row = [&](const QString& name, const std::string& file, const QStringList& steps) {
            QTest::newRow(qPrintable(c.noun + ": " + name))
                << c.ext << QByteArray::fromStdString(file) << steps;
        };
        const QString notSaved = c.noun + " Not Saved: Changes to " + c.noun + " Not Saved.\r\n";
        const QString ask = "?said=" + notSaved + "Cancel Anyway?, closed=";  // then the count
        const QString full = "Marl - Marlstone: Zone Already Contains 99 " + c.noun + "s";
        const QString line = c.list + ":line:", open = c.list + ":dclick:";
        const QString bytes = "bytes=" + fromBytes(c.small).replace('\n', '/');
        row("every record listed, none changed", c.small, {"?" + c.list + "=" + c.listed +
            ", count=3, changed=-, index=0, !buttonSave, !buttonEdit", open + "2",
            "?index=2, textVNum=9502, changed=-", line + "0", "?buttonEdit, buttonDelete"});
        row("cancel, frame and escape ask; Yes writes nothing", c.small, c.edit + QStringList{
            "?buttonSave, changed=x", "no", "buttonCancel:click", ask + "0", "no", "close",
            "?closed=0", "yes", "textVNum:escape", "?closed=1, " + bytes});
        row("done refuses changes", c.small, c.edit + QStringList{"ok", "buttonDone:click",
            "?said=" + notSaved + "Either Save or Use Cancel., closed=0"});
        row("done, no changes", c.small, {"buttonDone:click", "?said=, closed=1"});
        row("edit with changes, No keeps them", c.small, c.edit + QStringList{line + "1", "no",
            "buttonEdit:click", "?said=" + notSaved + "Discard Changes?, index=0, changed=x"});
        row("new at 99: slot 99", zoneOf(c.small, 99), {"buttonNew:click",
            "?said=, textVNum=95, index=99, changed=-, focus=textVNum"});
        row("new at 100: refused", zoneOf(c.small, 100),
            {"ok", "buttonNew:click", "?said=" + full + ", index=0"});
        row("new with changes, Yes", c.small, c.edit + QStringList{"yes", "buttonNew:click",
            "?said=" + notSaved + "Discard Changes?, textVNum=95, index=3, changed=-"});
        row("save over, No writes nothing", c.small, c.edit + QStringList{"no",
            "buttonSave:click", "?changed=x, " + bytes});
        row("save under a new VNum: in number order", c.small, {"textVNum:backspace", "textVNum:type:7",
            "buttonSave:click", "?said=, count=4, index=3, changed=-, focus=textVNum"});
        // The record shown goes, not the line clicked last.
        row("delete takes the record shown; No deletes nothing", c.small, {open + "2", line + "0",
            "no", "buttonDelete:click", "?count=3", "yes", "buttonDelete:click",
            "?count=2, index=2, textVNum=95, changed=-"});
    }
}

void EditorRulesTest::script() {
    QFETCH(QString, ext);
    QFETCH(QByteArray, file);
    QFETCH(QStringList, steps);
    withSession(ext, file.toStdString(), {}, [&](auto& s, auto&) {
        QVERIFY(s.opened);
        MARL_PLAY(s.playAll(steps));
        // A window that closed is gone, having reported to the main window once.
        const int closed = s.host.closed;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(s.editor.isNull(), closed == 1);
    });
}

// After Save, Delete, Edit answered Yes and New with a VNum taken, each
// dialog edits the record shown and no other.
void EditorRulesTest::dialogsEditTheShownRecord_data() {
    QTest::addColumn<QString>("ext");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("dialog");
    QTest::addColumn<int>("shown");
    for (const EditorCase& c : cases()) {
        const QString open = c.list + ":dclick:2";
        const QList<std::tuple<QString, QStringList, int>> situations{
            {"after Save", QStringList{open} + c.edit + QStringList{"yes", "buttonSave:click"}, 2},
            {"after Delete", {open, c.list + ":line:0", "yes", "buttonDelete:click"}, 2},
            {"after Edit answered Yes", c.edit + QStringList{"yes", open}, 2},
            {"after New with a VNum taken", QStringList{"buttonNew:click", "textVNum:type:01"} +
                                                c.fill + QStringList{"yes", "buttonSave:click"}, 1}};
        for (const QStringList& dialog : c.dialogs)
            for (const auto& [situation, steps, shown] : situations)
                QTest::newRow(qPrintable(dialog[1].mid(1) + ": " + situation))
                    << c.ext << steps + QStringList{"?dialog=-, changed=-"} << dialog << shown;
    }
}

void EditorRulesTest::dialogsEditTheShownRecord() {
    QFETCH(QString, ext);
    QFETCH(QStringList, steps);
    QFETCH(QStringList, dialog);
    QFETCH(int, shown);
    const EditorCase c = caseOf(ext);
    withSession(ext, c.small, {}, [&](auto& s, auto& table) {
        MARL_PLAY(s.playAll(steps));
        const auto before = table;
        MARL_PLAY(s.playAll(dialog + QStringList{">", "?dialog=-, changed=x"}));
        QCOMPARE(s.editor->currentIndex(), shown);
        for (int slot = 0; slot <= s.editor->recordCount(); ++slot)
            QVERIFY2((table[slot] == before[slot]) == (slot != shown),
                     qPrintable(QString("slot %1").arg(slot)));
    });
}

// A failed save or delete leaves file, table and window as they were; once
// the folder is back the same command writes what it writes in a folder
// that never went away.
void EditorRulesTest::failedWrites_data() {
    QTest::addColumn<QString>("ext");
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("title");
    for (const EditorCase& c : cases()) {
        QTest::newRow(qPrintable(c.noun + ": save over")) << c.ext
            << QStringList{"yes", "buttonSave:click"} << c.noun + " Not Saved";
        QTest::newRow(qPrintable(c.noun + ": save a new one")) << c.ext
            << QStringList{"textVNum:erase", "textVNum:type:9599", "buttonSave:click"}
            << c.noun + " Not Saved";
        // Deleting asks to discard the changes, which then reach no record.
        QTest::newRow(qPrintable(c.noun + ": delete")) << c.ext
            << QStringList{c.list + ":line:1", "yes", "yes", "buttonDelete:click"}
            << c.noun + " Not Deleted";
    }
}

void EditorRulesTest::failedWrites() {
    QFETCH(QString, ext);
    QFETCH(QStringList, command);
    QFETCH(QString, title);
    const EditorCase c = caseOf(ext);
    // The room's north exit, unchecked, is absent from the room once stored.
    QStringList edit = c.edit;
    if (ext == ".wld")
        edit << "checkExitNorth:click";
    QString after;
    withSession(ext, c.small, {}, [&](auto& s, auto&) {
        MARL_PLAY(s.playAll(edit + command));
        after = *s.probe("file");
    });
    withSession(ext, c.small, "zone", [&](auto& s, auto& table) {
        MARL_PLAY(s.playAll(edit));
        checkFailedWrite(s, table, command, title, "buttonSave, changed=x, count=3", after);
    });
}

// Every record of our example and of each stock file shown and saved from
// the window without an edit reads back with its values, the first save
// leaving the bytes of the later records; our example is written byte for
// byte.
void EditorRulesTest::stockRecordsSurvive_data() {
    QTest::addColumn<QString>("path");
    for (const char* ext : {".wld", ".mob", ".obj", ".shp"}) {
        if (ext != QString(".shp"))
            QTest::newRow(qPrintable("95" + QString(ext))) << examplesDir() + "/95" + ext;
        for (const QString& path : corpusFiles(ext))
            QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
    }
}

void EditorRulesTest::stockRecordsSurvive() {
    QFETCH(QString, path);
    if (!QFile::exists(path))
        QSKIP("the stock zone files are not here");
    const auto same = [](const auto& record) { return values(record); };
    if (path.endsWith(".wld"))
        checkRecordsSurviveTheWindow<EditorSession>(readRooms, same);
    else if (path.endsWith(".mob"))
        checkRecordsSurviveTheWindow<MobileSession>(readMobiles, same);
    else if (path.endsWith(".shp"))
        checkRecordsSurviveTheWindow<ShopSession>(readShops, same);
    else
        checkRecordsSurviveTheWindow<ObjectSession>(readObjects, same);
}

// The windows: the kind, the steps opening one (">name" steps into it), and
// how many enabled keyed controls it has at least.
void EditorRulesTest::accessKeys_data() {
    QTest::addColumn<QString>("ext");
    QTest::addColumn<QStringList>("open");
    QTest::addColumn<int>("least");
    const auto row = [](const QString& ext, const QStringList& open, int least) {
        QTest::newRow(qPrintable(ext + " " + open.join(" "))) << ext << open << least;
    };
    for (const EditorCase& c : cases()) {
        // The editor with Save, Edit and Delete enabled: a line chosen after an edit.
        row(c.ext, c.edit + QStringList{c.list + ":line:1"}, c.keys);
        for (const QStringList& dialog : c.dialogs)
            row(c.ext, dialog.mid(0, dialog.indexOf(QRegularExpression(">.*")) + 1), 2);
    }
    const QStringList values{"buttonValues:click", ">formObjectValues"};
    for (const char* type : {"Light", "Scroll", "Wand", "Weapon", "Container", "DrinkCon", "Food"})
        row(".obj", QStringList{"option" + QString(type) + ":click"} + values, 4);
    for (const char* pick : {"Scroll ScrollPotionS1 Spells", "DrinkCon DrinkConFountainLiquid "
                             "Liquids", "Weapon WeaponType WType",
                             "Container ContainerState ContainerState"}) {
        const QStringList part = QString(pick).split(' ');
        row(".obj", QStringList{"option" + part[0] + ":click"} + values +
                        QStringList{"button" + part[1] + ":click", ">formObject" + part[2]}, 3);
    }
}

// Each keyed control in a window opened afresh: Alt and its letter, whatever
// has the focus, click it while its caption reads as it stands.
void EditorRulesTest::accessKeys() {
    QFETCH(QString, ext);
    QFETCH(QStringList, open);
    QFETCH(int, least);
    for (int index = 0, more = 1; more && !QTest::currentTestFailed(); ++index) {
        more = 0;
        withSession(ext, caseOf(ext).small, {}, [&](auto& s, auto&) {
            MARL_PLAY(s.playAll(open));
            QWidget* window = open.last().startsWith('>') ? topLevel(open.last().mid(1))
                                                          : s.editor.data();
            QVERIFY(window);
            const QMap<QChar, QAbstractButton*> keys = keyed(window);
            QVERIFY2(keys.size() >= least, qPrintable(QString::number(keys.size())));
            if (index >= keys.size())
                return;
            more = 1;
            const QChar letter = keys.keys()[index];
            QAbstractButton* control = keys[letter];
            QVERIFY2(control->text().contains(letter, Qt::CaseInsensitive) &&
                         !control->text().contains('&'),
                     qPrintable(control->text()));
            pressAccessKey(window, control->objectName() + ' ' + control->text() + ' ' + letter,
                           s.host.script);
        });
    }
}

void EditorRulesTest::tabOrder_data() {
    QTest::addColumn<QString>("ext");
    QTest::addColumn<QStringList>("open");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QStringList>("walk");
    QTest::newRow("room editor") << ".wld" << QStringList{"listRoomSelect:dclick:1"} << "textDesc"
        << QStringList{"optionSecTypeCity", "checkExitNorth", "checkExitSouth", "checkExitEast",
                       "checkExitWest", "textWestToVNum", "buttonPickWest", "buttonExitWest",
                       "checkExitUp"};
    QTest::newRow("exit dialog: the selected door kind") << ".wld"
        << QStringList{"listRoomSelect:dclick:1", "buttonExitWest:click", ">formRoomDoor"}
        << "textToVNum"
        << QStringList{"buttonPickTo", "checkNowhere", "optionDoor", "textKeyVNum", "buttonPickKey",
                       "checkNoKey"};
    // The temper options are one stop; each list's field, pick and commands
    // come before its list.
    QTest::newRow("shop editor") << ".shp" << QStringList{"listShopSelect:dclick:1",
        "listProducts:line:0"} << "textSellFactor"
        << QStringList{"optionTemperNothing", "textNoSuchItemKeeper", "textNoSuchItemCustomer",
                       "textDoesNotBuy", "textKeeperCannotPay", "textCustomerCannotPay",
                       "textKeeperSells", "textKeeperBuys", "textProduct", "buttonPickProduct",
                       "buttonProductEdit", "buttonProductRemove", "listProducts", "comboBuyType"};
    // The options are one stop, entered at the one selected.
    QTest::newRow("affects") << ".obj" << QStringList{"buttonObjectAffects:click",
        ">formObjectAffects", "optionStr:click", "textValue:type:2", "listObjectAffects:line:0"}
        << "optionStr" << QStringList{"textValue", "listObjectAffects", "buttonAdd", "buttonEdit",
                                      "buttonRemove", "buttonRemoveAll", "buttonClearAll",
                                      "buttonCancel", "buttonDone", "optionStr"};
}

void EditorRulesTest::tabOrder() {
    QFETCH(QString, ext);
    QFETCH(QStringList, open);
    QFETCH(QString, from);
    QFETCH(QStringList, walk);
    withSession(ext, caseOf(ext).small, {}, [&](auto& s, auto&) {
        MARL_PLAY(s.playAll(open));
        QWidget* window = s.editor.data();
        for (const QString& step : open)
            window = step.startsWith('>') ? topLevel(step.mid(1)) : window;
        QVERIFY(window && find(window, from));
        QCOMPARE(tabWalk(window, find(window, from), walk.size()), walk);
    });
}

MARL_TEST_MAIN(EditorRulesTest)
#include "editor_rules_test.moc"
