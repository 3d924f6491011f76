#include "app/output.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

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

void printLine(const QString& line)
{
    write(stdout, line + u'\n');
}

void printError(const QString& message)
{
    std::fflush(stdout);
    QString plain = message;
    write(stderr, u"jobwright: " + plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")) + u'\n');
}

void printCsv(RecordSet rows)
{
    QStringList line;
    for (int i = 0; i < rows.columnCount(); ++i)
        line.append(csvField(rows.columnName(i)));
    print(line.join(u',') + u"\r\n");
    for (rows.first(); !rows.atEnd(); rows.next()) {
        line.clear();
        for (int i = 0; i < rows.columnCount(); ++i)
            line.append(csvField(rows.value(i).toString()));
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

void printJson(const QJsonArray& array)
{
    write(stdout, QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Indented)));
}

void printJson(const QJsonObject& object)
{
    write(stdout, QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented)));
}
