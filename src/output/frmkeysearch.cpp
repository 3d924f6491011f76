#include "output/frmkeysearch.h"

#include "base/dates.h"
#include "output/searchkinds.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> searchForm()
{
    std::vector<FieldRow> rows;
    for (const QStringView control : {u"cmbSearchby", u"txtSearch", u"lblSearchFld", u"txtReturn",
                                      u"txtSearchStat", u"dtpFrom", u"dtpTo", u"cmbMedium", u"lblHappened"})
        rows.push_back({control.toString(), {}, SaveOn::Never});
    return rows;
}

} // namespace

FrmKeySearch::FrmKeySearch(Session& session, const RecordOpener& opener)
    : m_session(session)
    , m_opener(opener)
    , m_form(searchForm())
    , m_happened({tr("Date"), tr("Contact"), tr("Company"), tr("Medium"), tr("Topic"), tr("Details")})
{
}

void FrmKeySearch::load()
{
    m_session.trace(u"frmKeySearch - Form_Load"_s);
    QStringList names;
    for (const SearchKind& kind : keysearch::kinds())
        names.append(kind.name);
    m_form.setItems(u"cmbSearchby"_s, names);
    m_form.setText(u"cmbSearchby"_s, names.front());
    m_form.setText(u"lblSearchFld"_s, tr("Search Fields:"));
    m_form.setText(u"dtpFrom"_s, m_session.today().addMonths(-1).toString(Qt::ISODate));
    m_form.setText(u"dtpTo"_s, m_session.today().toString(Qt::ISODate));
    m_form.setVisible(u"pbarLoad"_s, false);
    cmdHappened();
    m_form.requestFocus(u"txtSearch"_s);
}

// --- Search -----------------------------------------------------------------------------------------------

void FrmKeySearch::searchFor(QStringView kind)
{
    m_form.setText(u"cmbSearchby"_s, kind.toString());
    search();
}

void FrmKeySearch::search()
{
    if (m_searching)
        return;
    const SearchKind* kind = keysearch::kind(m_form.text(u"cmbSearchby"_s));
    if (!kind) {
        m_session.msgBox(tr("Appropriate search method not selected."));
        kind = &keysearch::kinds().front();
        m_form.setText(u"cmbSearchby"_s, kind->name);
    }
    const QString text = m_form.text(u"txtSearch"_s);
    if (text.isEmpty()) {
        m_session.msgBox(tr("Please enter a search string in the search string box."));
        return;
    }
    const QScopedValueRollback<bool> searching(m_searching, true);
    const BusyScope busy(m_session); // events are let through below: reminders wait
    m_found.clear();
    m_form.setVisible(u"pbarLoad"_s, true);
    QString fields = tr("Search Fields:");
    m_form.setText(u"lblSearchFld"_s, fields);
    QModelIndex root;
    size_t sum = 0;
    int done = 0;
    for (const QString& field : kind->fields) {
        emit progressChanged(++done, static_cast<int>(kind->fields.size()));
        fields += u'\n' + field;
        m_form.setText(u"lblSearchFld"_s, fields);
        const SearchHits hits = keysearch::search(m_session.dataJW(), *kind, field, text);
        if (!hits.keys.empty()) {
            if (!root.isValid())
                root = m_found.add({}, kind->rootLabel, kind->rootKey, u"root"_s);
            const QModelIndex group = m_found.add(root, hits.label(*kind), field, u"field"_s);
            m_found.setChildren(group, hits.nodes, kind->table);
            sum += hits.keys.size();
        }
        // The tree fills while the search goes on; keys and clicks wait for its end.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    m_form.setText(u"txtReturn"_s, QString::number(sum));
    m_form.setText(u"txtSearchStat"_s, QString::number(m_session.dataJW().getCount(kind->table, true)));
    m_form.setVisible(u"pbarLoad"_s, false);
    if (kind->table == u"History")
        m_session.trace(u"Completed sumCount in Contact History"_s);
    emit searched();
}

void FrmKeySearch::openNode(const QModelIndex& index)
{
    const auto key = keysearch::keyOf(m_found.text(index));
    // A name of a field or a kind may hold a "#" of its own one day; only records are leaves.
    if (m_searching || !key || m_found.rowCount(index) > 0)
        return;
    QModelIndex root = index;
    while (root.parent().isValid())
        root = root.parent();
    if (m_opener.open(m_found.text(root).section(u' ', 0, 0), *key))
        emit opened();
}

// --- What happened ----------------------------------------------------------------------------------------

void FrmKeySearch::fieldChanged(const QString& control)
{
    if (control == u"dtpFrom" || control == u"dtpTo")
        cmdHappened();
    else if (control == u"cmbMedium")
        showHappened();
}

void FrmKeySearch::cmdHappened()
{
    m_span = historyspan::read(m_session.dataJW(), QDate::fromString(m_form.text(u"dtpFrom"_s), Qt::ISODate),
                               QDate::fromString(m_form.text(u"dtpTo"_s), Qt::ISODate));
    const QString chosen = m_form.text(u"cmbMedium"_s);
    QStringList media;
    for (const Happened& one : m_span) {
        if (!one.medium.isEmpty() && !media.contains(one.medium))
            media.append(one.medium);
    }
    media.sort();
    media.prepend(tr("All media"));
    m_form.setItems(u"cmbMedium"_s, media);
    m_form.setText(u"cmbMedium"_s, media.contains(chosen) ? chosen : media.front());
    showHappened();
}

void FrmKeySearch::showHappened()
{
    const QString medium = m_form.text(u"cmbMedium"_s);
    const bool all = medium.isEmpty() || medium == tr("All media");
    std::vector<ListRow> rows;
    for (const Happened& one : m_span) {
        if (!all && one.medium != medium)
            continue;
        rows.push_back({u"A"_s + QString::number(one.contactKey),
                        {dates::shown(one.date), one.contact, one.company, one.medium, one.topic,
                         one.details.simplified()},
                        {},
                        {one.date}});
    }
    m_form.setText(u"lblHappened"_s,
                   rows.size() == 1 ? tr("1 interaction") : tr("%1 interactions").arg(rows.size()));
    m_happened.setRows(std::move(rows));
}

void FrmKeySearch::openHappened(const QModelIndex& index)
{
    const Key key = m_happened.key(index).mid(1).toShort();
    if (key > 0 && m_opener.open(u"History"_s, key))
        emit opened();
}
