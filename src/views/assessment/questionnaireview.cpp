#include "views/assessment/questionnaireview.h"

#include "assessment/frmquestionnaire.h"
#include "ui_questionnaireview.h"
#include "views/common/formbinder.h"
#include "views/common/look.h"

#include <QCloseEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

QuestionnaireView::QuestionnaireView(FrmQuestionnaire& presenter, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::QuestionnaireView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    int offered = 0;
    QWidget* focused = m_ui->optAnswer0;
    for (int i = 0; i < FrmQuestionnaire::options; ++i) {
        const QString name = u"optAnswer%1"_s.arg(i);
        auto* option = findChild<QRadioButton*>(name);
        const QString caption = presenter.form().items(name).value(0);
        option->setText(tr("%1  %2").arg(i + 1).arg(QString(caption).replace(u'&', u"&&"_s)));
        option->setAccessibleName(caption.isEmpty() ? option->accessibleName() : caption);
        option->installEventFilter(this);
        offered += presenter.form().isVisible(name) ? 1 : 0;
        if (presenter.form().text(name) == u"1")
            focused = option;
    }
    m_ui->lblKeys->setText(offered > 1 ? tr("Keys 1 to %1 choose an answer.").arg(offered) : QString());
    new FormBinder(presenter.form(), presenter, *this);
    connect(&presenter, &FrmQuestionnaire::answered, this, &QDialog::accept);
    m_ui->cmdAnswer->setDefault(true);
    resize(qMax(sizeHint().width(), fontMetrics().averageCharWidth() * 60), sizeHint().height());
    focused->setFocus();
}

QuestionnaireView::~QuestionnaireView() = default;

void QuestionnaireView::closeEvent(QCloseEvent* event)
{
    m_presenter.giveUp();
    QDialog::closeEvent(event);
}

bool QuestionnaireView::takeNumber(int key)
{
    const int number = key - Qt::Key_0;
    if (number < 1 || number > FrmQuestionnaire::options)
        return false;
    m_presenter.choose(number);
    if (auto* option = findChild<QRadioButton*>(u"optAnswer%1"_s.arg(number - 1));
        option && option->isVisible())
        option->setFocus(Qt::OtherFocusReason);
    return true;
}

void QuestionnaireView::keyPressEvent(QKeyEvent* event)
{
    if (!takeNumber(event->key()))
        QDialog::keyPressEvent(event);
}

bool QuestionnaireView::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress && takeNumber(static_cast<QKeyEvent*>(event)->key())) ||
           QDialog::eventFilter(watched, event);
}
