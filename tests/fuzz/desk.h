// A whole program without windows in a folder of its own, at which somebody says yes to everything
// and keeps an eye on what lies around the data folder.
#pragma once

#include "core/app/program.h"
#include "support/recording_desktop.h"
#include "support/temporary_folder.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace bramblet::test {

inline void mustHold(bool holds, const std::string& what) {
    if (!holds) throw std::logic_error("It does not hold that " + what);
}

class YesMan : public Prompts {
  public:
    std::filesystem::path file;  ///< what is chosen to be opened

    Answer ask(const Message& message) override {
        switch (message.buttons) {
            case Buttons::YesNo:
                return Answer::Yes;
            case Buttons::YesNoCancel:
                return Answer::No;  // to saving what would be left
            case Buttons::RetryIgnoreClose:
                return Answer::Ignore;
            case Buttons::RetryClose:
                return Answer::Close;
            default:
                return Answer::Ok;
        }
    }
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice&) override {
        return file;
    }
};

class Desk {
  public:
    /// With one file in the data folder, or, if `name` is empty, none.
    Desk(const std::string& name, std::string_view content) {
        FileSystem().createFolders(data(""));
        for (auto above = documents() / "Quenmoor";
             above != folder_.path().parent_path().parent_path(); above = above.parent_path())
            writeFile(above / "1.htm", "<!-- PON 1 PON -->\r\n<!-- JOB outside JOB -->\r\n");
        if (!name.empty()) writeFile(data(name), std::string(content));
        program_ = std::make_unique<Program>(
            Environment{desktop_, documents(), {}, clock(), [](const FileError& e) { throw e; }},
            prompts);
        program_->start();
        around_ = around();
    }

    Program& operator*() { return *program_; }
    Program* operator->() { return program_.get(); }

    std::filesystem::path data(const std::filesystem::path& name) const {
        return documents() / "Quenmoor" / "po_data" / name;
    }
    std::string stored(const std::filesystem::path& name) const { return contentOf(data(name)); }
    /// A file outside the data folder, chosen when one is to be opened.
    void choose(std::string_view content) {
        prompts.file = folder_ / "chosen";
        writeFile(prompts.file, std::string(content));
        around_ = around();
    }
    /// Whether everything around the data folder is as it was.
    void checkAround() const {
        mustHold(around() == around_, "files outside the data folder stay as they are");
        mustHold(program_->open.order().JobNumberEd != "outside", "only the data folder is read");
    }

    YesMan prompts;

  private:
    static Clock clock() {
        return {[] { return 46085; }, [] {}};
    }
    std::filesystem::path documents() const { return folder_ / "documents"; }
    std::map<std::filesystem::path, std::string> around() const {
        std::map<std::filesystem::path, std::string> files;
        for (auto entry = std::filesystem::recursive_directory_iterator(folder_.path());
             entry != std::filesystem::recursive_directory_iterator(); ++entry) {
            if (entry->path().filename() == "po_data") entry.disable_recursion_pending();
            const bool file = entry->is_regular_file();
            files[entry->path()] = file ? contentOf(entry->path()) : std::string();
        }
        return files;
    }

    TemporaryFolder folder_;
    RecordingDesktop desktop_;
    std::unique_ptr<Program> program_;
    std::map<std::filesystem::path, std::string> around_;
};

}  // namespace bramblet::test
