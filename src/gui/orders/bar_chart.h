// Amounts as bars, each on a line with its name and its amount.
#pragma once

#include "core/orders/spending.h"

#include <QColor>
#include <QWidget>

#include <vector>

class QPainter;

namespace bramblet {

class BarChart : public QWidget {
    Q_OBJECT
  public:
    BarChart(const char* name, const QString& accessibleName, const std::vector<SpendingBar>& bars,
             QWidget* parent = nullptr);

    /// What it is painted with. All bars have one colour: names and amounts tell them apart, and
    /// hatching those that stand for others.
    struct Inks {
        QColor text, bar;
    };
    /// Paints the bars from `first` on at the top of `area`, as many as have room, with the
    /// painter's font. Returns the one after the last.
    static int paint(QPainter& painter, const QRectF& area, const std::vector<SpendingBar>& bars,
                     int first, const Inks& inks);
    int bars() const { return static_cast<int>(bars_.size()); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    /// By a click, Enter or Space.
    void barChosen(int bar);
    /// The bar has become current.
    void barReached(int bar);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    double lineHeight() const;
    int barAt(const QPointF& place) const;
    void makeCurrent(int bar);

    const std::vector<SpendingBar>& bars_;
    int current_ = 0;
};

}  // namespace bramblet
