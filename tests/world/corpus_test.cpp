// The server's stock zone files, read and written: every file opens with the
// record count of its `#` headers, what is written reads back to the same
// records, and a file the editor wrote is written again byte for byte.

#include <QtTest>

#include <QRegularExpression>

#include "mobiles/mobile_file.h"
#include "objects/object_file.h"
#include "rooms/room_file.h"
#include "test_support.h"
#include "world/zone.h"

using namespace marl;

namespace {

// The records a file holds by its own account: its `#<vnum>` lines.
int headerLines(const std::string& bytes) {
    static const QRegularExpression header(QStringLiteral("^#[0-9]+[ \\t]*\\r?$"),
                                           QRegularExpression::MultilineOption);
    int count = 0;
    auto it =
        header.globalMatch(QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size())));
    while (it.hasNext()) {
        it.next();
        ++count;
    }
    return count;
}

// read(f) has the header count; read(write(read(f))) equals read(f) field by
// field; write(read(write(read(f)))) equals write(read(f)) byte for byte; and
// the file's line ends are kept.
template <typename Table, typename Read, typename Write>
void roundTrip(const std::string& bytes, Read read, Write write) {
    auto first = std::make_unique<Table>();
    const int count = read(bytes, *first);
    QCOMPARE(count, headerLines(bytes));
    const std::string written = write(*first, count);
    QCOMPARE(written.find('\r') == std::string::npos, bytes.find('\r') == std::string::npos);

    auto second = std::make_unique<Table>();
    QCOMPARE(read(written, *second), count);
    for (int slot = 0; slot < count; ++slot)
        QVERIFY2((*second)[slot] == (*first)[slot],
                 qPrintable(QStringLiteral("slot %1, #%2 reads back differently")
                                .arg(slot)
                                .arg((*first)[slot].VNum)));
    QVERIFY((*second)[count] == (*first)[count]);

    const std::string again = write(*second, count);
    QVERIFY2(again == written, "a written file is not written again byte for byte");
}

void roundTripFile(const QString& path) {
    const std::string bytes = test::readBytes(path);
    const QString name = QFileInfo(path).fileName();
    const std::int32_t zone = zoneFromFileName(name.toStdString()).value_or(0);
    if (name.endsWith(".wld"))
        roundTrip<RoomTable>(bytes, readRooms, [zone](const RoomTable& table, int count) {
            return writeRooms(table, count, zone);
        });
    else if (name.endsWith(".mob"))
        roundTrip<MobileTable>(bytes, readMobiles, writeMobiles);
    else
        roundTrip<ObjectTable>(bytes, readObjects, writeObjects);
}

QStringList zoneFiles(const QString& dir) {
    QStringList files;
    for (const QFileInfo& info :
         QDir(dir).entryInfoList({"*.wld", "*.mob", "*.obj"}, QDir::Files, QDir::Name))
        files += info.absoluteFilePath();
    return files;
}

} // namespace

class CorpusTest : public QObject {
    Q_OBJECT
private slots:
    void everyFileReadsAndWritesBack_data();
    void everyFileReadsAndWritesBack();
    void editorFilesAreWrittenUnchanged_data();
    void editorFilesAreWrittenUnchanged();
};

void CorpusTest::everyFileReadsAndWritesBack_data() {
    QTest::addColumn<QString>("path");
    const QStringList files =
        test::corpusDir().isEmpty() ? QStringList{} : zoneFiles(test::corpusDir());
    if (files.isEmpty())
        QTest::newRow("no corpus") << QString();
    for (const QString& path : files)
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void CorpusTest::everyFileReadsAndWritesBack() {
    QFETCH(QString, path);
    if (path.isEmpty())
        QSKIP("the server's stock zone files are not at ../shared/corpus");
    roundTripFile(path);
}

void CorpusTest::editorFilesAreWrittenUnchanged_data() {
    QTest::addColumn<QString>("path");
    const QStringList files = zoneFiles(test::examplesDir());
    if (files.isEmpty())
        QTest::newRow("no examples") << QString();
    for (const QString& path : files)
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void CorpusTest::editorFilesAreWrittenUnchanged() {
    QFETCH(QString, path);
    if (path.isEmpty())
        QSKIP("no example zone files");
    const std::string bytes = test::readBytes(path);
    const std::string name = QFileInfo(path).fileName().toStdString();
    std::string written;
    if (name.ends_with(".wld")) {
        auto table = std::make_unique<RoomTable>();
        written = writeRooms(*table, readRooms(bytes, *table), zoneFromFileName(name).value_or(0));
    } else if (name.ends_with(".mob")) {
        auto table = std::make_unique<MobileTable>();
        written = writeMobiles(*table, readMobiles(bytes, *table));
    } else {
        auto table = std::make_unique<ObjectTable>();
        written = writeObjects(*table, readObjects(bytes, *table));
    }
    QVERIFY2(written == bytes, "the example is not written back byte for byte");
}

QTEST_GUILESS_MAIN(CorpusTest)
#include "corpus_test.moc"
