#pragma once
// What the editor benchmarks share: a main window's side that answers every
// question Yes, and the times of a step reported as median, best and worst.

#include <QString>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "editor/editor_host.h"
#include "widgets/prompts.h"

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

inline double millis(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

inline void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-34s median %7.2f ms   best %7.2f ms   worst %7.2f ms   (%zu runs)\n", what,
                times[times.size() / 2], times.front(), times.back(), times.size());
}

} // namespace marl::bench
