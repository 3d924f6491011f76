// The Company screen: one company with its address, its people and positions, and the summary.
#pragma once

#include "base/treemodel.h"
#include "store/gateway/recordset.h"
#include "workbench/companyfigures.h"
#include "workbench/recordscreen.h"

/// Shows, saves and removes a company; lists its contacts and positions; opens its web pages and its street
/// map.
class CompanyScreen : public RecordScreen
{
    Q_OBJECT

public:
    explicit CompanyScreen(Shell& shell);
    ~CompanyScreen() override;

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
    /// Positions or contacts were added elsewhere: the figures of the company shown are read again.
    void countsChanged();
    void adjustProfile();
    /// Switches the company-only fields off for a category and on for everything else.
    void showAsCategory(bool category);

public slots:
    bool cmdUpdate1(); ///< true when all of it is stored
    void cmdRemove1();
    void imgContact();
    void imgPosition();
    void lblURL1();
    void lblURL2();
    void lblLocation(); ///< street map
    void imgTgt();      ///< the target list
    /// Fills the address from a business card; a company that is in the database is saved with it at once.
    void cmdFastParser();
    void tvwPosContactDblClick(const QModelIndex& index);

protected:
    Key rowOfFields() override;
    [[nodiscard]] QString recordName() const override;
    [[nodiscard]] bool showsStored() const override;
    [[nodiscard]] bool mayBeOffered() const override;
    bool save() override { return cmdUpdate1(); }

private:
    void showNew();
    bool showSaved(const QString& name);
    void showFigures(const CompanyFigures& figures, const RecordSet& company);
    void fillTree(const QString& kind);
    [[nodiscard]] bool mayBeSaved(const QString& title);
    [[nodiscard]] Key keyToReplace(const QString& title);
    [[nodiscard]] bool replacementAgreed(Key oldKey, const QString& title);
    [[nodiscard]] QString insertStatement(Key oldKey);
    [[nodiscard]] QString entryDate(Key oldKey);
    void moveReferences(const QString& name, Key newKey, Key oldKey);
    void showAfterSave(const QString& name, bool complete);
    bool removeRecords(const QString& name);

    TreeModel m_tree;
    double m_pointerPlace = 0;
    bool m_pointerLit = false;
    int m_daysSinceContact = -1;
};
