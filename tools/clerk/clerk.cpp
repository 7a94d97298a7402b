// A clerk at a desk without windows: takes commands, one per line, and says in plain ASCII what the
// program then shows and says. The same clerk runs on every system, so that two of them can take
// turns on one data folder.
//
//     clerk DOCUMENTS DATA < COMMANDS
//
// DOCUMENTS gets this desk's settings; DATA is the shared data folder. Every question is answered
// yes. In commands "\xE9" is a byte of the code page and "\n" a line break.

#include "core/app/program.h"
#include "core/platform/text.h"

#include <charconv>
#include <iostream>
#include <map>
#include <sstream>

namespace bramblet {
namespace {

constexpr CivilDate kDay{2026, 3, 4};

std::string unescaped(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\\n") == 0) {
            out += "\r\n";
            ++i;
        } else if (text.compare(i, 2, "\\x") == 0 && i + 4 <= text.size()) {
            unsigned byte = 0;
            std::from_chars(text.data() + i + 2, text.data() + i + 4, byte, 16);
            out.push_back(static_cast<char>(byte));
            i += 3;
        } else {
            out.push_back(text[i]);
        }
    }
    return out;
}

std::string escaped(const std::string& text) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F) {
            out.push_back(c);
        } else {
            out += std::string("\\x") + kDigits[byte >> 4] + kDigits[byte & 15];
        }
    }
    return out;
}

void tell(const std::string& line) {
    std::cout << escaped(line) << '\n';
}

class AgreeingPrompts : public Prompts {
  public:
    Answer ask(const Message& message) override {
        tell("asks: " + message.text);
        const bool yesNo =
            message.buttons == Buttons::YesNo || message.buttons == Buttons::YesNoCancel;
        return yesNo ? Answer::Yes : Answer::Ok;
    }
};

const std::map<std::string, OrderField> kBoxes{
    {"JobNumberEd", &Order::JobNumberEd},
    {"OrderDateEd", &Order::OrderDateEd},
    {"ShipDateEd", &Order::ShipDateEd},
    {"ByEd", &Order::ByEd},
    {"ShipViaEd", &Order::ShipViaEd},
    {"FOBEd", &Order::FOBEd},
    {"TermsEd", &Order::TermsEd},
    {"CommentsEd", &Order::CommentsEd},
    {"DiscountFactorEd", &Order::DiscountFactorEd},
    {"TaxFactorEd", &Order::TaxFactorEd},
    {"ShippingEd", &Order::ShippingEd},
};

class Clerk : private Screen {
  public:
    explicit Clerk(Program& program) : program_(program) { program_.commands.setScreen(this); }

    /// False for an unknown command.
    bool carryOut(const std::string& line) {
        const auto blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        const auto found = commands_.find(word);
        if (found == commands_.end()) return false;
        words_.clear();
        if (blank != std::string::npos) split(line.substr(blank + 1));
        words_.resize(kMostWords);
        found->second();
        return true;
    }

  private:
    void showStatus(const std::string& line, Tone) override { tell("says: " + line); }
    std::optional<LineEntry> editLine(const LineEntry&, const std::string&) override {
        return line_;
    }

    static constexpr std::size_t kMostWords = 5;

    void split(const std::string& rest) {
        std::istringstream stream(rest);
        for (std::string word; std::getline(stream, word, '|');)
            words_.push_back(unescaped(trimmed(word)));
    }

    void storeAddress(AddressSide side) {
        program_.addresses.Combo_Change(side, words_[0]);
        program_.addresses.Field_Change(side, words_[1]);
        program_.addresses.Changed_Click(side);
    }
    void pickAddress(AddressSide side) {
        program_.addresses.Combo_Change(side, words_[0]);
        program_.addresses.Combo_Click(side);
    }
    void forget(AddressSide side) {
        pickAddress(side);
        program_.addresses.Delete_Click(side);
    }
    void storeItem() {
        program_.stock.boxes = {words_[0], words_[1], words_[2], words_[3], words_[4]};
        program_.stock.SaveNewStockItem_Click();
    }
    void changeCost() {
        program_.stock.StockGrid_Click(program_.stock.rowOf(words_[0]));
        program_.stock.boxes.StockUnitCostEd = words_[1];
        program_.stock.SaveChangedStockItem_Click();
    }
    void dropItem() {
        program_.stock.StockGrid_Click(program_.stock.rowOf(words_[0]));
        program_.stock.DeleteStockItem_Click();
    }
    void addLine() {
        line_ = LineEntry{words_[0], words_[1], words_[2], words_[3]};
        program_.lines.OrderPop_OneTime_Click();
    }

