// What the goals and the plan cost on a full campaign: nine goals on nine step columns beside nine bare scans
// of those columns, and every measure of the catalogue beside the same statements in the engine alone.
#include "generate.h"
#include "measure.h"

#include "base/clock.h"
#include "base/silentports.h"
#include "base/textlines.h"
#include "planning/catalogue.h"
#include "planning/goals.h"
#include "store/dialect/dialect.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int tries = 9;
constexpr double goalsBound = 3;
constexpr double measuresBound = 1.5;
constexpr double goalsMilliseconds = 250;
const QDate from(2026, 1, 1);
const QDate to(2026, 12, 31);

/// Steps through a statement and looks at its first column.
void scan(sqlite3_stmt* statement)
{
    while (sqlite3_step(statement) == SQLITE_ROW)
        (void)sqlite3_column_text(statement, 0);
    sqlite3_reset(statement);
}

void bindValue(sqlite3_stmt* statement, int place, const dialect::BoundValue& value)
{
    if (const auto* whole = std::get_if<qint64>(&value))
        sqlite3_bind_int64(statement, place, *whole);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_bind_double(statement, place, *real);
    else if (const auto* text = std::get_if<QString>(&value))
        sqlite3_bind_text(statement, place, text->toUtf8().constData(), -1, SQLITE_TRANSIENT);
}

/// The statement as the gateway translates it, prepared and bound.
engine::Statement bareOf(sqlite3* connection, const QString& text)
{
    const dialect::Translation translated = dialect::translate(text);
    const dialect::Shape shape = dialect::splitShape(text);
    engine::Statement statement = engine::prepare(connection, translated.sql);
    for (size_t at = 0; at < translated.parameters.size(); ++at) {
        const auto& [literal, as] = translated.parameters[at];
        bindValue(statement.get(), static_cast<int>(at) + 1,
                  dialect::bindValue(shape.literals[static_cast<size_t>(literal)], as));
    }
    return statement;
}

void benchGoals(Session& session)
{
    GoalSet set{from, to, {}, {}};
    std::vector<engine::Statement> bare;
    for (size_t row = 0; row < set.rows.size(); ++row) {
        set.rows[row] = {goals::names()[static_cast<qsizetype>(row)], u"All"_s, u"1"_s, u"Weekly"_s};
        bare.push_back(engine::prepare(session.dataJW().database().handle(),
                                       "SELECT " + set.rows[row].goal.toUtf8() + " FROM Position"));
    }
    std::vector<double> times;
    std::vector<double> ratios;
    for (int i = 0; i < tries; ++i) {
        const double engine = measure::milliseconds([&] {
            for (const auto& statement : bare)
                scan(statement.get());
        });
        times.push_back(measure::milliseconds([&] { goals::compute(session, set); }));
        ratios.push_back(times.back() / engine);
    }
    measure::report("nine goals counted", times, goalsMilliseconds);
    measure::printRatios("goals / bare scans", ratios, goalsBound);
}

/// The statements that a measure sends: its own, or those of the measures that it names.
QStringList statementsOf(const Catalogue& catalogue, const Objective& measure)
{
    if (const QString own = measure.statement(from, to); !own.isEmpty())
        return {own};
    QStringList all;
    for (const QString& name : measure.objRule.split(u',')) {
        if (const Objective* named = catalogue.findObjective(measure.objCategory, name))
            all << named->statement(from, to);
    }
    return all;
}

void benchMeasures(Session& session, const Catalogue& catalogue)
{
    std::vector<engine::Statement> bare;
    for (int category = 0; category < Catalogue::categoryCount; ++category) {
        for (const Objective& measure : catalogue.objectives(category)) {
            for (const QString& text : statementsOf(catalogue, measure))
                bare.push_back(bareOf(session.dataJW().database().handle(), text));
        }
    }
    std::vector<double> times;
    std::vector<double> ratios;
    for (int i = 0; i < tries; ++i) {
        const double engine = measure::milliseconds([&] {
            for (const auto& statement : bare)
                scan(statement.get());
        });
        times.push_back(measure::milliseconds([&] {
            for (int category = 0; category < Catalogue::categoryCount; ++category) {
                for (const Objective& measure : catalogue.objectives(category))
                    (void)catalogue.measure(session, measure, from, to);
            }
        }));
        ratios.push_back(times.back() / engine);
    }
    measure::report("all measures counted", times, 0);
    measure::printRatios("measures / bare statements", ratios, measuresBound);
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    SilentPrompts prompts;
    SilentDesktop desktop;
    Session session(folder.path(), systemClock(), prompts, desktop);
    generate::campaign(session.dataJW().database(), generate::fullCampaign);
    benchGoals(session);
    const QString delivered = QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/objectives.jwd";
    benchMeasures(session, Catalogue::parse(textlines::read(delivered).lines));
    return 0;
}
