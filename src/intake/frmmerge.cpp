#include "intake/frmmerge.h"

using namespace Qt::StringLiterals;

void MergeFields::show(ContactMerge* merge)
{
    beginResetModel();
    m_merge = merge;
    endResetModel();
}

int MergeFields::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_merge ? 0 : static_cast<int>(m_merge->rows().size());
}

int MergeFields::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MergeFields::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !m_merge)
        return {};
    const ContactMerge::Row& row = m_merge->rows()[static_cast<size_t>(index.row())];
    const bool isSecond = index.column() == Second;
    if (role == Qt::CheckStateRole && index.column() != Field)
        return row.takeSecond == isSecond ? Qt::Checked : Qt::Unchecked;
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    return index.column() == Field ? row.label : isSecond ? row.second : row.first;
}

QVariant MergeFields::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Field   ? tr("Field")
           : section == First ? tr("Contact that is kept")
                              : tr("Contact that goes");
}

Qt::ItemFlags MergeFields::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Field ? flags : flags | Qt::ItemIsUserCheckable;
}

bool MergeFields::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !m_merge || index.column() == Field)
        return false;
    const bool on = value.toInt() == Qt::Checked;
    m_merge->take(index.row(), on == (index.column() == Second));
    emit dataChanged(this->index(index.row(), First), this->index(index.row(), Second));
    return true;
}

FrmMerge::FrmMerge(Session& session)
    : m_session(session)
    , m_form({{u"cmbPair"_s, {}, SaveOn::Never}})
{
}

void FrmMerge::load()
{
    m_pairs = findDoubles(m_session);
    listPairs();
}

void FrmMerge::load(const ContactPair& pair)
{
    m_pairs = {pair};
    listPairs();
}

void FrmMerge::listPairs()
{
    QStringList texts;
    for (const ContactPair& pair : m_pairs)
        texts.append(QString::number(texts.size() + 1) + u". " + pair.firstName + u"  –  " + pair.secondName);
    m_form.setItems(u"cmbPair"_s, texts);
    showPair(m_pairs.empty() ? -1 : 0);
}

void FrmMerge::fieldChanged(const QString& control)
{
    const auto pair = static_cast<int>(m_form.items(control).indexOf(m_form.text(control)));
    if (pair >= 0 && pair != m_shown)
        showPair(pair);
}

void FrmMerge::showPair(int pair)
{
    m_shown = pair;
    m_fields.show(nullptr);
    m_merge.reset();
    QString moves = tr("There are no contacts whose names are equal.");
    QString reason;
    if (pair >= 0) {
        const ContactPair& both = m_pairs[static_cast<size_t>(pair)];
        m_form.setText(u"cmbPair"_s, m_form.items(u"cmbPair"_s)[pair]);
        m_merge = std::make_unique<ContactMerge>(m_session, both.first, both.second);
        const ContactMerge::Moves& count = m_merge->moves();
        moves = tr("What moves: histories %1, events %2, links %3, documents %4.")
                    .arg(count.histories)
                    .arg(count.events)
                    .arg(count.links)
                    .arg(count.documents);
        reason = m_merge->refusal();
    }
    m_fields.show(m_merge.get());
    m_form.setText(u"lblMoves"_s, reason.isEmpty() ? moves : reason);
    m_form.setEnabled(u"cmdMergeTwo"_s, pair >= 0 && reason.isEmpty());
    m_form.setEnabled(u"cmdSwap"_s, pair >= 0);
}

void FrmMerge::cmdSwap()
{
    if (m_shown < 0)
        return;
    ContactPair& pair = m_pairs[static_cast<size_t>(m_shown)];
    std::swap(pair.first, pair.second);
    std::swap(pair.firstName, pair.secondName);
    const int shown = m_shown;
    listPairs();
    showPair(shown);
}

void FrmMerge::cmdMergeTwo()
{
    if (!m_merge)
        return;
    const ContactPair pair = m_pairs[static_cast<size_t>(m_shown)];
    if (m_session.msgBox(tr("Merge %2 into %1?").arg(pair.firstName, pair.secondName), Buttons::YesNo) !=
            Answer::Yes ||
        !m_merge->run())
        return;
    // Pairs with the contact that is gone are none any more.
    std::erase_if(m_pairs, [&](const ContactPair& each) {
        return each.first == pair.second || each.second == pair.second;
    });
    listPairs();
    emit merged();
}
