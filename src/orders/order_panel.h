// The upper band of the main window: number, kind and dates of the order, its two addresses, terms
// and comments.
#pragma once

#include "orders/order_editor.h"

#include <QFrame>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QToolButton;

namespace bramblet {

class AddressPanel;
class CalendarPopup;

class OrderPanel : public QFrame {
    Q_OBJECT
  public:
    OrderPanel(OrderEditor& editor, AddressBook& addresses, const OpenOrder& open,
               int firstDayOfWeek, QWidget* parent = nullptr);

    /// Shows what the order holds now.
    void refresh();

  private:
    QLineEdit* dateBox(const char* name, const QString& tip);
    QToolButton* datePicker(const char* name, const QString& tip, QLineEdit* box, OrderField field);
    QLayout* makeStrip();
    QLayout* makeTerms();
    void setTabs();
    void bind(QLineEdit* box, OrderField field);
    bool eventFilter(QObject* watched, QEvent* event) override;

    OrderEditor& editor_;
    const OpenOrder& open_;
    CalendarPopup* calendar_;
    QLabel* numberLabel_;
    QLineEdit* number_;
    QRadioButton* purchaseOrder_;
    QRadioButton* requisition_;
    QCheckBox* received_;
    AddressPanel* vendor_;
    AddressPanel* shipTo_;
    QComboBox* comments_;
    QToolButton* orderDatePicker_;
    QToolButton* shipDatePicker_;

    /// Every box of this panel whose text is a field of the order.
    struct BoundBox {
        QLineEdit* box;
        OrderField field;
    };
    std::vector<BoundBox> boxes_;
};

}  // namespace bramblet
