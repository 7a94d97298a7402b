#include "document/order_sheet.h"

#include "document/page_breaks.h"
#include "platform/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QUrl>

namespace bramblet {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
}  // namespace

OrderSheet::OrderSheet(PictureSource pictures, QObject* parent)
    : QTextDocument(parent), pictures_(std::move(pictures)) {
    setUndoRedoEnabled(false);
    setDocumentMargin(0);
}

void OrderSheet::show(const std::string& document, double zoom, double dotsPerPixel) {
    zoom_ = zoom;
    dotsPerPixel_ = dotsPerPixel;
    loaded_.clear();
    page_ = displayPage(document, zoom);
    QFont base(toQt(page_.fontFace));
    base.setStyleHint(QFont::SansSerif);
    base.setPixelSize(page_.fontSize);
    setDefaultFont(base);
    setHtml(toQt(page_.html));
    setTextWidth(page_.width);
}

bool OrderSheet::print(const std::string& document, const PictureSource& pictures,
                       QPagedPaintDevice& device) {
    OrderSheet sheet(pictures);
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double dotsPerPixel = painter.device()->logicalDpiX() / kPixelsPerInch;
    sheet.show(document, 1);
    const QSizeF paper = device.pageLayout().paintRect(QPageLayout::Point).size() *
                         (kPixelsPerInch / kPointsPerInch);
    const double reduction = qMin(1.0, paper.width() / sheet.formWidth());
    const double left = (paper.width() / reduction - sheet.formWidth()) / 2;

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    // The line between two rows closes one page and, drawn once more, opens the next.
    constexpr double kLine = 1;
    const auto breaks = pageBreaks(sheet, paper.height() / reduction - 2 * kLine);
    const QPageRanges wanted = device.pageRanges();
    bool first = true;
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        if (!wanted.isEmpty() && !wanted.contains(static_cast<int>(i) + 1)) continue;
        if (!first && !device.newPage()) return false;
        first = false;
        painter.save();
        painter.scale(dotsPerPixel * reduction, dotsPerPixel * reduction);
        const PageBreak& from = breaks[i];
        painter.translate(left, kLine - from.at);
        context.clip =
            QRectF(QPointF(-kLine, from.at), QPointF(sheet.formWidth() + kLine, breaks[i + 1].at));
        painter.setClipRect(context.clip.adjusted(0, -kLine, 0, 0));
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        sheet.documentLayout()->draw(&painter, context);
        painter.fillRect(QRectF(from.left, from.at - kLine, from.right - from.left, kLine),
                         QColor(kLineColour));
        painter.restore();
    }
    return painter.end();
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
    // As many dots as the screen has, and no more than once made fewer or more.
    picture = picture.scaled(picture.size() * zoom_ * dotsPerPixel_, Qt::KeepAspectRatio,
                             Qt::SmoothTransformation);
    picture.setDevicePixelRatio(dotsPerPixel_);
    return picture;
}

}  // namespace bramblet
