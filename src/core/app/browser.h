// Pages in the user's own browser, and the program's help.
#pragma once

#include "core/platform/desktop.h"
#include "core/platform/file_system.h"
#include "core/platform/prompts.h"

#include <filesystem>
#include <functional>
#include <string>

namespace bramblet {

/// The project's home page.
inline constexpr const char* kHomePage = "https://bramblet.example/";

class Browser {
  public:
    Browser(const FileSystem& files, std::filesystem::path homeFolder, Desktop& desktop,
            Prompts& prompts);

    /// Shows the program's own help.
    std::function<void()> showHelp = [] {};

    /// Opens an address in the default browser.
    void RunBrowser(const std::string& address);

    /// The web-site command.
    void mu_WebSite_Click() { RunBrowser(kHomePage); }

    /// Opens the help: the old help file where it and a viewer for it exist, otherwise our own.
    void mu_HelpContents_Click();

  private:
    std::filesystem::path findBrowser() const;

    FileSystem files_;
    std::filesystem::path home_;
    Desktop& desktop_;
    Prompts& prompts_;
};

}  // namespace bramblet
