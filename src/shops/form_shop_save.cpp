// What the shop editor's Save refuses and warns of: the server's rules of a
// shop (shop_checks.h), each told at its field, and the keeper, products
// and rooms the zone's files do not hold.

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QStringList>
#include <algorithm>

#include "shops/form_shop.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

bool FormShop::refuseOrWarn(const ShopRecord& shop, const ShopRecord& before) {
    QStringList refused, warned;
    QWidget* first = nullptr;
    for (const ShopProblem& problem : shopProblems(shop, records().file().lineEnd, olderForm())) {
        (problem.refusesSave ? refused : warned).append(fromBytes(problem.what) + '.');
        if (!problem.refusesSave || first)
            continue;
        const std::size_t index = std::size_t(problem.index);
        switch (problem.field) {
        case ShopField::Products:
            first = products_.list;
            break;
        case ShopField::BuyFactor:
            first = textBuyFactor_;
            break;
        case ShopField::SellFactor:
            first = textSellFactor_;
            break;
        case ShopField::BuyTypes:
            first = listBuyTypes_;
            break;
        case ShopField::Message:
            first = messages_[index];
            break;
        case ShopField::Temper:
            first = tempers_->options().front();
            break;
        case ShopField::Flags:
            first = shopFlags_->boxes().front();
            break;
        case ShopField::Keeper:
            first = textKeeper_;
            break;
        case ShopField::TradeWith:
            first = tradeWith_->boxes().front();
            break;
        case ShopField::Rooms:
            first = rooms_.list;
            break;
        case ShopField::Hour:
            first = hours_[index];
            break;
        }
    }
    if (!refused.isEmpty()) {
        host().prompts().tell(twoLines(refused.join(QStringLiteral("\r\n")),
                                       QStringLiteral("Correct it, then Save.")),
                              QStringLiteral("Shop Not Saved"));
        if (first)
            first->setFocus();
        return false;
    }
    const QString missing = missingFromZone(shop, before);
    if (!missing.isEmpty())
        warned.append(missing);
    return warned.isEmpty() || host().prompts().ask(twoLines(warned.join(QStringLiteral("\r\n")),
                                                             QStringLiteral("Save Anyway?")),
                                                    QStringLiteral("Check Shop"));
}

// "The keeper 3099 is not a mobile of the world.", one line each kind, of
// the VNums the builder gave (those the shop held as shown are not asked
// about at every save); nothing while the world is loading.
QString FormShop::missingFromZone(const ShopRecord& shop, const ShopRecord& before) const {
    if (!worldNames() || !worldNames()->hasWorld())
        return {};
    const auto missing = [this](WorldKind kind, const std::vector<std::int32_t>& vnums,
                                const std::vector<std::int32_t>& held) {
        QStringList absent;
        for (std::int32_t vnum : vnums)
            if (!nameOf(kind, vnum) && !absent.contains(QString::number(vnum)) &&
                std::find(held.begin(), held.end(), vnum) == held.end())
                absent.append(QString::number(vnum));
        return absent;
    };
    QStringList lines;
    // "one"/"many" as "keeper is not a mobile"/"keepers are not mobiles".
    const auto say = [&](const QStringList& absent, const char* one, const char* many) {
        if (absent.isEmpty())
            return;
        const QStringList words = QString::fromLatin1(absent.size() == 1 ? one : many).split('|');
        lines.append(QStringLiteral("The %1 %2 %3 of the world.")
                         .arg(words[0], absent.join(QStringLiteral(", ")), words[1]));
    };
    say(missing(WorldKind::Mobile, {shop.Keeper}, {before.Keeper}), "keeper|is not a mobile", "");
    say(missing(WorldKind::Object, shop.Products, before.Products), "product|is not an object",
        "products|are not objects");
    say(missing(WorldKind::Room, shop.Rooms, before.Rooms), "room|is not a room",
        "rooms|are not rooms");
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace marl
