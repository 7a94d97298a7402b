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

ContactImport::ContactImport(const FileSystem& files, Commands& commands, AddressBook& addresses,
                             const RegionalFormats& formats)
    : files_(files.withoutRetry()),
      commands_(commands),
      addresses_(addresses),
      contacts_(formats) {}

void ContactImport::mu_ImportKettleby_Click() {
    commands_.onData([&] {
        chosenFile_.clear();
        contacts_.show({});
        summary_.clear();
        commands_.open(&Screen::showContactImport);
    });
}

void ContactImport::selectFile() {
    commands_.run([&] {
        const auto path = commands_.prompts().chooseFileToOpen(
            {"Select Kettleby Data File",
             "",
             "",
             {{"All Files (*.*)", "*.*"}, {"Kettleby Files(*.dat)", "*.dat"}}});
        if (!path) return;
        std::uint64_t contacts = 0;
        commands_.attempt("The file " + shown(*path) + " was not read: ",
                          [&] { contacts = contactCount(files_.status(*path).length); });
        if (contacts > 0) {
            chosenFile_ = *path;
            look();
        } else {
            commands_.tell("This file does not contain Kettleby records, or they are corrupt",
                           "Error", Icon::Stop);
        }
    });
}

/// The addresses of the chosen file, and the number of those left out. Throws Fault.
std::vector<NameAndAddress> ContactImport::entries(std::size_t& skipped) const {
    const auto most = static_cast<std::uint64_t>(kMostRecords);
    if (contactCount(files_.status(chosenFile_).length) > most) throw Fault(FaultNumber::Overflow);
    const std::string content = files_.read(chosenFile_);
    const std::uint64_t count = contactCount(content.size());
    std::vector<NameAndAddress> entries;
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::string_view rest = std::string_view(content).substr(i * kContactSize);
        auto entry = addressOf(rest.substr(0, kContactSize));
        if (!entry.name.empty()) entries.push_back(std::move(entry));
    }
    skipped = count - entries.size();
    return entries;
}

/// Shows what is in the file, and which of it is in the book by now.
void ContactImport::look() {
    std::vector<PreviewedAddress> rows;
    std::size_t skipped = 0, known = 0;
    try {
        const KnownNames names = addresses_.knownNames();
        for (NameAndAddress& entry : entries(skipped)) {
            const std::string kind = names.kindOf(entry.name);
            if (!kind.empty()) ++known;
            rows.push_back({std::move(entry), kind.empty() ? "" : "In the book as " + kind});
        }
        summary_ = std::to_string(rows.size()) + (rows.size() == 1 ? " contact" : " contacts");
        if (known > 0) summary_ += ", " + std::to_string(known) + " in the address book already";
        if (skipped > 0) summary_ += "; " + std::to_string(skipped) + " without an organization";
    } catch (const Fault& fault) {
        rows.clear();
        summary_ = "The contacts cannot be shown: " + fault.inWords();
    }
    contacts_.show(std::move(rows));
}

void ContactImport::import(const std::string& kind) {
    commands_.onData([&] {
        int added = 0;
        std::size_t skipped = 0;
        try {
            addresses_.import(kind, entries(skipped), added);
        } catch (const Fault& fault) {
            addresses_.refreshNames();
            look();
            // Shown in a box over the dialog, which hides the status bar. Importing the file again
            // would add twice what has already come in.
            commands_.tell("The import ended early: " + fault.inWords() +
                               ".\r\n\r\nAddresses added before that: " + std::to_string(added) +
                               ".",
                           "Import Failed", Icon::Stop);
            return;
        }
        addresses_.refreshNames();
        look();
        commands_.tell("Finished!", "Import Complete");
        commands_.sayDone("Addresses added: " + std::to_string(added) +
                          ", skipped without an organization: " + std::to_string(skipped));
    });
}

}  // namespace bramblet
