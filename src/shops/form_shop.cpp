#include "shops/form_shop.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>

#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

namespace {

// The VNum fields: five digits; the file holds no negative VNum.
constexpr NumericRule kVNumRule{5, false, false, 0, 0};
// A list's own limit: far past what the server keeps, which Save warns of.
constexpr std::size_t kListLimit = 1000;
// The option of any temper but 0 and 1.
constexpr int kOtherTemper = -1;

const char* const kNotSaved = "Shop Not Saved";

QString typeLine(const ShopBuyType& type) {
    const std::string_view name = shopItemTypeName(type.Type);
    QString line = name.empty() ? QString::number(type.Type) : fromBytes(std::string(name));
    if (!type.Keywords.empty())
        line += QLatin1Char(' ') + fromBytes(type.Keywords);
    return line;
}

} // namespace

FormShop::FormShop(EditorHost& host) : KindEditor(host, kVNumRule) {
    buildLayout();
    filling([this] { connectHandlers(); });
}

void FormShop::connectHandlers() {
    connect(textVNum_, &QLineEdit::textChanged, this, &FormShop::onChanged);
    connect(textKeeper_, &QLineEdit::textChanged, this, &FormShop::onChanged);
    connect(buttonPickKeeper_, &QPushButton::clicked, this,
            [this] { onPick(textKeeper_, WorldKind::Mobile); });
    for (QLineEdit* field : {textBuyFactor_, textSellFactor_})
        connect(field, &QLineEdit::textChanged, this, &FormShop::onChanged);
    for (QLineEdit* field : messages_)
        connect(field, &QLineEdit::textChanged, this, &FormShop::onChanged);
    for (NumericField* field : hours_)
        connect(field, &QLineEdit::textChanged, this, &FormShop::onChanged);
    connect(tempers_, &OptionGroup::picked, this, &FormShop::onChanged);
    connect(shopFlags_, &FlagGrid::changed, this, &FormShop::onChanged);
    connect(tradeWith_, &FlagGrid::changed, this, &FormShop::onChanged);
    connectList(products_);
    connectList(rooms_);
    connectBuyTypes();
}

void FormShop::connectList(VNumList& list) {
    NumericField* field = list.field;
    const ShopListText& text = *list.text;
    EntryFields<std::int32_t> fields;
    fields.ready = [field] { return fieldNumber(field).has_value(); };
    fields.read = [field] { return *fieldNumber(field); };
    fields.show = [field](std::int32_t vnum) { field->setText(QString::number(vnum)); };
    fields.clear = [field] { field->clear(); };
    fields.line = [this, &text](std::int32_t vnum) { return vnumLine(text.kind, vnum); };
    fields.added = [field] { field->setFocus(); };
    fields.mayAdd = [this, &text](std::size_t count) { return mayAdd(text, count); };
    list.controller =
        std::make_unique<VNumController>(list.list, list.commands, std::move(fields), kListLimit,
                                         list.changed, [this] { onChanged(); });
    VNumController* controller = list.controller.get();
    connect(field, &QLineEdit::textChanged, this,
            [controller, field] { controller->refresh(fieldNumber(field).has_value()); });
    connect(list.pick, &QPushButton::clicked, this,
            [this, field, &text] { onPick(field, text.kind); });
}

void FormShop::connectBuyTypes() {
    EntryFields<ShopBuyType> fields;
    fields.ready = [this] { return comboBuyType_->currentIndex() >= 0; };
    fields.read = [this] {
        return ShopBuyType{comboBuyType_->currentData().toInt(), toBytes(textKeywords_->text())};
    };
    fields.show = [this](const ShopBuyType& type) {
        int index = comboBuyType_->findData(type.Type);
        if (index < 0) { // a number the server has no name for, shown as it stands
            comboBuyType_->addItem(QString::number(type.Type), type.Type);
            index = comboBuyType_->count() - 1;
        }
        comboBuyType_->setCurrentIndex(index);
        textKeywords_->setText(fromBytes(type.Keywords));
    };
    fields.clear = [this] {
        comboBuyType_->setCurrentIndex(-1);
        textKeywords_->clear();
    };
    fields.line = typeLine;
    fields.added = [this] { comboBuyType_->setFocus(); };
    fields.mayAdd = [this](std::size_t count) { return mayAdd(kBuyTypesList, count); };
    types_ = std::make_unique<TypeController>(listBuyTypes_, typeCommands_, std::move(fields),
                                              kListLimit, typeChanged_, [this] { onChanged(); });
    const auto refresh = [this] { types_->refresh(comboBuyType_->currentIndex() >= 0); };
    connect(comboBuyType_, &QComboBox::currentIndexChanged, this, refresh);
    connect(textKeywords_, &QLineEdit::textChanged, this, refresh);
}

