#include "app/picture_dialog.h"

#include "platform/boxes.h"
#include "platform/qt_text.h"
#include "platform/text.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

namespace bramblet {
namespace {

constexpr std::array<std::string_view, 5> kEndings{".GIF", ".JPG", ".JPEG", ".BMP", ".PNG"};

bool isPicture(const std::string& name) {
    const std::string wanted = upper(name);
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [&](std::string_view ending) { return wanted.ends_with(ending); });
}

std::string parentOf(const std::string& folder) {
    const auto separator = folder.find_last_of(kFolderSeparator, folder.size() - 2);
    return separator == std::string::npos ? folder : folder.substr(0, separator + 1);
}

QListWidget* list(const char* name, const QString& accessibleName) {
    auto* list = new QListWidget;
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(accessibleName);
    list->setMinimumSize(190, 220);
    return list;
}

}  // namespace

PictureDialog::PictureDialog(FileSystem files, const std::string& folder, QWidget* parent)
    : QDialog(parent), files_(files.withoutRetry()) {
    setObjectName(QStringLiteral("SelectPicForm"));
    setWindowTitle(tr("Graphic Selector"));
    drives_ = new QComboBox;
    drives_->setObjectName(QStringLiteral("Drive1"));
    drives_->setAccessibleName(tr("Drive"));
    for (const QFileInfo& drive : QDir::drives()) {
        drives_->addItem(QDir::toNativeSeparators(drive.absoluteFilePath()));
    }
    drives_->addItem(QDir::toNativeSeparators(QDir::homePath()));
    folders_ = list("Dir1", tr("Folders"));
    pictures_ = list("File1", tr("Pictures"));
    preview_ = new QLabel;
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setMinimumSize(240, 180);
    preview_->setFrameShape(QFrame::StyledPanel);
    caption_ = new QLabel;
    caption_->setAlignment(Qt::AlignCenter);
    take_ = new QPushButton(tr("&Select"));
    take_->setObjectName(QStringLiteral("Command1"));
    take_->setToolTip(tr("Use this picture."));
    take_->setDefault(true);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("Command2"));
    cancel->setToolTip(tr("Close without choosing a picture."));

    connect(drives_, &QComboBox::activated, this,
            [this] { goTo(withSeparator(pathFromQt(drives_->currentText()))); });
    connect(folders_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
        const std::string chosen = pathFromQt(item->text());
        goTo(chosen == ".." ? parentOf(folder_) : withSeparator(folder_ + chosen));
    });
    connect(pictures_, &QListWidget::currentItemChanged, this, &PictureDialog::showPicture);
    connect(pictures_, &QListWidget::itemActivated, this, &PictureDialog::choose);
    connect(take_, &QPushButton::clicked, this, &PictureDialog::choose);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    place_ = new QLineEdit;
    place_->setObjectName(QStringLiteral("Place"));
    place_->setAccessibleName(tr("Folder shown"));
    place_->setReadOnly(true);
    place_->setFocusPolicy(Qt::ClickFocus);
    QPalette plain = place_->palette();
    plain.setBrush(QPalette::Base, plain.window());
    place_->setPalette(plain);

    auto* lists = new QGridLayout;
    lists->setHorizontalSpacing(10);
    lists->addWidget(drives_, 0, 0);
    lists->addWidget(place_, 0, 1, 1, 2);
    lists->addWidget(boxLabel(tr("&Folders"), folders_), 1, 0);
    lists->addWidget(boxLabel(tr("&Pictures"), pictures_), 1, 1);
    lists->addWidget(folders_, 2, 0);
    lists->addWidget(pictures_, 2, 1);
    lists->addWidget(preview_, 2, 2);
    lists->addWidget(caption_, 3, 2);
    lists->setRowStretch(2, 1);
    for (int column = 0; column < 3; ++column)
        lists->setColumnStretch(column, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(take_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);
    goTo(folder);
}

void PictureDialog::goTo(const std::string& folder) {
    folder_ = folder;
    place_->setText(pathToQt(folder_));
    place_->setToolTip(pathToQt(folder_));
    fillFolders();
    fillFiles();
    showPicture();
}

void PictureDialog::fillFolders() {
    folders_->clear();
    if (parentOf(folder_) != folder_) folders_->addItem(QStringLiteral(".."));
    QStringList names;
    try {
        for (const auto& name : files_.folderNames(folder_))
            names.append(pathToQt(name));
    } catch (const FileError& error) {
        caption_->setText(pathToQt(error.inWords()));
    }
    names.removeIf([](const QString& name) { return name.startsWith(QLatin1Char('.')); });
    names.sort(Qt::CaseInsensitive);
    folders_->addItems(names);
}

void PictureDialog::fillFiles() {
    const QSignalBlocker quiet(pictures_);
    pictures_->clear();
    QStringList names;
    try {
        for (const auto& name : files_.fileNames(folder_)) {
            if (isPicture(name)) names.append(pathToQt(name));
        }
    } catch (const FileError&) {
        return;  // the list of folders has told
    }
    names.sort(Qt::CaseInsensitive);
    pictures_->addItems(names);
}

void PictureDialog::showPicture() {
    const auto* item = pictures_->currentItem();
    image_ = QImage();
    QString caption;
    if (item != nullptr) {
        try {
            const std::string bytes = files_.read(folder_ + pathFromQt(item->text()));
            image_ = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                      static_cast<int>(bytes.size()));
            caption = image_.isNull() ? tr("This picture cannot be shown.") : item->text();
        } catch (const FileError& error) {
            caption = pathToQt(error.inWords());
        }
    }
    const QSize room = preview_->contentsRect().size() - QSize(8, 8);
    const bool reduced = image_.width() > room.width() || image_.height() > room.height();
    const QImage shown =
        reduced ? image_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation) : image_;
    preview_->setPixmap(QPixmap::fromImage(shown));
    caption_->setText(reduced ? caption + tr(" (shown smaller here)") : caption);
    take_->setEnabled(item != nullptr);
}

void PictureDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    showPicture();
}

void PictureDialog::choose() {
    if (pictures_->currentItem() == nullptr) return;
    name_ = pathFromQt(pictures_->currentItem()->text());
    path_ = folder_ + name_;
    accept();
}

}  // namespace bramblet
