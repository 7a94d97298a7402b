#include "core/settings/picture_folder.h"
#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class SettingsEditing : public Office {
  protected:
    void SetUp() override {
        start();
        editor().load();
    }
    SettingsEditor& editor() { return program().settingsEditor; }
    SettingsBoxes& boxes() { return editor().boxes; }
    Settings& settings() { return program().settings; }
};

TEST_F(SettingsEditing, TheBoxesShowWhatIsSetTrimmed) {
    settings().FontName = fitted("Verdana", 200);
    settings().FormWidth = "640";
    settings().SigLineSpace = -3;
    settings().UseTopGraphic = "N";
    settings().UseReqNumber = "?";
    settings().TaxFreight = "Y";
    editor().load();
    EXPECT_EQ(boxes().FontNameEd, "Verdana");
    EXPECT_EQ(settings().FontName, "Verdana") << "stored back trimmed";
    EXPECT_EQ(boxes().WidthEd, "640");
    EXPECT_EQ(boxes().SigLineSpaceEd, "-3");
    EXPECT_FALSE(boxes().Option1);
    EXPECT_FALSE(boxes().UseReqNumberCheck);
    EXPECT_TRUE(boxes().TaxFreightCheck);
}

TEST_F(SettingsEditing, TheStepsActAtOnceAndHaveNoLimits) {
    settings().FormWidth = "640";
    editor().load();
    for (int i = 0; i < 130; ++i)
        editor().WidthLess_Click();
    EXPECT_EQ(boxes().WidthEd, "-10");
    EXPECT_EQ(settings().FormWidth, "-10");
    boxes().WidthEd = "995";
    editor().WidthMore_Click();
    EXPECT_EQ(boxes().WidthEd, "1000");
    EXPECT_EQ(settings().FormWidth, "100") << "the field holds three characters";
    editor().WidthDefault_Click();
    EXPECT_EQ(boxes().WidthEd + settings().FormWidth, "640640");

    boxes().SigLineSpaceEd = "0";
    editor().SigLess_Click();
    EXPECT_EQ(boxes().SigLineSpaceEd, "-1");
    EXPECT_EQ(settings().SigLineSpace, -1);
    editor().SigMore_Click();
    EXPECT_EQ(settings().SigLineSpace, 0);
    editor().SigLineSpaceDefault_Click();
    EXPECT_EQ(settings().SigLineSpace, 23);

    boxes().DescriptionLineEd = "3";
    editor().DesLess_Click();
    EXPECT_EQ(settings().DescriptionLineLength, -2);
    editor().DesMore_Click();
    EXPECT_EQ(boxes().DescriptionLineEd, "3");
    editor().DescriptionSpaceDefault_Click();
    EXPECT_EQ(settings().DescriptionLineLength, 65);

    editor().Option_Click(false);
    EXPECT_EQ(settings().UseTopGraphic, "N");
    settings().FontName = "x";
    editor().DefaultFont_Click();
    EXPECT_EQ(boxes().FontNameEd + settings().FontName, "ArialArial");
}

TEST_F(SettingsEditing, WhatIsTypedCountsFromSaveOn) {
    boxes().IDText1 = std::string(70, 'x');
    boxes().PrefixEd = " BR-123456789";
    boxes().WidthEd = "1000";
    boxes().SigLineSpaceEd = " 12 ";
    boxes().DescriptionLineEd = "70.5";
    boxes().Option1 = false;
    boxes().UseQuantitiesCheck = boxes().RequestForQuoteCheck = true;
    EXPECT_NE(settings().NumberPrefix, " BR-123456");
    EXPECT_TRUE(editor().Command1_Click());
    EXPECT_EQ(settings().IDText1, std::string(60, 'x'));
    EXPECT_EQ(settings().NumberPrefix, " BR-123456") << "as typed, cut to its width";
    EXPECT_EQ(settings().FormWidth, "100");
    EXPECT_EQ(settings().SigLineSpace, 12);
    EXPECT_EQ(settings().DescriptionLineLength, 70) << "halves go to the even neighbour";
    EXPECT_EQ(settings().UseTopGraphic + settings().UseQuantities + settings().RequestForQuote +
                  settings().TaxFreight + settings().UseReqNumber,
              "NYYNN");
}

TEST_F(SettingsEditing, ABoxWithoutANumberIsNamedAndNothingIsHalfSaved) {
    struct Case {
        std::string SettingsBoxes::*box;
        const char* text;
        const char* message;
    };
    const std::vector<Case> cases{
        {&SettingsBoxes::SigLineSpaceEd, "few", "Bottom of form spacing"},
        {&SettingsBoxes::SigLineSpaceEd, "", "Bottom of form spacing"},
        {&SettingsBoxes::DescriptionLineEd, "6x", "\"6x\""},
        {&SettingsBoxes::DescriptionLineEd, "40000", "too large"},
    };
    for (const auto& one : cases) {
        editor().load();
        boxes().IDText2 = "not to be stored";
        boxes().*one.box = one.text;
        prompts.expectSaying(one.message);
        EXPECT_FALSE(editor().Command1_Click()) << one.text;
        EXPECT_EQ(trimmedField(settings().IDText2).find("not to"), std::string::npos);
    }
}

