#pragma once
// Small zone files for the format tests: a file is one text with `|` between
// its lines, tried with CR LF and LF; a record is told in one line (line
// breaks inside texts as `/`).

#include <QtTest>

#include <memory>

#include "kinds/zone_kinds.h"
#include "rooms/room_controls.h"
#include "shops/format/shop_file.h"
#include "test_support.h"
#include "world/record_compare.h"
#include "world/zone.h"
#include "world/zone_file.h"
#include "zones/format/zone_reset_file.h"

namespace marl::test {

inline std::string lines(const QString& text, const char* eol) {
    std::string out;
    if (!text.isEmpty())
        for (const QString& line : text.split('|'))
            out += line.toLatin1().toStdString() + eol;
    return out;
}

inline QString part(const std::string& text) {
    return '[' + QString::fromLatin1(text.data(), qsizetype(text.size())).replace("\r\n", "/") + ']';
}
inline QString part(long long number) { return QString::number(number); }
template <typename... Parts> QString parts(const Parts&... values) {
    return QStringList{part(values)...}.join(' ');
}

inline QString describe(const RoomRecord& r) {
    QString out = '#' + parts(r.VNum, r.Name, r.Desc, r.BitV, r.SecType);
    for (const ExitDef& def : kExits)
        if (const ExitRecord& e = r.Exits[std::size_t(def.slot)]; !e.Absent)
            out += ' ' + QString::fromLatin1(def.caption) + '=' +
                   parts(e.Direction, e.Desc, e.Keywords, e.DoorKind, e.KeyVNum, e.ToVNum);
    for (int i = 0; i < extraDescCount(r.ExtraDescs); ++i)
        out += " E" + parts(r.ExtraDescs[i].Keywords, r.ExtraDescs[i].Desc);
    return out;
}

inline QString describe(const MobileRecord& m) {
    QString out = '#' + parts(m.VNum, m.Alias, m.SDesc, m.LDesc, m.DDesc, m.ActionBitV,
                              m.AffectBitV, m.Align, m.TypeLetter, m.Level, m.THAC0, m.AC, m.MHP,
                              m.BHD, m.Gold, m.XP, m.LPos, m.DPos, m.Gender);
    for (const ExtendedDef& def : kExtendedValues)
        if (m.*def.field != 0)
            out += ' ' + QString::fromLatin1(def.keyword) + part(m.*def.field);
    return out;
}

inline QString describe(const ObjectRecord& o) {
    const auto& v = o.Values;
    QString out = '#' + parts(o.VNum, o.Alias, o.SDesc, o.LDesc, o.ADesc, o.OType, o.EBitV, o.WBitV,
                              v[0], v[1], v[2], v[3], o.Weight, o.Cost, o.RPD);
    for (int i = 0; i < extraDescCount(o.ExtraDescs); ++i)
        out += " E" + parts(o.ExtraDescs[i].Keywords, o.ExtraDescs[i].Desc);
    for (int i = 0; i < affectCount(o); ++i)
        out += " A" + parts(o.Affects[i].Location, o.Affects[i].Modifier);
    return out;
}

inline QString describe(const ShopRecord& s) {
    QString out = '#' + parts(s.VNum, s.BuyFactor, s.SellFactor, s.Temper, s.Flags, s.Keeper,
                              s.TradeWith) + " P";
    for (std::int32_t product : s.Products)
        out += ' ' + part(product);
    for (const ShopBuyType& type : s.BuyTypes)
        out += " T" + parts(type.Type, type.Keywords);
    for (const std::string& message : s.Messages)
        out += ' ' + part(message);
    out += " R";
    for (std::int32_t room : s.Rooms)
        out += ' ' + part(room);
    return out + " H" + parts(s.Hours[0], s.Hours[1], s.Hours[2], s.Hours[3]);
}

// Shop files, beside the kinds' table until the shop window joins it.
struct ShopFileKind {
    using Record = ShopRecord;
    using File = ShopTable;
    static constexpr const KindInfo& info = ShopKind::info;
    static int read(std::string_view bytes, File& table) { return readShops(bytes, table); }
    static std::string write(File& table, int count, std::int32_t) {
        return writeShops(table, count);
    }
};

// The kinds; rooms are written with zone 30 unless a test says otherwise.
template <typename Base> struct Kind : Base {
    static std::string write(typename Base::File& table, int count, std::int32_t zone = 30) {
        return Base::write(table, count, zone);
    }
};
using Rooms = Kind<RoomKind>;
using Mobiles = Kind<MobileKind>;
using Objects = Kind<ObjectKind>;
using Shops = Kind<ShopFileKind>;

// Calls `check.template operator()<Kind>()` with the kind of a file's name.
template <typename Check> void byExtension(const QString& name, Check check) {
    const std::string extension = QFileInfo(name).suffix().prepend('.').toStdString();
    if (extension == ShopKind::info.extension)
        return check.template operator()<Shops>();
    const bool known = withZoneKind(
        extension, [&]<typename Base>() { check.template operator()<Kind<Base>>(); });
    QVERIFY2(known, qPrintable(name));
}

// Slots 0 to count - 1 as if stored from a window: written field by field.
template <typename Table> void storeAll(Table& table, int count) {
    for (int slot = 0; slot < count; ++slot)
        table[std::size_t(slot)].Source.clear();
}

// The file as the editor's save writes it again (zone from the name).
inline std::string rewritten(const QString& path, int* count = nullptr) {
    const QString name = QFileInfo(path).fileName();
    std::string text;
    if (name.endsWith(QLatin1String(".zon"))) { // a zone's reset commands
        ZoneRecord zone;
        const int read = readZone(readBytes(path), zone);
        if (count)
            *count = read;
        return writeZone(zone);
    }
    byExtension(name, [&]<typename Kind>() {
        auto table = std::make_unique<typename Kind::File>();
        const int read = Kind::read(readBytes(path), *table);
        if (count)
            *count = read;
        text = Kind::write(*table, read, zoneFromFileName(name.toStdString()).value_or(0));
    });
    return text;
}

template <typename... Types> void columns(const char* const (&names)[sizeof...(Types)]) {
    std::size_t i = 0;
    (QTest::addColumn<Types>(names[i++]), ...);
}
inline void readColumns() { columns<QString, int, QString>({"file", "count", "first"}); }
inline void refusalColumns() { columns<QString, int, QString>({"file", "line", "expected"}); }
inline void writeColumns() { columns<QString, QString>({"file", "written"}); }

using marl::sameFields;
// The file reads `count` records, the first as `first`, the next slot left
// clear, the line ends kept; written as read it is the file byte for byte.
template <typename Kind> void checkReads() {
    QFETCH(QString, file);
    QFETCH(int, count);
    QFETCH(QString, first);
    for (const char* eol : {"\r\n", "\n"}) {
        auto table = std::make_unique<typename Kind::File>();
        const std::string bytes = lines(file, eol);
        QCOMPARE(Kind::read(bytes, *table), count);
        QCOMPARE(describe((*table)[0]), first);
        QVERIFY((*table)[std::size_t(count)] == typename Kind::Record{});
        QVERIFY(table->lineEnd == (eol[1] ? LineEnd::CrLf : LineEnd::Lf));
        QCOMPARE(Kind::write(*table, count), bytes);
    }
}

// Opening the file fails at `line` expecting `expected`, leaving no record.
template <typename Kind> void checkRefuses() {
    QFETCH(QString, file);
    QFETCH(int, line);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("30.zone"));
    for (const char* eol : {"\r\n", "\n"}) {
        writeBytes(path, lines(file, eol));
        auto table = std::make_unique<typename Kind::File>();
        const LoadOutcome outcome = loadZoneTable(path.toStdString(), *table, Kind::read);
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.line, line);
        QVERIFY2(QString::fromStdString(outcome.problem).contains(expected), outcome.problem.c_str());
        QVERIFY((*table)[0] == typename Kind::Record{});
    }
}

