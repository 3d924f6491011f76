#include "store/xml/xmlwellformed.h"

#include "store/xml/plainxml.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("CampaignFile", text);
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
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
    const std::optional<uint> character = referencedCharacter(text);
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
    if (!QByteArrayView(bytes).isValidUtf8() || bytes.contains('\0'))
        return notUtf8(path);
    // An empty line on top comes from editors and mails, and harms nothing.
    const auto blanks = std::find_if_not(bytes.cbegin(), bytes.cend(), isBlank) - bytes.cbegin();
    if (isPlainXml(bytes, blanks))
        return {};
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(blanks);
    const qint64 linesBefore = QByteArrayView(bytes).first(blanks).count('\n');
    QXmlStreamReader reader(&buffer);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
        if (depth > deepestXml)
            return say("The file %1 has elements within elements to no end. It was not read.").arg(path);
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
