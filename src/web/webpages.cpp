#include "web/webpages.h"

#include "store/session.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

/// The map service unless the settings name another.
constexpr QStringView defaultMapHost = u"https://maps.example";

} // namespace

QString webpages::homePage()
{
    return u"https://jobwright.example"_s;
}

QString webpages::mapHost(Session& session)
{
    const QString host = session.settings().QueryValueS(
        RegAccess::Hive::CurrentUser, u"Software\\Ferrow Software\\Jobwright"_s, u"MapHost"_s);
    return host.isEmpty() ? defaultMapHost.toString() : host;
}

void webpages::openURL(Session& session, const QString& address)
{
    session.trace(u"Open URL"_s);
    const QString wanted = address.trimmed().isEmpty() ? homePage() : address.trimmed();
    if (!session.desktop().openUrl(wanted))
        session.msgBox(
            QCoreApplication::translate("WebPages", "The address \"%1\" could not be opened.").arg(wanted));
}
