#include "views/workbench/pipelineview.h"

#include "ui_pipelineview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/workbench/pipelinewidgets.h"
#include "workbench/pipelinescreen.h"

#include <QCheckBox>
#include <QProgressBar>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

/// The word under which a person knows a medium; tags are stored words.
QString mediumWord(const QString& tag)
{
    const QList<std::pair<QString, QString>> words = {
        {u"Internet"_s, PipelineView::tr("Internet")}, {u"Fax"_s, PipelineView::tr("Fax")},
        {u"Phone"_s, PipelineView::tr("Phone")},       {u"Post"_s, PipelineView::tr("Post")},
        {u"Research"_s, PipelineView::tr("Research")}, {u"Meeting"_s, PipelineView::tr("Meeting")},
        {u"Other"_s, PipelineView::tr("Other")},
    };
    for (const auto& [known, word] : words) {
        if (known == tag)
            return word;
    }
    return u"–"_s;
}

} // namespace

PipelineView::PipelineView(PipelineScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::PipelineView>())
{
    m_ui->setupUi(this);
    buildSteps();
    buildBars();
    look::dress(*this);
    dressTexts();
    orderTabs();
    buildTree();
    m_ui->splPipeline->setSizes({270, 540, 320});
    m_binder = new FormBinder(presenter.form(), presenter, *this);

    connect(&presenter, &PipelineScreen::changed, this, &PipelineView::render);
    connect(&presenter, &PipelineScreen::nodeChosen, this, &PipelineView::choose);
    connect(&presenter.form(), &Form::controlChanged, this, [this](const QString& control) {
        if (control.startsWith("Image1"_L1))
            showMedium(QStringView(control).mid(6).toInt());
    });
    for (int index = 0; index < PipelineSteps::count; ++index)
        showMedium(index);
    render();
}

PipelineView::~PipelineView() = default;

Form& PipelineView::form()
{
    return m_presenter.form();
}

QWidget& PipelineView::firstField()
{
    // A tree that gets the keyboard with no node chosen would choose its first.
    return m_ui->tvwHire->currentIndex().isValid() ? static_cast<QWidget&>(*m_ui->tvwHire) : *m_ui->txtFind;
}

// --- What is built once -----------------------------------------------------------------------------------

void PipelineView::buildSteps()
{
    for (int index = 0; index < PipelineSteps::count; ++index)
        buildStep(*m_ui->layProgress, index);
}

void PipelineView::buildStep(QGridLayout& grid, int index)
{
    const QString number = QString::number(index);
    const QString caption = PipelineSteps::caption(index);
    auto* tick = new QCheckBox(QString(caption).replace(u'&', u"&&"_s), m_ui->frmeProgress);
    tick->setObjectName(u"chkP"_s + number);
    tick->setAccessibleName(caption);
    tick->setToolTip(tr("Job campaign step."));

    auto* date = new StepDateEdit(m_ui->frmeProgress);
    date->setObjectName(u"dtpProg"_s + number);
    date->setAccessibleName(tr("Day of: %1").arg(caption));
    date->setToolTip(tr("Date step completed."));
    connect(date, &StepDateEdit::dropDown, &m_presenter,
            [this, index] { m_presenter.dtpProgDropDown(index); });

    auto* medium = new QToolButton(m_ui->frmeProgress);
    medium->setObjectName(u"Image1"_s + number);
    medium->setToolTip(
        tr("Image representing method of completing step, i.e. internet, phone, meeting, etc."));
    medium->setAutoRaise(true);
    medium->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    medium->setFocusPolicy(Qt::StrongFocus);
    medium->setMinimumWidth(look::fieldWidth(*medium, 14));
    connect(medium, &QToolButton::clicked, &m_presenter, [this, index] { m_presenter.image1Click(index); });

    grid.addWidget(tick, index, 0);
    grid.addWidget(date, index, 1);
    grid.addWidget(medium, index, 2);
    m_ticks.push_back(tick);
    m_dates.push_back(date);
    m_mediums.push_back(medium);
}

