#include "gui/platform/qt_text.h"
#include "gui/platform/simple_mapi_windows.h"
#include "gui/platform/system_desktop.h"
#include "gui/platform/theme.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QColor>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>
#include <QWidget>

#include <array>
#include <utility>
#include <windows.h>
// After windows.h, whose types it uses.
#include <shellapi.h>

namespace bramblet {
namespace {

constexpr INT_PTR kLastFault = 32;  // on failure the shell returns a number up to this

std::wstring quoted(const std::wstring& text) {
    return L'"' + text + L'"';
}

/// Starts a program, or opens a file with its associated program, in a normal window.
bool shellOpen(const std::wstring& what, const std::wstring& parameters) {
    const HINSTANCE result =
        ::ShellExecuteW(nullptr, L"open", what.c_str(),
                        parameters.empty() ? nullptr : parameters.c_str(), nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > kLastFault;
}

HWND activeWindow() {
    const QWidget* const window = QApplication::activeWindow();
    return window != nullptr ? reinterpret_cast<HWND>(window->winId()) : nullptr;
}

/// Sees the messages that the system sends to all windows when its settings or colours change.
class LookWatch : public QObject, public QAbstractNativeEventFilter {
  public:
    LookWatch(QWidget& window, std::function<void()> changed)
        : QObject(&window), changed_(std::move(changed)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const UINT what = static_cast<const MSG*>(message)->message;
        const bool isLook = what == WM_SETTINGCHANGE || what == WM_SYSCOLORCHANGE;
        // One change sends several to each window.
        if (isLook && !std::exchange(waiting_, true)) {
            QTimer::singleShot(0, this, [this] {
                waiting_ = false;
                changed_();
            });
        }
        return false;
    }

  private:
    std::function<void()> changed_;
    bool waiting_ = false;
};

}  // namespace

Theme systemTheme() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool known =
        ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0;
    if (known && (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) {
        const bool dark = QColor::fromRgb(::GetSysColor(COLOR_WINDOW)).lightness() < 128;
        return dark ? Theme::HighContrastDark : Theme::HighContrastLight;
    }
    const QSettings colours(
        u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\"
        "Themes\\Personalize"_s,
        QSettings::NativeFormat);
    const bool light = colours.value(u"AppsUseLightTheme"_s, 1).toInt() != 0;
    return light ? Theme::Light : Theme::Dark;
}

void onSystemLook(QWidget& window, std::function<void()> changed) {
    new LookWatch(window, std::move(changed));
}

void SystemDesktop::letToFront(std::uint64_t process) {
    ::AllowSetForegroundWindow(static_cast<DWORD>(process));
}

std::filesystem::path SystemDesktop::programFor(const std::filesystem::path& path) {
    std::array<wchar_t, MAX_PATH + 1> program{};
    const HINSTANCE result = ::FindExecutableW(path.c_str(), nullptr, program.data());
    if (reinterpret_cast<INT_PTR>(result) <= kLastFault) return {};
    return QString::fromWCharArray(program.data()).trimmed().toStdWString();
}

bool SystemDesktop::openWith(const std::filesystem::path& program, const std::string& address) {
    return shellOpen(program.native(), quoted(toQt(address).toStdWString()));
}

bool SystemDesktop::open(const std::filesystem::path& path) {
    return shellOpen(path.native(), {});
}

MailResult SystemDesktop::compose(const Mail& mail) {
    return composeBySimpleMapi(mail, activeWindow());
}

bool SystemDesktop::openHelpFile(const std::filesystem::path& path) {
    // Current systems carry a stub of this name, which only says on a web page that there is no
    // viewer. It is a tenth of the real viewer's size.
    constexpr qint64 kSmallestViewer = 64 * 1024;
    std::array<wchar_t, MAX_PATH + 1> viewer{};
    const DWORD length = ::SearchPathW(nullptr, L"WINHLP32.EXE", nullptr,
                                       static_cast<DWORD>(viewer.size()), viewer.data(), nullptr);
    if (length == 0 || length >= viewer.size()) return false;
    if (QFileInfo(QString::fromWCharArray(viewer.data())).size() < kSmallestViewer) return false;
    return shellOpen(viewer.data(), quoted(path.native()));
}

}  // namespace bramblet
