// The desktop of this machine: the xdg tools, or the Windows shell; and its look.
#pragma once

#include "core/platform/desktop.h"

namespace bramblet {

enum class Theme;

/// Dark when the system's own windows are dark, or the user has asked for dark programs.
Theme systemTheme();

class SystemDesktop : public Desktop {
  public:
    std::filesystem::path programFor(const std::filesystem::path& path) override;
    bool openWith(const std::filesystem::path& program, const std::string& address) override;
    bool open(const std::filesystem::path& path) override;
    MailResult compose(const Mail& mail) override;
#ifdef _WIN32
    void letToFront(std::uint64_t process) override;
#endif
    bool openHelpFile(const std::filesystem::path& path) override;
};

}  // namespace bramblet
