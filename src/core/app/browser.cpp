#include "core/app/browser.h"

#include "core/platform/path_text.h"

namespace bramblet {

Browser::Browser(const FileSystem& files, std::filesystem::path homeFolder, Desktop& desktop,
                 Prompts& prompts)
    : files_(files.withoutRetry()),
      home_(std::move(homeFolder)),
      desktop_(desktop),
      prompts_(prompts) {}

void Browser::RunBrowser(const std::string& address) {
    const Prompts::Command command(prompts_);
    const std::filesystem::path browser = findBrowser();
    if (browser.empty()) {
        prompts_.ask(
            {"Could not find your Browser", "Browser Not Found", Buttons::Ok, Icon::Exclamation});
    } else if (!desktop_.openWith(browser, address)) {
        prompts_.ask({"Web Page not Opened", "URL Failed", Buttons::Ok, Icon::Exclamation});
    }
}

void Browser::mu_HelpContents_Click() {
    prompts_.clearLine();
    const std::filesystem::path helpFile = home_ / "tandril.hlp";
    const bool opened = files_.exists(helpFile) && desktop_.openHelpFile(helpFile);
    if (!opened) showHelp();
}

/// Finds the program that opens web pages: the one that opens a small page written for the purpose.
std::filesystem::path Browser::findBrowser() const {
    const std::filesystem::path page = home_ / "junk.HTM";
    try {
        files_.replace(page, "<HTML> <\\HTML>\r\n");
    } catch (const FileError& error) {
        prompts_.say("The browser was not looked for: " + error.inWords());
        return {};
    }
    std::filesystem::path browser = desktop_.programFor(page);
    try {
        files_.remove(page);
    } catch (const FileError& error) {
        prompts_.say("The file " + shown(page) + " was left behind: " + error.inWords());
    }
    return browser;
}

}  // namespace bramblet
