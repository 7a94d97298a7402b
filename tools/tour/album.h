// Keeps the tour's pictures, and makes those of the help and the README from them.
#pragma once

#include <QPixmap>
#include <QString>

namespace bramblet::tour {

class Album {
  public:
    /// Pictures go into `folder`; those for the documentation into "help" and "pictures" below
    /// `documentation` when it is not empty.
    Album(QString folder, QString documentation);

    /// Keeps a picture under a name without ending. False when it could not be written.
    bool keep(const QString& name, const QPixmap& picture) const;

    bool makesDocumentation() const { return !documentation_.isEmpty(); }
    /// Pictures of the help are as wide as its text at most, at twice the scale.
    bool keepForHelp(const QString& name, const QPixmap& picture) const;
    bool keepForReadme(const QString& name, const QPixmap& picture) const;

    const QString& folder() const { return folder_; }

  private:
    QString folder_;
    QString documentation_;
};

}  // namespace bramblet::tour
