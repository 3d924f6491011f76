#include "workbench/documentscreen.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/documenttypes.h"
#include "workbench/fieldleaving.h"
#include "workbench/shell.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int styleBoxes = 12;

QString styleBox(int index)
{
    return u"chkStyle"_s + QString::number(index);
}

std::vector<FieldRow> documentForm()
{
    std::vector<FieldRow> rows{
        {u"txtFileName"_s, u"Document"_s, SaveOn::Never}, // a document is found by its name: it keeps it
        {u"txtPath"_s, u"Path"_s, SaveOn::Record},        {u"txtVersion"_s, u"Version"_s, SaveOn::Leave},
        {u"txtTarget"_s, u"Target"_s, SaveOn::Leave},     {u"dtpEntry"_s, u"CreationDate"_s, SaveOn::Record},
        {u"txtDocNotes"_s, u"Notes"_s, SaveOn::Leave},
    };
    for (const DocumentType& type : documentTypes)
        rows.push_back({type.control.toString(), u"Type"_s, SaveOn::Change});
    for (int box = 0; box < styleBoxes; ++box)
        rows.push_back({styleBox(box), u"Style"_s, SaveOn::Change});
    return rows;
}

/// Where a document in memory keeps what is saved on leaving a field.
QString& savedText(Dox& dox, const QString& control)
{
    if (control == u"txtVersion")
        return dox.version;
    return control == u"txtTarget" ? dox.Target : dox.docNotes;
}

} // namespace

DocumentScreen::DocumentScreen(Shell& shell)
    : m_shell(shell)
    , m_form(documentForm())
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
    m_form.setText(u"dtpEntry"_s, m_shell.session().today().toString(Qt::ISODate));
    m_contacts.setChildren(m_contacts.index(0, 0), {}, {});
    emit changed();
}

void DocumentScreen::showDox(const Dox& dox)
{
    m_form.setText(u"txtFileName"_s, dox.docName);
    m_form.setText(u"txtPath"_s, dox.docPath);
    m_form.setText(u"txtVersion"_s, dox.version);
    m_form.setText(u"txtTarget"_s, dox.Target);
    m_form.setText(u"txtDocNotes"_s, fieldtext::toShown(dox.docNotes));
    const QDate entered = dox.dateEntry.isValid() ? dox.dateEntry : dates::missing;
    m_form.setText(u"dtpEntry"_s, entered.toString(Qt::ISODate));
    if (const DocumentType* type = findDocumentType(dox.docType))
        m_form.setText(type->control.toString(), u"1"_s);
    for (int box = 0; box < styleBoxes; ++box)
        m_form.setText(styleBox(box), dox.style.mid(box, 1) == u"1" ? u"1"_s : u"0"_s);
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
    DataJW& dataJW = m_shell.session().dataJW();
    const RecordSet person = dataJW.getContactDataByKey(m_sentTo[static_cast<size_t>(index.row())]);
    const QString name = m_contacts.text(index);
    const QString company = dataJW.getCompanyNameByKey(person.key(u"CompanyKey").value_or(0));
    if (company.isEmpty()) {
        m_shell.showMessage(tr("%1 belongs to a company that is no longer in the database.").arg(name));
        return;
    }
    if (!mayLeave())
        return;
    if (company != m_shell.selection().selectedCompanyName())
        m_shell.cmbSelectionClick(company);
    m_shell.showOn(u"Contact"_s, name);
}

QString DocumentScreen::styleText() const
{
    QString style;
    for (int box = 0; box < styleBoxes; ++box)
        style += m_form.text(styleBox(box)) == u"1" ? u'1' : u'0';
    return style;
}

