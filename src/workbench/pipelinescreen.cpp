// The Pipeline screen's tree, and what it shows of the chosen company or position.
#include "workbench/pipelinescreen.h"

#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/record/recordkey.h"
#include "workbench/positionform.h"
#include "workbench/shell.h"

#include <QHash>
#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> pipelineForm()
{
    std::vector<FieldRow> rows{{u"txtFind"_s, {}, SaveOn::Never},
                               {u"txtCCompany"_s, {}, SaveOn::Never},
                               {u"txtPosition"_s, {}, SaveOn::Never},
                               {u"txtPosEntryDate"_s, u"EntryDate"_s, SaveOn::Never},
                               {u"txtExpiryDate"_s, u"Expires"_s, SaveOn::Never},
                               {u"txtNext"_s, {}, SaveOn::Never}};
    for (int index = 0; index < PipelineSteps::count; ++index) {
        const QString number = QString::number(index);
        const QString column = PipelineSteps::getIndexTitle(index);
        rows.push_back({u"chkP"_s + number, {}, SaveOn::Change, FieldKind::Tick});
        rows.push_back({u"dtpProg"_s + number, column, SaveOn::Change, FieldKind::Date});
        rows.push_back({u"Image1"_s + number, PipelineSteps::getIndexMediumTitle(index), SaveOn::Change});
    }
    for (const auto& [option, status] :
         {std::pair(u"optProg1"_s, u"On File"_s), std::pair(u"optProg2"_s, u"Reject"_s),
          std::pair(u"optProg3"_s, u"Open"_s)})
        rows.push_back({option, u"OfferStatus"_s, SaveOn::Change, FieldKind::Choice, status});
    return rows;
}

QString shownDate(QDate date)
{
    return QLocale().toString(date, QLocale::ShortFormat);
}

} // namespace

PipelineScreen::PipelineScreen(Shell& shell, PositionForm& positionForm)
    : m_shell(shell)
    , m_positionForm(positionForm)
    , m_form(pipelineForm())
{
    clearPipeBoxes();
    m_form.setOn(u"optProg1"_s, false);
    connect(&shell.session(), &Session::changed, this,
            [this](const QSet<QString>& tables) { m_isStale = m_isStale || tables.contains(u"Company"_s); });
}

/// A company of the tree has been renamed or removed.
bool PipelineScreen::hasGone()
{
    if (!std::exchange(m_isStale, false))
        return false;
    const QStringList names = m_shell.session().dataJW().getCompanyNames();
    const QSet<QString> there(names.cbegin(), names.cend());
    return !there.isEmpty() && !m_tree.areAllIn(there);
}

PipelineScreen::~PipelineScreen() = default;

// --- The tree ---------------------------------------------------------------------------------------------

void PipelineScreen::load()
{
    m_shell.session().trace(u"frmData - loadPipelineFrame"_s);
    m_shell.selection().currentScreen = u"Pipeline"_s;
    // Read once, as a long campaign takes its time. What is new in it waits for the refresh; what is gone is
    // taken out, as a node that leads nowhere is worse than one that is missing.
    const Key positions = m_shell.session().dataJW().getCount(u"Position"_s, true);
    if (!m_tree.hasNodes() || positions < m_positionsRead || hasGone())
        buildTree();
    if (m_shell.selection().currentPositionKey == 0 || !showCurrentPosition())
        showNothing();
    emit changed();
}

bool PipelineScreen::showCurrentPosition()
{
    const Key key = m_shell.selection().currentPositionKey;
    DataJW& dataJW = m_shell.session().dataJW();
    const QString title = dataJW.getPositionNameByKey(key);
    if (title.isEmpty()) {
        // Gone since it was chosen, so the tree is of yesterday too.
        m_shell.selection().currentPositionKey = 0;
        buildTree();
        return false;
    }
    const QString company = m_shell.selection().selectedCompanyName();
    QModelIndex node = reveal(company, title);
    if (!node.isValid() &&
        dataJW.getPositionKey(text::quoteFix(title), text::quoteFix(company), true) == key) {
        // Entered or renamed since the tree was built.
        buildTree();
        node = reveal(company, title);
    }
    if (!node.isValid())
        return false;
    emit nodeChosen(node, false);
    showPosition(company, title);
    return true;
}

