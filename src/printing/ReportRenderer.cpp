#include "printing/ReportRenderer.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFileInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRawFont>
#include <QSaveFile>
#include <QTextLayout>
#include <optional>
#include <unordered_map>

namespace report {

namespace {

class PageDrawer {
public:
    PageDrawer(QPainter& painter, double dotsPerTwipX, double dotsPerTwipY)
        : painter_(painter), sx_(dotsPerTwipX), sy_(dotsPerTwipY) {}

    void draw(const Page& page) {
        for (const DrawItem& item : page.items) {
            if (item.kind != DrawItem::Kind::Text || item.wrap) {
                drawQueuedText();
            }
            switch (item.kind) {
                case DrawItem::Kind::Text:
                    drawText(item);
                    break;
                case DrawItem::Kind::Line:
                    painter_.setPen(pen(item.penWidth, item.color));
                    painter_.drawLine(map(item.rect.topLeft()), map(item.rect.bottomRight()));
                    break;
                case DrawItem::Kind::Box:
                    painter_.setPen(item.penWidth > 0 ? pen(item.penWidth, item.color)
                                                      : QPen(Qt::NoPen));
                    painter_.setBrush(item.fill.isEmpty() ? QBrush(Qt::NoBrush)
                                                          : QBrush(QColor(item.fill)));
                    painter_.drawRect(map(item.rect));
                    painter_.setBrush(Qt::NoBrush);
                    break;
                case DrawItem::Kind::Image:
                    drawImage(item);
                    break;
            }
        }
        drawQueuedText();
    }

private:
    QPointF map(const QPointF& twips) const { return QPointF(twips.x() * sx_, twips.y() * sy_); }
    QRectF map(const QRectF& twips) const {
        return QRectF(map(twips.topLeft()), map(twips.bottomRight()));
    }
    QPen pen(double widthTwips, const QString& color) const {
        QPen pen(color.isEmpty() ? QColor(Qt::black) : QColor(color), widthTwips * sx_);
        pen.setCapStyle(Qt::FlatCap);
        return pen;
    }

    // A line of text shaped once: its glyphs placed from the left end of its baseline.
    struct ShapedLine {
        QList<QGlyphRun> runs;
        double width = 0;
    };

    // A font, its measures and the lines already shaped in it. Invoices repeat most of their
    // texts (captions, the company's details, articles, dates), and shaping a text is the
    // dearest part of drawing it.
    struct Font {
        QFont font;
        QFontMetricsF metrics;
        std::unordered_map<QString, ShapedLine> lines;
    };

    // Enough for the distinct texts of a large batch of invoices; past it the cache starts
    // anew rather than growing with every amount printed.
    static constexpr std::size_t kShapedLinesPerFont = 20000;

    Font& font(const FontSpec& spec) {
        if (lastSpec_ && *lastSpec_ == spec) {
            return *lastFont_;
        }
        const QString key = spec.family + u'|' + QString::number(spec.size) + u'|' +
                            QChar(spec.bold ? u'b' : u'-') + QChar(spec.italic ? u'i' : u'-');
        auto found = fonts_.find(key);
        if (found == fonts_.end()) {
            QFont font(spec.family);
            font.setPointSizeF(spec.size);
            font.setBold(spec.bold);
            font.setItalic(spec.italic);
            found =
                fonts_.emplace(key, Font{font, QFontMetricsF(font, painter_.device()), {}}).first;
        }
        lastSpec_ = spec;
        lastFont_ = &found->second;
        return found->second;
    }

    const ShapedLine& shaped(Font& f, const QString& text) {
        const auto known = f.lines.find(text);
        if (known != f.lines.end()) {
            return known->second;
        }
        if (f.lines.size() >= kShapedLinesPerFont) {
            f.lines.clear();
        }
        return f.lines.emplace(text, shape(text, f.font)).first->second;
    }

    // The text as one line without wrapping, shaped as drawing it would shape it.
    ShapedLine shape(const QString& text, const QFont& font) const {
        QTextLayout layout(text, font, painter_.device());
        QTextOption option;
        option.setWrapMode(QTextOption::NoWrap);
        layout.setTextOption(option);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        layout.endLayout();
        ShapedLine shaped;
        if (!line.isValid()) {
            return shaped;
        }
        shaped.width = line.horizontalAdvance();
        // The runs come placed below the line's top; the baseline is what the caller knows.
        const QPointF toBaseline(0, -line.ascent());
        for (QGlyphRun run : line.glyphRuns()) {
            QList<QPointF> positions = run.positions();
            for (QPointF& position : positions) {
                position += toBaseline;
            }
            run.setPositions(positions);
            shaped.runs.append(std::move(run));
        }
        return shaped;
    }

