#include "gui/orders/spending_dialog.h"

#include "core/orders/spending.h"
#include "gui/orders/bar_chart.h"
#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/paper.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"

#include <QBuffer>
#include <QDialog>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>

#include <array>
#include <functional>

namespace bramblet {
namespace {

constexpr int kLeastLines = 4;
constexpr int kPictureWidth = 900;
constexpr int kPictureMargin = 24;
constexpr double kPictureScale = 2;
const BarChart::Inks kInks{Qt::black, QColor(0x5b, 0x3f, 0x8c)};

struct Look {
    const char *chart, *grid, *tab, *title;
};
/// In the order of the parts.
constexpr std::array<Look, kSpendingParts.size()> kLooks{{
    {"SpendingVendors", "SpendingVendorGrid", "By &Vendor", "Spending by vendor"},
    {"SpendingMonths", "SpendingMonthGrid", "By &Month", "Spending by month"},
}};

/// Writes on pages from top to bottom.
class Pages {
  public:
    Pages(QPainter& painter, const QRectF& page, std::function<void()> next)
        : painter_(painter), page_(page), next_(std::move(next)), top_(page.top()) {}

    void text(const QString& text, double size, bool bold = false) {
        setFont(size, bold);
        const QRectF left(page_.left(), top_, page_.width(), page_.bottom() - top_);
        const QRectF needed = painter_.boundingRect(left, Qt::TextWordWrap, text);
        painter_.setPen(kInks.text);
        painter_.drawText(needed, Qt::TextWordWrap, text);
        top_ = needed.bottom() + needed.height() / 4;
    }

    void bars(const std::vector<SpendingBar>& bars) {
        setFont(kTextSize, false);
        const double line = 1.5 * QFontMetricsF(painter_.font(), painter_.device()).height();
        for (int bar = 0; bar < static_cast<int>(bars.size());) {
            const QRectF left(page_.left(), top_, page_.width(), page_.bottom() - top_);
            const int next = BarChart::paint(painter_, left, bars, bar, kInks);
            top_ += line * (next - bar) + line / 2;
            if (next < static_cast<int>(bars.size())) turn();
            bar = next;
        }
    }

    void numbers(const SpendingTable& table) {
        setFont(kTextSize, false);
        const double line = 1.2 * QFontMetricsF(painter_.font(), painter_.device()).height();
        const double column = page_.width() / 4;
        for (int row = 0; row < table.rowCount(); ++row) {
            if (top_ + line > page_.bottom()) turn();
            const std::array<QRectF, 3> places{
                QRectF(page_.left(), top_, 2 * column, line),
                QRectF(page_.left() + 2 * column, top_, column, line),
                QRectF(page_.left() + 3 * column, top_, column, line)};
            for (int cell = 0; cell < static_cast<int>(places.size()); ++cell) {
                const QRectF& place = places[static_cast<std::size_t>(cell)];
                const QFontMetricsF font(painter_.font(), painter_.device());
                painter_.drawText(
                    place, (cell == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter,
                    font.elidedText(toQt(table.cell(row, cell)), Qt::ElideRight, place.width()));
            }
            top_ += line;
        }
    }

    /// Goes on to the next page unless so much of this one is left.
    void need(double share) {
        if (page_.bottom() - top_ < share * page_.height()) turn();
    }

    double top() const { return top_; }

    static constexpr double kTextSize = 10;  // points
    static constexpr double kTitleSize = 14;

  private:
    void setFont(double size, bool bold) {
        QFont font = painter_.font();
        font.setPointSizeF(size);
        font.setBold(bold);
        painter_.setFont(font);
    }
    void turn() {
        next_();
        top_ = page_.top();
    }

    QPainter& painter_;
    QRectF page_;
    std::function<void()> next_;
    double top_;
};

class SpendingDialog : public QDialog {
  public:
    SpendingDialog(Spending& spending, QWidget* parent) : QDialog(parent), spending_(spending) {
        setObjectName(u"SpendingDialog"_s);
        setWindowTitle(u"Spending"_s);
        auto* summary = namedLabel("SpendingSummary");
        auto* explanation = quietLabel("SpendingExplanation", {});
        summary->setText(toQt(spending.summary()));
        explanation->setText(toQt(spending.explanation()));
        for (QLabel* label : {summary, explanation})
            label->setWordWrap(true);
        QFont bold = summary->font();
        bold.setBold(true);
        summary->setFont(bold);
        tabs_->setObjectName(u"SpendingTabs"_s);
        for (const SpendingPart part : kSpendingParts)
            tabs_->addTab(makePart(part), QLatin1String(lookOf(part).tab));
        auto* print = button("SpendingPrint", u"&Print ..."_s,
                             u"Print both charts and their numbers."_s, [this] { this->print(); });
        auto* save = button("SpendingPicture", u"&Save Picture ..."_s,
                            u"Save the chart shown as a picture, in a PNG file."_s,
                            [this] { savePicture(); });
        auto* close = button("Close", u"&Close"_s, u"Close this window."_s, [this] { reject(); });
        setLayout(column(
            8, {summary, explanation, grow(tabs_), row(-1, {print, save, spring(), close})}));
        placeOverParent(
            *this, QSize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 36));
        tabs_->widget(0)->findChild<BarChart*>()->setFocus();
    }

