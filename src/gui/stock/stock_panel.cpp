#include "gui/stock/stock_panel.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_model.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/history_box.h"
#include "gui/platform/icons.h"
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
            return {{StockPanel::tr("Category")}, {12, true}};
        case StockColumn::Vendor:
            return {{StockPanel::tr("Vendor")}, {16, true}};
        case StockColumn::Unit:
            return {{StockPanel::tr("Unit")}, {8, false}};
        case StockColumn::Description:
            return {{StockPanel::tr("Description")}, {30, true}};
        case StockColumn::UnitCost:
            return {{StockPanel::tr("Unit Cost"), true}, {12, false}};
        case StockColumn::OnHand:
            return {{StockPanel::tr("On Hand"), true}, {10, false}};
        case StockColumn::FileNumber:
            return {{StockPanel::tr("File Number"), true}, {}};  // out of sight
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
    grid_->setObjectName(QStringLiteral("StockGrid"));
    grid_->setAccessibleName(tr("Stock items"));
    grid_->setToolTip(tr("Stock items to pick from (double-click, add to order)."));
    grid_->setModel(model_);
    grid_->setMinimumHeight(fontMetrics().height() * 5);

    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("itemspop"));
    auto* remove =
        menu_->addAction(tr("&Delete"), this, [this] { stock_.DeleteStockItem_Click(); });
    remove->setObjectName(QStringLiteral("ItemsPopDelete"));
    onHand_ = menu_->addAction(tr("&On Hand"), this,
                               [this] { stock_.ItemsPopOnHand_Click(grid_->currentRow()); });
    onHand_->setObjectName(QStringLiteral("ItemsPopOnHand"));

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
    category_ = comboBox("StockCatCombo", tr("The kind of goods; new ones may be typed."), 30,
                         &StockItemBoxes::StockCatCombo);
    vendor_ = comboBox("StockVendorCombo", tr("The vendor, by the name in the vendor list."), 60,
                       &StockItemBoxes::StockVendorCombo);
    unit_ = comboBox("StockUnitCombo", tr("The unit of measure, for example ea or box."), 20,
                     &StockItemBoxes::StockUnitCombo);
    unit_->setMinimumContentsLength(4);
    description_ = lineEdit("StockDescriptionEd", tr("What the item is called on orders."),
                            &StockItemBoxes::StockDescriptionEd);
    description_->setMaxLength(120);
    unitCost_ =
        lineEdit("StockUnitCostEd", tr("What one unit costs."), &StockItemBoxes::StockUnitCostEd);
    unitCost_->setAlignment(Qt::AlignRight);
    unitCost_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000,000.0000")) +
                               14);
    fileNumber_ = new QLabel;
    fileNumber_->setObjectName(QStringLiteral("FileOrderTag"));
    fileNumber_->setToolTip(tr("File number of the item picked last"));
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
    addRow(0, tr("Category"), category_, 2);
    grid->addWidget(fileNumber_, 0, 3, Qt::AlignRight);
    addRow(1, tr("Vendor"), vendor_, 3);
    addRow(2, tr("Unit"), unit_, 1);
    grid->addWidget(boxLabel(tr("Cost"), unitCost_), 2, 2);
    grid->addWidget(unitCost_, 2, 3);
    addRow(3, tr("Description"), description_, 3);
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
        add("AddToOrder", Drawing::Up, tr("Add to Order"),
            tr("Add the item picked in the list to the order."), [this] { addCurrentItem(); });
    layout->addStretch(1);
    // After a save, typing the next item starts at its category.
    add("SaveNewStockItem", Drawing::New, tr("New"),
        tr("Save what stands in the boxes as a new item."), [this] {
            stock_.SaveNewStockItem_Click();
            category_->setFocus();
        });
    add("SaveChangedStockItem", Drawing::Store, tr("Save"),
        tr("Save what stands in the boxes as the item picked in the list."), [this] {
            stock_.SaveChangedStockItem_Click();
            category_->setFocus();
        });
    add("DeleteStockItem", Drawing::Delete, {}, tr("Delete the item picked in the list"),
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
