// zone-editor-bench: how long the zone editor takes to open a zone's reset
// file (to its table listed in words) and to save it after one command was
// changed (Save's checks and warnings, the file written and read back, the
// table listed again), on the real window offscreen, the names of the
// world beside it loaded.
//
//   ./build/bench/zone-editor-bench ../shared/corpus/25.zon   (default file)

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

#include "editor_bench.h"
#include "world/zone_file.h"
#include "zones/form_zone.h"
#include "zones/format/zone_reset_file.h"

using namespace marl;
using namespace marl::bench;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString source =
        argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(MARL_CORPUS_DIR "/25.zon");
    const QFileInfo info(source);
    const std::int32_t zone = info.baseName().toInt();
    // The zone's world: its rooms, mobiles and objects beside it.
    QTemporaryDir dir;
    if (!copyZoneFiles(info, dir.path()))
        return 1;
    BenchHost host(dir.path() + '/');
    constexpr int runs = 60;

    std::vector<double> opening;
    if (!timeOpening<FormZone>(host, zone, runs, opening))
        return 1;

    FormZone editor(host);
    QString error;
    editor.openZone(zone, error);
    editor.show();
    while (!editor.worldNames()->isReady())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    auto* list = editor.findChild<QListWidget*>(QStringLiteral("listCommands"));
    auto* max = editor.findChild<QLineEdit*>(QStringLiteral("textMaxExisting"));
    std::vector<double> saving, savingCpu;
    int command = 0;
    // The next command with a max existing: its count one more.
    const auto change = [&](int) {
        do
            list->setCurrentRow(command++ % list->count());
        while (max->isHidden());
        max->setText(QString::number(max->text().toInt() + 1));
    };
    if (!timeSaving(editor, runs, change, saving, savingCpu))
        return 1;
    const std::vector<double> writing =
        timeWriting(dir.filePath(info.fileName()), writeZone(editor.zone()), runs);
    std::printf("%s: %d lines\n", qPrintable(info.fileName()), editor.recordCount());
    report("open to the table in words", opening);
    report("save one command, file read back", saving);
    report("  its processor time", savingCpu);
    report("  the safe write alone", writing);
    return 0;
}