    /// Lists the orders that were chosen, once the window is closed.
    void listChosen() const {
        if (chosen_) chosen_();
    }

  private:
    static const Look& lookOf(SpendingPart part) {
        return kLooks.at(static_cast<std::size_t>(part));
    }

    QWidget* makePart(SpendingPart part) {
        const Look& look = lookOf(part);
        const auto& bars = spending_.bars(part);
        auto* chart = new BarChart(
            look.chart, QLatin1String(look.title) + u"; the same numbers are in the table"_s, bars);
        auto* area = new QScrollArea;
        area->setWidget(chart);
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(chart, &BarChart::barReached, area, [area, chart](int bar) {
            const int line = chart->height() / qMax(1, chart->bars());
            area->ensureVisible(0, bar * line + line / 2, 0, line);
        });
        connect(chart, &BarChart::barChosen, this, [this, part](int bar) {
            choose([this, part, bar] {
                spending_.listOrders(part, spending_.bars(part).at(static_cast<std::size_t>(bar)));
            });
        });

        SpendingTable& table = spending_.table(part);
        auto* grid = new GridView(
            look.grid, QLatin1String(look.title),
            u"Double-click a row, or press Enter on it, to list its orders."_s, table, kLeastLines);
        connect(grid, &GridView::headingClicked, grid, [&table, grid](int column) {
            table.sortBy(column);
            grid->refresh();
        });
        for (const auto chosen : {&GridView::rowDoubleClicked, &GridView::rowEntered}) {
            connect(grid, chosen, this, [this, part](int row) {
                choose([this, part, row] { spending_.listOrders(part, row); });
            });
        }
        grid->refresh();

        auto* splitter = new QSplitter(Qt::Vertical);
        splitter->setChildrenCollapsible(false);
        splitter->addWidget(area);
        splitter->addWidget(grid);
        splitter->setStretchFactor(0, 3);
        splitter->setStretchFactor(1, 2);
        auto* note = quietLabel("SpendingNote", {});
        const bool noted = part == SpendingPart::ByMonth && !spending_.note().empty();
        if (noted) note->setText(toQt(spending_.note()));
        note->setVisible(noted);
        return fill(new QWidget, column(4, {grow(splitter), note}), QMargins(6, 6, 6, 6));
    }

    void choose(std::function<void()> list) {
        chosen_ = std::move(list);
        accept();
    }

    void paint(Pages& pages, SpendingPart part) const {
        pages.text(QLatin1String(lookOf(part).title), Pages::kTitleSize, true);
        pages.bars(spending_.bars(part));
    }

    void print() {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPageLayout(usualPage());
        printer.setDocName(windowTitle());
        QPrintDialog dialog(&printer, this);
        if (dialog.exec() != QDialog::Accepted) return;
        QPainter painter;
        const bool begun = painter.begin(&printer);
        if (begun) {
            const QRectF page(QPointF(),
                              printer.pageLayout().paintRectPixels(printer.resolution()).size());
            Pages pages(painter, page, [&] { printer.newPage(); });
            pages.text(toQt(spending_.summary()), Pages::kTextSize);
            pages.text(toQt(spending_.explanation()), Pages::kTextSize);
            for (const SpendingPart part : kSpendingParts) {
                constexpr double kEnough = 0.3;
                pages.need(kEnough);
                paint(pages, part);
                // The bars tell all numbers unless there are too many.
                if (spending_.table(part).rowCount() >
                    static_cast<int>(spending_.bars(part).size()))
                    pages.numbers(spending_.table(part));
            }
            painter.end();
        }
        spending_.printed(begun && printer.printerState() != QPrinter::Error);
    }

    void savePicture() {
        const auto path = spending_.pictureTarget();
        if (path) spending_.savePicture(*path, picture());
    }

    /// The chart shown, on white.
    std::string picture() const {
        const auto part = kSpendingParts.at(static_cast<std::size_t>(tabs_->currentIndex()));
        const int lines = static_cast<int>(spending_.bars(part).size());
        const QSize size(kPictureWidth, fontMetrics().height() * (2 * lines + 12));
        QImage image(size * kPictureScale, QImage::Format_RGB32);
        image.setDevicePixelRatio(kPictureScale);
        image.fill(Qt::white);
        QPainter painter(&image);
        const QRectF page = QRectF(QPointF(), QSizeF(size))
                                .adjusted(kPictureMargin, kPictureMargin, -kPictureMargin, 0);
        Pages pages(painter, page, [] {});
        paint(pages, part);
        pages.text(toQt(spending_.summary() + " " + spending_.explanation()), Pages::kTextSize);
        painter.end();
        const int used = qRound((pages.top() + kPictureMargin) * kPictureScale);
        QBuffer png;
        png.open(QIODevice::WriteOnly);
        image.copy(0, 0, image.width(), qMin(used, image.height())).save(&png, "PNG");
        return png.data().toStdString();
    }

    Spending& spending_;
    QTabWidget* tabs_ = new QTabWidget;
    std::function<void()> chosen_;
};

}  // namespace

void showSpendingDialog(Spending& spending, QWidget* parent) {
    SpendingDialog dialog(spending, parent);
    dialog.exec();
    dialog.listChosen();
}

}  // namespace bramblet
