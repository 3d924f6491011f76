// How a day is laid out and drawn.
#include "views/calendar/daylist.h"

#include "views/calendar/chiplook.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int inset = 4;   ///< around the day's content
constexpr int padding = 2; ///< above and below a chip's text
constexpr int stripe = 3;  ///< the stronger edge at a chip's side
constexpr int between = 2; ///< chips

/// "2:00p Referral" as its time and its name; one without a time is all name.
std::pair<QString, QString> timeAndName(const QString& text)
{
    const auto blank = text.indexOf(u' ');
    if (blank < 0 || !text.front().isDigit())
        return {{}, text};
    return {text.left(blank), text.mid(blank + 1)};
}

/// As many whole words from the front as fit; at least one.
QString fittingWords(const QString& text, const QFontMetrics& metrics, int width)
{
    QString fitting = text.section(u' ', 0, 0);
    for (int words = 1; fitting.size() < text.size(); ++words) {
        const QString more = text.section(u' ', 0, words);
        if (metrics.horizontalAdvance(more) > width)
            break;
        fitting = more;
    }
    return fitting;
}

} // namespace

// --- Layout -----------------------------------------------------------------------------------------------

int DayList::labelHeight() const
{
    return fontMetrics().height() + 2 * padding + inset;
}

int DayList::chipHeight(int lines) const
{
    return lines * fontMetrics().height() + 2 * padding;
}

DayList::Plan DayList::plan() const
{
    const auto count = m_content.chips.size();
    const int room = height() - labelHeight() - inset + between;
    const auto fitting = [&](int lines) { return room / (chipHeight(lines) + between); };
    const auto fits = [&](int lines) { return static_cast<size_t>(std::max(0, fitting(lines))) >= count; };
    if (!fits(1)) // the last line is for "+n more"
        return {std::vector<int>(static_cast<size_t>(std::max(0, fitting(1) - 1)), 1)};
    if (!fits(2))
        return {std::vector<int>(count, 1)};
    Plan plan{std::vector<int>(count, 2)};
    int left = room - static_cast<int>(count) * (chipHeight(2) + between);
    for (size_t index = 0; index < count; ++index) {
        const QString name = timeAndName(m_content.chips[index].text).second;
        const bool wide = fontMetrics().horizontalAdvance(name) > width() - 2 * (inset + stripe) - 3;
        if (!wide || left < fontMetrics().height())
            continue;
        plan.lines[index] = 3;
        left -= fontMetrics().height();
    }
    return plan;
}

QRect DayList::chipRect(int index) const
{
    const Plan now = plan();
    if (index < 0 || index >= now.shown())
        return {};
    int top = labelHeight();
    for (int above = 0; above < index; ++above)
        top += chipHeight(now.lines[static_cast<size_t>(above)]) + between;
    return {inset, top, width() - 2 * inset, chipHeight(now.lines[static_cast<size_t>(index)])};
}

QRect DayList::moreRect() const
{
    const Plan now = plan();
    if (now.lines.size() == m_content.chips.size())
        return {};
    const int top = labelHeight() + now.shown() * (chipHeight(1) + between);
    // In a cell without a line to spare it stands beside the day's number.
    if (top + chipHeight(1) > height())
        return {width() / 2, 0, width() / 2 - inset, labelHeight()};
    return {inset, top, width() - 2 * inset, chipHeight(1)};
}

int DayList::chipAt(QPoint place) const
{
    for (int index = 0; index < static_cast<int>(m_content.chips.size()); ++index) {
        if (chipRect(index).contains(place))
            return index;
    }
    return -1;
}

QSize DayList::minimumSizeHint() const
{
    // The number, with that of the events beside it: a small screen at a large scale leaves no more.
    return {fontMetrics().horizontalAdvance(u"30+9"_s) + inset / 2, labelHeight() + inset};
}

// --- Drawing ----------------------------------------------------------------------------------------------

void DayList::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintGround(painter);
    if (!m_content.date.isValid())
        return;
    paintLabel(painter);
    const Plan now = plan();
    for (int index = 0; index < now.shown(); ++index) {
        const auto place = static_cast<size_t>(index);
        paintChip(painter, m_content.chips[place], chipRect(index), now.lines[place]);
    }
    if (now.lines.size() < m_content.chips.size())
        paintMore(painter);
}

