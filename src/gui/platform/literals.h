// Texts of the windows: u"Save"_s is a QString. The program speaks English, as its files do.
#pragma once

#include <QString>

namespace bramblet {

using namespace Qt::StringLiterals;

}  // namespace bramblet
