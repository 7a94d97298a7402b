#include "core/orders/csv_export.h"

#include "core/document/document_reader.h"
#include "core/orders/saved_orders.h"
#include "core/orders/spreadsheet.h"
#include "core/platform/path_text.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>

namespace bramblet {
namespace {

/// The forms of the file, as the filters of its choice.
enum Form : std::size_t { kAsEver, kPlain, kLines };
const std::array<FileChoice::Filter, 3> kForms{{
    {"Comma Separated Values", "*.CSV"},
    {"Orders, for any spreadsheet", "*.csv"},
    {"Lines of the orders, for any spreadsheet", "*.csv"},
}};

}  // namespace

std::string ordersAsCsv(const OrderRecords& orders, const RegionalFormats& formats) {
    std::string csv;
    const auto addLine = [&](const auto& textOf) {
        std::string line;
        for (const auto& column : kOrderColumnTable) {
            if (column.exported == nullptr) continue;
            line += line.empty() ? "\"" : ",\"";
            line += textOf(column);
            line += '"';
        }
        csv += line + "\r\n";
    };
    addLine([](const auto& column) { return std::string(column.exported); });
    for (const OrderRow order : orders) {
        if (order.get<&OrderIndexRecord::Status>() == kDeletedOrder) continue;
        addLine([&](const auto& column) { return column.textOf(order, formats); });
    }
    return csv;
}

CsvExport::CsvExport(const FileSystem& files, Commands& commands, const OrderIndex& index,
                     const RegionalFormats& formats, Desktop& desktop)
    : files_(files), commands_(commands), index_(index), formats_(formats), desktop_(desktop) {}

void CsvExport::mu_DataExport_Click() {
    commands_.onData([&] {
        unread_.clear();
        const auto chosen = commands_.prompts().chooseFileToSave(
            {"Export Orders", "", "Orders.csv", {kForms.begin(), kForms.end()}});
        if (!chosen || !write(*chosen)) return;
        const Message finished{
            "Data has been exported to " + shown(chosen->path) +
                "\r\n\r\nWe can try to open it in your default spreadsheet program now - proceed?",
            "Export Complete", Buttons::YesNo, Icon::Information, Answer::No};
        if (commands_.prompts().ask(finished) == Answer::Yes && !desktop_.open(chosen->path)) {
            commands_.say("No program could be started to open " + shown(chosen->path));
        }
    });
}

bool CsvExport::write(const ChosenFile& chosen) {
    const FileSystem target = files_.withoutRetry();
    bool written = false;
    commands_.attempt("The orders were not exported to " + shown(chosen.path) + ": ", [&] {
        if (!mayReplace(target, chosen.path, commands_.prompts())) return;
        const auto text = content(chosen.filter);
        if (!text) return commands_.sayDone("Nothing was exported");
        target.replace(chosen.path, *text);
        written = true;
        if (!unread_.empty()) commands_.say(unreadText());
    });
    return written;
}

/// Nothing when the user does not want it any more.
std::optional<std::string> CsvExport::content(std::size_t form) {
    if (form == kLines) return lines();
    const OrderRecords orders = index_.readAll();
    return form == kPlain ? ordersForSpreadsheet(orders, formats_) : ordersAsCsv(orders, formats_);
}

/// Documents in use are told of; they are not waited for.
std::optional<std::string> CsvExport::lines() {
    const OrderRecords orders = index_.readAll();
    const FileSystem documents = files_.withoutRetry();
    LinesForSpreadsheet lines(formats_);
    std::unordered_set<std::string_view> numbers;  // of several records with one, the first counts
    std::optional<LongOperation> reading;
    reading.emplace(commands_.prompts(), "Reading the order documents", 1);
    for (std::size_t place = 0; place < orders.size(); ++place) {
        if (!reading->mayGoOn(static_cast<int>(place), static_cast<int>(orders.size()))) return {};
        const OrderRow& row = orders[place];
        const auto number = row.get<&OrderIndexRecord::Number>();
        if (row.get<&OrderIndexRecord::Status>() == kDeletedOrder) continue;
        if (!numbers.insert(number).second) continue;
        Order order;
        try {
            const auto path = commands_.folder().documentPath(std::string(number));
            readMarkers(documents.read(path), order);
        } catch (const Fault&) {
        }
        if (trimmed(order.PONoEd) == number)
            lines.add(row, order.lines);
        else
            unread_.emplace_back(number);
    }
    reading.reset();
    if (unread_.empty()) return lines.text();
    const Message question{unreadText() + "\r\n\r\nExport the lines of the other orders?",
                           "Export Orders", Buttons::YesNo, Icon::Exclamation, Answer::No};
    if (commands_.prompts().ask(question) != Answer::Yes) return {};
    return lines.text();
}

std::string CsvExport::unreadText() const {
    constexpr std::size_t kMostNamed = 10;
    const std::size_t named = std::min(unread_.size(), kMostNamed);
    std::string text =
        unread_.size() == 1
            ? std::string("The lines of one order are missing, its document cannot be read: ")
            : "The lines of " + std::to_string(unread_.size()) +
                  " orders are missing, their documents cannot be read: ";
    for (std::size_t i = 0; i < named; ++i)
        text += (i == 0 ? "" : ", ") + unread_[i];
    return text + (named < unread_.size() ? " ..." : "");
}

}  // namespace bramblet
