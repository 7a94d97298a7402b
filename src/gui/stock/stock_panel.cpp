#include "gui/stock/stock_panel.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_model.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/history_box.h"
#include "gui/platform/icons.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QMenu>

namespace bramblet {
namespace {

/// What a column is called, and how wide it is.
struct ColumnLook {
    GridHeading heading;
    GridColumn layout;
};
ColumnLook lookOf(StockColumn column) {
    switch (column) {
        case StockColumn::Category:
            return {{u"Category"_s}, {12, true}};
        case StockColumn::Vendor:
            return {{u"Vendor"_s}, {16, true}};
        case StockColumn::Unit:
            return {{u"Unit"_s}, {8, false}};
        case StockColumn::Description:
            return {{u"Description"_s}, {30, true}};
        case StockColumn::UnitCost:
            return {{u"Unit Cost"_s, true}, {12, false}};
        case StockColumn::OnHand:
            return {{u"On Hand"_s, true}, {10, false}};
        case StockColumn::FileNumber:
            return {{u"File Number"_s, true}, {}};  // out of sight
    }
    return {};
}

}  // namespace

StockPanel::StockPanel(StockList& stock, LineItems& lines, QWidget* parent)
    : QWidget(parent), stock_(stock), lines_(lines) {
    makeGrid();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(grid_, 1);
    layout->addWidget(makeEditor());
}

void StockPanel::makeGrid() {
    const GridSource source{
        [this] { return stock_.rowCount(); },
        [this](int row, int column) {
            return stock_.cell(row, shownColumns_[static_cast<std::size_t>(column)]);
        },
        nullptr,
        [this](int column) {
            return stock_.widest(shownColumns_[static_cast<std::size_t>(column)]);
        }};
    model_ = new GridModel({}, source, this);
    grid_ = new GridView;
    grid_->setObjectName(u"StockGrid"_s);
    grid_->setAccessibleName(u"Stock items"_s);
    grid_->setToolTip(u"Stock items to pick from (double-click, add to order)."_s);
    grid_->setModel(model_);
    grid_->setMinimumHeight(fontMetrics().height() * 5);

    menu_ = new QMenu(this);
    menu_->setObjectName(u"itemspop"_s);
    auto* remove = menu_->addAction(u"&Delete"_s, this, [this] { stock_.DeleteStockItem_Click(); });
    remove->setObjectName(u"ItemsPopDelete"_s);
    onHand_ = menu_->addAction(u"&On Hand"_s, this,
                               [this] { stock_.ItemsPopOnHand_Click(grid_->currentRow()); });
    onHand_->setObjectName(u"ItemsPopOnHand"_s);

    connect(grid_, &GridView::rowClicked, this, [this](int row) { stock_.StockGrid_Click(row); });
    connect(grid_, &GridView::rowReached, this, [this](int row) { stock_.StockGrid_Click(row); });
    connect(grid_, &GridView::rowDoubleClicked, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::rowEntered, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::insertPressed, this, &StockPanel::addCurrentItem);
    connect(grid_, &GridView::deletePressed, this, [this] { stock_.DeleteStockItem_Click(); });
    connect(grid_, &GridView::headingClicked, this, &StockPanel::sortBy);
    connect(grid_, &GridView::menuRequested, this, [this](const QPoint& place) {
        if (grid_->currentRow() >= 0) menu_->popup(place);
    });
}

QWidget* StockPanel::makeEditor() {
    category_ = comboBox("StockCatCombo", u"The kind of goods; new ones may be typed."_s, 30,
                         &StockItemBoxes::StockCatCombo);
    vendor_ = comboBox("StockVendorCombo", u"The vendor, by the name in the vendor list."_s, 60,
                       &StockItemBoxes::StockVendorCombo);
    unit_ = comboBox("StockUnitCombo", u"The unit of measure, for example ea or box."_s, 20,
                     &StockItemBoxes::StockUnitCombo);
    unit_->setMinimumContentsLength(4);
    description_ = lineEdit("StockDescriptionEd", u"What the item is called on orders."_s,
                            &StockItemBoxes::StockDescriptionEd);
    description_->setMaxLength(120);
    unitCost_ =
        lineEdit("StockUnitCostEd", u"What one unit costs."_s, &StockItemBoxes::StockUnitCostEd);
    unitCost_->setAlignment(Qt::AlignRight);
    unitCost_->setMinimumWidth(fontMetrics().horizontalAdvance(u"000,000.0000"_s) + 14);
    fileNumber_ = new QLabel;
    fileNumber_->setObjectName(u"FileOrderTag"_s);
    fileNumber_->setToolTip(u"File number of the item picked last"_s);
    fileNumber_->setForegroundRole(QPalette::PlaceholderText);

    auto* editor = new QWidget;
    auto* grid = new QGridLayout(editor);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
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
    addRow(3, u"Description"_s, description_, 3);
    grid->addWidget(makeButtons(), 4, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    editor->setFixedWidth(
        qMax(fontMetrics().averageCharWidth() * 44, editor->minimumSizeHint().width()));
    return editor;
}

HistoryBox* StockPanel::comboBox(const char* name, const QString& tip, int limit,
                                 std::string StockItemBoxes::*box) {
    auto* combo = new HistoryBox(name, tip);
    combo->setToolTip(tip);
    combo->lineEdit()->setMaxLength(limit);
    const auto edited = [this, box](const QString& text) { stock_.boxes.*box = fromQt(text); };
    connect(combo->lineEdit(), &QLineEdit::textEdited, this, edited);
    connect(combo, &QComboBox::textActivated, this, edited);
    return combo;
}

QLineEdit* StockPanel::lineEdit(const char* name, const QString& tip,
                                std::string StockItemBoxes::*box) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QLatin1String(name));
    edit->setToolTip(tip);
    connect(edit, &QLineEdit::textEdited, this,
            [this, box](const QString& text) { stock_.boxes.*box = fromQt(text); });
    return edit;
}

