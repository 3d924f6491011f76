// What holds for every view of the program: names, words for people who cannot see it, the way of the Tab
// key.
#include "views/windowbench.h"

#include "calendar/frmevcal.h"
#include "history/frmhistory.h"
#include "intake/frmautoparse.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/daylist.h"
#include "views/calendar/reminderview.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/workbench/importprogressview.h"
#include "views/workbench/splashview.h"
#include "workbench/documentscreen.h"
#include "workbench/frmsplash.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QClipboard>
#include <QComboBox>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QSlider>
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

QList<QWidget*> controlsOf(QWidget& view)
{
    QList<QWidget*> controls;
    const auto widgets = view.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (isControl(*widget) && !isBuiltIn(*widget))
            controls.append(widget);
    }
    return controls;
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
    const auto controls = controlsOf(window);
    for (const QWidget* control : controls) {
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
        if (QApplication::focusWidget() == first)
            break;
    }
    for (const QString& control : std::as_const(wanted))
        QVERIFY2(visited.contains(control), qPrintable(u"never visited: "_s + control));
    QCOMPARE(visited.size(), wanted.size());
}

QString mnemonicOf(const QString& text)
{
    return QKeySequence::mnemonic(text).toString();
}

} // namespace

class TestAudit : public QObject
{
    Q_OBJECT

private slots:
    void everyControlHasItsOwnName_data() { addViews(); }
    void everyControlHasItsOwnName();
    void everyControlHasWordsForAScreenReader_data() { addViews(); }
    void everyControlHasWordsForAScreenReader();
    void everyFieldHasALabelWithAMnemonic_data() { addScreens(); }
    void everyFieldHasALabelWithAMnemonic();
    void noMnemonicIsTakenTwice_data() { addScreens(); }
    void noMnemonicIsTakenTwice();
    void tabKeyVisitsEveryControlInReadingOrder_data() { addScreens(); }
    void tabKeyVisitsEveryControlInReadingOrder();
    void everyBoxOfLinesOutlivesAClipboardWithoutFormats_data() { addViews(); }
    void everyBoxOfLinesOutlivesAClipboardWithoutFormats();
    void everyRowOfTheFormHasItsControl();
    void noTextIsCutOffAtTheSmallestSize_data() { addScreens(); }
    void noTextIsCutOffAtTheSmallestSize();
    void historyIsWalkedByKeysAndReadAtItsSmallest();

private:
    void addViews()
    {
        QTest::addColumn<QString>("name");
        for (const auto& name : {u"frmData"_s, u"frmImportProg"_s, u"frmSplash"_s, u"frmAutoParse"_s,
                                 u"frmEvCal"_s, u"frmHistory"_s, u"frmReminder"_s})
            QTest::newRow(qPrintable(name)) << name;
    }
    void addScreens()
    {
        QTest::addColumn<QString>("screen");
        for (const auto& screen :
             {u"Company"_s, u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s, u"Calendar"_s})
            QTest::newRow(qPrintable(screen)) << screen;
    }
    /// The window with one of its screens open and a record on it.
    QWidget* windowOn(const QString& screen)
    {
        if (screen == "Calendar"_L1)
            return calendarWithEntry();
        QWidget* window = view(u"frmData"_s);
        m_bench->run(u"Insert into Position(Title,CompanyKey) Values('Planner',1)"_s);
        m_bench->run(u"Insert into Document(Document,Type) Values('cv.pdf','Resume')"_s);
        m_bench->frm->tabStrip1Click(screen);
        m_bench->frm->documentScreen().showDocument(u"cv.pdf"_s);
        QCoreApplication::processEvents(); // the layouts learn what is to be seen now
        return window;
    }
    /// The calendar with an entry in its frame.
    QWidget* calendarWithEntry()
    {
        QWidget* window = view(u"frmEvCal"_s);
        window->show();
        m_bench->frm->calendar().cmdNewEvent();
        m_bench->frm->calendar().cmdAdd1();
        window->activateWindow();
        QCoreApplication::processEvents();
        return window;
    }
    /// The part of a screen's window that holds its fields.
    static QWidget* frameOf(QWidget& window, const QString& screen)
    {
        return window.findChild<QWidget*>(screen == "Calendar"_L1 ? u"frmeEventData"_s
                                                                  : QString(u"frme"_s + screen));
    }
    /// A view of this name on a bench of its own.
    QWidget* view(const QString& name)
    {
        m_cardView.reset();
        m_historyView.reset();
        m_reminderView.reset();
        m_calendarView.reset();
        m_bench = std::make_unique<WindowBench>();
        m_bench->addContact(u"Ann"_s, u"Lee"_s, m_bench->addCompany(u"Acme"_s));
        m_bench->open();
        m_bench->choose(u"Acme"_s);
        // The link to the target list shows for some companies only, but is a control like the others.
        m_bench->company().form().setVisible(u"imgTgt"_s, true);
        m_splash = std::make_unique<FrmSplash>(*m_bench->world.session);
        m_splashView = std::make_unique<SplashView>(*m_splash);
        m_cardView = std::make_unique<AutoParseView>(m_bench->frm->autoParse(), *m_bench->layout);
        m_reminderView = std::make_unique<ReminderView>(m_bench->frm->reminder(), *m_bench->layout);
        if (name == "frmReminder"_L1)
            return m_reminderView.get();
        m_bench->frm->calendar().load();
        m_calendarView = std::make_unique<CalendarView>(m_bench->frm->calendar(), *m_bench->layout);
        if (name == "frmSplash"_L1)
            return m_splashView.get();
        if (name == "frmEvCal"_L1)
            return m_calendarView.get();
        if (name == "frmAutoParse"_L1)
            return m_cardView.get();
        if (name == "frmHistory"_L1)
            return historyView();
        return name == "frmData"_L1 ? m_bench->window.get() : m_bench->find<QWidget>(name);
    }

