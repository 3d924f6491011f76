#include "app/output.h"

#include "base/text.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void write(FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

QString csvField(const QString& value)
{
    const bool quoted =
        value.contains(u',') || value.contains(u'"') || value.contains(u'\n') || value.contains(u'\r');
    return quoted ? QString(u'"' + QString(value).replace(u'"', QStringLiteral("\"\"")) + u'"') : value;
}

/// A spreadsheet computes what begins like this.
bool looksLikeFormula(const QString& value)
{
    return !value.isEmpty() && QStringView(u"=+-@\t\r").contains(value.front());
}

QString csvCell(const QVariant& cell, bool safe)
{
    const QString text = cell.toString();
    const bool marked = safe && cell.typeId() == QMetaType::QString && looksLikeFormula(text);
    return csvField(marked ? QString(u'\'' + text) : text);
}

/// A cell in a column of this width, or in a last one of any width for 0.
QString fitted(const QString& cell, int width)
{
    return width > 0 && cell.size() > width ? QString(cell.left(width - 1) + u'\u2026')
                                            : cell.leftJustified(width);
}

/// The columns' names; a later column of the same name (a join has them) gets a number, as an object holds
/// one of each.
QStringList distinctNames(const RecordSet& rows)
{
    QStringList names;
    for (int i = 0; i < rows.columnCount(); ++i) {
        QString name = rows.columnName(i);
        for (int number = 2; names.contains(name); ++number)
            name = rows.columnName(i) + u'_' + QString::number(number);
        names.append(name);
    }
    return names;
}

} // namespace

void print(const QString& text)
{
    write(stdout, text);
}

QString plain(QString text)
{
    text.replace(text::crlf.toString(), QStringLiteral("\n"));
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control && c != u'\n' && c != u'\t')
            c = u' ';
    }
    return text;
}

QString onOneLine(const QString& text)
{
    QString line = plain(text);
    return line.replace(u'\n', u' ').replace(u'\t', u' ');
}

void printLine(const QString& text)
{
    write(stdout, plain(text) + u'\n');
}

void printError(const QString& message)
{
    std::fflush(stdout);
    write(stderr, u"jobwright: " + plain(message) + u'\n');
}

void Table::row(const QStringList& cells) const
{
    QString line;
    for (qsizetype i = 0; i < m_widths.size(); ++i) {
        const int width = m_widths.at(i);
        const QString cell = onOneLine(cells.at(i)).simplified();
        if (i > 0)
            line += QString(m_gap, u' ');
        line += width < 0 ? cell.rightJustified(-width) : fitted(cell, width);
    }
    while (line.endsWith(u' '))
        line.chop(1);
    printLine(line);
}

void printCsv(RecordSet rows, bool safe)
{
    QStringList line;
    for (int i = 0; i < rows.columnCount(); ++i)
        line.append(csvField(rows.columnName(i)));
    print(line.join(u',') + u"\r\n");
    for (rows.first(); !rows.atEnd(); rows.next()) {
        line.clear();
        for (int i = 0; i < rows.columnCount(); ++i)
            line.append(csvCell(rows.value(i), safe));
        print(line.join(u',') + u"\r\n");
    }
}

void printJson(RecordSet rows)
{
    QJsonArray array;
    const QStringList names = distinctNames(rows);
    for (rows.first(); !rows.atEnd(); rows.next()) {
        QJsonObject object;
        for (int i = 0; i < rows.columnCount(); ++i)
            object.insert(names.at(i), QJsonValue::fromVariant(rows.value(i)));
        array.append(object);
    }
    printJson(array);
}

void JsonList::add(const QJsonObject& object)
{
    QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Indented).trimmed();
    print((m_isEmpty ? u"[\n    "_s : u",\n    "_s) + QString::fromUtf8(text.replace("\n", "\n    ")));
    m_isEmpty = false;
}

void JsonList::end()
{
    print(m_isEmpty ? u"[\n]\n"_s : u"\n]\n"_s);
}

void printJson(const QJsonArray& array)
{
    write(stdout, QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Indented)));
}

void printJson(const QJsonObject& object)
{
    write(stdout, QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented)));
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    if (path.isEmpty()) {
        print(QString::fromUtf8(bytes));
        return true;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    printError(QCoreApplication::translate("Commands", "%1 cannot be written: %2.")
                   .arg(QDir::toNativeSeparators(path), file.errorString()));
    return false;
}
