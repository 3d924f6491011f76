#include "store/xml/xmlwriter.h"

#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "store/xml/campaignfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <pugixml.hpp>

#include <algorithm>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// The bar's steps for one table; the rows of all tables together are not known before the last is read.
constexpr int stepsPerTable = 100;

/// Collects what pugixml prints and hands it to the file in large pieces.
class FileWriter : public pugi::xml_writer
{
public:
    explicit FileWriter(QSaveFile& file)
        : m_file(file)
    {
    }
    void write(const void* data, size_t size) override
    {
        add({static_cast<const char*>(data), static_cast<qsizetype>(size)});
    }
    void add(QByteArrayView piece)
    {
        m_pending.append(piece);
        if (m_pending.size() >= 1 << 20)
            flush();
    }
    bool flush()
    {
        m_sound = m_sound && m_file.write(m_pending) == m_pending.size();
        m_pending.clear();
        return m_sound;
    }

private:
    QSaveFile& m_file;
    QByteArray m_pending;
    bool m_sound = true;
};

bool isXmlCharacter(QChar c)
{
    const char16_t unit = c.unicode();
    return (unit >= 0x20 && unit < 0xFFFE) || unit == u'\t' || unit == u'\n' || unit == u'\r';
}

/// A pasted text may hold control characters; one of them would make the whole file unreadable.
QByteArray xmlText(QString value)
{
    if (!std::all_of(value.cbegin(), value.cend(), isXmlCharacter))
        value.removeIf([](QChar c) { return !isXmlCharacter(c); });
    return value.toUtf8();
}

/// One record element that is filled anew for each row: the document never stands in memory as a whole.
class RecordElement
{
public:
    explicit RecordElement(const QStringList& columns)
        : m_record(m_document.append_child("Record"))
    {
        for (const QString& column : columns)
            m_attributes.push_back(m_record.append_attribute(column.toUtf8().constData()));
    }
    void print(const RecordSet& row, pugi::xml_writer& writer)
    {
        for (size_t i = 0; i < m_attributes.size(); ++i)
            m_attributes[i].set_value(xmlText(row.text(static_cast<int>(i))).constData());
        m_record.print(writer, "  ", pugi::format_default, pugi::encoding_utf8, 2);
    }

private:
    pugi::xml_document m_document;
    pugi::xml_node m_record;
    std::vector<pugi::xml_attribute> m_attributes;
};

bool writeTable(Session& session, FileWriter& writer, std::string_view name, int tablesDone)
{
    const QString table = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    RecordElement record(session.dataJW().getFields(table));
    RecordSet rows = session.dataJW().getExecQueryRecords(u"Select * from "_s + table);
    if (rows.isNothing())
        return false;
    const QByteArray opening = "  <Data Table=\"" + table.toUtf8() + (rows.isEmpty() ? "\" />\n" : "\">\n");
    writer.add(opening);
    const int total = stepsPerTable * static_cast<int>(CampaignFile::tables.size());
    int step = -1;
    for (int row = 0; !rows.atEnd(); rows.next(), ++row) {
        record.print(rows, writer);
        const int reached = static_cast<int>(qint64{stepsPerTable} * row / rows.rowCount());
        if (std::exchange(step, reached) != reached)
            emit session.progressChanged(tablesDone * stepsPerTable + reached, total);
    }
    if (!rows.isEmpty())
        writer.add("  </Data>\n");
    emit session.progressChanged((tablesDone + 1) * stepsPerTable, total);
    return true;
}

