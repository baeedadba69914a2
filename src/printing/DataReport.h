#pragma once

#include <QString>
#include <memory>

#include "printing/ReportData.h"
#include "printing/ReportLayout.h"
#include "printing/ReportModel.h"
#include "printing/ReportPresenter.h"

class Recordset;

// A banded report made from its report file and bound to a record set, as the templates and
// the overviews are: its controls can be found by name and changed before it is shown, and
// it shows itself through the installed presenter.
class DataReport {
public:
    // Reads resources' reports/<name>.rpt; raises Error when the file is missing or invalid.
    explicit DataReport(const QString& name);
    virtual ~DataReport();
    DataReport(const DataReport&) = delete;
    DataReport& operator=(const DataReport&) = delete;

    const QString& name() const { return design_.name; }

    // The first control of any band whose Name is name; nullptr when there is none.
    report::Item* GeefControl(const QString& name);

    // The width of the page area, in twips.
    double ReportWidth() const { return design_.reportWidth; }
    float TopMargin() const { return float(design_.topMargin); }
    float BottomMargin() const { return float(design_.bottomMargin); }
    void setTopMargin(float twips) { design_.topMargin = twips; }
    void setBottomMargin(float twips) { design_.bottomMargin = twips; }

    void setDataSource(std::shared_ptr<Recordset> set) { dataSource_ = std::move(set); }
    const std::shared_ptr<Recordset>& DataSource() const { return dataSource_; }

    // The report's pages from the rows of its data source (read from the first row on); a
    // report without a data source has no rows.
    report::Document document() const;

    // Shows the report through the presenter; the document's title is titel() of the data.
    void Show();
    bool Visible() const { return visible_; }
    void setVisible(bool visible);

    report::Report& design() { return design_; }
    const report::Report& design() const { return design_; }

protected:
    virtual QString titel(const report::ReportData& data) const;

private:
    report::Report design_;
    std::shared_ptr<Recordset> dataSource_;
    std::shared_ptr<report::ShownReport> shown_;
    bool visible_ = true;
};
