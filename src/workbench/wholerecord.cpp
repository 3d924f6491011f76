#include "workbench/wholerecord.h"

#include "base/fieldtext.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace wholerecord {

QString insertFront(DataJW& dataJW, const QString& written, const QString& table)
{
    const QString columns = dataJW.getFields(table).mid(1).join(u',');
    return columns.isEmpty() ? QString() : u"INSERT INTO " + written + u" ( " + columns + u" ) VALUES (";
}

bool mayBeStored(Session& session, const Form& form, const QStringList& tables)
{
    constexpr qsizetype longestRecord = 900'000;
    qsizetype length = 0;
    for (const FieldRow& row : form.rows())
        length += row.save == SaveOn::Never ? 0 : fieldtext::toStored(form.text(row.control)).size();
    if (length <= longestRecord)
        return haveKeys(session, tables);
    session.msgBox(QCoreApplication::translate(
        "WholeRecord", "These texts are too long to be saved. Please shorten the notes."));
    return false;
}

} // namespace wholerecord
