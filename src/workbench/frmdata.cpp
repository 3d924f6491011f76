// The main screen: selection and status bar. Its screens, its start and end, and the tools have files of
// their own.
#include "workbench/frmdata.h"

#include "base/text.h"
#include "calendar/frmreminder.h"
#include "store/files/appfolder.h"
#include "store/gateway/datajw.h"
#include "workbench/companyscreen.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 5> frames{u"frmeCompany", u"frmePosition", u"frmeContact", u"frmeDocument",
                                            u"frmePipeline"};

std::vector<FieldRow> shellForm()
{
    std::vector<FieldRow> rows{{u"cmbSelection"_s, {}, SaveOn::Never},
                               {u"Label45"_s, {}, SaveOn::Never},
                               {u"sbar"_s, {}, SaveOn::Never}}; // the bar's simple text
    for (const QStringView frame : frames)
        rows.push_back({frame.toString(), {}, SaveOn::Never});
    return rows;
}

/// Without the marks around it.
QString categoryCaption(QString name)
{
    return name.remove(u'~').trimmed();
}

} // namespace

FrmData::FrmData(Session& session, Navigator& navigator, FrmReminder& reminder)
    : Shell(session, navigator)
    , m_reminder(reminder)
    , m_form(shellForm())
    , m_company(std::make_unique<CompanyScreen>(*this))
    , m_position(std::make_unique<PositionScreen>(*this))
    , m_contact(std::make_unique<ContactScreen>(*this, m_company->form()))
    , m_document(std::make_unique<DocumentScreen>(*this))
    , m_pipeline(std::make_unique<PipelineScreen>(*this, *m_position))
    , m_follower(session, {u"Company"_s, u"Position"_s, u"Contact"_s, u"Event"_s}, [this] { followStore(); })
{
    connect(&m_reminder, &FrmReminder::checkRequested, this, &FrmData::checkReminders);
    connect(m_contact.get(), &ContactScreen::removed, m_position.get(), &PositionScreen::loadPositionList);
    connect(m_position.get(), &PositionScreen::stored, this, &FrmData::positionStored);
    connect(m_pipeline.get(), &PipelineScreen::barChosen, this,
            [this](const QString& company) { m_company->form().setText(u"txtTitle"_s, company); });
    connect(&session, &Session::changed, this, [this](const QSet<QString>& tables) {
        if (tables == QSet{u"Status"_s})
            return; // settings and usage rows are nothing that the user has entered
        m_savedAt = m_session.now().time();
        emit changed();
    });
    m_form.setText(u"Label45"_s, tr("Company"));
    m_form.setVisible(u"pbarLoad"_s, false);
    // The program begins on the Company screen, with no company chosen.
    clearStrip();
    m_form.setVisible(u"frmeCompany"_s, true);
    setNewButton(tr("New Company"), u"newco"_s);
}

QString FrmData::caption() const
{
    const QString& name = m_selection.selectedCompanyName();
    const QString shown = text::isCategory(name) ? categoryCaption(name) : name;
    const QString folder = m_session.folder();
    const QString place = folder == applicationFolder({}) ? QString() : QFileInfo(folder).fileName();
    if (text::isUnsaved(name))
        return m_caption;
    return place.isEmpty() ? tr("%1 — Jobwright").arg(shown) : tr("%1 (%2) — Jobwright").arg(shown, place);
}

QString FrmData::savedText(const QStringList& unsavedFields) const
{
    constexpr int mostNamed = 2;
    if (unsavedFields.size() > mostNamed)
        return tr("Not saved: %1…").arg(unsavedFields.mid(0, mostNamed).join(u", "_s));
    if (!unsavedFields.isEmpty())
        return tr("Not saved: %1").arg(unsavedFields.join(u", "_s));
    return m_savedAt.isValid() ? tr("Saved %1").arg(QLocale().toString(m_savedAt, QLocale::ShortFormat))
                               : QString();
}

QString FrmData::versionPanel() const
{
    return tr("Jobwright v.") + QCoreApplication::applicationVersion() + u' ';
}

// --- Status bar -------------------------------------------------------------------------------------------

void FrmData::setSbar(const QString& kind)
{
    m_procText = tr("Update ") + kind;
    emit changed();
}

void FrmData::sbarVis()
{
    m_procVisible = true;
    // At every change, whichever field it was: a title with blanks around it must not be stored by a save
    // that another field sets off.
    m_position->trimTitle();
    emit changed();
}

void FrmData::savedSbar()
{
    if (!std::exchange(m_procVisible, false))
        return;
    emit changed();
}

void FrmData::showProc(const QString& text)
{
    m_procText = text;
    m_procVisible = true;
    emit changed();
}

void FrmData::setPositionPanel(const QString& text)
{
    if (m_positionPanel == text)
        return;
    m_positionPanel = text;
    emit changed();
}

void FrmData::updateCounts()
{
    const auto counted = [](int number, const QString& one, const QString& many) {
        return number == 1 ? one : many.arg(number);
    };
    // Categories are company rows too, but nobody counts them as companies.
    const auto companies = std::ranges::count_if(
        m_companyList, [](const QString& name) { return name != text::newEntry && !text::isCategory(name); });
    DataJW& dataJW = m_session.dataJW();
    m_countsPanel =
        QStringList{counted(static_cast<int>(companies), tr("1 company"), tr("%1 companies")),
                    counted(dataJW.getCount(u"Position"_s, true), tr("1 position"), tr("%1 positions")),
                    counted(dataJW.getCount(u"Contact"_s, true), tr("1 contact"), tr("%1 contacts"))}
            .join(u" · "_s);
    emit changed();
}

