#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include "editor/world_names.h"

namespace marl::test {

bool ScriptedPrompts::ask(const QString& text, const QString& title) {
    records.append({true, text, title});
    if (answers_.isEmpty()) {
        unexpected.append(title + QStringLiteral(": ") + text);
        return false;
    }
    return answers_.takeFirst();
}

void ScriptedPrompts::tell(const QString& text, const QString& title) {
    records.append({false, text, title});
    if (tellsAllowed_ == 0)
        unexpected.append(title + QStringLiteral(": ") + text);
    else
        --tellsAllowed_;
}

QStringList ScriptedPrompts::messages() const {
    QStringList all;
    for (const PromptRecord& record : records)
        all << record.title + QStringLiteral(": ") + record.text;
    return all;
}

void ScriptedPrompts::reset() {
    records.clear();
    unexpected.clear();
    answers_.clear();
    tellsAllowed_ = 0;
}

QString ScriptedChooser::choose(const FileRequest& request) {
    requests.append(request);
    return paths.isEmpty() ? QString() : paths.takeFirst();
}

void writeBytes(const QString& path, std::string_view bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(path));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string readBytes(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray data = file.readAll();
    return std::string(data.constData(), static_cast<std::size_t>(data.size()));
}

QString corpusDir() {
    const QString dir = QStringLiteral(MARL_CORPUS_DIR);
    return QFileInfo(dir).isDir() ? dir : QString();
}

QStringList corpusFiles(const QString& extension) {
    const QString dir = corpusDir();
    if (dir.isEmpty())
        return {};
    QStringList files;
    for (const QFileInfo& info :
         QDir(dir).entryInfoList({QStringLiteral("*") + extension}, QDir::Files, QDir::Name))
        files.append(info.absoluteFilePath());
    return files;
}

QString examplesDir() { return QStringLiteral(MARL_EXAMPLES_DIR); }

std::string lf(std::initializer_list<std::string_view> lines) {
    std::string out;
    for (std::string_view line : lines) {
        out += line;
        out += '\n';
    }
    return out;
}

bool activate(QWidget* window) {
    window->activateWindow();
    return QTest::qWaitFor([&] { return window->isActiveWindow(); }, 5000);
}

bool waitForNames(WorldNames& names) {
    return QTest::qWaitFor([&] { return names.isReady(); }, 20000);
}

} // namespace marl::test
