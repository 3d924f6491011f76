#include "intake/columnnames.h"

#include "store/engine/schema.h"

#include <QHash>
#include <QSet>

#include <span>

using namespace Qt::StringLiterals;

namespace columnnames {
namespace {

/// How far a file's notes before its names may go.
constexpr int searched = 30;

/// A field with the names that other programs give it, the best one first. docs/file-formats.md lists them.
struct Known
{
    const char* field;
    const char* names; ///< plain, blanks between them
};

// The address of work comes before one without a kind, and that before the home's, in all parts alike: the
// parts of two addresses are not mixed.
constexpr Known known[] = {
    {"Contact.FirstName", "firstname first givenname forename vorname prenom nombre"},
    {"Contact.Middle", "middlename middle additionalname additionalnames secondname weiterevornamen"},
    {"Contact.LastName", "lastname last familyname surname nachname familienname nom apellidos"},
    {"Contact.FullName", "fullname displayname formattedname contactname name person"},
    {"Contact.Title", "jobtitle organizationtitle organization1title position role headline title funktion "
                      "berufsbezeichnung"},
    {"Contact.Department", "department organizationdepartment organization1department abteilung"},
    {"Contact.ReportsTo", "reportsto managersname manager"},
    {"Contact.Notes", "notes note comments comment description notizen bemerkungen"},
    {"Company.Name", "company companyname organization organizationname organization1name accountname "
                     "associatedcompany employer organisation firma unternehmen account"},
    {"Company.Industry", "industry branche"},
    {"Address.Address1", "businessstreet businessaddressstreet workaddress workstreet mailingstreet "
                         "address1street streetaddress street address addressline1 homestreet homeaddress "
                         "homeaddressstreet strassegeschaftlich strasse"},
    {"Address.Address2", "businessstreet2 workaddress2 address1extendedaddress addressline2 homestreet2 "
                         "homeaddress2"},
    {"Address.City", "businesscity businessaddresscity workcity mailingcity address1city city town homecity "
                     "homeaddresscity ortgeschaftlich ort stadt"},
    {"Address.State", "businessstate businessaddressstate workstate mailingstateprovince mailingstate "
                      "address1region stateregion stateprovince state region homestate homeaddressstate"},
    {"Address.Zip", "businesspostalcode businessaddresspostalcode workzipcode workzip workpostalcode "
                    "mailingzippostalcode mailingpostalcode address1postalcode postalcode zipcode zip "
                    "homepostalcode homezipcode homezip homeaddresspostalcode postleitzahlgeschaftlich plz "
                    "postleitzahl"},
    {"Address.Country", "businesscountryregion businesscountry workcountry mailingcountry address1country "
                        "countryregion country homecountryregion homecountry land"},
    {"Address.Phone1",
     "businessphone workphone businesstelephonenumber phone1value phonenumber phone telephone "
     "telephonenumber work telefongeschaftlich telefon"},
    {"Address.Phone2", "mobilephone mobilenumber mobile mobilephonenumber cellphone cell businessphone2 "
                       "phone2value mobiltelefon"},
    {"Address.Phone3", "homephone home hometelephonenumber phone3value otherphone telefonprivat"},
    {"Address.Fax", "businessfax workfax faxnumber fax faxgeschaftlich"},
    {"Address.Email1", "emailaddress email1value email primaryemail emailadresse mail workemail "
                       "businessemail emailaddress1 email1"},
    {"Address.Email2", "email2address email2value secondaryemail alternateemail1 personalemail homeemail "
                       "emailaddress2 emailadresse2 email2"},
    {"Address.URL1",
     "webpage website1value webpage1 businesswebsite website websiteurl profileurl url webseite"},
    {"Address.URL2", "website2value webpage2 personalwebsite"},
};

/// Our own names of the columns: "contactfirstname", and "firstname" where no other table has it.
QHash<QString, QString> ownNames()
{
    QHash<QString, QString> names;
    QSet<QString> doubled;
    for (const QString& table : FieldMap::tables()) {
        for (const schema::Column& column : schema::findTable(table)->columns) {
            const QString field = table + u'.' + column.name;
            if (!FieldMap::isField(field))
                continue;
            names.insert(plain(field), field);
            const QString alone = plain(column.name);
            // Keys are this database's own: they are mapped only when they are named in full.
            if (names.contains(alone) || doubled.contains(alone) || column.name.endsWith(u"Key"))
                doubled.insert(alone);
            else
                names.insert(alone, field);
        }
    }
    for (const QString& alone : doubled)
        names.remove(alone);
    names.insert(plain(FieldMap::fullName.toString()), FieldMap::fullName.toString());
    return names;
}

} // namespace

QString plain(const QString& name)
{
    QString letters;
    for (const QChar c : name.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
        if (c.isLetterOrNumber())
            letters += c;
    }
    return letters.replace(u'ß', u"ss"_s);
}

FieldMap recognise(const QStringList& names)
{
    static const QHash<QString, QString> own = ownNames();
    FieldMap map;
    QHash<QString, int> columns; // the first of a name
    for (int i = static_cast<int>(names.size()); i > 0; --i)
        columns.insert(plain(names[i - 1]), i);
    for (auto column = columns.cbegin(); column != columns.cend(); ++column) {
        if (const QString field = own.value(column.key()); !field.isEmpty() && column.key() == plain(field))
            map.map(field, *column);
    }
    const auto take = [&](const QString& field, const QString& name) {
        const int position = columns.value(name);
        if (position > 0 && map.positionOf(field) == 0 && map.fieldAt(position).isEmpty())
            map.map(field, position);
    };
    for (const Known& each : known) {
        const QString field = QString::fromLatin1(each.field);
        const bool named = map.positionOf(u"Contact.FirstName") || map.positionOf(u"Contact.LastName");
        if (field == FieldMap::fullName && named)
            continue;
        for (const QString& name : QString::fromLatin1(each.names).split(u' '))
            take(field, name);
    }
    for (auto name = own.cbegin(); name != own.cend(); ++name)
        take(*name, name.key());
    return map;
}

int findNames(const RecordTable& table)
{
    int found = -1;
    qsizetype most = 1;
    for (int record = 0; record < std::min(table.recordCount(), searched); ++record) {
        const qsizetype count = recognise(table.texts(record)).fields().size();
        if (count > most) {
            most = count;
            found = record;
        }
    }
    return found;
}

int positionOf(const QStringList& names, const QString& word)
{
    for (int i = 0; i < names.size(); ++i) {
        if (names[i].trimmed().compare(word.trimmed(), Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    bool isNumber = false;
    const int position = word.toInt(&isNumber);
    return isNumber && position >= 1 && position <= names.size() ? position : 0;
}

} // namespace columnnames
