#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "assessment/evaluation.h"
#include "assessment/template.h"
#include "base/text.h"
#include "store/gateway/datajw.h"

#include <QFileInfo>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;
using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

// --- profile ----------------------------------------------------------------------------------------------

int profile(CommandContext& context, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    RecordSet items = session->dataJW().getExecQueryRecords(
        u"Select Title,Subtitle,Category,Subcategory,TimeStart,TimeStartYear,TimeEnd,TimeEndYear,Location,"
        "Function1,Function2,Function3,Notes from UProfile"_s);
    if (items.isNothing())
        return Failed;
    const Table table({12, 14, 28, 40});
    QJsonArray array;
    if (!json)
        table.row({tr("Category"), tr("Subcategory"), tr("Title"), tr("Subtitle")});
    for (; !items.atEnd(); items.next()) {
        if (!json)
            table.row({items.text(u"Category"), items.text(u"Subcategory"), items.text(u"Title"),
                       items.text(u"Subtitle")});
        array.append(QJsonObject{
            {u"title"_s, items.text(u"Title")},
            {u"subtitle"_s, items.text(u"Subtitle")},
            {u"category"_s, items.text(u"Category")},
            {u"subcategory"_s, items.text(u"Subcategory")},
            {u"start"_s, QString(items.text(u"TimeStart") + u' ' + items.text(u"TimeStartYear")).trimmed()},
            {u"end"_s, QString(items.text(u"TimeEnd") + u' ' + items.text(u"TimeEndYear")).trimmed()},
            {u"location"_s, items.text(u"Location")},
            {u"problem"_s, items.text(u"Function1")},
            {u"action"_s, items.text(u"Function2")},
            {u"result"_s, items.text(u"Function3")},
            {u"notes"_s, items.text(u"Notes")}});
    }
    if (json)
        printJson(array);
    return Done;
}

// --- evaluate ---------------------------------------------------------------------------------------------

/// Problem, action and result; from the command line or of an item.
struct Par
{
    std::string title;
    std::string subtitle;
    std::string problem;
    std::string action;
    std::string result;
};

/// The texts of the item that is meant; false, with the reason printed, when it is none or not one.
bool findItem(DataJW& data, const Par& wanted, QStringList& texts)
{
    QString statement = u"Select Function1,Function2,Function3 from UProfile where Title='"_s +
                        text::quoteFix(QString::fromStdString(wanted.title)) + u'\'';
    if (!wanted.subtitle.empty())
        statement += u" AND Subtitle='" + text::quoteFix(QString::fromStdString(wanted.subtitle)) + u'\'';
    const RecordSet found = data.getExecQueryRecords(statement);
    if (found.rowCount() != 1) {
        printError(found.isEmpty()
                       ? tr("There is no profile item of this name.")
                       : tr("Several profile items are called like that; please name the subtitle, too."));
        return false;
    }
    texts = {found.text(u"Function1"), found.text(u"Function2"), found.text(u"Function3")};
    return true;
}

QJsonObject asJson(const Evaluation& evaluation)
{
    QJsonArray positions;
    for (const PositionMatch& match : evaluation.positions())
        positions.append(QJsonObject{{u"key"_s, match.key},
                                     {u"title"_s, match.title},
                                     {u"wordMatchIndex"_s, match.wordMatchIndex},
                                     {u"sentenceMatchIndex"_s, match.sentenceMatchIndex}});
    QJsonArray occupations;
    for (const int number : evaluation.passed())
        occupations.append(QJsonObject{{u"number"_s, number},
                                       {u"title"_s, evaluation.occupations().at(number).Title},
                                       {u"notes"_s, evaluation.occupations().at(number).Notes}});
    return {{u"words"_s, QJsonArray::fromStringList(evaluation.baseWords())},
            {u"report"_s, evaluation.report},
            {u"positions"_s, positions},
            {u"occupations"_s, occupations}};
}

