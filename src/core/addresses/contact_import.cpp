#include "core/addresses/contact_import.h"

#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

namespace bramblet {
namespace {

/// A contact takes 1,047 bytes, in 24 text fields of fixed width without a header; these are the
/// fields used.
constexpr std::uint64_t kContactSize = 1047;
struct ContactField {
    std::size_t offset;
    std::size_t width;
};
constexpr ContactField kOrganization{81, 40};
constexpr ContactField kPhone{121, 20};
constexpr ContactField kFax{151, 20};
constexpr ContactField kLine1{316, 40};
constexpr ContactField kLine2{356, 40};
constexpr ContactField kTown{396, 20};
constexpr ContactField kRegion{416, 20};
constexpr ContactField kPostalCode{436, 10};

/// The number of contacts in a file of this length, rounded: a truncated last one counts if more
/// than half of it is there.
std::uint64_t contactCount(std::uint64_t length) {
    return (length + kContactSize / 2) / kContactSize;
}

NameAndAddress addressOf(std::string_view contact) {
    const auto text = [&](const ContactField& field) {
        if (field.offset >= contact.size()) return std::string();
        return trimmedField(contact.substr(field.offset, field.width));
    };
    std::string address = text(kLine1) + "\r\n" + text(kLine2) + "\r\n" + text(kTown) + " " +
                          text(kRegion) + " " + text(kPostalCode);
    if (const std::string phone = text(kPhone); !phone.empty()) {
        address = trimmed(address) + "\r\n\r\nPhone " + phone + " Fax " + text(kFax);
    }
    return {text(kOrganization), address};
}

}  // namespace

ContactImport::ContactImport(const FileSystem& files, const DataFolder& folder,
                             AddressBook& addresses, Prompts& prompts)
    : files_(files.withoutRetry()), folder_(folder), addresses_(addresses), prompts_(prompts) {}

void ContactImport::mu_ImportKettleby_Click() {
    prompts_.clearLine();
    if (!folder_.available(prompts_)) return;
    chosenFile_.clear();
    showDialog();
}

void ContactImport::Command1_Click() {
    const Prompts::Command command(prompts_);
    const auto path = prompts_.chooseFileToOpen(
        {"Select Kettleby Data File",
         "",
         "",
         {{"All Files (*.*)", "*.*"}, {"Kettleby Files(*.dat)", "*.dat"}}});
    if (!path) return;
    try {
        if (contactCount(files_.status(*path).length) > 0) {
            chosenFile_ = *path;
            return;
        }
    } catch (const Fault& fault) {
        prompts_.say("The file " + shown(*path) + " was not read: " + fault.inWords());
    }
    prompts_.ask({"This file does not contain Kettleby records, or they are corrupt", "Error",
                  Buttons::Ok, Icon::Stop});
}

void ContactImport::import(const std::string& kind) {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    std::vector<NameAndAddress> entries;
    std::uint64_t count = 0;
    int added = 0;
    try {
        count = contactCount(files_.status(chosenFile_).length);
        if (count > static_cast<std::uint64_t>(kMostRecords)) throw Fault(FaultNumber::Overflow);
        const std::string content = files_.read(chosenFile_);
        count = contactCount(content.size());
        for (std::uint64_t i = 0; i < count; ++i) {
            const std::string_view rest = std::string_view(content).substr(i * kContactSize);
            auto entry = addressOf(rest.substr(0, kContactSize));
            if (!entry.name.empty()) entries.push_back(std::move(entry));
        }
        addresses_.import(kind, entries, added);
    } catch (const Fault& fault) {
        addresses_.refreshNames();
        // Shown in a box over the dialog, which hides the status bar. Importing the file again
        // would add twice what has already come in.
        prompts_.ask({"The import ended early: " + fault.inWords() +
                          ".\r\n\r\nAddresses added before that: " + std::to_string(added) + ".",
                      "Import Failed", Buttons::Ok, Icon::Stop});
        return;
    }
    addresses_.refreshNames();
    prompts_.ask({"Finished!", "Import Complete", Buttons::Ok, Icon::Information});
    prompts_.sayDone(
        "Addresses added: " + std::to_string(entries.size()) +
        ", skipped without an organization: " + std::to_string(count - entries.size()));
}

}  // namespace bramblet
