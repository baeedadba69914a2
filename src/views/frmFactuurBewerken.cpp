#include "views/frmFactuurBewerken.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "base/Conversions.h"
#include "controllers/clsContrFactuurBewerken.h"
#include "platform/HelpKey.h"
#include "ui_frmFactuurBewerken.h"
#include "views/FieldRules.h"
#include "views/InvoiceGrid.h"
#include "views/WindowGeometry.h"
#include "views/frmFactuur.h"
#include "views/frmSelecteerDatum.h"

frmFactuurBewerken::frmFactuurBewerken(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::frmFactuurBewerken>()) {
    ui_->setupUi(this);
    // A cramped window (a large font, a small screen) shrinks the lines' grid and then
    // scrolls the form, but keeps a whole date or invoice number in sight.
    const int fieldWidth = ui_->txtDatum->fontMetrics().horizontalAdvance(QStringLiteral("0")) * 13;
    ui_->txtNummer->setMinimumWidth(fieldWidth);
    ui_->txtDatum->setMinimumWidth(fieldWidth);
    fieldrules::filterKeys(ui_->txtNummer, fieldrules::kDigits, true);
    fieldrules::checkOnLeave(ui_->txtNummer, conv::isNumeric,
                             QStringLiteral("Ongeldige waarde ingevoerd"),
                             QStringLiteral("Factuurnummer"));
    fieldrules::keepsInvalidInput(ui_->cmdAnnuleren);
    connect(ui_->txtNummer, &QLineEdit::textChanged, this, &frmFactuurBewerken::reportNummer);
    const auto forward = [this](QPushButton* button, auto action) {
        connect(button, &QPushButton::clicked, this, [this, action] {
            if (controller_) {
                action(*controller_);
            }
        });
    };
    forward(ui_->cmdKlantZoeken, [](clsContrFactuurBewerken& c) { c.KlantSelecteren(); });
    forward(ui_->cmdNieuw, [](clsContrFactuurBewerken& c) { c.ArtikelToevoegen(); });
    forward(ui_->cmdBewerk, [](clsContrFactuurBewerken& c) { c.BewerkGeselecteerd(); });
    forward(ui_->cmdVerwijder, [](clsContrFactuurBewerken& c) { c.VerwijderGeselecteerd(); });
    forward(ui_->cmdOK, [](clsContrFactuurBewerken& c) { c.Opslaan(); });
    forward(ui_->cmdAnnuleren, [](clsContrFactuurBewerken& c) { c.Annuleren(); });
    connect(ui_->fgrArtikelen, &ListGrid::gridDoubleClicked, this, [this] {
        if (controller_) {
            controller_->BewerkGeselecteerd();
        }
    });
    connect(ui_->cmdSelecteerDatum, &QPushButton::clicked, this,
            &frmFactuurBewerken::SelecteerDatum);
    rememberGeometry(this);
}

frmFactuurBewerken::~frmFactuurBewerken() = default;

void frmFactuurBewerken::SetFactuurBewerkenController(clsContrFactuurBewerken* controller) {
    controller_ = controller;
}

void frmFactuurBewerken::setCaption(const QString& caption) {
    setWindowTitle(caption);
}

QString frmFactuurBewerken::Nummer() const {
    return ui_->txtNummer->text();
}

void frmFactuurBewerken::setNummer(const QString& text) {
    ui_->txtNummer->setText(text);
}

QString frmFactuurBewerken::Datum() const {
    return ui_->txtDatum->text();
}

void frmFactuurBewerken::setDatum(const QString& text) {
    ui_->txtDatum->setText(text);
}

void frmFactuurBewerken::setKlant(const QStringList& lines) {
    ui_->lblKlant->setText(lines.isEmpty() ? QStringLiteral("(nog geen klant gekozen)")
                                           : lines.join(u'\n'));
}

void frmFactuurBewerken::setTotalen(const QList<std::pair<QString, QString>>& totals) {
    qDeleteAll(totalLabels_);
    totalLabels_.clear();
    for (qsizetype row = 0; row < totals.size(); ++row) {
        auto* caption = new QLabel(totals[row].first + u':', this);
        auto* amount = new QLabel(totals[row].second, this);
        amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        amount->setObjectName(QStringLiteral("lblTotaal%1").arg(row));
        amount->setAccessibleName(totals[row].first);
        caption->setObjectName(QStringLiteral("lblTotaalTekst%1").arg(row));
        if (row == totals.size() - 1) {
            QFont bold = amount->font();
            bold.setBold(true);
            caption->setFont(bold);
            amount->setFont(bold);
        }
        ui_->totalen->addWidget(caption, static_cast<int>(row), 0);
        ui_->totalen->addWidget(amount, static_cast<int>(row), 1);
        totalLabels_ << caption << amount;
    }
}

void frmFactuurBewerken::beginFill(const QStringList& headers) {
    invoiceGrid::begin(*ui_->fgrArtikelen, headers);
}

void frmFactuurBewerken::addRow(const QString& cells, qint32 key) {
    invoiceGrid::add(*ui_->fgrArtikelen, cells, key);
}

void frmFactuurBewerken::endFill() {
    ListGrid& grid = *ui_->fgrArtikelen;
    const int widths[] = {100, 220, 70, 100, 60, 50, 60, 100};
    for (int col = 0; col < grid.cols() && col < 8; ++col) {
        grid.setColWidth(col, widths[col]);
    }
    for (const int col : {3, 4, 5, 6, 7}) {
        grid.setColAlignment(col, Qt::AlignRight | Qt::AlignVCenter);
    }
    grid.setRedraw(true);
}

QList<qint32> frmFactuurBewerken::selectedIDs() const {
    return ui_->fgrArtikelen->selectedRowData();
}

std::optional<qint32> frmFactuurBewerken::currentID() const {
    return invoiceGrid::currentKey(*ui_->fgrArtikelen);
}

void frmFactuurBewerken::show() {
    frmFactuur::showInside(this);
    raise();
    activateWindow();
}

void frmFactuurBewerken::close() {
    invoiceGrid::closeBy(*this, closingByController_);
}

void frmFactuurBewerken::SelecteerDatum() {
    frmSelecteerDatum picker(this);
    const QDate typed = conv::fromDateText(ui_->txtDatum->text().trimmed());
    if (typed.isValid()) {
        picker.SetDatum(typed);
    }
    if (picker.exec() == QDialog::Accepted) {
        ui_->txtDatum->setText(conv::toDateText(picker.Datum()));
    }
}

void frmFactuurBewerken::reportNummer(const QString& text) {
    if (!controller_) {
        return;
    }
    bool valid = false;
    const qint32 nummer = text.toInt(&valid);
    controller_->ChangeFN(valid ? nummer : 0);
}

void frmFactuurBewerken::closeEvent(QCloseEvent* event) {
    // The close box asks the controller, which closes the screen through close().
    if (closingByController_ || !controller_) {
        return QWidget::closeEvent(event);
    }
    event->ignore();
    controller_->Annuleren();
}

void frmFactuurBewerken::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), invoiceGrid::kHelpPage)) {
        return;
    }
    if (event->key() == Qt::Key_Escape && controller_) {
        controller_->Annuleren();
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && controller_) {
        controller_->Opslaan();
        return;
    }
    QWidget::keyPressEvent(event);
}
