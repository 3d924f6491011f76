// What holds for every view of the program: names, words for people who cannot see it, the way of the Tab
// key.
#include "formats/sharedfolders.h"
#include "intake/frmimport.h"
#include "intake/frmmerge.h"
#include "support/runtest.h"
#include "views/intake/importview.h"
#include "views/intake/mergeview.h"
#include "views/windowbench.h"

#include "assessment/frmeditor.h"
#include "assessment/frmprofile.h"
#include "assessment/frmuprofile.h"
#include "intake/frmautoparse.h"
#include "output/frmreport.h"
#include "planning/frmactionplan.h"
#include "planning/frmgoals.h"
#include "planning/frmstats.h"
#include "views/assessment/editorview.h"
#include "views/assessment/profileview.h"
#include "views/assessment/questionnaireview.h"
#include "views/assessment/uprofileview.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/daylist.h"
#include "views/calendar/reminderview.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/output/findview.h"
#include "views/output/keysearchview.h"
#include "views/output/reportview.h"
#include "views/planning/actionplanview.h"
#include "views/planning/goalsview.h"
#include "views/planning/statsview.h"
#include "views/workbench/addressentryview.h"
#include "views/workbench/importprogressview.h"
#include "views/workbench/splashview.h"
#include "workbench/addressentry.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/frmsplash.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QClipboard>
#include <QComboBox>
#include <QDirIterator>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QSlider>
#include <QToolButton>
#include <QTreeView>

namespace {

/// What a person uses or reads by its name: fields, boxes, buttons, lists, bars.
bool isControl(const QWidget& widget)
{
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QTreeView*>(&widget) ||
           qobject_cast<const QTabBar*>(&widget) || qobject_cast<const QProgressBar*>(&widget) ||
           qobject_cast<const QSlider*>(&widget) || qobject_cast<const DayList*>(&widget);
}

/// Qt builds further widgets into its own controls; those belong to the control around them.
bool isBuiltIn(const QWidget& widget)
{
    if (widget.objectName().startsWith("qt_"_L1))
        return true;
    const QWidget* parent = widget.parentWidget();
    return parent && (qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
                      qobject_cast<const QLineEdit*>(parent));
}

QString described(const QWidget& widget)
{
    return QLatin1String(widget.metaObject()->className()) + u' ' + widget.objectName();
}

QRect placeOf(const QWidget& widget)
{
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
}

/// A reader goes down a column or on to the right, never back up on the same side.
bool followsForTheEye(const QRect& before, const QRect& after)
{
    return after.top() >= before.bottom() || after.left() >= before.right();
}

/// From the control named @p start round to it again: every control once, in reading order.
void walkByTab(QWidget& window, const QString& start)
{
    QStringList wanted;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!isControl(*control) || isBuiltIn(*control))
            continue;
        // The arrow keys, not Tab, go to the other buttons of a group.
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        if (button && button->autoExclusive() && !button->isChecked())
            continue;
        if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus))
            wanted.append(control->objectName());
    }
    auto* first = window.findChild<QWidget*>(start);
    first->setFocus();
    QStringList visited;
    const QWidget* before = first;
    while (visited.size() <= wanted.size()) {
        const QWidget* now = QApplication::focusWidget();
        // In a date the Tab key goes from part to part.
        if (visited.isEmpty() || visited.last() != now->objectName())
            visited.append(now->objectName());
        if (before != now)
            QVERIFY2(followsForTheEye(placeOf(*before), placeOf(*now)),
                     qPrintable(described(*before) + u" -> "_s + described(*now)));
        before = now;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == first && visited.size() > 1)
            break;
    }
    for (const QString& control : std::as_const(wanted))
        QVERIFY2(visited.contains(control), qPrintable(control + u" is none of "_s + visited.join(u' ')));
    QCOMPARE(visited.size(), wanted.size());
}

