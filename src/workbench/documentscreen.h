// The Document screen: the repository of files given to contacts.
#pragma once

#include "base/treemodel.h"
#include "store/gateway/records.h"
#include "workbench/recordscreen.h"

#include <QSet>

#include <optional>
#include <vector>

/// Lists the documents by type, keeps what is known of each, and opens them in their viewers. It knows the
/// files by their paths only: no operation writes, moves or deletes one.
class DocumentScreen : public RecordScreen
{
    Q_OBJECT

public:
    explicit DocumentScreen(Shell& shell);
    ~DocumentScreen() override;

    /// Root "Documents", key "A0"; below it a node for each document, keys "A1", "A2" and on, kind its type's
    /// word.
    [[nodiscard]] TreeModel& tvwDocs() { return m_tree; }
    /// A root and below it the people whom the selected document was sent to.
    [[nodiscard]] TreeModel& lstContactsSent() { return m_contacts; }
    /// The selected document; null when there is none. Valid until the list changes.
    [[nodiscard]] const Dox* selectedDocument() const;
    /// Its node; invalid when there is none.
    [[nodiscard]] QModelIndex selectedNode() const;
    /// The name under which the program itself would file the document of the screen: its type's tag, its
    /// date, ".jwd".
    [[nodiscard]] QString defaultName() const;

    void load(); ///< loadDocumentFrame, behind the shell's own refusals
    /// Clears tvwDocs and adds its root "Documents" with the key "A0"; part of the start.
    void resetTree();
    /// Shows the document of this name; none when the list has no such document.
    void showDocument(const QString& name);
    void clearDocumentForm();
    /// Files dropped on the list: one is as good as chosen in the dialog.
    void filesDropped(const QStringList& paths);
    /// Writes the whole list: all rows go, all documents are inserted, and the contacts' lists follow to the
    /// new keys. False when the store is as it was before, which has been said then.
    bool updateDocumentList();

    void fieldChanged(const QString& control) override;

public slots:
    void cmdLoadDocument();
    bool cmdAddDoc1();    ///< true when the document is stored
    bool cmdUpdateDoc1(); ///< updates the selected document; true when all of it is stored
    void cmdRemoveDoc1();
    void cmdViewDoc1();
    void tvwDocsClick(const QModelIndex& index);
    void lstContactsSentDblClick(const QModelIndex& index);

protected:
    Key rowOfFields() override;
    void fieldSaved(const QString& control) override;
    [[nodiscard]] QString recordName() const override;
    [[nodiscard]] bool showsStored() const override { return selectedDocument() != nullptr; }
    bool save() override { return showsStored() ? cmdUpdateDoc1() : cmdAddDoc1(); }

private:
    void fillTree();
    void select(int row);
    void showDox(const Dox& dox);
    void fillContactsSent(const QString& name);
    void chooseFile();
    void takeFile(const QString& path);
    [[nodiscard]] int rowOf(const QString& name) const;
    [[nodiscard]] Dox fromControls(Dox dox) const;
    [[nodiscard]] bool mayBeRewritten();
    [[nodiscard]] std::optional<QSet<Key>> keysAtContacts();
    [[nodiscard]] std::vector<Key> oldKeys(const Dox& dox);
    void moveReferences(Dox& dox, const std::vector<Key>& oldKeys, const QSet<Key>& held);
    void openWith(const QString& viewerRow, const QString& path);

    TreeModel m_tree;
    TreeModel m_contacts;
    std::vector<Dox> m_documents; ///< in the order of the tree; texts as the store holds them
    bool m_complete = false;      ///< m_documents is all that the table holds
    int m_selected = -1;          ///< place in m_documents
    std::vector<Key> m_sentTo;    ///< in the order of lstContactsSent
};
