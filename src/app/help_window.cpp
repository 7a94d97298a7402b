#include "app/help_window.h"

#include "platform/qt_text.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace bramblet {
namespace {

/// The pages in the order in which they are listed.
const QStringList kPages{
    QStringLiteral("first-steps"), QStringLiteral("orders"),   QStringLiteral("lines"),
    QStringLiteral("addresses"),   QStringLiteral("lists"),    QStringLiteral("catalogue"),
    QStringLiteral("printing"),    QStringLiteral("settings"), QStringLiteral("data"),
    QStringLiteral("keys"),
};

QString contentOf(const QString& page) {
    QFile file(QStringLiteral(":/help/%1.html").arg(page));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString titleOf(const QString& content) {
    const auto start = content.indexOf(QStringLiteral("<h1>")) + 4;
    return content.mid(start, content.indexOf(QStringLiteral("</h1>")) - start);
}

/// The page's words without its tags.
QString wordsOf(const QString& content) {
    QTextDocument document;
    document.setHtml(content);
    return document.toPlainText();
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("HelpForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Bramblet Help"));
    search_ = new QLineEdit;
    search_->setObjectName(QStringLiteral("HelpSearch"));
    search_->setPlaceholderText(tr("Search"));
    search_->setToolTip(
        tr("Shows the pages that hold all these words; Enter goes to the next place."));
    search_->setClearButtonEnabled(true);
    pages_ = new QListWidget;
    pages_->setObjectName(QStringLiteral("HelpPages"));
    pages_->setAccessibleName(tr("Pages"));
    browser_ = new QTextBrowser;
    browser_->setObjectName(QStringLiteral("HelpText"));
    browser_->setAccessibleName(tr("Help text"));
    browser_->setOpenLinks(false);
    browser_->document()->setDocumentMargin(18);
    browser_->document()->setDefaultStyleSheet(QStringLiteral(
        "h1 { font-size: x-large; } h2 { font-size: large; } td { padding: 3px 10px 3px 0px; }"));
    browser_->setSearchPaths({QStringLiteral(":/help")});

    connect(pages_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr) showPage(item->data(Qt::UserRole).toString());
    });
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::findNext);
    connect(browser_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const QString page = link.toString().section(QLatin1Char('.'), 0, 0);
        if (kPages.contains(page)) {
            search_->clear();
            pages_->setCurrentRow(static_cast<int>(kPages.indexOf(page)));
        } else if (runBrowser) {
            runBrowser(fromQt(link.toString()));
        }
    });
    const auto shortcut = [this](const QKeySequence& keys, const auto& command) {
        auto* action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, command);
        addAction(action);
    };
    shortcut(QKeySequence::Find, [this] { search_->setFocus(); });
    shortcut(QKeySequence::FindNext, [this] { findNext(); });
    shortcut(QKeySequence(Qt::Key_Escape), [this] { close(); });

    auto* side = new QWidget;
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(8, 8, 0, 8);
    sideLayout->addWidget(search_);
    sideLayout->addWidget(pages_, 1);
    auto* splitter = new QSplitter;
    splitter->addWidget(side);
    splitter->addWidget(browser_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({220, 780});
    setCentralWidget(splitter);
    resize(QSize(1000, 760).boundedTo(screen()->availableGeometry().size() - QSize(40, 60)));
    listPages();
    pages_->setCurrentRow(0);
}

void HelpWindow::listPages() {
    for (const QString& page : kPages) {
        const QString content = contentOf(page);
        auto* item = new QListWidgetItem(titleOf(content), pages_);
        item->setData(Qt::UserRole, page);
        item->setData(Qt::UserRole + 1, wordsOf(content));
    }
}

void HelpWindow::showPage(const QString& page) {
    browser_->setHtml(contentOf(page));
    if (!search_->text().isEmpty()) findNext();
}

void HelpWindow::search() {
    const QStringList words = search_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < pages_->count(); ++row) {
        QListWidgetItem* item = pages_->item(row);
        const QString text = item->data(Qt::UserRole + 1).toString();
        const bool found = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return text.contains(word, Qt::CaseInsensitive);
        });
        item->setHidden(!found);
        if (found && first == nullptr) first = item;
    }
    const bool currentHidden =
        pages_->currentItem() == nullptr || pages_->currentItem()->isHidden();
    if (first != nullptr && currentHidden) pages_->setCurrentItem(first);
    browser_->moveCursor(QTextCursor::Start);
    findNext();
}

/// Goes to the next place of the searched words (of the first one when they do not stand together),
/// from the end back to the start of the page.
void HelpWindow::findNext() {
    const QString text = search_->text().trimmed();
    if (text.isEmpty()) return;
    for (const QString& wanted : {text, text.section(QLatin1Char(' '), 0, 0)}) {
        if (browser_->find(wanted)) return;
        browser_->moveCursor(QTextCursor::Start);
        if (browser_->find(wanted)) return;
    }
}

}  // namespace bramblet
