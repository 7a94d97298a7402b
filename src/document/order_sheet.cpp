#include "document/order_sheet.h"

#include "platform/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextTable>
#include <QUrl>

#include <limits>
#include <optional>

namespace bramblet {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
/// Half the space between the texts of two rows, where the line between them is.
constexpr double kRowMargin = 3;

/// What should not be cut by the end of a page, from top to bottom.
struct Span {
    double top;
    double bottom;
};

class Spans {
  public:
    explicit Spans(const QTextDocument& document) : layout_(*document.documentLayout()) {
        addRowsIn(document.rootFrame());
        addLines(document);
    }

    /// The latest place where a page of this height that begins at `start` may end.
    double pageEnd(double start, double height) const {
        double limit = start + height;
        for (const auto* spans : {&rows_, &lines_}) {
            for (bool moved = true; moved;) {
                moved = false;
                for (const auto& span : *spans) {
                    const bool cut = span.top < limit && span.bottom > limit;
                    const bool fitsPage = span.top > start && span.bottom - span.top <= height;
                    if (!cut || !fitsPage) continue;
                    limit = span.top;
                    moved = true;
                }
            }
        }
        return limit;
    }

  private:
    void addRowsIn(QTextFrame* frame) {
        for (QTextFrame* child : frame->childFrames()) {
            addRowsIn(child);
            if (const auto* table = qobject_cast<QTextTable*>(child)) addRows(*table);
        }
    }

    void addRows(const QTextTable& table) {
        std::optional<double> end;
        for (int row = 0; row < table.rows(); ++row) {
            const Span text = textOf(table, row);
            const double top = end ? (*end + text.top) / 2 : text.top - kRowMargin;
            if (end) rows_.back().bottom = top;
            rows_.push_back({top, text.bottom + kRowMargin});
            end = text.bottom;
        }
    }

    /// From the top of a row's texts to the end of the longest one.
    Span textOf(const QTextTable& table, int row) const {
        Span span{std::numeric_limits<double>::max(), 0};
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            const auto first = cell.firstCursorPosition().block();
            const auto last = cell.lastCursorPosition().block();
            span.top = qMin(span.top, layout_.blockBoundingRect(first).top());
            span.bottom = qMax(span.bottom, layout_.blockBoundingRect(last).bottom());
        }
        return span;
    }

    void addLines(const QTextDocument& document) {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            const QPointF place = layout_.blockBoundingRect(block).topLeft();
            for (int i = 0; i < block.layout()->lineCount(); ++i) {
                const QRectF line = block.layout()->lineAt(i).rect().translated(place);
                lines_.push_back({line.top(), line.bottom()});
            }
        }
    }

    const QAbstractTextDocumentLayout& layout_;
    std::vector<Span> rows_;
    std::vector<Span> lines_;
};

}  // namespace

OrderSheet::OrderSheet(PictureSource pictures, QObject* parent)
    : QTextDocument(parent), pictures_(std::move(pictures)) {
    setUndoRedoEnabled(false);
    setDocumentMargin(0);
}

void OrderSheet::show(const std::string& document, double zoom) {
    zoom_ = zoom;
    loaded_.clear();
    page_ = displayPage(document, zoom);
    QFont base(toQt(page_.fontFace));
    base.setStyleHint(QFont::SansSerif);
    base.setPixelSize(page_.fontSize);
    setDefaultFont(base);
    setHtml(toQt(page_.html));
    setTextWidth(page_.width);
}

std::vector<double> OrderSheet::pageBreaks(double height) const {
    const Spans spans(*this);
    const double end = size().height();
    std::vector<double> breaks{0};
    while (breaks.back() + height < end) {
        breaks.push_back(spans.pageEnd(breaks.back(), height));
    }
    breaks.push_back(end);
    return breaks;
}

void OrderSheet::print(const std::string& document, const PictureSource& pictures,
                       QPagedPaintDevice& device) {
    OrderSheet sheet(pictures);
    QPainter painter(&device);
    const double dotsPerPixel = painter.device()->logicalDpiX() / kPixelsPerInch;
    sheet.show(document, 1);
    const QSizeF paper = device.pageLayout().paintRect(QPageLayout::Point).size() *
                         (kPixelsPerInch / kPointsPerInch);
    const double reduction = qMin(1.0, paper.width() / sheet.formWidth());
    const double left = (paper.width() / reduction - sheet.formWidth()) / 2;

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    // The line between two rows belongs to both: to the end of one page and the top of the next.
    constexpr double kShared = 2;
    const auto breaks = sheet.pageBreaks(paper.height() / reduction - 2 * kShared);
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        if (i > 0) device.newPage();
        painter.save();
        painter.scale(dotsPerPixel * reduction, dotsPerPixel * reduction);
        painter.translate(left, kShared - breaks[i]);
        context.clip = QRectF(QPointF(-kShared, breaks[i] - kShared),
                              QPointF(sheet.formWidth() + kShared, breaks[i + 1] + kShared));
        painter.setClipRect(context.clip);
        sheet.documentLayout()->draw(&painter, context);
        painter.restore();
    }
}

QVariant OrderSheet::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource || !name.isRelative()) return {};
    // Laying out and painting each ask again; the file is read once.
    const QString file = name.path(QUrl::FullyDecoded);
    auto found = loaded_.find(file);
    if (found == loaded_.end()) found = loaded_.insert(file, load(file));
    return found->isNull() ? QVariant() : *found;
}

QImage OrderSheet::load(const QString& file) const {
    const std::string bytes = pictures_(fromQt(file));
    QImage picture = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                      static_cast<int>(bytes.size()));
    if (picture.isNull()) return {};
    picture.setDevicePixelRatio(1);
    if (zoom_ == 1) return picture;
    return picture.scaled(picture.size() * zoom_, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace bramblet
