// One measure of the action plan, and the small language of its rule.
#pragma once

#include <QDate>
#include <QString>

class Session;

/// What a rule gave: the text for the result box, or nothing with the reason.
struct Measured
{
    QString result;
    QString problem; ///< for the status line; "" when all is well
};

/// A name, a kind and a rule that counts records between two days. The rule is five fields between commas,
/// without quotes or escapes: table, column (or a slash and a further condition), operator, value, second
/// table.
struct Objective
{
    QString objName;
    QString objDescription;
    QString objRule;
    QString objType;         ///< "counter", "joincounter", "ratio" or "average", in any case
    QString objCategory;     ///< "research", "generation", "interaction" or "conversion"
    double objThreshold = 0; ///< what the result is held against

    /// Empties name, description, rule and category; the type stays as it is.
    void clear();
    /// Takes @p text, or the rule when it is empty, apart at its colons. Always 0.
    [[nodiscard]] int ruleParser(const QString& text) const;
    /// "LE", "LT", "EQ", "GT" and "GE" in capitals as "<=", "<", "=", ">" and ">="; "" for any other name.
    static QString convertOperator(QStringView name);

    /// The counting statement of a counter or joincounter; "" for other kinds and a rule of too few fields.
    [[nodiscard]] QString statement(QDate start, QDate end) const;
    /// The count between two days, both included. Empty without a problem for kinds that do not count.
    [[nodiscard]] Measured parseCounter(Session& session, QDate start, QDate end) const;
    /// The count of @p over divided by that of @p under, with two decimals; "0.00" when the latter is 0.
    static Measured parseRatio(Session& session, const Objective& over, const Objective& under, QDate start,
                               QDate end);
    /// The count of @p counted for each whole day from @p start to @p end, with two decimals; "0.00" for no
    /// day.
    static Measured parseAverage(Session& session, const Objective& counted, QDate start, QDate end);
};
