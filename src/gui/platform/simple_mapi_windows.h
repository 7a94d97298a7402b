// Sends mail through the mail program that the Windows user has chosen, by Simple MAPI.
#pragma once

#include "core/platform/desktop.h"

#include <windef.h>

namespace bramblet {

/// Shows the mail program's own window with the message, to be finished and sent there, and returns
/// when that window is closed.
MailResult composeBySimpleMapi(const Mail& mail, HWND parent);

}  // namespace bramblet
