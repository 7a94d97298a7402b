#include "core/orders/order_viewer.h"

#include "core/platform/path_text.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

#include <cstdint>

namespace bramblet {
namespace {

/// Laying out this much takes some seconds, in which the windows stand still. An order of a
/// thousand lines takes a third of a megabyte.
constexpr std::uint64_t kLongestShown = 4 << 20;

}  // namespace

OrderViewer::OrderViewer(const FileSystem& files, Commands& commands, const Settings& settings,
                         OrderEditor& editor, OpenOrder& open, const MailedPdfs& pdfs,
                         Desktop& desktop)
    : files_(files),
      commands_(commands),
      settings_(settings),
      editor_(editor),
      open_(open),
      pdfs_(pdfs),
      desktop_(desktop) {}

void OrderViewer::MakeOrder_Click() {
    commands_.onData([&] {
        editor_.pickTypedNames();
        const std::string& number = open_.order().PONoEd;
        bool current = false;
        const bool found = commands_.attempt("Order " + number + " cannot be shown: ", [&] {
            // A look at a kept state must not replace what stands under the order's number.
            const bool unsaved = open_.isPending() || open_.isKeptState();
            path_ = unsaved ? commands_.folder().file("po.htm")
                            : commands_.folder().documentPath(number);
            // The document shown must match the window; a pending order never counts as changed.
            current = !unsaved && !open_.OrderDirty() && files_.exists(path_);
        });
        if (!found) return;
        if (!current && !(open_.recompute() && write())) return;
        if (read()) commands_.open(&Screen::showViewer);
    });
}

std::string OrderViewer::orderNumber() const {
    return trimmed(open_.order().PONoEd);
}

std::string OrderViewer::picture(const std::string& name) const {
    const std::filesystem::path path = commands_.folder().file(name);
    if (!isPlainFileName(name)) return {};
    try {
        // Asked for in the middle of laying out a page, when there is no way to wait.
        return files_.withoutRetry().read(path);
    } catch (const Fault&) {
        return {};  // shown as a missing picture
    }
}

void OrderViewer::ReWrite() {
    commands_.run([&] {
        if (write()) read();
    });
}

std::optional<std::filesystem::path> OrderViewer::pdfTarget() {
    std::optional<std::filesystem::path> path;
    commands_.run([&] {
        const std::string name = madePlainFileName(orderNumber()) + ".pdf";
        const auto chosen =
            commands_.prompts().chooseFileToSave({"Save as PDF", "", name, {{"PDF", "*.pdf"}}});
        if (!chosen) return;
        attempt("The PDF was not saved to " + shown(chosen->path) + ": ", [&] {
            if (mayReplace(files_.withoutRetry(), chosen->path, commands_.prompts()))
                path = chosen->path;
        });
    });
    return path;
}

void OrderViewer::savePdf(const std::filesystem::path& path, const std::string& pdf) {
    commands_.run([&] {
        const bool saved = attempt("The PDF was not saved to " + shown(path) + ": ",
                                   [&] { files_.withoutRetry().replace(path, pdf); });
        if (saved) commands_.sayDone("The order is saved as " + shown(path));
    });
}

void OrderViewer::printed(bool good) {
    commands_.run([&] {
        if (good) return;
        commands_.tell("The order was not printed: the printer could not be used.", "View Order",
                       Icon::Exclamation);
    });
}

void OrderViewer::IE_Button_Click() {
    commands_.run([&] { compose(mail()); });
}

void OrderViewer::mailPdf(const std::string& pdf) {
    commands_.run([&] {
        std::filesystem::path path;
        const bool written = commands_.attemptOrAsk("The PDF was not written: ", "E-mail",
                                                    [&] { path = pdfs_.add(orderNumber(), pdf); });
        if (written) compose(mailWith(path, "pdf", shown(path.filename())));
    });
}

void OrderViewer::compose(const Mail& mail) {
    const MailResult result = desktop_.compose(mail);
    if (result == MailResult::NoMailProgram) {
        commands_.tell(
            "No mail program was found on this machine. Set one up, or save the order as PDF "
            "and send that.",
            "E-mail", Icon::Exclamation);
    } else if (result == MailResult::Failed) {
        commands_.tell("The mail program could not take the order.", "E-mail", Icon::Exclamation);
    }
}

Mail OrderViewer::mailWith(const std::filesystem::path& document, const std::string& format,
                           const std::string& name) const {
    return {"Bramblet #" + orderNumber(),
            format + " format purchase order attached (file " + name + ")",
            {document}};
}

Mail OrderViewer::mail() const {
    Mail mail = mailWith(path_, "html", orderNumber() + ".htm");
    const std::string graphic = trimmedField(settings_.TopGraphic);
    if (isOn(settings_.UseTopGraphic) && isPlainFileName(graphic) && hasFile(graphic)) {
        mail.attachments.push_back(commands_.folder().file(graphic));
    }
    return mail;
}

/// Whether the data folder has such a file; a blank name would mean the folder itself.
bool OrderViewer::hasFile(const std::string& name) const {
    const std::filesystem::path path = commands_.folder().file(name);
    try {
        return !files_.withoutRetry().status(path).folder;
    } catch (const Fault&) {
        return false;
    }
}

bool OrderViewer::write() {
    return attempt("The document was not written: ", [&] { editor_.MakeSnap(path_); });
}

bool OrderViewer::read() {
    return attempt("The document " + shown(path_) + " was not read: ", [&] {
        const std::uint64_t length = files_.status(path_).length;
        if (length > kLongestShown) {
            throw FileError(
                FaultNumber::Overflow, path_,
                "it is " + std::to_string(length >> 20) + " MB long, much longer than any order");
        }
        document_ = files_.read(path_);
    });
}

/// Tells of a fault in a message box: without its document the viewer has nothing to show.
bool OrderViewer::attempt(const std::string& failure, const Commands::Body& step) {
    return commands_.attemptOrAsk(failure, "View Order", step);
}

}  // namespace bramblet
