#include "history/historyclosing.h"

#include "base/dates.h"
#include "base/text.h"
#include "history/historysteps.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

QString written(QDate date)
{
    return date.isValid() ? dates::mdyyyy(date) : QString();
}

QString insertOf(const History& entry)
{
    // A text of another program's making may hold an apostrophe, and its row has just been deleted.
    const QStringList values{entry.HistKey,
                             QString::number(entry.ContactKey),
                             QString::number(entry.ContactCount),
                             text::quoteFix(entry.medium),
                             text::quoteFix(entry.Length),
                             text::quoteFix(entry.topic),
                             text::quoteFix(entry.Details),
                             text::quoteFix(entry.Location),
                             text::quoteFix(entry.ReturnCall),
                             written(entry.NextCall),
                             written(entry.ContactDate),
                             text::quoteFix(entry.DocXfer)};
    return u"INSERT INTO History(HistoryKey,ContactKey,ContactCount,Medium,Length,Topic,Details,Location,"
           "Return,NextCall,ContactDate,DocumentXfer) VALUES('"_s +
           values.join(u"','"_s) + u"')";
}

} // namespace

HistoryClosing::HistoryClosing(Session& session, HistoryEntries entries)
    : m_session(session)
    , m_entries(std::move(entries))
{
}

HistoryClosing::Outcome HistoryClosing::write()
{
    m_outcome = {};
    m_entries.sortByDate();
    m_entries.renumber();
    Action action(m_session.dataJW());
    {
        // One disk that is gone would otherwise bring a box for each of five hundred entries.
        const Session::QuietReports quiet(m_session);
        m_outcome.complete = writeRows() && quiet.held() == 0;
    }
    m_outcome.stored = action.commit();
    return m_outcome;
}

bool HistoryClosing::send(const QString& statement)
{
    return m_session.dataJW().execQuery(statement);
}

/// False when the rows could not be touched, or anything behind them failed.
bool HistoryClosing::writeRows()
{
    // Rows that could not be deleted are still the contact's whole history; inserted beside them, every
    // entry would stand there twice.
    if (!send(u"Delete * from History where contactkey = "_s + QString::number(m_entries.contactKey())))
        return false;
    for (int slot = 1; slot <= m_entries.count(); ++slot) {
        if (!send(insertOf(m_entries.at(slot))))
            m_outcome.unwritten.push_back(m_entries.at(slot));
    }
    const bool dated = writeLastContact();
    const bool moved = historysteps::move(m_session.dataJW(), m_entries.contactKey());
    return m_outcome.unwritten.empty() && dated && moved;
}

bool HistoryClosing::writeLastContact()
{
    return send(u"UPDATE Contact SET LastContact='"_s + dates::mmddyyyy(m_entries.latestDate()) +
                u"' where contactkey=" + QString::number(m_entries.contactKey()));
}
