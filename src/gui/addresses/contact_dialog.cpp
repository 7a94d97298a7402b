#include "gui/addresses/contact_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

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
    file_ = new QLineEdit;
    file_->setObjectName(u"FileNameEd"_s);
    file_->setReadOnly(true);
    file_->setAccessibleName(u"The file to import"_s);
    file_->setToolTip(u"The file to import"_s);
    file_->setPlaceholderText(u"No file selected"_s);
    auto* select =
        button("Command1", u"&Select Kettleby Data File"_s,
               u"Choose the file that Kettleby has exported."_s, &ContactImport::Command1_Click);
    vendors_ = button("ImportKettlebyVendors", u"Import as &Vendors"_s,
                      u"Add every contact to the list of vendors."_s,
                      &ContactImport::ImportKettlebyVendors_Click);
    shipTos_ = button("ImportAsShipTos", u"Import as Ship &To:'s"_s,
                      u"Add every contact to the list of ship-to destinations."_s,
                      &ContactImport::ImportAsShipTos_Click);
    auto* close = new QPushButton(u"Close"_s);
    close->setObjectName(u"Close"_s);
    close->setToolTip(u"Close this window."_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

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

QPushButton* ContactDialog::button(const char* name, const QString& caption, const QString& tip,
                                   Command command) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, command] {
        std::invoke(command, import_);
        refresh();
    });
    return button;
}

void ContactDialog::refresh() {
    file_->setText(pathToQt(import_.chosenFile()));
    vendors_->setEnabled(import_.importEnabled());
    shipTos_->setEnabled(import_.importEnabled());
}

}  // namespace bramblet
