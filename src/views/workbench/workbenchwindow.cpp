#include "views/workbench/workbenchwindow.h"

#include "store/gateway/undostack.h"
#include "ui_workbenchwindow.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/labels.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"
#include "views/workbench/companyview.h"
#include "views/workbench/contactview.h"
#include "views/workbench/documentview.h"
#include "views/workbench/importprogressview.h"
#include "views/workbench/pipelineview.h"
#include "views/workbench/positionview.h"
#include "views/workbench/printableform.h"
#include "views/workbench/screenframe.h"
#include "views/workbench/workbenchtools.h"
#include "workbench/companyscreen.h"
#include "workbench/frmdata.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

WorkbenchWindow::WorkbenchWindow(FrmData& presenter, QSettings& layout)
    : m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::WorkbenchWindow>())
    , m_progress(std::make_unique<ImportProgressView>(presenter.session(), this))
{
    m_ui->setupUi(this);
    look::dress(*this);
    // The selector stays where it is when the word before it changes.
    m_ui->Label45->setMinimumWidth(m_ui->Label45->fontMetrics().horizontalAdvance(tr("Category")) +
                                   fontMetrics().height());
    buildFrames();
    buildTabs();
    buildTools();
    buildMenus();
    buildStatusBar();
    buildUndo();
    buildShortcuts();
    // The selector keeps its own way of showing and taking a text; its state comes through fillSelector().
    m_binder = new FormBinder(presenter.form(), presenter, *this, {u"cmbSelection"_s});
    connectSelector();
    connectPresenter();
    fillSelector();
    render();
    const QSize wanted(fontMetrics().averageCharWidth() * 190, fontMetrics().height() * 52);
    resize(wanted.boundedTo(screen()->availableSize()));
    // Where lines are few, the words of the tools stand in their tool tips only.
    constexpr int fewLines = 40;
    if (screen()->availableSize().height() < fontMetrics().height() * fewLines)
        m_ui->tbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    windowstate::restore(*this, m_layout);
    m_ui->cmbSelection->setFocus();
}

WorkbenchWindow::~WorkbenchWindow() = default;

// --- Parts of the window ----------------------------------------------------------------------------------

void WorkbenchWindow::buildFrames()
{
    const auto frame = [this](const QString& name, ScreenFrame::Builder builder) {
        m_frames.push_back(new ScreenFrame(name, std::move(builder), this));
        m_ui->layFrames->addWidget(m_frames.back());
    };
    frame(u"frmeCompany"_s, [this] { return new CompanyView(m_presenter.companyScreen(), this); });
    frame(u"frmePosition"_s, [this] {
        auto* view = new PositionView(m_presenter.positionScreen(), this);
        if (!m_presenter.navigator().hasScreen(u"FrmProfileJob"_s))
            view->binder().lock(u"cmdJProfile1"_s, tr("The questionnaire is not part of this version."));
        return view;
    });
    frame(u"frmeContact"_s, [this] { return new ContactView(m_presenter.contactScreen(), this); });
    frame(u"frmeDocument"_s, [this] { return new DocumentView(m_presenter.documentScreen(), this); });
    frame(u"frmePipeline"_s, [this] { return new PipelineView(m_presenter.pipelineScreen(), this); });

    FormBinder& company = m_frames.front()->build().binder();
    if (!m_presenter.navigator().hasScreen(u"FrmProfileComp"_s))
        company.lock(u"cmdProfile1"_s, tr("The questionnaire is not part of this version."));
    if (!m_presenter.toolAvailable(u"target"_s))
        company.lock(u"imgTgt"_s, tr("This company is on your target list."));
}

void WorkbenchWindow::buildTabs()
{
    m_ui->TabStrip1->setDocumentMode(true);
    m_ui->TabStrip1->setExpanding(false);
    int number = 0;
    for (const ScreenTab& tab : workbenchtools::tabs()) {
        const int index = m_ui->TabStrip1->addTab(icons::named(tab.icon), tab.text);
        m_ui->TabStrip1->setTabData(index, tab.key);
        m_ui->TabStrip1->setTabToolTip(index, tr("%1 (Ctrl+%2)").arg(tab.text).arg(++number));
    }
    // A tab strip that is not shown yet does not say that it has grown.
    m_ui->TabStrip1->updateGeometry();
    connect(m_ui->TabStrip1, &QTabBar::currentChanged, this, &WorkbenchWindow::openTab);
}

