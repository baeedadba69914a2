#pragma once

#include <QDialog>
#include <memory>

#include "controllers/ArticleViews.h"

namespace Ui {
class frmVoorraad;
}

// The stock dialog of the article edit screen.
class frmVoorraad : public QDialog, public IVoorraadView {
    Q_OBJECT

public:
    explicit frmVoorraad(QWidget* parent = nullptr);
    ~frmVoorraad() override;

    void Controller(clsContrArtikelBewerken* controller) override;
    void Invullen(const QString& voorraad) override;
    QString Voorraad() const override;
    void showModal() override;
    void close() override;

private:
    std::unique_ptr<Ui::frmVoorraad> ui_;
    clsContrArtikelBewerken* controller_ = nullptr;
};
