#include "gui/orders/lines_panel.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace bramblet {

LinesPanel::LinesPanel(LineItems& lines, const OpenOrder& open, const RegionalFormats& formats,
                       QWidget* parent)
    : QWidget(parent), lines_(lines), open_(open), table_(formats) {
    grid_ = new GridView("OrderGrid", u"Lines of the order"_s,
                         u"Items being ordered (right click for options)."_s, table_, 6);
    auto* menu = new QMenu(this);
    menu->setObjectName(u"OrderPop"_s);
    addEntry(menu, "OrderPop_OneTime", u"&Add one-time item"_s, {}, [this] { addOneTimeItem(); });
    auto* edit = addEntry(menu, "OrderPop_DescriptionOverride", u"&Edit this item"_s, {},
                          [this] { editCurrentLine(); });

    menu->addSeparator();
    addGridCommand(menu, "OrderPop_MoveUp", u"Move &up"_s, QKeySequence(u"Alt+Up"_s),
                   [this] { lines_.moveLine(grid_->currentRow(), -1); });
    addGridCommand(menu, "OrderPop_MoveDown", u"Move &down"_s, QKeySequence(u"Alt+Down"_s),
                   [this] { lines_.moveLine(grid_->currentRow(), 1); });
    addGridCommand(menu, "OrderPop_Paste", u"&Paste lines ..."_s, QKeySequence::Paste,
                   [this] { paste(); });

    connect(grid_, &GridView::menuRequested, this, [this, menu, edit](const QPoint& place) {
        edit->setEnabled(grid_->currentRow() >= 0);
        menu->popup(place);
    });
    connect(grid_, &GridView::rowDoubleClicked, this,
            [this](int row) { lines_.OrderGrid_DblClick(row); });
    connect(grid_, &GridView::rowEntered, this, &LinesPanel::editCurrentLine);
    connect(grid_, &GridView::insertPressed, this, &LinesPanel::addOneTimeItem);
    connect(grid_, &GridView::deletePressed, this, [this](int row) { lines_.removeLine(row); });
    fill(this, row(0, {grid_}));
}

void LinesPanel::refresh(bool anotherOrder) {
    const int row = anotherOrder ? -1 : grid_->currentRow();
    if (!table_.take(open_.order().lines)) return;
    grid_->refresh();
    const int last = table_.rowCount() - 1;
    if (row >= 0 && last >= 0) grid_->showRow(qMin(row, last));
}

/// Its keys work in the grid only: boxes use them as well.
void LinesPanel::addGridCommand(QMenu* menu, const char* name, const QString& caption,
                                const QKeySequence& keys, const std::function<void()>& command) {
    QAction* action = addEntry(menu, name, caption, keys, command);
    action->setShortcutContext(Qt::WidgetShortcut);
    grid_->addAction(action);
    gridCommands_.append(action);
}

void LinesPanel::paste() {
    std::string table;
    const char* divider = "";
    for (const QString& cell : QApplication::clipboard()->text().split(QLatin1Char('\t'))) {
        table += divider + linesFromQt(cell);
        divider = "\t";
    }
    lines_.paste(table);
}

void LinesPanel::editCurrentLine() {
    lines_.OrderPop_DescriptionOverride_Click(grid_->currentRow());
}

void LinesPanel::showLine(int row) {
    grid_->showRow(row);
    grid_->scrollTo(grid_->model()->index(row, kDescription));
}

}  // namespace bramblet
