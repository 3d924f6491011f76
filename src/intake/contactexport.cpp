#include "intake/contactexport.h"

#include "base/dates.h"
#include "base/text.h"
#include "formats/csvfile.h"
#include "formats/vcardfile.h"
#include "store/engine/schema.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QSaveFile>

#include <array>

using namespace Qt::StringLiterals;

namespace contactexport {
namespace {

/// The rows of a table by their keys.
class Rows
{
public:
    Rows(DataJW& data, const QString& table)
    {
        for (RecordSet row = data.getExecQueryRecords(u"Select * from "_s + table); !row.atEnd(); row.next())
            m_rows.insert(row.value(0).toLongLong(), row);
    }
    /// The row of this key, or an empty one.
    [[nodiscard]] RecordSet at(const QVariant& key) const { return m_rows.value(key.toLongLong()); }

private:
    QHash<qlonglong, RecordSet> m_rows;
};

const QStringList& addressColumns()
{
    static const QStringList columns{u"Address1"_s, u"Address2"_s, u"City"_s,   u"State"_s,  u"Zip"_s,
                                     u"Country"_s,  u"Phone1"_s,   u"Phone2"_s, u"Phone3"_s, u"Fax"_s,
                                     u"Email1"_s,   u"Email2"_s,   u"URL1"_s,   u"URL2"_s};
    return columns;
}

const QStringList& contactColumns()
{
    static const QStringList columns{u"FirstName"_s,  u"Middle"_s,    u"LastName"_s,    u"Title"_s,
                                     u"Department"_s, u"ReportsTo"_s, u"ContactTime"_s, u"Notes"_s};
    return columns;
}

QStringList texts(const RecordSet& row, const QStringList& columns)
{
    QStringList texts;
    for (const QString& column : columns)
        texts.append(row.text(column));
    return texts;
}

/// The names of columns with their table before them, as the import knows them best.
QStringList names(const QString& table, const QStringList& columns)
{
    QStringList names;
    for (const QString& column : columns)
        names.append(table + u'.' + column);
    return names;
}

QString street(const RecordSet& address)
{
    QStringList lines{address.text(u"Address1"), address.text(u"Address2")};
    lines.removeAll(QString());
    return lines.join(text::crlf);
}

void addAddress(vcard::Writer& card, const QString& type, const RecordSet& address)
{
    card.add(u"ADR;TYPE="_s + type, QStringList{{},
                                                {},
                                                street(address),
                                                address.text(u"City"),
                                                address.text(u"State"),
                                                address.text(u"Zip"),
                                                address.text(u"Country")});
    for (const auto& [column, kind] :
         {std::pair{u"Phone1", u"voice"}, {u"Phone2", u"voice"}, {u"Phone3", u"voice"}, {u"Fax", u"fax"}})
        card.add(u"TEL;TYPE=\""_s + type + u',' + kind + u'"', address.text(column));
}

void addCard(vcard::Writer& card, const RecordSet& contact, const RecordSet& company, const RecordSet& work,
             const RecordSet& own)
{
    const QString first = contact.text(u"FirstName").trimmed();
    const QString last = contact.text(u"LastName").trimmed();
    card.begin();
    card.add(u"FN"_s, QString(first + u' ' + last).trimmed());
    card.add(u"N"_s, QStringList{last, first, contact.text(u"Middle"), {}, {}});
    card.add(u"ORG"_s, QStringList{company.text(u"Name"), contact.text(u"Department")});
    card.add(u"TITLE"_s, contact.text(u"Title"));
    addAddress(card, u"work"_s, work);
    if (texts(own, addressColumns()) != texts(work, addressColumns()))
        addAddress(card, u"home"_s, own);
    for (const QStringView column : {u"Email1", u"Email2"})
        card.add(u"EMAIL"_s, own.text(column).isEmpty() ? work.text(column) : own.text(column));
    card.add(u"URL"_s, own.text(u"URL1").isEmpty() ? work.text(u"URL1") : own.text(u"URL1"));
    card.add(u"NOTE"_s, contact.text(u"Notes"));
    card.end();
}

/// Every row of a table in the order of its keys.
template<class Take> void eachRow(DataJW& data, const QString& statement, Take&& take)
{
    for (RecordSet rows = data.getExecQueryRecords(statement); !rows.atEnd(); rows.next())
        take(rows);
}

} // namespace

QByteArray vcards(DataJW& data)
{
    const Rows companies(data, u"Company"_s);
    const Rows addresses(data, u"Address"_s);
    vcard::Writer card;
    eachRow(data, u"Select * from Contact"_s, [&](const RecordSet& contact) {
        const RecordSet company = companies.at(contact.value(u"CompanyKey"));
        addCard(card, contact, company, addresses.at(company.value(u"AddressKey")),
                addresses.at(contact.value(u"AddressKey")));
    });
    return card.bytes();
}

QByteArray contacts(DataJW& data)
{
    const Rows companies(data, u"Company"_s);
    const Rows addresses(data, u"Address"_s);
    QByteArray csv = csvfile::line(names(u"Contact"_s, contactColumns()) + QStringList{u"Company.Name"_s} +
                                   names(u"Address"_s, addressColumns()))
                         .toUtf8();
    eachRow(data, u"Select * from Contact"_s, [&](const RecordSet& contact) {
        csv += csvfile::line(texts(contact, contactColumns()) +
                             QStringList{companies.at(contact.value(u"CompanyKey")).text(u"Name")} +
                             texts(addresses.at(contact.value(u"AddressKey")), addressColumns()))
                   .toUtf8();
    });
    return csv;
}

QByteArray companies(DataJW& data)
{
    static const QStringList columns{u"Name"_s, u"ShortName"_s, u"Industry"_s, u"Notes"_s, u"EntryDate"_s};
    const Rows addresses(data, u"Address"_s);
    QByteArray csv =
        csvfile::line(names(u"Company"_s, columns) + names(u"Address"_s, addressColumns())).toUtf8();
    eachRow(data, u"Select * from Company"_s, [&](const RecordSet& company) {
        if (!text::isCategory(company.text(u"Name")))
            csv += csvfile::line(texts(company, columns) +
                                 texts(addresses.at(company.value(u"AddressKey")), addressColumns()))
                       .toUtf8();
    });
    return csv;
}

QByteArray positions(DataJW& data)
{
    const Rows companies(data, u"Company"_s);
    std::vector<schema::Column> columns = schema::findTable(u"Position")->columns;
    std::erase_if(columns, [](const schema::Column& column) {
        return column.name.endsWith(u"Key") || column.name == "ContactList"_L1;
    });
    QStringList heads;
    for (const schema::Column& column : columns)
        heads.append(u"Position."_s + column.name);
    QByteArray csv = csvfile::line(heads << u"Company.Name"_s).toUtf8();
    eachRow(data, u"Select * from Position"_s, [&](const RecordSet& position) {
        QStringList values;
        for (const schema::Column& column : columns) {
            const bool none =
                column.type == schema::ColumnType::Date && !dates::isDay(position.date(column.name));
            values.append(none ? QString() : position.text(column.name));
        }
        csv += csvfile::line(values << companies.at(position.value(u"CompanyKey")).text(u"Name")).toUtf8();
    });
    return csv;
}

void save(Session& session, Kind kind)
{
    struct File
    {
        const char* name;
        QByteArray (*write)(DataJW&);
    };
    constexpr std::array files{File{"contacts.vcf", vcards}, File{"contacts.csv", contacts},
                               File{"companies.csv", companies}, File{"positions.csv", positions}};
    const File& file = files[static_cast<size_t>(kind)];
    const auto tr = [](const char* text) { return QCoreApplication::translate("ContactExport", text); };
    const QString path = session.prompts().saveFile(
        tr("Write for other programs"), session.file(QString::fromLatin1(file.name)),
        {kind == Kind::Cards ? tr("Contact cards (*.vcf)") : tr("Text of separated values (*.csv)")});
    if (path.isEmpty())
        return;
    QSaveFile target(path);
    const QByteArray bytes = file.write(session.dataJW());
    if (target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.commit())
        session.msgBox(tr("Written to %1").arg(QDir::toNativeSeparators(path)));
    else
        session.msgBox(
            tr("%1 was not written: %2.").arg(QDir::toNativeSeparators(path), target.errorString()));
}

} // namespace contactexport
