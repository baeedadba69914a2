#include "views/FieldBehaviour.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include "base/UiService.h"

namespace field {

namespace {

// Runs a reaction to one kind of event of the field it is attached to; the reaction
// returns true to swallow the event.
class Watcher : public QObject {
public:
    Watcher(QLineEdit* edit, QEvent::Type type, std::function<bool(QEvent*)> react)
        : QObject(edit), type_(type), react_(std::move(react)) {
        edit->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == type_ && react_(event);
    }

private:
    QEvent::Type type_;
    std::function<bool(QEvent*)> react_;
};

// Leaving for another window (a message box, the menu) is not leaving the field.
bool leftForAnotherField(QEvent* event) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

}  // namespace

void acceptOnly(QLineEdit* edit, const QString& characters) {
    new Watcher(edit, QEvent::KeyPress, [characters](QEvent* event) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        if (key->key() == Qt::Key_Backspace || text.isEmpty() || !text.at(0).isPrint()) {
            return false;
        }
        if ((key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) {
            return false;  // shortcuts: copy, paste, the buttons' accelerators
        }
        for (const QChar c : text) {
            if (!characters.contains(c)) {
                ui::service().playSound(QStringLiteral("Beep"));
                return true;
            }
        }
        return false;
    });
}

void selectAllOnFocus(QLineEdit* edit) {
    new Watcher(edit, QEvent::FocusIn, [edit](QEvent*) {
        // After the click that brought the focus, which would place the cursor.
        QTimer::singleShot(0, edit, &QLineEdit::selectAll);
        return false;
    });
}

void checkOnLeave(QLineEdit* edit, std::function<bool(const QString&)> valid,
                  const QString& caption) {
    new Watcher(edit, QEvent::FocusOut, [edit, valid, caption](QEvent* event) {
        if (!leftForAnotherField(event) || valid(edit->text())) {
            return false;
        }
        // The focus has moved on by now: the message and the return come once it has.
        QTimer::singleShot(0, edit, [edit, valid, caption] {
            if (!edit->isVisible() || valid(edit->text())) {
                return;
            }
            ui::message(QStringLiteral("Ongeldige waarde ingevoerd"), caption,
                        ui::Icon::Exclamation);
            edit->setFocus(Qt::OtherFocusReason);
            edit->selectAll();
        });
        return false;
    });
}

void zeroWhenLeftEmpty(QLineEdit* edit) {
    new Watcher(edit, QEvent::FocusOut, [edit](QEvent* event) {
        if (leftForAnotherField(event) && edit->text().isEmpty()) {
            edit->setText(QStringLiteral("0"));
        }
        return false;
    });
}

}  // namespace field
