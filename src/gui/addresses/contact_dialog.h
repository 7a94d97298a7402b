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
    using Command = void (ContactImport::*)();

    QPushButton* button(const char* name, const QString& caption, const QString& tip,
                        Command command);
    void refresh();

    ContactImport& import_;
    QLineEdit* file_;
    QPushButton* vendors_;
    QPushButton* shipTos_;
};

}  // namespace bramblet
