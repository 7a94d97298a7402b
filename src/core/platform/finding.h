// Finding the rows of a list by what is typed: by words in any order, each of which may stand
// anywhere in the row, without case and accents.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// The words of a typed text, folded.
std::vector<std::string> foldedWords(std::string_view typed);

/// The texts of a list's rows, folded once for all that is looked for in them: one letter stands
/// for all its cases and accents.
class FoldedTexts {
  public:
    /// Makes room for so many rows and letters.
    void reserve(std::size_t rows, std::size_t letters);
    /// Adds a text to the row under way; no word reaches from one text into the next.
    void add(std::string_view text);
    void endRow() { ends_.push_back(letters_.size()); }

    std::size_t rows() const { return ends_.size(); }
    bool holdsAll(std::size_t row, const std::vector<std::string>& words) const;

  private:
    std::string letters_;            ///< of all rows
    std::vector<std::size_t> ends_;  ///< of each row among them
};

}  // namespace bramblet
