#include "intake/contactmerge.h"

#include "base/text.h"
#include "intake/columnnames.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ContactMerge", text);
}

QString where(const char* column, Key key)
{
    return u" where "_s + QLatin1String(column) + u'=' + QString::number(key);
}

/// What two spellings of a name have in common: the first word of the first and the last of the last.
QString spelled(const QString& first, const QString& last)
{
    return columnnames::plain(first.trimmed().section(u' ', 0, 0)) + u' ' +
           columnnames::plain(last.trimmed().section(u' ', -1));
}

/// The columns that a person sees, and their words.
struct Shown
{
    const char* column;
    const char* label;
};
constexpr Shown shown[] = {{"Contact.FirstName", QT_TRANSLATE_NOOP("ContactMerge", "First name")},
                           {"Contact.Middle", QT_TRANSLATE_NOOP("ContactMerge", "Middle name")},
                           {"Contact.LastName", QT_TRANSLATE_NOOP("ContactMerge", "Last name")},
                           {"Contact.Title", QT_TRANSLATE_NOOP("ContactMerge", "Title")},
                           {"Contact.CompanyKey", QT_TRANSLATE_NOOP("ContactMerge", "Company")},
                           {"Contact.Department", QT_TRANSLATE_NOOP("ContactMerge", "Department")},
                           {"Contact.ReportsTo", QT_TRANSLATE_NOOP("ContactMerge", "Reports to")},
                           {"Contact.HiringMgr", QT_TRANSLATE_NOOP("ContactMerge", "Roles")},
                           {"Contact.BestMedium", QT_TRANSLATE_NOOP("ContactMerge", "Ways to reach")},
                           {"Contact.ContactTime", QT_TRANSLATE_NOOP("ContactMerge", "Best times")},
                           {"Contact.ContactLevel", QT_TRANSLATE_NOOP("ContactMerge", "Level")},
                           {"Contact.Notes", QT_TRANSLATE_NOOP("ContactMerge", "Notes")},
                           {"Address.Address1", QT_TRANSLATE_NOOP("ContactMerge", "Street")},
                           {"Address.Address2", QT_TRANSLATE_NOOP("ContactMerge", "Street, second line")},
                           {"Address.City", QT_TRANSLATE_NOOP("ContactMerge", "City")},
                           {"Address.State", QT_TRANSLATE_NOOP("ContactMerge", "State")},
                           {"Address.Zip", QT_TRANSLATE_NOOP("ContactMerge", "Zip")},
                           {"Address.Phone1", QT_TRANSLATE_NOOP("ContactMerge", "Phone 1")},
                           {"Address.Phone2", QT_TRANSLATE_NOOP("ContactMerge", "Phone 2")},
                           {"Address.Phone3", QT_TRANSLATE_NOOP("ContactMerge", "Phone 3")},
                           {"Address.Fax", QT_TRANSLATE_NOOP("ContactMerge", "Fax")},
                           {"Address.Email1", QT_TRANSLATE_NOOP("ContactMerge", "Mail 1")},
                           {"Address.Email2", QT_TRANSLATE_NOOP("ContactMerge", "Mail 2")},
                           {"Address.URL1", QT_TRANSLATE_NOOP("ContactMerge", "Web page 1")},
                           {"Address.URL2", QT_TRANSLATE_NOOP("ContactMerge", "Web page 2")}};

} // namespace

std::vector<ContactPair> findDoubles(Session& session)
{
    DataJW& data = session.dataJW();
    QHash<qlonglong, QString> companies;
    for (RecordSet row = data.getExecQueryRecords(u"Select CompanyKey,Name from Company"_s); !row.atEnd();
         row.next())
        companies.insert(row.value(0).toLongLong(), row.text(1));
    QHash<QString, std::vector<std::pair<Key, QString>>> people;
    std::vector<ContactPair> pairs;
    RecordSet row =
        data.getExecQueryRecords(u"Select ContactKey,FirstName,LastName,CompanyKey from Contact"_s);
    for (; !row.atEnd(); row.next()) {
        const QString id = spelled(row.text(1), row.text(2));
        const Key key = row.key(u"ContactKey").value_or(0);
        if (key == 0 || id.trimmed().isEmpty())
            continue;
        QString name = row.text(1) + u' ' + row.text(2);
        if (const QString company = companies.value(row.value(3).toLongLong()); !company.isEmpty())
            name += u" ("_s + company + u')';
        auto& equal = people[id];
        for (const auto& [other, otherName] : equal)
            pairs.push_back({other, key, otherName, name});
        if (equal.size() < 8) // more of one name are no doubles of each other
            equal.emplace_back(key, name);
    }
    return pairs;
}

