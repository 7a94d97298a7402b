// The desktop on which the tour runs: it opens nothing, so that none of the machine's programs
// start.
#pragma once

#include "core/platform/desktop.h"

namespace bramblet::tour {

class QuietDesktop : public Desktop {
  public:
    std::filesystem::path programFor(const std::filesystem::path&) override { return "browser"; }
    bool openWith(const std::filesystem::path&, const std::string&) override { return true; }
    bool open(const std::filesystem::path&) override { return true; }
    MailResult compose(const Mail&) override { return MailResult::HandedOver; }
};

}  // namespace bramblet::tour
