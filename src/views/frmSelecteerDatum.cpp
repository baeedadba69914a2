#include "views/frmSelecteerDatum.h"

#include <QCalendarWidget>
#include <QPushButton>

#include "base/Regional.h"
#include "ui_frmSelecteerDatum.h"
#include "views/WindowGeometry.h"

frmSelecteerDatum::frmSelecteerDatum(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSelecteerDatum>()) {
    ui_->setupUi(this);
    ui_->calDatum->setLocale(Regional::locale());
    ui_->calDatum->setSelectedDate(QDate::currentDate());
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdAnnuleren, &QPushButton::clicked, this, &QDialog::reject);
    // A double click on a day chooses it, as OK would.
    connect(ui_->calDatum, &QCalendarWidget::activated, this, &QDialog::accept);
    rememberGeometry(this);
}

frmSelecteerDatum::~frmSelecteerDatum() = default;

void frmSelecteerDatum::SetDatum(const QDate& datum) {
    ui_->calDatum->setSelectedDate(datum);
}

QDate frmSelecteerDatum::Datum() const {
    return ui_->calDatum->selectedDate();
}
