#include "base/words.h"

namespace words {

QStringView trimBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString cleaned(QString text)
{
    QChar* to = text.data();
    for (const QChar c : std::as_const(text)) {
        if (c != u',' && c != u':' && c != u';')
            *to++ = c == u'-' ? QChar(u' ') : c;
    }
    text.truncate(to - text.constData());
    return text;
}

QStringList split(QStringView text, qsizetype shortest)
{
    QStringList found;
    QStringView last;
    walk(text, [&](QStringView word) {
        if (!found.isEmpty() && word.size() < shortest)
            return true;
        // A word that is taken again is stored once: a huge first word brings the next up a million times.
        const bool again = found.size() > 1 && word.data() == last.data() && word.size() == last.size();
        found.append(again ? found.constLast() : word.toString());
        last = word;
        return true;
    });
    return found;
}

double numericValue(QStringView text)
{
    qsizetype at = text.startsWith(u'-') || text.startsWith(u'+') ? 1 : 0;
    const auto digits = [&] {
        const qsizetype from = at;
        while (at < text.size() && text[at] >= u'0' && text[at] <= u'9')
            ++at;
        return at - from;
    };
    qsizetype found = digits();
    if (at < text.size() && text[at] == u'.') {
        ++at;
        found += digits();
    }
    if (found == 0)
        return 0;
    const qsizetype mantissa = at;
    if (at < text.size() && text[at].toLower() == u'e') {
        ++at;
        if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
            ++at;
        if (digits() == 0)
            at = mantissa;
    }
    return text.left(at).toDouble();
}

} // namespace words
