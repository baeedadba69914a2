#pragma once

#include <QWidget>
#include <memory>

#include "controllers/ArticleViews.h"

namespace Ui {
class frmArtikel;
}
class clsFlexgrid;
class QTimer;

// The article list, in the frame: management buttons, or in selection mode the quantity,
// the discount and cmdOK beside the grid. Search with txtZoek, tmrZoek, cmdVerder, cmdTerug.
class frmArtikel : public QWidget, public IArtikelView {
    Q_OBJECT

public:
    explicit frmArtikel(QWidget* parent = nullptr);
    ~frmArtikel() override;

    void SetArtikelController(clsControllerArtikel* controller) override;
    bool VoorSelecteren() const override { return selecting_; }
    void setVoorSelecteren(bool selecting) override;
    void setCaption(const QString& caption) override;
    void beginFill(const QStringList& headers) override;
    void addRow(const QString& cells, qint32 artikelID) override;
    void endFill() override;
    QList<qint32> selectedIDs() const override;
    QString Aantal() const override;
    QString Korting() const override;
    void printList(const QString& title) override;
    void show() override;
    void close() override;

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectButtons();
    void addFieldRules();
    // Runs a controller operation when there is a controller.
    template <class Operation>
    void forward(Operation operation);

    std::unique_ptr<Ui::frmArtikel> ui_;
    QTimer* tmrZoek_;
    clsFlexgrid* search_;
    clsControllerArtikel* controller_ = nullptr;
    bool selecting_ = false;
    bool closing_ = false;
};
