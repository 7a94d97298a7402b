// Boxes that stand for fields of the order: what is typed into them goes to the editor, and what
// the order holds is shown.
#pragma once

#include "core/orders/order_editor.h"

#include <vector>

class QLineEdit;

namespace bramblet {

class OrderBoxes {
  public:
    OrderBoxes(OrderEditor& editor, const OpenOrder& open) : editor_(editor), open_(open) {}

    void bind(QLineEdit* box, OrderField field);

    /// Shows what the order holds now.
    void refresh();

  private:
    struct Bound {
        QLineEdit* box;
        OrderField field;
    };

    OrderEditor& editor_;
    const OpenOrder& open_;
    std::vector<Bound> boxes_;
};

}  // namespace bramblet