void WorkbenchWindow::buildTools()
{
    QAction* create = addToolAction(*m_ui->tbar, u"new"_s, tr("New"), u"document-new"_s, {});
    m_ui->tbar->addSeparator();
    auto* more = new QMenu(tr("More"), this);
    more->setObjectName(u"mnuMore"_s);
    more->setToolTipsVisible(true);
    for (const ScreenRow& row : m_presenter.navigator().screens()) {
        if (row.tool.isEmpty())
            continue;
        const bool there = m_presenter.toolAvailable(row.tool);
        QWidget& place = there ? static_cast<QWidget&>(*m_ui->tbar) : *more;
        addToolAction(place, row.tool, row.caption, row.icon, row.tip);
    }
    addToolAction(*more, u"helpdox"_s, tr("Manual"), u"edit-copy"_s, tr("The manual as a document"));
    m_ui->tbar->addSeparator();
    m_ui->tbar->addAction(more->menuAction());
    auto* drop = static_cast<QToolButton*>(m_ui->tbar->widgetForAction(more->menuAction()));
    drop->setObjectName(u"cmdMore"_s);
    drop->setAccessibleName(more->title());
    drop->setPopupMode(QToolButton::InstantPopup);
    buildNewMenu(*create);
}

/// Adds a tool to the toolbar or to its menu of further ones.
QAction* WorkbenchWindow::addToolAction(QWidget& place, const QString& key, const QString& text,
                                        const QString& icon, const QString& tip)
{
    auto* action = new QAction(icons::named(icon), text, this);
    action->setObjectName(u"tbar_"_s + key);
    action->setData(key);
    describeTool(*action, key, tip);
    connect(action, &QAction::triggered, this, [this, key] { runTool(key); });
    place.addAction(action);
    if (QWidget* button = m_ui->tbar->widgetForAction(action)) {
        button->setObjectName(u"cmdTool_"_s + key);
        button->setAccessibleName(text);
    }
    return action;
}

/// Enables a door to a tool that is there, and says of any other why it is shut.
void WorkbenchWindow::describeTool(QAction& action, const QString& key, const QString& tip)
{
    const bool available = m_presenter.toolAvailable(key);
    action.setEnabled(available);
    action.setToolTip(available ? tip : tr("%1: not part of this version").arg(tip));
}

void WorkbenchWindow::buildNewMenu(QAction& button)
{
    m_new = &button;
    m_new->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    auto* menu = new QMenu(this);
    menu->setObjectName(u"mnuNew"_s);
    for (const ScreenTab& tab : workbenchtools::tabs()) {
        const QString key = tab.key.toLower();
        QAction* entry =
            menu->addAction(icons::named(tab.icon), tab.text, this, [this, key] { runTool(key); });
        entry->setObjectName(u"tbar_"_s + key);
        entry->setData(key);
    }
    m_new->setMenu(menu);
    auto* drop = static_cast<QToolButton*>(m_ui->tbar->widgetForAction(m_new));
    drop->setPopupMode(QToolButton::MenuButtonPopup);
}

