// marl-check --world against the server's own boot: the sample world, and
// worlds made from it with one change each (or written small, as a flat
// folder).  Every SYSERR the server's syntax check (boot-check) logs must be
// reported for the same file and line (a record's message by its VNum), and
// every finding marl-check says the server logs must be in its log.  Some
// findings boot-check cannot confirm: what the server logs only when it
// resets its zones to run the game (a G or E with no mobile before it, a P
// whose container is not loaded, a D on a side with no exit: severity
// "logged-in-game"), and what it accepts without a word ("silent").  Those
// rows say what marl-check must report, and nothing more may be reported.

#include "built_programs.h"
#include "test_main.h"

#include "../world/zone_files.h"
#include "kinds/world_index.h"
#include "kinds/world_model.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <filesystem>
#include <sys/stat.h>

using namespace marl;
namespace fs = std::filesystem;

namespace {

struct Found {
    QString key; // "FILE:LINE:severity", the file relative to the world
    QString text, server;
    int vnum = -1;
};

struct Boot {
    int status = -1;
    QStringList syserrs; // each with its "...offending cmd" line joined on
};

QString sharedDir() {
    return test::corpusDir().isEmpty() ? QString() : test::corpusDir() + "/..";
}

std::pair<int, QString> run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput())};
}

std::pair<int, QList<Found>> check(const QString& world) {
    const auto [status, out] = run(MARL_CHECK_PATH, {"--world", "--json", world});
    QList<Found> found;
    for (const QString& line : out.split('\n', Qt::SkipEmptyParts)) {
        const QJsonObject o = QJsonDocument::fromJson(line.toUtf8()).object();
        if (o.contains("summary"))
            continue;
        const QString file = o["file"].toString().mid(world.size() + 1);
        found.append(
            {QString("%1:%2:%3").arg(file).arg(o["line"].toInt()).arg(o["severity"].toString()),
             o["text"].toString(), o["server"].toString(), o["vnum"].toInt(-1)});
    }
    return {status, found};
}

Boot boot(const QString& world) {
    const auto [status, out] = run(sharedDir() + "/server/boot-check", {world});
    Boot booted{status, {}};
    for (const QString& line : out.split('\n')) {
        const qsizetype at = line.indexOf("SYSERR: ");
        if (at < 0)
            continue;
        if (line.contains("...offending cmd") && !booted.syserrs.isEmpty())
            booted.syserrs.last() += ' ' + line.mid(at + 8);
        else
            booted.syserrs.append(line.mid(at + 8));
    }
    return booted;
}

// Whether a finding stands for the server's line: its words are in it, at
// the zone's line or the record the line names (objects are logged as #-1).
bool stands(const Found& f, const QString& syserr) {
    if (f.server.isEmpty() || !syserr.contains(f.server))
        return false;
    static const QRegularExpression zoneLine("zone #(\\d+), line (\\d+)"),
        vnum("(?:#|vnum |Room )(-?\\d+)");
    if (const auto m = zoneLine.match(syserr); m.hasMatch())
        return f.key.startsWith(QString("zon/%1.zon:%2:").arg(m.captured(1), m.captured(2)));
    const auto m = vnum.match(syserr);
    return !m.hasMatch() || m.captured(1) == "-1" || m.captured(1).toInt() == f.vnum;
}

// The items of `all` that are not in `before` (each of those taken once).
template <typename T, typename Same> QList<T> added(QList<T> all, QList<T> before, Same same) {
    QList<T> left;
    for (const T& item : all) {
        const auto it =
            std::find_if(before.begin(), before.end(), [&](const T& b) { return same(item, b); });
        if (it == before.end())
            left.append(item);
        else
            before.erase(it);
    }
    return left;
}

