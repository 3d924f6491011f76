#include "store/gateway/records.h"

#include "base/text.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

/// Everything of the row at hand but its two numbers, which may not fit.
void copyTexts(History& history, const RecordSet& rows)
{
    history.HistKey = rows.text(u"HistoryKey");
    history.DocXfer = rows.text(u"DocumentXfer");
    history.ContactDate = rows.date(u"ContactDate");
    history.NextCall = rows.date(u"NextCall");
    history.ReturnCall = rows.text(u"Return");
    history.Location = rows.text(u"Location");
    history.Details = rows.text(u"Details");
    history.topic = rows.text(u"Topic");
    history.Length = rows.text(u"Length");
    history.medium = rows.text(u"Medium");
}

} // namespace

void History::loadDataFromDatabase(DataJW& dataJW, Key contactKey, int index)
{
    RecordSet rows = dataJW.getHistoryByContactKeyCnt(contactKey);
    for (int i = 1; i < index && !rows.atEnd(); ++i)
        rows.next();
    if (index < 1 || rows.atEnd())
        return;
    const auto count = rows.key(u"ContactCount");
    const auto contact = rows.key(u"ContactKey");
    if ((!count && !rows.isNull(u"ContactCount")) || !contact) {
        dataJW.logError(u"History-LoadDataFromDatabase"_s + text::crlf + rows.text(u"HistoryKey"));
        return;
    }
    copyTexts(*this, rows);
    ContactCount = count.value_or(0);
    ContactKey = *contact;
}

std::optional<std::vector<History>> History::loadAll(DataJW& dataJW, Key contactKey)
{
    RecordSet rows = dataJW.getHistoryByContactKeyCnt(contactKey);
    if (rows.isNothing())
        return std::nullopt;
    std::vector<History> all;
    all.reserve(static_cast<size_t>(rows.rowCount()));
    for (; !rows.atEnd(); rows.next()) {
        History& history = all.emplace_back();
        copyTexts(history, rows);
        history.ContactCount = rows.key(u"ContactCount").value_or(0);
        history.ContactKey = contactKey;
    }
    return all;
}

int History::getHistoryCount(DataJW& dataJW, Key contactKey)
{
    return dataJW.getHistoryByContactKey(contactKey).rowCount();
}

void UserProfile::clear()
{
    *this = UserProfile();
}

void UserProfile::loadUProfileFromDatabase(DataJW& dataJW, Key key)
{
    const RecordSet row = dataJW.getUProfileByKey(key);
    if (row.isEmpty())
        return;
    UProfileKey = key;
    Notes = row.text(u"Notes");
    Location = row.text(u"Location");
    Function3 = row.text(u"Function3");
    Function2 = row.text(u"Function2");
    Function1 = row.text(u"Function1");
    EtimeYear = row.text(u"TimeEndYear");
    StimeYear = row.text(u"TimeStartYear");
    EtimeMonth = row.text(u"TimeEnd");
    StimeMonth = row.text(u"TimeStart");
    uSubCategory = row.text(u"Subcategory");
    uCategory = row.text(u"Category");
    uSubTitle = row.text(u"Subtitle");
    uTitle = row.text(u"Title");
}

QString XPosition::addPos(const QStringList& fields)
{
    return u"INSERT INTO Position ( "_s + fields.join(u',') + u" ) VALUES (";
}
