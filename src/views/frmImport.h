#pragma once

#include <QDialog>
#include <memory>

#include "controllers/ImportViews.h"

namespace Ui {
class frmImport;
}

// The import screen: one button per table and, beside each, the help button of the
// control array cmdHelpKlanten (objectName "cmdHelpKlanten", property "index" 0-2).
class frmImport : public QDialog, public IImportView {
    Q_OBJECT
public:
    explicit frmImport(QWidget* parent = nullptr);
    ~frmImport() override;

    void setEvents(IImportEvents* events) override;
    void show() override;
    void close() override;

private:
    void connectHelpButton(QWidget* button, int index);

    std::unique_ptr<Ui::frmImport> ui_;
    IImportEvents* events_ = nullptr;
};