// Every line the server logs is a finding; every finding said to be logged
// is a line of the log, unless the boot stopped before it got there.
void compare(const QList<Found>& found, const Boot& booted, int status) {
    for (const QString& syserr : booted.syserrs) {
        const bool reported = std::any_of(found.begin(), found.end(),
                                          [&](const Found& f) { return stands(f, syserr); });
        const bool fatal = booted.status != 0 && syserr == booted.syserrs.last() &&
                           std::any_of(found.begin(), found.end(), [](const Found& f) {
                               return f.key.endsWith(":refuses-boot");
                           });
        QVERIFY2(reported || fatal, qPrintable("not reported: " + syserr));
    }
    for (const Found& f : found)
        if (f.key.endsWith(":logged") && booted.status == 0)
            QVERIFY2(std::any_of(booted.syserrs.begin(), booted.syserrs.end(),
                                 [&](const QString& s) { return stands(f, s); }),
                     qPrintable("not in the server's log: " + f.key + ' ' + f.text));
    QCOMPARE(status == 1, booted.status != 0);
}

QString lines(QString text) {
    return text.replace('|', '\n');
}

} // namespace

class WorldCheckTest : public QObject {
    Q_OBJECT
    QString sample_;
    QList<Found> sampleFound_;
    Boot sampleBoot_;

private slots:
    void initTestCase() {
        if (sharedDir().isEmpty())
            QSKIP("../shared is not here");
        sample_ = sharedDir() + "/server/circle/lib/world";
        sampleFound_ = check(sample_).second;
        sampleBoot_ = boot(sample_);
    }

    // The stock world logs resets naming rooms and mobiles that are not
    // there; its exits to zones not in it are silent.
    void sampleWorld() {
        compare(sampleFound_, sampleBoot_, 0);
        QCOMPARE(sampleBoot_.syserrs.size(), 15);
        QStringList severities;
        for (const Found& f : sampleFound_)
            severities.append(f.key.section(':', 2));
        severities.removeDuplicates();
        QCOMPARE(severities, QStringList({"logged", "silent"}));
        QCOMPARE(sampleFound_.size(), 31);
    }

