// Where code page text and paths meet. Everywhere else paths stay paths: a file's name on the disk
// may be more than the code page can express, or not text at all.
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

/// The folder that a text in the settings names. Each component is taken as UTF-8 when it is
/// well-formed UTF-8 with letters outside ASCII, otherwise as code page text.
std::filesystem::path pathOfFolder(std::string_view text);

/// The text that `pathOfFolder` turns back into this path: in the code page if that suffices,
/// otherwise in UTF-8. Nothing for a folder whose name on the disk is not text.
std::optional<std::string> folderText(const std::filesystem::path& folder);

/// UTF-16 of a path for display. Bytes that are not UTF-8 count as code page text.
std::u16string unicodeOf(const std::filesystem::path& path);

/// A path as part of a message in the code page; what the code page lacks appears in it as UTF-8.
std::string shown(const std::filesystem::path& path);

/// UTF-16 of a message that may contain a path as `shown` returns it.
std::u16string messageToUnicode(std::string_view message);

/// For comparing regardless of letter case, as far as the code page has letters.
std::u16string withoutCase(const std::filesystem::path& path);

/// Whether a name ends in one of these endings, which are in capitals.
bool endsInOneOf(const std::filesystem::path& name, std::span<const std::u16string_view> endings);

void sortWithoutCase(std::vector<std::filesystem::path>& names);

}  // namespace bramblet
