// Pages in the user's own browser, and the program's help.
#pragma once

#include "core/platform/desktop.h"
#include "core/platform/file_system.h"
#include "core/settings/commands.h"

#include <filesystem>
#include <string>

namespace bramblet {

/// The project's home page.
inline constexpr const char* kHomePage = "https://bramblet.example/";

class Browser {
  public:
    Browser(const FileSystem& files, std::filesystem::path homeFolder, Desktop& desktop,
            Commands& commands);

    /// Opens an address in the default browser.
    void RunBrowser(const std::string& address);

    /// The web-site command.
    void mu_WebSite_Click() { RunBrowser(kHomePage); }

    /// Opens the help: the old help file where it and a viewer for it exist, otherwise our own.
    void mu_HelpContents_Click();

  private:
    std::filesystem::path findBrowser();

    FileSystem files_;
    std::filesystem::path home_;
    Desktop& desktop_;
    Commands& commands_;
};

}  // namespace bramblet