/// No two labels, buttons or menus that can be seen have the same letter.
void checkMnemonics(QWidget& window, int least)
{
    QHash<QString, QString> owners;
    const auto take = [&owners](const QString& text, const QString& owner) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (key.isEmpty())
            return;
        QVERIFY2(!owners.contains(key), qPrintable(key + u": "_s + owners.value(key) + u" and "_s + owner));
        owners.insert(key, owner);
    };
    // The screens that are not open do not hear their letters.
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->isVisible())
            take(label->text(), label->objectName());
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->objectName().startsWith("cmdTool_"_L1))
            take(button->text(), button->objectName());
    }
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* menu : bar->actions())
            take(menu->text(), menu->text());
    }
    QVERIFY2(owners.size() > least, qPrintable(QString::number(owners.size())));
}

/// At its smallest the window shows its labels and buttons whole.
void checkTexts(QWidget& window)
{
    QCoreApplication::processEvents(); // what the screen's content changed has reached the window's hint
    // The window's least size follows its screen's in two steps; a user who drags the edge is slower than
    // both.
    for (int i = 0; i < 2; ++i) {
        window.resize(window.minimumSizeHint());
        QCoreApplication::processEvents();
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool isText = label ? !label->text().isEmpty() && !label->wordWrap()
                                  : qobject_cast<const QPushButton*>(widget) != nullptr;
        if (widget->isVisible() && isText)
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(), qPrintable(described(*widget)));
    }
}

void checkNames(const QWidget& view)
{
    QStringList seen;
    for (const QWidget* widget : view.findChildren<QWidget*>()) {
        if ((!isControl(*widget) && !qobject_cast<const QLabel*>(widget)) || isBuiltIn(*widget))
            continue;
        const QByteArray place = described(*widget).toUtf8();
        QVERIFY2(!widget->objectName().isEmpty(), place);
        QVERIFY2(!seen.contains(widget->objectName()), place); // twice
        QVERIFY2(!isControl(*widget) || !widget->accessibleName().isEmpty(), place);
        seen.append(widget->objectName());
    }
    QVERIFY(!seen.isEmpty());
}

void checkRows(const QWidget& view, const Form& form)
{
    // The kind of an entry is shown by the button that chooses it.
    const QHash<QString, QString> shownBy{{u"txtFormat"_s, u"imgFormat"_s}};
    for (const FieldRow& row : form.rows())
        QVERIFY2(view.findChild<QWidget*>(shownBy.value(row.control, row.control)), qPrintable(row.control));
}

/// An object tells only its own kind whether anybody listens to it.
struct Listened : QObject
{
    using QObject::isSignalConnected;
};

bool isHeard(const QObject& object, const char* signal)
{
    const int index = object.metaObject()->indexOfSignal(signal);
    return index >= 0 && (object.*&Listened::isSignalConnected)(object.metaObject()->method(index));
}

void checkButtons(const QWidget& view)
{
    for (const QAbstractButton* button : view.findChildren<QAbstractButton*>()) {
        const QString name = button->objectName();
        const bool isNamed =
            name.startsWith("cmd"_L1) || name.startsWith("img"_L1) || name.startsWith("lbl"_L1);
        if (!isNamed || button->toolTip().contains("not part of this version"_L1))
            continue;
        const auto* tool = qobject_cast<const QToolButton*>(button);
        const QAction* action = tool ? tool->defaultAction() : nullptr;
        QVERIFY2(isHeard(*button, "clicked(bool)") || isHeard(*button, "toggled(bool)") ||
                     isHeard(*button, "chosen(QString)") || (action && isHeard(*action, "triggered(bool)")),
                 qPrintable(name));
    }
}

void checkPaste(const QWidget& view)
{
    for (QPlainTextEdit* box : view.findChildren<QPlainTextEdit*>()) {
        const QString before = box->toPlainText();
        box->paste();
        QCOMPARE(box->toPlainText(), before);
    }
}

} // namespace

