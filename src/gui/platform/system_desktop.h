// The desktop of this machine: the xdg tools, or the Windows shell.
#pragma once

#include "core/platform/desktop.h"

namespace bramblet {

class SystemDesktop : public Desktop {
  public:
    std::filesystem::path programFor(const std::filesystem::path& path) override;
    bool openWith(const std::filesystem::path& program, const std::string& address) override;
    bool open(const std::filesystem::path& path) override;
    MailResult compose(const Mail& mail) override;
    bool openHelpFile(const std::filesystem::path& path) override;
};

}  // namespace bramblet
