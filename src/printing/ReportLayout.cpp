#include "printing/ReportLayout.h"

#include <QHash>

#include "base/Currency.h"
#include "base/Error.h"
#include "printing/ValueFormat.h"

namespace report {

namespace {

constexpr double kEpsilon = 0.5;  // twips: rounding in the files' millimetres

// The sums of a group (or of the whole report) over the detail rows, exact for money.
class Sums {
public:
    Sums(const Columns& columns, const QList<const Group*>& groups)
        : columns_(columns), groups_(groups) {}

    QVariant of(const QString& source) {
        const auto found = cache_.constFind(source);
        if (found != cache_.cend()) {
            return *found;
        }
        const int index = columns_.indexOf(source);
        if (index < 0) {
            throw Error(Error::ItemNotFound, QStringLiteral("report"),
                        QStringLiteral("Item cannot be found in the collection: ") + source);
        }
        Currency money;
        double number = 0;
        bool isMoney = true;
        for (const Group* group : groups_) {
            for (const Row& row : group->details) {
                const QVariant& value = row[index];
                if (!value.isValid()) {
                    continue;
                }
                if (value.userType() == qMetaTypeId<Currency>()) {
                    money += value.value<Currency>();
                } else {
                    isMoney = false;
                    number += value.toDouble();
                }
            }
        }
        const QVariant sum =
            isMoney ? QVariant::fromValue(money) : QVariant(number + money.toDouble());
        cache_.insert(source, sum);
        return sum;
    }

private:
    const Columns& columns_;
    QList<const Group*> groups_;
    QHash<QString, QVariant> cache_;
};

class Paginator {
public:
    Paginator(const Report& report, const ReportData& data) : report_(report), data_(data) {
        bottom_ = report.paper.height() - report.bottomMargin - band(BandKind::PageFooter).height;
    }

    Document run() {
        Document document;
        document.title = report_.title.isEmpty() ? report_.name : report_.title;
        document.paper = report_.paper;
        const Group none;
        group_ = data_.groups.isEmpty() ? &none : &data_.groups.first();
        QList<const Group*> all;
        for (const Group& group : data_.groups) {
            all.append(&group);
        }
        Sums reportSums(*data_.detailColumns, all);
        reportSums_ = &reportSums;

        startPage(false);
        place(BandKind::ReportHeader);
        for (const Group& group : data_.groups) {
            printGroup(group);
        }
        placeKept(BandKind::ReportFooter);
        finishPages();
        numberPages();
        document.pages = std::move(pages_);
        return document;
    }

private:
    const Band& band(BandKind kind) const { return report_.band(kind); }
    double height(BandKind kind) const { return band(kind).present ? band(kind).height : 0; }

    void printGroup(const Group& group) {
        group_ = &group;
        Sums sums(*data_.detailColumns, {&group});
        groupSums_ = &sums;
        if (band(BandKind::GroupHeader).newPage && !pageIsFresh()) {
            startPage(false);
        }
        // The head of a group is not left alone at the foot of a page: it keeps its first row.
        const double firstDetail = group.details.isEmpty() ? 0 : height(BandKind::Detail);
        if (!fits(height(BandKind::GroupHeader) + height(BandKind::ColumnHeader) + firstDetail)) {
            startPage(false);
        }
        place(BandKind::GroupHeader);
        place(BandKind::ColumnHeader);
        groupStartY_ = y_;
        for (const Row& row : group.details) {
            // The totals never stand on a page alone: the last line goes over with them,
            // unless the two would not fit on any page.
            const double withFoot = height(BandKind::Detail) + height(BandKind::GroupFooter);
            const bool last = &row == &group.details.last();
            const double needed =
                last && withFoot <= continuationRoom() ? withFoot : height(BandKind::Detail);
            if (!fits(needed) && !pageHasOnlyHeads()) {
                startPage(true);
            }
            detail_ = &row;
            place(BandKind::Detail);
            detail_ = nullptr;
        }
        placeKept(BandKind::GroupFooter);
        groupSums_ = nullptr;
    }

    // The room for lines on a page a group runs onto.
    double continuationRoom() const {
        return bottom_ - report_.topMargin - height(BandKind::PageHeader) -
               height(BandKind::ColumnHeader);
    }

    bool fits(double needed) const { return y_ + needed <= bottom_ + kEpsilon; }
    bool pageIsFresh() const { return y_ <= freshY_ + kEpsilon; }
    // Nothing on the page yet but its header and the group's head and captions.
    bool pageHasOnlyHeads() const { return y_ <= groupStartY_ + kEpsilon; }

    // A band that does not fit goes to the next page; one taller than a whole page is
    // placed on a fresh page all the same, and what runs past the paper is not seen.
    void placeKept(BandKind kind) {
        if (!band(kind).present) {
            return;
        }
        if (!fits(band(kind).height) && !pageIsFresh()) {
            startPage(false);
        }
        place(kind);
    }

