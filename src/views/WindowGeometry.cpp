#include "views/WindowGeometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

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
        QWidget* target = window();
        const QVariant saved = settings().value(key());
        if (target->isWindow()) {
            if (saved.isValid()) {
                target->restoreGeometry(saved.toByteArray());
            }
            return;
        }
        const QRect place = saved.toRect();
        const QRect area = target->parentWidget()->rect();
        // A frame made smaller since keeps the size, but not a place out of its sight.
        if (place.isValid() && area.intersects(place)) {
            target->setGeometry(place);
        } else if (place.isValid()) {
            target->resize(place.size());
        }
        fitInto(*target, area);
    }

    // A screen larger than the frame is now (a smaller display, a larger font) shrinks to
    // the frame and moves into it, so none of its buttons is out of reach.
    static void fitInto(QWidget& target, const QRect& area) {
        if (area.isEmpty()) {
            return;
        }
        QRect place(target.pos(), target.size().boundedTo(area.size()));
        place.moveRight(std::min(place.right(), area.right()));
        place.moveBottom(std::min(place.bottom(), area.bottom()));
        place.moveTopLeft(
            QPoint(std::max(place.left(), area.left()), std::max(place.top(), area.top())));
        if (place != target.geometry()) {
            target.setGeometry(place);
        }
    }

    QWidget* screen_;
    bool restored_ = false;
};

}  // namespace

void rememberGeometry(QWidget* screen) {
    new GeometryKeeper(screen);
}
