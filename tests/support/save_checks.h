#pragma once
// The saving checks every kind's editor shares: a write that fails, and
// every record of a file shown and saved from the window.

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include "script_player.h"

namespace marl::test {

// A save or delete whose write fails says so, titled `title`, and leaves the
// file, the table and the window (`shown`) as they were; once the folder is
// back the same command writes the file as `after`.  The session was opened
// in a folder of its own and holds an unsaved change.  CI runs as root,
// where permission bits do not stop a write: the zone's folder goes away
// instead and a plain file takes its name.
template <typename Session, typename Table>
void checkFailedWrite(Session& s, const Table& table, const QStringList& command,
                      const QString& title, const QString& shown, const QString& after) {
    const QString folder = s.host.folder.chopped(1);
    QVERIFY(QDir(folder).removeRecursively());
    writeBytes(folder, "not a folder");
    const Table before = table;
    MARL_PLAY(s.playAll(QStringList{"ok"} + command + QStringList{"?" + shown}));
    const PromptRecord& told = s.host.script.records.last();
    const QString name = QFileInfo(s.filePath()).fileName();
    QVERIFY2(told.text.startsWith(name + " could not be written:\r\n") && told.text.size() > 32,
             qPrintable(told.text));
    QCOMPARE(told.title, title);
    QCOMPARE(readBytes(folder), std::string("not a folder"));
    for (int slot = 0; slot < 4; ++slot)
        QVERIFY(table[slot] == before[slot]);

    QVERIFY(QFile::remove(folder) && QDir().mkpath(folder));
    MARL_PLAY(s.playAll(command + QStringList{"?file=" + after}));
}

// Every record of the row's file is shown and saved from the window without
// an edit; the first one saved leaves the bytes of the others, the file then
// reads back with the values it had (`values` makes two records read from
// different bytes comparable), and our own example is written as the window
// writes: byte for byte.
template <typename Session, typename Table, typename Values>
void checkRecordsSurviveTheWindow(int (*read)(std::string_view, Table&), Values values) {
    QFETCH(QString, path);
    if (path.isEmpty())
        QSKIP("the stock zone files are not here");
    const std::string original = readBytes(path);
    auto before = std::make_unique<Table>();
    const int count = read(original, *before);
    Session s(original, QFileInfo(path).baseName().toInt());
    QVERIFY(s.opened);
    for (int slot = 0; slot < count; ++slot) {
        s.editor->LoadRecord(slot);
        s.editor->HasChanged();
        // Each slot holding the VNum asks whether to overwrite it.
        for (int other = 0; other < count; ++other)
            if ((*before)[other].VNum == (*before)[slot].VNum)
                s.host.script.answer({true});
        MARL_PLAY(s.playAll({"buttonSave:click"}));
        QVERIFY2(s.host.script.allAnswered(), qPrintable(QString::number((*before)[slot].VNum)));
        MARL_VERIFY_PROMPTS(s.host.script);
        // Saving the first record leaves the bytes of the others.
        const std::size_t next = original.find("\n#") + 1, rest = original.size() - next;
        if (const std::string now = s.bytes(); slot == 0 && s.host.script.records.size() == 1)
            QVERIFY2(next > 0 && now.size() >= rest && now.substr(now.size() - rest) ==
                     original.substr(next), "the first save changed another record");
    }
    auto after = std::make_unique<Table>();
    QCOMPARE(read(s.bytes(), *after), count);
    for (int slot = 0; slot < count; ++slot)
        QVERIFY2(values((*after)[slot]) == values((*before)[slot]),
                 qPrintable(QString::number((*before)[slot].VNum)));
    if (!path.startsWith(corpusDir()))
        QCOMPARE(s.bytes(), original);
}

// The SYSERR lines the server logs booting the zone files of `folder`, their
// times cut off, or nothing when the server is not beside the project.
inline std::optional<QStringList> serverSyserrs(const QString& folder) {
    const QString bootCheck = corpusDir() + "/../server/boot-check";
    if (corpusDir().isEmpty() || !QFile::exists(bootCheck))
        return std::nullopt;
    QProcess boot;
    boot.start(bootCheck, {folder});
    if (!boot.waitForFinished(120000))
        return QStringList{"boot-check did not finish"};
    QStringList syserrs;
    for (const QString& line : QString::fromLatin1(boot.readAllStandardOutput()).split('\n'))
        if (const qsizetype at = line.indexOf("SYSERR"); at >= 0)
            syserrs.append(line.mid(at));
    if (boot.exitCode() != 0 && syserrs.isEmpty())
        syserrs.append("boot stopped: " + QString::fromLatin1(boot.readAllStandardError()));
    return syserrs;
}

// The server boots zone `zone` with the file saved in `folder` beside the
// stock files of the other kinds, logging no SYSERR that the stock zone
// does not.
inline void checkServerBoots(const QString& folder, int zone) {
    QTemporaryDir stock;
    for (const char* extension : {".wld", ".mob", ".obj", ".zon", ".shp"}) {
        const QString name = QString::number(zone) + extension;
        QFile::copy(corpusDir() + '/' + name, stock.filePath(name));
        QFile::copy(corpusDir() + '/' + name, folder + name); // refused for the saved file
    }
    const std::optional<QStringList> before = serverSyserrs(stock.path());
    if (!before)
        QSKIP("the server is not here");
    const std::optional<QStringList> after = serverSyserrs(folder);
    for (const QString& line : *after)
        QVERIFY2(before->contains(line), qPrintable(line));
}

} // namespace marl::test
