#include "store/jet/JetReader.h"

#include <mdbtools.h>

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <charconv>
#include <cmath>
#include <cstring>

#include "base/Error.h"

namespace jet {
namespace {

constexpr long kUnreadable = 3343;  // Jet's own number for a file it cannot read

Error unreadable(const QString& description) {
    return Error(kUnreadable, QStringLiteral("Jet"), description);
}

ColumnKind kindOf(int type) {
    switch (type) {
        case MDB_BOOL:
            return ColumnKind::Boolean;
        case MDB_BYTE:
            return ColumnKind::Byte;
        case MDB_INT:
            return ColumnKind::Integer;
        case MDB_LONGINT:
            return ColumnKind::Long;
        case MDB_MONEY:
            return ColumnKind::Money;
        case MDB_FLOAT:
            return ColumnKind::Single;
        case MDB_DOUBLE:
            return ColumnKind::Double;
        case MDB_DATETIME:
            return ColumnKind::DateTime;
        case MDB_TEXT:
            return ColumnKind::Text;
        default:
            return ColumnKind::Other;
    }
}

template <typename T>
T littleEndian(const void* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return qFromLittleEndian(value);
}

double doubleAt(const void* bytes) {
    const quint64 bits = littleEndian<quint64>(bytes);
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// A Single as the shortest decimal that reads back as the same Single, so 0.1 stays 0.1
// and does not become 0.100000001490116 in a double.
double singleAt(const void* bytes) {
    const quint32 bits = littleEndian<quint32>(bytes);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double widened = value;
    std::from_chars(text, written.ptr, widened);
    return widened;
}

// Jet keeps a moment as days since 1899-12-30 with the time of day as the fraction (its
// absolute value, also before that day); shown to the second, as the old program did.
QString dateTimeText(double days) {
    double whole = std::trunc(days);
    qint64 seconds = std::llround(std::fabs(days - whole) * 86400.0);
    if (seconds >= 86400) {
        seconds -= 86400;
        whole += 1;
    }
    const QDate date = QDate(1899, 12, 30).addDays(qint64(whole));
    return QStringLiteral("%1 %2:%3:%4")
        .arg(date.toString(QStringLiteral("yyyy-MM-dd")))
        .arg(seconds / 3600, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

// The bytes a fixed-size kind needs; a field shorter than that is damage, not a value.
int bytesOf(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::Byte:
            return 1;
        case ColumnKind::Integer:
            return 2;
        case ColumnKind::Long:
        case ColumnKind::Single:
            return 4;
        case ColumnKind::Money:
        case ColumnKind::Double:
        case ColumnKind::DateTime:
            return 8;
        default:
            return 0;
    }
}

}  // namespace

bool isJetFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray head = file.read(19);
    return head.size() == 19 && head.startsWith(QByteArray("\x00\x01\x00\x00", 4)) &&
           (head.mid(4) == "Standard Jet DB" || head.mid(4) == "Standard ACE DB");
}

struct Database::Handle {
    MdbHandle* mdb = nullptr;
    ~Handle() {
        if (mdb) {
            mdb_close(mdb);
        }
    }
};

struct Table::Handle {
    MdbTableDef* table = nullptr;
    std::vector<MdbField> fields;
    std::vector<std::vector<char>> textBuffers;  // bound, by column; empty for other kinds
    std::vector<int> textLengths;
    ~Handle() {
        if (table) {
            mdb_free_tabledef(table);
        }
    }
};

Database::Database(const QString& path) : handle_(std::make_unique<Handle>()), path_(path) {
    if (!isJetFile(path)) {
        throw unreadable(QStringLiteral("%1 is geen Access-database.").arg(path));
    }
    handle_->mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (handle_->mdb && QFileInfo(path).size() % handle_->mdb->fmt->pg_size != 0) {
        throw unreadable(QStringLiteral("%1 is onvolledig: het houdt op midden in een blok van "
                                        "%2 bytes.")
                             .arg(path)
                             .arg(handle_->mdb->fmt->pg_size));
    }
    if (!handle_->mdb || !mdb_read_catalog(handle_->mdb, MDB_TABLE)) {
        throw unreadable(
            QStringLiteral("%1 is beschadigd: de lijst van tabellen is niet te lezen.").arg(path));
    }
}

Database::~Database() = default;

QStringList Database::tableNames() const {
    QStringList names;
    GPtrArray* catalog = handle_->mdb->catalog;
    for (guint i = 0; catalog && i < catalog->len; ++i) {
        const auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalog, i));
        const QString name = QString::fromUtf8(entry->object_name);
        if (entry->object_type == MDB_TABLE && !name.startsWith(QLatin1String("MSys"))) {
            names << name;
        }
    }
    return names;
}