class TestAudit : public QObject
{
    Q_OBJECT

private slots:
    void everyUiFileIsAudited()
    {
        QStringList audited{u"importprogressview"_s}; // built without one
        QDirIterator files(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/src/views", {u"*.ui"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            audited.append(QFileInfo(files.next()).baseName());
        audited.sort();
        QCOMPARE(views().keys(), audited);
    }

    void viewIsNamedAndEveryPartOfItWorks_data()
    {
        QTest::addColumn<QString>("name");
        const QStringList names = views().keys();
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << name;
    }
    void viewIsNamedAndEveryPartOfItWorks()
    {
        QFETCH(QString, name);
        start();
        const Opened opened = views().value(name)(*this);
        checkNames(*opened.view);
        if (opened.form)
            checkRows(*opened.view, *opened.form);
        checkButtons(*opened.view);
        QApplication::clipboard()->setMimeData(new QMimeData); // as when no program owns it
        checkPaste(*opened.view);
    }

    void everyFieldHasALabelWithAMnemonic_data() { addScreens(); }
    void everyFieldHasALabelWithAMnemonic()
    {
        QFETCH(QString, screen);
        QWidget* window = windowOn(screen);
        const auto labels = window->findChildren<QLabel*>();
        for (const QWidget* field : frameOf(*window, screen)->findChildren<QWidget*>()) {
            const auto* line = isBuiltIn(*field) ? nullptr : qobject_cast<const QLineEdit*>(field);
            if (!qobject_cast<const QPlainTextEdit*>(field) && (!line || line->isReadOnly()))
                continue;
            const bool labelled = std::ranges::any_of(labels, [field](const QLabel* label) {
                return label->buddy() == field && !QKeySequence::mnemonic(label->text()).isEmpty();
            });
            QVERIFY2(labelled, qPrintable(described(*field)));
        }
    }

    void screenIsWalkedByKeysAndReadAtItsSmallest_data() { addScreens(); }
    void screenIsWalkedByKeysAndReadAtItsSmallest()
    {
        QFETCH(QString, screen);
        QWidget* window = windowOn(screen);
        checkMnemonics(*window, screen == "Pipeline"_L1 ? 5 : 10); // the steps have their own keys
        walkByTab(*window, screen == "Calendar"_L1 ? u"cmdLast"_s : u"cmbSelection"_s);
        checkTexts(*window);
        if (screen == "Calendar"_L1) {
            window->resize(1280, 720); // it goes further down, for large scales, and then its form scrolls
            QCoreApplication::processEvents();
        }
        const QWidget* form = frameOf(*window, screen)->findChild<QScrollArea*>()->widget();
        QVERIFY(form->width() <= form->parentWidget()->width());
    }

    void dialogIsWalkedByKeysAndReadAtItsSmallest_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("first");
        QTest::newRow("goals") << u"goalsview"_s << u"dtpStart"_s;
        QTest::newRow("plan") << u"actionplanview"_s << u"cmbPhases"_s;
    }
    void dialogIsWalkedByKeysAndReadAtItsSmallest()
    {
        QFETCH(QString, name);
        QFETCH(QString, first);
        start();
        QWidget* dialog = views().value(name)(*this).view;
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        checkMnemonics(*dialog, 5);
        walkByTab(*dialog, first);
        checkTexts(*dialog);
    }

    void historyIsWalkedByKeysAndReadAtItsSmallest()
    {
        start();
        QWidget* dialog = history().view;
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        checkMnemonics(*dialog, 12);
        walkByTab(*dialog, u"txtSearch"_s);
        checkTexts(*dialog);
    }

private:
    /// A view with a record in it, and the form behind it; null when it has none.
    struct Opened
    {
        QWidget* view;
        Form* form;
    };
    using Maker = std::function<Opened(TestAudit&)>;

