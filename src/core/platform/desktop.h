// What the program asks of the desktop around it: opening files and addresses with the programs
// that belong to them, and mail. The gui implements this interface; by default, nothing opens.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace bramblet {

/// A message to be finished and sent in the user's own mail program.
struct Mail {
    std::string subject;
    std::string text;
    std::vector<std::filesystem::path> attachments;
};

enum class MailResult { HandedOver, Cancelled, NoMailProgram, Failed };

class Desktop {
  public:
    virtual ~Desktop() = default;

    /// The program that opens a file of this kind; empty when there is none.
    virtual std::filesystem::path programFor(const std::filesystem::path&) { return {}; }

    /// Opens an address with a program returned by `programFor`. False when that fails.
    virtual bool openWith(const std::filesystem::path& /*program*/,
                          const std::string& /*address*/) {
        return false;
    }
    /// Opens a file with the program that the system has for its type. False when that fails.
    virtual bool open(const std::filesystem::path&) { return false; }

    virtual MailResult compose(const Mail&) { return MailResult::NoMailProgram; }

    /// Lets another program put its window in front of ours, where the system asks for that.
    virtual void letToFront(std::uint64_t /*process*/) {}

    /// Opens an old-style help file in its own viewer; false when there is none.
    virtual bool openHelpFile(const std::filesystem::path&) { return false; }
};

}  // namespace bramblet
