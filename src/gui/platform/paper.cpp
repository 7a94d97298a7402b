#include "gui/platform/paper.h"

#include <QLocale>

namespace bramblet {

QPageLayout usualPage() {
    const bool imperial = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    const QPageSize paper(imperial ? QPageSize::Letter : QPageSize::A4);
    return {paper, QPageLayout::Portrait, QMarginsF(0.5, 0.5, 0.5, 0.5), QPageLayout::Inch};
}

}  // namespace bramblet
