// The dialog for importing vendors, ship-to destinations or stock items from a table.
#pragma once

#include "core/addresses/table_import.h"

class QWidget;

namespace bramblet {

/// Shows the dialog until the table has been imported or the user does not want it.
void showTableImportDialog(TableImport& import, QWidget* parent);

}  // namespace bramblet