void DayList::paintGround(QPainter& painter) const
{
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor base = palette().color(m_content.date.isValid() ? QPalette::Base : QPalette::Window);
    painter.fillRect(rect(), m_dropTarget ? ChipLook::mixed(accent, base, 0.25) : base);
    if (m_content.date.isValid() && m_content.selected) {
        const int thick = hasFocus() ? 2 : 1;
        painter.setPen(QPen(accent, thick, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(QRectF(rect()).adjusted(thick / 2.0, thick / 2.0, -thick / 2.0, -thick / 2.0));
    }
}

/// The cell's first item, "Ldate": drawn, as it is neither opened nor dragged, and the press on it is the
/// day's.
void DayList::paintLabel(QPainter& painter) const
{
    const QString number = QString::number(m_content.date.day());
    QFont bold = font();
    bold.setBold(m_content.today || m_content.selected);
    painter.setFont(bold);
    const int wide = painter.fontMetrics().horizontalAdvance(number) + 2 * inset;
    const QRect room(inset, inset - 1, std::max(wide, fontMetrics().height() + 2 * padding),
                     fontMetrics().height() + padding);
    if (m_content.today) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(room, 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.setPen(palette().color(m_content.today ? QPalette::HighlightedText : QPalette::Text));
    if (m_content.today)
        painter.drawText(room, Qt::AlignCenter, number);
    else
        painter.drawText(room.translated(inset - 2, 0), Qt::AlignLeft | Qt::AlignVCenter, number);
    painter.setFont(font());
}

void DayList::paintChip(QPainter& painter, const DayChip& chip, QRect room, int lines) const
{
    const QColor base = palette().color(QPalette::Base);
    const qreal share = chip.ghosted ? 0.45 : 1;
    painter.fillRect(room, ChipLook::mixed(m_look.ground(chip.kind, palette()), base, share));
    painter.fillRect(QRect(room.topLeft(), QSize(stripe, room.height())),
                     ChipLook::mixed(m_look.edge(chip.kind, palette()), base, share));
    const QRect inner = room.adjusted(stripe + 3, padding, -3, -padding);
    const auto [time, name] = timeAndName(chip.text);
    const bool split = lines > 1;
    const QRect words = paintPictures(painter, chip, inner, split ? time : QString());
    painter.setPen(ChipLook::mixed(palette().color(QPalette::Text), base, chip.ghosted ? 0.72 : 1));
    // Struck out as a closed task is: that it is done shows without its colour, too.
    QFont inked = font();
    inked.setStrikeOut(chip.ghosted);
    painter.setFont(inked);
    const auto write = [&](QRect place, const QString& text) {
        if (place.isEmpty())
            return;
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
    };
    write(words, split ? time : chip.text);
    const QRect below(inner.left(), words.bottom() + 1, inner.width(), words.height());
    const QString first = lines > 2 ? fittingWords(name, fontMetrics(), below.width()) : name;
    if (split)
        write(below, first);
    if (lines > 2)
        write(below.translated(0, below.height()), name.mid(first.size()).trimmed());
    painter.setFont(font());
    if (chip.key == m_current) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(room.adjusted(0, 0, -1, -1));
    }
}

/// The type's picture before the words, format and alarm behind them; answers what is left to the words. In a
/// narrow cell the words come first, and the pictures behind them give way.
QRect DayList::paintPictures(QPainter& painter, const DayChip& chip, QRect inner, const QString& time) const
{
    const int line = fontMetrics().height();
    const int side = line - 2;
    if (time.isEmpty() && inner.height() < 2 * line &&
        fontMetrics().horizontalAdvance(chip.text) > inner.width() - side - 6) {
        if (inner.width() > 2 * side)
            return {inner.left(), inner.top(), inner.width(), line};
        m_look.icon(chip.icons.value(0)).paint(&painter, QRect(inner.left(), inner.top() + 1, side, side));
        return {};
    }
    const int least =
        time.isEmpty() ? fontMetrics().averageCharWidth() * 14 : fontMetrics().horizontalAdvance(time) + 3;
    const int left = inner.left() + side + 4;
    int right = inner.right() + 1;
    painter.setOpacity(chip.ghosted ? 0.6 : 1);
    m_look.icon(chip.icons.value(0)).paint(&painter, QRect(inner.left(), inner.top() + 1, side, side));
    for (auto index = chip.icons.size() - 1; index > 0; --index) {
        if (right - side - 2 - left < least)
            break;
        right -= side + 1;
        m_look.icon(chip.icons.at(index)).paint(&painter, QRect(right, inner.top() + 1, side, side));
    }
    painter.setOpacity(1);
    return {left, inner.top(), right - left - 2, line};
}

void DayList::paintMore(QPainter& painter) const
{
    const auto hidden = static_cast<int>(m_content.chips.size()) - plan().shown();
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect room = moreRect();
    if (room.top() == 0)
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, u'+' + QString::number(hidden));
    else
        painter.drawText(room.adjusted(stripe + 3, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         tr("+%n more", nullptr, hidden));
}
