// A desktop that opens nothing and remembers what it was asked for.
#pragma once

#include "platform/desktop.h"

namespace bramblet::test {

class RecordingDesktop : public Desktop {
  public:
    std::string browser = "browser";  ///< what opens pages; empty for none
    bool opens = true;
    MailResult mailResult = MailResult::HandedOver;
    bool hasHelpViewer = false;

    std::vector<std::string> asked;  ///< in the order in which it was asked
    Mail mail;                       ///< the last one

    std::string programFor(const std::string& path) override {
        asked.push_back("program for " + path);
        return browser;
    }
    bool openWith(const std::string& program, const std::string& target) override {
        asked.push_back("open " + target + " with " + program);
        return opens;
    }
    bool open(const std::string& path) override {
        asked.push_back("open " + path);
        return opens;
    }
    MailResult compose(const Mail& message) override {
        mail = message;
        return mailResult;
    }
    bool openHelpFile(const std::string& path) override {
        asked.push_back("help " + path);
        return hasHelpViewer;
    }
};

}  // namespace bramblet::test
