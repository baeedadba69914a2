#pragma once

#include <QWidget>
#include <memory>

#include "controllers/PrintViews.h"

namespace Ui {
class frmVoorbeeld;
}

// The print preview of a report: its pages, zoom, and the buttons to print them or save them
// as a PDF file, which its controller carries out. Escape closes it.
class frmVoorbeeld : public QWidget, public IPreviewView {
    Q_OBJECT

public:
    explicit frmVoorbeeld(QWidget* parent = nullptr);
    ~frmVoorbeeld() override;

    void setEvents(IPreviewEvents* events) override { events_ = events; }
    void setDocument(const report::Document* document) override;
    void showModeless() override;
    void hide() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::frmVoorbeeld> ui_;
    const report::Document* document_ = nullptr;
    IPreviewEvents* events_ = nullptr;
};
