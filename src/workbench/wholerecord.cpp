#include "workbench/wholerecord.h"

#include "store/datajw.h"
#include "workbench/fieldtext.h"

using namespace Qt::StringLiterals;

namespace wholerecord {

QString insertFront(DataJW& dataJW, const QString& written, const QString& table)
{
    const QString columns = dataJW.getFields(table).mid(1).join(u',');
    return columns.isEmpty() ? QString() : u"INSERT INTO " + written + u" ( " + columns + u" ) VALUES (";
}

bool fitsStatement(const Form& form)
{
    constexpr qsizetype longestRecord = 900'000;
    qsizetype length = 0;
    for (const FieldRow& row : form.rows())
        length += row.save == SaveOn::Never ? 0 : fieldtext::toStored(form.text(row.control)).size();
    return length <= longestRecord;
}

} // namespace wholerecord
