#pragma once

#include <QWidget>
#include <memory>

#include "controllers/InvoiceViews.h"

namespace Ui {
class frmFactuurBewerken;
}
class QLabel;

// The invoice editor: number, date, customer, the lines and, below them, the totals the
// invoice will get. The number field takes digits only and is checked on leaving; the
// date is typed or picked from a calendar.
class frmFactuurBewerken : public QWidget, public IFactuurBewerkenView {
    Q_OBJECT
public:
    explicit frmFactuurBewerken(QWidget* parent = nullptr);
    ~frmFactuurBewerken() override;

    void SetFactuurBewerkenController(clsContrFactuurBewerken* controller) override;
    void setCaption(const QString& caption) override;
    QString Nummer() const override;
    void setNummer(const QString& text) override;
    QString Datum() const override;
    void setDatum(const QString& text) override;
    void setKlant(const QStringList& lines) override;
    void setTotalen(const QList<std::pair<QString, QString>>& totals) override;
    void beginFill(const QStringList& headers) override;
    void addRow(const QString& cells, qint32 key) override;
    void endFill() override;
    QList<qint32> selectedIDs() const override;
    std::optional<qint32> currentID() const override;
    void show() override;
    void close() override;
    // The first size in the frame, before the user chose one.
    QSize sizeHint() const override { return {960, 560}; }

    // cmdSelecteerDatum: the calendar, starting at the date typed (today without one).
    void SelecteerDatum();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void reportNummer(const QString& text);

    std::unique_ptr<Ui::frmFactuurBewerken> ui_;
    QList<QLabel*> totalLabels_;
    clsContrFactuurBewerken* controller_ = nullptr;
    bool closingByController_ = false;
};
