// A hint, once, when a character is typed that the data files cannot hold.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QTextDocument;
class QWidget;

namespace bramblet {

/// Says which character of a text the data files cannot hold, if there is one.
QString lossIn(const QString& text);

class LossHint : public QObject {
  public:
    /// `tell` shows a line; it returns false if there is no room for it just now, in which case the
    /// next such character is told of.
    explicit LossHint(std::function<bool(const QString& line)> tell) : tell_(std::move(tell)) {}

    /// Watches all boxes within a widget.
    void watch(const QWidget& widget);

  private:
    void look(const QString& text);
    void lookAtBlocks(const QTextDocument& document, int place, int length);

    std::function<bool(const QString& line)> tell_;
    bool told_ = false;
};

}  // namespace bramblet
