#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "controllers/InvoiceViews.h"

namespace Ui {
class frmFacturen;
}
class clsFlexgrid;

// The invoice list: every invoice with number, customer, date and total. Forwards its
// buttons to clsControllerFacturen; sorting and searching act on the grid only.
class frmFacturen : public QWidget, public IFacturenView {
    Q_OBJECT
public:
    explicit frmFacturen(QWidget* parent = nullptr);
    ~frmFacturen() override;

    void SetFacturenController(clsControllerFacturen* controller) override;
    void beginFill(const QStringList& headers) override;
    void addRow(const QString& cells, qint32 key) override;
    void endFill() override;
    QList<qint32> selectedIDs() const override;
    std::optional<qint32> currentID() const override;
    void show() override;
    void close() override;
    // The first size in the frame, before the user chose one.
    QSize sizeHint() const override { return {720, 440}; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::frmFacturen> ui_;
    std::unique_ptr<clsFlexgrid> flexgrid_;
    QTimer tmrZoek_;
    clsControllerFacturen* controller_ = nullptr;
    bool closingByController_ = false;
};