    QWidget* historyView()
    {
        m_bench->world.session->outlookAvailable = true;
        m_bench->frm->history().load(1);
        m_historyView = std::make_unique<HistoryView>(m_bench->frm->history(), *m_bench->layout);
        return m_historyView.get();
    }

    std::unique_ptr<WindowBench> m_bench;
    std::unique_ptr<FrmSplash> m_splash;
    std::unique_ptr<SplashView> m_splashView;
    std::unique_ptr<AutoParseView> m_cardView;
    std::unique_ptr<HistoryView> m_historyView;
    std::unique_ptr<ReminderView> m_reminderView;
    std::unique_ptr<CalendarView> m_calendarView;
};

void TestAudit::everyControlHasItsOwnName()
{
    QFETCH(QString, name);
    QStringList seen;
    const auto widgets = view(name)->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const bool wanted =
            (isControl(*widget) || qobject_cast<const QLabel*>(widget)) && !isBuiltIn(*widget);
        if (!wanted)
            continue;
        QVERIFY2(!widget->objectName().isEmpty(), qPrintable(described(*widget)));
        QVERIFY2(!seen.contains(widget->objectName()), qPrintable(u"twice: "_s + widget->objectName()));
        seen.append(widget->objectName());
    }
    QVERIFY(!seen.isEmpty());
}

void TestAudit::everyBoxOfLinesOutlivesAClipboardWithoutFormats()
{
    QFETCH(QString, name);
    const auto boxes = view(name)->findChildren<QPlainTextEdit*>();
    QApplication::clipboard()->setMimeData(new QMimeData); // as when no program owns it
    for (QPlainTextEdit* box : boxes) {
        const QString before = box->toPlainText();
        box->paste();
        QCOMPARE(box->toPlainText(), before);
    }
}

void TestAudit::everyControlHasWordsForAScreenReader()
{
    QFETCH(QString, name);
    const auto controls = controlsOf(*view(name));
    for (const QWidget* control : controls)
        QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(described(*control)));
}

void TestAudit::everyFieldHasALabelWithAMnemonic()
{
    QFETCH(QString, screen);
    QWidget* window = windowOn(screen);
    const auto labels = window->findChildren<QLabel*>();
    const QWidget* frame = frameOf(*window, screen);
    const auto fields = frame->findChildren<QWidget*>();
    for (const QWidget* field : fields) {
        const auto* line = isBuiltIn(*field) ? nullptr : qobject_cast<const QLineEdit*>(field);
        if (!qobject_cast<const QPlainTextEdit*>(field) && (!line || line->isReadOnly()))
            continue;
        const bool labelled = std::ranges::any_of(labels, [field](const QLabel* label) {
            return label->buddy() == field && !mnemonicOf(label->text()).isEmpty();
        });
        QVERIFY2(labelled, qPrintable(described(*field)));
    }
}

