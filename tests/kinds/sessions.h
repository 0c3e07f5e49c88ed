#pragma once
// The three editors under a builder's script: a small zone of each kind, the
// records of a table in a line of text, and a session of any kind with the
// probes "table", "file" and "slotN" (records as the kind's line gives them),
// a room's "absent" (the shown slot's exit marks) and an object's "type".

#include <type_traits>

#include "kinds/zone_kinds.h"
#include "mobiles/form_mobile.h"
#include "objects/form_object.h"
#include "rooms/form_room.h"
#include "script_player.h"
#include "shops/form_shop.h"
#include "zones/form_zone.h"
#include "widgets/qt_text.h"

namespace marl::test {

// "a|b" as lines ended by LF.
inline std::string lfLines(const QString& text) {
    return toBytes(QString(text).replace('|', '\n') + '\n');
}

// Zone 95: three rooms with exits, doors, extra descriptions and flags.
inline std::string smallZone() {
    return lfLines("#9500|The Landing~|A wooden landing.|~|95 0 2|D0|A track north.|~|~|0 -1 9501|"
                   "D1|The river.|~|~|0 -1 -1|E|bell~|A green bell.|~|S|#9501|Reed Cottages~|"
                   "Low cottages.|Smoke curls.|~|95 ad 1|D3|A stout door.|~|door stout~|"
                   "1 9510 9502|S|#9502|The Kitchen~|A warm kitchen.|~|95 k 9|D1|~|door~|"
                   "2 -1 9501|E|ladder~|Worn rungs.|~|E|pot~|Stew.|~|S|$");
}
inline const QString smallRooms =
    "9500 The Landing 0/2 North:0/-1/9501/ East:0/-1/-1/ +bell; 9501 Reed Cottages ad/1 "
    "West:1/9510/9502/door stout; 9502 The Kitchen k/9 East:2/-1/9501/door +ladder +pot";

// Zone 95: a simple mobile, an extended one, and an evil extended one with
// flags and a detailed description of two lines.
inline std::string smallMobiles() {
    return lfLines("#9500|ferryman old~|the old ferryman~|An old ferryman waits.|~|He is old.|~|"
                   "b 0 350 S|5 17 6 2d8+30 1d4+1|25 400|8 8 1|#9501|heron grey~|a grey heron~|"
                   "A heron stands here.|~|Long legs.|~|bg 0 0 E|2 19 8 1d10+8 1d3+0|0 75|8 8 0|"
                   "BareHandAttack: 4|Dex: 16|E|#9502|cutpurse thief~|the wiry cutpurse~|"
                   "A cutpurse loiters.|~|Thin and quick.|His cloak has pockets.|~|cfh bt -450 E|"
                   "7 15 3 3d8+45 1d6+2|120 1100|6 8 1|Str: 14|StrAdd: 20|E|$");
}

// Zone 95: a weapon with two affects, a container locked by key 9510 with an
// extra description, and a potion of three spells with an action description.
inline std::string smallObjects() {
    return lfLines("#9500|sword long~|a long sword~|A long sword lies here.~|~|5 g an|0 2 6 3|"
                   "8 100 10|A|18 1|A|19 2|#9501|chest iron~|an iron chest~|"
                   "An iron chest sits here.~|~|15 0 a|60 13 9510 0|80 150 10|E|chest lock~|"
                   "A heavy lock.|~|#9502|potion green~|a green potion~|A green potion.~|"
                   "It tastes of mud.|~|10 g ao|12 16 14 -1|1 200 5|$");
}

// Zone 95: three shops of the current form, kept by the small zone's three
// mobiles, selling its objects in its rooms; the second buys weapons with
// keywords and takes any other temper (3).
inline const QString shopMessages = "%s No such thing.~|%s You have none.~|%s Not that.~|"
                                    "%s Too dear.~|%s You cannot pay.~|%s That is %d coins.~|"
                                    "%s Here are %d coins.~|";
inline std::string smallShops() {
    const QString& messages = shopMessages;
    return lfLines("CircleMUD v3.0 Shop File~|#9500~|9500|9502|-1|1.15|0.15|-1|" + messages +
                   "0|0|9500|0|9500|-1|0|28|0|0|#9501~|9501|-1|1.5|0.5|WEAPON sharp|3|-1|" +
                   messages + "3|2|9501|2|9501|9502|-1|6|20|0|0|#9502~|-1|1.0|0.2|-1|" + messages +
                   "1|0|9502|0|9502|-1|0|28|0|0|$~");
}

// Rooms: VNum, name, flags/sector, each present exit as
// Direction:kind/key/to/keywords, "+keywords" per extra description;
// "cleared" for a cleared room.
inline QString roomsOf(const RoomTable& table, int count) {
    QStringList rooms;
    for (int slot = 0; slot < count; ++slot) {
        const RoomRecord& room = table[slot];
        QString line = QString("%1 %2 %3/%4").arg(room.VNum).arg(fromBytes(room.Name),
                                                            fromBytes(room.BitV)).arg(room.SecType);
        for (const ExitDef& def : kExits)
            if (const ExitRecord& exit = room.Exits[def.slot]; !exit.Absent)
                line += QString(" %1:%2/%3/%4/%5").arg(def.caption).arg(exit.DoorKind)
                            .arg(exit.KeyVNum).arg(exit.ToVNum).arg(fromBytes(exit.Keywords));
        for (const ExtraDesc& extra : room.ExtraDescs)
            line += extra.Keywords.empty() ? QString() : " +" + fromBytes(extra.Keywords);
        rooms.append(room == RoomRecord{} ? "cleared" : line);
    }
    return rooms.join("; ");
}

// Mobiles: VNum, short description, flags/affects, align and type letter,
// level/THAC0/AC, the dice, gold/XP, positions/gender, each extended value
// not 0 as "KeyN", and "dd=N", the detailed description's length.
inline QString mobilesOf(const MobileTable& table, int count) {
    QStringList mobiles;
    for (int slot = 0; slot < count; ++slot) {
        const MobileRecord& m = table[std::size_t(slot)];
        QString line = QString("%1 %2 %3/%4 %5%6 %7/%8/%9").arg(m.VNum)
                           .arg(fromBytes(m.SDesc), fromBytes(m.ActionBitV), fromBytes(m.AffectBitV))
                           .arg(m.Align).arg(fromBytes(m.TypeLetter)).arg(m.Level).arg(m.THAC0)
                           .arg(m.AC);
        line += QString(" %1 %2 %3/%4 %5/%6/%7").arg(fromBytes(m.MHP), fromBytes(m.BHD))
                    .arg(m.Gold).arg(m.XP).arg(m.LPos).arg(m.DPos).arg(m.Gender);
        for (const ExtendedDef& def : kExtendedValues)
            if (m.*def.field != 0)
                line += QString(" %1%2").arg(QString(def.keyword).chopped(1)).arg(m.*def.field);
        if (!m.DDesc.empty())
            line += QString(" dd=%1").arg(m.DDesc.size());
        mobiles.append(line);
    }
    return mobiles.join("; ");
}

// Objects: VNum, short description, type, effect/wear flags, the values,
// weight/cost/rent, "E=" the extra descriptions' keywords, "A=" the affects
// as location:modifier, "ad=N" the action description's length.
inline QString objectsOf(const ObjectTable& table, int count) {
    QStringList objects;
    for (int slot = 0; slot < count; ++slot) {
        const ObjectRecord& o = table[std::size_t(slot)];
        QString line = QString("%1 %2 t%3 %4/%5 %6,%7,%8,%9").arg(o.VNum).arg(fromBytes(o.SDesc))
                           .arg(o.OType).arg(fromBytes(o.EBitV), fromBytes(o.WBitV))
                           .arg(o.Values[0]).arg(o.Values[1]).arg(o.Values[2]).arg(o.Values[3]);
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

// Shops: VNum, keeper, factors, temper/flags/trade, "P" products, "T" types
// as number:keywords, "R" rooms, "H" hours, "m" the messages' lengths.
inline QString shopsOf(const ShopTable& table, int count) {
    QStringList shops;
    for (int slot = 0; slot < count; ++slot) {
        const ShopRecord& s = table[std::size_t(slot)];
        QString line = QString("%1 k%2 %3/%4 %5/%6/%7").arg(s.VNum).arg(s.Keeper)
                           .arg(fromBytes(s.BuyFactor), fromBytes(s.SellFactor))
                           .arg(s.Temper).arg(s.Flags).arg(s.TradeWith);
        QStringList products, types, rooms, hours, messages;
        for (std::int32_t product : s.Products)
            products << QString::number(product);
        for (const ShopBuyType& type : s.BuyTypes)
            types << QString("%1:%2").arg(type.Type).arg(fromBytes(type.Keywords));
        for (std::int32_t room : s.Rooms)
            rooms << QString::number(room);
        for (std::int32_t hour : s.Hours)
            hours << QString::number(hour);
        for (const std::string& message : s.Messages)
            messages << QString::number(message.size());
        shops.append(line + " P" + products.join(',') + " T" + types.join(',') + " R" +
                     rooms.join(',') + " H" + hours.join(',') + " m" + messages.join(','));
    }
    return shops.join("; ");
}

// An editor of a kind on a zone's file (its New without one).
template <typename Form, typename Kind, QString (*Describe)(const typename Kind::File&, int)>
struct Session : KindSession<Form> {
    explicit Session(const std::string& file, int zone = 95, const QString& folder = {})
        : KindSession<Form>(file, zone, QString::fromLatin1(Kind::info.extension), folder) {
        this->more = [this](const QString& name) -> std::optional<QString> {
            if constexpr (std::is_same_v<Kind, RoomKind>)
                if (name == "absent") {
                    QString absent;
                    for (const ExitRecord& exit : this->editor->records().file()[this->editor->currentIndex()].Exits)
                        absent += exit.Absent ? "x" : "-";
                    return absent;
                }
            if constexpr (std::is_same_v<Kind, ObjectKind>)
                if (name == "type")
                    return QString::number(this->editor->CurrentType());
            return this->recordProbe(name, this->editor->records().file(), Kind::read, Describe);
        };
    }
};
using EditorSession = Session<FormRoom, RoomKind, roomsOf>;
using MobileSession = Session<FormMobile, MobileKind, mobilesOf>;
using ObjectSession = Session<FormObject, ObjectKind, objectsOf>;

// The shop editor, with the zone's mobiles, objects and rooms beside its file
// (zone 95's small ones, or the stock zone's) for the names it shows, read.
struct ShopSession : Session<FormShop, ShopKind, shopsOf> {
    explicit ShopSession(const std::string& file, int zone = 95, const QString& folder = {})
        : Session(file, zone, folder) {
        const QString stock = corpusDir() + '/' + QString::number(zone);
        const std::pair<const char*, std::string (*)()> beside[] = {
            {".mob", smallMobiles}, {".obj", smallObjects}, {".wld", smallZone}};
        for (const auto& [extension, small] : beside)
            writeBytes(host.path(QString::number(zone) + extension),
                       zone == 95 ? small() : readBytes(stock + extension));
        // The world was read before its files were there.
        editor->worldNames()->reload();
        QVERIFY(waitForNames(*editor->worldNames()));
    }
};

// The zone editor on zone 95's reset file (a new one without), beside the
// example rooms, mobiles and objects whose names its lines show; "told" is
// the lines of the last message that name a line of the file.
struct ZoneSession : KindSession<FormZone> {
    explicit ZoneSession(const std::string& file) : KindSession<FormZone>(file, 95, ".zon") {
        for (const char* extension : {".wld", ".mob", ".obj"})
            QFile::copy(examplesDir() + "/95" + extension, host.path(QString("95") + extension));
        editor->worldNames()->reload();
        QVERIFY(waitForNames(*editor->worldNames()));
        more = [this](const QString& name) -> std::optional<QString> {
            if (name != "told")
                return std::nullopt;
            const QStringList lines = host.script.records.isEmpty()
                                          ? QStringList()
                                          : host.script.records.back().text.split('\n');
            return lines.filter(QRegularExpression("^Line ")).join(" / ");
        };
    }
};

} // namespace marl::test
