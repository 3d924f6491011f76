// Sources, files and their reading; the mapping and the folders of contacts are in files of their own.
#include "intake/frmimport.h"

#include "formats/tablefile.h"
#include "intake/columnnames.h"
#include "intake/contactmerge.h"
#include "store/engine/schema.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The sources as the list offers them.
const QString outlookSource = u"MS Outlook"_s;
const QString excelSource = u"MS Excel"_s;
const QString csvSource = u"Text-CSV"_s;
const QString xmlSource = u"JWT-XML"_s;

std::vector<FieldRow> importForm()
{
    std::vector<FieldRow> rows;
    for (const char* control : {"cmbInputSource", "txtFile", "txtFolder", "cmbEncoding", "cmbDelimiter",
                                "cmbSheet", "chkHeader", "txtSkip", "optRow", "optCol", "txtTotalNum",
                                "txtTable", "txtField", "txtCount", "txtRec", "cmbMapping", "lblStatus"})
        rows.push_back({QString::fromLatin1(control), {}, SaveOn::Never});
    return rows;
}

char delimiterOf(int entry)
{
    constexpr std::array<char, 4> signs{0, ',', ';', '\t'};
    return signs[static_cast<size_t>(std::clamp(entry, 0, 3))];
}

} // namespace

FrmImport::FrmImport(Session& session, Outlook& outlook, Navigator& navigator)
    : m_session(session)
    , m_outlook(outlook)
    , m_navigator(navigator)
    , m_form(importForm())
    , m_columns(m_file)
    , m_values(m_file)
    , m_contacts({tr("Contact"), tr("Address known"), tr("Number")})
    , m_companies({tr("Company"), tr("Address known"), tr("Number")})
    , m_notes({tr("Place"), tr("Who"), tr("What")})
    , m_mappings(session.settings())
    , m_load(session)
    , m_takeBack(session)
{
    m_form.setItems(u"cmbInputSource"_s, {outlookSource, excelSource, csvSource, xmlSource});
    m_form.setItems(u"cmbEncoding"_s, {tr("As found"), tr("UTF-8"), tr("UTF-16"), tr("Latin-1")});
    m_form.setItems(u"cmbDelimiter"_s, {tr("As found"), tr("Comma"), tr("Semicolon"), tr("Tab")});
    connect(&m_columns, &ImportColumns::mapped, this, &FrmImport::showMapping);
    load();
}

void FrmImport::load()
{
    m_form.clear();
    m_form.setText(u"cmbEncoding"_s, tr("As found"));
    m_form.setText(u"cmbDelimiter"_s, tr("As found"));
    m_form.setText(u"optRow"_s, u"1"_s);
    m_form.setText(u"txtFolder"_s, m_session.file(u"exchange"_s));
    m_form.setItems(u"cmbMapping"_s, m_mappings.names());
    QStringList fields;
    for (const QString& table : FieldMap::tables()) {
        for (const schema::Column& column : schema::findTable(table)->columns)
            fields.append(table + u'.' + column.name);
    }
    m_fields.setStringList(fields << FieldMap::fullName.toString());
    m_report = {};
    m_all = {};
    m_contacts.setRows({});
    m_companies.setRows({});
    m_form.setVisible(u"Label7"_s, false);
    status({});
    divide({}, true);
    chooseSource();
    showReport();
}

QStringList FrmImport::fieldChoices() const
{
    QStringList fields = m_fields.stringList();
    fields.removeIf([](const QString& field) { return !FieldMap::isField(field); });
    fields.prepend(QString());
    return fields;
}

int FrmImport::number(const QString& control) const
{
    return std::max(m_form.text(control).toInt(), 0);
}

