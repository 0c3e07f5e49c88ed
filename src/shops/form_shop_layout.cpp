// The shop editor's controls: the shop list on the left with the hours and
// the flags below it; on the right the keeper, the prices and the temper,
// the messages, and the three lists (products, types bought, rooms); the
// commands along the bottom.  The shop list, the messages and the lists
// take what the window gains when it grows.

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "shops/form_shop.h"
#include "widgets/column_delegate.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

constexpr NumericRule kVNumRule{5, false, false, 0, 0};
// Hours as the file has them, a negative one too: Save tells what the
// server does not take.
constexpr NumericRule kHourRule{3, true, false, 0, 0};
// A list line is "VNum<tab>name": the names are drawn at this column.
constexpr int kNameColumn = 7;

QListWidget* entryList(QWidget* parent, const char* name, int columns) {
    auto* list = named(new QListWidget(parent), name);
    list->setFont(fixedFont());
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setItemDelegate(new ColumnDelegate(kNameColumn, list));
    list->setMinimumWidth(widthForColumns(list, columns));
    list->setMinimumHeight(QFontMetrics(list->font()).lineSpacing() * 4 + 8);
    return list;
}

// A list's commands, named after it ("buttonProductAdd"); Remove All has no
// place in the window.
EntryCommands listCommands(QWidget* parent, const QString& noun) {
    const auto make = [&](const char* what) {
        const QByteArray name = ("button" + noun + what).toLatin1();
        return button(parent, name.constData(), what);
    };
    EntryCommands commands;
    commands.add = make("Add");
    commands.edit = make("Edit");
    commands.update = make("Update");
    commands.remove = make("Remove");
    commands.removeAll = make("RemoveAll");
    commands.removeAll->hide();
    return commands;
}

QPushButton* pickButton(QWidget* parent, const char* name, const QString& what) {
    auto* pick = button(parent, name, "...");
    pick->setFixedWidth(QFontMetrics(pick->font()).horizontalAdvance(QStringLiteral("...")) + 16);
    pick->setToolTip(QStringLiteral("Pick %1 of the zone").arg(what));
    return pick;
}

// The field (`top`) above the list, the commands below it.
QGroupBox* listFrame(QWidget* parent, const ShopListText& text, QListWidget* list, QLayout* top,
                     const EntryCommands& commands) {
    auto* box = frame(parent, text.frame, QString::fromLatin1(text.caption));
    list->setParent(box);
    auto* buttons = new QGridLayout;
    int cell = 0;
    for (QPushButton* push : {commands.add, commands.edit, commands.update, commands.remove}) {
        push->setParent(box);
        buttons->addWidget(push, cell / 2, cell % 2);
        ++cell;
    }
    auto* layout = new QVBoxLayout(box);
    layout->addLayout(top);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    return box;
}

} // namespace

QLayout* FormShop::buildList(VNumList& list, const ShopListText& text) {
    list.text = &text;
    list.list = entryList(this, text.list, 20);
    list.field = named(new NumericField(kVNumRule, this), text.field);
    list.field->setFixedWidth(widthForColumns(list.field, 6));
    list.pick = pickButton(this, text.pick, QStringLiteral("a %1").arg(text.noun).toLower());
    list.commands = listCommands(this, QString::fromLatin1(text.noun));
    auto* top = new QHBoxLayout;
    top->addWidget(list.field);
    top->addWidget(list.pick);
    top->addStretch();
    auto* layout = new QVBoxLayout;
    layout->addWidget(listFrame(this, text, list.list, top, list.commands));
    return layout;
}

QLayout* FormShop::buildBuyTypes() {
    listBuyTypes_ = entryList(this, kBuyTypesList.list, 20);
    comboBuyType_ = named(new QComboBox(this), kBuyTypesList.field);
    for (std::size_t type = 0; type < kShopItemTypes.size(); ++type)
        comboBuyType_->addItem(fromBytes(std::string(kShopItemTypes[type])), int(type));
    comboBuyType_->setCurrentIndex(-1);
    comboBuyType_->setToolTip(QStringLiteral("The type of the objects the keeper buys"));
    textKeywords_ = named(new QLineEdit(this), "textKeywords");
    textKeywords_->setPlaceholderText(QStringLiteral("keywords"));
    textKeywords_->setToolTip(
        QStringLiteral("Keywords an object of the type must also have (none: any object)"));
    guardTildeText(textKeywords_);
    typeCommands_ = listCommands(this, QStringLiteral("BuyType"));
    auto* top = new QHBoxLayout;
    top->addWidget(comboBuyType_);
    top->addWidget(textKeywords_, 1);
    auto* layout = new QVBoxLayout;
    layout->addWidget(listFrame(this, kBuyTypesList, listBuyTypes_, top, typeCommands_));
    return layout;
}

