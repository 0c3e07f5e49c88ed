// shop-editor-bench: how long the shop editor takes to open a zone's shop
// file (to its first shop shown) and to save a shop after one change (Save's
// checks and questions, the file written and read back), on the real window
// offscreen, the names of the world beside it loaded.
//
//   ./build/bench/shop-editor-bench ../shared/corpus/30.shp   (default file)

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <cstdio>
#include <vector>

#include "editor_bench.h"
#include "shops/form_shop.h"
#include "shops/format/shop_file.h"

using namespace marl;
using namespace marl::bench;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QFileInfo info(argc > 1 ? QString::fromLocal8Bit(argv[1])
                                  : QStringLiteral(MARL_CORPUS_DIR "/30.shp"));
    QTemporaryDir dir;
    if (!copyZoneFiles(info, dir.path()))
        return 1;
    BenchHost host(dir.path() + '/');
    const std::int32_t zone = info.baseName().toInt();
    constexpr int runs = 60;

    std::vector<double> opening;
    if (!timeOpening<FormShop>(host, zone, runs, opening))
        return 1;

    FormShop editor(host);
    QString error;
    editor.openZone(zone, error);
    editor.show();
    while (!editor.worldNames()->isReady())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    auto* factor = editor.findChild<QLineEdit*>(QStringLiteral("textBuyFactor"));
    std::vector<double> saving, savingCpu;
    // The buying factor of the shop shown, another each time.
    const auto change = [&](int run) { factor->setText(QString::number(2.0 + run / 100.0)); };
    if (!timeSaving(editor, runs, change, saving, savingCpu))
        return 1;
    std::printf("%s: %d shops\n", qPrintable(info.fileName()), editor.recordCount());
    report("open to the first shop shown", opening);
    report("save one shop, file read back", saving);
    report("  its processor time", savingCpu);
    return 0;
}
