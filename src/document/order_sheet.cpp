#include "document/order_sheet.h"

#include "platform/qt_text.h"

#include <QAbstractTextDocumentLayout>
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

void OrderSheet::show(const std::string& document, double zoom) {
    zoom_ = zoom;
    shown_.clear();
    page_ = displayPage(document, zoom);
    QFont base(toQt(page_.fontFace));
    base.setStyleHint(QFont::SansSerif);
    base.setPixelSize(page_.fontSize);
    setDefaultFont(base);
    setHtml(toQt(page_.html));
    setTextWidth(page_.width);
}

int OrderSheet::paginate(const QSizeF& page) {
    setPageSize(page);
    return pageCount();
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
    const QSizeF page(sheet.formWidth(), paper.height() / reduction);
    const double left = (paper.width() / reduction - sheet.formWidth()) / 2;

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    const int pages = sheet.paginate(page);
    for (int i = 0; i < pages; ++i) {
        if (i > 0) device.newPage();
        painter.save();
        painter.scale(dotsPerPixel * reduction, dotsPerPixel * reduction);
        painter.translate(left, -i * page.height());
        context.clip = QRectF(QPointF(0, i * page.height()), page);
        painter.setClipRect(context.clip);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        sheet.documentLayout()->draw(&painter, context);
        painter.restore();
    }
}

QVariant OrderSheet::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource || !name.isRelative()) return {};
    const auto known = shown_.constFind(name);
    if (known != shown_.constEnd()) return *known;
    // Asked for anew with every painting: the data folder is read once for each layout.
    return *shown_.insert(name, pictureNamed(QUrl::fromPercentEncoding(name.toEncoded())));
}

QVariant OrderSheet::pictureNamed(const QString& name) const {
    const std::string bytes = pictures_(fromQt(name));
    QImage picture = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                      static_cast<int>(bytes.size()));
    if (picture.isNull()) return {};
    picture.setDevicePixelRatio(1);
    if (zoom_ == 1) return picture;
    return picture.scaled(picture.size() * zoom_, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace bramblet
