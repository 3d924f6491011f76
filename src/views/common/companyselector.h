// The box that chooses the company all five screens speak about.
#pragma once

#include <QComboBox>
#include <QStringListModel>

class QCompleter;

/// An editable list of companies that finds what is typed anywhere in a name. Enter takes the best match; a
/// text that names no company is told in words and gives way to the chosen one when the box is left.
class CompanySelector : public QComboBox
{
    Q_OBJECT

public:
    explicit CompanySelector(QWidget* parent = nullptr);

    /// The names to choose from; quick for many thousands.
    void setCompanies(const QStringList& names);
    [[nodiscard]] QStringList companies() const { return m_names.stringList(); }
    /// Shows the chosen company without choosing it anew.
    void showChosen(const QString& name);
    /// The name that Enter takes for a typed text: the same text, else one that begins with it, else one with
    /// a word that begins with it, else one that holds it anywhere; empty when there is none. Case does not
    /// matter.
    [[nodiscard]] QString bestMatch(const QString& typed) const;
    /// Takes what is typed as leaving the box does.
    void settle();

signals:
    /// The user has chosen an entry.
    void chosen(const QString& name);
    /// Enter was pressed on a text that no name holds.
    void nothingFound(const QString& typed);
    /// The text is being changed, so an earlier nothingFound() is past.
    void typing();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// The box is left with a text that names none: the chosen one comes back.
    virtual void leaveUnknown(const QString& /*typed*/) { showChosen(m_chosen); }

private:
    void take(const QString& name);
    void takeTyped();

    QStringListModel m_names;
    QCompleter* m_completer;
    QString m_chosen;
};
