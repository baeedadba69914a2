#include "printing/ReportFile.h"

#include <QColor>
#include <QFile>
#include <QHash>
#include <QSet>

#include "base/Error.h"

// The report files are compiled into this static library; their resource must be registered
// by name, outside any namespace.
static void registerReportFiles() {
    static const bool registered = [] {
        Q_INIT_RESOURCE(reports);
        return true;
    }();
    (void)registered;
}

namespace report {

namespace {

struct Fault {
    QString text;
};

// One line split into its words: bare words, key=value and key="quoted value".
struct Statement {
    QString keyword;
    QHash<QString, QString> values;
    QSet<QString> flags;
    QSet<QString> used;

    bool has(const QString& key) const { return values.contains(key); }
    QString take(const QString& key) {
        used.insert(key);
        return values.value(key);
    }
    bool flag(const QString& name) {
        used.insert(name);
        return flags.contains(name);
    }
    void finish() const {
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            if (!used.contains(it.key())) {
                throw Fault{QStringLiteral("onbekende eigenschap '%1'").arg(it.key())};
            }
        }
        for (const QString& word : flags) {
            if (!used.contains(word)) {
                throw Fault{QStringLiteral("onbekend woord '%1'").arg(word)};
            }
        }
    }
};

Statement split(const QString& line) {
    Statement statement;
    qsizetype at = 0;
    const qsizetype size = line.size();
    bool first = true;
    while (at < size) {
        while (at < size && line[at].isSpace()) {
            ++at;
        }
        if (at >= size) {
            break;
        }
        qsizetype end = at;
        while (end < size && !line[end].isSpace() && line[end] != u'=') {
            ++end;
        }
        const QString word = line.mid(at, end - at);
        at = end;
        if (at < size && line[at] == u'=') {
            ++at;
            QString value;
            if (at < size && line[at] == u'"') {
                const qsizetype close = line.indexOf(u'"', at + 1);
                if (close < 0) {
                    throw Fault{QStringLiteral("aanhalingsteken niet gesloten")};
                }
                value = line.mid(at + 1, close - at - 1);
                at = close + 1;
            } else {
                end = at;
                while (end < size && !line[end].isSpace()) {
                    ++end;
                }
                value = line.mid(at, end - at);
                at = end;
            }
            if (statement.values.contains(word)) {
                throw Fault{QStringLiteral("eigenschap '%1' staat er twee keer").arg(word)};
            }
            statement.values.insert(word, value);
        } else if (first) {
            statement.keyword = word;
        } else {
            statement.flags.insert(word);
        }
        first = false;
    }
    return statement;
}

double number(const QString& text, const QString& key) {
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || value < 0) {
        throw Fault{QStringLiteral("'%1' is geen geldig getal voor %2").arg(text, key)};
    }
    return value;
}

double millimetres(Statement& statement, const QString& key) {
    if (!statement.has(key)) {
        throw Fault{QStringLiteral("eigenschap '%1' ontbreekt").arg(key)};
    }
    return number(statement.take(key), key) * kTwipsPerMillimetre;
}

QPointF pair(Statement& statement, const QString& key) {
    if (!statement.has(key)) {
        throw Fault{QStringLiteral("eigenschap '%1' ontbreekt").arg(key)};
    }
    const QString text = statement.take(key);
    const QStringList parts = text.split(u',');
    if (parts.size() != 2) {
        throw Fault{QStringLiteral("'%1' is geen paar getallen (x,y) voor %2").arg(text, key)};
    }
    return QPointF(number(parts[0], key), number(parts[1], key)) * kTwipsPerMillimetre;
}

const QHash<QString, BandKind>& bandKinds() {
    static const QHash<QString, BandKind> kinds{
        {QStringLiteral("reportHeader"), BandKind::ReportHeader},
        {QStringLiteral("pageHeader"), BandKind::PageHeader},
        {QStringLiteral("groupHeader"), BandKind::GroupHeader},
        {QStringLiteral("columnHeader"), BandKind::ColumnHeader},
        {QStringLiteral("detail"), BandKind::Detail},
        {QStringLiteral("groupFooter"), BandKind::GroupFooter},
        {QStringLiteral("pageFooter"), BandKind::PageFooter},
        {QStringLiteral("reportFooter"), BandKind::ReportFooter},
    };
    return kinds;
}

const QHash<QString, ItemKind>& itemKinds() {
    static const QHash<QString, ItemKind> kinds{
        {QStringLiteral("label"), ItemKind::Label},     {QStringLiteral("field"), ItemKind::Field},
        {QStringLiteral("sum"), ItemKind::Sum},         {QStringLiteral("line"), ItemKind::Line},
        {QStringLiteral("box"), ItemKind::Box},         {QStringLiteral("image"), ItemKind::Image},
        {QStringLiteral("page"), ItemKind::PageNumber},
    };
    return kinds;
}

