#include "base/latin1.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace latin1 {
namespace {

constexpr qint64 largestFile = 64LL << 20;

QString tr(const char* text)
{
    return QCoreApplication::translate("TextFile", text);
}

QString shownPath(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

Lines parseLines(const QByteArray& bytes, const QString& name)
{
    if (bytes.startsWith("\xEF\xBB\xBF") || bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return {{}, tr("The file %1 is written in Unicode. Please save it as plain Latin-1 text.").arg(name)};
    if (bytes.contains('\0'))
        return {{}, tr("The file %1 is no text file.").arg(name)};
    QString text = QString::fromLatin1(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    else if (text.isEmpty())
        return {};
    return {text.split(u'\n'), {}};
}

Lines readLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, tr("The file %1 cannot be read: %2").arg(shownPath(path), file.errorString())};
    const QByteArray bytes = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return {{}, tr("The file %1 cannot be read: %2").arg(shownPath(path), file.errorString())};
    if (bytes.size() > largestFile)
        return {{}, tr("The file %1 is larger than 64 MB; something else was meant.").arg(shownPath(path))};
    return parseLines(bytes, shownPath(path));
}

QString misfits(const QString& text)
{
    QString found;
    for (const QChar c : text) {
        if (c.unicode() > 0xFF && !found.contains(c))
            found.append(c);
    }
    return found;
}

QString writeLines(const QString& path, const QStringList& lines)
{
    if (const QString signs = misfits(lines.join(QChar(u'\n'))); !signs.isEmpty())
        return tr("The file %1 was not written: it holds plain Latin-1 text, which has no sign for %2.")
            .arg(shownPath(path), signs);
    QSaveFile file(path);
    QByteArray bytes;
    for (const QString& line : lines)
        bytes += line.toLatin1() + "\r\n";
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return tr("The file %1 could not be written: %2").arg(shownPath(path), file.errorString());
    return {};
}

} // namespace latin1
