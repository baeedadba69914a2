#include "views/FieldRules.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "base/UiService.h"

namespace fieldrules {
namespace {

const char* const kKeepsInvalidInput = "keepsInvalidInput";

class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit* field, const QString& allowed, bool backspaceAllowed)
        : QObject(field), allowed_(allowed), backspaceAllowed_(backspaceAllowed) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) {
            return false;
        }
        if (refused(*static_cast<QKeyEvent*>(event))) {
            ui::service().playSound(QStringLiteral("Beep"));
            return true;
        }
        return false;
    }

private:
    bool refused(const QKeyEvent& key) const {
        if (key.key() == Qt::Key_Backspace) {
            return !backspaceAllowed_;
        }
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
            return false;
        }
        const QString text = key.text();
        if (text.isEmpty() || !text.at(0).isPrint()) {
            return false;
        }
        for (const QChar c : text) {
            if (!allowed_.contains(c)) {
                return true;
            }
        }
        return false;
    }

    QString allowed_;
    bool backspaceAllowed_;
};

class LeaveCheck : public QObject {
public:
    LeaveCheck(QLineEdit* field, std::function<bool(const QString&)> valid, const QString& text,
               const QString& caption, std::function<void()> accepted)
        : QObject(field),
          field_(field),
          valid_(std::move(valid)),
          text_(text),
          caption_(caption),
          accepted_(std::move(accepted)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        // Checked once the focus has settled: a message box and a refocus in the middle of
        // the focus change would tangle it.
        if (event->type() == QEvent::FocusOut &&
            leftForAnotherControl(*static_cast<QFocusEvent*>(event))) {
            QMetaObject::invokeMethod(this, &LeaveCheck::check, Qt::QueuedConnection);
        }
        return false;
    }

private:
    // Not when the window loses the focus (a message box, another program) or a cancel
    // button takes it.
    static bool leftForAnotherControl(const QFocusEvent& event) {
        switch (event.reason()) {
            case Qt::ActiveWindowFocusReason:
            case Qt::PopupFocusReason:
            case Qt::MenuBarFocusReason:
                return false;
            default:
                break;
        }
        const QWidget* next = QApplication::focusWidget();
        return !(next && next->property(kKeepsInvalidInput).toBool());
    }

    void check() {
        if (valid_(field_->text())) {
            if (accepted_) {
                accepted_();
            }
            return;
        }
        ui::message(text_, caption_, ui::Icon::Exclamation);
        field_->setFocus(Qt::OtherFocusReason);
        field_->selectAll();
    }

    QLineEdit* field_;
    std::function<bool(const QString&)> valid_;
    QString text_, caption_;
    std::function<void()> accepted_;
};

}  // namespace

void filterKeys(QLineEdit* field, const QString& allowed, bool backspaceAllowed) {
    field->installEventFilter(new KeyFilter(field, allowed, backspaceAllowed));
}

void checkOnLeave(QLineEdit* field, std::function<bool(const QString&)> valid, const QString& text,
                  const QString& caption, std::function<void()> accepted) {
    field->installEventFilter(
        new LeaveCheck(field, std::move(valid), text, caption, std::move(accepted)));
}

void keepsInvalidInput(QWidget* control) {
    control->setProperty(kKeepsInvalidInput, true);
}

}  // namespace fieldrules
