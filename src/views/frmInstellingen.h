#pragma once

#include <QDialog>
#include <memory>

#include "controllers/SettingsViews.h"

class QLineEdit;
class QPushButton;

namespace Ui {
class frmInstellingen;
}

// The settings screen: three pages behind the page buttons of the control array
// cmdInstellingen (objectName "cmdInstellingen", property "index" 0-2); the pages are the
// frames fraInstellingen0-2. It checks what is typed and forwards every action to
// clsContrInstellingen.
class frmInstellingen : public QDialog, public IInstellingenView {
    Q_OBJECT

public:
    explicit frmInstellingen(QWidget* parent = nullptr);
    ~frmInstellingen() override;

    void SetInstellingenController(clsContrInstellingen* controller) override;
    QString text(const QString& control) const override;
    void setText(const QString& control, const QString& text) override;
    QStringList installedFonts() const override;
    void setFonts(const QStringList& names, int selected) override;
    int fontIndex() const override;
    QString fontText() const override;
    void setPoints(const QStringList& sizes, int selected) override;
    QString pointText() const override;
    int Sjabloon() const override;
    void setSjabloon(int position) override;
    bool NoSound() const override;
    void setNoSound(bool checked) override;
    void showLogo(const QString& path) override;
    void show() override;
    void close() override;

    // Shows page i and marks its button.
    void showPage(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    QLineEdit* edit(const QString& control) const;
    void connectButtons();
    void setUpFields();
    template <class Action>
    void forward(QPushButton* button, Action action);

    std::unique_ptr<Ui::frmInstellingen> ui_;
    clsContrInstellingen* controller_ = nullptr;
};
