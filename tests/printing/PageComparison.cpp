#include "PageComparison.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>

namespace pages {

namespace {

constexpr int kTile = 16;
// After the blur, a pixel further off than this from everything near it is ink that moved,
// went or came: a hairline of 0.15 mm (0.6 pixel at 100 dpi) still reaches it, the grey steps
// of anti-aliasing do not. A tile fails on more such pixels than one and a half of its rows:
// more than text set half a pixel further gives, half what a missing hairline does.
constexpr int kMarkLevel = 24;
constexpr int kMarkLimit = 24;
// A smaller difference over half a tile or more is a different shade or colour of an area.
constexpr int kShadeLevel = 12;
constexpr int kShadeLimit = kTile * kTile / 2;

int distance(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

// How far pixel (x, y) of `from` is from the closest colour within one pixel in `to`.
int nearest(const QImage& from, const QImage& to, int x, int y) {
    const QRgb colour = reinterpret_cast<const QRgb*>(from.constScanLine(y))[x];
    int best = 255;
    for (int row = std::max(0, y - 1); row <= std::min(to.height() - 1, y + 1); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(to.constScanLine(row));
        for (int column = std::max(0, x - 1); column <= std::min(to.width() - 1, x + 1); ++column) {
            best = std::min(best, distance(colour, line[column]));
        }
    }
    return best;
}

// Each pixel the mean of it and its neighbours: a glyph edge or a rule that falls half a pixel
// further changes a grey step or two, not a whole pixel from ink to paper.
QImage blurred(const QImage& image) {
    QImage result(image.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            int red = 0;
            int green = 0;
            int blue = 0;
            int count = 0;
            for (int row = std::max(0, y - 1); row <= std::min(image.height() - 1, y + 1); ++row) {
                const auto* source = reinterpret_cast<const QRgb*>(image.constScanLine(row));
                for (int column = std::max(0, x - 1); column <= std::min(image.width() - 1, x + 1);
                     ++column) {
                    red += qRed(source[column]);
                    green += qGreen(source[column]);
                    blue += qBlue(source[column]);
                    ++count;
                }
            }
            line[x] = qRgb(red / count, green / count, blue / count);
        }
    }
    return result;
}

// Both ways: a mark that is only in the reference counts as much as one only on the page.
QImage distances(const QImage& actual, const QImage& reference) {
    QImage result(actual.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < actual.height(); ++y) {
        uchar* line = result.scanLine(y);
        for (int x = 0; x < actual.width(); ++x) {
            line[x] =
                uchar(std::max(nearest(actual, reference, x, y), nearest(reference, actual, x, y)));
        }
    }
    return result;
}

bool fails(const QImage& distances, const QRect& tile) {
    int marks = 0;
    int shades = 0;
    for (int y = tile.top(); y <= tile.bottom(); ++y) {
        const uchar* line = distances.constScanLine(y);
        for (int x = tile.left(); x <= tile.right(); ++x) {
            marks += line[x] > kMarkLevel;
            shades += line[x] > kShadeLevel;
        }
    }
    return marks > kMarkLimit || shades > kShadeLimit;
}

}  // namespace

Difference compare(const QImage& actual, const QImage& reference) {
    Difference result{actual.size(), reference.size(), {}, {}};
    if (actual.size() != reference.size()) {
        return result;
    }
    result.distances = distances(blurred(actual.convertToFormat(QImage::Format_RGB32)),
                                 blurred(reference.convertToFormat(QImage::Format_RGB32)));
    const QRect page = actual.rect();
    for (int y = 0; y < page.height(); y += kTile) {
        for (int x = 0; x < page.width(); x += kTile) {
            const QRect tile = QRect(x, y, kTile, kTile) & page;
            if (fails(result.distances, tile)) {
                result.tiles.append(tile);
            }
        }
    }
    return result;
}

QImage differencePicture(const QImage& reference, const Difference& difference) {
    QImage picture = reference.convertToFormat(QImage::Format_RGB32);
    if (difference.distances.isNull()) {
        return picture;
    }
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const uchar* apart = difference.distances.constScanLine(y);
        for (int x = 0; x < picture.width(); ++x) {
            const int faded = 255 - (255 - qGray(line[x])) / 4;
            line[x] = apart[x] > kMarkLevel    ? qRgb(230, 0, 0)
                      : apart[x] > kShadeLevel ? qRgb(255, 160, 0)
                                               : qRgb(faded, faded, faded);
        }
    }
    QPainter painter(&picture);
    painter.setPen(QColor(230, 0, 0));
    for (const QRect& tile : difference.tiles) {
        painter.drawRect(tile.adjusted(0, 0, -1, -1));
    }
    return picture;
}

}  // namespace pages