    /// Every view of the program by its .ui file, and the way to it.
    static QMap<QString, Maker> views()
    {
        using T = TestAudit;
        return {
            {u"actionplanview"_s, [](T& t) { return t.own<ActionPlanView, FrmActionPlan>(); }},
            {u"addressentryview"_s, [](T& t) { return t.address(); }},
            {u"autoparseview"_s, [](T& t) { return t.cardParser(); }},
            {u"calendarview"_s, [](T& t) { return t.calendar(); }},
            {u"companyview"_s, [](T& t) { return t.tab(u"Company"_s, t.m_bench->company()); }},
            {u"contactview"_s, [](T& t) { return t.tab(u"Contact"_s, t.m_bench->frm->contactScreen()); }},
            {u"documentview"_s, [](T& t) { return t.tab(u"Document"_s, t.m_bench->frm->documentScreen()); }},
            {u"findview"_s, [](T& t) { return t.finder(); }},
            {u"goalsview"_s, [](T& t) { return t.own<GoalsView, FrmGoals>(t.m_bench->navigator); }},
            {u"editorview"_s, [](T& t) { return t.editor(); }},
            {u"historyview"_s, [](T& t) { return t.history(); }},
            {u"importview"_s, [](T& t) { return t.import(); }},
            {u"mergeview"_s, [](T& t) { return t.merge(); }},
            {u"importprogressview"_s,
             [](T& t) {
                 return Opened{t.m_bench->find(u"frmImportProg"_s), nullptr};
             }},
            {u"keysearchview"_s,
             [](T& t) { return t.keep<KeySearchView>(t.m_bench->presenters->keySearch); }},
            {u"pipelineview"_s, [](T& t) { return t.tab(u"Pipeline"_s, t.m_bench->frm->pipelineScreen()); }},
            {u"positionview"_s, [](T& t) { return t.tab(u"Position"_s, t.m_bench->frm->positionScreen()); }},
            {u"profileview"_s, [](T& t) { return t.profile(); }},
            {u"questionnaireview"_s,
             [](T& t) {
                 t.m_question.load({u"Which?"_s, {u"One"_s, u"Two"_s}, 1, {}});
                 t.m_view = std::make_unique<QuestionnaireView>(t.m_question);
                 return Opened{t.m_view.get(), &t.m_question.form()};
             }},
            {u"reminderview"_s, [](T& t) { return t.keep<ReminderView>(t.m_bench->presenters->reminder); }},
            {u"reportview"_s, [](T& t) { return t.report(); }},
            {u"statsview"_s, [](T& t) { return t.own<StatsView, FrmStats>(); }},
            {u"splashview"_s, [](T& t) { return t.splash(); }},
            {u"uprofileview"_s, [](T& t) { return t.uprofile(); }},
            {u"workbenchwindow"_s, [](T& t) { return t.workbench(); }},
        };
    }

