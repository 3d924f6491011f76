// Check boxes, options and the bell in a form: "1" when they are on.
#pragma once

#include "base/form.h"

namespace ticks {

[[nodiscard]] inline bool isOn(const Form& form, const QString& control)
{
    return form.text(control) == QLatin1String("1");
}

inline void set(Form& form, const QString& control, bool on)
{
    form.setText(control, on ? QStringLiteral("1") : QStringLiteral("0"));
}

} // namespace ticks
