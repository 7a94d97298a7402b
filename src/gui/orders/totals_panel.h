// The column of amounts beside the lines.
#pragma once

#include "core/orders/order_editor.h"
#include "gui/platform/boxes.h"

#include <QWidget>

class QGridLayout;

namespace bramblet {

class TotalsPanel : public QWidget {
  public:
    /// With `taxFreight` the shipping row stands above the tax row.
    TotalsPanel(OrderEditor& editor, const OpenOrder& open, bool taxFreight,
                const RegionalFormats& formats, QWidget* parent = nullptr);

    /// Shows the order's amounts.
    void refresh() { boxes_.refresh(); }

  private:
    struct Row;
    static std::vector<Row> columnRows();
    static void ArrangeTaxAndShippingBoxes(std::vector<Row>& rows);
    QString inRegion(QString tip) const;
    void addRow(QGridLayout* grid, int line, const Row& row);
    QLineEdit* addBox(const char* name, const QString& tip, OrderField field, bool typed);

    const RegionalFormats& formats_;
    OrderEditor& editor_;
    const OpenOrder& open_;
    BoundBoxes boxes_;
};

}  // namespace bramblet
