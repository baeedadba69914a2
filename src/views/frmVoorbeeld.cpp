#include "views/frmVoorbeeld.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPrintPreviewWidget>

#include "printing/ReportRenderer.h"
#include "ui_frmVoorbeeld.h"
#include "views/QtPrintViews.h"
#include "views/WindowGeometry.h"
#include "views/frmFactuur.h"

frmVoorbeeld::frmVoorbeeld(QWidget* parent) : QWidget(parent), ui_(new Ui::frmVoorbeeld) {
    ui_->setupUi(this);
    QPrintPreviewWidget* pages = ui_->pvwPaginas;
    connect(pages, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
        if (document_) {
            report::render(*document_, *printer);
        }
    });
    connect(ui_->cmdAfdrukken, &QPushButton::clicked, this, [this] {
        if (events_) {
            events_->afdrukken();
        }
    });
    connect(ui_->cmdOpslaanPdf, &QPushButton::clicked, this, [this] {
        if (events_) {
            events_->opslaanAlsPdf();
        }
    });
    connect(ui_->cmdVergroten, &QPushButton::clicked, pages, [pages] { pages->zoomIn(); });
    connect(ui_->cmdVerkleinen, &QPushButton::clicked, pages, [pages] { pages->zoomOut(); });
    connect(ui_->cmdPaginabreedte, &QPushButton::clicked, pages, &QPrintPreviewWidget::fitToWidth);
    connect(ui_->cmdSluiten, &QPushButton::clicked, this, &QWidget::close);
    ui_->cmdAfdrukken->setDefault(true);
    rememberGeometry(this);
}

frmVoorbeeld::~frmVoorbeeld() = default;

void frmVoorbeeld::setDocument(const report::Document* document) {
    document_ = document;
    setWindowTitle(document->title);
    ui_->lblPaginas->setText(document->pages.size() == 1 ? QStringLiteral("1 pagina")
                                                         : QString::number(document->pages.size()) +
                                                               QStringLiteral(" pagina's"));
    ui_->pvwPaginas->updatePreview();
}

void frmVoorbeeld::showModeless() {
    frmFactuur::showInside(this);
    ui_->pvwPaginas->fitToWidth();
    raise();
    activateWindow();
}

void frmVoorbeeld::hide() {
    QWidget::hide();
}

void frmVoorbeeld::closeEvent(QCloseEvent* event) {
    event->accept();
    if (events_) {
        events_->gesloten();
    }
}

void frmVoorbeeld::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

std::unique_ptr<IPreviewView> QtPrintViews::createPreview() {
    return std::make_unique<frmVoorbeeld>();
}
