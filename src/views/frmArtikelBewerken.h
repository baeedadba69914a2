#pragma once

#include <QDialog>
#include <memory>

#include "controllers/ArticleViews.h"

namespace Ui {
class frmArtikelBewerken;
}

// The edit screen of one article, modal over the frame.
class frmArtikelBewerken : public QDialog, public IArtikelBewerkenView {
    Q_OBJECT

public:
    explicit frmArtikelBewerken(QWidget* parent = nullptr);
    ~frmArtikelBewerken() override;

    void SetArtikelBewerkenController(clsContrArtikelBewerken* controller) override;
    void setCaptions(const QString& caption, const QString& title) override;
    QString Nummer() const override;
    void setNummer(const QString& text) override;
    QString Omschrijving() const override;
    void setOmschrijving(const QString& text) override;
    QString Eenheid() const override;
    void setEenheid(const QString& text) override;
    QString Prijs() const override;
    void setPrijs(const QString& text) override;
    QString Voorraad() const override;
    void VulVoorraadIn(qint32 voorraad) override;
    qint16 BTWTarief() const override;
    void setBTWTarief(qint16 tarief) override;
    bool Negatief() const override;
    void setNegatief(bool allowed) override;
    bool GeenVoorraad() const override;
    void setGeenVoorraad(bool noStock) override;
    void setPercentageLabel(const QString& text) override;
    void show() override;
    void close() override;

    // cmdAnnuleren, Escape and the close box: the controller closes the screen.
    void reject() override;

private:
    void addFieldRules();

    std::unique_ptr<Ui::frmArtikelBewerken> ui_;
    clsContrArtikelBewerken* controller_ = nullptr;
};
