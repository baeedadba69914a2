#include "controllers/ListRows.h"

#include "base/UiService.h"

QString listRow(std::initializer_list<QString> cells) {
    QString row;
    bool first = true;
    for (const QString& cell : cells) {
        if (!first) {
            row += u'\t';
        }
        first = false;
        row += cell.contains(u'\t') ? QString(cell).replace(u'\t', u' ') : cell;
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
