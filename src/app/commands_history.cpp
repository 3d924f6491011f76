// What happened with a contact: the histories, printed.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/dates.h"
#include "base/letters.h"
#include "base/text.h"
#include "output/historyspan.h"
#include "store/gateway/datajw.h"
#include "store/gateway/names.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using commands::help;
using commands::tr;

namespace {

struct Person
{
    Key key = 0;
    QString name;
    QString company;

    /// What tells namesakes apart, and can be typed as it was printed.
    [[nodiscard]] QString withCompany() const { return name + u" (" + company + u')'; }
};

std::vector<Person> readPeople(DataJW& dataJW)
{
    const QHash<Key, QString> companies =
        names::byKey(dataJW.getExecQueryRecords(u"Select CompanyKey,Name from Company"_s));
    std::vector<Person> people;
    RecordSet rows = dataJW.getExecQueryRecords(
        u"Select ContactKey,FirstName,LastName,CompanyKey from Contact order by LastName"_s);
    for (; !rows.atEnd(); rows.next()) {
        if (const auto key = rows.key(u"ContactKey"))
            people.push_back({*key, QString(rows.text(1) + u' ' + rows.text(2)).simplified(),
                              companies.value(rows.key(u"CompanyKey").value_or(0)).simplified()});
    }
    return people;
}

/// The contact that the user means: the whole name in any case, else the only one that holds the text.
std::optional<Person> findPerson(const std::vector<Person>& people, const QString& wanted)
{
    std::vector<Person> same;
    std::vector<Person> holding;
    for (const Person& person : people) {
        if (letters::same(person.name, wanted))
            same.push_back(person);
        if (letters::folded(person.withCompany()).contains(letters::folded(wanted)))
            holding.push_back(person);
    }
    const std::vector<Person>& found = same.empty() ? holding : same;
    if (found.size() == 1)
        return found.front();
    if (found.empty()) {
        printError(tr("There is no contact \"%1\".").arg(wanted));
        return std::nullopt;
    }
    constexpr size_t mostNamed = 12;
    QStringList names;
    for (size_t i = 0; i < std::min(found.size(), mostNamed); ++i)
        names.append(found[i].withCompany());
    if (found.size() > mostNamed)
        names.append(tr("and %1 more").arg(found.size() - mostNamed));
    printError(tr("Several contacts go by \"%1\": %2").arg(wanted, names.join(u"; "_s)));
    return std::nullopt;
}

QJsonValue dateOrNull(QDate date)
{
    return dates::isDay(date) ? QJsonValue(date.toString(Qt::ISODate)) : QJsonValue();
}

void printTable(const std::vector<History>& histories)
{
    const Table table({10, 16, 13, 40, 10, 0});
    const auto day = [](QDate date) -> QString {
        return dates::isDay(date) ? date.toString(Qt::ISODate) : u"-"_s;
    };
    table.row({tr("Date"), tr("Medium"), tr("Length"), tr("Topic"), tr("Next call"), tr("Return")});
    for (const History& history : histories)
        table.row({day(history.ContactDate), history.medium, history.Length, history.topic,
                   day(history.NextCall), history.ReturnCall});
}

void printAsJson(const std::vector<History>& histories)
{
    QJsonArray array;
    for (const History& history : histories)
        array.append(QJsonObject{{u"date"_s, dateOrNull(history.ContactDate)},
                                 {u"topic"_s, history.topic},
                                 {u"medium"_s, history.medium},
                                 {u"length"_s, history.Length},
                                 {u"location"_s, history.Location},
                                 {u"details"_s, history.Details},
                                 {u"return"_s, history.ReturnCall},
                                 {u"nextCall"_s, dateOrNull(history.NextCall)},
                                 {u"document"_s, !history.DocXfer.isEmpty() && history.DocXfer != u"0"}});
    printJson(array);
}

int history(CommandContext& context, const QString& wanted, bool json)
{
    if (wanted.trimmed().isEmpty()) { // a script's empty variable; every contact holds it
        printError(tr("The contact's name is empty."));
        return WrongUsage;
    }
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    // Stored names hold backquotes where the user types apostrophes.
    const auto person = findPerson(readPeople(session->dataJW()), text::quoteFix(wanted).simplified());
    if (!person)
        return Failed;
    const auto histories = History::loadAll(session->dataJW(), person->key);
    if (!histories)
        return Failed;
    if (json)
        printAsJson(*histories);
    else
        printTable(*histories);
    return Done;
}

// --- All contacts between two days ------------------------------------------------------------------------

void printSpan(const std::vector<Happened>& span, bool json)
{
    if (!json) {
        const Table table({10, 24, 24, 13, 0});
        table.row({tr("Date"), tr("Contact"), tr("Company"), tr("Medium"), tr("Topic")});
        for (const Happened& one : span)
            table.row({one.date.toString(Qt::ISODate), one.contact, one.company, one.medium, one.topic});
        return;
    }
    QJsonArray array;
    for (const Happened& one : span)
        array.append(QJsonObject{{u"date"_s, dateOrNull(one.date)},
                                 {u"contact"_s, one.contact},
                                 {u"company"_s, one.company},
                                 {u"medium"_s, one.medium},
                                 {u"topic"_s, one.topic},
                                 {u"details"_s, one.details}});
    printJson(array);
}

struct HistoryOptions
{
    std::string contact;
    std::string from;
    std::string to;
    bool json = false;
};

int historySpan(CommandContext& context, const HistoryOptions& options)
{
    // Without an end of its own the span ends today, without a beginning it has all that was before.
    const auto dayOf = [](const std::string& text, QDate otherwise) {
        const auto moment = dates::parse(QString::fromStdString(text));
        return text.empty() ? otherwise : moment ? moment->date : QDate();
    };
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const QDate from = dayOf(options.from, QDate(1900, 1, 1));
    const QDate to = dayOf(options.to, session->today());
    if (!from.isValid() || !to.isValid()) {
        printError(tr("\"%1\" is no day. Write it as in 2026-11-22.")
                       .arg(QString::fromStdString(from.isValid() ? options.to : options.from)));
        return WrongUsage;
    }
    printSpan(historyspan::read(session->dataJW(), from, to), options.json);
    return Done;
}

} // namespace

void addHistoryCommands(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand(
        "history",
        help("List the histories of a contact, the oldest first, or what happened between two days"));
    auto options = std::make_shared<HistoryOptions>();
    auto* const contact = command->add_option(
        "CONTACT", options->contact,
        help("First and last name in any case, or a part that only one contact has; behind it the company in "
             "brackets where two have the same name"));
    auto* const from =
        command->add_option("--from", options->from, help("All contacts from this day (2026-11-22)"));
    auto* const to =
        command->add_option("--to", options->to, help("All contacts to this day, which is in it"));
    command->add_flag("--json", options->json, help("The same as JSON, with place, details and document"));
    contact->excludes(from)->excludes(to);
    command->callback([=, &chosen] {
        const bool span = from->count() > 0 || to->count() > 0;
        if (!span && contact->count() == 0)
            throw CLI::RequiredError("CONTACT");
        chosen = [=](CommandContext& context) {
            return span ? historySpan(context, *options)
                        : history(context, QString::fromStdString(options->contact), options->json);
        };
    });
}
