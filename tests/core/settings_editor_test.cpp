#include "core/settings/picture_folder.h"
#include "support/office.h"

namespace bramblet::test {
namespace {

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

TEST_F(SettingsEditing, TheStepsActAtOnceAndHaveNoLimits) {
    using Editor = SettingsEditor;
    using Boxes = SettingsBoxes;
    const struct {
        std::string Boxes::*box;
        const char* from;
        void (Editor::*step)();
        std::string to, kept;
    } steps[] = {
        {&Boxes::WidthEd, "-5", &Editor::WidthLess_Click, "-10", "-10"},
        {&Boxes::WidthEd, "995", &Editor::WidthMore_Click, "1000", "100"},  // of three characters
        {&Boxes::WidthEd, "", &Editor::WidthDefault_Click, "640", "640"},
        {&Boxes::SigLineSpaceEd, "0", &Editor::SigLess_Click, "-1", "-1"},
        {&Boxes::SigLineSpaceEd, "-1", &Editor::SigMore_Click, "0", "0"},
        {&Boxes::SigLineSpaceEd, "", &Editor::SigLineSpaceDefault_Click, "23", "23"},
        {&Boxes::DescriptionLineEd, "3", &Editor::DesLess_Click, "-2", "-2"},
        {&Boxes::DescriptionLineEd, "-2", &Editor::DesMore_Click, "3", "3"},
        {&Boxes::DescriptionLineEd, "", &Editor::DescriptionSpaceDefault_Click, "65", "65"},
        {&Boxes::FontNameEd, "x", &Editor::DefaultFont_Click, "Arial", "Arial"},
    };
    settings().FontName = "x";
    for (const auto& [box, from, step, to, kept] : steps) {
        boxes().*box = from;
        (editor().*step)();
        EXPECT_EQ(boxes().*box, to);
        editor().load();
        EXPECT_EQ(boxes().*box, kept);
    }
    editor().Option_Click(false);
    EXPECT_EQ(settings().UseTopGraphic, "N");
}

TEST_F(SettingsEditing, TheBoxesShowWhatIsSetAndWhatIsTypedCountsFromSaveOn) {
    settings().FontName = fitted("Verdana", 200);
    settings().UseTopGraphic = settings().TaxFreight = "Y";
    settings().UseReqNumber = "?";
    editor().load();
    EXPECT_EQ(boxes().FontNameEd + settings().FontName, "VerdanaVerdana") << "stored back trimmed";
    EXPECT_TRUE(boxes().Option1 && boxes().TaxFreightCheck && !boxes().UseReqNumberCheck);
    boxes().IDText1 = std::string(70, 'x');
    boxes().PrefixEd = " BR-123456789";
    boxes().WidthEd = "1000";
    boxes().SigLineSpaceEd = " 12 ";
    boxes().DescriptionLineEd = "70.5";
    boxes().Option1 = boxes().TaxFreightCheck = false;
    boxes().UseQuantitiesCheck = boxes().RequestForQuoteCheck = true;
    EXPECT_NE(settings().NumberPrefix, " BR-123456");
    EXPECT_TRUE(editor().save());
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
    const struct {
        std::string SettingsBoxes::*box;
        const char *text, *message;
    } cases[] = {
        {&SettingsBoxes::SigLineSpaceEd, "few", "Bottom of form spacing"},
        {&SettingsBoxes::SigLineSpaceEd, "", "Bottom of form spacing"},
        {&SettingsBoxes::DescriptionLineEd, "6x", "\"6x\""},
        {&SettingsBoxes::DescriptionLineEd, "40000", "too large"},
    };
    for (const auto& [box, text, message] : cases) {
        editor().load();
        boxes().IDText2 = "not to be stored";
        boxes().*box = text;
        prompts.expectSaying(message);
        EXPECT_FALSE(editor().save()) << text;
        EXPECT_FALSE(contains(settings().IDText2, "not to"));
    }
}

TEST_F(SettingsEditing, AChosenPictureIsCopiedIntoTheDataFolder) {
    const std::filesystem::path picture = documents / "logo.gif";
    writeFile(picture, "new");
    writeFile(data("logo.gif"), "old");
    editor().SelectGraphic_Click(picture);
    editor().SelectGraphic_Click({});                // cancelled
    editor().SelectGraphic_Click(data("logo.gif"));  // chosen where it is
    prompts.expectSaying("could not be copied into the data folder");
    editor().SelectGraphic_Click(documents / "gone.gif");
    EXPECT_EQ(stored("logo.gif"), "new");
    EXPECT_EQ(boxes().TopGraphicEd + settings().TopGraphic, "logo.giflogo.gif");
    // Under a plain name where its own cannot be stored.
    std::vector<std::pair<std::filesystem::path, std::string>> pictures{
        {u8"\u0142ogo.gif", "_ogo.gif"}, {u8"\u017Aogo.gif", "_ogo-2.gif"}};
#ifndef _WIN32
    pictures.emplace_back("caf\xE9.gif", "caf\xE9.gif");  // not UTF-8
#endif
    for (const auto& [path, name] : pictures) {
        writeFile(documents / path, name);
        editor().SelectGraphic_Click(documents / path);
        EXPECT_EQ(settings().TopGraphic, name);
        EXPECT_EQ(program().viewer.picture(settings().TopGraphic), name);
    }
}

TEST_F(SettingsEditing, AnotherDataFolderCountsFromTheNextStartOn) {
    const auto before = program().folder.DataPath();
    const auto choose = [&](const std::optional<std::filesystem::path>& folder,
                            const std::string& told = "") {
        prompts.expectChoice(boxes().DataDirectoryEd, folder);
        if (!told.empty()) prompts.expectSaying(told);
        editor().SelectDataDirectory_Click();
        EXPECT_EQ(boxes().DataDirectoryEd, documents / "other/");
    };
    choose(documents / "other/",
           "Note - changes to the data path will not take effect until after \"Bramblet\" is "
           "re-started!");
    EXPECT_TRUE(editor().save());
    EXPECT_EQ(program().folder.DataPath(), before);
    choose(std::nullopt);
    // A folder that the settings cannot name is not taken for another one.
    choose(documents / std::string(300, 'x'), "is too long for the settings or no text");
    boxes().DataDirectoryEd += std::string(300, 'x');
    prompts.expectSaying("Data Directory is too long a name");
    EXPECT_FALSE(editor().save());
    EXPECT_EQ(settings().DataDirectory, documents / "other/");
}

TEST_F(SettingsEditing, AChosenFontCountsAtOnce) {
    boxes().FontNameEd = "Arial";
    prompts.expectChoice("Arial", "Georgia ");
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
    EXPECT_FALSE(os::exists(page()));
    desktop.opens = false;
    prompts.expect(notice("Web Page not Opened", "URL Failed", Icon::Exclamation));
    program().browser.RunBrowser("x.htm");
    desktop.browser.clear();
    prompts.expect(notice("Could not find your Browser", "Browser Not Found", Icon::Exclamation));
    program().browser.RunBrowser("x.htm");
    EXPECT_FALSE(os::exists(page()));
}

TEST_F(PagesInTheBrowser, HelpIsOurOwnUnlessTheOldFileAndItsViewerAreThere) {
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(screen.opened.size(), 1u);
    writeFile(home() / "tandril.hlp", "help");
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(screen.opened.size(), 2u) << "no viewer for it";
    desktop.hasHelpViewer = true;
    program().browser.mu_HelpContents_Click();
    EXPECT_EQ(screen.opened, (std::vector<std::string>{"help", "help"}));
    EXPECT_EQ(desktop.asked.back(), "help " + shown(home() / "tandril.hlp"));
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
    std::filesystem::create_directory(folder / "below");
    shown.enter("below");
    EXPECT_EQ(shown.path(), withSeparator(folder / "below"));
    EXPECT_EQ(shown.folders(), std::vector<std::filesystem::path>{".."});
    shown.enter("..");
    EXPECT_EQ(shown.path(), folder.path());
    shown.enter("nowhere");
    EXPECT_EQ(shown.trouble(), "Path not found (error 76)");
}

}  // namespace
}  // namespace bramblet::test
