// The screen that makes one contact of two.
#pragma once

#include "base/form.h"
#include "intake/contactmerge.h"

#include <QAbstractTableModel>

#include <memory>
#include <optional>

/// The fields of both contacts side by side; a tick says whose value is kept.
class MergeFields : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Columns { Field, First, Second, ColumnCount };

    /// Null for none.
    void show(ContactMerge* merge);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    ContactMerge* m_merge = nullptr;
};

/// Lists the pairs of contacts that may be the same person, and merges the one that is chosen.
class FrmMerge : public QObject
{
    Q_OBJECT

public:
    explicit FrmMerge(Session& session);

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] MergeFields& tblFields() { return m_fields; }
    [[nodiscard]] int pairCount() const { return static_cast<int>(m_pairs.size()); }

    /// Looks for pairs among all contacts.
    void load();
    /// Only this pair, as somebody chose it.
    void load(const ContactPair& pair);
    void fieldChanged(const QString& control);

public slots:
    void cmdSwap();     ///< the other contact becomes the one that is kept
    void cmdMergeTwo(); ///< merges after one question

signals:
    void merged();

private:
    void listPairs();
    void showPair(int pair);

    Session& m_session;
    Form m_form;
    MergeFields m_fields;
    std::vector<ContactPair> m_pairs;
    int m_shown = -1;
    std::unique_ptr<ContactMerge> m_merge;
};
