// The mapping of a file's columns, and the store of its records.
#include "intake/columnnames.h"
#include "intake/frmimport.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

void FrmImport::lstFldClick(const QString& field)
{
    m_form.setText(u"txtTable"_s, field.section(u'.', 0, 0));
    m_form.setText(u"txtField"_s, field.section(u'.', 1));
}

void FrmImport::lstImportClick(int row)
{
    if (row < 0 || row >= m_file.records.totalCells())
        return;
    const auto [record, column] = m_file.records.place(row);
    m_form.setText(u"txtCount"_s, QString::number(column + 1));
    m_form.setText(u"txtRec"_s, QString::number(record + 1));
}

void FrmImport::scrollTo(int record)
{
    if (recordCount() == 0)
        return;
    m_form.setText(u"txtRec"_s, QString::number(std::clamp(record, 1, recordCount())));
    emit fileChanged();
}

int FrmImport::shownValue() const
{
    const int record = number(u"txtRec"_s);
    return record >= 1 && record <= recordCount() ? m_file.records.firstCell(record - 1) : -1;
}

void FrmImport::cmdMapField()
{
    const QString field = m_form.text(u"txtTable"_s) + u'.' + m_form.text(u"txtField"_s);
    const int position = number(u"txtCount"_s);
    if (position < 1 || position > m_file.records.columnCount()) {
        m_session.msgBox(tr("Please choose a value of the file first."));
        return;
    }
    if (!FieldMap::isField(field)) {
        m_session.msgBox(m_fields.stringList().contains(field)
                             ? tr("The database numbers its records itself: this field cannot be mapped.")
                             : tr("Please choose a field of the database first."));
        return;
    }
    m_file.map.map(field, position);
    showMapping();
}

void FrmImport::cmdMapAll()
{
    m_file.map = columnnames::recognise(m_file.names);
    showMapping();
    const auto count = m_file.map.fields().size();
    status(count == 0 ? tr("No column was recognised by its name. Please choose fields for the columns.")
                      : tr("%1 of %2 columns are mapped.").arg(count).arg(m_file.records.columnCount()));
}

void FrmImport::cmdClearMap()
{
    m_file.map.clear();
    showMapping();
}

void FrmImport::offerMapping()
{
    const QString saved = m_mappings.nameFor(m_file.names);
    m_form.setText(u"cmbMapping"_s, saved);
    if (saved.isEmpty() || m_file.names.isEmpty())
        return;
    m_file.map = m_mappings.mapping(saved);
    showMapping();
}

void FrmImport::showMapping()
{
    m_columns.fieldsChanged();
    m_values.fieldsChanged();
    m_form.setEnabled(u"cmdMap"_s, !m_file.map.isEmpty() && recordCount() > 0);
    m_form.setEnabled(u"cmdMapAll"_s, !m_file.names.isEmpty());
    emit fileChanged();
}

void FrmImport::cmdSaveMapping()
{
    const QString name = m_form.text(u"cmbMapping"_s).trimmed();
    if (name.isEmpty() || m_file.map.isEmpty()) {
        m_session.msgBox(m_file.map.isEmpty() ? tr("Nothing is mapped yet.")
                                              : tr("Please type a name for the mapping."));
        return;
    }
    m_mappings.save(name, m_file.names, m_file.map);
    m_form.setItems(u"cmbMapping"_s, m_mappings.names());
    m_form.setText(u"cmbMapping"_s, name);
    status(tr("The mapping “%1” is kept, and offered again for a file of the same columns.").arg(name));
}

void FrmImport::cmdDeleteMapping()
{
    m_mappings.remove(m_form.text(u"cmbMapping"_s).trimmed());
    m_form.setItems(u"cmbMapping"_s, m_mappings.names());
    m_form.setText(u"cmbMapping"_s, {});
}

bool FrmImport::planRecords(RecordImport& import)
{
    if (!import.plan(true))
        return false;
    if (import.knownPeople() > 0) {
        const Answer answer = m_session.msgBox(
            tr("%1 of the %2 people of this file are in the database already. Leave them out?")
                .arg(import.knownPeople())
                .arg(import.knownPeople() + import.report().contacts),
            Buttons::YesNoCancel);
        if (answer == Answer::Cancel || (answer == Answer::No && !import.plan(false)))
            return false;
    }
    if (import.newRecords() == 0) {
        m_report = import.report();
        showReport();
        m_form.setText(u"lblResult"_s, m_report.summary());
        m_session.msgBox(tr("The file holds nothing new. Nothing was stored."));
        return false;
    }
    if (const QString lack = import.lackOfKeys(); !lack.isEmpty()) {
        m_session.msgBox(lack);
        return false;
    }
    return true;
}

/// Counts stand for keys; where that would go wrong the user decides.
bool FrmImport::askForKeys(RecordImport& import, bool& byLastKey)
{
    byLastKey = false;
    if (!import.countsMislead())
        return true;
    const Answer answer = m_session.msgBox(tr("Records were deleted from this database, so the number of "
                                              "records is not the number of the last one. "
                                              "Counted by it, new people would be tied to the wrong company. "
                                              "Go on with the last number instead?"),
                                           Buttons::YesNoCancel);
    byLastKey = answer == Answer::Yes;
    return answer != Answer::Cancel;
}

void FrmImport::cmdMap()
{
    const int wanted = m_form.isVisible(u"txtTotalNum"_s) ? number(u"txtTotalNum"_s) : recordCount();
    if (m_file.map.isEmpty() || recordCount() == 0) {
        m_session.msgBox(tr("Please load a file and map its columns first."));
        return;
    }
    RecordImport import(m_session, m_file.records, m_file.map, wanted);
    bool byLastKey = false;
    if (planRecords(import) && askForKeys(import, byLastKey) && beginStore())
        storeRecords(import, byLastKey);
}

void FrmImport::storeRecords(RecordImport& import, bool byLastKey)
{
    status(tr("Storing the records..."));
    bool stored = false;
    {
        ProgressScope progress(m_session, tr("Storing the records"), import.size());
        stored = import.store(byLastKey, [&](int done, int total) {
            if (done % 50 == 0)
                emit advanced(done, total);
            return progress.step(done);
        });
    }
    emit advanced(0, 0);
    status({});
    if (stored)
        finishImport(import.report(), import.report().summary());
}
