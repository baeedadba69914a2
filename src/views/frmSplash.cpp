#include "views/frmSplash.h"

#include <QEventLoop>
#include <QLabel>
#include <QScreen>
#include <QTimer>

// The picture is compiled into this library; a static library's resources must be
// registered by hand before their first use.
static int registerShellResources() {
    Q_INIT_RESOURCE(shell);
    return 0;
}

QPixmap frmSplash::picture() {
    [[maybe_unused]] static const int registered = registerShellResources();
    return QPixmap(QStringLiteral(":/images/splash.png"));
}

frmSplash::frmSplash(QWidget* parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      imgSplash_(new QLabel(this)),
      lblVersion_(new QLabel(this)),
      tmrUnload_(new QTimer(this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Lindebrug"));

    imgSplash_->setObjectName(QStringLiteral("imgSplash"));
    const QPixmap picture = frmSplash::picture();
    imgSplash_->setPixmap(picture);
    imgSplash_->setGeometry(0, 0, picture.width(), picture.height());
    setFixedSize(picture.size());

    lblVersion_->setObjectName(QStringLiteral("lblVersion"));
    lblVersion_->setStyleSheet(QStringLiteral("color: #f4efe2;"));
    lblVersion_->setGeometry(36, picture.height() - 44, picture.width() - 72, 24);

    tmrUnload_->setObjectName(QStringLiteral("tmrUnload"));
    tmrUnload_->setSingleShot(true);
    tmrUnload_->setInterval(UnloadInterval);
    connect(tmrUnload_, &QTimer::timeout, this, &QDialog::accept);
    tmrUnload_->start();
}

frmSplash::~frmSplash() = default;

void frmSplash::setVersion(const QString& text) {
    lblVersion_->setText(text);
}

void frmSplash::stopUnloadTimer() {
    tmrUnload_->stop();
}

void frmSplash::showModal() {
    // The frame is not on screen yet at start-up, so the splash centres itself.
    move(screen()->availableGeometry().center() - rect().center());
    setWindowModality(Qt::ApplicationModal);
    // Our own loop rather than exec(): a click or the timer handled while the window is
    // still being shown has closed it already, and then there is nothing to wait for.
    QEventLoop untilClosed;
    connect(this, &QDialog::finished, &untilClosed, &QEventLoop::quit);
    show();
    if (isVisible()) {
        untilClosed.exec(QEventLoop::DialogExec);
    }
}

// A click on imgSplash or lblVersion arrives here too: labels pass clicks on.
void frmSplash::mousePressEvent(QMouseEvent*) {
    accept();
}

void frmSplash::keyPressEvent(QKeyEvent*) {
    accept();
}
