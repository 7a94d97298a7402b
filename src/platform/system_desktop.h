// The desktop of this machine: the xdg tools, or the Windows shell.
#pragma once

#include "platform/desktop.h"

namespace bramblet {

class SystemDesktop : public Desktop {
  public:
    std::string programFor(const std::string& path) override;
    bool openWith(const std::string& program, const std::string& target) override;
    bool open(const std::string& path) override;
    MailResult compose(const Mail& mail) override;
    bool openHelpFile(const std::string& path) override;
};

}  // namespace bramblet
