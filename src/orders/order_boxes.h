// Boxes of the windows that stand for fields of the order: what is typed into one goes to the
// editor, and what the order holds is shown.
#pragma once

#include "orders/order_editor.h"

#include <vector>

class QComboBox;
class QLineEdit;

namespace bramblet {

class OrderBoxes {
  public:
    OrderBoxes(OrderEditor& editor, const OpenOrder& open) : editor_(editor), open_(open) {}

    void bind(QLineEdit* box, OrderField field);
    void bind(QComboBox* box, OrderField field);

    /// Shows what the order holds now.
    void refresh();

  private:
    template <class Box>
    struct Bound {
        Box* box;
        OrderField field;
    };

    OrderEditor& editor_;
    const OpenOrder& open_;
    std::vector<Bound<QLineEdit>> lineEdits_;
    std::vector<Bound<QComboBox>> comboBoxes_;
};

}  // namespace bramblet