    void worlds_data() {
        // base: "sample" (a copy of the stock world) or "flat" (four small
        // zone files of zone 30).  edits: file, text, its replacement (`|` a
        // line break; a text "$" is the file's last line, "" a new file).
        // found: "FILE:LINE:severity:words" beyond what the base reports,
        // the words being the server's or a piece of the finding's text.
        test::columns<QString, QStringList, QStringList, int>({"base", "edits", "found", "status"});
        const QString cell = "A cell~|A cell.|~|30 0 0|S|";
        // clang-format off
        QTest::newRow("a reset names a mobile that is not there") << "sample" << QStringList{"zon/30.zon", "M 0 3001 1 3009", "M 0 3098 1 3009"}
            << QStringList{"zon/30.zon:12:logged:cmd disabled"} << 0;
        QTest::newRow("a G with no mobile before it") << "sample" << QStringList{"zon/30.zon", "M 0 3000 1 3033 ", "G 0 3050 1 "}
            << QStringList{"zon/30.zon:6:logged-in-game:attempt to give obj to non-existant mob"} << 0;
        QTest::newRow("a P whose container is not loaded") << "sample" << QStringList{"zon/30.zon", "M 0 3001 1 3009 ", "P 0 3010 100 3032 "}
            << QStringList{"zon/30.zon:12:logged-in-game:target obj not found"} << 0;
        QTest::newRow("a D on a side with no exit") << "sample" << QStringList{"zon/30.zon", "M 0 3001 1 3009 ", "D 0 3001 4 1 "}
            << QStringList{"zon/30.zon:12:logged-in-game:door does not exist"} << 0;
        QTest::newRow("the index names a file that is not there") << "sample" << QStringList{"wld/index", "$", "41.wld|"}
            << QStringList{"wld/index:12:refuses-boot:listed in"} << 1;
        QTest::newRow("a file the index does not name") << "sample" << QStringList{"wld/41.wld", "", "#4150|" + cell + "$|"}
            << QStringList{"wld/index:12:silent:does not list 41.wld"} << 0;
        QTest::newRow("a room below its zone") << "sample" << QStringList{"wld/30.wld", "#3001|", "#2999|" + cell + "#3001|"}
            << QStringList{"wld/30.wld:15:refuses-boot:is below zone"} << 1;
        QTest::newRow("a room above every zone") << "sample" << QStringList{"wld/40.wld", "$", "#9000|" + cell}
            << QStringList{"wld/40.wld:1918:refuses-boot:is outside of any zone"} << 1;
        QTest::newRow("a room below the one before it") << "sample" << QStringList{"wld/30.wld", "$", "#3034|" + cell}
            << QStringList{"wld/30.wld:1444:silent:comes after room 3066"} << 0;
        QTest::newRow("rooms out of order hide the start room") << "sample" << QStringList{"wld/30.wld", "#3001|", "#3098|" + cell + "#3001|"}
            << QStringList{":0:refuses-boot:Mortal start room does not exist", "wld/30.wld:21:silent:comes after room 3098", "zon/30.zon:150:logged:cmd disabled",
                           "zon/30.zon:151:logged:cmd disabled", "wld/0.wld:1:silent:up leads to room 3001", "wld/12.wld:49:silent:down leads",
                           "wld/25.wld:3312:silent:up leads", "wld/30.wld:1:silent:east leads", "wld/30.wld:124:silent:north leads",
                           "wld/30.wld:1176:silent:south leads", "wld/30.wld:1366:silent:west leads"} << 1;
        QTest::newRow("a room's unknown flag") << "sample" << QStringList{"wld/30.wld", "30 cdeh 0", "30 cdehz 0"}
            << QStringList{"wld/30.wld:1:logged:unknown room flag"} << 0;
        QTest::newRow("an exit to no room") << "sample" << QStringList{"wld/30.wld", "0 -1 3001|S|#3001", "0 -1 3098|S|#3001"}
            << QStringList{"wld/30.wld:1:silent:leads to room 3098"} << 0;
        QTest::newRow("a door's key is no object") << "sample" << QStringList{"wld/30.wld", "2 3005 7030", "2 3999 7030"}
            << QStringList{"wld/30.wld:727:silent:needs key 3999"} << 0;
        QTest::newRow("a mobile's flags") << "sample" << QStringList{"mob/30.mob", "ablno d 900 S", "abfilnoz d 900 S"}
            << QStringList{"mob/30.mob:1:logged:unknown mobile flag", "mob/30.mob:1:logged:both Aggressive and Aggressive_to_Alignment"} << 0;
        QTest::newRow("an extended line the server does not know") << "sample" << QStringList{"mob/30.mob", "ablno d 900 S|33 2 2 1d1+30000 2d8+18|30000 160000|8 8 1|",
            "ablno d 900 E|33 2 2 1d1+30000 2d8+18|30000 160000|8 8 1|Speed: 3|E|"} << QStringList{"mob/30.mob:1:logged:unrecognized espec keyword"} << 0;
        QTest::newRow("a mobile outside its zone") << "sample" << QStringList{"mob/0.mob", "$", "#500|x~|x~|x|~|x|~|0 0 0 S|1 1 1 1d1+1 1d1+1|0 0|8 8 0|"}
            << QStringList{"mob/0.mob:65:silent:lies outside zone 0's range 0-99"} << 0;
        QTest::newRow("an object's negative weight") << "sample" << QStringList{"obj/30.obj", "12 0 0 0|1 10 10|#3011", "12 0 0 0|-1 10 10|#3011"}
            << QStringList{"obj/30.obj:62:logged:has negative weight"} << 0;
        QTest::newRow("an object's VNum twice") << "sample" << QStringList{"obj/30.obj", "#3001|", "#3000|x~|x~|x~|~|12 0 0|0 0 0 0|0 0 0|#3001|"}
            << QStringList{"obj/30.obj:9:silent:is already at"} << 0;
        QTest::newRow("an object file the server refuses") << "sample" << QStringList{"obj/30.obj", "17 0 1|50 50 1 0|", "17 0 1|50 50 1|"}
            << QStringList{"obj/30.obj:7:refuses-boot:expected"} << 1;
        QTest::newRow("an object file refused after an object the server logs") << "sample" << QStringList{"obj/30.obj", "12 0 0 0|1 10 10|#3011", "12 0 0 0|-1 10 10|#3011", "obj/30.obj", "5 0 0 0|1 5 5|#3012", "5 0 0 0|1 5|#3012"}
            << QStringList{"obj/30.obj:62:logged:has negative weight", "obj/30.obj:77:refuses-boot:expected"} << 1;
        QTest::newRow("a shop's keeper, product and room that are not there") << "sample" << QStringList{"shp/30.shp", "#3001~|3009|", "#3001~|3997|", "shp/30.shp", "2|3001|0|3009|", "2|3999|0|3998|"}
            << QStringList{"shp/30.shp:34:silent:sells object 3997", "shp/30.shp:50:silent:keeper is mobile 3999", "shp/30.shp:52:silent:trades in room 3998"} << 0;
        QTest::newRow("zones that overlap") << "sample" << QStringList{"zon/12.zon", "1200 1299", "1200 1599"}
            << QStringList{"zon/15.zon:3:silent:overlap those of zone 12"} << 0;
        QTest::newRow("a zone's bottom above its top") << "sample" << QStringList{"zon/30.zon", "3000 3099", "3100 3099"}
            << QStringList{"zon/30.zon:3:refuses-boot:bottom VNum 3100 is above"} << 1;
        QTest::newRow("a zone of three numbers") << "sample" << QStringList{"zon/30.zon", "3000 3099", "3099"}
            << QStringList{"zon/30.zon:3:refuses-boot:Format error in numeric constant line"} << 1;
        QTest::newRow("a flat folder without the gods' rooms") << "flat" << QStringList{}
            << QStringList{":0:logged:Immort start room does not exist", ":0:logged:Frozen start room does not exist"} << 0;
        QTest::newRow("a flat folder without the players' room") << "flat" << QStringList{"30.wld", "#3001", "#3002"}
            << QStringList{":0:refuses-boot:Mortal start room does not exist"} << 1;
        QTest::newRow("a zone of a negative number") << "flat" << QStringList{"30.zon", "#30|", "#-30|"}
            << QStringList{":0:logged:Immort start room does not exist", ":0:logged:Frozen start room does not exist"} << 0;
        // clang-format on
    }

