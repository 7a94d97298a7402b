#include "support/office.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace bramblet::test {
namespace {

class Viewer : public Office {
  protected:
    void SetUp() override { start(); }
    OrderViewer& viewer() { return program().viewer; }
    void saveOrder() {
        newOrder();
        addLine({"2", "ea", "Hammer", "10"});
        save();
    }
    void viewSavedOrder() {
        saveOrder();
        viewer().MakeOrder_Click();
    }
    std::vector<std::filesystem::path> mailed() {
        viewer().IE_Button_Click();
        return desktop.mail.attachments;
    }

    void savePdf() {
        if (const auto path = viewer().pdfTarget()) viewer().savePdf(*path, "%PDF");
    }
};

TEST_F(Viewer, APendingOrderIsShownAsItIsEachTime) {
    for (const std::string item : {"Hammer", "Saw"}) {
        addLine({"1", "ea", item, "10"});
        viewer().MakeOrder_Click();
        EXPECT_TRUE(contains(viewer().document(), item));
    }
    EXPECT_EQ(viewer().path(), data("po.htm"));
    EXPECT_EQ(screen.opened.size(), 2u);
    EXPECT_EQ(order().OrderTotalEd, "20.00");
}

TEST_F(Viewer, ASavedOrderIsShownAsSavedAndAChangedOneIsWrittenFirst) {
    saveOrder();
    writeFile(data("000001.htm"), "kept by hand");
    viewer().MakeOrder_Click();
    EXPECT_EQ(viewer().document(), "kept by hand");
    type(&Order::JobNumberEd, "J-9");
    viewer().MakeOrder_Click();
    EXPECT_TRUE(contains(stored("000001.htm"), "<!-- JOB J-9 JOB -->"));
    EXPECT_TRUE(dirty()) << "viewing is not saving";
    EXPECT_FALSE(contains(stored("po_data.dat"), "J-9"));
    save();
    os::remove(data("000001.htm"));
    viewer().MakeOrder_Click();
    EXPECT_TRUE(os::exists(data("000001.htm"))) << "a lost document is written anew";
    EXPECT_EQ(screen.opened.size(), 3u);
    // Rewritten with the settings as they are now.
    program().settings.UseTopGraphic = "N";
    program().settings.IDText1 = "Larkfield Joinery";
    EXPECT_FALSE(contains(viewer().document(), "Larkfield"));
    viewer().ReWrite();
    EXPECT_TRUE(contains(viewer().document(), "Larkfield Joinery"));
}

TEST_F(Viewer, WhatCannotBeTotalledWrittenOrReadIsNotShown) {
    saveOrder();
#ifndef _WIN32
    os::remove(data("000001.htm"));
    ASSERT_EQ(::mkfifo(data("000001.htm").c_str(), 0666), 0);
    prompts.expectSaying("was not read");
    viewer().MakeOrder_Click();
#endif
    os::remove(data("000001.htm"));
    writeFile(data("000001.htm"), std::string(50 << 20, ' '));
    prompts.expectSaying("was not read: it is 50 MB long, much longer than any order.");
    viewer().MakeOrder_Click();
    type(&Order::ShippingEd, "1.2.3");
    prompts.expectSaying("1.2.3");
    viewer().MakeOrder_Click();
    type(&Order::ShippingEd, "1");
    given(&Order::PONoEd, "../1");
    viewer().MakeOrder_Click();
    expectSaid("../1");
    EXPECT_EQ(screen.opened.size(), 0u);
}

TEST_F(Viewer, TheMailHasTheDocumentAndTheGraphicWhenThereIsOne) {
    using Paths = std::vector<std::filesystem::path>;
    viewSavedOrder();
    program().settings.UseTopGraphic = "Y";
    for (const char* notThere : {"top.gif   ", "   ", ".", "../po_data/000001.htm"}) {
        program().settings.TopGraphic = notThere;
        EXPECT_EQ(mailed(), Paths{data("000001.htm")}) << notThere;
    }
    EXPECT_EQ(desktop.mail.subject, "Bramblet #000001");
    EXPECT_EQ(desktop.mail.text, "html format purchase order attached (file 000001.htm)");
    program().settings.TopGraphic = "top.gif   ";
    writeFile(data("top.gif"), "GIF");
    EXPECT_EQ(mailed(), (Paths{data("000001.htm"), data("top.gif")}));
    program().settings.UseTopGraphic = "N";
    EXPECT_EQ(mailed(), Paths{data("000001.htm")});
}

TEST_F(Viewer, AMailedPdfHasTheOrdersNumberAndStaysForADay) {
    viewSavedOrder();
    const auto mailedPdf = [&](const std::string& pdf) {
        viewer().mailPdf(pdf);
        EXPECT_EQ(desktop.mail.attachments.size(), 1u);
        return desktop.mail.attachments.back();
    };
    const std::filesystem::path first = mailedPdf("%PDF 1");
    EXPECT_EQ(first.filename(), "000001.pdf");
    EXPECT_EQ(desktop.mail.subject, "Bramblet #000001");
    EXPECT_EQ(desktop.mail.text, "pdf format purchase order attached (file 000001.pdf)");
#ifndef _WIN32
    EXPECT_EQ(std::filesystem::status(first.parent_path()).permissions(),
              std::filesystem::perms::owner_all);
#endif
    const std::filesystem::path second = mailedPdf("%PDF 2");
    EXPECT_EQ(contentOf(first), "%PDF 1") << "the mail program may not have read it yet";
    EXPECT_EQ(contentOf(second), "%PDF 2");
    given(&Order::PONoEd, "../9");
    EXPECT_EQ(mailedPdf("%PDF 3").parent_path(), first.parent_path());

    const auto setDay = [&](const std::filesystem::path& path, int day) {
        constexpr int kDayOf1970 = 25569;
        constexpr std::int64_t kDay = 86'400'000'000'000;
        os::setModified(path, (kToday - kDayOf1970 + day) * kDay + kDay / 2);
    };
    setDay(first, -3);
    setDay(second, -2);
    program().lookAround();
    EXPECT_FALSE(os::exists(first));
    EXPECT_TRUE(os::exists(second));
    setDay(second, -3);
    EXPECT_EQ(mailedPdf("%PDF 4").filename(), "__9 2.pdf");
    EXPECT_TRUE(contains(desktop.mail.text, "(file __9 2.pdf)")) << desktop.mail.text;
    EXPECT_FALSE(os::exists(second));
}

TEST_F(Viewer, WhatCannotBeMailedIsTold) {
    viewSavedOrder();
    for (const auto& [result, told] :
         {std::pair(MailResult::Cancelled, ""),
          std::pair(MailResult::NoMailProgram, "No mail program was found"),
          std::pair(MailResult::Failed, "could not take the order")}) {
        desktop.mailResult = result;
        for (const bool asPdf : {false, true}) {
            if (*told != '\0') prompts.expectSaying(told);
            asPdf ? viewer().mailPdf("%PDF") : viewer().IE_Button_Click();
        }
    }
    desktop.mail = {};
    std::filesystem::remove_all(home() / "mail.tmp");
    writeFile(home() / "mail.tmp", "not a folder");
    prompts.expectSaying("The PDF was not written");
    viewer().mailPdf("%PDF");
    EXPECT_TRUE(desktop.mail.subject.empty()) << "there is nothing to be mailed";
}

TEST_F(Viewer, TheMailsPathsAreThoseOfTheFilesWhateverTheLettersInThem) {
    const std::filesystem::path folder = documents / u8"home-\u0142ukasz";
    std::filesystem::create_directory(folder);
    program().settings.DataDirectory = folderText(folder).value();
    program().leave({});
    start();
    given(&Order::PONoEd, "caf\3511");
    viewer().MakeOrder_Click();
    ASSERT_EQ(mailed().size(), 1u);
    EXPECT_EQ(desktop.mail.attachments[0], folder / u8"caf\u00E91.htm");
    EXPECT_TRUE(std::filesystem::exists(desktop.mail.attachments[0]));
}

TEST_F(Viewer, PicturesComeFromTheDataFolderAlone) {
    writeFile(data("top.gif"), "GIF");
    writeFile(documents / "secret.gif", "no");
    std::filesystem::create_directory(data("folder.gif"));
    EXPECT_EQ(viewer().picture("top.gif"), "GIF");
    for (const std::string& other :
         {std::string("missing.gif"), std::string("../../secret.gif"),
          (documents / "secret.gif").string(), std::string("folder.gif")})
        EXPECT_EQ(viewer().picture(other), "") << other;
    EXPECT_EQ(waits, 0) << "in the midst of a page nothing can be waited for";
}

TEST_F(Viewer, APrinterThatCannotBeUsedIsTold) {
    viewer().printed(true);
    prompts.expectSaying("The order was not printed", Answer::Ok);
    viewer().printed(false);
}

TEST_F(Viewer, APdfReplacesAnotherFileOnlyWhenTheUserSaysSo) {
    viewSavedOrder();
    const auto choosePdf = [&](const std::string& name, const std::optional<Message>& told = {}) {
        prompts.expectChoice("000001.pdf", documents / name);
        if (told) prompts.expect(*told, Answer::No);
        savePdf();
    };
    choosePdf("1.pdf");
    EXPECT_EQ(contentOf(documents / "1.pdf"), "%PDF");
    writeFile(documents / "1.pdf", "another");
    choosePdf("1.pdf", replaceQuestion());
    EXPECT_EQ(contentOf(documents / "1.pdf"), "another");
    std::filesystem::create_directory(documents / "folder.pdf");
    for (const std::string name : {"nowhere/1.pdf", "folder.pdf/"}) {
        prompts.expectChoice("000001.pdf", documents / name);
        prompts.expectSaying("The PDF was not saved");
        savePdf();
    }
    EXPECT_EQ(waits, 0) << "outside the data folder nothing is waited for";
}

}  // namespace
}  // namespace bramblet::test
