#pragma once
// The main window's side for the benchmarks that open an editor: a folder,
// and prompts that answer every question with Yes and let every message pass.

#include <QString>
#include <cstdio>

#include "editor/editor_host.h"
#include "widgets/prompts.h"

namespace marl::bench {

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

} // namespace marl::bench
