#include "intake/importreport.h"

#include "formats/csvfile.h"

#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ImportReport", text);
}

} // namespace

void ImportReport::passOver(const QString& place, const QString& who, const QString& why)
{
    ++passedOver;
    remark(place, who, why);
}

void ImportReport::remark(const QString& place, const QString& who, const QString& what)
{
    notes.push_back({place, who.trimmed(), what});
}

QString ImportReport::summary() const
{
    return tr("Contacts: %1, companies: %2, addresses: %3 came in. Passed over: %4.")
        .arg(contacts)
        .arg(companies)
        .arg(addresses)
        .arg(passedOver);
}

QByteArray ImportReport::csv() const
{
    QByteArray text = csvfile::line({tr("Place"), tr("Who"), tr("What")}).toUtf8();
    for (const Note& note : notes)
        text += csvfile::line({note.place, note.who, note.what}).toUtf8();
    return text;
}
