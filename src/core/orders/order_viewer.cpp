#include "core/orders/order_viewer.h"

#include "core/platform/path_text.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

namespace bramblet {

OrderViewer::OrderViewer(const FileSystem& files, const DataFolder& folder,
                         const Settings& settings, OrderEditor& editor, const OpenOrder& open,
                         Desktop& desktop, Prompts& prompts)
    : files_(files),
      folder_(folder),
      settings_(settings),
      editor_(editor),
      open_(open),
      desktop_(desktop),
      prompts_(prompts) {}

void OrderViewer::MakeOrder_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    editor_.pickTypedNames();
    try {
        path_ =
            open_.isPending() ? folder_.file("po.htm") : folder_.documentPath(open_.order.PONoEd);
    } catch (const Fault& fault) {
        prompts_.say("Order " + open_.order.PONoEd + " cannot be shown: " + fault.inWords());
        return;
    }
    // The document shown must match the window; a pending order never counts as changed.
    const bool current = !open_.OrderDirty && !open_.isPending() && files_.exists(path_);
    if (!current && !(editor_.totalUp() && write())) return;
    if (read()) showViewer();
}

std::string OrderViewer::orderNumber() const {
    return trimmed(open_.order.PONoEd);
}

std::string OrderViewer::picture(const std::string& name) const {
    if (!isPlainFileName(name) || !files_.exists(folder_.file(name))) return {};
    try {
        // Asked for in the middle of laying out a page, when there is no way to wait.
        return files_.withoutRetry().read(folder_.file(name));
    } catch (const Fault&) {
        return {};  // shown as a missing picture
    }
}

void OrderViewer::ReWrite() {
    const Prompts::Command command(prompts_);
    if (write()) read();
}

void OrderViewer::SavePdf_Click(const std::function<std::string()>& pdf) {
    const Prompts::Command command(prompts_);
    const std::string name = madePlainFileName(orderNumber()) + ".pdf";
    const auto path = prompts_.chooseFileToSave({"Save as PDF", "", name, {{"PDF", "*.pdf"}}});
    if (!path) return;
    const FileSystem target = files_.withoutRetry();
    try {
        if (!mayReplace(target, *path, prompts_)) return;
        target.replace(*path, pdf());
        prompts_.sayDone("The order is saved as " + shown(*path));
    } catch (const Fault& fault) {
        tell("The PDF was not saved to " + shown(*path) + ": " + fault.inWords() + ".");
    }
}

void OrderViewer::printed(bool good) {
    const Prompts::Command command(prompts_);
    if (!good) tell("The order was not printed: the printer could not be used.");
}

void OrderViewer::IE_Button_Click() {
    const Prompts::Command command(prompts_);
    Mail mail;
    mail.subject = "Bramblet #" + orderNumber();
    mail.text = "html format purchase order attached (file " + orderNumber() + ".htm)";
    mail.attachments.push_back(path_);
    const std::string graphic = trimmedField(settings_.TopGraphic);
    if (isOn(settings_.UseTopGraphic) && isPlainFileName(graphic) && hasFile(graphic)) {
        mail.attachments.push_back(folder_.file(graphic));
    }
    switch (desktop_.compose(mail)) {
        case MailResult::HandedOver:
        case MailResult::Cancelled:
            return;
        case MailResult::NoMailProgram:
            prompts_.ask(
                {"No mail program was found on this machine. Set one up, or save the "
                 "order as PDF and send that.",
                 "E-mail", Buttons::Ok, Icon::Exclamation});
            return;
        case MailResult::Failed:
            prompts_.ask({"The mail program could not take the order.", "E-mail", Buttons::Ok,
                          Icon::Exclamation});
    }
}

/// Uses a message box: a line in the main window's status bar would go unseen while the viewer is
/// open.
void OrderViewer::tell(const std::string& failure) const {
    prompts_.ask({failure, "View Order", Buttons::Ok, Icon::Exclamation});
}

/// Whether the data folder has such a file; a blank name would mean the folder itself.
bool OrderViewer::hasFile(const std::string& name) const {
    const std::filesystem::path path = folder_.file(name);
    try {
        return files_.exists(path) && !files_.withoutRetry().status(path).folder;
    } catch (const Fault&) {
        return false;
    }
}

bool OrderViewer::write() {
    try {
        editor_.MakeSnap(path_);
        return true;
    } catch (const Fault& fault) {
        tell("The document was not written: " + fault.inWords() + ".");
        return false;
    }
}

bool OrderViewer::read() {
    try {
        document_ = files_.read(path_);
        return true;
    } catch (const Fault& fault) {
        tell("The document " + shown(path_) + " was not read: " + fault.inWords() + ".");
        return false;
    }
}

}  // namespace bramblet
