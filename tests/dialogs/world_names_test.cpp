// The names of a world beside VNum fields and in the pick list, on a small
// world in the server's layout whose zone 95 rooms are not in the index yet.

#include "test_main.h"

#include "../kinds/sessions.h"
#include "editor/world_names.h"

using namespace marl;
using namespace marl::test;

class WorldNamesTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir_;
    QString file(const QString& name) const { return dir_.filePath(name); }

private slots:
    void initTestCase() {
        for (const char* folder : {"wld", "mob", "obj", "zon"})
            QVERIFY(QDir(dir_.path()).mkdir(folder));
        writeBytes(file("wld/index"), "$\n");
        writeBytes(file("wld/95.wld"), smallZone());
        writeBytes(file("wld/96.wld"), lfLines("#9600|Elsewhere~|x|~|96 0 0|S|$"));
        writeBytes(file("mob/index"), "95.mob\n$\n");
        writeBytes(file("mob/95.mob"), smallMobiles());
        writeBytes(file("obj/index"), "95.obj\n$\n");
        writeBytes(file("obj/95.obj"), smallObjects());
        writeBytes(file("zon/index"), "$\n");
    }

    // Empty while the world loads, then the name, or "no such room" once
    // it is loaded; the world is shared by every file of it.
    void labels_data() {
        QTest::addColumn<WorldKind>("kind");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("own zone, not in the index") << WorldKind::Room << "9501"
                                                    << "Reed Cottages";
        QTest::newRow("a listed file") << WorldKind::Mobile << " 9502"
                                       << "the wiry cutpurse";
        QTest::newRow("an object") << WorldKind::Object << "9501"
                                   << "an iron chest";
        QTest::newRow("another zone not in the index") << WorldKind::Room << "9600"
                                                       << "no such room";
        QTest::newRow("no such object") << WorldKind::Object << "9599"
                                        << "no such object";
        QTest::newRow("empty field") << WorldKind::Room << ""
                                     << "";
        QTest::newRow("nowhere") << WorldKind::Room << "-1"
                                 << "";
    }
    void labels() {
        QFETCH(WorldKind, kind);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        const auto names = WorldNames::forFile(file("wld/95.wld"));
        QCOMPARE(WorldNames::forFile(file("obj/95.obj")), names);
        QWidget window;
        auto* field = new QLineEdit(&window);
        auto* label = new VNumNameLabel(field, kind, names, &window);
        QTest::keyClicks(field, typed);
        QCOMPARE(label->fullText(), QString());
        QVERIFY(waitForNames(*names));
        QCOMPARE(label->fullText(), shown);
        field->clear();
        QCOMPARE(label->fullText(), QString());
        QTest::keyClicks(field, typed);
        QCOMPARE(label->fullText(), shown);
    }

    // The list narrows as the builder types; Enter picks, Escape picks
    // nothing; the field's VNum is selected when the list opens; a reload
    // shows what a Save wrote.
    void pickAndReload() {
        const auto names = WorldNames::forFile(file("wld/95.wld"));
        QVERIFY(waitForNames(*names));
        const auto script = [](const QString& typed, QList<Qt::Key> keys, QString* current) {
            QTimer::singleShot(0, [=] {
                QWidget* pick = QApplication::activeModalWidget();
                QVERIFY(pick);
                auto* list = pick->findChild<QListView*>("listRecords");
                *current = list->currentIndex().data().toString().simplified();
                auto* search = pick->findChild<QLineEdit*>("textSearch");
                QTest::keyClicks(search, typed);
                for (Qt::Key key : keys)
                    QTest::keyClick(search, key);
            });
        };
        QString current;
        script("kitch", {Qt::Key_Return}, &current);
        QCOMPARE(pickRecord(nullptr, *names, WorldKind::Room, 9501), std::optional(9502));
        QCOMPARE(current, QString("9501 Reed Cottages"));
        script("nothing like it", {Qt::Key_Return, Qt::Key_Escape}, &current);
        QCOMPARE(pickRecord(nullptr, *names, WorldKind::Room, 9501), std::nullopt);

        writeBytes(file("wld/95.wld"), lfLines("#9501|Renamed~|x|~|95 0 0|S|$"));
        names->reload();
        QVERIFY(!names->isReady());
        QCOMPARE(names->name(WorldKind::Room, 9500), std::optional<std::string>("The Landing"));
        QVERIFY(waitForNames(*names));
        QCOMPARE(names->name(WorldKind::Room, 9501), std::optional<std::string>("Renamed"));
        QCOMPARE(names->listing(WorldKind::Room).size(), std::size_t(1));
        writeBytes(file("wld/95.wld"), smallZone());
    }
};

MARL_TEST_MAIN(WorldNamesTest)
#include "world_names_test.moc"
