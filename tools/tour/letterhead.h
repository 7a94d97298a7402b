// The sample company's letterhead, drawn with whole numbers and strokes of our own: without fonts,
// encoders or the machine's arithmetic in it, its file is the same byte for byte everywhere.
#pragma once

#include <QByteArray>

namespace bramblet::tour {

/// The letterhead of Larkfield Joinery as a BMP file of 332 x 76 pixels.
QByteArray letterhead();

}  // namespace bramblet::tour
