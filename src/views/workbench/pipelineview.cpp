#include "views/workbench/pipelineview.h"

#include "views/common/formbinder.h"
#include "views/workbench/emptyview.h"
#include "workbench/pipelinescreen.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PipelineView::PipelineView(PipelineScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
{
    setObjectName(u"frmePipeline"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new EmptyView(u"emptyPipeline"_s, tr("Pipeline"), u"view-list-details"_s, this));
    m_binder = new FormBinder(presenter.form(), presenter, *this);
}

PipelineView::~PipelineView() = default;

Form& PipelineView::form()
{
    return m_presenter.form();
}
