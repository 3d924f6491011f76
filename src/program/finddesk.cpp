#include "program/finddesk.h"

#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/output/findview.h"
#include "views/workbench/workbenchwindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

/// A screen of the program, as against a message box, a file picker or running work.
bool isScreen(const QWidget& window)
{
    return window.objectName().startsWith(u"frm");
}

} // namespace

FindDesk::FindDesk(FindAnything& finder, WorkbenchWindow& window)
    : m_finder(finder)
    , m_window(window)
{
    buildBox();
    qApp->installEventFilter(this);
}

void FindDesk::buildBox()
{
    auto* tbar = m_window.findChild<QToolBar*>(u"tbar"_s);
    auto* space = new QWidget(tbar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    tbar->addWidget(space);
    m_box = new QLineEdit(tbar);
    m_box->setObjectName(u"txtFindBox"_s);
    m_box->setAccessibleName(tr("Find anything"));
    m_box->setPlaceholderText(tr("Find anything (Ctrl+K)"));
    m_box->setToolTip(tr("Words over all that the database holds"));
    m_box->setFixedWidth(look::fieldWidth(*m_box, 26));
    m_box->setFocusPolicy(Qt::ClickFocus);
    m_box->addAction(icons::named(u"edit-find"_s), QLineEdit::LeadingPosition);
    tbar->addWidget(m_box);
}

bool FindDesk::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && watched == m_box) {
        QTimer::singleShot(0, this, [this] { open(); });
        return false;
    }
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_K || key->modifiers() != Qt::ControlModifier)
        return false;
    // Once the key has been dealt with: the box has an event loop of its own.
    QTimer::singleShot(0, this, [this] { open(); });
    return true;
}

bool FindDesk::open(const QString& text)
{
    const QWidget* modal = QApplication::activeModalWidget();
    if (m_open || QApplication::activePopupWidget() || (modal && !isScreen(*modal)))
        return false;
    QWidget* active = QApplication::activeWindow();
    QWidget& over = active ? *active : m_window;
    m_box->clearFocus();
    m_open = true;
    FindView view(m_finder, &over);
    view.placeOver(over);
    if (!text.isEmpty())
        view.setText(text);
    const bool taken = view.exec() == QDialog::Accepted;
    m_open = false;
    if (taken)
        showFound(view.takenRow());
    return true;
}

void FindDesk::showFound(int row)
{
    // A screen that is left ends only when the loop that runs it is reached again.
    QTimer::singleShot(0, this, [this, row] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal) {
            m_window.activateWindow();
            m_finder.open(m_finder.results().index(row, 0));
        } else if (isScreen(*modal) && modal->close()) {
            showFound(row);
        }
    });
}
