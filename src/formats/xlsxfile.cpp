#include "formats/xlsxfile.h"

#include "base/dates.h"
#include "formats/ziparchive.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QTime>

#include <pugixml.hpp>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("XlsxFile", text);
}

constexpr int mostRows = 1 << 20;

/// An element's name without the prefix that some writers give it.
std::string_view localName(const char* name)
{
    const std::string_view all(name);
    const auto colon = all.find(':');
    return colon == std::string_view::npos ? all : all.substr(colon + 1);
}

pugi::xml_node child(pugi::xml_node parent, std::string_view name)
{
    return parent.find_child([&](pugi::xml_node node) { return localName(node.name()) == name; });
}

template<class Take> void eachChild(pugi::xml_node parent, std::string_view name, Take&& take)
{
    for (const pugi::xml_node node : parent.children()) {
        if (localName(node.name()) == name)
            take(node);
    }
}

const char* attribute(pugi::xml_node node, std::string_view name)
{
    for (const pugi::xml_attribute each : node.attributes()) {
        if (localName(each.name()) == name)
            return each.value();
    }
    return "";
}

/// The text of a shared or inline string: its runs joined, the reading aids for ideographs left out.
QByteArray stringText(pugi::xml_node item)
{
    QByteArray text;
    eachChild(item, "t", [&](pugi::xml_node run) { text += run.text().get(); });
    eachChild(item, "r", [&](pugi::xml_node run) { text += child(run, "t").text().get(); });
    return text;
}

/// True for a number format that shows a day: a letter of day, month or year outside of quotes and brackets.
bool showsDay(QStringView format)
{
    bool quoted = false;
    bool bracketed = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format[i];
        if (c == u'\\' || c == u'_' || c == u'*')
            ++i;
        else if (c == u'"')
            quoted = !quoted;
        else if (c == u'[')
            bracketed = true;
        else if (c == u']')
            bracketed = false;
        else if (!quoted && !bracketed && (c.toLower() == u'd' || c.toLower() == u'y'))
            return true;
        else if (!quoted && c == u';')
            break; // what follows is for numbers below zero
    }
    return false;
}

/// The formats that every workbook knows and that show a day.
bool isBuiltInDay(int format)
{
    return (format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 36) ||
           (format >= 50 && format <= 58);
}

/// "BC12" as its column, from 0; -1 for no place at all.
int columnOf(std::string_view reference)
{
    int column = 0;
    for (const char c : reference) {
        if (c < 'A' || c > 'Z')
            break;
        column = column * 26 + (c - 'A' + 1);
        if (column > 1 << 16)
            return -1;
    }
    return column - 1;
}

QString cellName(int row, int column)
{
    QString letters;
    for (int left = column + 1; left > 0; left = (left - 1) / 26)
        letters.prepend(QChar(u'A' + (left - 1) % 26));
    return letters + QString::number(row);
}

} // namespace

struct XlsxFile::Impl
{
    std::unique_ptr<ZipArchive> archive;
    std::vector<QByteArray> strings;
    QSet<int> dayStyles; ///< numbers of the cell formats that show a day
    bool from1904 = false;

    QString load(const QString& part, pugi::xml_document& document, QByteArray& bytes);
    QHash<QString, QString> links(const QString& part, QString& problem);
    QString readStrings(const QString& part);
    QString readStyles(const QString& part);
    [[nodiscard]] QByteArray day(double number) const;
    [[nodiscard]] QByteArray value(pugi::xml_node cell, bool& inRange) const;
    void readRow(pugi::xml_node node, int row, Result& result) const;
};

// The document keeps pointing into its bytes.
QString XlsxFile::Impl::load(const QString& part, pugi::xml_document& document, QByteArray& bytes)
{
    if (const QString problem = archive->read(part, bytes); !problem.isEmpty())
        return problem;
    const auto parsed = document.load_buffer_inplace(bytes.data(), size_t(bytes.size()),
                                                     pugi::parse_default | pugi::parse_ws_pcdata_single);
    return parsed ? QString()
                  : tr("The workbook is damaged: %1 is no proper XML near byte %2.")
                        .arg(part)
                        .arg(parsed.offset);
}

