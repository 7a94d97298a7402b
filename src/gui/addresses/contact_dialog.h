// The dialog for importing addresses from the contact manager Kettleby.
#pragma once

#include "core/addresses/contact_import.h"

class QWidget;

namespace bramblet {

/// Shows the dialog until it is closed.
void showContactDialog(ContactImport& import, QWidget* parent);

}  // namespace bramblet
