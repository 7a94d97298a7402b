// The dialog for importing addresses from the contact manager Kettleby.
#pragma once

#include "core/addresses/contact_import.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace bramblet {

class ContactDialog : public QDialog {
    Q_OBJECT
  public:
    ContactDialog(ContactImport& import, QWidget* parent);

  private:
    void Command1_Click();
    void refresh();

    ContactImport& import_;
    QLineEdit* file_;
    QPushButton* vendors_;
    QPushButton* shipTos_;
};

}  // namespace bramblet
