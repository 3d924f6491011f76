#include "base/form.h"

#include "base/fieldtext.h"

#include <algorithm>

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

void Form::setText(const QString& control, const QString& text)
{
    State& state = m_states[control];
    state.clean = text;
    if (state.text == text)
        return;
    state.text = text;
    emit controlChanged(control);
}

void Form::edit(const QString& control, const QString& text)
{
    m_states[control].text = text;
}

void Form::amend(const QString& control, const QString& text)
{
    State& state = m_states[control];
    if (state.text == text)
        return;
    state.text = text;
    emit controlChanged(control);
}

void Form::revert(const QString& control)
{
    setText(control, QString(m_states.value(control).clean));
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
        setText(row.control, QString());
}
