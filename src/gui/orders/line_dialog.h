// The dialog "Edit Line Item".
#pragma once

#include "core/orders/order_lines.h"

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace bramblet {

class Commands;
class LossHint;
class PaidReader;

/// Shows the dialog until it is closed; `units` fills the list of units, and `order` is the number
/// of the order that the line is in. Returns what Save or Delete stored, or nothing.
std::optional<LineEntry> showLineDialog(const LineEntry& entry, const std::string& caption,
                                        const std::vector<std::string>& units,
                                        const std::string& order, PaidReader& reader,
                                        const RegionalFormats& formats, Commands& commands,
                                        LossHint& lossHint, QWidget* parent);

}  // namespace bramblet
