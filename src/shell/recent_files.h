#pragma once
// The recently used files of each kind, four per kind, most recent first,
// kept in recent.dat between runs.  Each line of recent.dat is one entry in
// the quoted comma-separated form  1,"C:\zones\","30.wld"  ordered kind by
// kind and, within a kind, most recent first.

#include <QList>
#include <QString>
#include <array>

#include "kinds/zone_kinds.h"

namespace marl {

struct RecentEntry {
    QString directory; // ends with the directory separator
    QString fileTitle; // the file name without directory
    bool isEmpty() const { return directory.isEmpty(); }
};

class RecentFiles {
public:
    // `folder` is where recent.dat lives (see recentFolder()).
    explicit RecentFiles(QString folder);

    // Reads recent.dat; a missing file leaves every list empty, and a line
    // that is not a valid entry ends the reading, keeping what was read.
    void load();
    // Puts a chosen file at the top of its kind's list (dropping the fourth)
    // and rewrites recent.dat.  Returns false when it could not be written;
    // the list in memory is updated all the same.
    bool update(int kind, const QString& directory, const QString& fileTitle);

    const RecentEntry& entry(int kind, int index) const {
        return entries_[kind * kRecentPerKind + index];
    }
    // Where recent.dat is read from and written to.
    QString storePath() const;

private:
    bool writeTo(const QString& path) const;

    QString folder_;
    std::array<RecentEntry, kKindCount * kRecentPerKind> entries_;
};

} // namespace marl
