// The window "Spending": two charts, and the numbers under them.
#pragma once

class QWidget;

namespace bramblet {

class Spending;

/// Shows the window until it is closed, or orders are listed from it.
void showSpendingDialog(Spending& spending, QWidget* parent);

}  // namespace bramblet
