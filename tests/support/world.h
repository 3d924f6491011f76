// A world of its own for each test: a fresh folder, a clock that stands still, scripted ports.
#pragma once

#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "support/scriptedprompts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

/// The desktop of a test: notes what it was asked to open.
class NotedDesktop : public Desktop
{
public:
    QStringList opened;
    bool works = true;

    bool openUrl(const QString& address) override { return note(address); }
    bool openDocument(const QString& path) override { return note(path); }
    /// Noted as "program <first> <second>".
    bool startProgram(const QString& program, const QStringList& arguments) override
    {
        return note(program + u" <" + arguments.join(u"> <") + u'>');
    }
    [[nodiscard]] bool canOpen(const QString&) const override { return works; }
    /// Noted as "sound PATH" and "note TITLE: TEXT".
    bool playSound(const QString& path) override { return note(u"sound " + path); }
    bool notify(const QString& title, const QString& text) override
    {
        return note(u"note " + title + u": " + text);
    }

private:
    bool note(const QString& what)
    {
        opened.append(what);
        return works;
    }
};

/// The progress of a test: counts the steps, and cancels at one when it is asked to.
class CountedProgress : public Progress
{
public:
    QStringList titles;
    int steps = 0;
    int cancelAt = 0; ///< the step that is answered with a cancel, counted from 1; 0 for none

    void begin(const QString& title, int) override { titles.append(title); }
    [[nodiscard]] bool step(int, const QString&) override { return ++steps != cancelAt; }
    void end() override {}
};

/// Where the worlds lie: in memory when the system has such a place, as every commit waits for the disk.
inline QString worldTemplate()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    return (memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath()) +
           u"/jobwright-XXXXXX";
}

/// A session on a store of its own in a temporary folder.
class World
{
public:
    explicit World(const QDateTime& now = QDateTime(QDate(2026, 11, 22), QTime(9, 30)))
        : m_now(now)
    {
        const QString path = folder.path() + u"/Postledger.db";
        Database::create(path);
        // Contacts and documents have keys from 1 on here, so that tests can name them.
        engine::execute(Database(path).handle(), "DELETE FROM sqlite_sequence WHERE seq = 10000");
        restart();
    }

    /// Ends the session and begins another on the same folder.
    void restart()
    {
        session.reset();
        session = std::make_unique<Session>(
            folder.path(), [this] { return m_now; }, prompts, desktop);
        session->setProgress(progress);
    }
    DataJW& data() { return session->dataJW(); }
    void setNow(const QDateTime& now) { m_now = now; }
    /// The cells of a statement's rows, "a|b" a row and ";" between rows.
    QString cells(const QString& statement)
    {
        QStringList rows;
        for (RecordSet set = data().getExecQueryRecords(statement); !set.atEnd(); set.next()) {
            QStringList row;
            for (int column = 0; column < set.columnCount(); ++column)
                row.append(set.text(column));
            rows.append(row.join(u'|'));
        }
        return rows.join(u';');
    }
    /// The whole text of a file of the folder, "" when there is none.
    [[nodiscard]] QString fileText(const QString& name) const
    {
        QFile file(folder.path() + u'/' + name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    [[nodiscard]] QString errorLog() const { return fileText(QStringLiteral("ErrorLog.txt")); }
    [[nodiscard]] QString opLog() const { return fileText(QStringLiteral("OpLog.txt")); }

    QTemporaryDir folder{worldTemplate()};
    ScriptedPrompts prompts;
    NotedDesktop desktop;
    CountedProgress progress;
    std::unique_ptr<Session> session;

private:
    QDateTime m_now;
};