void FrmImport::chooseSource()
{
    const QString source = m_form.text(u"cmbInputSource"_s);
    const bool excel = source == excelSource;
    const bool outlook = source == outlookSource;
    m_form.setVisible(u"frmeParse"_s, excel || source == csvSource);
    m_form.setVisible(u"frmeMSOutlook"_s, outlook);
    m_form.setVisible(u"frmeFile"_s, !outlook);
    for (const QString& control : {u"optRow"_s, u"optCol"_s, u"txtTotalNum"_s, u"lblTotalNum"_s})
        m_form.setVisible(control, excel);
    if (source.isEmpty())
        status(tr("Choose where the contacts come from."));
    else
        status(outlook ? tr("Choose a folder or a vCard file, then list what is new in it.")
                       : tr("Choose a file, then load it."));
}

void FrmImport::fieldChanged(const QString& control)
{
    if (control == "cmbInputSource"_L1)
        chooseSource();
    else if (control == "cmbMapping"_L1 && m_mappings.names().contains(m_form.text(control))) {
        m_file.map = m_mappings.mapping(m_form.text(control));
        showMapping();
    } else if (control == "txtRec"_L1)
        scrollTo(number(control));
    else if (m_all.recordCount() == 0)
        return;
    else if (QStringList{u"cmbEncoding"_s, u"cmbDelimiter"_s, u"cmbSheet"_s}.contains(control))
        readFile();
    else if (QStringList{u"chkHeader"_s, u"txtSkip"_s, u"optRow"_s, u"optCol"_s}.contains(control))
        divide(m_all, false);
}

void FrmImport::cmdDialog()
{
    const QString source = m_form.text(u"cmbInputSource"_s);
    QStringList filters{tr("Text of separated values (*.csv *.txt *.tsv)"), tr("All files (*)")};
    if (source == excelSource)
        filters.prepend(tr("Workbooks and text (*.xlsx *.xlsm *.csv *.txt)"));
    if (source == xmlSource)
        filters = {tr("Campaign files (*.xml)"), tr("All files (*)")};
    const QString folder = QFileInfo(m_form.text(u"txtFile"_s)).path();
    const QString path = m_session.prompts().openFile(u"Jobwright - IMPORT"_s, folder, filters);
    if (!path.isEmpty())
        m_form.setText(u"txtFile"_s, path);
}

void FrmImport::cmdLoadImport()
{
    const QString source = m_form.text(u"cmbInputSource"_s);
    if (source.isEmpty())
        m_session.msgBox(tr("Please select import type in dropdown box."));
    else if (source == outlookSource)
        directImport();
    else if (m_form.text(u"txtFile"_s).trimmed().isEmpty())
        m_session.msgBox(tr("Please choose a file."));
    else if (source == xmlSource)
        loadXml();
    else
        readFile();
}

void FrmImport::loadXml()
{
    status(u"Loading, Please Wait"_s);
    if (beginStore()) {
        emit importProgress(true);
        m_session.dataJW().importXML(m_form.text(u"txtFile"_s));
        emit importProgress(false);
        if (m_session.statusLine() == "Import Complete"_L1)
            finishImport({}, tr("The export XML file data specifics have been loaded into Jobwright"));
    }
    status({});
}

void FrmImport::readFile()
{
    RecordTable table;
    const BusyScope busy(m_session);
    if (!readTable(table))
        return; // what was chosen before stays
    m_all = std::move(table);
    divide(m_all, true);
    offerMapping();
    status(QString(std::min(recordCount() / 50, 40), u'.') + tr("Data Loaded."));
    emit fileChanged();
}

bool FrmImport::readTable(RecordTable& table)
{
    const auto entry = [this](const QString& control) {
        return std::max(static_cast<int>(m_form.items(control).indexOf(m_form.text(control))), 0);
    };
    tablefile::Result read =
        tablefile::read(m_form.text(u"txtFile"_s).trimmed(),
                        {static_cast<textfile::Encoding>(entry(u"cmbEncoding"_s)),
                         delimiterOf(entry(u"cmbDelimiter"_s)), m_form.text(u"cmbSheet"_s)});
    m_form.setVisible(u"cmbSheet"_s, !read.sheets.isEmpty());
    m_form.setVisible(u"lblSheet"_s, !read.sheets.isEmpty());
    if (read.sheets != m_form.items(u"cmbSheet"_s))
        m_form.setItems(u"cmbSheet"_s, read.sheets);
    m_form.setText(u"cmbSheet"_s, read.sheet);
    if (!read.problem.isEmpty())
        m_session.msgBox(read.problem);
    table = std::move(read.table);
    return read.problem.isEmpty();
}

