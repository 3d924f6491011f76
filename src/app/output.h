// Plain output of the commands.
#pragma once

#include "store/recordset.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// Writes text to standard output as UTF-8. Ends the program quietly when the reader has gone away ("|
/// head").
void print(const QString& text);
void printLine(const QString& line);
/// Writes one message to standard error, behind the program's name.
void printError(const QString& message);

/// Rows as CSV (RFC 4180): a header of the column names, line ends CR LF, dates in ISO form, NULL empty.
void printCsv(RecordSet rows);
/// Rows as a JSON array of objects; NULL is null, numbers are numbers, dates are ISO texts.
void printJson(RecordSet rows);
void printJson(const QJsonArray& array);
void printJson(const QJsonObject& object);
