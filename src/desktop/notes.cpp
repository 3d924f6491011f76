#include "desktop/notes.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

constexpr int answerMs = 500;
constexpr int byTheServersOwnTime = -1;

/// Without an address the library would start a bus of its own, which nobody else listens to.
bool hasBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus");
}

} // namespace

namespace notes {

bool show(const QString& title, const QString& text)
{
    if (!hasBus())
        return false;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
                                                          u"/org/freedesktop/Notifications"_s,
                                                          u"org.freedesktop.Notifications"_s, u"Notify"_s);
    // The body may be read as markup by whoever shows it: what somebody typed must come out as typed.
    message.setArguments({u"Jobwright"_s, 0U, u"jobwright"_s, title, text.toHtmlEscaped(), QStringList(),
                          QVariantMap{{u"desktop-entry"_s, u"jobwright"_s}}, byTheServersOwnTime});
    return bus.call(message, QDBus::Block, answerMs).type() == QDBusMessage::ReplyMessage;
}

} // namespace notes
