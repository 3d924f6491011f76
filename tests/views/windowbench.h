// The workbench's window on a store of its own, driven as a user drives it.
#pragma once

#include "views/common/companyselector.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/bench.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabBar>

/// Bench and window. Companies are put in before open().
class WindowBench : public Bench
{
public:
    WindowBench() { layoutPath = world.folder.filePath(u"layout.ini"_s); }

    void open()
    {
        frm->load();
        layout = std::make_unique<QSettings>(layoutPath, QSettings::IniFormat);
        window = std::make_unique<WorkbenchWindow>(*frm, *layout);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    template<typename Widget> Widget* find(const QString& name)
    {
        auto* widget = window->findChild<Widget*>(name);
        if (!widget)
            QTest::qFail(qPrintable(u"no control "_s + name), __FILE__, __LINE__);
        return widget;
    }
    QLineEdit* line(const QString& name) { return find<QLineEdit>(name); }
    CompanySelector* selector() { return find<CompanySelector>(u"cmbSelection"_s); }
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
    /// Goes into a field with the mouse and empties it.
    void enter(const QString& name)
    {
        QTest::mouseClick(find<QWidget>(name), Qt::LeftButton);
        find<QWidget>(name)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
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

    QString layoutPath;
    std::unique_ptr<QSettings> layout;
    std::unique_ptr<WorkbenchWindow> window;
};
