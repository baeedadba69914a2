#include "store/ReadSet.h"

std::unique_ptr<ReadSet> ReadSet::start(engine::Statement statement) {
    // The fields are described after the first step: a schema another connection changed
    // is only seen once the statement runs.
    const bool onRow = statement.step();
    columns::Columns columns = columns::Columns::of(statement.get());
    return std::make_unique<ReadSet>(std::move(statement), onRow, std::move(columns));
}

ReadSet::ReadSet(engine::Statement statement, bool onRow, columns::Columns columns)
    : Impl(std::move(columns)), statement_(std::move(statement)), onRow_(onRow), empty_(!onRow) {
    release();
}

void ReadSet::moveNext() {
    requireRow();
    step();
}

void ReadSet::moveFirst() {
    throw engine::error(Error::InvalidOperation,
                        QStringLiteral("Ongeldige bewerking: deze recordset kan alleen "
                                       "vooruit worden doorlopen."));
}

QVariant ReadSet::value(int index) const {
    requireRow();
    return reader_.read(statement_.get(), index, columns().fields()[index].type);
}

std::optional<QString> ReadSet::text(int index) const {
    requireRow();
    switch (columns().fields()[index].type) {
        case FieldType::Text:
            return reader_.text(statement_.get(), index);
        case FieldType::Integer:
        case FieldType::Long:
            // Numbers kept in a text field (an invoice's number) need no QVariant between.
            if (auto digits = columns::Reader::wholeNumberText(statement_.get(), index)) {
                return digits;
            }
            return Impl::text(index);
        default:
            return Impl::text(index);
    }
}

void ReadSet::close() {
    statement_.finalize();
    onRow_ = false;
}

void ReadSet::step() {
    onRow_ = statement_.step();
    release();
}

void ReadSet::requireRow() const {
    if (!onRow_) {
        throw engine::noCurrentRecord();
    }
}

void ReadSet::release() {
    if (!onRow_) {
        // Done: let go of the read lock at once, so the other connection can write.
        statement_.finalize();
    }
}
