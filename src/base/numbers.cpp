#include "base/numbers.h"

#include <QLocale>

#include <cmath>

namespace numbers {

double read(const QString& text)
{
    const QString trimmed = text.trimmed();
    bool isNumber = false;
    double value = trimmed.toDouble(&isNumber);
    if (!isNumber)
        value = QLocale().toDouble(trimmed, &isNumber);
    return isNumber && std::isfinite(value) ? value : 0;
}

double halfUp(double value, int places)
{
    const double unit = std::pow(10.0, places);
    const double scaled = value * unit;
    // Beyond this a double has no decimals left to round.
    if (!std::isfinite(scaled) || std::abs(scaled) > 1e15)
        return value;
    const double slip = std::abs(scaled) * 1e-14;
    return std::floor(scaled + 0.5 + slip) / unit;
}

QString fixed(double value, int places)
{
    return QString::number(halfUp(value, places), 'f', places);
}

QString shown(double value, int places)
{
    return QLocale().toString(halfUp(value, places), 'f', QLocale::FloatingPointShortest);
}

} // namespace numbers