void WorkbenchWindow::buildMenus()
{
    using Slot = void (FrmData::*)();
    struct Entry
    {
        QAction* action;
        Slot slot;
        QString icon;
    };
    const QList<Entry> own = {
        {m_ui->FileExport, &FrmData::fileExport, u"document-export"_s},
        {m_ui->WriteCards, &FrmData::writeCards, {}},
        {m_ui->WriteContacts, &FrmData::writeContacts, {}},
        {m_ui->WriteCompanies, &FrmData::writeCompanies, {}},
        {m_ui->WritePositions, &FrmData::writePositions, {}},
        {m_ui->RestoreData, &FrmData::restoreData, u"document-revert"_s},
        {m_ui->RestoreCopy, &FrmData::restoreACopy, u"document-revert"_s},
        {m_ui->FilePrint, &FrmData::filePrint, u"document-print"_s},
        {m_ui->Setup, &FrmData::setup, {}},
        {m_ui->Preview, &FrmData::preview, u"document-print-preview"_s},
        {m_ui->FileExit, &FrmData::fileExit, u"application-exit"_s},
        {m_ui->Documentation, &FrmData::documentation, u"edit-copy"_s},
        {m_ui->HelpAbout, &FrmData::helpAbout, u"help-about"_s},
    };
    for (const Entry& entry : own) {
        if (!entry.icon.isEmpty())
            entry.action->setIcon(icons::named(entry.icon));
        describeTool(*entry.action, entry.action->objectName(), entry.action->toolTip());
        connect(entry.action, &QAction::triggered, this, [this, slot = entry.slot] {
            leaveField();
            std::invoke(slot, m_presenter);
        });
    }
    for (const ScreenRow& row : m_presenter.navigator().screens()) {
        if (auto* action = row.entry.isEmpty() ? nullptr : findChild<QAction*>(row.entry))
            buildToolEntry(*action, row);
    }
}

/// The menus know where a tool stands in them; the rest is its row's.
void WorkbenchWindow::buildToolEntry(QAction& action, const ScreenRow& row)
{
    action.setText(row.menuText);
    action.setIcon(icons::named(row.icon));
    action.setShortcut(QKeySequence(row.shortcut));
    describeTool(action, row.entry, row.tip);
    connect(&action, &QAction::triggered, this, [this, entry = row.entry] { runMenu(entry); });
}

void WorkbenchWindow::buildStatusBar()
{
    const auto panel = [this](const QString& name, const QString& accessible) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setAccessibleName(accessible);
        return label;
    };
    m_proc = panel(u"proc"_s, tr("What is going on"));
    m_saved = panel(u"saved"_s, tr("What is saved"));
    m_offer = panel(u"offer"_s, tr("Deleted, with a way back"));
    m_offer->setTextFormat(Qt::RichText);
    m_offer->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_offer->hide();
    m_position = panel(u"position"_s, tr("State of the position"));
    m_counts = panel(u"counts"_s, tr("Records in the database"));
    m_version = panel(u"version"_s, tr("Version"));
    m_load = new QProgressBar(this);
    m_load->setObjectName(u"pbarLoad"_s);
    m_load->setAccessibleName(tr("Loading"));
    m_load->setMaximumWidth(fontMetrics().averageCharWidth() * 24);
    m_load->hide();
    m_counts->setForegroundRole(QPalette::PlaceholderText);
    for (QWidget* widget : {m_proc, m_saved, m_offer})
        m_ui->sbar->addWidget(widget);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_load, m_position, m_counts, m_version})
        m_ui->sbar->addPermanentWidget(widget);
}

/// Ctrl+Z in a text field is the field's own: fields take it before the menu does.
void WorkbenchWindow::buildUndo()
{
    m_ui->EditUndo->setIcon(icons::named(u"edit-undo"_s));
    m_ui->EditRedo->setIcon(icons::named(u"edit-redo"_s));
    const auto run = [this](auto step) {
        return [this, step] {
            leaveField();
            std::invoke(step, m_presenter);
            render();
        };
    };
    connect(m_ui->EditUndo, &QAction::triggered, this, run(&FrmData::undo));
    connect(m_ui->EditRedo, &QAction::triggered, this, run(&FrmData::redo));
    connect(m_offer, &QLabel::linkActivated, m_ui->EditUndo, &QAction::trigger);
    connect(&m_presenter, &FrmData::undoOffered, this, &WorkbenchWindow::offerUndo);
    m_offerEnds.setSingleShot(true);
    connect(&m_offerEnds, &QTimer::timeout, m_offer, &QWidget::hide);
    connect(&m_presenter.session().undoStack(), &UndoStack::changed, this, &WorkbenchWindow::renderUndo);
    renderUndo();
}

