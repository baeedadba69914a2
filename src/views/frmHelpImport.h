#pragma once

#include <QDialog>
#include <memory>

#include "controllers/ImportViews.h"

namespace Ui {
class frmHelpImport;
}

class frmHelpImport : public QDialog, public IHelpImportView {
    Q_OBJECT
public:
    explicit frmHelpImport(QWidget* parent = nullptr);
    ~frmHelpImport() override;

    QString LabelTekst() const override { return labelTekst_; }
    void setLabelTekst(const QString& text) override;
    void showModal() override;

private:
    std::unique_ptr<Ui::frmHelpImport> ui_;
    QString labelTekst_;
};
