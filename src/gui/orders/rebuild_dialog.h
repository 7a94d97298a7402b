// The dialog that shows how the list of orders differs from the documents.
#pragma once

class QWidget;

namespace bramblet {

class ListRebuild;

/// Shows the dialog until it is closed.
void showRebuildDialog(ListRebuild& rebuild, QWidget* parent);

}  // namespace bramblet
