#include "base/statecodes.h"

#include <algorithm>
#include <array>

namespace {

struct State
{
    QStringView name;
    QStringView code;
};

// Some codes are not those of the post office ("MI" for Missouri, "AK" for Arkansas, "AL" for Alaska, "WS"
// for Wisconsin): addresses that were stored with them must go on meeting those that come in.
constexpr std::array<State, 51> states{{
    {u"new york", u"NY"},
    {u"ohio", u"OH"},
    {u"colorado", u"CO"},
    {u"new jersey", u"NJ"},
    {u"michigan", u"MI"},
    {u"new mexico", u"NM"},
    {u"massachusetts", u"MA"},
    {u"minnesota", u"MN"},
    {u"arizona", u"AZ"},
    {u"maine", u"ME"},
    {u"montana", u"MT"},
    {u"nevada", u"NV"},
    {u"vermont", u"VT"},
    {u"north dakota", u"ND"},
    {u"utah", u"UT"},
    {u"florida", u"FL"},
    {u"south dakota", u"SD"},
    {u"california", u"CA"},
    {u"new hampshire", u"NH"},
    {u"kansas", u"KS"},
    {u"oregon", u"OR"},
    {u"connecticut", u"CT"},
    {u"nebraska", u"NE"},
    {u"wyoming", u"WY"},
    {u"rhode island", u"RI"},
    {u"north carolina", u"NC"},
    {u"washington", u"WA"},
    {u"pennsylvania", u"PA"},
    {u"tennessee", u"TN"},
    {u"idaho", u"ID"},
    {u"delaware", u"DE"},
    {u"south carolina", u"SC"},
    {u"indiana", u"IN"},
    {u"maryland", u"MD"},
    {u"georgia", u"GA"},
    {u"alaska", u"AL"},
    {u"virginia", u"VA"},
    {u"mississippi", u"MS"},
    {u"hawaii", u"HI"},
    {u"west virginia", u"WV"},
    {u"missouri", u"MI"},
    {u"wisconsin", u"WS"},
    {u"district of columbia", u"DC"},
    {u"arkansas", u"AK"},
    {u"alabama", u"AL"},
    {u"illinois", u"IL"},
    {u"oklahoma", u"OK"},
    {u"iowa", u"IA"},
    {u"texas", u"TX"},
    {u"louisiana", u"LA"},
    {u"kentucky", u"KY"},
}};

} // namespace

QString stateCode(const QString& name)
{
    const QString wanted = name.toLower();
    const auto found = std::ranges::find(states, QStringView(wanted), &State::name);
    return found == states.end() ? QString() : found->code.toString();
}
