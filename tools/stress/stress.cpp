// Many desks at work on one data folder at once, without windows, without pauses: what each of them
// was told is stored must be there in the end.
//
//     stress SECONDS DESKS DATA...
//     stress --cut-off SECONDS DESKS DATA...
//
// With --cut-off somebody takes the folder away for a while and gives it back, which leaves
// temporary files: what could not be stored is counted, and a file left over is no fault.
//
// The desks take the folders DATA in turn; they are ways to the same folder, for example several
// mounts of one share, and the first one is looked at in the end. Prints what was done and what of
// it overtook what, and ends with 1 if anything is gone or torn.

#include "core/app/program.h"
#include "core/document/document_reader.h"
#include "core/orders/order_documents.h"
#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace bramblet {
namespace {

using Time = std::chrono::steady_clock;

class AgreeingPrompts : public Prompts {
  public:
    Answer ask(const Message& message) override {
        told = message.text;
        return message.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
    }
    std::string told;
};

/// Notes what the status line says last.
class StatusLine : public Screen {
  public:
    void showStatus(const std::string& line, Tone tone) override {
        text = line;
        failed = tone == Tone::Failure && !line.empty();
    }
    std::string text;
    bool failed = false;
};

/// One desk, in a process of its own. Writes into `log` a line for each thing that was stored:
/// what it is, its name or number, and the mark that it bears.
class Desk {
  public:
    Desk(Program& program, StatusLine& line, std::string name, std::ofstream log)
        : program_(program),
          line_(line),
          name_(std::move(name)),
          log_(std::move(log)),
          random_(std::hash<std::string>()(name_)) {}

    void work(Time::time_point end) {
        while (Time::now() < end) {
            switch (random_() % 10) {
                case 0:
                    saveAddress();
                    break;
                case 1:
                    saveItem();
                    break;
                case 2:
                    deleteOrder();
                    break;
                case 3:
                    if (!own_.empty()) changeOrder(own_[random_() % own_.size()]);
                    break;
                case 4:
                    program_.editor.Save_PO_Click();
                    saveMarked();
                    break;
                default:
                    program_.editor.NewPO_Click();
                    saveMarked();
            }
        }
        for (const auto& [what, number, mark] : orders_)
            log_ << what << ' ' << number << ' ' << mark << '\n';
        for (const auto& [name, address] : addresses_)
            log_ << "address " << name << ' ' << address << '\n';
        for (const std::string& item : items_)
            log_ << "item " << item << " -\n";
        log_ << "done - " << refused_ << '\n';
    }

  private:
    std::string nextMark() { return name_ + "-" + std::to_string(++marks_); }

    void saveMarked() {
        const std::string mark = nextMark();
        program_.editor.edit(&Order::JobNumberEd, mark);
        program_.editor.SaveChanges_Click();
        const std::string number = program_.open.order().PONoEd;
        if (program_.open.OrderDirty() || program_.open.isPending()) {
            if (refused_++ == 0) std::cout << name_ << ": " << line_.text << '\n';
            if (!program_.open.isPending()) orders_.push_back({"tried", number, mark});
            return;
        }
        // Under another number, an order is another one; the same desk's later state replaces it.
        if (own_.empty() || own_.back() != number) own_.push_back(number);
        orders_.push_back({"order", number, mark});
    }
    void changeOrder(const std::string& number) {
        program_.editor.POGrid_Click(number);
        // Another desk that has drawn the same number may have taken its document's place.
        if (program_.open.order().JobNumberEd.starts_with(name_ + "-")) saveMarked();
    }
    void deleteOrder() {
        if (!own_.empty()) program_.editor.POPop_delete_Click(own_[random_() % own_.size()]);
    }
    void saveAddress() {
        const std::string name = name_ + "-v" + std::to_string(random_() % 20);
        const std::string mark = nextMark();
        program_.addresses.Combo_Change(AddressSide::Vendor, name);
        program_.addresses.Field_Change(AddressSide::Vendor, mark);
        program_.addresses.Changed_Click(AddressSide::Vendor);
        if (!line_.failed) addresses_[name] = mark;
        if (random_() % 5 == 0) {
            program_.addresses.Combo_Click(AddressSide::Vendor);
            program_.addresses.Delete_Click(AddressSide::Vendor);
            addresses_.erase(name);
        }
    }
    void saveItem() {
        const std::string mark = nextMark();
        program_.stock.boxes = {"C", name_, "ea", mark, "1"};
        program_.stock.SaveNewStockItem_Click();
        if (!line_.failed) items_.push_back(mark);
    }

