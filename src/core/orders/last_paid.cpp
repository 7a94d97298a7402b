#include "core/orders/last_paid.h"

#include "core/document/document_reader.h"
#include "core/orders/order_lines.h"
#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;

constexpr std::size_t kKept = 8;   // prices of the same goods
constexpr std::size_t kShown = 5;  // fewer: some orders may be deleted, or the one being written
constexpr std::uint64_t kLongestDocument = 4 << 20;
constexpr int kMostRefused = 3;

bool isPurchase(const OrderRow& order) {
    const auto status = order.get<&Record::Status>();
    return status == "A" || status == "a";
}

/// A description in upper case, with one blank between words.
std::string folded(const std::string& description) {
    std::string words = upper(trimmed(withoutControls(description)));
    const auto areBlank = [](char a, char b) { return a == ' ' && b == ' '; };
    words.erase(std::unique(words.begin(), words.end(), areBlank), words.end());
    return words;
}

/// 0 for none. Keys instead of texts: there may be a hundred thousand of them.
std::size_t keyOf(char kind, const std::string& text) {
    return text.empty() ? 0 : std::hash<std::string>()(kind + text);
}
std::size_t descriptionKey(const std::string& description) {
    return keyOf('d', folded(description));
}
std::size_t numberKey(const std::string& fileNumber) {
    const std::string number = trimmed(fileNumber);
    return number == kSpecial || number == "0" ? 0 : keyOf('#', number);
}

/// 0 when it is none.
double costOf(const OrderLine& line, const RegionalFormats& formats) {
    try {
        return numberOf(cleanedNumber(line[kUnitCost]), formats);
    } catch (const Fault&) {
        return 0;
    }
}

std::string costText(double cost, const RegionalFormats& formats) {
    constexpr int kMostGrouped = 4;
    const Decimal digits(cost);
    return digits.decimals() > kMostGrouped ? generalText(digits, formats)
                                            : exactText(digits, formats);
}

/// 0 when it has none.
double dateOf(const OrderRow& order) {
    const double date = order.get<&Record::OrderDate>();
    return std::isnan(date) ? 0 : date;
}

}  // namespace

Goods goodsOf(const LineEntry& typed, const LineEntry& before, const std::string& order) {
    const bool same = typed.description == before.description;
    return {same ? before.fileNumber : "", typed.description, typed.unit, order};
}

Goods goodsOf(const StockList& stock) {
    return {stock.editsPicked() ? stock.FileOrderTag() : "", stock.boxes.StockDescriptionEd,
            stock.boxes.StockUnitCombo, "", stock.boxes.StockVendorCombo};
}

// A document in use is left for another time.
LastPaid::LastPaid(const FileSystem& files, const DataFolder& folder, const SavedOrders& orders,
                   const RegionalFormats& formats)
    : files_(files.withoutRetry()), folder_(folder), orders_(orders), formats_(formats) {}

std::vector<PaidPrice> LastPaid::of(const Goods& goods) const {
    std::vector<PaidPrice> prices;
    if (orders_.records() == nullptr) return prices;
    // The line dialog stores blanks for the letters beyond ASCII.
    const std::size_t description = descriptionKey(goods.description);
    const std::size_t stored = descriptionKey(storedDescription(goods.description));
    std::vector<Paid> found;
    for (const std::size_t key : {description, stored, numberKey(goods.fileNumber)}) {
        const auto known = key == 0 ? paid_.end() : paid_.find(key);
        if (known == paid_.end()) continue;
        for (const Paid& paid : known->second) {
            const bool listed = std::any_of(found.begin(), found.end(), [&](const Paid& other) {
                return other.place == paid.place;
            });
            if (listed || !holds(paid) || !isPurchase(recordOf(paid))) continue;
            if (recordOf(paid).get<&Record::Number>() != goods.order) found.push_back(paid);
        }
    }
    std::sort(found.begin(), found.end(),
              [this](const Paid& a, const Paid& b) { return isNewer(a, b); });
    for (const Paid& paid : found) {
        if (prices.size() == kShown) break;
        const bool renamed = paid.description != description && paid.description != stored;
        prices.push_back(priceOf(paid, goods, renamed));
    }
    return prices;
}

PaidPrice LastPaid::priceOf(const Paid& paid, const Goods& goods, bool renamed) const {
    const OrderRow& order = recordOf(paid);
    PaidPrice price{costText(paid.cost, formats_), "", "",
                    std::string(order.get<&Record::Number>())};
    if (upper(*paid.unit) != upper(trimmed(goods.unit))) price.unit = *paid.unit;
    price.words = price.cost;
    if (!price.unit.empty()) price.words += " per " + price.unit;
    const double date = dateOf(order);
    const std::string vendor(order.get<&Record::Vendor>());
    const bool sameVendor = upper(vendor) == upper(trimmed(goods.vendor));
    for (const std::string& part : {sameVendor ? std::string() : vendor,
                                    date == 0 ? std::string() : shortDateText(date, formats_),
                                    std::string(renamed ? "under another description" : "")}) {
        if (!part.empty()) price.words += ", " + part;
    }
    return price;
}

