#include "output/historyspan.h"

#include "base/dates.h"
#include "store/gateway/datajw.h"
#include "store/gateway/names.h"

using namespace Qt::StringLiterals;

std::vector<Happened> historyspan::read(DataJW& dataJW, QDate from, QDate to)
{
    std::vector<Happened> span;
    if (!from.isValid() || !to.isValid())
        return span;
    // A day ends before the next begins, whatever time of day an interaction has.
    RecordSet rows = dataJW.getExecQueryRecords(
        u"Select ContactKey,ContactDate,Medium,Topic,Details from History where ContactDate >= #"_s +
        dates::mdyyyy(from) + u"# AND ContactDate < #" + dates::mdyyyy(to.addDays(1)) +
        u"# order by ContactDate,ContactKey,ContactCount");
    if (rows.isEmpty())
        return span;
    const QHash<Key, QString> contacts =
        names::byKey(dataJW.getExecQueryRecords(u"Select ContactKey,FirstName,LastName from Contact"_s));
    const QHash<Key, QString> companies = names::byKey(dataJW.getExecQueryRecords(
        u"Select ContactKey,Name from Contact Inner Join Company On Contact.CompanyKey=Company.CompanyKey"_s));
    for (; !rows.atEnd(); rows.next()) {
        const Key key = rows.key(u"ContactKey").value_or(0);
        span.push_back({rows.date(u"ContactDate"), key, contacts.value(key).simplified(),
                        companies.value(key).simplified(), rows.text(u"Medium"), rows.text(u"Topic"),
                        rows.text(u"Details")});
    }
    return span;
}