Format format(const QString& text) {
    static const QHash<QString, Format> formats{
        {QStringLiteral("text"), Format::Text},     {QStringLiteral("amount"), Format::Amount},
        {QStringLiteral("number"), Format::Number}, {QStringLiteral("percent"), Format::Percent},
        {QStringLiteral("date"), Format::Date},
    };
    if (!formats.contains(text)) {
        throw Fault{QStringLiteral("onbekend formaat '%1'").arg(text)};
    }
    return formats.value(text);
}

QString colour(const QString& text) {
    if (!QColor::isValidColorName(text)) {
        throw Fault{QStringLiteral("'%1' is geen kleur").arg(text)};
    }
    return text;
}

Qt::Alignment alignment(const QString& text) {
    if (text == QLatin1String("left")) {
        return Qt::AlignLeft;
    }
    if (text == QLatin1String("right")) {
        return Qt::AlignRight;
    }
    if (text == QLatin1String("center")) {
        return Qt::AlignHCenter;
    }
    throw Fault{QStringLiteral("onbekende uitlijning '%1'").arg(text)};
}

// The font of an item: the report's, changed by what the item says.
FontSpec font(Statement& statement, FontSpec base) {
    if (statement.has(QStringLiteral("font"))) {
        base.family = statement.take(QStringLiteral("font"));
    }
    if (statement.has(QStringLiteral("pt"))) {
        base.size = number(statement.take(QStringLiteral("pt")), QStringLiteral("pt"));
        if (base.size <= 0) {
            throw Fault{QStringLiteral("een lettergrootte moet groter dan 0 zijn")};
        }
    }
    base.bold = statement.flag(QStringLiteral("bold"));
    base.italic = statement.flag(QStringLiteral("italic"));
    return base;
}

bool isText(ItemKind kind) {
    return kind == ItemKind::Label || kind == ItemKind::Field || kind == ItemKind::Sum ||
           kind == ItemKind::PageNumber;
}

Item item(Statement& statement, const Report& report) {
    Item item;
    item.kind = itemKinds().value(statement.keyword);
    item.name = statement.take(QStringLiteral("name"));
    const QPointF at = pair(statement, QStringLiteral("at"));
    const QPointF size = pair(statement, QStringLiteral("size"));
    item.rect = QRectF(at, QSizeF(size.x(), size.y()));
    if (isText(item.kind)) {
        item.font = font(statement, report.baseFont);
        item.alignment = statement.has(QStringLiteral("align"))
                             ? alignment(statement.take(QStringLiteral("align")))
                             : Qt::AlignLeft;
        item.wrap = statement.flag(QStringLiteral("wrap"));
    }
    switch (item.kind) {
        case ItemKind::Label:
            if (!statement.has(QStringLiteral("text"))) {
                throw Fault{QStringLiteral("een label heeft een text")};
            }
            item.text = statement.take(QStringLiteral("text"));
            break;
        case ItemKind::Field:
        case ItemKind::Sum:
            item.source = statement.take(QStringLiteral("source"));
            if (item.source.isEmpty()) {
                throw Fault{QStringLiteral("een %1 heeft een source").arg(statement.keyword)};
            }
            if (statement.has(QStringLiteral("format"))) {
                item.format = format(statement.take(QStringLiteral("format")));
            }
            if (item.kind == ItemKind::Field && statement.has(QStringLiteral("text"))) {
                item.text = statement.take(QStringLiteral("text"));
                if (!item.text.contains(QLatin1String("{}"))) {
                    throw Fault{QStringLiteral("de text van een field bevat {} voor de waarde")};
                }
            }
            break;
        case ItemKind::PageNumber:
            item.text = statement.take(QStringLiteral("text"));
            break;
        case ItemKind::Line:
        case ItemKind::Box:
            if (statement.has(QStringLiteral("pen"))) {
                item.penWidth =
                    number(statement.take(QStringLiteral("pen")), QStringLiteral("pen")) *
                    kTwipsPerMillimetre;
            }
            if (item.kind == ItemKind::Box && statement.has(QStringLiteral("fill"))) {
                item.fill = colour(statement.take(QStringLiteral("fill")));
            }
            if (statement.has(QStringLiteral("color"))) {
                item.color = colour(statement.take(QStringLiteral("color")));
            }
            break;
        case ItemKind::Image:
            item.zoom = statement.flag(QStringLiteral("zoom"));
            if (statement.has(QStringLiteral("align"))) {
                item.alignment = alignment(statement.take(QStringLiteral("align")));
            }
            break;
    }
    return item;
}

