#pragma once

#include <QList>
#include <QObject>
#include <functional>
#include <memory>

#include "controllers/PrintViews.h"
#include "printing/ReportPresenter.h"

// One preview window of a report: the pages, printing them on the printer the user chooses
// and saving them as a PDF file.
class PreviewController : public IPreviewEvents, public report::ShownReport {
public:
    PreviewController(report::Document document, std::function<void(PreviewController*)> onClosed);
    ~PreviewController() override;

    void start();
    const report::Document& document() const { return document_; }

    void afdrukken() override;
    void opslaanAlsPdf() override;
    void gesloten() override;
    void hide() override;

private:
    report::Document document_;
    std::unique_ptr<IPreviewView> view_;
    std::function<void(PreviewController*)> onClosed_;
};

// Shows each report the program shows in a preview window of its own; a preview lives until
// its window is closed. The program installs one as the report presenter.
class ReportPreviews : public report::Presenter {
public:
    ~ReportPreviews() override;
    std::shared_ptr<report::ShownReport> present(const report::Document& document) override;
    qsizetype openCount() const { return open_.size(); }

private:
    QList<std::shared_ptr<PreviewController>> open_;
    QObject lifetime_;  // a drop still pending when the previews go is not run
};
