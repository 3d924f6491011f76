// Writes a resolved statement in the engine's SQL.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/lexer.h"

namespace dialect {

/// The engine's text with its parameters and, for a Select, the result's columns. Refuses with BadStatement
/// what the engine's parser could not hold, and with UnknownName a wanted column that the result does not
/// have.
Translation render(Statement& statement, const Want& want, const Source& source);

} // namespace dialect
