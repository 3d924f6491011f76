// What must hold of the dialect for any text whatever.
#pragma once

#include "support/dialectengine.h"

#include "store/engine/storeerror.h"

#include <QString>

#include <array>
#include <optional>

/// Gives texts to the dialect and the engine and says what went wrong, in words.
class DialectCheck
{
public:
    /// The first rule that @p statement breaks; nothing when all hold.
    std::optional<QString> violation(const QString& statement)
    {
        using dialect::Want;
        constexpr std::array wants{Want::AllRows,  Want::RowCount,  Want::LastValue,
                                   Want::FirstRow, Want::OneColumn, Want::Exists};
        for (const Want::Kind kind : wants) {
            if (std::optional<QString> broken = violation(statement, {kind, {}}))
                return QString(statement + u'\n' + *broken);
        }
        return std::nullopt;
    }

private:
    std::optional<QString> violation(const QString& statement, const dialect::Want& want)
    {
        try {
            const dialect::Shape shape = dialect::splitShape(statement);
            const dialect::Translation translation = dialect::translate(statement, want);
            if (std::optional<QString> broken = badParameters(shape, translation))
                return broken;
            if (otherValues(shape, want).sql != translation.sql)
                return QStringLiteral("other values give other SQL");
            m_engine.tryOut(statement, want);
        } catch (const StoreError& error) {
            if (error.source() != QStringLiteral("SQLite"))
                return badRefusal(error);
            // A row may be too much for a table (a key that exists already); SQL itself must always be good.
            if (!error.description().startsWith(QStringLiteral("UNIQUE constraint failed")))
                return error.description();
        }
        return std::nullopt;
    }

    /// Each literal of the statement is bound, in order; one that is compared by letters with its bounds.
    static std::optional<QString> badParameters(const dialect::Shape& shape,
                                                const dialect::Translation& translation)
    {
        int next = 0;
        for (const dialect::Parameter& parameter : translation.parameters) {
            const bool isBound =
                parameter.as == dialect::BindAs::LowestAlike || parameter.as == dialect::BindAs::HighestAlike;
            if (parameter.literal != (isBound ? next - 1 : next++))
                return QStringLiteral("literals are out of order");
        }
        if (next != static_cast<int>(shape.literals.size()))
            return QStringLiteral("not every literal is a parameter");
        return std::nullopt;
    }

    static dialect::Translation otherValues(const dialect::Shape& shape, const dialect::Want& want)
    {
        QString other = shape.key;
        other.replace(QChar(u'\''), QStringLiteral("'Or'"))
            .replace(QChar(u'"'), QStringLiteral("'\u00d6r'"))
            .replace(QChar(u'?'), QStringLiteral("7.5"))
            .replace(QChar(u'#'), QStringLiteral("#1/1/2001#"));
        return dialect::translate(other, want);
    }

    static std::optional<QString> badRefusal(const StoreError& error)
    {
        const bool known = error.number() == StoreError::BadStatement ||
                           error.number() == StoreError::UnknownName ||
                           error.number() == StoreError::TypeMismatch;
        if (!known || error.description().isEmpty() || error.description().size() > 400)
            return QString(QStringLiteral("odd refusal: ") + error.description());
        return std::nullopt;
    }

    DialectEngine m_engine;
};