QWidget* StockPanel::makeButtons() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const auto add = [&](const char* name, Drawing drawing, const QString& caption,
                         const QString& tip, const std::function<void()>& command) {
        auto* button = toolButton(name, drawing, caption, tip);
        button->setAutoRaise(false);
        connect(button, &QToolButton::clicked, this, [command] { command(); });
        layout->addWidget(button);
        return button;
    };
    addToOrder_ =
        add("AddToOrder", Drawing::Up, u"Add to Order"_s,
            u"Add the item picked in the list to the order."_s, [this] { addCurrentItem(); });
    layout->addStretch(1);
    // After a save, typing the next item starts at its category.
    add("SaveNewStockItem", Drawing::New, u"New"_s,
        u"Save what stands in the boxes as a new item."_s, [this] {
            stock_.SaveNewStockItem_Click();
            category_->setFocus();
        });
    add("SaveChangedStockItem", Drawing::Store, u"Save"_s,
        u"Save what stands in the boxes as the item picked in the list."_s, [this] {
            stock_.SaveChangedStockItem_Click();
            category_->setFocus();
        });
    add("DeleteStockItem", Drawing::Delete, {}, u"Delete the item picked in the list"_s,
        [this] { stock_.DeleteStockItem_Click(); });
    return bar;
}

void StockPanel::refreshList() {
    refreshColumns();
    QHeaderView* const header = grid_->horizontalHeader();
    const auto sorted = stock_.sortColumn();
    header->setSortIndicatorShown(sorted.has_value());
    if (sorted) {
        const auto place = std::find(shownColumns_.begin(), shownColumns_.end(), *sorted);
        header->setSortIndicator(
            static_cast<int>(place - shownColumns_.begin()),
            stock_.sortedDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
    category_->setEntries(stock_.entries().categories);
    vendor_->setEntries(stock_.entries().vendors);
    unit_->setEntries(stock_.entries().units);
    const int row = stock_.rowOf(stock_.FileOrderTag());
    if (row >= 0) grid_->showRow(row);
    refreshEditor();
}

void StockPanel::refreshEditor() {
    category_->showText(stock_.boxes.StockCatCombo);
    vendor_->showText(stock_.boxes.StockVendorCombo);
    unit_->showText(stock_.boxes.StockUnitCombo);
    showText(description_, stock_.boxes.StockDescriptionEd);
    showText(unitCost_, stock_.boxes.StockUnitCostEd);
    fileNumber_->setText(toQt(stock_.FileOrderTag()));
}

/// The list gains or loses a column when the setting for quantities has changed.
void StockPanel::refreshColumns() {
    if (shownColumns_ == stock_.columns()) {
        model_->refresh();
    } else {
        shownColumns_ = stock_.columns();
        std::vector<GridHeading> headings;
        std::vector<GridColumn> layout;
        for (const StockColumn column : shownColumns_) {
            headings.push_back(lookOf(column).heading);
            layout.push_back(lookOf(column).layout);
        }
        model_->refresh(std::move(headings));
        grid_->setColumns(layout);
        const auto& columns = shownColumns_;
        onHand_->setVisible(std::find(columns.begin(), columns.end(), StockColumn::OnHand) !=
                            columns.end());
    }
}

void StockPanel::addCurrentItem() {
    if (dataAvailable()) lines_.StockGrid_DblClick(stock_, grid_->currentRow());
}

void StockPanel::sortBy(int column) {
    if (column < columnCount()) {
        stock_.sortByHeading(shownColumns_[static_cast<std::size_t>(column)]);
    }
}

}  // namespace bramblet
