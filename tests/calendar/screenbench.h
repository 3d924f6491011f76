// What the tests of the calendar, the reminders and the history have in common.
#pragma once

#include "support/world.h"

#include <sqlite3.h>

#include <functional>

using namespace Qt::StringLiterals;

/// Notes which screens were asked for, and lets the test do something while one is open.
class NotedDoors : public Navigator
{
public:
    QStringList opened;
    std::function<void()> whileOpen;

    [[nodiscard]] bool hasScreen(const QString&) const override { return true; }
    void openScreen(const QString& screen) override
    {
        opened.append(screen);
        if (whileOpen)
            whileOpen();
    }
    void openHelp(int) override {}
};

/// A world and its doors, with short ways to put records in, to look at them and to let the store fail.
class ScreenBench
{
public:
    World world{QDateTime(QDate(2026, 11, 22), QTime(9, 30))};
    NotedDoors doors;

    DataJW& data() { return world.data(); }
    void run(const QString& statement) { QVERIFY2(data().execQuery(statement), qPrintable(statement)); }
    QString cells(const QString& statement) { return world.cells(statement); }
    /// Lets the statements of @p act fail for which @p fails says so, by number and text; answers the last.
    QString failing(const std::function<bool(int, QStringView)>& fails, const std::function<void()>& act)
    {
        QString failed;
        int count = 0;
        data().database().setInterceptor([&](QStringView statement) {
            if (!fails(count++, statement))
                return;
            failed = statement.toString();
            throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        act();
        data().database().setInterceptor({});
        return failed;
    }
    /// Lets only the i-th statement of @p act fail; answers its text, "" when there were fewer.
    QString failing(int i, const std::function<void()>& act)
    {
        return failing([i](int count, QStringView) { return count == i; }, act);
    }
    /// Past the gateway, for what it would not write.
    void runRaw(const char* statement)
    {
        sqlite3_exec(data().database().handle(), statement, nullptr, nullptr, nullptr);
    }
    /// No page more than the store has, as on a full disk, or as many as it needs.
    void setDiskFull(bool full)
    {
        runRaw(full ? "PRAGMA max_page_count=1" : "PRAGMA max_page_count=1000000");
    }
};
