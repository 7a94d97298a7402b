// What every station of the tour has at hand: the main window, hands to work it, and the album.
#pragma once

#include "driver/driver.h"
#include "gui/app/main_window.h"
#include "tour/album.h"

#include <QString>

#include <vector>

namespace bramblet::tour {

inline QString name(const char* text) {
    return QString::fromLatin1(text);
}

/// A place in a window at which a picture in the help points with a number.
struct Callout {
    const char* control;
    Qt::Alignment place;   ///< of the number, in the control
    bool outside = false;  ///< to the right or left of the control instead
};

class Guide {
  public:
    Guide(MainWindow& window, const Album& album);

    Driver& hands() { return driver_; }
    MainWindow& window() { return window_; }
    const Album& album() const { return album_; }
    /// Whether everything has been as it should so far.
    bool good() const { return !complaints_ && driver_.allAnswered(); }

    /// Keeps a picture of the main window, or of another one.
    void picture(const char* file);
    void picture(const char* file, QWidget& window);
    /// The main window with another one in front of it.
    void pictureWith(const char* file, QWidget& front);

    /// A picture for the help: a whole window, or the part of it that holds some controls.
    void help(const char* file, QWidget& window);
    void help(const char* file, const std::vector<const char*>& controls);
    /// The same with another window in front, such as a menu, and `air` pixels around it all.
    void helpWith(const char* file, QWidget& front, const std::vector<const char*>& controls,
                  int air);
    void helpWithCallouts(const char* file, const std::vector<Callout>& callouts);
    void readme(const char* file, QWidget& window);

  private:
    QPixmap windowWith(QWidget& front, int shade);
    QRect around(const std::vector<const char*>& controls, int air) const;
    void keepForHelp(const char* file, const QPixmap& picture);
    void expect(bool kept, const char* file);

    MainWindow& window_;
    Driver driver_;
    const Album& album_;
    bool complaints_ = false;
};

}  // namespace bramblet::tour
