#include "output/findscan.h"

#include "base/dates.h"
#include "store/engine/background.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>

#include <sqlite3.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Find", text);
}

/// Days between two words with a contact where the options hold no number.
constexpr int usualDays = 7;
/// Rows read at once: a few milliseconds, after which a writer may come in.
constexpr int rowsAtOnce = 2000;
/// Characters of an excerpt before the first word, and in all.
constexpr qsizetype leadLength = 30;
constexpr qsizetype excerptLength = 110;

struct Field
{
    const char* column;
    const char* label; ///< for tr()
};

/// How one group is read: the table, its key, and the texts that are looked at, the title's first.
struct Source
{
    FindGroup group;
    const char* table;
    const char* key;
    int titles;          ///< so many of the fields make the title
    const char* context; ///< a Select of one text by the row's number
    std::vector<Field> fields;
    bool hasAddress = false;
};

std::vector<Field> addressFields()
{
    return {{"Address1", "Address"}, {"City", "City"},     {"State", "State"},  {"Zip", "Zip"},
            {"Phone1", "Phone"},     {"Phone2", "Phone"},  {"Phone3", "Phone"}, {"Email1", "Mail"},
            {"Email2", "Mail"},      {"URL1", "Web page"}, {"URL2", "Web page"}};
}

const std::array<Source, 8>& sources()
{
    static const std::array<Source, 8> all{{
        {FindGroup::Company,
         "Company",
         "CompanyKey",
         1,
         nullptr,
         {{"Name", "Name"}, {"ShortName", "Short name"}, {"Industry", "Industry"}, {"Notes", "Notes"}},
         true},
        {FindGroup::Position,
         "Position",
         "PositionKey",
         1,
         "SELECT Name FROM Company WHERE CompanyKey=(SELECT CompanyKey FROM Position WHERE rowid=?1)",
         {{"Title", "Title"},
          {"Keyword", "Keywords"},
          {"Responsibilities", "Responsibilities"},
          {"Qualifications", "Qualifications"},
          {"Notes", "Notes"},
          {"Benefits", "Benefits"},
          {"Location", "Location"},
          {"Source", "Source"}}},
        {FindGroup::Contact,
         "Contact",
         "ContactKey",
         3,
         "SELECT Name FROM Company WHERE CompanyKey=(SELECT CompanyKey FROM Contact WHERE rowid=?1)",
         {{"FirstName", "Name"},
          {"Middle", "Name"},
          {"LastName", "Name"},
          {"Title", "Title"},
          {"Department", "Department"},
          {"ReportsTo", "Reports to"},
          {"ContactTime", "Best time"},
          {"Notes", "Notes"}},
         true},
        {FindGroup::Document,
         "Document",
         "ResumeKey",
         1,
         nullptr,
         {{"Document", "Name"},
          {"Target", "Target"},
          {"Version", "Version"},
          {"Notes", "Notes"},
          {"Path", "File"}}},
        {FindGroup::Profile,
         "UProfile",
         "UProfileKey",
         2,
         nullptr,
         {{"Title", "Title"},
          {"Subtitle", "Title"},
          {"Category", "Category"},
          {"Subcategory", "Category"},
          {"Function1", "Problem"},
          {"Function2", "Action"},
          {"Function3", "Result"},
          {"Location", "Location"},
          {"Notes", "Notes"}}},
        {FindGroup::Target,
         "Target",
         "TargetKey",
         1,
         nullptr,
         {{"Name", "Name"},
          {"Business", "Business"},
          {"Industry", "Industry"},
          {"Sector", "Sector"},
          {"Type", "Type"},
          {"ExecCEO", "Executive"},
          {"Exec1", "Executive"},
          {"Exec2", "Executive"},
          {"Exec3", "Executive"},
          {"Exec4", "Executive"},
          {"BusinessUnits", "Business units"},
          {"TargetURL", "Web page"}}},
        {FindGroup::Event,
         "Event",
         "EventKey",
         1,
         "SELECT EventDate FROM Event WHERE rowid=?1",
         {{"Event", "Name"}, {"Description", "Description"}, {"Medium", "Medium"}}},
        // The largest comes last.
        {FindGroup::History,
         "History",
         "ContactKey",
         1,
         "SELECT ContactDate||' '||trim(coalesce(FirstName,'')||' '||coalesce(LastName,'')) FROM History h "
         "LEFT JOIN Contact c ON c.ContactKey=h.ContactKey WHERE h.rowid=?1",
         {{"Topic", "Topic"}, {"Details", "Details"}, {"Location", "Location"}, {"Medium", "Medium"}}},
    }};
    return all;
}

