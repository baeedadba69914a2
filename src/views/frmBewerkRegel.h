#pragma once

#include <QDialog>
#include <memory>

#include "controllers/ArticleViews.h"

namespace Ui {
class frmBewerkRegel;
}

// Quantity and discount of an invoice line.
class frmBewerkRegel : public QDialog, public IBewerkRegelView {
    Q_OBJECT

public:
    explicit frmBewerkRegel(QWidget* parent = nullptr);
    ~frmBewerkRegel() override;

    void setAantal(const QString& text) override;
    void setKorting(const QString& text) override;
    QString Aantal() const override;
    QString Korting() const override;
    void showModal() override;
    bool Geannuleerd() const override { return result() != Accepted; }

private:
    void confirm();

    std::unique_ptr<Ui::frmBewerkRegel> ui_;
};
