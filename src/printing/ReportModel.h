#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <array>

// A banded report as its file describes it. Every length is in twips (1/1440 inch), the unit
// the margins and ReportWidth of the program are given in; positions within a band are
// measured from the band's top left corner at the left margin.
namespace report {

constexpr double kTwipsPerMillimetre = 1440.0 / 25.4;
constexpr double kTwipsPerPoint = 20.0;

enum class BandKind {
    ReportHeader,  // once, at the top of the first page
    PageHeader,    // at the top of every page
    GroupHeader,   // once per group (an invoice)
    ColumnHeader,  // after the group header and again at the top of each page the group runs onto
    Detail,        // once per detail row (an invoice line, a register row)
    GroupFooter,   // once per group, after its last detail
    PageFooter,    // at the foot of every page
    ReportFooter,  // once, after the last group
};
constexpr int kBandCount = 8;

enum class ItemKind { Label, Field, Sum, Line, Box, Image, PageNumber };

// How a bound value is shown.
enum class Format {
    Text,     // as it stands; numbers in plain regional form
    Amount,   // "€" #.##0,00
    Number,   // at most two decimals, no grouping: 2, 1,5
    Percent,  // a number followed by "%"
    Date,     // dd-mm-yyyy
};

struct FontSpec {
    QString family;
    double size = 9;  // points
    bool bold = false;
    bool italic = false;

    bool operator==(const FontSpec&) const = default;
};

struct Item {
    ItemKind kind = ItemKind::Label;
    QString name;    // the control's Name, for GeefControl
    QRectF rect;     // within its band
    QString text;    // caption of a label; prefix of a page number
    QString source;  // bound column of a field or sum
    Format format = Format::Text;
    Qt::Alignment alignment = Qt::AlignLeft;
    FontSpec font;
    bool wrap = false;     // text that breaks over lines within its rectangle
    double penWidth = 15;  // lines and box borders
    QString fill;          // box fill colour, "#rrggbb"; empty: none
    QString color;         // of a line or a box border; empty: black
    bool zoom = false;     // image scaled to fit, keeping its proportions
    QImage image;
    bool visible = true;
};

struct Band {
    bool present = false;
    double height = 0;
    bool newPage = false;  // a group header that always starts a page of its own
    QList<Item> items;
};

struct Report {
    QString name;
    QString title;  // of the window and of a saved file; the name when there is none
    QString fileName;
    QSizeF paper{11906, 16838};  // A4
    double leftMargin = 1134, rightMargin = 1134, topMargin = 567, bottomMargin = 567;
    double reportWidth = 9638;  // the page area's width
    FontSpec baseFont;          // the size the template's body text is designed in
    std::array<Band, kBandCount> bands;

    Band& band(BandKind kind) { return bands[int(kind)]; }
    // The first item of any band with that name; nullptr when there is none.
    Item* item(const QString& name) {
        for (Band& band : bands) {
            for (Item& item : band.items) {
                if (item.name == name) {
                    return &item;
                }
            }
        }
        return nullptr;
    }
    const Band& band(BandKind kind) const { return bands[int(kind)]; }
};

}  // namespace report
