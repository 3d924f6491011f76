#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/dates.h"
#include "base/text.h"
#include "store/gateway/datajw.h"

#include <QJsonObject>

#include <CLI/CLI.hpp>

using commands::help;
using commands::tr;

namespace {

/// What the command tells of one contact.
struct ContactLine
{
    QString name;
    QString company;
    QString title;
    QString phone;
    QDate lastContact; ///< invalid for nobody reached yet
    int level = 0;     ///< quality and influence, a digit each
};

ContactLine readContact(DataJW& dataJW, Key key, const QString& company)
{
    const RecordSet contact = dataJW.getContactDataByKey(key);
    const RecordSet address = dataJW.getAddress(contact.key(u"AddressKey").value_or(0));
    const QDate reached = contact.date(u"LastContact");
    return {.name = contact.text(u"FirstName").trimmed() + u' ' + contact.text(u"LastName").trimmed(),
            .company = company,
            .title = contact.text(u"Title"),
            .phone = address.text(u"Phone1"),
            .lastContact = reached > dates::sentinel ? reached : QDate(),
            .level = contact.key(u"ContactLevel").value_or(0)};
}

/// The contacts of the companies, company after company.
std::vector<ContactLine> readContacts(DataJW& dataJW, const QStringList& companies)
{
    std::vector<ContactLine> lines;
    for (const QString& company : companies) {
        for (const Key key : dataJW.getContactKeys(company))
            lines.push_back(readContact(dataJW, key, company));
    }
    return lines;
}

void printTable(const std::vector<ContactLine>& lines, bool withCompany)
{
    const Table table(withCompany ? QList<int>{26, 26, 30, 16, 12, -5} : QList<int>{26, 30, 16, 12, -5});
    const auto row = [&](QStringList cells) {
        if (!withCompany)
            cells.removeAt(1);
        table.row(cells);
    };
    row({tr("Contact"), tr("Company"), tr("Title"), tr("Phone"), tr("Last contact"), tr("Level")});
    for (const ContactLine& line : lines)
        row({line.name, line.company, line.title, line.phone,
             line.lastContact.isValid() ? line.lastContact.toString(Qt::ISODate) : QStringLiteral("-"),
             QString::number(line.level).rightJustified(2, u'0')});
}

void printAsJson(const std::vector<ContactLine>& lines)
{
    QJsonArray array;
    for (const ContactLine& line : lines) {
        QJsonObject contact{{QStringLiteral("name"), line.name},
                            {QStringLiteral("company"), line.company},
                            {QStringLiteral("title"), line.title},
                            {QStringLiteral("phone"), line.phone},
                            {QStringLiteral("level"), line.level}};
        contact.insert(QStringLiteral("lastContact"), line.lastContact.isValid()
                                                          ? QJsonValue(line.lastContact.toString(Qt::ISODate))
                                                          : QJsonValue());
        array.append(contact);
    }
    printJson(array);
}

int contacts(CommandContext& context, const QString& wanted, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    QStringList companies = session->dataJW().getCompanyNames();
    if (!wanted.isEmpty()) {
        const auto name = findCompany(companies, text::quoteFix(wanted));
        if (!name)
            return Failed;
        companies = {*name};
    }
    const std::vector<ContactLine> lines = readContacts(session->dataJW(), companies);
    if (json)
        printAsJson(lines);
    else
        printTable(lines, wanted.isEmpty());
    return Done;
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
    command->add_flag("--json", *json, help("The same as JSON"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            return contacts(context, QString::fromStdString(*company), *json);
        };
    });
}
