#include "assessment/occupations.h"

#include "assessment/wordstat.h"
#include "base/latin1.h"
#include "base/words.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("Occupations", text);
}

QString pathOf(const QString& folder, QString fileName)
{
    return folder + u'/' + fileName.replace(u'\\', u'/');
}

QStringList linesOf(const QString& path)
{
    latin1::Lines read = latin1::readLines(path);
    if (!read.problem.isEmpty())
        throw EvaluationStopped{read.problem};
    return read.lines;
}

/// A threshold as it is written, a decimal number and nothing else.
double thresholdOf(const QString& text, const QString& file, int line)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber)
        throw EvaluationStopped{
            say("Line %1 of %2 should be a number, the threshold of the occupation: “%3”.")
                .arg(QString::number(line), file, text.left(40))};
    return value;
}

} // namespace

void Occupation::loadOcc(const QString& folder)
{
    terms.clear();
    if (const QString path = pathOf(folder, filename); !filename.isEmpty() && QFileInfo(path).isFile())
        terms = linesOf(path);
}

bool Occupations::loadOccupations(const QString& folder)
{
    const QString path = pathOf(folder, fileName.toString());
    if (!QFileInfo::exists(path))
        return false;
    takeLines(linesOf(path), QDir::toNativeSeparators(path));
    for (int number = 1; number <= m_count; ++number)
        at(number).loadOcc(folder);
    return true;
}

void Occupations::takeLines(const QStringList& lines, const QString& name)
{
    constexpr int recordLines = 3;
    m_count = 0;
    for (qsizetype first = 0; first < lines.size(); first += recordLines) {
        const int line = static_cast<int>(first) + 1;
        if (m_count == bound)
            throw EvaluationStopped{
                say("Line %1 of %2 begins a 101st occupation. Jobwright can work with 100.")
                    .arg(QString::number(line), name)};
        if (first + recordLines > lines.size())
            throw EvaluationStopped{say("Line %1 of %2 begins an occupation that ends before its third line: "
                                        "title, threshold, term file.")
                                        .arg(QString::number(line), name)};
        const double threshold = thresholdOf(lines[first + 1], name, line + 1);
        Occupation& occupation = at(m_count + 1);
        occupation.Title = lines[first];
        occupation.indexThreshold = threshold;
        occupation.filename = lines[first + 2];
        ++m_count;
    }
}

QStringList loadDictionary(const QString& folder, const QString& fileName)
{
    return linesOf(pathOf(folder, fileName));
}
