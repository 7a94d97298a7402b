// The same work with SQLite: the same values in a database, which is opened and closed each time as
// the program does with its files. Its own settings are left as they come, except that every commit
// reaches the disk.

#include "office.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <map>
#include <sqlite3.h>
#include <stdexcept>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace bramblet::bench {
namespace {

class Database {
  public:
    explicit Database(const std::filesystem::path& path) {
        const int result = sqlite3_open(path.c_str(), &handle_);
        check(result);
        run("pragma synchronous=full");
    }
    ~Database() { sqlite3_close(handle_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void run(const char* sql) { check(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr)); }
    sqlite3* handle() const { return handle_; }

    void check(int result) const {
        if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE) {
            throw std::runtime_error(sqlite3_errmsg(handle_));
        }
    }

  private:
    sqlite3* handle_ = nullptr;
};

class Statement {
  public:
    Statement(const Database& database, const char* sql) : database_(database) {
        database.check(sqlite3_prepare_v2(database.handle(), sql, -1, &handle_, nullptr));
    }
    ~Statement() { sqlite3_finalize(handle_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Binds the values to the parameters, from the first on; texts must outlive the next step.
    template <class... Values>
    Statement& with(const Values&... values) {
        [[maybe_unused]] int place = 0;
        (bind(++place, values), ...);
        return *this;
    }
    bool step() {
        const int result = sqlite3_step(handle_);
        database_.check(result);
        return result == SQLITE_ROW;
    }
    void run() {
        step();
        sqlite3_reset(handle_);
    }
    std::string_view text(int column) {
        const unsigned char* const bytes = sqlite3_column_text(handle_, column);
        return {reinterpret_cast<const char*>(bytes),
                static_cast<std::size_t>(sqlite3_column_bytes(handle_, column))};
    }
    std::int64_t number(int column) { return sqlite3_column_int64(handle_, column); }
    int columns() const { return sqlite3_column_count(handle_); }

  private:
    void bind(int place, std::string_view text) {
        sqlite3_bind_text(handle_, place, text.data(), static_cast<int>(text.size()),
                          SQLITE_STATIC);
    }
    void bind(int place, double value) { sqlite3_bind_double(handle_, place, value); }
    void bind(int place, std::int64_t value) { sqlite3_bind_int64(handle_, place, value); }

    const Database& database_;
    sqlite3_stmt* handle_ = nullptr;
};

/// All rows of a query as strings, one after the other.
template <class... Values>
std::vector<std::string> allTexts(const Database& database, const char* sql,
                                  const Values&... values) {
    Statement query(database, sql);
    query.with(values...);
    const int columns = query.columns();
    std::vector<std::string> texts;
    while (query.step()) {
        for (int i = 0; i < columns; ++i)
            texts.emplace_back(query.text(i));
    }
    return texts;
}

/// The number that a query yields.
std::int64_t numberOf(const std::filesystem::path& path, const char* sql) {
    const Database database(path);
    Statement query(database, sql);
    query.step();
    return query.number(0);
}

void fillOrders(Database& database, int count) {
    database.run(
        "create table orders (status text, number text primary key, job text, order_date real, "
        "vendor text, ship_to text, ship_date real, order_total integer, shipping integer, "
        "sales_tax integer, net_total integer, discount integer, sub_total integer);"
        "begin");
    Statement insert(database, "insert into orders values (?,?,?,?,?,?,?,?,?,?,?,?,?)");
    for (int i = 1; i <= count; ++i) {
        const OrderRow row = orderRow(i);
        insert
            .with(row.status, row.number, row.job, row.orderDate, row.vendor, row.shipTo,
                  row.shipDate, row.orderTotal, row.shipping, row.salesTax, row.netTotal,
                  row.discount, row.subTotal)
            .run();
    }
    database.run("commit");
}

constexpr const char* kInsertItem =
    "insert into items (status, category, description, unit, vendor, spare1, spare2, unit_cost, "
    "on_hand, spare3) values (?,?,?,?,?,?,?,?,?,?)";

/// The item number, which says where an item is, is the key.
void fillItems(Database& database, int count, const char* index) {
    database.run(
        "create table items (status text, category text, number integer primary key, "
        "description text, unit text, vendor text, spare1 text, spare2 text, unit_cost integer, "
        "on_hand integer, spare3 text)");
    database.run(index);
    database.run("begin");
    Statement insert(database, kInsertItem);
    for (int i = 1; i <= count; ++i) {
        const ItemRow row = itemRow(i);
        insert
            .with("1", row.category, row.description, row.unit, row.vendor, "", "", row.unitCost,
                  row.onHand, "")
            .run();
    }
    database.run("commit");
}

constexpr const char* kVendorIndex = "create index items_vendor on items (vendor)";
constexpr const char* kImportIndex =
    "create unique index items_key on items (description collate nocase, vendor collate nocase)";

/// The databases with this many orders, and with this many items, the same for all who ask.
class Databases {
  public:
    explicit Databases(int count) {
        Database index(orders());
        fillOrders(index, count);
        Database catalogue(items());
        fillItems(catalogue, count, kVendorIndex);
    }
    static const Databases& of(const benchmark::State& state) {
        static std::map<int, Databases> all;
        const int count = countOf(state);
        return all.try_emplace(count, count).first->second;
    }
    std::filesystem::path orders() const { return folder_ / "orders.db"; }
    std::filesystem::path items() const { return folder_ / "items.db"; }
    std::filesystem::path document() const { return folder_ / "order.htm"; }

  private:
    test::TemporaryFolder folder_;
};

/// Makes the rows of a query, which has these parameters, strings: so many of them.
template <class... Values>
void listRows(benchmark::State& state, const std::filesystem::path& path, int strings,
              const char* sql, const Values&... values) {
    std::size_t found = 0;
    for (auto _ : state) {
        const auto texts = allTexts(Database(path), sql, values...);
        benchmark::DoNotOptimize(texts);
        found = texts.size();
    }
    holds(state, found == static_cast<std::size_t>(strings));
}

void listOrders(benchmark::State& state) {
    listRows(state, Databases::of(state).orders(), 13 * countOf(state),
             "select * from orders order by number desc");
}
BENCHMARK(listOrders)->Name("list_orders/sqlite")->Apply(onFullLists);

/// The numbers of all orders, and the texts of the forty rows on the screen.
void listScreenful(benchmark::State& state) {
    const auto path = Databases::of(state).orders();
    for (auto _ : state) {
        const Database database(path);
        const auto numbers = allTexts(database, "select number from orders order by number desc");
        const auto texts = allTexts(database, "select * from orders order by number desc limit 40");
        holds(state, numbers.size() == kFull && texts.size() == std::size_t{13} * 40);
    }
}
BENCHMARK(listScreenful)->Name("list_orders_screenful/sqlite")->Apply(onFullLists);

void nextNumber(benchmark::State& state) {
    const auto path = Databases::of(state).orders();
    std::int64_t number = 0;
    for (auto _ : state)
        number = numberOf(path, "select max(cast(number as real)) from orders") + 1;
    holds(state, number == countOf(state) + 1);
}
BENCHMARK(nextNumber)->Name("next_number/sqlite")->Apply(onFullLists);

/// Beside the file, flushed, then renamed.
void replaceFile(const std::filesystem::path& path, std::string_view bytes) {
    const std::string beside = path.string() + ".tmp";
    const int handle = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const ssize_t written = ::write(handle, bytes.data(), bytes.size());
    const bool flushed = ::fsync(handle) == 0;
    ::close(handle);
    if (written != static_cast<ssize_t>(bytes.size()) || !flushed) {
        throw std::runtime_error("not written: " + beside);
    }
    std::filesystem::rename(beside, path);
}

void saveOrder(benchmark::State& state) {
    const Databases& databases = Databases::of(state);
    const std::string document =
        readWhole(officeOfLongOrder().file(std::string(kLongOrder) + ".htm"));
    std::int64_t total = 0;
    for (auto _ : state) {
        const OrderRow row = orderRow(500);
        Database database(databases.orders());
        Statement(database,
                  "update orders set status=?, job=?, order_date=?, vendor=?, ship_to=?, "
                  "ship_date=?, order_total=?, shipping=?, sales_tax=?, net_total=?, discount=?, "
                  "sub_total=? where number=?")
            .with(row.status, row.job, row.orderDate, row.vendor, row.shipTo, row.shipDate, ++total,
                  row.shipping, row.salesTax, row.netTotal, row.discount, row.subTotal, row.number)
            .run();
        replaceFile(databases.document(), document);
    }
    holds(state, numberOf(databases.orders(),
                          "select order_total from orders where number='000500'") == total);
}
BENCHMARK(saveOrder)->Name("save_order/sqlite")->Apply(onFullLists);

void listItems(benchmark::State& state) {
    listRows(state, Databases::of(state).items(), 6 * countOf(state),
             "select category, vendor, unit, description, unit_cost, number from items "
             "where status <> 'D'");
}
BENCHMARK(listItems)->Name("list_items/sqlite")->Apply(onFullLists);

void listVendorsItems(benchmark::State& state) {
    const std::string vendor = vendorName(1);
    listRows(state, Databases::of(state).items(), 6 * itemsOf(vendor, countOf(state)),
             "select category, vendor, unit, description, unit_cost, number from items "
             "where vendor=? and status <> 'D'",
             vendor);
}
BENCHMARK(listVendorsItems)->Name("list_vendor/sqlite")->Apply(onFullLists);

/// A field of a record, without the blanks that fill it up.
std::string_view fieldOf(std::string_view record, std::size_t offset, std::size_t width) {
    const std::string_view field = record.substr(offset, width);
    return field.substr(0, field.find_last_not_of(' ') + 1);
}

std::int64_t amountOf(std::string_view record, std::size_t offset) {
    std::int64_t amount = 0;
    std::memcpy(&amount, record.data() + offset, sizeof amount);
    return amount;
}

void importFile(const std::filesystem::path& path, const std::filesystem::path& from) {
    const std::string bytes = readWhole(from);
    Database database(path);
    database.run("begin");
    const std::string upsert =
        std::string(kInsertItem) +
        " on conflict (description collate nocase, vendor collate nocase) do update set "
        "category=excluded.category, unit=excluded.unit, spare1=excluded.spare1, "
        "spare2=excluded.spare2, unit_cost=excluded.unit_cost, on_hand=excluded.on_hand, "
        "spare3=excluded.spare3";
    Statement statement(database, upsert.c_str());
    for (std::size_t at = 0; at < bytes.size(); at += kItemSize) {
        const auto record = std::string_view(bytes).substr(at, kItemSize);
        statement
            .with("1", fieldOf(record, 1, 30), fieldOf(record, 39, 120), fieldOf(record, 159, 20),
                  fieldOf(record, 179, 60), fieldOf(record, 239, 60), fieldOf(record, 299, 60),
                  amountOf(record, 359), amountOf(record, 367), fieldOf(record, 375, 8))
            .run();
    }
    database.run("commit");
}

void importItems(benchmark::State& state, bool known) {
    const int count = countOf(state);
    const test::TemporaryFolder folder;
    const auto path = folder / "items.db";
    const auto from = folder / "items.sid";
    writeFlushed(from, itemFile(count, known ? 1 : count + 1, 'i'));
    {
        Database database(path);
        fillItems(database, count, kImportIndex);
    }
    const std::string before = readWhole(path);
    for (auto _ : state) {
        state.PauseTiming();
        writeFlushed(path, before);
        state.ResumeTiming();
        importFile(path, from);
    }
    holds(state, numberOf(path, "select count(*) from items") == (known ? count : 2 * count));
}
BENCHMARK_CAPTURE(importItems, known, true)->Name("import_known/sqlite")->Apply(onFullLists);
BENCHMARK_CAPTURE(importItems, new, false)->Name("import_new/sqlite")->Apply(onFullLists);

}  // namespace
}  // namespace bramblet::bench