QString textOf(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string_view column(sqlite3_stmt* statement, int place)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, place));
    return text ? std::string_view(text, static_cast<size_t>(sqlite3_column_bytes(statement, place)))
                : std::string_view();
}

/// A day at the beginning of a text in the user's form.
QString withShownDay(QString text)
{
    if (const auto day = dates::fromIso(QStringView(text).left(10)))
        text.replace(0, 10, dates::shown(day->date));
    return text.trimmed();
}

std::vector<fold::Range> marks(const QString& text, const QStringList& words)
{
    std::vector<fold::Range> all;
    for (const QString& word : words) {
        for (const fold::Range& range : fold::find(text, word)) {
            const bool apart = std::ranges::none_of(all, [&](const fold::Range& other) {
                return range.from < other.from + other.length && other.from < range.from + range.length;
            });
            if (apart)
                all.push_back(range);
        }
    }
    std::ranges::sort(all, {}, &fold::Range::from);
    return all;
}

/// The stretch of a long text around its first word.
QString excerptOf(const QString& text, const QStringList& words)
{
    const QString line = text.simplified();
    if (line.size() <= excerptLength)
        return line;
    const std::vector<fold::Range> found = marks(line, words);
    const qsizetype from = found.empty() ? 0 : std::max<qsizetype>(0, found.front().from - leadLength);
    const QString stretch = line.mid(from, excerptLength);
    return (from > 0 ? u"…"_s : u""_s) + stretch + (from + stretch.size() < line.size() ? u"…"_s : u""_s);
}

QByteArray selectRows(const Source& source)
{
    QByteArray sql = QByteArray("SELECT t.rowid,t.") + source.key;
    for (const Field& field : source.fields)
        sql += QByteArray(",t.") + field.column;
    if (source.hasAddress) {
        for (const Field& field : addressFields())
            sql += QByteArray(",a.") + field.column;
    }
    sql += QByteArray(" FROM ") + source.table + " t";
    if (source.hasAddress)
        sql += " LEFT JOIN Address a ON a.AddressKey=t.AddressKey";
    return sql;
}

/// The rows before one row, the newest first.
QByteArray selectSome(const Source& source)
{
    return selectRows(source) + " WHERE t.rowid<?1 ORDER BY t.rowid DESC LIMIT " +
           QByteArray::number(rowsAtOnce);
}

/// Looks through one table, the newest rows first.
class Scan
{
public:
    Scan(Reading& reading, const Source& source, const WordFinder& finder, const findscan::Take& take)
        : m_reading(reading)
        , m_source(source)
        , m_finder(finder)
        , m_take(take)
        , m_rows(engine::prepare(reading.connection(), selectSome(source)))
    {
        if (source.context)
            m_context = engine::prepare(reading.connection(), source.context);
        m_piece.group = source.group;
    }

    void run();

private:
    void readRow();
    void give();
    [[nodiscard]] FindHit hit();
    [[nodiscard]] QString context(qint64 row);

    Reading& m_reading;
    const Source& m_source;
    const WordFinder& m_finder;
    const findscan::Take& m_take;
    engine::Statement m_rows;
    engine::Statement m_context;
    std::vector<std::string_view> m_texts;
    FindPiece m_piece;
    qint64 m_row = 0;
    int m_given = 0; ///< so many records had been counted when the piece was last handed over
};

void Scan::run()
{
    m_row = INT64_MAX;
    for (int rows = rowsAtOnce; rows == rowsAtOnce && !m_reading.isEnded();) {
        sqlite3_stmt* const statement = m_rows.get();
        sqlite3_bind_int64(statement, 1, m_row);
        rows = 0;
        int code = sqlite3_step(statement);
        for (; code == SQLITE_ROW; code = sqlite3_step(statement), ++rows)
            readRow();
        sqlite3_reset(statement);
        if (code != SQLITE_DONE && !m_reading.isEnded())
            throw engine::failure(m_reading.connection());
        if (m_given < findscan::mostShown)
            give();
    }
    give();
}

void Scan::give()
{
    if (m_piece.count == m_given || m_reading.isEnded())
        return;
    m_given = m_piece.count;
    m_take(m_piece);
}

void Scan::readRow()
{
    m_row = sqlite3_column_int64(m_rows.get(), 0);
    const int columns = sqlite3_column_count(m_rows.get());
    m_texts.clear();
    for (int i = 2; i < columns; ++i)
        m_texts.push_back(column(m_rows.get(), i));
    if (!m_finder.matches(m_texts))
        return;
    ++m_piece.count;
    if (m_piece.hits.size() < static_cast<size_t>(findscan::mostShown))
        m_piece.hits.push_back(hit());
}

