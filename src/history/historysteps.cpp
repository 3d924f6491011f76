#include "history/historysteps.h"

#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/steps.h"

using namespace Qt::StringLiterals;

namespace {

/// @p rows are the contact's histories in the order of their days.
bool walk(DataJW& dataJW, RecordSet rows, Key position)
{
    bool followed = false;
    bool written = true;
    for (; !rows.atEnd(); rows.next()) {
        const QString day = rows.text(u"ContactDate");
        // Whatever comes after a promised follow-up is one, so the last contact decides. The promise by
        // itself is none.
        if (followed)
            written = steps::write(dataJW, position, u"InfoFollow"_s, day, steps::Other) && written;
        if (rows.text(u"Return") == u"Follow-up")
            followed = true;
        if (rows.text(u"DocumentXfer").toDouble() == 1)
            written = steps::write(dataJW, position, u"SentResume"_s, day, steps::Other) && written;
    }
    return written;
}

} // namespace

namespace historysteps {

bool move(DataJW& dataJW, Key contactKey)
{
    const Key companyKey = dataJW.getContactDataByKey(contactKey).key(u"CompanyKey").value_or(0);
    const QString company = text::quoteFix(dataJW.getCompanyNameByKey(companyKey));
    RecordSet rows;
    bool written = true;
    for (const QString& title : dataJW.getPositionNames(company)) {
        const Key position = dataJW.getPositionKey(text::quoteFix(title), company);
        // Looked for as a text: 12 is found in "112,5" as well. Steps have always been counted so, and a
        // position that lists a neighbour's key is one that the user keeps an eye on anyway.
        const QString listed = dataJW.getPositionByKey(position).text(u"ContactList");
        if (!listed.contains(QString::number(contactKey)))
            continue;
        if (rows.isNothing())
            rows = dataJW.getHistoryByContactKey(contactKey);
        written = !rows.isNothing() && walk(dataJW, rows, position) && written;
    }
    return written;
}

} // namespace historysteps
