#include "core/document/document_writer.h"

#include "core/document/order_markers.h"
#include "core/platform/amount_text.h"
#include "core/platform/text.h"

namespace bramblet {
namespace {

const std::string kLineEnd = "\r\n";
const std::string kSmallCell = "<td><font size=\"-1\">";
const std::string kAmountCell = "<td align=\"right\"><font size=\"-1\">";
constexpr std::size_t kMostRows = 32767;

void writeLine(std::string& text, std::string_view content) {
    text += content;
    text += kLineEnd;
}

/// The document under construction.
class Document {
  public:
    Document(const Order& order, const DocumentStyle& style)
        : order_(order), settings_(style.settings), style_(style) {}

    std::string text() {
        text_ = orderMarkers(order_);
        writeTop();
        writeHeading();
        writeAddresses();
        writeTerms();
        writeItems();
        writeBottom();
        return std::move(text_);
    }

  private:
    void line(std::string_view content) { writeLine(text_, content); }

    void lines(std::initializer_list<std::string_view> contents) {
        for (const auto content : contents)
            line(content);
    }

    void writeTop() {
        lines({"<head>", "</head>", "<body>"});
        line("<BASEFONT FACE=\"" + trimmedField(settings_.FontName) + "\" SIZE=\"1\">");
        line("<table border=0 cellspacing=0 width=\"" + trimmedField(settings_.FormWidth) +
             "\"><tr><td>");
    }

    void writeHeading() {
        lines({"<table width=\"100%\"><tr>", "<td align=\"left\" valign=\"top\">"});
        writeCompany();
        lines({"</td>", "<td align=\"right\" valign=\"top\">"});
        const bool purchaseOrder = order_.kind == OrderKind::PurchaseOrder;
        const bool quote = !purchaseOrder && isOn(settings_.RequestForQuote);
        const char* const title = purchaseOrder ? "PURCHASE ORDER"
                                  : quote       ? "REQUEST FOR QUOTE"
                                                : "REQUISITION";
        line(std::string("<font size=\"") + (quote ? "5" : "6") + "\"><b>" + title +
             "</b></font><br>");
        if (!quote || isOn(settings_.UseReqNumber))
            writeNumber(quote ? "this number" : "order number");
        const std::string job = trimmed(order_.JobNumberEd);
        line(job.empty() ? "<br>" : "<font size=\"-1\">Job Number: " + job + "<br>");
        const std::string label = purchaseOrder ? "Order Date: " : "Date: ";
        line("<font size=\"-1\">" + label + trimmed(order_.OrderDateEd));
        lines({"</td>", "</tr></table>"});
    }

    void writeCompany() {
        if (isOn(settings_.UseTopGraphic)) {
            line("<img src=\"" + trimmedField(settings_.TopGraphic) + "\">");
            return;
        }
        const std::string name = trimmedField(settings_.IDText1);
        if (!name.empty()) line("<b>" + name + "</b><br>");
        for (const auto field :
             {&Settings::IDText2, &Settings::IDText3, &Settings::IDText4, &Settings::IDText5}) {
            const std::string text = trimmedField(settings_.*field);
            if (!text.empty()) line(text + "<br>");
        }
    }

    void writeNumber(const std::string& named) {
        line("<b>No: " + trimmedField(settings_.NumberPrefix) + trimmed(order_.PONoEd) +
             "</b><br>");
        line("<font size=\"-2\">Please reference " + named + " on all correspondence!</font><br>");
    }

    void writeAddresses() {
        line("<table width=\"100%\"><tr>");
        writeAddress("To:", order_.ToField, order_.ToCombo);
        writeAddress("Ship To:", order_.ShipToField, order_.ShipToCombo);
        lines({"</tr></table>", "<p>"});
    }

    void writeAddress(const std::string& label, const std::string& address,
                      const std::string& name) {
        line("<td width=\"50%\" valign=\"top\"><font size=\"-1\">");
        line("<b>" + label + "</b><p>");
        std::string block;
        MakeHTML_NoteBlock(address, block);
        line(block);
        lines({trimmed(name) + "<br>", "</td>"});
    }

    void writeTerms() {
        line("<table width=\"100%\" border=\"1\" cellspacing=\"0\"><tr>");
        line(kSmallCell + "By: " + trimmed(order_.ByEd) + "</td>");
        line(kSmallCell + "On Site Date: " + trimmed(order_.ShipDateEd) + "</td>");
        line(kSmallCell + "Via: " + trimmed(order_.ShipViaEd) + "</td>");
        line(kSmallCell + "FOB: " + trimmed(order_.FOBEd) + "</td>");
        line(kSmallCell + "Terms: " + trimmed(order_.TermsEd) + "</td>");
        lines({"</tr></table>", "<p>"});
    }

    void writeItems() {
        lines({"<table width=\"100%\" border=\"1\" cellpadding=\"1\" cellspacing=\"0\"><tr>",
               "<td width=\"7%\"><font size=\"-1\">Quant</td>",
               "<td width=\"7%\"><font size=\"-1\">Unit</td>",
               "<td width=\"56%\"><font size=\"-1\">Description</td>",
               "<td width=\"15%\" align=\"right\"><font size=\"-1\">Unit Price</td>",
               "<td width=\"15%\" align=\"right\"><font size=\"-1\">Amount</td>", "</tr>"});
        for (const auto& item : order_.lines)
            writeItem(item);
        writeFiller();
        writeTotals();
        line("</table>");
    }

