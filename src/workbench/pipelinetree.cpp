#include "workbench/pipelinetree.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A node is told by its row and this number: what it is, and for a position the row of its company.
constexpr quintptr rootId = 0;
constexpr quintptr companyId = 1;
constexpr quintptr firstPositionId = 2;

bool isRoot(const QModelIndex& index)
{
    return index.isValid() && index.internalId() == rootId;
}

bool isCompany(const QModelIndex& index)
{
    return index.isValid() && index.internalId() == companyId;
}

bool isPosition(const QModelIndex& index)
{
    return index.isValid() && index.internalId() >= firstPositionId;
}

} // namespace

void PipelineTree::clear()
{
    beginResetModel();
    m_hasNodes = false;
    m_companies.clear();
    m_shown.clear();
    endResetModel();
}

void PipelineTree::fill(std::vector<Company> companies)
{
    beginResetModel();
    m_hasNodes = true;
    m_companies = std::move(companies);
    narrow();
    endResetModel();
}

void PipelineTree::setFilter(const QString& text)
{
    if (text == m_filter)
        return;
    beginResetModel();
    m_filter = text;
    narrow();
    endResetModel();
}

void PipelineTree::narrow()
{
    m_shown.clear();
    for (const Company& company : m_companies) {
        if (m_filter.isEmpty() || company.name.contains(m_filter, Qt::CaseInsensitive)) {
            m_shown.push_back({&company, company.positions});
            continue;
        }
        const QStringList matches = company.positions.filter(m_filter, Qt::CaseInsensitive);
        if (!matches.isEmpty())
            m_shown.push_back({&company, matches});
    }
}

const PipelineTree::Shown* PipelineTree::shownAt(const QModelIndex& index) const
{
    if (!isCompany(index) && !isPosition(index))
        return nullptr;
    const size_t row =
        isCompany(index) ? static_cast<size_t>(index.row()) : index.internalId() - firstPositionId;
    return row < m_shown.size() ? &m_shown[row] : nullptr;
}

bool PipelineTree::areAllIn(const QSet<QString>& names) const
{
    return std::ranges::all_of(m_companies, [&](const Company& each) { return names.contains(each.name); });
}

QModelIndex PipelineTree::findCompany(const QString& name) const
{
    const auto found =
        std::ranges::find_if(m_shown, [&](const Shown& shown) { return shown.company->name == name; });
    return found == m_shown.end() ? QModelIndex()
                                  : createIndex(static_cast<int>(found - m_shown.begin()), 0, companyId);
}

QModelIndex PipelineTree::findPosition(const QString& company, const QString& title) const
{
    const QModelIndex owner = findCompany(company);
    if (!owner.isValid())
        return {};
    const auto row = shownAt(owner)->positions.indexOf(title);
    return row < 0 ? QModelIndex() : index(static_cast<int>(row), 0, owner);
}

QString PipelineTree::text(const QModelIndex& index) const
{
    if (isRoot(index))
        return tr("Jobwright");
    const Shown* const shown = shownAt(index);
    if (!shown)
        return {};
    return isCompany(index) ? shown->company->name : shown->positions.value(index.row());
}

QString PipelineTree::key(const QModelIndex& index) const
{
    if (isCompany(index))
        return u"L2-" + text(index);
    return isPosition(index) ? QString(u"L3-" + text(index.parent()) + u'-' + text(index)) : QString();
}

QString PipelineTree::kind(const QModelIndex& index) const
{
    if (isCompany(index))
        return u"Company"_s;
    return isPosition(index) ? u"Position"_s : QString();
}

QModelIndex PipelineTree::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, rootId);
    return createIndex(row, column,
                       isRoot(parent) ? companyId : firstPositionId + static_cast<quintptr>(parent.row()));
}

QModelIndex PipelineTree::parent(const QModelIndex& child) const
{
    if (isCompany(child))
        return createIndex(0, 0, rootId);
    if (isPosition(child))
        return createIndex(static_cast<int>(child.internalId() - firstPositionId), 0, companyId);
    return {};
}

int PipelineTree::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_hasNodes ? 1 : 0;
    if (isRoot(parent))
        return static_cast<int>(m_shown.size());
    const Shown* const shown = isCompany(parent) ? shownAt(parent) : nullptr;
    return shown ? static_cast<int>(shown->positions.size()) : 0;
}

QVariant PipelineTree::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case TreeModel::KeyRole:
        return key(index);
    case TreeModel::KindRole:
        return kind(index);
    default:
        return {};
    }
}
