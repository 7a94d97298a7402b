// Where the user wants something saved, outside the data folder: an existing file is replaced only
// after a question, and a place that cannot be written is reported, not waited for.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/prompts.h"

#include <string>

namespace bramblet {

/// Whether to go on: there is no such file, it is empty, or the user agrees to replace it. Throws
/// FileError.
inline bool mayReplace(const FileSystem& files, const std::filesystem::path& path,
                       Prompts& prompts) {
    if (!files.exists(path)) return true;
    const os::FileStatus status = files.status(path);
    if (status.folder || status.length == 0) return true;  // a folder will be refused
    const Message question{"File already exists - do you want to replace it?", "Confirm",
                           Buttons::YesNo, Icon::Exclamation};
    return prompts.ask(question) == Answer::Yes;
}

}  // namespace bramblet
