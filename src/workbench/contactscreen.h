// The Contact screen: one person of the network.
#pragma once

#include "base/treemodel.h"
#include "store/gateway/recordset.h"
#include "workbench/recordscreen.h"

#include <QPersistentModelIndex>

#include <memory>
#include <optional>

struct ContactName;

/// Shows, saves, removes and reassigns a contact of the selected company or category, and keeps the contacts
/// and documents assigned to it.
class ContactScreen : public RecordScreen
{
    Q_OBJECT

public:
    /// @p companyForm is the Company screen's: a new contact begins with the address in it.
    ContactScreen(Shell& shell, const Form& companyForm);
    ~ContactScreen() override;

    /// Each has one root, below it a node for each contact or document: "A" or "D" and the key at the time of
    /// filling.
    [[nodiscard]] TreeModel& tvwOtherContact() { return m_others; }
    [[nodiscard]] TreeModel& tvwDocument() { return m_documents; }
    /// The names of cmbOtherContact: the contacts of all companies, or of the one picked with
    /// lblOtherContacts. Read when first asked for.
    [[nodiscard]] const QStringList& otherContactNames();
    [[nodiscard]] bool historyAvailable() const;

    void load(); ///< loadContactFrame, behind the shell's own refusals
    void clearContactForm();
    void loadContactList();
    void fillContactForm(const RecordSet& record);
    /// The selector has taken another company while this screen is open.
    void companyChosen();
    /// The toolbar's "new": an empty form, the focus on the first name.
    void newRecord();
    /// Shows a contact of the selected company by "First Last".
    void showContact(const QString& name);
    /// The same by its key; the company is that of the contact.
    void show(Key key);
    /// An entry of cmbContacts was chosen.
    void cmbContactsClick(const QString& chosen);
    /// The node of a tree that the next removal is about; an invalid index for none.
    void selectOther(const QModelIndex& index) { m_selectedOther = index; }
    void selectDocument(const QModelIndex& index) { m_selectedDocument = index; }

    void fieldChanged(const QString& control) override;

public slots:
    bool cmdUpdateContact1(); ///< true when all of it is stored
    void cmdRemoveContact1();
    void cmdReassign1();
    void cmdHistory1();
    void cmdAddress1();
    void cmdAddOther1();
    void cmdRemoveOther1();
    void lblOtherContacts();
    void cmdAddDocContact1();
    void cmdRemoveDocContact1();
    void tvwOtherContactDblClick(const QModelIndex& index);
    void tvwDocumentDblClick(const QModelIndex& index);

signals:
    /// What otherContactNames() answers is new.
    void otherContactsChanged();
    /// A contact and all that pointed to it have gone out of the store.
    void removed();

protected:
    Key rowOfFields() override { return keyShown(); }
    void fieldSaved(const QString& control) override;
    [[nodiscard]] QString recordName() const override;
    [[nodiscard]] bool showsStored() const override;
    [[nodiscard]] bool hasMoreToSave() const override;
    bool save() override { return cmdUpdateContact1(); }
    void afterLeaving() override;

private:
    [[nodiscard]] QString company() const;
    [[nodiscard]] QString contactShown() const;
    void listDocuments();
    [[nodiscard]] Key findContact(const QString& name, const QString& company) const;
    [[nodiscard]] Key keyShown() const;
    void showReached(const RecordSet& record);
    void labelRatings(bool rated);
    void showOthers(const QString& keyList);
    void showDocuments(const QString& keyList);
    void reselect(Key key);

    [[nodiscard]] bool mayBeSaved(const ContactName& name);
    [[nodiscard]] QString otherKeys() const;
    [[nodiscard]] QString documentKeys() const;
    [[nodiscard]] Key otherKey(const QModelIndex& node) const;
    [[nodiscard]] QString insertStatement(const ContactName& name, bool isNew, Key companyKey);
    void moveReferences(Key newKey, Key oldKey);
    void showAfterSave(const ContactName& name, bool complete);
    bool removeRecords(Key key);

    [[nodiscard]] bool writeStep(const QString& step);
    /// True when it is out of the store.
    bool cutFromList(const QString& column, const QString& written, Key cut);
    void saveIfAutomatic();

    const Form& m_companyForm;
    TreeModel m_others;
    TreeModel m_documents;
    QStringList m_storedOthers; ///< the names in the two trees as the store has them
    QStringList m_storedDocuments;
    QPersistentModelIndex m_selectedOther;
    QPersistentModelIndex m_selectedDocument;
    std::optional<QStringList> m_otherNames; ///< nothing: not read yet
    QString m_otherCompany;                  ///< whose contacts they are, empty for all
    Key m_addressKey = 0;                    ///< of the contact shown
    QString m_lastContact;                   ///< as stored, behind what txtDTPicker1 shows
};
