#include "orders/saved_orders_panel.h"

#include "orders/saved_orders_model.h"
#include "platform/grid_view.h"
#include "platform/qt_text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

namespace bramblet {
namespace {

const std::vector<GridColumn> kColumns{
    {11, false}, {13, true},  {11, false}, {24, true},  {24, true},  {11, false}, {14, false},
    {12, false}, {12, false}, {14, false}, {12, false}, {14, false}, {7, false},
};

}  // namespace

SavedOrdersPanel::SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, const OpenOrder& open,
                                   QWidget* parent)
    : QWidget(parent), editor_(editor), orders_(orders), open_(open) {
    model_ = new SavedOrdersModel(orders, this);
    grid_ = new GridView;
    grid_->setObjectName(QStringLiteral("POGrid"));
    grid_->setAccessibleName(tr("Saved orders"));
    grid_->setToolTip(tr("Saved orders (click to open, right click for options)."));
    grid_->setModel(model_);
    grid_->setColumns(kColumns);
    grid_->setMinimumHeight(fontMetrics().height() * 5);
    grid_->horizontalHeader()->setSortIndicatorShown(true);

    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("POPop"));
    auto* remove =
        menu_->addAction(tr("&Delete Order"), this, &SavedOrdersPanel::deleteCurrentOrder);
    remove->setObjectName(QStringLiteral("POPop_delete"));

    connect(grid_, &GridView::rowClicked, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::rowEntered, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::deletePressed, this, &SavedOrdersPanel::deleteCurrentOrder);
    connect(grid_, &GridView::headingClicked, this, &SavedOrdersPanel::sortBy);
    connect(grid_, &GridView::menuRequested, this, [this, remove](const QPoint& place) {
        remove->setEnabled(grid_->currentRow() >= 0);
        menu_->popup(place);
    });

    label_ = new QLabel(tr("Saved Orders"));
    label_->setObjectName(QStringLiteral("BottomLabel"));
    count_ = new QLabel;
    count_->setForegroundRole(QPalette::PlaceholderText);
    auto* bar = new QHBoxLayout;
    bar->setSpacing(12);
    bar->addWidget(label_);
    bar->addWidget(count_);
    bar->addStretch(1);
    bar->addWidget(filterBox("ListCheckPO", tr("Purchase Orders"),
                             tr("Check to include Purchase Orders in list"),
                             &SavedOrders::ListCheckPO));
    bar->addWidget(filterBox("ListCheckRE", tr("Requisitions"),
                             tr("Check to include Requisitions in list"),
                             &SavedOrders::ListCheckRE));
    bar->addWidget(filterBox("ListCheckRecd", tr("Received (Both)"),
                             tr("Check to include items marked Received"),
                             &SavedOrders::ListCheckRecd));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(grid_, 1);
    layout->addLayout(bar);
}

void SavedOrdersPanel::refreshList() {
    model_->refresh();
    grid_->horizontalHeader()->setSortIndicator(orders_.sortColumn(), orders_.sortedDescending()
                                                                          ? Qt::DescendingOrder
                                                                          : Qt::AscendingOrder);
    label_->setToolTip(toQt(orders_.countText()));
    count_->setText(toQt(orders_.countText()));
    const int row = orders_.rowOf(open_.order.PONoEd);
    if (row >= 0) grid_->selectRow(row);
}

void SavedOrdersPanel::deleteCurrentOrder() {
    const int row = grid_->currentRow();
    if (row >= 0) editor_.POPop_delete_Click(orders_.number(row));
}

void SavedOrdersPanel::sortBy(int column) {
    orders_.sortByHeading(column);
}

QCheckBox* SavedOrdersPanel::filterBox(const char* name, const QString& caption, const QString& tip,
                                       bool SavedOrders::*filter) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(tip);
    box->setChecked(orders_.*filter);
    connect(box, &QCheckBox::clicked, this,
            [this, filter](bool checked) { orders_.ListCheck_Click(filter, checked); });
    return box;
}

void SavedOrdersPanel::openRow(int row) {
    editor_.POGrid_Click(orders_.number(row));
}

}  // namespace bramblet
