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
    if (!timeOpening<FormRoom>(host, zone, runs, opening))
        return 1;

    FormRoom editor(host);
    QString error;
    editor.openZone(zone, error);
    editor.show();
    auto* list = editor.findChild<QListWidget*>(QStringLiteral("listRoomSelect"));
    auto* name = editor.findChild<QLineEdit*>(QStringLiteral("textName"));
    std::vector<double> saving, savingCpu;
    // A change made and taken back: Save stores the room as shown.
    const auto change = [&](int run) {
        editor.LoadRoom(run % list->count());
        name->setText(name->text() + QLatin1Char('x'));
        name->setText(name->text().chopped(1));
    };
    if (!timeSaving(editor, runs, change, saving, savingCpu))
        return 1;
    const std::vector<double> writing =
        timeWriting(copy, writeRooms(editor.records().file(), editor.recordCount(), zone), runs);

    std::printf("%s: %d rooms\n", qPrintable(info.fileName()), editor.recordCount());
    report("open to the list filled", opening);
    report("save one room, file read back", saving);
    report("  its processor time", savingCpu);
    report("  the safe write alone", writing);
    return 0;
}
