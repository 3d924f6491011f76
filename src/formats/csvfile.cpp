#include "formats/csvfile.h"

#include <QCoreApplication>
#include <QHash>

#include <csv.h>

namespace csvfile {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CsvFile", text);
}

/// How much of a file tells its delimiter.
constexpr qsizetype looked = 64 << 10;

/// Feeds the library line by line, so that every record knows where it began.
class Reader
{
public:
    explicit Reader(char delimiter)
    {
        csv_init(&m_parser, CSV_APPEND_NULL);
        csv_set_delim(&m_parser, static_cast<unsigned char>(delimiter));
    }
    ~Reader() { csv_free(&m_parser); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    Result read(QByteArrayView text)
    {
        for (qsizetype at = 0; at < text.size() && m_result.problem.isEmpty();) {
            const qsizetype end = text.indexOf('\n', at);
            const QByteArrayView line = text.sliced(at, (end < 0 ? text.size() : end + 1) - at);
            ++m_line;
            feed(line);
            at += line.size();
        }
        finish();
        return std::move(m_result);
    }

private:
    static void value(void* text, size_t length, void* self)
    {
        static_cast<Reader*>(self)->addValue(text, length);
    }
    static void record(int, void* self) { static_cast<Reader*>(self)->endRecord(); }

    void feed(QByteArrayView line)
    {
        if (line.contains('\0')) {
            fail(tr("Line %1 holds a zero byte: this is no text of separated values."), m_line);
            return;
        }
        // What has grown longer than any value is refused before the library gathers more.
        if (csv_get_buffer_size(&m_parser) > size_t(longestValue) + 4096) {
            fail(tr("A value that begins near line %1 is longer than 1 MB; perhaps its quote is not closed."),
                 m_began);
            return;
        }
        if (!m_inRecord && line.trimmed().isEmpty())
            m_began = m_line + 1;
        else
            m_inRecord = true;
        csv_parse(&m_parser, line.data(), static_cast<size_t>(line.size()), value, record, this);
    }
    void finish()
    {
        if (!m_result.problem.isEmpty())
            return;
        csv_set_opts(&m_parser, CSV_APPEND_NULL | CSV_STRICT | CSV_STRICT_FINI);
        if (csv_fini(&m_parser, value, record, this) != 0)
            fail(tr("A quote that opens near line %1 is never closed."), m_began);
    }
    void addValue(void* text, size_t length)
    {
        if (!m_result.problem.isEmpty())
            return;
        ++m_values;
        if (length > size_t(longestValue))
            fail(tr("A value that begins near line %1 is longer than 1 MB; perhaps its quote is not closed."),
                 m_began);
        else if (m_values > mostColumns)
            fail(tr("Line %1 has more than 2000 values."), m_began);
        else if (!m_result.table.addCell({static_cast<const char*>(text), static_cast<qsizetype>(length)}))
            fail(tr("The file holds more than an import takes; it was read up to line %1."), m_began);
    }
    void endRecord()
    {
        if (m_result.problem.isEmpty())
            m_result.table.endRecord(m_began);
        m_began = m_line + 1;
        m_values = 0;
        m_inRecord = false;
    }
    void fail(const QString& sentence, int line) { m_result.problem = sentence.arg(line); }

    csv_parser m_parser{};
    Result m_result;
    int m_line = 0;
    int m_began = 1; ///< where the record at work begins
    int m_values = 0;
    bool m_inRecord = false;
};

/// How evenly a delimiter divides: the lines that have the most frequent number of values above one.
int evenness(const RecordTable& table)
{
    QHash<int, int> counts;
    int best = 0;
    for (int record = 0; record < table.recordCount(); ++record) {
        const int cells = table.cellCount(record);
        if (cells > 1)
            best = std::max(best, ++counts[cells] * 100 + std::min(cells, 99));
    }
    return best;
}

} // namespace

Result read(const QByteArray& utf8, char delimiter)
{
    return Reader(delimiter).read(utf8);
}

char findDelimiter(const QByteArray& utf8)
{
    if (utf8.size() > 4 && utf8.left(4).toLower() == "sep=" && QByteArrayView(",;\t").contains(utf8[4]))
        return utf8[4];
    QByteArray beginning = utf8.left(looked);
    if (const auto end = beginning.lastIndexOf('\n'); end > 0 && beginning.size() < utf8.size())
        beginning.truncate(end + 1);
    char found = ',';
    int best = 0;
    for (const char delimiter : {',', ';', '\t'}) {
        if (const int even = evenness(read(beginning, delimiter).table); even > best) {
            best = even;
            found = delimiter;
        }
    }
    return found;
}

QString line(const QStringList& values)
{
    QStringList cells;
    for (const QString& value : values) {
        QString cell = value;
        if (cell.contains(u',') || cell.contains(u'"') || cell.contains(u'\n') || cell.contains(u'\r') ||
            cell.startsWith(u' ') || cell.endsWith(u' '))
            cell = u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
        cells.append(cell);
    }
    return cells.join(u',') + QStringLiteral("\r\n");
}

} // namespace csvfile
