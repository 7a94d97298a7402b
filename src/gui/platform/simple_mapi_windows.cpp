#include "gui/platform/simple_mapi_windows.h"

#include "core/platform/text.h"

#include <array>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>
// After windows.h, whose types it uses.
#include <mapi.h>

namespace bramblet {
namespace {

// The wide forms of the message, which the compiler's own header lacks. Their layout is that of the
// narrow ones, with wide texts.
struct WideFile {
    ULONG reserved;
    ULONG flags;
    ULONG position;
    const wchar_t* path;
    const wchar_t* name;
    void* type;
};
struct WideMessage {
    ULONG reserved;
    const wchar_t* subject;
    const wchar_t* text;
    const wchar_t* type;
    const wchar_t* received;
    const wchar_t* conversation;
    FLAGS flags;
    void* originator;
    ULONG recipientCount;
    void* recipients;
    ULONG fileCount;
    WideFile* files;
};
static_assert(sizeof(WideFile) == sizeof(MapiFileDesc));
static_assert(sizeof(WideMessage) == sizeof(MapiMessage));

using SendWide = ULONG(WINAPI*)(LHANDLE, ULONG_PTR, WideMessage*, FLAGS, ULONG);

// The attachments have no place in the text.
constexpr ULONG kNoPlace = 0xFFFFFFFF;
constexpr FLAGS kHow = MAPI_LOGON_UI | MAPI_DIALOG;

struct LibraryCloser {
    using pointer = HMODULE;
    void operator()(HMODULE library) const { ::FreeLibrary(library); }
};
using Library = std::unique_ptr<void, LibraryCloser>;

/// Whether the user or the machine has a mail program. Without one the system's library would show
/// a message of its own.
bool hasMailProgram() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        std::array<wchar_t, 256> name{};
        DWORD size = sizeof(name);
        const LSTATUS status = ::RegGetValueW(root, L"Software\\Clients\\Mail", nullptr,
                                              RRF_RT_REG_SZ, nullptr, name.data(), &size);
        if (status == ERROR_MORE_DATA || (status == ERROR_SUCCESS && name[0] != L'\0')) return true;
    }
    return false;
}

std::wstring wide(const std::string& text) {
    const std::u16string units = toUnicode(text);
    return {units.begin(), units.end()};
}

ULONG sendWide(SendWide send, const Mail& mail, ULONG_PTR parent) {
    std::vector<WideFile> files;
    for (const auto& path : mail.attachments)
        files.push_back({0, 0, kNoPlace, path.c_str(), nullptr, nullptr});
    const std::wstring subject = wide(mail.subject);
    const std::wstring text = wide(mail.text);
    WideMessage message{};
    message.subject = subject.c_str();
    message.text = text.c_str();
    message.fileCount = static_cast<ULONG>(files.size());
    message.files = files.data();
    return send(0, parent, &message, kHow, 0);
}

}  // namespace

MailResult composeBySimpleMapi(const Mail& mail, HWND parent) {
    if (!hasMailProgram()) return MailResult::NoMailProgram;
    const Library library(::LoadLibraryExW(L"mapi32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    if (!library) return MailResult::NoMailProgram;
    const auto send = reinterpret_cast<SendWide>(
        reinterpret_cast<void*>(::GetProcAddress(library.get(), "MAPISendMailW")));
    if (send == nullptr) return MailResult::NoMailProgram;
    const ULONG code = sendWide(send, mail, reinterpret_cast<ULONG_PTR>(parent));
    if (code == SUCCESS_SUCCESS) return MailResult::HandedOver;
    return code == MAPI_E_USER_ABORT ? MailResult::Cancelled : MailResult::Failed;
}

}  // namespace bramblet
