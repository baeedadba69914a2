#pragma once

#include <QDialog>
#include <memory>

#include "controllers/SettingsViews.h"

namespace Ui {
class frmTekst;
}

// The font preview: one sample line in the font chosen on the settings screen.
class frmTekst : public QDialog, public ITekstView {
    Q_OBJECT

public:
    explicit frmTekst(QWidget* parent = nullptr);
    ~frmTekst() override;

    void setPreviewFont(const QString& name, int size) override;
    void showModal() override;

private:
    std::unique_ptr<Ui::frmTekst> ui_;
};
