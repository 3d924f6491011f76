// Text files of other programs, whatever characters they are written in.
#pragma once

#include <QByteArray>
#include <QString>

namespace textfile {

/// How a text is written. Western is Latin-1 with the letters that Windows adds to it.
enum class Encoding { Found, Utf8, Utf16, Western };

/// The largest file that is read: what is larger was not written for one person's campaign.
inline constexpr qint64 largest = qint64(256) << 20;

/// All bytes of a file. False, with the reason in @p problem, when it cannot be read or is too large.
bool read(const QString& path, QByteArray& bytes, QString& problem, qint64 limit = largest);

/// The text in UTF-8, its byte order mark taken away. With Encoding::Found a mark decides, else the zero
/// bytes that UTF-16 leaves between plain letters, else whether it is UTF-8. @p used becomes what it was
/// taken for.
QByteArray toUtf8(const QByteArray& bytes, Encoding wanted = Encoding::Found, Encoding* used = nullptr);

/// The same for a text in the character set of this name; as Found when there is no such set.
QString decoded(const QByteArray& bytes, const QByteArray& charset = {});

} // namespace textfile
