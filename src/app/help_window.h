// The program's own help: its pages, a search through them, all in the program itself.
#pragma once

#include <QMainWindow>

#include <functional>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace bramblet {

class HelpWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit HelpWindow(QWidget* parent);

    /// Opens an address outside the help.
    std::function<void(const std::string& target)> runBrowser;

  private:
    void listPages();
    void showPage(const QString& file);
    void search();
    void findNext();

    QLineEdit* search_;
    QListWidget* pages_;
    QTextBrowser* browser_;
};

}  // namespace bramblet