    void worlds() {
        QFETCH(QString, base);
        QFETCH(QStringList, edits);
        QFETCH(QStringList, found);
        QFETCH(int, status);
        QTemporaryDir dir;
        const QString world = dir.filePath("world");
        if (base == "sample") {
            fs::copy(sample_.toStdString(), world.toStdString(), fs::copy_options::recursive);
        } else {
            QDir().mkpath(world);
            edits = QStringList{"30.zon",
                                "",
                                "#30|Town~|3000 3099 15 2|S|$|",
                                "30.wld",
                                "",
                                "#3001|Temple~|A temple.|~|30 0 0|S|$|",
                                "30.mob",
                                "",
                                "#3000|wizard~|the wizard~|A wizard.|~|A wizard.|~|0 0 0 S|1 1 1 "
                                "1d1+1 1d1+1|0 0|8 8 1|$|",
                                "30.obj",
                                "",
                                "#3000|barrel~|a barrel~|A barrel.~|~|12 0 1|0 0 0 0|1 1 1|$|"} +
                    edits;
        }
        for (qsizetype i = 0; i + 2 < edits.size(); i += 3) {
            const QString path = world + '/' + edits[i];
            std::string bytes = QFile::exists(path) ? test::readBytes(path) : std::string();
            const std::string from = lines(edits[i + 1]).toStdString(),
                              to = lines(edits[i + 2]).toStdString();
            const std::size_t at = from == "$" ? bytes.rfind("\n$") + 1 : bytes.find(from);
            QVERIFY2(from.empty() || at != std::string::npos, qPrintable(edits[i + 1]));
            bytes = from.empty() ? to : bytes.replace(at, from == "$" ? 0 : from.size(), to);
            test::writeBytes(path, bytes);
        }
        const auto [ran, all] = check(world);
        QCOMPARE(ran, status);
        // Lines move with an edit: a finding of the base is the same text of the same file.
        const auto same = [](const Found& a, const Found& b) {
            return a.key.section(':', 0, 0) == b.key.section(':', 0, 0) &&
                   a.key.section(':', 2) == b.key.section(':', 2) && a.text == b.text;
        };
        const QList<Found> extra =
            added(all, base == "sample" ? sampleFound_ : QList<Found>{}, same);
        QStringList seen;
        for (const Found& f : extra) {
            const auto it = std::find_if(found.begin(), found.end(), [&](const QString& e) {
                return e.section(':', 0, 2) == f.key &&
                       (f.server == e.section(':', 3) || f.text.contains(e.section(':', 3)));
            });
            QVERIFY2(it != found.end(), qPrintable("not expected: " + f.key + ' ' + f.text));
            seen.append(*it);
        }
        seen.sort();
        found.sort();
        QCOMPARE(seen, found);
        const Boot booted = boot(world);
        const Boot before = base == "sample" ? sampleBoot_ : Boot{};
        compare(extra,
                {booted.status, added(booted.syserrs, before.syserrs, std::equal_to<QString>())},
                ran);
    }

