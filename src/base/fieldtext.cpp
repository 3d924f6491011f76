#include "base/fieldtext.h"

#include "base/text.h"

namespace fieldtext {

QString toStored(QString shown)
{
    // A pasted text may come with any of the three line ends, and with a mixture of them.
    QString lines = toShown(std::move(shown));
    lines.replace(u'\n', text::crlf.toString());
    return text::quoteFix(std::move(lines));
}

QString quoted(const QString& shown)
{
    return u'\'' + toStored(shown) + u'\'';
}

QString toShown(QString stored)
{
    return stored.replace(text::crlf.toString(), QStringLiteral("\n")).replace(u'\r', u'\n');
}

} // namespace fieldtext