bool writeDocument(Session& session, QSaveFile& file, bool restore)
{
    FileWriter writer(file);
    writer.add("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    writer.add(restore ? "<Jobwright Restore=\"1\">\n" : "<Jobwright>\n");
    int done = 0;
    for (const std::string_view table : CampaignFile::tables) {
        // A table that cannot be read is logged and shown by the gateway; half a backup is none.
        if (!writeTable(session, writer, table, done++))
            return false;
    }
    writer.add("</Jobwright>\n");
    return writer.flush();
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

/// The file that a path stands for, all links followed; "" when a link leads nowhere.
QString realPath(const QString& path)
{
    const QFileInfo target(path);
    if (target.exists())
        return target.canonicalFilePath();
    if (target.isSymLink())
        return {};
    const QString folder = QFileInfo(target.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? path : QDir(folder).filePath(target.fileName());
}

bool isInFolder(const Session& session, const QString& real)
{
    return QFileInfo(real).absolutePath() == QFileInfo(session.folder()).canonicalFilePath();
}

/// True for the databases of this and of other campaigns with what the engine keeps beside them, for this
/// one's copies, logs and settings.
bool isOwnFile(const Session& session, const QString& real)
{
    const QString name = QFileInfo(real).fileName();
    const QString database = QFileInfo(session.databasePath()).canonicalFilePath();
    for (const QStringView ending : {u"", u"-journal", u"-wal", u"-shm"}) {
        if (name.compare(QString(u"Postledger.db" + ending), Qt::CaseInsensitive) == 0 ||
            (!database.isEmpty() && real == QString(database + ending)))
            return true;
    }
    const QString copies = QFileInfo(session.file(u"backups"_s)).canonicalFilePath();
    if (!copies.isEmpty() && real.startsWith(QString(copies + u'/')))
        return true;
    static const QStringList own{u"ErrorLog.txt"_s, u"OpLog.txt"_s, u"settings.ini"_s, u"jobwright.lock"_s};
    return own.contains(name, Qt::CaseInsensitive) && isInFolder(session, real);
}

/// True for the files that are the program's to write: a restore file that the user has agreed to replace is
/// replaced, also when a crash has made rubbish of it.
bool isToBeReplaced(const Session& session, const QString& real)
{
    const QString name = QFileInfo(real).fileName();
    return (name == u"restore.xml" || name == u"backup.xml") && isInFolder(session, real);
}

/// False for a file with anything in it that does not begin as XML does.
bool mayBeXml(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray start = file.read(4096);
    if (start.startsWith("\xEF\xBB\xBF"))
        start.remove(0, 3);
    return start.isEmpty() || start.trimmed().startsWith('<');
}

/// Why nothing may be written to this file; "" when it may. Its name is the user's (a setting, an argument),
/// and writing replaces what is there: never one of the program's own files, nor anything else but XML.
QString refusalOf(const Session& session, const QString& real)
{
    if (real.isEmpty())
        return QCoreApplication::translate("XmlExport", "it is a link that leads nowhere");
    const QFileInfo target(real);
    if (target.exists() && !target.isFile())
        return QCoreApplication::translate("XmlExport", "it is no plain file");
    if (isOwnFile(session, real))
        return QCoreApplication::translate("XmlExport", "it is one of the program's own files");
    if (target.exists() && !isToBeReplaced(session, real) && !mayBeXml(real))
        return QCoreApplication::translate(
            "XmlExport",
            "it exists already and is no XML file, so it is left as it is; please choose another "
            "name");
    return {};
}

} // namespace

QString xmlexport::write(Session& session, const QString& file, bool restore)
{
    const QString path = QDir::isAbsolutePath(file) ? file : session.folder() + u'/' + file;
    const QString real = realPath(path);
    if (const QString refusal = refusalOf(session, real); !refusal.isEmpty()) {
        session.logError(u"DataJW-CreateXML"_s + text::crlf +
                         QCoreApplication::translate("XmlExport", "The file %1 could not be written: %2")
                             .arg(path, refusal));
        return {};
    }
    QSaveFile target(real);
    const bool opened = target.open(QIODevice::WriteOnly);
    if (opened && writeDocument(session, target, restore) && target.commit()) {
        releaseRows();
        return readText(path);
    }
    // A table that could not be read has been told already, and left the file in order.
    if (!opened || target.error() != QFileDevice::NoError)
        session.logError(u"DataJW-CreateXML"_s + text::crlf +
                         QCoreApplication::translate("XmlExport", "The file %1 could not be written: %2")
                             .arg(path, target.errorString()));
    return {};
}