void WorkbenchWindow::renderUndo()
{
    const UndoStack& stack = m_presenter.session().undoStack();
    m_offer->hide(); // the way back now begins at another action
    m_ui->EditUndo->setEnabled(stack.canUndo());
    m_ui->EditUndo->setText(stack.canUndo()
                                ? tr("&Undo \"%1\"").arg(QString(stack.undoText()).replace(u'&', u"&&"_s))
                                : tr("&Undo"));
    m_ui->EditRedo->setEnabled(stack.canRedo());
    m_ui->EditRedo->setText(stack.canRedo()
                                ? tr("&Redo \"%1\"").arg(QString(stack.redoText()).replace(u'&', u"&&"_s))
                                : tr("&Redo"));
    const QString reason = tr("Not available: this system's SQLite cannot record changes");
    m_ui->EditUndo->setToolTip(UndoStack::isAvailable() ? tr("Take the latest change back") : reason);
    m_ui->EditRedo->setToolTip(UndoStack::isAvailable() ? tr("Do again what was taken back") : reason);
}

void WorkbenchWindow::offerUndo(const QString& done)
{
    constexpr int offered = 10000; // milliseconds
    if (!m_presenter.session().undoStack().canUndo())
        return;
    const QString shown = m_offer->fontMetrics().elidedText(done, Qt::ElideMiddle, width() / 3);
    m_offer->setText(tr("%1 <a href=\"undo\">Undo</a>").arg(shown.toHtmlEscaped()));
    m_offer->show();
    m_offerEnds.start(offered);
}

void WorkbenchWindow::buildShortcuts()
{
    const auto shortcut = [this](QKeyCombination keys, auto action) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, action);
    };
    shortcut(Qt::CTRL | Qt::Key_F, [this] {
        m_ui->cmbSelection->setFocus(Qt::ShortcutFocusReason);
        m_ui->cmbSelection->lineEdit()->selectAll();
    });
    // Says so and saves nothing; the field being edited is deliberately not left for it.
    shortcut(Qt::CTRL | Qt::Key_S, [this] { m_presenter.ctrlS(); });
    shortcut(Qt::Key_F1, [this] { helpForField(); });
    for (int index = 0; index < m_ui->TabStrip1->count(); ++index)
        shortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + index), [this, index] { selectTab(index); });
    const auto walk = [this](int step) {
        const int count = m_ui->TabStrip1->count();
        selectTab((m_ui->TabStrip1->currentIndex() + step + count) % count);
    };
    shortcut(Qt::CTRL | Qt::Key_Tab, [walk] { walk(1); });
    shortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, [walk] { walk(-1); });
    shortcut(Qt::Key_F6, [this] {
        m_ui->cmbSelection->lineEdit()->hasFocus() ? enterScreen()
                                                   : m_ui->cmbSelection->setFocus(Qt::ShortcutFocusReason);
    });
}

// --- What happens -----------------------------------------------------------------------------------------

void WorkbenchWindow::connectSelector()
{
    connect(m_ui->cmbSelection, &CompanySelector::chosen, this, [this](const QString& name) {
        m_presenter.cmbSelectionClick(name);
        m_ui->cmbSelection->showChosen(m_presenter.selection().selectedCompanyName());
        render();
        m_ui->cmbSelection->lineEdit()->selectAll();
        // What was chosen is open: the keyboard goes there, unless the user has gone elsewhere already.
        if (m_ui->cmbSelection->lineEdit()->hasFocus() &&
            name == m_presenter.selection().selectedCompanyName())
            enterScreen();
    });
    connect(m_ui->cmbSelection, &CompanySelector::nothingFound, this, [this](const QString& typed) {
        m_ui->lblNoMatch->setText(tr("No company name contains “%1”.").arg(typed));
    });
    connect(m_ui->cmbSelection, &CompanySelector::typing, m_ui->lblNoMatch, &QLabel::clear);
    m_ui->cmbSelection->lineEdit()->setPlaceholderText(tr("Type any part of a name"));
    m_ui->cmdBegin->setIcon(icons::named(u"document-new"_s));
    connect(m_ui->cmdBegin, &QAbstractButton::clicked, this, [this] {
        runTool(u"company"_s);
        runTool(u"new"_s);
    });
    connect(m_ui->cmbCategory, &QComboBox::activated, this, &WorkbenchWindow::fillSelector);
}

