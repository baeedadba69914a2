#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

namespace Ui {
class frmSelecteerDatum;
}

// The date picker of the invoice editor: a calendar; OK takes the date, Annuleren and
// Escape leave the date as it was.
class frmSelecteerDatum : public QDialog {
    Q_OBJECT
public:
    explicit frmSelecteerDatum(QWidget* parent = nullptr);
    ~frmSelecteerDatum() override;

    // The date the calendar opens at; today unless set.
    void SetDatum(const QDate& datum);
    QDate Datum() const;

private:
    std::unique_ptr<Ui::frmSelecteerDatum> ui_;
};
