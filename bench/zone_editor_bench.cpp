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
    for (const char* extension : {".zon", ".wld", ".mob", ".obj"})
        QFile::copy(info.path() + '/' + info.baseName() + extension,
                    dir.filePath(info.baseName() + extension));
    if (!QFile::exists(dir.filePath(info.fileName()))) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(source));
        return 1;
    }
    BenchHost host(dir.path() + '/');
    constexpr int runs = 60;

    std::vector<double> opening;
    for (int run = 0; run < runs; ++run) {
        auto* editor = new FormZone(host);
        QString error;
        const auto start = Clock::now();
        if (!editor->openZone(zone, error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        opening.push_back(millis(Clock::now() - start));
        delete editor;
    }

    FormZone editor(host);
    QString error;
    editor.openZone(zone, error);
    editor.show();
    while (!editor.worldNames()->isReady())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    auto* list = editor.findChild<QListWidget*>(QStringLiteral("listCommands"));
    auto* max = editor.findChild<QLineEdit*>(QStringLiteral("textMaxExisting"));
    auto* save = editor.findChild<QPushButton*>(QStringLiteral("buttonSave"));
    std::vector<double> saving;
    std::vector<double> savingCpu; // the processor's time alone, without waiting for the disk
    int command = 0;
    for (int run = 0; run < runs; ++run) {
        // The next command with a max existing: its count one more.
        do
            list->setCurrentRow(command++ % list->count());
        while (max->isHidden());
        max->setText(QString::number(max->text().toInt() + 1));
        const auto start = Clock::now();
        const std::clock_t cpuStart = std::clock();
        save->click();
        savingCpu.push_back(1000.0 * double(std::clock() - cpuStart) / CLOCKS_PER_SEC);
        saving.push_back(millis(Clock::now() - start));
        if (editor.changed()) {
            std::fprintf(stderr, "the save did not go through\n");
            return 1;
        }
    }
    // The part of a save that is the disk's: the safe write alone, with its
    // flush to the disk.
    std::vector<double> writing;
    const std::string bytes = writeZone(editor.zone());
    for (int run = 0; run < runs; ++run) {
        std::string reason;
        const auto start = Clock::now();
        writeZoneFile(QFile::encodeName(dir.filePath(info.fileName())).toStdString(), bytes,
                      reason);
        writing.push_back(millis(Clock::now() - start));
    }
    std::printf("%s: %d lines\n", qPrintable(info.fileName()), editor.recordCount());
    report("open to the table in words", opening);
    report("save one command, file read back", saving);
    report("  its processor time", savingCpu);
    report("  the safe write alone", writing);
    return 0;
}
