#include "core/orders/list_rebuild.h"

#include "core/platform/record_file.h"
#include "support/office.h"
#include "support/sample_orders.h"

#include <algorithm>
#include <map>

namespace bramblet::test {
namespace {

using Names = std::vector<std::string>;
constexpr std::size_t kSize = OrderRow::kSize;

class ListRebuildTest : public Office {
  protected:
    void SetUp() override {
        start();
        addOrder("000001", "Acme");
        addOrder("000002", "Bolt");
        addOrder("PO12", "Cole");
        addOrder("000004", "Dunn");
        program().index.markDeleted("000004");
        program().savedOrders.PopPOGrid();
        whole = stored("po_data.dat");
    }

    static Order orderOf(const std::string& number, const std::string& vendor) {
        Order order = orderWith({{&Order::PONoEd, number},
                                 {&Order::ToCombo, vendor},
                                 {&Order::JobNumberEd, "J-" + number},
                                 {&Order::OrderDateEd, "3/1/2025"},
                                 {&Order::ShippingEd, "7"}});
        order.kind = OrderKind::Requisition;
        TotalUp(order, false, {});
        return order;
    }
    void writeDocument(const std::string& name, const Order& order) const {
        writeFile(data(name + ".htm"), orderDocument(order, {Settings{}, false, {}}));
    }
    void addOrder(const std::string& number, const std::string& vendor) {
        program().index.RecordData(orderOf(number, vendor));
        writeDocument(number, orderOf(number, vendor));
    }
    void addLine(const std::string& name, const std::string& line) const {
        writeFile(data(name + ".htm"), stored(name + ".htm") + line + "\r\n");
    }
    void writeList(const std::string& bytes) const { writeFile(data("po_data.dat"), bytes); }
    std::string record(std::size_t place) const { return whole.substr(place * kSize, kSize); }

    ListRebuild& rebuild() { return program().listRebuild; }
    /// What the command finds, for example "000001 has no document; ..."; empty when it only says
    /// that there is nothing to change.
    std::string found() {
        screen.opened.clear();
        rebuild().mu_RebuildOrderList_Click();
        if (screen.opened.empty()) return {};
        EXPECT_EQ(screen.opened, Names{"rebuild"});
        std::string text;
        for (int row = 0; row < rebuild().rowCount(); ++row) {
            const std::string number = rebuild().cell(row, 0);
            text += (row == 0 ? "" : "; ") + number + (number.empty() ? "" : " ") +
                    rebuild().cell(row, 1);
        }
        return text;
    }
    void expectAgreement() {
        prompts.expect(
            notice("The list of orders agrees with the documents. There is nothing to "
                   "change.",
                   "Rebuild Order List"));
        EXPECT_EQ(found(), "");
    }
    /// Every file of the data folder and of "kept", with its content.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(data("")))
            if (entry.is_regular_file()) all[shown(entry.path())] = contentOf(entry.path());
        return all;
    }

