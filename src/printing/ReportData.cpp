#include "printing/ReportData.h"

#include "store/Recordset.h"

namespace report {

void Columns::add(const QString& name, const QString& table) {
    names_.append(name);
    tables_.append(table);
}

int Columns::indexOf(const QString& name) const {
    const qsizetype dot = name.indexOf(u'.');
    const QStringView bare = dot < 0 ? QStringView(name) : QStringView(name).mid(dot + 1);
    const QStringView table = dot < 0 ? QStringView() : QStringView(name).left(dot);
    for (int i = 0; i < size(); ++i) {
        if (names_[i].compare(bare, Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (dot < 0 || tables_[i].compare(table, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    return -1;
}

namespace {

void addColumns(Columns& columns, const Recordset& set) {
    for (int i = 0; i < set.fieldCount(); ++i) {
        columns.add(set.field(i).name, set.field(i).table);
    }
}

void appendValues(Row& row, const Recordset& set) {
    for (int i = 0; i < set.fieldCount(); ++i) {
        row.append(set.value(i));
    }
}

// A detail row: its own values, then those of the first row of each of its child sets.
Row detailRow(Recordset& set, const QStringList& children, int width) {
    Row row;
    row.reserve(width);
    appendValues(row, set);
    for (const QString& name : children) {
        Recordset& child = set.child(name);
        if (child.isEOF()) {
            for (int i = 0; i < child.fieldCount(); ++i) {
                row.append(QVariant());
            }
        } else {
            appendValues(row, child);
        }
    }
    return row;
}

}  // namespace

ReportData ReportData::fromFlat(Recordset& set) {
    ReportData data;
    auto columns = std::make_shared<Columns>();
    addColumns(*columns, set);
    data.detailColumns = columns;
    Group group;
    for (; !set.isEOF(); set.moveNext()) {
        Row row;
        row.reserve(columns->size());
        appendValues(row, set);
        group.details.append(std::move(row));
    }
    data.groups.append(std::move(group));
    return data;
}

ReportData ReportData::fromShape(Recordset& set, const QString& childName) {
    ReportData data;
    auto heads = std::make_shared<Columns>();
    addColumns(*heads, set);
    data.headColumns = heads;
    std::shared_ptr<Columns> details;
    QStringList grandChildren;
    for (; !set.isEOF(); set.moveNext()) {
        Group group;
        appendValues(group.head, set);
        Recordset& lines = set.child(childName);
        if (!details) {  // the columns are known once the first child set is there
            details = std::make_shared<Columns>();
            addColumns(*details, lines);
            grandChildren = lines.childNames();
        }
        for (; !lines.isEOF(); lines.moveNext()) {
            if (details->size() == lines.fieldCount() && !grandChildren.isEmpty()) {
                for (const QString& name : grandChildren) {
                    addColumns(*details, lines.child(name));
                }
            }
            group.details.append(detailRow(lines, grandChildren, details->size()));
        }
        data.groups.append(std::move(group));
    }
    if (details) {
        data.detailColumns = details;
    }
    return data;
}

qsizetype ReportData::detailCount() const {
    qsizetype count = 0;
    for (const Group& group : groups) {
        count += group.details.size();
    }
    return count;
}

}  // namespace report
