#pragma once

#include <QDialog>

#include "controllers/ShellViews.h"

class QLabel;
class QTimer;

// The splash screen: the program's picture and version. It closes itself when tmrUnload
// fires, and at once on a click or a key.
class frmSplash : public QDialog, public ISplashView {
    Q_OBJECT

public:
    // How long the splash stays on its own.
    static constexpr int UnloadInterval = 1500;

    explicit frmSplash(QWidget* parent = nullptr);
    ~frmSplash() override;

    // The program's picture, shared with the about screen.
    static QPixmap picture();

    void setVersion(const QString& text) override;
    void stopUnloadTimer() override;
    void showModal() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLabel* imgSplash_;
    QLabel* lblVersion_;
    QTimer* tmrUnload_;
};
