// What the list dialogs and the editors' lists share: a "caption<tab>value"
// line drawn with its value at one column.

#include <QtTest>

#include "widgets/column_delegate.h"

using namespace marl;

class ListLinesTest : public QObject {
    Q_OBJECT
private slots:
    void columnLine_data();
    void columnLine();
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

QTEST_MAIN(ListLinesTest)
#include "list_lines_test.moc"
