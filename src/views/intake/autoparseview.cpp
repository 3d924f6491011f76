#include "views/intake/autoparseview.h"

#include "intake/frmautoparse.h"
#include "ui_autoparseview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

using namespace Qt::StringLiterals;

AutoParseView::AutoParseView(FrmAutoParse& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::AutoParseView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->cmdPaste->setIcon(icons::named(u"edit-paste"_s));
    m_ui->cmdLocation->setIcon(icons::named(u"find-location"_s));
    m_ui->cmdSave->setIcon(icons::named(u"document-save"_s));
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 38);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connect(m_ui->cmdPaste, &QAbstractButton::clicked, this, &AutoParseView::paste);
    connect(&presenter, &FrmAutoParse::hideRequested, this, &QDialog::accept);
    m_ui->txtBizCard->setFocus();
}

AutoParseView::~AutoParseView() = default;

void AutoParseView::paste()
{
    // As the user's own Ctrl+V does it: at the cursor, as plain text, and to be undone.
    m_ui->txtBizCard->paste();
    m_ui->txtBizCard->setFocus(Qt::OtherFocusReason);
}

void AutoParseView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
