// What every station of the tour has at hand: hands for the main window, and the album.
#pragma once

#include "driver/driver.h"
#include "gui/app/main_window.h"
#include "tour/album.h"

#include <QString>

#include <vector>

namespace bramblet::tour {

/// A place in a window at which a picture in the help points with a number.
struct Callout {
    const char* control;
    Qt::Alignment place;   ///< of the number, in the control
    bool outside = false;  ///< to the right or left of the control instead
};

class Guide : public Driver {
  public:
    Guide(MainWindow& window, const Album& album);

    MainWindow& window() { return window_; }
    /// Whether everything has been as it should so far.
    bool good() const { return !complaints_ && allAnswered(); }

    /// Keeps a picture of the main window, or of another one, and looks it over (inspection.h).
    void picture(const QString& file) { picture(file, window_); }
    void picture(const QString& file, QWidget& window);
    /// The main window with another one in front of it.
    void pictureWith(const QString& file, QWidget& front);
    /// Keeps a picture of the next message, for the help too where that has a name for it, and
    /// presses one of its buttons.
    void pictureOfNext(const QString& file, QMessageBox::StandardButton button,
                       const QString& helpFile = {});

    /// Complains unless the status line begins with a text soon.
    void expectStatus(const QString& start);

    /// A picture for the help: a whole window, or the part of it that holds some controls.
    void help(const QString& file, QWidget& window);
    void help(const QString& file, const std::vector<const char*>& controls);
    /// The same with another window in front, such as a menu, and `air` pixels around it all.
    void helpWith(const QString& file, QWidget& front, const std::vector<const char*>& controls,
                  int air);
    void helpWithCallouts(const QString& file, const std::vector<Callout>& callouts);
    void readme(const QString& file, QWidget& window);

  private:
    QPixmap windowWith(QWidget& front, int shade);
    QRect around(const std::vector<const char*>& controls, int air) const;
    void keepForHelp(const QString& file, const QPixmap& picture);
    void expect(bool kept, const QString& file);
    void inspect(const QWidget& window);

    MainWindow& window_;
    const Album& album_;
    bool complaints_ = false;
};

}  // namespace bramblet::tour
