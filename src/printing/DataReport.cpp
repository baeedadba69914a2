#include "printing/DataReport.h"

#include "printing/ReportData.h"
#include "printing/ReportFile.h"
#include "store/Recordset.h"

DataReport::DataReport(const QString& name) : design_(report::loadReport(name)) {}

DataReport::~DataReport() = default;

report::Item* DataReport::GeefControl(const QString& name) {
    return design_.item(name);
}

report::Document DataReport::document() const {
    report::ReportData data;
    if (dataSource_) {
        Recordset& set = *dataSource_;
        if (set.recordCount() != 0) {
            set.moveFirst();
        }
        const QStringList children = set.childNames();
        data = children.isEmpty() ? report::ReportData::fromFlat(set)
                                  : report::ReportData::fromShape(set, children.first());
    }
    report::Document document = report::layOut(design_, data);
    document.title = titel(data);
    return document;
}

QString DataReport::titel(const report::ReportData&) const {
    return design_.title.isEmpty() ? design_.name : design_.title;
}

void DataReport::Show() {
    visible_ = true;
    if (report::Presenter* presenter = report::presenter()) {
        shown_ = presenter->present(document());
    }
}

void DataReport::setVisible(bool visible) {
    visible_ = visible;
    if (!visible && shown_) {
        shown_->hide();
    }
}
