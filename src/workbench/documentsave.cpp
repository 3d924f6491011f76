// Adding, updating and removing documents: each writes the whole table anew.
#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/documentscreen.h"
#include "workbench/documenttypes.h"
#include "workbench/shell.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Characters that a document's texts may have together. The store takes statements of a million characters;
/// one that it refused in the middle of the writing would leave the document without its row.
constexpr qsizetype longestRecord = 900'000;

qsizetype lengthOf(const Dox& dox)
{
    return dox.docName.size() + dox.docPath.size() + dox.version.size() + dox.Target.size() +
           dox.docNotes.size() + dox.style.size() + dox.docType.size();
}

/// The Insert of one document, its values in the order of the columns behind the key, which the store gives.
QString insertStatement(const QStringList& columns, const Dox& dox)
{
    // A document without a date keeps none.
    const QString date = dox.dateEntry.isValid() ? dates::mdyyyy(dox.dateEntry) : QString();
    const QStringList values{dox.docName, dox.version, dox.Target,   QString::number(dox.sentCount),
                             date,        dox.style,   dox.docNotes, dox.docPath,
                             dox.docType};
    return recordcolumns::insert(u"Document"_s, columns, [&](const QString& column) {
        return fieldtext::quoted(values.value(columns.indexOf(column)));
    });
}

} // namespace

// --- The buttons ------------------------------------------------------------------------------------------

QString DocumentScreen::defaultName() const
{
    const DocumentType* type = findDocumentType(m_shell.selection().selectedDocType);
    const QDate date = m_form.date(u"dtpEntry"_s);
    return (type ? type->tag : documentTypes.front().tag).toString() + date.toString(u"yyyyMMdd"_s) + u".jwd";
}

bool DocumentScreen::cmdAddDoc1()
{
    Session& session = m_shell.session();
    QString& type = m_shell.selection().selectedDocType;
    session.trace(u"Add Document to List"_s);
    if (!findDocumentType(type))
        type = documentTypes.front().word.toString();
    // The document goes by its file's name; this one only tells in the log what was added when.
    session.trace(defaultName());
    if (m_form.text(u"txtFileName"_s).isEmpty()) {
        m_shell.showMessage(tr("Please select a file to add to the global document list."));
        // What is typed by now is about the file that is missing, and stays.
        chooseFile();
        if (m_form.text(u"txtFileName"_s).isEmpty())
            return false;
    }
    if (rowOf(fieldtext::toStored(m_form.text(u"txtFileName"_s))) >= 0) {
        m_shell.showMessage(tr("Document already in list."));
        return false;
    }
    const std::vector<Dox> before = m_documents;
    // The type is the option clicked last, though a newly chosen file has cleared the options.
    Dox added = fromControls({});
    added.docType = findDocumentType(type)->value.toString();
    m_documents.push_back(added);
    if (!updateDocumentList()) {
        m_documents = before;
        return false;
    }
    fillTree();
    select(static_cast<int>(m_documents.size()) - 1);
    return true;
}

bool DocumentScreen::cmdUpdateDoc1()
{
    if (!selectedDocument()) {
        m_shell.showMessage(tr("Existing document not selected.  No update."));
        return false;
    }
    const std::vector<Dox> before = m_documents;
    const int row = m_selected;
    Dox& dox = m_documents[static_cast<size_t>(row)];
    dox = fromControls(dox);
    if (!updateDocumentList()) {
        // What was typed stays in the form for another try.
        m_documents = before;
        return false;
    }
    fillTree();
    select(row);
    m_shell.setSimpleText(selectedDocument()->docName + tr(" has been updated"));
    return true;
}