bool Database::hasTable(const QString& name) const {
    return tableNames().contains(name, Qt::CaseInsensitive);
}

std::unique_ptr<Table> Database::open(const QString& name) const {
    auto handle = std::make_unique<Table::Handle>();
    QByteArray utf8 = name.toUtf8();
    handle->table = mdb_read_table_by_name(handle_->mdb, utf8.data(), MDB_TABLE);
    if (!handle->table || !mdb_read_columns(handle->table)) {
        throw unreadable(QStringLiteral("De tabel %1 in %2 is niet te lezen.").arg(name, path_));
    }
    mdb_rewind_table(handle->table);
    return std::unique_ptr<Table>(new Table(std::move(handle), name));
}

Table::Table(std::unique_ptr<Handle> handle, QString name)
    : handle_(std::move(handle)), name_(std::move(name)) {
    MdbTableDef* table = handle_->table;
    const size_t bindSize = table->entry->mdb->bind_size;
    handle_->fields.resize(table->num_cols);
    handle_->textBuffers.resize(table->num_cols);
    handle_->textLengths.resize(table->num_cols);
    values_.resize(table->num_cols);
    for (unsigned i = 0; i < table->num_cols; ++i) {
        const auto* column = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, i));
        Column described{QString::fromUtf8(column->name), kindOf(column->col_type), 0};
        if (described.kind == ColumnKind::Text) {
            described.maxChars = column->col_size / 2;
            handle_->textBuffers[i].resize(bindSize);
            mdb_bind_column(table, int(i) + 1, handle_->textBuffers[i].data(),
                            &handle_->textLengths[i]);
        }
        columns_.push_back(described);
    }
}

Table::~Table() = default;

int Table::indexOf(const QString& column) const {
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].name.compare(column, Qt::CaseInsensitive) == 0) {
            return int(i);
        }
    }
    return -1;
}

qint64 Table::announcedRows() const {
    return handle_->table->num_rows;
}

bool Table::next() {
    if (!mdb_fetch_row(handle_->table)) {
        return false;
    }
    readCurrentRow();
    return true;
}

void Table::readCurrentRow() {
    MdbTableDef* table = handle_->table;
    MdbHandle* mdb = table->entry->mdb;
    int start = 0;
    size_t size = 0;
    if (mdb_find_row(mdb, int(table->cur_row) - 1, &start, &size) != 0 ||
        mdb_crack_row(table, start & 0x1fff, size, handle_->fields.data()) == 0) {
        throw unreadable(QStringLiteral("Een rij van de tabel %1 is beschadigd.").arg(name_));
    }
    for (size_t i = 0; i < columns_.size(); ++i) {
        const MdbField& field = handle_->fields[i];
        const ColumnKind kind = columns_[i].kind;
        Value& value = values_[i];
        // A yes/no has no bytes of its own: its value is the null-mask bit.
        if (kind == ColumnKind::Boolean) {
            value.isNull = false;
            value.whole = field.is_null ? 0 : 1;
            continue;
        }
        value.isNull = field.is_null || !field.value;
        if (value.isNull) {
            continue;
        }
        const int needed = bytesOf(kind);
        if (needed > 0 && field.siz < needed) {
            throw unreadable(QStringLiteral("Een rij van de tabel %1 is beschadigd (kolom %2).")
                                 .arg(name_, columns_[i].name));
        }
        switch (kind) {
            case ColumnKind::Byte:
                value.whole = *static_cast<const quint8*>(field.value);
                break;
            case ColumnKind::Integer:
                value.whole = littleEndian<qint16>(field.value);
                break;
            case ColumnKind::Long:
                value.whole = littleEndian<qint32>(field.value);
                break;
            case ColumnKind::Money:
                value.whole = littleEndian<qint64>(field.value);
                break;
            case ColumnKind::Single:
                value.real = singleAt(field.value);
                break;
            case ColumnKind::Double:
                value.real = doubleAt(field.value);
                break;
            case ColumnKind::DateTime:
                value.text = dateTimeText(doubleAt(field.value));
                break;
            case ColumnKind::Text:
                value.text =
                    QString::fromUtf8(handle_->textBuffers[i].data(), handle_->textLengths[i]);
                break;
            default:
                value.text.clear();
                break;
        }
    }
}

}  // namespace jet
