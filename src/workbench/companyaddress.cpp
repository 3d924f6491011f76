#include "workbench/companyaddress.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/form.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "workbench/wholerecord.h"

using namespace Qt::StringLiterals;

bool insertAddress(Session& session, const Form& companyForm)
{
    QString address = wholerecord::insertFront(session.dataJW(), u"Address"_s, u"Address"_s);
    // Lines behind the first are all kept in the second column, with their own line ends.
    const QString lines = fieldtext::toShown(companyForm.text(u"txtAddress"_s));
    const auto split = lines.indexOf(u'\n');
    address += fieldtext::quoted(split < 0 ? lines : lines.left(split)) + u',' +
               fieldtext::quoted(split < 0 ? QString() : lines.mid(split + 1)) + u',';
    for (const QString& control : {u"txtCity"_s, u"txtState"_s, u"txtZip"_s})
        address += fieldtext::quoted(companyForm.text(control)) + u',';
    address += u"'USA',";
    for (const QString& control : {u"txtP1"_s, u"txtP2"_s, u"txtP3"_s, u"txtFax"_s, u"txtEm1"_s, u"txtEm2"_s,
                                   u"txtURL1"_s, u"txtURL2"_s})
        address += fieldtext::quoted(companyForm.text(control)) + u',';
    return session.dataJW().execQuery(address + u'\'' + dates::mdyy(session.today()) + u"');");
}
