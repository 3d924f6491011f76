// Makes of a literal's text the value that its column holds.
#include "store/dialect/dialect.h"
#include "store/dialect/refusal.h"

#include "base/dates.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace dialect {
namespace {

/// Digits that surely fit into 64 bits.
constexpr qsizetype safeDigits = 18;

/// The parts of a written number: a sign, digits, and digits behind a point.
struct Written
{
    bool negative = false;
    QStringView whole;
    QStringView decimals;
};

QStringView leadingDigits(QStringView text)
{
    qsizetype count = 0;
    while (count < text.size() && text[count] >= u'0' && text[count] <= u'9')
        ++count;
    return text.left(count);
}

std::optional<Written> readNumber(QStringView text)
{
    text = text.trimmed();
    Written number;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        number.negative = text.front() == u'-';
        text = text.sliced(1);
    }
    number.whole = leadingDigits(text);
    text = text.sliced(number.whole.size());
    if (!text.isEmpty() && text.front() == u'.') {
        number.decimals = leadingDigits(text.sliced(1));
        text = text.sliced(1 + number.decimals.size());
    }
    if (!text.isEmpty() || (number.whole.isEmpty() && number.decimals.isEmpty()))
        return std::nullopt;
    return number;
}

qint64 wholeValue(const Written& number)
{
    qint64 value = 0;
    for (const QChar digit : number.whole)
        value = value * 10 + (digit.unicode() - u'0');
    return number.negative ? -value : value;
}

double realValue(const Written& number)
{
    bool ok = false;
    const QString text = number.whole + u'.' + number.decimals + u'0';
    const double value = text.toDouble(&ok);
    return number.negative ? -value : value;
}

[[noreturn]] void refuse(const QString& reason, const Literal& literal)
{
    Refusal::raise(StoreError::TypeMismatch, reason.arg(Refusal::quoted(literal.text)));
}

Written numberOf(const Literal& literal)
{
    const std::optional<Written> number =
        literal.kind == LiteralKind::Date ? std::nullopt : readNumber(literal.text);
    if (!number)
        refuse(Refusal::tr("%1 is no number."), literal);
    return *number;
}

double finite(double value, const Literal& literal)
{
    if (!std::isfinite(value))
        refuse(Refusal::tr("The number %1 is too large."), literal);
    return value;
}

BoundValue storedInteger(const Literal& literal)
{
    const Written number = numberOf(literal);
    const bool plain = number.decimals.isEmpty() && number.whole.size() <= safeDigits;
    const double value = plain ? static_cast<double>(wholeValue(number)) : std::round(realValue(number));
    if (value < std::numeric_limits<qint32>::min() || value > std::numeric_limits<qint32>::max())
        refuse(Refusal::tr("The number %1 is too large."), literal);
    return static_cast<qint64>(value);
}

BoundValue compared(const Literal& literal)
{
    const Written number = numberOf(literal);
    if (number.decimals.isEmpty() && number.whole.size() <= safeDigits)
        return wholeValue(number);
    return finite(realValue(number), literal);
}

BoundValue date(const Literal& literal)
{
    std::optional<dates::Moment> moment = dates::parse(literal.text);
    if (!moment)
        refuse(Refusal::tr("%1 is no date."), literal);
    // Midnight is the plain day: so ISO texts sort and compare as the moments that they stand for.
    if (moment->time == QTime(0, 0))
        moment->time = QTime();
    return dates::toIso(*moment);
}

/// A text's letters of A to Z at its beginning: every text that is the same begins with them, too.
QString plainBeginning(QStringView text)
{
    const auto* const end = std::ranges::find_if(text, [](QChar c) { return c.unicode() >= 0x80; });
    return text.first(end - text.begin()).toString();
}

QString lowestAlike(QStringView text)
{
    const QString beginning = plainBeginning(text);
    return beginning.isEmpty() ? QString(QChar(0x80)) : beginning;
}

QString highestAlike(QStringView text)
{
    const char32_t last = QChar::LastValidCodePoint;
    return plainBeginning(text) + QString::fromUcs4(&last, 1);
}

} // namespace

BoundValue bindValue(const Literal& literal, BindAs as)
{
    switch (as) {
    case BindAs::Text:
        return literal.text.toString();
    case BindAs::LowestAlike:
        return lowestAlike(literal.text);
    case BindAs::HighestAlike:
        return highestAlike(literal.text);
    default:
        break;
    }
    if (literal.text.isEmpty())
        return std::monostate{};
    switch (as) {
    case BindAs::StoredInteger:
        return storedInteger(literal);
    case BindAs::Number:
        return compared(literal);
    case BindAs::Real:
        return finite(realValue(numberOf(literal)), literal);
    default:
        break;
    }
    return date(literal);
}

} // namespace dialect
