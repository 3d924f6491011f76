// What the tests of all screens have in common: a world, a navigator, a store that fails when it is told to.
#pragma once

#include "base/form.h"
#include "base/ports.h"
#include "support/world.h"

#include <sqlite3.h>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

/// Notes which screens were asked for, and leaves the opening to a test or to the program's own navigator.
class NotedNavigator : public Navigator
{
public:
    bool hasAll = true;
    std::vector<ScreenRow> rows;     ///< the table, where no other navigator brings one
    Navigator* program = nullptr;    ///< opens the screens unless whileOpen does
    std::function<void()> whileOpen; ///< stands in for the screen that was opened last...
    QVariant request;                ///< ...with this...
    QVariant answer;                 ///< ...and brings this back
    QStringList opened;
    QList<int> helped;

    [[nodiscard]] const std::vector<ScreenRow>& screens() const override
    {
        return program ? program->screens() : rows;
    }
    [[nodiscard]] bool hasScreen(const QString& screen) const override
    {
        return hasAll || (program && program->hasScreen(screen));
    }
    QVariant open(const QString& screen, const QVariant& with = {}) override
    {
        opened.append(screen);
        request = with;
        if (!whileOpen)
            return program ? program->open(screen, with) : QVariant();
        answer = {};
        const auto act = whileOpen; // which may put another in its place
        act();
        return std::exchange(answer, {});
    }
    void openHelp(int contextId) override { helped.append(contextId); }
};

/// The values of these controls, set apart by blanks in the names and by "|" in the answer.
inline QString shownIn(const Form& form, const QString& controls)
{
    QStringList values;
    for (const QString& control : controls.split(u' '))
        values.append(form.text(control));
    return values.join(u'|');
}

/// A world and its navigator, with short ways to put records in, to look at them and to let the store fail.
class ScreenBench
{
public:
    explicit ScreenBench(const QDateTime& now = QDateTime(QDate(2026, 11, 22), QTime(9, 30)))
        : world(now)
    {
    }

    World world;
    NotedNavigator navigator;

    DataJW& data() { return world.data(); }
    void run(const QString& statement) { QVERIFY2(data().execQuery(statement), qPrintable(statement)); }
    QString cells(const QString& statement) { return world.cells(statement); } ///< As World::cells.
    int rows(const QString& table) { return data().getCount(table, true); }
    /// As ScriptedPrompts::expect.
    void expect(const QString& question, Answer answer = Answer::Ok)
    {
        world.prompts.expect(question, answer);
    }
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
    /// Lets every statement of @p act that begins so fail, from its @p which-th on.
    void failingAt(const QString& beginning, const std::function<void()>& act, int which = 1)
    {
        failing([&](int, QStringView statement) { return statement.startsWith(beginning) && --which <= 0; },
                act);
    }
    /// The statements that @p act sends.
    QStringList statements(const std::function<void()>& act)
    {
        QStringList sent;
        const auto note = [&](int, QStringView statement) {
            sent.append(statement.toString());
            return false;
        };
        failing(note, act);
        return sent;
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