    void startPage(bool continuingGroup) {
        pages_.append(Page());
        y_ = report_.topMargin;
        place(BandKind::PageHeader);
        if (continuingGroup) {
            place(BandKind::ColumnHeader);
        }
        freshY_ = y_;
        groupStartY_ = y_;
    }

    void finishPages() {
        const Band& footer = band(BandKind::PageFooter);
        if (!footer.present) {
            return;
        }
        for (int i = 0; i < pages_.size(); ++i) {
            drawBand(footer, pages_[i],
                     report_.paper.height() - report_.bottomMargin - footer.height);
        }
    }

    void numberPages() {
        const QString count = QString::number(pages_.size());
        for (int i = 0; i < pages_.size(); ++i) {
            for (DrawItem& item : pages_[i].items) {
                if (!item.pageNumber) {
                    continue;
                }
                item.text.replace(QLatin1String("{count}"), count);
                item.text.replace(QLatin1String("{}"), QString::number(i + 1));
                item.pageNumber = false;
            }
        }
    }

    void place(BandKind kind) {
        const Band& b = band(kind);
        if (!b.present) {
            return;
        }
        drawBand(b, pages_.last(), y_);
        y_ += b.height;
    }

    void drawBand(const Band& b, Page& page, double top) {
        for (const Item& item : b.items) {
            if (!item.visible) {
                continue;
            }
            DrawItem draw;
            draw.rect = item.rect.translated(report_.leftMargin, top);
            switch (item.kind) {
                case ItemKind::Line:
                    draw.kind = DrawItem::Kind::Line;
                    draw.penWidth = item.penWidth;
                    draw.color = item.color;
                    break;
                case ItemKind::Box:
                    draw.kind = DrawItem::Kind::Box;
                    draw.penWidth = item.penWidth;
                    draw.fill = item.fill;
                    draw.color = item.color;
                    break;
                case ItemKind::Image:
                    if (item.image.isNull()) {
                        continue;
                    }
                    draw.kind = DrawItem::Kind::Image;
                    draw.image = item.image;
                    draw.zoom = item.zoom;
                    draw.alignment = item.alignment;
                    break;
                default:
                    draw.text = text(item);
                    if (draw.text.isEmpty()) {
                        continue;
                    }
                    draw.font = item.font;
                    draw.alignment = item.alignment;
                    draw.wrap = item.wrap;
                    draw.pageNumber = item.kind == ItemKind::PageNumber;
                    break;
            }
            page.items.append(std::move(draw));
        }
    }

    QString text(const Item& item) {
        switch (item.kind) {
            case ItemKind::Label:
                return item.text;
            case ItemKind::PageNumber:
                return item.text.contains(QLatin1String("{}")) ? item.text
                                                               : item.text + QStringLiteral("{}");
            case ItemKind::Sum:
                return formatValue((groupSums_ ? groupSums_ : reportSums_)->of(item.source),
                                   item.format);
            default: {
                const QString shown = formatValue(value(item.source), item.format);
                return item.text.isEmpty() ? shown
                                           : QString(item.text).replace(QLatin1String("{}"), shown);
            }
        }
    }

    // A detail band reads its own row first, then the head of its group.
    QVariant value(const QString& source) {
        if (detail_) {
            const int index = indexIn(*data_.detailColumns, detailIndex_, source);
            if (index >= 0) {
                return (*detail_)[index];
            }
        }
        if (data_.groups.isEmpty()) {
            return QVariant();  // an empty report has nothing to bind
        }
        const int index = indexIn(*data_.headColumns, headIndex_, source);
        if (index >= 0 && index < group_->head.size()) {
            return group_->head[index];
        }
        if (index >= 0) {
            return QVariant();
        }
        throw Error(Error::ItemNotFound, QStringLiteral("report"),
                    QStringLiteral("Item cannot be found in the collection: ") + source);
    }

    static int indexIn(const Columns& columns, QHash<QString, int>& cache, const QString& name) {
        auto found = cache.constFind(name);
        if (found == cache.cend()) {
            found = cache.insert(name, columns.indexOf(name));
        }
        return *found;
    }

    const Report& report_;
    const ReportData& data_;
    QHash<QString, int> headIndex_, detailIndex_;
    QList<Page> pages_;
    double y_ = 0, freshY_ = 0, groupStartY_ = 0, bottom_ = 0;
    const Group* group_ = nullptr;
    const Row* detail_ = nullptr;
    Sums* groupSums_ = nullptr;
    Sums* reportSums_ = nullptr;
};

}  // namespace

Document layOut(const Report& report, const ReportData& data) {
    return Paginator(report, data).run();
}

}  // namespace report
