#include "calendar/framenotes.h"

#include "base/fieldtext.h"
#include "calendar/eventchoices.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString notes = u"txtEvDescription"_s;

bool isChoice(const QString& line)
{
    const auto& others = eventchoices::others();
    return std::ranges::find(others, line, &EventChoice::text) != others.end();
}

} // namespace

void FrameNotes::fill(const QString& stored)
{
    m_form.setText(notes, fieldtext::toShown(stored));
    QStringList chosen = text().split(u'\n');
    chosen.removeIf([](const QString& line) { return !isChoice(line); });
    m_form.setText(u"imgOther1"_s, chosen.value(0));
    m_form.setText(u"imgOther2"_s, chosen.value(1));
}

QString FrameNotes::text() const
{
    return m_form.text(notes);
}

void FrameNotes::choose(int button, const QString& text)
{
    const QString control = button == 2 ? u"imgOther2"_s : u"imgOther1"_s;
    QStringList lines = m_form.text(notes).split(u'\n');
    const QString before = m_form.text(control);
    if (const qsizetype line = lines.lastIndexOf(before); !before.isEmpty() && line >= 0)
        lines.removeAt(line);
    // The last line is taken when it is empty, as that of an empty text is; paragraphs stay.
    if (!text.isEmpty() && !lines.isEmpty() && lines.last().isEmpty())
        lines.last() = text;
    else if (!text.isEmpty())
        lines << text;
    m_form.setText(control, text);
    m_form.setText(notes, lines.join(u'\n'));
}

bool FrameNotes::isTooLong() const
{
    constexpr qsizetype longest = 400'000; // one statement holds all texts
    return fieldtext::toStored(text() + m_form.text(u"txtEvName"_s)).size() > longest;
}
