// A list of the records of a file: all that were read, those of them that are listed, and those
// that hold what is looked for. Sorting and finding touch neither the file nor the records.
#pragma once

#include "core/platform/fault.h"
#include "core/platform/finding.h"
#include "core/platform/fixed_record.h"
#include "core/platform/list_table.h"
#include "core/platform/os_files.h"
#include "core/platform/text.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace bramblet {

template <auto& Layout>
class RecordList : public ListTable<RecordView<Layout>> {
  public:
    using Row = RecordView<Layout>;

    /// All rows of the list, those as well that do not hold what is looked for.
    const std::vector<Row>& listed() const { return listed_; }
    std::string sought() const override { return sought_; }
    /// Folds the texts of the rows, so that the first letter typed need not wait for it.
    void prepareToFind() {
        if (texts_.rows() != records_.size()) fold();
    }

  protected:
    using Base = ListTable<Row>;
    using Base::Base;
    using Base::rows_;
    using Base::shown_;
    using Base::sorting_;

    /// Takes over the records that have been read; `list` is to follow.
    void hold(Records<Layout> records) {
        records_ = std::move(records);
        texts_ = {};
        read_ = true;
    }
    /// Takes over what `read` gives, which is called with the records to fill and says whether it
    /// could. Otherwise the records stay, and the next look for news tries again.
    template <class Read>
    void reread(const std::optional<os::FileStatus>& state, Read read) {
        Records<Layout> records;
        read_ = read(records);
        seen_ = read_ ? state : std::nullopt;
        if (read_) hold(std::move(records));
    }

    /// Takes over what `read` gives, if the file is no longer as it was `seen_` and something in it
    /// is new. What cannot be read at once is left for the next time.
    template <class Read>
    bool holdNews(const std::optional<os::FileStatus>& state, Read read) {
        if (!state || state == seen_) return false;
        try {
            Records<Layout> records = read();
            seen_ = state;
            if (read_ && records.bytes() == records_.bytes()) return false;
            hold(std::move(records));
            return true;
        } catch (const Fault&) {
            return false;
        }
    }

    /// Lists the records that `isListed` accepts: in their usual order, and if the user has chosen
    /// a column to sort by, by that.
    template <class IsListed>
    void list(IsListed isListed) {
        rows_.clear();
        for (const Row& record : records_) {
            if (isListed(record)) rows_.push_back(record);
        }
        const auto chosen = sorting_;
        this->sort(usual_);
        if (isChosen_) this->sort(chosen);
        listed_ = rows_;
        narrow();
    }

    /// Rows that are equal in this column stay in the order in which they were.
    void sortByHeading(int heading) {
        isChosen_ = true;
        rows_ = listed_;
        this->sort(this->sortingOf(heading));
        listed_ = rows_;
        narrow();
    }

    /// Only rows that hold all words of `typed` remain. What it was longer by than before can only
    /// have made them fewer.
    void seek(const std::string& typed) {
        const bool longer = typed.starts_with(sought_);
        sought_ = typed;
        words_ = foldedWords(typed);
        if (!longer) rows_ = listed_;
        narrow();
    }

    /// Only rows that `only` accepts remain, beside what is sought; null lists all again.
    void showOnlyThose(std::function<bool(const Row&)> only) {
        only_ = std::move(only);
        rows_ = listed_;
        narrow();
    }

    const std::vector<Row>& allRows() const override { return listed_; }

    std::string countOf(const std::string& things) const {
        return listedText(rows_.size(), listed_.size(), things, read_);
    }

    Records<Layout> records_;
    bool read_ = false;                   ///< whether the records come from the last reading
    std::optional<os::FileStatus> seen_;  ///< the file just before it was last read
    typename Base::Sorting usual_;        ///< how the list is sorted until the user chooses

  private:
    void narrow() {
        if (only_) std::erase_if(rows_, [this](const Row& row) { return !only_(row); });
        if (words_.empty()) return;
        prepareToFind();
        const char* const first = records_.bytes().data();
        std::erase_if(rows_, [&](const Row& row) {
            const auto place = static_cast<std::size_t>(row.bytes().data() - first) / Row::kSize;
            return !texts_.holdsAll(place, words_);
        });
    }

    /// Of each record, the texts that the list shows.
    void fold() {
        texts_.reserve(records_.size(), records_.bytes().size());
        for (const Row& record : records_) {
            for (const auto* column : shown_) {
                const bool isText = column->amount == nullptr && column->characters > 0;
                if (isText) texts_.add(column->textOf(record, this->formats_));
            }
            texts_.endRow();
        }
    }

    std::vector<Row> listed_;
    std::function<bool(const Row&)> only_;
    bool isChosen_ = false;  ///< whether the user has chosen a column to sort by
    std::string sought_;
    std::vector<std::string> words_;  ///< of what is sought
    FoldedTexts texts_;               ///< by the records' places
};

}  // namespace bramblet