    Program& program_;
    StatusLine& line_;
    std::string name_;
    std::ofstream log_;
    std::mt19937_64 random_;
    int marks_ = 0;
    int refused_ = 0;               ///< saves that failed, of which the user was told
    std::vector<std::string> own_;  ///< numbers
    std::vector<std::array<std::string, 3>> orders_;
    std::map<std::string, std::string> addresses_;
    std::vector<std::string> items_;
};

int workAt(const std::string& name, const std::filesystem::path& home,
           const std::filesystem::path& data, Time::time_point end) {
    FileSystem().createFolders(Program::homeFolderIn(home));
    Settings settings = defaultSettings(Program::homeFolderIn(home));
    settings.DataDirectory = data.string();
    SettingsFile(FileSystem(), Program::homeFolderIn(home)).SaveConfig(settings);
    AgreeingPrompts prompts;
    StatusLine line;
    Desktop desktop;
    // A file that another desk has in hand is waited for, as a person would: a while.
    const FileWait wait = [end](const FileError& error) {
        if (Time::now() > end + std::chrono::seconds(60)) throw error;
        usleep(10'000);
    };
    Program program({desktop, home, RegionalFormats{}, systemClock(), wait}, prompts);
    program.commands.setScreen(&line);
    // A folder that cannot be reached at first is tried again, as a person would.
    constexpr int kStarts = 5;
    for (int i = 0; i < kStarts && !program.folder.DataPathOK(); ++i) {
        usleep(i * 1'000'000);
        program.start();
    }
    if (!program.folder.DataPathOK()) {
        std::cout << "FAULT: " << name << " could not start: " << prompts.told << '\n';
        return 1;
    }
    Desk(program, line, name, std::ofstream(home / "log")).work(end);
    program.commands.setScreen(nullptr);
    return 0;
}

/// What is in the folder in the end.
class Inspection {
  public:
    Inspection(std::filesystem::path data, bool cutOff) : data_(std::move(data)), cutOff_(cutOff) {
        look(data_, false);
        if (os::exists(data_ / "kept")) look(data_ / "kept", true);
        lookAtRecords();
    }

    /// Whether the order is there in that state: under its number or kept.
    bool has(const std::string& number, const std::string& mark) const {
        return documents_.contains({number, mark});
    }
    bool isListed(const std::string& number) const { return listed_.contains(number); }
    bool hasAddress(const std::string& name, const std::string& address) const {
        return addresses_.contains({name, address});
    }
    bool hasItem(const std::string& description) const { return items_.contains(description); }

    int kept = 0;
    int faults = 0;  ///< torn records, files left over

  private:
    void fault(const std::string& what) {
        ++faults;
        std::cout << "FAULT: " << what << '\n';
    }
    void look(const std::filesystem::path& folder, bool keptOnes) {
        for (const auto& name : FileSystem().fileNames(folder)) {
            if (isTemporaryName(name) && !cutOff_) fault("left over: " + name.string());
            if (name.extension() != ".htm") continue;
            Order order;
            if (!readMarkers(FileSystem().read(folder / name), order).has(&Order::PONoEd))
                fault("no order: " + name.string());
            if (keptOnes) ++kept;
            documents_.emplace(order.PONoEd, order.JobNumberEd);
        }
    }
    template <auto& Layout>
    Records<Layout> recordsOf(const char* name) {
        if (FileSystem().status(data_ / name).length % recordSize(Layout) != 0)
            fault(std::string(name) + " has a torn record");
        return RecordFile<Layout>(FileSystem(), data_ / name).readAll();
    }
    void lookAtRecords() {
        for (const OrderRow row : recordsOf<kOrderIndexLayout>("po_data.dat")) {
            const std::string number(row.get<&OrderIndexRecord::Number>());
            const std::string status(row.get<&OrderIndexRecord::Status>());
            if (number.size() != 6 || (status != "A" && status != "D"))
                fault("a torn record of the list: " + number);
            listed_.insert(number);
        }
        for (const auto row : recordsOf<kAddressLayout>("po_addy.dat")) {
            addresses_.emplace(row.get<&AddressRecord::Name>(), row.get<&AddressRecord::Address>());
        }
        for (const auto row : recordsOf<kStockItemLayout>("po_stock.dat"))
            items_.emplace(row.get<&StockItemRecord::Description>());
    }

    std::filesystem::path data_;
    bool cutOff_;
    std::set<std::pair<std::string, std::string>> documents_;
    std::set<std::string> listed_;
    std::set<std::pair<std::string, std::string>> addresses_;
    std::set<std::string> items_;
};

int stress(bool cutOff, int seconds, int desks, const std::vector<std::string>& folders) {
    const auto homes =
        std::filesystem::temp_directory_path() / ("stress" + std::to_string(getpid()));
    const auto end = Time::now() + std::chrono::seconds(seconds);
    for (int desk = 0; desk < desks; ++desk) {
        if (fork() != 0) continue;
        const std::string name = "d" + std::to_string(desk);
        const auto& folder = folders[static_cast<std::size_t>(desk) % folders.size()];
        const int result = workAt(name, homes / name, folder, end);
        std::cout.flush();
        std::_Exit(result);
    }
    int failed = 0;
    for (int status = 0; wait(&status) > 0;)
        failed += status != 0;

    Inspection inspection(folders.front(), cutOff);
    std::map<std::string, int> stored;
    std::map<std::string, int> lost;
    std::map<std::string, int> drawn;  // how many desks have saved under a number
    int finished = 0;
    int refused = 0;
    for (int desk = 0; desk < desks; ++desk) {
        std::ifstream log(homes / ("d" + std::to_string(desk)) / "log");
        // The last state stored, and those whose save failed since, perhaps only afterwards.
        std::map<std::string, std::vector<std::string>> lastStates;
        std::string what, name, mark;
        while (log >> what >> name >> mark) {
            if (what == "done") {
                ++finished;
                refused += std::stoi(mark);
                continue;
            }
            if (what == "order") lastStates[name] = {mark};
            if (what == "tried" && lastStates.contains(name)) lastStates[name].push_back(mark);
            if (what != "tried") ++stored[what];
            if (what == "address") lost[what] += !inspection.hasAddress(name, mark);
            if (what == "item") lost[what] += !inspection.hasItem(name);
        }
        for (const auto& [number, states] : lastStates) {
            ++drawn[number];
            const auto isThere = [&](const std::string& state) {
                return inspection.has(number, state);
            };
            if (std::none_of(states.begin(), states.end(), isThere)) {
                ++lost["order"];
                std::cout << "FAULT: order " << number << " of " << states.front() << " is gone\n";
            }
        }
    }
    int twice = 0;
    int unlisted = 0;
    for (const auto& [number, times] : drawn) {
        twice += times > 1;
        unlisted += !inspection.isListed(number);
    }
    std::filesystem::remove_all(homes);
    if (finished != desks || failed != 0) std::cout << "FAULT: a desk did not finish\n";
    std::cout << desks << " desks, " << seconds << " seconds: " << stored["order"]
              << " saves of orders under " << drawn.size() << " numbers, " << twice
              << " of them drawn more than once; " << lost["order"] << " lost, " << inspection.kept
              << " kept, " << unlisted << " not in the list; " << stored["address"]
              << " addresses, " << lost["address"] << " overtaken; " << stored["item"]
              << " stock items, " << lost["item"] << " overtaken; " << refused
              << " saves of orders failed\n";
    if (cutOff && refused == 0) std::cout << "FAULT: the folder was never away\n";
    const bool asMeant = finished == desks && (refused != 0 || !cutOff);
    return inspection.faults + lost["order"] + failed == 0 && asMeant ? 0 : 1;
}

}  // namespace
}  // namespace bramblet

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool cutOff = std::erase(arguments, "--cut-off") != 0;
    if (arguments.size() < 3) {
        std::cerr << "usage: stress [--cut-off] SECONDS DESKS DATA...\n";
        return 2;
    }
    try {
        return bramblet::stress(cutOff, std::stoi(arguments[0]), std::stoi(arguments[1]),
                                {arguments.begin() + 2, arguments.end()});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
