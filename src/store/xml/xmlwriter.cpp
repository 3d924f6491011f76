#include "store/xml/xmlwriter.h"

#include "base/text.h"
#include "base/wholefile.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "store/xml/campaignfile.h"
#include "store/xml/exporttarget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// The bar's steps for one table; the rows of all tables together are not known before the last is read.
constexpr int stepsPerTable = 100;

/// Collects the document's pieces and hands them to the file in large ones.
class FileWriter
{
public:
    explicit FileWriter(QSaveFile& file)
        : m_file(file)
    {
    }
    void add(QByteArrayView piece)
    {
        m_pending.append(piece);
        if (m_pending.size() >= 1 << 20)
            flush();
    }
    /// Adds an attribute's value. Characters that XML cannot hold are left out: one of them, out of a pasted
    /// text, would make the whole file unreadable.
    void addValue(QStringView value)
    {
        constexpr qsizetype longestEscape = 6;
        const qsizetype before = m_pending.size();
        m_pending.resize(before + longestEscape * value.size());
        char* const begin = m_pending.data();
        m_pending.resize(escape(value, begin + before) - begin);
    }
    bool flush()
    {
        m_sound = m_sound && writeAll(m_file, m_pending);
        m_pending.resize(0);
        return m_sound;
    }
    /// False once the file has not taken something: going on would be of no use.
    [[nodiscard]] bool isSound() const { return m_sound; }

private:
    static char* escape(QStringView value, char* out);

    QSaveFile& m_file;
    QByteArray m_pending;
    bool m_sound = true;
};

char* put(char* out, std::string_view text)
{
    return std::copy(text.begin(), text.end(), out);
}

/// A character beyond ASCII as UTF-8.
char* putWide(char* out, char32_t c)
{
    const auto rest = [&](int shift) { *out++ = static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x800) {
        *out++ = static_cast<char>(0xC0 | (c >> 6));
    } else if (c < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (c >> 12));
        rest(6);
    } else {
        *out++ = static_cast<char>(0xF0 | (c >> 18));
        rest(12);
        rest(6);
    }
    rest(0);
    return out;
}

/// An ASCII character that cannot stand in a value as it is.
char* putSpecial(char* out, char16_t c)
{
    switch (c) {
    case u'&':
        return put(out, "&amp;");
    case u'<':
        return put(out, "&lt;");
    case u'>':
        return put(out, "&gt;");
    case u'"':
        return put(out, "&quot;");
    case u'\t':
        return put(out, "&#09;");
    case u'\n':
        return put(out, "&#10;");
    case u'\r':
        return put(out, "&#13;");
    default:
        return out;
    }
}

bool isPlain(char16_t c)
{
    return c >= 0x20 && c < 0x80 && c != u'&' && c != u'<' && c != u'>' && c != u'"';
}

char* FileWriter::escape(QStringView value, char* out)
{
    const char16_t* at = value.utf16();
    const char16_t* const end = at + value.size();
    while (at < end) {
        const char16_t c = *at++;
        if (isPlain(c))
            *out++ = static_cast<char>(c);
        else if (c < 0x80)
            out = putSpecial(out, c);
        else if (QChar::isHighSurrogate(c) && at < end && QChar::isLowSurrogate(*at))
            out = putWide(out, QChar::surrogateToUcs4(c, *at++));
        else if (c < 0xFFFE)
            out = putWide(out, QChar::isSurrogate(c) ? u'\uFFFD' : c);
    }
    return out;
}

using Keys = QSet<QString>;

/// The keys that items of lists may name, by the lists' columns.
using ListKeys = QHash<QString, Keys>;

/// False when a table could not be read.
bool readKeys(Session& session, const QString& table, const QString& column, Keys& keys)
{
    RecordSet rows = session.dataJW().getExecQueryRecords(u"Select "_s + column + u" from " + table);
    for (; !rows.atEnd(); rows.next())
        keys.insert(rows.text(0));
    return !rows.isNothing();
}

/// The list without keys that name nobody: in another store they would come to name somebody.
QString knownOf(const QString& list, const Keys& known)
{
    QStringList keys = text::csvParse(list);
    const bool changed = keys.removeIf([&](const QString& key) { return !known.contains(key); }) > 0;
    return changed ? keys.join(u',') : list;
}

