#include "orders/order_boxes.h"

#include "platform/boxes.h"
#include "platform/qt_text.h"

namespace bramblet {

void OrderBoxes::bind(QLineEdit* box, OrderField field) {
    lineEdits_.push_back({box, field});
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [this, field](const QString& text) { editor_.edit(field, fromQt(text)); });
}

void OrderBoxes::bind(QComboBox* box, OrderField field) {
    comboBoxes_.push_back({box, field});
    const auto edit = [this, field](const QString& text) { editor_.edit(field, fromQt(text)); };
    QObject::connect(box->lineEdit(), &QLineEdit::textEdited, box, edit);
    QObject::connect(box, &QComboBox::textActivated, box, edit);
}

void OrderBoxes::refresh() {
    for (const auto& bound : lineEdits_)
        showText(bound.box, open_.order.*bound.field);
    for (const auto& bound : comboBoxes_)
        showText(bound.box, open_.order.*bound.field);
}

}  // namespace bramblet
