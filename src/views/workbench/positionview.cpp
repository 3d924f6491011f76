#include "views/workbench/positionview.h"

#include "views/common/formbinder.h"
#include "views/workbench/emptyview.h"
#include "workbench/positionscreen.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PositionView::PositionView(PositionScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
{
    setObjectName(u"frmePosition"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new EmptyView(u"emptyPosition"_s, tr("Position"), u"view-task"_s, this));
    m_binder = new FormBinder(presenter.form(), presenter, *this);
}

PositionView::~PositionView() = default;

Form& PositionView::form()
{
    return m_presenter.form();
}