/// Tells names and records apart. A fresh file is searched for the line of its names.
void FrmImport::divide(RecordTable table, bool fresh)
{
    if (m_form.isVisible(u"optCol"_s) && isOn(u"optCol"_s))
        table = table.transposed();
    if (fresh) {
        int found = columnnames::findNames(table);
        if (found < 0 && table.recordCount() > 0 && !m_mappings.nameFor(table.texts(0)).isEmpty())
            found = 0; // names that only a kept mapping knows
        m_form.setText(u"txtSkip"_s, QString::number(std::max(found, 0)));
        m_form.setText(u"chkHeader"_s, found < 0 ? u"0"_s : u"1"_s);
    }
    m_file = ImportFile::divided(std::move(table), number(u"txtSkip"_s), isOn(u"chkHeader"_s));
    m_form.setText(u"txtTotalNum"_s, QString::number(recordCount()));
    m_form.setText(u"txtRec"_s, recordCount() > 0 ? u"1"_s : QString());
    m_columns.reload();
    m_values.reload();
    showMapping();
}

bool FrmImport::beginStore()
{
    m_keyBefore = highestKey(m_session.dataJW().database(), u"Contact"_s);
    return m_takeBack.begin();
}

void FrmImport::finishImport(const ImportReport& report, const QString& message)
{
    m_takeBack.finish();
    m_report = report;
    showReport();
    m_session.msgBox(message, Buttons::Ok, u"Jobwright - Message"_s);
    emit imported();
    // Only pairs with somebody who has just come in.
    const auto pairs = std::ranges::count_if(findDoubles(m_session), [this](const ContactPair& pair) {
        return std::max(pair.first, pair.second) > m_keyBefore;
    });
    if (report.contacts > 0 && pairs > 0 &&
        m_session.msgBox(
            tr("%1 pairs of contacts have names that are equal but for their spelling or company. Look "
               "at them now?")
                .arg(pairs),
            Buttons::YesNoDefaultNo) == Answer::Yes)
        cmdMerge();
}

void FrmImport::showReport()
{
    std::vector<ListRow> rows;
    for (const ImportReport::Note& note : m_report.notes)
        rows.push_back({u"N"_s + QString::number(rows.size()), {note.place, note.who, note.what}, {}});
    m_notes.setRows(std::move(rows));
    const bool possible = m_takeBack.isPossible();
    m_form.setText(u"lblResult"_s, possible ? m_report.summary() : tr("Nothing was imported yet."));
    m_form.setEnabled(u"cmdTakeBack"_s, possible);
    m_form.setEnabled(u"cmdSaveReport"_s, !m_report.notes.empty());
}

void FrmImport::cmdMerge()
{
    m_navigator.open(u"FrmMerge"_s);
    showReport(); // a merge is a change after which no import is taken back
}

void FrmImport::cmdTakeBack()
{
    if (!m_takeBack.isPossible()) {
        m_session.msgBox(
            tr("Something else was written since. The copy from before the import is in the folder "
               "“backups”."));
        showReport();
        return;
    }
    if (m_session.msgBox(tr("Take back this import? The database will be as it was before."),
                         Buttons::YesNo) != Answer::Yes)
        return;
    if (!m_takeBack.run())
        return;
    m_report = {};
    showReport();
    status(tr("The import was taken back."));
    emit imported();
}

void FrmImport::cmdSaveReport()
{
    const QString path = m_session.prompts().saveFile(tr("Save the list"), m_session.file(u"import.csv"_s),
                                                      {tr("Text of separated values (*.csv)")});
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const QByteArray text = m_report.csv();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        m_session.msgBox(tr("The list was not saved: %1.").arg(file.errorString()));
    else
        status(tr("The list was saved."));
}
