// The "Graphic Selector": folders, the pictures in one, and a preview.
#pragma once

#include "app/picture_folder.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace bramblet {

class PictureDialog : public QDialog {
    Q_OBJECT
  public:
    PictureDialog(const FileSystem& files, const std::string& folder, QWidget* parent);

    /// The picture chosen: its name and its full path, both empty when none was.
    const std::string& name() const { return name_; }
    const std::string& path() const { return path_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void goTo(const std::string& folder);
    void showFolder();
    void showDrive();
    void loadPicture();
    void showPicture();
    void choose();

    PictureFolder folder_;
    QComboBox* drives_;
    QLineEdit* place_;
    QListWidget* folders_;
    QListWidget* pictures_;
    QLabel* preview_;
    QLabel* caption_;
    QPushButton* take_;
    QImage image_;
    QString pictureCaption_;
    std::string name_;
    std::string path_;
};

}  // namespace bramblet
