#include "core/app/browser.h"

#include "core/platform/path_text.h"

namespace bramblet {

Browser::Browser(const FileSystem& files, std::filesystem::path homeFolder, Desktop& desktop,
                 Commands& commands)
    : files_(files.withoutRetry()),
      home_(std::move(homeFolder)),
      desktop_(desktop),
      commands_(commands) {}

void Browser::RunBrowser(const std::string& address) {
    commands_.run([&] {
        const std::filesystem::path browser = findBrowser();
        if (browser.empty()) {
            commands_.tell("Could not find your Browser", "Browser Not Found", Icon::Exclamation);
        } else if (!desktop_.openWith(browser, address)) {
            commands_.tell("Web Page not Opened", "URL Failed", Icon::Exclamation);
        }
    });
}

void Browser::mu_HelpContents_Click() {
    commands_.run([&] {
        const std::filesystem::path helpFile = home_ / "tandril.hlp";
        bool opened = false;
        commands_.attempt("The file " + shown(helpFile) + " was not found: ", [&] {
            opened = files_.exists(helpFile) && desktop_.openHelpFile(helpFile);
        });
        if (!opened) commands_.open(&Screen::showHelp);
    });
}

/// Finds the program that opens web pages: the one that opens a small page written for the purpose.
std::filesystem::path Browser::findBrowser() {
    const std::filesystem::path page = home_ / "junk.HTM";
    const bool written = commands_.attempt("The browser was not looked for: ",
                                           [&] { files_.replace(page, "<HTML> <\\HTML>\r\n"); });
    if (!written) return {};
    std::filesystem::path browser = desktop_.programFor(page);
    commands_.attempt("The file " + shown(page) + " was left behind: ",
                      [&] { files_.remove(page); });
    return browser;
}

}  // namespace bramblet