bool LastPaid::hasMore() const {
    const bool listed = folder_.DataPathOK() && orders_.records() != nullptr;
    return listed && (next_ > 0 || !begun_ || list_ != orders_.seen());
}

/// Nobody tells whose document has been saved anew, so each time that the list has been written,
/// all of them are gone through.
bool LastPaid::readNext() {
    if (!hasMore()) return false;
    const OrderRecords& records = *orders_.records();
    if (next_ == 0) {
        begun_ = true;
        list_ = orders_.seen();
        next_ = records.size();
        refused_ = 0;
    }
    known_.resize(records.size());
    next_ = std::min(next_, records.size());
    while (next_ > 0) {
        --next_;
        if (!isPurchase(records[next_])) continue;
        const Look look = lookAt(next_);
        refused_ = look == Look::Refused ? refused_ + 1 : 0;
        if (look == Look::Unreachable || refused_ == kMostRefused) next_ = 0;
        return look == Look::New;
    }
    return false;
}

LastPaid::Look LastPaid::lookAt(std::size_t place) {
    Known& known = known_[place];
    std::string number((*orders_.records())[place].get<&Record::Number>());
    if (known.number != number) known = {std::move(number), std::nullopt, 0};
    Order order;
    try {
        const auto path = folder_.documentPath(known.number);
        const os::FileStatus state = files_.status(path);
        if (state == known.state) return Look::Nothing;
        if (state.length <= kLongestDocument) readMarkers(files_.read(path), order);
        known.state = state;
    } catch (const Fault& fault) {
        if (fault.number() == FaultNumber::PermissionDenied ||
            fault.number() == FaultNumber::PathFileAccess) {
            return Look::Refused;
        }
        if (fault.number() != FaultNumber::FileNotFound &&
            fault.number() != FaultNumber::BadFileName) {
            return Look::Unreachable;
        }
        known.state.reset();
    }
    if (trimmed(order.PONoEd) != known.number) order.lines.clear();  // it is another order's
    enter(place, order.lines);
    return Look::New;
}

void LastPaid::saved(const Order& order) {
    const OrderRecords* const records = orders_.records();
    if (!begun_ || records == nullptr) return;
    const std::string number = trimmed(order.PONoEd);
    const std::size_t place = records->placeOf(
        [&](const OrderRow& record) { return record.get<&Record::Number>() == number; });
    if (place == records->size()) return;
    known_.resize(records->size());
    known_[place] = {number, std::nullopt, 0};
    enter(place, order.lines);
}

void LastPaid::enter(std::size_t place, const std::vector<OrderLine>& lines) {
    known_[place].reading = ++readings_;
    for (const OrderLine& line : lines) {
        const double cost = costOf(line, formats_);
        if (cost <= 0) continue;
        const std::string& unit = *units_.insert(trimmed(line[kUnit])).first;
        const std::size_t description = descriptionKey(line[kDescription]);
        const Paid paid{static_cast<std::uint32_t>(place), readings_, description, &unit, cost};
        enter(description, paid);
        enter(numberKey(line[kFileNumber]), paid);
    }
}

/// An order is there once: of several lines for the same goods, the last counts.
void LastPaid::enter(std::size_t key, const Paid& paid) {
    if (key == 0) return;
    std::vector<Paid>& prices = paid_[key];
    std::erase_if(prices,
                  [&](const Paid& other) { return other.place == paid.place || !holds(other); });
    prices.push_back(paid);
    if (prices.size() <= kKept) return;
    prices.erase(std::max_element(prices.begin(), prices.end(),
                                  [this](const Paid& a, const Paid& b) { return isNewer(a, b); }));
}

/// Whether it stands in the order that is now at that place.
bool LastPaid::holds(const Paid& paid) const {
    const OrderRecords& records = *orders_.records();
    if (paid.place >= records.size() || paid.place >= known_.size()) return false;
    const Known& known = known_[paid.place];
    return known.reading == paid.reading &&
           records[paid.place].get<&Record::Number>() == known.number;
}

bool LastPaid::isNewer(const Paid& a, const Paid& b) const {
    return std::pair(dateOf(recordOf(a)), a.place) > std::pair(dateOf(recordOf(b)), b.place);
}

const OrderRow& LastPaid::recordOf(const Paid& paid) const {
    return (*orders_.records())[paid.place];
}

}  // namespace bramblet
