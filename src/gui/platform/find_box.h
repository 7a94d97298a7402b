// The box that narrows a list while one types into it.
#pragma once

#include <QLineEdit>
#include <QPointer>

namespace bramblet {

/// Escape clears the box, and an empty one gives the focus back to where it came from; Enter and
/// Down go on to the list.
class FindBox : public QLineEdit {
    Q_OBJECT
  public:
    explicit FindBox(const char* name);

    /// Takes the focus, with the text selected.
    void enter();

  signals:
    /// The user is about to type.
    void entered();
    /// Escape: whatever narrows the list is to be given up.
    void allWanted();
    /// The user goes on to the list.
    void listWanted();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void leave();

    QPointer<QWidget> before_;  ///< what had the focus
};

}  // namespace bramblet
