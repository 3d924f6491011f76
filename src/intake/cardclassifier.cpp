#include "intake/cardclassifier.h"

#include "base/statecodes.h"
#include "base/text.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What makes a line a street, wherever it stands. The blank in front keeps "ford" from being a "rd"; the
/// post office's own letters come without one. "stret" is how it is often typed.
constexpr auto streetWords = std::to_array<QStringView>(
    {u" street",   u" st.",       u" st",   u" stret",  u" road",     u" rd",     u" rd.",    u" way",
     u" wy",       u" plz",       u" plza", u" plz.",   u" plaza",    u" center", u" ctr.",   u" ctr",
     u" square",   u" sq.",       u" sq",   u" avenue", u" ave.",     u" ave",    u" tpke.",  u" tpke",
     u" turnpike", u" boulevard", u" blvd", u" blvd.",  u" box",      u" lane",   u" ln",     u" ln.",
     u" drive",    u" dr.",       u" dr",   u" place",  u" pl.",      u" pl",     u" circle", u" cir.",
     u" cir",      u" court",     u" ct.",  u" ct",     u" junction", u" jct",    u" jct.",   u" jnct.",
     u" jnct",     u"po",         u"p.o.",  u"p. o."});

constexpr auto webMarks =
    std::to_array<QStringView>({u"www", u".com", u".biz", u".gov", u".edu", u".org", u".net", u"http"});

/// Words that stand beside a telephone number. The order is part of the rule: each is taken out of what the
/// one before has left, and the single letters would break the longer words apart.
constexpr auto phoneWords =
    std::to_array<QStringView>({u"/", u";", u"phone", u"home", u"p", u"h", u"main", u"mobile", u"m", u"telex",
                                u"tel", u"cell", u"direct", u"c", u":", u"fax", u"f"});
constexpr auto extensionWords = std::to_array<QStringView>({u"ext", u"xt", u"x"});

bool isDigit(QChar letter)
{
    return letter >= u'0' && letter <= u'9';
}

/// An optional sign, digits, and an optional decimal part.
bool isNumeric(QStringView text)
{
    if (text.startsWith(u'+') || text.startsWith(u'-'))
        text = text.mid(1);
    const auto point = text.indexOf(u'.');
    const auto digits = [](QStringView part) {
        return !part.isEmpty() && std::ranges::all_of(part, isDigit);
    };
    return point < 0 ? digits(text) : digits(text.left(point)) && digits(text.mid(point + 1));
}

/// Takes every occurrence of a word out in one walk, however long a pasted line is.
void removeWord(QString& text, QStringView word)
{
    auto found = text.indexOf(word);
    if (found < 0)
        return;
    QString rest;
    rest.reserve(text.size());
    qsizetype done = 0;
    for (; found >= 0; found = text.indexOf(word, done)) {
        rest += QStringView(text).mid(done, found - done);
        done = found + word.size();
    }
    rest += QStringView(text).mid(done);
    text = rest;
}

/// The characters between the digits and the letters, and between the capital and the small letters:
/// ":;<=>?@" and "[\]^_`".
bool isBetweenAlphabets(QChar letter)
{
    return (letter >= QChar(58) && letter <= QChar(64)) || (letter >= QChar(91) && letter <= QChar(96));
}

/// What is left of a line when all that may stand around a telephone number is taken out.
QString withoutPhoneWords(const QString& line)
{
    QString rest = line.toLower();
    rest.removeIf(isBetweenAlphabets);
    for (const QStringView word : phoneWords)
        removeWord(rest, word);
    rest.remove(u'(').remove(u')').replace(u'-', u' ').replace(u'.', u' ');
    for (const QStringView word : extensionWords)
        removeWord(rest, word);
    return rest.trimmed();
}

/// The lines of a text as a text box would break it; it shows a fixed blank as a blank.
QStringList linesOf(QString text)
{
    text.replace(text::crlf.toString(), u"\n"_s).replace(u'\r', u'\n').replace(QChar::Nbsp, u' ');
    text.replace(QChar::LineSeparator, u'\n').replace(QChar::ParagraphSeparator, u'\n');
    return text.split(u'\n');
}

void addToAddress(QString& address, const QString& line)
{
    if (!address.isEmpty())
        address += text::crlf;
    address += line;
}

/// Puts a value into the first empty field from @p first to @p last; when all are taken the last gives way.
void putIntoFirstEmpty(CardFields& fields, CardField first, CardField last, const QString& value)
{
    const auto end = fields.begin() + last;
    *std::find_if(fields.begin() + first, end, [](const QString& field) { return field.isEmpty(); }) = value;
}

} // namespace

