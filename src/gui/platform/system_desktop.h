// The desktop of this machine: the xdg tools, or the Windows shell; and its look.
#pragma once

#include "core/platform/desktop.h"

#include <functional>

class QWidget;

namespace bramblet {

enum class Theme;

/// Dark when the system's own windows are dark, or the user has asked for dark programs, and of
/// high contrast when they are. Takes its own colours off the application to look at the system's.
Theme systemTheme();

/// Calls `changed` each time that the system may have changed its look, as long as the window is
/// there.
void onSystemLook(QWidget& window, std::function<void()> changed);

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
