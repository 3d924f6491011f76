#include "intake/recordimport.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/engine/database.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString addressTable = u"Address"_s;
const QString companyTable = u"Company"_s;
const QString contactTable = u"Contact"_s;

QString tr(const char* text)
{
    return QCoreApplication::translate("RecordImport", text);
}

QString identity(const QString& first, const QString& last = {})
{
    return first.toCaseFolded() + QChar(u'\1') + last.toCaseFolded();
}

/// A day in any form the program or the user's region writes; "" for any other text.
QString dayOf(const QString& text)
{
    if (const auto moment = dates::parse(text))
        return dates::general(*moment);
    const QDate day = QLocale().toDate(text, QLocale::ShortFormat);
    return day.isValid() ? dates::mdyyyy(day) : QString();
}

/// The value as its column can hold it.
QString fitting(const QString& value, schema::ColumnType type)
{
    if (type == schema::ColumnType::Date)
        return dayOf(value);
    if (type == schema::ColumnType::Integer) {
        bool isNumber = false;
        const auto number = toKey(value.toLongLong(&isNumber));
        return isNumber && number ? QString::number(*number) : QString();
    }
    return value;
}

} // namespace

RecordImport::RecordImport(Session& session, const RecordTable& table, const FieldMap& map, int count)
    : m_session(session)
    , m_table(table)
    , m_map(map)
    , m_count(std::min(count, table.recordCount()))
    , m_hasPerson(map.positionOf(u"Contact.FirstName") > 0 || map.positionOf(FieldMap::fullName) > 0)
{
}

QString RecordImport::value(int record, int position) const
{
    return position > 0 ? fieldtext::toStored(m_table.cell(record, position - 1).trimmed()) : QString();
}

std::pair<QString, QString> RecordImport::person(int record) const
{
    QString first = value(record, m_map.positionOf(u"Contact.FirstName"));
    QString last = value(record, m_map.positionOf(u"Contact.LastName"));
    if (first.isEmpty() && last.isEmpty()) {
        const QString full = value(record, m_map.positionOf(FieldMap::fullName));
        const auto blank = full.lastIndexOf(u' ');
        first = full.left(std::max<qsizetype>(blank, 0)).trimmed();
        last = full.mid(blank + 1);
    }
    return {first, last};
}

QString RecordImport::place(int record) const
{
    return tr("line %1").arg(m_table.line(record));
}

bool RecordImport::readStore()
{
    m_companies.clear();
    m_companyIndex.clear();
    m_people.clear();
    DataJW& data = m_session.dataJW();
    RecordSet companies = data.getExecQueryRecords(u"Select CompanyKey,Name from Company"_s);
    for (; !companies.atEnd(); companies.next()) {
        const int index = companyIndex(companies.text(u"Name"));
        if (Company& known = m_companies[static_cast<size_t>(index)]; known.isNew)
            known = {companies.text(u"Name"), companies.key(u"CompanyKey").value_or(0), false};
    }
    RecordSet people = data.getExecQueryRecords(u"Select FirstName,LastName from Contact"_s);
    for (; !people.atEnd(); people.next())
        m_people.insert(identity(people.text(u"FirstName").trimmed(), people.text(u"LastName").trimmed()));
    return !companies.isNothing() && !people.isNothing();
}

int RecordImport::companyIndex(const QString& name)
{
    const auto next = static_cast<int>(m_companies.size());
    const auto found = m_companyIndex.find(identity(name));
    if (found != m_companyIndex.end())
        return *found;
    m_companyIndex.insert(identity(name), next);
    m_companies.push_back({name});
    return next;
}

bool RecordImport::plan(bool leaveOutKnown)
{
    m_decisions.assign(static_cast<size_t>(m_count), {});
    m_known = 0;
    m_report = {};
    if (!readStore())
        return false;
    const size_t known = m_companies.size();
    for (int record = 0; record < m_count; ++record)
        decide(record, leaveOutKnown);
    m_report.companies = static_cast<int>(m_companies.size() - known);
    return true;
}

void RecordImport::decide(int record, bool leaveOutKnown)
{
    Decision& decision = m_decisions[static_cast<size_t>(record)];
    const auto [first, last] = m_hasPerson ? person(record) : std::pair<QString, QString>();
    const QString who = first + u' ' + last;
    decision.contact = !who.trimmed().isEmpty();
    const bool known = decision.contact && m_people.contains(identity(first, last));
    m_known += known ? 1 : 0;
    QString company = value(record, m_map.positionOf(u"Company.Name"));
    if (known && leaveOutKnown) {
        m_report.passOver(place(record), who, tr("is in the database already"));
        return;
    }
    if (company.isEmpty() && !decision.contact) {
        m_report.passOver(place(record), {}, tr("names neither a person nor a company"));
        return;
    }
    const int index = companyIndex(company.isEmpty() ? who.trimmed() : company);
    if (!decision.contact && !m_companies[static_cast<size_t>(index)].isNew) {
        m_report.passOver(place(record), company, tr("is in the database already"));
        return;
    }
    decision.company = index;
    m_report.contacts += decision.contact ? 1 : 0;
    m_report.addresses += m_map.entries(addressTable).empty() ? 0 : 1;
}

int RecordImport::newRecords() const
{
    return static_cast<int>(
        std::ranges::count_if(m_decisions, [](const Decision& each) { return each.company >= 0; }));
}

QStringList RecordImport::newPeople() const
{
    QStringList people;
    for (int record = 0; record < m_count; ++record) {
        const Decision& decision = m_decisions[static_cast<size_t>(record)];
        if (decision.company < 0)
            continue;
        const auto [first, last] = person(record);
        const QString& company = m_companies[static_cast<size_t>(decision.company)].name;
        people.append(decision.contact ? QString(first + u' ' + last + u", " + company) : company);
    }
    return people;
}

