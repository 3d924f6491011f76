// The screen KeySearch.
#pragma once

#include "base/form.h"
#include "base/rowmodel.h"
#include "base/treemodel.h"
#include "output/historyspan.h"
#include "output/recordopener.h"

#include <QObject>

class Session;

/// Searches one kind of record in all its fields, and lists what happened with all contacts between two days.
/// Hits stand in the tree below the field in which they were found.
class FrmKeySearch : public QObject
{
    Q_OBJECT

public:
    /// The opener is copied; the session must outlive the screen.
    FrmKeySearch(Session& session, const RecordOpener& opener);

    /// cmbSearchby, txtSearch, lblSearchFld, txtReturn, txtSearchStat, pbarLoad (visible while a search
    /// runs); dtpFrom, dtpTo, cmbMedium, lblHappened.
    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] TreeModel& tvwFound() { return m_found; }
    [[nodiscard]] RowModel& lvwHappened() { return m_happened; }

    void load(); ///< the screen opens

    /// A double click, or Enter, on a node of the tree or a row of the list: opens the record.
    void openNode(const QModelIndex& index);
    void openHappened(const QModelIndex& index);
    void fieldChanged(const QString& control);

public slots:
    void Image1() { search(); }
    void cmdSearchByCompany1() { searchFor(u"Company"); }
    void cmdSearchByContact1() { searchFor(u"Contact"); }
    void cmdSearchByEvents() { searchFor(u"Events"); }
    void cmdSearchByHistory1() { searchFor(u"Contact History"); }
    void cmdSearchByPosition1() { searchFor(u"Position"); }
    void cmdSearchByProfile() { searchFor(u"User Profile"); }
    void cmdSearchByTarget1() { searchFor(u"Target"); }
    void cmdHappened(); ///< reads what happened between the two days

signals:
    /// The search has looked through @p done of @p total fields.
    void progressChanged(int done, int total);
    /// What was found is complete: the tree may be opened.
    void searched();
    /// A record has been opened on another screen.
    void opened();

private:
    void searchFor(QStringView kind);
    void search();
    void showHappened();

    Session& m_session;
    RecordOpener m_opener;
    Form m_form;
    TreeModel m_found;
    RowModel m_happened;
    std::vector<Happened> m_span; ///< of both days, every medium
    bool m_searching = false;
};
