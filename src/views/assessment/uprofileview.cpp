#include "views/assessment/uprofileview.h"

#include "assessment/frmuprofile.h"
#include "ui_uprofileview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QHeaderView>
#include <QShortcut>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// How the words of one kind of test are marked. The line tells kinds apart without the colour.
struct Mark
{
    QColor colour;
    QTextCharFormat::UnderlineStyle line;
    const char* name;
};

constexpr std::array<Mark, Evaluation::KindCount> markLooks{{
    {QColor(0x2E, 0x7D, 0x32), QTextCharFormat::SingleUnderline,
     QT_TRANSLATE_NOOP("UProfileView", "action (line)")},
    {QColor(0xC6, 0x28, 0x28), QTextCharFormat::WaveUnderline,
     QT_TRANSLATE_NOOP("UProfileView", "criticality (wave)")},
    {QColor(0x15, 0x65, 0xC0), QTextCharFormat::DotLine,
     QT_TRANSLATE_NOOP("UProfileView", "quantity (dots)")},
    {QColor(0x6A, 0x1B, 0x9A), QTextCharFormat::DashUnderline,
     QT_TRANSLATE_NOOP("UProfileView", "position (dashes)")},
    {QColor(0xB2, 0x6A, 0x00), QTextCharFormat::DashDotLine,
     QT_TRANSLATE_NOOP("UProfileView", "occupation (dashes and dots)")},
}};

/// A word that hit in several tests has the look of the first of them.
QTextCharFormat formatOf(int kinds, bool onDark)
{
    QTextCharFormat format;
    for (size_t kind = 0; kind < markLooks.size(); ++kind) {
        if (!(kinds >> kind & 1))
            continue;
        QColor back = markLooks[kind].colour;
        back.setAlpha(60);
        format.setBackground(back);
        format.setUnderlineColor(onDark ? markLooks[kind].colour.lighter(190) : markLooks[kind].colour);
        format.setUnderlineStyle(markLooks[kind].line);
        break;
    }
    return format;
}

} // namespace

UProfileView::UProfileView(FrmUProfile& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::UProfileView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    for (QComboBox* box : {m_ui->cmbYearSt, m_ui->cmbYearEnd})
        box->setInsertPolicy(QComboBox::NoInsert);
    m_ui->cmdSave->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdClear->setIcon(icons::named(u"document-new"_s));
    m_ui->cmdRemove->setIcon(icons::named(u"edit-delete"_s));
    m_ui->cmdEvaluate->setIcon(icons::named(u"office-chart-bar"_s));
    m_ui->lblLegend->setText(legend());
    setUpLists();
    new FormBinder(presenter.form(), presenter, *this);
    setUpKeys();
    connect(&presenter, &FrmUProfile::changed, this, &UProfileView::render);
    connect(&presenter, &FrmUProfile::positionWanted, this, &QDialog::accept);
    resize(fontMetrics().averageCharWidth() * 190, fontMetrics().height() * 44);
    m_ui->splProfile->setSizes({280, 520, 420});
    windowstate::restore(*this, layout);
    render();
    m_ui->tvwUProfile->setFocus();
}

UProfileView::~UProfileView() = default;

void UProfileView::setUpLists()
{
    for (const auto& [kind, icon] :
         {std::pair{u"category"_s, u"view-list-details"_s}, {u"item"_s, u"document-edit"_s}})
        m_ui->tvwUProfile->setKindIcon(kind, icon);
    m_ui->tvwUProfile->setHint(tr("Nothing here yet. Fill in the form and press Save."));
    m_ui->lvwPositions->setModel(&m_presenter.lvwPositions());
    m_ui->lvwOccupations->setModel(&m_presenter.lvwOccupations());
    m_ui->lvwPositions->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int index : {1, 2})
        m_ui->lvwPositions->header()->setSectionResizeMode(index, QHeaderView::ResizeToContents);
    m_ui->lvwPositions->header()->setStretchLastSection(false);
    connect(m_ui->lvwPositions, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { m_presenter.lvwPositionsDblClick(index.row()); });
    connect(m_ui->lvwOccupations->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { m_presenter.lvwOccupationsClick(index.row()); });
    connect(m_ui->lvwOccupations, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { m_presenter.lvwOccupationsClick(index.row()); });
}

void UProfileView::setUpKeys()
{
    const auto onKey = [this](const QKeySequence& keys, QAbstractButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QAbstractButton::click);
    };
    onKey(QKeySequence::Save, m_ui->cmdSave);
    onKey(QKeySequence::New, m_ui->cmdClear);
    onKey(Qt::Key_F5, m_ui->cmdEvaluate);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::close);
}

void UProfileView::chooseNode(const QModelIndex& node)
{
    if (!m_rendering && node.isValid())
        m_presenter.tvwUProfileNodeClick(node);
}

void UProfileView::render()
{
    m_rendering = true;
    if (m_ui->tvwUProfile->model() != &m_presenter.tvwUProfile()) { // built anew
        m_ui->tvwUProfile->setModel(&m_presenter.tvwUProfile());
        m_ui->tvwUProfile->expandAll();
        connect(m_ui->tvwUProfile->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &UProfileView::chooseNode);
    }
    const QModelIndex node = m_presenter.currentNode();
    const QModelIndex current = m_ui->tvwUProfile->currentIndex();
    if (node != current && (node.isValid() || ProfileTree::isLeaf(current)))
        m_ui->tvwUProfile->setCurrentIndex(node);
    m_rendering = false;
    renderMarks();
}

void UProfileView::renderMarks()
{
    for (QPlainTextEdit* box :
         std::initializer_list<QPlainTextEdit*>{m_ui->txtP, m_ui->txtA, m_ui->txtR, m_ui->txtExample})
        mark(*box);
}

void UProfileView::mark(QPlainTextEdit& box)
{
    QList<QTextEdit::ExtraSelection> selections;
    const bool onDark = box.palette().color(QPalette::Base).lightness() < 128;
    for (const WordMark& mark : m_presenter.marks(box.objectName())) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(box.document());
        selection.cursor.setPosition(static_cast<int>(mark.from));
        selection.cursor.setPosition(static_cast<int>(mark.from + mark.length), QTextCursor::KeepAnchor);
        selection.format = formatOf(mark.kinds, onDark);
        selections.append(selection);
    }
    if (!selections.isEmpty() || !box.extraSelections().isEmpty())
        box.setExtraSelections(selections);
}

QString UProfileView::legend() const
{
    QStringList names;
    for (const Mark& mark : markLooks)
        names.append(tr(mark.name));
    return tr("Marked words: %1").arg(names.join(u", "_s));
}

void UProfileView::done(int result)
{
    if (m_presenter.isEvaluating() || (result != Accepted && !m_presenter.mayLeave()))
        return;
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
