#include "store/files/logs.h"

#include "base/dates.h"
#include "base/text.h"

#include <QCoreApplication>
#include <QFile>

namespace {

/// Opened, written and closed at each call, so that a crash loses at most the call at hand.
bool append(const QString& path, const QString& entry)
{
    QFile file(path);
    const QByteArray bytes = entry.toUtf8();
    return file.open(QIODevice::WriteOnly | QIODevice::Append) && file.write(bytes) == bytes.size() &&
           file.flush();
}

/// A statement with a pasted book in it says no more in the log for standing there in whole.
constexpr qsizetype longestText = 16384;

QString shortened(const QString& text)
{
    if (text.size() <= longestText)
        return text;
    return text.left(longestText) + text::crlf +
           QCoreApplication::translate("ErrLogger", "(cut here; it has %1 characters)").arg(text.size());
}

} // namespace

OpLog::OpLog(const QString& folder)
    : m_path(folder + u"/OpLog.txt")
{
}

bool OpLog::addLog(const QString& message, const QDateTime& now) const
{
    return append(m_path, message + u" : " + dates::general(now) + text::crlf);
}

ErrLogger::ErrLogger(const QString& folder)
    : m_path(folder + u"/ErrorLog.txt")
{
}

bool ErrLogger::addLog(const QString& message, int level, const QDateTime& now) const
{
    QString entry = text::crlf + QStringView(u">>> ERROR:");
    if (level == 1)
        entry += text::crlf + QStringView(u"Suppressed ");
    return append(m_path, entry + message + dates::general(now) + text::crlf);
}

QString ErrLogger::compose(const QString& description, int number, const QString& source, const QString& text)
{
    // The line of hyphens closes an entry: the log's viewer counts by it.
    return shortened(description) + text::crlf + QString::number(number) + text::crlf + source + text::crlf +
           shortened(text) + text::crlf + u"-------";
}