void PipelineScreen::buildTree()
{
    m_tree.clear();
    m_isStale = false;
    std::vector<PipelineTree::Company> companies = readCompanies();
    m_tree.fill(std::move(companies));
    m_shell.setSimpleText({});
}

std::vector<PipelineTree::Company> PipelineScreen::readCompanies()
{
    // Two statements for the whole tree; one for each company takes seconds on a large campaign.
    DataJW& dataJW = m_shell.session().dataJW();
    RecordSet names = dataJW.getExecQueryRecords(u"Select CompanyKey,Name from Company order by Name"_s);
    QHash<qint64, QStringList> titles;
    RecordSet positions =
        dataJW.getExecQueryRecords(u"Select CompanyKey,Title from Position order by CompanyKey,Title"_s);
    m_positionsRead = positions.rowCount();
    for (; !positions.atEnd(); positions.next())
        titles[positions.value(0).toLongLong()].append(positions.text(1));

    std::vector<PipelineTree::Company> companies;
    companies.reserve(static_cast<size_t>(names.rowCount()));
    // Nobody can tell more than a hundred places of the bar apart, and each one is drawn at once.
    const int stride = std::max(1, names.rowCount() / 100);
    for (int done = 0; !names.atEnd(); names.next()) {
        companies.push_back({names.text(1), titles.value(names.value(0).toLongLong())});
        if (++done % stride == 0 || done == names.rowCount())
            m_shell.progress(done, names.rowCount(), companies.back().name);
    }
    return companies;
}

QModelIndex PipelineScreen::reveal(const QString& company, const QString& title)
{
    const auto find = [&] {
        return title.isEmpty() ? m_tree.findCompany(company) : m_tree.findPosition(company, title);
    };
    if (const QModelIndex node = find(); node.isValid() || m_tree.filter().isEmpty())
        return node;
    m_form.setText(u"txtFind"_s, {});
    m_tree.setFilter({});
    return find();
}

void PipelineScreen::cmdRefresh1()
{
    m_shell.session().trace(u"Refresh Pipeline"_s);
    const Key companies = m_shell.session().dataJW().getCount(u"Company"_s, true);
    m_shell.progress(0, companies, {});
    m_tree.clear();
    load();
    m_shell.progress(0, 0, {});
    displayVisual();
    showNothing();
}

// --- What is chosen ---------------------------------------------------------------------------------------

bool PipelineScreen::isShown(const QModelIndex& index) const
{
    const bool position = m_tree.kind(index) == u"Position";
    const QString company = m_tree.text(position ? index.parent() : index);
    return company == m_form.text(u"txtCCompany"_s) &&
           (position ? m_tree.text(index) : QString()) == m_form.text(u"txtPosition"_s);
}

void PipelineScreen::tvwHireClick(const QModelIndex& index)
{
    if (m_tree.kind(index) == u"Company")
        showCompany(m_tree.text(index));
    else if (m_tree.kind(index) == u"Position")
        showPosition(m_tree.text(index.parent()), m_tree.text(index));
}

void PipelineScreen::tvwHireDblClick(const QModelIndex& index)
{
    if (m_tree.kind(index) == u"Position")
        openPosition(m_tree.text(index.parent()), m_tree.text(index));
    else
        tvwHireClick(index);
}

void PipelineScreen::companyChosen(const QString& company)
{
    if (text::isUnsaved(company))
        return;
    const QModelIndex node = reveal(company, {});
    if (showCompany(company))
        emit nodeChosen(node, true);
}

void PipelineScreen::showNothing()
{
    m_form.setText(u"txtCCompany"_s, {});
    clearPipeBoxes();
    emit nodeChosen({}, false);
    emit changed();
}

bool PipelineScreen::showCompany(const QString& company)
{
    m_form.setText(u"txtCCompany"_s, company);
    m_shell.chooseCompany(company);
    clearPipeBoxes();
    emit changed();
    if (!m_shell.selection().selectedCompanyName().isEmpty() || company.isEmpty())
        return true;
    // Renamed or removed since the tree was built.
    buildTree();
    showNothing();
    return false;
}

