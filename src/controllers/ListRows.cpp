#include "controllers/ListRows.h"

#include <algorithm>

#include "base/UiService.h"

QString listRow(std::initializer_list<QString> cells) {
    qsizetype length = qsizetype(cells.size());
    for (const QString& cell : cells) {
        length += cell.size();
    }
    QString row;
    row.reserve(length);
    bool first = true;
    for (const QString& cell : cells) {
        if (!first) {
            row += u'\t';
        }
        first = false;
        const qsizetype start = row.size();
        row += cell;
        std::replace(row.begin() + start, row.end(), QChar(u'\t'), QChar(u' '));
    }
    return row;
}

bool confirmRemoval(qsizetype count, const QString& singular, const QString& plural) {
    return ui::message(count == 1 ? singular : plural, QStringLiteral("Verwijderen module(n)"),
                       ui::Icon::Question, ui::Buttons::YesNo, ui::Answer::No) == ui::Answer::Yes;
}

bool confirmArticleRemoval(qsizetype count) {
    return confirmRemoval(
        count, QStringLiteral("Weet u zeker dat u het geselecteerde artikel/uur wilt verwijderen?"),
        QStringLiteral("Weet u zeker dat u de geselecteerde artikelen/uren wilt verwijderen?"));
}