    // What the editors ask of a world: the world of the file they open (the
    // server's layout above its folder, or the folder itself), a record's
    // name and place by kind and VNum, a kind's records by VNum.
    void lookups() {
        const World world = loadWorld(worldFolderOf((sample_ + "/wld/30.wld").toStdString()));
        QCOMPARE(QString::fromStdString(world.folder.string()), sample_);
        const WorldRecord* temple = world.find(WorldKind::Room, 3001);
        QVERIFY(temple && temple->name == "The Temple Of Midgaard" && temple->line == 15);
        QVERIFY(world.files[std::size_t(temple->file)].shown.ends_with("wld/30.wld"));
        QCOMPARE(world.find(WorldKind::Mobile, 3000)->name, std::string("the wizard"));
        QVERIFY(!world.find(WorldKind::Object, 6013));
        const auto objects = world.listing(WorldKind::Object);
        QCOMPARE(objects.size(), std::size_t(259));
        QVERIFY(std::is_sorted(objects.begin(), objects.end(),
                               [](auto a, auto b) { return a->vnum < b->vnum; }));
        QCOMPARE(worldFolderOf((test::corpusDir() + "/30.wld").toStdString()),
                 fs::path(test::corpusDir().toStdString()));
    }

    // The index a Save offers to add a new zone file to: the name goes on a
    // line of its own before the `$`, every other byte kept.
    void indexes_data() {
        test::columns<QByteArray, QByteArray, bool>({"index", "added", "listedBefore"});
        QTest::newRow("after the others")
            << QByteArray("30.wld\n$\n") << QByteArray("30.wld\n40.wld\n$\n") << false;
        QTest::newRow("CR LF") << QByteArray("30.wld\r\n$\r\n")
                               << QByteArray("30.wld\r\n40.wld\r\n$\r\n") << false;
        QTest::newRow("what follows the $ kept")
            << QByteArray("$\r\n* zones\r\n") << QByteArray("40.wld\r\n$\r\n* zones\r\n") << false;
        QTest::newRow("no $ line: the name and one")
            << QByteArray("30.wld") << QByteArray("30.wld\n40.wld\n$\n") << false;
        QTest::newRow("names on one line, blanks and CR between")
            << QByteArray("30.wld\t40.wld \r\n$") << QByteArray() << true;
        QTest::newRow("a name after the $ is not read")
            << QByteArray("$\n40.wld\n") << QByteArray("40.wld\n$\n40.wld\n") << false;
    }

    void indexes() {
        QFETCH(QByteArray, index);
        QFETCH(QByteArray, added);
        QFETCH(bool, listedBefore);
        QTemporaryDir dir;
        const QString path = dir.filePath("index");
        const fs::path zone = dir.filePath("40.wld").toStdString();
        QCOMPARE(indexStateOf(zone), IndexState::NoIndex);
        test::writeBytes(path, index.toStdString());
        struct stat before {
        }, after{};
        QVERIFY(::stat(qPrintable(path), &before) == 0);
        QCOMPARE(indexStateOf(zone), listedBefore ? IndexState::Listed : IndexState::NotListed);
        std::string error;
        QVERIFY(addToIndexBeside(zone, error));
        QVERIFY(::stat(qPrintable(path), &after) == 0);
        QCOMPARE(before.st_ino == after.st_ino,
                 listedBefore); // a listed file: the index is not written
        QCOMPARE(QByteArray::fromStdString(test::readBytes(path)), listedBefore ? index : added);
        QCOMPARE(indexStateOf(zone), IndexState::Listed);
    }
};

MARL_TEST_MAIN(WorldCheckTest)
#include "world_check_test.moc"
