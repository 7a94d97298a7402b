// The order document laid out as a sheet of paper: the same layout is shown on the screen and
// printed.
#pragma once

#include "document/display_html.h"

#include <QHash>
#include <QImage>
#include <QTextDocument>

#include <functional>
#include <string>

class QPagedPaintDevice;

namespace bramblet {

/// Gives the bytes of a picture of the data folder by its name; empty when there is none.
using PictureSource = std::function<std::string(const std::string& name)>;

class OrderSheet : public QTextDocument {
    Q_OBJECT
  public:
    explicit OrderSheet(PictureSource pictures, QObject* parent = nullptr);

    /// Lays a document (code page text) out at `zoom` times its size, in pixels of 1/96 inch that
    /// the screen shows with `dotsPerPixel` dots each way.
    void show(const std::string& document, double zoom, double dotsPerPixel = 1);

    /// Width of the form at this zoom.
    int formWidth() const { return page_.width; }

    /// Prints a document with the device's margins, reduced when the form is wider than the page.
    /// False when the device could not be used.
    static bool print(const std::string& document, const PictureSource& pictures,
                      QPagedPaintDevice& device);

  protected:
    /// Pictures come from the data folder alone, and nothing else is ever loaded.
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    QImage load(const QString& file) const;

    PictureSource pictures_;
    DisplayPage page_;
    double zoom_ = 1;
    double dotsPerPixel_ = 1;        ///< of the screen
    QHash<QString, QImage> loaded_;  ///< pictures at this zoom, null for those that there are not
};

}  // namespace bramblet
