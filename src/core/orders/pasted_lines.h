// Rows of another program's table, copied there and pasted here, as one-time items. Which column
// holds what is guessed and can be chosen.
#pragma once

#include "core/orders/order_lines.h"
#include "core/platform/source_table.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

class PastedLines : public LineTable {
  public:
    PastedLines(std::string_view clipboard, const RegionalFormats& formats);

    /// What a line takes from the table, in the order of the choices.
    static constexpr std::array kTaken{OrderColumn::kQuantity, OrderColumn::kUnit,
                                       OrderColumn::kDescription, OrderColumn::kUnitCost};

    /// The table, and what of it is taken from where.
    const SourceTable& table() const { return table_; }
    void choose(std::size_t taken, int source);
    void setHeaded(bool headed);

    /// "12 lines, 1,204.50 in all".
    std::string summary() const;
    /// Which amounts cannot be read as they stand; empty when all can.
    std::string doubts() const;

  private:
    void guess();
    void rebuild();
    OrderLine lineOf(std::size_t row);

    SourceTable table_;
    double total_ = 0;
    std::vector<std::string> doubted_;
};

}  // namespace bramblet
