// Documents that call for files and for other machines. What the program asks the system for is
// recorded: these functions take the place of the system library's own.

#include "gui/desk.h"
#include "gui/document/order_sheet.h"

#include <QPdfWriter>

#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The files of that name that were asked for, and every connection.
QStringList asked;

void note(const char* path) {
    const QString name = QFile::decodeName(path);
    if (name.contains("spy", Qt::CaseInsensitive)) asked.append(name);
}

/// The system library's own function.
template <class Function>
Function* own(Function*, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open64(const char* path, int flags, ...) {
    note(path);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return ::openat(AT_FDCWD, path, flags | O_LARGEFILE, mode);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return open64(path, flags, mode);
}

int access(const char* path, int mode) noexcept {
    note(path);
    return ::faccessat(AT_FDCWD, path, mode, 0);
}

int stat(const char* path, struct stat* information) noexcept {
    note(path);
    return ::fstatat(AT_FDCWD, path, information, 0);
}

int statx(int folder, const char* path, int flags, unsigned mask,
          struct statx* information) noexcept {
    note(path);
    return own(&::statx, "statx")(folder, path, flags, mask, information);
}

int socket(int domain, int type, int protocol) noexcept {
    asked.append("a connection");
    return own(&::socket, "socket")(domain, type, protocol);
}
}

namespace bramblet::test {
namespace {

class HostileDocuments : public Desk {
  protected:
    /// Shows a document in the viewer and prints it; returns the text shown.
    QString view(const std::string& document) {
        writeFile(program->folder.file("000001.htm"), document);
        QString text;
        asked.clear();
        driver->inDialog("MakeOrder", [&](QWidget& viewer) {
            auto* const browser = driver->find<QTextBrowser>("WebBrowser1");
            text = browser->toPlainText();
            Driver::picture(viewer);
            QBuffer pdf;
            pdf.open(QIODevice::WriteOnly);
            QPdfWriter writer(&pdf);
            const auto picture = [&](const std::string& name) {
                return program->viewer.picture(name);
            };
            EXPECT_TRUE(OrderSheet::print(document, picture, writer));
            viewer.close();
        });
        return text;
    }
};

TEST_F(HostileDocuments, LoadNothingFromElsewhere) {
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const std::filesystem::path outside = documents / "spy.png";
    ASSERT_TRUE(picture.save(pathToQt(outside)));
    const std::string path = outside.string();
    newOrder();
    for (const std::string& part : std::vector<std::string>{
             "<script src=\"http://spy.example/a.js\">fetch('http://spy.example')</script>",
             "<img src=\"http://spy.example/a.gif\">",
             "<img src=\"//spy.example/a.gif\">",
             "<img src=\"\\\\spy\\share\\a.gif\">",
             "<img src=\"file://spy/share/a.gif\">",
             "<img src=\"file://" + path + "\">",
             "<img src=\"" + path + "\">",
             "<img src=\"../../spy.png\">",
             "<img src=\"..\\..\\spy.png\">",
             "<img src=\"qrc:/spy.png\">",
             "<img src=a.gif lowsrc=\"" + path + "\" srcset=\"" + path + " 2x\">",
             "<base href=\"file://" + path + "\"><img src=\"?\">",
             "<link rel=stylesheet href=\"http://spy.example/a.css\">",
             "<link rel=stylesheet type=\"text/css\" href=\"" + path + "\">",
             "<style>@import url(" + path + "); body { background: url(" + path + ") }</style>",
             "<p style=\"background-image:url(" + path + ")\">",
             "<p style=\"color:red;background:url(http://spy.example/a.gif)\">",
             "<table background=\"" + path + "\"><tr background=\"" + path + "\"><td>",
             "<body background=\"" + path + "\">",
             "<ul style=\"list-style-image:url(" + path + ")\"><li>",
             "<iframe src=\"" + path + "\"></iframe><frameset><frame src=\"" + path + "\">",
             "<object data=\"" + path + "\"></object><embed src=\"" + path + "\">",
             "<input type=image src=\"" + path + "\"><video src=\"" + path + "\">",
             "<meta http-equiv=refresh content=\"0; url=http://spy.example/\">",
             "<?xml-stylesheet href=\"" + path + "\"?>",
             "<!ENTITY spy SYSTEM \"file://" + path + "\">&spy;",
             "<a href=\"file://" + path + "\">link</a>",
             "<a name=\"x\" href=\"http://spy.example/\">link</a>",
         }) {
        for (const std::string frame : {"", "<table border=0 width=640><tr><td>"}) {
            const QString shown = view("<html><body>first " + frame + part + " last");
            EXPECT_EQ(asked, QStringList()) << part << ": " << asked.join(", ");
            EXPECT_TRUE(shown.contains("first") && shown.contains("last")) << part << shown;
        }
    }
}

TEST_F(HostileDocuments, AskForPicturesOfTheDataFolderByTheirPlainNamesAlone) {
    newOrder();
    const QString picture = pathToQt(program->folder.file("spy.svg"));
    writeFile(program->folder.file("spy.svg"),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\">"
              "<image href=\"../spy.png\" width=\"9\" height=\"9\"/></svg>");
    view(
        "<img src=\"spy.svg\"><img src=\"%2e%2e%2fspy.png\"><img "
        "src=\"data:image/png;base64,c3B5\">");
    asked.removeDuplicates();
    EXPECT_EQ(asked, QStringList{picture}) << asked.join(", ");
}

}  // namespace
}  // namespace bramblet::test
