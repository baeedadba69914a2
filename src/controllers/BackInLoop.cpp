#include "controllers/BackInLoop.h"

#include <QEvent>

namespace {

// A deferred deletion carries the level of the loop that asked for it; Qt delivers it only
// when that loop has control again. The action rides on it.
class DeferredAction : public QObject {
public:
    DeferredAction(QObject& context, std::function<void()> action)
        : QObject(&context), action_(std::move(action)) {}

    bool event(QEvent* event) override {
        if (event->type() != QEvent::DeferredDelete) {
            return QObject::event(event);
        }
        // The action may end more than its own business; this object goes first.
        const std::function<void()> action = std::move(action_);
        delete this;
        action();
        return true;
    }

private:
    std::function<void()> action_;
};

}  // namespace

void whenBackInLoop(QObject& context, std::function<void()> action) {
    (new DeferredAction(context, std::move(action)))->deleteLater();
}
