// What holds for every view of the program: names, words for people who cannot see it, the way of the Tab
// key.
#include "views/windowbench.h"

#include "views/workbench/importprogressview.h"
#include "views/workbench/splashview.h"
#include "workbench/frmsplash.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>
#include <QTreeView>

namespace {

/// What a person uses or reads by its name: fields, boxes, buttons, lists, bars.
bool isControl(const QWidget& widget)
{
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QTreeView*>(&widget) || qobject_cast<const QTabBar*>(&widget) ||
           qobject_cast<const QProgressBar*>(&widget) || qobject_cast<const QSlider*>(&widget);
}

/// Qt builds further widgets into its own controls; those belong to the control around them.
bool isBuiltIn(const QWidget& widget)
{
    if (widget.objectName().startsWith("qt_"_L1))
        return true;
    const QWidget* parent = widget.parentWidget();
    return parent && (qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent));
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
    void everyFieldHasALabelWithAMnemonic_data() { addTabs(); }
    void everyFieldHasALabelWithAMnemonic();
    void noMnemonicIsTakenTwice_data() { addTabs(); }
    void noMnemonicIsTakenTwice();
    void tabKeyVisitsEveryControlInReadingOrder_data() { addTabs(); }
    void tabKeyVisitsEveryControlInReadingOrder();
    void everyRowOfTheFormHasItsControl();
    void noTextIsCutOffAtTheSmallestSize_data() { addTabs(); }
    void noTextIsCutOffAtTheSmallestSize();

private:
    void addViews()
    {
        QTest::addColumn<QString>("name");
        for (const auto& name : {u"frmData"_s, u"frmImportProg"_s, u"frmSplash"_s})
            QTest::newRow(qPrintable(name)) << name;
    }
    void addTabs()
    {
        QTest::addColumn<QString>("tab");
        for (const auto& tab : {u"Company"_s, u"Contact"_s})
            QTest::newRow(qPrintable(tab)) << tab;
    }
    /// The window with this tab open.
    QWidget* tabView(const QString& tab)
    {
        QWidget* window = view(u"frmData"_s);
        m_bench->frm->tabStrip1Click(tab);
        QCoreApplication::processEvents();
        return window;
    }
    /// A view of this name on a bench of its own.
    QWidget* view(const QString& name)
    {
        m_bench = std::make_unique<WindowBench>();
        m_bench->addContact(u"Ann"_s, u"Lee"_s, m_bench->addCompany(u"Acme"_s));
        m_bench->open();
        m_bench->choose(u"Acme"_s);
        // The link to the target list shows for some companies only, but is a control like the others.
        m_bench->company().form().setVisible(u"imgTgt"_s, true);
        m_splash = std::make_unique<FrmSplash>(*m_bench->world.session);
        m_splashView = std::make_unique<SplashView>(*m_splash);
        if (name == "frmSplash"_L1)
            return m_splashView.get();
        return name == "frmData"_L1 ? m_bench->window.get() : m_bench->find<QWidget>(name);
    }

    std::unique_ptr<WindowBench> m_bench;
    std::unique_ptr<FrmSplash> m_splash;
    std::unique_ptr<SplashView> m_splashView;
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

void TestAudit::everyControlHasWordsForAScreenReader()
{
    QFETCH(QString, name);
    const auto controls = controlsOf(*view(name));
    for (const QWidget* control : controls)
        QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(described(*control)));
}

void TestAudit::everyFieldHasALabelWithAMnemonic()
{
    QFETCH(QString, tab);
    const QWidget* window = tabView(tab);
    const auto labels = window->findChildren<QLabel*>();
    const QWidget* frame = window->findChild<QWidget*>(u"frme"_s + tab);
    const auto fields = frame->findChildren<QWidget*>();
    for (const QWidget* field : fields) {
        const auto* line = qobject_cast<const QLineEdit*>(field);
        if (!qobject_cast<const QPlainTextEdit*>(field) && (!line || line->isReadOnly() || isBuiltIn(*line)))
            continue;
        const bool labelled = std::ranges::any_of(labels, [field](const QLabel* label) {
            return label->buddy() == field && !mnemonicOf(label->text()).isEmpty();
        });
        QVERIFY2(labelled, qPrintable(described(*field)));
    }
}

void TestAudit::noMnemonicIsTakenTwice()
{
    QFETCH(QString, tab);
    QWidget* window = tabView(tab);
    QHash<QString, QString> owners;
    const auto take = [&owners](const QString& text, const QString& owner) {
        const QString key = mnemonicOf(text);
        if (key.isEmpty())
            return;
        QVERIFY2(!owners.contains(key), qPrintable(key + u": "_s + owners.value(key) + u" and "_s + owner));
        owners.insert(key, owner);
    };
    // The letters of a screen that is not open are free for the one that is.
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->isVisible())
            take(label->text(), label->objectName());
    }
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->objectName().startsWith("cmdTool_"_L1))
            take(button->text(), button->objectName());
    }
    for (const QAction* menu : m_bench->window->menuBar()->actions())
        take(menu->text(), menu->text());
    QVERIFY(owners.size() > 20);
}

void TestAudit::tabKeyVisitsEveryControlInReadingOrder()
{
    QFETCH(QString, tab);
    QWidget* window = tabView(tab);
    QStringList wanted;
    const auto controls = controlsOf(*window);
    for (const QWidget* control : controls) {
        // The arrow keys, not Tab, go to the other buttons of a group.
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        if (button && button->autoExclusive() && !button->isChecked())
            continue;
        if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus))
            wanted.append(control->objectName());
    }
    const QWidget* first = window->findChild<QWidget*>(u"cmbSelection"_s);
    window->findChild<QWidget*>(u"cmbSelection"_s)->setFocus();
    QStringList visited;
    const QWidget* before = first;
    while (visited.size() <= wanted.size()) {
        const QWidget* now = QApplication::focusWidget();
        visited.append(now->objectName());
        if (before != now)
            QVERIFY2(followsForTheEye(placeOf(*before), placeOf(*now)),
                     qPrintable(described(*before) + u" -> "_s + described(*now)));
        before = now;
        m_bench->press(Qt::Key_Tab);
        if (QApplication::focusWidget() == first)
            break;
    }
    for (const QString& control : std::as_const(wanted))
        QVERIFY2(visited.contains(control), qPrintable(u"never visited: "_s + control));
    QCOMPARE(visited.size(), wanted.size());
}

void TestAudit::everyRowOfTheFormHasItsControl()
{
    const QWidget* window = view(u"frmData"_s);
    for (const Form* form : {&m_bench->company().form(), &m_bench->frm->form()}) {
        for (const FieldRow& row : form->rows())
            QVERIFY2(window->findChild<QWidget*>(row.control), qPrintable(row.control));
    }
}

void TestAudit::noTextIsCutOffAtTheSmallestSize()
{
    QFETCH(QString, tab);
    QWidget* window = tabView(tab);
    window->resize(window->minimumSizeHint());
    QCoreApplication::processEvents();
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty() && !label->wordWrap())
            QVERIFY2(label->width() >= label->minimumSizeHint().width(), qPrintable(described(*label)));
    }
    for (const QString& name : {u"pnlForm"_s, u"pnlContactForm"_s}) {
        const QWidget* form = window->findChild<QWidget*>(name);
        QVERIFY(!form->isVisible() || form->width() <= form->parentWidget()->width());
    }
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
        if (button->isVisible())
            QVERIFY2(button->width() >= button->minimumSizeHint().width(), qPrintable(described(*button)));
    }
}

QTEST_MAIN(TestAudit)
#include "tst_audit.moc"
