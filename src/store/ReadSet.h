#pragma once

#include "store/Engine.h"
#include "store/RecordsetImpl.h"

// The forward-only read set: each row is read from the engine when the set moves to it,
// and each value converted only when asked for.
class ReadSet : public Recordset::Impl {
public:
    // Runs the statement to its first row.
    static std::unique_ptr<ReadSet> start(engine::Statement statement);
    ReadSet(engine::Statement statement, bool onRow, columns::Columns columns);

    bool isEOF() const override { return !onRow_; }
    bool isBOF() const override { return empty_; }
    void moveNext() override;
    void moveFirst() override;
    qsizetype recordCount() const override { return -1; }
    QVariant value(int index) const override;
    std::optional<QString> text(int index) const override;
    void close() override;

private:
    void step();
    void release();
    void requireRow() const;

    engine::Statement statement_;
    mutable columns::Reader reader_;
    bool onRow_ = false;
    bool empty_ = false;
};
