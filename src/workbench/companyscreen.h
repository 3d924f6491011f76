// The Company screen: one company with its address, its people and positions, and the summary.
#pragma once

#include "base/form.h"
#include "base/treemodel.h"
#include "store/gateway/recordset.h"
#include "store/session.h"
#include "workbench/companyfigures.h"

#include <QObject>

class Shell;

/// Shows, saves and removes a company; lists its contacts and positions; opens its web pages and its street
/// map.
class CompanyScreen : public QObject
{
    Q_OBJECT

public:
    explicit CompanyScreen(Shell& shell);
    ~CompanyScreen() override;

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] TreeModel& tvwPosContact() { return m_tree; }
    /// Place of the profile pointer shpPtr on its scale, 0 (left end) to 1 and above, and whether it is lit
    /// (red).
    [[nodiscard]] double pointerPlace() const { return m_pointerPlace; }
    [[nodiscard]] bool pointerLit() const { return m_pointerLit; }
    /// Days since the last contact, -1 for none: for the figure above the summary.
    [[nodiscard]] int daysSinceContact() const { return m_daysSinceContact; }

    void load(); ///< loadCompanyFrame
    void loadCompanySelection(const QString& name);
    void fillForm(const RecordSet& record);
    void clearCompanyForm();
    void adjustProfile();
    /// Switches the company-only fields off for a category and on for everything else.
    void showAsCategory(bool category);

    // --- Events of the fields, called by the binder -------------------------------------------------------
    void fieldKeyDown(const QString& control);
    void fieldChanged(const QString& control);
    void fieldLeft(const QString& control);
    /// Before the form takes another record: false when the user stays with what is not in the store yet.
    bool mayLeave();

public slots:
    bool cmdUpdate1(); ///< true when all of it is stored
    void cmdRemove1();
    void cmdProfile1(); ///< the questionnaire about the company
    void imgContact();
    void imgPosition();
    void lblURL1();
    void lblURL2();
    void lblLocation(); ///< street map
    void imgTgt();      ///< the target list
    /// Fills the address from a business card; a company that is in the database is saved with it at once.
    void cmdFastParser();
    void tvwPosContactDblClick(const QModelIndex& index);

signals:
    void changed();

private:
    void showNew();
    bool showSaved(const QString& name);
    void showFigures(const CompanyFigures& figures, const RecordSet& company);
    void fillTree(const QString& kind);
    [[nodiscard]] bool mayBeSaved(const QString& title);
    [[nodiscard]] Key keyToReplace(const QString& title);
    [[nodiscard]] bool replacementAgreed(Key oldKey, const QString& title);
    bool insertRecord(Key oldKey, const QString& title);
    [[nodiscard]] QString entryDate(Key oldKey);
    Key takeOver(Key oldKey, const QString& title);
    void showAfterSave(Key newKey, const QString& name, bool complete);
    [[nodiscard]] QString recordName() const;
    bool removeRecords(const QString& name);

    Shell& m_shell;
    Form m_form;
    TreeModel m_tree;
    double m_pointerPlace = 0;
    bool m_pointerLit = false;
    int m_daysSinceContact = -1;
    bool m_cutShort = false; ///< the last save left a part of what is shown out of the store
};