FindHit Scan::hit()
{
    FindHit hit;
    hit.key = sqlite3_column_int64(m_rows.get(), 1);
    QStringList title;
    for (int i = 0; i < m_source.titles; ++i)
        title.append(textOf(m_texts[static_cast<size_t>(i)]));
    hit.title = title.join(u' ').simplified();
    hit.titleMarks = marks(hit.title, m_finder.words());
    hit.context = context(m_row);
    // The place is the first field behind the title with a word in it.
    for (size_t i = static_cast<size_t>(m_source.titles); i < m_texts.size(); ++i) {
        const QString text = textOf(m_texts[i]);
        if (text.isEmpty() || marks(text, m_finder.words()).empty())
            continue;
        const auto fields = m_source.fields.size();
        hit.place = tr(i < fields ? m_source.fields[i].label : addressFields()[i - fields].label);
        hit.excerpt = excerptOf(text, m_finder.words());
        hit.excerptMarks = marks(hit.excerpt, m_finder.words());
        break;
    }
    return hit;
}

QString Scan::context(qint64 row)
{
    if (!m_context)
        return {};
    sqlite3_bind_int64(m_context.get(), 1, row);
    QString text;
    if (sqlite3_step(m_context.get()) == SQLITE_ROW)
        text = textOf(column(m_context.get(), 0));
    sqlite3_reset(m_context.get());
    return withShownDay(text);
}

} // namespace

QString findscan::heading(FindGroup group)
{
    switch (group) {
    case FindGroup::Due:
        return tr("Due for a word");
    case FindGroup::Company:
        return tr("Companies");
    case FindGroup::Position:
        return tr("Positions");
    case FindGroup::Contact:
        return tr("Contacts");
    case FindGroup::History:
        return tr("Contact histories");
    case FindGroup::Event:
        return tr("Events");
    case FindGroup::Document:
        return tr("Documents");
    case FindGroup::Profile:
        return tr("Profile");
    case FindGroup::Target:
        break;
    }
    return tr("Targets");
}

QString findscan::word(FindGroup group)
{
    static const std::array<QString, 9> words{u"Contact"_s,  u"Company"_s, u"Position"_s,
                                              u"Contact"_s,  u"History"_s, u"Event"_s,
                                              u"Document"_s, u"Profile"_s, u"Target"_s};
    return words[static_cast<size_t>(group)];
}

std::vector<QByteArray> findscan::statements()
{
    std::vector<QByteArray> all;
    for (const Source& source : sources())
        all.push_back(selectRows(source));
    return all;
}

void findscan::words(Reading& reading, const WordFinder& finder, const Take& take)
{
    if (finder.isEmpty())
        return;
    for (const Source& source : sources()) {
        if (!reading.isEnded())
            Scan(reading, source, finder, take).run();
    }
}

QDate findscan::dueBefore(Session& session)
{
    const int days = session.dataJW().getStatusValue(u"DateDelta"_s, true).toInt();
    return session.today().addDays(-(days > 0 ? days : usualDays));
}

void findscan::due(Reading& reading, QDate before, const Take& take)
{
    const engine::Statement rows = engine::prepare(
        reading.connection(),
        "SELECT c.ContactKey, trim(coalesce(FirstName,'')||' '||coalesce(LastName,'')), "
        "CASE WHEN LastContact>'1999-12-31' THEN LastContact END, Name FROM Contact c "
        "LEFT JOIN Company USING(CompanyKey) "
        "WHERE CASE WHEN LastContact>'1999-12-31' THEN LastContact ELSE coalesce(c.EntryDate,'') END<?1 "
        "ORDER BY 3, c.ContactKey");
    const QByteArray day = before.toString(Qt::ISODate).toUtf8();
    sqlite3_bind_text(rows.get(), 1, day.constData(), -1, SQLITE_STATIC);
    FindPiece piece;
    piece.group = FindGroup::Due;
    int code = sqlite3_step(rows.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(rows.get())) {
        ++piece.count;
        if (piece.hits.size() >= static_cast<size_t>(mostShown))
            continue;
        FindHit hit;
        hit.key = sqlite3_column_int64(rows.get(), 0);
        hit.title = textOf(column(rows.get(), 1)).simplified();
        hit.context = textOf(column(rows.get(), 3));
        const auto last = dates::fromIso(textOf(column(rows.get(), 2)));
        hit.place = last ? tr("Last contact") : QString();
        hit.excerpt = last ? dates::shown(last->date) : tr("No contact yet");
        piece.hits.push_back(std::move(hit));
    }
    if (code != SQLITE_DONE && !reading.isEnded())
        throw engine::failure(reading.connection());
    if (piece.count > 0)
        take(std::move(piece));
}
