// The contact history's screen: opening, the list, choosing an entry, closing. Editing has a file of its own.
#include "history/frmhistory.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "history/contactfacts.h"
#include "history/historyclosing.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList& lengths()
{
    static const QStringList all{u"Non-transient"_s, u"Instant"_s, u"1 min"_s,  u"5 min"_s, u"10 min"_s,
                                 u"15 min"_s,        u"30 min"_s,  u"45 min"_s, u"1 hr"_s,  u"1.5 hr"_s,
                                 u"2 hr"_s,          u"2.5 hr"_s,  u"3 hr"_s,   u">3 hrs"_s};
    return all;
}

const QStringList& mediums()
{
    static const QStringList all{u"Phone"_s, u"Inst Message"_s, u"Conference Call"_s, u"Fax"_s,  u"Post"_s,
                                 u"Email"_s, u"Meeting"_s,      u"Appointment"_s,     u"Other"_s};
    return all;
}

const QStringList& returns()
{
    static const QStringList all{u"Will Contact Me"_s, u"Follow-up"_s, u"No Contact"_s, u"Other"_s};
    return all;
}

const QStringList& eventTypes()
{
    static const QStringList all{u"Interview"_s,  u"Interview Follow-up"_s, u"Status Inquiry"_s,
                                 u"Referral"_s,   u"Contact Inquiry"_s,     u"Networking Event"_s,
                                 u"Other Event"_s};
    return all;
}

std::vector<FieldRow> historyForm()
{
    // Nothing here is saved by itself: the entries go to the store together, when the screen closes.
    std::vector<FieldRow> rows = contactfacts::rows();
    for (const char* control :
         {"lblHistory", "DTPContact", "txtTopic", "cmbMedium", "cmbLength", "txtLocation", "txtDetails",
          "cmbReturn", "dtpNextCall", "chkDoxGiven", "cmbEventType", "lblNote", "pbarImport", "txtOLC"})
        rows.push_back({QString::fromLatin1(control), {}, SaveOn::Never});
    return rows;
}

/// The row of an entry. Lists show one line, whatever line ends came in from elsewhere.
ListRow rowOf(const History& entry, int slot, QDate today)
{
    ListRow row;
    row.key = QString::number(slot) + u"Hist"_s;
    for (const QString& text : {dates::shown(entry.ContactDate), entry.topic, entry.medium, entry.Length,
                                entry.Location, dates::shown(entry.NextCall), entry.ReturnCall})
        row.texts.append(text.simplified());
    const auto length = lengths().indexOf(entry.Length);
    row.sortsBy = {QVariant(entry.ContactDate),
                   {},
                   {},
                   QVariant(static_cast<int>(length < 0 ? lengths().size() : length)),
                   {},
                   QVariant(entry.NextCall),
                   {}};
    row.kind = dates::isDay(entry.NextCall) && entry.NextCall < today ? u"overdue"_s : QString();
    return row;
}

} // namespace

