#include "gui/app/help_window.h"

#include "gui/platform/boxes.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"

#include <QEvent>
#include <QFile>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocumentFragment>

#include <algorithm>

namespace bramblet {
namespace {

constexpr int kMargin = 22;          // around the text of a page
constexpr int kWidestText = 740;     // longer lines are hard to read
constexpr double kPictureScale = 2;  // pictures have two pixels to one of the page
constexpr int kDimmed = 46;          // how much darker pictures are in dark windows, of 255
constexpr int kContentRole = Qt::UserRole + 1;

/// The pages in the order in which they are listed.
const QStringList kPages{
    u"first-steps"_s, u"orders"_s,   u"lines"_s,    u"addresses"_s, u"lists"_s,
    u"catalogue"_s,   u"printing"_s, u"settings"_s, u"data"_s,      u"keys"_s,
};

QString contentOf(const QString& page) {
    QFile file(u":/help/%1.html"_s.arg(page));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString titleOf(const QString& content) {
    return content.section(u"<h1>"_s, 1).section(u"</h1>"_s, 0, 0);
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

/// Headings, tables and notes in the windows' colours.
QString styleFor(const QPalette& palette) {
    const bool dark = isDark(palette);
    return u"h1 { font-size: 21px; margin-bottom: 10px; }"
           "h2 { font-size: 16px; margin-top: 20px; margin-bottom: 6px; }"
           "p, li { line-height: 128%; } p { margin-top: 6px; margin-bottom: 8px; }"
           "li { margin-bottom: 4px; }"
           "a { color: %1; text-decoration: none; }"
           "th { background-color: %2; text-align: left; } td, th { padding: 5px 12px 5px 8px; "
           "}"
           ".picture { line-height: 100%; margin-top: 10px; margin-bottom: 12px; }"
           ".note { background-color: %3; }"_s.arg(palette.color(QPalette::Link).name(),
                                                   QLatin1String(dark ? "#363a41" : "#eceaf2"),
                                                   QLatin1String(dark ? "#3a3528" : "#fdf6df"));
}

}  // namespace

/// The text of a page: no wider than is easy to read, its pictures sharp at every scale.
class HelpWindow::Page : public QTextBrowser {
  public:
    Page() {
        setOpenLinks(false);
        setFrameShape(NoFrame);
        setLineWrapMode(FixedPixelWidth);
        document()->setDocumentMargin(kMargin);
        document()->setDefaultStyleSheet(styleFor(palette()));
    }

    void showContent(const QString& content) {
        content_ = content;
        setLineWrapColumnOrWidth(textWidth());
        setHtml(content_);
    }

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        QImage picture;
        if (type != QTextDocument::ImageResource) return {};
        if (!picture.load(u":/help/"_s + name.toString())) return {};
        const double room = textWidth() - 2 * kMargin;
        const double width = std::min(picture.width() / kPictureScale, room);
        const double dots = devicePixelRatioF();
        picture = picture.convertToFormat(QImage::Format_RGB32);
        if (qRound(width * dots) < picture.width()) {
            picture = picture.scaledToWidth(qRound(width * dots), Qt::SmoothTransformation);
        }
        picture.setDevicePixelRatio(picture.width() / width);
        if (isDark(palette())) {
            QPainter(&picture).fillRect(picture.rect(), QColor(0, 0, 0, kDimmed));
        }
        return picture;
    }

    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (lineWrapColumnOrWidth() != textWidth()) showAgain();
    }

    void changeEvent(QEvent* event) override {
        QTextBrowser::changeEvent(event);
        if (event->type() != QEvent::PaletteChange) return;
        document()->setDefaultStyleSheet(styleFor(palette()));
        showAgain();
    }

  private:
    /// At the same place.
    void showAgain() {
        const int place = verticalScrollBar()->value();
        showContent(content_);
        verticalScrollBar()->setValue(place);
    }

    int textWidth() const { return std::min(viewport()->width(), kWidestText); }

