#include "output/reports.h"

#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/pipelinesteps.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

// Widths of the columns, for lines of 110 characters with room for an address.
constexpr int companyWidth = 30;
constexpr int industryWidth = 20;
constexpr int nameWidth = 20;
constexpr int middleWidth = 10;
constexpr int titleWidth = 25;

/// A report counts its lines by records, whatever length they really have, and begins a page after these.
constexpr int linesOfPage = 60;

int linesOf(ReportKind kind)
{
    switch (kind) {
    case ReportKind::Company:
        return 2;
    case ReportKind::Contact:
        return 5;
    default:
        return 4;
    }
}

/// A date as the report writes it; "" for none.
QString day(const RecordSet& row, QStringView column)
{
    return dates::isDay(row.date(column)) ? row.text(column) : QString();
}

QString orElse(const QString& text, const QString& otherwise)
{
    return text.isEmpty() ? otherwise : text;
}

/// @p label and the value behind it, or nothing for an empty one.
QString labelled(const QString& label, const QString& value)
{
    return value.isEmpty() ? QString() : QString(label + value);
}

QString number(std::optional<Key> value)
{
    return QString::number(value.value_or(0));
}

/// Builds one report, record by record.
class Builder
{
public:
    Builder(ReportKind kind, Session& session)
        : m_kind(kind)
        , m_dataJW(session.dataJW())
    {
    }

    void companyRecords(const QString& name);
    void targetRecord(Key key);
    [[nodiscard]] const QString& text() const { return m_text; }

private:
    [[nodiscard]] QString addressString(std::optional<Key> key) const;
    void addCompany(const RecordSet& row);
    void addContact(const RecordSet& row);
    void addPosition(const RecordSet& row);
    [[nodiscard]] QString contactNames(const RecordSet& row) const;
    void endRecord();

    ReportKind m_kind;
    DataJW& m_dataJW;
    QString m_text;
    int m_lines = 0;
};

QString Builder::addressString(std::optional<Key> key) const
{
    if (!key || *key == 0)
        return {};
    const RecordSet row = m_dataJW.getAddress(*key);
    if (row.isEmpty())
        return {};
    QString line;
    for (const QStringView column : {u"Address1", u"Address2", u"City"})
        line += row.text(column);
    line += u' '; // the only blank: the rest stands as it has always been printed
    for (const QStringView column : {u"State", u"Zip", u"Phone1", u"Phone2", u"Email1", u"Email2"})
        line += row.text(column);
    return line;
}

/// The records that the report has of the company, read by its key, so that namesakes are told apart.
void Builder::companyRecords(const QString& name)
{
    const RecordSet company = m_dataJW.getCompany(name);
    const auto key = company.key(u"CompanyKey");
    if (!key)
        return; // gone, or the gateway has said why
    if (m_kind == ReportKind::Company)
        return addCompany(company);
    const bool contacts = m_kind == ReportKind::Contact;
    RecordSet rows =
        m_dataJW.getExecQueryRecords((contacts ? u"Select * from Contact where companyKey="_s
                                               : u"Select * from Position where CompanyKey="_s) +
                                     QString::number(*key) + (contacts ? u""_s : u" order by title"_s));
    for (; !rows.atEnd(); rows.next())
        contacts ? addContact(rows) : addPosition(rows);
}

void Builder::addCompany(const RecordSet& row)
{
    const Key contacts =
        m_dataJW.getCount(u"Contact"_s, true, u"CompanyKey"_s, row.key(u"CompanyKey").value_or(0));
    m_text += reports::addText(row.text(u"Name"), companyWidth) + addressString(row.key(u"AddressKey")) +
              u"  " + reports::addText(row.text(u"Industry"), industryWidth) + u' ' + day(row, u"EntryDate") +
              tr("Contacts:") + number(contacts);
    endRecord();
}

void Builder::addContact(const RecordSet& row)
{
    // Asked for only where there is one: none would be an entry of the error log for each such contact.
    const Key key = row.key(u"ContactKey").value_or(0);
    const bool any = m_dataJW.getCount(u"History"_s, true, u"ContactKey"_s, key) > 0;
    const Key histories = any ? m_dataJW.getHistoryCount(key) : Key(0);
    m_text += reports::addText(row.text(u"FirstName"), nameWidth) +
              reports::addText(row.text(u"Middle"), middleWidth) +
              reports::addText(row.text(u"LastName"), nameWidth) +
              reports::addText(row.text(u"Title"), titleWidth) + addressString(row.key(u"AddressKey")) +
              text::crlf + row.text(u"ReportsTo") + labelled(tr(" Dept:"), row.text(u"Department")) +
              orElse(day(row, u"LastContact"), tr(" No Contact")) +
              (histories == 0 ? tr(" Histories: None") : QString(tr(" Histories:") + number(histories))) +
              text::crlf + tr("Notes:") + row.text(u"Notes");
    endRecord();
}

