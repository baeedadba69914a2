#include "views/frmAbout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "views/frmSplash.h"

frmAbout::frmAbout(QWidget* parent) : QDialog(parent), lblVersion_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("Over Korvane Lindebrug"));

    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("imgLogo"));
    picture->setPixmap(frmSplash::picture().scaledToWidth(260, Qt::SmoothTransformation));

    auto* lblTitle = new QLabel(QStringLiteral("Korvane Lindebrug"), this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont titleFont = lblTitle->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.6);
    titleFont.setBold(true);
    lblTitle->setFont(titleFont);

    lblVersion_->setObjectName(QStringLiteral("lblVersion"));

    auto* cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(picture);
    layout->addSpacing(8);
    layout->addWidget(lblTitle);
    layout->addWidget(lblVersion_);
    layout->addSpacing(12);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

frmAbout::~frmAbout() = default;

void frmAbout::setVersion(const QString& text) {
    lblVersion_->setText(text);
}

void frmAbout::showModeless() {
    QDialog::show();
    raise();
    activateWindow();
}
