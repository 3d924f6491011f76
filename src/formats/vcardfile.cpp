#include "formats/vcardfile.h"

#include "formats/textfile.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vcard {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("VCardFile", text);
}

/// What an import has no use for and what makes cards long.
const QSet<QByteArray>& skipped()
{
    static const QSet<QByteArray> names{"PHOTO", "LOGO", "SOUND", "KEY"};
    return names;
}

/// More of them and something else was meant.
constexpr int mostProblems = 200;
constexpr int mostProperties = 1000;

QString resolved(QStringView value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const QChar next = value[++i];
        if (next == u'n' || next == u'N')
            text += u'\n';
        else if (u"\\,;:"_s.contains(next))
            text += next;
        else
            text += u'\\' + QString(next);
    }
    return text;
}

/// The part of a line before its value: name and parameters end at the first colon outside of quotes.
qsizetype headEnd(QByteArrayView line)
{
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else if (line[i] == ':' && !quoted)
            return i;
    }
    return -1;
}

/// @p text at the sign, but for what stands in quotes.
QByteArrayList splitUnquoted(const QByteArray& text, char sign)
{
    QByteArrayList parts{{}};
    bool quoted = false;
    for (const char c : text) {
        if (c == '"')
            quoted = !quoted;
        else if (c == sign && !quoted)
            parts.append(QByteArray());
        else
            parts.last().append(c);
    }
    return parts;
}

QByteArray unquotedPrintable(QByteArrayView text)
{
    const auto digit = [](char c) {
        return c >= '0' && c <= '9'   ? c - '0'
               : c >= 'A' && c <= 'F' ? c - 'A' + 10
               : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                      : -1;
    };
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool coded =
            text[i] == '=' && i + 2 < text.size() && digit(text[i + 1]) >= 0 && digit(text[i + 2]) >= 0;
        bytes.append(coded ? static_cast<char>(digit(text[i + 1]) * 16 + digit(text[i + 2])) : text[i]);
        i += coded ? 2 : 0;
    }
    return bytes;
}

/// Name, parameters and raw value of an unfolded line.
struct Head
{
    QByteArray name;
    QStringList types;
    QByteArray charset;
    bool quotedPrintable = false;
    bool base64 = false;

    explicit Head(const QByteArray& text)
    {
        QByteArrayList parts = splitUnquoted(text, ';');
        name = parts.takeFirst().trimmed().toUpper();
        name = name.mid(name.lastIndexOf('.') + 1);
        for (const QByteArray& part : parts)
            take(part.trimmed().toUpper());
    }

private:
    void take(const QByteArray& parameter)
    {
        const auto sign = parameter.indexOf('=');
        const QByteArray key = sign < 0 ? QByteArray() : parameter.left(sign).trimmed();
        const QByteArray value = sign < 0 ? parameter : parameter.mid(sign + 1).trimmed();
        if (key == "CHARSET")
            charset = value;
        else if (key == "PREF")
            types.append(u"PREF"_s);
        else if ((key == "ENCODING" || key.isEmpty()) && value == "QUOTED-PRINTABLE")
            quotedPrintable = true;
        else if ((key == "ENCODING" || key.isEmpty()) && (value == "B" || value == "BASE64"))
            base64 = true;
        else if (key == "TYPE" || key.isEmpty())
            types += QString::fromUtf8(value).split(u',', Qt::SkipEmptyParts);
    }
};

class Reader
{
public:
    explicit Reader(const QByteArray& bytes)
        : m_bytes(bytes)
    {
    }

    Result read()
    {
        while (m_at < m_bytes.size())
            readProperty();
        if (m_open)
            leaveOut();
        return std::move(m_result);
    }

private:
    QByteArrayView physicalLine()
    {
        const qsizetype from = m_at;
        while (m_at < m_bytes.size() && m_bytes[m_at] != '\n' && m_bytes[m_at] != '\r')
            ++m_at;
        const QByteArrayView line = QByteArrayView(m_bytes).sliced(from, m_at - from);
        if (m_at + 1 < m_bytes.size() && m_bytes[m_at] == '\r' && m_bytes[m_at + 1] == '\n')
            ++m_at;
        ++m_at;
        ++m_line;
        return line;
    }
    [[nodiscard]] bool continues() const
    {
        return m_at < m_bytes.size() && (m_bytes[m_at] == ' ' || m_bytes[m_at] == '\t');
    }

    /// A soft line end that leads to the card's end is a broken one.
    [[nodiscard]] bool atEndOfCard() const { return m_bytes.mid(m_at, 9).toUpper() == "END:VCARD"; }

    void readProperty()
    {
        QByteArray line = physicalLine().toByteArray();
        const int began = m_line;
        const qsizetype colon = headEnd(line);
        const Head head(colon < 0 ? QByteArray() : line.left(colon));
        const bool skip = skipped().contains(head.name);
        // Quoted-printable text goes on behind a "=" at the line's end, any text at a blank's.
        const auto soft = [&] { return head.quotedPrintable && line.endsWith('=') && !atEndOfCard(); };
        while (m_at < m_bytes.size() && (continues() || soft())) {
            const bool isSoft = soft();
            if (isSoft)
                line.chop(1);
            const bool folded = continues() && !isSoft;
            const QByteArrayView next = physicalLine();
            if (!skip && line.size() <= longestValue)
                line.append(folded ? next.sliced(1) : next);
            else if (isSoft && next.endsWith('='))
                line.append('='); // still to be passed over to its end
        }
        if (line.size() > longestValue && !skip)
            problem(tr("line %1: the value is longer than 1 MB and was passed over"), began);
        else if (!skip)
            take(line, began);
    }

