#include "views/common/formbinder.h"

#include "views/common/fieldwidgets.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

bool isNameOfClickable(const QString& name)
{
    return name.startsWith("cmd"_L1) || name.startsWith("img"_L1) || name.startsWith("lbl"_L1);
}

/// A box, a menu or another program in front of the window: the user has not left the field.
bool isOnlyCovered(const QFocusEvent& event)
{
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
           event.reason() == Qt::MenuBarFocusReason;
}

} // namespace

FormBinder::FormBinder(Form& form, QWidget& view, const QStringList& others)
    : QObject(&view)
    , m_form(form)
    , m_view(view)
{
    const auto labels = view.findChildren<QLabel*>();
    for (QLabel* label : labels)
        m_buddies.insert(label->buddy(), label);
    const auto widgets = view.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const QString name = widget->objectName();
        if (name.isEmpty() || others.contains(name))
            continue;
        m_widgets.insert(name, widget);
        const bool stated = form.row(name) || !form.isEnabled(name) || !form.isVisible(name);
        if (form.row(name))
            watch(*widget);
        if (!form.items(name).isEmpty())
            showItems(name);
        if (stated || !form.text(name).isEmpty())
            show(name);
    }
    connect(&form, &Form::controlChanged, this, &FormBinder::show);
    connect(&form, &Form::itemsChanged, this, &FormBinder::showItems);
    connect(&form, &Form::focusRequested, this, &FormBinder::focus);
}

void FormBinder::connectButtons(QObject& presenter)
{
    const QMetaObject& type = *presenter.metaObject();
    const auto buttons = m_view.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        const QString name = button->objectName();
        const int method = type.indexOfMethod(QString(name + u"()"_s).toLatin1().constData());
        if (!isNameOfClickable(name) || method < 0)
            continue;
        // A button's mnemonic clicks it without taking the focus, so the field is left here.
        connect(button, &QAbstractButton::clicked, this, [this, &presenter, method] {
            leaveField();
            presenter.metaObject()->method(method).invoke(&presenter, Qt::DirectConnection);
        });
    }
}

void FormBinder::watch(QWidget& widget)
{
    const auto edited = [this, &widget](const QString& text) { fieldEdited(widget, text); };
    if (fieldwidgets::onEdited(widget, *this, edited))
        widget.installEventFilter(this);
}

void FormBinder::fieldEdited(QWidget& widget, const QString& text)
{
    const QString control = widget.objectName();
    m_form.edit(control, text);
    if (m_changed)
        m_changed(control);
}

void FormBinder::leaveField()
{
    QWidget* widget = m_view.window()->focusWidget();
    if (!widget || m_widgets.value(widget->objectName()) != widget || !m_form.row(widget->objectName()))
        return;
    // What stands typed in a date or number field is taken as it would be at leaving it.
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(widget))
        spin->interpretText();
    if (m_left)
        m_left(widget->objectName());
    m_enteredText = m_form.text(widget->objectName());
}

void FormBinder::lock(const QString& control, const QString& reason)
{
    m_locked.insert(control, reason);
    show(control);
}

void FormBinder::show(const QString& control)
{
    QWidget* widget = m_widgets.value(control);
    if (!widget)
        return;
    if (m_form.row(control) || !m_form.text(control).isEmpty())
        fieldwidgets::write(*widget, m_form.text(control));
    widget->setEnabled(m_form.isEnabled(control) && !m_locked.contains(control));
    if (m_locked.contains(control))
        widget->setToolTip(m_locked.value(control));
    widget->setVisible(m_form.isVisible(control));
    if (QLabel* label = m_buddies.value(widget))
        label->setEnabled(widget->isEnabled());
}

void FormBinder::showItems(const QString& control)
{
    auto* box = qobject_cast<QComboBox*>(m_widgets.value(control));
    if (!box)
        return;
    // Filling a box is not a choice of the user's.
    const QSignalBlocker quiet(box);
    box->clear();
    box->addItems(m_form.items(control));
    fieldwidgets::write(*box, m_form.text(control));
}

void FormBinder::focus(const QString& control)
{
    QWidget* widget = m_widgets.value(control);
    if (!widget)
        return;
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        line->selectAll();
}

bool FormBinder::giveBack(QWidget& widget)
{
    const QString control = widget.objectName();
    // A page of typing is worth more than a way back: a box of several lines keeps its text, and the key goes
    // no further, as it would close a dialog over it.
    if (qobject_cast<QPlainTextEdit*>(&widget))
        return m_form.text(control) != m_enteredText || m_form.isDirty(control);
    // Taking back one option would leave its group with none.
    if (m_entered != &widget || m_form.text(control) == m_enteredText || qobject_cast<QRadioButton*>(&widget))
        return false;
    fieldwidgets::writeUndoably(widget, m_enteredText);
    fieldEdited(widget, m_enteredText);
    return true;
}

bool FormBinder::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            return giveBack(*widget);
        if (m_keyDown)
            m_keyDown(widget->objectName());
        break;
    case QEvent::FocusIn:
        if (!isOnlyCovered(*static_cast<QFocusEvent*>(event))) {
            m_entered = widget;
            m_enteredText = m_form.text(widget->objectName());
        }
        break;
    case QEvent::FocusOut:
        if (m_left && !isOnlyCovered(*static_cast<QFocusEvent*>(event)))
            m_left(widget->objectName());
        break;
    default:
        break;
    }
    return false;
}
