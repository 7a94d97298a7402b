// The stations for what the program keeps besides the orders: histories, contacts, backups.

#include "core/platform/text.h"
#include "tour/sample_company.h"
#include "tour/stations.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>

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

void writeContacts(Driver& hands, const QString& path) {
    QByteArray records;
    for (const SampleContact& contact : kContacts)
        records += recordOf(contact);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(records) != records.size())
        hands.complain(path + name(" was not written"));
}

/// Keeps a picture of the next message, and presses one of its buttons.
void pictureOfNext(Guide& guide, const char* file, const char* help,
                   QMessageBox::StandardButton button) {
    guide.hands().onNextDialog([&guide, file, help, button](QWidget& dialog) {
        guide.picture(file, dialog);
        if (help != nullptr) guide.help(help, dialog);
        qobject_cast<QMessageBox*>(&dialog)->button(button)->click();
    });
}

void openMenu(QWidget* box) {
    const QPoint place(4, box->height() - 4);
    QContextMenuEvent click(QContextMenuEvent::Mouse, place, box->mapToGlobal(place));
    QApplication::sendEvent(box, &click);
    Driver::settle();
}

/// Complains unless the backup window ended as it should.
void expectProgress(Driver& hands, const QString& end) {
    const QString progress = hands.text(name("BackUpProgress"));
    if (!progress.endsWith(end)) hands.complain(name("The backup window says ") + progress);
}

}  // namespace

void histories(Guide& guide) {
    Driver& hands = guide.hands();
    auto* const box = hands.find<QComboBox>(name("TermsEd"));
    hands.press(name("TermsEd"), Qt::Key_F4);
    QWidget* const list = box->view()->window();
    guide.pictureWith("17-history-list", *list);
    guide.helpWith("history", *list, {"FOBEd", "FOBEdLabel", "TermsEd"}, 6);
    box->hidePopup();
    Driver::settle();
    openMenu(box->lineEdit());
    auto* const menu = hands.find<QMenu>(name("EditPop"));
    guide.pictureWith("18-history-menu", *menu);
    guide.helpWith("history-menu", *menu, {"FOBEd", "FOBEdLabel", "TermsEd"}, 6);
    menu->close();
    Driver::settle();
}

void importContacts(Guide& guide, const QString& folder) {
    Driver& hands = guide.hands();
    const QString file = folder + name("/contacts.dat");
    writeContacts(hands, file);
    hands.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("32-import", dialog);
        hands.chooseFile(file);
        hands.click(name("Command1"));
        guide.picture("33-import-file-chosen", dialog);
        guide.help("import", dialog);
        pictureOfNext(guide, "34-imported", nullptr, QMessageBox::Ok);
        hands.click(name("ImportKettlebyVendors"));
        hands.click(name("Close"));
    });
    hands.trigger(name("mu_ImportKettleby"));
    auto* const vendors = hands.find<QComboBox>(name("ToCombo"));
    hands.press(name("ToCombo"), Qt::Key_F4);
    guide.pictureWith("35-imported-vendors", *vendors->view()->window());
    vendors->hidePopup();
    Driver::settle();
}

void backUp(Guide& guide, const QString& folder) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget& dialog) {
        hands.type(name("BackUpTarget"), QDir::toNativeSeparators(folder));
        guide.pictureWith("36-backup", dialog);
        pictureOfNext(guide, "37-backup-completed", nullptr, QMessageBox::Ok);
        hands.click(name("RunBackup"));
        expectProgress(hands, name("files copied"));
        guide.picture("38-backup-done", dialog);
        guide.help("backup", dialog);
        pictureOfNext(guide, "39-verified", "verified", QMessageBox::Ok);
        hands.click(name("Verify"));
        expectProgress(hands, name("agree, 0 differ, 0 missing"));
        hands.click(name("StopBackup"));
    });
    hands.trigger(name("mu_DataBackup"));
}

void restore(Guide& guide, const QString& folder) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget& dialog) {
        hands.chooseFile(folder);
        hands.click(name("SelectSource"));
        guide.pictureWith("50-restore", dialog);
        guide.help("restore", dialog);
        pictureOfNext(guide, "51-restore-caution", "restore-caution", QMessageBox::Yes);
        hands.answer(name("Restoration completed!"), QMessageBox::Ok);
        hands.click(name("RunBackup"));
        hands.click(name("StopBackup"));
    });
    hands.trigger(name("mu_DataRestore"));
    hands.click(name("ViewExisting"));
    guide.picture("52-restored");
    if (hands.rows(name("POGrid")) == 0) hands.complain(name("The orders were not restored"));
}

}  // namespace bramblet::tour
