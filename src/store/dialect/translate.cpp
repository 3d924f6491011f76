#include "store/dialect/dialect.h"
#include "store/dialect/lexer.h"
#include "store/dialect/parser.h"
#include "store/dialect/render.h"
#include "store/dialect/resolver.h"

namespace dialect {

Translation translate(QStringView statement, const Want& want)
{
    const Shape shape = splitShape(statement);
    const Source source(statement, shape);
    Statement tree = parseStatement(source);
    resolve(tree, source);
    return render(tree, want, source);
}

} // namespace dialect