const CardFields& cardControls()
{
    static const CardFields controls{u"txtAddress"_s, u"txtCity"_s, u"txtState"_s, u"txtZip"_s,
                                     u"txtP1"_s,      u"txtP2"_s,   u"txtP3"_s,    u"txtFax"_s,
                                     u"txtEm1"_s,     u"txtEm2"_s,  u"txtURL1"_s,  u"txtURL2"_s};
    return controls;
}

CardClassifier::CardClassifier(AreaCodes areaCodes)
    : m_areaCodes(std::move(areaCodes))
{
}

Card CardClassifier::classify(const QString& text) const
{
    Card card;
    for (const QString& line : linesOf(text)) {
        // A line of blanks alone has nothing to keep, and would hold the street's place.
        if (!line.trimmed().isEmpty())
            sort(line, card);
    }
    return card;
}

void CardClassifier::sort(const QString& line, Card& card) const
{
    CardFields& fields = card.fields;
    if (fields[CardAddress].isEmpty() && isStreet(line)) {
        fields[CardAddress] = line;
    } else if (const auto place = cityStateZip(line)) {
        fields[CardCity] = place->city;
        fields[CardState] = place->state;
        fields[CardZip] = place->zip;
    } else if (sortPhone(line, card)) {
        return;
    } else if (isMail(line)) {
        putIntoFirstEmpty(fields, CardEmail1, CardEmail2, line);
    } else if (isWeb(line)) {
        putIntoFirstEmpty(fields, CardUrl1, CardUrl2, line);
    } else {
        addToAddress(fields[CardAddress], line);
    }
}

bool CardClassifier::sortPhone(const QString& line, Card& card) const
{
    const auto number = phone(line);
    if (!number)
        return false;
    card.lastPhone = number->areaCode + u" - " + number->state;
    if (number->state.isEmpty())
        return false;
    // A second fax number has no field of its own left and is kept among the telephones.
    if (card.fields[CardFax].isEmpty() && line.contains(u'f', Qt::CaseInsensitive))
        card.fields[CardFax] = line;
    else
        putIntoFirstEmpty(card.fields, CardPhone1, CardPhone3, line);
    return true;
}

bool CardClassifier::isStreet(const QString& line)
{
    QString lower = line.toLower();
    if (std::ranges::any_of(streetWords, [&](QStringView word) { return lower.contains(word); }))
        return true;
    // A house number before a name. A number before further numbers is a telephone's.
    lower.remove(u'(').remove(u')').replace(u'-', u' ');
    const auto blank = lower.indexOf(u' ');
    if (blank <= 0 || !isNumeric(QStringView(lower).left(blank)))
        return false;
    const QStringView rest = QStringView(lower).mid(blank + 1);
    const bool onlyNumbers = std::ranges::all_of(rest, [](QChar c) { return isDigit(c) || c == u' '; });
    return !onlyNumbers && !isNumeric(rest);
}

std::optional<CardClassifier::CityLine> CardClassifier::cityStateZip(const QString& line)
{
    if (!line.contains(u", "_s))
        return std::nullopt;
    const auto comma = line.indexOf(u',');
    QString rest = line.mid(comma + 1).trimmed();
    rest.remove(u'-');
    // Three parts at the most: "MA 02139", or with a second word or a doubled blank between. What goes on
    // behind the second blank is one part, however many words it has.
    const auto first = rest.indexOf(u' ');
    if (first < 0)
        return std::nullopt;
    const auto second = rest.indexOf(u' ', first + 1);
    const QString last = rest.mid((second < 0 ? first : second) + 1);
    if (!isNumeric(last) || (last.size() != 5 && last.size() != 9))
        return std::nullopt;
    const QString state = rest.left(first);
    const QString code = stateCode(state);
    return CityLine{line.left(comma).trimmed(), code.isEmpty() ? state : code,
                    last.size() == 9 ? QString(last.left(5) + u'-' + last.mid(5)) : last};
}

std::optional<CardClassifier::PhoneLine> CardClassifier::phone(const QString& line) const
{
    const QString rest = withoutPhoneWords(line);
    if (rest.isEmpty())
        return std::nullopt;
    for (const QStringView part : QStringView(rest).tokenize(u' ', Qt::SkipEmptyParts)) {
        if (!isNumeric(part))
            return std::nullopt;
    }
    const QString areaCode = AreaCodes::getAreaCode(rest);
    return PhoneLine{areaCode, m_areaCodes.getAreaCodeState(areaCode)};
}

bool CardClassifier::isMail(const QString& line)
{
    return line.contains(u'@');
}

bool CardClassifier::isWeb(const QString& line)
{
    if (isMail(line))
        return false;
    return std::ranges::any_of(webMarks,
                               [&](QStringView mark) { return line.contains(mark, Qt::CaseInsensitive); });
}
