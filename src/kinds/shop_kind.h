#pragma once
// The shop kind: shop files (.shp), one ShopRecord a shopkeeper.

#include <cstdint>
#include <string>
#include <string_view>

#include "kinds/kind_info.h"
#include "shops/format/shop_checks.h"
#include "shops/format/shop_file.h"

namespace marl {

struct ShopKind {
    using Record = ShopRecord;
    using File = ShopTable;
    using Window = class FormShop;
    static constexpr KindInfo info = {
        3,
        "Shop",
        ".shp",
        "Shop files (*.shp)|*.shp",
        "New Shop File",
        "Open Shop File",
        "shop",
        "shops",
        {"formShop", "Shop Editor", "Changes to Shop Not Saved.", "Shop Not Saved",
         "Shop Not Deleted", "Overwrite Existing Shop?", "Overwrite Existing Shop",
         "Really Delete This Shop?", "Zone Already Contains 99 Shops"}};
    // A shop is a run of `~` texts, not the `#VNum` lines of record_file.h;
    // the server looks shops up one by one, so their order is no finding.
    static constexpr bool tildeRecords = true;

    static int read(std::string_view bytes, File& file) { return readShops(bytes, file); }
    // A shop file holds no zone number.
    static std::string write(const File& file, int count, std::int32_t /*zone*/) {
        return writeShops(file, count);
    }
    // What the server refuses, drops or takes silently of the shop in `slot`,
    // each at its field, in the form the shop is read in there.
    static ShopProblems problems(const File& file, int slot) {
        return shopProblems(file[std::size_t(slot)], file.lineEnd, olderFormAt(file, slot));
    }
    // The list shows the keeper's name where the window knows it; the
    // format library knows only the keeper's VNum.
    static std::string listName(const Record& shop) {
        return "keeper " + std::to_string(shop.Keeper);
    }
};

} // namespace marl
