#include "views/assessment/profileview.h"

#include "assessment/frmprofile.h"
#include "ui_profileview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

/// The colour of agreement, and what can be read on it whatever the palette.
constexpr QColor agreement(0xC0, 0xFF, 0xC0);

} // namespace

ProfileView::ProfileView(FrmProfile& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::ProfileView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    if (presenter.kind() == FrmProfile::Position) {
        setObjectName(u"frmProfileJob"_s);
        setWindowTitle(tr("Position Profile"));
        m_ui->frmeCompanyPref->setText(tr("Position Preferences"));
    }
    m_ui->cmdAskQ->setIcon(icons::named(u"dialog-question"_s));
    m_ui->cmdTempEdit->setIcon(icons::named(u"document-edit"_s));
    m_ui->cmdUpdateProfile->setIcon(icons::named(u"document-save"_s));
    for (int i = 0; i < FrmProfile::labels; ++i) {
        auto* answer = findChild<QPushButton*>(u"lblCQS%1"_s.arg(i));
        connect(answer, &QAbstractButton::clicked, this, [this, i] { m_presenter.lblCQSClick(i); });
    }
    new FormBinder(presenter.form(), presenter, *this);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, m_ui->cmdUpdateProfile,
            &QAbstractButton::click);
    connect(&presenter, &FrmProfile::changed, this, &ProfileView::render);
    connect(&presenter, &FrmProfile::closed, this, &QDialog::accept);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 36);
    windowstate::restore(*this, layout);
    render();
}

ProfileView::~ProfileView() = default;

void ProfileView::render()
{
    for (int i = 0; i < FrmProfile::labels; ++i) {
        renderLabel(u"lblCQ%1"_s.arg(i));
        const QString name = u"lblCQS%1"_s.arg(i);
        auto* answer = findChild<QPushButton*>(name);
        const QString text = m_presenter.form().text(name);
        answer->setText(fontMetrics()
                            .elidedText(text, Qt::ElideRight, fontMetrics().averageCharWidth() * 60)
                            .replace(u'&', u"&&"_s));
        answer->setAccessibleDescription(text);
        renderLabel(name);
    }
    const int count = m_presenter.questionCount();
    const QString words = tr("%1 of %2 answers agree").arg(m_presenter.rank()).arg(count);
    m_ui->lblRank->setText(words);
    constexpr double units = 1440;
    m_ui->shpPtr->setPointer((m_presenter.pointer() - 6000) / units, m_presenter.isPointerRed(), words);
}

void ProfileView::renderLabel(const QString& name)
{
    auto* label = findChild<QWidget*>(name);
    const bool lit = m_presenter.isHighlighted(name);
    QPalette colours = lit ? label->palette() : QPalette();
    if (lit) {
        for (const auto role : {QPalette::Window, QPalette::Button})
            colours.setColor(role, agreement);
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
            colours.setColor(role, Qt::black);
    }
    label->setPalette(colours);
    label->setAutoFillBackground(lit);
}

void ProfileView::done(int result)
{
    if (result != Accepted && !m_presenter.mayLeave())
        return;
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
