#include "calendar/reminderlist.h"

#include "calendar/jwevent.h"
#include "store/gateway/datajw.h"
#include "store/gateway/names.h"

#include <QCoreApplication>
#include <QHash>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("FrmReminder", text);
}

/// From so many events on the names are read table by table: each name by itself is a statement.
constexpr size_t manyEvents = 200;

/// The names in a table of all that events belong to, by their keys. Joined, as a campaign may hold many more
/// names than its events need.
QHash<Key, QString> eventNames(DataJW& dataJW, const QString& table, const QString& columns)
{
    const QString key = table + u"Key";
    return names::byKey(dataJW.getExecQueryRecords(u"Select Event." + key + u',' + columns +
                                                   u" from Event Inner Join " + table + u" On Event." + key +
                                                   u'=' + table + u'.' + key));
}

/// Names by key, each asked for once however many events share it.
class Names
{
public:
    explicit Names(std::function<QString(Key)> ask)
        : m_ask(std::move(ask))
    {
    }
    /// From here on nobody is asked: what is not in @p all has no name.
    void know(QHash<Key, QString> all)
    {
        m_known = std::move(all);
        m_ask = [](Key) { return QString(); };
    }
    QString operator()(Key key)
    {
        if (key == 0)
            return {};
        auto found = m_known.find(key);
        if (found == m_known.end())
            found = m_known.insert(key, m_ask(key));
        return *found;
    }

private:
    std::function<QString(Key)> m_ask;
    QHash<Key, QString> m_known;
};

/// Walks the rows of all events; columns are found once, as there may be thousands of rows.
class Look
{
public:
    Look(DataJW& dataJW, RecordSet events, const QDateTime& now)
        : m_dataJW(dataJW)
        , m_events(std::move(events))
        , m_rules(now)
        , m_contacts([&dataJW](Key key) { return dataJW.getContactByKey(key); })
        , m_positions([&dataJW](Key key) { return dataJW.getPositionNameByKey(key); })
        , m_companies([&dataJW](Key key) { return dataJW.getCompanyNameByKey(key); })
    {
        constexpr std::array<QStringView, ColumnCount> names{
            u"EventType", u"EventDate", u"EventTime",   u"AMPM",       u"Reminder1",   u"Complete",
            u"EventKey",  u"Event",     u"Description", u"ContactKey", u"PositionKey", u"CompanyKey"};
        for (int i = 0; i < ColumnCount; ++i)
            m_columns[static_cast<size_t>(i)] = m_events.columnIndex(names[static_cast<size_t>(i)]);
    }

    DueEvents all()
    {
        m_found.looked = m_events.rowCount();
        m_found.open.reserve(static_cast<size_t>(m_found.looked));
        m_owners.reserve(m_found.open.capacity());
        for (; !m_events.atEnd(); m_events.next()) {
            // The store finds the kind in any case; an event is only what is written exactly so.
            if (text(EventType) == u"Event")
                look();
        }
        nameThem();
        return std::move(m_found);
    }

private:
    enum Column {
        EventType,
        EventDate,
        EventTime,
        AmPm,
        Reminder1,
        Complete,
        EventKey,
        Event,
        Description,
        ContactKey,
        PositionKey,
        CompanyKey,
        ColumnCount
    };

    /// As stored: there is no need to put thousands of dates into another form to read them again.
    [[nodiscard]] QString text(Column column) const { return m_events.value(m_columns[column]).toString(); }

    [[nodiscard]] std::optional<Key> key(Column column) const
    {
        const QVariant cell = m_events.value(m_columns[column]);
        return cell.isNull() ? std::nullopt : toKey(cell.toLongLong());
    }

    void look()
    {
        const auto verdict = m_rules.judge({text(EventDate), text(EventTime), text(AmPm), text(Reminder1)});
        if (!verdict) {
            // The log names a row that cannot be listed, so that the user can correct it.
            m_found.failure = tr("The event \"%1\" has a date that cannot be read: \"%2\".")
                                  .arg(text(Event), m_events.text(u"EventDate"));
            return;
        }
        if (!verdict->inTime)
            return;
        const auto eventKey = key(EventKey);
        if (!eventKey) {
            m_found.failure = tr("The number of the event \"%1\" is too large.").arg(text(Event));
            return;
        }
        m_found.matched.push_back(*eventKey);
        const QString complete = text(Complete);
        if (complete != u"Complete" && complete != u"OkEvent")
            list(*eventKey, *verdict);
    }

    [[nodiscard]] dates::Moment when(const ReminderVerdict& verdict) const
    {
        const auto own = dates::parse(text(EventDate));
        if (!own || !dates::isDay(own->date))
            return {};
        return text(EventTime) == u"Nodate" || verdict.isUnreadable
                   ? dates::Moment{own->date, {}}
                   : dates::Moment{verdict.moment.date(), verdict.moment.time()};
    }

    void list(Key eventKey, const ReminderVerdict& verdict)
    {
        m_found.open.push_back(
            {eventKey, text(Event), text(Description), verdict, when(verdict), {}, {}, {}});
        m_owners.push_back(
            {key(ContactKey).value_or(0), key(CompanyKey).value_or(0), key(PositionKey).value_or(0)});
    }

    void nameThem()
    {
        if (m_owners.size() >= manyEvents) {
            m_contacts.know(eventNames(m_dataJW, u"Contact"_s, u"FirstName,LastName"_s));
            m_positions.know(eventNames(m_dataJW, u"Position"_s, u"Title"_s));
            m_companies.know(eventNames(m_dataJW, u"Company"_s, u"Name"_s));
        }
        for (size_t i = 0; i < m_owners.size(); ++i) {
            DueEvent& due = m_found.open[i];
            due.contact = m_contacts(m_owners[i].contact);
            due.position = m_positions(m_owners[i].position);
            due.company = m_companies(m_owners[i].company);
        }
    }

    DataJW& m_dataJW;
    RecordSet m_events;
    ReminderRules m_rules;
    std::array<int, ColumnCount> m_columns{};
    Names m_contacts;
    Names m_positions;
    Names m_companies;
    DueEvents m_found;
    std::vector<EventOwners> m_owners; ///< of m_found.open, in its order
};

} // namespace

QString DueEvent::whenText() const
{
    const QString shown = when.date.isValid() ? dates::general(when) : tr("No Date");
    return verdict.isUnreadable ? tr("%1 (its time or reminder cannot be read)").arg(shown) : shown;
}

DueEvents lookForDueEvents(DataJW& dataJW, const QDateTime& now)
{
    RecordSet events = dataJW.getEventAll(u"Event"_s);
    if (events.isNothing()) {
        DueEvents none;
        none.failure = tr("The events could not be read.");
        return none;
    }
    return Look(dataJW, std::move(events), now).all();
}
