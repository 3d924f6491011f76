#include "web/streetmap.h"

#include <QUrl>

namespace {

QString encoded(const QString& value, const QByteArray& keep = {})
{
    return QString::fromLatin1(QUrl::toPercentEncoding(value, keep));
}

} // namespace

QString streetMapAddress(const QString& host, const MapPlace& place)
{
    QString street = place.street;
    street.replace(u' ', u'+');
    return host + u"/maps/map.adp?city=" + encoded(place.city) + u"&state=" + encoded(place.state) +
           u"&address=" + encoded(street, "+") + u"&zip=" + encoded(place.zip) + u"&country=US&zoom=7";
}