// ---- Names -----------------------------------------------------------------

// The names of the file's world, read in the background: the lists show
// the VNums alone until it is loaded.
void FormShop::worldOpened() {
    labelKeeperName_->setNames(worldNames());
    connect(worldNames().get(), &WorldNames::ready, this, &FormShop::onNamesChanged,
            Qt::UniqueConnection);
    onNamesChanged();
}

void FormShop::onNamesChanged() {
    products_.controller->relabel();
    rooms_.controller->relabel();
    refillList();
}

std::optional<std::string> FormShop::nameOf(WorldKind kind, std::int32_t vnum) const {
    return worldNames() && worldNames()->hasWorld() ? worldNames()->name(kind, vnum) : std::nullopt;
}

QString FormShop::vnumLine(WorldKind kind, std::int32_t vnum) const {
    QString line = QString::number(vnum);
    if (!worldNames() || !worldNames()->hasWorld())
        return line;
    const std::optional<std::string> name = worldNames()->name(kind, vnum);
    return line + QLatin1Char('\t') +
           (name ? fromBytes(*name) : QStringLiteral("(not in zone %1)").arg(zoneNumber()));
}

QString FormShop::listName(int slot) const {
    const std::int32_t keeper = records().file()[std::size_t(slot)].Keeper;
    if (const std::optional<std::string> name = nameOf(WorldKind::Mobile, keeper))
        return fromBytes(*name);
    return QStringLiteral("keeper %1").arg(keeper);
}

void FormShop::onPick(NumericField* field, WorldKind kind) {
    if (!worldNames())
        return;
    if (const std::optional<std::int32_t> vnum =
            pickRecord(this, *worldNames(), kind, fieldNumber(field).value_or(-1)))
        field->setText(QString::number(*vnum));
}

// ---- Record to window ------------------------------------------------------

void FormShop::parseRecord() {
    const ShopRecord& shop = shown();
    textVNum_->setText(QString::number(shop.VNum));
    textKeeper_->setText(QString::number(shop.Keeper));
    textBuyFactor_->setText(fromBytes(shop.BuyFactor));
    textSellFactor_->setText(fromBytes(shop.SellFactor));
    for (std::size_t i = 0; i < messages_.size(); ++i)
        messages_[i]->setText(fromBytes(shop.Messages[i]));
    const bool named = shop.Temper == 0 || shop.Temper == 1;
    otherTemper_ = named ? 2 : shop.Temper;
    tempers_->setNumber(named ? shop.Temper : kOtherTemper);
    // Any number the server reads: bits past the boxes are kept.
    shopFlags_->setFlagText(std::to_string(std::uint32_t(shop.Flags)));
    tradeWith_->setFlagText(std::to_string(std::uint32_t(shop.TradeWith)));
    for (std::size_t i = 0; i < hours_.size(); ++i)
        hours_[i]->setText(QString::number(shop.Hours[i]));
    draft_.Products = shop.Products;
    draft_.BuyTypes = shop.BuyTypes;
    draft_.Rooms = shop.Rooms;
    showLists();
}

// The three lists show the draft, their fields emptied.
void FormShop::showLists() {
    products_.controller->setup(
        Shown<std::vector<std::int32_t>>([this]() -> auto& { return draft_.Products; }));
    rooms_.controller->setup(
        Shown<std::vector<std::int32_t>>([this]() -> auto& { return draft_.Rooms; }));
    types_->setup(Shown<std::vector<ShopBuyType>>([this]() -> auto& { return draft_.BuyTypes; }));
}