void WorkbenchWindow::connectPresenter()
{
    connect(&m_presenter, &FrmData::changed, this, &WorkbenchWindow::render);
    connect(&m_presenter, &FrmData::companyListChanged, this, &WorkbenchWindow::fillSelector);
    connect(&m_presenter, &FrmData::progressChanged, m_load, [this](int done, int total) {
        m_load->setRange(0, total);
        m_load->setValue(done);
    });
    connect(&m_presenter, &FrmData::closeRequested, this, &QWidget::close);
    connect(&m_presenter.selection(), &Selection::selectedCompanyNameChanged, m_ui->cmbSelection,
            &CompanySelector::showChosen);
    connect(&m_presenter.form(), &Form::controlChanged, this, [this](const QString& control) {
        if (control == "sbar"_L1)
            m_ui->sbar->showMessage(m_presenter.form().text(control));
    });
    connect(&m_presenter, &FrmData::importProgress, m_progress.get(), &ImportProgressView::setRunning);
}

void WorkbenchWindow::runTool(const QString& key)
{
    leaveField();
    m_presenter.tbarButtonClick(key);
    render();
}

void WorkbenchWindow::runMenu(const QString& entry)
{
    leaveField();
    m_presenter.menuClick(entry);
    render();
}

void WorkbenchWindow::selectTab(int index)
{
    const bool isOpen = m_ui->TabStrip1->currentIndex() == index;
    m_ui->TabStrip1->setCurrentIndex(index);
    if (isOpen || m_ui->TabStrip1->hasFocus())
        enterScreen();
}

void WorkbenchWindow::openTab(int index)
{
    const bool walking = m_ui->TabStrip1->hasFocus();
    QWidget* const before = focusWidget();
    leaveField();
    // A field that goes with its screen would hand the keyboard to whatever comes next.
    m_ui->TabStrip1->setFocus(Qt::OtherFocusReason);
    const bool opened = m_presenter.tabStrip1Click(m_ui->TabStrip1->tabData(index).toString());
    render();
    // Whoever walks along the tabs by the arrow keys goes on walking, and a screen that knows better where to
    // begin has said so.
    if (!opened && before)
        before->setFocus(Qt::OtherFocusReason);
    else if (!walking && m_ui->TabStrip1->hasFocus())
        enterScreen();
}

/// Gives the keyboard to the open screen; the screens of a company need one first.
void WorkbenchWindow::enterScreen()
{
    const QString tab = m_presenter.currentTab();
    const bool ofCompany = tab != "Document"_L1 && tab != "Pipeline"_L1;
    if (ofCompany && m_presenter.selection().selectedCompanyName().isEmpty())
        m_ui->cmbSelection->setFocus(Qt::OtherFocusReason);
    else
        openScreen().firstField().setFocus(Qt::OtherFocusReason);
}

void WorkbenchWindow::helpForField()
{
    for (const QWidget* widget = focusWidget(); widget; widget = widget->parentWidget()) {
        if (const int id = widget->property("helpContextId").toInt(); id > 0) {
            m_presenter.help(id);
            return;
        }
    }
    m_ui->sbar->showMessage(tr("There is no help for this field."), 4000);
}

void WorkbenchWindow::leaveField()
{
    for (const ScreenFrame* frame : m_frames) {
        if (frame->screen())
            frame->screen()->binder().leaveField();
    }
}

// --- What is shown ----------------------------------------------------------------------------------------