/// Where a part's links lead, by their id and by the last word of their kind.
QHash<QString, QString> XlsxFile::Impl::links(const QString& part, QString& problem)
{
    const auto slash = part.lastIndexOf(u'/');
    const QString folder = part.left(slash + 1);
    pugi::xml_document document;
    QByteArray bytes;
    QHash<QString, QString> targets;
    problem = load(folder + u"_rels/" + part.mid(slash + 1) + u".rels", document, bytes);
    eachChild(child(document, "Relationships"), "Relationship", [&](pugi::xml_node link) {
        if (std::string_view(attribute(link, "TargetMode")) == "External")
            return;
        const QString target = QString::fromUtf8(attribute(link, "Target"));
        const QString path = target.startsWith(u'/') ? target.mid(1) : QString(folder + target);
        targets.insert(QString::fromUtf8(attribute(link, "Id")), path);
        targets.insert(u"kind:" + QString::fromUtf8(attribute(link, "Type")).section(u'/', -1), path);
    });
    return targets;
}

QString XlsxFile::Impl::readStrings(const QString& part)
{
    pugi::xml_document document;
    QByteArray bytes;
    const QString problem = load(part, document, bytes);
    eachChild(child(document, "sst"), "si",
              [this](pugi::xml_node item) { strings.push_back(stringText(item)); });
    return problem;
}

QString XlsxFile::Impl::readStyles(const QString& part)
{
    pugi::xml_document document;
    QByteArray bytes;
    const QString problem = load(part, document, bytes);
    const pugi::xml_node sheet = child(document, "styleSheet");
    QSet<int> days;
    eachChild(child(sheet, "numFmts"), "numFmt", [&](pugi::xml_node format) {
        if (showsDay(QString::fromUtf8(attribute(format, "formatCode"))))
            days.insert(std::atoi(attribute(format, "numFmtId")));
    });
    int style = 0;
    eachChild(child(sheet, "cellXfs"), "xf", [&](pugi::xml_node format) {
        const int number = std::atoi(attribute(format, "numFmtId"));
        if (isBuiltInDay(number) || days.contains(number))
            dayStyles.insert(style);
        ++style;
    });
    return problem;
}

/// A day's number as the program writes dates. The older count begins with a leap day that never was.
QByteArray XlsxFile::Impl::day(double number) const
{
    if (!(number >= 1 && number < 2958466)) // up to the year 9999
        return {};
    const double days = std::floor(number);
    const QDate first = from1904 ? QDate(1904, 1, 1) : days < 60 ? QDate(1899, 12, 31) : QDate(1899, 12, 30);
    const auto seconds = static_cast<int>(std::lround((number - days) * 86400));
    const QTime time =
        seconds == 0 ? QTime() : QTime::fromMSecsSinceStartOfDay(std::min(seconds, 86399) * 1000);
    return dates::general(dates::Moment{first.addDays(static_cast<qint64>(days)), time}).toUtf8();
}

QByteArray XlsxFile::Impl::value(pugi::xml_node cell, bool& inRange) const
{
    const std::string_view type = attribute(cell, "t");
    const QByteArray raw = child(cell, "v").text().get();
    if (type == "inlineStr")
        return stringText(child(cell, "is"));
    if (type == "s") {
        bool isNumber = false;
        const qulonglong index = raw.toULongLong(&isNumber);
        inRange = isNumber && index < strings.size();
        return inRange ? strings[static_cast<size_t>(index)] : QByteArray();
    }
    if (type == "b")
        return raw == "1" ? "1" : "0";
    if (type == "d") { // a date of the strict form: "2026-11-05T00:00:00"
        const auto moment = dates::parse(QString::fromUtf8(raw).section(u'.', 0, 0));
        const bool plain = moment && moment->time == QTime(0, 0);
        return moment ? dates::general(plain ? dates::Moment{moment->date, {}} : *moment).toUtf8() : raw;
    }
    if (!type.empty() && type != "n")
        return raw; // the text of a formula, or an error as it is shown
    bool isNumber = false;
    const double number = raw.toDouble(&isNumber);
    if (!isNumber)
        return raw;
    if (dayStyles.contains(std::atoi(attribute(cell, "s")))) {
        if (const QByteArray asDay = day(number); !asDay.isEmpty())
            return asDay;
    }
    // A telephone number is stored as 6.175550142E9, and shown in its digits.
    return std::abs(number) < 1e15 && number == std::floor(number)
               ? QByteArray::number(static_cast<qint64>(number))
               : QByteArray::number(number, 'g', 15);
}

