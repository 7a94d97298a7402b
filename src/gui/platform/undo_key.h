// The key for Undo. In a box it takes back what has been typed there; once there is no more of
// that, it is the window's.
#pragma once

#include <QObject>

class QWidget;

namespace bramblet {

class UndoKey : public QObject {
  public:
    /// Watches all boxes within a widget. It must not outlive this object.
    void watch(const QWidget& widget);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace bramblet
