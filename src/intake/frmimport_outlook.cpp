// Contact folders: the direct import, the checked load and its lists.
#include "intake/frmimport.h"

#include "store/files/copies.h"
#include "store/gateway/datajw.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void FrmImport::directImport()
{
    const auto folder = m_outlook.contacts(m_form.text(u"txtFolder"_s));
    if (!folder.failure.isEmpty()) {
        m_session.msgBox(folder.failure);
        return;
    }
    ImportReport report;
    bool copied = false;
    for (const OutlookContact& person : folder.items) {
        const Answer answer =
            m_session.msgBox(tr("Add ") + person.fullName + tr(" from ") + person.companyName + tr(" ?"),
                             Buttons::YesNoCancel);
        if (answer == Answer::Cancel)
            break;
        if (answer != Answer::Yes)
            continue;
        if (const QString lack = m_load.lackOfKeys(1); !lack.isEmpty()) {
            m_session.msgBox(lack);
            break;
        }
        if (!copied && !beginStore())
            return;
        copied = true;
        if (m_load.storeDirectly(person, report))
            status(tr("Stored: ") + person.fullName);
        else
            report.passOver({}, person.fullName, tr("was refused by the database; the error log says why"));
    }
    for (const QString& problem : folder.problems)
        report.passOver({}, {}, problem);
    if (copied)
        finishImport(report, tr("Your Outlook contact data has been loaded into Jobwright"));
}

void FrmImport::cmdFolder()
{
    const QString folder = m_session.prompts().pickFolder(tr("Folder with the contacts of another program"),
                                                          m_form.text(u"txtFolder"_s));
    if (!folder.isEmpty())
        m_form.setText(u"txtFolder"_s, folder);
}

void FrmImport::cmdLoadOut()
{
    m_contacts.setRows({});
    m_companies.setRows({});
    m_form.setText(u"Label7"_s, tr("Please wait..."));
    m_form.setVisible(u"Label7"_s, true);
    const auto folder = m_outlook.contacts(m_form.text(u"txtFolder"_s));
    m_report = {};
    for (const QString& problem : folder.problems)
        m_report.passOver({}, {}, problem);
    bool whole = true;
    if (folder.failure.isEmpty()) {
        ProgressScope progress(m_session, tr("Checking the contacts"), static_cast<int>(folder.items.size()));
        whole = m_load.load(folder.items, [&](int done, int) { return progress.step(done); });
    }
    m_form.setVisible(u"Label7"_s, false);
    listCandidates();
    showReport();
    if (!folder.failure.isEmpty()) {
        m_session.addLog(u"IMPORT Error - "_s + folder.failure);
        m_session.msgBox(folder.failure);
    } else if (!whole) {
        const QString bound =
            tr("The folder holds more than %1 contacts. The first %1 are listed; please store them, "
               "and divide the folder for the others.")
                .arg(ContactLoad::mostCandidates);
        m_session.addLog(u"IMPORT Error - "_s + bound);
        m_session.msgBox(bound);
    }
}

void FrmImport::listCandidates()
{
    std::vector<ListRow> contacts;
    std::vector<ListRow> companies;
    for (int n = 1; n <= m_load.count(); ++n) {
        const Candidate& candidate = m_load.candidate(n);
        const QString number = QString::number(n);
        const auto mark = [](bool exists) { return exists ? FrmImport::tr("known") : QString(); };
        if (!candidate.contactExists) {
            const QString text = candidate.contact.oFName + u' ' + candidate.contact.oLName + u"  <<>>  " +
                                 candidate.company.oCompanyName;
            contacts.push_back(
                {u'A' + number, {text, mark(candidate.contactAddress.lastExists), number}, u"unsel"_s});
            if (!candidate.uncut.isEmpty()) {
                contacts.back().tip = tr("“%1” in the file; the name was cut").arg(candidate.uncut);
                m_report.remark({}, candidate.uncut, tr("will come in under a cut name"));
            }
        } else
            m_report.passOver({}, candidate.contact.oFName + u' ' + candidate.contact.oLName,
                              tr("is in the database or earlier in the folder already"));
        if (!candidate.companyExists && !candidate.company.oCompanyName.isEmpty())
            companies.push_back({u'A' + number,
                                 {candidate.company.oCompanyName, mark(candidate.addressExists), number},
                                 u"unsel"_s});
    }
    status(tr("%1 contacts are new, %2 are known.")
               .arg(contacts.size())
               .arg(static_cast<size_t>(m_load.count()) - contacts.size()));
    m_contacts.setRows(std::move(contacts));
    m_companies.setRows(std::move(companies));
}

void FrmImport::toggle(RowModel& list, const QString& key)
{
    std::vector<ListRow> rows = list.rows();
    for (ListRow& row : rows) {
        if (key.isEmpty() || row.key == key)
            row.kind = row.kind == "select"_L1 ? u"unsel"_s : u"select"_s;
    }
    list.setRows(std::move(rows));
}

void FrmImport::cmdSelectAll()
{
    toggle(m_contacts, {});
    toggle(m_companies, {});
}

void FrmImport::cmdImportList()
{
    std::vector<int> numbers;
    for (const ListRow& row : m_contacts.rows()) {
        if (row.kind == "select"_L1)
            numbers.push_back(row.texts[2].toInt());
    }
    if (numbers.empty()) {
        m_session.msgBox(tr("Please select the contacts to import."));
        return;
    }
    if (const QString lack = m_load.lackOfKeys(static_cast<int>(numbers.size())); !lack.isEmpty()) {
        m_session.msgBox(lack);
        return;
    }
    ImportReport report;
    if (!beginStore() || !m_load.store(numbers, report))
        return;
    // What was stored is no candidate any more.
    std::vector<ListRow> left = m_contacts.rows();
    std::erase_if(left, [](const ListRow& row) { return row.kind == "select"_L1; });
    m_contacts.setRows(std::move(left));
    finishImport(report, tr("Selected contacts have been imported."));
}
