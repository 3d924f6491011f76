#include "workbench/documentscreen.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/documenttypes.h"
#include "workbench/shell.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int styleBoxes = 12;

std::vector<FieldRow> documentForm()
{
    std::vector<FieldRow> rows{
        {u"txtFileName"_s, u"Document"_s, SaveOn::Never}, // a document is found by its name: it keeps it
        {u"txtPath"_s, u"Path"_s, SaveOn::Record},
        {u"txtVersion"_s, u"Version"_s, SaveOn::Leave},
        {u"txtTarget"_s, u"Target"_s, SaveOn::Leave},
        {u"txtDocNotes"_s, u"Notes"_s, SaveOn::Leave},
        {u"dtpEntry"_s, u"CreationDate"_s, SaveOn::Record, FieldKind::Date},
    };
    for (const DocumentType& type : documentTypes)
        rows.push_back(
            {type.control.toString(), u"Type"_s, SaveOn::Change, FieldKind::Choice, type.value.toString()});
    for (int box = 0; box < styleBoxes; ++box)
        rows.push_back({u"chkStyle"_s + QString::number(box), u"Style"_s, SaveOn::Change, FieldKind::Tick});
    return rows;
}

/// Where a document in memory keeps the text of a column that the form shows.
struct DoxText
{
    QStringView column;
    QString Dox::*text;
};
constexpr std::array<DoxText, 7> doxTexts{{{u"Document", &Dox::docName},
                                           {u"Path", &Dox::docPath},
                                           {u"Version", &Dox::version},
                                           {u"Target", &Dox::Target},
                                           {u"Notes", &Dox::docNotes},
                                           {u"Style", &Dox::style},
                                           {u"Type", &Dox::docType}}};

} // namespace

DocumentScreen::DocumentScreen(Shell& shell)
    : RecordScreen(shell, u"Document"_s, u"ResumeKey"_s, documentForm())
{
    m_contacts.add({}, tr("Contacts"), u"A0"_s, u"contact"_s);
    resetTree();
    clearDocumentForm();
}

DocumentScreen::~DocumentScreen() = default;

// --- The list ---------------------------------------------------------------------------------------------

void DocumentScreen::load()
{
    m_shell.session().trace(u"frmData - loadDocumentFrame"_s);
    DataJW& dataJW = m_shell.session().dataJW();
    const QString before = selectedDocument() ? selectedDocument()->docName : QString();
    m_documents = dataJW.loadDox();
    // The list is written as a whole: one that was read in part only would take the rest out of the store.
    const RecordSet counted = dataJW.getExecQueryRecords(u"Select Count(*) from Document"_s);
    m_complete = counted.key(u"EXPR1000") == static_cast<Key>(m_documents.size());
    fillTree();
    select(rowOf(before));
}

void DocumentScreen::resetTree()
{
    m_tree.clear();
    m_tree.add({}, tr("Documents"), u"A0"_s);
}

void DocumentScreen::fillTree()
{
    resetTree();
    const QModelIndex root = m_tree.index(0, 0);
    int number = 0;
    for (const Dox& dox : m_documents) {
        const DocumentType* type = findDocumentType(dox.docType);
        m_tree.add(root, dox.docName, u'A' + QString::number(++number),
                   (type ? type->word : documentTypes.back().word).toString());
    }
}

int DocumentScreen::rowOf(const QString& name) const
{
    // In any case of the letters, as the store finds a name: two that differ in nothing else would be one
    // document to it.
    const auto found = std::ranges::find_if(
        m_documents, [&name](const Dox& dox) { return dox.docName.compare(name, Qt::CaseInsensitive) == 0; });
    return name.isEmpty() || found == m_documents.end() ? -1 : static_cast<int>(found - m_documents.begin());
}

const Dox* DocumentScreen::selectedDocument() const
{
    return m_selected < 0 ? nullptr : &m_documents[static_cast<size_t>(m_selected)];
}

QModelIndex DocumentScreen::selectedNode() const
{
    return m_selected < 0 ? QModelIndex() : m_tree.index(m_selected, 0, m_tree.index(0, 0));
}

void DocumentScreen::tvwDocsClick(const QModelIndex& index)
{
    // The root stands for no document. With none selected it leaves the form alone: a file that was chosen
    // but not added yet is in it.
    if (!index.isValid() || index == selectedNode() || (!index.parent().isValid() && m_selected < 0))
        return;
    const int row = index.parent().isValid() ? index.row() : -1;
    // A save on the way fills the tree anew, and the index with it goes; the place stays.
    if (mayLeave())
        select(row);
    else
        emit changed();
}

