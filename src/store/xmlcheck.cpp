#include "store/xmlcheck.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A reference that is longer than this, "&#x0010FFFF;", stands for no character.
constexpr qsizetype longestReference = 12;

QString say(const char* text)
{
    return QCoreApplication::translate("CampaignFile", text);
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

bool isValidUtf8(const QByteArray& bytes)
{
    constexpr qsizetype step = qsizetype{1} << 20;
    QStringDecoder decoder(QStringDecoder::Utf8);
    for (qsizetype at = 0; at < bytes.size(); at += step) {
        const QString ignored =
            decoder.decode(QByteArrayView(bytes).sliced(at, qMin(step, bytes.size() - at)));
        if (decoder.hasError())
            return false;
    }
    return !bytes.contains('\0');
}

/// The ranges are those of the production Char in the XML 1.0 recommendation.
bool isXmlCharacter(uint c)
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

/// The character that "&#12;" or "&#xC;" at the beginning of the text stands for.
std::optional<uint> referenced(QByteArrayView text)
{
    if (!text.startsWith("&#"))
        return {};
    const qsizetype end = text.first(qMin(text.size(), longestReference)).indexOf(';');
    const bool isHex = text.size() > 2 && text[2] == 'x';
    const qsizetype digits = isHex ? 3 : 2;
    if (end <= digits)
        return {};
    bool isNumber = false;
    const uint value = text.sliced(digits, end - digits).toUInt(&isNumber, isHex ? 16 : 10);
    return isNumber ? std::optional(value) : std::nullopt;
}

/// The character at the beginning of the text when it is one that XML forbids, as it stands or by reference.
std::optional<uint> forbidden(QByteArrayView text)
{
    if (static_cast<uchar>(text[0]) < 0x20 && !isBlank(text[0]))
        return static_cast<uint>(text[0]);
    if (text.startsWith("\xEF\xBF\xBE"))
        return 0xFFFE;
    if (text.startsWith("\xEF\xBF\xBF"))
        return 0xFFFF;
    const std::optional<uint> character = referenced(text);
    return character && !isXmlCharacter(*character) ? character : std::nullopt;
}

/// The reader tells of a forbidden character by showing it, so that nobody sees anything: its number is more
/// use. "" when the line has none.
QString forbiddenIn(QByteArrayView line)
{
    for (qsizetype at = 0; at < line.size(); ++at) {
        if (const std::optional<uint> found = forbidden(line.sliced(at)))
            return u"U+"_s + QString::number(*found, 16).toUpper().rightJustified(4, u'0');
    }
    return {};
}

QByteArrayView lineAt(QByteArrayView bytes, qint64 line)
{
    qsizetype start = 0;
    for (qint64 passed = 1; passed < line; ++passed) {
        const qsizetype end = bytes.indexOf('\n', start);
        if (end < 0)
            break;
        start = end + 1;
    }
    const qsizetype end = bytes.indexOf('\n', start);
    return end < 0 ? bytes.sliced(start) : bytes.sliced(start, end - start);
}

QString refusal(const QString& path, const QXmlStreamReader& reader, QByteArrayView bytes, qint64 line)
{
    const QString character = forbiddenIn(lineAt(bytes, line));
    if (!character.isEmpty())
        return say("The file %1 is no well-formed XML: it holds the character %2, which XML forbids (line "
                   "%3).")
            .arg(path, character, QString::number(line));
    QString found = reader.errorString();
    if (found.endsWith(u'.'))
        found.chop(1);
    return say("The file %1 is no well-formed XML: %2 (line %3).").arg(path, found, QString::number(line));
}

bool isUtf8Name(QStringView encoding)
{
    return encoding.isEmpty() || encoding.compare(u"UTF-8", Qt::CaseInsensitive) == 0 ||
           encoding.compare(u"US-ASCII", Qt::CaseInsensitive) == 0;
}

QString notUtf8(const QString& path)
{
    return say("The file %1 holds bytes that are no UTF-8 text. Save it again in the UTF-8 encoding.")
        .arg(path);
}

} // namespace

QString checkXml(const QString& path, QByteArray& bytes)
{
    if (!isValidUtf8(bytes))
        return notUtf8(path);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    // An empty line on top comes from editors and mails, and harms nothing.
    const auto blanks = std::ranges::find_if_not(bytes, isBlank) - bytes.cbegin();
    buffer.seek(blanks);
    const qint64 linesBefore = QByteArrayView(bytes).first(blanks).count('\n');
    QXmlStreamReader reader(&buffer);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartDocument && !isUtf8Name(reader.documentEncoding()))
            return notUtf8(path);
        // No file of the program has one, and entities of its own are a way to make a small file grow without
        // bound.
        if (token == QXmlStreamReader::DTD)
            return say("The file %1 has a document type declaration, which a Jobwright file never has. "
                       "It was not read.")
                .arg(path);
    }
    return reader.hasError() ? refusal(path, reader, bytes, reader.lineNumber() + linesBefore) : QString();
}
