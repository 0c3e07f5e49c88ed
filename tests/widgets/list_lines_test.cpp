// What the list dialogs and the editors' lists share: a "caption<tab>value"
// line drawn with its value at one column, and an entry removed from a
// record's slot list with the later ones moving up.

#include "test_main.h"

#include <QtTest>

#include "widgets/column_delegate.h"
#include "widgets/entry_list.h"

using namespace marl;

class ListLinesTest : public QObject {
    Q_OBJECT
private slots:
    void columnLine_data();
    void columnLine();
    void removeEntry_data();
    void removeEntry();
};

void ListLinesTest::columnLine_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("drawn");
    QTest::newRow("vnum and name") << "3001\tthe cityguard" << 7 << "3001   the cityguard";
    QTest::newRow("caption one short of the column") << "300100\tx" << 7 << "300100 x";
    QTest::newRow("caption as long as the column") << "3001000\tx" << 7 << "3001000 x";
    QTest::newRow("longest location") << "SavingBreath\t-2" << 13 << "SavingBreath -2";
    QTest::newRow("empty caption") << "\t5" << 4 << "    5";
    QTest::newRow("empty value") << "Str\t" << 5 << "Str  ";
    QTest::newRow("only the first tab") << "a\tb\tc" << 3 << "a  b\tc";
    QTest::newRow("no tab") << "plain line" << 7 << "plain line";
}

void ListLinesTest::columnLine() {
    QFETCH(QString, line);
    QFETCH(int, column);
    QFETCH(QString, drawn);
    QCOMPARE(marl::columnLine(line, column), drawn);
}

namespace {

using Slots = SlotList<std::string, 4>;

// "a/b" for slots 0 and 1 in use; slots past the count follow a '|'.
QString shown(const Slots& entries) {
    QStringList used, rest;
    for (std::size_t slot = 0; slot < Slots::size(); ++slot)
        (slot < entries.count() ? used : rest).append(QString::fromStdString(entries[slot]));
    return used.join('/') + '|' + rest.join('/');
}

} // namespace

void ListLinesTest::removeEntry_data() {
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("after");
    const QStringList three{"a", "b", "c"};
    QTest::newRow("first") << three << 0 << "b/c|/";
    QTest::newRow("middle") << three << 1 << "a/c|/";
    QTest::newRow("last") << three << 2 << "a/b|/";
    QTest::newRow("the only one") << QStringList{"a"} << 0 << "|///";
    QTest::newRow("from a full list") << QStringList{"a", "b", "c", "d"} << 1 << "a/c/d|";
    QTest::newRow("an empty entry keeps its place") << QStringList{"a", "", "c"} << 0 << "/c|/";
    QTest::newRow("line past the count") << three << 3 << "a/b/c|";
    QTest::newRow("no line") << three << -1 << "a/b/c|";
}

void ListLinesTest::removeEntry() {
    QFETCH(QStringList, entries);
    QFETCH(int, line);
    QFETCH(QString, after);
    Slots list;
    for (const QString& entry : entries)
        list.append() = entry.toStdString();
    marl::removeEntry(list, line);
    QCOMPARE(shown(list), after);
}

MARL_TEST_MAIN(ListLinesTest)
#include "list_lines_test.moc"
