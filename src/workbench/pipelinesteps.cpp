#include "workbench/pipelinesteps.h"

#include "store/gateway/steps.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct StepText
{
    const char* caption;
    QStringView column;
    const char* next; ///< shown while this step is the next one
};

constexpr std::array<StepText, PipelineSteps::count> texts{{
    {QT_TRANSLATE_NOOP("PipelineSteps", "Research Company"), u"CompanyResearch",
     QT_TRANSLATE_NOOP("PipelineSteps", "Research Company & Profile")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Research Position"), u"PositionResearch",
     QT_TRANSLATE_NOOP("PipelineSteps", "Research Position & Profile")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Informational Contact"), u"InfoContact",
     QT_TRANSLATE_NOOP("PipelineSteps", "Find Informational Contact at Company")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Informational Follow-Up"), u"InfoFollow",
     QT_TRANSLATE_NOOP("PipelineSteps", "Follow up with Contact")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Prepare Cover Letter"), u"PrepareCover",
     QT_TRANSLATE_NOOP("PipelineSteps", "Prepare Cover Letter for Position")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Prepare Resume/CV Customize"), u"PrepareResume",
     QT_TRANSLATE_NOOP("PipelineSteps", "Prepare Resume for Position")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Send Resume and Cover Letter"), u"SentResume",
     QT_TRANSLATE_NOOP("PipelineSteps", "Send/Give Cover Letter & Resume")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Response Review"), u"Response",
     QT_TRANSLATE_NOOP("PipelineSteps", "Received response, Follow-up again")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Interview (Latest)"), u"Interview",
     QT_TRANSLATE_NOOP("PipelineSteps", "Establish Interview, Practice/Prepare")},
    {QT_TRANSLATE_NOOP("PipelineSteps", "Interview Follow-Up & Thank You"), u"FollowUp",
     QT_TRANSLATE_NOOP("PipelineSteps", "Send Thank You and Follow-up again")},
    // An offer on the table is for the user alone to weigh: no text tells what to do with it.
    {QT_TRANSLATE_NOOP("PipelineSteps", "Job Offer/Negotiation"), u"Hired", ""},
}};

// Stored words, not shown ones: other screens and files compare with them.
constexpr std::array<QStringView, 7> tags{u"Internet", u"Fax",     u"Phone", u"Post",
                                          u"Research", u"Meeting", u"Other"};

const StepText* textOf(int index)
{
    return index >= 0 && index < PipelineSteps::count ? &texts[static_cast<size_t>(index)] : nullptr;
}

QString translated(const char* text)
{
    return *text == '\0' ? QString() : QCoreApplication::translate("PipelineSteps", text);
}

} // namespace

QString PipelineSteps::caption(int index)
{
    const StepText* const text = textOf(index);
    return text ? translated(text->caption) : QString();
}

QString PipelineSteps::getIndexTitle(int index)
{
    const StepText* const text = textOf(index);
    return text ? text->column.toString() : QString();
}

QString PipelineSteps::getIndexMediumTitle(int index)
{
    const QString column = getIndexTitle(index);
    return column.isEmpty() ? column : QString(column + u"Medium");
}

QString PipelineSteps::nextStep(int furthest)
{
    const StepText* const text = textOf(furthest);
    return text ? translated(text->next) : QString();
}

int PipelineSteps::getIndexMedium(int index, const QString& tag)
{
    const auto found = std::ranges::find(tags, QStringView(tag));
    const int code = found == tags.end() ? 0 : static_cast<int>(found - tags.begin()) + 1;
    if (index > 1)
        return code;
    // Research is read, not sent: what came from the internet is filed with the papers, and a medium of no
    // name says nothing about a piece of reading.
    if (code == steps::Internet)
        return steps::Post;
    return code == steps::Other ? steps::NoMedium : code;
}

QString PipelineSteps::mediumTag(int code)
{
    return code >= 1 && code <= static_cast<int>(tags.size()) ? tags[static_cast<size_t>(code - 1)].toString()
                                                              : QString();
}

PipelineSteps::PipelineSteps(const RecordSet& position)
{
    for (int index = 0; index < count; ++index) {
        Step& step = m_steps[static_cast<size_t>(index)];
        step.date = position.date(texts[static_cast<size_t>(index)].column);
        step.medium = position.key(getIndexMediumTitle(index)).value_or(0);
    }
}

PipelineSteps::Step PipelineSteps::step(int index) const
{
    return textOf(index) ? m_steps[static_cast<size_t>(index)] : Step();
}

int PipelineSteps::progress() const
{
    for (int index = count - 1; index >= 0; --index) {
        if (isDone(m_steps[static_cast<size_t>(index)].date))
            return index + 1;
    }
    return 0;
}
