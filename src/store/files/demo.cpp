#include "store/files/demo.h"

#include "base/dates.h"
#include "base/text.h"
#include "base/textlines.h"
#include "base/wholefile.h"
#include "store/engine/schema.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "store/xml/campaignfile.h"
#include "store/xml/xmlimporter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

/// The attribute with the day on which the campaign was recorded; only a demo's file has it.
constexpr auto mark = "Recorded";

QString say(const char* text)
{
    return QCoreApplication::translate("Demo", text);
}

QString value(pugi::xml_node record, const char* column)
{
    return QString::fromUtf8(record.attribute(column).value());
}

/// Moves every real date of the table's date columns; the day that stands for "none" is no date.
void shiftTable(pugi::xml_node data, qint64 days)
{
    const schema::Table* const table = schema::findTable(value(data, "Table"));
    if (!table)
        return;
    for (const schema::Column& column : table->columns) {
        if (column.type != schema::ColumnType::Date)
            continue;
        const QByteArray name = column.name.toUtf8();
        for (pugi::xml_node record : data.children("Record")) {
            auto moment = dates::parse(value(record, name.constData()));
            if (!moment || moment->date == dates::sentinel)
                continue;
            moment->date = moment->date.addDays(days);
            record.attribute(name.constData()).set_value(dates::general(*moment).toUtf8().constData());
        }
    }
}

/// Lays the demo's goals and plans, the files beside the campaign's, into the folder, with the days on their
/// lines moved. "" or what went wrong.
QString layPlans(const Session& session, const QDir& from, qint64 days)
{
    for (const QFileInfo& file : from.entryInfoList({u"*.jwg"_s}, QDir::Files)) {
        TextLines read = textlines::read(file.filePath());
        for (QString& line : read.lines) {
            if (const auto moment = dates::parse(line))
                line = dates::mmddyyyy(moment->date.addDays(days));
        }
        if (QString problem = textlines::write(session.file(file.fileName()), read.lines); !problem.isEmpty())
            return problem;
    }
    return {};
}

/// Writes the campaign with today's days; "" or what went wrong.
QString writeShifted(const Session& session, const QString& from, const QString& to)
{
    CampaignFile campaign;
    if (QString refusal = campaign.load(from); !refusal.isEmpty())
        return refusal;
    pugi::xml_node root = campaign.root();
    const auto recorded = dates::parse(value(root, mark));
    if (!recorded || !campaign.isRestore())
        return say("The file %1 is no demo campaign.").arg(from);
    for (const pugi::xml_node data : root.children("Data"))
        shiftTable(data, recorded->date.daysTo(session.today()));
    if (QString problem = layPlans(session, QFileInfo(from).dir(), recorded->date.daysTo(session.today()));
        !problem.isEmpty())
        return problem;
    // The mark stays: a file with it may be written over by a later call.
    root.attribute(mark).set_value(session.today().toString(Qt::ISODate).toUtf8().constData());
    std::ostringstream text;
    root.print(text, "  ");
    const QString failure = writeWholeFile(to, text.str());
    return failure.isEmpty() ? QString() : say("The file %1 could not be written: %2").arg(to, failure);
}

/// False for a restore file that the user has made.
bool mayBeWritten(const QString& path)
{
    QFile file(path);
    return !file.exists() || (file.open(QIODevice::ReadOnly) && file.read(500).contains(mark));
}

bool isEmpty(DataJW& data)
{
    return std::ranges::all_of(CampaignFile::tables, [&](std::string_view table) {
        return data.getCount(QString::fromLatin1(table.data(), static_cast<qsizetype>(table.size())), true) ==
               0;
    });
}

/// Adds to a restored campaign what a restore leaves out. Records are found by their names, as their keys are
/// new.
class Completion
{
public:
    Completion(DataJW& data, const CampaignFile& file)
        : m_data(data)
        , m_file(file)
    {
    }
    bool run()
    {
        for (const pugi::xml_node& company : m_file.records("Company"))
            m_companies.insert(value(company, "CompanyKey"), value(company, "Name"));
        bool done = addToContacts();
        done = addToProfiles() && done;
        return addCategories() && done;
    }

private:
    bool addToContacts()
    {
        bool done = true;
        for (const pugi::xml_node& contact : m_file.records("Contact")) {
            const Key key = m_data.getContactKey(value(contact, "FirstName"), value(contact, "LastName"),
                                                 m_companies.value(value(contact, "CompanyKey")));
            done = m_data.execQuery(u"Update Contact set ContactLevel="_s + value(contact, "ContactLevel") +
                                    u", DocumentList='" + documentList(value(contact, "DocumentList")) +
                                    u"' where ContactKey=" + QString::number(key)) &&
                   done;
        }
        return done;
    }
    QString documentList(const QString& oldKeys)
    {
        QStringList keys;
        for (const pugi::xml_node& document : m_file.records("Document")) {
            if (text::csvParse(oldKeys).contains(value(document, "ResumeKey")))
                keys.append(QString::number(m_data.getDocumentKey(value(document, "Document"))));
        }
        return keys.join(u',');
    }
    bool addToProfiles()
    {
        QHash<QString, pugi::xml_node> positions;
        for (const pugi::xml_node& position : m_file.records("Position"))
            positions.insert(value(position, "PositionKey"), position);
        bool done = m_data.execQuery(u"Delete * from JProfile"_s);
        for (const pugi::xml_node& profile : m_file.records("JProfile")) {
            const pugi::xml_node position = positions.value(value(profile, "PositionKey"));
            const QString company = m_companies.value(value(position, "CompanyKey"));
            done = m_data.execQuery(
                       u"INSERT INTO JProfile(PositionKey,QAns,PR,QCount,TemplateKey,CompanyKey) VALUES('"_s +
                       QString::number(m_data.getPositionKey(value(position, "Title"), company)) + u"','" +
                       value(profile, "QAns") + u"','" + value(profile, "PR") + u"','" +
                       value(profile, "QCount") + u"','" + value(profile, "TemplateKey") + u"','" +
                       QString::number(m_data.getCompanyKey(company)) + u"')") &&
                   done;
        }
        return done;
    }
    bool addCategories()
    {
        int count = 0;
        bool done = true;
        for (const pugi::xml_node& company : m_file.records("Company")) {
            const QString name = value(company, "Name");
            if (text::isCategory(name))
                done = m_data.writeStatus(u"Category"_s + QString::number(++count),
                                          name.mid(1, name.size() - 2).trimmed(), true) &&
                       done;
        }
        return m_data.writeStatus(u"CategoryCount"_s, QString::number(count), true) && done;
    }

    DataJW& m_data;
    const CampaignFile& m_file;
    QHash<QString, QString> m_companies; ///< names by the file's keys
};

} // namespace

bool loadDemo(Session& session, const QString& xmlPath)
{
    DataJW& data = session.dataJW();
    if (!data.isConnected() || !isEmpty(data)) {
        session.msgBox(say("The demo campaign is laid into an empty database only."));
        return false;
    }
    const QString restoreFile = session.file(u"restore.xml"_s);
    const QString failure =
        mayBeWritten(restoreFile)
            ? writeShifted(session, xmlPath, restoreFile)
            : say("The folder has a restore file of your own, which the demo would replace.");
    if (!failure.isEmpty()) {
        session.msgBox(failure);
        return false;
    }
    Action action(data, Action::NotUndoable());
    xmlimport::read(session, restoreFile, false);
    CampaignFile campaign;
    const bool done = session.statusLine() == u"Import Complete" && campaign.load(restoreFile).isEmpty() &&
                      Completion(data, campaign).run();
    return action.commit() && done;
}