QString Builder::contactNames(const RecordSet& row) const
{
    QStringList names;
    for (const QString& item : text::csvParse(row.text(u"ContactList"))) {
        bool isKey = false;
        const short key = item.toShort(&isKey);
        if (const QString name = isKey ? m_dataJW.getContactByKey(key) : QString(); !name.isEmpty())
            names.append(name);
    }
    return names.join(u", "_s);
}

void Builder::addPosition(const RecordSet& row)
{
    const PipelineSteps steps(row);
    m_text += row.text(u"Title") + u' ' + row.text(u"Keyword") + u"-----------";
    for (int index = 0; index < PipelineSteps::count; ++index) {
        if (const QString date = day(row, PipelineSteps::getIndexTitle(index)); !date.isEmpty())
            m_text += date + u':';
    }
    m_text += orElse(day(row, u"Expires"), tr(" No Expiry")) +
              orElse(day(row, u"EntryDate"), tr(" Entry Date unknown"));
    if (!row.text(u"ContactList").isEmpty())
        m_text += tr("Contacts: ") + contactNames(row);
    m_text += tr("Progress:") + number(static_cast<Key>(steps.progress()));
    endRecord();
}

void Builder::targetRecord(Key key)
{
    const Target target = m_dataJW.getTargetByKey(key);
    m_text += number(target.Rank) + target.Name + u' ' + tr(" DB:") + target.InDB + tr(" Contacted:") +
              target.Contacted + tr(" Contacts:") + number(target.Contacts) + tr(" Positions:") +
              number(target.Positions) + text::crlf + target.Business + target.Type + u',' + tr(" Emp:") +
              target.Employees + tr(" Sales:$") + target.Sales + target.TargetURL + tr(" Public:") +
              target.Public + (dates::isDay(target.EntryDate) ? dates::mdyyyy(target.EntryDate) : QString());
    endRecord();
}

void Builder::endRecord()
{
    m_text += text::crlf + QString(ReportDocument::fixedColumns, u'_') + text::crlf;
    m_lines += linesOf(m_kind);
    if (m_lines <= linesOfPage)
        return;
    m_text += reports::pageMark;
    m_lines = 0;
}

} // namespace

QString reports::title(ReportKind kind)
{
    switch (kind) {
    case ReportKind::Company:
        return tr("Company Report");
    case ReportKind::Contact:
        return tr("Contact Report");
    case ReportKind::Position:
        return tr("Position Report");
    case ReportKind::Target:
        break;
    }
    return tr("Target Report");
}

QString reports::header(ReportKind kind, const Session& session)
{
    return title(kind) + u' ' + session.todayText();
}

QString reports::addText(const QString& text, int width)
{
    return text.isEmpty() || width == 0 ? text : text.leftJustified(width, u' ', true);
}

std::optional<QString> reports::build(ReportKind kind, Session& session)
{
    DataJW& dataJW = session.dataJW();
    QStringList companies;
    std::vector<Target> targets;
    if (kind == ReportKind::Target)
        targets = dataJW.getTargets();
    else if (companies = dataJW.getCompanyNames(); companies.isEmpty())
        session.msgBox(tr("You have no companies in your database."));
    const auto total = static_cast<int>(companies.size()) + static_cast<int>(targets.size());
    ProgressScope progress(session, title(kind), total);
    Builder builder(kind, session);
    for (int i = 0; i < total; ++i) {
        if (kind == ReportKind::Target)
            builder.targetRecord(targets[static_cast<size_t>(i)].TargetKey);
        else
            builder.companyRecords(companies.at(i));
        if (!progress.step(i + 1))
            return std::nullopt;
    }
    return builder.text();
}

QStringList reports::pages(const QString& text)
{
    return text.split(pageMark);
}

ReportDocument reports::document(const QString& text, const QString& header, bool numbered)
{
    ReportDocument document;
    document.title = header;
    document.header = header + text::crlf.toString().repeated(3);
    document.footer = u"JOBWRIGHT v1.9.5"_s;
    document.numbered = numbered;
    for (const QString& piece : pages(text))
        document.pages.emplace_back().add(ReportPage::Block::Fixed, piece);
    return document;
}