void DocumentScreen::showDocument(const QString& name)
{
    if (mayLeave())
        select(rowOf(fieldtext::toStored(name)));
}

void DocumentScreen::select(int row)
{
    clearDocumentForm();
    m_selected = row;
    if (const Dox* dox = selectedDocument()) {
        showDox(*dox);
        fillContactsSent(dox->docName);
    }
    m_shell.savedSbar();
    emit changed();
}

// --- The form ---------------------------------------------------------------------------------------------

void DocumentScreen::clearDocumentForm()
{
    m_selected = -1;
    m_form.clear();
    m_form.setDate(u"dtpEntry"_s, m_shell.session().today());
    m_contacts.setChildren(m_contacts.index(0, 0), {}, {});
    emit changed();
}

void DocumentScreen::showDox(const Dox& dox)
{
    for (const auto& [column, text] : doxTexts)
        m_form.showColumn(column.toString(), dox.*text);
    m_form.setDate(u"dtpEntry"_s, dox.dateEntry.isValid() ? dox.dateEntry : dates::missing);
}

void DocumentScreen::fillContactsSent(const QString& name)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const Key document = dataJW.getDocumentKey(text::quoteFix(name));
    if (document <= 0)
        return;
    m_sentTo = dataJW.getContactKeyFromDocumentKey(document);
    QStringList names;
    for (const Key contact : m_sentTo) {
        const RecordSet person = dataJW.getContactDataByKey(contact);
        names.append(
            QString(person.text(u"FirstName").trimmed() + u' ' + person.text(u"LastName").trimmed()));
    }
    m_contacts.setChildren(m_contacts.index(0, 0), names, u"contact"_s);
}

void DocumentScreen::lstContactsSentDblClick(const QModelIndex& index)
{
    if (!index.parent().isValid())
        return;
    m_shell.showContact(m_sentTo[static_cast<size_t>(index.row())]);
}

Dox DocumentScreen::fromControls(Dox dox) const
{
    for (const auto& [column, text] : doxTexts) {
        // A type that no option stands for is kept.
        if (const QString shown = m_form.columnText(column.toString()); column != u"Type" || !shown.isEmpty())
            dox.*text = shown;
    }
    const QDate entered = m_form.date(u"dtpEntry"_s);
    // The stand-in for a missing date is only shown.
    if (dox.dateEntry.isValid() || entered != dates::missing)
        dox.dateEntry = entered;
    return dox;
}

// --- Events of the fields ---------------------------------------------------------------------------------

void DocumentScreen::fieldChanged(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    if (!row)
        return;
    if (row->save != SaveOn::Change) {
        m_shell.sbarVis();
        return;
    }
    // The option that another one has put out says nothing.
    if (row->kind != FieldKind::Choice || m_form.isOn(control)) {
        if (const DocumentType* type = findDocumentType(control))
            m_shell.selection().selectedDocType = type->word.toString();
        m_shell.setSbar(u"Document"_s);
        if (m_form.saveField(control, rowOfFields()))
            fieldSaved(control);
    }
    // A click has been acted on, and waits for nothing: the next new document has the type clicked last too.
    m_form.markColumnClean(row->column);
}

Key DocumentScreen::rowOfFields()
{
    // By its name: each writing of the list gives the row a new key.
    const Dox* dox = selectedDocument();
    return dox ? dataJW().getDocumentKey(text::quoteFix(dox->docName)) : Key(0);
}

void DocumentScreen::fieldSaved(const QString& control)
{
    const QString& column = m_form.row(control)->column;
    const auto* const kept =
        std::ranges::find(doxTexts, column, [](const DoxText& each) { return each.column; });
    m_documents[static_cast<size_t>(m_selected)].*(kept->text) = m_form.columnText(column);
    if (column != u"Type")
        return;
    fillTree();
    emit changed();
}

QString DocumentScreen::recordName() const
{
    if (const Dox* dox = selectedDocument())
        return tr("the document \"%1\"").arg(dox->docName);
    const QString file = m_form.text(u"txtFileName"_s);
    return file.isEmpty() ? tr("the new document") : tr("the new document \"%1\"").arg(file);
}
