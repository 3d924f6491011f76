// The two text files of the application folder that tell what the program did and what went wrong.
#pragma once

#include <QDateTime>
#include <QString>

/// Appends a line for each traced step to "OpLog.txt".
class OpLog
{
public:
    explicit OpLog(const QString& folder);
    /// Writes "message : date and time". False when the file cannot be written.
    bool addLog(const QString& message, const QDateTime& now) const;

private:
    QString m_path;
};

/// Appends an entry for each failure to "ErrorLog.txt".
class ErrLogger
{
public:
    explicit ErrLogger(const QString& folder);
    /// Writes one entry; level 1 is marked "Suppressed". False when the file cannot be written.
    bool addLog(const QString& message, int level, const QDateTime& now) const;

    /// The message of an entry: description, number, source, the caller's text, and the closing line, each on
    /// its own. Of a description or a text longer than 16 kB the beginning, and how long it was.
    static QString compose(const QString& description, int number, const QString& source,
                           const QString& text);

private:
    QString m_path;
};
