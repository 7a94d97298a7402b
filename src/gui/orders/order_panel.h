// The upper band of the main window: the order's number, kind and dates, its two addresses, terms
// and comments.
#pragma once

#include "core/orders/order_editor.h"
#include "gui/history/history_boxes.h"
#include "gui/platform/boxes.h"

#include <QWidget>

class QRadioButton;

namespace bramblet {

class AddressPanel;
class CalendarPopup;

class OrderPanel : public QWidget {
  public:
    OrderPanel(OrderEditor& editor, AddressBook& addresses, FieldHistories& histories,
               const OpenOrder& open, int firstDayOfWeek, QWidget* parent = nullptr);

    /// Shows what the order holds now.
    void refresh();

  private:
    void bind(QLineEdit* box, OrderField field);
    QLayout* makeDate(const QString& caption, const char* name, const QString& tip,
                      OrderField field, const char* picker, const QString& pickerTip);
    void markDates();
    void makeNumber();
    void makeKind();
    QLayout* makeStrip();
    QLayout* makeTerms();
    void Label11_DblClick() { editor_.unlockNumber(); }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    OrderEditor& editor_;
    const OpenOrder& open_;
    BoundBoxes boxes_;
    HistoryBoxes historyBoxes_;
    int firstDayOfWeek_;
    CalendarPopup* calendar_ = nullptr;  ///< made when it is first opened
    QLabel* numberLabel_;
    QLineEdit* number_;
    QRadioButton* purchaseOrder_;
    QRadioButton* requisition_;
    QCheckBox* received_;
    AddressPanel* vendor_;
    AddressPanel* shipTo_;
    struct DateBox {
        QLineEdit* box;
        OrderField field;
        QString tip;
    };
    std::vector<DateBox> dates_;
};

}  // namespace bramblet
