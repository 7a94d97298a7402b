// The viewer: the order's document as a sheet of paper on a desk, with the commands to print, save
// and mail it.
#pragma once

#include "core/orders/order_viewer.h"
#include "gui/document/order_sheet.h"

#include <QMainWindow>

class QUrl;

namespace bramblet {

class DisplayWindow : public QMainWindow {
    Q_OBJECT
  public:
    DisplayWindow(OrderViewer& viewer, QWidget* parent);

    /// Writes the document again, and shows it.
    void rewrite();

  signals:
    void closed();
    void configurationWanted();
    /// A link in the document was clicked.
    void linkFollowed(const QUrl& link);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Desk;
    /// Shows the document as it is now.
    void navigate();
    QWidget* makeBar();
    void makeMenus();
    void setZoom(double zoom);
    void placePaper();
    void print();
    void preview();
    void savePdf();
    std::string pdf() const;
    PictureSource pictures() const;

    OrderViewer& viewer_;
    OrderSheet* sheet_;
    Desk* browser_;
    std::string document_;
    double zoom_;
    int turned_ = 0;  ///< by the wheel since the last step, in eighths of a degree
};

}  // namespace bramblet
