#include "support/office.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace bramblet {
namespace {

using namespace test;

class Viewer : public Office {
  protected:
    void SetUp() override {
        start();
        program().viewer.showViewer = [this] { ++shown; };
    }
    OrderViewer& viewer() { return program().viewer; }
    void saveOrder() {
        newOrder();
        addLine({"2", "ea", "Hammer", "10"});
        program().editor.SaveChanges_Click();
    }

    int shown = 0;
};

TEST_F(Viewer, APendingOrderIsShownAsItIsEachTime) {
    addLine({"1", "ea", "Hammer", "10"});
    viewer().MakeOrder_Click();
    EXPECT_EQ(viewer().path(), data("po.htm"));
    EXPECT_NE(viewer().document().find("Hammer"), std::string::npos);
    addLine({"1", "ea", "Saw", "10"});
    viewer().MakeOrder_Click();
    EXPECT_NE(viewer().document().find("Saw"), std::string::npos);
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(order().OrderTotalEd, "20.00");
}

TEST_F(Viewer, ASavedOrderIsShownAsSavedAndAChangedOneIsWrittenFirst) {
    saveOrder();
    const std::filesystem::path path = data("000001.htm");
    writeFile(path, "kept by hand");
    viewer().MakeOrder_Click();
    EXPECT_EQ(viewer().document(), "kept by hand");

    program().editor.edit(&Order::JobNumberEd, "J-9");
    viewer().MakeOrder_Click();
    EXPECT_NE(contentOf(path).find("<!-- JOB J-9 JOB -->"), std::string::npos);
    EXPECT_TRUE(program().open.OrderDirty) << "viewing is not saving";
    EXPECT_EQ(contentOf(data("po_data.dat")).find("J-9"), std::string::npos);

    program().editor.SaveChanges_Click();
    FileSystem().remove(path);
    viewer().MakeOrder_Click();
    EXPECT_TRUE(FileSystem().exists(path)) << "a lost document is written anew";
    EXPECT_EQ(shown, 3);
}

TEST_F(Viewer, WhatCannotBeTotalledOrWrittenIsNotShown) {
    saveOrder();
    program().editor.edit(&Order::ShippingEd, "1.2.3");
    prompts.expectSaying("1.2.3");
    viewer().MakeOrder_Click();
    program().editor.edit(&Order::ShippingEd, "1");
    order().PONoEd = "../1";
    viewer().MakeOrder_Click();
    EXPECT_NE(prompts.lastLine.find("../1"), std::string::npos) << prompts.lastLine;
    EXPECT_EQ(shown, 0);
}

#ifndef _WIN32
TEST_F(Viewer, APipeInPlaceOfTheDocumentIsToldOfAndNotShown) {
    saveOrder();
    FileSystem().remove(data("000001.htm"));
    ASSERT_EQ(::mkfifo(data("000001.htm").c_str(), 0666), 0);
    prompts.expectSaying("was not read");
    viewer().MakeOrder_Click();
    EXPECT_EQ(shown, 0);
}
#endif

TEST_F(Viewer, ItIsRewrittenWithTheSettingsAsTheyAreNow) {
    saveOrder();
    viewer().MakeOrder_Click();
    program().settings.UseTopGraphic = "N";
    program().settings.IDText1 = "Larkfield Joinery";
    EXPECT_EQ(viewer().document().find("Larkfield"), std::string::npos);
    viewer().ReWrite();
    EXPECT_NE(viewer().document().find("Larkfield Joinery"), std::string::npos);
}

TEST_F(Viewer, TheMailHasTheDocumentAndTheGraphicWhenThereIsOne) {
    saveOrder();
    viewer().MakeOrder_Click();
    program().settings.UseTopGraphic = "Y";
    program().settings.TopGraphic = "top.gif   ";
    viewer().IE_Button_Click();
    EXPECT_EQ(desktop.mail.subject, "Bramblet #000001");
    EXPECT_EQ(desktop.mail.text, "html format purchase order attached (file 000001.htm)");
    EXPECT_EQ(desktop.mail.attachments, std::vector{data("000001.htm")});

    for (const char* elsewhere : {"   ", ".", "../po_data/000001.htm"}) {
        program().settings.TopGraphic = elsewhere;
        viewer().IE_Button_Click();
        EXPECT_EQ(desktop.mail.attachments, std::vector{data("000001.htm")}) << elsewhere;
    }

    program().settings.TopGraphic = "top.gif   ";
    writeFile(data("top.gif"), "GIF");
    viewer().IE_Button_Click();
    EXPECT_EQ(desktop.mail.attachments, (std::vector{data("000001.htm"), data("top.gif")}));
    program().settings.UseTopGraphic = "N";
    viewer().IE_Button_Click();
    EXPECT_EQ(desktop.mail.attachments, std::vector{data("000001.htm")});
}

TEST_F(Viewer, TheMailsPathsAreThoseOfTheFilesWhateverTheLettersInThem) {
    const std::filesystem::path folder = documents / u8"home-\u0142ukasz";
    std::filesystem::create_directory(folder);
    program().settings.DataDirectory = folderText(folder).value();
    program().leave({});
    start();
    order().PONoEd =
        "caf\xE9"
        "1";
    viewer().MakeOrder_Click();
    viewer().IE_Button_Click();
    ASSERT_EQ(desktop.mail.attachments.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(desktop.mail.attachments[0]))
        << desktop.mail.attachments[0];
    EXPECT_EQ(desktop.mail.attachments[0], folder / u8"caf\u00E91.htm");
}

TEST_F(Viewer, AFailedMailIsToldAndACancelledOneIsNot) {
    saveOrder();
    viewer().MakeOrder_Click();
    desktop.mailResult = MailResult::Cancelled;
    viewer().IE_Button_Click();
    desktop.mailResult = MailResult::NoMailProgram;
    prompts.expectSaying("No mail program was found");
    viewer().IE_Button_Click();
    desktop.mailResult = MailResult::Failed;
    prompts.expectSaying("could not take the order");
    viewer().IE_Button_Click();
}

TEST_F(Viewer, PicturesComeFromTheDataFolderAlone) {
    writeFile(data("top.gif"), "GIF");
    writeFile(documents / "secret.gif", "no");
    EXPECT_EQ(viewer().picture("top.gif"), "GIF");
    EXPECT_EQ(viewer().picture("missing.gif"), "");
    EXPECT_EQ(viewer().picture("../../secret.gif"), "");
    EXPECT_EQ(viewer().picture((documents / "secret.gif").string()), "");
    std::filesystem::create_directory(data("folder.gif"));
    EXPECT_EQ(viewer().picture("folder.gif"), "");
    EXPECT_EQ(waits, 0) << "in the midst of a page nothing can be waited for";
}

TEST_F(Viewer, APdfReplacesAnotherFileOnlyWhenTheUserSaysSo) {
    saveOrder();
    const std::filesystem::path path = documents / "1.pdf";
    const Message question{"File already exists - do you want to replace it?", "Confirm",
                           Buttons::YesNo, Icon::Exclamation};
    const auto save = [&](const std::filesystem::path& where, const std::string& pdf,
                          std::optional<Answer> replace = std::nullopt) {
        prompts.expectChoice("000001.pdf", where);
        if (replace) prompts.expect(question, *replace);
        viewer().SavePdf_Click([&] { return pdf; });
    };
    save(path, "%PDF one");
    save(path, "%PDF two", Answer::No);
    EXPECT_EQ(contentOf(path), "%PDF one");
    save(path, "%PDF two", Answer::Yes);
    EXPECT_EQ(contentOf(path), "%PDF two");
    std::filesystem::create_directory(documents / "folder.pdf");
    for (const std::string name : {"nowhere/1.pdf", "folder.pdf/"}) {
        prompts.expectChoice("000001.pdf", documents / name);
        prompts.expectSaying("The PDF was not saved");
        viewer().SavePdf_Click([] { return "%PDF"; });
    }
    EXPECT_EQ(waits, 0) << "outside the data folder nothing is waited for";
}

}  // namespace
}  // namespace bramblet