/// The records of a table with the same pieces between their values. From row to row the document never
/// stands in memory as a whole.
class RecordWriter
{
public:
    RecordWriter(const QStringList& columns, const ListKeys& lists)
    {
        for (const QString& column : columns) {
            m_openings.append((m_openings.isEmpty() ? "    <Record " : "\" ") + column.toUtf8() + "=\"");
            const auto known = lists.constFind(column);
            m_known.push_back(known == lists.cend() ? nullptr : &*known);
        }
    }
    void write(const RecordSet& row, FileWriter& writer) const
    {
        for (qsizetype i = 0; i < m_openings.size(); ++i) {
            const QString text = row.text(static_cast<int>(i));
            const Keys* const known = m_known[static_cast<size_t>(i)];
            writer.add(m_openings[i]);
            writer.addValue(known && !text.isEmpty() ? knownOf(text, *known) : text);
        }
        writer.add("\" />\n");
    }

private:
    QByteArrayList m_openings; ///< what stands before each value
    std::vector<const Keys*> m_known;
};

bool writeTable(Session& session, FileWriter& writer, std::string_view name, const ListKeys& lists,
                int tablesDone)
{
    const QString table = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    const RecordWriter record(session.dataJW().getFields(table), lists);
    RecordSet rows = session.dataJW().getExecQueryRecords(u"Select * from "_s + table);
    if (rows.isNothing())
        return false;
    const QByteArray opening = "  <Data Table=\"" + table.toUtf8() + (rows.isEmpty() ? "\" />\n" : "\">\n");
    writer.add(opening);
    const int total = stepsPerTable * static_cast<int>(CampaignFile::tables.size());
    int step = -1;
    for (int row = 0; !rows.atEnd() && writer.isSound(); rows.next(), ++row) {
        record.write(rows, writer);
        const int reached = static_cast<int>(qint64{stepsPerTable} * row / rows.rowCount());
        if (std::exchange(step, reached) != reached)
            emit session.progressChanged(tablesDone * stepsPerTable + reached, total);
    }
    if (!rows.isEmpty())
        writer.add("  </Data>\n");
    emit session.progressChanged((tablesDone + 1) * stepsPerTable, total);
    return true;
}

/// False when a table could not be read; the gateway has told the user which one.
bool writeDocument(Session& session, FileWriter& writer, bool restore)
{
    ListKeys lists;
    if (!readKeys(session, u"Contact"_s, u"ContactKey"_s, lists[u"ContactList"_s]) ||
        !readKeys(session, u"Document"_s, u"ResumeKey"_s, lists[u"DocumentList"_s]))
        return false;
    writer.add("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    writer.add(restore ? "<Jobwright Restore=\"1\">\n" : "<Jobwright>\n");
    int done = 0;
    for (const std::string_view table : CampaignFile::tables) {
        // Half a backup is none.
        if (!writeTable(session, writer, table, lists, done++))
            return false;
    }
    writer.add("</Jobwright>\n");
    return true;
}

/// Gives back what the rows of the tables took; the allocator would keep it beside the document's text.
void releaseRows()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

/// Reads piece by piece, so that the bytes never stand beside the whole text.
QString readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text;
    text.reserve(file.size());
    while (!file.atEnd())
        text += QString(decoder.decode(file.read(1 << 20)));
    return text;
}

} // namespace

QString xmlexport::write(Session& session, const QString& file, bool restore)
{
    const QString path = QDir::isAbsolutePath(file) ? file : session.folder() + u'/' + file;
    const QString real = exporttarget::realPath(path);
    const auto refuse = [&](const QString& reason) {
        session.logError(u"DataJW-CreateXML"_s + text::crlf +
                         QCoreApplication::translate("XmlExport", "The file %1 could not be written: %2")
                             .arg(path, reason));
        return QString();
    };
    if (const QString refusal = exporttarget::refusal(session, real); !refusal.isEmpty())
        return refuse(refusal);
    QSaveFile target(real);
    if (!target.open(QIODevice::WriteOnly))
        return refuse(target.errorString());
    FileWriter writer(target);
    if (!writeDocument(session, writer, restore))
        return {};
    if (!writer.flush() || !target.commit())
        return refuse(target.errorString());
    releaseRows();
    return readText(path);
}
