#pragma once
// Seams for the tests: prompts and a file chooser answered from a script,
// small files written into temporary folders, and the stock corpus.

#include <QString>
#include <QStringList>
#include <QList>
#include <string>
#include <string_view>

#include "editor/editor_host.h"
#include "shell/file_chooser.h"
#include "widgets/prompts.h"

namespace marl {
class WorldNames;
}

namespace marl::test {

struct PromptRecord {
    bool question;  // ask (Yes/No) or tell (OK)
    QString text;
    QString title;
};

// Records every message; answers questions from a queue.  A question with no
// answer queued, and a message while none is expected, fail the test that
// checks `unexpected` (see MARL_VERIFY_PROMPTS).
class ScriptedPrompts : public Prompts {
public:
    bool ask(const QString& text, const QString& title = appTitle()) override;
    void tell(const QString& text, const QString& title = appTitle()) override;

    // Queue the answers to the next questions (true: Yes).
    void answer(std::initializer_list<bool> answers) { answers_.append(answers); }
    // Allow `count` more OK messages.
    void expectTells(int count) { tellsAllowed_ += count; }

    QList<PromptRecord> records;
    // Every message so far as "title: text".
    QStringList messages() const;
    QStringList unexpected;  // what came without being scripted
    bool allAnswered() const { return answers_.isEmpty(); }
    void reset();

private:
    QList<bool> answers_;
    int tellsAllowed_ = 0;
};

// Returns scripted paths; an empty string is a cancelled dialog.
class ScriptedChooser : public FileChooser {
public:
    QString choose(const FileRequest& request) override;
    QStringList paths;
    QList<FileRequest> requests;
};

// Writes bytes to a file, creating it.
void writeBytes(const QString& path, std::string_view bytes);
std::string readBytes(const QString& path);

// The server's stock zone files, or an empty string when they are not here.
QString corpusDir();
QStringList corpusFiles(const QString& extension);  // full paths, sorted

// The project's own example zone files.
QString examplesDir();

// Waits until the world's names are loaded (a reload included); false
// when they are not within a few seconds.
bool waitForNames(WorldNames& names);
// Activates a window and waits until it is the active one: Qt's own wait
// also waits for a frame the offscreen platform never draws.
bool activate(QWidget* window);

// Lines each ended by LF.
std::string lf(std::initializer_list<std::string_view> lines);

} // namespace marl::test

// Fails the running test when a message came that the test did not script.
#define MARL_VERIFY_PROMPTS(prompts)                                                      \
    QVERIFY2((prompts).unexpected.isEmpty(),                                              \
             qPrintable(QStringLiteral("unexpected message: ") + (prompts).unexpected.join(" | ")))
