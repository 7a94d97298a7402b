// One address block of the order: the name with its list, the address, its number and the buttons
// that save and delete it. The main window has two.
#pragma once

#include "core/addresses/address_book.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QToolButton;

namespace bramblet {

class HistoryBox;

class AddressPanel : public QWidget {
  public:
    AddressPanel(AddressSide side, AddressBook& book, const OpenOrder& open,
                 QWidget* parent = nullptr);

    /// Shows what the book and the order hold now.
    void refresh();

    HistoryBox* nameBox() const { return name_; }

  private:
    /// The names are put into the list when they are first needed.
    void fillList();

    AddressSide side_;
    OrderField nameField_;
    OrderField addressField_;
    AddressBook& book_;
    const OpenOrder& open_;
    HistoryBox* name_;
    bool listed_ = false;  ///< the list has been needed
    QPlainTextEdit* address_;
    QLabel* counter_;
    QToolButton* save_;
    QToolButton* remove_;
};

}  // namespace bramblet
