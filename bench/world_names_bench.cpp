// world-names-bench: the room editor's first paint while the world of its
// file is read in the background, beside the same file in a folder of its
// own, and how long the world's names take to be ready, on the real window
// offscreen.
//
//   world-names-bench WORLD   (make bench: the 100 x world world-bench made)
//
// The file opened is the first room file of WORLD's wld/index.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "editor/world_names.h"
#include "kinds/world_index.h"
#include "rooms/form_room.h"
#include "world/zone.h"
#include "world/zone_file.h"

#include "editor_bench.h"

using namespace marl;
using bench::BenchHost;

namespace {

// Notes when the window first paints.
class PaintWatch : public QObject {
public:
    double at = -1;
    const QElapsedTimer* clock = nullptr;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && at < 0)
            at = double(clock->nsecsElapsed()) / 1e6;
        return false;
    }
};

struct Run {
    double paint, names;
};

// Opens the editor on zone `zone` of `folder`, shows it, and waits for its
// first paint and for its world's names.
Run openOnce(const QString& folder, std::int32_t zone) {
    BenchHost host(folder + '/');
    QElapsedTimer clock;
    PaintWatch watch;
    watch.clock = &clock;
    clock.start();
    auto* editor = new FormRoom(host);
    editor->installEventFilter(&watch);
    QString error;
    if (!editor->openZone(zone, error))
        std::fprintf(stderr, "%s\n", qPrintable(error));
    editor->show();
    const std::shared_ptr<WorldNames> names =
        WorldNames::forFile(folder + '/' + QString::number(zone) + ".wld");
    double ready = -1;
    while (watch.at < 0 || ready < 0) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
        if (ready < 0 && names->isReady())
            ready = double(clock.nsecsElapsed()) / 1e6;
    }
    delete editor;
    return {watch.at, ready};
}

void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("  %-40s median %8.2f ms   best %8.2f ms   worst %8.2f ms\n", what,
                times[times.size() / 2], times.front(), times.back());
}

// The offscreen platform's notes on each window shown say nothing of speed.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtWarningMsg || !message.contains(QLatin1String("propagateSizeHints")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(quiet);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: world-names-bench WORLD\n");
        return 2;
    }
    const QString world = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    std::string index, error;
    if (!readZoneFile(QFile::encodeName(world + "/wld/index").toStdString(), index, error) ||
        readIndex(index).entries.empty()) {
        std::fprintf(stderr, "no rooms listed in %s/wld/index\n", qPrintable(world));
        return 1;
    }
    const std::string first = readIndex(index).entries.front().name;
    const std::int32_t zone = zoneFromFileName(first).value_or(0);
    QTemporaryDir alone;
    QFile::copy(world + "/wld/" + QString::fromStdString(first),
                alone.path() + '/' + QString::number(zone) + ".wld");

    constexpr int runs = 15;
    std::vector<double> paintWith, namesWith, paintAlone, namesAlone;
    for (int run = 0; run < runs; ++run) {
        const Run with = openOnce(world + "/wld", zone);
        paintWith.push_back(with.paint);
        namesWith.push_back(with.names);
        const Run without = openOnce(alone.path(), zone);
        paintAlone.push_back(without.paint);
        namesAlone.push_back(without.names);
    }
    const auto names = WorldNames::forFile(world + "/wld/" + QString::fromStdString(first));
    while (!names->isReady())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    std::printf("world-names-bench: the room editor on %s of %s (%zu rooms in the world), "
                "%d runs, from the window made\n",
                first.c_str(), qPrintable(world), names->listing(WorldKind::Room).size(), runs);
    report("first paint, the world read behind it", paintWith);
    report("first paint, the file alone", paintAlone);
    report("names ready, the whole world", namesWith);
    report("names ready, the file alone", namesAlone);
    return 0;
}
