// room-editor-bench: how long the room editor takes to open a zone file (to
// its list filled and the first room shown) and to save one room (the file
// written and read back), measured on the real window, offscreen.
//
//   ./build/bench/room-editor-bench ../shared/corpus/25.wld   (default file)

#include <QApplication>
#include <QDir>
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
#include "rooms/form_room.h"
#include "rooms/format/room_file.h"
#include "world/zone_file.h"

using namespace marl;
using namespace marl::bench;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString source =
        argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(MARL_CORPUS_DIR "/25.wld");
    const QFileInfo info(source);
    const std::int32_t zone = info.baseName().toInt();
    QTemporaryDir dir;
    const QString copy = dir.path() + '/' + QString::number(zone) + ".wld";
    if (!QFile::copy(source, copy)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(source));
        return 1;
    }
    BenchHost host(dir.path() + '/');
    constexpr int runs = 60;

    std::vector<double> opening;
    for (int run = 0; run < runs; ++run) {
        auto* editor = new FormRoom(host);
        QString error;
        const auto start = Clock::now();
        if (!editor->openZone(zone, error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        opening.push_back(millis(Clock::now() - start));
        delete editor;
    }

    FormRoom editor(host);
    QString error;
    editor.openZone(zone, error);
    editor.show();
    auto* list = editor.findChild<QListWidget*>(QStringLiteral("listRoomSelect"));
    auto* name = editor.findChild<QLineEdit*>(QStringLiteral("textName"));
    auto* save = editor.findChild<QPushButton*>(QStringLiteral("buttonSave"));
    std::vector<double> saving;
    std::vector<double> savingCpu; // the processor's time alone, without waiting for the disk
    for (int run = 0; run < runs; ++run) {
        editor.LoadRoom(run % list->count());
        // A change made and taken back: Save stores the room as shown.
        name->setText(name->text() + QLatin1Char('x'));
        name->setText(name->text().chopped(1));
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
    const std::string bytes = writeRooms(editor.records().file(), editor.recordCount(), zone);
    for (int run = 0; run < runs; ++run) {
        std::string reason;
        const auto start = Clock::now();
        writeZoneFile(QFile::encodeName(copy).toStdString(), bytes, reason);
        writing.push_back(millis(Clock::now() - start));
    }

    std::printf("%s: %d rooms\n", qPrintable(info.fileName()), editor.recordCount());
    report("open to the list filled", opening);
    report("save one room, file read back", saving);
    report("  its processor time", savingCpu);
    report("  the safe write alone", writing);
    return 0;
}
