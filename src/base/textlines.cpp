#include "base/textlines.h"

#include "base/wholefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = 1 << 20;
constexpr qsizetype mostLines = 10000;
constexpr qsizetype longestLine = 4096;

QString tr(const char* text)
{
    return QCoreApplication::translate("TextLines", text);
}

QStringList splitLines(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(u'\n');
}

} // namespace

namespace textlines {

TextLines read(const QString& path)
{
    const QString name = QDir::toNativeSeparators(path);
    // A named pipe or a device would make the program wait for ever.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        return {{}, tr("%1 is no file that can be read.").arg(name)};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, tr("The file %1 could not be read: %2").arg(name, file.errorString())};
    return parse(file.read(mostBytes + 1), name);
}

TextLines parse(const QByteArray& bytes, const QString& name)
{
    if (bytes.size() > mostBytes)
        return {{}, tr("The file %1 is too large to be one of Jobwright's.").arg(name)};
    if (bytes.contains('\0'))
        return {{}, tr("The file %1 is no text file.").arg(name)};
    const bool isUtf8 = QByteArrayView(bytes).isValidUtf8();
    QString text = isUtf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    const QStringList lines = splitLines(std::move(text));
    if (lines.size() > mostLines)
        return {{}, tr("The file %1 has too many lines to be one of Jobwright's.").arg(name)};
    const auto tooLong =
        std::ranges::find_if(lines, [](const QString& line) { return line.size() > longestLine; });
    if (tooLong != lines.end())
        return {{}, tr("Line %1 of the file %2 is too long.").arg(tooLong - lines.begin() + 1).arg(name)};
    return {lines, {}};
}

QString write(const QString& path, const QStringList& lines)
{
    const QString failure = writeWholeFile(path, QString(lines.join(u'\n') + u'\n').toUtf8());
    return failure.isEmpty()
               ? QString()
               : tr("The file %1 could not be written: %2").arg(QDir::toNativeSeparators(path), failure);
}

} // namespace textlines
