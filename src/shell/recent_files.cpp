#include "shell/recent_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace marl {

namespace {

const QString kFileName = QStringLiteral("recent.dat");

// Reads one quoted field starting at `pos` ("" inside stands for ").
bool readQuoted(const QString& line, int& pos, QString& value) {
    if (pos >= line.size() || line[pos] != QLatin1Char('"'))
        return false;
    ++pos;
    value.clear();
    while (pos < line.size()) {
        const QChar c = line[pos++];
        if (c != QLatin1Char('"')) {
            value += c;
            continue;
        }
        if (pos < line.size() && line[pos] == QLatin1Char('"')) {
            value += c;
            ++pos;
            continue;
        }
        return true;
    }
    return false;
}

QString quoted(QString value) {
    return QLatin1Char('"') + value.replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

// One recent.dat line, parsed; false when it is not a valid entry.
bool parseLine(const QString& line, int& kind, QString& directory, QString& fileTitle) {
    const int comma = line.indexOf(QLatin1Char(','));
    if (comma <= 0)
        return false;
    bool ok = false;
    kind = line.left(comma).trimmed().toInt(&ok);
    if (!ok)
        return false;
    int pos = comma + 1;
    if (!readQuoted(line, pos, directory) || pos >= line.size() || line[pos] != QLatin1Char(','))
        return false;
    ++pos;
    if (!readQuoted(line, pos, fileTitle))
        return false;
    return line.mid(pos).trimmed().isEmpty();
}

QString formatLine(int kind, const QString& directory, const QString& fileTitle) {
    return QString::number(kind) + QLatin1Char(',') + quoted(directory) + QLatin1Char(',') +
           quoted(fileTitle);
}

} // namespace

RecentFiles::RecentFiles(QString folder) : folder_(std::move(folder)) {}

QString RecentFiles::storePath() const {
    return QDir(folder_).filePath(kFileName);
}

void RecentFiles::load() {
    for (RecentEntry& entry : entries_)
        entry = {};
    QFile file(storePath());
    if (!file.open(QIODevice::ReadOnly))
        return;
    std::array<int, kKindCount> counts{};
    while (!file.atEnd()) {
        QString line = QString::fromUtf8(file.readLine());
        while (line.endsWith(QLatin1Char('\n')) || line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (line.isEmpty() && file.atEnd())
            break;
        int kind = 0;
        QString directory, title;
        if (!parseLine(line, kind, directory, title))
            break;
        if (kind < 0 || kind >= kKindCount || counts[kind] >= kRecentPerKind || directory.isEmpty())
            continue;
        entries_[kind * kRecentPerKind + counts[kind]++] = {QDir::fromNativeSeparators(directory),
                                                            title};
    }
}

bool RecentFiles::writeTo(const QString& path) const {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (int kind = 0; kind < kKindCount; ++kind)
        for (int index = 0; index < kRecentPerKind; ++index) {
            const RecentEntry& e = entry(kind, index);
            if (e.isEmpty())
                continue;
            file.write(
                formatLine(kind, QDir::toNativeSeparators(e.directory), e.fileTitle).toUtf8());
            file.write("\r\n");
        }
    return file.commit();
}

bool RecentFiles::update(int kind, const QString& directory, const QString& fileTitle) {
    RecentEntry* list = &entries_[kind * kRecentPerKind];
    for (int index = kRecentPerKind - 1; index > 0; --index)
        list[index] = list[index - 1];
    list[0] = {directory, fileTitle};
    return writeTo(storePath());
}

} // namespace marl
