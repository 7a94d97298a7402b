// Lists as the grids show them: each column's heading, width, alignment, text and order of sorting
// are in one table. Cells are turned into text when asked for.
#pragma once

#include "core/platform/currency.h"
#include "core/platform/fault.h"
#include "core/platform/regional_formats.h"
#include "core/platform/sorting.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace bramblet {

enum class Align { Left, Centre, Right };

/// How a column looks.
struct ColumnLook {
    const char* heading;
    int characters;          ///< width, if the heading needs no more; 0 hides the column
    bool stretches = false;  ///< takes a share of spare width, and shrinks when there is too little
    Align align = Align::Left;
};

/// A list as a grid sees it. Rows and columns count from 0.
class Table {
  public:
    virtual ~Table() = default;

    virtual int rowCount() const = 0;
    virtual int columnCount() const = 0;
    virtual const ColumnLook& look(int column) const = 0;
    virtual std::string cell(int row, int column) const = 0;
    /// The widest text of a column whose texts must never be cut short; empty for other columns.
    virtual std::string widest(int column) const = 0;

    /// The column that the list is sorted by; nothing when it is in file order.
    virtual std::optional<int> sortColumn() const = 0;
    virtual bool sortedDescending() const = 0;

    /// What is looked for in the list: only rows that hold it are there.
    virtual std::string sought() const { return {}; }
    /// What else the list is narrowed to.
    virtual std::string shownOnly() const { return {}; }

    /// What tells a row from all others, wherever it stands; empty in lists whose rows have no such
    /// thing.
    virtual std::string key(int) const { return {}; }
    /// The row with a key; -1 when it is not there.
    virtual int rowOf(const std::string& /*key*/) const { return -1; }

    /// What sets a row apart, and the same in words.
    enum class Mark { None, Requisition, Received };
    virtual Mark mark(int) const { return Mark::None; }
    virtual std::string markText(int) const { return {}; }
};

/// A column of a list of `Row`s. It holds either a text or an amount.
template <class Row>
struct Column : ColumnLook {
    std::string (*text)(const Row& row, const RegionalFormats& formats) = nullptr;
    Currency (*amount)(const Row& row) = nullptr;
    std::string (*amountText)(Currency amount, const RegionalFormats& formats) = nullptr;
    int decimals = 2;                        ///< of an amount, at the least
    double (*number)(const Row&) = nullptr;  ///< to sort by; null for a column sorted by its texts
    double (*day)(const Row&) = nullptr;     ///< that a date's text names; 0 for none
    const char* exported = nullptr;          ///< its heading in exports; null when it is left out

    std::string textOf(const Row& row, const RegionalFormats& formats) const {
        return amount != nullptr ? amountText(amount(row), formats) : text(row, formats);
    }
};

/// A column that shows a text of the record.
template <class Row, auto Field>
constexpr Column<Row> textColumn(ColumnLook look) {
    Column<Row> column{look};
    column.text = [](const Row& row, const RegionalFormats&) {
        return std::string(row.template get<Field>());
    };
    return column;
}

/// A column that shows an amount of the record.
template <class Row, auto Field>
constexpr Column<Row> amountColumn(const char* heading, int characters,
                                   std::string (*amountText)(Currency, const RegionalFormats&)) {
    Column<Row> column{{heading, characters, false, Align::Right}};
    column.amount = [](const Row& row) { return row.template get<Field>(); };
    column.amountText = amountText;
    return column;
}

template <class Row>
class ListTable : public Table {
  public:
    /// `columns`, which outlive the list, are shown from left to right.
    explicit ListTable(const RegionalFormats& formats, std::span<const Column<Row>> columns = {})
        : formats_(formats) {
        for (const Column<Row>& column : columns)
            shown_.push_back(&column);
    }

    int rowCount() const override { return static_cast<int>(rows_.size()); }
    int columnCount() const override { return static_cast<int>(shown_.size()); }
    const ColumnLook& look(int place) const override { return column(place); }
    std::string cell(int row, int place) const override {
        return column(place).textOf(rows_[static_cast<std::size_t>(row)], formats_);
    }
    const Row& row(int row) const { return rows_[static_cast<std::size_t>(row)]; }

    std::string widest(int place) const override {
        const Column<Row>& wanted = column(place);
        if (wanted.amount == nullptr) return {};
        const std::int64_t lastShown = wanted.decimals == 0 ? kUnit : kUnit / 100;
        std::int64_t least = 0;
        std::int64_t most = 0;
        bool moreDecimals = false;
        for (const Row& row : allRows()) {
            const std::int64_t amount = wanted.amount(row).tenThousandths;
            least = std::min(least, amount);
            most = std::max(most, amount);
            moreDecimals = moreDecimals || amount % lastShown != 0;
        }
        const auto text = [&](std::int64_t amount, std::int64_t decimals) {
            constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max() - kUnit;
            amount = std::clamp(amount, -kLargest, kLargest);
            if (moreDecimals) amount = amount / kUnit * kUnit + decimals;
            return wanted.amountText(Currency{amount}, formats_);
        };
        std::string low = text(least, least < 0 ? 1 - kUnit : 0);
        std::string high = text(most, kUnit - 1);
        return low.size() > high.size() ? low : high;
    }

    /// What the amounts of a column come to; empty when that is beyond the range of Currency.
    std::string sumText(int place) const {
        Currency sum;
        try {
            for (const Row& row : rows_)
                sum = sum + column(place).amount(row);
        } catch (const Fault&) {
            return {};
        }
        return column(place).amountText(sum, formats_);
    }

    std::optional<int> sortColumn() const override {
        const auto place = std::find(shown_.begin(), shown_.end(), sorting_.by);
        if (place == shown_.end()) return std::nullopt;
        return static_cast<int>(place - shown_.begin());
    }
    bool sortedDescending() const override { return sorting_.descending; }

  protected:
    struct Sorting {
        const Column<Row>* by = nullptr;  ///< null for the file's own order
        bool descending = false;
    };

    /// What a click on a heading asks for: that column, first ascending, then alternating.
    Sorting sortingOf(int heading) const {
        const Column<Row>* const by = &column(heading);
        return {by, sorting_.by == by && !sorting_.descending};
    }

    void sort(const Sorting& sorting) {
        sorting_ = sorting;
        const Column<Row>* const by = sorting.by;
        if (by == nullptr) return;
        if (by->number != nullptr) {
            sortRows(rows_, sorting.descending, by->number);
        } else {
            sortRows(rows_, sorting.descending,
                     [&](const Row& row) { return sortKey(by->textOf(row, formats_)); });
        }
    }

    /// Those that count for the widths, which stay as they are when the list is narrowed.
    virtual const std::vector<Row>& allRows() const { return rows_; }

    const RegionalFormats& formats_;
    std::vector<Row> rows_;
    std::vector<const Column<Row>*> shown_;  ///< the columns, from left to right
    Sorting sorting_;

  private:
    static constexpr std::int64_t kUnit = 10000;  ///< 1, as Currency counts

    const Column<Row>& column(int place) const { return *shown_[static_cast<std::size_t>(place)]; }
};

/// What is about to happen, as a list to look at.
template <class Row>
class Preview : public ListTable<Row> {
  public:
    using ListTable<Row>::ListTable;

    void show(std::vector<Row> rows) { this->rows_ = std::move(rows); }
};

}  // namespace bramblet
