#include "store/gateway/listings.h"

#include "base/dates.h"
#include "base/text.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// One row of a statement at work.
class Row
{
public:
    explicit Row(sqlite3_stmt* statement)
        : m_statement(statement)
    {
    }
    [[nodiscard]] QString text(int column) const
    {
        const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        return QString::fromUtf8(utf8, sqlite3_column_bytes(m_statement, column));
    }
    [[nodiscard]] int number(int column) const { return sqlite3_column_int(m_statement, column); }
    /// The day of a contact; invalid for none.
    [[nodiscard]] QDate day(int column) const
    {
        const auto moment = dates::parse(text(column));
        return moment && moment->date > dates::sentinel ? moment->date : QDate();
    }

private:
    sqlite3_stmt* m_statement;
};

bool read(DataJW& dataJW, const QByteArray& sql, Key key, const std::function<void(sqlite3_stmt*)>& show)
{
    try {
        sqlite3* const connection = dataJW.database().handle();
        const engine::Statement statement = engine::prepare(connection, sql);
        if (sqlite3_bind_parameter_count(statement.get()) > 0)
            sqlite3_bind_int(statement.get(), 1, key);
        int code = SQLITE_ROW;
        while ((code = sqlite3_step(statement.get())) == SQLITE_ROW)
            show(statement.get());
        if (code != SQLITE_DONE)
            throw engine::failure(connection);
        return true;
    } catch (const StoreError& failure) {
        dataJW.logError(u"DataJW-List"_s + text::crlf + failure.description());
        return false;
    }
}

/// The columns of Position without its long texts.
std::vector<RecordSet::Column> positionColumns()
{
    std::vector<RecordSet::Column> columns;
    for (const schema::Column& column : schema::findTable(u"Position")->columns) {
        if (column.type != schema::ColumnType::Text || column.name == u"Title")
            columns.push_back({column.name, column.type});
    }
    return columns;
}

QByteArray listed(const std::vector<RecordSet::Column>& columns)
{
    QByteArray items;
    for (const RecordSet::Column& column : columns)
        items += "p.\"" + column.name.toUtf8() + "\", ";
    return items;
}

RecordSet asRecord(sqlite3_stmt* statement, const std::vector<RecordSet::Column>& columns)
{
    auto rows = std::make_shared<RecordSet::Rows>();
    rows->columns = columns;
    rows->count = 1;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        rows->cells.push_back(engine::cell(statement, i));
    return RecordSet(std::move(rows));
}

} // namespace

bool listings::contacts(DataJW& dataJW, Key company, const std::function<void(const ContactRow&)>& show)
{
    const QByteArray sql = QByteArray("select trim(c.FirstName) || ' ' || trim(c.LastName), f.Name, c.Title, "
                                      "a.Phone1, a.Email1, a.Email2, c.LastContact, c.ContactLevel "
                                      "from Company f join Contact c on c.CompanyKey = f.CompanyKey "
                                      "left join Address a on a.AddressKey = c.AddressKey ") +
                           (company ? "where f.CompanyKey = ?1 " : "") +
                           "order by f.Name collate letters, f.CompanyKey, c.ContactKey";
    return read(dataJW, sql, company, [&](sqlite3_stmt* statement) {
        const Row row(statement);
        show({row.text(0), row.text(1), row.text(2), row.text(3), row.text(4), row.text(5), row.day(6),
              row.number(7)});
    });
}

bool listings::companies(DataJW& dataJW, const std::function<void(const CompanyRow&)>& show)
{
    // Beside the highest row number the engine gives the other columns of that row: a contact's last history.
    const QByteArray sql =
        "with h as (select ContactKey as k, ContactCount as n, max(rowid) from History group by ContactKey), "
        "c as (select CompanyKey as k, count(*) as n, sum(h.n) as histories, max(LastContact) as reached "
        "from Contact left join h on h.k = ContactKey group by CompanyKey), "
        "p as (select CompanyKey as k, count(*) as n from Position group by CompanyKey) "
        "select f.Name, p.n, c.n, c.histories, c.reached from Company f "
        "left join p on p.k = f.CompanyKey left join c on c.k = f.CompanyKey "
        "order by f.Name collate letters, f.CompanyKey";
    return read(dataJW, sql, 0, [&](sqlite3_stmt* statement) {
        const Row row(statement);
        show({row.text(0), row.number(1), row.number(2), row.number(3), row.day(4)});
    });
}

bool listings::positions(DataJW& dataJW, Key company, PositionOrder order,
                         const std::function<void(const RecordSet&, const QString&)>& show)
{
    const std::vector<RecordSet::Column> columns = positionColumns();
    const QByteArray sql = "select " + listed(columns) +
                           "f.Name from Position p left join Company f on f.CompanyKey = p.CompanyKey " +
                           (company ? "where p.CompanyKey = ?1 " : "") + "order by " +
                           (order == PositionOrder::Company ? "f.Name collate letters, " : "") +
                           "p.Title collate letters, p.PositionKey";
    return read(dataJW, sql, company, [&](sqlite3_stmt* statement) {
        show(asRecord(statement, columns), Row(statement).text(static_cast<int>(columns.size())));
    });
}
