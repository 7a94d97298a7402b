// A quiet line that tells what was last paid for some goods, and takes that price over.
#pragma once

#include "core/orders/last_paid.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;
class QMenu;
class QToolButton;

namespace bramblet {

/// Reads the orders' documents while the user does nothing, as long as a window with such a line is
/// the active one. It begins when prices are wanted for the first time.
class PaidReader : public QObject {
    Q_OBJECT
  public:
    explicit PaidReader(LastPaid& paid);

    const LastPaid& paid() const { return paid_; }
    /// Prices are wanted.
    void want();
    /// There may be news; nothing happens before prices are wanted.
    void goOn();

  signals:
    void learned();

  private:
    void readNext();

    LastPaid& paid_;
    QTimer timer_;
    bool wanted_ = false;
};

class LastPaidLine : public QWidget {
    Q_OBJECT
  public:
    using Wanted = std::function<Goods()>;
    using Take = std::function<void(const PaidPrice&)>;
    /// Controls are named after `name`; `caption` is that of the button which takes the price over.
    LastPaidLine(const QString& name, const QString& caption, PaidReader& reader, Wanted wanted,
                 Take take);

    /// The goods may be others now.
    void refresh();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void show(const std::vector<PaidPrice>& prices);
    void elide();

    PaidReader& reader_;
    Wanted wanted_;
    Take take_;
    std::vector<PaidPrice> prices_;  ///< as they are shown
    QString line_;
    QLabel* label_;
    QToolButton* use_;
    QToolButton* older_;
    QMenu* menu_;
};

}  // namespace bramblet
