#include "gui/settings/picture_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGridLayout>
#include <QListWidget>

namespace bramblet {
namespace {

QListWidget* list(const char* name, const QString& accessibleName) {
    auto* list = new QListWidget;
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(accessibleName);
    list->setMinimumSize(190, 220);
    return list;
}

void showNames(QListWidget* list, const std::vector<std::filesystem::path>& names) {
    const QSignalBlocker quiet(list);
    list->clear();
    for (const auto& name : names)
        list->addItem(pathToQt(name));
}

class PictureDialog : public QDialog {
  public:
    PictureDialog(const FileSystem& files, const std::filesystem::path& folder, QWidget* parent)
        : QDialog(parent), folder_(files) {
        setObjectName(u"SelectPicForm"_s);
        setWindowTitle(u"Graphic Selector"_s);
        drives_->setObjectName(u"Drive1"_s);
        drives_->setAccessibleName(u"Drive"_s);
        for (const QFileInfo& drive : QDir::drives())
            drives_->addItem(QDir::toNativeSeparators(drive.absoluteFilePath()));
        drives_->addItem(pathToQt(withSeparator(pathFromQt(QDir::homePath()))));
        preview_->setAlignment(Qt::AlignCenter);
        preview_->setMinimumSize(240, 180);
        preview_->setFrameShape(QFrame::StyledPanel);
        caption_->setAlignment(Qt::AlignCenter);
        caption_->setWordWrap(true);
        take_->setDefault(true);

        connect(drives_, &QComboBox::activated, this,
                [this] { goTo(pathFromQt(drives_->currentText())); });
        connect(folders_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
            folder_.enter(folder_.folders()[static_cast<std::size_t>(folders_->row(item))]);
            showFolder();
        });
        connect(pictures_, &QListWidget::currentItemChanged, this, &PictureDialog::loadPicture);
        connect(pictures_, &QListWidget::itemActivated, this, &PictureDialog::choose);

        place_->setAccessibleName(u"Folder shown"_s);
        showOnly(place_);

        auto* lists = new QGridLayout;
        lists->setHorizontalSpacing(10);
        lists->addWidget(drives_, 0, 0);
        lists->addWidget(place_, 0, 1, 1, 2);
        lists->addWidget(boxLabel(u"&Folders"_s, folders_), 1, 0);
        lists->addWidget(boxLabel(u"&Pictures"_s, pictures_), 1, 1);
        lists->addWidget(folders_, 2, 0);
        lists->addWidget(pictures_, 2, 1);
        lists->addWidget(preview_, 2, 2);
        lists->addWidget(caption_, 3, 2);
        lists->setRowStretch(2, 1);
        for (int column = 0; column < 3; ++column)
            lists->setColumnStretch(column, 1);
        auto* cancel = button("Command2", u"Cancel"_s, u"Close without choosing a picture."_s,
                              [this] { reject(); });
        setLayout(column(-1, {grow(lists), row(-1, {spring(), take_, cancel})}));
        goTo(folder);
    }

    /// The picture chosen; empty when none was.
    const std::filesystem::path& path() const { return path_; }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QDialog::resizeEvent(event);
        showPicture();
    }

  private:
    void goTo(const std::filesystem::path& folder) {
        folder_.goTo(folder);
        showFolder();
    }

    void showFolder() {
        place_->setText(pathToQt(folder_.path()));
        place_->setToolTip(pathToQt(folder_.path()));
        showDrive();
        showNames(folders_, folder_.folders());
        showNames(pictures_, folder_.pictures());
        loadPicture();
    }

    /// Shows the drive, or the folder listed among the drives, that the folder shown lies under.
    void showDrive() {
        int best = -1;
        for (int i = 0; i < drives_->count(); ++i) {
            const bool under = place_->text().startsWith(drives_->itemText(i), Qt::CaseInsensitive);
            const bool longer =
                best < 0 || drives_->itemText(i).size() > drives_->itemText(best).size();
            if (under && longer) best = i;
        }
        drives_->setCurrentIndex(best);
    }

    void loadPicture() {
        const auto* item = pictures_->currentItem();
        image_ = QImage();
        pictureCaption_ = toQt(folder_.trouble());
        if (item != nullptr) {
            try {
                const std::string bytes = folder_.read(currentPicture());
                image_ = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                          static_cast<int>(bytes.size()));
                pictureCaption_ =
                    image_.isNull() ? u"This picture cannot be shown."_s : item->text();
            } catch (const FileError& error) {
                pictureCaption_ = toQt(error.inWords());
            }
        }
        take_->setEnabled(item != nullptr);
        showPicture();
    }

    /// Shows the picture, reduced if there is no room for it at full size.
    void showPicture() {
        const QSize room = preview_->contentsRect().size() - QSize(8, 8);
        const bool reduced = image_.width() > room.width() || image_.height() > room.height();
        const QImage shown =
            reduced ? image_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation) : image_;
        preview_->setPixmap(QPixmap::fromImage(shown));
        caption_->setText(reduced ? pictureCaption_ + u" (shown smaller here)"_s : pictureCaption_);
    }

    /// Its name as it is on the disk, which may be more than the list can show.
    const std::filesystem::path& currentPicture() const {
        return folder_.pictures()[static_cast<std::size_t>(pictures_->currentRow())];
    }

    void choose() {
        if (pictures_->currentItem() == nullptr) return;
        path_ = folder_.path() / currentPicture();
        accept();
    }

    PictureFolder folder_;
    QComboBox* drives_ = new QComboBox;
    QLineEdit* place_ = lineEdit("Place", {});
    QListWidget* folders_ = list("Dir1", u"Folders"_s);
    QListWidget* pictures_ = list("File1", u"Pictures"_s);
    QLabel* preview_ = new QLabel;
    QLabel* caption_ = new QLabel;
    QPushButton* take_ =
        button("Command1", u"&Select"_s, u"Use this picture."_s, [this] { choose(); });
    QImage image_;
    QString pictureCaption_;
    std::filesystem::path path_;
};

}  // namespace

std::filesystem::path choosePicture(const FileSystem& files, const std::filesystem::path& folder,
                                    QWidget* parent) {
    PictureDialog dialog(files, folder, parent);
    dialog.exec();
    return dialog.path();
}

}  // namespace bramblet
