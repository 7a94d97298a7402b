#include "tour/album.h"

#include <QDir>
#include <QImage>

namespace bramblet::tour {
namespace {

constexpr int kHelpWidth = 1360;
constexpr int kReadmeWidth = 1600;

/// Saves a picture, no wider than `width`; scripts/pictures makes its file smaller still.
bool write(const QString& path, const QPixmap& picture, int width) {
    QImage image = picture.toImage();
    image.setDevicePixelRatio(1);
    if (image.width() > width) image = image.scaledToWidth(width, Qt::SmoothTransformation);
    QDir().mkpath(QFileInfo(path).path());
    return image.save(path, "png");
}

}  // namespace

Album::Album(QString folder, QString documentation)
    : folder_(std::move(folder)), documentation_(std::move(documentation)) {}

bool Album::keep(const QString& name, const QPixmap& picture) const {
    return picture.save(QStringLiteral("%1/%2.png").arg(folder_, name));
}

bool Album::keepForHelp(const QString& name, const QPixmap& picture) const {
    const QString path = QStringLiteral("%1/help/%2.png").arg(documentation_, name);
    return !makesDocumentation() || write(path, picture, kHelpWidth);
}

bool Album::keepForReadme(const QString& name, const QPixmap& picture) const {
    const QString path = QStringLiteral("%1/pictures/%2.png").arg(documentation_, name);
    return !makesDocumentation() || write(path, picture, kReadmeWidth);
}

}  // namespace bramblet::tour
