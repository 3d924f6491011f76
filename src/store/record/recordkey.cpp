#include "store/record/recordkey.h"

#include "store/engine/storeerror.h"
#include "store/gateway/recordset.h"
#include "store/session.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

Key keyOrReport(Session& session, const RecordSet& record, QStringView column, const QString& place)
{
    const auto key = record.key(column);
    if (!key && !record.isEmpty()) {
        const StoreError overflow(QCoreApplication::translate("RecordKey", "Overflow"), StoreError::Overflow,
                                  u"Jobwright"_s);
        session.logError(place, 0, &overflow);
    }
    return key.value_or(0);
}
