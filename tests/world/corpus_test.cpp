// The server's stock zone files, read and written: every file opens with the
// record count of its `#` headers and what is written reads back to the
// same records.  (Our example files, written as the editor writes, are saved
// from the editors byte for byte by each kind's save test.)

#include "test_main.h"

#include "zone_files.h"

#include <QRegularExpression>

using namespace marl;

namespace {

// The records a file holds by its own account: its `#<vnum>` lines.
int headerLines(const std::string& bytes) {
    static const QRegularExpression header(QStringLiteral("^#[0-9]+[ \\t]*\\r?$"),
                                           QRegularExpression::MultilineOption);
    int count = 0;
    for (auto it = header.globalMatch(QString::fromLatin1(bytes)); it.hasNext(); it.next())
        ++count;
    return count;
}

std::string withCrLf(const std::string& lf) {
    return QByteArray::fromStdString(lf).replace("\n", "\r\n").toStdString();
}

// read(f) has the header count and writes back as f byte for byte.  With
// every record stored, write(read(f)) reads back to the same fields as f and
// is written again byte for byte; the line ends are the file's.
template <typename Kind> void roundTrip(const std::string& bytes, std::int32_t zone) {
    auto first = std::make_unique<typename Kind::Table>();
    const int count = Kind::read(bytes, *first);
    QCOMPARE(count, headerLines(bytes));
    QVERIFY2(Kind::write(*first, count, zone) == bytes, "not written back byte for byte");

    test::storeAll(*first, count);
    const std::string written = Kind::write(*first, count, zone);
    QCOMPARE(written.find('\r') == std::string::npos, bytes.find('\r') == std::string::npos);
    auto second = std::make_unique<typename Kind::Table>();
    QCOMPARE(Kind::read(written, *second), count);
    for (int slot = 0; slot <= count; ++slot)
        QVERIFY2(test::sameFields((*second)[slot], (*first)[slot]),
                 qPrintable(QString("slot %1").arg(slot)));
    test::storeAll(*second, count);
    QVERIFY2(Kind::write(*second, count, zone) == written, "not written again byte for byte");
}

void zoneFileRows(const QString& dir, const QString& none,
                  const QStringList& patterns = {"*.wld", "*.mob", "*.obj"}) {
    QTest::addColumn<QString>("path");
    const QFileInfoList files = dir.isEmpty()
                                    ? QFileInfoList{}
                                    : QDir(dir).entryInfoList(patterns, QDir::Files, QDir::Name);
    if (files.isEmpty())
        QTest::newRow("none") << none;
    for (const QFileInfo& info : files)
        QTest::newRow(qPrintable(info.fileName())) << info.absoluteFilePath();
}

} // namespace

class CorpusTest : public QObject {
    Q_OBJECT
private slots:
    void everyFileReadsAndWritesBack_data() {
        zoneFileRows(test::corpusDir(),
                     "the server's stock zone files are not at ../shared/corpus");
    }
    void everyFileReadsAndWritesBack();
    void oneStoredRoomChangesOnlyItsBytes_data() {
        zoneFileRows(test::corpusDir(), "the server's stock zone files are not at ../shared/corpus",
                     QStringList{"*.wld"});
    }
    void oneStoredRoomChangesOnlyItsBytes();
};

void CorpusTest::everyFileReadsAndWritesBack() {
    QFETCH(QString, path);
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string bytes = test::readBytes(path);
    const QString name = QFileInfo(path).fileName();
    const std::int32_t zone = zoneFromFileName(name.toStdString()).value_or(0);
    test::byExtension(name, [&]<typename Kind>() {
        roundTrip<Kind>(bytes, zone);
        // The same file with CR LF line ends reads to the same fields and is
        // written back byte for byte too.
        if (bytes.find('\r') == std::string::npos) {
            const std::string crlfBytes = withCrLf(bytes);
            roundTrip<Kind>(crlfBytes, zone);
            auto lf = std::make_unique<typename Kind::Table>();
            auto crlf = std::make_unique<typename Kind::Table>();
            const int count = Kind::read(bytes, *lf);
            QCOMPARE(Kind::read(crlfBytes, *crlf), count);
            for (int slot = 0; slot < count; ++slot)
                QVERIFY2(test::sameFields((*lf)[slot], (*crlf)[slot]),
                         qPrintable(QString("slot %1").arg(slot)));
        }
    });
}

// One room of a stock world file stored with a new name: the file written
// differs from the old one in that room's bytes alone, and reads back with
// the new name and every other room as it was.  Tried for every room.
void CorpusTest::oneStoredRoomChangesOnlyItsBytes() {
    QFETCH(QString, path);
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string bytes = test::readBytes(path);
    auto table = std::make_unique<RoomTable>();
    const int count = readRooms(bytes, *table);
    std::size_t start = 0;
    for (int slot = 0; slot < count; ++slot) {
        RoomRecord& room = (*table)[std::size_t(slot)];
        const RoomRecord before = room;
        room.Source.clear();
        room.Name += " (changed)";
        const std::string written = writeRooms(*table, count, 0);
        const std::size_t after = bytes.size() - start - before.Source.size();
        QVERIFY2(written.compare(0, start, bytes, 0, start) == 0,
                 qPrintable(QString::number(slot)));
        QVERIFY2(written.size() > after && written.compare(written.size() - after, after, bytes,
                                                           bytes.size() - after) == 0,
                 qPrintable(QString::number(slot)));
        auto again = std::make_unique<RoomTable>();
        QCOMPARE(readRooms(written, *again), count);
        for (int other = 0; other < count; ++other)
            QVERIFY(test::sameFields((*again)[std::size_t(other)], (*table)[std::size_t(other)]));
        room = before;
        start += before.Source.size();
    }
}

MARL_TEST_MAIN(CorpusTest)
#include "corpus_test.moc"
