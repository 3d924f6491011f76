#include "workbench/companyfigures.h"

#include "base/dates.h"
#include "base/text.h"
#include "store/gateway/datajw.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A sum of counts; one beyond the range of a count stays at its end.
Key added(Key sum, Key more)
{
    return static_cast<Key>(std::min(int(sum) + more, INT16_MAX));
}

void gatherContacts(DataJW& dataJW, const QString& name, CompanyFigures& figures)
{
    for (const Key contact : dataJW.getContactKeys(name)) {
        const Key histories = dataJW.getHistoryCount(contact);
        figures.interactionCount = added(figures.interactionCount, histories);
        figures.maxPerContact = std::max(figures.maxPerContact, histories);
        if (histories > 0)
            ++figures.contactedCount;
        const QDate reached = dataJW.getContactDataByKey(contact).date(u"LastContact");
        if (reached.isValid())
            figures.lastContact = std::max(figures.lastContact, reached);
    }
}

/// Time since the company was entered, in the unit that the user counts in: days, weeks or months.
int elapsed(DataJW& dataJW, QDate entryDate, QDate today)
{
    const QString unit = dataJW.getStatusValue(u"TimeFreq"_s);
    return dates::difference(unit.isEmpty() ? u'w' : unit.front().toLower(), entryDate, today);
}

} // namespace

CompanyFigures gatherFigures(DataJW& dataJW, const QString& name, QDate today)
{
    const QString stored = text::quoteFix(name);
    const RecordSet company = dataJW.getCompany(stored);
    CompanyFigures figures;
    figures.entryDate = dates::missing;
    figures.lastContact = dates::sentinel;
    if (company.isEmpty())
        return figures;
    const Key key = company.key(u"CompanyKey").value_or(0);
    // A key that the program cannot work with leads to nothing; counting without one would count everybody's.
    if (key == 0)
        return figures;
    if (const QDate entered = company.date(u"EntryDate"); entered.isValid())
        figures.entryDate = entered;
    figures.positionCount = dataJW.getCount(u"Position"_s, true, u"CompanyKey"_s, key);
    figures.contactCount = dataJW.getCount(u"Contact"_s, true, u"CompanyKey"_s, key);
    if (figures.contactCount != 0)
        gatherContacts(dataJW, stored, figures);
    figures.expiredCount = dataJW.getPositionsExpiredCount(key);
    // A company without a questionnaire has no rank; its sentences and its ratio treat that as 0.
    figures.rank = std::max<Key>(dataJW.getProfileRank(false, key), 0);
    if (const int time = elapsed(dataJW, figures.entryDate, today); time > 0) {
        figures.rankRatio = double(figures.rank) / time;
        figures.historyRatio = double(figures.interactionCount) / time;
    }
    figures.isTarget = !dataJW.getTargetName(stored).Name.isEmpty();
    if (figures.isTarget)
        figures.targetCount = dataJW.getTargetCount();
    return figures;
}
