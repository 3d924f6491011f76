#include "base/form.h"

#include "base/dates.h"
#include "base/fieldtext.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isMark(FieldKind kind)
{
    return kind == FieldKind::Tick || kind == FieldKind::Choice;
}

QString emptyText(FieldKind kind)
{
    return isMark(kind) || kind == FieldKind::Digit ? u"0"_s : QString();
}

/// A stored number as so many digits; the nearest that they can show.
QString digits(const QString& stored, int count)
{
    int highest = 1;
    for (int place = 0; place < count; ++place)
        highest *= 10;
    return QString::number(std::clamp(stored.toInt(), 0, highest - 1)).rightJustified(count, u'0');
}

} // namespace

Form::Form(std::vector<FieldRow> rows, QObject* parent)
    : QObject(parent)
    , m_rows(std::move(rows))
{
}

const FieldRow* Form::row(const QString& control) const
{
    const auto found = std::ranges::find(m_rows, control, &FieldRow::control);
    return found == m_rows.end() ? nullptr : &*found;
}

QString Form::text(const QString& control) const
{
    return m_states.value(control).text;
}

bool Form::isEnabled(const QString& control) const
{
    return m_states.value(control).enabled;
}

bool Form::isVisible(const QString& control) const
{
    return m_states.value(control).visible;
}

bool Form::isDirty(const QString& control) const
{
    const State state = m_states.value(control);
    return state.text != state.clean && fieldtext::toStored(state.text) != fieldtext::toStored(state.clean);
}

bool Form::isOn(const QString& control) const
{
    return text(control) == u"1";
}

QDate Form::date(const QString& control) const
{
    return QDate::fromString(text(control), Qt::ISODate);
}

QString Form::cleanText(const QString& control) const
{
    return m_states.value(control).clean;
}

bool Form::hasUnsaved() const
{
    return std::ranges::any_of(
        m_rows, [this](const FieldRow& row) { return row.save != SaveOn::Never && isDirty(row.control); });
}

void Form::setText(const QString& control, const QString& text)
{
    State& state = m_states[control];
    state.clean = text;
    if (state.text == text)
        return;
    state.text = text;
    emit controlChanged(control);
}

void Form::setOn(const QString& control, bool on)
{
    setText(control, on ? u"1"_s : u"0"_s);
}

void Form::setDate(const QString& control, QDate date)
{
    setText(control, date.toString(Qt::ISODate));
}

void Form::edit(const QString& control, const QString& text)
{
    m_states[control].text = text;
    const FieldRow* const chosen = row(control);
    if (!chosen || chosen->kind != FieldKind::Choice || !isOn(control))
        return;
    for (const FieldRow* other : rowsOf(chosen->column)) {
        if (other != chosen)
            amend(other->control, u"0"_s);
    }
}

void Form::amend(const QString& control, const QString& text)
{
    State& state = m_states[control];
    if (state.text == text)
        return;
    state.text = text;
    emit controlChanged(control);
}

void Form::amendDate(const QString& control, QDate date)
{
    amend(control, date.toString(Qt::ISODate));
}

void Form::revert(const QString& control)
{
    setText(control, cleanText(control));
}

void Form::revertAll()
{
    for (const FieldRow& row : m_rows) {
        if (row.save != SaveOn::Never && isDirty(row.control))
            revert(row.control);
    }
}

void Form::setEnabled(const QString& control, bool enabled)
{
    State& state = m_states[control];
    if (state.enabled == enabled)
        return;
    state.enabled = enabled;
    emit controlChanged(control);
}

void Form::setVisible(const QString& control, bool visible)
{
    State& state = m_states[control];
    if (state.visible == visible)
        return;
    state.visible = visible;
    emit controlChanged(control);
}

void Form::markClean(const QString& control)
{
    State& state = m_states[control];
    state.clean = state.text;
}

void Form::markColumnClean(const QString& column)
{
    for (const FieldRow* row : rowsOf(column))
        markClean(row->control);
}

std::vector<const FieldRow*> Form::rowsOf(const QString& column) const
{
    std::vector<const FieldRow*> rows;
    for (const FieldRow& row : m_rows) {
        if (row.column.compare(column, Qt::CaseInsensitive) == 0)
            rows.push_back(&row);
    }
    return rows;
}

void Form::showColumn(const QString& column, const QString& stored)
{
    const auto rows = rowsOf(column);
    qsizetype place = 0;
    for (const FieldRow* row : rows) {
        switch (row->kind) {
        case FieldKind::Text:
            setText(row->control, fieldtext::toShown(stored));
            break;
        case FieldKind::Tick:
            setOn(row->control, stored.mid(place, 1) == u"1");
            break;
        case FieldKind::Digit:
            setText(row->control, digits(stored, static_cast<int>(rows.size())).mid(place, 1));
            break;
        case FieldKind::Choice:
            setOn(row->control, stored.compare(row->value, Qt::CaseInsensitive) == 0);
            break;
        case FieldKind::Date:
            const auto moment = dates::parse(stored);
            setDate(row->control, moment ? moment->date : QDate());
            break;
        }
        ++place;
    }
}

QString Form::columnText(const QString& column) const
{
    QString stored;
    for (const FieldRow* row : rowsOf(column)) {
        switch (row->kind) {
        case FieldKind::Text:
            stored += fieldtext::toStored(text(row->control));
            break;
        case FieldKind::Tick:
            stored += isOn(row->control) ? u'1' : u'0';
            break;
        case FieldKind::Digit:
            stored += text(row->control);
            break;
        case FieldKind::Choice:
            if (isOn(row->control))
                stored = row->value;
            break;
        case FieldKind::Date:
            stored += date(row->control).isValid() ? dates::mdyyyy(date(row->control)) : QString();
            break;
        }
    }
    return stored;
}

QString Form::columnValue(const QString& column) const
{
    const auto rows = rowsOf(column);
    const bool isNumber = !rows.empty() && rows.front()->kind == FieldKind::Digit;
    return isNumber ? columnText(column) : QString(u'\'' + columnText(column) + u'\'');
}

void Form::setItems(const QString& control, const QStringList& items)
{
    State& state = m_states[control];
    if (state.items == items)
        return;
    state.items = items;
    emit itemsChanged(control);
}

QStringList Form::items(const QString& control) const
{
    return m_states.value(control).items;
}

void Form::clear()
{
    for (const FieldRow& row : m_rows)
        setText(row.control, emptyText(row.kind));
}
