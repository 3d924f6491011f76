#include "planning/objective.h"

#include "base/dates.h"
#include "base/numbers.h"
#include "store/gateway/datajw.h"
#include "store/lastfailure.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Objective", text);
}

enum RuleField { Table, Field, Operator, Value, JoinTable, FieldCount };

QString between(const QString& column, QDate start, QDate end)
{
    return u" WHERE "_s + column + u" BETWEEN #" + dates::mdyyyy(start) + u"# AND #" + dates::mdyyyy(end) +
           u'#';
}

bool isBetween(const QString& name)
{
    return name.toLower() == "between"_L1;
}

QString counter(const QStringList& rule, QDate start, QDate end)
{
    QString field = rule[Field];
    QString extra;
    // A slash anywhere makes all from the second character on a further condition.
    if (field.contains(u'/'))
        extra = std::exchange(field, u"*"_s).mid(1);
    QString sql = u"Select Count("_s + field + u") FROM " + rule[Table];
    if (isBetween(rule[Operator]))
        sql += between(rule[Value], start, end);
    // The value is quoted even when it is a number; the column it meets decides how it is read.
    if (const QString op = Objective::convertOperator(rule[Operator]); !op.isEmpty())
        sql += u" WHERE "_s + field + op + u'\'' + rule[Value] + u'\'';
    if (!extra.isEmpty())
        sql += u" AND "_s + extra;
    return sql;
}

QString joinCounter(const QStringList& rule, QDate start, QDate end)
{
    const QString column = rule[Table] + u'.' + rule[Field];
    QString sql = u"Select Count("_s + column + u") FROM " + rule[Table] + u" INNER JOIN " + rule[JoinTable] +
                  u" ON " + column + u'=' + rule[JoinTable] + u'.' + rule[Field];
    if (isBetween(rule[Operator]))
        sql += between(rule[JoinTable] + u'.' + rule[Value], start, end);
    return sql;
}

} // namespace

void Objective::clear()
{
    objName.clear();
    objDescription.clear();
    objRule.clear();
    objCategory.clear();
}

int Objective::ruleParser(const QString& text) const
{
    const QStringList parts = (text.isEmpty() ? objRule : text).split(u':');
    Q_UNUSED(parts);
    return 0;
}

QString Objective::convertOperator(QStringView name)
{
    constexpr std::array<std::pair<QStringView, QStringView>, 5> operators{
        {{u"LE", u"<="}, {u"LT", u"<"}, {u"EQ", u"="}, {u"GT", u">"}, {u"GE", u">="}}};
    const auto found = std::ranges::find(operators, name, &std::pair<QStringView, QStringView>::first);
    return found == operators.end() ? QString() : found->second.toString();
}

QString Objective::statement(QDate start, QDate end) const
{
    const QStringList rule = objRule.split(u',');
    if (rule.size() < FieldCount)
        return {};
    const QString kind = objType.toLower();
    if (kind == "counter"_L1)
        return counter(rule, start, end);
    return kind == "joincounter"_L1 ? joinCounter(rule, start, end) : QString();
}

Measured Objective::parseCounter(Session& session, QDate start, QDate end) const
{
    if (objRule.count(u',') < FieldCount - 1)
        return {{}, tr("The rule of \"%1\" has fewer than five fields.").arg(objName)};
    const QString sql = statement(start, end);
    if (sql.isEmpty())
        return {};
    const Session::QuietReports quiet(session);
    const Key count = session.dataJW().getCounter(sql);
    if (quiet.held() == 0)
        return {QString::number(count), {}};
    return {{}, lastfailure::reason(session)};
}

Measured Objective::parseRatio(Session& session, const Objective& over, const Objective& under, QDate start,
                               QDate end)
{
    const Measured above = over.parseCounter(session, start, end);
    const Measured below = under.parseCounter(session, start, end);
    if (!above.problem.isEmpty() || !below.problem.isEmpty())
        return {{}, above.problem.isEmpty() ? below.problem : above.problem};
    const double divisor = below.result.toDouble();
    return {numbers::fixed(divisor == 0 ? 0 : above.result.toDouble() / divisor, 2), {}};
}

Measured Objective::parseAverage(Session& session, const Objective& counted, QDate start, QDate end)
{
    const Measured count = counted.parseCounter(session, start, end);
    if (!count.problem.isEmpty())
        return count;
    const auto days = start.daysTo(end);
    return {numbers::fixed(days > 0 ? count.result.toDouble() / double(days) : 0, 2), {}};
}