    void writeItem(const OrderLine& item) {
        line("<tr>");
        for (const auto column : {kQuantity, kUnit, kDescription}) {
            line("<td valign=\"top\"><font size=\"-1\">" + trimmed(item[column]) + "</td>");
        }
        for (const auto column : {kUnitCost, kLineTotal}) {
            line("<td valign=\"top\" align=\"right\"><font size=\"-1\">" +
                 currencyText(trimmed(item[column]), style_.formats) + "</td>");
        }
        line("</tr>");
    }

    bool isNonzero(const std::string& amount) const {
        return numberOf(amount, style_.formats) != 0;
    }

    /// Rows that the form takes up: heading, lines, extra rows of long descriptions, optional
    /// totals.
    std::size_t usedRows() const {
        std::size_t rows = 1 + order_.lines.size();
        if (settings_.DescriptionLineLength > 0) {
            const auto length = static_cast<std::size_t>(settings_.DescriptionLineLength);
            for (const auto& item : order_.lines)
                rows += trimmed(item[kDescription]).size() / length;
        }
        if (isNonzero(order_.DiscountEd)) rows += 2;
        if (isNonzero(order_.SalesTaxEd)) ++rows;
        if (isNonzero(order_.ShippingEd)) ++rows;
        if (rows > kMostRows) throw Fault(FaultNumber::Overflow);
        return rows;
    }

    /// Empty rows that bring the forms of short orders to the same height.
    void writeFiller() {
        const int wanted = settings_.SigLineSpace - static_cast<int>(usedRows());
        for (int row = 0; row < wanted; ++row) {
            lines({"<tr bordercolor=\"white\" cellpadding=\"0\" cellspacing=\"0\"><td></td>",
                   "<td></td>", "<td></td>", "<td>:</td>", "<td>:</td>", "</tr>"});
        }
    }

    void writeTotals() {
        writeTotal("Sub Total", order_.SubTotalEd);
        if (isNonzero(order_.DiscountEd)) {
            writeTotal("Disc." + percentage(order_.DiscountFactorEd), order_.DiscountEd,
                       "<td align=\"right\">-<font size=\"-1\">");
        }
        writeTotal("Total (Net)", order_.NetTotalEd);
        if (style_.taxFreight) writeShipping();
        if (isNonzero(order_.SalesTaxEd)) {
            writeTotal("Tax" + percentage(order_.TaxFactorEd), order_.SalesTaxEd);
        }
        if (!style_.taxFreight) writeShipping();
        writeTotal("Order Total", order_.OrderTotalEd);
    }

    void writeShipping() {
        if (isNonzero(order_.ShippingEd)) writeTotal("Shipping", order_.ShippingEd);
    }

    void writeTotal(const std::string& label, const std::string& amount,
                    const std::string& amountCell = kAmountCell) {
        lines({"<tr><td></td>", "<td></td>", "<td></td>", kSmallCell + label + "</td>",
               amountCell + currencyText(amount, style_.formats) + "</td>", "</tr>"});
    }

    /// " (6.5%)" for a factor of .065; nothing when the amount was typed by hand, without a factor.
    std::string percentage(const std::string& factor) const {
        const double value = numberOf(cleanedNumber(factor), style_.formats);
        return value == 0 ? "" : " (" + generalText(value * 100, style_.formats) + "%)";
    }

    void writeBottom() {
        const std::string comments = trimmed(order_.CommentsEd);
        if (!comments.empty()) line("<center><font size=\"-1\">" + comments + "</center><p>");
        lines({"<table width=\"100%\" border=\"0\" cellspacing=\"0\"><tr>", "<td><br>&nbsp;</td>",
               "<td><font size=\"-1\"><small></small><br>Authorized Signature: </td>",
               "</tr></table>", "<hr size=\"1\" noshade>", "</td></tr></table>", "</body></html>"});
    }

    const Order& order_;
    const Settings& settings_;
    const DocumentStyle& style_;
    std::string text_;
};

}  // namespace

std::string orderMarkers(const Order& order) {
    std::string text;
    writeLine(text, "<html>");
    for (const auto& [tag, field, read] : kOrderMarkers) {
        const std::string value = field == nullptr ? statusOf(order) : order.*field;
        writeLine(text, markerOpening(tag) + trimmed(value) + markerClosing(tag));
    }
    for (const auto& item : order.lines) {
        std::string cells;
        for (const auto& cell : item)
            cells += '\t' + trimmed(cell);
        writeLine(text, std::string(kItemOpening) + cells.substr(1));
    }
    writeLine(text, kEndOfMarkers);
    return text;
}

std::string orderDocument(const Order& order, const DocumentStyle& style) {
    return Document(order, style).text();
}

void MakeHTML_NoteBlock(std::string_view text, std::string& result) {
    std::string piece;
    const auto add = [&piece](const char* tag) {
        if (!piece.ends_with('>')) piece += tag;
    };
    for (const char c : std::string(text) + '\n') {
        if (c == '\r') {
            add("<br>");
        } else if (c == '\n') {
            add("<p>");
            if (piece != "<p>") result += kLineEnd + piece;
            piece.clear();
        } else {
            piece += c;
        }
    }
}

}  // namespace bramblet
