// The order document laid out as a sheet of paper, with the same layout on the screen and in print.
#pragma once

#include "core/document/display_html.h"
#include "gui/document/page_breaks.h"

#include <QHash>
#include <QImage>
#include <QTextDocument>

#include <functional>
#include <string>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace bramblet {

/// Gives the bytes of a named picture in the data folder; empty when there is none.
using PictureSource = std::function<std::string(const std::string& name)>;

class OrderSheet : public QTextDocument {
  public:
    explicit OrderSheet(PictureSource pictures, QObject* parent = nullptr);

    /// Lays out a document (code page text) for the screen, at `zoom` times its size, in pixels of
    /// 1/96 inch that the screen shows with `dotsPerPixel` dots each way. Where the top graphic is
    /// missing, a note says so, which is not printed.
    void show(const std::string& document, double zoom, double dotsPerPixel = 1);

    /// Width of the form at this zoom: as set, or what its content needs if that is more.
    int formWidth() const { return page_.width; }

    /// Prints a document within the device's margins, reduced if the form is wider than the page.
    /// From the second page on, each begins with the order's number, its own, and the headings of
    /// the table that goes on there. False if the device could not be used.
    static bool print(const std::string& document, const PictureSource& pictures,
                      QPagedPaintDevice& device);

  protected:
    /// Pictures come from the data folder alone, and nothing else is ever loaded. There is always
    /// an answer, since given an empty one the text engine would try to open the name itself.
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    enum class Medium { Screen, Paper };
    void layOut(const std::string& document, Medium medium);
    QString html(Medium medium);
    QString hint() const;
    const QImage& picture(const QString& file);
    void drawRunningHead(QPainter& painter, std::size_t page, std::size_t pages) const;
    void drawPage(QPainter& painter, const Page& page) const;
    void drawPart(QPainter& painter, double from, double to) const;
    void divideParagraphs(const std::vector<Page>& pages);
    void divideParagraph(int place);
    QImage load(const QString& file) const;
    double roomFor(const QString& file) const;
    double headingWidth() const;
    void fitHeading();

    PictureSource pictures_;
    DisplayPage page_;
    double zoom_ = 1;
    double dotsPerPixel_ = 1;        ///< of the screen; 0 on paper, which has more than any picture
    QHash<QString, QImage> loaded_;  ///< pictures at this zoom, null for missing ones
};

}  // namespace bramblet
