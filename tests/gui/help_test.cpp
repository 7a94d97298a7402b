// The help: every page is there, whatever they refer to exists, and the search finds them.

#include "gui/desk.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextBrowser>

namespace bramblet::test {
namespace {

QString pageText(const QString& page) {
    QFile file(QStringLiteral(":/help/") + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The values of an attribute, for instance of every "href".
QStringList valuesOf(const QString& attribute, const QString& text) {
    const QRegularExpression wanted(attribute + QStringLiteral("=\"([^\"]*)\""));
    QStringList values;
    for (auto found = wanted.globalMatch(text); found.hasNext();)
        values.append(found.next().captured(1));
    return values;
}

class HelpTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        driver->trigger(QStringLiteral("mu_HelpContents"));
        pages = driver->find<QListWidget>(QStringLiteral("HelpPages"));
        text = driver->find<QTextBrowser>(QStringLiteral("HelpText"));
    }

    QStringList listed() const {
        QStringList titles;
        for (int row = 0; row < pages->count(); ++row) {
            if (!pages->item(row)->isHidden()) titles.append(pages->item(row)->text());
        }
        return titles;
    }
    void search(const char* words) {
        driver->type(QStringLiteral("HelpSearch"), QString::fromLatin1(words));
    }
    QString shownTitle() const { return text->toPlainText().section(QLatin1Char('\n'), 0, 0); }
    /// Clicks where a link's words stand on the page shown.
    void clickWords(const char* words) {
        ASSERT_TRUE(text->find(QString::fromLatin1(words)));
        text->ensureCursorVisible();
        Driver::settle();
        QTextCursor cursor = text->textCursor();
        cursor.setPosition(cursor.selectionStart() + 1);
        QTest::mouseClick(text->viewport(), Qt::LeftButton, {}, text->cursorRect(cursor).center());
        Driver::settle();
    }

    QListWidget* pages = nullptr;
    QTextBrowser* text = nullptr;
};

TEST_F(HelpTest, EveryPageIsListedAndHasATitleOfItsOwn) {
    const QStringList files = QDir(QStringLiteral(":/help")).entryList({QStringLiteral("*.html")});
    EXPECT_GE(files.size(), 10);
    EXPECT_EQ(pages->count(), files.size());
    QSet<QString> titles;
    for (int row = 0; row < pages->count(); ++row) {
        pages->setCurrentRow(row);
        EXPECT_FALSE(pages->item(row)->text().isEmpty());
        EXPECT_EQ(shownTitle(), pages->item(row)->text());
        titles.insert(pages->item(row)->text());
    }
    EXPECT_EQ(titles.size(), files.size());
}

TEST_F(HelpTest, WhatThePagesReferToExistsAndEveryPictureIsUsed) {
    const QDir help(QStringLiteral(":/help"));
    QSet<QString> used;
    for (const QString& page : help.entryList({QStringLiteral("*.html")})) {
        const QString content = pageText(page);
        for (const QString& picture : valuesOf(QStringLiteral("src"), content)) {
            EXPECT_FALSE(QImage(help.filePath(picture)).isNull())
                << qPrintable(page + QStringLiteral(" shows ") + picture);
            used.insert(picture);
        }
        for (const QString& link : valuesOf(QStringLiteral("href"), content)) {
            const QString file = link.section(QLatin1Char('#'), 0, 0);
            const QString place = link.section(QLatin1Char('#'), 1);
            const QString target = file.isEmpty() ? content : pageText(file);
            EXPECT_FALSE(target.isEmpty())
                << qPrintable(page + QStringLiteral(" leads to ") + link);
            EXPECT_TRUE(place.isEmpty() || valuesOf(QStringLiteral("name"), target).contains(place))
                << qPrintable(page + QStringLiteral(" leads to ") + link);
        }
    }
    for (const QString& picture : help.entryList({QStringLiteral("*.png")}))
        EXPECT_TRUE(used.contains(picture)) << qPrintable(picture) << " is on no page";
}

TEST_F(HelpTest, TheSearchListsThePagesWithAllItsWords) {
    const QStringList all = listed();
    search("KETTLEBY");
    EXPECT_EQ(listed(), QStringList{QStringLiteral("Addresses")});
    EXPECT_EQ(shownTitle(), QStringLiteral("Addresses"));
    EXPECT_EQ(text->textCursor().selectedText().toLower(), QStringLiteral("kettleby"));
    const int firstPlace = text->textCursor().position();
    driver->press(QStringLiteral("HelpSearch"), Qt::Key_Return);
    EXPECT_GT(text->textCursor().position(), firstPlace);

    search("backup kettleby");
    EXPECT_EQ(listed(), QStringList{QStringLiteral("Addresses")});
    search("kettleby zebra");
    EXPECT_EQ(listed(), QStringList{});
    auto* const side = pages->parentWidget();
    EXPECT_TRUE(side->findChild<QLabel*>()->isVisible());
    search("");
    EXPECT_EQ(listed(), all);
    EXPECT_FALSE(side->findChild<QLabel*>()->isVisible());
}

TEST_F(HelpTest, LinksLeadToThePlaceOfThePage) {
    ASSERT_EQ(shownTitle(), QStringLiteral("First steps"));
    clickWords("Going on with your own");
    EXPECT_EQ(shownTitle(), QStringLiteral("Orders"));
    EXPECT_EQ(pages->currentItem()->text(), QStringLiteral("Orders"));
    EXPECT_GT(text->verticalScrollBar()->value(), 0);
    EXPECT_TRUE(desktop.asked.empty()) << "nothing leaves the program";
}

}  // namespace
}  // namespace bramblet::test
