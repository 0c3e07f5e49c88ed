#pragma once
// What the editor benchmarks share: a main window's side that answers every
// question Yes, and the times of a step reported as median, best and worst.

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QString>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "editor/editor_host.h"
#include "widgets/prompts.h"
#include "world/zone_file.h"

namespace marl::bench {

using Clock = std::chrono::steady_clock;

// Answers every question with Yes and lets every message pass.
class YesPrompts : public Prompts {
public:
    bool ask(const QString&, const QString&) override { return true; }
    void tell(const QString& text, const QString&) override {
        std::fprintf(stderr, "message: %s\n", qPrintable(text));
    }
};

class BenchHost : public EditorHost {
public:
    explicit BenchHost(QString folder) : folder_(std::move(folder)) {}
    QString fileDir() const override { return folder_; }
    Prompts& prompts() override { return prompts_; }
    void editorClosed() override {}

private:
    QString folder_;
    YesPrompts prompts_;
};

// The zone file `source` with its zone's other files (rooms, mobiles,
// objects, resets, shops) copied into `folder`, so that its world's names
// are there.  False when the file itself is not.
inline bool copyZoneFiles(const QFileInfo& source, const QString& folder) {
    for (const char* extension : {".zon", ".wld", ".mob", ".obj", ".shp"})
        QFile::copy(source.path() + '/' + source.baseName() + extension,
                    folder + '/' + source.baseName() + extension);
    if (QFile::exists(folder + '/' + source.fileName()))
        return true;
    std::fprintf(stderr, "cannot read %s\n", qPrintable(source.filePath()));
    return false;
}

inline double millis(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

inline void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-34s median %7.2f ms   best %7.2f ms   worst %7.2f ms   (%zu runs)\n", what,
                times[times.size() / 2], times.front(), times.back(), times.size());
}

// Opens zone `zone` in a new editor `runs` times: the times to the window
// filled.  False, with the reason printed, when the file does not open.
template <typename Window>
bool timeOpening(BenchHost& host, std::int32_t zone, int runs, std::vector<double>& times) {
    for (int run = 0; run < runs; ++run) {
        auto* editor = new Window(host);
        QString error;
        const auto start = Clock::now();
        if (!editor->openZone(zone, error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return false;
        }
        times.push_back(millis(Clock::now() - start));
        delete editor;
    }
    return true;
}

// Saves `runs` times, `change(run)` making the change each save stores:
// the whole time (file read back) and the processor's part of it.
template <typename Window>
bool timeSaving(Window& editor, int runs, const std::function<void(int)>& change,
                std::vector<double>& times, std::vector<double>& cpuTimes) {
    auto* save = editor.template findChild<QPushButton*>(QStringLiteral("buttonSave"));
    for (int run = 0; run < runs; ++run) {
        change(run);
        const auto start = Clock::now();
        const std::clock_t cpuStart = std::clock();
        save->click();
        cpuTimes.push_back(1000.0 * double(std::clock() - cpuStart) / CLOCKS_PER_SEC);
        times.push_back(millis(Clock::now() - start));
        if (editor.changed()) {
            std::fprintf(stderr, "the save did not go through\n");
            return false;
        }
    }
    return true;
}

// The part of a save that is the disk's: the safe write alone, with its
// flush to the disk.
inline std::vector<double> timeWriting(const QString& path, const std::string& bytes, int runs) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        std::string reason;
        const auto start = Clock::now();
        writeZoneFile(QFile::encodeName(path).toStdString(), bytes, reason);
        times.push_back(millis(Clock::now() - start));
    }
    return times;
}

} // namespace marl::bench
