#include "core/orders/csv_export.h"

#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

namespace bramblet {
namespace {

void addLine(std::string& csv, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        csv += i == 0 ? "\"" : ",\"";
        csv += fields[i];
        csv += '"';
    }
    csv += "\r\n";
}

}  // namespace

std::string ordersAsCsv(const std::vector<OrderIndexRecord>& orders,
                        const RegionalFormats& formats) {
    std::string csv;
    addLine(csv, {"Number", "Job", "Order Date", "Vendor", "Ship To", "Ship Date", "Total",
                  "Shipping", "Tax", "Net", "Discount", "List"});
    const auto date = [&](double days) {
        return days == 0 ? std::string() : shortDateText(days, formats);
    };
    const auto amount = [&](Currency value) { return currencyText(value, formats); };
    for (const auto& order : orders) {
        if (order.Status == kDeletedOrder) continue;
        addLine(csv, {trimmedField(order.Number), trimmedField(order.Job), date(order.OrderDate),
                      trimmedField(order.Vendor), trimmedField(order.ShipTo), date(order.ShipDate),
                      amount(order.OrderTotal), amount(order.Shipping), amount(order.SalesTax),
                      amount(order.NetTotal), amount(order.Discount), amount(order.SubTotal)});
    }
    return csv;
}

CsvExport::CsvExport(const FileSystem& files, const DataFolder& folder, const OrderIndex& index,
                     const RegionalFormats& formats, Desktop& desktop, Prompts& prompts)
    : files_(files),
      folder_(folder),
      index_(index),
      formats_(formats),
      desktop_(desktop),
      prompts_(prompts) {}

void CsvExport::mu_DataExport_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    const auto path = prompts_.chooseFileToSave(
        {"Export Orders", "", "Orders.csv", {{"Comma Separated Values", "*.CSV"}}});
    if (!path) return;
    if (!write(*path)) return;
    const Message finished{"Data has been exported to " + shown(*path) +
                               "\r\n\r\nWe can try to open it in your default spreadsheet program "
                               "now - proceed?",
                           "Export Complete", Buttons::YesNo, Icon::Information, Answer::No};
    if (prompts_.ask(finished) == Answer::Yes && !desktop_.open(*path)) {
        prompts_.say("No program could be started to open " + shown(*path));
    }
}

bool CsvExport::write(const std::filesystem::path& path) {
    const FileSystem target = files_.withoutRetry();
    try {
        if (!mayReplace(target, path, prompts_)) return false;
        target.replace(path, ordersAsCsv(index_.readAll(), formats_));
        return true;
    } catch (const Fault& fault) {
        prompts_.say("The orders were not exported to " + shown(path) + ": " + fault.inWords());
        return false;
    }
}

}  // namespace bramblet
