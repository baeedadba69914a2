#include "views/WindowGeometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace {

QSettings settings() {
    return QSettings(QStringLiteral("Korvane"), QStringLiteral("Lindebrug"));
}

// Watches one screen; lives as its child.
class GeometryKeeper : public QObject {
public:
    explicit GeometryKeeper(QWidget* screen) : QObject(screen), screen_(screen) {
        screen->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == screen_) {
            if (event->type() == QEvent::Show && !restored_) {
                restored_ = true;
                restore();
            } else if (event->type() == QEvent::Hide || event->type() == QEvent::Close) {
                save();
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    // The window that has the size and place: the sub-window in the frame, else the screen.
    QWidget* window() const {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(screen_->parentWidget())) {
            return sub;
        }
        return screen_->window();
    }

    QString key() const { return QStringLiteral("Vensters/") + screen_->objectName(); }

    void save() const {
        QWidget* target = window();
        if (target->isWindow()) {
            settings().setValue(key(), target->saveGeometry());
        } else {
            settings().setValue(key(), target->geometry());
        }
    }

    void restore() const {
        const QVariant saved = settings().value(key());
        if (!saved.isValid()) {
            return;
        }
        QWidget* target = window();
        if (target->isWindow()) {
            target->restoreGeometry(saved.toByteArray());
            return;
        }
        const QRect place = saved.toRect();
        const QRect area = target->parentWidget() ? target->parentWidget()->rect() : QRect();
        // A frame made smaller since keeps the size, but not a place out of its sight.
        if (place.isValid() && area.intersects(place)) {
            target->setGeometry(place);
        } else if (place.isValid()) {
            target->resize(place.size());
        }
    }

    QWidget* screen_;
    bool restored_ = false;
};

}  // namespace

void rememberGeometry(QWidget* screen) {
    new GeometryKeeper(screen);
}