void FrmData::setSimpleText(const QString& text)
{
    m_form.setText(u"sbar"_s, text);
}

void FrmData::progress(int done, int total, const QString& what)
{
    setSimpleText(what);
    m_form.setVisible(u"pbarLoad"_s, total > 0);
    emit progressChanged(done, total);
}

// --- Company selector -------------------------------------------------------------------------------------

void FrmData::setSelection(const QString& name)
{
    m_selection.setSelectedCompanyName(name);
    m_form.setText(u"cmbSelection"_s, name);
}

void FrmData::loadCompanyList()
{
    const ReadWatch watch(m_session.dataJW());
    QStringList names = m_session.dataJW().getCompanyNames();
    if (watch.failed() && !m_companyList.isEmpty())
        return; // the names that are there stay
    if (std::exchange(m_unreadable, {}).isValid())
        setSimpleText({});
    names.append(text::newEntry.toString());
    // The list is read at every return to the window; a view with thousands of names need not take it in
    // again when nothing is new.
    if (names != m_companyList) {
        m_companyList = std::move(names);
        emit companyListChanged();
    }
    if (!text::isUnsaved(m_selection.selectedCompanyName()))
        selectCategory();
}

std::vector<FrmData::Category> FrmData::categories() const
{
    std::vector<Category> found;
    for (const QString& name : m_companyList) {
        if (text::isCategory(name))
            found.push_back({name, categoryCaption(name)});
    }
    return found;
}

QStringList FrmData::companiesOf(const QString& category) const
{
    // A company does not carry a category; its name may. The entry of the category itself always does.
    return category.isEmpty() ? m_companyList
                              : m_companyList.filter(categoryCaption(category), Qt::CaseInsensitive);
}

void FrmData::selectCategory()
{
    const bool category = text::isCategory(m_selection.selectedCompanyName());
    if (category)
        m_companyLabel = CompanyLabel::Category;
    else if (m_session.dataJW().getStatusValue(u"ScreenGraphics"_s, true).toInt() != 0)
        m_companyLabel = CompanyLabel::CompanyOnGraphics;
    else
        m_companyLabel = CompanyLabel::Company;
    m_form.setText(u"Label45"_s, category ? tr("Category") : tr("Company"));
    m_company->showAsCategory(category);
    emit changed();
}

void FrmData::cmbSelectionClick(const QString& chosen)
{
    const QString before = m_selection.selectedCompanyName();
    // A category has no positions, and a company that does not exist yet can be entered on its own screen
    // only.
    const bool toCompanyScreen = (text::isCategory(chosen) && m_form.isVisible(u"frmePosition"_s)) ||
                                 (chosen == text::newEntry && !m_form.isVisible(u"frmeCompany"_s));
    if (toCompanyScreen ? !mayLeave() : !mayLeaveCompany()) {
        m_form.setText(u"cmbSelection"_s, m_selection.selectedCompanyName());
        return;
    }
    // The record on the screen may have been saved under another name on the way.
    const QString text = chosen == before ? m_selection.selectedCompanyName() : chosen;
    clearPipeBoxes();
    setSelection(text);
    selectCategory();
    if (toCompanyScreen) {
        startNewCompany();
        return;
    }
    m_company->loadCompanySelection(text);
    const QString& screen = m_selection.currentScreen;
    if (screen == u"Position")
        m_position->companyChosen();
    else if (screen == u"Contact")
        m_contact->companyChosen();
    else if (screen == u"Pipeline")
        m_pipeline->companyChosen(text);
}

void FrmData::chooseCompany(const QString& name)
{
    // A new contact begins with the address on the Company screen, which has to be that of its own company.
    if (name == m_selection.selectedCompanyName() && m_selection.currentCompanyKey != 0)
        return;
    setSelection(name);
    selectCategory();
    m_company->loadCompanySelection(name);
}

void FrmData::startNewCompany()
{
    m_form.requestFocus(u"TabStrip1"_s);
    setSelection(text::newEntry.toString());
    selectCategory();
    tabStrip1Click(u"Company"_s);
    m_company->form().requestFocus(u"txtTitle"_s);
}

void FrmData::clearPipeBoxes()
{
    m_pipeline->clearPipeBoxes();
}

void FrmData::followStore()
{
    // What cannot be read is in the log; the screens keep what they show.
    const Session::QuietReports quiet(m_session);
    loadCompanyList();
    m_position->loadPositionList();
    m_company->countsChanged();
    updateCounts();
    m_position->stepsChanged();
    m_pipeline->stepsChanged();
}

void FrmData::positionStored()
{
    m_pipeline->load();
    progress(0, 0, {});
    // It takes itself for the open screen, which is still the one that has stored.
    m_selection.currentScreen = u"Position"_s;
    // Showing an expired position raises the panel again, and nothing is left to be saved.
    savedSbar();
}

void FrmData::clearStrip()
{
    m_form.setText(u"sbar"_s, {});
    for (const QStringView frame : frames)
        m_form.setVisible(frame.toString(), false);
}
