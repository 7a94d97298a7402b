// Short forms of Qt's texts.
#pragma once

#include <QString>

namespace bramblet::test {

using S = QString;

inline S name(const char* text) {
    return S::fromLatin1(text);
}

}  // namespace bramblet::test
