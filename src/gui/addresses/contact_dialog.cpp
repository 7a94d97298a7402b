#include "gui/addresses/contact_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace bramblet {

ContactDialog::ContactDialog(ContactImport& import, QWidget* parent)
    : QDialog(parent), import_(import) {
    setObjectName(u"AddyForm"_s);
    setWindowTitle(u"Bramblet - Kettleby Import"_s);

    auto* explanation = new QLabel(
        u"In Kettleby, export the contacts that you want to a data file. Select that file here, "
        "then import it as vendors or as ship-to destinations.\n\n"
        "The import does not look for duplicates: importing a file twice adds every address "
        "twice. Records without an \"organization\" field are skipped."_s);
    explanation->setWordWrap(true);
    file_ = lineEdit("FileNameEd", u"The file to import"_s);
    file_->setReadOnly(true);
    file_->setAccessibleName(u"The file to import"_s);
    file_->setPlaceholderText(u"No file selected"_s);
    auto* select = onClick(button("Command1", u"&Select Kettleby Data File"_s,
                                  u"Choose the file that Kettleby has exported."_s),
                           [this] { Command1_Click(); });
    vendors_ = onClick(button("ImportKettlebyVendors", u"Import as &Vendors"_s,
                              u"Add every contact to the list of vendors."_s),
                       [this] { import_.ImportKettlebyVendors_Click(); });
    shipTos_ = onClick(button("ImportAsShipTos", u"Import as Ship &To:'s"_s,
                              u"Add every contact to the list of ship-to destinations."_s),
                       [this] { import_.ImportAsShipTos_Click(); });
    auto* close =
        onClick(button("Close", u"Close"_s, u"Close this window."_s), [this] { reject(); });

    auto* choice = new QHBoxLayout;
    choice->addWidget(file_, 1);
    choice->addWidget(select);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(vendors_);
    buttons->addWidget(shipTos_);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(explanation);
    layout->addLayout(choice);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 84);
    select->setFocus();
    refresh();
}

void ContactDialog::Command1_Click() {
    import_.selectFile();
    refresh();
}

void ContactDialog::refresh() {
    file_->setText(pathToQt(import_.chosenFile()));
    vendors_->setEnabled(import_.importEnabled());
    shipTos_->setEnabled(import_.importEnabled());
}

}  // namespace bramblet
