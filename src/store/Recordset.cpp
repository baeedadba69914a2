#include "store/Recordset.h"

#include "store/Engine.h"
#include "store/RecordsetImpl.h"

void Recordset::Impl::addNew() {
    throw engine::notUpdatable();
}

void Recordset::Impl::setValue(int, const QVariant&) {
    throw engine::notUpdatable();
}

void Recordset::Impl::update() {
    throw engine::notUpdatable();
}

void Recordset::Impl::deleteCurrent() {
    throw engine::notUpdatable();
}

void Recordset::Impl::cancelUpdate() {
    throw engine::notUpdatable();
}

std::optional<QString> Recordset::Impl::text(int index) const {
    const QVariant held = value(index);
    if (held.isNull()) {
        return std::nullopt;
    }
    return held.toString();
}

Recordset& Recordset::Impl::child(const QString& name) {
    throw engine::itemNotFound(name);
}

Recordset::Recordset(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

Recordset::~Recordset() = default;

bool Recordset::isEOF() const {
    return impl_->isEOF();
}

bool Recordset::isBOF() const {
    return impl_->isBOF();
}

void Recordset::moveNext() {
    impl_->moveNext();
}

void Recordset::moveFirst() {
    impl_->moveFirst();
}

qsizetype Recordset::recordCount() const {
    return impl_->recordCount();
}

bool Recordset::isUpdatable() const {
    return impl_->isUpdatable();
}

int Recordset::fieldCount() const {
    return impl_->columns().size();
}

const Field& Recordset::field(int index) const {
    if (index < 0 || index >= fieldCount()) {
        throw engine::itemNotFound(QString::number(index));
    }
    return impl_->columns().fields()[index];
}

int Recordset::fieldIndex(const QString& name) const {
    return impl_->columns().indexOf(name);
}

QVariant Recordset::value(int index) const {
    field(index);
    return impl_->value(index);
}

QVariant Recordset::value(const QString& name) const {
    const int index = fieldIndex(name);
    if (index < 0) {
        throw engine::itemNotFound(name);
    }
    return impl_->value(index);
}

std::optional<QString> Recordset::text(int index) const {
    field(index);
    return impl_->text(index);
}

void Recordset::addNew() {
    impl_->addNew();
}

void Recordset::setValue(int index, const QVariant& value) {
    field(index);
    impl_->setValue(index, value);
}

void Recordset::setValue(const QString& name, const QVariant& value) {
    const int index = fieldIndex(name);
    if (index < 0) {
        throw engine::itemNotFound(name);
    }
    impl_->setValue(index, value);
}

void Recordset::update() {
    impl_->update();
}

void Recordset::deleteCurrent() {
    impl_->deleteCurrent();
}

void Recordset::cancelUpdate() {
    impl_->cancelUpdate();
}

Recordset& Recordset::child(const QString& name) {
    return impl_->child(name);
}

QStringList Recordset::childNames() const {
    return impl_->childNames();
}

void Recordset::close() {
    impl_->close();
}
