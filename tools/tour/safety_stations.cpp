// The stations for what the program keeps besides the orders: histories, contacts, backups.

#include "core/platform/text.h"
#include "tour/sample_company.h"
#include "tour/stations.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QProgressBar>

namespace bramblet::tour {
namespace {

/// A contact as the contact manager writes it: a record of fixed fields, without line ends.
QByteArray recordOf(const SampleContact& contact) {
    std::string record(1047, ' ');
    const auto put = [&](std::size_t offset, std::size_t width, const char* text) {
        record.replace(offset, width, fitted(text, width));
    };
    put(81, 40, contact.organization);
    put(121, 20, contact.phone);
    put(151, 20, contact.fax);
    put(316, 40, contact.line1);
    put(356, 40, contact.line2);
    put(396, 20, contact.town);
    put(416, 20, contact.region);
    put(436, 10, contact.postalCode);
    return QByteArray::fromStdString(record);
}

void writeContacts(Guide& guide, const QString& path) {
    QByteArray records;
    for (const SampleContact& contact : kContacts)
        records += recordOf(contact);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(records) != records.size())
        guide.complain(path + " was not written");
}

/// A price list of one vendor, as a spreadsheet saves it.
void writePriceList(Guide& guide, const QString& path) {
    QByteArray rows = "Article,Supplier,Group,Unit,Price\r\n";
    for (const SampleItem& item : kPriceList)
        rows += QByteArray("\"") + item.description + "\"," + item.vendor + "," + item.category +
                "," + item.unit + "," + item.unitCost + "\r\n";
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(rows) != rows.size())
        guide.complain(path + " was not written");
}

/// Complains unless the backup window ended as it should.
void expectProgress(Guide& guide, const QString& end) {
    const QString progress = guide.text("BackUpProgress");
    if (!progress.endsWith(end)) guide.complain("The backup window says " + progress);
}

}  // namespace

void histories(Guide& guide) {
    auto* const box = guide.find<QComboBox>("TermsEd");
    guide.press("TermsEd", Qt::Key_F4);
    QWidget* const list = box->view()->window();
    guide.pictureWith("17-history-list", *list);
    guide.helpWith("history", *list, {"FOBEd", "FOBEdLabel", "TermsEd"}, 6);
    box->hidePopup();
    Driver::settle();
    guide.openMenu("TermsEd");
    auto* const menu = guide.find<QMenu>("EditPop");
    guide.pictureWith("18-history-menu", *menu);
    guide.helpWith("history-menu", *menu, {"FOBEd", "FOBEdLabel", "TermsEd"}, 6);
    menu->close();
    Driver::settle();
}

void importContacts(Guide& guide, const QString& folder) {
    const QString file = folder + "/contacts.dat";
    writeContacts(guide, file);
    guide.inDialog("mu_ImportKettleby", [&](QWidget& dialog) {
        guide.pictureWith("32-import", dialog);
        if (guide.isEnabled("ImportKettlebyVendors")) guide.complain("There is nothing to import");
        guide.chooseFile(file);
        guide.click("Command1");
        guide.picture("33-import-file-chosen", dialog);
        guide.help("import", dialog);
        guide.pictureOfNext("34-imported", QMessageBox::Ok);
        guide.click("ImportKettlebyVendors");
        if (!guide.text("ContactSummary").contains("in the address book already"))
            guide.complain("The contacts are not shown as imported");
        guide.click("Close");
    });
    auto* const vendors = guide.find<QComboBox>("ToCombo");
    guide.press("ToCombo", Qt::Key_F4);
    guide.pictureWith("35-imported-vendors", *vendors->view()->window());
    if (vendors->findText(kContacts.front().organization) < 0)
        guide.complain("The contacts are not in the address book");
    vendors->hidePopup();
    Driver::settle();
    guide.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("35-rename-vendor", dialog);
        guide.help("rename", dialog);
        dialog.close();
    });
    guide.trigger("mu_RenameVendor");
}

