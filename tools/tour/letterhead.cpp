#include "tour/letterhead.h"

#include <QBuffer>
#include <QImage>

#include <array>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace bramblet::tour {
namespace {

constexpr int kWidth = 332;  // rows of whole words: nothing in the file is left to chance
constexpr int kHeight = 76;
/// Lengths are in sixteenths of a pixel; a pixel is sampled at 4 x 4 places.
constexpr int kPixel = 16;
constexpr int kSamples = 4;
constexpr int kLevels = kSamples * kSamples;

struct Point {
    std::int64_t x;
    std::int64_t y;
};
using Line = std::vector<Point>;

enum class Ink { Charcoal, Oak, Walnut };
constexpr std::array<QRgb, 3> kInks{0xff2d3138, 0xffb98a52, 0xff6e4a2b};

/// Capitals on a grid of 4 x 6, as strokes of points "xy", separated by a slash.
const std::map<char, std::string_view> kStrokes{
    {'A', "062046/1434"},
    {'C', "4130100105163645"},
    {'D', "00062644422000"},
    {'E', "40000646/0333"},
    {'F', "400006/0333"},
    {'G', "41301001051636454323"},
    {'H', "0006/4046/0343"},
    {'I', "0006"},
    {'J', "3035261605"},
    {'K', "0006/4004/1346"},
    {'L', "000646"},
    {'N', "06004640"},
    {'O', "103041453616050110"},
    {'R', "06003041423303/2346"},
    {'T', "0040/2026"},
    {'Y', "002340/2326"},
    {'0', "103041453616050110"},
    {'1', "112026"},
    {'3', "004022324345361605"},
    {'4', "36300444"},
    {'5', "4000033344453606"},
    {'7', "004016"},
    {'9', "43130201103041453616"},
    {',', "0607"},
    {'-', "0323"},
};

std::int64_t squareOf(std::int64_t value) {
    return value * value;
}

/// Whether `p` lies within `reach` of the stroke from `a` to `b`.
bool isOnStroke(const Point& p, const Point& a, const Point& b, std::int64_t reach) {
    const Point way{b.x - a.x, b.y - a.y};
    const Point off{p.x - a.x, p.y - a.y};
    const std::int64_t along = off.x * way.x + off.y * way.y;
    const std::int64_t length = squareOf(way.x) + squareOf(way.y);
    if (along <= 0) return squareOf(off.x) + squareOf(off.y) <= squareOf(reach);
    if (along >= length) return squareOf(p.x - b.x) + squareOf(p.y - b.y) <= squareOf(reach);
    return squareOf(off.x * way.y - off.y * way.x) <= squareOf(reach) * length;
}

bool isInside(const Point& p, const Line& corners) {
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point& a = corners[i];
        const Point& b = corners[j];
        if ((a.y > p.y) == (b.y > p.y)) continue;
        const std::int64_t side = (b.x - a.x) * (p.y - a.y) - (p.x - a.x) * (b.y - a.y);
        if ((side > 0) == (b.y > a.y)) inside = !inside;
    }
    return inside;
}

class Sheet {
  public:
    Sheet() : image_(kWidth, kHeight, QImage::Format_Indexed8) {
        QList<QRgb> colours;
        for (const QRgb ink : kInks) {
            for (int level = 0; level <= kLevels; ++level) {
                const auto mixed = [&](int shade) {
                    return (shade * level + 255 * (kLevels - level)) / kLevels;
                };
                colours.append(qRgb(mixed(qRed(ink)), mixed(qGreen(ink)), mixed(qBlue(ink))));
            }
        }
        image_.setColorTable(colours);
        image_.setDotsPerMeterX(3780);  // 96 to the inch, whatever the screen has
        image_.setDotsPerMeterY(3780);
        image_.fill(0);
    }

    void fill(const Line& corners, Ink ink) {
        paint(ink, [&](const Point& p) { return isInside(p, corners); });
    }

    void stroke(const Point& from, const Point& to, std::int64_t halfWidth, Ink ink) {
        paint(ink, [&](const Point& p) { return isOnStroke(p, from, to, halfWidth); });
    }

    /// Writes from `place`, the upper left corner of the first capital, in capitals six units high.
    void write(std::string_view text, Point place, int unit, int halfWidth, Ink ink) {
        for (const char c : text) {
            const auto strokes = kStrokes.find(c);
            const int width =
                strokes == kStrokes.end() ? 2 : draw(strokes->second, place, unit, halfWidth, ink);
            place.x += std::int64_t{width + 2} * unit;
        }
    }

    QByteArray file() const {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image_.save(&buffer, "BMP");
        return buffer.data();
    }

  private:
    /// Draws a capital and returns its width in units.
    int draw(std::string_view strokes, const Point& place, int unit, int halfWidth, Ink ink) {
        int width = 0;
        Line line;
        const auto finish = [&] {
            paint(ink, [&](const Point& p) {
                for (std::size_t i = 1; i < line.size(); ++i) {
                    if (isOnStroke(p, line[i - 1], line[i], halfWidth)) return true;
                }
                return false;
            });
            line.clear();
        };
        for (std::size_t i = 0; i < strokes.size(); i += 2) {
            if (strokes[i] == '/') {
                finish();
                ++i;
            }
            const int x = strokes[i] - '0';
            const int y = strokes[i + 1] - '0';
            width = qMax(width, x);
            line.push_back({place.x + std::int64_t{x} * unit, place.y + std::int64_t{y} * unit});
        }
        finish();
        return width;
    }

    template <class Covers>
    void paint(Ink ink, Covers covers) {
        constexpr int kStep = kPixel / kSamples;
        const int first = static_cast<int>(ink) * (kLevels + 1);
        for (int y = 0; y < kHeight; ++y) {
            uchar* const row = image_.scanLine(y);
            for (int x = 0; x < kWidth; ++x) {
                int level = 0;
                for (int sample = 0; sample < kLevels; ++sample) {
                    const Point p{x * kPixel + sample % kSamples * kStep + kStep / 2,
                                  y * kPixel + sample / kSamples * kStep + kStep / 2};
                    level += covers(p) ? 1 : 0;
                }
                const int before = row[x] % (kLevels + 1);
                if (level > before) row[x] = static_cast<uchar>(first + level);
            }
        }
    }

    QImage image_;
};

Point at(std::int64_t x, std::int64_t y) {
    return {x * kPixel, y * kPixel};
}

/// Two boards of different wood that meet in a dovetail.
void drawMark(Sheet& sheet) {
    sheet.fill({at(2, 8), at(26, 8), at(26, 16), at(42, 12), at(42, 30), at(26, 26), at(26, 46),
                at(42, 42), at(42, 60), at(26, 56), at(26, 66), at(2, 66)},
               Ink::Walnut);
    sheet.fill({at(60, 8), at(28, 8), at(28, 13), at(44, 9), at(44, 33), at(28, 29), at(28, 43),
                at(44, 39), at(44, 63), at(28, 59), at(28, 66), at(60, 66)},
               Ink::Oak);
}

}  // namespace

QByteArray letterhead() {
    Sheet sheet;
    drawMark(sheet);
    sheet.write("LARKFIELD JOINERY", at(78, 11), 42, 19, Ink::Charcoal);
    sheet.stroke(at(78, 37), at(313, 37), 8, Ink::Oak);
    sheet.write("17 ORCHARD LANE, OREGON CITY", at(78, 45), 19, 8, Ink::Charcoal);
    sheet.write("OR 97045   503-555-0100", at(78, 59), 19, 8, Ink::Charcoal);
    return sheet.file();
}

}  // namespace bramblet::tour
