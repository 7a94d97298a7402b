// The help: every page is there, whatever they refer to exists, and the search finds them.

#include "gui/desk.h"

namespace bramblet::test {
namespace {

QString pageText(const QString& page) {
    QFile file(":/help/" + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The values of an attribute, for instance of every "href".
QStringList valuesOf(const QString& attribute, const QString& text) {
    const QRegularExpression wanted(attribute + "=\"([^\"]*)\"");
    QStringList values;
    for (auto found = wanted.globalMatch(text); found.hasNext();)
        values.append(found.next().captured(1));
    return values;
}

class HelpTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        driver->trigger("mu_HelpContents");
        pages = driver->find<QListWidget>("HelpPages");
        shown = driver->find<QTextBrowser>("HelpText");
    }

    QStringList listed() const {
        QStringList titles;
        for (int row = 0; row < pages->count(); ++row) {
            if (!pages->item(row)->isHidden()) titles.append(pages->item(row)->text());
        }
        return titles;
    }
    QString shownTitle() const { return shown->toPlainText().section('\n', 0, 0); }

    QListWidget* pages = nullptr;
    QTextBrowser* shown = nullptr;
};

TEST_F(HelpTest, EveryPageIsListedUnderItsOwnTitleAndWhatItRefersToExists) {
    const QDir help(":/help");
    const QStringList files = help.entryList({"*.html"});
    EXPECT_GE(files.size(), 10);
    EXPECT_EQ(pages->count(), files.size());
    QSet<QString> titles;
    for (int row = 0; row < pages->count(); ++row) {
        pages->setCurrentRow(row);
        EXPECT_FALSE(shownTitle().isEmpty());
        EXPECT_EQ(shownTitle(), pages->item(row)->text());
        titles.insert(shownTitle());
    }
    EXPECT_EQ(titles.size(), files.size());

    QSet<QString> used;
    for (const QString& page : files) {
        const QString content = pageText(page);
        for (const QString& picture : valuesOf("src", content)) {
            EXPECT_FALSE(QImage(help.filePath(picture)).isNull()) << page << " shows " << picture;
            used.insert(picture);
        }
        for (const QString& link : valuesOf("href", content)) {
            const QString file = link.section('#', 0, 0);
            const QString place = link.section('#', 1);
            const QString target = file.isEmpty() ? content : pageText(file);
            EXPECT_FALSE(target.isEmpty()) << page << " leads to " << link;
            EXPECT_TRUE(place.isEmpty() || valuesOf("name", target).contains(place))
                << page << " leads to " << link;
        }
    }
    for (const QString& picture : help.entryList({"*.png"}))
        EXPECT_TRUE(used.contains(picture)) << picture << " is on no page";
}

TEST_F(HelpTest, TheSearchListsThePagesWithAllItsWords) {
    const QStringList all = listed();
    auto* const nothingFound = pages->parentWidget()->findChild<QLabel*>();
    const auto search = [&](const QString& words, const QStringList& found) {
        type("HelpSearch", words);
        EXPECT_EQ(listed(), found) << words;
        EXPECT_EQ(nothingFound->isVisible(), found.isEmpty()) << words;
    };
    search("KETTLEBY", {"Addresses"});
    EXPECT_EQ(shownTitle(), "Addresses");
    EXPECT_EQ(shown->textCursor().selectedText().toLower(), "kettleby");
    const int firstPlace = shown->textCursor().position();
    driver->press("HelpSearch", Qt::Key_Return);
    EXPECT_GT(shown->textCursor().position(), firstPlace);
    search("backup kettleby", {"Addresses"});
    search("kettleby zebra", {});
    search("", all);
}

TEST_F(HelpTest, LinksLeadToThePlaceOfThePage) {
    ASSERT_EQ(shownTitle(), "First steps");
    ASSERT_TRUE(shown->find("Going on with your own"));
    shown->ensureCursorVisible();
    Driver::settle();
    QTextCursor words = shown->textCursor();
    words.setPosition(words.selectionStart() + 1);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {}, shown->cursorRect(words).center());
    Driver::settle();
    EXPECT_EQ(shownTitle(), "Orders");
    EXPECT_EQ(pages->currentItem()->text(), "Orders");
    EXPECT_GT(shown->verticalScrollBar()->value(), 0);
    EXPECT_TRUE(desktop.asked.empty()) << "nothing leaves the program";
}

}  // namespace
}  // namespace bramblet::test
