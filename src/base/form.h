// A screen's form: a table of controls with their columns, and the values they hold.
#pragma once

#include <QDate>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

/// When a field's value goes to the store.
enum class SaveOn {
    Never,  ///< shown only
    Record, ///< with the whole record, by the screen's save button
    Leave,  ///< by itself, when the user leaves the field
    Change, ///< by itself, at each change (check boxes, options, sliders)
};

/// What a control holds, and how its column stores it. Several ticks, digits or choices may share a column.
enum class FieldKind {
    Text,
    Tick,   ///< on or off; its place in the column's text holds "1" or "0"
    Digit,  ///< 0 to 9; its place in the column's number
    Choice, ///< on or off; the column holds the row's value while it is on
    Date,   ///< a day; the column holds it as m/d/yyyy
};

/// One row of a form: the control's name, the column it shows, when it is saved, and what it holds.
struct FieldRow
{
    QString control;
    QString column; ///< empty when the control shows no single column
    SaveOn save = SaveOn::Never;
    FieldKind kind = FieldKind::Text;
    QString value = {}; ///< of a choice
};

/// The state of a screen's controls by name, without a widget: text, enabled, visible, and what the user
/// changed. A view is tied to it by object names (FormBinder); a test sets and reads it directly. As a text a
/// tick or choice is "1" or "0" and a date is an ISO date, which only views and tests need to know.
class Form : public QObject
{
    Q_OBJECT

public:
    explicit Form(std::vector<FieldRow> rows, QObject* parent = nullptr);

    [[nodiscard]] const std::vector<FieldRow>& rows() const { return m_rows; }
    /// The row of a control; null when the form has none of that name.
    [[nodiscard]] const FieldRow* row(const QString& control) const;

    [[nodiscard]] QString text(const QString& control) const;
    [[nodiscard]] bool isEnabled(const QString& control) const;
    [[nodiscard]] bool isVisible(const QString& control) const;
    /// True while the control holds another text, by the user, than at the last setText() or markClean(): one
    /// that would be stored differently.
    [[nodiscard]] bool isDirty(const QString& control) const;

    /// True for a tick or choice that is on.
    [[nodiscard]] bool isOn(const QString& control) const;
    [[nodiscard]] QDate date(const QString& control) const; ///< invalid when the control holds none
    /// The text at the last setText() or markClean().
    [[nodiscard]] QString cleanText(const QString& control) const;
    /// True while a control that is saved at all is dirty.
    [[nodiscard]] bool hasUnsaved() const;

    /// The program fills a control: not a change by the user.
    void setText(const QString& control, const QString& text);
    void setOn(const QString& control, bool on);
    void setDate(const QString& control, QDate date);
    /// The user typed: the value is kept and the control counts as changed. A choice that is switched on
    /// switches the others of its column off.
    void edit(const QString& control, const QString& text);
    /// The program changes a text on the user's behalf (a card's field, blanks taken away): the view shows it
    /// again, and it is the user's change all the same.
    void amend(const QString& control, const QString& text);
    void amendDate(const QString& control, QDate date);
    /// Takes the user's change of a control back.
    void revert(const QString& control);
    /// The same for every control that is saved.
    void revertAll();
    void setEnabled(const QString& control, bool enabled);
    void setVisible(const QString& control, bool visible);
    void markClean(const QString& control);
    void markColumnClean(const QString& column); ///< every control of the column

    [[nodiscard]] bool hasColumn(const QString& column) const { return !rowsOf(column).empty(); }
    /// Shows a stored value in all controls of its column.
    void showColumn(const QString& column, const QString& stored);
    /// What the controls of a column hold together, as the store takes it.
    [[nodiscard]] QString columnText(const QString& column) const;
    /// The same as it stands in a statement: in quotes, but for a number.
    [[nodiscard]] QString columnValue(const QString& column) const;

    /// The entries of a combo box or a plain list, in order.
    void setItems(const QString& control, const QStringList& items);
    [[nodiscard]] QStringList items(const QString& control) const;
    /// Empties every control of the table; ticks and choices are off, digits 0.
    virtual void clear();
    /// Asks the view to put the keyboard focus on a control.
    void requestFocus(const QString& control) { emit focusRequested(control); }

signals:
    /// Text, enabled or visible state of a control is new; the view shows it again.
    void controlChanged(const QString& control);
    void itemsChanged(const QString& control);
    void focusRequested(const QString& control);

private:
    struct State
    {
        QString text;
        QString clean; ///< what the control held when it was last filled or saved
        bool enabled = true;
        bool visible = true;
        QStringList items;
    };

    [[nodiscard]] std::vector<const FieldRow*> rowsOf(const QString& column) const;

    std::vector<FieldRow> m_rows;
    QHash<QString, State> m_states;
};