    std::string whole;  ///< the list as it has to be
};

TEST_F(ListRebuildTest, AListThatAgreesIsOnlySaidToDoSo) {
    writeFile(data("po.htm"), "<html>");
    writeFile(data("notes.txt"), "");
    writeFile(data("") / std::filesystem::path(u8"\u0142.htm"), "");
    std::filesystem::create_directory(data("folder.htm"));
    const auto before = files();
    expectAgreement();
    EXPECT_EQ(files(), before);
}

TEST_F(ListRebuildTest, ALostOrDamagedListIsMendedAndItsOtherRecordsStay) {
    const std::string missing = " is missing in the list";
    const std::string all =
        "PO12" + missing + "; 000001" + missing + "; 000002" + missing + "; 000004" + missing;
    const std::string inOrder = record(2) + record(0) + record(1) +  // as their numbers are sorted
                                std::string(record(3)).replace(0, 1, "R");
    const std::string cutOff = "the list ends in the middle of a record";
    const std::string stranger = fitted("A777777", kSize);
    const std::string deleted = fitted("D777777", kSize);
    const std::string twin = std::string(record(0)).replace(27, 4, "Twin");
    const auto with = [&](std::size_t offset, const std::string& bytes) {
        return std::string(whole).replace(offset, bytes.size(), bytes);
    };
    const struct {
        const char* what;
        std::string list, found, mended;
    } cases[] = {
        {"an empty list", "", all, inOrder},
        {"the last record", whole.substr(kSize), "000001" + missing,
         whole.substr(kSize) + record(0)},
        {"less than half a record is left", whole.substr(0, kSize + 101),
         cutOff + "; PO12" + missing + "; 000002" + missing + "; 000004" + missing,
         record(0) + record(2) + record(1) + std::string(record(3)).replace(0, 1, "R")},
        {"more than half a record is left", whole.substr(0, 2 * kSize + 160),
         cutOff + "; PO12 differs: Shipping; 000004" + missing,
         record(0) + record(1) + record(2) + std::string(record(3)).replace(0, 1, "R")},
        {"another name", with(27, "Nobody"), "000001 differs: Vendor", whole},
        {"half a record of other bytes", with(kSize + 87, std::string(kSize - 87, 'x')),
         "000002 differs: Ship To, Order Total, Shipping, Sales Tax, Net, Discount, Sub Total",
         whole},
        {"a received order", with(2 * kSize, "r"), "PO12 differs: Status", whole},
        {"records without a document", whole + stranger + deleted, "777777 has no document",
         whole + stranger + deleted},
        {"a second record of a number", whole + twin, "", whole + twin},
        {"a second record, then damage", with(27, "Nobody") + twin, "000001 differs: Vendor",
         whole + twin},
    };
    for (const auto& [what, list, expected, mended] : cases) {
        SCOPED_TRACE(what);
        writeList(list);
        if (expected.empty()) {
            expectAgreement();
            continue;
        }
        EXPECT_EQ(found(), expected);
        EXPECT_EQ(stored("po_data.dat"), list) << "nothing is written before the user agrees";
        EXPECT_EQ(rebuild().changes(), list != mended);
        rebuild().Rebuild_Click();
        EXPECT_EQ(stored("po_data.dat"), mended);
    }
}

TEST_F(ListRebuildTest, AMissingListIsNotCreatedBeforeTheUserAgrees) {
    std::filesystem::remove(data("po_data.dat"));
    const auto before = files();
    found();
    EXPECT_EQ(rebuild().summary(), "4 orders are missing in the list");
    EXPECT_EQ(files(), before);
    rebuild().Rebuild_Click();
    expectSaid("The list of orders is rebuilt: 4 added, 0 changed");
    EXPECT_EQ(program().savedOrders.rowCount(), 4);
    EXPECT_FALSE(os::exists(data("kept"))) << "there was nothing to keep";
    expectAgreement();
}

TEST_F(ListRebuildTest, WhatADocumentDoesNotTellStays) {
    const auto leaveOut = [&](const std::string& tag) {
        std::string document = stored("000001.htm");
        const auto at = document.find("<!-- " + tag + " ");
        document.erase(at, document.find('\n', at) + 1 - at);
        writeFile(data("000001.htm"), document);
    };
    for (const char* tag : {"JOB", "ORD", "STO", "TOT", "STA"})
        leaveOut(tag);
    addLine("000001", "<!-- STA ? STA -->");
    std::string odd = record(0);
    for (const std::size_t offset : {7, 19, 87, 155})
        odd.replace(offset, 8, "\1\2\3\4\5\6\7\x40");
    odd.replace(0, 1, "a");
    writeList(odd.replace(27, 4, "Acne") + whole.substr(kSize));
    EXPECT_EQ(found(), "000001 differs: Vendor");
    rebuild().Rebuild_Click();
    EXPECT_EQ(stored("po_data.dat"), odd.replace(27, 4, "Acme") + whole.substr(kSize));
}

TEST_F(ListRebuildTest, DatesAndAmountsAreReadAsWhenAnOrderIsSaved) {
    const struct {
        const char *line, *found;
    } cases[] = {
        {"<!-- ORD 3/1 ORD -->", ""},  // in the year that the list has
        {"<!-- ORD 3/2 ORD -->", "000001 differs: Date"},
        {"<!-- SDA 3/2 SDA -->", "000001 differs: Ship Date"},
        {"<!-- ORD  ORD -->", "000001 differs: Date"},
        {"<!-- SDA someday SDA -->",
         "000001 cannot be read: \"someday\" in the box On Site is not a date"},
        {"<!-- TOT 1.2.3 TOT -->",
         "000001 cannot be read: \"1.2.3\" in the box Total is not an amount"},
        {"<!-- TOT $ 7 TOT -->", ""},
        {"<!-- SUB 1,234.50 SUB -->", "000001 differs: Sub Total"},
        {"<!-- VND Acme  VND -->", ""},
    };
    const std::string document = stored("000001.htm");
    for (const auto& [line, expected] : cases) {
        SCOPED_TRACE(line);
        writeFile(data("000001.htm"), document);
        addLine("000001", line);
        if (*expected != '\0') {
            EXPECT_EQ(found(), expected);
        } else {
            expectAgreement();
        }
    }
}

TEST_F(ListRebuildTest, DocumentsThatAreNoOrdersOfTheirNamesAreNamedAndLeftOut) {
    writeFile(data("000020.htm"), "<html>");
    writeFile(data("000021.htm"), "");
    writeDocument("000022", orderOf("000001", "Acme"));
    writeDocument("000023", orderOf(kPendingNumber, "Acme"));
    writeDocument("PO-2026-1", orderOf("PO-2026-1", "Acme"));
    writeDocument("000001", orderOf("000002", "Bolt"));
    const std::string sixLetters = fitted("APO-202", kSize);
    writeList(whole + sixLetters);
    EXPECT_EQ(found(),
              "PO-202 has no document; PO-2026-1 cannot be listed: its number is too long; "
              "000001 cannot be read: its document is that of order 000002; "
              "000020 cannot be read: its document holds no order; "
              "000021 cannot be read: its document holds no order; "
              "000022 cannot be read: its document is that of order 000001; "
              "000023 cannot be read: its document holds no order");
    EXPECT_EQ(
        rebuild().summary(),
        "1 order has no document, 5 documents cannot be read, 1 document has too long a number");
    EXPECT_FALSE(rebuild().changes());
}

#ifndef _WIN32
TEST_F(ListRebuildTest, AFileThatOnlyLooksLikeADocumentIsNotTakenForIt) {
    std::filesystem::rename(data("000002.htm"), data("000002.HTM"));
    EXPECT_EQ(found(), "000002 cannot be read: File not found (error 53)");
}
#endif

TEST_F(ListRebuildTest, TheFormerListIsKeptUnderTheTime) {
    for (const std::string name :
         {"po_data 2026-03-04 143005.dat", "po_data 2026-03-04 143005 2.dat"}) {
        const std::string damaged = std::string(whole).replace(27, 2, std::to_string(name.size()));
        writeList(damaged);
        found();
        rebuild().Rebuild_Click();
        EXPECT_EQ(stored("kept/" + name), damaged);
        EXPECT_EQ(stored("po_data.dat"), whole);
        EXPECT_EQ(
            screen.lastLine,
            "The list of orders is rebuilt: 0 added, 1 changed; the former list is kept/" + name);
    }
    EXPECT_EQ(program().savedOrders.cell(1, kVendorColumn), "Acme");
}

TEST_F(ListRebuildTest, WhatCannotBeKeptIsNotReplaced) {
    const std::string damaged = whole.substr(kSize);
    writeList(damaged);
    writeFile(data("kept"), "a file where the folder should be");
    found();
    prompts.expectSaying("The list of orders was not rebuilt: ");
    rebuild().Rebuild_Click();
    EXPECT_EQ(stored("po_data.dat"), damaged);
}

TEST_F(ListRebuildTest, AListThatHasChangedInTheMeantimeIsNotReplaced) {
    writeList(whole.substr(kSize));
    found();
    addOrder("000030", "of another desk");
    const auto before = files();
    prompts.expectSaying("Somebody has changed the list of orders in the meantime");
    rebuild().Rebuild_Click();
    EXPECT_EQ(files(), before);
    EXPECT_NE(program().savedOrders.rowOf("000030"), -1) << "but it is shown";
}

TEST_F(ListRebuildTest, ReadingStopsBeforeTheNextDocument) {
    writeList("");
    const auto before = files();
    for (const int stop : {0, 1, 3}) {
        int last = -1;
        prompts.onStep = [&](int done, int total) {
            last = done;
            return total == 1 || done < stop;  // the folder is being listed, or a document is read
        };
        EXPECT_EQ(found(), "");
        EXPECT_EQ(last, stop);
        EXPECT_EQ(screen.lastLine, "Stopped; the list of orders is as it was");
    }
    prompts.onStep = [](int, int) { return false; };
    EXPECT_EQ(found(), "") << "while the folder is being listed";
    EXPECT_EQ(files(), before);
}

TEST_F(ListRebuildTest, ThousandsOfDocumentsAreEachReadOnce) {
    constexpr int kOrders = 3000;
    const std::string document = stored("000001.htm");
    std::vector<std::string> numbers;
    for (int i = 1; i <= kOrders; ++i) {
        numbers.push_back(std::to_string(900000 - i));
        std::string own = document;
        own.replace(own.find("000001"), 6, numbers.back());
        writeFile(data(numbers.back() + ".htm"), own);
    }
    int steps = 0;
    prompts.onStep = [&](int, int total) {
        steps += total > 1 ? 1 : 0;
        return true;
    };
    found();
    EXPECT_EQ(steps, kOrders + 4);
    EXPECT_EQ(rebuild().summary(), "3000 orders are missing in the list");
    rebuild().Rebuild_Click();
    const std::string rebuilt = stored("po_data.dat");
    ASSERT_EQ(rebuilt.size(), whole.size() + kOrders * kSize);
    EXPECT_EQ(rebuilt.substr(0, whole.size()), whole);
    std::reverse(numbers.begin(), numbers.end());
    for (std::size_t i = 0; i < numbers.size(); ++i)
        ASSERT_EQ(rebuilt.substr(whole.size() + i * kSize + 1, 6), numbers[i]);
}

TEST_F(ListRebuildTest, AListThatWouldGetTooLongIsLeftAsItIs) {
    const std::string full = std::string(kMostRecords * kSize, ' ');
    writeList(full);
    prompts.expect(
        notice("The list of orders cannot be compared with the documents: Overflow "
               "(error 6).",
               "Rebuild Order List", Icon::Exclamation));
    EXPECT_EQ(found(), "");
    EXPECT_EQ(stored("po_data.dat"), full);
}

TEST_F(ListRebuildTest, StraysAreToldOfOnceAfterTheStart) {
    const auto hints = [&] {
        screen.hints.clear();
        start();
        program().lookAround();
        program().lookAround();
        return screen.hints;
    };
    const std::string where = ": Data > Rebuild Order List from Documents shows which";
    writeFile(data("last_backup.txt"), "2026-03-04");  // otherwise there is a hint about that
    EXPECT_EQ(hints(), Names{});
    writeFile(data("po.htm"), "");
    writeFile(data("PO-2026-1.htm"), "");
    EXPECT_EQ(hints(), Names{}) << "documents that the list has no room for";
    writeList(whole + fitted("APO-202", kSize));
    EXPECT_EQ(hints(), Names{}) << "but that have left a record there";
    writeList(whole);
    std::filesystem::remove(data("000004.htm"));
    EXPECT_EQ(hints(), Names{}) << "a deleted order";
    std::filesystem::remove(data("000001.htm"));
    EXPECT_EQ(hints(), Names{"1 order of the list has no document" + where});
    writeFile(data("000077.htm"), "not opened");
    EXPECT_EQ(hints(),
              Names{"1 order of the list has no document, 1 document is not in the list" + where});
    writeList("");
    EXPECT_EQ(hints(), Names{"3 documents are not in the list" + where});
    obstruct(data("po_data.dat"));
    EXPECT_EQ(hints(), Names{}) << "a list that could not be read";
}

}  // namespace
}  // namespace bramblet::test