ContactMerge::ContactMerge(Session& session, Key first, Key second)
    : m_session(session)
    , m_first(first)
    , m_second(second)
{
    if (first > 0 && second > 0 && first != second)
        readRows();
    if (isReadable())
        countMoves();
}

void ContactMerge::readRows()
{
    DataJW& data = m_session.dataJW();
    const RecordSet first = data.getContactDataByKey(m_first);
    const RecordSet second = data.getContactDataByKey(m_second);
    if (first.isEmpty() || second.isEmpty())
        return;
    m_firstAddress = first.key(u"AddressKey").value_or(0);
    m_secondAddress = second.key(u"AddressKey").value_or(0);
    const RecordSet firstAddress = data.getAddress(m_firstAddress);
    const RecordSet secondAddress = data.getAddress(m_secondAddress);
    for (const Shown& each : shown) {
        const QString field = QString::fromLatin1(each.column);
        const QString column = field.section(u'.', 1);
        const bool ofAddress = field.startsWith(u"Address"_s);
        QString left = (ofAddress ? firstAddress : first).text(column);
        QString right = (ofAddress ? secondAddress : second).text(column);
        if (column == "CompanyKey"_L1) {
            left = data.getCompanyNameByKey(first.key(column).value_or(0), left.isEmpty());
            right = data.getCompanyNameByKey(second.key(column).value_or(0), right.isEmpty());
        }
        const auto isNothing = [&](const QString& value) {
            return value.isEmpty() || (column == "ContactLevel"_L1 && value == "0"_L1);
        };
        if (!left.isEmpty() || !right.isEmpty())
            m_rows.push_back({tr(each.label), field, left, right, isNothing(left) && !isNothing(right)});
    }
}

void ContactMerge::countMoves()
{
    DataJW& data = m_session.dataJW();
    const auto count = [&](const QString& table, Key contact) {
        return data.getExecQueryRecords(u"Select ContactKey from "_s + table + where("ContactKey", contact))
            .rowCount();
    };
    m_moves.histories = count(u"History"_s, m_second);
    m_histories = m_moves.histories + count(u"History"_s, m_first);
    m_moves.events = count(u"Event"_s, m_second);
    for (const QString& table : {u"Contact"_s, u"Position"_s}) {
        RecordSet rows =
            data.getExecQueryRecords(u"Select ContactList from "_s + table + u" where ContactList > ''");
        for (; !rows.atEnd(); rows.next())
            m_moves.links += text::csvParse(rows.text(0)).contains(QString::number(m_second)) ? 1 : 0;
    }
    m_moves.documents =
        static_cast<int>(text::csvParse(data.getContactDataByKey(m_second).text(u"DocumentList")).size());
}

QString ContactMerge::refusal() const
{
    if (!isReadable())
        return tr("One of the two contacts is not there any more.");
    return m_histories > mostHistories ? tr("Together they have %1 histories, and a contact can have %2.")
                                             .arg(m_histories)
                                             .arg(mostHistories)
                                       : QString();
}

bool ContactMerge::send(const QString& statement)
{
    // After a failure nothing more is sent: what has not moved stays with the second, for another try.
    m_whole = m_whole && m_session.dataJW().execQuery(statement);
    return m_whole;
}

bool ContactMerge::run()
{
    if (const QString reason = refusal(); !reason.isEmpty()) {
        m_session.msgBox(reason);
        return false;
    }
    DataJW& data = m_session.dataJW();
    Action action(data, tr("merge of two contacts"));
    m_whole = true;
    const QDate reached = data.getContactDataByKey(m_second).date(u"LastContact");
    const QDate before = data.getContactDataByKey(m_first).date(u"LastContact");
    writeRows();
    writeAddress();
    moveHistories();
    joinList(u"ContactList"_s);
    joinList(u"DocumentList"_s);
    for (const QString& table : {u"Contact"_s, u"Position"_s})
        moveLinks(table);
    if (reached.isValid() && (!before.isValid() || reached > before))
        send(u"Update Contact set LastContact='"_s + dates::mdyyyy(reached) + u'\'' +
             where("ContactKey", m_first));
    send(u"Update Event set ContactKey="_s + QString::number(m_first) + where("ContactKey", m_second));
    // The second goes only when all of it has arrived.
    if (m_whole)
        data.delRecord(m_second, u"Contact"_s);
    return action.commit() && m_whole;
}

