// The screen that brings contacts and companies in.
#pragma once

#include "base/form.h"
#include "base/navigator.h"
#include "base/outlook.h"
#include "base/rowmodel.h"
#include "intake/contactload.h"
#include "intake/importmodels.h"
#include "intake/importreport.h"
#include "intake/recordimport.h"
#include "intake/savedmappings.h"
#include "intake/takeback.h"
#include "store/session.h"

#include <QObject>
#include <QStringListModel>

/// Four sources: contact folders of other programs, with a direct import and a checked one; text of separated
/// values and workbooks, with a mapping of their columns; and the program's own XML file.
class FrmImport : public QObject
{
    Q_OBJECT

public:
    FrmImport(Session& session, Outlook& outlook, Navigator& navigator);

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] ImportColumns& tblColumns() { return m_columns; }
    [[nodiscard]] ImportValues& lstImport() { return m_values; }
    [[nodiscard]] QStringListModel& lstFld() { return m_fields; }
    [[nodiscard]] RowModel& lvwContacts() { return m_contacts; }
    [[nodiscard]] RowModel& lvwCompanies() { return m_companies; }
    [[nodiscard]] RowModel& lvwNotes() { return m_notes; }
    /// The fields that a column may go into, "" for none.
    [[nodiscard]] QStringList fieldChoices() const;
    [[nodiscard]] const ImportFile& file() const { return m_file; }
    [[nodiscard]] const ImportReport& report() const { return m_report; }

    /// Begins afresh: no source, no file.
    void load();
    /// A control was changed by the user.
    void fieldChanged(const QString& control);
    /// A click on an entry of lstFld: its table and field go into txtTable and txtField.
    void lstFldClick(const QString& field);
    /// A click on a value: its place goes into txtCount, its record into txtRec.
    void lstImportClick(int row);
    /// A click on an entry of a list swaps its mark.
    void lvwContactsClick(const QString& key) { toggle(m_contacts, key); }
    void lvwCompaniesClick(const QString& key) { toggle(m_companies, key); }
    /// HScroll1 stands on a record, from 1.
    void scrollTo(int record);
    /// The first row of lstImport that belongs to the record in txtRec; -1 for none.
    [[nodiscard]] int shownValue() const;
    [[nodiscard]] int recordCount() const { return m_file.records.recordCount(); }

public slots:
    void cmdDialog();        ///< picks the file
    void cmdFolder();        ///< picks the folder of contacts
    void cmdLoadImport();    ///< reads the source
    void cmdMapField();      ///< maps the value in txtCount to the field in txtTable and txtField
    void cmdMapAll();        ///< maps every column that is recognised
    void cmdClearMap();      ///< maps nothing
    void cmdSaveMapping();   ///< keeps the mapping under the name in cmbMapping
    void cmdDeleteMapping(); ///< forgets the mapping of that name
    void cmdMap();           ///< stores the records
    void cmdLoadOut();       ///< the checked load
    void cmdSelectAll();     ///< swaps every mark in both lists
    void cmdImportList();    ///< stores the marked contacts
    void cmdMerge();         ///< opens the screen that merges doubles
    void cmdTakeBack();      ///< undoes the import
    void cmdSaveReport();    ///< writes the list of what was passed over

signals:
    /// A file was read or its mapping is new.
    void fileChanged();
    /// How far a store is; 0 of 0: none.
    void advanced(int done, int total);
    /// The XML file is being read; its own progress screen shows.
    void importProgress(bool running);
    /// Records came in or went: the workbench reads again and shows its Company screen.
    void imported();

private:
    void chooseSource();
    void readFile();
    bool readTable(RecordTable& table);
    void divide(RecordTable table, bool fresh);
    void offerMapping();
    void showMapping();
    void loadXml();
    void directImport();
    void listCandidates();
    void toggle(RowModel& list, const QString& key);
    [[nodiscard]] bool isOn(const QString& control) const { return m_form.text(control) == u"1"; }
    /// A whole number in a field, at least 0.
    [[nodiscard]] int number(const QString& control) const;
    bool planRecords(RecordImport& import);
    bool askForKeys(RecordImport& import, bool& byLastKey);
    void storeRecords(RecordImport& import, bool byLastKey);
    bool beginStore();
    void finishImport(const ImportReport& report, const QString& message);
    void showReport();
    void status(const QString& line) { m_form.setText(QStringLiteral("lblStatus"), line); }

    Session& m_session;
    Outlook& m_outlook;
    Navigator& m_navigator;
    Form m_form;
    ImportFile m_file;
    RecordTable m_all; ///< the file as it is, with its names and what is before them
    ImportColumns m_columns;
    ImportValues m_values;
    QStringListModel m_fields;
    RowModel m_contacts;
    RowModel m_companies;
    RowModel m_notes;
    SavedMappings m_mappings;
    ContactLoad m_load;
    TakeBack m_takeBack;
    ImportReport m_report;
    qint64 m_keyBefore = 0; ///< the highest contact before the store
};
