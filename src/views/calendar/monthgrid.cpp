#include "views/calendar/monthgrid.h"

#include "views/common/icons.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int daysAWeek = 7;
constexpr int rowCount = 6;
constexpr int headingMargin = 4;

} // namespace

MonthGrid::MonthGrid(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QGridLayout(this))
{
    // The lines between the days are the ground that shows through.
    m_layout->setSpacing(1);
    m_layout->setContentsMargins(1, 1, 1, 1);
    for (int row = 1; row < rowCount; ++row)
        m_layout->setRowStretch(row, 1);
    for (int column = 0; column < daysAWeek; ++column) {
        auto* heading = new QLabel(this);
        heading->setObjectName(u"lblWeekday%1"_s.arg(column));
        heading->setProperty("caption", true);
        heading->setAutoFillBackground(true);
        heading->setMargin(headingMargin);
        heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_layout->addWidget(heading, 0, column);
        m_layout->setColumnStretch(column, 1);
        m_headings[static_cast<size_t>(column)] = heading;
    }
    for (int index = 0; index < MonthPage::cellCount; ++index)
        buildDay(index);
    labelDays();
}

void MonthGrid::buildDay(int index)
{
    auto* cell = new DayList(m_look, this);
    cell->setObjectName(u"lvwDay%1"_s.arg(index));
    m_layout->addWidget(cell, 1 + index / daysAWeek, index % daysAWeek);
    m_days[static_cast<size_t>(index)] = cell;
    connect(cell, &DayList::pressed, this, [this, cell] { emit dayWanted(cell->day()); });
    connect(cell, &DayList::doubleClicked, this, &MonthGrid::newWanted);
    connect(cell, &DayList::chipOpened, this, &MonthGrid::opened);
    connect(cell, &DayList::moreWanted, this, [this, cell] { showAll(*cell); });
    connect(cell, &DayList::menuWanted, this, [this, cell](const QString& key, QPoint global) {
        if (key.isEmpty())
            emit dayWanted(cell->day());
        showMenu(key, global);
    });
    connect(cell, &DayList::dropped, this,
            [this, cell](const QString& key) { emit dropped(key, cell->day()); });
}

void MonthGrid::labelDays()
{
    const int room = width() / daysAWeek - 2 * headingMargin - 1;
    for (const auto length : {QLocale::LongFormat, QLocale::ShortFormat, QLocale::NarrowFormat}) {
        bool fits = true;
        for (int column = 0; column < daysAWeek; ++column) {
            // Sunday is the locale's seventh day and the grid's first.
            const int day = column == 0 ? Qt::Sunday : column;
            QLabel* heading = m_headings[static_cast<size_t>(column)];
            heading->setText(locale().standaloneDayName(day, length));
            fits &= heading->fontMetrics().horizontalAdvance(heading->text()) <= room;
        }
        if (fits)
            return;
    }
}

// --- What is shown ----------------------------------------------------------------------------------------

void MonthGrid::setDays(const Days& days, const QString& chip)
{
    const auto isInside = [](const DayCell& day) { return day.date.isValid(); };
    const auto first = std::ranges::find_if(days, isInside);
    if (first == days.end())
        return;
    // A day that leaves the month would hand the keyboard to some neighbour; the grid keeps it meanwhile.
    const bool focused = holdsFocus();
    if (focused && first->date != m_first)
        setFocus(Qt::OtherFocusReason);
    m_first = first->date;
    m_chosen = {};
    constexpr size_t inFiveRows = size_t{rowCount - 1} * daysAWeek;
    const bool sixth = std::any_of(days.begin() + inFiveRows, days.end(), isInside);
    for (size_t index = 0; index < days.size(); ++index) {
        DayList& day = *m_days[index];
        day.setContent(days[index]);
        day.setCurrentChip(days[index].selected ? chip : QString());
        day.setVisible(sixth || index < inFiveRows);
        if (days[index].selected)
            m_chosen = days[index].date;
    }
    m_layout->setRowStretch(rowCount, sixth ? 1 : 0);
    if (focused)
        focusChosen();
}

DayList* MonthGrid::dayOf(QDate date)
{
    const auto found = std::ranges::find(m_days, date, &DayList::day);
    return date.isValid() && found != m_days.end() ? *found : nullptr;
}

bool MonthGrid::holdsFocus() const
{
    const QWidget* focused = window()->focusWidget();
    return focused && (focused == this || isAncestorOf(focused));
}

