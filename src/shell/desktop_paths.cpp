#include "shell/desktop_paths.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace marl {

namespace {

// The same folder, however it was spelled (links, `..`, a trailing slash).
bool sameFolder(const QString& a, const QString& b) {
    const QString canonicalA = QFileInfo(a).canonicalFilePath();
    return !canonicalA.isEmpty() && canonicalA == QFileInfo(b).canonicalFilePath();
}

} // namespace

QString recentFolder(const QString& progDir, const QString& buildDir) {
    if (!buildDir.isEmpty() && sameFolder(progDir, buildDir))
        return QDir::fromNativeSeparators(progDir);
    // ~/.config/Marl on Linux (the per-application location would repeat
    // the name, as ~/.config/Marl/Marl).
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Marl"));
}

QString dialogFolder(const QString& lastDir, const QString& progDir, const QString& extension) {
    if (!lastDir.isEmpty() && QFileInfo(lastDir).isDir())
        return QDir::fromNativeSeparators(lastDir);
    const QDir program(progDir);
    if (!program.entryList({QLatin1Char('*') + extension}, QDir::Files).isEmpty())
        return QDir::fromNativeSeparators(progDir);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

} // namespace marl
