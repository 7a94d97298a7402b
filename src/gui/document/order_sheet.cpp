#include "gui/document/order_sheet.h"

#include "core/platform/file_system.h"
#include "gui/platform/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QByteArrayList>
#include <QFontMetricsF>
#include <QImageReader>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QUrl>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace bramblet {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
// A picture with more dots than a page scanned at 600 dots per inch is no letterhead, and a small
// file may hold one that fills the memory.
constexpr qint64 kMostDots = 40'000'000;
constexpr double kMostDotsShown = 16'000'000;
// Others may call for files of their own, or take long.
const QByteArrayList kPictures{"bmp", "gif", "jpeg", "png"};
constexpr double kTouch = .5;            // pixels by which two things may touch
constexpr double kMostOfHeading = .65;   // of the form's width
constexpr double kHighestPicture = 900;  // pixels at zoom 1, so that it fits a page

}  // namespace

OrderSheet::OrderSheet(PictureSource pictures, QObject* parent)
    : QTextDocument(parent), pictures_(std::move(pictures)) {
    setUndoRedoEnabled(false);
    setDocumentMargin(0);
}

void OrderSheet::show(const std::string& document, double zoom, double dotsPerPixel) {
    zoom_ = zoom;
    dotsPerPixel_ = dotsPerPixel;
    layOut(document, Medium::Screen);
}

void OrderSheet::layOut(const std::string& document, Medium medium) {
    loaded_.clear();
    page_ = displayPage(document, zoom_);
    QFont base(toQt(page_.fontFace));
    base.setStyleHint(QFont::SansSerif);
    base.setPixelSize(page_.fontSize);
    // Each letter stands by itself, so that a PDF holds "office" and no ligatures: letters with
    // spacing, even spacing of nothing, are not joined.
    base.setLetterSpacing(QFont::PercentageSpacing, 100);
    setDefaultFont(base);
    const double margins = 2 * documentMargin();
    clear();
    setTextWidth(page_.width + margins);  // first, so that it is laid out only once
    setHtml(html(medium));
    fitHeading();
    const double needed = size().width() - margins;
    constexpr double kRounding = 2;
    if (needed <= page_.width + kRounding) return;
    page_.width = qCeil(needed);
    setTextWidth(page_.width + margins);
}

QString OrderSheet::html(Medium medium) {
    if (!page_.topGraphic) return toQt(page_.html);
    const auto& graphic = *page_.topGraphic;
    const QString before = toQt(page_.html.substr(0, graphic.place));
    QString tag = toQt(page_.html.substr(graphic.place, graphic.length));
    if (!graphic.plain || picture(toQt(graphic.name)).isNull())
        tag = medium == Medium::Screen ? hint() : QString();
    return before + tag + toQt(page_.html.substr(graphic.place + graphic.length));
}

/// Shown in place of a missing top graphic: what to do about it.
QString OrderSheet::hint() const {
    const QString name = toQt(page_.topGraphic->name).trimmed().toHtmlEscaped();
    const QString what = name.isEmpty() ? u"No top graphic is chosen."_s
                                        : u"The top graphic %1 cannot be shown."_s.arg(name);
    return u"<i style=\"color:#767676\">%1<br>%2</i>"_s.arg(
        what,
        u"Choose another one, or company lines, in Configuration.<br>"
        "This note is not printed."_s);
}

bool OrderSheet::print(const std::string& document, const PictureSource& pictures,
                       QPagedPaintDevice& device) {
    OrderSheet sheet(pictures);
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double dotsPerPixel = painter.device()->logicalDpiX() / kPixelsPerInch;
    sheet.dotsPerPixel_ = 0;
    sheet.layOut(document, Medium::Paper);
    const QSizeF paper = device.pageLayout().paintRect(QPageLayout::Point).size() *
                         (kPixelsPerInch / kPointsPerInch);
    const double reduction = qMin(1.0, paper.width() / sheet.formWidth());
    const double left = (paper.width() / reduction - sheet.formWidth()) / 2;

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    // The line between two rows closes one page and, drawn again, opens the next.
    constexpr double kLine = 1;
    const auto breaks = pageBreaks(sheet, paper.height() / reduction - 2 * kLine);
    sheet.divideParagraphs(breaks);
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
        const QRectF part(QPointF(-kLine, from.at),
                          QPointF(sheet.formWidth() + kLine, breaks[i + 1].at));
        painter.setClipRect(part.adjusted(0, -kLine, 0, 0));
        // Lines that only touch the part belong to another page, but would be in a PDF's text.
        context.clip = part.adjusted(0, kTouch, 0, -kTouch);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        sheet.documentLayout()->draw(&painter, context);
        painter.fillRect(QRectF(from.left, from.at - kLine, from.right - from.left, kLine),
                         QColor(kLineColour));
        painter.restore();
    }
    return painter.end();
}

