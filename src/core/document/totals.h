// The money side of the order: the only place where its amounts are computed.
#pragma once

#include "core/document/order.h"
#include "core/platform/regional_formats.h"

#include <string>

namespace bramblet {

/// Recomputes the eight amount boxes from the lines and from the factors and amounts that the user
/// typed; `taxFreight` tells whether shipping is taxed. Throws BoxFault naming the box whose text
/// cannot be read or whose amount leaves the range of Currency; the boxes before it have by then
/// been updated.
void TotalUp(Order& order, bool taxFreight, const RegionalFormats& formats);

/// A line for the status bar when a multiplier of a totalled order is above 1, which may be
/// intended but is more likely the decimal separator of another region: "0.5" is 5 where that is a
/// comma. Empty when there is nothing to say.
std::string multiplierHint(const Order& order, const RegionalFormats& formats);

}  // namespace bramblet
