// Which value fits where, and how each literal is bound because of it.
#pragma once

#include "store/dialect/resolver.h"

namespace dialect {

/// Resolves and types an expression that must be a condition (behind Where).
void typeCondition(Expr& expr, const Scope& scope);
/// Resolves and types a value that goes into @p column.
void typeStored(Expr& expr, const schema::Column& column, const Scope& scope);
/// Checks that values of @p from may be copied into the column @p into.
void checkCopied(const schema::Column& from, const ColumnName& into, const Source& source);

} // namespace dialect
