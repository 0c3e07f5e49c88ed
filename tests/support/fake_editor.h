#pragma once
// A zone editor that records what the main window asked of it.

#include <QDir>
#include <QStringList>
#include <QWidget>

#include "editor/editor_host.h"

namespace marl::test {

// An editor that records what the main window asked of it.
struct EditorLog {
    QStringList calls;          // "new 30" / "open 30"
    QString currentDirAtCall;   // the current directory when it was called
    QString fileDirAtCall;
    bool failOpen = false;
};

class FakeEditor : public QWidget, public ZoneEditor {
public:
    FakeEditor(EditorHost& host, EditorLog& log) : host_(host), log_(log) {
        setAttribute(Qt::WA_DeleteOnClose);
    }
    QWidget* window() override { return this; }
    void newZone(std::int32_t zone) override { record(QStringLiteral("new %1").arg(zone)); }
    bool openZone(std::int32_t zone, QString& error) override {
        record(QStringLiteral("open %1").arg(zone));
        if (log_.failOpen)
            error = QStringLiteral("%1.wld, line 4: expected the line \"<zone> <flags> <sector>\"").arg(zone);
        return !log_.failOpen;
    }
    void finish() {
        host_.editorClosed();
        close();
    }

private:
    void record(const QString& call) {
        log_.calls << call;
        log_.currentDirAtCall = QDir::currentPath() + QLatin1Char('/');
        log_.fileDirAtCall = host_.fileDir();
    }
    EditorHost& host_;
    EditorLog& log_;
};

} // namespace marl::test
