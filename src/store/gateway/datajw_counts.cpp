// Counting for goals and statistics.
#include "store/gateway/datajw_impl.h"

#include "base/dates.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

/// Strictly later than the first day's midnight and strictly earlier than the last day's.
bool liesBetween(const std::optional<dates::Moment>& moment, QDate from, QDate to)
{
    if (!moment)
        return false;
    const bool later =
        moment->date > from || (moment->date == from && moment->time.isValid() && moment->time > QTime(0, 0));
    return later && moment->date < to;
}

/// How many rows of a Select have their date in @p column between two days.
template<class Call>
Key countBetween(Call& call, const QString& statement, const QString& column, QDate from, QDate to)
{
    qint64 count = 0;
    for (RecordSet rows = call.oneColumn(statement, column); !rows.atEnd(); rows.next())
        count += liesBetween(rows.moment(rows.columnName(0)), from, to) ? 1 : 0;
    return gateway::countOf(count);
}

} // namespace

Key DataJW::getPositionsExpiredCount(Key companyKey)
{
    return m_impl->guarded(u"DataJW-GetPositionsExpired"_s, Key(0), [&](auto& call) {
        // Today stands without quotes and so is two divisions: a number near 0, which no ordinary expiry date
        // lies below. The answer is none, and the screens' sentences are written for that.
        return call.countRows(u"Select * from Position where CompanyKey="_s + gateway::text(companyKey) +
                              u" And expires < " + m_impl->session.todayText());
    });
}

RecordSet DataJW::getProgressCount(const QString& column, QDate from, QDate to)
{
    return m_impl->guarded(u"DataJW-GetPositionData"_s, RecordSet::unread(), [&](auto& call) {
        // Divisions again, as no quotes stand around the days: the answer has no rows. getProgressDateCount
        // counts.
        return call.run(u"Select * from Position where "_s + column + u'>' + dates::mdyyyy(from) + u" and " +
                        column + u'<' + dates::mdyyyy(to));
    });
}

Key DataJW::getProgressDateCount(const QString& step, QDate from, QDate to, int medium)
{
    return m_impl->guarded(u"DataJW-GetProgressDateCount"_s, Key(0), [&](auto& call) {
        // Goals speak of offers; the step that brings one is called Hired.
        const QString column = step == u"Offers" ? u"Hired"_s : step;
        QString statement = u"Select * from position"_s;
        if (medium > 0)
            statement += u" where "_s + column + u"Medium=" + QString::number(medium);
        return countBetween(call, statement, column, from, to);
    });
}

Key DataJW::getNewTableCount(const QString& table, QDate from, QDate to)
{
    return m_impl->guarded(u"DataJW-GetNewTableCount"_s, Key(0), [&](auto& call) {
        // A contact is new on the day of its first history.
        const bool isContact = table == u"Contact";
        const QString statement = isContact ? u"Select * from History where ContactCount=1"_s
                                            : QString(u"Select * from "_s + table);
        const QString column = isContact || table == u"History" ? u"ContactDate"_s : u"EntryDate"_s;
        return countBetween(call, statement, column, from, to);
    });
}

Key DataJW::getStatusHours(QDate from, QDate to)
{
    return m_impl->guarded(u"DataJW-GetStatusHours"_s, Key(0), [&](auto& call) {
        qint64 minutes = 0;
        RecordSet rows = call.run(u"Select * from Status where StatusDescription='MinLog'"_s);
        for (; !rows.atEnd(); rows.next()) {
            if (liesBetween(rows.moment(u"StatusDate"), from, to))
                minutes += keyOf(rows, u"StatusValue");
        }
        return gateway::countOf(minutes / 60);
    });
}
