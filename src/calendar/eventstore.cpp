#include "calendar/eventstore.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/recoveryinsert.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView insertEvent = u"INSERT into Event(";
constexpr QStringView insertPosition = u"INSERT INTO Position (";

} // namespace

namespace eventstore {

QString insertStatement(const JWevent& entry, const EventOwners& owners)
{
    const QStringList values{entry.eventName,
                             dates::mdyyyy(entry.eventDate),
                             entry.eventTime,
                             entry.eventDuration,
                             entry.ampm,
                             entry.reminder1,
                             u"0"_s, // a second reminder is never set
                             entry.eventDescription,
                             QString::number(owners.position),
                             QString::number(owners.contact),
                             QString::number(owners.company),
                             entry.medium,
                             entry.eventType,
                             entry.complete};
    QStringList quoted;
    for (const QString& value : values)
        quoted << fieldtext::quoted(value);
    return insertEvent +
           u"Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,Description,PositionKey,"
           u"ContactKey,"
           u"CompanyKey,Medium,EventType,Complete) VALUES (" +
           quoted.join(u',') + u')';
}

bool isStorable(QDate day)
{
    // A year of two digits would be read as one of our days, and statements hold four at most.
    return day.isValid() && day.year() >= 100 && day.year() <= 9999;
}

std::vector<Key> deleteRows(DataJW& dataJW, const std::vector<Key>& rows)
{
    std::vector<Key> left;
    for (const Key key : rows) {
        if (!dataJW.execQuery(u"DELETE * from EVENT where eventKey="_s + QString::number(key)))
            left.push_back(key);
    }
    return left;
}

bool moveTo(DataJW& dataJW, Key eventKey, QDate day)
{
    return dataJW.execQuery(u"Update Event set EventDate='"_s + dates::mdyyyy(day) + u"' where eventkey=" +
                            QString::number(eventKey));
}

bool setComplete(DataJW& dataJW, Key eventKey, bool complete)
{
    return dataJW.execQuery((complete ? u"Update Event set Complete='Complete' where EventKey="_s
                                      : u"Update Event set Complete='' where EventKey="_s) +
                            QString::number(eventKey));
}

QString placeholderTitle(const Session& session)
{
    return u"Position"_s + QString::number(QTime(0, 0).secsTo(session.now().time()));
}

QString addPlaceholder(Session& session, const QString& company, EventOwners& owners)
{
    DataJW& dataJW = session.dataJW();
    const QString title = placeholderTitle(session);
    // A position that nobody is assigned to has an empty list of contacts.
    const QString contacts = owners.contact == 0 ? QString() : QString::number(owners.contact);
    const QString insert = insertPosition + u"Title,EntryDate,Notes,ContactList,CompanyKey) VALUES ('" +
                           title + u"','" + session.todayText() + u"','Jobwright Generated Position','" +
                           contacts + u"'," + QString::number(owners.company) + u')';
    const bool inserted = dataJW.execQuery(insert);
    dataJW.execQuery(recoveryInsert(insert, u"PositionRecovery"_s));
    if (!inserted)
        return {};
    owners.position = dataJW.getPositionKey(title, text::quoteFix(company));
    if (owners.position <= 0) // not found by its title, but the highest key is that of the row just added
        owners.position = dataJW.getLastKeyInTable(u"Position"_s, u"PositionKey"_s);
    return title;
}

} // namespace eventstore