void PipelineView::buildBars()
{
    QGridLayout& grid = *m_ui->layVisual;
    for (int index = 0; index < PipelineScreen::barsAPage; ++index) {
        const QString number = QString::number(index);
        auto* label = new BarLabel(m_ui->frmeVisualStat);
        label->setObjectName(u"shpLbl"_s + number);
        connect(label, &QToolButton::clicked, &m_presenter,
                [this, index] { m_presenter.shpLblClick(index); });
        connect(label, &BarLabel::doubleClicked, &m_presenter,
                [this, index] { m_presenter.shpLblDblClick(index); });

        auto* figure = new QLabel(m_ui->frmeVisualStat);
        figure->setObjectName(u"lblSteps"_s + number);
        figure->setProperty("caption", true);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

        auto* bar = new QProgressBar(m_ui->frmeVisualStat);
        bar->setObjectName(u"shp"_s + number);
        bar->setRange(0, PipelineSteps::count);
        bar->setTextVisible(false);
        bar->setFixedHeight(fontMetrics().height() / 2);

        grid.addWidget(label, 2 * index, 0);
        grid.addWidget(figure, 2 * index, 1);
        grid.addWidget(bar, 2 * index + 1, 0, 1, 2);
        m_bars.push_back({label, figure, bar});
    }
}

void PipelineView::orderTabs()
{
    // Steps and bars are made after the rest, but stand in its midst.
    QWidgetList order{m_ui->txtFind, m_ui->tvwHire, m_ui->cmdRefresh1, m_ui->imgOpenContact1};
    for (size_t index = 0; index < m_ticks.size(); ++index)
        order.append({m_ticks[index], m_dates[index], m_mediums[index]});
    order.append({m_ui->optProg1, m_ui->optProg2, m_ui->optProg3, m_ui->cmdVisualBack, m_ui->cmdVisualNext});
    for (const BarRow& row : m_bars)
        order.append(row.label);
    order.append(m_ui->cmdUpdateTrack1);
    for (qsizetype place = 1; place < order.size(); ++place)
        setTabOrder(order.at(place - 1), order.at(place));
}

void PipelineView::buildTree()
{
    KindTree& tree = *m_ui->tvwHire;
    tree.setKindIcon(u"Company"_s, u"view-bank"_s);
    tree.setKindIcon(u"Position"_s, u"view-task"_s);
    tree.setModel(&m_presenter.tvwHire());
    connect(&m_presenter.tvwHire(), &QAbstractItemModel::modelReset, this, &PipelineView::openMatches);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (!m_choosing)
                    m_presenter.tvwHireClick(index);
            });
    // A click on the node that is current already, where the fields have been emptied since.
    connect(&tree, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (!m_presenter.isShown(index))
            m_presenter.tvwHireClick(index);
    });
    connect(&tree, &KindTree::opened, &m_presenter, &PipelineScreen::tvwHireDblClick);
    connect(m_ui->txtFind, &QLineEdit::returnPressed, this, &PipelineView::enterFirstMatch);
    openMatches();
}

void PipelineView::dressTexts()
{
    m_ui->cmdUpdateTrack1->setIcon(icons::named(u"document-save"_s));
    m_ui->imgOpenContact1->setIcon(icons::named(u"user-identity"_s));
    const QAction* find = m_ui->txtFind->addAction(icons::named(u"edit-find"_s), QLineEdit::LeadingPosition);
    // The box makes its two buttons by itself, without a word for those who cannot see them.
    for (QToolButton* button : m_ui->txtFind->findChildren<QToolButton*>()) {
        const bool leads = button->defaultAction() == find;
        button->setObjectName(leads ? u"txtFindLead"_s : u"txtFindClear"_s);
        button->setAccessibleName(leads ? tr("Find") : tr("Clear"));
    }
    QFont large = m_ui->txtPosition->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    for (QLabel* label : {m_ui->txtPosition, m_ui->lblChoose})
        label->setFont(large);
    // The steps stay where they are while there is no next one to tell of.
    QSizePolicy policy = m_ui->pnlNext->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->pnlNext->setSizePolicy(policy);
}

// --- What happens in the tree -----------------------------------------------------------------------------

void PipelineView::choose(const QModelIndex& index, bool alone)
{
    const QScopedValueRollback<bool> program(m_choosing, true);
    KindTree& tree = *m_ui->tvwHire;
    if (!index.isValid()) {
        tree.selectionModel()->clear();
        return;
    }
    if (alone) {
        tree.collapseAll();
        tree.expandToDepth(0);
        tree.expand(index);
    }
    tree.setCurrentIndex(index);
    tree.scrollTo(index);
}