void FormShop::clearFields() {
    textKeeper_->clear();
    for (QLineEdit* field : {textBuyFactor_, textSellFactor_})
        field->clear();
    for (QLineEdit* field : messages_)
        field->clear();
    for (QLineEdit* field : hours_)
        field->clear();
    otherTemper_ = 2;
    tempers_->setNumber(0);
    shopFlags_->setFlagText("0");
    tradeWith_->setFlagText("0");
    draft_ = ShopRecord{};
    showLists();
}

// A new shop starts with the prices and hours most shops have: the keeper
// sells at 1.15 times an object's cost, buys at 0.15, open all day.
void FormShop::newFields() {
    textBuyFactor_->setText(QStringLiteral("1.15"));
    textSellFactor_->setText(QStringLiteral("0.15"));
    for (std::size_t i = 0; i < hours_.size(); ++i)
        hours_[i]->setText(i == 1 ? QStringLiteral("28") : QStringLiteral("0"));
}

// ---- Window to record ------------------------------------------------------

void FormShop::fillRecord(ShopRecord& shop) const {
    shop.VNum = fieldNumber(textVNum_).value_or(shop.VNum);
    shop.Keeper = fieldNumber(textKeeper_).value_or(shop.Keeper);
    shop.BuyFactor = toBytes(textBuyFactor_->text());
    shop.SellFactor = toBytes(textSellFactor_->text());
    // A message's inner line breaks stay in the field's text as they were.
    for (std::size_t i = 0; i < messages_.size(); ++i)
        shop.Messages[i] = toBytes(messages_[i]->text());
    const int temper = tempers_->number();
    shop.Temper = temper == kOtherTemper ? otherTemper_ : temper;
    shop.Flags = std::int32_t(shopFlags_->bits());
    shop.TradeWith = std::int32_t(tradeWith_->bits());
    for (std::size_t i = 0; i < hours_.size(); ++i)
        shop.Hours[i] = fieldNumber(hours_[i]).value_or(shop.Hours[i]);
    shop.Products = draft_.Products;
    shop.BuyTypes = draft_.BuyTypes;
    shop.Rooms = draft_.Rooms;
}

void FormShop::storeRecord() {
    fillRecord(pending());
}

bool FormShop::olderForm() const {
    return olderFormAt(records().file(), currentIndex());
}

// A number field that does not read as one would store something the
// builder did not type.
bool FormShop::checkFields() {
    QList<std::pair<NumericField*, QString>> numbers{{textKeeper_, QStringLiteral("Keeper")}};
    for (std::size_t i = 0; i < hours_.size(); ++i)
        numbers.append({hours_[i], QString::fromLatin1(kShopHourFields[i].caption)});
    for (const auto& [field, caption] : numbers) {
        if (fieldNumber(field))
            continue;
        host().prompts().tell(twoLines(QStringLiteral("The %1 Must Be a Number.").arg(caption),
                                       QStringLiteral("Correct it, then Save.")),
                              QString::fromLatin1(kNotSaved));
        field->setFocus();
        return false;
    }
    ShopRecord shop = shown();
    fillRecord(shop);
    return refuseOrWarn(shop, shown());
}

// ---- Changes and lists -----------------------------------------------------

void FormShop::onChanged() {
    HasChanged();
    buttonSave_->setEnabled(!textVNum_->text().isEmpty());
}

bool FormShop::mayAdd(const ShopListText& text, std::size_t count) {
    if (!olderForm() || count < std::size_t(text.olderLimit))
        return true;
    host().prompts().tell(
        twoLines(QStringLiteral("This shop is in a file of the older form, which holds at most "
                                "%1 %2 per shop.")
                     .arg(text.olderLimit)
                     .arg(text.olderLimit == 1 ? QStringLiteral("room")
                                               : QString::fromLatin1(text.many)),
                 QStringLiteral("Remove one to add another.")),
        QStringLiteral("%1 Not Added").arg(QString::fromLatin1(text.caption)));
    return false;
}

} // namespace marl
