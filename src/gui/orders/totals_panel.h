// The column of amounts beside the lines.
#pragma once

#include "gui/orders/order_boxes.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QLineEdit;

namespace bramblet {

class TotalsPanel : public QWidget {
    Q_OBJECT
  public:
    /// With `taxFreight` the shipping row stands above the tax row.
    TotalsPanel(OrderEditor& editor, const OpenOrder& open, bool taxFreight,
                const RegionalFormats& formats, QWidget* parent = nullptr);

    /// Shows the order's amounts.
    void refresh();

  private:
    struct Row;
    static std::vector<Row> columnRows();
    static void ArrangeTaxAndShippingBoxes(std::vector<Row>& rows);
    QString inRegion(QString tip) const;
    void addRow(QGridLayout* grid, int line, const Row& row);
    QLineEdit* addBox(const char* name, const QString& tip, OrderField field, bool typed);

    const RegionalFormats& formats_;
    OrderBoxes boxes_;
};

}  // namespace bramblet
