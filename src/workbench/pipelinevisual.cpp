// The bars of the Pipeline screen: how far each position has come, ten on a page.
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/pipelinescreen.h"
#include "workbench/shell.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void PipelineScreen::displayVisual()
{
    displayVisual(m_page * barsAPage, (m_page + 1) * barsAPage);
    if (m_page < m_pageCount)
        return;
    // Positions have gone, and the page that was open with them.
    m_page = m_pageCount - 1;
    displayVisual(m_page * barsAPage, (m_page + 1) * barsAPage);
}

void PipelineScreen::displayVisual(int first, int last)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - displayVisual (Pipeline)"_s);
    m_bars.fill(Bar());
    m_visualCaption = tr("Visual - %1 - %2").arg(first).arg(last);
    // Which positions there are and in which order is told by the keys alone; whole rows are read for the
    // ten.
    RecordSet order =
        session.dataJW().getExecQueryRecords(u"Select PositionKey from Position order by Title"_s);
    const int count = order.rowCount();
    m_pageCount = std::max(1, (count + barsAPage - 1) / barsAPage);
    if (count == 0) {
        session.logError(u"No Positions found in database."_s);
        emit changed();
        return;
    }
    int row = 0;
    for (; row < first && !order.atEnd(); ++row)
        order.next();
    for (Bar& bar : m_bars) {
        if (order.atEnd() || row >= last)
            break;
        drawBar(bar, order.value(0).toLongLong());
        order.next();
        ++row;
    }
    emit changed();
}

void PipelineScreen::drawBar(Bar& bar, qint64 key)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const RecordSet record =
        dataJW.getExecQueryRecords(u"Select * from Position where PositionKey=" + QString::number(key));
    bar.title = record.text(u"Title");
    bar.company = dataJW.getCompanyNameByKey(record.key(u"CompanyKey").value_or(0));
    bar.progress = PipelineSteps(record).progress();
    bar.position = static_cast<int>(key);
}

void PipelineScreen::cmdVisualBack()
{
    m_page = std::max(0, m_page - 1);
    displayVisual();
}

void PipelineScreen::cmdVisualNext()
{
    m_page = std::min(m_pageCount - 1, m_page + 1);
    displayVisual();
}

void PipelineScreen::shpLblClick(int index)
{
    const Bar bar = m_bars.at(static_cast<size_t>(index));
    if (bar.position == 0)
        return;
    emit barChosen(bar.company);
    const QModelIndex node = reveal(bar.company, bar.title);
    showPosition(bar.company, bar.title);
    emit nodeChosen(node, false);
    m_form.requestFocus(u"tvwHire"_s);
}

void PipelineScreen::shpLblDblClick(int index)
{
    const Bar bar = m_bars.at(static_cast<size_t>(index));
    if (bar.position == 0)
        return;
    shpLblClick(index);
    openPosition(bar.company, bar.title);
}