void XlsxFile::Impl::readRow(pugi::xml_node node, int row, Result& result) const
{
    std::vector<QByteArray> cells;
    bool any = false;
    int column = 0;
    eachChild(node, "c", [&](pugi::xml_node cell) {
        if (!result.problem.isEmpty())
            return;
        const std::string_view reference = attribute(cell, "r");
        if (!reference.empty())
            column = columnOf(reference);
        if (column < 0 || column >= mostColumns) {
            result.problem = tr("Row %1 of the sheet has a cell beyond column %2.").arg(row).arg(mostColumns);
            return;
        }
        bool inRange = true;
        QByteArray text = value(cell, inRange);
        if (!inRange) {
            result.problem = tr("Cell %1 of the sheet points to a text that the workbook does not have.")
                                 .arg(cellName(row, column));
            return;
        }
        any = any || !text.isEmpty();
        if (cells.size() <= size_t(column))
            cells.resize(size_t(column) + 1);
        cells[size_t(column++)] = std::move(text);
    });
    if (!any || !result.problem.isEmpty())
        return;
    for (const QByteArray& cell : cells) {
        if (!result.table.addCell(cell))
            result.problem =
                tr("The sheet holds more than an import takes; it was read up to row %1.").arg(row);
    }
    result.table.endRecord(row);
}

XlsxFile::XlsxFile()
    : m_impl(std::make_unique<Impl>())
{
}

XlsxFile::~XlsxFile() = default;

bool XlsxFile::isWorkbook(const QByteArray& bytes)
{
    return bytes.startsWith("PK\x03\x04") || bytes.startsWith("PK\x05\x06") ||
           bytes.startsWith("\xD0\xCF\x11\xE0");
}

QString XlsxFile::open(const QByteArray& bytes)
{
    m_sheets.clear();
    m_impl = std::make_unique<Impl>();
    if (bytes.startsWith("\xD0\xCF\x11\xE0")) { // a compound file: an older form, or a locked one
        const QString locked = u"EncryptedPackage"_s;
        const QByteArray wide(reinterpret_cast<const char*>(locked.utf16()), locked.size() * 2);
        return bytes.contains(wide)
                   ? tr("The workbook is locked with a password. Please save it without one and try again.")
                   : tr("This is a workbook of the older form (.xls). Please save it as .xlsx or as CSV.");
    }
    m_impl->archive = std::make_unique<ZipArchive>(bytes, largestPart, largestRatio);
    QString problem = m_impl->archive->problem();
    if (!problem.isEmpty())
        return problem;
    const QString workbook = m_impl->links({}, problem).value(u"kind:officeDocument"_s);
    if (workbook.isEmpty())
        return problem.isEmpty() ? tr("This archive holds no workbook.") : problem;
    const auto parts = m_impl->links(workbook, problem);
    pugi::xml_document document;
    QByteArray text;
    if (problem.isEmpty())
        problem = m_impl->load(workbook, document, text);
    const pugi::xml_node root = child(document, "workbook");
    const std::string_view old = attribute(child(root, "workbookPr"), "date1904");
    m_impl->from1904 = old == "1" || old == "true";
    eachChild(child(root, "sheets"), "sheet", [&](pugi::xml_node sheet) {
        const QString part = parts.value(QString::fromUtf8(attribute(sheet, "id")));
        const std::string_view state = attribute(sheet, "state");
        m_sheets.push_back(
            {QString::fromUtf8(attribute(sheet, "name")), state == "hidden" || state == "veryHidden", part});
    });
    if (const QString strings = parts.value(u"kind:sharedStrings"_s); problem.isEmpty() && !strings.isEmpty())
        problem = m_impl->readStrings(strings);
    if (const QString styles = parts.value(u"kind:styles"_s); problem.isEmpty() && !styles.isEmpty())
        problem = m_impl->readStyles(styles);
    if (problem.isEmpty() && m_sheets.empty())
        problem = tr("The workbook has no sheets.");
    return problem;
}

XlsxFile::Result XlsxFile::read(int sheet)
{
    Result result;
    const Sheet& wanted = m_sheets.at(static_cast<size_t>(sheet));
    if (wanted.part.isEmpty()) {
        result.problem = tr("The sheet “%1” is missing in the workbook.").arg(wanted.name);
        return result;
    }
    pugi::xml_document document;
    QByteArray bytes;
    result.problem = m_impl->load(wanted.part, document, bytes);
    const pugi::xml_node data = child(child(document, "worksheet"), "sheetData");
    int row = 0;
    for (const pugi::xml_node node : data.children()) {
        if (!result.problem.isEmpty())
            break;
        if (localName(node.name()) != "row")
            continue;
        const int said = std::atoi(attribute(node, "r"));
        row = said > row ? said : row + 1;
        if (row > mostRows)
            result.problem = tr("The sheet has rows beyond %1.").arg(mostRows);
        else
            m_impl->readRow(node, row, result);
    }
    return result;
}