void TestAudit::noMnemonicIsTakenTwice()
{
    QFETCH(QString, screen);
    QWidget* window = windowOn(screen);
    QHash<QString, QString> owners;
    const auto take = [&owners](const QString& text, const QString& owner) {
        const QString key = mnemonicOf(text);
        if (key.isEmpty())
            return;
        QVERIFY2(!owners.contains(key), qPrintable(key + u": "_s + owners.value(key) + u" and "_s + owner));
        owners.insert(key, owner);
    };
    // The screens that are not open do not hear their letters.
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->isVisible())
            take(label->text(), label->objectName());
    }
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->objectName().startsWith("cmdTool_"_L1))
            take(button->text(), button->objectName());
    }
    const bool hasMenu = window == m_bench->window.get();
    for (const QAction* menu : hasMenu ? m_bench->window->menuBar()->actions() : QList<QAction*>())
        take(menu->text(), menu->text());
    QVERIFY(owners.size() > (screen == "Pipeline"_L1 ? 5 : 10)); // the steps have their own keys
}

void TestAudit::tabKeyVisitsEveryControlInReadingOrder()
{
    QFETCH(QString, screen);
    QWidget* window = windowOn(screen);
    walkByTab(*window, screen == "Calendar"_L1 ? u"cmdLast"_s : u"cmbSelection"_s);
}

void TestAudit::everyRowOfTheFormHasItsControl()
{
    const QWidget* window = windowOn(u"Document"_s);
    for (const Form* form :
         {&m_bench->company().form(), &m_bench->frm->documentScreen().form(), &m_bench->frm->form()}) {
        for (const FieldRow& row : form->rows())
            QVERIFY2(window->findChild<QWidget*>(row.control), qPrintable(row.control));
    }
}

void TestAudit::noTextIsCutOffAtTheSmallestSize()
{
    QFETCH(QString, screen);
    QWidget* window = windowOn(screen);
    QCoreApplication::processEvents(); // what the screen's content changed has reached the window's hint
    // The window's least size follows its screen's in two steps; a user who drags the edge is slower than
    // both.
    for (int i = 0; i < 2; ++i) {
        window->resize(window->minimumSizeHint());
        QCoreApplication::processEvents();
    }
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty() && !label->wordWrap())
            QVERIFY2(label->width() >= label->minimumSizeHint().width(), qPrintable(described(*label)));
    }
    const QWidget* frame = frameOf(*window, screen);
    const QWidget* form = frame->findChild<QScrollArea*>()->widget();
    QVERIFY(form->width() <= form->parentWidget()->width());
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
        if (button->isVisible())
            QVERIFY2(button->width() >= button->minimumSizeHint().width(), qPrintable(described(*button)));
    }
}

void TestAudit::historyIsWalkedByKeysAndReadAtItsSmallest()
{
    QWidget* dialog = view(u"frmHistory"_s);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    walkByTab(*dialog, u"txtSearch"_s);
    QStringList letters;
    for (const QLabel* label : dialog->findChildren<QLabel*>())
        letters.append(mnemonicOf(label->text()));
    for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
        letters.append(mnemonicOf(button->text()));
    letters.removeAll(QString());
    QCOMPARE(QStringList(letters.cbegin(), letters.cend()).removeDuplicates(), 0);
    QVERIFY(letters.size() > 12);
    dialog->resize(dialog->minimumSizeHint());
    QCoreApplication::processEvents();
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
        const bool isText = qobject_cast<const QPushButton*>(widget) || qobject_cast<const QLabel*>(widget);
        if (widget->isVisible() && isText)
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(), qPrintable(described(*widget)));
    }
    for (const FieldRow& row : m_bench->frm->history().form().rows())
        QVERIFY2(dialog->findChild<QWidget*>(row.control), qPrintable(row.control));
}

QTEST_MAIN(TestAudit)
#include "tst_audit.moc"
