#pragma once
// formShop: the shop editor.  The list, the commands, saving and the guard
// messages come from the editor core; what is particular to shops is here:
// the keeper, the products, the types bought, the prices, the seven
// messages, the keeper's temper and flags, the customers refused, the rooms
// and the hours of one shop, moved between the window and the record.
//
// The three lists are edited in the window, as the other fields are: Save
// stores them with the rest, and Clear All empties them.

#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "editor/entry_controller.h"
#include "editor/record_editor.h"
#include "editor/world_names.h"
#include "kinds/shop_kind.h"
#include "shops/form_shop_text.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace marl {

class FlagGrid;
class NumericField;
class OptionGroup;

class FormShop : public KindEditor<ShopKind> {
    Q_OBJECT
public:
    explicit FormShop(EditorHost& host);

    // A line of a list of VNums: "3010<tab>a loaf of bread", or "(not in
    // zone 30)" for a VNum the world holds no record of.
    QString vnumLine(WorldKind kind, std::int32_t vnum) const;

protected:
    void parseRecord() override;
    void clearFields() override;
    void storeRecord() override;
    bool checkFields() override;
    void newFields() override;
    void worldOpened() override;
    QString listName(int slot) const override;

private:
    using VNumController = EntryListController<std::int32_t, std::vector<std::int32_t>>;
    using TypeController = EntryListController<ShopBuyType, std::vector<ShopBuyType>>;

    // A list of VNums (products, rooms) with the field beside it.
    struct VNumList {
        const ShopListText* text = nullptr;
        QListWidget* list = nullptr;
        NumericField* field = nullptr;
        QPushButton* pick = nullptr;
        EntryCommands commands;
        std::unique_ptr<VNumController> controller;
        bool changed = false;
    };

    // Layout (form_shop_layout.cpp).
    void buildLayout();
    QLayout* buildList(VNumList& list, const ShopListText& text);
    QLayout* buildBuyTypes();
    void setTabOrderChain();

    void connectHandlers();
    void connectList(VNumList& list);
    void connectBuyTypes();
    // Whether a shop of the older form may take one more entry (told when
    // not).
    bool mayAdd(const ShopListText& text, std::size_t count);
    bool olderForm() const;
    void showLists();
    void onNamesChanged();
    void onChanged();
    void onPick(NumericField* field, WorldKind kind);
    // The window into `shop`: what storeRecord stores.
    void fillRecord(ShopRecord& shop) const;
    // The world's name of a record, once the world is loaded.
    std::optional<std::string> nameOf(WorldKind kind, std::int32_t vnum) const;
    // What the builder hears of the problems of `shop`, shown as `before`;
    // false to save nothing.
    bool refuseOrWarn(const ShopRecord& shop, const ShopRecord& before);
    QString missingFromZone(const ShopRecord& shop, const ShopRecord& before) const;

    // The lists as the window holds them until Save stores them.
    ShopRecord draft_;
    // A temper other than 0 and 1, kept while the third option stays chosen.
    std::int32_t otherTemper_ = 2;

    VNumList products_;
    VNumList rooms_;
    QListWidget* listBuyTypes_ = nullptr;
    QComboBox* comboBuyType_ = nullptr;
    QLineEdit* textKeywords_ = nullptr;
    EntryCommands typeCommands_;
    std::unique_ptr<TypeController> types_;
    bool typeChanged_ = false;

    NumericField* textKeeper_ = nullptr;
    VNumNameLabel* labelKeeperName_ = nullptr;
    QPushButton* buttonPickKeeper_ = nullptr;
    QLineEdit* textBuyFactor_ = nullptr;
    QLineEdit* textSellFactor_ = nullptr;
    OptionGroup* tempers_ = nullptr;
    std::array<QLineEdit*, kShopMessages> messages_{};
    std::array<NumericField*, kShopHours> hours_{};
    FlagGrid* shopFlags_ = nullptr;
    FlagGrid* tradeWith_ = nullptr;
};

} // namespace marl