void readHeader(Statement& statement, Report& report) {
    report.name = statement.take(QStringLiteral("name"));
    report.title = statement.take(QStringLiteral("title"));
    if (report.name.isEmpty()) {
        throw Fault{QStringLiteral("het rapport heeft een name")};
    }
    const QPointF paper = pair(statement, QStringLiteral("paper"));
    report.paper = QSizeF(paper.x(), paper.y());
    report.leftMargin = millimetres(statement, QStringLiteral("left"));
    report.reportWidth = millimetres(statement, QStringLiteral("width"));
    report.rightMargin = report.paper.width() - report.leftMargin - report.reportWidth;
    if (report.rightMargin < 0) {
        throw Fault{QStringLiteral("left + width is breder dan het papier")};
    }
    report.topMargin = millimetres(statement, QStringLiteral("top"));
    report.bottomMargin = millimetres(statement, QStringLiteral("bottom"));
    report.baseFont.family = statement.take(QStringLiteral("font"));
    if (report.baseFont.family.isEmpty()) {
        throw Fault{QStringLiteral("het rapport heeft een font")};
    }
    report.baseFont = font(statement, report.baseFont);
}

void checkInside(const Item& item, const Band& band, const Report& report) {
    const double slack = 1;  // a twip of rounding
    if (item.rect.right() > report.reportWidth + slack ||
        item.rect.bottom() > band.height + slack) {
        throw Fault{QStringLiteral("het element valt buiten zijn band of buiten de breedte")};
    }
}

}  // namespace

Report parseReport(const QString& text, const QString& fileName) {
    Report report;
    report.fileName = fileName;
    Band* band = nullptr;
    bool haveHeader = false;
    const QStringList lines = text.split(u'\n');
    for (int number = 1; number <= lines.size(); ++number) {
        const QString line = lines[number - 1].trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) {
            continue;
        }
        try {
            Statement statement = split(line);
            if (statement.keyword == QLatin1String("report")) {
                if (haveHeader) {
                    throw Fault{QStringLiteral("een tweede regel 'report'")};
                }
                readHeader(statement, report);
                haveHeader = true;
            } else if (!haveHeader) {
                throw Fault{QStringLiteral("het bestand begint niet met 'report'")};
            } else if (statement.keyword == QLatin1String("band")) {
                const QString kind = statement.take(QStringLiteral("kind"));
                if (!bandKinds().contains(kind)) {
                    throw Fault{QStringLiteral("onbekende band '%1'").arg(kind)};
                }
                band = &report.band(bandKinds().value(kind));
                if (band->present) {
                    throw Fault{QStringLiteral("band '%1' staat er twee keer").arg(kind)};
                }
                band->present = true;
                band->height = millimetres(statement, QStringLiteral("height"));
                band->newPage = statement.flag(QStringLiteral("newpage"));
            } else if (itemKinds().contains(statement.keyword)) {
                if (!band) {
                    throw Fault{QStringLiteral("een element voor de eerste band")};
                }
                band->items.append(item(statement, report));
                checkInside(band->items.last(), *band, report);
            } else {
                throw Fault{QStringLiteral("onbekend woord '%1'").arg(statement.keyword)};
            }
            statement.finish();
        } catch (const Fault& fault) {
            throw Error(Error::InvalidReportFile, QStringLiteral("report"),
                        QStringLiteral("Rapportbestand %1, regel %2: %3")
                            .arg(fileName)
                            .arg(number)
                            .arg(fault.text));
        }
    }
    if (!haveHeader) {
        throw Error(Error::InvalidReportFile, QStringLiteral("report"),
                    QStringLiteral("Rapportbestand %1: geen regel 'report'").arg(fileName));
    }
    const double usable = report.paper.height() - report.topMargin - report.bottomMargin;
    if (usable <= 0) {
        throw Error(
            Error::InvalidReportFile, QStringLiteral("report"),
            QStringLiteral("Rapportbestand %1: de marges laten geen ruimte over").arg(fileName));
    }
    return report;
}

Report loadReport(const QString& name) {
    registerReportFiles();
    const QString path = QStringLiteral(":/reports/") + name + QStringLiteral(".rpt");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        throw Error(Error::FileNotFound, QStringLiteral("report"),
                    QStringLiteral("Rapportbestand %1 niet gevonden").arg(name + ".rpt"));
    }
    return parseReport(QString::fromUtf8(file.readAll()), name + QStringLiteral(".rpt"));
}

}  // namespace report
