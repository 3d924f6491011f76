#include "views/assessment/editorview.h"

#include "assessment/frmeditor.h"
#include "ui_editorview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

EditorView::EditorView(FrmEditor& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::EditorView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->cmdLoad->setIcon(icons::named(u"document-import"_s));
    m_ui->cmdSave->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdAdd->setIcon(icons::named(u"document-new"_s));
    m_ui->cmdRemove->setIcon(icons::named(u"edit-delete"_s));
    m_ui->tvwQuestions->setModel(&presenter.tvwQuestions());
    m_ui->tvwQuestions->setKindIcon(u"question"_s, u"dialog-question"_s);
    m_ui->tvwQuestions->setHint(tr("Load a template, or type a question and press Add."));
    new FormBinder(presenter.form(), presenter, *this);
    connect(m_ui->tvwQuestions->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &EditorView::choose);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::close);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, m_ui->cmdSave,
            &QAbstractButton::click);
    connect(&presenter, &FrmEditor::changed, this, &EditorView::render);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 30);
    m_ui->splEditor->setSizes({400, 500});
    windowstate::restore(*this, layout);
    m_ui->txtFileName->setFocus();
}

EditorView::~EditorView() = default;

void EditorView::choose(const QModelIndex& node)
{
    if (!m_rendering && node.isValid())
        m_presenter.tvwQuestionsNodeClick(node);
}

void EditorView::render()
{
    m_rendering = true;
    m_ui->tvwQuestions->expandAll();
    const int question = m_presenter.selected();
    const TreeModel& tree = m_presenter.tvwQuestions();
    const QModelIndex current = m_ui->tvwQuestions->currentIndex();
    // A chosen answer stays chosen: it stands for its question.
    const QString key = question == 0 ? u"Root"_s : QString(u'Q' + QString::number(question));
    if (tree.key(current).section(u'A', 0, 0) != key)
        m_ui->tvwQuestions->setCurrentIndex(tree.find(key));
    m_rendering = false;
}

void EditorView::done(int result)
{
    if (!m_presenter.mayLeave())
        return;
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