    void show() const {
        const Order& order = program_.open.order();
        tell("number " + order.PONoEd + " status " + statusOf(order));
        tell("to " + order.ToCombo + ": " + order.ToField);
        tell("ship to " + order.ShipToCombo + ": " + order.ShipToField);
        for (const auto& [name, field] : kBoxes)
            tell(name + " " + order.*field);
        for (const auto& line : order.lines) {
            std::string text = "line";
            for (const auto& cell : line)
                text += " [" + cell + "]";
            tell(text);
        }
        tell("sub " + order.SubTotalEd + " discount " + order.DiscountEd + " net " +
             order.NetTotalEd + " tax " + order.SalesTaxEd + " total " + order.OrderTotalEd);
    }
    void list() const {
        tellRows("order", program_.savedOrders);
        for (const AddressSide side : kAddressSides) {
            for (const auto& name : program_.addresses.shown(side).names)
                tell("address " + name);
        }
        tellRows("item", program_.stock);
    }
    static void tellRows(const std::string& what, const Table& table) {
        for (int row = 0; row < table.rowCount(); ++row) {
            std::string text = what;
            for (int column = 0; column < table.columnCount(); ++column)
                text += " [" + table.cell(row, column) + "]";
            tell(text);
        }
    }

    Program& program_;
    std::optional<LineEntry> line_;
    std::vector<std::string> words_;
    const std::map<std::string, std::function<void()>> commands_{
        {"vendor", [this] { storeAddress(AddressSide::Vendor); }},
        {"destination", [this] { storeAddress(AddressSide::Destination); }},
        {"to", [this] { pickAddress(AddressSide::Vendor); }},
        {"shipto", [this] { pickAddress(AddressSide::Destination); }},
        {"forget-vendor", [this] { forget(AddressSide::Vendor); }},
        {"item", [this] { storeItem(); }},
        {"item-cost", [this] { changeCost(); }},
        {"drop-item", [this] { dropItem(); }},
        {"new", [this] { program_.editor.NewPO_Click(); }},
        {"requisition", [this] { program_.editor.chooseKind(OrderKind::Requisition); }},
        {"received", [this] { program_.editor.MarkReceivedCheck_Click(true); }},
        {"box", [this] { program_.editor.edit(kBoxes.at(words_[0]), words_[1]); }},
        {"line", [this] { addLine(); }},
        {"pick",
         [this] {
             program_.lines.StockGrid_DblClick(program_.stock, program_.stock.rowOf(words_[0]));
         }},
        {"save", [this] { program_.editor.SaveChanges_Click(); }},
        {"copy", [this] { program_.editor.Save_PO_Click(); }},
        {"open", [this] { program_.editor.POGrid_Click(words_[0]); }},
        {"delete", [this] { program_.editor.POPop_delete_Click(words_[0]); }},
        {"show", [this] { show(); }},
        {"list", [this] { list(); }},
    };
};

/// Sets the desk up: its settings name the shared data folder.
void settle(const std::filesystem::path& documents, const std::string& data) {
    const std::filesystem::path home = Program::homeFolderIn(documents);
    FileSystem().createFolders(home);
    Settings settings = defaultSettings(home);
    settings.DataDirectory = data;
    settings.UseQuantities = flag(true);
    SettingsFile(FileSystem(), home).SaveConfig(settings);
}

int work(const std::string& documents, const std::string& data) {
    settle(documents, data);
    AgreeingPrompts prompts;
    Desktop desktop;
    const Clock clock{[] { return *toDayCount(kDay); }, [] {}};
    Program program({desktop, documents, RegionalFormats{}, clock, nullptr}, prompts);
    Clerk clerk(program);
    program.start();
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.empty() || line.starts_with('#')) continue;
        if (!clerk.carryOut(line)) {
            std::cerr << "unknown: " << line << '\n';
            return 2;
        }
    }
    return program.folder.DataPathOK() ? 0 : 1;
}

}  // namespace
}  // namespace bramblet

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: clerk DOCUMENTS DATA < COMMANDS\n";
        return 2;
    }
    try {
        return bramblet::work(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
