// Bringing a store of an earlier format up to date.
#pragma once

#include <QDateTime>
#include <QString>

/// Gives the store at @p path, whose state is FileState::Older, the present format: takes a checked copy into
/// the folder's "backups" first, then changes the file in one step, whole or not at all. A store that another
/// program has brought up to date meanwhile is left as it is. Throws StoreError with the file as it was.
void migrateStore(const QString& path, const QDateTime& now);
/// The same for a file that is a copy itself.
void bringUpToDate(const QString& path);
