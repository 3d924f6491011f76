// A window driven as a user drives it: real keys and clicks, controls by their names.
#pragma once

#include "views/common/companyselector.h"

#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

/// What a user does in the window in front.
class WindowDriver
{
public:
    QWidget* front = nullptr;

    /// Waits until the window has the keyboard.
    void use(QWidget& window)
    {
        front = &window;
        QVERIFY(QTest::qWaitForWindowActive(front));
    }
    /// What the user does in the dialog that @p open brings up over the window, closing included.
    void inDialog(const std::function<void()>& act, const std::function<void()>& open)
    {
        const QScopedValueRollback<QWidget*> before(front);
        bool came = false;
        QTimer soon;
        QObject::connect(&soon, &QTimer::timeout, front, [&, below = front] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog || dialog == below || QApplication::activeWindow() != dialog)
                return;
            soon.stop();
            came = true;
            front = dialog;
            const QPointer<QWidget> kept(dialog);
            act();
            if (kept && kept->isVisible()) {
                QTest::qFail("the dialog was left open", __FILE__, __LINE__);
                kept->hide();
            }
        });
        soon.start(1);
        open();
        if (!came)
            QTest::qFail("no dialog came up", __FILE__, __LINE__);
    }

    /// Lets something be dropped as the desktop reports it; false when the place refuses it.
    static bool drop(QWidget& target, QMimeData* what)
    {
        const std::unique_ptr<QMimeData> data(what);
        const QPoint place = target.rect().center();
        QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&target, &event);
        return true;
    }

    /// A control of the window in front.
    template<typename Widget = QWidget> Widget* find(const QString& name)
    {
        auto* widget = front->findChild<Widget*>(name);
        if (!widget)
            QTest::qFail(qPrintable(u"no control "_s + name), __FILE__, __LINE__);
        return widget;
    }
    QLineEdit* line(const QString& name) { return find<QLineEdit>(name); }
    CompanySelector* selector() { return find<CompanySelector>(u"cmbSelection"_s); }
    /// What a label, a field or a selector shows.
    QString text(const QString& name)
    {
        const QWidget* widget = find(name);
        const char* property = qobject_cast<const QComboBox*>(widget)        ? "currentText"
                               : qobject_cast<const QPlainTextEdit*>(widget) ? "plainText"
                                                                             : "text";
        return widget->property(property).toString();
    }
    void click(const QString& name) { QTest::mouseClick(find(name), Qt::LeftButton); }
    /// Opens a button's menu and clicks one of its choices.
    void pick(const QString& button, const QString& choice)
    {
        QTimer::singleShot(0, front, [choice] {
            QMenu* menu = nullptr;
            if (!QTest::qWaitFor(
                    [&] { return (menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())); }))
                return QTest::qFail("no menu came up", __FILE__, __LINE__);
            const QList<QAction*> actions = menu->actions();
            const auto found = std::ranges::find(actions, choice, &QAction::text);
            if (found == actions.end())
                return menu->close(), QTest::qFail(qPrintable(u"no choice "_s + choice), __FILE__, __LINE__);
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(*found).center());
        });
        click(button);
        // Without a window manager the closed menu would keep the keyboard.
        QApplication::setActiveWindow(front);
    }
    /// Sends a text key by key to whatever has the focus; other alphabets too.
    void type(const QString& text)
    {
        for (const QChar letter : text) {
            if (letter == u'\n')
                press(Qt::Key_Return);
            else
                QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                    QString(letter), {});
        }
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Goes into a field with the mouse, empties it and types.
    void enter(const QString& name, const QString& text)
    {
        click(name);
        find(name)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        type(text);
    }
    /// Goes into a field or a selector by the keyboard and types over what it holds.
    void write(const QString& name, const QString& text)
    {
        find(name)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
    /// Chooses a company by typing and Enter.
    void find(const QString& typed, Qt::Key end)
    {
        press(Qt::Key_F, Qt::ControlModifier);
        type(typed);
        press(end);
    }
    QString tab()
    {
        const auto* strip = find<QTabBar>(u"TabStrip1"_s);
        return strip->tabData(strip->currentIndex()).toString();
    }
};
