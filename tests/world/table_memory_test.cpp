// The memory a record table takes, counted by this program's own operator
// new: a large stock-like file takes at most 8 times its size, and clearing
// the table gives back what it took beyond its 101 slots.

#include "test_main.h"

#include "zone_files.h"

#include "../../bench/allocation_counter.h"

using namespace marl;

class TableMemoryTest : public QObject {
    Q_OBJECT
private slots:
    void largeFile_data();
    void largeFile();
};

void TableMemoryTest::largeFile_data() {
    test::columns<QString, QString>({"folder", "pattern"});
    // Our own example zone always; the server's stock files when present.
    for (const char* pattern : {"*.wld", "*.mob", "*.obj"}) {
        QTest::newRow(qPrintable(QString("examples ") + (pattern + 1)))
            << test::examplesDir() << pattern;
        QTest::newRow(qPrintable(QString("stock ") + (pattern + 1)))
            << test::corpusDir() << pattern;
    }
}

void TableMemoryTest::largeFile() {
    QFETCH(QString, folder);
    QFETCH(QString, pattern);
    const QFileInfoList files =
        folder.isEmpty() ? QFileInfoList{} : QDir(folder).entryInfoList({pattern}, QDir::Files);
    if (files.isEmpty())
        QSKIP("no such files");
    test::byExtension(pattern.mid(1), [&]<typename Kind>() {
        // The records of every file, repeated until the file holds a few
        // thousand: a zone far beyond 101 records, of stock-like records.
        std::string records;
        for (const QFileInfo& info : files) {
            auto table = std::make_unique<typename Kind::Table>();
            const int count = Kind::read(test::readBytes(info.filePath()), *table);
            for (int slot = 0; slot < count; ++slot)
                records += (*table)[std::size_t(slot)].Source;
        }
        std::string bytes;
        while (bytes.size() < 1'000'000)
            bytes += records;
        bytes += "$\n";

        auto table = std::make_unique<typename Kind::Table>();
        const std::size_t empty = counting::liveBytes;
        const int count = Kind::read(bytes, *table);
        QVERIFY(count > 2000);
        const std::size_t held = counting::liveBytes - empty;
        QVERIFY2(held <= 8 * bytes.size(),
                 qPrintable(QString("%1 bytes held for %2").arg(held).arg(bytes.size())));
        // The 101 slots may keep their strings' room for the next file; all
        // beyond them is given back.
        table->clear();
        const std::size_t kept = counting::liveBytes - empty;
        QVERIFY2(kept <= 2 * held / std::size_t(count) * kTableSlots,
                 qPrintable(QString("%1 bytes kept of %2").arg(kept).arg(held)));
    });
}

MARL_TEST_MAIN(TableMemoryTest)
#include "table_memory_test.moc"
