// Finding and showing: search, find, report.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "desktop/pdffile.h"
#include "output/findscan.h"
#include "output/reports.h"
#include "output/searchkinds.h"
#include "store/engine/background.h"
#include "store/gateway/datajw.h"

#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;
using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

// --- search -----------------------------------------------------------------------------------------------

/// The kind that the user means: its name or table in any case, or the only one whose name holds the word.
const SearchKind* findKind(const QString& wanted)
{
    std::vector<const SearchKind*> holding;
    QStringList names;
    for (const SearchKind& kind : keysearch::kinds()) {
        if (wanted.compare(kind.name, Qt::CaseInsensitive) == 0 ||
            wanted.compare(kind.table, Qt::CaseInsensitive) == 0)
            return &kind;
        if (kind.name.contains(wanted, Qt::CaseInsensitive))
            holding.push_back(&kind);
        names.append(kind.name);
    }
    if (holding.size() == 1)
        return holding.front();
    printError(tr("There is no kind \"%1\". The kinds are: %2").arg(wanted, names.join(u", "_s)));
    return nullptr;
}

QString nameOf(const QString& node)
{
    return node.left(node.lastIndexOf(u'#'));
}

void printHits(const SearchKind& kind, const std::vector<SearchHits>& groups)
{
    for (const SearchHits& hits : groups) {
        printLine(hits.label(kind));
        for (const QString& node : hits.nodes)
            printLine(u"  "_s + onOneLine(node));
    }
}

QJsonArray hitsAsJson(const std::vector<SearchHits>& groups)
{
    QJsonArray fields;
    for (const SearchHits& hits : groups) {
        QJsonArray records;
        for (size_t i = 0; i < hits.keys.size(); ++i)
            records.append(
                QJsonObject{{u"key"_s, hits.keys[i]}, {u"text"_s, nameOf(hits.nodes.at(qsizetype(i)))}});
        fields.append(QJsonObject{{u"field"_s, hits.field}, {u"hits"_s, records}});
    }
    return fields;
}

int search(CommandContext& context, const QString& wanted, const QString& text, bool json)
{
    const SearchKind* const kind = findKind(wanted);
    if (!kind)
        return WrongUsage;
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    std::vector<SearchHits> groups;
    int sum = 0;
    for (const QString& field : kind->fields) {
        SearchHits hits = keysearch::search(session->dataJW(), *kind, field, text);
        sum += static_cast<int>(hits.keys.size());
        if (!hits.keys.empty())
            groups.push_back(std::move(hits));
    }
    const int records = session->dataJW().getCount(kind->table, true);
    if (json) {
        printJson(QJsonObject{{u"fields"_s, hitsAsJson(groups)}, {u"sum"_s, sum}, {u"records"_s, records}});
    } else {
        printHits(*kind, groups);
        printLine(tr("%1 found in %2 records").arg(sum).arg(records));
    }
    return Done;
}

// --- find -------------------------------------------------------------------------------------------------

void printPiece(const FindPiece& piece)
{
    printLine(tr("%1 (%2)").arg(findscan::heading(piece.group)).arg(piece.count));
    for (const FindHit& hit : piece.hits) {
        QStringList parts{hit.title, hit.context,
                          hit.place.isEmpty() ? hit.excerpt : tr("%1: %2").arg(hit.place, hit.excerpt)};
        parts.removeAll(QString());
        printLine(u"  "_s + onOneLine(parts.join(u" · "_s)));
    }
}

QJsonObject pieceAsJson(const FindPiece& piece)
{
    QJsonArray hits;
    for (const FindHit& hit : piece.hits)
        hits.append(QJsonObject{{u"key"_s, hit.key},
                                {u"title"_s, hit.title},
                                {u"context"_s, hit.context},
                                {u"place"_s, hit.place},
                                {u"excerpt"_s, hit.excerpt}});
    return {{u"kind"_s, findscan::word(piece.group)}, {u"count"_s, piece.count}, {u"hits"_s, hits}};
}

int find(CommandContext& context, const QString& typed, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const WordFinder finder(typed);
    std::vector<FindPiece> pieces;
    // A group comes again when it is complete.
    const auto take = [&](FindPiece piece) {
        std::erase_if(pieces, [&](const FindPiece& other) { return other.group == piece.group; });
        pieces.push_back(std::move(piece));
    };
    try {
        const std::atomic_bool ended = false;
        Reading reading(session->databasePath(), ended);
        finder.isEmpty() ? findscan::due(reading, findscan::dueBefore(*session), take)
                         : findscan::words(reading, finder, take);
    } catch (const StoreError& error) {
        printError(error.description());
        return Failed;
    }
    std::ranges::sort(pieces, {}, &FindPiece::group);
    if (json) {
        QJsonArray all;
        std::ranges::for_each(pieces, [&](const FindPiece& piece) { all.append(pieceAsJson(piece)); });
        printJson(all);
    } else {
        std::ranges::for_each(pieces, printPiece);
    }
    return Done;
}

