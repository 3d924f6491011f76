// The tie between a screen's form and its widgets.
#pragma once

#include "base/form.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <functional>

class QLabel;

/// Ties a Form and its presenter to a view by object names, so that a new field is one row in the presenter's
/// table and one widget in the .ui file.
///
/// - Text, enabled and visible state go both ways for line edits, plain text edits, combo boxes, check boxes
///   and radio buttons ("1" or "0"), sliders (the number), date edits (ISO date) and labels. Lines end in LF
///   on both sides; other line ends are taken as such.
/// - A key in a field, a change by the user and leaving the field reach the presenter's fieldKeyDown,
///   fieldChanged and fieldLeft where it has them. A box, a menu or another window over the field is not
///   leaving it.
/// - A click on a button named cmd..., img... or lbl... calls the presenter's slot of that very name.
/// - Esc in a field of one line gives back what it held when it was entered, and Ctrl+Z takes that back. In a
///   box of several lines Esc does nothing to the text, and goes on to the window only while nothing typed
///   waits there.
class FormBinder : public QObject
{
    Q_OBJECT

public:
    /// The names in @p others are left to the view itself. All four must outlive the binder.
    template<typename Presenter>
    FormBinder(Form& form, Presenter& presenter, QWidget& view, const QStringList& others = {})
        : FormBinder(form, view, others)
    {
        if constexpr (requires { presenter.fieldKeyDown(QString()); })
            m_keyDown = [&presenter](const QString& control) { presenter.fieldKeyDown(control); };
        if constexpr (requires { presenter.fieldChanged(QString()); })
            m_changed = [&presenter](const QString& control) { presenter.fieldChanged(control); };
        if constexpr (requires { presenter.fieldLeft(QString()); })
            m_left = [&presenter](const QString& control) { presenter.fieldLeft(control); };
        connectButtons(presenter);
    }

    /// Tells the presenter that the field being edited is left, though it keeps the focus: a shortcut, a menu
    /// entry or the window's end is about to act on what the user sees.
    void leaveField();
    /// Keeps a control disabled whatever the form says, and tells in its tool tip why.
    void lock(const QString& control, const QString& reason);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using FieldEvent = std::function<void(const QString&)>;

    FormBinder(Form& form, QWidget& view, const QStringList& others);
    void connectButtons(QObject& presenter);
    void watch(QWidget& widget);
    void fieldEdited(QWidget& widget, const QString& text);
    void show(const QString& control);
    void showItems(const QString& control);
    void focus(const QString& control);
    bool giveBack(QWidget& widget);

    Form& m_form;
    QWidget& m_view;
    QHash<QString, QWidget*> m_widgets;
    QHash<QWidget*, QLabel*> m_buddies; ///< the label of a field, dimmed with it
    QHash<QString, QString> m_locked;
    QPointer<QWidget> m_entered; ///< the field that has the focus
    QString m_enteredText;       ///< what it held then
    FieldEvent m_keyDown;
    FieldEvent m_changed;
    FieldEvent m_left;
};
