#include "core/platform/finding.h"

#include "core/platform/sorting.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

/// What each byte of the code page is folded to: what it is sorted by, without its accents.
struct Folds {
    std::array<std::string, 256> letters;
    std::array<char, 256> single{};  ///< the only letter; 0 where there are more or none

    Folds() {
        for (std::size_t byte = 0; byte < letters.size(); ++byte) {
            const std::string key = sortKey(std::string(1, static_cast<char>(byte)));
            letters[byte] = key.substr(0, key.find('\0'));
            if (letters[byte].size() == 1) single[byte] = letters[byte].front();
        }
    }
};

void appendFolded(std::string& letters, std::string_view text) {
    static const Folds folds;
    const std::size_t start = letters.size();
    letters += text;
    bool allSingle = true;
    for (std::size_t i = start; i < letters.size(); ++i) {
        letters[i] = folds.single[static_cast<unsigned char>(letters[i])];
        allSingle = allSingle && letters[i] != 0;
    }
    if (allSingle) return;
    letters.resize(start);
    for (const char c : text)
        letters += folds.letters[static_cast<unsigned char>(c)];
}

}  // namespace

std::vector<std::string> foldedWords(std::string_view typed) {
    std::vector<std::string> words;
    while (true) {
        typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
        if (typed.empty()) return words;
        const std::size_t length = std::min(typed.find(' '), typed.size());
        appendFolded(words.emplace_back(), typed.substr(0, length));
        typed.remove_prefix(length);
    }
}

void FoldedTexts::reserve(std::size_t rows, std::size_t letters) {
    ends_.reserve(rows);
    letters_.reserve(letters);
}

void FoldedTexts::add(std::string_view text) {
    appendFolded(letters_, text);
    letters_.push_back(' ');
}

bool FoldedTexts::holdsAll(std::size_t row, const std::vector<std::string>& words) const {
    const std::size_t start = row == 0 ? 0 : ends_[row - 1];
    const std::string_view letters = std::string_view(letters_).substr(start, ends_[row] - start);
    return std::all_of(words.begin(), words.end(), [letters](const std::string& word) {
        return letters.find(word) != std::string_view::npos;
    });
}

}  // namespace bramblet