    void addScreens()
    {
        QTest::addColumn<QString>("screen");
        for (const auto& screen :
             {u"Company"_s, u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s, u"Calendar"_s})
            QTest::newRow(qPrintable(screen)) << screen;
    }
    /// A bench with the program's own screens, open on a company.
    void start()
    {
        m_view.reset();
        m_screen.reset();
        m_splash.reset();
        m_bench = std::make_unique<WindowBench>();
        m_bench->navigator.hasAll = false;
        m_bench->addContact(u"Ann"_s, u"Lee"_s, m_bench->addCompany(u"Acme"_s));
        m_bench->run(u"Insert into Position(Title,CompanyKey) Values('Planner',1)"_s);
        m_bench->run(u"Insert into Document(Document,Type) Values('cv.pdf','Resume')"_s);
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/objectives.jwd"),
                    m_bench->world.session->file(u"objectives.jwd"_s));
        m_bench->open();
        m_bench->choose(u"Acme"_s);
        // The link to the target list shows for some companies only, but is a control like the others.
        m_bench->company().form().setVisible(u"imgTgt"_s, true);
    }
    /// The window with one of its screens open and a record on it.
    QWidget* windowOn(const QString& screen)
    {
        start();
        QWidget* window = m_bench->window.get();
        if (screen == "Calendar"_L1) {
            window = calendar().view;
            window->show();
            m_bench->presenters->calendar.cmdNewEvent();
            m_bench->presenters->calendar.cmdAdd1();
            window->activateWindow();
        } else {
            m_bench->frm->tabStrip1Click(screen);
            m_bench->frm->documentScreen().showDocument(u"cv.pdf"_s);
        }
        QCoreApplication::processEvents(); // the layouts learn what is to be seen now
        return window;
    }
    /// The part of a screen's window that holds its fields.
    static QWidget* frameOf(QWidget& window, const QString& screen)
    {
        return window.findChild<QWidget*>(screen == "Calendar"_L1 ? u"frmeEventData"_s
                                                                  : QString(u"frme"_s + screen));
    }
    template<typename Screen> Opened tab(const QString& name, Screen& screen)
    {
        m_bench->frm->tabStrip1Click(name);
        return {frameOf(*m_bench->window, name), &screen.form()};
    }
    /// The whole window, once each of its screens has been opened.
    Opened workbench()
    {
        for (const auto& screen : {u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s})
            m_bench->frm->tabStrip1Click(screen);
        return {m_bench->window.get(), &m_bench->frm->form()};
    }
    template<typename View, typename Screen> Opened keep(Screen& screen)
    {
        m_view = std::make_unique<View>(screen, *m_bench->layout);
        return {m_view.get(), &screen.form()};
    }
    /// A screen that nothing but its view needs.
    template<typename View, typename Screen, typename... More> Opened own(More&... more)
    {
        auto screen = std::make_shared<Screen>(*m_bench->world.session, more...);
        screen->load();
        m_screen = screen;
        return keep<View>(*screen);
    }
    Opened address()
    {
        m_address = std::make_unique<FrmAddressEntry>(*m_bench->frm);
        m_address->load({1, 0});
        return keep<AddressEntryView>(*m_address);
    }
    Opened import()
    {
        m_import = std::make_unique<FrmImport>(*m_bench->world.session, m_folders, m_bench->navigator);
        return keep<ImportView>(*m_import);
    }
    Opened merge()
    {
        m_merge = std::make_unique<FrmMerge>(*m_bench->world.session);
        return keep<MergeView>(*m_merge);
    }
    Opened cardParser()
    {
        m_parser = std::make_unique<FrmAutoParse>(*m_bench->world.session);
        return keep<AutoParseView>(*m_parser);
    }
    Opened calendar()
    {
        m_bench->presenters->calendar.load();
        return keep<CalendarView>(m_bench->presenters->calendar);
    }
    Opened history()
    {
        m_bench->world.session->outlookAvailable = true;
        m_bench->presenters->history.load(1);
        return keep<HistoryView>(m_bench->presenters->history);
    }
    Opened finder()
    {
        m_view = std::make_unique<FindView>(m_bench->presenters->find);
        return {m_view.get(), nullptr};
    }
    Opened report()
    {
        m_report = std::make_unique<FrmReport>(*m_bench->world.session, m_bench->screens->printing());
        return keep<ReportView>(*m_report);
    }
    Opened editor()
    {
        m_editor = std::make_unique<FrmEditor>(*m_bench->world.session);
        m_editor->load();
        return keep<EditorView>(*m_editor);
    }
    Opened profile()
    {
        m_bench->world.prompts.acceptAll(Answer::Ok); // the folder has no template
        m_profile =
            std::make_unique<FrmProfile>(*m_bench->world.session, FrmProfile::Company, FrmProfile::Doors());
        m_profile->load(1);
        return keep<ProfileView>(*m_profile);
    }
    Opened uprofile()
    {
        m_uprofile = std::make_unique<FrmUProfile>(*m_bench->world.session);
        m_uprofile->load();
        return keep<UProfileView>(*m_uprofile);
    }
    Opened splash()
    {
        m_splash = std::make_unique<FrmSplash>(*m_bench->world.session);
        m_view = std::make_unique<SplashView>(*m_splash);
        return {m_view.get(), &m_splash->form()};
    }

    std::unique_ptr<WindowBench> m_bench;
    SharedFolders m_folders;
    std::unique_ptr<FrmImport> m_import;
    std::unique_ptr<FrmMerge> m_merge;
    std::unique_ptr<FrmSplash> m_splash;
    std::unique_ptr<FrmAddressEntry> m_address;
    std::unique_ptr<FrmAutoParse> m_parser;
    std::unique_ptr<FrmEditor> m_editor;
    std::unique_ptr<FrmProfile> m_profile;
    std::unique_ptr<FrmUProfile> m_uprofile;
    std::unique_ptr<FrmReport> m_report;
    FrmQuestionnaire m_question;
    std::shared_ptr<QObject> m_screen; ///< behind m_view, when it is the audit's own
    std::unique_ptr<QWidget> m_view;   ///< beside the window
};

JOBWRIGHT_TEST(TestAudit)
#include "tst_audit.moc"
