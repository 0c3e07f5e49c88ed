// libFuzzer target: arbitrary bytes as a shop file.  What reads is written
// back byte for byte, read back to the same fields and written again the
// same; then every shop is stored as from a window (its bytes gone) and
// written field by field, and the same again.  A shop is stored only with
// factors and keywords the window's Save takes, as the window would.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "round_trip.h"
#include "shops/format/shop_checks.h"

namespace {

using namespace marl;

struct Shops {
    using Table = ShopTable;
    static int read(std::string_view bytes, Table& table) { return readShops(bytes, table); }
    static std::string write(Table& table, int count) { return writeShops(table, count); }
};

bool storable(const ShopRecord& shop) {
    ShopProblems found;
    checkFactors(found, shop);
    checkBuyTypeKeywords(found, shop);
    return found.empty();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto table = std::make_unique<ShopTable>();
    int count = 0;
    try {
        count = readShops(bytes, *table);
    } catch (const FormatError&) {
        return 0; // refused with a message
    }
    if (const std::string written = writeShops(*table, count); written != bytes)
        fuzz::finding("not written back byte for byte", -1, written);
    fuzz::check(Shops::write, Shops::read, *table, count);
    for (int slot = 0; slot < count; ++slot)
        if (ShopRecord& shop = (*table)[std::size_t(slot)]; storable(shop))
            shop.Source.clear();
    fuzz::check(Shops::write, Shops::read, *table, count);
    return 0;
}
