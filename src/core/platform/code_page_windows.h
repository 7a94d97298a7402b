// The code pages that a Windows system knows by number.
#pragma once

#include "core/platform/code_page.h"

namespace bramblet {

/// The code page with a number; Windows-1252 if that is unknown or not single-byte, since the
/// records of the data files count one column per byte.
CodePage codePage(unsigned number);

}  // namespace bramblet
