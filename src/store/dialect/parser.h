// Parses one whole statement.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/lexer.h"

namespace dialect {

/// The statement's tree, names not yet looked up. Refuses with BadStatement what is no statement of the
/// dialect.
Statement parseStatement(const Source& source);

} // namespace dialect
