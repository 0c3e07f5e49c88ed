#pragma once
// What the mobile editor's GUI tests share: a small zone of our own, the
// mobiles of a table in a line of text, and the mobile editor under a
// builder's script that may step into the dialogs it opens.

#include "mobiles/form_mobile.h"
#include "mobiles/mobile_file.h"
#include "script_player.h"
#include "widgets/qt_text.h"

namespace marl::test {

// Zone 95: three mobiles, one simple, one extended, one evil and extended
// with flags and a detailed description of two lines.
inline std::string smallMobiles() {
    return lf({"#9500",
               "ferryman old~",
               "the old ferryman~",
               "An old ferryman waits.",
               "~",
               "He is old.",
               "~",
               "b 0 350 S",
               "5 17 6 2d8+30 1d4+1",
               "25 400",
               "8 8 1",
               "#9501",
               "heron grey~",
               "a grey heron~",
               "A heron stands here.",
               "~",
               "Long legs.",
               "~",
               "bg 0 0 E",
               "2 19 8 1d10+8 1d3+0",
               "0 75",
               "8 8 0",
               "BareHandAttack: 4",
               "Dex: 16",
               "E",
               "#9502",
               "cutpurse thief~",
               "the wiry cutpurse~",
               "A cutpurse loiters.",
               "~",
               "Thin and quick.",
               "His cloak has pockets.",
               "~",
               "cfh bt -450 E",
               "7 15 3 3d8+45 1d6+2",
               "120 1100",
               "6 8 1",
               "Str: 14",
               "StrAdd: 20",
               "E",
               "$"});
}

// The mobiles of a table, "; " between them: VNum, short description,
// flags/affects, align, type letter, level/THAC0/AC, the dice, gold/XP,
// positions/gender, then each extended value not 0 as "Key=N", and the
// detailed description's length ("dd=N").
inline QString mobilesOf(const MobileTable& table, int count) {
    QStringList mobiles;
    for (int slot = 0; slot < count; ++slot) {
        const MobileRecord& m = table[static_cast<std::size_t>(slot)];
        QString line =
            QString("%1 %2 %3/%4 %5%6 %7/%8/%9")
                .arg(m.VNum)
                .arg(fromBytes(m.SDesc), fromBytes(m.ActionBitV), fromBytes(m.AffectBitV))
                .arg(m.Align)
                .arg(fromBytes(m.TypeLetter))
                .arg(m.Level)
                .arg(m.THAC0)
                .arg(m.AC);
        line += QString(" %1 %2 %3/%4 %5/%6/%7")
                    .arg(fromBytes(m.MHP), fromBytes(m.BHD))
                    .arg(m.Gold)
                    .arg(m.XP)
                    .arg(m.LPos)
                    .arg(m.DPos)
                    .arg(m.Gender);
        for (const ExtendedDef& def : kExtendedValues)
            if (m.*def.field != 0)
                line += QString(" %1%2").arg(QString(def.keyword).chopped(1)).arg(m.*def.field);
        if (!m.DDesc.empty())
            line += QString(" dd=%1").arg(m.DDesc.size());
        mobiles.append(line);
    }
    return mobiles.join("; ");
}

// The mobile editor on a zone's file (NewMobile without one), with the
// probes of any editor and "table", "file" (mobilesOf them) and "slotN" (the
// mobile of slot N).
struct MobileSession : KindSession<FormMobile> {
    explicit MobileSession(const std::string& file, int zone = 95, const QString& folder = {})
        : KindSession<FormMobile>(file, zone, ".mob", folder) {
        more = [this](const QString& name) -> std::optional<QString> {
            return recordProbe(name, mobileTable(), readMobiles, mobilesOf);
        };
    }
    ~MobileSession() {
        delete editor.data();
        ClearMobileTable();
    }
};

} // namespace marl::test
