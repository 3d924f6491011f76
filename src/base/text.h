// Small text rules that the whole program shares.
#pragma once

#include <QString>
#include <QStringList>

namespace text {

/// Line end as stored in multi-line fields and written into logs: carriage return and line feed.
inline constexpr QStringView crlf = u"\r\n";

/// Every apostrophe becomes a backquote. Applied to each user text before it goes into a statement and
/// never undone: what is stored, and shown again, holds the backquote.
QString quoteFix(QString value);

/// The items of a key list such as "12,7,33". Empty items are skipped, so the stray commas that a removal
/// leaves ("12,,33") do no harm.
QStringList csvParse(QStringView keyList);

/// True for a category's name: categories are company rows whose name begins with "~".
bool isCategory(QStringView companyName);

/// True for the selector texts that stand for no saved record: nothing at all, or "<New>".
bool isUnsaved(QStringView selection);

/// The selector's entry for a record that does not exist yet.
inline constexpr QStringView newEntry = u"<New>";

} // namespace text
