// The "Graphic Selector": folders, the pictures in one, and a preview.
#pragma once

#include "core/settings/picture_folder.h"

#include <QDialog>

#include <filesystem>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace bramblet {

class PictureDialog : public QDialog {
    Q_OBJECT
  public:
    PictureDialog(const FileSystem& files, const std::filesystem::path& folder, QWidget* parent);

    /// The picture chosen; empty when none was.
    const std::filesystem::path& path() const { return path_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void goTo(const std::filesystem::path& folder);
    void showFolder();
    void showDrive();
    void loadPicture();
    void showPicture();
    const std::filesystem::path& currentPicture() const;
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
    std::filesystem::path path_;
};

}  // namespace bramblet
