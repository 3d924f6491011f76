// What the gateway's files share: one call of an operation with its trapping, its log entry and its default.
#pragma once

#include "store/engine/changeset.h"
#include "store/engine/database.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "store/gateway/undostack.h"
#include "store/session.h"

#include <QCoreApplication>

#include <optional>
#include <utility>

/// The gateway's connection, the state of the action at hand, and the one way in which every operation runs.
struct DataJW::Impl
{
    class Call;
    class Whole;

    explicit Impl(Session& owner)
        : session(owner)
    {
    }

    /// Runs the body of an operation. Whatever fails in it is logged under the operation's tag, with the
    /// statement at work, unless @p quiet; the operation then answers @p fallback.
    template<class Result, class Body>
    Result guarded(const QString& tag, Result fallback, Body&& body, bool quiet = false);

    /// Begins to record for the way back, when the engine can.
    void record();
    /// What was recorded, for pushing once it is on the disk; nothing when there is nothing to take back.
    std::optional<UndoStack::Step> takeRecorded();
    void push(std::optional<UndoStack::Step> step);

    template<class Result, class Body> Result attempt(Call& call, Result fallback, Body&& body);

    void open();
    RecordSet run(const QString& statement, const dialect::Want& want);
    void report(const Call& call, const StoreError& failure);

    void beginAction();
    bool endAction();
    /// Ends the action at hand; why it was not written, nothing when it was, or when it is an inner one.
    std::optional<StoreError> closeAction();
    /// Sends Session::changed() when nothing is under way any more.
    void tellChanges();
    /// Gives the whole action up when the failure leaves no hope for it, and remembers why.
    void noteLoss(const StoreError& failure);
    void rollback();

    Session& session;
    std::unique_ptr<Database> database; ///< null when the store could not be opened
    int depth = 0;                      ///< how many actions are open, one inside the other
    int calls = 0;                      ///< how many operations are at work, one inside the other
    int failedReads = 0;
    QSet<QString> changed; ///< tables changed since the last signal
    std::optional<engine::ChangeRecorder> recorder;
    QString actionName;             ///< of the action at hand, "" for none
    bool canRecord = false;         ///< the engine can, and every table of the file has a key
    bool undoable = true;           ///< the action at hand may be taken back
    std::optional<StoreError> lost; ///< why the action at hand was given up
};

/// One call of an operation: sends its statements and knows the one at work, so that a failure can name it.
class DataJW::Impl::Call
{
public:
    Call(Impl& impl, QString tag, bool quiet)
        : m_impl(impl)
        , m_tag(std::move(tag))
        , m_quiet(quiet)
    {
    }

    RecordSet run(const QString& statement, const dialect::Want& want = {})
    {
        m_statement = statement;
        return m_impl.run(statement, want);
    }
    /// The first row of a Select, or no row.
    RecordSet firstRow(const QString& statement) { return run(statement, {dialect::Want::FirstRow, {}}); }
    RecordSet oneColumn(const QString& statement, const QString& column)
    {
        return run(statement, {dialect::Want::OneColumn, column});
    }
    [[nodiscard]] Key countRows(const QString& statement);
    /// The key in @p column of the last row of the Select, nothing when it has no row.
    std::optional<Key> lastKey(const QString& statement, const QString& column);
    std::vector<Key> keys(const QString& statement, const QString& column);
    QStringList texts(const QString& statement, const QString& column);
    /// The rows of a Select; nothing, with @p notFound said, when it has none.
    RecordSet rowsOr(const QString& statement, const QString& notFound, int level);

    /// Sends the statements of @p body as one change: all of them, or none when one fails or the change
    /// cannot be written.
    template<class Body> auto whole(Body&& body);

    /// Logs a condition that is no failure of the store, unless the call is quiet.
    void say(const QString& text, int level = 1);
    /// From here on a failure goes under another tag, or names another statement.
    void setTag(const QString& tag) { m_tag = tag; }
    void setStatement(const QString& statement) { m_statement = statement; }

    [[nodiscard]] const QString& tag() const { return m_tag; }
    [[nodiscard]] const QString& statement() const { return m_statement; }
    [[nodiscard]] bool isQuiet() const { return m_quiet; }

private:
    Impl& m_impl;
    QString m_tag;
    QString m_statement;
    bool m_quiet;
};

/// An action of an operation's own: taken back unless it is ended, within another action alone.
class DataJW::Impl::Whole
{
public:
    explicit Whole(Impl& impl);
    ~Whole();
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole&) = delete;
    /// Throws StoreError when the outermost action could not be written.
    void end();

private:
    void takeBack();

    Impl& m_impl;
    QSet<QString> m_changedBefore;
    bool m_isPart = false; ///< of an action around it
    bool m_open = true;
};

template<class Body> auto DataJW::Impl::Call::whole(Body&& body)
{
    Whole whole(m_impl);
    const auto answer = body();
    whole.end();
    return answer;
}

/// Conversions between cells, names and statements that the operations share.
namespace gateway {

/// A text of the gateway's own in the user's language.
inline QString tr(const char* text)
{
    return QCoreApplication::translate("DataJW", text);
}

/// A refusal of the gateway itself.
StoreError refusal(StoreError::Code code, const QString& description);

/// A cell as a 16-bit number, NULL as 0; throws StoreError(Overflow) or StoreError(TypeMismatch).
Key keyOf(const QVariant& cell);
inline Key keyOf(const RecordSet& row, QStringView column)
{
    return keyOf(row.value(column));
}
/// A number of rows as a 16-bit number; throws StoreError(Overflow).
Key countOf(qint64 count);

inline QString text(Key key)
{
    return QString::number(key);
}

[[nodiscard]] bool isSelect(const QString& statement);

/// "First Last" at its first blank; without one all of it is the first name.
std::pair<QString, QString> splitName(const QString& name);

} // namespace gateway

template<class Result, class Body>
Result DataJW::Impl::guarded(const QString& tag, Result fallback, Body&& body, bool quiet)
{
    Call call(*this, tag, quiet);
    ++calls;
    const int failedBefore = failedReads;
    Result answer = attempt(call, fallback, body);
    // An operation that asks for a key first finds nothing when that read has failed.
    if constexpr (std::is_same_v<Result, RecordSet>) {
        if (failedReads != failedBefore && answer.isEmpty())
            answer = std::move(fallback);
    }
    --calls;
    tellChanges();
    return answer;
}

template<class Result, class Body> Result DataJW::Impl::attempt(Call& call, Result fallback, Body&& body)
{
    try {
        return body(call);
    } catch (const StoreError& failure) {
        report(call, failure);
    } catch (const std::exception& failure) {
        report(call, gateway::refusal(StoreError::BadStatement, QString::fromUtf8(failure.what())));
    }
    return fallback;
}
