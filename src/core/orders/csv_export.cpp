#include "core/orders/csv_export.h"

#include "core/orders/saved_orders.h"
#include "core/platform/path_text.h"
#include "core/platform/save_target.h"

namespace bramblet {

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
        const auto path = commands_.prompts().chooseFileToSave(
            {"Export Orders", "", "Orders.csv", {{"Comma Separated Values", "*.CSV"}}});
        if (!path || !write(*path)) return;
        const Message finished{
            "Data has been exported to " + shown(*path) +
                "\r\n\r\nWe can try to open it in your default spreadsheet program now - proceed?",
            "Export Complete", Buttons::YesNo, Icon::Information, Answer::No};
        if (commands_.prompts().ask(finished) == Answer::Yes && !desktop_.open(*path)) {
            commands_.say("No program could be started to open " + shown(*path));
        }
    });
}

bool CsvExport::write(const std::filesystem::path& path) {
    const FileSystem target = files_.withoutRetry();
    bool written = false;
    commands_.attempt("The orders were not exported to " + shown(path) + ": ", [&] {
        if (!mayReplace(target, path, commands_.prompts())) return;
        target.replace(path, ordersAsCsv(index_.readAll(), formats_));
        written = true;
    });
    return written;
}

}  // namespace bramblet
