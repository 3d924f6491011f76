#include "store/record/recordform.h"

#include "base/fieldtext.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

RecordForm::RecordForm(Session& session, QString table, QString keyColumn, std::vector<FieldRow> rows)
    : Form(std::move(rows))
    , m_session(session)
    , m_table(std::move(table))
    , m_keyColumn(std::move(keyColumn))
{
    Form::clear();
}

// --- Filling ----------------------------------------------------------------------------------------------

void RecordForm::fill(const RecordSet& record)
{
    m_isWhole = true;
    for (const FieldRow& row : rows()) {
        if (!row.column.isEmpty() && record.columnIndex(row.column) < 0)
            showColumn(row.column, {});
    }
    fillMore(record);
}

void RecordForm::fillMore(const RecordSet& record)
{
    if (record.isUnread())
        noteUnread();
    for (const FieldRow& row : rows()) {
        if (!row.column.isEmpty() && record.columnIndex(row.column) >= 0)
            showColumn(row.column, record.text(row.column));
    }
}

void RecordForm::clear()
{
    m_isWhole = true;
    Form::clear();
}

// --- Saving -----------------------------------------------------------------------------------------------

bool RecordForm::saveField(const QString& control, Key key)
{
    const FieldRow* const field = row(control);
    if (!field || key <= 0)
        return false;
    if (!m_session.dataJW().execQuery(u"Update "_s + m_table + u" set " + field->column + u'=' +
                                      columnValue(field->column) + u" where " + m_keyColumn + u'=' +
                                      QString::number(key)))
        return false;
    markColumnClean(field->column);
    return true;
}

bool RecordForm::mayBeStored(const QStringList& tables)
{
    constexpr qsizetype longestRecord = 900'000;
    if (!m_isWhole) {
        m_session.msgBox(tr("This record could not be read completely from the database, so nothing was "
                            "saved or changed. Please choose it again."));
        return false;
    }
    qsizetype length = 0;
    for (const FieldRow& row : rows())
        length += row.save == SaveOn::Never ? 0 : fieldtext::toStored(text(row.control)).size();
    if (length <= longestRecord)
        return haveKeys(m_session, tables);
    m_session.msgBox(tr("These texts are too long to be saved. Please shorten the notes."));
    return false;
}

bool RecordForm::mayLeave(const OpenRecord& record)
{
    const auto waits = [this](const FieldRow& row, bool forRecord) {
        return row.save != SaveOn::Never && (row.save == SaveOn::Record) == forRecord && isDirty(row.control);
    };
    for (const FieldRow& row : rows()) {
        if (record.isStored && waits(row, false)) // one leaving may have written several
            record.leave(row.control);
    }
    if (!hasUnsaved() && !record.hasMore)
        return true;
    // A field that saves itself has been tried; the rest comes into the store by the record's save.
    const bool waitsForSave =
        !record.isStored || record.hasMore ||
        std::ranges::any_of(rows(), [&](const FieldRow& row) { return waits(row, true); });
    if (waitsForSave && record.save) {
        const Answer answer =
            m_session.msgBox(tr("The changes to %1 have not been saved. Save them?").arg(record.name),
                             Buttons::YesNoCancel, tr("Changes not saved"));
        if (answer == Answer::Yes)
            return record.save();
        if (answer != Answer::No)
            return false;
    } else if (m_session.msgBox(
                   tr("A change on this screen could not be saved. Leave it and lose the change?"),
                   Buttons::YesNoDefaultNo, tr("Change not saved")) != Answer::Yes) {
        return false;
    }
    revertAll();
    return true;
}
