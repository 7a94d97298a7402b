// The list of orders, or the lines of the orders, as a comma-separated file for spreadsheets.
#pragma once

#include "core/orders/order_index.h"
#include "core/platform/desktop.h"
#include "core/settings/commands.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// The file's text: a line of headings, then one line for each order that is not deleted, with
/// every field in double quotes and lines ending in CR LF. Quotes within a field are not doubled;
/// unset dates are empty.
std::string ordersAsCsv(const OrderRecords& orders, const RegionalFormats& formats);

class CsvExport {
  public:
    CsvExport(const FileSystem& files, Commands& commands, const OrderIndex& index,
              const RegionalFormats& formats, Desktop& desktop);

    /// Writes the whole list to a file that the user chooses, in the form that they choose, and
    /// offers to open it.
    void mu_DataExport_Click();

  private:
    bool write(const ChosenFile& chosen);
    std::optional<std::string> content(std::size_t form);
    std::optional<std::string> lines();
    std::string unreadText() const;

    const FileSystem& files_;
    Commands& commands_;
    const OrderIndex& index_;
    const RegionalFormats& formats_;
    Desktop& desktop_;
    std::vector<std::string> unread_;  ///< numbers of the orders whose lines are not in the file
};

}  // namespace bramblet
