// The regional formats of this machine's user.
#pragma once

#include "core/platform/regional_formats.h"

#include <QLocale>

namespace bramblet {

/// The formats of a locale. A sign that the code page lacks is replaced: a space by the no-break
/// space, a currency's sign by its three letters. Years are always written with four digits, since
/// a date must mean the same when it is read back.
RegionalFormats regionalFormats(const QLocale& locale);

/// The formats of the system's locale, or of en_US where none is set.
RegionalFormats systemRegionalFormats();

}  // namespace bramblet
