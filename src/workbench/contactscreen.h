// The Contact screen: one person of the network.
#pragma once

#include "base/form.h"
#include "base/treemodel.h"
#include "store/gateway/recordset.h"

#include <QObject>
#include <QPersistentModelIndex>

#include <memory>
#include <optional>
#include <vector>

class DataJW;
class Shell;
struct ContactName;

/// Shows, saves, removes and reassigns a contact of the selected company or category, and keeps the contacts
/// and documents assigned to it.
class ContactScreen : public QObject
{
    Q_OBJECT

public:
    /// @p companyForm is the Company screen's: a new contact begins with the address in it.
    ContactScreen(Shell& shell, const Form& companyForm);
    ~ContactScreen() override;

    [[nodiscard]] Form& form() { return m_form; }
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
    /// An entry of cmbContacts was chosen.
    void cmbContactsClick(const QString& name);
    /// The node of a tree that the next removal is about; an invalid index for none.
    void selectOther(const QModelIndex& index) { m_selectedOther = index; }
    void selectDocument(const QModelIndex& index) { m_selectedDocument = index; }

    // --- Events of the fields, called by the binder -------------------------------------------------------
    void fieldKeyDown(const QString& control);
    void fieldChanged(const QString& control);
    void fieldLeft(const QString& control);
    /// Before the form takes another record: false when the user stays with what is not in the store yet.
    bool mayLeave();

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
    void changed();
    /// What otherContactNames() answers is new.
    void otherContactsChanged();
    /// A contact and all that pointed to it have gone out of the store.
    void removed();

private:
    [[nodiscard]] DataJW& dataJW() const;
    [[nodiscard]] QString company() const;
    [[nodiscard]] QString contactShown() const;
    [[nodiscard]] Key findContact(const QString& name, const QString& company) const;
    [[nodiscard]] Key keyShown() const;
    void show(Key key);
    void showReached(const RecordSet& record);
    void showRatings(int level);
    void labelRatings(bool rated);
    void showOthers(const QString& keyList);
    void showDocuments(const QString& keyList);
    bool update(const QString& column, const QString& value);
    void saveFlags(const QString& control);
    void saveRatings();
    void reselect(Key key);
    [[nodiscard]] QString recordName() const;
    [[nodiscard]] bool hasMoreToSave() const;

    [[nodiscard]] bool mayBeSaved(const ContactName& name);
    [[nodiscard]] QString flags(int from, int to) const;
    [[nodiscard]] QString level() const;
    [[nodiscard]] QString otherKeys() const;
    [[nodiscard]] QString documentKeys() const;
    [[nodiscard]] Key otherKey(const QModelIndex& node) const;
    bool giveAddress(bool isNew, Key& addressKey);
    [[nodiscard]] QString values(const ContactName& name, Key addressKey, Key companyKey) const;
    void moveReferences(Key newKey, const std::vector<Key>& oldKeys);
    void showAfterSave(Key newKey, const ContactName& name);
    bool removeRecords(Key key);

    [[nodiscard]] bool writeStep(const QString& step);
    /// True when it is out of the store.
    bool cutFromList(const QString& column, const QString& written, Key cut);
    void saveIfAutomatic();

    Shell& m_shell;
    const Form& m_companyForm;
    Form m_form;
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
    bool m_cutShort = false;                 ///< the last save left a part of what is shown out of the store
};
