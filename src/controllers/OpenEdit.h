#pragma once

#include <QObject>
#include <memory>

#include "controllers/BackInLoop.h"

// The one edit controller a list controller has open at a time. An edit controller reports
// its end from inside its own operation, so it goes once control is back in the event loop,
// unless another edit has replaced it by then.
template <class Edit>
class OpenEdit {
public:
    // owner: the list controller that holds this; nothing runs after it has gone.
    explicit OpenEdit(QObject& owner) : owner_(owner) {}
    OpenEdit(const OpenEdit&) = delete;
    OpenEdit& operator=(const OpenEdit&) = delete;

    // Cancels the edit that is open, then makes a new one whose Parent is parent.
    template <class Parent>
    Edit& open(Parent* parent) {
        close();
        edit_ = std::make_unique<Edit>();
        edit_->setParent(parent);
        const quint64 number = ++number_;
        edit_->setOnClosed([this, number] {
            whenBackInLoop(owner_, [this, number] {
                if (number_ == number) {
                    edit_.reset();
                }
            });
        });
        return *edit_;
    }

    // Cancels the open edit, if any, at once.
    void close() {
        if (!edit_) {
            return;
        }
        edit_->setOnClosed({});
        edit_->Annuleren();
        edit_.reset();
    }

    Edit* get() const { return edit_.get(); }

private:
    QObject& owner_;
    std::unique_ptr<Edit> edit_;
    quint64 number_ = 0;
};
