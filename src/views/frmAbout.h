#pragma once

#include <QDialog>

#include "controllers/ShellViews.h"

class QLabel;

// The about screen: the program's name and version, closed with cmdOK.
class frmAbout : public QDialog, public IAboutView {
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent = nullptr);
    ~frmAbout() override;

    void setVersion(const QString& text) override;
    void showModeless() override;

private:
    QLabel* lblVersion_;
};
