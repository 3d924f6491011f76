// Campaign files as the tests of the XML reader lay them down.
#pragma once

#include "store/engine/schema.h"
#include "support/world.h"

#include <QDir>

#include <QCryptographicHash>

/// Builds a campaign file: every record has all columns of its table, empty unless given.
class XmlText
{
public:
    explicit XmlText(bool restore)
        : m_restore(restore)
    {
    }
    /// @p attributes as in "Name='Acme' AddressKey='1'"; the columns that are not named come empty.
    XmlText& add(const QString& table, const QString& attributes)
    {
        QString record = QStringLiteral("<Record ") + attributes;
        for (const schema::Column& column : schema::findTable(table)->columns) {
            if (!QString(u' ' + attributes).contains(u' ' + column.name + u'='))
                record += u' ' + column.name + QStringLiteral("=''");
        }
        m_data += QStringLiteral("<Data Table='%1'>%2/></Data>").arg(table, record);
        return *this;
    }
    /// Adds text as it stands below the root.
    XmlText& raw(const QString& text)
    {
        m_data += text;
        return *this;
    }
    [[nodiscard]] QString text() const
    {
        return QStringLiteral("<Jobwright%1>%2</Jobwright>")
            .arg(m_restore ? QStringLiteral(" Restore='1'") : QString(), m_data);
    }
    /// Writes the file into the world's folder and imports it, to its end if @p complete.
    void import(World& world, bool complete = true) const
    {
        world.data().importXML(write(world));
        QCOMPARE(world.session->statusLine() == u"Import Complete", complete);
    }
    [[nodiscard]] QString write(World& world) const
    {
        const QString path = world.session->file(QStringLiteral("given.xml"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            QTest::qFail("the test file could not be written", __FILE__, __LINE__);
        file.write(text().toUtf8());
        return path;
    }

private:
    bool m_restore;
    QString m_data;
};

/// A campaign with enough in it that each kind of work can be met in its middle.
inline XmlText campaignFile(bool restore, const QString& prefix, int companies)
{
    using namespace Qt::StringLiterals;
    XmlText file(restore);
    for (int i = 1; i <= companies; ++i) {
        file.add(u"Address"_s, u"AddressKey='%1' City='C'"_s.arg(i));
        file.add(u"Company"_s, u"CompanyKey='%1' Name='%2%1' AddressKey='%1' Notes='first'"_s.arg(
                                   QString::number(i), prefix));
        for (int j = 0; j < 3; ++j) {
            file.add(u"Contact"_s,
                     u"ContactKey='%1' FirstName='F%1' LastName='L' CompanyKey='%2' AddressKey='%2'"_s
                         .arg(3 * i + j)
                         .arg(i));
            file.add(u"History"_s, u"ContactKey='%1' ContactCount='1' Topic='t'"_s.arg(3 * i + j));
            file.add(
                u"Position"_s,
                u"PositionKey='%1' Title='P%1' CompanyKey='%2' ContactList='%1'"_s.arg(3 * i + j).arg(i));
        }
        file.add(u"Event"_s, u"Event='E' CompanyKey='%1'"_s.arg(i));
    }
    return file;
}

/// A hash over every cell of every table: two stores with the same hash hold the same.
inline QByteArray contentHash(Database& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const schema::Table& table : schema::tables()) {
        RecordSet rows = database.run(QString(QStringLiteral("Select * from ") + table.name));
        hash.addData((table.name + QString::number(rows.rowCount())).toUtf8());
        for (; !rows.atEnd(); rows.next()) {
            for (int i = 0; i < rows.columnCount(); ++i)
                hash.addData(QString((rows.value(i).isNull() ? QStringLiteral("\x1") : rows.text(i)) + u'\x2')
                                 .toUtf8());
        }
    }
    return hash.result();
}
