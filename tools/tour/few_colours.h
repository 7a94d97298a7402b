// Pictures of windows have few colours; a palette of them makes the files small.
#pragma once

#include <QImage>

namespace bramblet::tour {

/// The picture with 256 colours at most: its own when it has no more, otherwise those that stand
/// for its colours best.
QImage withFewColours(const QImage& picture);

}  // namespace bramblet::tour
