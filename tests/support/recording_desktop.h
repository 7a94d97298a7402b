// A desktop that opens nothing and remembers what it was asked for.
#pragma once

#include "core/platform/desktop.h"
#include "core/platform/path_text.h"

namespace bramblet::test {

class RecordingDesktop : public Desktop {
  public:
    std::string browser = "browser";  ///< what opens pages; empty for none
    bool opens = true;
    MailResult mailResult = MailResult::HandedOver;
    bool hasHelpViewer = false;

    std::vector<std::string> asked;  ///< in the order in which it was asked
    Mail mail;                       ///< the last one

    std::filesystem::path programFor(const std::filesystem::path& path) override {
        asked.push_back("program for " + shown(path));
        return browser;
    }
    bool openWith(const std::filesystem::path& program, const std::string& address) override {
        asked.push_back("open " + address + " with " + shown(program));
        return opens;
    }
    bool open(const std::filesystem::path& path) override {
        asked.push_back("open " + shown(path));
        return opens;
    }
    MailResult compose(const Mail& message) override {
        mail = message;
        return mailResult;
    }
    bool openHelpFile(const std::filesystem::path& path) override {
        asked.push_back("help " + shown(path));
        return hasHelpViewer;
    }
};

}  // namespace bramblet::test
