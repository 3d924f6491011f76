// The Position screen: one open position with the people assigned to it.
#pragma once

#include "base/treemodel.h"
#include "store/gateway/recordset.h"
#include "workbench/positionform.h"
#include "workbench/recordscreen.h"

#include <QDate>
#include <QPersistentModelIndex>

#include <optional>

/// Shows, saves and removes a position of the selected company; assigns contacts; places the pointer of the
/// ranks. The shell's currentPositionKey is that of the position shown, 0 while there is none: an empty form
/// can never be saved over a position that is no longer to be seen.
class PositionScreen : public RecordScreen, public PositionForm
{
    Q_OBJECT

public:
    explicit PositionScreen(Shell& shell);
    ~PositionScreen() override;

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
    /// dtpExpires is ticked; it holds the day dates::sentinel while it is not.
    [[nodiscard]] bool hasExpiry() const;

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
    void cmbPosSelectionClick(const QString& chosen);
    void fieldChanged(const QString& control) override;
    void fieldLeft(const QString& control) override;
    bool mayLeave() override;
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
    /// A position was saved or removed here.
    void stored();

protected:
    Key rowOfFields() override;
    [[nodiscard]] QString recordName() const override;
    /// True when the form shows a position of the store and not a new or a renamed one.
    [[nodiscard]] bool showsStored() const override;
    [[nodiscard]] bool hasMoreToSave() const override;
    bool save() override { return cmdUpdatePos1(); }

private:
    /// What a row held beside the form. It is kept when the row is no longer in the store, as its replacement
    /// failed behind its delete.
    struct RowFacts
    {
        QString entryDate;
        QString stepValues;
        QString offerStatus;
    };

    void showExpires(QDate date);
    void expiryShown(QDate date);
    void expiresEdited(QDate date);
    void checkExpiry(QDate expires);
    [[nodiscard]] double place(bool position, Key key, double before);

    void fillContacts(const QString& keyList);
    void clearContacts();
    void listAssignable();
    [[nodiscard]] Key contactAt(const QModelIndex& node);
    [[nodiscard]] QString contactList();
    void writeInfoContact();
    void saveWhenAuto();

    [[nodiscard]] bool mayBeSaved();
    void tellUnreadable();
    void forgetFailedSave();
    [[nodiscard]] bool titleIsTaken();
    [[nodiscard]] QString insertStatement(const RowFacts& facts);
    [[nodiscard]] QString expiryText() const;
    [[nodiscard]] Key findSaved();
    void moveReferences(Key newKey, Key oldKey);
    void showSaved(bool complete);
    [[nodiscard]] QString companyName();

    TreeModel m_contacts;
    QStringList m_storedContacts; ///< the names in tvwContacts as the position was read
    QPersistentModelIndex m_selectedContact;
    std::optional<RowFacts> m_lost;
    int m_progress = 0;
    double m_companyPlace = 0;
    double m_positionPlace = 0;
};
