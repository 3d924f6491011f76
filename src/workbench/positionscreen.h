// The Position screen: one open position with the people assigned to it.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/treemodel.h"
#include "store/gateway/recordset.h"
#include "workbench/positionform.h"

#include <QDate>
#include <QObject>
#include <QPersistentModelIndex>

#include <optional>

class Shell;

/// Shows, saves and removes a position of the selected company; assigns contacts; places the pointer of the
/// ranks. The shell's currentPositionKey is that of the position shown, 0 while there is none: an empty form
/// can never be saved over a position that is no longer to be seen.
class PositionScreen : public QObject, public PositionForm
{
    Q_OBJECT

public:
    explicit PositionScreen(Shell& shell);
    ~PositionScreen() override;

    /// The controls; dtpExpires holds an ISO date, that of dates::sentinel while the picker is unticked.
    [[nodiscard]] Form& form() { return m_form; }
    /// The people assigned: a root with a node "A" and the contact's key for each.
    [[nodiscard]] TreeModel& tvwContacts() { return m_contacts; }
    /// Length of the bar shpProgress: the furthest step done, 0 (none) to 11.
    [[nodiscard]] int progress() const { return m_progress; }
    /// What to do next for this position; empty when nothing is left.
    [[nodiscard]] QString nextStep() const;
    /// Place of the pointer shpJPtr: the share of its questionnaire that the company (to the right) and the
    /// position (upward) reach, from 0 to 1 and above.
    [[nodiscard]] double companyPlace() const { return m_companyPlace; }
    [[nodiscard]] double positionPlace() const { return m_positionPlace; }
    [[nodiscard]] bool hasExpiry() const; ///< dtpExpires is ticked

    void load(); ///< loadPositionFrame, behind the shell's own refusals
    void clearPositionForm() override;
    void loadPositionList();
    /// The selector has taken another company while this screen is open.
    void companyChosen();
    /// The toolbar's "new": an empty form, the focus on the title.
    void newRecord();
    /// Shows a position of the selected company by its title.
    void showPosition(const QString& title);
    void fillPosForm(const RecordSet& record) override;
    bool upPosx(const QString& stepValues, const QString& offerStatus) override;
    void computeJptr();
    /// Another screen has written steps of positions: the progress shown is read again, what is typed stays.
    void stepsChanged();
    /// Trims txtPosTitle: the shell asks for it at every change of any screen's field.
    void trimTitle();

    // --- Events, called by the view -----------------------------------------------------------------------
    void cmbPosSelectionClick(const QString& text);
    void fieldKeyDown(const QString& control);
    void fieldChanged(const QString& control);
    void fieldLeft(const QString& control);
    /// Before the form takes another record: false when the user stays with what is not in the store yet.
    bool mayLeave();
    void tickExpires(bool ticked);                ///< the picker's own tick
    void selectContact(const QModelIndex& index); ///< the node selected in tvwContacts; invalid for none
    void tvwContactsDblClick(const QModelIndex& index);

public slots:
    bool cmdUpdatePos1(); ///< true when all of it is stored
    void cmdRemovePos1();
    void cmdAssign1();
    void cmdRemoveContactAssign1();
    void cmdJProfile1();

signals:
    void changed();
    /// A position was saved or removed here.
    void stored();

private:
    /// What a row held that is no longer in the store: its replacement failed behind its delete.
    struct LostRow
    {
        Key key = 0;
        QString entryDate;
        QString stepValues;
        QString offerStatus;
    };
    /// What a save has to know before it deletes anything.
    struct Replacement
    {
        Key oldKey = 0; ///< 0: nothing is replaced
        QString entryDate;
        QString insert; ///< the statement that adds the new row
    };

    [[nodiscard]] Key savedKey();
    /// True when the form shows a position of the store and not a new or a renamed one.
    [[nodiscard]] bool showsStored() const;
    bool writeColumn(const QString& column, const QString& value);
    [[nodiscard]] QString recordName() const;
    [[nodiscard]] bool hasMoreToSave() const;
    void showExpires(QDate date);
    void expiryShown(QDate date);
    void expiresEdited(QDate date);
    void checkExpiry(QDate expires);
    [[nodiscard]] double place(bool position, Key key, double before);

    void fillContacts(const QString& keyList);
    void clearContacts();
    void listAssignable();
    [[nodiscard]] QString contactList();
    void writeInfoContact();
    void saveWhenAuto();

    [[nodiscard]] bool mayBeSaved();
    void tellUnreadable();
    void forgetFailedSave();
    [[nodiscard]] bool titleIsTaken();
    [[nodiscard]] std::optional<Replacement> prepare(const QString& stepValues, const QString& offerStatus);
    [[nodiscard]] QString values(const QString& entryDate, const QString& stepValues,
                                 const QString& offerStatus);
    [[nodiscard]] QString expiryText() const;
    Key replaceRow(const Replacement& record);
    void showSaved(Key newKey);
    [[nodiscard]] QString companyName();

    Shell& m_shell;
    Form m_form;
    TreeModel m_contacts;
    QStringList m_storedContacts; ///< the names in tvwContacts as the position was read
    QPersistentModelIndex m_selectedContact;
    std::optional<LostRow> m_lost;
    Key m_twin = 0; ///< the row that a save added beside the one it could not delete
    int m_progress = 0;
    double m_companyPlace = 0;
    double m_positionPlace = 0;
};
