// The program's own help: its pages and a search through them, all within the program.
#pragma once

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QListWidget;
class QUrl;

namespace bramblet {

class HelpWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit HelpWindow(QWidget* parent);

  signals:
    /// A link out of the help was clicked.
    void linkFollowed(const QUrl& link);

  private:
    class Page;

    QWidget* makeSide();
    void makeShortcuts();
    void listPages();
    void showPage(const QString& page);
    void follow(const QUrl& link);
    void search();
    void findNext();

    QLineEdit* search_;
    QListWidget* pages_;
    QLabel* nothing_;
    Page* text_;
};

}  // namespace bramblet
