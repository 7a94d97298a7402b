// The documents of the orders in the data folder. Several desks work there, and the last one to
// save an order wins; but what another has written is never gone: it is kept.
#pragma once

#include "core/platform/clock.h"
#include "core/platform/file_system.h"
#include "core/settings/commands.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

class OrderDocuments {
  public:
    OrderDocuments(const FileSystem& files, Commands& commands, const Clock& clock);

    /// The content of a document, which is the open order's from now on.
    std::string open(const std::filesystem::path& path);

    /// The open order has no document yet, whatever stands under its number.
    void forgetOpen() { own_ = {}; }

    /// Puts `document` in place of the open order's. If something else stands there, of which this
    /// is not a later state, that is kept first and the user is told. Throws FileError.
    void write(const std::filesystem::path& path, const std::string& document);

    /// The subfolder of what is kept, "kept".
    std::filesystem::path keptFolder() const;

    /// Moves a file of the data folder there, under a name that tells `what` it is and when that
    /// was. Returns its new path; nothing when it is gone by itself.
    std::optional<std::filesystem::path> keep(const std::filesystem::path& path,
                                              const std::string& what,
                                              const char* ending = ".htm") const;

    /// Looks at the files that a program which died in the middle of a save has left in the data
    /// folder, and that nobody has touched for ten minutes. An order whose document is missing gets
    /// it back, another state of an order is kept; the rest is removed. `names` are those of the
    /// files in the folder; the documents that came back join them.
    void recoverLeftovers(std::vector<std::filesystem::path>& names) const;

  private:
    void sayKept(const std::string& number, const std::vector<std::filesystem::path>& kept) const;
    void putBack(std::vector<std::filesystem::path>& kept, const std::filesystem::path& path) const;
    std::optional<std::filesystem::path> recover(const std::filesystem::path& leftover) const;

    const FileSystem& files_;
    Commands& commands_;
    const Clock& clock_;
    struct {
        std::filesystem::path path;
        std::size_t hash = 0;
    } own_;  ///< the open order's document, as it was last read or written
};

}  // namespace bramblet