void FormShop::buildLayout() {
    // Left: VNum, the shop list, the hours and the flags.
    auto* vnumFrame = frame(this, "frameVNum", QStringLiteral("VNum"));
    textVNum_->setParent(vnumFrame);
    textVNum_->setFixedWidth(widthForColumns(textVNum_, 7));
    auto* vnumLayout = new QHBoxLayout(vnumFrame);
    vnumLayout->addWidget(textVNum_);
    vnumLayout->addStretch();

    auto* selectFrame = frame(this, "frameShopSelect", QStringLiteral("Shop Select"));
    listSelect_->setParent(selectFrame);
    listSelect_->setToolTip(QStringLiteral("The shops by VNum and keeper's name"));
    auto* selectLayout = new QVBoxLayout(selectFrame);
    selectLayout->addWidget(listSelect_);

    auto* hoursFrame = frame(this, "frameHours", QStringLiteral("Open Hours (0-28)"));
    auto* hoursLayout = new QGridLayout(hoursFrame);
    hoursLayout->addWidget(new QLabel(QStringLiteral("Opens"), hoursFrame), 0, 1);
    hoursLayout->addWidget(new QLabel(QStringLiteral("Closes"), hoursFrame), 0, 2);
    hoursLayout->addWidget(new QLabel(QStringLiteral("First period:"), hoursFrame), 1, 0);
    hoursLayout->addWidget(new QLabel(QStringLiteral("Second period:"), hoursFrame), 2, 0);
    for (std::size_t i = 0; i < hours_.size(); ++i) {
        hours_[i] = named(new NumericField(kHourRule, hoursFrame), kShopHourFields[i].control);
        hours_[i]->setFixedWidth(widthForColumns(hours_[i], 4));
        hours_[i]->setToolTip(QString::fromLatin1(kShopHourFields[i].caption));
        hoursLayout->addWidget(hours_[i], 1 + int(i) / 2, 1 + int(i) % 2);
    }
    hoursLayout->setColumnStretch(3, 1);

    auto* flagsFrame = frame(this, "frameShopFlags", QStringLiteral("Shop Flags"));
    shopFlags_ = new FlagGrid(kShopFlags, 2, flagsFrame);
    auto* flagsLayout = new QVBoxLayout(flagsFrame);
    flagsLayout->addWidget(shopFlags_);

    auto* tradeFrame = frame(this, "frameTradeWith", QStringLiteral("Does Not Trade With"));
    tradeWith_ = new FlagGrid(kTradeWithFlags, 2, tradeFrame);
    auto* tradeLayout = new QVBoxLayout(tradeFrame);
    tradeLayout->addWidget(tradeWith_);

    auto* left = new QVBoxLayout;
    left->addWidget(vnumFrame);
    left->addWidget(selectFrame, 1);
    left->addWidget(hoursFrame);
    left->addWidget(flagsFrame);
    left->addWidget(tradeFrame);

    // Right, first row: the keeper, the prices and the temper.
    auto* keeperFrame = frame(this, "frameKeeper", QStringLiteral("Keeper"));
    textKeeper_ = named(new NumericField(kVNumRule, keeperFrame), "textKeeper");
    textKeeper_->setFixedWidth(widthForColumns(textKeeper_, 7));
    textKeeper_->setToolTip(QStringLiteral("The shopkeeper's mobile VNum"));
    buttonPickKeeper_ = pickButton(keeperFrame, "buttonPickKeeper", QStringLiteral("a mobile"));
    labelKeeperName_ = named(
        new VNumNameLabel(textKeeper_, WorldKind::Mobile, nullptr, keeperFrame), "labelKeeperName");
    labelKeeperName_->setMinimumWidth(widthForColumns(labelKeeperName_, 18));
    auto* keeperLayout = new QGridLayout(keeperFrame);
    keeperLayout->addWidget(textKeeper_, 0, 0);
    keeperLayout->addWidget(buttonPickKeeper_, 0, 1);
    keeperLayout->addWidget(labelKeeperName_, 1, 0, 1, 3);
    keeperLayout->setColumnStretch(2, 1);

    auto* factorsFrame = frame(this, "frameFactors", QStringLiteral("Price Factors"));
    textBuyFactor_ = named(new QLineEdit(factorsFrame), "textBuyFactor");
    textSellFactor_ = named(new QLineEdit(factorsFrame), "textSellFactor");
    textBuyFactor_->setToolTip(
        QStringLiteral("What a player pays when buying, times the object's cost"));
    textSellFactor_->setToolTip(
        QStringLiteral("What a player gets when selling, times the object's cost"));
    auto* factorsLayout = new QGridLayout(factorsFrame);
    factorsLayout->addWidget(new QLabel(QStringLiteral("Buying:"), factorsFrame), 0, 0);
    factorsLayout->addWidget(new QLabel(QStringLiteral("Selling:"), factorsFrame), 1, 0);
    for (QLineEdit* field : {textBuyFactor_, textSellFactor_}) {
        guardTildeText(field);
        field->setFixedWidth(widthForColumns(field, 8));
    }
    factorsLayout->addWidget(textBuyFactor_, 0, 1);
    factorsLayout->addWidget(textSellFactor_, 1, 1);

    auto* temperFrame = frame(this, "frameTemper", QStringLiteral("When a Customer Cannot Pay"));
    tempers_ = new OptionGroup(kShopTempers, 1, temperFrame);
    auto* temperLayout = new QVBoxLayout(temperFrame);
    temperLayout->addWidget(tempers_);

    auto* top = new QHBoxLayout;
    top->addWidget(keeperFrame, 1);
    top->addWidget(factorsFrame);
    top->addWidget(temperFrame);

    // The messages, each labelled with when the keeper says it.
    auto* messagesFrame =
        frame(this, "frameMessages", QStringLiteral("Messages (%s the customer)"));
    auto* messagesLayout = new QGridLayout(messagesFrame);
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        messages_[i] = named(new QLineEdit(messagesFrame), kShopMessageFields[i].control);
        guardTildeText(messages_[i]);
        messages_[i]->setMinimumWidth(widthForColumns(messages_[i], 40));
        messages_[i]->setToolTip(QString::fromLatin1(kShopMessageDefs[i].when));
        auto* label = new QLabel(QString::fromLatin1(kShopMessageFields[i].label), messagesFrame);
        label->setBuddy(messages_[i]);
        messagesLayout->addWidget(label, int(i), 0);
        messagesLayout->addWidget(messages_[i], int(i), 1);
    }
    messagesLayout->setColumnStretch(1, 1);

    auto* lists = new QHBoxLayout;
    lists->addLayout(buildList(products_, kProductsList), 1);
    lists->addLayout(buildBuyTypes(), 1);
    lists->addLayout(buildList(rooms_, kRoomsList), 1);

    auto* right = new QVBoxLayout;
    right->addLayout(top);
    right->addWidget(messagesFrame);
    right->addLayout(lists, 1);
    placeLayout(left, right);
    setTabOrderChain();
}