int evaluate(CommandContext& context, const Par& wanted, bool json)
{
    if (wanted.title.empty() && wanted.problem.empty() && wanted.action.empty() && wanted.result.empty()) {
        printError(tr("Please name a profile item, or give its texts: --problem, --action, --result."));
        return WrongUsage;
    }
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    QStringList texts;
    for (const std::string& text : {wanted.problem, wanted.action, wanted.result})
        texts.append(QString::fromStdString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\n', u"\r\n"_s));
    if (!wanted.title.empty() && !findItem(session->dataJW(), wanted, texts))
        return Failed;
    Evaluation evaluation(*session);
    ProgressScope progress(*session, tr("Evaluation"), 0);
    const bool whole =
        evaluation.run(texts[0], texts[1], texts[2],
                       [&](const QString& status, int done, int) { return progress.step(done, status); });
    if (json)
        printJson(asJson(evaluation));
    else {
        printLine(evaluation.report);
        for (const int number : evaluation.passed())
            printLine(tr("Occupation: %1").arg(evaluation.occupations().at(number).Title));
    }
    if (!whole)
        printError(evaluation.stopped());
    return whole ? Done : Failed;
}

// --- rank -------------------------------------------------------------------------------------------------

/// What a questionnaire says, through the screen's own presenter.
int rank(CommandContext& context, const QString& company, const QString& position, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    DataJW& data = session->dataJW();
    const bool isPosition = !position.isEmpty();
    Key key = 0;
    QString name;
    if (!company.isEmpty()) {
        const auto found = findCompany(data, company);
        if (!found)
            return Failed;
        name = found->name;
        key = isPosition ? data.getPositionKey(text::quoteFix(position), name) : data.getCompanyKey(name);
        if (key == 0) {
            printError(tr("%1 has no position of the name %2.").arg(name, position));
            return Failed;
        }
    }
    const int type = isPosition ? 1 : 0;
    const QStringList questions = data.getCQuestions(type);
    const QStringList preferred = questions.isEmpty() ? QStringList() : data.getPrefAnswers(type);
    const int ranked = key == 0 ? -1 : data.getProfileRank(isPosition, key);
    QJsonArray rows;
    const Table table({48, 30, 0});
    if (!json)
        table.row({tr("Question"), tr("Preferred"), key == 0 ? QString() : tr("Answer")});
    for (int i = 0; i < questions.size(); ++i) {
        const QString answer = ranked < 0 ? QString() : data.getProfileAnswers(isPosition, i + 1, key);
        rows.append(QJsonObject{{u"question"_s, questions[i]},
                                {u"preferred"_s, preferred.value(i)},
                                {u"answer"_s, answer.isEmpty() ? QJsonValue() : QJsonValue(answer)}});
        if (!json)
            table.row({questions[i], preferred.value(i), answer});
    }
    if (json)
        printJson(QJsonObject{{u"company"_s, name},
                              {u"position"_s, position},
                              {u"rank"_s, ranked < 0 ? QJsonValue() : QJsonValue(ranked)},
                              {u"questions"_s, rows}});
    else if (key != 0)
        printLine(ranked < 0 ? tr("Not ranked yet.") : tr("Rank %1 of %2").arg(ranked).arg(questions.size()));
    return Done;
}

// --- template ---------------------------------------------------------------------------------------------

int showTemplate(const QString& path, bool json)
{
    QString problem;
    const Template read = Template::read(path, problem);
    if (!problem.isEmpty()) {
        printError(problem);
        return Failed;
    }
    QJsonArray array;
    int number = 0;
    for (const TemplateQuestion& question : read.questions) {
        array.append(QJsonObject{{u"question"_s, question.text},
                                 {u"type"_s, question.type},
                                 {u"answers"_s, QJsonArray::fromStringList(question.answers)}});
        if (json)
            continue;
        printLine(u"%1. "_s.arg(++number) + onOneLine(question.text));
        for (const QString& answer : question.answers)
            printLine(u"   - "_s + onOneLine(answer));
    }
    if (json)
        printJson(array);
    return Done;
}

} // namespace

void addAssessmentCommands(CLI::App& app, Command& chosen)
{
    auto json = std::make_shared<bool>(false);
    auto* const profileCommand = app.add_subcommand("profile", help("List the items of your profile"));
    profileCommand->add_flag("--json", *json, help("As JSON, with all texts"));
    profileCommand->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return profile(context, *json); }; });

    auto* const evaluateCommand = app.add_subcommand(
        "evaluate", help("Test the words of a profile item, or of texts: the report of the profile screen"));
    auto par = std::make_shared<Par>();
    evaluateCommand->add_option("TITLE", par->title, help("The item's title"));
    evaluateCommand->add_option("SUBTITLE", par->subtitle,
                                help("Its subtitle, when several items have the title"));
    evaluateCommand->add_option("--problem", par->problem, help("The first text, in the place of an item's"));
    evaluateCommand->add_option("--action", par->action, help("The second text"));
    evaluateCommand->add_option("--result", par->result, help("The third text"));
    evaluateCommand->add_flag("--json", *json, help("As JSON: words, report, positions, occupations"));
    evaluateCommand->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return evaluate(context, *par, *json); }; });

    auto* const rankCommand = app.add_subcommand(
        "rank",
        help("Show the questions with preferred and given answers, and the rank of a company or position"));
    auto company = std::make_shared<std::string>();
    auto position = std::make_shared<std::string>();
    rankCommand->add_option("COMPANY", *company,
                            help("The company's name, or a part that only one name has"));
    rankCommand->add_option("POSITION", *position, help("The title of a position there"));
    rankCommand->add_flag("--json", *json, help("As JSON"));
    rankCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            return rank(context, QString::fromStdString(*company), QString::fromStdString(*position), *json);
        };
    });

    auto* const templateCommand =
        app.add_subcommand("template", help("Read a questionnaire template and print it"));
    auto file = std::make_shared<std::string>();
    templateCommand->add_option("FILE", *file, help("The template"))
        ->required()
        ->check(notEmpty("the file's name is empty"));
    templateCommand->add_flag("--json", *json, help("As JSON"));
    templateCommand->callback([=, &chosen] {
        chosen = [=](CommandContext&) {
            return showTemplate(QFileInfo(QString::fromStdString(*file)).absoluteFilePath(), *json);
        };
    });
}
