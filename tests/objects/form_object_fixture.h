#pragma once
// What the object editor's GUI tests share: a small zone of our own, the
// objects of a table in a line of text, and the object editor under a
// builder's script that may step into the dialogs it opens.

#include "objects/form_object.h"
#include "objects/object_file.h"
#include "script_player.h"
#include "widgets/qt_text.h"

namespace marl::test {

// Zone 95: a weapon with two affects, a container locked by key 9510 with
// an extra description, and a potion of three spells with an action
// description.
inline std::string smallObjects() {
    return lf({"#9500",
               "sword long~",
               "a long sword~",
               "A long sword lies here.~",
               "~",
               "5 g an",
               "0 2 6 3",
               "8 100 10",
               "A",
               "18 1",
               "A",
               "19 2",
               "#9501",
               "chest iron~",
               "an iron chest~",
               "An iron chest sits here.~",
               "~",
               "15 0 a",
               "60 13 9510 0",
               "80 150 10",
               "E",
               "chest lock~",
               "A heavy lock.",
               "~",
               "#9502",
               "potion green~",
               "a green potion~",
               "A green potion.~",
               "It tastes of mud.",
               "~",
               "10 g ao",
               "12 16 14 -1",
               "1 200 5",
               "$"});
}

// The objects of a table, "; " between them: VNum, short description, type,
// effect/wear flags, the four values, weight/cost/rent, then "E=" with the
// extra descriptions' keywords, "A=" with the affects as location:modifier
// and the action description's length ("ad=N") when there are any.
inline QString objectsOf(const ObjectTable& table, int count) {
    QStringList objects;
    for (int slot = 0; slot < count; ++slot) {
        const ObjectRecord& o = table[static_cast<std::size_t>(slot)];
        QString line = QString("%1 %2 t%3 %4/%5 %6,%7,%8,%9")
                           .arg(o.VNum)
                           .arg(fromBytes(o.SDesc))
                           .arg(o.OType)
                           .arg(fromBytes(o.EBitV), fromBytes(o.WBitV))
                           .arg(o.Values[0])
                           .arg(o.Values[1])
                           .arg(o.Values[2])
                           .arg(o.Values[3]);
        line += QString(" %1/%2/%3").arg(o.Weight).arg(o.Cost).arg(o.RPD);
        QStringList extras, affects;
        for (std::size_t i = 0; i < o.ExtraDescs.count(); ++i)
            extras << fromBytes(o.ExtraDescs[i].Keywords);
        for (std::size_t i = 0; i < o.Affects.count(); ++i)
            affects << QString("%1:%2").arg(o.Affects[i].Location).arg(o.Affects[i].Modifier);
        if (!extras.isEmpty())
            line += " E=" + extras.join(',');
        if (!affects.isEmpty())
            line += " A=" + affects.join(',');
        if (!o.ADesc.empty())
            line += QString(" ad=%1").arg(o.ADesc.size());
        objects.append(line);
    }
    return objects.join("; ");
}

// The object editor on a zone's file (NewObject without one), with the
// probes of any editor and "table", "file" (objectsOf them), "slotN" (the
// object of slot N) and "type" (CurrentType).
struct ObjectSession : KindSession<FormObject> {
    explicit ObjectSession(const std::string& file, int zone = 95, const QString& folder = {})
        : KindSession<FormObject>(file, zone, ".obj", folder) {
        more = [this](const QString& name) -> std::optional<QString> {
            if (name == "type")
                return QString::number(editor->CurrentType());
            return recordProbe(name, objectTable(), readObjects, objectsOf);
        };
    }
    ~ObjectSession() {
        delete editor.data();
        ClearObjectTable();
    }
};

} // namespace marl::test
