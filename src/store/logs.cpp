#include "store/logs.h"

#include "base/dates.h"
#include "base/text.h"

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
    return description + text::crlf + QString::number(number) + text::crlf + source + text::crlf + text +
           text::crlf + u"-------";
}
