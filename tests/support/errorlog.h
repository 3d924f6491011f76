// The error log of a test's world, taken apart.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One entry of "ErrorLog.txt".
struct LogEntry
{
    bool suppressed = false;
    QString description;
    int number = 0;
    QString source;
    QString text; ///< what the caller said, its lines joined with CRLF

    static std::vector<LogEntry> parse(const QString& log);
};

inline std::vector<LogEntry> LogEntry::parse(const QString& log)
{
    std::vector<LogEntry> entries;
    for (const QString& part : log.split(QStringLiteral("\r\n>>> ERROR:")).mid(1)) {
        QStringList lines = part.split(QStringLiteral("\r\n"));
        LogEntry entry;
        entry.suppressed = lines.size() > 1 && lines[0].isEmpty() && lines[1].startsWith(u"Suppressed ");
        if (entry.suppressed) {
            lines.removeFirst();
            lines[0].remove(0, QStringView(u"Suppressed ").size());
        }
        if (lines.size() < 4)
            continue;
        entry.description = lines.takeFirst();
        entry.number = lines.takeFirst().toInt();
        entry.source = lines.takeFirst();
        QStringList text;
        while (!lines.isEmpty() && !lines.front().startsWith(u"---"))
            text.append(lines.takeFirst());
        entry.text = text.join(QStringLiteral("\r\n"));
        entries.push_back(entry);
    }
    return entries;
}
