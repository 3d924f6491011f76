#include "store/gateway/steps.h"

#include "store/gateway/datajw.h"

namespace steps {

bool write(DataJW& dataJW, Key position, const QString& step, const QString& day, int medium)
{
    const QString set = u"Update Position set " + step;
    const QString where = u" where PositionKey=" + QString::number(position);
    Action action(dataJW);
    const bool dated = dataJW.execQuery(set + u"='" + day + u'\'' + where);
    const bool coded = dataJW.execQuery(set + u"Medium=" + QString::number(medium) + where);
    return action.commit() && dated && coded;
}

} // namespace steps
