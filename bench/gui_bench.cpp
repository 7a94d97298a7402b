// The list of orders on the screen, in the program's own main window, beside a QTableWidget with
// the same cells: filling it anew and sorting it by a heading, until it is painted. Offscreen, so
// that the screen's own work does not count.

#include "full_folder.h"
#include "gui/app/main_window.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/theme.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <QTableWidget>

#include <benchmark/benchmark.h>

namespace bramblet::bench {
namespace {

constexpr int kColumn = kVendorColumn;

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
        program = std::make_unique<Program>(
            Environment{desktop_, documents_.path(), {}, {[] { return 46085; }, [] {}}, nullptr},
            prompts_);
        window_ = std::make_unique<MainWindow>(*program, prompts_, waiting_);
        window_->resize(1400, 900);
        window_->show();
        program->start();
        program->savedOrders.ViewExisting_Click();
        list = window_->findChild<QTableView*>(QStringLiteral("POGrid"));
        if (list == nullptr) qFatal("The main window has no list of orders");
    }

    std::unique_ptr<Program> program;
    QTableView* list = nullptr;

  private:
    test::TemporaryFolder documents_;
    Waiting waiting_;
    DialogPrompts prompts_;
    Desktop desktop_;
    std::unique_ptr<MainWindow> window_;
};

/// Made when first asked for; closed by `main`, since windows must not outlive the application.
std::unique_ptr<Desk> openDesk;
Desk& theDesk() {
    if (openDesk == nullptr) openDesk = std::make_unique<Desk>();
    return *openDesk;
}

/// The index is read, and the list made from it.
void listOrders(benchmark::State& state) {
    Desk& desk = theDesk();
    for (auto _ : state) {
        desk.program->savedOrders.ViewExisting_Click();
        paint(*desk.list);
    }
    if (desk.list->model()->rowCount() != kFull) state.SkipWithError("The result is wrong");
}
BENCHMARK(listOrders)->Name("screen_list/bramblet")->Arg(kFull)->Unit(benchmark::kMillisecond);

void sortOrders(benchmark::State& state) {
    Desk& desk = theDesk();
    for (auto _ : state) {
        state.PauseTiming();
        desk.program->savedOrders.ViewExisting_Click();
        paint(*desk.list);
        state.ResumeTiming();
        emit desk.list->horizontalHeader()->sectionClicked(kColumn);
        paint(*desk.list);
    }
    if (desk.program->savedOrders.sortColumn() != kColumn) state.SkipWithError("not sorted");
}
BENCHMARK(sortOrders)->Name("screen_sort/bramblet")->Arg(kFull)->Unit(benchmark::kMillisecond);

/// The cells of the program's list as ready texts, and a window of the same size to show them in.
class CellTable {
  public:
    CellTable() {
        SavedOrders& orders = theDesk().program->savedOrders;
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
        widget.resize(theDesk().list->size());
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

std::unique_ptr<CellTable> openTable;
CellTable& theTable() {
    if (openTable == nullptr) openTable = std::make_unique<CellTable>();
    return *openTable;
}

void fillTableWidget(benchmark::State& state) {
    CellTable& table = theTable();
    for (auto _ : state)
        table.fill();
}
BENCHMARK(fillTableWidget)
    ->Name("screen_list/qtablewidget")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);

void sortTableWidget(benchmark::State& state) {
    CellTable& table = theTable();
    for (auto _ : state) {
        state.PauseTiming();
        table.fill();
        state.ResumeTiming();
        table.widget.sortItems(kColumn);
        paint(table.widget);
    }
}
BENCHMARK(sortTableWidget)
    ->Name("screen_sort/qtablewidget")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bramblet::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bramblet::applyTheme(bramblet::Theme::Light);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    bramblet::bench::openTable.reset();
    bramblet::bench::openDesk.reset();
}