void ContactMerge::writeRows()
{
    QStringList parts;
    for (const Row& row : m_rows) {
        if (!row.takeSecond || !row.column.startsWith(u"Contact."_s))
            continue;
        const QString column = row.column.section(u'.', 1);
        const QString value = column == "CompanyKey"_L1
                                  ? m_session.dataJW().getContactDataByKey(m_second).text(column)
                                  : row.second;
        parts.append(column + u"='" + text::quoteFix(value) + u'\'');
    }
    if (!parts.isEmpty())
        send(u"Update Contact set "_s + parts.join(u',') + where("ContactKey", m_first));
}

/// An address that others use as well stays theirs: the contact gets a row of its own.
void ContactMerge::writeAddress()
{
    QStringList columns;
    QStringList values;
    QStringList parts;
    bool changes = false;
    for (const Row& row : m_rows) {
        if (!row.column.startsWith(u"Address."_s))
            continue;
        const QString column = row.column.section(u'.', 1);
        const QString value = u'\'' + text::quoteFix(row.takeSecond ? row.second : row.first) + u'\'';
        columns.append(column);
        values.append(value);
        parts.append(column + u'=' + value);
        changes = changes || (row.takeSecond && row.first != row.second);
    }
    if (!changes)
        return;
    DataJW& data = m_session.dataJW();
    const auto users = [&](const char* table) {
        return data
            .getExecQueryRecords(u"Select AddressKey from "_s + QLatin1String(table) +
                                 where("AddressKey", m_firstAddress))
            .rowCount();
    };
    if (m_firstAddress > 0 && users("Contact") + users("Company") == 1) {
        send(u"Update Address set "_s + parts.join(u',') + where("AddressKey", m_firstAddress));
        return;
    }
    if (send(u"Insert into Address ("_s + columns.join(u',') + u",Country) Values(" + values.join(u',') +
             u",'USA')"))
        send(u"Update Contact set AddressKey="_s +
             QString::number(data.getLastKeyInTable(u"Address"_s, u"AddressKey"_s)) +
             where("ContactKey", m_first));
}

/// Both contacts' histories by day; on equal days the first's come before the second's.
void ContactMerge::moveHistories()
{
    if (m_moves.histories == 0)
        return;
    struct Entry
    {
        QString key;
        QDate day;
    };
    std::vector<Entry> entries;
    for (const Key contact : {m_first, m_second}) {
        RecordSet rows =
            m_session.dataJW().getExecQueryRecords(u"Select HistoryKey,ContactDate from History"_s +
                                                   where("ContactKey", contact) + u" order by ContactCount");
        for (; !rows.atEnd(); rows.next())
            entries.push_back({rows.text(0), rows.date(u"ContactDate")});
    }
    if (static_cast<int>(entries.size()) != m_histories) { // not all could be read: none is moved
        m_whole = false;
        return;
    }
    std::ranges::stable_sort(entries, {}, &Entry::day);
    const QString first = QString::number(m_first);
    int count = 0;
    for (const Entry& entry : entries) {
        // Under a key of no contact's until all are numbered, as the new numbers are the old ones of others.
        const QString number = QString::number(++count);
        send(u"Update History set HistoryKey='merged-"_s + number + u"',ContactKey=" + first +
             u",ContactCount=" + number + u" where HistoryKey='" + entry.key + u'\'');
    }
    send(u"Update History set HistoryKey=('"_s + first + u"-' & ContactCount) where contactkey=" + first);
}

/// The keys of both lists, each once, neither of the two among them.
void ContactMerge::joinList(const QString& column)
{
    DataJW& data = m_session.dataJW();
    const bool ofContacts = column == "ContactList"_L1;
    QStringList keys = text::csvParse(data.getContactDataByKey(m_first).text(column)) +
                       text::csvParse(data.getContactDataByKey(m_second).text(column));
    keys.removeDuplicates();
    if (ofContacts) {
        keys.removeAll(QString::number(m_first));
        keys.removeAll(QString::number(m_second));
    }
    send(u"Update Contact set "_s + column + u"='" + keys.join(u',') + u'\'' + where("ContactKey", m_first));
}

void ContactMerge::moveLinks(const QString& table)
{
    const QString first = QString::number(m_first);
    const QString second = QString::number(m_second);
    const QString keyColumn = table + u"Key";
    RecordSet rows = m_session.dataJW().getExecQueryRecords(u"Select "_s + keyColumn + u",ContactList from " +
                                                            table + u" where ContactList > ''");
    for (; !rows.atEnd(); rows.next()) {
        QStringList keys = text::csvParse(rows.text(1));
        if (!keys.contains(second))
            continue;
        keys.replaceInStrings(QRegularExpression(u"^"_s + second + u'$'), first);
        keys.removeDuplicates();
        send(u"Update "_s + table + u" set ContactList='" + keys.join(u',') + u"' where " + keyColumn + u'=' +
             rows.text(0));
    }
}
