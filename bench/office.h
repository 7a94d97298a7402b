// A filled data folder with the program on it, without windows, and what all measurements share.
#pragma once

#include "core/app/program.h"
#include "full_folder.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace bramblet::bench {

/// The lists are measured at each of these sizes.
inline void atAllSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(8000)->Arg(kFull)->Unit(benchmark::kMillisecond);
}
inline void onFullLists(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(kFull)->Unit(benchmark::kMillisecond);
}
/// Only once each: the next run would find its folder filled.
inline void ofBackups(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(5000)->Iterations(1)->Unit(benchmark::kMillisecond);
}
inline int countOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

/// Everything is only worth measuring as long as it is right.
inline void holds(benchmark::State& state, bool right) {
    if (!right) state.SkipWithError("The result is wrong");
}

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

/// What the program is given, always on the same day.
inline Environment environment(Desktop& desktop, const test::TemporaryFolder& documents) {
    return {desktop, documents.path(), {}, {[] { return 46085; }, [] {}}, nullptr};
}

class Office {
  public:
    explicit Office(const FolderSize& size) {
        folder_ = Program::homeFolderIn(documents_.path()) / "po_data";
        fillFolder(folder_, size);
        program_ = std::make_unique<Program>(environment(desktop_, documents_), prompts);
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

/// Reads a file into memory that is already there, without a buffer in between; returns its length.
std::size_t readInto(std::string& buffer, const std::filesystem::path& path);
std::string readWhole(const std::filesystem::path& path);
/// Writes a file and hands it to the disk, so that nobody else pays for that.
void writeFlushed(const std::filesystem::path& path, const std::string& bytes);
/// Hands everything written below this path to the disk.
void flushAll(const std::filesystem::path& path);

}  // namespace bramblet::bench
