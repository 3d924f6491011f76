#include "store/dialect/refusal.h"

using namespace Qt::StringLiterals;

namespace dialect {

void Refusal::raise(StoreError::Code code, const QString& description)
{
    throw StoreError(description, code, u"Jobwright.Dialect"_s);
}

QString Refusal::quoted(QStringView found)
{
    constexpr qsizetype shown = 40;
    QString text = found.size() > shown ? QString(found.left(shown) + u"..."_s) : found.toString();
    for (QChar& c : text) {
        if (c.isSpace() || !c.isPrint())
            c = u' ';
    }
    return QString(u'"' + text + u'"');
}

} // namespace dialect
