// A quick look at XML of the simple kind that the program itself writes.
#pragma once

#include <QByteArray>

#include <optional>

/// How deep elements may stand within each other; in a campaign file they stand three deep.
inline constexpr int deepestXml = 100;

/// True for a character that an XML file may hold, as it stands or by its number. From the production Char of
/// the XML 1.0 recommendation.
[[nodiscard]] bool isXmlCharacter(uint c);

/// The character that a reference by number at the beginning of the text, "&#12;" or "&#xC;", stands for,
/// allowed or not; nothing when there is none.
[[nodiscard]] std::optional<uint> referencedCharacter(QByteArrayView text);

/// True when the bytes behind @p from, which are UTF-8 without a zero byte, are surely well-formed: elements
/// and attributes with plain names and nothing but blanks between them. False says nothing: a full reader,
/// ten times as slow, has to look.
[[nodiscard]] bool isPlainXml(const QByteArray& bytes, qsizetype from);
