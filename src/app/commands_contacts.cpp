#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/letters.h"
#include "base/text.h"
#include "intake/contactexport.h"
#include "store/gateway/datajw.h"
#include "store/gateway/listings.h"

#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;
using commands::help;
using commands::tr;

namespace {

using listings::ContactRow;

/// True when one of the texts by which a person is remembered holds @p part, which is folded.
bool isFoundBy(const QString& part, const ContactRow& row)
{
    const QStringList texts{row.name, row.company, row.title, row.mail, row.secondMail};
    return part.isEmpty() || std::ranges::any_of(texts, [&](const QString& text) {
               return letters::folded(text).contains(part);
           });
}

class ContactTable
{
public:
    explicit ContactTable(bool withCompany)
        : m_withCompany(withCompany)
        , m_table(withCompany ? QList<int>{26, 26, 30, 16, 12, -5} : QList<int>{26, 30, 16, 12, -5})
    {
        print({tr("Contact"), tr("Company"), tr("Title"), tr("Phone"), tr("Last contact"), tr("Level")});
    }
    void add(const ContactRow& row) const
    {
        print({row.name, row.company, row.title, row.phone,
               row.lastContact.isValid() ? row.lastContact.toString(Qt::ISODate) : u"-"_s,
               QString::number(row.level).rightJustified(2, u'0')});
    }

private:
    void print(QStringList cells) const
    {
        if (!m_withCompany)
            cells.removeAt(1);
        m_table.row(cells);
    }

    bool m_withCompany;
    Table m_table;
};

QJsonObject asJson(const ContactRow& row)
{
    return {{u"name"_s, row.name},
            {u"company"_s, row.company},
            {u"title"_s, row.title},
            {u"phone"_s, row.phone},
            {u"level"_s, row.level},
            {u"lastContact"_s,
             row.lastContact.isValid() ? QJsonValue(row.lastContact.toString(Qt::ISODate)) : QJsonValue()}};
}

/// What was asked for on the command line.
struct Wanted
{
    QString company;
    QString part;
    bool json = false;
};

int contacts(CommandContext& context, const Wanted& wanted)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    Key company = 0;
    if (!wanted.company.isEmpty()) {
        const auto found = findCompany(session->dataJW(), wanted.company);
        if (!found)
            return Failed;
        company = found->key;
    }
    // Stored texts hold backquotes where the user types apostrophes.
    const QString part = letters::folded(text::quoteFix(wanted.part));
    const auto list = [&](const std::function<void(const ContactRow&)>& show) {
        return listings::contacts(session->dataJW(), company, [&](const ContactRow& row) {
            if (isFoundBy(part, row))
                show(row);
        });
    };
    if (!wanted.json) {
        const ContactTable table(company == 0);
        return list([&](const ContactRow& row) { table.add(row); }) ? Done : Failed;
    }
    JsonList array;
    const bool whole = list([&](const ContactRow& row) { array.add(asJson(row)); });
    array.end();
    return whole ? Done : Failed;
}

/// All contacts as cards when a file for them is given ("" for standard output), else as CSV.
int exportContacts(CommandContext& context, const std::optional<std::string>& cards)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    DataJW& data = session->dataJW();
    const bool written = cards ? writeFile(QString::fromStdString(*cards), contactexport::vcards(data))
                               : writeFile({}, contactexport::contacts(data));
    return written ? Done : Failed;
}

} // namespace

void addContactCommands(CLI::App& app, Command& chosen)
{
    auto* const command =
        app.add_subcommand("contacts", help("List the contacts with title, phone, last contact and level"));
    auto company = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    command->add_option("COMPANY", *company,
                        help("Only those of this company; a part that only one name has will do"));
    auto part = std::make_shared<std::string>();
    command
        ->add_option("--find", *part, help("Only those of whose name, company, mail or title TEXT is a part"))
        ->type_name("TEXT");
    command->add_flag("--json", *json, help("The same as JSON"));
    auto csv = std::make_shared<bool>(false);
    auto cards = std::make_shared<std::optional<std::string>>();
    command->add_flag("--csv", *csv, help("All with their addresses, as CSV that can be imported again"));
    command->add_option("--vcard", *cards, help("All as vCard 4.0, into a file"))
        ->expected(0, 1)
        ->default_str("")
        ->type_name("FILE");
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            if (*csv || *cards)
                return exportContacts(context, *cards);
            return contacts(context, {.company = QString::fromStdString(*company),
                                      .part = QString::fromStdString(*part),
                                      .json = *json});
        };
    });
}
