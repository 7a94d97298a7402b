// Where code page texts and paths meet. Paths stay paths everywhere else: what a file is called on
// the disk may be more than the code page can say, or no text at all.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// A name in the code page, for example an order's number with its ending, as one component of a
/// path.
std::filesystem::path pathOfName(std::string_view name);

/// The folder that a text of the settings names. Each component is taken as UTF-8 when it is
/// well-formed UTF-8 with letters outside ASCII, else as code page text.
std::filesystem::path pathOfFolder(std::string_view text);

/// The text from which `pathOfFolder` makes this path again: in the code page where that is enough,
/// else UTF-8. None for a folder whose name on the disk is no text.
std::optional<std::string> folderText(const std::filesystem::path& folder);

/// UTF-16 of a path for display. Bytes that are no UTF-8 count as code page text.
std::u16string unicodeOf(const std::filesystem::path& path);

/// A path as part of a message in the code page; what the code page lacks stands in it as UTF-8.
std::string shown(const std::filesystem::path& path);

/// UTF-16 of a message that may hold a path as `shown` gives it.
std::u16string messageToUnicode(std::string_view message);

/// For comparing without regard to letter case, as far as the code page has letters.
std::u16string withoutCase(const std::filesystem::path& path);

/// Whether a name ends in one of these, which are in capitals.
bool endsInOneOf(const std::filesystem::path& name, std::span<const std::u16string_view> endings);

void sortWithoutCase(std::vector<std::filesystem::path>& names);

}  // namespace bramblet
