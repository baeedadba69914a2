#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "controllers/CustomerViews.h"

namespace Ui {
class frmKlant;
}
class clsFlexgrid;
class ListGrid;

// The customer list: management of the register from the main menu, or the choice of the
// customer of an invoice. It sits in the frame; its controller decides when it closes.
class frmKlant : public QWidget, public IKlantView {
    Q_OBJECT
public:
    explicit frmKlant(QWidget* parent = nullptr);
    ~frmKlant() override;

    void SetKlantController(clsControllerKlant* controller) override;
    bool VoorSelecteren() const override { return selecting_; }
    void setVoorSelecteren(bool selecting) override;

    void beginFill(const QList<GridColumn>& columns) override;
    void addRow(const QString& cells, qint32 klantID) override;
    void endFill() override;
    std::optional<qint32> currentID() const override;
    QList<qint32> selectedIDs() const override;

    void printList(const QString& title, double margins) override;
    void show() override;
    void close() override;

    ListGrid& grid();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // The close box cancels, as cmdAnnuleren would: the controller closes the screen.
    void closeEvent(QCloseEvent* event) override;

private:
    void connectButtons();
    template <typename Action>
    void onClick(QWidget* button, Action action);

    std::unique_ptr<Ui::frmKlant> ui_;
    std::unique_ptr<clsFlexgrid> flexgrid_;
    QTimer tmrZoek_;
    clsControllerKlant* controller_ = nullptr;
    bool selecting_ = false;
    bool closing_ = false;
};
