// Rows of another program's table, copied there and pasted here, as one-time items. Which column
// holds what is guessed and can be chosen.
#pragma once

#include "core/orders/line_items.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// The cells of a copied table: lines end with LF or CR LF, cells are divided by tabs, and a cell
/// with one of these in it stands in quotes. Rows without any text are left out; all rows have the
/// same number of cells.
std::vector<std::vector<std::string>> copiedCells(std::string_view text);

class PastedLines : public LineTable {
  public:
    PastedLines(std::string_view clipboard, const RegionalFormats& formats);

    /// What a line takes from the table, in the order of the choices.
    static constexpr std::array kTaken{OrderColumn::kQuantity, OrderColumn::kUnit,
                                       OrderColumn::kDescription, OrderColumn::kUnitCost};
    static constexpr int kNowhere = -1;

    /// The column from which it is taken, from 0, or kNowhere.
    int source(std::size_t taken) const { return sources_[taken]; }
    void choose(std::size_t taken, int source);

    /// Whether the first row holds headings.
    bool headed() const { return headed_; }
    void setHeaded(bool headed);

    /// The columns of the table, to choose from: each by its letter and its first text.
    std::vector<std::string> columns() const;

    /// "12 lines, 1,204.50 in all".
    std::string summary() const;
    /// Which amounts cannot be read as they stand; empty when all can.
    std::string doubts() const;

  private:
    void guess();
    void rebuild();
    OrderLine lineOf(const std::vector<std::string>& cells);

    const RegionalFormats& formats_;
    std::vector<std::vector<std::string>> cells_;
    std::array<int, kTaken.size()> sources_{};
    bool headed_ = false;
    double total_ = 0;
    std::vector<std::string> doubted_;
};

}  // namespace bramblet
