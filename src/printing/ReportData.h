#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class Recordset;

// The first step of a report: its rows, taken from the engine's record sets and held in
// memory, grouped as the bands print them. A flat set gives one group without a head whose
// details are the rows; a hierarchical (SHAPE) set gives one group per parent row with the
// rows of the named child set as details, each detail joined with the first row of its own
// child sets (an invoice line with its article).
namespace report {

// The columns of one level. Names are found without regard to case, bare ("Adres": the
// first column of that name) or qualified by their table ("Klant.Adres").
class Columns {
public:
    void add(const QString& name, const QString& table);
    int indexOf(const QString& name) const;  // -1 when there is none
    int size() const { return int(names_.size()); }

private:
    QStringList names_;
    QStringList tables_;
};

using Row = QList<QVariant>;

struct Group {
    Row head;
    QList<Row> details;
};

class ReportData {
public:
    std::shared_ptr<const Columns> headColumns = std::make_shared<Columns>();
    std::shared_ptr<const Columns> detailColumns = std::make_shared<Columns>();
    QList<Group> groups;

    // Every row of a flat set as the details of one group.
    static ReportData fromFlat(Recordset& set);
    // One group per row of the set, with the rows of its child set childName as details.
    static ReportData fromShape(Recordset& set, const QString& childName);

    qsizetype detailCount() const;
};

}  // namespace report
