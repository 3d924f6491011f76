#include "views/workbench/contactview.h"

#include "views/common/formbinder.h"
#include "views/workbench/emptyview.h"
#include "workbench/contactscreen.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ContactView::ContactView(ContactScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
{
    setObjectName(u"frmeContact"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new EmptyView(u"emptyContact"_s, tr("Contact"), u"user-identity"_s, this));
    m_binder = new FormBinder(presenter.form(), presenter, *this);
}

ContactView::~ContactView() = default;

Form& ContactView::form()
{
    return m_presenter.form();
}
