// A screen's form: a table of controls with their columns, and the values they hold.
#pragma once

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

/// One row of a form: the control's name, the column it shows, and when it is saved.
struct FieldRow
{
    QString control;
    QString column; ///< empty when the control shows no single column
    SaveOn save = SaveOn::Never;
};

/// The state of a screen's controls by name, without a widget: text, enabled, visible, and what the user
/// changed. A view is tied to it by object names (FormBinder); a test sets and reads it directly.
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

    /// The program fills a control: not a change by the user.
    void setText(const QString& control, const QString& text);
    /// The user typed: the value is kept and the control counts as changed.
    void edit(const QString& control, const QString& text);
    /// The program changes a text on the user's behalf (a card's field, blanks taken away): the view shows it
    /// again, and it is the user's change all the same.
    void amend(const QString& control, const QString& text);
    /// Takes the user's change of a control back.
    void revert(const QString& control);
    void setEnabled(const QString& control, bool enabled);
    void setVisible(const QString& control, bool visible);
    void markClean(const QString& control);
    /// The entries of a combo box or a plain list, in order.
    void setItems(const QString& control, const QStringList& items);
    [[nodiscard]] QStringList items(const QString& control) const;
    /// Empties every control of the table.
    void clear();
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

    std::vector<FieldRow> m_rows;
    QHash<QString, State> m_states;
};