/// Enter in the search leads to the first position that it has left.
void PipelineView::enterFirstMatch()
{
    const PipelineTree& model = m_presenter.tvwHire();
    const QModelIndex root = model.index(0, 0);
    for (int row = 0; !model.filter().isEmpty() && row < model.rowCount(root); ++row) {
        const QModelIndex position = model.index(0, 0, model.index(row, 0, root));
        if (!position.isValid())
            continue;
        m_ui->tvwHire->setFocus();
        m_ui->tvwHire->setCurrentIndex(position);
        return;
    }
}

void PipelineView::openMatches()
{
    // As many companies as one looks through; the positions of thousands would only push the names apart.
    constexpr int openable = 100;
    const PipelineTree& model = m_presenter.tvwHire();
    if (!model.filter().isEmpty() && model.rowCount(model.index(0, 0)) <= openable)
        m_ui->tvwHire->expandAll();
    m_ui->tvwHire->setHint(model.filter().isEmpty()
                               ? tr("No companies here yet.")
                               : tr("No company or position contains “%1”.").arg(model.filter()));
}

// --- What is shown ----------------------------------------------------------------------------------------

void PipelineView::showMedium(int index)
{
    if (index < 0 || index >= PipelineSteps::count)
        return;
    QToolButton* const button = m_mediums.at(static_cast<size_t>(index));
    const QString tag = m_presenter.form().text(button->objectName());
    button->setIcon(mediums::picture(tag));
    button->setText(mediumWord(tag));
    button->setAccessibleName(tr("Medium of: %1").arg(PipelineSteps::caption(index)));
    button->setAccessibleDescription(tag.isEmpty() ? tr("None") : mediumWord(tag));
}

void PipelineView::render()
{
    const bool chosen = m_presenter.hasPosition();
    m_ui->txtPosition->setVisible(chosen);
    m_ui->lblChoose->setVisible(!chosen);
    for (QLabel* label : {m_ui->lblPosEntered, m_ui->lblPosExpiry, m_ui->lblNextStep})
        label->setVisible(chosen);
    m_ui->pnlNext->setVisible(chosen);
    // The step that comes next stands out among the eleven, whatever gaps lie before it.
    size_t next = 0;
    for (size_t index = 0; index < m_ticks.size(); ++index)
        next = m_ticks[index]->isChecked() ? index + 1 : next;
    for (size_t index = 0; index < m_ticks.size(); ++index) {
        QFont font = m_ticks[index]->font();
        font.setBold(chosen && index == next);
        m_ticks[index]->setFont(font);
    }
    renderBars();
}

void PipelineView::renderBars()
{
    m_ui->lblVisual->setText(m_presenter.visualCaption().isEmpty() ? tr("Visual")
                                                                   : m_presenter.visualCaption());
    m_ui->lblVisualPage->setText(
        tr("page %1 of %2").arg(m_presenter.page() + 1).arg(m_presenter.pageCount()));
    m_ui->cmdVisualBack->setEnabled(m_presenter.page() > 0);
    m_ui->cmdVisualNext->setEnabled(m_presenter.page() + 1 < m_presenter.pageCount());
    for (size_t index = 0; index < m_bars.size(); ++index) {
        const PipelineScreen::Bar& bar = m_presenter.bars().at(index);
        const BarRow& row = m_bars[index];
        const bool used = bar.position != 0;
        const QString steps = used ? tr("%1 / %2").arg(bar.progress).arg(PipelineSteps::count) : QString();
        row.label->setText(used ? bar.title : u"-"_s);
        row.label->setAccessibleName(used ? tr("%1 at %2").arg(bar.title, bar.company) : tr("No position"));
        row.label->setToolTip(used ? row.label->accessibleName() : QString());
        row.label->setEnabled(used);
        row.figure->setText(steps);
        row.bar->setValue(bar.progress);
        row.bar->setAccessibleName(used ? tr("Progress of %1").arg(bar.title) : tr("No progress"));
        row.bar->setEnabled(used);
    }
}