FrmHistory::FrmHistory(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form(historyForm())
    , m_list({tr("Date"), tr("Topic"), tr("Medium"), tr("Length"), tr("Location"), tr("Next call"),
              tr("Return")})
{
}

FrmHistory::~FrmHistory() = default;

// --- Opening ----------------------------------------------------------------------------------------------

bool FrmHistory::load(Key contactKey)
{
    m_session.trace(u"Open Contact History for "_s + QString::number(contactKey));
    m_entries = HistoryEntries(contactKey, {});
    m_selected = 0;
    m_dirty = m_locked = false;
    const RecordSet contact = dataJW().getContactDataByKey(contactKey);
    if (contact.isEmpty())
        return false; // the gateway has said so
    fillBoxes();
    m_form.setVisible(u"cmdUpdateOutlook"_s, m_session.outlookAvailable);
    for (const QString& control : {u"cmdUpdateOutlook"_s, u"cmdAddEvent"_s, u"cmbEventType"_s})
        m_form.setEnabled(control, m_session.outlookAvailable);
    for (const QString& control : {u"pbarImport"_s, u"txtOLC"_s})
        m_form.setVisible(control, false); // only a running import has something to show
    m_company = dataJW().getCompanyNameByKey(contact.key(u"CompanyKey").value_or(0));
    contactfacts::show(dataJW(), contact, m_form);
    clearHistoryEntry();
    loadHistoryList(true);
    return true;
}

void FrmHistory::fillBoxes()
{
    m_form.setItems(u"cmbLength"_s, lengths());
    m_form.setItems(u"cmbMedium"_s, mediums());
    m_form.setItems(u"cmbReturn"_s, returns());
    m_form.setItems(u"cmbEventType"_s, eventTypes());
    m_form.setText(u"cmbEventType"_s, u"Contact Inquiry"_s);
}

// --- The list ---------------------------------------------------------------------------------------------

void FrmHistory::loadHistoryList(bool fresh)
{
    if (fresh)
        readEntries();
    m_form.setText(u"lblHistory"_s, tr("History:") + QString::number(m_entries.count()));
    std::vector<ListRow> rows;
    for (int slot = 1; slot <= m_entries.count(); ++slot)
        rows.push_back(rowOf(m_entries.at(slot), slot, m_session.today()));
    ListRow last;
    last.key = QString::number(m_entries.count() + 1) + u"Hist"_s;
    last.texts = {text::newEntry.toString()};
    last.kind = u"new"_s;
    rows.push_back(last);
    m_list.setRows(std::move(rows));
    enableButtons();
    emit changed();
}

void FrmHistory::readEntries()
{
    const Key contactKey = m_entries.contactKey();
    // The running number of the last row is how many there are, unless a file from elsewhere left gaps. Then
    // the rows themselves count: one without a slot would be gone when the screen closes.
    const int counted = dataJW().getHistoryCount(contactKey);
    auto rows = History::loadAll(dataJW(), contactKey);
    const auto found = rows ? static_cast<int>(rows->size()) : 0;
    const bool isRead = rows.has_value();
    m_entries = HistoryEntries(contactKey, std::move(rows).value_or(std::vector<History>()));
    if (!isRead || (found == 0 && counted > 0))
        lock(tr(
            "The histories of this contact could not be read. So that none is lost, nothing can be changed "
            "on this screen now."));
    else if (found > HistoryEntries::bound)
        lock(tr("This contact has %1 histories. Jobwright can work with %2 for a contact: the first %2 are "
                "shown, and none can be changed here, so that the others are kept.")
                 .arg(found)
                 .arg(HistoryEntries::bound));
}

/// Closes every way of changing an entry, as writing the entries back would lose those not in memory.
void FrmHistory::lock(const QString& why)
{
    m_locked = true;
    m_session.msgBox(why);
    say(tr("Read only."));
}

bool FrmHistory::holds(int row, const QString& words) const
{
    if (row < 0 || row >= m_list.rowCount())
        return false;
    const auto has = [&words](const QString& text) { return text.contains(words, Qt::CaseInsensitive); };
    const bool listed = has(m_list.rows()[static_cast<size_t>(row)].texts.join(u'\n'));
    return listed || (m_entries.has(row + 1) && has(m_entries.at(row + 1).Details));
}

QString FrmHistory::hint(int shownRows, const QString& words) const
{
    if (m_list.rowCount() <= 1) // "<New>" is no history
        return tr("Nothing here yet. Fill in the fields below and press Update.");
    return shownRows <= 1 ? tr("No history holds “%1”.").arg(words.trimmed()) : QString();
}

void FrmHistory::lvwHistoryClick(int row)
{
    const bool wantsNew = !m_entries.has(row + 1);
    if (mayLeaveEntry())
        choose(wantsNew ? m_entries.count() : row); // an entry that was taken over has moved "<New>" down
    else
        emit changed();
}

/// Nothing typed goes unasked when another entry takes the fields.
bool FrmHistory::mayLeaveEntry()
{
    if (m_locked || !isEntryChanged())
        return true;
    switch (m_session.msgBox(tr("The changes to this history have not been saved. Save them?"),
                             Buttons::YesNoCancel, tr("Changes not saved"))) {
    case Answer::Yes:
        cmdAddHistory();
        return !isEntryChanged();
    case Answer::No:
        return true;
    default:
        return false;
    }
}

void FrmHistory::choose(int row)
{
    m_selected = row + 1;
    if (m_entries.has(m_selected))
        showEntry(m_entries.at(m_selected));
    else
        clearHistoryEntry();
    enableButtons();
    emit changed();
}

void FrmHistory::showEntry(const History& entry)
{
    // A missing day is shown as the one that stands for it.
    const auto day = [](QDate stored) { return stored.isValid() ? stored : dates::missing; };
    m_form.setDate(u"DTPContact"_s, day(entry.ContactDate));
    m_form.setText(u"txtTopic"_s, entry.topic);
    showChoice(u"cmbMedium"_s, entry.medium);
    showChoice(u"cmbLength"_s, entry.Length);
    m_form.setText(u"txtLocation"_s, entry.Location);
    m_form.setText(u"txtDetails"_s, fieldtext::toShown(entry.Details));
    showChoice(u"cmbReturn"_s, entry.ReturnCall);
    m_form.setDate(u"dtpNextCall"_s, day(entry.NextCall));
    m_form.setOn(u"chkDoxGiven"_s, !entry.DocXfer.isEmpty() && entry.DocXfer != u"0");
    noteDays();
    say({});
}

/// Shows a text in its box, as a further entry when it came from somewhere else.
void FrmHistory::showChoice(const QString& box, const QString& text)
{
    QStringList items = box == u"cmbMedium" ? mediums() : box == u"cmbLength" ? lengths() : returns();
    if (!text.isEmpty() && !items.contains(text))
        items.append(text);
    m_form.setItems(box, items);
    m_form.setText(box, text);
}

void FrmHistory::clearHistoryEntry()
{
    for (const QString& control : {u"txtTopic"_s, u"txtLocation"_s, u"txtDetails"_s})
        m_form.setText(control, {});
    for (const QString& control : {u"cmbMedium"_s, u"cmbLength"_s, u"cmbReturn"_s})
        showChoice(control, {});
    m_form.setDate(u"DTPContact"_s, m_session.today());
    m_form.setDate(u"dtpNextCall"_s, m_session.today().addDays(1));
    m_form.setOn(u"chkDoxGiven"_s, false);
    noteDays();
    say({});
}

void FrmHistory::noteDays()
{
    m_day = m_form.date(u"DTPContact"_s);
    m_call = m_form.date(u"dtpNextCall"_s);
}

void FrmHistory::enableButtons()
{
    m_form.setEnabled(u"cmdAddHistory"_s, !m_locked);
    m_form.setEnabled(u"cmdRemoveHistory"_s, !m_locked && m_entries.has(m_selected));
}

void FrmHistory::say(const QString& note)
{
    m_form.setText(u"lblNote"_s, m_locked ? tr("Read only.") : note);
}

// --- Closing ----------------------------------------------------------------------------------------------

bool FrmHistory::unload()
{
    if (m_dirty && !m_locked && !close())
        return false;
    m_dirty = false;
    m_selected = 0;
    m_entries = HistoryEntries();
    m_list.setRows({});
    return true;
}

bool FrmHistory::close()
{
    const HistoryClosing::Outcome outcome = HistoryClosing(m_session, m_entries).write();
    if (outcome.isGood())
        return true;
    QString what = tr("The histories of this contact could not be written completely.");
    if (outcome.stored && !outcome.unwritten.empty()) {
        constexpr size_t mostNamed = 10;
        QStringList lines{tr("These histories could not be written:")};
        for (const History& entry : outcome.unwritten)
            lines.append(dates::shown(entry.ContactDate) + u"  " + entry.topic.simplified().left(60));
        if (outcome.unwritten.size() > mostNamed)
            lines = lines.mid(0, mostNamed + 1)
                    << tr("and %1 more").arg(outcome.unwritten.size() - mostNamed);
        what = lines.join(u'\n');
    }
    // Asked so that Esc, and whoever ends the program, keeps the screen and all that is on it.
    const QString question =
        tr("All that you entered is still on this screen, so that you can try again. The reasons stand in "
           "ErrorLog.txt. Would you like to close the screen all the same, and lose what could not be "
           "written?");
    return m_session.msgBox(what + u"\n\n" + question, Buttons::YesNoDefaultNo, tr("Contact History")) ==
           Answer::Yes;
}
