// Plain output of the commands.
#pragma once

#include "store/gateway/recordset.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/// Writes text to standard output as UTF-8, as it is: for what other programs read. Ends the program quietly
/// when the reader has gone away ("| head").
void print(const QString& text);

/// Writes bytes into a file, whole or not at all, or to standard output when @p path is empty. False, with
/// the reason printed, when that failed.
bool writeFile(const QString& path, const QByteArray& bytes);

/// A text as a terminal may get it: what is stored may hold escapes that recolour, rename or rewrite it, so
/// every control character but line end and tab is a blank.
QString plain(QString text);
/// The same on one line: line ends and tabs in it are blanks, too.
QString onOneLine(const QString& text);
/// Writes a text for people, in plain, and ends its line.
void printLine(const QString& text);
/// Writes one message in plain to standard error, behind the program's name.
void printError(const QString& message);

/// Prints rows of cells in columns. A cell stays on its line, whatever it holds, and in its column: one that
/// is too long ends in an ellipsis.
class Table
{
public:
    /// The columns' widths in characters: below 0 for cells at the right of their column, 0 for a last column
    /// that is as long as its text. Between columns stand @p gap blanks.
    explicit Table(QList<int> widths, int gap = 2)
        : m_widths(std::move(widths))
        , m_gap(gap)
    {
    }
    /// As many cells as there are columns.
    void row(const QStringList& cells) const;

private:
    QList<int> m_widths;
    int m_gap;
};

/// Rows as CSV (RFC 4180): a header of the column names, line ends CR LF, dates in ISO form, NULL empty. With
/// @p safe an apostrophe stands before texts that a spreadsheet would take for a formula.
void printCsv(RecordSet rows, bool safe);
/// Rows as a JSON array of objects; NULL is null, numbers are numbers, dates are ISO texts.
void printJson(RecordSet rows);
void printJson(const QJsonArray& array);

/// Prints a JSON array object by object, so that a long one is never whole in memory.
class JsonList
{
public:
    void add(const QJsonObject& object);
    void end(); ///< closes the array
private:
    bool m_isEmpty = true;
};
void printJson(const QJsonObject& object);
