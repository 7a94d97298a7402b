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

// The line between two rows closes one page and, drawn again, opens the next.
constexpr double kLine = 1;
// What stands above each page but the first, in pixels at zoom 1.
constexpr double kRunningHead = 24;
constexpr int kRunningSize = 10;
constexpr const char* kRunningColour = "#666666";
constexpr double kLeastPage = 10 * kRunningHead;  // a lower one has no room for it

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

    const double height = paper.height() / reduction - 2 * kLine;
    const bool running = height > kLeastPage;
    const auto pages = pagesOf(sheet, height, running ? kRunningHead : 0);
    sheet.divideParagraphs(pages);
    const QPageRanges wanted = device.pageRanges();
    bool first = true;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (!wanted.isEmpty() && !wanted.contains(static_cast<int>(i) + 1)) continue;
        if (!first && !device.newPage()) return false;
        first = false;
        painter.save();
        painter.scale(dotsPerPixel * reduction, dotsPerPixel * reduction);
        painter.translate(left, kLine);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        if (i > 0 && running) {
            sheet.drawRunningHead(painter, i + 1, pages.size());
            painter.translate(0, kRunningHead);
        }
        sheet.drawPage(painter, pages[i]);
        painter.restore();
    }
    return painter.end();
}

/// The order's number and the page's, small and grey.
void OrderSheet::drawRunningHead(QPainter& painter, std::size_t page, std::size_t pages) const {
    const QRectF line(0, 0, formWidth(), kRunningHead);
    const QString place = u"page %1 of %2"_s.arg(page).arg(pages);
    QFont font = defaultFont();
    font.setPixelSize(kRunningSize);
    const QFontMetricsF metrics(font);
    const double room = line.width() - 2 * metrics.horizontalAdvance(place);
    const QString order = toQt(page_.heading + " " + page_.number).trimmed();
    painter.setFont(font);
    painter.setPen(QColor(kRunningColour));
    painter.drawText(line, Qt::AlignLeft, metrics.elidedText(order, Qt::ElideRight, room));
    painter.drawText(line, Qt::AlignRight, place);
}

void OrderSheet::drawPage(QPainter& painter, const Page& page) const {
    drawPart(painter, page.headingsFrom, page.headingsTo);
    painter.translate(0, page.headingsHeight());
    drawPart(painter, page.from, page.to);
    painter.fillRect(QRectF(page.lineLeft, -kLine, page.lineRight - page.lineLeft, kLine),
                     QColor(kLineColour));
}

/// Draws the sheet between two heights at the painter's origin.
void OrderSheet::drawPart(QPainter& painter, double from, double to) const {
    if (from == to) return;
    painter.save();
    painter.translate(0, -from);
    const QRectF part(QPointF(-kLine, from), QPointF(formWidth() + kLine, to));
    painter.setClipRect(part.adjusted(0, -kLine, 0, 0));
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    // Lines that only touch the part belong to another one, but would be in a PDF's text.
    context.clip = part.adjusted(0, kTouch, 0, -kTouch);
    documentLayout()->draw(&painter, context);
    painter.restore();
}

/// Splits in two each paragraph that runs on to another page. The text engine draws whole lines of
/// a paragraph beyond the part asked for; they are out of sight, but in a PDF's text.
void OrderSheet::divideParagraphs(const std::vector<Page>& pages) {
    std::vector<int> places;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        const QRectF place = documentLayout()->blockBoundingRect(block);
        auto page = std::lower_bound(pages.begin(), pages.end(), place.top() + kTouch,
                                     [](const Page& each, double top) { return each.to < top; });
        for (int i = 1; i < block.layout()->lineCount() && page != pages.end(); ++i) {
            const QTextLine line = block.layout()->lineAt(i);
            if (place.top() + line.y() < page->to - kTouch) continue;
            places.push_back(block.position() + line.textStart());
            ++page;
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
