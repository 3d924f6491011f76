#include "intake/outcandidates.h"

#include "base/fieldtext.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

RecordSet found(DataJW& data, const QString& table, const QString& condition)
{
    return data.getExecQueryRecords(u"SELECT * FROM "_s + table + u" where " + condition);
}

bool ask(OutMemo& memo, bool usable, DataJW& data, const QString& table, const QString& condition)
{
    if (!memo.chk && usable) {
        memo.chk = true;
        memo.lastExists = !found(data, table, condition).isEmpty();
    }
    return memo.lastExists;
}

} // namespace

bool OutAddress::oExists(DataJW& data)
{
    return ask(*this, !oAddress.isEmpty(), data, u"Address"_s, u"Address1="_s + fieldtext::quoted(oAddress));
}

Key OutAddress::getAddrKey(DataJW& data) const
{
    if (oAddress.isEmpty())
        return 0;
    return found(data, u"Address"_s, u"Address1="_s + fieldtext::quoted(oAddress))
        .key(u"AddressKey")
        .value_or(0);
}

bool OutCompany::oExists(DataJW& data)
{
    return ask(*this, !oCompanyName.isEmpty(), data, u"Company"_s,
               u"Name="_s + fieldtext::quoted(oCompanyName));
}

Key OutCompany::getCompanyKey(DataJW& data) const
{
    if (oCompanyName.isEmpty())
        return 0;
    return found(data, u"Company"_s, u"Name="_s + fieldtext::quoted(oCompanyName))
        .key(u"CompanyKey")
        .value_or(0);
}

bool OutContact::oExists(DataJW& data)
{
    const QString condition =
        u"FirstName="_s + fieldtext::quoted(oFName) + u" and LastName=" + fieldtext::quoted(oLName);
    return ask(*this, !oFName.isEmpty() || !oLName.isEmpty(), data, u"Contact"_s, condition);
}