Dox DocumentScreen::fromControls(Dox dox) const
{
    dox.docName = fieldtext::toStored(m_form.text(u"txtFileName"_s));
    dox.docPath = fieldtext::toStored(m_form.text(u"txtPath"_s));
    dox.version = fieldtext::toStored(m_form.text(u"txtVersion"_s));
    dox.Target = fieldtext::toStored(m_form.text(u"txtTarget"_s));
    dox.docNotes = fieldtext::toStored(m_form.text(u"txtDocNotes"_s));
    const QDate entered = QDate::fromString(m_form.text(u"dtpEntry"_s), Qt::ISODate);
    // The stand-in for a missing date is only shown.
    if (dox.dateEntry.isValid() || entered != dates::missing)
        dox.dateEntry = entered;
    dox.style = styleText();
    for (const DocumentType& type : documentTypes) {
        if (m_form.text(type.control.toString()) == u"1")
            dox.docType = type.value.toString();
    }
    return dox;
}

// --- Events of the fields ---------------------------------------------------------------------------------

void DocumentScreen::fieldKeyDown(const QString&)
{
    m_shell.setSbar(u"Document"_s);
}

void DocumentScreen::fieldChanged(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    if (!row)
        return;
    if (row->save != SaveOn::Change)
        m_shell.sbarVis();
    else if (row->column == u"Style")
        styleClicked();
    else if (m_form.text(control) == u"1") // the option that another one has put out says nothing
        typeClicked(control);
    // A click has been acted on, and waits for nothing: the next new document has the type clicked last too.
    if (row->save == SaveOn::Change)
        m_form.markClean(control);
}

void DocumentScreen::typeClicked(const QString& control)
{
    const DocumentType* type = findDocumentType(control);
    m_shell.selection().selectedDocType = type->word.toString();
    m_shell.setSbar(u"Document"_s);
    if (!updateColumn(u"Type"_s, type->value.toString()))
        return;
    m_documents[static_cast<size_t>(m_selected)].docType = type->value.toString();
    fillTree();
    emit changed();
}

void DocumentScreen::styleClicked()
{
    m_shell.setSbar(u"Document"_s);
    const QString style = styleText();
    if (updateColumn(u"Style"_s, style))
        m_documents[static_cast<size_t>(m_selected)].style = style;
}

void DocumentScreen::fieldLeft(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    // A text that was changed back leaves nothing to update.
    if (!fieldleaving::hasUnsaved(m_form))
        m_shell.savedSbar();
    // A field that holds what is stored has nothing to write.
    if (!row || row->save != SaveOn::Leave || !m_form.isDirty(control))
        return;
    const QString value = fieldtext::toStored(m_form.text(control));
    // What was not written stays marked as changed, and the next leaving of the field tries again.
    if (!updateColumn(row->column, value))
        return;
    savedText(m_documents[static_cast<size_t>(m_selected)], control) = value;
    m_form.markClean(control);
    m_shell.savedSbar();
}

QString DocumentScreen::recordName() const
{
    if (const Dox* dox = selectedDocument())
        return tr("the document \"%1\"").arg(dox->docName);
    const QString file = m_form.text(u"txtFileName"_s);
    return file.isEmpty() ? tr("the new document") : tr("the new document \"%1\"").arg(file);
}

bool DocumentScreen::mayLeave()
{
    return fieldleaving::mayLeave(
        m_shell.session(), m_form,
        {.name = recordName(),
         .isStored = selectedDocument() != nullptr,
         .hasMore = false,
         .leave = [this](const QString& control) { fieldLeft(control); },
         .save = [this] { return selectedDocument() ? cmdUpdateDoc1() : cmdAddDoc1(); }});
}

bool DocumentScreen::updateColumn(const QString& column, const QString& value)
{
    const Dox* dox = selectedDocument();
    if (!dox)
        return false;
    DataJW& dataJW = m_shell.session().dataJW();
    // By its name: each writing of the list gives the row a new key.
    const Key key = dataJW.getDocumentKey(text::quoteFix(dox->docName));
    return key > 0 && dataJW.execQuery(u"Update Document set " + column + u"='" + value +
                                       u"' where ResumeKey=" + QString::number(key));
}
