// The code pages that a Windows system knows by number.
#pragma once

#include "core/platform/code_page.h"

namespace bramblet {

/// The code page of a number; Windows-1252 for one that is unknown or not single-byte, since the
/// records of the data files count a column a byte.
CodePage codePage(unsigned number);

}  // namespace bramblet
