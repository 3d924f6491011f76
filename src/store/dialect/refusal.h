// How the dialect says no: one place that makes its failures.
#pragma once

#include "store/engine/storeerror.h"

#include <QCoreApplication>
#include <QString>

namespace dialect {

/// The texts of the dialect's refusals, for translation.
class Refusal
{
    Q_DECLARE_TR_FUNCTIONS(Dialect)

public:
    /// Throws the failure with @p description.
    [[noreturn]] static void raise(StoreError::Code code, const QString& description);
    /// @p found between quotes, cut to a length that a message box shows.
    static QString quoted(QStringView found);
};

} // namespace dialect
