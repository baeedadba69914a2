#pragma once

#include <QDialog>
#include <memory>

#include "controllers/CustomerViews.h"

namespace Ui {
class frmKlantBewerken;
}
class QLineEdit;

// The edit screen of one customer. Every field may stay empty; txtExtra is shown but not
// kept. Enter saves (cmdOK is the default button), Escape and the close box cancel.
class frmKlantBewerken : public QDialog, public IKlantBewerkenView {
    Q_OBJECT
public:
    explicit frmKlantBewerken(QWidget* parent = nullptr);
    ~frmKlantBewerken() override;

    void SetKlantBewerkenController(clsContrKlantBewerken* controller) override;
    void setCaptions(const QString& caption, const QString& title) override;
    QString text(KlantVeld field) const override;
    void setText(KlantVeld field, const QString& text) override;
    bool Dhr() const override;
    void setDhr(bool dhr) override;
    bool BTW() const override;
    void setBTW(bool nulProcent) override;
    void show() override;
    void close() override;

    // Escape, the close box and cmdAnnuleren: the controller closes the screen unsaved.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* field(KlantVeld field) const;

    std::unique_ptr<Ui::frmKlantBewerken> ui_;
    clsContrKlantBewerken* controller_ = nullptr;
};