// --- report -----------------------------------------------------------------------------------------------

struct ReportOptions
{
    std::string kind;
    std::string pdf;
    bool pages = false;
};

constexpr std::array<std::pair<const char*, ReportKind>, 4> reportKinds{{{"company", ReportKind::Company},
                                                                         {"contact", ReportKind::Contact},
                                                                         {"position", ReportKind::Position},
                                                                         {"target", ReportKind::Target}}};

void printPages(const QString& text, const QString& header)
{
    int number = 0;
    for (const QString& page : reports::pages(text)) {
        print(plain(header) + u"\n\n\n" + plain(page));
        print(QString::number(++number).rightJustified(ReportDocument::fixedColumns) + u"\n\f");
    }
}

int writePdf(const QString& text, const QString& header, const ReportOptions& options)
{
    const ReportDocument document = reports::document(text, header, options.pages);
    const QString path = QString::fromStdString(options.pdf);
    if (!pdffile::write(document, path)) {
        printError(tr("The file \"%1\" could not be written.").arg(path));
        return Failed;
    }
    const auto pages = document.pages.size();
    printLine(
        pages > reports::mostPrinted
            ? tr("%1: %2 pages, of which a printer gets %3").arg(path).arg(pages).arg(reports::mostPrinted)
            : tr("%1: pages: %2").arg(path).arg(pages));
    return Done;
}

int report(CommandContext& context, const ReportOptions& options)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const ReportKind kind = std::ranges::find(reportKinds, options.kind, [](const auto& pair) {
                                return std::string(pair.first);
                            })->second;
    const std::optional<QString> text = reports::build(kind, *session);
    // A report of no companies has said so; one of no targets is an empty page.
    if (!text || (text->isEmpty() && kind != ReportKind::Target))
        return Failed;
    const QString header = reports::header(kind, *session);
    if (!options.pdf.empty())
        return writePdf(*text, header, options);
    if (options.pages)
        printPages(*text, header);
    else
        print(plain(*text));
    return Done;
}

void addSearch(CLI::App& app, Command& chosen)
{
    auto* const command =
        app.add_subcommand("search", help("Search one kind of record in all its fields for a text"));
    auto kind = std::make_shared<std::string>();
    auto text = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    command
        ->add_option(
            "KIND", *kind,
            help("contact, company, position, history, events, profile or target; a history is found for its "
                 "contact"))
        ->required();
    command->add_option("TEXT", *text, help("Text that a field holds, in any case"))
        ->required()
        ->check(notEmpty("Please enter a search string."));
    command->add_flag("--json", *json, help("As JSON: fields with hits, sum and records"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            return search(context, QString::fromStdString(*kind), QString::fromStdString(*text), *json);
        };
    });
}

void addFind(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand(
        "find", help("Find records of every kind in which each word occurs, in any case and with "
                     "or without accents"));
    auto words = std::make_shared<std::vector<std::string>>();
    auto json = std::make_shared<bool>(false);
    command->add_option("TEXT", *words, help("The words; without any, the contacts that are due for a word"));
    command->add_flag("--json", *json, help("As JSON, at most 50 hits of a kind"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            QStringList typed;
            for (const std::string& word : *words)
                typed.append(QString::fromStdString(word));
            return find(context, typed.join(u' '), *json);
        };
    });
}

} // namespace

void addOutputCommands(CLI::App& app, Command& chosen, bool& draws)
{
    addSearch(app, chosen);
    addFind(app, chosen);
    auto* const command =
        app.add_subcommand("report", help("Write a report of all companies, contacts, positions or targets"));
    auto options = std::make_shared<ReportOptions>();
    std::vector<std::string> names;
    for (const auto& [name, kind] : reportKinds)
        names.emplace_back(name);
    command->add_option("KIND", options->kind, help("company, contact, position or target"))
        ->required()
        ->check(CLI::IsMember(names));
    command->add_option("--pdf", options->pdf, help("Write the pages into this PDF file"))
        ->type_name("FILE")
        ->check(notEmpty("the file's name is empty"));
    command->add_flag("--pages", options->pages,
                      help("With page numbers; as text each page below its header"));
    command->callback([=, &chosen, &draws] {
        draws = !options->pdf.empty();
        chosen = [=](CommandContext& context) { return report(context, *options); };
    });
}
