#include "workbench/companysummary.h"

#include "base/dates.h"

#include <QCoreApplication>

#include <cmath>

namespace {

QString say(const char* sentence)
{
    return QCoreApplication::translate("CompanySummary", sentence);
}

/// The figures with the spans of time that the sentences compare.
struct Standing : CompanyFigures
{
    int days;    ///< since the company was entered
    int weeks;   ///< the same in whole weeks
    int silence; ///< days since the last contact

    Standing(const CompanyFigures& figures, const QDate& today)
        : CompanyFigures(figures)
        , days(dates::difference(u'd', figures.entryDate, today))
        , weeks(dates::difference(u'w', figures.entryDate, today))
        , silence(dates::difference(u'd', figures.lastContact, today))
    {
    }
    [[nodiscard]] bool allExpired() const { return positionCount == expiredCount; }
};

QString opening(const Standing& s)
{
    QString text;
    if (s.isTarget)
        text += say("This is a Target company out of %1 target companies.").arg(s.targetCount);
    // One week closes its sentence without a blank; only the plural carries one.
    text += s.weeks > 1 ? say("The company has been in your database for %1 weeks. ").arg(s.weeks)
                        : say("The company has been in your database for %1 week.").arg(s.weeks);
    if (s.contactCount == 0 && (s.positionCount == 0 || s.allExpired()))
        text += say("You have no current available contacts or positions at this company.");
    return text;
}

QString people(const Standing& s, const QDate& today)
{
    QString text;
    if (s.contactCount < 1)
        text += say("You have no contacts at this company.");
    else if (s.contactCount < 2)
        text += say("You have entered %1 contact at this company.").arg(s.contactCount);
    else
        text += say("You have entered %1 contacts at this company.").arg(s.contactCount);
    if (s.contactedCount > 0) {
        text +=
            s.contactedCount < 2
                ? say("Of these contacts, you've communicated with %1 individual.").arg(s.contactedCount)
                : say("Of these contacts, you've communicated with %1 individuals.").arg(s.contactedCount);
    }
    // The clause hangs behind the full stop, and stands alone when a contact has a date but no history:
    // the date of the last contact is the one thing that is known then.
    if (s.lastContact > dates::sentinel) {
        const int ago = dates::difference(u'w', s.lastContact, today);
        text += ago > 1 ? say(", with whom you've last contacted %1 weeks ago.").arg(ago)
                        : say(", with whom you've last contacted %1 week ago.").arg(ago);
    }
    return text;
}

QString interactions(const Standing& s)
{
    if (s.interactionCount == 0)
        return say("  You haven't made contact at the company.");
    QString text = say("  You have interacted with the company a total of %1 times.").arg(s.interactionCount);
    if (s.maxPerContact != s.interactionCount)
        text += say("With one individual whom you communicated with %1 times.").arg(s.maxPerContact);
    return text;
}

QString freshnessOfContacts(const Standing& s)
{
    // At exactly 60 days neither verdict holds: the data are on the edge and nothing is claimed.
    if (s.days > 60 && s.silence > 60) {
        return say("Contacts at this company are stale.") +
               (s.interactionCount == s.maxPerContact
                    ? say("Contact others to rebuild this company in your network.")
                    : say("Other contacts are available in your database."));
    }
    if (s.days < 60 && s.silence < 60)
        return say("Contacts at this company are fresh.");
    return {};
}

QString positions(const Standing& s)
{
    QString text = s.positionCount < 1
                       ? say("You have no position vacancies at this company.")
                       : say("You have %1 position vacancies at this company.").arg(s.positionCount);
    if (s.expiredCount > 0)
        text += s.allExpired() ? say(" All of these are expired.")
                               : say("%1 of these are expired.").arg(s.expiredCount);
    if (s.days > 60 && s.positionCount > 0 && s.allExpired())
        text += say(" Positions at this company are stale.");
    if (s.days < 60 && s.positionCount > 0)
        text += say(" Positions data at this company are fresh.");
    return text;
}

QString general(const Standing& s)
{
    QString text;
    if (s.rank > 6)
        text += say("You have ranked this company high based on profile.");
    else if (s.rank > 3)
        text += say("You have ranked this company average based on profile.");
    else if (s.rank > 0)
        text += say("You have ranked this company low based on profile.");
    if (s.days > 60)
        text += say("This company's contact and position data are aged.");
    // A company that nobody ever spoke with counts as neglected too: its ratio is 0 and its silence endless.
    const double ratio = s.interactionCount < 1 ? 0.0 : std::abs(double(s.rank) / s.interactionCount);
    if (ratio < 1 && s.silence > 30)
        text += say("Contacts with this company have been neglected.");
    return text;
}

} // namespace

QString companySummary(const CompanyFigures& figures, const QDate& today)
{
    const Standing s(figures, today);
    return opening(s) + u'\n' + say(" ---CONTACTS") + u'\n' + people(s, today) + interactions(s) +
           freshnessOfContacts(s) + u'\n' + say(" ---POSITION") + u'\n' + positions(s) + u'\n' +
           say(" ---GENERAL") + u'\n' + general(s);
}
