#include "views/frmTekst.h"

#include "ui_frmTekst.h"
#include "views/WindowGeometry.h"

frmTekst::frmTekst(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmTekst>()) {
    ui_->setupUi(this);
    ui_->lstTekst->addItem(QStringLiteral("    The quick brown fox jumps over the lazy dog   ") +
                           QChar(0x20AC));
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    rememberGeometry(this);
}

frmTekst::~frmTekst() = default;

void frmTekst::setPreviewFont(const QString& name, int size) {
    QFont font = ui_->lstTekst->font();
    font.setFamily(name);
    if (size > 0) {
        font.setPointSize(size);
    }
    ui_->lstTekst->setFont(font);
    // The whole sample line in view, however large the font.
    const QFontMetrics metrics(font);
    const int wanted = metrics.horizontalAdvance(ui_->lstTekst->item(0)->text()) + width() -
                       ui_->lstTekst->viewport()->width() + metrics.averageCharWidth() * 2;
    if (wanted > width()) {
        resize(wanted, height());
    }
}

void frmTekst::showModal() {
    exec();
}