    QString content_;
};

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent) {
    setObjectName(u"HelpForm"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Bramblet Help"_s);
    text_ = new Page;
    text_->setObjectName(u"HelpText"_s);
    text_->setAccessibleName(u"Help text"_s);
    auto* splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(makeSide());
    splitter->addWidget(text_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({220, 780});
    setCentralWidget(splitter);

    connect(pages_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr) showPage(item->data(Qt::UserRole).toString());
    });
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::findNext);
    connect(text_, &QTextBrowser::anchorClicked, this, &HelpWindow::follow);
    makeShortcuts();
    placeOverParent(*this, QSize(1000, 760));
    listPages();
    pages_->setCurrentRow(0);
}

/// The search and the list of pages.
QWidget* HelpWindow::makeSide() {
    search_ =
        lineEdit("HelpSearch",
                 u"Shows the pages that hold all these words; Enter goes to the next place."_s);
    search_->setPlaceholderText(u"Search"_s);
    search_->setAccessibleName(u"Search"_s);
    search_->setClearButtonEnabled(true);
    nothing_ = new QLabel(u"No page holds these words."_s);
    nothing_->setWordWrap(true);
    nothing_->hide();
    pages_ = new QListWidget;
    pages_->setObjectName(u"HelpPages"_s);
    pages_->setAccessibleName(u"Pages"_s);
    pages_->setSpacing(2);
    return fill(new QWidget, column(-1, {search_, nothing_, grow(pages_)}), QMargins(8, 8, 0, 8));
}

void HelpWindow::makeShortcuts() {
    new QShortcut(QKeySequence(QKeySequence::Find), this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    new QShortcut(QKeySequence(QKeySequence::FindNext), this, [this] { findNext(); });
    new QShortcut(QKeySequence(Qt::Key_Escape), this, [this] { close(); });
}

void HelpWindow::listPages() {
    for (const QString& page : kPages) {
        const QString content = contentOf(page);
        auto* item = new QListWidgetItem(titleOf(content), pages_);
        item->setData(Qt::UserRole, page);
        item->setData(kContentRole, QTextDocumentFragment::fromHtml(content).toPlainText());
    }
}

void HelpWindow::showPage(const QString& page) {
    text_->showContent(contentOf(page));
    if (!search_->text().isEmpty()) findNext();
}

/// Goes to another page, to a place in one, or out to the browser.
void HelpWindow::follow(const QUrl& link) {
    const QString page = link.path().section(QLatin1Char('.'), 0, 0);
    if (!link.isRelative()) {
        emit linkFollowed(link);
        return;
    }
    if (kPages.contains(page)) {
        search_->clear();
        pages_->setCurrentRow(static_cast<int>(kPages.indexOf(page)));
    }
    if (link.hasFragment()) text_->scrollToAnchor(link.fragment());
}

void HelpWindow::search() {
    const QStringList words = search_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < pages_->count(); ++row) {
        QListWidgetItem* item = pages_->item(row);
        const QString text = item->data(kContentRole).toString();
        const bool found = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return text.contains(word, Qt::CaseInsensitive);
        });
        item->setHidden(!found);
        if (found && first == nullptr) first = item;
    }
    nothing_->setVisible(first == nullptr);
    const bool currentHidden =
        pages_->currentItem() == nullptr || pages_->currentItem()->isHidden();
    if (first != nullptr && currentHidden) pages_->setCurrentItem(first);
    text_->moveCursor(QTextCursor::Start);
    findNext();
}

/// Goes to the next place where the searched words stand together, or else to the next place of the
/// first word, and from the end back to the start of the page.
void HelpWindow::findNext() {
    const QString text = search_->text().trimmed();
    if (text.isEmpty()) return;
    for (const QString& wanted : {text, text.section(QLatin1Char(' '), 0, 0)}) {
        if (text_->find(wanted)) return;
        text_->moveCursor(QTextCursor::Start);
        if (text_->find(wanted)) return;
    }
}

}  // namespace bramblet
