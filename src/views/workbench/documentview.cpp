#include "views/workbench/documentview.h"

#include "views/common/formbinder.h"
#include "views/workbench/emptyview.h"
#include "workbench/documentscreen.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DocumentView::DocumentView(DocumentScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
{
    setObjectName(u"frmeDocument"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new EmptyView(u"emptyDocument"_s, tr("Document"), u"edit-copy"_s, this));
    m_binder = new FormBinder(presenter.form(), presenter, *this);
}

DocumentView::~DocumentView() = default;

Form& DocumentView::form()
{
    return m_presenter.form();
}