void importTable(Guide& guide, const QString& folder) {
    const QString file = folder + "/pricelist.csv";
    writePriceList(guide, file);
    guide.chooseFile(file);
    guide.inDialog("mu_ImportTable", [&](QWidget& dialog) {
        guide.pictureWith("35-import-table", dialog);
        guide.help("table", dialog);
        guide.pick("ImportKind", "Vendors");
        guide.picture("35-import-table-as-vendors", dialog);
        guide.pick("ImportKind", "Stock items");
        guide.answer("Added 4 new items.", QMessageBox::Ok);
        guide.click("RunImport");
    });
}

void backUp(Guide& guide, const QString& folder) {
    guide.inDialog("mu_DataBackup", [&](QWidget& dialog) {
        guide.type("BackUpTarget", QDir::toNativeSeparators(folder));
        guide.click("BackUpDated");
        guide.click("BackUpSettings");
        guide.pictureWith("36-backup", dialog);
        guide.pictureOfNext("37-target-missing", QMessageBox::Yes, "create-target");
        guide.pictureOfNext("37-backup-completed", QMessageBox::Ok);
        guide.click("RunBackup");
        expectProgress(guide, "2026-03-04 162000\"");
        const auto* const bar = guide.find<QProgressBar>("BackUpBar");
        if (bar->value() != bar->maximum()) guide.complain("The backup's bar stands still");
        guide.picture("38-backup-done", dialog);
        guide.help("backup", dialog);
        guide.pictureOfNext("39-verified", QMessageBox::Ok, "verified");
        guide.click("Verify");
        expectProgress(guide, "agree, 0 differ, 0 missing");
        guide.click("StopBackup");
    });
}

void beReminded(Guide& guide) {
    guide.expectStatus("The last backup is 10 days old");
    guide.picture("60-reminded-of-backup");
    guide.help("reminder", {"FindEd", "HideOrders", "Label16"});
}

void restore(Guide& guide, const QString& folder) {
    guide.inDialog("mu_DataRestore", [&](QWidget& dialog) {
        guide.chooseFile(folder);
        guide.click("SelectSource");
        guide.picture("50-restore-nothing", dialog);
        guide.help("restore-nothing", dialog);
        guide.click("TakeNewest");
        if (guide.control("BackUpWarning")->isVisible())
            guide.complain("The warning is still shown");
        guide.pictureWith("50-restore", dialog);
        guide.help("restore", dialog);
        guide.pictureOfNext("51-restore-caution", QMessageBox::Yes, "restore-caution");
        guide.answer("Restoration completed!", QMessageBox::Ok);
        guide.click("RunBackup");
        guide.picture("51-restored", dialog);
        guide.help("restored", dialog);
        guide.click("StopBackup");
    });
    guide.click("ViewExisting");
    guide.picture("52-restored");
    if (guide.rows("POGrid") == 0) guide.complain("The orders were not restored");
}

void rebuildList(Guide& guide, const QString& data) {
    constexpr int kRecord = 203;
    constexpr int kVendor = 27;
    const int orders = guide.rows("POGrid");
    QFile list(data + "/po_data.dat");
    const bool damaged = list.resize(list.size() - 2 * kRecord) &&
                         list.open(QIODevice::ReadWrite) && list.seek(2 * kRecord + kVendor) &&
                         list.write("Somebody else") > 0 &&
                         QFile::copy(data + "/000001.htm", data + "/000090.htm") &&
                         QFile::remove(data + "/000004.htm");
    list.close();
    if (!damaged) guide.complain("The list of orders was not damaged");
    guide.click("ViewExisting");
    guide.inDialog("mu_RebuildOrderList", [&](QWidget& dialog) {
        guide.pictureWith("53-rebuild-list", dialog);
        guide.help("rebuild", dialog);
        guide.click("Rebuild");
    });
    guide.picture("54-list-rebuilt");
    if (guide.rows("POGrid") != orders) guide.complain("The list was not rebuilt");
}

}  // namespace bramblet::tour
