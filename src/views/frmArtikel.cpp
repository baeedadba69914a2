#include "views/frmArtikel.h"

#include <QCloseEvent>
#include <QDate>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "base/Conversions.h"
#include "controllers/clsControllerArtikel.h"
#include "platform/HelpKey.h"
#include "ui_frmArtikel.h"
#include "views/FieldRules.h"
#include "views/GridPrinter.h"
#include "views/WindowGeometry.h"
#include "views/clsFlexgrid.h"
#include "views/frmFactuur.h"

frmArtikel::frmArtikel(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::frmArtikel>()),
      tmrZoek_(new QTimer(this)),
      search_(nullptr) {
    ui_->setupUi(this);
    tmrZoek_->setObjectName(QStringLiteral("tmrZoek"));
    search_ = new clsFlexgrid(*ui_->fgrArtikelen, *ui_->txtZoek, this);
    search_->connectSearchTimer(*tmrZoek_);
    search_->connectSearchButtons(*ui_->cmdVerder, *ui_->cmdTerug);
    search_->connectSorting();
    ui_->txtAantal->setText(QStringLiteral("1"));
    ui_->txtKorting->setText(QStringLiteral("0"));
    connectButtons();
    addFieldRules();
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    help->setContext(Qt::WidgetWithChildrenShortcut);
    connect(help, &QShortcut::activated, this,
            [] { HelpKey::showPageOnHelpKey(Qt::Key_F1, HelpPage::Artikelen); });
    setVoorSelecteren(false);
    rememberGeometry(this);
}

frmArtikel::~frmArtikel() = default;

template <class Operation>
void frmArtikel::forward(Operation operation) {
    if (controller_) {
        (controller_->*operation)();
    }
}

void frmArtikel::connectButtons() {
    connect(ui_->cmdNieuw, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::NieuwArtikel); });
    connect(ui_->cmdBewerk, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::BewerkenArtikel); });
    connect(ui_->cmdVerwijder, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::VerwijderArtikelen); });
    connect(ui_->cmdAfdrukken, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::AfdrukkenLijst); });
    connect(ui_->cmdOK, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::Selecteren); });
    connect(ui_->cmdAnnuleren, &QPushButton::clicked, this,
            [this] { forward(&clsControllerArtikel::Annuleren); });
    connect(ui_->fgrArtikelen, &ListGrid::gridDoubleClicked, this,
            [this] { forward(&clsControllerArtikel::DubbelKlik); });
}

void frmArtikel::addFieldRules() {
    const auto numeric = [](const QString& text) { return conv::isNumeric(text); };
    const QString invalid = QStringLiteral("Ongeldige waarde ingevoerd");
    fieldrules::checkOnLeave(ui_->txtAantal, numeric, invalid, QStringLiteral("Aantal"));
    fieldrules::checkOnLeave(ui_->txtKorting, numeric, invalid, QStringLiteral("Korting"));
    fieldrules::keepsInvalidInput(ui_->cmdAnnuleren);
}

void frmArtikel::SetArtikelController(clsControllerArtikel* controller) {
    controller_ = controller;
}

void frmArtikel::setVoorSelecteren(bool selecting) {
    selecting_ = selecting;
    ui_->pnlBeheer->setVisible(!selecting);
    ui_->pnlSelecteren->setVisible(selecting);
}

void frmArtikel::setCaption(const QString& caption) {
    setWindowTitle(caption);
}

void frmArtikel::beginFill(const QStringList& headers) {
    ListGrid& grid = *ui_->fgrArtikelen;
    grid.setRedraw(false);
    grid.clear();
    grid.setRows(1);
    const bool first = grid.cols() == 0;
    grid.setHeaders(headers);
    // The description gets the room; widths the user changes later survive refills.
    if (first) {
        const int character = fontMetrics().averageCharWidth();
        const int widths[] = {8, 40, 10, 13, 6};
        for (int col = 0; col < grid.cols() && col < 5; ++col) {
            grid.setColWidth(
                col, std::max(widths[col] * character,
                              fontMetrics().horizontalAdvance(headers[col]) + 3 * character));
        }
    }
}

QSize frmArtikel::sizeHint() const {
    // Room for the five columns and a screenful of rows, at any scale.
    return QSize(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 26);
}

void frmArtikel::addRow(const QString& cells, qint32 artikelID) {
    ListGrid& grid = *ui_->fgrArtikelen;
    grid.addRow(cells);
    grid.setRowData(grid.rows() - 1, artikelID);
}

void frmArtikel::endFill() {
    ui_->fgrArtikelen->setRedraw(true);
}

QList<qint32> frmArtikel::selectedIDs() const {
    QList<qint32> ids;
    for (const int id : ui_->fgrArtikelen->selectedRowData()) {
        ids.append(id);
    }
    return ids;
}

QString frmArtikel::Aantal() const {
    return ui_->txtAantal->text();
}

QString frmArtikel::Korting() const {
    return ui_->txtKorting->text();
}

void frmArtikel::printList(const QString& title) {
    GridPrinter(*ui_->fgrArtikelen, title, QDate::currentDate()).print();
}

void frmArtikel::show() {
    frmFactuur::showInside(this);
    if (selecting_) {
        ui_->fgrArtikelen->setFocus();
    }
}

void frmArtikel::close() {
    closing_ = true;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        QWidget::close();
    }
    closing_ = false;
}

void frmArtikel::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    // The close box is the user's cancel: the controller decides and closes the screen.
    event->ignore();
    forward(&clsControllerArtikel::Annuleren);
}

void frmArtikel::keyPressEvent(QKeyEvent* event) {
    if (selecting_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        ui_->cmdOK->click();
        return;
    }
    if (selecting_ && event->key() == Qt::Key_Escape) {
        ui_->cmdAnnuleren->click();
        return;
    }
    QWidget::keyPressEvent(event);
}
