// Mail through the mail program that the Windows user has chosen, by Simple MAPI.
#pragma once

#include "platform/desktop.h"

#include <string>
#include <vector>
#include <windef.h>

namespace bramblet {

/// Shows the mail program's own window with the message, to be finished and sent there, and
/// returns when it is closed. `attachments` are the paths of `mail` as Windows takes them.
MailResult composeBySimpleMapi(const Mail& mail, const std::vector<std::wstring>& attachments,
                               HWND parent);

}  // namespace bramblet
