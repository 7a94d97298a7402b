// Keeps the tour's pictures, and makes those of the help and the README from them.
#pragma once

#include <QPixmap>
#include <QString>

namespace bramblet::tour {

class Album {
  public:
    /// Pictures go into `folder`; those for the documentation go into "help" and "pictures" below
    /// `documentation`, unless that is empty.
    Album(QString folder, QString documentation);

    /// Keeps a picture under a name without extension. False if it could not be written.
    bool keep(const QString& name, const QPixmap& picture) const;

    /// Keeps a picture for the documentation, if that is being made, no wider than `width`.
    bool keepFor(const QString& part, const QString& name, const QPixmap& picture, int width) const;

    const QString& folder() const { return folder_; }

  private:
    QString folder_;
    QString documentation_;
};

}  // namespace bramblet::tour