/// Splits in two each paragraph that runs on to another page. The text engine draws whole lines of
/// a paragraph beyond the part asked for; they are out of sight, but in a PDF's text.
void OrderSheet::divideParagraphs(const std::vector<PageBreak>& breaks) {
    std::vector<int> places;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        const QRectF place = documentLayout()->blockBoundingRect(block);
        auto pageEnd = std::lower_bound(
            breaks.begin(), breaks.end(), place.top() + kTouch,
            [](const PageBreak& pageBreak, double top) { return pageBreak.at < top; });
        for (int i = 1; i < block.layout()->lineCount() && pageEnd != breaks.end(); ++i) {
            const QTextLine line = block.layout()->lineAt(i);
            if (place.top() + line.y() < pageEnd->at - kTouch) continue;
            places.push_back(block.position() + line.textStart());
            ++pageEnd;
        }
    }
    for (auto at = places.rbegin(); at != places.rend(); ++at)
        divideParagraph(*at);
}

void OrderSheet::divideParagraph(int place) {
    QTextCursor cursor(this);
    cursor.setPosition(place);
    QTextBlockFormat upper = cursor.blockFormat();
    QTextBlockFormat lower = upper;
    lower.setTopMargin(0);
    lower.setObjectIndex(-1);  // it is not a list entry of its own
    upper.setBottomMargin(0);
    if (characterAt(place - 1) == QChar::LineSeparator) cursor.deletePreviousChar();
    cursor.insertBlock(lower);
    cursor.movePosition(QTextCursor::PreviousBlock);
    cursor.setBlockFormat(upper);
}

QVariant OrderSheet::loadResource(int type, const QUrl& name) {
    QImage blank(1, 1, QImage::Format_ARGB32);
    blank.fill(Qt::transparent);
    if (type != QTextDocument::ImageResource) return QByteArray();
    if (!name.isRelative()) return blank;
    const QImage& shown = picture(name.path(QUrl::FullyDecoded));
    return shown.isNull() ? blank : shown;
}

/// Laying out and painting each ask for it; the file is read once.
const QImage& OrderSheet::picture(const QString& file) {
    auto found = loaded_.find(file);
    if (found == loaded_.end()) found = loaded_.insert(file, load(file));
    return *found;
}

QImage OrderSheet::load(const QString& file) const {
    const std::string plainName = fromQt(file);
    if (!isPlainFileName(plainName)) return {};
    const std::string bytes = pictures_(plainName);
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    if (!kPictures.contains(reader.format())) return {};
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > kMostDots) return {};
    QImage picture = reader.read();
    if (picture.isNull()) return {};

    const double width = picture.width();
    const double height = picture.height();
    const double shown = qMin(zoom_, qMin(roomFor(file) / width, kHighestPicture * zoom_ / height));
    // As many dots as the screen has, resampled no more than once.
    const double most = std::sqrt(kMostDotsShown / (width * height));
    const double dots = qMin(most, dotsPerPixel_ > 0 ? shown * dotsPerPixel_ : 1);
    if (dots != 1) {
        picture = picture.scaled(qMax(1, qRound(width * dots)), qMax(1, qRound(height * dots)),
                                 Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(dots / shown);
    return picture;
}

/// The width that a picture may have: the form's, less the heading beside a top graphic.
double OrderSheet::roomFor(const QString& file) const {
    if (!page_.topGraphic || toQt(page_.topGraphic->name) != file) return page_.width;
    constexpr double kAround = 12;
    const double heading = qMin(headingWidth(), kMostOfHeading * page_.width);
    return page_.width - heading - kAround * zoom_;
}

/// The heading's width at full size, in the form's font.
double OrderSheet::headingWidth() const {
    QFont font = defaultFont();
    font.setPixelSize(qMax(1, page_.headingSize));
    font.setBold(true);
    return QFontMetricsF(font).horizontalAdvance(toQt(page_.heading));
}

/// On a narrow form the heading is made smaller, to leave room for what stands beside it.
void OrderSheet::fitHeading() {
    const double room = kMostOfHeading * page_.width;
    const double width = headingWidth();
    if (width <= room) return;
    QTextCursor heading = find(toQt(page_.heading), 0, FindCaseSensitively);
    if (!heading.blockFormat().nonBreakableLines()) return;
    QTextCharFormat smaller;
    smaller.setProperty(QTextFormat::FontPixelSize,
                        qMax(1, static_cast<int>(page_.headingSize * room / width)));
    heading.mergeCharFormat(smaller);
}

}  // namespace bramblet