void WorkbenchWindow::fillSelector()
{
    const QString narrowed = m_ui->cmbCategory->currentData().toString();
    m_ui->cmbCategory->clear();
    m_ui->cmbCategory->addItem(tr("All categories"));
    for (const FrmData::Category& category : m_presenter.categories())
        m_ui->cmbCategory->addItem(category.caption, category.name);
    m_ui->cmbCategory->setCurrentIndex(std::max(0, m_ui->cmbCategory->findData(narrowed)));
    m_ui->cmbSelection->setCompanies(m_presenter.companiesOf(m_ui->cmbCategory->currentData().toString()));
}

void WorkbenchWindow::render()
{
    const QStringList unsaved = unsavedFields();
    setWindowTitle(m_presenter.caption() + u"[*]"_s);
    setWindowModified(!unsaved.isEmpty());
    m_saved->setText(m_presenter.savedText(unsaved));
    m_new->setToolTip(tr("%1 (Ctrl+N)").arg(m_presenter.newToolTip()));
    if (const QString picture = workbenchtools::newPicture(m_presenter.newImage()); picture != m_newPicture) {
        m_newPicture = picture;
        m_new->setIcon(icons::forNew(picture));
    }
    m_proc->setText(m_presenter.procText());
    m_proc->setVisible(m_presenter.procVisible());
    m_position->setText(m_presenter.positionPanel());
    m_position->setVisible(!m_presenter.positionPanel().isEmpty());
    m_counts->setText(m_presenter.countsPanel());
    m_version->setText(m_presenter.versionPanel());
    renderCompanyLabel();
    // The entry for a new one is always there.
    m_ui->pnlBegin->setVisible(m_presenter.companyList().size() <= 1);
    const QSignalBlocker quiet(m_ui->TabStrip1);
    for (int index = 0; index < m_ui->TabStrip1->count(); ++index) {
        if (m_ui->TabStrip1->tabData(index).toString() == m_presenter.currentTab())
            m_ui->TabStrip1->setCurrentIndex(index);
    }
}

/// The labels of the open screen's fields that hold what the store does not.
QStringList WorkbenchWindow::unsavedFields() const
{
    QStringList labels;
    ScreenView& screen = openScreen();
    for (const FieldRow& row : screen.form().rows()) {
        if (row.save == SaveOn::Never || !screen.form().isDirty(row.control))
            continue;
        if (const auto* field = screen.findChild<QWidget*>(row.control))
            labels.append(labelOf(screen, *field));
    }
    return labels;
}

void WorkbenchWindow::renderCompanyLabel()
{
    // White is lost on a light window, and there are no graphics behind the label to stand out from: whenever
    // it is white it lies on the accent. The word tells a category from a company.
    const bool white = m_presenter.companyLabel() != CompanyLabel::Company;
    m_ui->Label45->setAutoFillBackground(white);
    m_ui->Label45->setAlignment(white ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    m_ui->Label45->setBackgroundRole(white ? QPalette::Highlight : QPalette::NoRole);
    m_ui->Label45->setForegroundRole(white ? QPalette::HighlightedText : QPalette::NoRole);
}

ScreenView& WorkbenchWindow::openScreen() const
{
    const auto open =
        std::ranges::find_if(m_frames, [](const ScreenFrame* frame) { return !frame->isHidden(); });
    return (open == m_frames.end() ? m_frames.front() : *open)->build();
}

ReportDocument WorkbenchWindow::printableForm() const
{
    ScreenView& screen = openScreen();
    return ::printableForm(screen, screen.form(), m_presenter.selection().selectedCompanyName());
}

bool WorkbenchWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && !m_unloaded && !m_progress->isRunning())
        m_presenter.activated();
    return QMainWindow::event(event);
}

void WorkbenchWindow::closeEvent(QCloseEvent* event)
{
    if (m_progress->isRunning()) {
        event->ignore();
        return;
    }
    if (!m_unloaded) {
        leaveField();
        if (!m_presenter.mayLeave()) {
            event->ignore();
            return;
        }
        windowstate::save(*this, m_layout);
        m_unloaded = true;
        m_presenter.unload();
    }
    event->accept();
}