    void take(const QByteArray& line, int began)
    {
        const qsizetype colon = headEnd(line);
        const Head head(colon < 0 ? QByteArray() : line.left(colon));
        const QByteArray value = colon < 0 ? QByteArray() : line.mid(colon + 1);
        const bool isCard = value.trimmed().toUpper() == "VCARD";
        if (head.name == "BEGIN" && isCard)
            beginCard(began);
        else if (head.name == "END" && isCard)
            endCard(began);
        else if (m_open && m_nested == 0 && colon > 0)
            addProperty(head, value, began);
    }
    void addProperty(const Head& head, const QByteArray& value, int began)
    {
        m_afterAgent = head.name == "AGENT";
        if (head.base64)
            return; // only pictures and keys are written so
        if (m_card.properties.size() >= mostProperties) {
            problem(tr("line %1: the card has too many lines; the rest of it was passed over"), began);
            return;
        }
        const QByteArray bytes = head.quotedPrintable ? unquotedPrintable(value) : value;
        QString text = textfile::decoded(bytes, head.charset);
        text.remove(QChar(u'\0'));
        m_card.properties.push_back({QString::fromUtf8(head.name), head.types, text});
    }
    void beginCard(int line)
    {
        if (m_open && (m_afterAgent || m_nested > 0)) {
            ++m_nested;
            return;
        }
        if (m_open)
            leaveOut();
        m_card = {line, {}};
        m_open = true;
    }
    void endCard(int line)
    {
        if (m_nested > 0) {
            m_afterAgent = --m_nested > 0;
            return;
        }
        if (m_open)
            m_result.cards.push_back(std::move(m_card));
        else
            problem(tr("line %1: END without a BEGIN"), line);
        m_card = {};
        m_open = m_afterAgent = false;
    }
    void leaveOut()
    {
        problem(tr("line %1: the card that begins here is not closed and was left out"), m_card.line);
        m_nested = 0;
        m_afterAgent = false;
    }
    void problem(const QString& sentence, int line)
    {
        if (m_result.problems.size() < mostProblems)
            m_result.problems.append(sentence.arg(line));
    }

    const QByteArray& m_bytes;
    Result m_result;
    Card m_card;
    qsizetype m_at = 0;
    int m_line = 0;
    int m_nested = 0; ///< cards within the card
    bool m_open = false;
    bool m_afterAgent = false; ///< the line before announced a card within the card
};

QString escaped(const QString& text)
{
    QString line = text;
    line.replace(u'\\', u"\\\\"_s).replace(u';', u"\\;"_s).replace(u',', u"\\,"_s);
    line.replace(u"\r\n"_s, u"\\n"_s).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\n"_s);
    line.removeIf([](QChar c) { return c < u' ' && c != u'\t'; });
    return line;
}

} // namespace

QStringList Property::parts() const
{
    QStringList parts;
    qsizetype from = 0;
    for (qsizetype i = 0; i <= value.size(); ++i) {
        if (i < value.size() && value[i] == u'\\')
            ++i;
        else if (i == value.size() || value[i] == u';') {
            parts.append(resolved(QStringView(value).sliced(from, i - from)).trimmed());
            from = i + 1;
        }
    }
    if (from < value.size() && parts.isEmpty())
        parts.append(resolved(value).trimmed());
    return parts;
}

QString Property::text() const
{
    return resolved(value).trimmed();
}

const Property* Card::find(const QString& name) const
{
    const auto found = std::ranges::find(properties, name, &Property::name);
    return found == properties.end() ? nullptr : &*found;
}

Result read(const QByteArray& bytes)
{
    // Only wide characters are turned here: each value of an older file may have a set of its own.
    auto encoding = textfile::Encoding::Utf8;
    const QByteArray utf8 = textfile::toUtf8(bytes, textfile::Encoding::Found, &encoding);
    const bool asItIs = encoding == textfile::Encoding::Western;
    return Reader(asItIs ? bytes : utf8).read();
}

void Writer::begin()
{
    line("BEGIN:VCARD");
    line("VERSION:4.0");
}

void Writer::end()
{
    line("END:VCARD");
}

void Writer::add(const QString& name, const QString& text)
{
    if (!text.isEmpty())
        line((name + u':' + escaped(text)).toUtf8());
}

void Writer::add(const QString& name, const QStringList& parts)
{
    QStringList values;
    for (const QString& part : parts)
        values.append(escaped(part));
    if (std::ranges::any_of(parts, [](const QString& part) { return !part.isEmpty(); }))
        line((name + u':' + values.join(u';')).toUtf8());
}

void Writer::line(const QByteArray& text)
{
    constexpr qsizetype longest = 75; // octets of a line, its end not counted
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = std::min(at + longest - (at > 0 ? 1 : 0), text.size());
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
            --end; // no letter is cut
        m_bytes += (at > 0 ? " " : "") + text.mid(at, end - at) + "\r\n";
        at = end;
    }
}

} // namespace vcard
