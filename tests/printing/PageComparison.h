#pragma once

#include <QImage>
#include <QList>
#include <QRect>

// A printed page, rasterised, held against the picture of how it looked when someone last
// checked it. The page is judged in tiles of 16 × 16 pixels (4 mm at 100 dpi), as a reader
// would notice a change: a pixel counts only by how far it is from the closest colour within
// one pixel of its place in the other picture, so anti-aliasing and a mark that lands a pixel
// further (a sub-pixel rounding) pass, while a moved block, a missing line, another font or
// another shade do not.
namespace pages {

struct Difference {
    QSize actualSize;
    QSize referenceSize;
    QImage distances;    // per pixel, 0 (the same) to 255; null when the sizes differ
    QList<QRect> tiles;  // the tiles that fail, in pixels, from top to bottom

    bool same() const { return actualSize == referenceSize && tiles.isEmpty(); }
};

Difference compare(const QImage& actual, const QImage& reference);

// The reference faded to grey, every differing pixel in red (a mark) or orange (a shade),
// and every failing tile framed: what a developer opens to see what moved.
QImage differencePicture(const QImage& reference, const Difference& difference);

}  // namespace pages
