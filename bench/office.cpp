#include "office.h"

#include <cstdio>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <unistd.h>

namespace bramblet::bench {

Office& Office::withLists(int count) {
    static std::map<int, Office> offices;
    return offices.try_emplace(count, FolderSize{count, count, 0, 0}).first->second;
}

void Office::save(const std::string& number, int lines) {
    Order order;
    order.PONoEd = number;
    order.OrderDateEd = order.ShipDateEd = "3/4/2026";
    order.ToCombo = vendorName(1);
    order.ShipToCombo = "Ashby workshop";
    order.ByEd = "M. Harlow";
    order.ShipViaEd = "Carrier";
    order.FOBEd = "Destination";
    order.TermsEd = "30 days net";
    order.CommentsEd = "Please ring before delivery";
    order.JobNumberEd = "J-17";
    for (int i = 1; i <= lines; ++i) {
        order.lines.push_back({"2", "", "", "ea",
                               "A line of the order, number " + std::to_string(i), "12.50", "25.00",
                               "special"});
    }
    program_->open.replace(std::move(order));
    program_->editor.SaveChanges_Click();
    if (!std::filesystem::exists(file(number + ".htm"))) {
        throw std::runtime_error("order " + number + " was not saved");
    }
}

Office& officeOfLongOrder() {
    static Office office({});
    if (!std::filesystem::exists(office.file(std::string(kLongOrder) + ".htm"))) {
        office.save(kLongOrder, 200);
    }
    return office;
}

Office& officeWithDocuments(int orders) {
    static std::map<int, Office> offices;
    const auto [entry, isNew] = offices.try_emplace(orders, FolderSize{orders, 0, 0, 0});
    Office& office = entry->second;
    if (!isNew) return office;
    const std::string first = orderRow(1).number;
    office.save(first, 10);
    const std::string document = readWhole(office.file(first + ".htm"));
    for (int i = 2; i <= orders; ++i) {
        const std::string number = orderRow(i).number;
        std::string copy = document;
        for (std::size_t at = 0; (at = copy.find(first, at)) != copy.npos; at += number.size())
            copy.replace(at, number.size(), number);
        test::writeFile(office.file(number + ".htm"), copy);
    }
    return office;
}

std::size_t readInto(std::string& buffer, const std::filesystem::path& path) {
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) throw std::runtime_error("not read: " + path.string());
    std::setvbuf(file, nullptr, _IONBF, 0);
    const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), file);
    std::fclose(file);
    return length;
}

std::string readWhole(const std::filesystem::path& path) {
    std::string bytes(std::filesystem::file_size(path), '\0');
    bytes.resize(readInto(bytes, path));
    return bytes;
}

void flushAll(const std::filesystem::path& path) {
    const int handle = ::open(path.c_str(), O_RDONLY);
    if (handle == -1 || ::syncfs(handle) != 0) throw std::runtime_error("not flushed");
    ::close(handle);
}

void writeFlushed(const std::filesystem::path& path, const std::string& bytes) {
    test::writeFile(path, bytes);
    const int handle = ::open(path.c_str(), O_WRONLY);
    if (handle == -1 || ::fsync(handle) != 0) throw std::runtime_error("not flushed");
    ::close(handle);
}

}  // namespace bramblet::bench