QString RecordImport::lackOfKeys() const
{
    Database& database = m_session.dataJW().database();
    const auto left = [&](const QString& table) { return keyLimit - highestKey(database, table); };
    const qint64 room = std::min(left(contactTable), left(addressTable));
    const qint64 companyRoom = left(companyTable);
    QSet<int> companies;
    int fit = 0;
    for (const Decision& decision : m_decisions) {
        if (decision.company < 0)
            continue;
        if (m_companies[static_cast<size_t>(decision.company)].isNew)
            companies.insert(decision.company);
        if (fit + 1 > room || companies.size() > companyRoom)
            return tr("The database has no room for %1 new records: it can number %2 of each kind, and the "
                      "first %3 of these would fit. Nothing was changed.")
                .arg(newRecords())
                .arg(keyLimit)
                .arg(fit);
        ++fit;
    }
    return {};
}

bool RecordImport::countsMislead() const
{
    DataJW& data = m_session.dataJW();
    return std::ranges::any_of(FieldMap::tables(), [&](const QString& table) {
        return highestKey(data.database(), table) != data.getCount(table, true);
    });
}

void RecordImport::prepare(const QString& table, const QStringList& ownColumns)
{
    Target target;
    const schema::Table& columns = *schema::findTable(table);
    for (const FieldMap::Entry& entry : m_map.entries(table)) {
        const int column = columns.indexOf(entry.column);
        if (column > 0 && !ownColumns.contains(entry.column))
            target.fields.push_back({entry.column, entry.position, columns.columns[size_t(column)].type});
    }
    QStringList names;
    for (const Field& field : target.fields)
        names.append(field.column);
    target.front = u"INSERT INTO "_s + table + u" (" + (names + ownColumns).join(u',') + u") VALUES (";
    target.count = m_session.dataJW().getCount(table, true);
    m_targets.insert(table, target);
}

/// The mapped values in quotes, with a comma behind each.
QString RecordImport::values(int record, const std::vector<Field>& fields, bool& dropped) const
{
    QString values;
    for (const Field& field : fields) {
        const QString text = value(record, field.position);
        const QString fits = fitting(text, field.type);
        dropped = dropped || (fits.isEmpty() && !text.isEmpty());
        values += u'\'' + fits + u"',";
    }
    return values;
}

/// The key of the new row; 0 when it was not stored.
Key RecordImport::insert(const QString& table, const QString& values)
{
    DataJW& data = m_session.dataJW();
    Target& target = m_targets[table];
    if (!data.execQuery(target.front + values + u')'))
        return 0;
    ++target.added;
    // The count stands for the key, as long as nothing was ever deleted; who knows better takes the last key.
    if (!m_byLastKey)
        return ++target.count;
    return data.getLastKeyInTable(table, table + u"Key");
}

Key RecordImport::storeCompany(int record, Company& company, Key addressKey)
{
    bool dropped = false;
    const bool hasAddress = m_map.positionOf(u"Company.AddressKey") > 0;
    QString row = values(record, m_targets[companyTable].fields, dropped) + u'\'' + company.name + u'\'';
    if (!hasAddress)
        row += u',' + QString::number(addressKey);
    company.key = insert(companyTable, row);
    company.isNew = false;
    return company.key;
}

void RecordImport::storeRecord(int record, const Decision& decision)
{
    bool dropped = false;
    Key address = 0;
    if (const Target& target = m_targets[addressTable]; !target.fields.empty()) {
        QString row = values(record, target.fields, dropped);
        row.chop(1);
        address = insert(addressTable, row);
    }
    Company& company = m_companies[static_cast<size_t>(decision.company)];
    if (company.isNew)
        storeCompany(record, company, address);
    const auto [first, last] = person(record);
    const QString who = decision.contact ? QString(first + u' ' + last) : company.name;
    if (decision.contact) {
        const QString row = values(record, m_targets[contactTable].fields, dropped) + u'\'' + first + u"','" +
                            last + u"'," + QString::number(address) + u',' + QString::number(company.key);
        if (insert(contactTable, row) == 0)
            m_report.passOver(place(record), who, tr("was refused by the database; the error log says why"));
    }
    if (dropped)
        m_report.remark(place(record), who, tr("a date or a number could not be read and was left empty"));
}

bool RecordImport::store(bool byLastKey, const ImportTick& tick)
{
    m_byLastKey = byLastKey;
    m_report.contacts = m_report.companies = m_report.addresses = 0;
    prepare(addressTable, {});
    QStringList company{u"Name"_s};
    if (m_map.positionOf(u"Company.AddressKey") == 0)
        company.append(u"AddressKey"_s);
    prepare(companyTable, company);
    prepare(contactTable, {u"FirstName"_s, u"LastName"_s, u"AddressKey"_s, u"CompanyKey"_s});

    DataJW& data = m_session.dataJW();
    Action action(data, Action::NotUndoable()); // the copy before it is the way back
    {
        const Session::QuietReports quiet(m_session);
        for (int record = 0; record < m_count; ++record) {
            const Decision& decision = m_decisions[static_cast<size_t>(record)];
            if (!tick(record, m_count)) {
                m_report.remark(place(record), {}, tr("the import was stopped here"));
                break;
            }
            if (decision.company >= 0)
                storeRecord(record, decision);
            if (!data.database().inTransaction())
                break; // a full disk: the action says so at its end
        }
    }
    if (!action.commit()) {
        m_report = {};
        return false;
    }
    m_report.contacts = m_targets[contactTable].added;
    m_report.companies = m_targets[companyTable].added;
    m_report.addresses = m_targets[addressTable].added;
    return true;
}
