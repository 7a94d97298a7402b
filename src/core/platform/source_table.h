// A table from another program, as text: its cells, and which of its columns is what. That is
// guessed from the headings and can be chosen.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

using Cells = std::vector<std::string>;

/// The cells of a table: lines end with LF or CR LF, cells are divided by the separator, and a cell
/// with one of these in it stands in quotes. Rows without any text are left out; all rows have the
/// same number of cells.
std::vector<Cells> cellsIn(std::string_view text, char separator);

/// The comma, semicolon or tab that divides the cells of a table: the one that finds several texts
/// in most of its first rows, and the more columns the better.
char likelySeparator(std::string_view text);

class SourceTable {
  public:
    static constexpr int kNowhere = -1;

    SourceTable() = default;
    /// `headings` has, for each thing that is taken from the table, the beginnings of its heading,
    /// in upper case. A row that holds an amount is no row of headings.
    SourceTable(std::vector<Cells> rows, const std::vector<std::vector<std::string_view>>& headings,
                const std::function<bool(const std::string& cell)>& isAmount);

    /// All rows, that of the headings as well.
    const std::vector<Cells>& rows() const { return rows_; }

    /// The column from which a thing is taken, from 0, or kNowhere.
    int source(std::size_t taken) const { return sources_[taken]; }
    void choose(std::size_t taken, int source) { sources_[taken] = source; }
    /// How many columns have been chosen.
    std::size_t chosen() const;

    /// Whether the first row holds headings.
    bool headed() const { return headed_; }
    void setHeaded(bool headed) { headed_ = headed; }
    /// The place of the first row below them.
    std::size_t firstRow() const { return headed_ ? 1 : 0; }

    /// What a row has of a thing; empty when it is taken from nowhere.
    std::string text(std::size_t row, std::size_t taken) const;

    /// The columns to choose from: each by its letter and its first text.
    std::vector<std::string> columns() const;

  private:
    std::vector<Cells> rows_;
    std::vector<int> sources_;
    bool headed_ = false;
};

}  // namespace bramblet
