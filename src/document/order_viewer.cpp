#include "document/order_viewer.h"

#include "platform/text.h"

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
    if (!folder_.available(prompts_)) return;
    const Prompts::Command command(prompts_);
    try {
        path_ =
            open_.isPending() ? folder_.file("po.htm") : folder_.documentPath(open_.order.PONoEd);
    } catch (const Fault& fault) {
        prompts_.say("Order " + open_.order.PONoEd + " cannot be shown: " + fault.inWords());
        return;
    }
    // What is shown has to be what the window holds; a pending order never counts as changed.
    const bool current = !open_.OrderDirty && !open_.isPending() && files_.exists(path_);
    if (current || (editor_.totalUp() && write())) showViewer();
}

std::string OrderViewer::document() const {
    try {
        return files_.read(path_);
    } catch (const Fault& fault) {
        prompts_.say("The document " + path_ + " was not read: " + fault.inWords());
        return {};
    }
}

std::string OrderViewer::orderNumber() const {
    return trimmed(open_.order.PONoEd);
}

std::string OrderViewer::picture(const std::string& name) const {
    if (!isPlainFileName(name) || !files_.exists(folder_.file(name))) return {};
    try {
        return files_.read(folder_.file(name));
    } catch (const Fault&) {
        return {};  // shown as a missing picture
    }
}

void OrderViewer::ReWrite() {
    const Prompts::Command command(prompts_);
    write();
}

void OrderViewer::savePdf(const std::string& path, const std::string& pdf) const {
    const Message question{"File already exists - do you want to replace it?", "Confirm",
                           Buttons::YesNo, Icon::Exclamation};
    if (files_.exists(path) && prompts_.ask(question) != Answer::Yes) return;
    try {
        files_.replace(path, pdf);
        prompts_.sayDone("The order is saved as " + path);
    } catch (const Fault& fault) {
        prompts_.ask({"The PDF was not saved to " + path + ": " + fault.inWords() + ".",
                      "Save as PDF", Buttons::Ok, Icon::Exclamation});
    }
}

void OrderViewer::IE_Button_Click() {
    Mail mail;
    mail.subject = "Bramblet #" + orderNumber();
    mail.text = "html format purchase order attached (file " + orderNumber() + ".htm)";
    mail.attachments.push_back(path_);
    const std::string graphic = folder_.file(trimmedField(settings_.TopGraphic));
    if (isOn(settings_.UseTopGraphic) && files_.exists(graphic)) {
        mail.attachments.push_back(graphic);
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

bool OrderViewer::write() {
    try {
        editor_.MakeSnap(path_);
        return true;
    } catch (const Fault& fault) {
        prompts_.say("The document was not written: " + fault.inWords());
        return false;
    }
}

}  // namespace bramblet
