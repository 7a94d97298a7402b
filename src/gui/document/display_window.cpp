#include "gui/document/display_window.h"

#include "core/platform/file_system.h"
#include "gui/platform/boxes.h"
#include "gui/platform/icons.h"
#include "gui/platform/paper.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"

#include <QBuffer>
#include <QCloseEvent>
#include <QMenuBar>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWheelEvent>
#include <QtMath>

namespace bramblet {
namespace {

constexpr double kUsualZoom = 1.25;
constexpr double kZoomStep = 1.1;
constexpr double kSmallestZoom = 0.4;
constexpr double kLargestZoom = 4;
constexpr int kPaperMargin = 36;  // of the sheet, at its own size
constexpr int kDeskMargin = 18;   // around the sheet

}  // namespace

/// A text browser whose page does not fill it: the rest is the desk.
class DisplayWindow::Desk : public QTextBrowser {
  public:
    Desk() {
        setOpenLinks(false);
        setFrameShape(QFrame::NoFrame);
        setLineWrapMode(FixedPixelWidth);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        // Paper is white and ink black, whatever the theme.
        QPalette paper = palette();
        paper.setColor(QPalette::Base, Qt::white);
        paper.setColor(QPalette::Text, Qt::black);
        setPalette(paper);
    }

    /// Puts the sheet in the middle, with the desk around and below it.
    void place(int formWidth) {
        setLineWrapColumnOrWidth(formWidth);
        // The lines between cells may need a pixel more, which is not worth a scroll bar.
        const QSize sheet(qCeil(document()->size().width()), qRound(document()->size().height()));
        const int room = width() - verticalScrollBar()->sizeHint().width();
        const int left = qMax(kDeskMargin, (room - sheet.width()) / 2);
        const int right = qMax(0, room - sheet.width() - left);
        setViewportMargins(left, kDeskMargin, right,
                           qMax(0, height() - kDeskMargin - sheet.height()));
    }
};

DisplayWindow::DisplayWindow(OrderViewer& viewer, QWidget* parent)
    : QMainWindow(parent), viewer_(viewer), zoom_(kUsualZoom) {
    setObjectName(u"TandrilDisplayForm"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    browser_ = new Desk;
    browser_->setObjectName(u"WebBrowser1"_s);
    browser_->setAccessibleName(u"The order as it is printed"_s);
    browser_->installEventFilter(this);
    browser_->viewport()->installEventFilter(this);
    sheet_ = new OrderSheet(pictures(), browser_);
    browser_->setDocument(sheet_);
    connect(browser_, &QTextBrowser::anchorClicked, this, &DisplayWindow::linkFollowed);

    auto* content = new QWidget;
    content->setAutoFillBackground(true);
    fill(content, column(0, {makeBar(), grow(browser_)}));
    browser_->setBackgroundRole(QPalette::Window);
    recolour(content, [](QPalette& desk) {
        desk.setColor(QPalette::Window, desk.color(QPalette::Window).darker(112));
    });
    setCentralWidget(content);
    makeMenus();

    placeOverParent(*this, QSize(1000, 900));
    navigate();
}

QWidget* DisplayWindow::makeBar() {
    auto* bar = new QWidget;
    bar->setAutoFillBackground(true);
    auto* buttons =
        row(2, {toolButton("Print", Drawing::Print, u"&Print ..."_s, u"Print this order."_s,
                           [this] { print(); }),
                toolButton("Preview", Drawing::Preview, u"Previe&w ..."_s,
                           u"See the pages before printing."_s, [this] { preview(); }),
                toolButton("SavePdf", Drawing::Save, u"Save as P&DF ..."_s,
                           u"Save this order as a PDF file."_s, [this] { savePdf(); }),
                toolButton("IE_Button", Drawing::Mail, u"&E-mail"_s,
                           u"Send this order with your mail program."_s,
                           [this] { viewer_.IE_Button_Click(); }),
                toolButton("MailPdf", Drawing::Mail, u"E-&mail as PDF"_s,
                           u"Send this order as a PDF with your mail program."_s,
                           [this] { viewer_.mailPdf(pdf()); }),
                toolButton("Configuration", Drawing::Settings, u"&Configuration ..."_s,
                           u"Change how orders look."_s, [this] { emit configurationWanted(); }),
                spring(),
                toolButton("Leave", Drawing::Close, u"C&lose"_s, u"Close this window."_s,
                           [this] { close(); })});
    return fill(bar, buttons, QMargins(8, 4, 8, 4));
}

void DisplayWindow::makeMenus() {
    QMenu* file = menuBar()->addMenu(u"&File"_s);
    addEntry(file, "mu_Print", u"&Print ..."_s, QKeySequence::Print, [this] { print(); });
    addEntry(file, "mu_Preview", u"Print Previe&w ..."_s, {}, [this] { preview(); });
    addEntry(file, "mu_SavePdf", u"&Save as PDF ..."_s, QKeySequence::Save, [this] { savePdf(); });
    addEntry(file, "mu_Mail", u"&E-mail"_s, {}, [this] { viewer_.IE_Button_Click(); });
    addEntry(file, "mu_MailPdf", u"E-&mail as PDF"_s, {}, [this] { viewer_.mailPdf(pdf()); });
    addEntry(file, "mu_conf", u"&Configuration ..."_s, {}, [this] { emit configurationWanted(); });
    file->addSeparator();
    addEntry(file, "mu_exit", u"C&lose"_s, QKeySequence(Qt::Key_Escape), [this] { close(); });
    QMenu* view = menuBar()->addMenu(u"&View"_s);
    addEntry(view, "mu_ZoomIn", u"Zoom &In"_s, QKeySequence::ZoomIn,
             [this] { setZoom(zoom_ * kZoomStep); });
    addEntry(view, "mu_ZoomOut", u"Zoom &Out"_s, QKeySequence::ZoomOut,
             [this] { setZoom(zoom_ / kZoomStep); });
    addEntry(view, "mu_ZoomUsual", u"&Usual Size"_s, QKeySequence(u"Ctrl+0"_s),
             [this] { setZoom(kUsualZoom); });
}

void DisplayWindow::navigate() {
    setWindowTitle(u"Order %1"_s.arg(toQt(viewer_.orderNumber())));
    document_ = viewer_.document();
    setZoom(zoom_);
}

void DisplayWindow::rewrite() {
    viewer_.ReWrite();
    navigate();
}

void DisplayWindow::setZoom(double zoom) {
    zoom_ = qBound(kSmallestZoom, zoom, kLargestZoom);
    const int place = browser_->verticalScrollBar()->value();
    sheet_->setDocumentMargin(kPaperMargin * zoom_);
    sheet_->show(document_, zoom_, devicePixelRatioF());
    placePaper();
    browser_->moveCursor(QTextCursor::Start);  // or else it would be scrolled into view
    browser_->verticalScrollBar()->setValue(place);
}

void DisplayWindow::placePaper() {
    browser_->place(sheet_->formWidth() + qRound(2 * kPaperMargin * zoom_));
}

void DisplayWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    emit closed();
}

bool DisplayWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == browser_ && event->type() == QEvent::Resize) placePaper();
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
            // A touch pad scrolls by small fractions of a step.
            turned_ += wheel->angleDelta().y();
            if (qAbs(turned_) < QWheelEvent::DefaultDeltasPerStep) return true;
            setZoom(turned_ > 0 ? zoom_ * kZoomStep : zoom_ / kZoomStep);
            turned_ = 0;
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void DisplayWindow::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(usualPage());
    printer.setDocName(windowTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    viewer_.printed(OrderSheet::print(document_, pictures(), printer));
}

void DisplayWindow::preview() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(usualPage());
    printer.setDocName(windowTitle());
    QPrintPreviewDialog dialog(&printer, this);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { OrderSheet::print(document_, pictures(), *target); });
    dialog.resize(size());
    dialog.exec();
}

void DisplayWindow::savePdf() {
    const auto path = viewer_.pdfTarget();
    if (path) viewer_.savePdf(*path, pdf());
}

std::string DisplayWindow::pdf() const {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setTitle(windowTitle());
    writer.setPageLayout(usualPage());
    OrderSheet::print(document_, pictures(), writer);
    return pdf.data().toStdString();
}

PictureSource DisplayWindow::pictures() const {
    return [this](const std::string& name) { return viewer_.picture(name); };
}

}  // namespace bramblet
