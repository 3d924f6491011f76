// Questionnaire templates and occupation lists out of any bytes: read or refused with a line, and what was
// read is written and read again as the same.
#include "assessment/occupations.h"
#include "assessment/template.h"
#include "assessment/wordstat.h"
#include "base/latin1.h"

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void require(bool holds, const char* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", rule);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const latin1::Lines file = latin1::parseLines(bytes, u"file"_s);
    require(file.problem.isEmpty() || file.lines.isEmpty(), "a refused file has no lines");
    QString problem;
    const Template read = Template::parse(file.lines, problem);
    require(read.questions.size() <= Template::mostQuestions, "bound of questions");
    if (problem.isEmpty())
        require(Template::parse(read.lines(), problem).lines() == read.lines() && problem.isEmpty(),
                "read again");
    else
        require(problem.startsWith(u"Line "_s), "a line is named");
    Occupations occupations;
    try {
        occupations.takeLines(file.lines, u"file"_s);
        require(occupations.count() * 3 == file.lines.size(), "three lines each");
    } catch (const EvaluationStopped& stopped) {
        require(stopped.reason.startsWith(u"Line "_s), "a line is named");
    }
    return 0;
}
