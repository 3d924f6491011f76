#include "planning/goalsfile.h"

#include "base/dates.h"
#include "base/textlines.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int headLines = 3;
constexpr int blockLines = 5;
constexpr int readLines = headLines + blockLines * GoalSet::rowCount;
const QString blockEnd = u"#"_s;

QString tr(const char* text)
{
    return QCoreApplication::translate("GoalsFile", text);
}

QDate dateOf(const QString& line)
{
    const auto moment = dates::parse(line);
    return moment ? moment->date : QDate();
}

} // namespace

namespace goalsfile {

bool isGoalsFile(const QStringList& lines)
{
    return dateOf(lines.value(0)).isValid() && dateOf(lines.value(1)).isValid();
}

Contents parse(const QStringList& lines, const QString& name)
{
    if (!isGoalsFile(lines))
        return {{}, tr("%1 is no goals file: it does not begin with two dates.").arg(name)};
    if (lines.size() < readLines)
        return {{},
                tr("The goals file %1 is cut off: it has %2 lines and needs %3.")
                    .arg(name)
                    .arg(lines.size())
                    .arg(readLines)};
    Contents contents{GoalSet{dateOf(lines[0]), dateOf(lines[1]), lines[2], {}}, {}};
    auto line = lines.begin() + headLines;
    for (GoalRow& row : contents.set->rows) {
        row = {line[0], line[1], line[2], line[3]};
        contents.wrongBlocks += line[4] == blockEnd ? 0 : 1;
        line += blockLines;
    }
    return contents;
}

Contents load(const QString& path)
{
    const TextLines file = textlines::read(path);
    if (!file.problem.isEmpty())
        return {{}, file.problem};
    return parse(file.lines, QDir::toNativeSeparators(path));
}

QStringList compose(const GoalSet& goals, const QString& set)
{
    QStringList lines{dates::mdyyyy(goals.start), dates::mdyyyy(goals.end), u"Standard"_s};
    for (const GoalRow& row : goals.rows)
        lines << row.goal << row.format << row.target << row.period << blockEnd;
    // Read by people only, and so not in the user's language: the file may be handed on.
    lines << set + u" goals - Goals Template Jobwright";
    return lines;
}

} // namespace goalsfile
