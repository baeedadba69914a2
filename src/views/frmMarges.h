#pragma once

#include <QDialog>
#include <memory>

#include "controllers/SettingsViews.h"

namespace Ui {
class frmMarges;
}

// The margins dialog: invoice and envelope margins in whole millimetres, digits only.
class frmMarges : public QDialog, public IMargesView {
    Q_OBJECT

public:
    explicit frmMarges(QWidget* parent = nullptr);
    ~frmMarges() override;

    QString text(const QString& control) const override;
    void setText(const QString& control, const QString& text) override;
    void showModal() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::frmMarges> ui_;
};
