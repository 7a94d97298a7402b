#include "tour/few_colours.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <vector>

namespace bramblet::tour {
namespace {

constexpr std::size_t kMostColours = 256;

struct Colour {
    std::array<int, 3> part;
    qint64 pixels;
};

/// Colours that one entry of the palette will stand for.
using Box = std::vector<Colour>;

struct Spread {
    std::size_t part = 0;
    int width = 0;
};

/// The part, red, green or blue, in which the colours of a box lie farthest apart.
Spread widest(const Box& box) {
    Spread spread;
    for (std::size_t part = 0; part < 3; ++part) {
        const auto [low, high] = std::minmax_element(
            box.begin(), box.end(),
            [part](const Colour& a, const Colour& b) { return a.part[part] < b.part[part]; });
        const int width = high->part[part] - low->part[part];
        if (width > spread.width) spread = {part, width};
    }
    return spread;
}

QRgb meanOf(const Box& box) {
    std::array<qint64, 3> sum{};
    qint64 pixels = 0;
    for (const Colour& colour : box) {
        for (std::size_t part = 0; part < 3; ++part)
            sum[part] += colour.part[part] * colour.pixels;
        pixels += colour.pixels;
    }
    const auto mean = [&](std::size_t part) {
        return static_cast<int>((sum[part] + pixels / 2) / pixels);
    };
    return qRgb(mean(0), mean(1), mean(2));
}

/// Halves the box whose colours are farthest apart until there are boxes enough.
std::vector<Box> boxesOf(Box all) {
    std::vector<Box> boxes{std::move(all)};
    while (boxes.size() < kMostColours) {
        std::size_t chosen = 0;
        Spread spread;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const Spread candidate = widest(boxes[i]);
            if (candidate.width > spread.width) {
                spread = candidate;
                chosen = i;
            }
        }
        if (spread.width == 0) break;
        Box& box = boxes[chosen];
        std::sort(box.begin(), box.end(), [&](const Colour& a, const Colour& b) {
            return a.part[spread.part] < b.part[spread.part];
        });
        const int middle = box.front().part[spread.part] + spread.width / 2;
        const auto half = std::find_if(box.begin(), box.end(), [&](const Colour& colour) {
            return colour.part[spread.part] > middle;
        });
        Box upper(half, box.end());
        box.erase(half, box.end());
        boxes.push_back(std::move(upper));
    }
    return boxes;
}

}  // namespace

QImage withFewColours(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, qint64> counts;
    for (int y = 0; y < source.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < source.width(); ++x)
            ++counts[row[x]];
    }
    Box all;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour) {
        const QRgb rgb = colour.key();
        all.push_back({{qRed(rgb), qGreen(rgb), qBlue(rgb)}, colour.value()});
    }
    QList<QRgb> palette;
    QHash<QRgb, uchar> entries;
    for (const Box& box : boxesOf(std::move(all))) {
        for (const Colour& colour : box) {
            entries[qRgb(colour.part[0], colour.part[1], colour.part[2])] =
                static_cast<uchar>(palette.size());
        }
        palette.append(meanOf(box));
    }
    QImage reduced(source.size(), QImage::Format_Indexed8);
    reduced.setColorTable(palette);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* const to = reduced.scanLine(y);
        for (int x = 0; x < source.width(); ++x)
            to[x] = entries[from[x]];
    }
    return reduced;
}

}  // namespace bramblet::tour
