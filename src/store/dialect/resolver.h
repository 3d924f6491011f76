// Looks up the names of a statement and checks that every value fits where it goes.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/lexer.h"

namespace dialect {

/// Fills in tables, columns and the literals' ways of binding. Refuses with UnknownName what the store does
/// not have, with TypeMismatch a value that does not fit, with BadStatement what is contradictory in itself.
void resolve(Statement& statement, const Source& source);

/// The tables that a statement's columns may come from.
class Scope
{
public:
    Scope(std::vector<const schema::Table*> tables, const Source& source)
        : m_tables(std::move(tables))
        , m_source(source)
    {
    }

    [[nodiscard]] const Source& source() const { return m_source; }
    /// Finds the column and notes it in the name itself. Refuses unknown and ambiguous names.
    void find(ColumnName& column) const;

private:
    [[nodiscard]] bool isIn(const ColumnName& column, const schema::Table& table) const;

    std::vector<const schema::Table*> m_tables;
    const Source& m_source;
};

} // namespace dialect
