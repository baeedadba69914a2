#include "store/StatementTexts.h"

namespace sqltext {

QString textColumnLength(const QString& table, const QString& column, qint16 length) {
    return "ALTER TABLE " + table + " ALTER COLUMN " + column + " Text(" + QString::number(length) +
           ")";
}

QString newColumn(const QString& table, const QString& column, qint32 kind, qint16 length) {
    switch (kind) {
        case 1:
            return "ALTER TABLE " + table + " ADD COLUMN " + column + " TEXT(" +
                   QString::number(length) + ")";
        case 2:
            return "ALTER TABLE " + table + " ADD COLUMN (" + column + ", NUMBER(" +
                   QString::number(length) + "))";
        case 5:
            return "ALTER TABLE " + table + " ADD COLUMN " + column + " YESNO;";
        default:
            return QString();
    }
}

QString dropColumn(const QString& table, const QString& column) {
    // The lone closing parenthesis is part of the statement as it has always been sent.
    return "ALTER TABLE " + table + " DROP " + column + ")";
}

QString newLookupTable(const QString& name) {
    return "CREATE TABLE " + name + "(" + name + "ID   AUTOINCREMENT, " + "Weergeven YESNO, " +
           "Naam      TEXT(15), " + "Lengte    NUMBER , " + "Nummer    NUMBER , " +
           "PRIMARY KEY (" + name + "ID))";
}

QString stockUpdate(qint32 artikelId, qint32 aantal, bool optellen) {
    const QString value =
        optellen ? QString("Voorraad+" + QString::number(aantal)) : QString::number(aantal);
    return "Update Artikel SET Voorraad=" + value +
           " WHERE ArtikelID=" + QString::number(artikelId);
}

}  // namespace sqltext