TEST_F(SettingsEditing, AChosenPictureIsCopiedIntoTheDataFolder) {
    const std::filesystem::path picture = documents / "logo.gif";
    writeFile(picture, "new");
    writeFile(data("logo.gif"), "old");
    editor().SelectGraphic_Click(picture);
    EXPECT_EQ(contentOf(data("logo.gif")), "new");
    EXPECT_EQ(boxes().TopGraphicEd + settings().TopGraphic, "logo.giflogo.gif");

    editor().SelectGraphic_Click({});  // cancelled
    editor().SelectGraphic_Click(data("logo.gif"));
    EXPECT_EQ(contentOf(data("logo.gif")), "new") << "chosen where it is";

    prompts.expectSaying("could not be copied into the data folder");
    editor().SelectGraphic_Click(documents / "gone.gif");
    EXPECT_EQ(settings().TopGraphic, "logo.gif");
}

TEST_F(SettingsEditing, APictureIsCopiedUnderAPlainNameWhereItsOwnCannotBeStored) {
    std::vector<std::filesystem::path> pictures{documents / u8"\u0142ogo.gif",
                                                documents / u8"\u017Aogo.gif"};
#ifndef _WIN32
    pictures.push_back(documents / "caf\xE9.gif");  // not UTF-8
#endif
    const std::vector<std::string> names{"_ogo.gif", "_ogo-2.gif", "caf\xE9.gif"};
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        writeFile(pictures[i], names[i]);
        editor().SelectGraphic_Click(pictures[i]);
        EXPECT_EQ(settings().TopGraphic, names[i]);
        EXPECT_EQ(program().viewer.picture(settings().TopGraphic), names[i]);
    }
}

TEST_F(SettingsEditing, AnotherDataFolderCountsFromTheNextStartOn) {
    const auto before = program().folder.DataPath();
    prompts.expectChoice(boxes().DataDirectoryEd, documents / "other/");
    prompts.expect(
        {"Note - changes to the data path will not take effect until after \"Bramblet\" "
         "is re-started!",
         "Attention", Buttons::Ok, Icon::Information});
    editor().SelectDataDirectory_Click();
    EXPECT_TRUE(editor().Command1_Click());
    EXPECT_EQ(settings().DataDirectory, documents / "other/");
    EXPECT_EQ(program().folder.DataPath(), before);
    prompts.expectChoice(boxes().DataDirectoryEd, std::nullopt);
    editor().SelectDataDirectory_Click();
    EXPECT_EQ(boxes().DataDirectoryEd, documents / "other/");

    // A folder that the settings cannot name is not taken for another one.
    prompts.expectChoice(boxes().DataDirectoryEd, documents / std::string(300, 'x'));
    prompts.expectSaying("is too long for the settings or no text");
    editor().SelectDataDirectory_Click();
    EXPECT_EQ(boxes().DataDirectoryEd, documents / "other/");
    boxes().DataDirectoryEd += std::string(300, 'x');
    prompts.expectSaying("Data Directory is too long a name");
    EXPECT_FALSE(editor().Command1_Click());
    EXPECT_EQ(settings().DataDirectory, documents / "other/");

    prompts.expectChoice("Arial", "Georgia ");
    boxes().FontNameEd = "Arial";
    editor().SelectFont_Click();
    EXPECT_EQ(boxes().FontNameEd + settings().FontName, "Georgia Georgia");
}

class PagesInTheBrowser : public Office {
  protected:
    void SetUp() override { start(); }
    std::filesystem::path page() const { return home() / "junk.HTM"; }
};

TEST_F(PagesInTheBrowser, AreOpenedWithTheProgramThatOpensPages) {
    program().browser.mu_WebSite_Click();
    EXPECT_EQ(desktop.asked,
              (std::vector<std::string>{"program for " + shown(page()),
                                        "open " + std::string(kHomePage) + " with browser"}));
    EXPECT_FALSE(FileSystem().exists(page()));
}

TEST_F(PagesInTheBrowser, FailuresHaveTheirMessages) {
    desktop.opens = false;
    prompts.expect({"Web Page not Opened", "URL Failed", Buttons::Ok, Icon::Exclamation});
    program().browser.RunBrowser("x.htm");
    desktop.browser.clear();
    prompts.expect(
        {"Could not find your Browser", "Browser Not Found", Buttons::Ok, Icon::Exclamation});
    program().browser.RunBrowser("x.htm");
    EXPECT_FALSE(FileSystem().exists(page()));
}

TEST_F(PagesInTheBrowser, HelpIsOurOwnUnlessTheOldFileAndItsViewerAreThere) {
    int shown = 0;
    program().browser.showHelp = [&] { ++shown; };
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(shown, 1);
    writeFile(home() / "tandril.hlp", "help");
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(shown, 2) << "no viewer for it";
    desktop.hasHelpViewer = true;
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(desktop.asked.back(), "help " + bramblet::shown(home() / "tandril.hlp"));
}

TEST(PictureFolder, PicturesAreSortedByTheirLettersAndHiddenOnesLeftOut) {
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> pictures{u"able.gif", u"\u00C4nderung.JPG",
                                                      u"Zebra.png"};
    for (const auto& name : pictures)
        writeFile(folder / name, "x");
    for (const char* name : {".hidden.gif", ".gif", "notes.txt"})
        writeFile(folder / name, "x");
    PictureFolder shown{FileSystem()};
    shown.goTo(folder.path());
    EXPECT_EQ(shown.pictures(), pictures);
}

}  // namespace
}  // namespace bramblet
