#include "gui/app/lists_panel.h"

#include "gui/orders/saved_orders_panel.h"
#include "gui/platform/boxes.h"
#include "gui/platform/find_box.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"
#include "gui/stock/stock_panel.h"

#include <QStackedWidget>

namespace bramblet {

ListsPanel::ListsPanel(Program& program, PaidReader& reader, QWidget* parent)
    : QWidget(parent), program_(program) {
    orders_ =
        new SavedOrdersPanel(program.editor, program.savedOrders, program.spending, program.open);
    stock_ = new StockPanel(program.stock, program.lines, reader);
    views_ = new QStackedWidget;
    views_->addWidget(orders_);
    views_->addWidget(stock_);
    connect(orders_->grid(), &GridView::rowDoubleClicked, this, &ListsPanel::HideOrders_Click);

    fill(this, column(4, {grow(views_), makeBar()}));
    showView();
}

QLayout* ListsPanel::makeBar() {
    find_ = new FindBox("FindEd");
    connect(find_, &QLineEdit::textChanged, this, &ListsPanel::find);
    connect(find_, &FindBox::entered, this, [this] {
        showsOrders() ? program_.savedOrders.prepareToFind() : program_.stock.prepareToFind();
    });
    connect(find_, &FindBox::listWanted, this, [this] { grid()->enter(); });
    connect(find_, &FindBox::allWanted, this, [this] {
        if (showsOrders()) showAll();
    });
    shownOnly_ = edgedButton("ShownOnly", Drawing::Close, {}, u"List all orders again"_s,
                             [this] { showAll(); });
    shownOnly_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    label_ = namedLabel("BottomLabel");
    count_ = elidedLabel("ListCount", Qt::ElideRight);
    total_ = elidedLabel("ListTotal", Qt::ElideRight);
    for (QLabel* label : {count_, total_})
        label->setForegroundRole(QPalette::PlaceholderText);
    filters_ = {
        filterBox("ListCheckPO", u"Purchase Orders"_s,
                  u"Check to include Purchase Orders in list"_s, &SavedOrders::ListCheckPO),
        filterBox("ListCheckRE", u"Requisitions"_s, u"Check to include Requisitions in list"_s,
                  &SavedOrders::ListCheckRE),
        filterBox("ListCheckRecd", u"Received (Both)"_s,
                  u"Check to include items marked Received"_s, &SavedOrders::ListCheckRecd),
    };
    vendorItems_ = button<QCheckBox>(
        "VendorItemsCheck", u"Show Only Stock Items For The Current Vendor"_s,
        u"If checked, show only stock items for current vendor."_s,
        [this] { program_.stock.VendorItemsCheck_Click(vendorItems_->isChecked()); });
    viewExisting_ = edgedButton("ViewExisting", Drawing::Lists, u"Saved Orders"_s,
                                u"Switch to existing purchase orders view."_s,
                                [this] { program_.savedOrders.ViewExisting_Click(); });
    hideOrders_ = edgedButton("HideOrders", Drawing::Lists, u"Stock Items List"_s,
                              u"Switch to stock items view."_s, [this] { HideOrders_Click(); });
    return row(12, {grow(find_, 2), shownOnly_, label_, count_, total_, spring(), filters_[0],
                    filters_[1], filters_[2], vendorItems_, viewExisting_, hideOrders_});
}

QCheckBox* ListsPanel::filterBox(const char* name, const QString& caption, const QString& tip,
                                 bool SavedOrders::*filter) {
    auto* box = button<QCheckBox>(name, caption, tip);
    box->setChecked(program_.savedOrders.*filter);
    connect(box, &QCheckBox::clicked, this, [this, filter](bool checked) {
        program_.savedOrders.ListCheck_Click(filter, checked);
    });
    return box;
}

void ListsPanel::refreshOrders() {
    orders_->refreshList();
    const std::string total = program_.savedOrders.totalText();
    total_->setText(total.empty() ? QString() : u"Total %1"_s.arg(toQt(total)));
    total_->setToolTip(u"The orders listed come to\n"_s +
                       messageToQt(program_.savedOrders.sumsText()));
    showView();
}

void ListsPanel::refreshStock() {
    stock_->refreshList();
    vendorItems_->setChecked(program_.stock.VendorItemsCheck);
    showView();
}

void ListsPanel::showOrders() {
    views_->setCurrentWidget(orders_);
    showView();
}

void ListsPanel::HideOrders_Click() {
    program_.commands.run([this] {
        views_->setCurrentWidget(stock_);
        showView();
    });
}

bool ListsPanel::showsOrders() const {
    return views_->currentWidget() == orders_;
}

GridView* ListsPanel::grid() const {
    return showsOrders() ? orders_->grid() : stock_->grid();
}

void ListsPanel::findInList() {
    find_->enter();
}

void ListsPanel::find(const QString& typed) {
    const std::string text = fromQt(typed);
    showsOrders() ? program_.savedOrders.find(text) : program_.stock.find(text);
}

/// Gives up what the list has been narrowed to from another window.
void ListsPanel::showAll() {
    if (program_.savedOrders.shownOnly().empty()) return;
    const bool focused = shownOnly_->hasFocus();
    program_.savedOrders.showAll();
    if (focused) grid()->setFocus();
}

/// A caption for a button; a text may hold "&" that is no mnemonic.
QString ListsPanel::shortened(QString text) const {
    constexpr int kMostCharacters = 18;
    text = fontMetrics().elidedText(text, Qt::ElideRight,
                                    fontMetrics().averageCharWidth() * kMostCharacters);
    return text.replace(u'&', u"&&"_s);
}

void ListsPanel::showView() {
    const bool orders = showsOrders();
    const QString count = toQt(program_.savedOrders.countText());
    showText(find_, toQt(orders ? program_.savedOrders.sought() : program_.stock.sought()));
    const std::string only = program_.savedOrders.shownOnly();
    shownOnly_->setVisible(orders && !only.empty());
    shownOnly_->setText(shortened(toQt(only)));
    shownOnly_->setToolTip(
        u"Only the orders of %1 are listed. Press to list all again."_s.arg(toQt(only)));
    shownOnly_->setAccessibleName(shownOnly_->toolTip());
    label_->setText(orders ? u"Saved Orders"_s : toQt(program_.stock.countText()));
    label_->setToolTip(orders ? count : QString());
    count_->setText(count);
    count_->setVisible(orders);
    total_->setVisible(orders);
    for (QCheckBox* filter : filters_)
        filter->setVisible(orders);
    vendorItems_->setVisible(!orders);
    vendorItems_->setEnabled(!orders);
    viewExisting_->setVisible(!orders);
    hideOrders_->setVisible(orders);
}

}  // namespace bramblet
