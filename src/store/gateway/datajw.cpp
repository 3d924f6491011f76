#include "store/gateway/datajw_impl.h"

#include "base/text.h"
#include "store/files/storefile.h"
#include "store/files/storemigrate.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace gateway {

StoreError refusal(StoreError::Code code, const QString& description)
{
    return {description, code, u"Jobwright"_s};
}

Key keyOf(const QVariant& cell)
{
    if (cell.isNull())
        return 0;
    bool isNumber = false;
    const double number = cell.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        throw refusal(StoreError::TypeMismatch,
                      tr("\"%1\" stands where a number is needed.").arg(cell.toString().left(100)));
    // Far from the limits of the wider integer before it is rounded; what is cut here is too large all the
    // same.
    return countOf(std::llround(std::clamp(number, -1e15, 1e15)));
}

Key countOf(qint64 count)
{
    const auto key = toKey(count);
    if (!key)
        throw refusal(StoreError::Overflow,
                      tr("The number %1 is too large: 32767 is the highest that the program can work with.")
                          .arg(count));
    return *key;
}

bool isSelect(const QString& statement)
{
    return QStringView(statement).trimmed().startsWith(u"select", Qt::CaseInsensitive);
}

std::pair<QString, QString> splitName(const QString& name)
{
    const qsizetype blank = name.indexOf(u' ');
    if (blank < 0)
        return {name, {}};
    return {name.left(blank), name.mid(blank + 1)};
}

} // namespace gateway

using gateway::keyOf;

Key DataJW::Impl::Call::countRows(const QString& statement)
{
    return keyOf(run(statement, {dialect::Want::RowCount, {}}).value(0));
}

std::optional<Key> DataJW::Impl::Call::lastKey(const QString& statement, const QString& column)
{
    const RecordSet last = run(statement, {dialect::Want::LastValue, column});
    return last.isEmpty() ? std::nullopt : std::optional(keyOf(last.value(0)));
}

std::vector<Key> DataJW::Impl::Call::keys(const QString& statement, const QString& column)
{
    RecordSet rows = oneColumn(statement, column);
    std::vector<Key> found;
    found.reserve(static_cast<size_t>(rows.rowCount()));
    for (; !rows.atEnd(); rows.next())
        found.push_back(keyOf(rows.value(0)));
    return found;
}

QStringList DataJW::Impl::Call::texts(const QString& statement, const QString& column)
{
    RecordSet rows = oneColumn(statement, column);
    QStringList found;
    found.reserve(rows.rowCount());
    for (; !rows.atEnd(); rows.next())
        found.append(rows.text(0));
    return found;
}

RecordSet DataJW::Impl::Call::rowsOr(const QString& statement, const QString& notFound, int level)
{
    const RecordSet rows = run(statement);
    if (!rows.isEmpty())
        return rows;
    say(notFound, level);
    return {};
}

void DataJW::Impl::Call::say(const QString& text, int level)
{
    if (!m_quiet)
        m_impl.session.logError(text, level);
}

void DataJW::Impl::open()
{
    const QString path = session.databasePath();
    FileReport file = inspectStore(path);
    if (file.state == FileState::Older) {
        migrateStore(path, session.now());
        file = inspectStore(path);
    }
    if (file.state != FileState::Good)
        throw gateway::refusal(StoreError::NotConnected, file.message);
    database = std::make_unique<Database>(path);
    canRecord = UndoStack::isAvailable() && engine::recordsAllTables(database->handle());
}

RecordSet DataJW::Impl::run(const QString& statement, const dialect::Want& want)
{
    if (!database)
        throw gateway::refusal(StoreError::NotConnected, gateway::tr("The database is not open."));
    if (depth > 0 && (lost || !database->inTransaction()))
        throw gateway::refusal(StoreError::ActionLost,
                               gateway::tr("The change that this belongs to was given up before."));
    // Outside of an action a writing statement is one by itself.
    const bool isAction = depth == 0 && !gateway::isSelect(statement);
    if (isAction)
        record();
    try {
        RecordSet rows = database->run(statement, want);
        if (const schema::Table* table = database->changedTable())
            changed.insert(table->name);
        if (isAction)
            push(takeRecorded());
        return rows;
    } catch (const StoreError& failure) {
        if (isAction)
            recorder.reset();
        noteLoss(failure);
        throw;
    }
}

void DataJW::Impl::report(const Call& call, const StoreError& failure)
{
    // Where a first row is asked for and there is none, the table was read.
    if (gateway::isSelect(call.statement()) && failure.number() != StoreError::NoRow)
        ++failedReads;
    if (call.isQuiet())
        return;
    // The end of a lost action tells the user once; its statements only leave their trace.
    const int level = failure.number() == StoreError::ActionLost ? 1 : 0;
    session.logError(call.tag() + text::crlf + u"Query: " + call.statement(), level, &failure);
}

DataJW::DataJW(Session& session)
    : m_impl(std::make_unique<Impl>(session))
{
    const QString test = u"Select * from Company"_s;
    const bool works = m_impl->guarded(u"DataJW-Init"_s, false, [&](auto& call) {
        call.setStatement(test);
        m_impl->open();
        call.firstRow(test);
        session.addLog(u"Test DSN Connection Passed"_s);
        return true;
    });
    if (!works)
        m_impl->database.reset();
}

DataJW::~DataJW() = default;

bool DataJW::isConnected() const
{
    return m_impl->database != nullptr;
}

Database& DataJW::database()
{
    if (!m_impl->database)
        throw gateway::refusal(StoreError::NotConnected, gateway::tr("The database is not open."));
    return *m_impl->database;
}

int DataJW::failedReads() const
{
    return m_impl->failedReads;
}

ReadWatch::ReadWatch(const DataJW& dataJW)
    : m_dataJW(dataJW)
    , m_before(dataJW.failedReads())
{
}

bool ReadWatch::failed() const
{
    return m_dataJW.failedReads() != m_before;
}

void ReadWatch::restart()
{
    m_before = m_dataJW.failedReads();
}

void DataJW::logError(const QString& text, int level)
{
    m_impl->session.logError(text, level > 0 ? level : 0);
}
