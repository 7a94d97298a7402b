#include "app/browser.h"

namespace bramblet {

Browser::Browser(const FileSystem& files, std::string homeFolder, Desktop& desktop,
                 Prompts& prompts)
    : files_(files.withoutRetry()),
      home_(std::move(homeFolder)),
      desktop_(desktop),
      prompts_(prompts) {}

void Browser::RunBrowser(const std::string& target) {
    const std::string browser = findBrowser();
    if (browser.empty()) {
        prompts_.ask(
            {"Could not find your Browser", "Browser Not Found", Buttons::Ok, Icon::Exclamation});
    } else if (!desktop_.openWith(browser, target)) {
        prompts_.ask({"Web Page not Opened", "URL Failed", Buttons::Ok, Icon::Exclamation});
    }
}

void Browser::mu_HelpContents_Click() {
    const std::string helpFile = home_ + "tandril.hlp";
    const bool opened = files_.exists(helpFile) && desktop_.openHelpFile(helpFile);
    if (!opened) showHelp();
}

/// The program that opens web pages: the one that opens a small page written for the purpose.
std::string Browser::findBrowser() const {
    const std::string page = home_ + "junk.HTM";
    try {
        files_.replace(page, "<HTML> <\\HTML>\r\n");
    } catch (const FileError& error) {
        prompts_.say("The browser was not looked for: " + error.inWords());
        return {};
    }
    std::string browser = desktop_.programFor(page);
    try {
        files_.remove(page);
    } catch (const FileError& error) {
        prompts_.say("The file " + page + " was left behind: " + error.inWords());
    }
    return browser;
}

}  // namespace bramblet
