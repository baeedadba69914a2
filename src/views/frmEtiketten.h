#pragma once

#include <QDialog>
#include <memory>

#include "controllers/LabelViews.h"

namespace Ui {
class frmEtiketten;
}

// The label screen: the paper (a label sheet or an envelope) and the first free label.
class frmEtiketten : public QDialog, public IEtikettenView {
    Q_OBJECT

public:
    explicit frmEtiketten(QWidget* parent = nullptr);
    ~frmEtiketten() override;

    void setEvents(IEtikettenEvents* events) override;
    void setOnderwerp(const QString& text) override;
    void setVellen(const QStringList& names, int selected) override;
    int vel() const override;
    void setPosities(int last) override;
    int positie() const override;
    void show() override;
    void close() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::frmEtiketten> ui_;
    IEtikettenEvents* events_ = nullptr;
};
