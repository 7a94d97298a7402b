#include "gui/addresses/contact_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"

#include <QDialog>

namespace bramblet {
namespace {

constexpr int kLeastLines = 6;

}  // namespace

void showContactDialog(ContactImport& import, QWidget* parent) {
    QDialog dialog(parent);
    dialog.setObjectName(u"AddyForm"_s);
    dialog.setWindowTitle(u"Bramblet - Kettleby Import"_s);

    auto* explanation = new QLabel(
        u"In Kettleby, export the contacts that you want to a data file. Select that file here, "
        "then import it as vendors or as ship-to destinations.\n\n"
        "The import does not look for duplicates: importing a file twice adds every address "
        "twice. Records without an \"organization\" field are skipped."_s);
    explanation->setWordWrap(true);
    auto* file = lineEdit("FileNameEd", u"The file to import"_s);
    file->setReadOnly(true);
    file->setAccessibleName(u"The file to import"_s);
    file->setPlaceholderText(u"No file selected"_s);
    std::function<void()> refresh;
    auto* vendors = button("ImportKettlebyVendors", u"Import as &Vendors"_s,
                           u"Add every contact to the list of vendors."_s, [&] {
                               import.ImportKettlebyVendors_Click();
                               refresh();
                           });
    auto* shipTos = button("ImportAsShipTos", u"Import as Ship &To:'s"_s,
                           u"Add every contact to the list of ship-to destinations."_s, [&] {
                               import.ImportAsShipTos_Click();
                               refresh();
                           });
    auto* grid = new GridView("ContactGrid", u"Contacts of the file"_s,
                              u"The contacts of the file, and as what the address book has them."_s,
                              import.contacts(), kLeastLines);
    auto* summary = namedLabel("ContactSummary");
    refresh = [&] {
        grid->refresh();
        summary->setText(messageToQt(import.summary()));
        file->setText(pathToQt(import.chosenFile()));
        vendors->setEnabled(import.importEnabled());
        shipTos->setEnabled(import.importEnabled());
    };
    auto* select = button("Command1", u"&Select Kettleby Data File"_s,
                          u"Choose the file that Kettleby has exported."_s, [&] {
                              import.selectFile();
                              refresh();
                          });
    auto* close = button("Close", u"Close"_s, u"Close this window."_s, [&] { dialog.reject(); });

    dialog.setLayout(column(12, {explanation, row(-1, {grow(file), select}), grow(grid), summary,
                                 row(-1, {vendors, shipTos, spring(), close})}));
    placeOverParent(dialog, QSize(dialog.fontMetrics().averageCharWidth() * 96,
                                  dialog.fontMetrics().lineSpacing() * 28));
    select->setFocus();
    refresh();
    dialog.exec();
}

}  // namespace bramblet
