#include "tour/album.h"

#include <QDir>
#include <QImage>

namespace bramblet::tour {

Album::Album(QString folder, QString documentation)
    : folder_(std::move(folder)), documentation_(std::move(documentation)) {}

bool Album::keep(const QString& name, const QPixmap& picture) const {
    return picture.save(QString("%1/%2.png").arg(folder_, name));
}

bool Album::keepFor(const QString& part, const QString& name, const QPixmap& picture,
                    int width) const {
    if (documentation_.isEmpty()) return true;
    QImage image = picture.toImage();
    image.setDevicePixelRatio(1);
    if (image.width() > width) image = image.scaledToWidth(width, Qt::SmoothTransformation);
    const QDir folder(documentation_ + "/" + part);
    // scripts/pictures makes the file smaller still.
    return folder.mkpath(".") && image.save(folder.filePath(name + ".png"), "png");
}

}  // namespace bramblet::tour
