#include "workbench/addressrow.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/form.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/record/recordreplacement.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

QString addressrow::street(const RecordSet& address)
{
    const QString second = address.text(u"Address2");
    const QString first = address.text(u"Address1");
    return fieldtext::toShown(second.isEmpty() ? first : QString(first + text::crlf + second));
}

QString addressrow::value(const Session& session, const Form& form, const QString& streetControl,
                          const QString& column)
{
    // Lines behind the first are all kept in the second column, with their own line ends.
    const QString lines = fieldtext::toShown(form.text(streetControl));
    const auto split = lines.indexOf(u'\n');
    if (column == u"Address1")
        return fieldtext::quoted(split < 0 ? lines : lines.left(split));
    if (column == u"Address2")
        return fieldtext::quoted(split < 0 ? QString() : lines.mid(split + 1));
    if (column == u"EntryDate")
        return u'\'' + dates::mdyy(session.today()) + u'\'';
    return form.hasColumn(column) || column != u"Country" ? form.columnValue(column) : u"'USA'"_s;
}

Key addressrow::insert(Session& session, const Form& form, const QString& streetControl)
{
    DataJW& dataJW = session.dataJW();
    const QStringList columns = recordcolumns::of(dataJW, u"Address"_s);
    const auto valueOf = [&](const QString& column) { return value(session, form, streetControl, column); };
    if (columns.isEmpty() || !dataJW.execQuery(recordcolumns::insert(u"Address"_s, columns, valueOf)))
        return 0;
    // The store is never asked for the number it gave: with one user the highest key is that of the row just
    // added.
    return dataJW.getCount(u"Address"_s, false, u"AddressKey"_s);
}
