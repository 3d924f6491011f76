// Files that are written whole or not at all.
#pragma once

#include <QByteArrayView>
#include <QString>

class QIODevice;

/// Writes all of @p bytes; false when the device does not take them, with the reason in its errorString().
[[nodiscard]] bool writeAll(QIODevice& device, QByteArrayView bytes);

/// Writes the file at @p path whole or leaves what is there as it is. "" or, in the system's words, why not.
[[nodiscard]] QString writeWholeFile(const QString& path, QByteArrayView bytes);
