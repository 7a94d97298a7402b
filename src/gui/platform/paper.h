// The paper that is printed on.
#pragma once

#include <QPageLayout>

namespace bramblet {

/// The region's paper size, with margins of half an inch.
QPageLayout usualPage();

}  // namespace bramblet