// `bytes` stored and written (`lf`: a table never read writes LF) reads back
// to the same fields and is written again byte for byte.  Returns it.
template <typename Kind>
std::string storedRoundTrip(const std::string& bytes, std::int32_t zone = 30, bool lf = false) {
    auto table = std::make_unique<typename Kind::File>();
    if (lf)
        table->lineEnd = LineEnd::Lf;
    const int count = bytes.empty() ? 0 : Kind::read(bytes, *table);
    storeAll(*table, count);
    const std::string text = Kind::write(*table, count, zone);
    auto again = std::make_unique<typename Kind::File>();
    [&] {
        QCOMPARE(Kind::read(text, *again), count);
        for (std::size_t slot = 0; slot <= std::size_t(count); ++slot) {
            QCOMPARE(describe((*again)[slot]), describe((*table)[slot]));
            QVERIFY2(sameFields((*again)[slot], (*table)[slot]), qPrintable(QString::number(slot)));
        }
        storeAll(*again, count);
        QCOMPARE(Kind::write(*again, count, zone), text);
    }();
    return text;
}

// The file read and every record stored is written as `written` (`=`: the
// file itself) and round trips; an empty file is a table never read.
template <typename Kind> void checkWrites() {
    QFETCH(QString, file);
    QFETCH(QString, written);
    for (const char* eol : {"\r\n", "\n"}) {
        const std::string text = storedRoundTrip<Kind>(lines(file, eol), 30, !eol[1]);
        QCOMPARE(QByteArray::fromStdString(text),
                 QByteArray::fromStdString(lines(written == "=" ? file : written, eol)));
    }
}

} // namespace marl::test