// Tab follows the reading order: the shop's fields from the top, each list
// with its field and commands, then the hours and flags, the commands, and
// the shop list last.
void FormShop::setTabOrderChain() {
    QList<QWidget*> chain{textVNum_, textKeeper_, buttonPickKeeper_, textBuyFactor_,
                          textSellFactor_};
    for (QRadioButton* option : tempers_->options())
        chain.append(option);
    for (QLineEdit* field : messages_)
        chain.append(field);
    const auto commands = [&](const EntryCommands& c) {
        chain << c.add << c.edit << c.update << c.remove;
    };
    chain << products_.field << products_.pick;
    commands(products_.commands);
    chain << products_.list << comboBuyType_ << textKeywords_;
    commands(typeCommands_);
    chain << listBuyTypes_ << rooms_.field << rooms_.pick;
    commands(rooms_.commands);
    chain << rooms_.list;
    for (QLineEdit* field : hours_)
        chain.append(field);
    for (FlagGrid* grid : {shopFlags_, tradeWith_})
        for (QCheckBox* box : grid->boxes())
            chain.append(box);
    chain << buttonNew_ << buttonSave_ << buttonEdit_ << buttonDelete_ << buttonClearAll_
          << buttonCancel_ << buttonDone_ << listSelect_;
    tabChain(chain);
}

} // namespace marl