void MonthGrid::focusChosen()
{
    if (DayList* day = dayOf(m_chosen); day && !day->hasFocus())
        day->setFocus(Qt::OtherFocusReason);
}

void MonthGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = palette().color(QPalette::Window);
    painter.fillRect(rect(), ChipLook::mixed(palette().color(QPalette::WindowText), ground, 0.22));
    // The last row may end before the week does.
    const DayList& last = *m_days.back();
    if (last.isVisibleTo(this))
        painter.fillRect(QRect(QPoint(last.geometry().right() + 2, last.geometry().top()),
                               QPoint(width() - 2, last.geometry().bottom())),
                         ground);
}

void MonthGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    labelDays();
}

void MonthGrid::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        labelDays();
}

// --- Keys -------------------------------------------------------------------------------------------------

void MonthGrid::keyPressEvent(QKeyEvent* event)
{
    event->setAccepted(walk(event->key(), event->modifiers()) || act(event->key(), event->modifiers()));
}

bool MonthGrid::walk(int key, Qt::KeyboardModifiers modifiers)
{
    // With no day chosen in this month the first step lands on its first day.
    const bool anywhere = dayOf(m_chosen) != nullptr;
    const auto wanted = [&](int days) { return anywhere ? m_chosen.addDays(days) : m_first; };
    DayList* day = dayOf(m_chosen);
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    switch (key) {
    case Qt::Key_Left:
        emit dayWanted(wanted(-1));
        return true;
    case Qt::Key_Right:
        emit dayWanted(wanted(1));
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int step = key == Qt::Key_Up ? -1 : 1;
        if (ctrl && day)
            walkChips(*day, step);
        else
            emit dayWanted(wanted(step * daysAWeek));
        return true;
    }
    case Qt::Key_Home:
        emit dayWanted(m_first);
        return true;
    case Qt::Key_End:
        emit dayWanted(m_first.addDays(m_first.daysInMonth() - 1));
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        emit monthWanted(key == Qt::Key_PageUp ? -1 : 1);
        return true;
    default:
        return false;
    }
}

bool MonthGrid::act(int key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    const DayList* day = dayOf(m_chosen);
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        emit openWanted(day ? day->currentChip() : QString());
        return true;
    case Qt::Key_Delete:
        emit removeWanted(day ? day->currentChip() : QString());
        return true;
    case Qt::Key_N:
        emit newWanted();
        return true;
    case Qt::Key_T:
        emit todayWanted();
        return true;
    default:
        return false;
    }
}

void MonthGrid::walkChips(DayList& day, int step)
{
    const auto& chips = day.chips();
    const auto found = std::ranges::find(chips, day.currentChip(), &DayChip::key);
    const int count = static_cast<int>(chips.size());
    int place = found == chips.end() ? -1 : static_cast<int>(found - chips.begin());
    // Above the first event is the day itself.
    place = std::clamp(place + step, -1, count - 1);
    emit chipWanted(place < 0 ? QString() : chips[static_cast<size_t>(place)].key);
}

// --- Menus ------------------------------------------------------------------------------------------------

void MonthGrid::showChosen()
{
    if (DayList* day = dayOf(m_chosen))
        showAll(*day);
}

void MonthGrid::showAll(DayList& day)
{
    auto* menu = new QMenu(&day);
    menu->setObjectName(u"mnuDay"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const DayChip& chip : day.chips()) {
        const QString words = QString(chip.text).replace(u'&', u"&&"_s);
        QAction* action = menu->addAction(m_look.icon(chip.icons.value(0)), words);
        connect(action, &QAction::triggered, this, [this, key = chip.key] { emit opened(key); });
    }
    if (!menu->actions().isEmpty())
        menu->setActiveAction(menu->actions().first());
    menu->popup(day.mapToGlobal(QPoint(0, day.height() / 3)));
}

void MonthGrid::showMenu(const QString& key, QPoint global)
{
    auto* menu = new QMenu(this);
    menu->setObjectName(u"mnuDay"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!key.isEmpty()) {
        connect(menu->addAction(icons::named(u"document-edit"_s), tr("&Open")), &QAction::triggered, this,
                [this, key] { emit opened(key); });
        connect(menu->addAction(icons::named(u"edit-delete"_s), tr("&Delete…")), &QAction::triggered, this,
                [this, key] { emit removeWanted(key); });
    } else {
        connect(menu->addAction(icons::named(u"document-new"_s), tr("&New event")), &QAction::triggered, this,
                &MonthGrid::newWanted);
    }
    menu->popup(global);
}
