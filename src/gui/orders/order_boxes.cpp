#include "gui/orders/order_boxes.h"

#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

namespace bramblet {

void OrderBoxes::bind(QLineEdit* box, OrderField field) {
    boxes_.push_back({box, field});
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [this, field](const QString& text) { editor_.edit(field, fromQt(text)); });
}

void OrderBoxes::refresh() {
    for (const auto& bound : boxes_)
        showText(bound.box, open_.order.*bound.field);
}

}  // namespace bramblet
