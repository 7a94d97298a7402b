// The list of orders on the screen, in the program's own main window, beside a QTableWidget with
// the same cells: filling it anew, sorting it by a heading and finding in it, until it is painted.
// Offscreen, so that the screen's own work does not count.

#include "gui/app/main_window.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"
#include "office.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTableWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ranges>

namespace bramblet::bench {
namespace {

constexpr int kColumn = kVendorColumn;

/// Made when first asked for; closed by `main`, since windows must not outlive the application.
template <class Thing>
std::unique_ptr<Thing> opened;
template <class Thing>
Thing& the() {
    if (opened<Thing> == nullptr) opened<Thing> = std::make_unique<Thing>();
    return *opened<Thing>;
}

/// Lays a list out and paints it, now.
void paint(QTableView& list) {
    QCoreApplication::sendPostedEvents();
    list.horizontalHeader()->viewport()->repaint();
    list.viewport()->repaint();
}

class Desk {
  public:
    Desk() {
        fillFolder(Program::homeFolderIn(documents_.path()) / "po_data", {kFull, kFull, 0, 0});
        program = std::make_unique<Program>(environment(desktop_, documents_), prompts_);
        window_ = std::make_unique<MainWindow>(*program, prompts_, waiting_);
        window_->resize(1400, 900);
        window_->show();
        program->start();
        program->savedOrders.ViewExisting_Click();
        list = window_->findChild<QTableView*>(QStringLiteral("POGrid"));
        find = window_->findChild<QLineEdit*>(QStringLiteral("FindEd"));
        if (list == nullptr || find == nullptr) qFatal("The main window has no list of orders");
    }

    std::unique_ptr<Program> program;
    QTableView* list = nullptr;
    QLineEdit* find = nullptr;

  private:
    test::TemporaryFolder documents_;
    Waiting waiting_;
    DialogPrompts prompts_;
    Desktop desktop_;
    std::unique_ptr<MainWindow> window_;
};

/// The index is read, and the list made from it.
void listOrders(benchmark::State& state) {
    Desk& desk = the<Desk>();
    for (auto _ : state) {
        desk.program->savedOrders.ViewExisting_Click();
        paint(*desk.list);
    }
    holds(state, desk.list->model()->rowCount() == kFull);
}
BENCHMARK(listOrders)->Name("screen_list/bramblet")->Apply(onFullLists);

void sortOrders(benchmark::State& state) {
    Desk& desk = the<Desk>();
    for (auto _ : state) {
        state.PauseTiming();
        desk.program->savedOrders.ViewExisting_Click();
        paint(*desk.list);
        state.ResumeTiming();
        emit desk.list->horizontalHeader()->sectionClicked(kColumn);
        paint(*desk.list);
    }
    holds(state, desk.program->savedOrders.sortColumn() == kColumn);
}
BENCHMARK(sortOrders)->Name("screen_sort/bramblet")->Apply(onFullLists);

/// The find box gets the focus.
void prepareToFind(benchmark::State& state) {
    SavedOrders& orders = the<Desk>().program->savedOrders;
    for (auto _ : state) {
        state.PauseTiming();
        orders.PopPOGrid();
        state.ResumeTiming();
        orders.prepareToFind();
    }
}
BENCHMARK(prepareToFind)->Name("find_prepare/bramblet")->Apply(onFullLists);

/// A letter is typed into it: the first one or another one after it.
void findOrders(benchmark::State& state, const QString& before, const QString& typed) {
    Desk& desk = the<Desk>();
    int rows = 0;
    int rowsBefore = 0;
    for (auto _ : state) {
        state.PauseTiming();
        desk.find->clear();
        desk.program->savedOrders.ViewExisting_Click();
        desk.program->savedOrders.prepareToFind();
        desk.find->setText(before);
        paint(*desk.list);
        rowsBefore = desk.list->model()->rowCount();
        state.ResumeTiming();
        desk.find->setText(typed);
        paint(*desk.list);
        rows = desk.list->model()->rowCount();
    }
    desk.find->clear();
    holds(state, rows > 0 && rows <= rowsBefore);
}
BENCHMARK_CAPTURE(findOrders, first, QString(), u"f"_s)
    ->Name("screen_find/bramblet")
    ->Apply(onFullLists);
BENCHMARK_CAPTURE(findOrders, next, u"st"_s, u"ste"_s)
    ->Name("screen_find_next/bramblet")
    ->Apply(onFullLists);

/// The cells of the program's list as ready texts, and a window of the same size to show them in.
class CellTable {
  public:
    CellTable() {
        SavedOrders& orders = the<Desk>().program->savedOrders;
        orders.PopPOGrid();
        columns_ = orders.columnCount();
        for (int row = 0; row < orders.rowCount(); ++row) {
            for (int column = 0; column < columns_; ++column)
                cells_.push_back(QString::fromStdString(orders.cell(row, column)));
        }
        widget.setSelectionBehavior(QAbstractItemView::SelectRows);
        widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
        widget.setWordWrap(false);
        widget.verticalHeader()->hide();
        widget.resize(the<Desk>().list->size());
        widget.show();
        fill();
    }

    void fill() {
        widget.setRowCount(0);
        widget.setColumnCount(columns_);
        widget.setRowCount(static_cast<int>(cells_.size()) / columns_);
        for (int i = 0; i < static_cast<int>(cells_.size()); ++i)
            widget.setItem(i / columns_, i % columns_, new QTableWidgetItem(cells_[i]));
        paint(widget);
    }

    QTableWidget widget;

  private:
    int columns_;
    QList<QString> cells_;
};

void fillTableWidget(benchmark::State& state) {
    CellTable& table = the<CellTable>();
    for (auto _ : state)
        table.fill();
    const int rows = table.widget.rowCount();
    holds(state, rows == kFull && table.widget.item(rows - 1, kNumberColumn)->text() ==
                                      QString::fromStdString(orderRow(1).number));
}
BENCHMARK(fillTableWidget)->Name("screen_list/qtablewidget")->Apply(onFullLists);

void sortTableWidget(benchmark::State& state) {
    CellTable& table = the<CellTable>();
    for (auto _ : state) {
        state.PauseTiming();
        table.fill();
        state.ResumeTiming();
        table.widget.sortItems(kColumn);
        paint(table.widget);
    }
    holds(state,
          std::ranges::is_sorted(std::views::iota(0, table.widget.rowCount()), {},
                                 [&](int row) { return table.widget.item(row, kColumn)->text(); }));
}
BENCHMARK(sortTableWidget)->Name("screen_sort/qtablewidget")->Apply(onFullLists);

}  // namespace
}  // namespace bramblet::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bramblet::applyTheme(bramblet::Theme::Light);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    bramblet::bench::opened<bramblet::bench::CellTable>.reset();
    bramblet::bench::opened<bramblet::bench::Desk>.reset();
}
