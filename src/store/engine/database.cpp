#include "store/engine/database.h"

#include "store/engine/enginecall.h"

#include <QHash>

#include <sqlite3.h>

#include <list>

namespace {

/// Shapes kept prepared. The program sends some two hundred; a user's own queries push the oldest out.
constexpr size_t cachedShapes = 256;

/// A translated shape with its prepared statement.
struct Prepared
{
    QString key;
    dialect::Translation translation;
    engine::Statement statement;
    std::vector<RecordSet::Column> columns;
};

/// Binds the literals of a statement. The texts stay in here until it has run, so that the engine need not
/// make a copy of each.
class Bindings
{
public:
    explicit Bindings(const dialect::Shape& shape)
        : m_literals(shape.literals)
    {
    }
    void bind(sqlite3_stmt* statement, const std::vector<dialect::Parameter>& parameters);

private:
    void bindValue(sqlite3_stmt* statement, int place, const dialect::BoundValue& value);
    void bindText(sqlite3_stmt* statement, int place, QStringView text);

    const std::vector<dialect::Literal>& m_literals;
    std::vector<QByteArray> m_texts;
};

void Bindings::bind(sqlite3_stmt* statement, const std::vector<dialect::Parameter>& parameters)
{
    m_texts.reserve(parameters.size());
    int place = 0;
    for (const dialect::Parameter& parameter : parameters) {
        const dialect::Literal& literal = m_literals[static_cast<size_t>(parameter.literal)];
        ++place;
        // Most literals are texts, and these go in as they stand.
        if (parameter.as == dialect::BindAs::Text)
            bindText(statement, place, literal.text);
        else
            bindValue(statement, place, dialect::bindValue(literal, parameter.as));
    }
}

void Bindings::bindValue(sqlite3_stmt* statement, int place, const dialect::BoundValue& value)
{
    if (const auto* number = std::get_if<qint64>(&value))
        sqlite3_bind_int64(statement, place, *number);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_bind_double(statement, place, *real);
    else if (const auto* text = std::get_if<QString>(&value))
        bindText(statement, place, *text);
    else
        sqlite3_bind_null(statement, place);
}

void Bindings::bindText(sqlite3_stmt* statement, int place, QStringView text)
{
    const QByteArray& utf8 = m_texts.emplace_back(text.toUtf8());
    sqlite3_bind_text(statement, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC);
}

/// Resets a statement at the end of its use, however that comes about.
class Use
{
public:
    explicit Use(sqlite3_stmt* statement)
        : m_statement(statement)
    {
    }
    ~Use()
    {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* m_statement;
};

} // namespace

struct Database::Impl
{
    QString path;
    engine::Connection connection;
    std::function<void(QStringView)> interceptor;
    const schema::Table* changed = nullptr;
    std::list<Prepared> recent; // the one used last in front
    QHash<QString, std::list<Prepared>::iterator> byKey;

    Prepared& prepare(QStringView statement, QString&& key, const dialect::Want& want);
};

Prepared& Database::Impl::prepare(QStringView statement, QString&& key, const dialect::Want& want)
{
    const auto known = byKey.constFind(key);
    if (known != byKey.cend()) {
        recent.splice(recent.begin(), recent, *known);
        return recent.front();
    }
    Prepared fresh;
    fresh.translation = dialect::translate(statement, want);
    fresh.statement = engine::prepare(connection.get(), fresh.translation.sql);
    for (const dialect::ResultColumn& column : fresh.translation.columns)
        fresh.columns.push_back({column.name, column.type});
    fresh.key = std::move(key);
    recent.push_front(std::move(fresh));
    byKey.insert(recent.front().key, recent.begin());
    if (recent.size() > cachedShapes) {
        byKey.remove(recent.back().key);
        recent.pop_back();
    }
    return recent.front();
}

Database::Database(const QString& path)
    : m_impl(std::make_unique<Impl>())
{
    m_impl->path = path;
    m_impl->connection = engine::open(path, SQLITE_OPEN_READWRITE);
    sqlite3* const handle = m_impl->connection.get();
    sqlite3_busy_timeout(handle, engine::busyTimeoutMs);
    engine::addLetters(handle);
    // A committed action must survive a power cut, so every commit waits for the disk.
    engine::execute(handle, "PRAGMA journal_mode=DELETE");
    engine::execute(handle, "PRAGMA synchronous=FULL");
    engine::execute(handle, "PRAGMA foreign_keys=OFF");
    engine::execute(handle, "PRAGMA trusted_schema=OFF");
    engine::execute(handle, "PRAGMA cache_size=-16384");
}

Database::~Database() = default;

RecordSet Database::run(QStringView statement, const dialect::Want& want)
{
    m_impl->changed = nullptr;
    if (m_impl->interceptor)
        m_impl->interceptor(statement);
    dialect::Shape shape = dialect::splitShape(statement);
    if (want.kind != dialect::Want::AllRows)
        shape.key += QString(QChar(u'\x1') + QString::number(want.kind) + want.column);
    Prepared& prepared = m_impl->prepare(statement, std::move(shape.key), want);
    sqlite3_stmt* const compiled = prepared.statement.get();
    Bindings bindings(shape);
    const Use use(compiled); // ends before the texts that are bound
    bindings.bind(compiled, prepared.translation.parameters);

    auto rows = std::make_shared<RecordSet::Rows>();
    rows->columns = prepared.columns;
    const int columns = static_cast<int>(prepared.columns.size());
    int code = sqlite3_step(compiled);
    for (; code == SQLITE_ROW; code = sqlite3_step(compiled)) {
        for (int i = 0; i < columns; ++i)
            rows->cells.push_back(engine::cell(compiled, i));
        ++rows->count;
    }
    if (code != SQLITE_DONE)
        throw engine::failure(m_impl->connection.get());
    if (prepared.translation.target && sqlite3_changes(m_impl->connection.get()) > 0)
        m_impl->changed = prepared.translation.target;
    return RecordSet(std::move(rows));
}

const schema::Table* Database::changedTable() const
{
    return m_impl->changed;
}

void Database::beginTransaction()
{
    engine::execute(m_impl->connection.get(), "BEGIN IMMEDIATE");
}

void Database::commitTransaction()
{
    engine::execute(m_impl->connection.get(), "COMMIT");
}

void Database::rollbackTransaction()
{
    // Nothing to give up when the engine has done it already.
    if (inTransaction())
        engine::execute(m_impl->connection.get(), "ROLLBACK");
}

void Database::beginPart()
{
    engine::execute(m_impl->connection.get(), "SAVEPOINT part");
}

void Database::endPart()
{
    engine::execute(m_impl->connection.get(), "RELEASE part");
}

void Database::takeBackPart()
{
    engine::execute(m_impl->connection.get(), "ROLLBACK TO part");
    endPart();
}

bool Database::inTransaction() const
{
    return sqlite3_get_autocommit(m_impl->connection.get()) == 0;
}

void Database::setInterceptor(std::function<void(QStringView)> interceptor)
{
    m_impl->interceptor = std::move(interceptor);
}

sqlite3* Database::handle() const
{
    return m_impl->connection.get();
}

const QString& Database::path() const
{
    return m_impl->path;
}
