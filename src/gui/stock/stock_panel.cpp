#include "gui/stock/stock_panel.h"

#include "gui/platform/grid_view.h"
#include "gui/platform/history_box.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"
#include "gui/stock/last_paid_line.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QMenu>

namespace bramblet {

StockPanel::StockPanel(StockList& stock, LineItems& lines, PaidReader& reader, QWidget* parent)
    : QWidget(parent), stock_(stock), lines_(lines), reader_(reader) {
    makeGrid();
    fill(this, row(10, {grow(grid_), makeEditor()}));
}

void StockPanel::makeGrid() {
    grid_ = new GridView("StockGrid", u"Stock items"_s,
                         u"Stock items to pick from (double-click, add to order)."_s, stock_, 5);
    grid_->horizontalHeader()->setSectionsMovable(true);
    auto* menu = new QMenu(this);
    menu->setObjectName(u"itemspop"_s);
    addEntry(menu, "ItemsPopDelete", u"&Delete"_s, {}, [this] { stock_.DeleteStockItem_Click(); });
    onHand_ = addEntry(menu, "ItemsPopOnHand", u"&On Hand"_s, {},
                       [this] { stock_.ItemsPopOnHand_Click(grid_->currentRow()); });

    connect(grid_, &GridView::rowClicked, this, [this](int row) { stock_.StockGrid_Click(row); });
    connect(grid_, &GridView::rowReached, this, [this](int row) { stock_.StockGrid_Click(row); });
    connect(grid_, &GridView::rowDoubleClicked, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::rowEntered, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::insertPressed, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::deletePressed, this, [this] { stock_.DeleteStockItem_Click(); });
    connect(grid_, &GridView::headingClicked, this, [this](int column) { stock_.sortBy(column); });
    connect(grid_, &GridView::menuRequested, this, [this, menu](const QPoint& place) {
        if (grid_->currentRow() >= 0) menu->popup(place);
    });
}

QWidget* StockPanel::makeEditor() {
    category_ =
        comboBox("StockCatCombo", u"Category"_s, u"The kind of goods; new ones may be typed."_s, 30,
                 &StockItemBoxes::StockCatCombo);
    vendor_ =
        comboBox("StockVendorCombo", u"Vendor"_s, u"The vendor, by the name in the vendor list."_s,
                 60, &StockItemBoxes::StockVendorCombo);
    unit_ = comboBox("StockUnitCombo", u"Unit"_s, u"The unit of measure, for example ea or box."_s,
                     20, &StockItemBoxes::StockUnitCombo);
    unit_->setMinimumContentsLength(4);
    auto* description =
        lineEdit("StockDescriptionEd", u"What the item is called on orders."_s, 120);
    boxes_.bind(description, stock_.boxes, &StockItemBoxes::StockDescriptionEd);
    unitCost_ = lineEdit("StockUnitCostEd", u"What one unit costs."_s);
    boxes_.bind(unitCost_, stock_.boxes, &StockItemBoxes::StockUnitCostEd);
    unitCost_->setAlignment(Qt::AlignRight);
    unitCost_->setMinimumWidth(fontMetrics().horizontalAdvance(u"000,000.0000"_s) + 14);
    lastPaid_ = new LastPaidLine(
        u"StockLastPaid"_s, u"Use"_s, reader_, [this] { return goodsOf(stock_); },
        [this](const PaidPrice& price) { takePrice(price); });
    for (QLineEdit* box : {description, unit_->lineEdit()})
        connect(box, &QLineEdit::textEdited, lastPaid_, &LastPaidLine::refresh);
    fileNumber_ = quietLabel("FileOrderTag", u"File number of the item picked last"_s);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    const auto addRow = [&](int row, const QString& caption, QWidget* box, int span) {
        grid->addWidget(boxLabel(caption, box), row, 0);
        grid->addWidget(box, row, 1, 1, span);
    };
    addRow(0, u"Category"_s, category_, 2);
    grid->addWidget(fileNumber_, 0, 3, Qt::AlignRight);
    addRow(1, u"Vendor"_s, vendor_, 3);
    addRow(2, u"Unit"_s, unit_, 1);
    grid->addWidget(boxLabel(u"Cost"_s, unitCost_), 2, 2);
    grid->addWidget(unitCost_, 2, 3);
    addRow(3, u"Description"_s, description, 3);
    grid->addWidget(lastPaid_, 4, 0, 1, 4);
    grid->addLayout(makeButtons(), 5, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(6, 1);
    QWidget* editor = fill(new QWidget, grid);
    editor->setFixedWidth(
        qMax(fontMetrics().averageCharWidth() * 44, editor->minimumSizeHint().width()));
    return editor;
}

HistoryBox* StockPanel::comboBox(const char* name, const QString& accessibleName,
                                 const QString& tip, int limit, std::string StockItemBoxes::*box) {
    auto* combo = new HistoryBox(name, accessibleName, tip);
    combo->lineEdit()->setMaxLength(limit);
    boxes_.bind(combo, stock_.boxes, box);
    for (const auto needed : {&HistoryBox::focused, &HistoryBox::opening})
        connect(combo, needed, this, [this, combo] { fillList(combo); });
    return combo;
}

QLayout* StockPanel::makeButtons() {
    return row(4, {edgedButton("AddToOrder", Drawing::Up, u"Add to Order"_s,
                               u"Add the item picked in the list to the order."_s,
                               [this] { addCurrentItem(); }),
                   spring(),
                   edgedButton("SaveNewStockItem", Drawing::New, u"New"_s,
                               u"Save what stands in the boxes as a new item."_s,
                               [this] {
                                   stock_.SaveNewStockItem_Click();
                                   startNext();
                               }),
                   edgedButton("SaveChangedStockItem", Drawing::Store, u"Save"_s,
                               u"Save what stands in the boxes as the item picked in the list."_s,
                               [this] {
                                   stock_.SaveChangedStockItem_Click();
                                   startNext();
                               }),
                   edgedButton("DeleteStockItem", Drawing::Delete, {},
                               u"Delete the item picked in the list"_s,
                               [this] { stock_.DeleteStockItem_Click(); })});
}

/// After a save, typing the next item starts at its category.
void StockPanel::startNext() {
    category_->setFocus();
}

void StockPanel::refreshList() {
    grid_->refresh();
    onHand_->setVisible(stock_.showsOnHand());
    for (HistoryBox* combo : {category_, vendor_, unit_}) {
        if (combo->hasFocus()) fillList(combo);
    }
    grid_->showKey(stock_.FileOrderTag());
    refreshEditor();
}

/// The entries are collected from the whole list, so only when they are needed.
void StockPanel::fillList(HistoryBox* combo) {
    const StockList::Entries& entries = stock_.entries();
    combo->setEntries(combo == category_ ? entries.categories
                      : combo == vendor_ ? entries.vendors
                                         : entries.units);
}

void StockPanel::refreshEditor() {
    boxes_.refresh();
    fileNumber_->setText(toQt(stock_.FileOrderTag()));
    lastPaid_->refresh();
}

/// As if it were typed: it is stored with the item.
void StockPanel::takePrice(const PaidPrice& price) {
    stock_.boxes.StockUnitCostEd = price.cost;
    if (!price.unit.empty()) stock_.boxes.StockUnitCombo = price.unit;
    refreshEditor();
}

void StockPanel::addCurrentItem() {
    lines_.StockGrid_DblClick(stock_, grid_->currentRow());
}

}  // namespace bramblet