void PipelineScreen::showPosition(const QString& company, const QString& title)
{
    if (!showCompany(company))
        return;
    // Whatever was current before is not what the fields show from here on.
    m_shell.selection().currentPositionKey = 0;
    if (title == text::newEntry) {
        m_positionForm.clearPositionForm();
        setPosition(title);
        return;
    }
    const RecordSet record =
        m_shell.session().dataJW().getPosition(text::quoteFix(company), text::quoteFix(title));
    if (record.isEmpty())
        return; // the tree still shows what is no longer there; the gateway has said so
    m_positionForm.fillPosForm(record);
    showRecord(record, title);
}

void PipelineScreen::showRecord(const RecordSet& record, const QString& title)
{
    fillProgForm(record);
    setPosition(m_shell.selection().currentPositionKey == 0 ? QString() : title);
    const QDate expires = record.date(u"Expires");
    const QDate entered = record.date(u"EntryDate");
    m_form.setText(u"txtExpiryDate"_s, PipelineSteps::isDone(expires) ? shownDate(expires) : tr("No Expiry"));
    m_form.setText(u"txtPosEntryDate"_s, entered.isValid() ? shownDate(entered) : QString());
    m_form.showColumn(u"OfferStatus"_s, record.text(u"OfferStatus"));
    m_form.setText(u"txtNext"_s, getNextStep());
    emit changed();
}

void PipelineScreen::setPosition(const QString& title)
{
    m_form.setText(u"txtPosition"_s, title);
    m_form.setEnabled(u"imgOpenContact1"_s, !title.isEmpty());
}

void PipelineScreen::clearPipeBoxes()
{
    for (int index = 0; index < PipelineSteps::count; ++index) {
        setTick(index, false);
        setDate(index, dates::sentinel);
        setMedium(index, {});
    }
    // "On File" keeps its mark until the next position brings its own status: it is the answer that stands
    // when nothing else has been heard.
    m_form.setOn(u"optProg2"_s, false);
    m_form.setOn(u"optProg3"_s, false);
    setPosition({});
    for (const auto& box : {u"txtNext"_s, u"txtExpiryDate"_s, u"txtPosEntryDate"_s})
        m_form.setText(box, {});
    emit changed();
}

void PipelineScreen::fillProgForm(const RecordSet& record)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - fillProgForm (Pipeline)"_s);
    m_shell.selection().currentPositionKey =
        keyOrReport(session, record, u"PositionKey", u"frmData - fillProgForm (Pipeline)"_s);
    const PipelineSteps steps(record);
    for (int index = 0; index < PipelineSteps::count; ++index) {
        const PipelineSteps::Step step = steps.step(index);
        const bool empty = record.isNull(PipelineSteps::getIndexTitle(index));
        setTick(index, PipelineSteps::isDone(step.date));
        setMedium(index, empty ? QString() : PipelineSteps::mediumTag(step.medium));
        if (step.date.isValid())
            setDate(index, step.date);
        else
            // Research of the company is what everybody begins with, so its day is laid out ready.
            setDate(index, empty && index == 0 ? session.today() : dates::sentinel);
    }
    m_form.showColumn(u"OfferStatus"_s, record.text(u"OfferStatus"));
}

void PipelineScreen::stepsChanged()
{
    if (!hasPosition()) {
        if (m_shell.isOpen(u"Pipeline"_s)) // it is drawn anew when it is opened
            displayVisual();
        return;
    }
    const RecordSet record =
        m_shell.session().dataJW().getPositionByKey(m_shell.selection().currentPositionKey);
    if (record.isEmpty())
        return;
    if (!m_form.hasUnsaved())
        fillProgForm(record);
    showProgress();
    displayVisual();
}

// --- Ways to other screens --------------------------------------------------------------------------------

void PipelineScreen::openPosition(const QString& company, const QString& title)
{
    if (!m_shell.showOn(u"Position"_s) || title == text::newEntry)
        return;
    const RecordSet record =
        m_shell.session().dataJW().getPosition(text::quoteFix(company), text::quoteFix(title));
    if (record.isEmpty())
        return;
    m_positionForm.fillPosForm(record);
    fillProgForm(record);
}
