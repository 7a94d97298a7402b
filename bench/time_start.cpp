// time_start PROGRAM ARGUMENT...: starts a program on the X display and prints, on one line: the
// milliseconds until its first window was painted, and until that window came to rest; the CPU
// milliseconds taken; the resident memory once it has rested for a while, and the most so far, in
// kB. Then ends the program.
//
// A window counts as painted when the server has been told to draw nearly all of it: a window that
// is merely there shows whatever was on the screen before.

#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <time.h>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kRest{200};       ///< a window without changes for so long is at rest
constexpr milliseconds kLongest{90000};  ///< for a start under a profiler

double millisecondsIn(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

[[noreturn]] void fail(const char* why) {
    std::fprintf(stderr, "time_start: %s\n", why);
    std::exit(EXIT_FAILURE);
}

/// The screen as another program sees it: which windows appear, and what is drawn in them.
class Watch {
  public:
    Watch() : display_(XOpenDisplay(nullptr)) {
        if (display_ == nullptr) fail("there is no X display");
        int errors = 0;
        if (!XDamageQueryExtension(display_, &damage_, &errors)) fail("the display lacks XDamage");
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });  // windows come and go
        XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
        XSync(display_, False);
    }
    ~Watch() { XCloseDisplay(display_); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Waits until the first large window has been painted and rests. Nothing when none comes.
    struct Times {
        Clock::time_point painted, rests;
    };
    std::optional<Times> firstWindow() {
        const auto end = Clock::now() + kLongest;
        std::optional<Times> times;
        while (Clock::now() < end) {
            const auto now = Clock::now();
            if (times && now - times->rests >= kRest) return times;
            if (XPending(display_) == 0) {
                pollfd socket{ConnectionNumber(display_), POLLIN, 0};
                ::poll(&socket, 1, 10);
                continue;
            }
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type == CreateNotify) {
                XDamageCreate(display_, event.xcreatewindow.window, XDamageReportRawRectangles);
            } else if (event.type == damage_ + XDamageNotify) {
                const auto& drawn = reinterpret_cast<const XDamageNotifyEvent&>(event);
                if (times) {
                    times->rests = Clock::now();
                } else if (isPainted(drawn)) {
                    times = {now, now};
                }
            }
        }
        return std::nullopt;
    }

  private:
    struct Extent {
        int left = 32767, top = 32767, right = 0, bottom = 0;
    };

    bool isPainted(const XDamageNotifyEvent& drawn) {
        Extent& extent = drawn_[drawn.drawable];
        extent.left = std::min<int>(extent.left, drawn.area.x);
        extent.top = std::min<int>(extent.top, drawn.area.y);
        extent.right = std::max(extent.right, drawn.area.x + drawn.area.width);
        extent.bottom = std::max(extent.bottom, drawn.area.y + drawn.area.height);
        const int width = extent.right - extent.left;
        const int height = extent.bottom - extent.top;
        return width >= 200 && height >= 100 && width >= drawn.geometry.width * 9 / 10 &&
               height >= drawn.geometry.height * 9 / 10;
    }

    Display* display_;
    int damage_ = 0;
    std::map<Drawable, Extent> drawn_;
};

/// A line of /proc/PID/status that holds a number.
long statusOf(pid_t process, const std::string& wanted) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    std::string name;
    while (status >> name) {
        long number = 0;
        if (name == wanted && status >> number) return number;
        std::getline(status, name);
    }
    return 0;
}

/// In milliseconds.
double processorTimeOf(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0) return 0;
    return 1000 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) fail("which program?");
    Watch watch;
    pid_t process = 0;
    const auto start = Clock::now();
    if (::posix_spawnp(&process, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
        fail("the program did not start");
    }
    const auto times = watch.firstWindow();
    const long resident = statusOf(process, "VmRSS:");
    const long most = statusOf(process, "VmHWM:");
    const double taken = processorTimeOf(process);  // without that of the end
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
    if (!times) fail("no window was painted");
    std::printf("%.1f %.1f %.1f %ld %ld\n", millisecondsIn(times->painted - start),
                millisecondsIn(times->rests - start), taken, resident, most);
}