    void drawText(const DrawItem& item) {
        Font& f = font(item.font);
        const QRectF rect = map(item.rect);
        if (item.wrap) {
            painter_.setPen(Qt::black);
            if (painter_.font() != f.font) {
                painter_.setFont(f.font);
            }
            painter_.drawText(rect, int(item.alignment | Qt::AlignTop | Qt::TextWordWrap),
                              item.text);
            return;
        }
        // One line, placed from its shaped width; too wide, it ends in an ellipsis.
        const QFontMetricsF& metrics = f.metrics;
        const ShapedLine* line = &shaped(f, item.text);
        if (line->width > rect.width()) {
            line = &shaped(f, metrics.elidedText(item.text, Qt::ElideRight, rect.width()));
        }
        double x = rect.left();
        if (item.alignment & Qt::AlignRight) {
            x = rect.right() - line->width;
        } else if (item.alignment & Qt::AlignHCenter) {
            x = rect.left() + (rect.width() - line->width) / 2;
        }
        const QPointF baseline(
            x, rect.top() + (rect.height() - metrics.height()) / 2 + metrics.ascent());
        for (const QGlyphRun& run : line->runs) {
            queue(run, baseline);
        }
    }

    // Lines of text in one font that follow each other on a page go to the device as one
    // run: in a PDF every run drawn opens a text object with its own state, about as large
    // as a short text itself, and all of it is compressed again.
    void queue(const QGlyphRun& run, const QPointF& at) {
        if (!queued_.glyphs.isEmpty() && queued_.font != run.rawFont()) {
            drawQueuedText();
        }
        queued_.font = run.rawFont();
        queued_.glyphs += run.glyphIndexes();
        for (const QPointF& position : run.positions()) {
            queued_.positions.append(position + at);
        }
    }

    void drawQueuedText() {
        if (queued_.glyphs.isEmpty()) {
            return;
        }
        QGlyphRun run;
        run.setRawFont(queued_.font);
        run.setGlyphIndexes(queued_.glyphs);
        run.setPositions(queued_.positions);
        painter_.setPen(Qt::black);
        painter_.drawGlyphRun(QPointF(), run);
        queued_.glyphs.clear();
        queued_.positions.clear();
    }

    // A zoomed picture fills its control as far as its proportions allow; any other is
    // drawn at its own size from the control's corner, cut off at the control's edge.
    void drawImage(const DrawItem& item) {
        const QRectF frame = map(item.rect);
        QSizeF size;
        if (item.zoom) {
            size = QSizeF(item.image.size()).scaled(frame.size(), Qt::KeepAspectRatio);
        } else {
            const double dpmX = item.image.dotsPerMeterX() > 0 ? item.image.dotsPerMeterX() : 2835;
            const double dpmY = item.image.dotsPerMeterY() > 0 ? item.image.dotsPerMeterY() : 2835;
            const double twipsPerMetre = 1440 / 0.0254;
            size = QSizeF(item.image.width() / dpmX * twipsPerMetre * sx_,
                          item.image.height() / dpmY * twipsPerMetre * sy_);
        }
        double x = frame.left();
        if (item.alignment & Qt::AlignRight) {
            x = frame.right() - size.width();
        } else if (item.alignment & Qt::AlignHCenter) {
            x = frame.left() + (frame.width() - size.width()) / 2;
        }
        painter_.save();
        painter_.setClipRect(frame);
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        painter_.drawImage(QRectF(QPointF(x, frame.top()), size), item.image);
        painter_.restore();
    }

    QPainter& painter_;
    double sx_, sy_;
    std::unordered_map<QString, Font> fonts_;
    std::optional<FontSpec> lastSpec_;
    Font* lastFont_ = nullptr;
    struct {
        QRawFont font;
        QList<quint32> glyphs;
        QList<QPointF> positions;
    } queued_;
};

// Flushes the folder so that a renamed file keeps its name after a power cut.
void flushFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                              O_RDONLY | O_DIRECTORY);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

}  // namespace

bool render(const Document& document, QPagedPaintDevice& device) {
    // A page size is portrait; a landscape paper is its portrait size turned.
    const bool landscape = document.paper.width() > document.paper.height();
    const QSizeF points = document.paper / 20;
    const QPageSize paper(landscape ? points.transposed() : points, QPageSize::Point, QString(),
                          QPageSize::FuzzyMatch);
    if (auto* printer = dynamic_cast<QPrinter*>(&device)) {
        printer->setFullPage(true);
    }
    device.setPageLayout(QPageLayout(
        paper, landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    PageDrawer drawer(painter, device.logicalDpiX() / 1440.0, device.logicalDpiY() / 1440.0);
    for (int i = 0; i < document.pages.size(); ++i) {
        if (i > 0 && !device.newPage()) {
            return false;
        }
        drawer.draw(document.pages[i]);
    }
    return painter.end();
}

bool writePdf(const Document& document, const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    {
        QPdfWriter writer(&file);
        writer.setResolution(1200);
        writer.setTitle(document.title);
        writer.setCreator(QStringLiteral("Lindebrug"));
        if (!render(document, writer)) {
            file.cancelWriting();
            return false;
        }
    }
    if (file.error() != QFileDevice::NoError || !file.commit()) {
        return false;
    }
    flushFolder(path);
    return true;
}

}  // namespace report
