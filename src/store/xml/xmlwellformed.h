// A campaign file's bytes before they are parsed.
#pragma once

#include <QByteArray>
#include <QString>

/// Looks whether the bytes of the file at @p path are well-formed XML in UTF-8 without a document type. The
/// parser that the import reads with is lenient: it would let references and characters through that XML
/// forbids, and change the values that hold them. Blanks before the file's head are passed over. Answers ""
/// or, in words for the user and with the line, why the file cannot be used. @p bytes stay as they are.
[[nodiscard]] QString checkXml(const QString& path, QByteArray& bytes);
