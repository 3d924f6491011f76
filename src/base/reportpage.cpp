#include "base/reportpage.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How much of the line goes before the break; all of it when it fits. A pair of surrogates stays together.
qsizetype fitting(QStringView line, qsizetype width)
{
    if (line.size() <= width)
        return line.size();
    for (qsizetype i = width; i > 0; --i) {
        if (line[i - 1] == u' ' || line[i - 1] == u':')
            return i;
    }
    return line[width].isLowSurrogate() ? std::max<qsizetype>(width - 1, 1) : width;
}

} // namespace

QStringList reporttext::wrapped(const QString& text, int width)
{
    QString plain = text;
    plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u' ');
    if (plain.endsWith(u'\n'))
        plain.chop(1);
    QStringList lines;
    for (QStringView line : QStringView(plain).split(u'\n')) {
        do {
            const qsizetype length = fitting(line, width);
            lines.append(line.left(length).toString());
            line = line.mid(length);
        } while (!line.isEmpty());
    }
    return lines;
}
