// The look at lines from another program's table before they join the order.
#pragma once

#include "core/orders/pasted_lines.h"

class QWidget;

namespace bramblet {

/// Shows the dialog until it is closed. Returns whether the lines are to be added, with the columns
/// as they were chosen.
bool showPasteDialog(PastedLines& lines, QWidget* parent);

}  // namespace bramblet
