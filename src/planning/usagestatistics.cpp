#include "planning/usagestatistics.h"

#include "base/dates.h"
#include "base/numbers.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<double> quotient(int over, int under)
{
    return under == 0 ? std::nullopt : std::optional(double(over) / under);
}

QString shown(const std::optional<double>& number)
{
    constexpr int places = 4;
    return number ? numbers::shown(*number, places) : QString();
}

/// "Addresses: 3  <>  Contacts: 5"
QString counts(const std::vector<std::pair<const char*, int>>& figures)
{
    QStringList parts;
    for (const auto& [name, count] : figures)
        parts << QLatin1String(name) + u": " + QString::number(count);
    return parts.join(u"  <>  "_s);
}

} // namespace

UsageStatistics UsageStatistics::gather(Session& session)
{
    DataJW& data = session.dataJW();
    const auto count = [&](const char* table) {
        return int(data.getCount(QString::fromLatin1(table), true, {}, 0, {}));
    };
    UsageStatistics usage;
    usage.addresses = count("Address");
    usage.contacts = count("Contact");
    usage.companies = count("Company");
    usage.histories = count("History");
    usage.events = count("Event");
    usage.positions = count("Position");
    usage.profiles = count("UProfile");
    usage.documents = count("Document");
    usage.historyRatio = quotient(usage.histories, usage.contacts);
    usage.positionAverage = quotient(usage.positions, usage.companies);
    usage.firstEntry = data.getFirstEntryDate();
    if (usage.firstEntry.isValid()) {
        usage.daysInUse = static_cast<int>(usage.firstEntry.daysTo(session.today()));
        usage.hours = data.getStatusHours(usage.firstEntry, session.today());
        usage.frequency = quotient(usage.hours, usage.daysInUse);
    }
    return usage;
}

QStringList UsageStatistics::lines() const
{
    // Words of the program, the same in every language, as other programs may read them from "stats".
    return {counts({{"Addresses", addresses},
                    {"Contacts", contacts},
                    {"Companies", companies},
                    {"Positions", positions}}),
            counts({{"History", histories},
                    {"Events", events},
                    {"User Profiles", profiles},
                    {"Documents", documents}}),
            u"History to Contact Ratio: "_s + shown(historyRatio),
            u"Average Positions/Company: "_s + shown(positionAverage),
            u"First Entry Date: "_s + dates::shown(firstEntry),
            u"Days in Use: "_s + QString::number(daysInUse),
            u"Frequency of Use (hours/day): "_s + shown(frequency),
            u"Total Hours Used: "_s + QString::number(hours)};
}
