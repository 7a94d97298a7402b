// The viewer: the order's document as a sheet of paper on a desk, with the commands to print, save
// and mail it.
#pragma once

#include "core/orders/order_viewer.h"
#include "gui/document/order_sheet.h"

#include <QMainWindow>

#include <functional>

namespace bramblet {

class DisplayWindow : public QMainWindow {
    Q_OBJECT
  public:
    DisplayWindow(OrderViewer& viewer, QWidget* parent);

    /// Opens the settings dialog; `rewrite` writes the document again and shows it.
    std::function<void(std::function<void()> rewrite)> openConfiguration;
    /// Opens a link's address in the default browser.
    std::function<void(const std::string& target)> runBrowser;

    /// Shows the document as it is now.
    void navigate();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Desk;
    QWidget* makeBar();
    void makeMenus();
    void setZoom(double zoom);
    void placePaper();
    void print();
    void preview();
    void savePdf();
    void configure();
    PictureSource pictures() const;

    OrderViewer& viewer_;
    OrderSheet* sheet_;
    Desk* browser_;
    std::string document_;
    double zoom_;
    int turned_ = 0;  ///< by the wheel since the last step, in eighths of a degree
};

}  // namespace bramblet
