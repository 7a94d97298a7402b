#include "gui/platform/column_choices.h"

#include "core/platform/source_table.h"
#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QGridLayout>

namespace bramblet {

QLayout* columnChoices(const SourceTable& table, std::span<const ColumnChoice> choices, int inARow,
                       const std::function<void(std::size_t taken, int source)>& chosen) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    const auto columns = table.columns();
    for (std::size_t taken = 0; taken < choices.size(); ++taken) {
        const ColumnChoice& choice = choices[taken];
        auto* box = new QComboBox;
        box->setObjectName(QLatin1String(choice.name));
        box->setToolTip(u"The column of the table that holds it."_s);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        box->addItem(u"none: "_s + QLatin1String(choice.otherwise));
        for (const std::string& name : columns)
            box->addItem(messageToQt(name));
        box->setCurrentIndex(table.source(taken) + 1);
        QObject::connect(box, &QComboBox::activated, box,
                         [chosen, taken](int index) { chosen(taken, index - 1); });
        const int place = static_cast<int>(taken);
        grid->addLayout(column(2, {boxLabel(QLatin1String(choice.caption), box), box}),
                        place / inARow, place % inARow);
        grid->setColumnStretch(place % inARow, 1);
    }
    return grid;
}

}  // namespace bramblet
