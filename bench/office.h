// A filled data folder with the program on it, without windows.
#pragma once

#include "core/app/program.h"
#include "full_folder.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace bramblet::bench {

/// The lists are measured at each of these sizes.
inline constexpr int kSizes[]{1000, 8000, kFull};

/// Says yes to everything and chooses one file.
class Agreeable : public Prompts {
  public:
    std::filesystem::path file;
    Answer ask(const Message& message) override {
        return message.buttons == Buttons::OkCancel || message.buttons == Buttons::Ok ? Answer::Ok
                                                                                      : Answer::Yes;
    }
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice&) override {
        return file;
    }
};

class Office {
  public:
    explicit Office(const FolderSize& size) {
        folder_ = Program::homeFolderIn(documents_.path()) / "po_data";
        fillFolder(folder_, size);
        program_ = std::make_unique<Program>(
            Environment{desktop_, documents_.path(), {}, {[] { return 46085; }, [] {}}, nullptr},
            prompts);
        program_->start();
    }

    /// The office with this many orders and items, the same for all who ask.
    static Office& withLists(int count);

    Program& program() { return *program_; }
    std::filesystem::path file(const std::string& name) const { return folder_ / name; }

    /// Shows and saves an order of this many lines under a number.
    void save(const std::string& number, int lines);

    Agreeable prompts;

  private:
    test::TemporaryFolder documents_;
    Desktop desktop_;
    std::filesystem::path folder_;
    std::unique_ptr<Program> program_;
};

/// An office whose only order has 200 lines; its document is that order's.
Office& officeOfLongOrder();
inline constexpr const char* kLongOrder = "000500";

/// An office with 5,000 orders or fewer, each with its document of ten lines.
Office& officeWithDocuments(int orders);

/// The file in one read.
std::string readWhole(const std::filesystem::path& path);
/// Writes a file and hands it to the disk, so that nobody else pays for that.
void writeFlushed(const std::filesystem::path& path, const std::string& bytes);
/// Hands everything written below this path to the disk.
void flushAll(const std::filesystem::path& path);

}  // namespace bramblet::bench
