#include "gui/addresses/table_import_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/column_choices.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QDialog>

#include <algorithm>
#include <array>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace bramblet {
namespace {

constexpr int kLeastLines = 4;
constexpr int kInARow = 5;

/// In the order in which TableImport takes them.
constexpr std::array<ColumnChoice, 9> kAddressChoices{{
    {"ImportName", "&Name", ""},
    {"ImportLine1", "&Address", "empty"},
    {"ImportLine2", "Address, &2nd line", "empty"},
    {"ImportTown", "To&wn", "empty"},
    {"ImportRegion", "&Region", "empty"},
    {"ImportPostalCode", "&Postal code", "empty"},
    {"ImportCountry", "Co&untry", "empty"},
    {"ImportPhone", "Ph&one", "empty"},
    {"ImportFax", "Fa&x", "empty"},
}};
constexpr std::array<ColumnChoice, 5> kItemChoices{{
    {"ImportDescription", "D&escription", ""},
    {"ImportVendor", "&Vendor", "as in To:"},
    {"ImportCategory", "Cate&gory", "empty"},
    {"ImportUnit", "&Unit", "empty"},
    {"ImportUnitCost", "Unit C&ost", "0"},
}};

template <class Value>
using Entries = std::vector<std::pair<const char*, Value>>;
const Entries<TableKind> kKinds{{"Vendors", TableKind::Vendors},
                                {"Ship-to destinations", TableKind::Destinations},
                                {"Stock items", TableKind::Items}};
const Entries<char> kSeparators{{"Commas", ','}, {"Semicolons", ';'}, {"Tabs", '\t'}};
const Entries<TableCoding> kCodings{{"UTF-8", TableCoding::Utf8},
                                    {"Windows-1252", TableCoding::Windows1252}};
const Entries<char> kDecimalSigns{{"Point: 1.50", '.'}, {"Comma: 1,50", ','}};

class TableImportDialog : public QDialog {
  public:
    TableImportDialog(TableImport& import, QWidget* parent) : QDialog(parent), import_(import) {
        setObjectName(u"TableImport"_s);
        setWindowTitle(u"Import "_s + pathToQt(import_.file().filename()));
        doubts_->setWordWrap(true);
        connect(headed_, &QCheckBox::toggled, this, [this](bool headed) {
            if (headed == import_.table().headed()) return;
            import_.setHeaded(headed);
            refresh();
        });
        skips_->setChecked(import_.skipsKnown());
        connect(skips_, &QCheckBox::toggled, this,
                [this](bool skips) { import_.setSkipsKnown(skips); });
        run_->setDefault(true);
        auto* cancel = button("Cancel", u"Cancel"_s, u"Close this window and import nothing."_s,
                              [this] { reject(); });
        setLayout(
            column(8, {makeHow(), columns_, row(16, {headed_, skips_, spring()}), grow(addresses_),
                       grow(items_), doubts_, row(-1, {grow(summary_), run_, cancel})}));
        placeOverParent(
            *this, QSize(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 34));
        showColumns();
        run_->setFocus();
    }

  private:
    /// A box that chooses between `entries`, and shows the choice when that is guessed anew.
    template <class Value>
    QWidget* choice(const char* name, const QString& caption, const QString& tip,
                    const Entries<Value>& entries, Value (TableImport::*is)() const,
                    void (TableImport::*set)(Value)) {
        auto* box = new QComboBox;
        box->setObjectName(QLatin1String(name));
        box->setToolTip(tip);
        for (const auto& [entry, value] : entries)
            box->addItem(QLatin1String(entry));
        connect(box, &QComboBox::activated, this, [this, &entries, set](int index) {
            std::invoke(set, import_, entries[static_cast<std::size_t>(index)].second);
            showColumns();
        });
        shows_.emplace_back([this, box, &entries, is] {
            const auto now = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
                return entry.second == std::invoke(is, import_);
            });
            box->setCurrentIndex(static_cast<int>(now - entries.begin()));
        });
        return fill(new QWidget, column(2, {boxLabel(caption, box), box}));
    }

    QLayout* makeHow() {
        decimals_ =
            choice("ImportDecimals", u"Deci&mals after a"_s, u"How the file writes unit costs."_s,
                   kDecimalSigns, &TableImport::decimalSign, &TableImport::setDecimalSign);
        return row(
            12, {grow(choice("ImportKind", u"&Import as"_s, u"What the rows of the table are."_s,
                             kKinds, &TableImport::kind, &TableImport::setKind)),
                 grow(choice("ImportSeparator", u"Columns divided &by"_s,
                             u"What stands between the columns in the file."_s, kSeparators,
                             &TableImport::separator, &TableImport::setSeparator)),
                 grow(choice("ImportCoding", u"&Letters"_s,
                             u"How the file writes letters; take the one that shows them right."_s,
                             kCodings, &TableImport::coding, &TableImport::setCoding)),
                 grow(decimals_)});
    }

    /// Shows the boxes for the columns of the table as it is read now.
    void showColumns() {
        const bool items = import_.kind() == TableKind::Items;
        delete columns_->layout();
        qDeleteAll(columns_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
        const std::span<const ColumnChoice> choices =
            items ? std::span<const ColumnChoice>(kItemChoices) : kAddressChoices;
        fill(columns_, columnChoices(import_.table(), choices, kInARow,
                                     [this](std::size_t taken, int source) {
                                         import_.choose(taken, source);
                                         refresh();
                                     }));
        decimals_->setVisible(items);
        addresses_->setVisible(!items);
        items_->setVisible(items);
        refresh();
    }

    void refresh() {
        for (const auto& show : shows_)
            show();
        headed_->setChecked(import_.table().headed());
        addresses_->refresh();
        items_->refresh();
        summary_->setText(toQt(import_.summary()));
        doubts_->setText(toQt(import_.doubts()));
        doubts_->setVisible(!doubts_->text().isEmpty());
        run_->setEnabled(import_.mayImport());
    }

    TableImport& import_;
    std::vector<Command> shows_;
    QWidget* columns_ = new QWidget;
    QWidget* decimals_ = nullptr;
    QCheckBox* headed_ = button<QCheckBox>("ImportHeaded", u"The first row holds &headings"_s,
                                           u"Headings are not imported."_s);
    QCheckBox* skips_ = button<QCheckBox>(
        "ImportSkips", u"&Skip what is there already"_s,
        u"Otherwise the address, or what the table has of an item, is replaced."_s);
    GridView* addresses_ = new GridView("ImportAddresses", u"Addresses to be imported"_s,
                                        u"The addresses as they would be imported."_s,
                                        import_.addresses(), kLeastLines);
    GridView* items_ =
        new GridView("ImportItems", u"Stock items to be imported"_s,
                     u"The items as they would be imported."_s, import_.items(), kLeastLines);
    QLabel* doubts_ = namedLabel("ImportDoubts");
    QLabel* summary_ = namedLabel("ImportSummary");
    QPushButton* run_ = button("RunImport", u"Impor&t"_s, u"Import these rows."_s, [this] {
        if (import_.Import_Click()) accept();
    });
};

}  // namespace

void showTableImportDialog(TableImport& import, QWidget* parent) {
    TableImportDialog(import, parent).exec();
}

}  // namespace bramblet
