#include "desktop/desktopprogress.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// Steps come by the thousand; painting each would cost more than the work.
constexpr qint64 millisecondsBetweenPaints = 40;
/// Work that ends sooner shows no window.
constexpr qint64 millisecondsBeforeShown = 300;

} // namespace

void DesktopProgress::begin(const QString& title, int total)
{
    m_cancelled = false;
    m_dialog = new QProgressDialog(QApplication::activeWindow());
    m_dialog->setObjectName(u"progress"_s);
    m_dialog->setWindowTitle(title);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    auto* line = new QLabel(title);
    line->setTextFormat(Qt::PlainText);
    line->setMinimumWidth(m_dialog->fontMetrics().averageCharWidth() * 48);
    m_dialog->setLabel(line);
    m_dialog->findChild<QProgressBar*>()->setAccessibleName(
        QCoreApplication::translate("DesktopProgress", "Progress"));
    m_dialog->setAutoReset(false);
    m_dialog->setAutoClose(false);
    m_dialog->setRange(0, total);
    m_dialog->setMinimumDuration(static_cast<int>(millisecondsBeforeShown));
    QObject::connect(m_dialog, &QProgressDialog::canceled, m_dialog, [this] { m_cancelled = true; });
    m_sincePaint.start();
}

bool DesktopProgress::step(int done, const QString& line)
{
    if (!m_dialog || m_sincePaint.elapsed() < millisecondsBetweenPaints)
        return m_dialog && !m_cancelled;
    m_sincePaint.restart();
    if (!line.isEmpty())
        m_dialog->setLabelText(line);
    m_dialog->setValue(done); // lets events through once the window is up
    // Until the window is up and takes the input, what the user types must not reach the screen that works.
    QCoreApplication::processEvents(m_dialog->isVisible() ? QEventLoop::AllEvents
                                                          : QEventLoop::ExcludeUserInputEvents);
    return m_dialog && !m_cancelled;
}

void DesktopProgress::end()
{
    delete m_dialog;
}