void DocumentScreen::cmdRemoveDoc1()
{
    Session& session = m_shell.session();
    session.trace(u"Remove Document from List"_s);
    if (!selectedDocument()) {
        m_shell.showMessage(tr("Please select a document to remove."));
        return;
    }
    if (!mayBeRewritten())
        return;
    DataJW& dataJW = session.dataJW();
    const std::vector<Dox> before = m_documents;
    Action action(dataJW);
    for (const Key key : oldKeys(*selectedDocument())) {
        // One call sees to all contacts. Where nobody holds the document it is left out: the key's digits
        // may stand in the keys of others.
        if (!dataJW.getContactKeyFromDocumentKey(key).empty())
            dataJW.updateDocList(0, key, u"Contact"_s, 1);
    }
    const QString name = selectedDocument()->docName;
    const int row = std::exchange(m_selected, -1); // no event in between acts on what is going
    m_documents.erase(m_documents.begin() + row);
    const bool rewritten = updateDocumentList();
    if (!action.commit() || !rewritten) {
        m_documents = before;
        m_selected = row;
        return;
    }
    fillTree();
    select(-1);
    m_shell.offerUndo(tr("Deleted document %1.").arg(name));
}

// --- The table --------------------------------------------------------------------------------------------

bool DocumentScreen::mayBeRewritten()
{
    if (!m_complete) {
        m_shell.showMessage(
            tr("The documents could not all be read from the database, so the list cannot be changed now. "
               "Please open the Document screen again."));
        return false;
    }
    const auto tooLong =
        std::ranges::find_if(m_documents, [](const Dox& dox) { return lengthOf(dox) > longestRecord; });
    if (tooLong == m_documents.end())
        return true;
    m_shell.showMessage(tr("The texts of \"%1\" are too long to be saved. Please shorten the notes.")
                            .arg(tooLong->docName.left(80)));
    return false;
}

bool DocumentScreen::updateDocumentList()
{
    Session& session = m_shell.session();
    session.trace(u"Update Document List"_s);
    if (!mayBeRewritten())
        return false;
    DataJW& dataJW = session.dataJW();
    Action action(dataJW);
    std::vector<std::vector<Key>> keys;
    for (const Dox& dox : m_documents)
        keys.push_back(oldKeys(dox));
    const QStringList columns = recordcolumns::of(dataJW, u"Document"_s);
    const std::optional<QSet<Key>> held = keysAtContacts();
    // Up to here nothing is gone, and without these nothing could come back: the table stays as it is.
    if (columns.isEmpty() || !held || !dataJW.delDox()) {
        action.commit();
        return false;
    }
    for (const Dox& dox : m_documents)
        dataJW.execQuery(insertStatement(columns, dox));
    for (size_t i = 0; i < m_documents.size(); ++i)
        moveReferences(m_documents[i], keys[i], *held);
    return action.commit();
}

std::optional<QSet<Key>> DocumentScreen::keysAtContacts()
{
    RecordSet lists = m_shell.session().dataJW().getExecQueryRecords(
        u"Select DocumentList from Contact where DocumentList > ''"_s);
    if (lists.isNothing())
        return std::nullopt;
    QSet<Key> keys;
    for (; !lists.atEnd(); lists.next()) {
        for (const QString& key : m_shell.csvParse(lists.text(u"DocumentList")))
            keys.insert(key.toShort());
    }
    return keys;
}

std::vector<Key> DocumentScreen::oldKeys(const Dox& dox)
{
    // A document that is just being added has no row yet, which is nothing to report.
    const bool isNew = dox.docKey == 0;
    const Key stored = m_shell.session().dataJW().getDocumentKey(text::quoteFix(dox.docName), isNew);
    std::vector<Key> keys;
    if (stored > 0)
        keys.push_back(stored);
    // After a move that failed, contacts hold an earlier key than the row's.
    if (!isNew && dox.docKey != stored)
        keys.push_back(dox.docKey);
    return keys;
}

void DocumentScreen::moveReferences(Dox& dox, const std::vector<Key>& oldKeys, const QSet<Key>& held)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const Key newKey = dataJW.getDocumentKey(text::quoteFix(dox.docName));
    // Without a row the document keeps its old key in memory, and so do its contacts: the next writing of
    // the list brings both in.
    if (newKey <= 0)
        return;
    bool moved = true;
    for (const Key oldKey : oldKeys) {
        if (oldKey != newKey && held.contains(oldKey))
            moved = dataJW.updateDocList(newKey, oldKey, u"Contact"_s, 1) > 0 && moved;
    }
    if (moved)
        dox.docKey = newKey;
}
