// The list of orders, compared with the order documents and made anew from them: for a list that
// is lost, damaged or older than they are.
#pragma once

#include "core/orders/order_documents.h"
#include "core/orders/order_index.h"
#include "core/orders/saved_orders.h"
#include "core/platform/list_table.h"
#include "core/settings/commands.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// What the comparison says of one order.
struct Finding {
    enum Kind { Missing, Differing, Undocumented, Unreadable, TooLong, CutOff };
    Kind kind;
    std::string number;
    std::string words;
};

/// As a table, it is what the last comparison found.
class ListRebuild : public ListTable<Finding> {
  public:
    ListRebuild(const FileSystem& files, Commands& commands, const OrderIndex& index,
                SavedOrders& savedOrders, const OrderDocuments& documents,
                const RegionalFormats& formats);

    /// Compares, and opens the window that shows what has been found. Nothing is written.
    void mu_RebuildOrderList_Click();
    /// How many there are of each kind.
    std::string summary() const;
    /// Whether the list is to be changed at all.
    bool changes() const { return fresh_.bytes() != content_; }
    /// Keeps the present list in the folder "kept" and puts the new one in its place.
    void Rebuild_Click();

    void sortBy(int column) { sort(sortingOf(column)); }

    /// Says in the status bar, once in a run, if going by their names there are listed orders
    /// without a document or documents of orders that are not listed. `names` are those of the
    /// files in the data folder; none is opened.
    void tellOfStrays(const std::vector<std::filesystem::path>& names);

  private:
    void compare();
    /// `place` is that of the order's record; nothing when it has none.
    void compareWith(const std::string& number, std::optional<std::size_t> place);
    void add(Finding::Kind kind, const std::string& number, const std::string& words);
    std::size_t count(Finding::Kind kind) const;
    std::string keep() const;

    FileSystem files_;
    Commands& commands_;
    const OrderIndex& index_;
    SavedOrders& savedOrders_;
    const OrderDocuments& documents_;
    std::string content_;  ///< of the index file when it was compared
    OrderRecords fresh_;   ///< what it has to hold
    bool looked_ = false;  ///< for strays
};

}  // namespace bramblet
